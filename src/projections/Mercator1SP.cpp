// Mercator, one standard parallel: the equator with a given scale factor
// (EPSG Guidance Note 7-2, method 9804, ellipsoidal form).

#include "projections/Mercator1SP.h"

#include "definitions/Mercator1SPProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"
#include "projections/FourierCoefficients.h"
#include "projections/ProjectionSupport.h"

CGxMercator1SP::CGxMercator1SP(const char* name_, double scale, double centreLongitude,
                               double falseEasting, double falseNorthing,
                               const CGxEllipsoid& ellipsoid)
    : name(name_) {
    _Setup(scale, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxMercator1SP::CGxMercator1SP(const CGxMercator1SPProjection* def)
    : name(GxDefinitionName(def).c_str()) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetCentre(), def->GetFalseEasting(), def->GetFalseNorthing(),
               *ellipsoid);
    }
}

void CGxMercator1SP::_Setup(double scale, double centreLongitude, double falseEasting,
                            double falseNorthing, const CGxEllipsoid& ellipsoid) {
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
    k0 = scale;
    const double e = ellipsoid.GetEccentricity();
    cylinder.e = e;
    cylinder.ak0 = a * k0;
    cylinder.lon0 = centreLongitude * kGxDegToRad;
    cylinder.falseEasting = falseEasting;
    cylinder.falseNorthing = falseNorthing;
    GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e * e, cylinder.c);
}

const char* CGxMercator1SP::GetName() const {
    return name.name;
}

void CGxMercator1SP::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    cylinder.Forward(lon, lat, x, y);
}

void CGxMercator1SP::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    cylinder.Inverse(x, y, lon, lat);
}

void CGxMercator1SP::GetOrigin(double* lon, double* lat) const {
    *lon = cylinder.lon0 * kGxRadToDeg;
    *lat = 0.0;
}

double CGxMercator1SP::GetConvergence(double lon, double lat) const {
    if (name.isLocal) return 0.0;
    return GxNumericalConvergence(*this, lon, lat);
}

void CGxMercator1SP::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxMercatorDefaultArea(*this, x0, y0, x1, y1);
}

bool CGxMercator1SP::IsLocal() const {
    return name.isLocal;
}

void CGxMercator1SP::GetDerivedParameters(double* out) const {
    if (out) out[0] = 0.0;
}

bool CGxMercator1SP::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

CGxProjection* CGxMercator1SP::Clone() const {
    return new CGxMercator1SP(*this);
}

void CGxMercator1SP::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxMercator1SP::GetMapProjection, parser);
}

bool CGxMercator1SP::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxMercator1SP::GetMapProjection(CGxMercator1SPProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
