// Polar stereographic about the north pole defined by its standard parallel
// (EPSG Guidance Note 7-2, method 9829): the scale at the pole is
// k0 = K m(latC) / (2 t(latC)), which makes the scale 1 on the standard
// parallel; lonOrigin points to grid south from the pole.

#include "projections/StereographicNorthPole.h"

#include "definitions/StereographicNorthPoleProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"
#include "projections/ProjectionSupport.h"

namespace {
// Projection type number of this form; it selects the conformal series.
constexpr int kProjectionType = 12;
constexpr bool kSouth = false;
}  // namespace

CGxStereographicNorthPole::CGxStereographicNorthPole(const char* name_, double standardParallel,
                                                     double centreLongitude, double falseEasting,
                                                     double falseNorthing,
                                                     const CGxEllipsoid& ellipsoid)
    : name(name_) {
    _Setup(standardParallel, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxStereographicNorthPole::CGxStereographicNorthPole(const CGxStereographicNorthPoleProjection* def)
    : name(GxDefinitionName(def).c_str()) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetParallel1(), def->GetCentre(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

void CGxStereographicNorthPole::_Setup(double standardParallel, double centreLongitude,
                                       double falseEasting, double falseNorthing,
                                       const CGxEllipsoid& ellipsoid) {
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
    latC = standardParallel * kGxDegToRad;
    const double e = ellipsoid.GetEccentricity();
    k0 = GxPolarScaleFromParallel(latC, e, kSouth);
    polar = GxPolarStereographicMath(kProjectionType, a, e, k0, kSouth,
                                     centreLongitude * kGxDegToRad, falseEasting, falseNorthing);
}

const char* CGxStereographicNorthPole::GetName() const {
    return name.name;
}

void CGxStereographicNorthPole::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    polar.Forward(lon, lat, x, y);
}

void CGxStereographicNorthPole::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    polar.Inverse(x, y, lon, lat);
}

void CGxStereographicNorthPole::GetOrigin(double* lon, double* lat) const {
    *lon = polar.lonOrigin * kGxRadToDeg;
    *lat = 90.0;
}

double CGxStereographicNorthPole::GetConvergence(double lon, double lat) const {
    if (name.isLocal) return 0.0;
    return GxNumericalConvergence(*this, lon, lat);
}

void CGxStereographicNorthPole::GetDefaultArea(double* x0, double* y0, double* x1,
                                               double* y1) const {
    GxPolarDefaultArea(*this, x0, y0, x1, y1);
}

bool CGxStereographicNorthPole::IsLocal() const {
    return name.isLocal;
}

void CGxStereographicNorthPole::GetDerivedParameters(double* out) const {
    if (out) out[0] = k0;
}

bool CGxStereographicNorthPole::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

CGxProjection* CGxStereographicNorthPole::Clone() const {
    return new CGxStereographicNorthPole(*this);
}

void CGxStereographicNorthPole::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxStereographicNorthPole::GetMapProjection, parser);
}

bool CGxStereographicNorthPole::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxStereographicNorthPole::GetMapProjection(
    CGxStereographicNorthPoleProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
