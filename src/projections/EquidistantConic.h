#pragma once

#include "foundation/GxExport.h"
#include "projections/ProjInterface.h"
#include "projections/math/MeridianArc.h"

class CGxEllipsoid;
class CGxEquidistantConicProjection;

// Equidistant conic with two standard parallels: distances along every
// meridian are true. Parameters in degrees and in the units of the semi-major
// axis: parallel1/parallel2 the standard parallels, (centralMeridian,
// originLatitude) the origin, which maps to (falseEasting, falseNorthing).
// Equal standard parallels give the tangent cone with n = sin parallel1. The
// default area is the ten-degree box around the origin.

// Ellipsoidal formulas, with the meridian arc and the footpoint latitude as
// series in the third flattening to sixth order: exact in both directions to
// rounding. Both forms take the longitude difference from the central
// meridian the shorter way round, so that a grid across the antimeridian
// stays in one piece.
class GXCART_API CGxEquidistantConicEllipsoid
    : public CGxInnerFormOf<CGxEquidistantConicEllipsoid> {
public:
    CGxEquidistantConicEllipsoid(double parallel1, double parallel2, double centralMeridian,
                                 double originLatitude, double falseEasting, double falseNorthing,
                                 const CGxEllipsoid& ellipsoid);
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;

private:
    double lat1, lat2;    // radians
    GxMeridian meridian;  // meridian arc and its inverse
    double n;             // cone constant
    double G;             // constant of the cone, in units of the semi-major axis
    double rho0;          // radius of the origin parallel
};

// Spherical formulas, closed in both directions.
class GXCART_API CGxEquidistantConicSphere : public CGxInnerFormOf<CGxEquidistantConicSphere> {
public:
    CGxEquidistantConicSphere(double parallel1, double parallel2, double centralMeridian,
                              double originLatitude, double falseEasting, double falseNorthing,
                              const CGxEllipsoid& ellipsoid);
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;

private:
    double lat1, lat2;  // radians
    double n, G, rho0;
};

// The equidistant conic algorithm: the spherical formulas for an inverse
// flattening of exactly 0, the ellipsoidal ones otherwise.
class GXCART_API CGxEquidistantConic
    : public CGxProjWrapperOf<CGxEquidistantConic, CGxEquidistantConicEllipsoid,
                              CGxEquidistantConicSphere, CGxEquidistantConicProjection> {
public:
    CGxEquidistantConic(const char* name, double parallel1, double parallel2,
                        double centralMeridian, double originLatitude, double falseEasting,
                        double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a catalogue definition: its name, its parameters and the ellipsoid
    // its identifier names in the catalogue. Without a known ellipsoid (or
    // without a definition) no formulas are built and every point converts
    // to NaN; an empty name gives the local grid, which is the identity.
    explicit CGxEquidistantConic(const CGxEquidistantConicProjection* definition);
};
