#pragma once

#include <string>

#include "foundation/Projection.h"
#include "projections/FromDefinition.h"
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
    // A grid built from a definition: the name only, every number unset until
    // _Setup is called with the definition's values and its ellipsoid.
    explicit CGxObliqueMercatorBase(const std::string& name);

    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double scale, double centreLongitude, double centreLatitude, double azimuth,
                double gridAngle, bool originAtCentre, double falseEasting, double falseNorthing,
                const CGxEllipsoid& ellipsoid);

private:
    GxProjectionName name;
    double a = kGxNoFigure, f = kGxNoFigure, e = kGxNoFigure, e2 = kGxNoFigure;
    double kc = kGxNoFigure;      // scale on the central line
    double latC = kGxNoFigure;    // centre latitude, radians
    double lonC = kGxNoFigure;    // centre longitude, radians
    double alphaC = kGxNoFigure;  // azimuth of the central line, radians
    double gammaC = kGxNoFigure;  // rectification angle, radians
    double falseEasting = kGxNoFigure, falseNorthing = kGxNoFigure;
    // conformal-to-geodetic latitude series
    double c[4] = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};
    double B = kGxNoFigure, A = kGxNoFigure, H = kGxNoFigure;
    double gamma0 = kGxNoFigure, lon0 = kGxNoFigure;
    double uC = kGxNoFigure;  // distance along the central line from natural origin to centre
    // |uC| signed by the centre's hemisphere; 0 for the natural origin
    double uShift = kGxNoFigure;
    // Derived once for the conversions.
    double cosGamma0 = kGxNoFigure, sinGamma0 = kGxNoFigure;
    double cosGammaC = kGxNoFigure, sinGammaC = kGxNoFigure;
    double aOverB = kGxNoFigure, bOverA = kGxNoFigure;
};
