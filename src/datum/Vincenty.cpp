#include "datum/Vincenty.h"

#include <boost/math/tools/roots.hpp>
#include <cmath>
#include <cstdint>
#include <exception>
#include <limits>
#include <utility>

#include "datum/VincentyAzimuthInverse.h"
#include "datum/VincentySeries.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"

namespace {

// Step of the backward difference that stands for dg/dlambda, radians.
constexpr double kLambdaStep = 1e-5;
// The longitude difference on the auxiliary sphere is sought in this bracket.
constexpr double kLambdaBracket = 2.0 * kGxPi;
// Binary digits of the root: full double precision.
constexpr int kRootDigits = std::numeric_limits<double>::digits;
// Iteration limit of the direct problem's fixed point on sigma. The counter is
// compared before it is increased, so at most 101 evaluations are made,
// converged or not.
constexpr int kDirectIterationLimit = 99;
// Vincenty's longitude equation is trusted only where its root determines the
// geodesic well. Within this angle (on the auxiliary sphere) of the first
// point's antipode the longitude hardly depends on the azimuth, so the error
// of the equation's truncated series (about 1e-11 radians of longitude) turns
// into azimuth errors that exceed 1e-8 degrees below about 3.5 degrees, and
// beyond the antipodal region's edge the iteration may settle on a line that
// is not the geodesic at all. Such pairs are solved for the azimuth instead.
constexpr double kAntipodalCos = 0.9961946980917455;  // cos(5 degrees)
constexpr double kAntipodalLatitudeSum = 6.0;         // degrees
// A root of the longitude equation leaves a residual of a few units of
// rounding; anything larger means the search stopped elsewhere (radians,
// 6e-7 m on the Earth).
constexpr double kResidualTolerance = 1e-13;

struct ReducedLatitude {
    double sinU;
    double cosU;
};

// Latitude on the auxiliary sphere, tan U = (1 - f) tan phi; on a sphere the
// two coincide.
ReducedLatitude _Reduced(double latRad, double f) {
    const double u = f > 0 ? std::atan((1.0 - f) * std::tan(latRad)) : latRad;
    return {std::sin(u), std::cos(u)};
}

// Coefficient C of the longitude correction, f/16 cos^2(alpha) (4 + f(4 - 3 cos^2(alpha))).
double _C(double f, double cos2Alpha) {
    return f / 16.0 * cos2Alpha * (4.0 + f * (4.0 - 3.0 * cos2Alpha));
}

// Difference between the longitude on the auxiliary sphere and on the
// ellipsoid: (1 - C) f sin(alpha) (sigma + C sin(sigma) (cos 2sigma_m + C cos(sigma) (2cos^2
// 2sigma_m - 1))).
double _LongitudeCorrection(double f, double C, double sinAlpha, double sigma, double sinSigma,
                            double cosSigma, double cos2SigmaM) {
    return (1.0 - C) * f * sinAlpha *
           (sigma +
            C * sinSigma * (cos2SigmaM + C * cosSigma * (2.0 * cos2SigmaM * cos2SigmaM - 1.0)));
}

// Arc correction delta sigma between the auxiliary sphere and the ellipsoid.
double _DeltaSigma(double B, double sinSigma, double cosSigma, double cos2SigmaM) {
    const double c2 = cos2SigmaM * cos2SigmaM;
    return B * sinSigma *
           (cos2SigmaM +
            B / 4.0 *
                (cosSigma * (2.0 * c2 - 1.0) -
                 B / 6.0 * cos2SigmaM * (4.0 * sinSigma * sinSigma - 3.0) * (4.0 * c2 - 3.0)));
}

// atan2 in degrees with the azimuth range (-180, 180]: a due-south direction
// with a negative zero east component would otherwise come out as -180.
double _AzimuthDeg(double y, double x) {
    const double az = std::atan2(y, x) * kGxRadToDeg;
    return az == -180.0 ? 180.0 : az;
}

// The great-circle quantities of the inverse problem for one trial value of
// the longitude difference lambda on the auxiliary sphere.
struct InverseArc {
    double sinSigma;
    double cosSigma;
    double sigma;
    double sinAlpha;  // azimuth of the geodesic at the equator
    double cos2Alpha;
    double C;
    double cos2SigmaM;  // 2 sigma_m: arc from the equator crossing to the midpoint, doubled
};

InverseArc _Arc(double lambda, const ReducedLatitude& p1, const ReducedLatitude& p2, double f) {
    InverseArc s;
    const double sinLambda = std::sin(lambda);
    const double cosLambda = std::cos(lambda);
    const double east = p2.cosU * sinLambda;
    const double north = p1.cosU * p2.sinU - p1.sinU * p2.cosU * cosLambda;
    s.sinSigma = std::sqrt(east * east + north * north);
    s.cosSigma = p1.sinU * p2.sinU + p1.cosU * p2.cosU * cosLambda;
    s.sigma = std::atan2(s.sinSigma, s.cosSigma);
    s.sinAlpha = p1.cosU * p2.cosU * sinLambda / s.sinSigma;
    s.cos2Alpha = 1.0 - s.sinAlpha * s.sinAlpha;
    s.C = _C(f, s.cos2Alpha);
    // A geodesic along the equator (cos alpha = 0) has no vertex: its midpoint
    // term vanishes with C, and on a sphere C is always 0.
    s.cos2SigmaM = s.C == 0.0 ? 0.0 : s.cosSigma - 2.0 * p1.sinU * p2.sinU / s.cos2Alpha;
    return s;
}

}  // namespace

