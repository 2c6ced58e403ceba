// Polar stereographic about the south pole defined by its standard parallel
// (EPSG Guidance Note 7-2, method 9829): the scale at the pole is
// k0 = K m(latC) / (2 t(latC)), which makes the scale 1 on the standard
// parallel; lonOrigin points to grid north from the pole.

#include "projections/StereographicSouthPole.h"

#include "definitions/StereographicSouthPoleProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"
#include "projections/ProjectionSupport.h"

namespace {
// Projection type number of this form; it selects the conformal series.
constexpr int kProjectionType = 13;
constexpr bool kSouth = true;
}  // namespace

CGxStereographicSouthPole::CGxStereographicSouthPole(const char* name_, double standardParallel,
                                                     double centreLongitude, double falseEasting,
                                                     double falseNorthing,
                                                     const CGxEllipsoid& ellipsoid)
    : name(name_) {
    _Setup(standardParallel, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxStereographicSouthPole::CGxStereographicSouthPole(const CGxStereographicSouthPoleProjection* def)
    : name(GxDefinitionName(def).c_str()) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetParallel1(), def->GetCentre(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

void CGxStereographicSouthPole::_Setup(double standardParallel, double centreLongitude,
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

const char* CGxStereographicSouthPole::GetName() const {
    return name.name;
}

void CGxStereographicSouthPole::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    polar.Forward(lon, lat, x, y);
}

void CGxStereographicSouthPole::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    polar.Inverse(x, y, lon, lat);
}

void CGxStereographicSouthPole::GetOrigin(double* lon, double* lat) const {
    *lon = polar.lonOrigin * kGxRadToDeg;
    *lat = -90.0;
}

double CGxStereographicSouthPole::GetConvergence(double lon, double lat) const {
    if (name.isLocal) return 0.0;
    return GxNumericalConvergence(*this, lon, lat);
}

void CGxStereographicSouthPole::GetDefaultArea(double* x0, double* y0, double* x1,
                                               double* y1) const {
    GxPolarDefaultArea(*this, x0, y0, x1, y1);
}

bool CGxStereographicSouthPole::IsLocal() const {
    return name.isLocal;
}

void CGxStereographicSouthPole::GetDerivedParameters(double* out) const {
    if (out) out[0] = k0;
}

bool CGxStereographicSouthPole::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

CGxProjection* CGxStereographicSouthPole::Clone() const {
    return new CGxStereographicSouthPole(*this);
}

void CGxStereographicSouthPole::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxStereographicSouthPole::GetMapProjection, parser);
}

bool CGxStereographicSouthPole::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxStereographicSouthPole::GetMapProjection(
    CGxStereographicSouthPoleProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
