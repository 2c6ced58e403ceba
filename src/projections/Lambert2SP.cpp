// Lambert conformal conic, two standard parallels (EPSG Guidance Note 7-2,
// method 9802). The cone constant comes from the ratio of the parallel radii
// m and isometric terms t of the two standard parallels; when both parallels
// are the same the cone is tangent there and n = sin(lat1), as in the
// one-parallel form. This form carries no scale factor.

#include "projections/Lambert2SP.h"

#include <cmath>

#include "definitions/Lambert2SPProjection.h"
#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/math/ConformalLatitude.h"
#include "projections/math/ParallelRadius.h"

CGxLambert2SP::CGxLambert2SP(const char* name_, double parallel1, double parallel2,
                             double originLongitude, double originLatitude, double falseEasting,
                             double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _Setup(parallel1, parallel2, originLongitude, originLatitude, falseEasting, falseNorthing,
           ellipsoid);
}

CGxLambert2SP::CGxLambert2SP(const CGxLambert2SPProjection* def) : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetParallel1(), def->GetParallel2(), def->GetOriginLongitude(),
               def->GetOriginLatitude(), def->GetFalseEasting(), def->GetFalseNorthing(),
               *ellipsoid);
    }
}

void CGxLambert2SP::_Setup(double parallel1, double parallel2, double originLongitude,
                           double originLatitude, double falseEasting, double falseNorthing,
                           const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    lat1 = parallel1 * kGxPi / 180.0;
    lat2 = parallel2 * kGxPi / 180.0;
    latF = originLatitude * kGxPi / 180.0;
    const double e = ellipsoid.GetEccentricity();
    const double e2 = e * e;
    const double m1 = GxParallelRadius(lat1, e2);
    const double m2 = GxParallelRadius(lat2, e2);
    const double t1 = GxConformalT(lat1, e);
    const double t2 = GxConformalT(lat2, e);
    const double n = lat1 != lat2 ? (std::log(m1) - std::log(m2)) / (std::log(t1) - std::log(t2))
                                  : std::sin(lat1);
    const double F = m1 / (std::pow(t1, n) * n);
    cone.Set(e, n, a * F, originLongitude * kGxPi / 180.0, latF, falseEasting, falseNorthing);
}

void CGxLambert2SP::GetOrigin(double* lon, double* lat) const {
    *lon = cone.lon0 * 180.0 / kGxPi;
    *lat = latF * 180.0 / kGxPi;
}

double CGxLambert2SP::_Convergence(double lon, double) const {
    return (lon - cone.lon0 * 180.0 / kGxPi) * cone.n;
}

void CGxLambert2SP::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    double lon, lat;
    GetOrigin(&lon, &lat);
    // A false origin at the pole sits at the apex, where a box of +-3 degrees
    // would show almost nothing of the cone; centre the box on the band
    // between the standard parallels instead.
    if (GxIsNear(lat, 90.0) || GxIsNear(lat, -90.0)) lat = (lat1 + lat2) * 0.5 * 180.0 / kGxPi;
    GxDefaultAreaAround(*this, lon, lat, kGxDefaultAreaHalfSide, x0, y0, x1, y1);
}

template class CGxLocalGridOf<CGxLambert2SP>;
template class CGxAlgorithmOf<CGxLambert2SP, CGxLambert2SPProjection>;
