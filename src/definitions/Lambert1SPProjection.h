#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Lambert conformal conic with one standard parallel, the latitude of the
// natural origin, where the scale factor is given.
class GXCART_API CGxLambert1SPProjectionIDs {
public:
    static constexpr const char SectionName[] = "LAMBERT_CONIC_1SP_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxLambert1SPProjection : public CGxTabledMapProjData,
                                           public CGxLambert1SPProjectionIDs {
public:
    CGxLambert1SPProjection();
    explicit CGxLambert1SPProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxLambert1SPProjection(const std::string& name, const std::string& branchName,
                            const std::string& ellipsoidID, double scale, double originLongitude,
                            double originLatitude, double falseEasting, double falseNorthing,
                            bool canDelete = false, bool canEdit = false);
    CGxLambert1SPProjection(const CGxLambert1SPProjection& other) = default;
    CGxLambert1SPProjection& operator=(const CGxLambert1SPProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Scale factor at the natural origin.
    double GetScale() const { return _Param(0); }
    void SetScale(double scale) { _SetParam(0, scale); }

    // Longitude of the natural origin (central meridian), degrees.
    double GetOriginLongitude() const { return _Param(1); }
    void SetOriginLongitude(double originLongitude) { _SetParam(1, originLongitude); }

    // Latitude of the natural origin, degrees.
    double GetOriginLatitude() const { return _Param(2); }
    void SetOriginLatitude(double originLatitude) { _SetParam(2, originLatitude); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(3); }
    void SetFalseEasting(double falseEasting) { _SetParam(3, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(4); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(4, falseNorthing); }
};
