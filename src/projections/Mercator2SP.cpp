// Mercator, two standard parallels: true to scale along +-lat1 (EPSG Guidance
// Note 7-2, method 9805). The equator scale is the radius of the standard
// parallel in units of a, k0 = cos(lat1) / sqrt(1 - e^2 sin^2(lat1)); with the
// equator as standard parallel it is 1 and this form equals the one-parallel
// form with scale 1.

#include "projections/Mercator2SP.h"

#include "definitions/Mercator2SPProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"
#include "projections/FourierCoefficients.h"
#include "projections/ParallelRadius.h"
#include "projections/ProjectionSupport.h"

CGxMercator2SP::CGxMercator2SP(const char* name_, double parallel1, double centreLongitude,
                               double falseEasting, double falseNorthing,
                               const CGxEllipsoid& ellipsoid)
    : name(name_) {
    _Setup(parallel1, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxMercator2SP::CGxMercator2SP(const CGxMercator2SPProjection* def)
    : name(GxDefinitionName(def).c_str()) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetParallel1(), def->GetCentre(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

void CGxMercator2SP::_Setup(double parallel1, double centreLongitude, double falseEasting,
                            double falseNorthing, const CGxEllipsoid& ellipsoid) {
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
    lat1 = parallel1 * kGxDegToRad;
    const double e = ellipsoid.GetEccentricity();
    k0 = GxParallelRadius(lat1, e * e);
    cylinder.e = e;
    cylinder.ak0 = a * k0;
    cylinder.lon0 = centreLongitude * kGxDegToRad;
    cylinder.falseEasting = falseEasting;
    cylinder.falseNorthing = falseNorthing;
    GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e * e, cylinder.c);
}

const char* CGxMercator2SP::GetName() const {
    return name.name;
}

void CGxMercator2SP::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    cylinder.Forward(lon, lat, x, y);
}

void CGxMercator2SP::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    cylinder.Inverse(x, y, lon, lat);
}

void CGxMercator2SP::GetOrigin(double* lon, double* lat) const {
    *lon = cylinder.lon0 * kGxRadToDeg;
    *lat = 0.0;
}

double CGxMercator2SP::GetConvergence(double lon, double lat) const {
    if (name.isLocal) return 0.0;
    return GxNumericalConvergence(*this, lon, lat);
}

void CGxMercator2SP::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxMercatorDefaultArea(*this, x0, y0, x1, y1);
}

bool CGxMercator2SP::IsLocal() const {
    return name.isLocal;
}

void CGxMercator2SP::GetDerivedParameters(double* out) const {
    if (out) out[0] = k0;
}

bool CGxMercator2SP::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

CGxProjection* CGxMercator2SP::Clone() const {
    return new CGxMercator2SP(*this);
}

void CGxMercator2SP::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxMercator2SP::GetMapProjection, parser);
}

bool CGxMercator2SP::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxMercator2SP::GetMapProjection(CGxMercator2SPProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
