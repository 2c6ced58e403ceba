#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"
#include "projections/math/CylindricalEqualAreaMath.h"

class CGxEllipsoid;
class CGxCylindricalEqualAreaProjection;

// Lambert cylindrical equal area, normal aspect, on the ellipsoid or (inverse
// flattening 0) the sphere: equal-area world and continental grids such as
// the EASE grids, true to scale along a standard parallel and its mirror.
class GXCART_API CGxCylindricalEqualArea
    : public CGxAlgorithmOf<CGxCylindricalEqualArea, CGxCylindricalEqualAreaProjection> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); parallel1: the
    // standard parallel, degrees; centreLongitude in degrees; false easting
    // and northing in the ellipsoid's unit.
    CGxCylindricalEqualArea(const char* name, double parallel1, double centreLongitude,
                            double falseEasting, double falseNorthing,
                            const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxCylindricalEqualArea(const CGxCylindricalEqualAreaProjection* definition);

    // The central meridian and latitude 0, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Centred on Greenwich: the world from 60 S to 81 N; otherwise a +-3
    // degree box around (centre, 0).
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    // Writes the scale on the equator, k0, into out[0].
    void GetDerivedParameters(double* out) const override;

private:
    friend CGxLocalGridOf<CGxCylindricalEqualArea>;
    void _Setup(double parallel1, double centreLongitude, double falseEasting, double falseNorthing,
                const CGxEllipsoid& ellipsoid);
    void _Forward(double lon, double lat, double* x, double* y) const {
        cylinder.Forward(lon, lat, x, y);
    }
    void _Inverse(double x, double y, double* lon, double* lat) const {
        cylinder.Inverse(x, y, lon, lat);
    }
    // The meridians are the grid's north lines: 0 wherever the point is on
    // the earth, NaN elsewhere.
    double _Convergence(double lon, double lat) const;

    GxEqualAreaCylinder cylinder;
};
