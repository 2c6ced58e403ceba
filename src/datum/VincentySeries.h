#pragma once

#include <cmath>

#include "projections/math/ClenshawSeries.h"

// The three integrals of a geodesic on the auxiliary sphere, as Fourier series
// in the arc sigma measured from the geodesic's northward equator crossing:
//
//   distance          s / b = I1(sigma) = int_0^sigma sqrt(1 + k^2 sin^2 t) dt
//   reduced length    I2(sigma) = int_0^sigma dt / sqrt(1 + k^2 sin^2 t)
//   longitude         lambda = omega - f sin(alpha0) I3(sigma),
//                     I3(sigma) = int_0^sigma (2 - f) / (1 + (1 - f) sqrt(1 + k^2 sin^2 t)) dt
//
// with k = e' cos(alpha0) and alpha0 the azimuth at the equator crossing. Each
// integral is A (sigma + sum_l C_l sin(2 l sigma)). The series are taken in
// eps = (sqrt(1 + k^2) - 1) / (sqrt(1 + k^2) + 1), which is below e'^2/4 (1/600
// on the Earth), and for I3 also in the third flattening n = f / (2 - f),
// following C. F. F. Karney, "Algorithms for geodesics", J. Geod. 87 (2013),
// section 3. The coefficients are our own expansion (tools/derive_series.py
// derives and prints them: sqrt(1 + k^2 sin^2 t) = |1 - eps exp(2it)| / (1 - eps),
// binomial series, Fourier terms collected): I1 and I2 to sixth order in eps,
// I3 to fifth order in eps and n together. What is left out is below 1e-18 of
// the line on terrestrial figures.

// eps from k^2 = e'^2 cos^2(alpha0).
inline double GxGeodesicEps(double k2) {
    return k2 / (2 * (1 + std::sqrt(1 + k2)) + k2);
}

// A1: distance per unit of arc on the auxiliary sphere, in units of b.
inline double GxGeodesicA1(double eps) {
    const double e2 = eps * eps;
    return (1 + e2 * (1.0 / 4 + e2 * (1.0 / 64 + e2 / 256))) / (1 - eps);
}

// C1_1..C1_6 of I1, sixth order in eps.
inline void GxGeodesicC1(double eps, double* c) {
    const double e2 = eps * eps;
    double d = eps;
    c[0] = d * (-1.0 / 2 + e2 * (3.0 / 16 - e2 / 32));
    d *= eps;
    c[1] = d * (-1.0 / 16 + e2 * (1.0 / 32 - 9 * e2 / 2048));
    d *= eps;
    c[2] = d * (-1.0 / 48 + 3 * e2 / 256);
    d *= eps;
    c[3] = d * (-5.0 / 512 + 3 * e2 / 512);
    d *= eps;
    c[4] = d * (-7.0 / 1280);
    d *= eps;
    c[5] = d * (-7.0 / 2048);
}

// A2 of the reduced-length integral I2.
inline double GxGeodesicA2(double eps) {
    const double e2 = eps * eps;
    return (1 - eps) * (1 + e2 * (1.0 / 4 + e2 * (9.0 / 64 + 25 * e2 / 256)));
}

// C2_1..C2_6 of I2, sixth order in eps.
inline void GxGeodesicC2(double eps, double* c) {
    const double e2 = eps * eps;
    double d = eps;
    c[0] = d * (1.0 / 2 + e2 * (1.0 / 16 + e2 / 32));
    d *= eps;
    c[1] = d * (3.0 / 16 + e2 * (1.0 / 32 + 35 * e2 / 2048));
    d *= eps;
    c[2] = d * (5.0 / 48 + 5 * e2 / 256);
    d *= eps;
    c[3] = d * (35.0 / 512 + 7 * e2 / 512);
    d *= eps;
    c[4] = d * (63.0 / 1280);
    d *= eps;
    c[5] = d * (77.0 / 2048);
}

// A3 of the longitude integral I3, fifth order in eps and n together.
inline double GxGeodesicA3(double eps, double n) {
    return 1 - eps * ((1.0 / 2 - n / 2) +
                      eps * ((1.0 / 4 + n / 8 - 3 * n * n / 8) +
                             eps * ((1.0 / 16 + 3 * n / 16 + n * n / 16) +
                                    eps * ((3.0 / 64 + n / 32) + eps * (3.0 / 128)))));
}

// C3_1..C3_5 of I3, fifth order in eps and n together.
inline void GxGeodesicC3(double eps, double n, double* c) {
    const double n2 = n * n;
    double d = eps;
    c[0] =
        d * ((1.0 / 4 - n / 4) +
             eps * ((1.0 / 8 - n2 / 8) + eps * ((3.0 / 64 + 3 * n / 64 - n2 / 64) +
                                                eps * ((5.0 / 128 + n / 64) + eps * (3.0 / 128)))));
    d *= eps;
    c[1] = d * ((1.0 / 16 - 3 * n / 32 + n2 / 32) +
                eps * ((3.0 / 64 - n / 32 - 3 * n2 / 64) +
                       eps * ((3.0 / 128 + n / 128) + eps * (5.0 / 256))));
    d *= eps;
    c[2] = d * ((5.0 / 192 - 3 * n / 64 + 5 * n2 / 192) +
                eps * ((3.0 / 128 - 5 * n / 192) + eps * (7.0 / 512)));
    d *= eps;
    c[3] = d * ((7.0 / 512 - 7 * n / 256) + eps * (7.0 / 512));
    d *= eps;
    c[4] = d * (21.0 / 2560);
}

// sum_l c[l-1] sin(2 l sigma) for sigma given by its sine and cosine (a unit
// vector).
inline double GxGeodesicSineSum(const double* c, int count, double sinSigma, double cosSigma) {
    return GxClenshawSine(c, count, 2 * sinSigma * cosSigma,
                          (cosSigma - sinSigma) * (cosSigma + sinSigma));
}
