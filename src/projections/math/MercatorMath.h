#pragma once

#include <cmath>

#include "foundation/Angles.h"
#include "projections/math/ConformalLatitude.h"
#include "projections/math/NoFigure.h"

// The normal-aspect ellipsoidal Mercator shared by the scale-factor and the
// standard-parallel forms: x = a k0 (lon - lon0), y = a k0 psi with psi the
// isometric latitude; the inverse goes through the conformal latitude and the
// fourth-order series, with no iteration. The longitude difference is not
// reduced to +-180 degrees.
//
// Until it is filled the cylinder has no figure and every point converts to
// NaN.
struct GxMercatorCylinder {
    double e = kGxNoFigure;     // first eccentricity
    double ak0 = kGxNoFigure;   // a k0
    double lon0 = kGxNoFigure;  // radians
    double falseEasting = kGxNoFigure;
    double falseNorthing = kGxNoFigure;
    // Conformal-to-geodetic latitude series.
    double c[4] = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};

    // Degrees in, map units out. The poles lie at infinite northing.
    void Forward(double lon, double lat, double* x, double* y) const {
        // psi = -ln t is odd in the latitude; taking it from |lat| keeps the
        // two hemispheres exact mirrors and sends both poles to infinity
        // (t(90) is exactly 0, whereas tan(pi/4 + pi/4) is merely large).
        const double phi = lat * kGxDegToRad;
        const double psi = -std::log(GxConformalT(std::fabs(phi), e));
        *x = falseEasting + ak0 * (lon * kGxDegToRad - lon0);
        *y = falseNorthing + ak0 * std::copysign(psi, phi);
    }

    // Map units in, degrees out.
    void Inverse(double x, double y, double* lon, double* lat) const {
        const double t = std::exp((falseNorthing - y) / ak0);
        const double chi = kGxHalfPi - 2 * std::atan(t);
        *lon = ((x - falseEasting) / ak0 + lon0) * kGxRadToDeg;
        *lat = GxLatitudeFromConformal(chi, c) * kGxRadToDeg;
    }
};
