// Albers equal-area conic: ellipsoidal and spherical formulas after Snyder,
// Map Projections: A Working Manual (USGS Professional Paper 1395), chapter 14.
// Southern cones (both parallels south, n < 0) keep positive radii in the
// inverse by turning both coordinate differences round. The ellipsoidal
// inverse reaches the latitude from q exactly (series start and a Newton step,
// math/AuthalicLatitude.h); radii within rounding of the pole's give the pole.

#include "projections/AlbersEqualArea.h"

#include <cmath>
#include <limits>
#include <tuple>

#include "definitions/AlbersEqualAreaProjection.h"
#include "foundation/Angles.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/AuthalicLatitude.h"
#include "projections/math/ConeApexOffsets.h"
#include "projections/math/ConeLongitude.h"
#include "projections/math/ParallelRadius.h"

namespace {

// The inverse's q comes from the radius through (C - rho^2 n^2 / a^2) / n,
// with a rounding error of a few units of 1e-16 relative to the terms. Within
// that of the polar value the point is the pole: q cannot tell closer points
// apart (near the pole q departs from qP only with the square of the
// distance), and the rounding must not push a projected pole beyond it.
constexpr double kPoleRounding = 8 * 2.220446049250313e-16;

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
    GxComputeFourierCoefficients(EGxSeries::eAuthalicLatitude, false, e2, c);

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
    const double theta = n * GxConeLongitudeDifference(lon * kGxDegToRad, lon0);
    *x = falseEasting + rho * std::sin(theta);
    *y = falseNorthing + rho0 - rho * std::cos(theta);
}

void CGxAlbersEqualAreaEllipsoid::Proj2Geo(double x, double y, double* lon, double* lat) const {
    double dx, dy;
    GxConeApexOffsets(x, y, falseEasting, falseNorthing, rho0, n, &dx, &dy);
    const double rho = std::sqrt(dx * dx + dy * dy);
    const double cone = rho * rho * n * n / (a * a);
    const double q = (C - cone) / n;
    *lon = (std::atan2(dx, dy) / n + lon0) * kGxRadToDeg;
    const double beyondPole = std::fabs(q) - qPole;
    const double rounding = kPoleRounding * (std::fabs(C) + cone) / std::fabs(n);
    if (beyondPole >= -rounding) {
        // Within rounding of the pole's radius the pole; farther inside its
        // circle no point of the ellipsoid (NaN, as asin(q / qP) would give).
        *lat = beyondPole <= rounding ? std::copysign(90.0, q)
                                      : std::numeric_limits<double>::quiet_NaN();
        return;
    }
    // sin and cos of the authalic latitude, cos^2 = (qP - q)(qP + q) / qP^2.
    const double sinBeta = q / qPole;
    const double cosBeta = std::sqrt((qPole - q) * (qPole + q)) / qPole;
    *lat = GxLatitudeFromAuthalic(sinBeta, cosBeta, c, e, e2, qPole) * kGxRadToDeg;
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
    const double theta = n * GxConeLongitudeDifference(lon * kGxDegToRad, lon0);
    *x = falseEasting + rho * std::sin(theta);
    *y = falseNorthing + rho0 - rho * std::cos(theta);
}

void CGxAlbersEqualAreaSphere::Proj2Geo(double x, double y, double* lon, double* lat) const {
    double dx, dy;
    GxConeApexOffsets(x, y, falseEasting, falseNorthing, rho0, n, &dx, &dy);
    const double rho = std::sqrt(dx * dx + dy * dy) * n / a;
    const double sinPhi = (C - rho * rho) / (2 * n);
    // As on the ellipsoid, a radius within rounding of the pole's is the pole.
    const double beyondPole = std::fabs(sinPhi) - 1;
    if (std::fabs(beyondPole) <= kPoleRounding * (std::fabs(C) + rho * rho) / std::fabs(2 * n)) {
        *lat = std::copysign(90.0, sinPhi);
    } else {
        *lat = std::asin(sinPhi) * kGxRadToDeg;
    }
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

template class CGxAlgorithmOf<CGxAlbersEqualArea, CGxAlbersEqualAreaProjection, CGxProjWrapper>;
template class CGxProjWrapperOf<CGxAlbersEqualArea, CGxAlbersEqualAreaEllipsoid,
                                CGxAlbersEqualAreaSphere, CGxAlbersEqualAreaProjection>;
