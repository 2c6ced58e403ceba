// Albers equal-area conic: ellipsoidal and spherical formulas after Snyder,
// Map Projections: A Working Manual (USGS Professional Paper 1395), chapter 14.
// Southern cones (both parallels south, n < 0) keep positive radii in the
// inverse by turning both coordinate differences round.

#include "projections/AlbersEqualArea.h"

#include <cmath>

#include "definitions/AlbersEqualAreaProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AuthalicLatitude.h"
#include "projections/ConeApexOffsets.h"
#include "projections/FourierCoefficients.h"
#include "projections/ParallelRadius.h"

namespace {

constexpr int kAlbersType = 16;
constexpr double kDefaultAreaHalfWidth = 5.0;  // degrees

}  // namespace

// ---------------------------------------------------------------- ellipsoid

CGxAlbersEqualAreaEllipsoid::CGxAlbersEqualAreaEllipsoid(double parallel1, double parallel2,
                                                         double centralMeridian,
                                                         double originLatitude, double falseEasting,
                                                         double falseNorthing,
                                                         const CGxEllipsoid& ellipsoid)
    : a(ellipsoid.GetMajor()),
      invFlattening(ellipsoid.GetInvFlatness()),
      e(ellipsoid.GetEccentricity()),
      e2(e * e),
      lat1(parallel1 * kGxDegToRad),
      lat2(parallel2 * kGxDegToRad),
      lon0(centralMeridian * kGxDegToRad),
      lat0(originLatitude * kGxDegToRad),
      falseEasting(falseEasting),
      falseNorthing(falseNorthing) {
    GxComputeFourierCoefficients(kAlbersType, false, e2, c);

    const double m1 = GxParallelRadius(lat1, e2);
    const double m2 = GxParallelRadius(lat2, e2);
    const double q0 = GxAuthalicQ(std::sin(lat0), e, e2);
    const double q1 = GxAuthalicQ(std::sin(lat1), e, e2);
    const double q2 = GxAuthalicQ(std::sin(lat2), e, e2);
    n = (m1 * m1 - m2 * m2) / (q2 - q1);
    C = m1 * m1 + n * q1;
    rho0 = a * std::sqrt(C - n * q0) / n;
    qPole = GxAuthalicQ(1.0, e, e2);
}

void CGxAlbersEqualAreaEllipsoid::Geo2Proj(double lon, double lat, double* x, double* y) const {
    const double q = GxAuthalicQ(std::sin(lat * kGxDegToRad), e, e2);
    const double rho = a * std::sqrt(C - n * q) / n;
    const double theta = n * (lon * kGxDegToRad - lon0);
    *x = falseEasting + rho * std::sin(theta);
    *y = falseNorthing + rho0 - rho * std::cos(theta);
}

void CGxAlbersEqualAreaEllipsoid::Proj2Geo(double x, double y, double* lon, double* lat) const {
    double dx, dy;
    GxConeApexOffsets(x, y, falseEasting, falseNorthing, rho0, n, &dx, &dy);
    const double rho = std::sqrt(dx * dx + dy * dy);
    const double q = (C - rho * rho * n * n / (a * a)) / n;
    const double beta = std::asin(q / qPole);
    *lat = GxLatitudeFromAuthalic(beta, c) * kGxRadToDeg;
    *lon = (std::atan2(dx, dy) / n + lon0) * kGxRadToDeg;
}

void CGxAlbersEqualAreaEllipsoid::GetOrigin(double* lon, double* lat) const {
    *lon = lon0 * kGxRadToDeg;
    *lat = lat0 * kGxRadToDeg;
}

void CGxAlbersEqualAreaEllipsoid::GetDefaultArea(double* x0, double* y0, double* x1,
                                                 double* y1) const {
    GxInnerDefaultArea(*this, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg, kDefaultAreaHalfWidth, x0, y0,
                       x1, y1);
}

bool CGxAlbersEqualAreaEllipsoid::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxInnerAnonymousEllipsoid(a, invFlattening, out);
}

