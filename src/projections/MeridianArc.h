#pragma once

#include <cmath>

#include "projections/ConformalLatitude.h"

// Meridian lengths shared by the projections that keep distances along the
// meridians (Cassini-Soldner, equidistant conic). Inline: they sit in the hot
// paths.

// Meridian arc from the equator to phi in units of the semi-major axis:
// M1 phi - M2 sin 2phi + M3 sin 4phi - M4 sin 6phi (m from
// GxComputeFourierCoefficients, meridian-arc types, forward). The multiple
// angles come from one sine/cosine pair.
inline double GxMeridianArc(double phi, const double* m) {
    const double s2 = std::sin(2 * phi), c2 = std::cos(2 * phi);
    const double s4 = 2 * s2 * c2, c4 = c2 * c2 - s2 * s2;
    const double s6 = s4 * c2 + c4 * s2;
    return m[0] * phi - m[1] * s2 + m[2] * s4 - m[3] * s6;
}

// Footpoint latitude from the rectifying latitude mu by the series
// mu + F1 sin 2mu + F2 sin 4mu + F3 sin 6mu + F4 sin 8mu (F from
// GxComputeFourierCoefficients, meridian-arc types, inverse): the same sine
// series in even multiples as the conformal case.
inline double GxFootpointLatitude(double mu, const double* f) {
    return GxLatitudeFromConformal(mu, f);
}
