#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Lambert conformal conic with two standard parallels and a false origin.
class GXCART_API CGxLambert2SPProjectionIDs {
public:
    static constexpr const char SectionName[] = "LAMBERT_CONIC_2SP_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxLambert2SPProjection : public CGxTabledMapProjData,
                                           public CGxLambert2SPProjectionIDs {
public:
    CGxLambert2SPProjection();
    explicit CGxLambert2SPProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxLambert2SPProjection(const std::string& name, const std::string& branchName,
                            const std::string& ellipsoidID, double parallel1, double parallel2,
                            double originLongitude, double originLatitude, double falseEasting,
                            double falseNorthing, bool canDelete = false, bool canEdit = false);
    CGxLambert2SPProjection(const CGxLambert2SPProjection& other) = default;
    CGxLambert2SPProjection& operator=(const CGxLambert2SPProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // First standard parallel, degrees.
    double GetParallel1() const { return _Param(0); }
    void SetParallel1(double parallel1) { _SetParam(0, parallel1); }

    // Second standard parallel, degrees.
    double GetParallel2() const { return _Param(1); }
    void SetParallel2(double parallel2) { _SetParam(1, parallel2); }

    // Longitude of the false origin (central meridian), degrees.
    double GetOriginLongitude() const { return _Param(2); }
    void SetOriginLongitude(double originLongitude) { _SetParam(2, originLongitude); }

    // Latitude of the false origin, degrees.
    double GetOriginLatitude() const { return _Param(3); }
    void SetOriginLatitude(double originLatitude) { _SetParam(3, originLatitude); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(4); }
    void SetFalseEasting(double falseEasting) { _SetParam(4, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(5); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(5, falseNorthing); }
};
