#pragma once

// The series coefficients the projections share, each named by the series it
// belongs to. out receives four values.
//
// - eKruegerTransverseMercator, x = third flattening n: with forward set the
//   four forward Krueger coefficients h1..h4, otherwise the four inverse ones
//   taken positive, h1'..h4'.
// - eAuthalicLatitude, x = e^2: the three coefficients of the
//   authalic-to-geodetic latitude series (out[3] is set to 0).
// - eMeridianArc, x = e^2: with forward set the meridian-arc coefficients
//   M1..M4, otherwise the footpoint-latitude coefficients F1..F4.
// - eConformalLatitude, x = e^2: the four coefficients c1..c4 of the
//   conformal-to-geodetic latitude series.
enum class EGxSeries : int {
    eKruegerTransverseMercator,
    eAuthalicLatitude,
    eMeridianArc,
    eConformalLatitude,
};

void GxComputeFourierCoefficients(EGxSeries series, bool forward, double x, double* out);
