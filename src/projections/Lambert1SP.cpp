// Lambert conformal conic, one standard parallel (EPSG Guidance Note 7-2,
// method 9801). The parallel of the natural origin is the standard parallel,
// so the cone constant is n = sin(lat0) and the scale k0 applies along it.
//
// A natural origin on the equator makes n = 0: the cone degenerates to a
// cylinder and the formulas give NaN (use Mercator there).

#include "projections/Lambert1SP.h"

#include <cmath>

#include "definitions/Lambert1SPProjection.h"
#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/math/ConformalLatitude.h"
#include "projections/math/ParallelRadius.h"

CGxLambert1SP::CGxLambert1SP(const char* name_, double scale, double originLongitude,
                             double originLatitude, double falseEasting, double falseNorthing,
                             const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _Setup(scale, originLongitude, originLatitude, falseEasting, falseNorthing, ellipsoid);
}

CGxLambert1SP::CGxLambert1SP(const CGxLambert1SPProjection* def) : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetOriginLongitude(), def->GetOriginLatitude(),
               def->GetFalseEasting(), def->GetFalseNorthing(), *ellipsoid);
    }
}

void CGxLambert1SP::_Setup(double scale, double originLongitude, double originLatitude,
                           double falseEasting, double falseNorthing,
                           const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    lat0 = originLatitude * kGxPi / 180.0;
    k0 = scale;
    const double e = ellipsoid.GetEccentricity();
    const double m0 = GxParallelRadius(lat0, e * e);
    double t0 = GxConformalT(lat0, e);
    if (t0 < 0) t0 = 0;
    const double n = std::sin(lat0);
    const double F = m0 / (n * std::pow(t0, n));
    cone.Set(e, n, a * F * k0, originLongitude * kGxPi / 180.0, lat0, falseEasting, falseNorthing);
}

void CGxLambert1SP::GetOrigin(double* lon, double* lat) const {
    *lon = cone.lon0 * 180.0 / kGxPi;
    *lat = lat0 * 180.0 / kGxPi;
}

double CGxLambert1SP::_Convergence(double lon, double) const {
    return (lon - cone.lon0 * 180.0 / kGxPi) * cone.n;
}

void CGxLambert1SP::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    double lon, lat;
    GetOrigin(&lon, &lat);
    GxDefaultAreaAround(*this, lon, lat, kGxDefaultAreaHalfSide, x0, y0, x1, y1);
}

template class CGxLocalGridOf<CGxLambert1SP>;
template class CGxAlgorithmOf<CGxLambert1SP, CGxLambert1SPProjection>;
