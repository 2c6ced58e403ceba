#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Lambert azimuthal equal-area, centred on any point.
class GXCART_API CGxLambertAzimuthalEqualAreaProjectionIDs {
public:
    static constexpr const char SectionName[] = "LAMBERT_AZIMUTHAL_EQUAL_AREA_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxLambertAzimuthalEqualAreaProjection
    : public CGxTabledMapProjData,
      public CGxLambertAzimuthalEqualAreaProjectionIDs {
public:
    CGxLambertAzimuthalEqualAreaProjection();
    explicit CGxLambertAzimuthalEqualAreaProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxLambertAzimuthalEqualAreaProjection(const std::string& name, const std::string& branchName,
                                           const std::string& ellipsoidID, double centre,
                                           double originLatitude, double falseEasting,
                                           double falseNorthing, bool canDelete = false,
                                           bool canEdit = false);
    CGxLambertAzimuthalEqualAreaProjection(const CGxLambertAzimuthalEqualAreaProjection& other) =
        default;
    CGxLambertAzimuthalEqualAreaProjection& operator=(
        const CGxLambertAzimuthalEqualAreaProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Longitude of the central meridian, degrees.
    double GetCentre() const { return _Param(0); }
    void SetCentre(double centre) { _SetParam(0, centre); }

    // Latitude of the natural origin, degrees.
    double GetOriginLatitude() const { return _Param(1); }
    void SetOriginLatitude(double originLatitude) { _SetParam(1, originLatitude); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(2); }
    void SetFalseEasting(double falseEasting) { _SetParam(2, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(3); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(3, falseNorthing); }
};
