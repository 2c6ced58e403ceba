#pragma once

#include <cmath>
#include <limits>

#include "foundation/Angles.h"
#include "projections/math/AuthalicLatitude.h"
#include "projections/math/ConeLongitude.h"
#include "projections/math/NoFigure.h"

// Lambert's cylindrical equal-area projection in the normal aspect, true to
// scale along a standard parallel and its mirror (EPSG Guidance Note 7-2,
// method 9835, ellipsoidal form; Snyder, USGS Professional Paper 1395,
// chapter 10):
//   x = FE + a k0 (lon - lon0),   y = FN + a q(phi) / (2 k0),
//   k0 = cos phi1 / sqrt(1 - e^2 sin^2 phi1),
// with q the authalic term (math/AuthalicLatitude.h). On a sphere q = 2 sin phi
// and k0 = cos phi1. The inverse finds the authalic latitude from y and
// returns from it exactly. The longitude difference is taken the shorter way
// round, and the inverse gives longitudes within +-180 degrees, so a world
// map wraps as PROJ's does.
struct GxEqualAreaCylinder {
    // a: semi-major axis; e: eccentricity (0 for a sphere); parallel1,
    // lon0: radians; fe, fn: the false origin. c: the authalic-to-geodetic
    // series of the figure (four numbers, the last 0).
    void Set(double a, double e_, double parallel1, double lon0_, double fe, double fn,
             const double* series) {
        e = e_;
        e2 = e * e;
        const double s1 = std::sin(parallel1);
        k0 = std::cos(parallel1) / std::sqrt(1 - e2 * s1 * s1);
        lon0 = lon0_;
        falseEasting = fe;
        falseNorthing = fn;
        qP = e == 0 ? 2.0 : GxAuthalicQ(1.0, e, e2);
        xScale = a * k0;
        yScale = a / (2 * k0);
        for (int i = 0; i < 4; ++i) c[i] = series[i];
    }

    // Degrees to the grid; NaN beyond the poles.
    void Forward(double lonDeg, double latDeg, double* x, double* y) const {
        if (std::fabs(latDeg) > 90.0) {
            *x = *y = std::numeric_limits<double>::quiet_NaN();
            return;
        }
        const double sinPhi = std::sin(latDeg * kGxDegToRad);
        *x = falseEasting + xScale * GxConeLongitudeDifference(lonDeg * kGxDegToRad, lon0);
        *y = falseNorthing + yScale * (e == 0 ? 2 * sinPhi : GxAuthalicQ(sinPhi, e, e2));
    }

    // The grid to degrees; NaN north or south of the poles' lines. A northing
    // within 1e-10 of the pole's (relative) is the pole: the pole's own
    // northing, rounded, may lie an ulp beyond it.
    void Inverse(double x, double y, double* lonDeg, double* latDeg) const {
        constexpr double kPoleSlack = 1e-10;
        double sinBeta = (y - falseNorthing) / (yScale * qP);
        if (!(std::fabs(sinBeta) <= 1.0 + kPoleSlack)) {
            *lonDeg = *latDeg = std::numeric_limits<double>::quiet_NaN();
            return;
        }
        if (std::fabs(sinBeta) > 1.0) sinBeta = std::copysign(1.0, sinBeta);
        double phi;
        if (e == 0) {
            phi = std::asin(sinBeta);
        } else {
            const double cosBeta = std::sqrt((1 - sinBeta) * (1 + sinBeta));
            phi = GxLatitudeFromAuthalic(sinBeta, cosBeta, c, e, e2, qP);
        }
        double lon = lon0 + (x - falseEasting) / xScale;
        if (std::fabs(lon) > kGxPi) lon = std::remainder(lon, kGxTwoPi);
        *lonDeg = lon * kGxRadToDeg;
        *latDeg = phi * kGxRadToDeg;
    }

    double e = kGxNoFigure;
    double e2 = kGxNoFigure;
    double k0 = kGxNoFigure;  // scale on the equator
    double lon0 = kGxNoFigure;
    double falseEasting = kGxNoFigure;
    double falseNorthing = kGxNoFigure;
    double qP = kGxNoFigure;      // q at the pole
    double xScale = kGxNoFigure;  // a k0
    double yScale = kGxNoFigure;  // a / (2 k0)
    double c[4] = {0, 0, 0, 0};
};
