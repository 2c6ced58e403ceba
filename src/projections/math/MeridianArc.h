#pragma once

#include <cmath>

#include "projections/math/ClenshawSeries.h"

// Meridian lengths shared by the projections that keep distances along the
// meridians (Cassini-Soldner, equidistant conic). Inline: they sit in the hot
// paths.
//
// The arc from the equator to phi is M(phi) = a A (phi + sum_k h_k sin 2k phi),
// mu = phi + sum_k h_k sin 2k phi being the rectifying latitude, and its
// inverse is phi = mu + sum_k d_k sin 2k mu. All are series in the third
// flattening n = (a - b)/(a + b) (Helmert's expansion; the integrand
// (1 - e^2 sin^2 phi)^(-3/2) is (1 + n)^3 |1 + n exp(2 i phi)|^(-3)),
// taken to sixth order (tools/derive_series.py derives and prints the
// coefficients): what is left out is of order n^7, below 1e-18 of the arc (a
// nanometre is 1.6e-16 of a quadrant) on terrestrial figures.
struct GxMeridian {
    double scale;  // A: the arc per radian of rectifying latitude, units of a
    double h[6];   // rectifying from geodetic latitude
    double d[6];   // geodetic from rectifying latitude
};

// The series for an ellipsoid of eccentricity squared e2 (0 <= e2 < 1).
inline GxMeridian GxMeridianSeries(double e2) {
    // n = (1 - sqrt(1 - e^2)) / (1 + sqrt(1 - e^2)), without the cancellation.
    const double s = 1 + std::sqrt(1 - e2);
    const double n = e2 / (s * s);
    const double n2 = n * n, n3 = n2 * n, n4 = n2 * n2, n5 = n4 * n, n6 = n3 * n3;
    GxMeridian m;
    m.scale = (1 + n2 / 4 + n4 / 64 + n6 / 256) / (1 + n);
    m.h[0] = -3 * n / 2 + 9 * n3 / 16 - 3 * n5 / 32;
    m.h[1] = 15 * n2 / 16 - 15 * n4 / 32 + 135 * n6 / 2048;
    m.h[2] = -35 * n3 / 48 + 105 * n5 / 256;
    m.h[3] = 315 * n4 / 512 - 189 * n6 / 512;
    m.h[4] = -693 * n5 / 1280;
    m.h[5] = 1001 * n6 / 2048;
    m.d[0] = 3 * n / 2 - 27 * n3 / 32 + 269 * n5 / 512;
    m.d[1] = 21 * n2 / 16 - 55 * n4 / 32 + 6759 * n6 / 4096;
    m.d[2] = 151 * n3 / 96 - 417 * n5 / 128;
    m.d[3] = 1097 * n4 / 512 - 15543 * n6 / 2560;
    m.d[4] = 8011 * n5 / 2560;
    m.d[5] = 293393 * n6 / 61440;
    return m;
}

// Meridian arc from the equator to phi (radians), in units of a.
inline double GxMeridianArc(double phi, const GxMeridian& m) {
    const double s = std::sin(phi), c = std::cos(phi);
    return m.scale * (phi + GxClenshawSine(m.h, 6, 2 * s * c, (c - s) * (c + s)));
}

// Geodetic latitude (radians) of the rectifying latitude mu, the footpoint of
// an arc M: mu = M / (a A).
inline double GxFootpointLatitude(double mu, const GxMeridian& m) {
    const double s = std::sin(mu), c = std::cos(mu);
    return mu + GxClenshawSine(m.d, 6, 2 * s * c, (c - s) * (c + s));
}
