// The inverse geodesic problem by a bracketed Newton iteration on the azimuth
// alpha1 at the first point, after C. F. F. Karney, "Algorithms for
// geodesics", J. Geod. 87 (2013), sections 4 and 5.
//
// The points are first brought into a standard arrangement (longitude
// difference in [0, pi], |beta1| >= |beta2| and beta1 <= 0, beta the reduced
// latitude); the answer is turned back at the end. In that arrangement the
// shortest geodesic leaves the first point with alpha1 in [0, pi] and reaches
// the second point with cos(alpha2) >= 0, before any vertex, and the longitude
// it reaches, lambda12(alpha1), increases with alpha1 from 0 (due north) to pi
// (due south over the pole). Newton steps use the derivative from the reduced
// length, dlambda12/dalpha1 = m12 / (a cos(alpha2) cos(beta2)); a step that
// leaves the bracket is replaced by bisection.
//
// The start value matters only for speed. Near the antipode of the first point
// every geodesic from it passes at a distance of about f pi a cos^2(beta1) from
// the antipode, displaced east in proportion to sin(alpha1), and its direction
// there is pi - alpha1. In units of that distance a point offset by x (east)
// and y (north) from the antipode is reached by the lines with
// x cos(alpha1) + y sin(alpha1) + sin(alpha1) cos(alpha1) = 0, whose envelope
// is an astroid; with sin(alpha1) = -x / (1 + mu) and cos(alpha1) = y / mu the
// condition becomes the quartic mu^4 + 2 mu^3 + (1 - x^2 - y^2) mu^2
// - 2 y^2 mu - y^2 = 0, whose single positive root gives the shortest line.
// Away from the antipode the great circle with the same longitude difference
// is the start.

#include "datum/VincentyAzimuthInverse.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "datum/VincentySeries.h"
#include "foundation/Tolerance.h"

