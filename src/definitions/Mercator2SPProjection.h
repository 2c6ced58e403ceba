#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Normal Mercator whose scale is true on two parallels symmetric about the
// equator. Older catalogue files name its section "MERCATOR_PROJECTION".
class GXCART_API CGxMercator2SPProjectionIDs {
public:
    static constexpr const char SectionName[] = "MERCATOR_2SP_PROJECTION";
    // Accepted on reading only.
    static constexpr const char OldSectionName[] = "MERCATOR_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxMercator2SPProjection : public CGxTabledMapProjData,
                                            public CGxMercator2SPProjectionIDs {
public:
    CGxMercator2SPProjection();
    explicit CGxMercator2SPProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxMercator2SPProjection(const std::string& name, const std::string& branchName,
                             const std::string& ellipsoidID, double parallel1, double centre,
                             double falseEasting, double falseNorthing, bool canDelete = false,
                             bool canEdit = false);
    CGxMercator2SPProjection(const CGxMercator2SPProjection& other) = default;
    CGxMercator2SPProjection& operator=(const CGxMercator2SPProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Latitude of true scale, degrees.
    double GetParallel1() const { return _Param(0); }
    void SetParallel1(double parallel1) { _SetParam(0, parallel1); }

    // Longitude of the central meridian, degrees.
    double GetCentre() const { return _Param(1); }
    void SetCentre(double centre) { _SetParam(1, centre); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(2); }
    void SetFalseEasting(double falseEasting) { _SetParam(2, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(3); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(3, falseNorthing); }
};