CGxVincenty::CGxVincenty(const CGxEllipsoid& ellipsoid)
    : a(ellipsoid.GetMajor()),
      b(ellipsoid.GetMinor()),
      f(ellipsoid.GetFlatness()),
      ep2((a * a - b * b) / (b * b)) {}

CGxVincenty::~CGxVincenty() = default;

double CGxVincenty::PolyA(double u2) {
    return 1.0 + u2 / 16384.0 * (4096.0 + u2 * (-768.0 + u2 * (320.0 - 175.0 * u2)));
}

double CGxVincenty::PolyB(double u2) {
    return u2 / 1024.0 * (256.0 + u2 * (-128.0 + u2 * (74.0 - 47.0 * u2)));
}

void CGxVincenty::GetDistance(double lon1, double lat1, double lon2, double lat2, double& distance,
                              double& azimuth1, double& azimuth2) const {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    // Latitudes beyond a pole name no point, and a non-finite number (or a
    // longitude difference beyond the range of doubles) no line.
    double dLon = lon2 - lon1;
    if (!(std::fabs(lat1) <= 90.0 && std::fabs(lat2) <= 90.0 && std::isfinite(dLon))) {
        distance = azimuth1 = azimuth2 = nan;
        return;
    }
    // Vincenty's equation takes the longitude difference as it comes within a
    // full turn either way (its root is sought within +-2 pi); beyond that it
    // is reduced by whole turns (remainder is exact).
    if (std::fabs(dLon) > 360.0) dLon = std::remainder(dLon, 360.0);
    if (std::remainder(dLon, 360.0) == 0.0 && lat1 == lat2) {
        // The same point: no length and no direction.
        distance = 0.0;
        azimuth1 = azimuth2 = nan;
        return;
    }
    const double L = dLon * kGxDegToRad;
    const ReducedLatitude p1 = _Reduced(lat1 * kGxDegToRad, f);
    const ReducedLatitude p2 = _Reduced(lat2 * kGxDegToRad, f);

    auto solveForAzimuth = [&] {
        GxGeodesicLine line;
        if (!GxInverseByAzimuth(a, f, lat1, lat2, std::remainder(dLon, 360.0), line)) {
            distance = azimuth1 = azimuth2 = nan;
            return;
        }
        distance = line.distance;
        azimuth1 = line.azimuth1;
        azimuth2 = line.azimuth2;
    };
    // Near the antipode (on the great circle with the ellipsoidal longitude
    // difference) Vincenty's iteration is not used at all; on a sphere it is
    // exact everywhere (the root is the longitude difference). That needs nearly
    // opposite latitudes first: within 5 degrees of the antipode the reduced
    // latitudes add up to less than 5 degrees, the geodetic ones to less than
    // 5.2.
    if (f > 0 && std::fabs(lat1 + lat2) < kAntipodalLatitudeSum &&
        p1.sinU * p2.sinU + p1.cosU * p2.cosU * std::cos(L) < -kAntipodalCos) {
        solveForAzimuth();
        return;
    }

    // g(lambda) = 0 when lambda, the longitude difference on the auxiliary
    // sphere, exceeds the ellipsoidal one by exactly the geodesic's correction.
    auto g = [&](double lambda) {
        const InverseArc s = _Arc(lambda, p1, p2, f);
        return L +
               _LongitudeCorrection(f, s.C, s.sinAlpha, s.sigma, s.sinSigma, s.cosSigma,
                                    s.cos2SigmaM) -
               lambda;
    };
    auto gWithSlope = [&](double lambda) {
        const double value = g(lambda);
        return std::make_pair(value, (value - g(lambda - kLambdaStep)) / kLambdaStep);
    };
    std::uintmax_t maxIterations = std::numeric_limits<std::uintmax_t>::max();
    double lambda = 0.0;
    try {
        lambda = boost::math::tools::newton_raphson_iterate(
            gWithSlope, L, -kLambdaBracket, kLambdaBracket, kRootDigits, maxIterations);
    } catch (const std::exception&) {
        solveForAzimuth();
        return;
    }

    const InverseArc s = _Arc(lambda, p1, p2, f);
    const double residual =
        L +
        _LongitudeCorrection(f, s.C, s.sinAlpha, s.sigma, s.sinSigma, s.cosSigma, s.cos2SigmaM) -
        lambda;
    if (!(std::fabs(residual) <= kResidualTolerance)) {
        solveForAzimuth();
        return;
    }
    const double u2 = s.cos2Alpha * ep2;
    const double A = PolyA(u2);
    const double B = PolyB(u2);
    distance = b * A * (s.sigma - _DeltaSigma(B, s.sinSigma, s.cosSigma, s.cos2SigmaM));

    const double sinLambda = std::sin(lambda);
    const double cosLambda = std::cos(lambda);
    azimuth1 = _AzimuthDeg(p2.cosU * sinLambda, p1.cosU * p2.sinU - p1.sinU * p2.cosU * cosLambda);
    azimuth2 = _AzimuthDeg(p1.cosU * sinLambda, p1.cosU * p2.sinU * cosLambda - p1.sinU * p2.cosU);
}

