#pragma once

#include <string>

#include "definitions/TabledMapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// Oblique Mercator with the false origin at the projection centre.
class GXCART_API CGxObliqueMercatorProjectionIDs {
public:
    static constexpr const char SectionName[] = "OBLIQUE_MERCATOR_PROJECTION";
};

// Named setters change nothing unless the definition is editable.
class GXCART_API CGxObliqueMercatorProjection : public CGxTabledMapProjData,
                                                public CGxObliqueMercatorProjectionIDs {
public:
    CGxObliqueMercatorProjection();
    explicit CGxObliqueMercatorProjection(const std::string& name);
    // Angles in decimal degrees, lengths in metres.
    CGxObliqueMercatorProjection(const std::string& name, const std::string& branchName,
                                 const std::string& ellipsoidID, double scale,
                                 double centerLongitude, double centerLatitude, double azimuth,
                                 double falseEasting, double falseNorthing, bool canDelete = false,
                                 bool canEdit = false);
    CGxObliqueMercatorProjection(const CGxObliqueMercatorProjection& other) = default;
    CGxObliqueMercatorProjection& operator=(const CGxObliqueMercatorProjection& other) = default;

    CGxProjection* CreateProjection() const override;

    // Scale factor on the initial line.
    double GetScale() const { return _Param(0); }
    void SetScale(double scale) { _SetParam(0, scale); }

    // Longitude of the projection centre, degrees.
    double GetCenterLongitude() const { return _Param(1); }
    void SetCenterLongitude(double centerLongitude) { _SetParam(1, centerLongitude); }

    // Latitude of the projection centre, degrees.
    double GetCenterLatitude() const { return _Param(2); }
    void SetCenterLatitude(double centerLatitude) { _SetParam(2, centerLatitude); }

    // Azimuth of the initial line through the centre, degrees east of north.
    double GetAzimuth() const { return _Param(3); }
    void SetAzimuth(double azimuth) { _SetParam(3, azimuth); }

    // False easting, metres.
    double GetFalseEasting() const { return _Param(4); }
    void SetFalseEasting(double falseEasting) { _SetParam(4, falseEasting); }

    // False northing, metres.
    double GetFalseNorthing() const { return _Param(5); }
    void SetFalseNorthing(double falseNorthing) { _SetParam(5, falseNorthing); }
};
