#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"
#include "projections/math/MercatorMath.h"

class CGxEllipsoid;

// The normal-aspect ellipsoidal Mercator that the scale-factor and the
// standard-parallel forms share; they differ only in how they find the scale
// k0 on the equator.
class GXCART_API CGxMercatorBase : public CGxLocalGridOf<CGxMercatorBase> {
public:
    // The central meridian and latitude 0, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Centred on Greenwich: the world from 60 S to 81 N; otherwise a +-3
    // degree box around (centre, 0).
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    // Writes the derived equator scale into out[0], 0 for the form whose
    // scale is given.
    void GetDerivedParameters(double* out) const override;

protected:
    using CGxLocalGridOf::CGxLocalGridOf;

    // Fills the cylinder: k0 on the equator, centreLongitude in degrees, the
    // false origin in the ellipsoid's unit; derived is what
    // GetDerivedParameters reports.
    void _Setup(double k0, double derived, double centreLongitude, double falseEasting,
                double falseNorthing, const CGxEllipsoid& ellipsoid);

private:
    friend CGxLocalGridOf<CGxMercatorBase>;
    void _Forward(double lon, double lat, double* x, double* y) const {
        cylinder.Forward(lon, lat, x, y);
    }
    void _Inverse(double x, double y, double* lon, double* lat) const {
        cylinder.Inverse(x, y, lon, lat);
    }

    double k0 = kGxNoFigure;
    double derived = kGxNoFigure;
    GxMercatorCylinder cylinder;
};
