#pragma once

#include <cmath>

#include "projections/ConformalLatitude.h"

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

// Geodetic latitude from the authalic latitude beta by the series
// beta + c1 sin 2beta + c2 sin 4beta + c3 sin 6beta (c from
// GxComputeFourierCoefficients, equal-area types, with c[3] = 0): the same
// sine series in even multiples as the conformal case.
inline double GxLatitudeFromAuthalic(double beta, const double* c) {
    return GxLatitudeFromConformal(beta, c);
}
