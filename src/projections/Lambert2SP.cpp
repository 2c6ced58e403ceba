// Lambert conformal conic, two standard parallels (EPSG Guidance Note 7-2,
// method 9802). The cone constant comes from the ratio of the parallel radii
// m and isometric terms t of the two standard parallels; when both parallels
// are the same the cone is tangent there and n = sin(lat1), as in the
// one-parallel form. This form carries no scale factor.

#include "projections/Lambert2SP.h"

#include <cmath>

#include "definitions/Lambert2SPProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"
#include "projections/ConformalLatitude.h"
#include "projections/ParallelRadius.h"

CGxLambert2SP::CGxLambert2SP(const char* name_, double parallel1, double parallel2,
                             double originLongitude, double originLatitude, double falseEasting,
                             double falseNorthing, const CGxEllipsoid& ellipsoid)
    : name(name_) {
    _Setup(parallel1, parallel2, originLongitude, originLatitude, falseEasting, falseNorthing,
           ellipsoid);
}

CGxLambert2SP::CGxLambert2SP(const CGxLambert2SPProjection* def)
    : name(GxDefinitionName(def).c_str()) {
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
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
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

const char* CGxLambert2SP::GetName() const {
    return name.name;
}

void CGxLambert2SP::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    cone.Forward(lon, lat, x, y);
}

void CGxLambert2SP::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    cone.Inverse(x, y, lon, lat);
}

void CGxLambert2SP::GetOrigin(double* lon, double* lat) const {
    *lon = cone.lon0 * 180.0 / kGxPi;
    *lat = latF * 180.0 / kGxPi;
}

double CGxLambert2SP::GetConvergence(double lon, double) const {
    if (name.isLocal) return 0.0;
    return (lon - cone.lon0 * 180.0 / kGxPi) * cone.n;
}

void CGxLambert2SP::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    double lon, lat;
    GetOrigin(&lon, &lat);
    // A false origin at the pole sits at the apex, where a box of +-3 degrees
    // would show almost nothing of the cone; centre the box on the band
    // between the standard parallels instead.
    if (GxIsNear(lat, 90.0) || GxIsNear(lat, -90.0)) lat = (lat1 + lat2) * 0.5 * 180.0 / kGxPi;
    GxDefaultAreaAround(*this, lon, lat, 3.0, x0, y0, x1, y1);
}

bool CGxLambert2SP::IsLocal() const {
    return name.isLocal;
}

bool CGxLambert2SP::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

CGxProjection* CGxLambert2SP::Clone() const {
    return new CGxLambert2SP(*this);
}

void CGxLambert2SP::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxLambert2SP::GetMapProjection, parser);
}

bool CGxLambert2SP::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxLambert2SP::GetMapProjection(CGxLambert2SPProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
