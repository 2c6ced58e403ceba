#pragma once

// Series coefficients shared by the projections, keyed by the projection type
// number (1 Transverse Mercator, 16 Albers, 17 Lambert azimuthal equal area,
// 18 Cassini-Soldner, 19 equidistant conic, any other: a conformal type):
//
// - Transverse Mercator, x = third flattening n: with forward set the four
//   forward Krueger coefficients h1..h4, otherwise the four inverse ones taken
//   positive, h1'..h4'.
// - Albers and Lambert azimuthal, x = e^2: the three coefficients of the
//   authalic-to-geodetic latitude series (out[3] is set to 0).
// - Cassini-Soldner and equidistant conic, x = e^2: with forward set the
//   meridian-arc coefficients M1..M4, otherwise the footpoint-latitude
//   coefficients F1..F4.
// - Conformal types, x = e^2: the four coefficients c1..c4 of the
//   conformal-to-geodetic latitude series.
//
// out receives four values.
void GxComputeFourierCoefficients(int type, bool forward, double x, double* out);
