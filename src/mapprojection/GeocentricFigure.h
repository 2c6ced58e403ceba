#pragma once

#include <cmath>

#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"

// Geodetic longitude, latitude and ellipsoidal height to Earth-centred X, Y, Z
// on one figure and back, in degrees and metres. The figure's derived values
// are computed once, so that a loop over many points reads the ellipsoid once;
// the map projection's geocentric conversions and the datum converter share
// these steps.
struct GxGeocentricFigure {
    double a, b, f, e2, ep2;

    explicit GxGeocentricFigure(const CGxEllipsoid& ellipsoid) {
        a = ellipsoid.GetMajor();
        b = ellipsoid.GetMinor();
        f = ellipsoid.GetFlatness();
        const double e = ellipsoid.GetEccentricity();
        e2 = e * e;
        ep2 = (a * a - b * b) / (b * b);
    }

    void ToXYZ(double lon, double lat, double h, double* X, double* Y, double* Z) const {
        const double phi = lat * kGxDegToRad;
        const double lambda = lon * kGxDegToRad;
        const double sinPhi = std::sin(phi);
        const double cosPhi = std::cos(phi);
        // Radius of curvature in the prime vertical.
        const double N = a / std::sqrt(1.0 - e2 * sinPhi * sinPhi);
        *X = (N + h) * cosPhi * std::cos(lambda);
        *Y = (N + h) * cosPhi * std::sin(lambda);
        *Z = ((1.0 - e2) * N + h) * sinPhi;
    }

    // Bowring's closed form (B. R. Bowring, "Transformation from spatial to
    // geographical coordinates", Survey Review 23(181), 1976), with the
    // parametric latitude u taken from the ellipsoid's flattening and the
    // point's distance from the centre: better than a millimetre for heights
    // within a few thousand kilometres of the surface, without iteration.
    void ToGeo(double X, double Y, double Z, double* lon, double* lat, double* h) const {
        const double p = std::sqrt(X * X + Y * Y);
        *lon = std::atan2(Y, X) * kGxRadToDeg;
        if (p == 0.0) {
            // On the polar axis the formula divides by p; the point lies
            // above or below a pole.
            *lat = Z < 0.0 ? -90.0 : 90.0;
            *h = std::fabs(Z) - b;
            return;
        }
        const double r = std::sqrt(Z * Z + p * p);
        const double u = std::atan((1.0 - f + e2 * a / r) * Z / p);
        const double sinU = std::sin(u);
        const double cosU = std::cos(u);
        const double phi =
            std::atan((Z + ep2 * b * sinU * sinU * sinU) / (p - e2 * a * cosU * cosU * cosU));
        const double sinPhi = std::sin(phi);
        *lat = phi * kGxRadToDeg;
        *h = p / std::cos(phi) - a / std::sqrt(1.0 - e2 * sinPhi * sinPhi);
    }
};
