#include "projections/TransverseMercatorJHS.h"

#include <cmath>
#include <cstddef>
#include <iterator>

#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Angles.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/ClenshawSeries.h"
#include "projections/math/TransverseMercatorMath.h"

namespace {

constexpr int kTerms = 4;
// Beyond this many half turns the longitude is reduced in one step instead of
// turn by turn.
constexpr double kWrapJumpLimit = 64 * kGxPi;
// Stop of the isometric-latitude iteration, radians, and its pass limit.
constexpr double kIterationTolerance = 1e-12;
constexpr int kMaxIterations = 100;

// Eccentricities up to this value have their latitude correction
// q = e atanh(e s), |s| <= 1, from eight terms of its series in s (the first
// omitted one is below 1e-19); every terrestrial ellipsoid qualifies.
constexpr double kCorrectionSeriesLimit = 0.1;

// q = e atanh(e s), from the series coefficients e^(2k+2)/(2k+1) when the
// figure allows them.
inline double LatitudeCorrection(double s, double e, const double* series, bool bySeries) {
    if (bySeries) return s * GxTmPolynomial8(series, s * s);
    return e * GxTmAtanhByLog(e * s);
}

// Longitude lam (radians) minus lon0, brought into [-pi, pi] by whole turns.
double WrapFarLongitude(double lam, double lon0) {
    const double d = lam - lon0;
    if (!std::isfinite(d)) return d;
    // Far-out values in one exact step, so that no input can keep the turn
    // loop below running. Both ends count, not only their difference: a
    // longitude near a huge origin (a central meridian of 1e19 degrees) lies
    // where a whole turn is below half a unit in the last place, and adding
    // it would leave the value unchanged for ever.
    if (std::fabs(d) > kWrapJumpLimit || std::fabs(lam) > kWrapJumpLimit ||
        std::fabs(lon0) > kWrapJumpLimit)
        return std::remainder(d, kGxTwoPi);
    while (lam - lon0 < -kGxPi) lam += kGxTwoPi;
    while (lam - lon0 > kGxPi) lam -= kGxTwoPi;
    return lam - lon0;
}

inline double LongitudeFromOrigin(double lam, double lon0) {
    const double d = lam - lon0;
    if (d >= -kGxPi && d <= kGxPi) return d;  // the usual case; NaN falls through
    return WrapFarLongitude(lam, lon0);
}

// Multiple angles 2, 4, 6, 8 times an angle from the sine and cosine (ordinary
// and hyperbolic) of the doubled angle, by the double- and triple-angle
// identities; s[k], c[k] hold sin, cos of 2(k+1) times the angle.
struct Multiples {
    double s[4];
    double c[4];
};

inline Multiples CircularMultiples(double s2, double c2) {
    Multiples m;
    m.s[0] = s2;
    m.c[0] = c2;
    m.s[1] = 2 * s2 * c2;
    m.c[1] = c2 * c2 - s2 * s2;
    m.s[2] = m.s[1] * c2 + m.c[1] * s2;
    m.c[2] = m.c[1] * c2 - m.s[1] * s2;
    m.s[3] = 2 * m.s[1] * m.c[1];
    m.c[3] = m.c[1] * m.c[1] - m.s[1] * m.s[1];
    return m;
}

inline Multiples HyperbolicMultiples(double sh2, double ch2) {
    Multiples m;
    m.s[0] = sh2;
    m.c[0] = ch2;
    m.s[1] = 2 * sh2 * ch2;
    m.c[1] = ch2 * ch2 + sh2 * sh2;
    m.s[2] = m.s[1] * ch2 + m.c[1] * sh2;
    m.c[2] = m.c[1] * ch2 + m.s[1] * sh2;
    m.s[3] = 2 * m.s[1] * m.c[1];
    m.c[3] = m.c[1] * m.c[1] + m.s[1] * m.s[1];
    return m;
}

// sum_k c_k sin(2k xi) cosh(2k eta) and sum_k c_k cos(2k xi) sinh(2k eta): the
// real and imaginary parts of sum_k c_k sin(2k (xi + i eta)).
inline void KruegerSums(const double* coef, const Multiples& circ, const Multiples& hyp,
                        double* dxi, double* deta) {
    double sx = 0.0, se = 0.0;
    for (int k = 0; k < kTerms; ++k) {
        sx += coef[k] * circ.s[k] * hyp.c[k];
        se += coef[k] * circ.c[k] * hyp.s[k];
    }
    *dxi = sx;
    *deta = se;
}

}  // namespace

CGxTransverseMercatorJHS::CGxTransverseMercatorJHS(const char* name_, double k0_, double lon0_,
                                                   double lat0_, double FE_, double FN_,
                                                   const CGxEllipsoid& ellipsoid)
    : CGxTransverseMercatorJHS(
          name_, GxTransverseMercatorValues(k0_, lon0_, lat0_, FE_, FN_, ellipsoid)) {}