CGxProjInterface* CGxAlbersEqualAreaEllipsoid::Clone() const {
    return new CGxAlbersEqualAreaEllipsoid(*this);
}

// ------------------------------------------------------------------- sphere

CGxAlbersEqualAreaSphere::CGxAlbersEqualAreaSphere(double parallel1, double parallel2,
                                                   double centralMeridian, double originLatitude,
                                                   double falseEasting, double falseNorthing,
                                                   const CGxEllipsoid& ellipsoid)
    : a(ellipsoid.GetMajor()),
      lat1(parallel1 * kGxDegToRad),
      lat2(parallel2 * kGxDegToRad),
      lon0(centralMeridian * kGxDegToRad),
      lat0(originLatitude * kGxDegToRad),
      falseEasting(falseEasting),
      falseNorthing(falseNorthing) {
    const double sin1 = std::sin(lat1);
    const double cos1 = std::cos(lat1);
    n = (sin1 + std::sin(lat2)) / 2;
    C = cos1 * cos1 + 2 * n * sin1;
    rho0 = a * std::sqrt(C - 2 * n * std::sin(lat0)) / n;
}

void CGxAlbersEqualAreaSphere::Geo2Proj(double lon, double lat, double* x, double* y) const {
    const double rho = a * std::sqrt(C - 2 * n * std::sin(lat * kGxDegToRad)) / n;
    const double theta = n * (lon * kGxDegToRad - lon0);
    *x = falseEasting + rho * std::sin(theta);
    *y = falseNorthing + rho0 - rho * std::cos(theta);
}

void CGxAlbersEqualAreaSphere::Proj2Geo(double x, double y, double* lon, double* lat) const {
    double dx, dy;
    GxConeApexOffsets(x, y, falseEasting, falseNorthing, rho0, n, &dx, &dy);
    const double rho = std::sqrt(dx * dx + dy * dy) * n / a;
    *lat = std::asin((C - rho * rho) / (2 * n)) * kGxRadToDeg;
    *lon = (std::atan2(dx, dy) / n + lon0) * kGxRadToDeg;
}

void CGxAlbersEqualAreaSphere::GetOrigin(double* lon, double* lat) const {
    *lon = lon0 * kGxRadToDeg;
    *lat = lat0 * kGxRadToDeg;
}

void CGxAlbersEqualAreaSphere::GetDefaultArea(double* x0, double* y0, double* x1,
                                              double* y1) const {
    GxInnerDefaultArea(*this, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg, kDefaultAreaHalfWidth, x0, y0,
                       x1, y1);
}

bool CGxAlbersEqualAreaSphere::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxInnerAnonymousEllipsoid(a, 0.0, out);
}

CGxProjInterface* CGxAlbersEqualAreaSphere::Clone() const {
    return new CGxAlbersEqualAreaSphere(*this);
}

// ------------------------------------------------------------------ wrapper

CGxAlbersEqualArea::CGxAlbersEqualArea(const char* name, double parallel1, double parallel2,
                                       double centralMeridian, double originLatitude,
                                       double falseEasting, double falseNorthing,
                                       const CGxEllipsoid& ellipsoid)
    : CGxProjWrapper(name, GxInnerKindFor(ellipsoid),
                     GxMakeInner<CGxAlbersEqualAreaEllipsoid, CGxAlbersEqualAreaSphere>(
                         ellipsoid, parallel1, parallel2, centralMeridian, originLatitude,
                         falseEasting, falseNorthing)) {}

CGxAlbersEqualArea::CGxAlbersEqualArea(const CGxAlbersEqualAreaProjection* definition)
    : CGxProjWrapper(definition) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = _DefinitionEllipsoid(definition)) {
        _BuildInner<CGxAlbersEqualAreaEllipsoid, CGxAlbersEqualAreaSphere>(
            *ellipsoid, definition->GetParallel1(), definition->GetParallel2(),
            definition->GetCentralMeridian(), definition->GetOriginLatitude(),
            definition->GetFalseEasting(), definition->GetFalseNorthing());
    }
}

CGxProjection* CGxAlbersEqualArea::Clone() const {
    return new CGxAlbersEqualArea(*this);
}
