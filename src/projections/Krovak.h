#pragma once

#include "foundation/Projection.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;

// Krovak's oblique conformal conic: the ellipsoid goes conformally onto the
// Gaussian sphere of the centre latitude, the sphere is turned so that its
// pole moves to the cone's axis (the pseudo pole, reached from the centre
// along the given azimuth), and the turned sphere goes onto a cone tangent
// along the pseudo standard parallel. Formulas as in the Czech and Slovak
// survey's guidance (EPSG method 9819).
//
// The cone's own axes are southing Xp = r cos(theta) and westing
// Yp = r sin(theta). Two axis scales and a plane rotation give any other
// orientation: scales (1, 1) and rotation 0 keep southing/westing; scales
// (-1, 1) with a rotation of 90 degrees give easting/northing.
class GXCART_API CGxKrovak : public CGxProjection {
public:
    // Angles in degrees; xScale and yScale are plain factors on Xp and Yp;
    // false easting and northing in the ellipsoid unit, added after the
    // rotation.
    CGxKrovak(const char* name, double scaleAtPseudoParallel, double pseudoParallel,
              double centreLongitude, double centreLatitude, double azimuth, double xyPlaneRotation,
              double xScale, double yScale, double falseEasting, double falseNorthing,
              const CGxEllipsoid& ellipsoid);

    const char* GetName() const override;
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // Origin longitude and centre latitude, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Numerical, from a one-arc-minute step north.
    double GetConvergence(double lon, double lat) const override;
    // A square of 1000 km around the projected origin; both axes are centred
    // on the origin's first coordinate.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    CGxProjection* Clone() const override;

private:
    GxProjectionName name;
    double a, f, e, e2;
    double kp;      // scale on the pseudo standard parallel
    double latP;    // pseudo standard parallel, radians
    double latC;    // centre latitude, radians
    double lon0;    // origin longitude, radians
    double alphaC;  // azimuth of the initial line: co-latitude of the pseudo pole
    double rotation;
    double xScale, yScale;
    double falseEasting, falseNorthing;
    double A, B, gamma0, t0, n, r0;
    double cosRot, sinRot;
    // Derived once for the conversions.
    double cosAlpha, sinAlpha, tanHalfP;
};
