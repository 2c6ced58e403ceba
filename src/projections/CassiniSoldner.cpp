// Cassini-Soldner: ellipsoidal and spherical formulas after Snyder, Map
// Projections: A Working Manual (USGS Professional Paper 1395), chapter 13.
// Northings measure the meridian arc from the origin latitude; the inverse
// starts from the footpoint latitude of that arc.

#include "projections/CassiniSoldner.h"

#include <cmath>

#include "definitions/CassiniSoldnerProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/FourierCoefficients.h"
#include "projections/MeridianArc.h"

namespace {

constexpr int kCassiniType = 18;
constexpr double kDefaultAreaHalfWidth = 5.0;  // degrees

}  // namespace

// ---------------------------------------------------------------- ellipsoid

CGxCassiniSoldnerEllipsoid::CGxCassiniSoldnerEllipsoid(double centralMeridian,
                                                       double originLatitude, double falseEasting,
                                                       double falseNorthing,
                                                       const CGxEllipsoid& ellipsoid)
    : a(ellipsoid.GetMajor()),
      invFlattening(ellipsoid.GetInvFlatness()),
      e(ellipsoid.GetEccentricity()),
      e2(e * e),
      lon0(centralMeridian * kGxDegToRad),
      lat0(originLatitude * kGxDegToRad),
      falseEasting(falseEasting),
      falseNorthing(falseNorthing) {
    GxComputeFourierCoefficients(kCassiniType, true, e2, M);
    GxComputeFourierCoefficients(kCassiniType, false, e2, F);
    M0 = a * GxMeridianArc(lat0, M);
}

void CGxCassiniSoldnerEllipsoid::Geo2Proj(double lon, double lat, double* x, double* y) const {
    const double phi = lat * kGxDegToRad;
    const double sinPhi = std::sin(phi), cosPhi = std::cos(phi);
    const double tanPhi = sinPhi / cosPhi;
    const double nu = a / std::sqrt(1 - e2 * sinPhi * sinPhi);
    const double T = tanPhi * tanPhi;
    const double C = e2 * cosPhi * cosPhi / (1 - e2);
    const double A = (lon * kGxDegToRad - lon0) * cosPhi;
    const double A2 = A * A;
    *x = falseEasting + nu * A * (1 - T * A2 / 6 - (8 - T + 8 * C) * T * A2 * A2 / 120);
    *y = falseNorthing + a * GxMeridianArc(phi, M) - M0 +
         nu * tanPhi * A2 * (0.5 + (5 - T + 6 * C) * A2 / 24);
}

void CGxCassiniSoldnerEllipsoid::Proj2Geo(double x, double y, double* lon, double* lat) const {
    const double mu = (M0 + (y - falseNorthing)) / (a * M[0]);
    const double phi1 = GxFootpointLatitude(mu, F);
    const double sinPhi1 = std::sin(phi1), cosPhi1 = std::cos(phi1);
    const double tanPhi1 = sinPhi1 / cosPhi1;
    const double w = 1 - e2 * sinPhi1 * sinPhi1;
    const double nu1 = a / std::sqrt(w);
    const double rho1 = a * (1 - e2) / (w * std::sqrt(w));
    const double T1 = tanPhi1 * tanPhi1;
    const double D = (x - falseEasting) / nu1;
    const double D2 = D * D;
    *lat = (phi1 - (nu1 * tanPhi1 / rho1) * D2 * (0.5 - (1 + 3 * T1) * D2 / 24)) * kGxRadToDeg;
    *lon =
        (lon0 + D * (1 - T1 * D2 / 3 + (1 + 3 * T1) * T1 * D2 * D2 / 15) / cosPhi1) * kGxRadToDeg;
}

void CGxCassiniSoldnerEllipsoid::GetOrigin(double* lon, double* lat) const {
    *lon = lon0 * kGxRadToDeg;
    *lat = lat0 * kGxRadToDeg;
}

void CGxCassiniSoldnerEllipsoid::GetDefaultArea(double* x0, double* y0, double* x1,
                                                double* y1) const {
    GxInnerDefaultArea(*this, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg, kDefaultAreaHalfWidth, x0, y0,
                       x1, y1);
}

bool CGxCassiniSoldnerEllipsoid::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxInnerAnonymousEllipsoid(a, invFlattening, out);
}

CGxProjInterface* CGxCassiniSoldnerEllipsoid::Clone() const {
    return new CGxCassiniSoldnerEllipsoid(*this);
}

// ------------------------------------------------------------------- sphere

CGxCassiniSoldnerSphere::CGxCassiniSoldnerSphere(double centralMeridian, double originLatitude,
                                                 double falseEasting, double falseNorthing,
                                                 const CGxEllipsoid& ellipsoid)
    : R(ellipsoid.GetMajor()),
      lon0(centralMeridian * kGxDegToRad),
      lat0(originLatitude * kGxDegToRad),
      falseEasting(falseEasting),
      falseNorthing(falseNorthing) {}

void CGxCassiniSoldnerSphere::Geo2Proj(double lon, double lat, double* x, double* y) const {
    const double phi = lat * kGxDegToRad;
    const double dlon = lon * kGxDegToRad - lon0;
    *x = falseEasting + R * std::asin(std::cos(phi) * std::sin(dlon));
    *y = falseNorthing + R * (std::atan2(std::tan(phi), std::cos(dlon)) - lat0);
}

void CGxCassiniSoldnerSphere::Proj2Geo(double x, double y, double* lon, double* lat) const {
    const double D = (x - falseEasting) / R;
    const double Dd = (y - falseNorthing) / R + lat0;
    *lon = (lon0 + std::atan2(std::tan(D), std::cos(Dd))) * kGxRadToDeg;
    *lat = std::asin(std::sin(Dd) * std::cos(D)) * kGxRadToDeg;
}

void CGxCassiniSoldnerSphere::GetOrigin(double* lon, double* lat) const {
    *lon = lon0 * kGxRadToDeg;
    *lat = lat0 * kGxRadToDeg;
}

void CGxCassiniSoldnerSphere::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxInnerDefaultArea(*this, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg, kDefaultAreaHalfWidth, x0, y0,
                       x1, y1);
}

bool CGxCassiniSoldnerSphere::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxInnerAnonymousEllipsoid(R, 0.0, out);
}

CGxProjInterface* CGxCassiniSoldnerSphere::Clone() const {
    return new CGxCassiniSoldnerSphere(*this);
}

// ------------------------------------------------------------------ wrapper

CGxCassiniSoldner::CGxCassiniSoldner(const char* name, double centralMeridian,
                                     double originLatitude, double falseEasting,
                                     double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxProjWrapper(name, GxInnerKindFor(ellipsoid),
                     GxMakeInner<CGxCassiniSoldnerEllipsoid, CGxCassiniSoldnerSphere>(
                         ellipsoid, centralMeridian, originLatitude, falseEasting, falseNorthing)) {
}

CGxCassiniSoldner::CGxCassiniSoldner(const CGxCassiniSoldnerProjection* definition)
    : CGxProjWrapper(definition) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = _DefinitionEllipsoid(definition)) {
        _BuildInner<CGxCassiniSoldnerEllipsoid, CGxCassiniSoldnerSphere>(
            *ellipsoid, definition->GetCentralMeridian(), definition->GetOriginLatitude(),
            definition->GetFalseEasting(), definition->GetFalseNorthing());
    }
}

CGxProjection* CGxCassiniSoldner::Clone() const {
    return new CGxCassiniSoldner(*this);
}
