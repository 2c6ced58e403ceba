#pragma once

#include <cmath>

#include "foundation/Angles.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/ConeApexOffsets.h"
#include "projections/math/ConformalLatitude.h"
#include "projections/math/NoFigure.h"

// The map geometry shared by the one- and two-parallel Lambert conformal
// conics. A parallel of isometric term t is drawn as a circle of radius
// r = scale t^n about the apex; the origin parallel has radius rOrigin, so the
// apex sits rOrigin north of the false origin (south of it for a southern
// cone, n < 0). Longitudes turn by n times their difference from lon0, which
// is not reduced to +-180 degrees.
//
// Since t(-phi) = 1/t(phi), a southern cone is worked as the mirror of a
// northern one, r = scale t(-phi)^|n|: each cone then meets its own apex pole
// with t exactly 0 (t of -90 degrees in the direct form is a large finite
// number, because tan(pi/2) is, which misses the apex by centimetres), and in
// both the isometric term is clamped beyond the apex pole.
//
// Angles change units as (degrees times pi) / 180 and (radians times 180) / pi,
// multiplication first, not through the rounded factors kGxDegToRad and
// kGxRadToDeg: the two differ in the last bit, and the Lambert grids are
// defined with this rounding (in the constructors, the origin and the
// convergence too).
//
// Until Set is called the cone has no figure and every point converts to NaN.
struct GxLambertCone {
    double e = kGxNoFigure;        // first eccentricity
    double n = kGxNoFigure;        // cone constant
    double apex = kGxNoFigure;     // +1 for a cone with its apex at the north pole, -1 south
    double absN = kGxNoFigure;     // |n|
    double invAbsN = kGxNoFigure;  // 1/|n|
    double scale = kGxNoFigure;    // a F, times k0 for the one-parallel form
    double rOrigin = kGxNoFigure;  // map radius of the origin parallel
    double lon0 = kGxNoFigure;     // radians
    double falseEasting = kGxNoFigure;
    double falseNorthing = kGxNoFigure;
    // Conformal-to-geodetic latitude series of the figure, the start of the
    // inverse's latitude iteration.
    double conformal[4] = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};

    // Degrees in, map units out.
    void Forward(double lon, double lat, double* x, double* y) const {
        const double r = Radius(lat * kGxPi / 180.0);
        const double theta = n * (lon * kGxPi / 180.0 - lon0);
        *x = falseEasting + r * std::sin(theta);
        *y = falseNorthing + rOrigin - r * std::cos(theta);
    }

    // Map units in, degrees out.
    void Inverse(double x, double y, double* lon, double* lat) const {
        double dx, dy;
        GxConeApexOffsets(x, y, falseEasting, falseNorthing, rOrigin, n, &dx, &dy);
        // The radius counts negative on a southern cone, like n and F.
        const double theta = std::atan2(dx, dy);
        const double r = apex * std::hypot(dx, dy);
        const double t = std::pow(r / scale, invAbsN);
        *lon = (theta / n + lon0) * 180.0 / kGxPi;
        *lat = apex * GxLatitudeFromT(t, e, conformal) * 180.0 / kGxPi;
    }

    // Map radius of the parallel phi (radians).
    double Radius(double phi) const {
        double t = GxConformalT(apex * phi, e);
        // Beyond the apex pole the term turns negative: such a point is taken
        // to the apex.
        if (t < 0) t = 0;
        return scale * std::pow(t, absN);
    }

    // Fills the cone from the cone constant, the radius factor a F (k0
    // applied for the one-parallel form) and the origin (angles in radians).
    void Set(double e_, double n_, double scale_, double lon0_, double latOrigin, double fe,
             double fn) {
        e = e_;
        GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e * e, conformal);
        n = n_;
        apex = n_ >= 0 ? 1.0 : -1.0;
        absN = std::fabs(n_);
        invAbsN = 1 / absN;
        scale = scale_;
        rOrigin = Radius(latOrigin);
        lon0 = lon0_;
        falseEasting = fe;
        falseNorthing = fn;
    }
};
