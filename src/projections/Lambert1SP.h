#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"
#include "projections/math/LambertConeMath.h"

class CGxEllipsoid;
class CGxLambert1SPProjection;

// Lambert conformal conic with one standard parallel: the cone touches the
// ellipsoid along the parallel of the natural origin, where the scale is k0.
class GXCART_API CGxLambert1SP : public CGxAlgorithmOf<CGxLambert1SP, CGxLambert1SPProjection> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); scale: k0 at the
    // natural origin; originLongitude, originLatitude in degrees; false easting
    // and northing in the ellipsoid's unit.
    CGxLambert1SP(const char* name, double scale, double originLongitude, double originLatitude,
                  double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxLambert1SP(const CGxLambert1SPProjection* definition);

    // The natural origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Projected corners of the +-3 degree box around the natural origin.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

private:
    friend CGxLocalGridOf<CGxLambert1SP>;
    void _Forward(double lon, double lat, double* x, double* y) const {
        cone.Forward(lon, lat, x, y);
    }
    void _Inverse(double x, double y, double* lon, double* lat) const {
        cone.Inverse(x, y, lon, lat);
    }
    // n times the longitude difference from the origin, degrees; on a cone it
    // does not depend on the latitude.
    double _Convergence(double lon, double lat) const;

    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double scale, double originLongitude, double originLatitude, double falseEasting,
                double falseNorthing, const CGxEllipsoid& ellipsoid);

    double lat0 = kGxNoFigure;  // radians
    double k0 = kGxNoFigure;
    GxLambertCone cone;
};
