#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Normal Mercator with a given scale factor on the equator. Its default
// definition carries a scale of 0; an editor fills in the real one.
class GXCART_API CGxMercator1SPProjectionIDs {
public:
    static constexpr const char SectionName[] = "MERCATOR_1SP_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxMercator1SPProjection : public CGxTabledMapProjData,
                                            public CGxMercator1SPProjectionIDs {
public:
    CGxMercator1SPProjection();
    explicit CGxMercator1SPProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxMercator1SPProjection(const std::string& name, const std::string& branchName,
                             const std::string& ellipsoidID, double scale, double centre,
                             double falseEasting, double falseNorthing, bool canDelete = false,
                             bool canEdit = false);
    CGxMercator1SPProjection(const CGxMercator1SPProjection& other) = default;
    CGxMercator1SPProjection& operator=(const CGxMercator1SPProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Scale factor on the equator.
    double GetScale() const { return _Param(0); }
    void SetScale(double scale) { _SetParam(0, scale); }

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