CGxTransverseMercatorJHS::CGxTransverseMercatorJHS(const CGxTransverseMercatorProjection* def)
    : CGxTransverseMercatorJHS(GxDefinitionName(def).c_str(), GxTransverseMercatorValues(def)) {}

CGxTransverseMercatorJHS::CGxTransverseMercatorJHS(const char* name_,
                                                   const GxTransverseMercatorParameters& p)
    : CGxAlgorithmOf(name_, p),
      lon0(p.lon0 * kGxDegToRad),
      lat0(p.lat0 * kGxDegToRad),
      e(p.e),
      n(f / (2 - f)),
      B(a / (1 + n) * (1 + n * n / 4 + n * n * n * n / 64)) {
    GxComputeFourierCoefficients(EGxSeries::eKruegerTransverseMercator, true, n, h);
    GxComputeFourierCoefficients(EGxSeries::eKruegerTransverseMercator, false, n, hp);
    double toGaussian[4];
    GxGaussianLatitudeSeries(n, toGaussian, toGeodetic);
    // Meridian arc of the origin through the conformal and rectifying
    // latitudes; the poles are taken exactly, where tan(lat0) breaks down.
    if (lat0 == 0.0) {
        M0 = 0.0;
    } else if (GxIsNear(lat0, kGxHalfPi)) {
        M0 = B * kGxHalfPi;
    } else if (GxIsNear(lat0, -kGxHalfPi)) {
        M0 = -B * kGxHalfPi;
    } else {
        const double Q0 = std::asinh(std::tan(lat0)) - e * std::atanh(e * std::sin(lat0));
        const double b0 = std::atan(std::sinh(Q0));
        const double x0 = std::asin(std::sin(b0));
        M0 = B * (x0 + GxClenshawSine(h, kTerms, 2 * x0));
    }
    Bk0 = B * k0;
    invBk0 = 1 / Bk0;
    k0M0 = k0 * M0;
    const double e2 = e * e;
    correctionBySeries = e <= kCorrectionSeriesLimit;
    double ek = e2;
    for (std::size_t k = 0; k < std::size(correction); ++k, ek *= e2)
        correction[k] = ek / (2 * k + 1);
}

void CGxTransverseMercatorJHS::_Forward(double lon, double lat, double* x, double* y) const {
    const double dl = LongitudeFromOrigin(lon * kGxDegToRad, lon0);
    const double phi = lat * kGxDegToRad;
    const double sphi = std::sin(phi), cphi = std::cos(phi);

    // Conformal latitude beta, tan beta = sinh Q with the isometric latitude
    // Q = asinh(tan phi) - e atanh(e sin phi). With psi = asinh(tan phi),
    // sinh psi = tan phi and cosh psi = 1/|cos phi|, so sinh Q and cosh Q follow
    // from sinh and cosh of q = e atanh(e sin phi); the sign of cos phi keeps
    // latitudes beyond the poles as tan phi has them.
    double shq, chq;
    GxTmSinhCosh(LatitudeCorrection(sphi, e, correction, correctionBySeries), &shq, &chq);
    const double sp = cphi < 0 ? -sphi : sphi;
    const double den = 1 / (chq - sp * shq);
    const double sb = (sp * chq - shq) * den;  // sin beta = tanh Q
    const double cb = std::fabs(cphi) * den;   // cos beta = 1/cosh Q

    // Spherical transverse Mercator of the conformal sphere:
    // eta0 = atanh(cos beta sin dl) and sin xi0 = sin beta cosh eta0, taken as
    // tan xi0 = tan beta / |cos dl|, which stays accurate near the pole.
    const double sdl = std::sin(dl), cdl = std::cos(dl);
    const double t = cb * sdl;
    const double u = cb * cdl;
    const double eta0 = GxTmAtanh(t);
    double xi0 = std::atan(sb / std::fabs(u));
    if (std::fabs(dl) > kGxHalfPi) xi0 = (phi > 0 ? kGxPi : -kGxPi) - xi0;

    // sin, cos of 2 xi0 and sinh, cosh of 2 eta0 from the same quantities:
    // tan xi0 = sb/u (the fold changes 2 xi0 by whole turns only), tanh eta0 = t,
    // and 1 - t^2 = sb^2 + u^2.
    const double inv = 1 / (sb * sb + u * u);
    const Multiples circ = CircularMultiples(2 * sb * u * inv, (u * u - sb * sb) * inv);
    const Multiples hyp = HyperbolicMultiples(2 * t * inv, (1 + t * t) * inv);
    double dxi, deta;
    KruegerSums(h, circ, hyp, &dxi, &deta);

    *x = FE + Bk0 * (eta0 + deta);
    *y = FN + Bk0 * (xi0 + dxi) - k0M0;
}

