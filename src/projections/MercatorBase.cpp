#include "projections/MercatorBase.h"

#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "projections/FourierCoefficients.h"

void CGxMercatorBase::_Setup(double k0_, double derived_, double centreLongitude,
                             double falseEasting, double falseNorthing,
                             const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    k0 = k0_;
    derived = derived_;
    const double e = ellipsoid.GetEccentricity();
    cylinder.e = e;
    cylinder.ak0 = a * k0;
    cylinder.lon0 = centreLongitude * kGxDegToRad;
    cylinder.falseEasting = falseEasting;
    cylinder.falseNorthing = falseNorthing;
    GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e * e, cylinder.c);
}

void CGxMercatorBase::GetOrigin(double* lon, double* lat) const {
    *lon = cylinder.lon0 * kGxRadToDeg;
    *lat = 0.0;
}

void CGxMercatorBase::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxCylinderArea(*this, cylinder.lon0 * kGxRadToDeg, x0, y0, x1, y1);
}

void CGxMercatorBase::GetDerivedParameters(double* out) const {
    if (out) out[0] = derived;
}

template class CGxLocalGridOf<CGxMercatorBase>;
