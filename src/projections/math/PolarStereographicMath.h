#pragma once

#include <cmath>

#include "foundation/Angles.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/ConformalLatitude.h"
#include "projections/math/NoFigure.h"
#include "projections/math/ParallelRadius.h"

// Polar aspect of the ellipsoidal stereographic projection (EPSG Guidance
// Note 7-2, methods 9810 and 9829), shared by the polar aspect of the
// stereographic class and by the north- and south-pole classes.
//
// The distance from the pole is rho = 2 a k0 t / K with t the isometric term
// of the latitude counted from the nearer pole; meridians are straight lines
// through the pole, lonOrigin pointing to grid south from a north pole and to
// grid north from a south pole.

// K = sqrt((1 + e)^(1 + e) (1 - e)^(1 - e)): the limit of 2 m / t at the pole,
// so that k0 is the true scale there.
inline double GxPolarStereographicK(double e) {
    return std::sqrt(std::pow(1 + e, 1 + e) * std::pow(1 - e, 1 - e));
}

// The scale at the pole that makes the projection true to scale along the
// standard parallel latC (radians): k0 = K m(latC) / (2 t(latC)).
inline double GxPolarScaleFromParallel(double latC, double e, bool south) {
    const double tc = GxConformalT(south ? -latC : latC, e);
    return GxPolarStereographicK(e) * GxParallelRadius(latC, e * e) / (2 * tc);
}

// A default-built one has no figure: every point converts to NaN.
struct GxPolarStereographicMath {
    double e = kGxNoFigure;
    double rhoScale = kGxNoFigure;    // 2 a k0 / K
    double hemisphere = kGxNoFigure;  // +1 north pole, -1 south pole
    double lonOrigin = kGxNoFigure;   // radians
    double falseEasting = kGxNoFigure;
    double falseNorthing = kGxNoFigure;
    // Conformal-to-geodetic latitude series.
    double c[4] = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};

    GxPolarStereographicMath() = default;

    // Angles in radians.
    GxPolarStereographicMath(double a, double e_, double k0, bool south, double lon0, double fe,
                             double fn)
        : e(e_),
          rhoScale(2 * a * k0 / GxPolarStereographicK(e_)),
          hemisphere(south ? -1.0 : 1.0),
          lonOrigin(lon0),
          falseEasting(fe),
          falseNorthing(fn) {
        GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e * e, c);
    }

    // Degrees in, map units out. The pole goes to the false origin.
    void Forward(double lon, double lat, double* x, double* y) const {
        const double rho = rhoScale * GxConformalT(hemisphere * lat * kGxDegToRad, e);
        const double dl = lon * kGxDegToRad - lonOrigin;
        *x = falseEasting + rho * std::sin(dl);
        *y = falseNorthing - hemisphere * rho * std::cos(dl);
    }

    // Map units in, degrees out. On the grid line x = falseEasting the
    // longitude is lonOrigin on both sides of the pole: the far side, where the
    // true meridian is lonOrigin + 180, is not told apart.
    void Inverse(double x, double y, double* lon, double* lat) const {
        const double dx = x - falseEasting;
        const double dy = y - falseNorthing;
        const double t = std::sqrt(dx * dx + dy * dy) / rhoScale;
        const double chi = hemisphere * (kGxHalfPi - 2 * std::atan(t));
        double lambda = lonOrigin;
        if (x != falseEasting) lambda += std::atan2(dx, -hemisphere * dy);
        *lon = lambda * kGxRadToDeg;
        *lat = GxLatitudeFromConformal(chi, c) * kGxRadToDeg;
    }
};
