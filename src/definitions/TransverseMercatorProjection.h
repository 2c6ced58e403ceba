#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Transverse Mercator, the projection of every UTM zone. Its section is
// "UTM_PROJECTION" for all transverse Mercator systems, zones or not.
class GXCART_API CGxTransverseMercatorProjectionIDs {
public:
    static constexpr const char SectionName[] = "UTM_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxTransverseMercatorProjection : public CGxTabledMapProjData,
                                                   public CGxTransverseMercatorProjectionIDs {
public:
    CGxTransverseMercatorProjection();
    explicit CGxTransverseMercatorProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxTransverseMercatorProjection(const std::string& name, const std::string& branchName,
                                    const std::string& ellipsoidID, double scale, double centre,
                                    double originLatitude, double falseEasting,
                                    double falseNorthing, bool canDelete = false,
                                    bool canEdit = false);
    CGxTransverseMercatorProjection(const CGxTransverseMercatorProjection& other) = default;
    CGxTransverseMercatorProjection& operator=(const CGxTransverseMercatorProjection& other) =
        default;

    CGxProjection* CreateProjection() const override;

    // Scale factor on the central meridian.
    double GetScale() const { return _Param(0); }
    void SetScale(double scale) { _SetParam(0, scale); }

    // Longitude of the central meridian, degrees.
    double GetCentre() const { return _Param(1); }
    void SetCentre(double centre) { _SetParam(1, centre); }

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
