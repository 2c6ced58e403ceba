#pragma once

#include <cmath>

#include "foundation/Angles.h"
#include "foundation/Ellipsoid.h"

// Earth-centred, Earth-fixed Cartesian coordinates on an ellipsoid: X towards
// longitude 0 on the equator, Y towards 90 degrees east, Z towards the north
// pole, in the unit of the semi-major axis. The facade's geocentric calls and
// the rotated-pole grid both go through here. The steps are inline so that
// every caller compiles the same expressions in the same order (the array and
// single-point forms then agree bit for bit).
struct GxGeocentric {
    double a;    // semi-major axis
    double b;    // semi-minor axis
    double f;    // flattening
    double e2;   // first eccentricity squared
    double ep2;  // second eccentricity squared, (a^2 - b^2) / b^2

    static GxGeocentric Of(const CGxEllipsoid& ellipsoid) {
        GxGeocentric g;
        g.a = ellipsoid.GetMajor();
        g.b = ellipsoid.GetMinor();
        g.f = ellipsoid.GetFlatness();
        const double e = ellipsoid.GetEccentricity();
        g.e2 = e * e;
        g.ep2 = (g.a * g.a - g.b * g.b) / (g.b * g.b);
        return g;
    }

    // Radius of curvature in the prime vertical at a latitude of this sine.
    double PrimeVerticalRadius(double sinPhi) const {
        return a / std::sqrt(1.0 - e2 * sinPhi * sinPhi);
    }

    // Longitude and latitude in degrees, height h above the ellipsoid.
    void ToXYZ(double lon, double lat, double h, double* X, double* Y, double* Z) const {
        const double phi = lat * kGxDegToRad;
        const double lambda = lon * kGxDegToRad;
        const double sinPhi = std::sin(phi);
        const double cosPhi = std::cos(phi);
        const double N = PrimeVerticalRadius(sinPhi);
        *X = (N + h) * cosPhi * std::cos(lambda);
        *Y = (N + h) * cosPhi * std::sin(lambda);
        *Z = ((1.0 - e2) * N + h) * sinPhi;
    }

    // The same on the ellipsoid's surface. Kept apart from the form with a
    // height: N + 0 is not N when N is -0 (a figure with a negative zero
    // axis).
    void SurfaceToXYZ(double lon, double lat, double* X, double* Y, double* Z) const {
        const double phi = lat * kGxDegToRad;
        const double lambda = lon * kGxDegToRad;
        const double sinPhi = std::sin(phi);
        const double cosPhi = std::cos(phi);
        const double N = PrimeVerticalRadius(sinPhi);
        *X = N * cosPhi * std::cos(lambda);
        *Y = N * cosPhi * std::sin(lambda);
        *Z = (1.0 - e2) * N * sinPhi;
    }

    // Geodetic latitude in radians of a point at distance p > 0 from the polar
    // axis, height Z above the equatorial plane and distance r from the
    // centre, by Bowring's closed form
    // (B. R. Bowring, "Transformation from spatial to geographical
    // coordinates", Survey Review 23(181), 1976) with the parametric latitude
    // u taken from the flattening and the point's distance from the centre:
    // better than a millimetre for heights within a few thousand kilometres of
    // the surface, without iteration. On the axis (p = 0) it divides by zero;
    // callers decide the pole themselves. The callers compute r, each adding
    // the two squares in its own order: with both p and Z NaN, that order
    // decides which NaN (and which sign bit) comes out, and both results are
    // kept as they are.
    double LatitudeOffAxis(double p, double Z, double r) const {
        const double u = std::atan((1.0 - f + e2 * a / r) * Z / p);
        const double sinU = std::sin(u);
        const double cosU = std::cos(u);
        return std::atan((Z + ep2 * b * sinU * sinU * sinU) / (p - e2 * a * cosU * cosU * cosU));
    }
};
