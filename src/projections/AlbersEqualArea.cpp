// Albers equal-area conic: ellipsoidal and spherical formulas after Snyder,
// Map Projections: A Working Manual (USGS Professional Paper 1395), chapter 14.
// Southern cones (both parallels south, n < 0) keep positive radii in the
// inverse by turning both coordinate differences round.

#include "projections/AlbersEqualArea.h"

#include <cmath>
#include <tuple>

#include "definitions/AlbersEqualAreaProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AuthalicLatitude.h"
#include "projections/ConeApexOffsets.h"
#include "projections/FourierCoefficients.h"
#include "projections/ParallelRadius.h"
#include "projections/ProjWrapperTransfer.h"

namespace {

constexpr int kAlbersType = 16;

}  // namespace

// ---------------------------------------------------------------- ellipsoid

CGxAlbersEqualAreaEllipsoid::CGxAlbersEqualAreaEllipsoid(double parallel1, double parallel2,
                                                         double centralMeridian,
                                                         double originLatitude, double falseEasting,
                                                         double falseNorthing,
                                                         const CGxEllipsoid& ellipsoid)
    : CGxInnerFormOf(ellipsoid, eGxInnerEllipsoid, centralMeridian, originLatitude, falseEasting,
                     falseNorthing),
      lat1(parallel1 * kGxDegToRad),
      lat2(parallel2 * kGxDegToRad) {
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

// ------------------------------------------------------------------- sphere

CGxAlbersEqualAreaSphere::CGxAlbersEqualAreaSphere(double parallel1, double parallel2,
                                                   double centralMeridian, double originLatitude,
                                                   double falseEasting, double falseNorthing,
                                                   const CGxEllipsoid& ellipsoid)
    : CGxInnerFormOf(ellipsoid, eGxInnerSphere, centralMeridian, originLatitude, falseEasting,
                     falseNorthing),
      lat1(parallel1 * kGxDegToRad),
      lat2(parallel2 * kGxDegToRad) {
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

// ------------------------------------------------------------------ wrapper

CGxAlbersEqualArea::CGxAlbersEqualArea(const char* name, double parallel1, double parallel2,
                                       double centralMeridian, double originLatitude,
                                       double falseEasting, double falseNorthing,
                                       const CGxEllipsoid& ellipsoid)
    : CGxProjWrapperOf(name, ellipsoid, parallel1, parallel2, centralMeridian, originLatitude,
                       falseEasting, falseNorthing) {}

CGxAlbersEqualArea::CGxAlbersEqualArea(const CGxAlbersEqualAreaProjection* definition)
    : CGxProjWrapperOf(definition, [](const CGxAlbersEqualAreaProjection& d) {
          return std::make_tuple(d.GetParallel1(), d.GetParallel2(), d.GetCentralMeridian(),
                                 d.GetOriginLatitude(), d.GetFalseEasting(), d.GetFalseNorthing());
      }) {}

template class CGxProjWrapperOf<CGxAlbersEqualArea, CGxAlbersEqualAreaEllipsoid,
                                CGxAlbersEqualAreaSphere, CGxAlbersEqualAreaProjection>;
