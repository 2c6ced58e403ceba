#pragma once

#include "foundation/Projection.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;

// The ellipsoidal oblique Mercator of Hotine, shared by the three grids built on
// it (natural origin, projection centre, rectified skew orthomorphic). The
// ellipsoid is mapped conformally onto the aposphere, a surface of constant
// total curvature; the central line through the projection centre at the
// given azimuth becomes the equator of an oblique Mercator on it. Formulas as
// in the national surveys' guidance for Hotine's projection (EPSG variants A
// and B); the latitude comes back from the conformal latitude by its series.
//
// (u, v) are the skew coordinates along and across the central line, u
// measured from the natural origin where the central line crosses the
// aposphere's equator. The grid turns (v, u) by the rectification angle
// gammaC; the centre-origin grid also shifts u so that the projection centre
// is its origin.
class GXCART_API CGxObliqueMercatorBase : public CGxProjection {
public:
    const char* GetName() const override;
    // Longitude/latitude in degrees to easting/northing in the ellipsoid unit.
    // The poles and points 90 degrees from the central line have no image
    // (NaN or infinity).
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // The projection centre, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Numerical, from a one-arc-minute step north.
    double GetConvergence(double lon, double lat) const override;
    // Projected corners of the +-3 degree box around the centre.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;

protected:
    // Angles in degrees: azimuth of the central line at the centre (clockwise
    // from north), gridAngle the rectification from skew to grid axes.
    // originAtCentre moves the grid origin from the natural origin to the
    // projection centre.
    CGxObliqueMercatorBase(const char* name, double scale, double centreLongitude,
                           double centreLatitude, double azimuth, double gridAngle,
                           bool originAtCentre, double falseEasting, double falseNorthing,
                           const CGxEllipsoid& ellipsoid);

private:
    GxProjectionName name;
    double a, f, e, e2;
    double kc;      // scale on the central line
    double latC;    // centre latitude, radians
    double lonC;    // centre longitude, radians
    double alphaC;  // azimuth of the central line, radians
    double gammaC;  // rectification angle, radians
    double falseEasting, falseNorthing;
    double c[4];  // conformal-to-geodetic latitude series
    double B, A, H, gamma0, lon0;
    double uC;      // distance along the central line from natural origin to centre
    double uShift;  // |uC| signed by the centre's hemisphere; 0 for the natural origin
    // Derived once for the conversions.
    double cosGamma0, sinGamma0, cosGammaC, sinGammaC;
    double aOverB, bOverA;
};