namespace {

constexpr int kMaxIterations = 100;
// The iteration stops when the longitude reached is this close (radians, about
// 1e-8 m on the Earth) to the wanted one, or when the bracket has closed.
constexpr double kLongitudeTolerance = 2 * std::numeric_limits<double>::epsilon();
// Within this many astroid units of the antipode the astroid start is used.
constexpr double kAstroidRange = 8.0;

struct SinCos {
    double s, c;
};

SinCos Normalised(double s, double c) {
    const double r = std::hypot(s, c);
    return {s / r, c / r};
}

// sin and cos of an angle given in degrees. The angle is first reduced
// exactly to [-45, 45] degrees around a multiple of 90, so that the cosine of
// a latitude near a pole keeps its full relative precision: near the
// antipode the azimuth reacts to a latitude change a million times over.
SinCos SinCosDegrees(double deg) {
    int quadrant = 0;
    const double r = std::remquo(deg, 90.0, &quadrant) * kGxDegToRad;
    const double s = std::sin(r), c = std::cos(r);
    switch (static_cast<unsigned>(quadrant) & 3u) {
        case 0:
            return {deg == 0 ? deg : s, c};  // keeps the sign of a zero
        case 1:
            return {c, -s + 0.0};
        case 2:
            return {-s + 0.0, -c};
        default:
            return {-c, s + 0.0};
    }
}

// The difference of two angles given by unit vectors, in [0, pi]: a negative
// sine is rounding noise of a zero difference.
double AngleBetween(const SinCos& from, const SinCos& to) {
    return std::atan2(std::max(0.0, from.c * to.s - from.s * to.c), from.c * to.c + from.s * to.s);
}

// The single positive root of mu^4 + 2 mu^3 + (1 - x^2 - y^2) mu^2 - 2 y^2 mu - y^2
// (y != 0). The quartic is negative at 0 and positive beyond sqrt(x^2 + y^2):
// Newton from the upper end of that bracket, kept inside it.
double AstroidRoot(double x, double y) {
    const double p = x * x, q = y * y;
    const double r2 = 1 - p - q;
    auto value = [&](double mu) { return (((mu + 2) * mu + r2) * mu - 2 * q) * mu - q; };
    auto slope = [&](double mu) { return ((4 * mu + 6) * mu + 2 * r2) * mu - 2 * q; };
    double lo = 0, hi = std::sqrt(p + q) + 1;
    // A first guess from the two limits: far from the astroid mu is about
    // sqrt(x^2 + y^2) - 1 + ..., close to the cusps about |y|^(2/3).
    double mu = std::max(std::cbrt(q), std::sqrt(p + q) - 1);
    if (!(mu > lo && mu < hi)) mu = (lo + hi) / 2;
    for (int i = 0; i < 60; ++i) {
        const double v = value(mu);
        if (v > 0) {
            hi = mu;
        } else {
            lo = mu;
        }
        double next = mu - v / slope(mu);
        if (!(next > lo && next < hi)) next = (lo + hi) / 2;
        if (std::fabs(next - mu) <= 1e-15 * mu) return next;
        mu = next;
    }
    return mu;
}

// One ellipsoid's constants in units of a.
struct Figure {
    double f, b, ep2, n;
};

// What the geodesic leaving the first point with azimuth alpha1 does up to
// the second point's latitude.
struct Trial {
    double lambda12;  // longitude difference reached, radians
    double slope;     // dlambda12 / dalpha1
    double s12;       // length, units of a
    SinCos alpha2;
};

Trial Evaluate(const Figure& fig, const SinCos& beta1, const SinCos& beta2, const SinCos& alpha1) {
    Trial t;
    const double sinAlpha0 = alpha1.s * beta1.c;
    const double cosAlpha0 = std::hypot(alpha1.c, alpha1.s * beta1.s);
    // Arcs and auxiliary longitudes from the northward equator crossing.
    const SinCos sigma1 = Normalised(beta1.s, alpha1.c * beta1.c);
    const SinCos omega1 = {sinAlpha0 * beta1.s, alpha1.c * beta1.c};
    // Clairaut: sin(alpha2) cos(beta2) = sin(alpha0); cos(alpha2) >= 0 in this
    // arrangement. The difference of the cos^2(beta) is taken in the better
    // conditioned of its two forms.
    t.alpha2.s = sinAlpha0 / beta2.c;
    if (beta2.c != beta1.c || std::fabs(beta2.s) != -beta1.s) {
        const double d = beta1.c < -beta1.s ? (beta2.c - beta1.c) * (beta1.c + beta2.c)
                                            : (beta1.s - beta2.s) * (beta1.s + beta2.s);
        t.alpha2.c = std::sqrt(alpha1.c * beta1.c * alpha1.c * beta1.c + d) / beta2.c;
    } else {
        t.alpha2.c = std::fabs(alpha1.c);
    }
    const SinCos sigma2 = Normalised(beta2.s, t.alpha2.c * beta2.c);
    const SinCos omega2 = {sinAlpha0 * beta2.s, t.alpha2.c * beta2.c};
    const double sigma12 = AngleBetween(sigma1, sigma2);
    const double omega12 = AngleBetween(omega1, omega2);

    const double eps = GxGeodesicEps(fig.ep2 * cosAlpha0 * cosAlpha0);
    double c3[5];
    GxGeodesicC3(eps, fig.n, c3);
    const double I3 =
        GxGeodesicA3(eps, fig.n) * (sigma12 + GxGeodesicSineSum(c3, 5, sigma2.s, sigma2.c) -
                                    GxGeodesicSineSum(c3, 5, sigma1.s, sigma1.c));
    t.lambda12 = omega12 - fig.f * sinAlpha0 * I3;

    double c1[6], c2[6];
    GxGeodesicC1(eps, c1);
    GxGeodesicC2(eps, c2);
    const double A1 = GxGeodesicA1(eps), A2 = GxGeodesicA2(eps);
    const double B1 =
        GxGeodesicSineSum(c1, 6, sigma2.s, sigma2.c) - GxGeodesicSineSum(c1, 6, sigma1.s, sigma1.c);
    const double B2 =
        GxGeodesicSineSum(c2, 6, sigma2.s, sigma2.c) - GxGeodesicSineSum(c2, 6, sigma1.s, sigma1.c);
    t.s12 = fig.b * A1 * (sigma12 + B1);

    // Reduced length m12 / b (Karney 2013, eq. 38), with
    // J = I1 - I2 and sqrt(1 + k^2 sin^2 sigma) at both ends.
    const double k2 = fig.ep2 * cosAlpha0 * cosAlpha0;
    const double w1 = std::sqrt(1 + k2 * sigma1.s * sigma1.s);
    const double w2 = std::sqrt(1 + k2 * sigma2.s * sigma2.s);
    const double J12 = (A1 - A2) * sigma12 + A1 * B1 - A2 * B2;
    const double m12 =
        w2 * sigma1.c * sigma2.s - w1 * sigma1.s * sigma2.c - sigma1.c * sigma2.c * J12;
    t.slope = t.alpha2.c > 0 ? fig.b * m12 / (t.alpha2.c * beta2.c)
                             : std::numeric_limits<double>::quiet_NaN();
    return t;
}

// Reduced latitude of a geodetic latitude in degrees: tan(beta) = (1 - f) tan(phi).
SinCos Reduced(double latDeg, double f) {
    const SinCos phi = SinCosDegrees(latDeg);
    // At a pole cos(beta) stays a tiny positive number, so that the pole
    // behaves as a point on the meridian of the given longitude.
    const double c = latDeg == 90 || latDeg == -90 ? 1e-300 : phi.c;
    return Normalised((1 - f) * phi.s, c);
}

double AzimuthDegrees(const SinCos& a) {
    const double deg = std::atan2(a.s, a.c) * kGxRadToDeg;
    return deg == -180.0 ? 180.0 : deg;
}

}  // namespace

