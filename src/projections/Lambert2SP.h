#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"
#include "projections/math/LambertConeMath.h"

class CGxEllipsoid;
class CGxLambert2SPProjection;

// Lambert conformal conic with two standard parallels, true to scale on both;
// coordinates count from a false origin.
class GXCART_API CGxLambert2SP : public CGxAlgorithmOf<CGxLambert2SP, CGxLambert2SPProjection> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); parallel1,
    // parallel2: the standard parallels, degrees; originLongitude,
    // originLatitude: the false origin, degrees; false easting and northing
    // at the false origin, in the ellipsoid's unit.
    CGxLambert2SP(const char* name, double parallel1, double parallel2, double originLongitude,
                  double originLatitude, double falseEasting, double falseNorthing,
                  const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxLambert2SP(const CGxLambert2SPProjection* definition);

    // The false origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Projected corners of the +-3 degree box around the false origin; a false
    // origin at a pole is replaced by the mean standard parallel.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

private:
    friend CGxLocalGridOf<CGxLambert2SP>;
    void _Forward(double lon, double lat, double* x, double* y) const {
        cone.Forward(lon, lat, x, y);
    }
    void _Inverse(double x, double y, double* lon, double* lat) const {
        cone.Inverse(x, y, lon, lat);
    }
    // n times the longitude difference from the origin, degrees.
    double _Convergence(double lon, double lat) const;

    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double parallel1, double parallel2, double originLongitude, double originLatitude,
                double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid);

    double lat1 = kGxNoFigure;  // radians
    double lat2 = kGxNoFigure;  // radians
    double latF = kGxNoFigure;  // radians
    GxLambertCone cone;
};
