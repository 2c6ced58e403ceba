#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"
#include "projections/math/ObliqueMercatorMath.h"

class CGxEllipsoid;

// The ellipsoidal oblique Mercator of Hotine (math/ObliqueMercatorMath.h),
// shared by the three grids built on it: natural origin, projection centre and
// rectified skew orthomorphic. They differ only in the grid origin and in the
// rectification angle, and add their constructors and catalogue definition
// types.
class GXCART_API CGxObliqueMercatorBase : public CGxLocalGridOf<CGxObliqueMercatorBase> {
public:
    // The projection centre, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Projected corners of the +-3 degree box around the centre.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

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
    using CGxLocalGridOf::CGxLocalGridOf;

    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double scale, double centreLongitude, double centreLatitude, double azimuth,
                double gridAngle, bool originAtCentre, double falseEasting, double falseNorthing,
                const CGxEllipsoid& ellipsoid);

private:
    // Longitude/latitude in degrees to easting/northing in the ellipsoid
    // unit and back; the convergence is the numerical one, from a
    // one-arc-minute step north.
    friend CGxLocalGridOf<CGxObliqueMercatorBase>;
    void _Forward(double lon, double lat, double* x, double* y) const {
        hotine.Forward(lon, lat, x, y);
    }
    void _Inverse(double x, double y, double* lon, double* lat) const {
        hotine.Inverse(x, y, lon, lat);
    }

    double latC = kGxNoFigure;  // centre latitude, radians
    double lonC = kGxNoFigure;  // centre longitude, radians
    GxHotineOblique hotine;
};
