#pragma once

#include <cmath>

#include "foundation/Angles.h"

// The maths both Transverse Mercator forms share: the latitude series of the
// Gaussian (conformal) sphere and the convergence series at the end of this
// file, and first the elementary functions of small arguments for their
// series. The corrections these projections apply (Krueger's sums, the step from the
// conformal or Gaussian latitude to the geodetic one, e atanh(e sin phi)) stay
// below 0.007 on terrestrial ellipsoids and on any grid of sensible width
// (eta' up to 1.6). Up to kGxTmSmall their circular and hyperbolic functions
// come from short Taylor series, exact to double precision (the first omitted
// term is below 1e-17 of the value) and much cheaper than exp, sin and cos.
// The series are grouped in powers of q^4 so that their terms are computed
// side by side.

constexpr double kGxTmSmall = 0.01;

// sin q and cos q for |q| <= kGxTmSmall only.
inline void GxTmSinCosSmall(double q, double* s, double* c) {
    const double q2 = q * q, q4 = q2 * q2;
    *s = q - q * q2 * (1.0 / 6 - q2 * (1.0 / 120));
    *c = (1 - q2 * 0.5) + q4 * (1.0 / 24 - q2 * (1.0 / 720));
}

// sinh q and cosh q for any q; beyond kGxTmSmall through exp.
inline void GxTmSinhCosh(double q, double* sh, double* ch) {
    if (std::fabs(q) <= kGxTmSmall) {
        const double q2 = q * q, q4 = q2 * q2;
        *sh = q + q * q2 * (1.0 / 6 + q2 * (1.0 / 120));
        *ch = (1 + q2 * 0.5) + q4 * (1.0 / 24 + q2 * (1.0 / 720));
    } else {
        const double E = std::exp(q), iE = 1 / E;
        *sh = (E - iE) / 2;
        *ch = (E + iE) / 2;
    }
}

// tanh q for any q; beyond kGxTmSmall through the library.
inline double GxTmTanh(double q) {
    if (std::fabs(q) <= kGxTmSmall) {
        const double q2 = q * q, q4 = q2 * q2;
        return q * ((1 - q2 * (1.0 / 3)) + q4 * (2.0 / 15 - q2 * (17.0 / 315)));
    }
    return std::tanh(q);
}

// atanh x = log((1 + x)/(1 - x))/2 through the plain logarithm, which costs a
// fraction of atanh. Its absolute error stays near 1e-16, which is all the
// projections need: these values are added to angles of order one.
inline double GxTmAtanhByLog(double x) {
    return 0.5 * std::log((1 + x) / (1 - x));
}

// A polynomial of degree 7 in z with coefficients c[0..7], by Estrin's scheme:
// the pairs are independent, so the evaluation is three multiplications deep.
inline double GxTmPolynomial8(const double* c, double z) {
    const double z2 = z * z;
    const double p01 = c[0] + c[1] * z, p23 = c[2] + c[3] * z;
    const double p45 = c[4] + c[5] * z, p67 = c[6] + c[7] * z;
    return (p01 + p23 * z2) + (p45 + p67 * z2) * (z2 * z2);
}

// atanh x by its Taylor series up to x^15 for |x| <= 0.1 (the first omitted
// term is below 1e-18 of x): the spherical easting of points within some 6
// degrees of the central meridian. Beyond it through the logarithm.
inline double GxTmAtanh(double x) {
    // 1/(2k + 1), k = 0..7.
    static constexpr double kSeries[8] = {1.0,     1.0 / 3,  1.0 / 5,  1.0 / 7,
                                          1.0 / 9, 1.0 / 11, 1.0 / 13, 1.0 / 15};
    if (std::fabs(x) <= 0.1) return x * GxTmPolynomial8(kSeries, x * x);
    return GxTmAtanhByLog(x);
}

// sin and cos of a + q from those of a, for |q| <= kGxTmSmall.
inline void GxTmRotate(double sa, double ca, double q, double* s, double* c) {
    double sq, cq;
    GxTmSinCosSmall(q, &sq, &cq);
    *s = sa * cq + ca * sq;
    *c = ca * cq - sa * sq;
}

// Series between the geodetic latitude and the Gaussian (conformal) latitude
// of the ellipsoid with third flattening n, fourth order in n:
// chi = phi + sum_k toGaussian[k-1] sin(2k phi) and
// phi = chi + sum_k toGeodetic[k-1] sin(2k chi). Each array takes four values.
inline void GxGaussianLatitudeSeries(double n, double* toGaussian, double* toGeodetic) {
    // Geodetic to Gaussian (conformal) latitude, series in n, fourth order.
    toGaussian[0] = n * (-2.0 + n * (2.0 / 3 + n * (4.0 / 3 - 82.0 * n / 45)));
    toGaussian[1] = n * n * (5.0 / 3 + n * (-16.0 / 15 - 13.0 * n / 9));
    toGaussian[2] = n * n * n * (-26.0 / 15 + 34.0 * n / 21);
    toGaussian[3] = 1237.0 * n * n * n * n / 630;
    // Gaussian (conformal) to geodetic latitude, series in n, fourth order.
    toGeodetic[0] = n * (2.0 + n * (-2.0 / 3 + n * (-2.0 + 116.0 * n / 45)));
    toGeodetic[1] = n * n * (7.0 / 3 + n * (-8.0 / 5 - 227.0 * n / 45));
    toGeodetic[2] = n * n * n * (56.0 / 15 - 136.0 * n / 35);
    toGeodetic[3] = 4279.0 * n * n * n * n / 630;
}

// eta^2 = e'^2 cos^2 phi, written as (1 - e^2 sin^2 phi)/(1 - e^2) - 1, with e^2
// taken from the scaled axes k0 a and k0 b.
inline double GxTmSecondEccentricityTerm(double sinphi, double a, double b, double k0) {
    const double A = k0 * a, Bs = k0 * b;
    const double e2 = (A * A - Bs * Bs) / (A * A);
    return (1 - e2 * sinphi * sinphi) / (1 - e2) - 1;
}

// Grid convergence shared by both Transverse Mercator classes: the series in
// the longitude difference dl (radians) at latitude phi (radians), with the
// second eccentricity term taken from the scaled axes k0 a and k0 b; degrees.
inline double GxTransverseMercatorConvergence(double dl, double phi, double a, double b,
                                              double k0) {
    const double s = std::sin(phi), c = std::cos(phi), t = std::tan(phi);
    const double eta2 = GxTmSecondEccentricityTerm(s, a, b, k0);
    const double dl2 = dl * dl;
    const double c2 = c * c;
    const double gamma = dl * s + dl2 * dl * s * c2 * (1 + 3 * eta2 + 2 * eta2 * eta2) / 3 +
                         dl2 * dl2 * dl * s * c2 * c2 * (2 - t * t) / 15;
    return gamma * kGxRadToDeg;
}