void CGxVincenty::GetPoint(double lon1, double lat1, double azimuth1, double distance, double& lon2,
                           double& lat2, double& azimuth2) const {
    if (!(std::fabs(lat1) <= 90.0)) {
        lon2 = lat2 = azimuth2 = std::numeric_limits<double>::quiet_NaN();
        return;
    }
    const ReducedLatitude p1 = _Reduced(lat1 * kGxDegToRad, f);
    const double alpha1 = azimuth1 * kGxDegToRad;
    const double sinAlpha1 = std::sin(alpha1);
    const double cosAlpha1 = std::cos(alpha1);
    // Arc from the equator crossing to the start point.
    const double sigma1 = std::atan2(p1.sinU / p1.cosU, cosAlpha1);
    const double sinAlpha = p1.cosU * sinAlpha1;
    const double cos2Alpha = 1.0 - sinAlpha * sinAlpha;

    const double u2 = cos2Alpha * ep2;
    const double A = PolyA(u2);
    const double B = PolyB(u2);

    // Fixed point of sigma = s / (b A) + delta sigma(sigma).
    const double sigma0 = distance / (b * A);
    double sigma = sigma0;
    double sigmaNew = sigma0;
    for (int count = 0;; ++count) {
        const double cos2SigmaM = std::cos(2.0 * sigma1 + sigma);
        sigmaNew = sigma0 + _DeltaSigma(B, std::sin(sigma), std::cos(sigma), cos2SigmaM);
        if (GxIsNear(sigmaNew, sigma) || count > kDirectIterationLimit) break;
        sigma = sigmaNew;
    }
    sigma = sigmaNew;
    const double sinSigma = std::sin(sigma);
    const double cosSigma = std::cos(sigma);

    const double tangential = p1.sinU * sinSigma - p1.cosU * cosSigma * cosAlpha1;
    lat2 = std::atan2(p1.sinU * cosSigma + p1.cosU * sinSigma * cosAlpha1,
                      (1.0 - f) * std::sqrt(sinAlpha * sinAlpha + tangential * tangential)) *
           kGxRadToDeg;

    // Longitude: the auxiliary sphere's less f sin(alpha0) I3 along the arc.
    // Vincenty's closed correction for I3 is good to a few units of 1e-11
    // radians, up to 0.18 mm over the longest lines; the series in eps and n
    // is good to rounding.
    const double lambda =
        std::atan2(sinSigma * sinAlpha1, p1.cosU * cosSigma - p1.sinU * sinSigma * cosAlpha1);
    const double n = f / (2.0 - f);
    const double eps = GxGeodesicEps(u2);
    double c3[5];
    GxGeodesicC3(eps, n, c3);
    double sinSigma1 = p1.sinU, cosSigma1 = cosAlpha1 * p1.cosU;
    const double r1 = std::hypot(sinSigma1, cosSigma1);
    if (r1 > 0) {
        sinSigma1 /= r1;
        cosSigma1 /= r1;
    } else {
        // Along the equator the start of the arc is arbitrary (eps is 0).
        sinSigma1 = 0.0;
        cosSigma1 = 1.0;
    }
    const double sinSigma2 = sinSigma1 * cosSigma + cosSigma1 * sinSigma;
    const double cosSigma2 = cosSigma1 * cosSigma - sinSigma1 * sinSigma;
    const double I3 =
        GxGeodesicA3(eps, n) * (sigma + GxGeodesicSineSum(c3, 5, sinSigma2, cosSigma2) -
                                GxGeodesicSineSum(c3, 5, sinSigma1, cosSigma1));
    const double L = lambda - f * sinAlpha * I3;
    lon2 = lon1 + L * kGxRadToDeg;

    azimuth2 = _AzimuthDeg(sinAlpha, p1.cosU * cosSigma * cosAlpha1 - p1.sinU * sinSigma);
}
