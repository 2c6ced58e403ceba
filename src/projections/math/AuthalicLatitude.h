#pragma once

#include <cmath>

#include "projections/math/ConformalLatitude.h"

// The authalic-latitude pieces shared by the equal-area projections (Albers
// conic, Lambert azimuthal). Inline: they sit in the hot paths.

// q(phi) = (1 - e^2) (sin phi / (1 - e^2 sin^2 phi)
//                     - ln((1 - e sin phi)/(1 + e sin phi)) / (2e)),
// the authalic term whose ratio to its polar value is the sine of the
// authalic latitude. The logarithm is taken as -2 atanh(e sin phi), the same
// quantity without the cancellation of the quotient. Undefined for e = 0.
inline double GxAuthalicQ(double sinPhi, double e, double e2) {
    return (1 - e2) * (sinPhi / (1 - e2 * sinPhi * sinPhi) + std::atanh(e * sinPhi) / e);
}

// qP - q(phi), the distance of q from its polar value, for sin phi >= 0
// (qP + q(phi) is the same function of -phi). Near the pole the difference of
// the two nearly equal terms would lose half the digits; written with
// 1 - sin phi = cos^2 phi / (1 + sin phi) and
// atanh(e) - atanh(e s) = atanh(e (1 - s) / (1 - e^2 s)) it keeps them all:
//   qP - q = (1 - s)(1 + e^2 s) / (1 - e^2 s^2) + (1 - e^2) atanh(e (1 - s) / (1 - e^2 s)) / e.
inline double GxAuthalicQFromPole(double sinPhi, double cosPhi, double e, double e2) {
    const double oneMinusS = cosPhi * cosPhi / (1 + sinPhi);
    return oneMinusS * (1 + e2 * sinPhi) / (1 - e2 * sinPhi * sinPhi) +
           (1 - e2) * std::atanh(e * oneMinusS / (1 - e2 * sinPhi)) / e;
}

// Geodetic latitude (radians) of the authalic latitude given by its sine and
// cosine, to the precision of double arithmetic. The series
// beta + c1 sin 2beta + c2 sin 4beta + c3 sin 6beta (c from
// GxComputeFourierCoefficients, equal-area types, with c[3] = 0), within
// 3e-10 radians on terrestrial figures, starts one Newton step on
// q(phi) = qP sin(beta) with dq/dphi = 2 (1 - e^2) cos phi / (1 - e^2 sin^2 phi)^2,
// which squares that error away. Where sin phi > 1/2 the step's residual is
// taken from the pole, (qP - q(phi)) - qP cos^2(beta) / (1 + sin beta), two
// small and accurate terms, so that the latitude stays exact up to the pole
// when cos(beta) is (and likewise towards the south pole).
//
// Only one arc tangent and one atanh are evaluated: the multiple angles of
// beta come from its sine and cosine, and sin and cos of the start value
// phi0 = beta + d from those of beta and Taylor series of sin d and cos d
// (|d| < e^2 / 2, so the sixth powers left out are below 1e-18).
inline double GxLatitudeFromAuthalic(double sinBeta, double cosBeta, const double* c, double e,
                                     double e2, double qP) {
    const double s2 = 2 * sinBeta * cosBeta, c2 = (cosBeta - sinBeta) * (cosBeta + sinBeta);
    const double s4 = 2 * s2 * c2, c4 = c2 * c2 - s2 * s2;
    const double s6 = s4 * c2 + c4 * s2;
    const double d = c[0] * s2 + c[1] * s4 + c[2] * s6 + c[3] * (2 * s4 * c4);
    const double phi0 = std::atan2(sinBeta, cosBeta) + d;
    if (cosBeta == 0) return phi0;
    const double d2 = d * d;
    const double sinD = d * (1 - d2 / 6 * (1 - d2 / 20));
    const double cosD = 1 - d2 / 2 * (1 - d2 / 12);
    const double s = sinBeta * cosD + cosBeta * sinD;
    const double cphi = cosBeta * cosD - sinBeta * sinD;
    double residual;
    if (s > 0.5) {
        residual = GxAuthalicQFromPole(s, cphi, e, e2) - qP * cosBeta * cosBeta / (1 + sinBeta);
    } else if (s < -0.5) {
        residual = qP * cosBeta * cosBeta / (1 - sinBeta) - GxAuthalicQFromPole(-s, cphi, e, e2);
    } else {
        residual = qP * sinBeta - GxAuthalicQ(s, e, e2);
    }
    const double w = 1 - e2 * s * s;
    return phi0 + residual * w * w / (2 * (1 - e2) * cphi);
}
