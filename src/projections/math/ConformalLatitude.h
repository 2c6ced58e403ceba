#pragma once

#include <cmath>

#include "foundation/Angles.h"

// The conformal-latitude pieces shared by the conformal projections (Lambert,
// Mercator, stereographic, oblique Mercator, Krovak). Inline: they sit in the
// hot paths.

// t(phi) = tan(pi/4 - phi/2) / ((1 - e sin phi)/(1 + e sin phi))^(e/2), the
// isometric-latitude term exp(-psi) of the conformal projections.
inline double GxConformalT(double phi, double e) {
    const double es = e * std::sin(phi);
    return std::tan(kGxQuarterPi - phi / 2) / std::pow((1 - es) / (1 + es), e / 2);
}

// Geodetic latitude from the conformal latitude chi by the series
// chi + c1 sin 2chi + c2 sin 4chi + c3 sin 6chi + c4 sin 8chi (c from
// GxComputeFourierCoefficients, conformal types). The multiple angles come from
// one sine/cosine pair by the doubling recurrences.
inline double GxLatitudeFromConformal(double chi, const double* c) {
    const double s2 = std::sin(2 * chi), c2 = std::cos(2 * chi);
    const double s4 = 2 * s2 * c2, c4 = c2 * c2 - s2 * s2;
    const double s6 = s4 * c2 + c4 * s2;
    const double s8 = 2 * s4 * c4;
    return chi + c[0] * s2 + c[1] * s4 + c[2] * s6 + c[3] * s8;
}

// Geodetic latitude from t by the fixed-point iteration
// phi = pi/2 - 2 atan(t ((1 - e sin phi)/(1 + e sin phi))^(e/2)); stops when a
// pass moves less than 1e-12 rad or after 100 passes (silently: the last value
// is returned). The iteration starts from the conformal latitude
// pi/2 - 2 atan(t) carried through the series above (c: its coefficients for
// the figure), which on the Earth's figures is within 2e-12 rad of the answer:
// one or two passes then end the iteration, where the bare conformal latitude
// (off by up to e^2/2 rad) needs five or six.
inline double GxLatitudeFromT(double t, double e, const double* c) {
    constexpr double kConvergence = 1e-12;
    constexpr int kMaxPasses = 100;
    double phi = GxLatitudeFromConformal(kGxHalfPi - 2 * std::atan(t), c);
    for (int i = 0; i < kMaxPasses; ++i) {
        const double es = e * std::sin(phi);
        const double next = kGxHalfPi - 2 * std::atan(t * std::pow((1 - es) / (1 + es), e / 2));
        const bool done = std::fabs(next - phi) < kConvergence;
        phi = next;
        if (done) break;
    }
    return phi;
}