void CGxTransverseMercatorJHS::_Inverse(double x, double y, double* lon, double* lat) const {
    const double etap = (x - FE) * invBk0;
    const double xip = (y - FN + k0M0) * invBk0;

    // One sine/cosine pair of xi' and one exponential of eta' serve the
    // Krueger series (through the doubled angles) and the spherical
    // coordinates after it.
    const double sxp = std::sin(xip), cxp = std::cos(xip);
    const double E = std::exp(etap), iE = 1 / E;
    const double shp = (E - iE) / 2, chp = (E + iE) / 2;
    const Multiples circ = CircularMultiples(2 * sxp * cxp, (cxp - sxp) * (cxp + sxp));
    const Multiples hyp = HyperbolicMultiples(2 * shp * chp, chp * chp + shp * shp);
    double dxi, deta;
    KruegerSums(hp, circ, hyp, &dxi, &deta);

    // xi0' = xi' - dxi and eta0' = eta' - deta by the addition theorems, the
    // small corrections' functions from their series; large ones (far outside
    // any sensible grid) directly.
    double sxi, cxi, sheta, cheta;
    if (std::fabs(dxi) <= kGxTmSmall && std::fabs(deta) <= kGxTmSmall) {
        GxTmRotate(sxp, cxp, -dxi, &sxi, &cxi);
        double shd, chd;
        GxTmSinhCosh(deta, &shd, &chd);
        sheta = shp * chd - chp * shd;
        cheta = chp * chd - shp * shd;
    } else {
        const double xi0 = xip - dxi, eta0 = etap - deta;
        sxi = std::sin(xi0);
        cxi = std::cos(xi0);
        const double ee = std::exp(eta0), iee = 1 / ee;
        sheta = (ee - iee) / 2;
        cheta = (ee + iee) / 2;
    }

    // Conformal latitude: sin beta' = sin xi0' / cosh eta0' and
    // cos beta' = sqrt(sinh^2 eta0' + cos^2 xi0') / cosh eta0', free of
    // cancellation near the pole. The isometric latitude Q' = atanh(sin beta').
    const double ich = 1 / cheta;
    const double sb = sxi * ich;
    const double cb = std::sqrt(sheta * sheta + cxi * cxi) * ich;

    // Geodetic isometric latitude Q = Q' + q by the fixed-point iteration
    // Q <- Q' + e atanh(e tanh Q), which contracts by about e^2 per pass. Only
    // q changes, and tanh(Q' + q) = (sin beta' + tanh q)/(1 + sin beta' tanh q).
    // It starts from the fourth-order series for the geodetic latitude,
    // phi0 = beta' + d, good to about 1e-13 rad, so that one pass usually
    // confirms it. A pass that moves less than the tolerance ends it, and so
    // does a NaN. (On a figure so flat that d exceeds the small-angle range the
    // start is poorer and the passes make up for it.)
    const double d = GxClenshawSine(toGeodetic, kTerms, 2 * sb * cb, 1 - 2 * sb * sb);
    double sphi0, cphi0;
    GxTmRotate(sb, cb, d, &sphi0, &cphi0);
    double q = LatitudeCorrection(sphi0, e, correction, correctionBySeries);
    for (int i = 0; i < kMaxIterations; ++i) {
        const double tq = GxTmTanh(q);
        const double next =
            LatitudeCorrection((sb + tq) / (1 + sb * tq), e, correction, correctionBySeries);
        const double step = std::fabs(next - q);
        q = next;
        if (!(step >= kIterationTolerance)) break;
    }
    // tan(lat) = sinh(Q' + q) = (sin beta' cosh q + sinh q) / cos beta'.
    double shq, chq;
    GxTmSinhCosh(q, &shq, &chq);
    // cos beta' >= 0, so atan of the quotient serves (cos beta' = 0 gives +-90).
    *lat = std::atan((sb * chq + shq) / cb) * kGxRadToDeg;

    // Longitude: asin(tanh eta0' / cos beta') = atan(sinh eta0' / |cos xi0'|),
    // mirrored into the far half for points beyond the pole.
    double dl = std::atan(sheta / std::fabs(cxi));
    if (!(xip >= -kGxHalfPi && xip <= kGxHalfPi)) dl = (etap >= 0 ? kGxPi : -kGxPi) - dl;
    *lon = (lon0 + dl) * kGxRadToDeg;
}

void CGxTransverseMercatorJHS::GetOrigin(double* lon, double* lat) const {
    *lon = lon0 * kGxRadToDeg;
    *lat = lat0 * kGxRadToDeg;
}

double CGxTransverseMercatorJHS::_Convergence(double lon, double lat) const {
    return GxTransverseMercatorConvergence(lon * kGxDegToRad - lon0, lat * kGxDegToRad, a, b, k0);
}

template class CGxLocalGridOf<CGxTransverseMercatorJHS, CGxTransverseMercatorBase>;
template class CGxAlgorithmOf<CGxTransverseMercatorJHS, CGxTransverseMercatorProjection,
                              CGxLocalGridOf<CGxTransverseMercatorJHS, CGxTransverseMercatorBase>>;