bool GxInverseByAzimuth(double a, double f, double lat1, double lat2, double lam12,
                        GxGeodesicLine& line) {
    Figure fig;
    fig.f = f;
    fig.b = 1 - f;
    fig.ep2 = f * (2 - f) / (fig.b * fig.b);
    fig.n = f / (2 - f);

    // Standard arrangement: lam12 >= 0, |lat1| >= |lat2|, lat1 <= 0.
    const double lonSign = std::signbit(lam12) ? -1 : 1;
    lam12 *= lonSign;
    const bool swapped = std::fabs(lat1) < std::fabs(lat2);
    if (swapped) std::swap(lat1, lat2);
    const double latSign = lat1 < 0 ? 1 : -1;
    lat1 *= latSign;
    lat2 *= latSign;

    const SinCos beta1 = Reduced(lat1, f);
    const SinCos beta2 = Reduced(lat2, f);
    const SinCos lambda = SinCosDegrees(lam12);
    const double lambda12 = lam12 * kGxDegToRad;

    SinCos alpha1, alpha2;
    double s12 = 0;
    if (lat1 == -90 || lambda.s == 0) {
        // Along a meridian, possibly over the south pole: on an oblate
        // ellipsoid the meridian is the shortest line. From a pole the
        // azimuth is the longitude difference.
        alpha1 = lambda;
        const Trial t = Evaluate(fig, beta1, beta2, alpha1);
        s12 = t.s12;
        alpha2 = {0.0, 1.0};
    } else if (lat1 == 0 && lat2 == 0 && lambda12 <= (1 - f) * kGxPi) {
        // Along the equator, as long as it is shorter than the way round a
        // vertex.
        alpha1 = alpha2 = {1.0, 0.0};
        s12 = lambda12;
    } else {
        // Start value: the astroid near the antipode, else the great circle.
        const double scale = f * kGxPi * beta1.c * beta1.c;
        const double x = (lambda12 - kGxPi) / (f * kGxPi * beta1.c);
        const double y = (beta2.s * beta1.c + beta1.s * beta2.c) / scale;  // sin(beta1 + beta2)
        double alpha;
        if (scale > 0 && std::fabs(x) < kAstroidRange && std::fabs(y) < kAstroidRange) {
            if (y == 0) {
                // Opposite latitudes: sin(alpha1) = -x on the astroid's
                // inside, the equatorial direction outside it.
                alpha = x > -1 && x < 1 ? std::atan2(-x, -std::sqrt(1 - x * x)) : kGxPi / 2;
            } else {
                const double mu = AstroidRoot(x, y);
                alpha = std::atan2(-x / (1 + mu), y / mu);
            }
        } else {
            alpha =
                std::atan2(beta2.c * lambda.s, beta1.c * beta2.s - beta1.s * beta2.c * lambda.c);
        }
        if (!(alpha > 0 && alpha < kGxPi)) alpha = kGxPi / 2;

        // The azimuth is kept as a unit vector, so that its cosine keeps full
        // relative precision near 90 degrees, where the longitude reached is
        // most sensitive to it. All candidates lie in [0, pi] (sine >= 0),
        // where the sign of a cross product orders them.
        SinCos lo = {0.0, 1.0}, hi = {0.0, -1.0};
        auto sinAngle = [](const SinCos& u, const SinCos& v) { return u.c * v.s - u.s * v.c; };
        auto rotated = [](const SinCos& u, double by) {
            return Normalised(u.s * std::cos(by) + u.c * std::sin(by),
                              u.c * std::cos(by) - u.s * std::sin(by));
        };
        constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
        alpha1 = {std::sin(alpha), std::cos(alpha)};
        Trial t = Evaluate(fig, beta1, beta2, alpha1);
        for (int i = 0;; ++i) {
            if (i == kMaxIterations) return false;
            const double v = t.lambda12 - lambda12;
            if (std::fabs(v) <= kLongitudeTolerance) break;
            if (v > 0) {
                hi = alpha1;
            } else {
                lo = alpha1;
            }
            const double step = -v / t.slope;
            if (std::fabs(step) <= kEpsilon) {
                // A step at the resolution of the azimuth is the last one.
                alpha1 = rotated(alpha1, step);
                t = Evaluate(fig, beta1, beta2, alpha1);
                break;
            }
            SinCos next = rotated(alpha1, step);
            if (!(std::isfinite(step) && sinAngle(lo, next) > 0 && sinAngle(next, hi) > 0)) {
                // Bisect the bracket: the sum of two unit vectors in the upper
                // half plane points along their bisector (0 and pi together
                // bisect to due east).
                if (sinAngle(lo, hi) <= kEpsilon && lo.c + hi.c != 0) break;
                next = lo.s + hi.s == 0 && lo.c + hi.c == 0 ? SinCos{1.0, 0.0}
                                                            : Normalised(lo.s + hi.s, lo.c + hi.c);
            }
            alpha1 = next;
            t = Evaluate(fig, beta1, beta2, alpha1);
        }
        s12 = t.s12;
        alpha2 = t.alpha2;
    }

    // Back to the caller's arrangement: a flip of the latitudes turns alpha
    // into pi - alpha; exchanging the points (with the longitude difference
    // kept positive, so in a mirror image) exchanges the azimuths and turns
    // each into pi - alpha as well; a negative longitude difference mirrors
    // the azimuths.
    if (latSign < 0) {
        alpha1.c = -alpha1.c;
        alpha2.c = -alpha2.c;
    }
    if (swapped) {
        const SinCos first = alpha1;
        alpha1 = {alpha2.s, -alpha2.c};
        alpha2 = {first.s, -first.c};
    }
    if (lonSign < 0) {
        alpha1.s = -alpha1.s;
        alpha2.s = -alpha2.s;
    }
    line.distance = a * s12;
    line.azimuth1 = AzimuthDegrees(alpha1);
    line.azimuth2 = AzimuthDegrees(alpha2);
    return true;
}
