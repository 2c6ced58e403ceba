// Lambert conformal conic, one standard parallel (EPSG Guidance Note 7-2,
// method 9801). The parallel of the natural origin is the standard parallel,
// so the cone constant is n = sin(lat0) and the scale k0 applies along it.
//
// A natural origin on the equator makes n = 0: the cone degenerates to a
// cylinder and the formulas give NaN (use Mercator there).

#include "projections/Lambert1SP.h"

#include <cmath>

#include "definitions/Lambert1SPProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"
#include "projections/ConformalLatitude.h"
#include "projections/ParallelRadius.h"

CGxLambert1SP::CGxLambert1SP(const char* name_, double scale, double originLongitude,
                             double originLatitude, double falseEasting, double falseNorthing,
                             const CGxEllipsoid& ellipsoid)
    : name(name_) {
    _Setup(scale, originLongitude, originLatitude, falseEasting, falseNorthing, ellipsoid);
}

CGxLambert1SP::CGxLambert1SP(const CGxLambert1SPProjection* def)
    : name(GxDefinitionName(def).c_str()) {
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
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
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

const char* CGxLambert1SP::GetName() const {
    return name.name;
}

void CGxLambert1SP::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    cone.Forward(lon, lat, x, y);
}

void CGxLambert1SP::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    cone.Inverse(x, y, lon, lat);
}

void CGxLambert1SP::GetOrigin(double* lon, double* lat) const {
    *lon = cone.lon0 * 180.0 / kGxPi;
    *lat = lat0 * 180.0 / kGxPi;
}

double CGxLambert1SP::GetConvergence(double lon, double) const {
    if (name.isLocal) return 0.0;
    return (lon - cone.lon0 * 180.0 / kGxPi) * cone.n;
}

void CGxLambert1SP::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    double lon, lat;
    GetOrigin(&lon, &lat);
    GxDefaultAreaAround(*this, lon, lat, 3.0, x0, y0, x1, y1);
}

bool CGxLambert1SP::IsLocal() const {
    return name.isLocal;
}

bool CGxLambert1SP::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

CGxProjection* CGxLambert1SP::Clone() const {
    return new CGxLambert1SP(*this);
}

void CGxLambert1SP::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxLambert1SP::GetMapProjection, parser);
}

bool CGxLambert1SP::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxLambert1SP::GetMapProjection(CGxLambert1SPProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
