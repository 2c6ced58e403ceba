#pragma once

#include "foundation/GxExport.h"
#include "projections/ProjInterface.h"
#include "projections/math/MeridianArc.h"

class CGxEllipsoid;
class CGxCassiniSoldnerProjection;

// Cassini-Soldner, the transverse cylindrical projection that keeps distances
// along the central meridian and along the great circles perpendicular to it.
// Parameters in degrees and in the units of the semi-major axis: the origin
// (centralMeridian, originLatitude) maps to (falseEasting, falseNorthing).
// The default area is the ten-degree box around the origin.

// Ellipsoidal formulas: power series in the longitude difference, fifth order
// across and fourth order along the meridian, with the meridian arc and the
// footpoint latitude exact (series in n to sixth order). They suit a
// strip a few degrees wide: the inverse series is not the exact inverse of
// the forward one, and at 50 degrees of latitude the two part by 0.5 mm
// within one degree of the central meridian, 3 mm at two degrees, 2 cm at
// three and 16 cm at five.
class GXCART_API CGxCassiniSoldnerEllipsoid : public CGxInnerFormOf<CGxCassiniSoldnerEllipsoid> {
public:
    CGxCassiniSoldnerEllipsoid(double centralMeridian, double originLatitude, double falseEasting,
                               double falseNorthing, const CGxEllipsoid& ellipsoid);
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;

private:
    GxMeridian meridian;  // meridian arc and its inverse
    double M0;            // meridian arc to the origin latitude
};

// Spherical formulas, closed in both directions at any distance from the
// central meridian.
class GXCART_API CGxCassiniSoldnerSphere : public CGxInnerFormOf<CGxCassiniSoldnerSphere> {
public:
    CGxCassiniSoldnerSphere(double centralMeridian, double originLatitude, double falseEasting,
                            double falseNorthing, const CGxEllipsoid& ellipsoid);
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
};

// The Cassini-Soldner algorithm: the spherical formulas for an inverse
// flattening of exactly 0, the ellipsoidal ones otherwise.
class GXCART_API CGxCassiniSoldner
    : public CGxProjWrapperOf<CGxCassiniSoldner, CGxCassiniSoldnerEllipsoid,
                              CGxCassiniSoldnerSphere, CGxCassiniSoldnerProjection> {
public:
    CGxCassiniSoldner(const char* name, double centralMeridian, double originLatitude,
                      double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a catalogue definition: its name, its parameters and the ellipsoid
    // its identifier names in the catalogue. Without a known ellipsoid (or
    // without a definition) no formulas are built and every point converts
    // to NaN; an empty name gives the local grid, which is the identity.
    explicit CGxCassiniSoldner(const CGxCassiniSoldnerProjection* definition);
};
