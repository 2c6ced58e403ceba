#pragma once

#include <cmath>

#include "foundation/Angles.h"
#include "foundation/Tolerance.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/ConformalLatitude.h"
#include "projections/math/NoFigure.h"

// The ellipsoidal oblique Mercator of Hotine, shared by the three grids built
// on it (natural origin, projection centre, rectified skew orthomorphic). The
// ellipsoid is mapped conformally onto the aposphere, a surface of constant
// total curvature; the central line through the projection centre at the
// given azimuth becomes the equator of an oblique Mercator on it. Formulas as
// in the national surveys' guidance for Hotine's projection (EPSG variants A
// and B); the latitude comes back from the conformal latitude by its series.
//
// (u, v) are the skew coordinates along and across the central line, u
// measured from the natural origin where the central line crosses the
// aposphere's equator. The grid turns (v, u) by the rectification angle
// gammaC; the centre-origin grid also shifts u so that the projection centre
// is its origin.
//
// Until Set is called it has no figure and every point converts to NaN.
struct GxHotineOblique {
    double falseEasting = kGxNoFigure, falseNorthing = kGxNoFigure;
    // conformal-to-geodetic latitude series
    double c[4] = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};
    double e = kGxNoFigure;
    double B = kGxNoFigure, A = kGxNoFigure, H = kGxNoFigure;
    double gamma0 = kGxNoFigure, lon0 = kGxNoFigure;
    double uC = kGxNoFigure;  // distance along the central line from natural origin to centre
    // |uC| signed by the centre's hemisphere; 0 for the natural origin
    double uShift = kGxNoFigure;
    // Derived once for the conversions.
    double cosGamma0 = kGxNoFigure, sinGamma0 = kGxNoFigure;
    double cosGammaC = kGxNoFigure, sinGammaC = kGxNoFigure;
    double aOverB = kGxNoFigure, bOverA = kGxNoFigure;

    // The aposphere and the grid: a and e of the figure; kc the scale on the
    // central line; latC, lonC the projection centre, alphaC the azimuth of
    // the central line there and gammaC the rectification, radians; azimuth
    // the same azimuth in degrees, whose east-west value 90 has a closed form
    // of the centre offset; originAtCentre moves the grid origin from the
    // natural origin to the projection centre.
    void Set(double a, double e_, double kc, double latC, double lonC, double alphaC, double gammaC,
             double azimuth, bool originAtCentre, double fe, double fn);

    // Degrees in, map units out. The poles and points 90 degrees from the
    // central line have no image (NaN or infinity).
    void Forward(double lon, double lat, double* x, double* y) const {
        const double t = GxConformalT(lat * kGxDegToRad, e);
        const double Q = H / std::pow(t, B);
        const double S = (Q - 1 / Q) / 2;
        const double T = (Q + 1 / Q) / 2;
        const double dLon = B * (lon * kGxDegToRad - lon0);
        const double V = std::sin(dLon);
        const double U = (-V * cosGamma0 + S * sinGamma0) / T;
        const double v = aOverB * std::log((1 - U) / (1 + U)) / 2;
        const double u =
            aOverB * std::atan2(S * cosGamma0 + V * sinGamma0, std::cos(dLon)) - uShift;
        *x = v * cosGammaC + u * sinGammaC + falseEasting;
        *y = u * cosGammaC - v * sinGammaC + falseNorthing;
    }

    // Map units in, degrees out.
    void Inverse(double x, double y, double* lon, double* lat) const {
        const double dx = x - falseEasting;
        const double dy = y - falseNorthing;
        const double v = dx * cosGammaC - dy * sinGammaC;
        const double u = dy * cosGammaC + dx * sinGammaC + uShift;
        const double Q = std::exp(-bOverA * v);
        const double S = (Q - 1 / Q) / 2;
        const double T = (Q + 1 / Q) / 2;
        const double bu = bOverA * u;
        const double V = std::sin(bu);
        const double U = (V * cosGamma0 + S * sinGamma0) / T;
        const double t = std::pow(H / std::sqrt((1 + U) / (1 - U)), 1 / B);
        const double chi = kGxHalfPi - 2 * std::atan(t);
        *lat = GxLatitudeFromConformal(chi, c) * kGxRadToDeg;
        *lon = (lon0 - std::atan2(S * cosGamma0 - V * sinGamma0, std::cos(bu)) / B) * kGxRadToDeg;
    }
};

inline void GxHotineOblique::Set(double a, double e_, double kc, double latC, double lonC,
                                 double alphaC, double gammaC, double azimuth, bool originAtCentre,
                                 double fe, double fn) {
    // The azimuth of an east-west central line, degrees.
    constexpr double kEastWestAzimuth = 90.0;
    e = e_;
    falseEasting = fe;
    falseNorthing = fn;
    const double e2 = e * e;
    GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e2, c);

    const double s = std::sin(latC);
    const double cosLat = std::cos(latC);
    const double es = e * s;
    // +1 on and north of the equator, -1 south of it.
    const double sign = latC >= 0 ? 1.0 : -1.0;

    B = std::sqrt(1 + e2 * cosLat * cosLat * cosLat * cosLat / (1 - e2));
    A = a * B * kc * std::sqrt(1 - e2) / (1 - e2 * s * s);
    const double t0 = GxConformalT(latC, e);
    const double D = B * std::sqrt(1 - e2) / (cosLat * std::sqrt(1 - es * es));
    // D is at least 1 on every ellipsoid; at the equator rounding can put it
    // a hair below, where the aposphere's equator is the ellipsoid's own.
    const double Q = D >= 1 ? std::sqrt(D * D - 1) : 0.0;
    const double F = D + Q * sign;
    H = F * std::pow(t0, B);
    const double G = (F - 1 / F) / 2;
    gamma0 = std::asin(std::sin(alphaC) / D);
    // lon0 = lonC - asin(G tan gamma0) / B, evaluated as the equivalent
    // atan2(G sin alphaC, D |cos alphaC|): near an east-west central line the
    // sine's argument approaches 1, where asin turns one rounding unit into
    // centimetres on the ground (the Hungarian EOV grid at azimuth 90).
    lon0 = lonC - std::atan2(G * std::sin(alphaC), D * std::fabs(std::cos(alphaC))) / B;

    uC = 0.0;
    if (originAtCentre) {
        uC = GxIsNear(azimuth, kEastWestAzimuth) ? A * (lonC - lon0)
                                                 : (A / B) * std::atan2(Q, std::cos(alphaC)) * sign;
    }
    uShift = std::fabs(uC) * sign;

    cosGamma0 = std::cos(gamma0);
    sinGamma0 = std::sin(gamma0);
    cosGammaC = std::cos(gammaC);
    sinGammaC = std::sin(gammaC);
    aOverB = A / B;
    bOverA = B / A;
}
