#pragma once

#include "foundation/GxExport.h"
#include "projections/ProjInterface.h"

class CGxEllipsoid;
class CGxAlbersEqualAreaProjection;

// Albers equal-area conic with two standard parallels and a false origin.
// Parameters in degrees and in the units of the semi-major axis:
// parallel1/parallel2 the standard parallels, centralMeridian and
// originLatitude the false origin, which maps to (falseEasting,
// falseNorthing). The default area is the ten-degree box around the false
// origin.

// Ellipsoidal formulas. The inverse reaches the latitude through the authalic
// latitude: its series in e^2 to third order, then a Newton step on q, exact
// to rounding. A point whose radius is within rounding of the pole's returns
// the pole (latitude +-90). Equal standard parallels make the cone constant
// 0/0 and every result NaN: the tangent cone needs the spherical form or two
// distinct parallels. Both forms take the longitude difference from the
// central meridian the shorter way round (math/ConeLongitude.h).
class GXCART_API CGxAlbersEqualAreaEllipsoid : public CGxInnerFormOf<CGxAlbersEqualAreaEllipsoid> {
public:
    CGxAlbersEqualAreaEllipsoid(double parallel1, double parallel2, double centralMeridian,
                                double originLatitude, double falseEasting, double falseNorthing,
                                const CGxEllipsoid& ellipsoid);
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;

private:
    double lat1, lat2;  // radians
    double c[4];        // c1, c2, c3 of the authalic-to-geodetic series, and 0
    double n;           // cone constant
    double C;           // constant of the cone
    double rho0;        // radius of the false origin's parallel
    double qPole;       // q at the pole
};

// Spherical formulas, closed in both directions; equal standard parallels
// give the tangent cone with n = sin parallel1.
class GXCART_API CGxAlbersEqualAreaSphere : public CGxInnerFormOf<CGxAlbersEqualAreaSphere> {
public:
    CGxAlbersEqualAreaSphere(double parallel1, double parallel2, double centralMeridian,
                             double originLatitude, double falseEasting, double falseNorthing,
                             const CGxEllipsoid& ellipsoid);
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;

private:
    double lat1, lat2;  // radians
    double n, C, rho0;
};

// The Albers algorithm: the spherical formulas for an inverse flattening of
// exactly 0, the ellipsoidal ones otherwise.
class GXCART_API CGxAlbersEqualArea
    : public CGxProjWrapperOf<CGxAlbersEqualArea, CGxAlbersEqualAreaEllipsoid,
                              CGxAlbersEqualAreaSphere, CGxAlbersEqualAreaProjection> {
public:
    CGxAlbersEqualArea(const char* name, double parallel1, double parallel2, double centralMeridian,
                       double originLatitude, double falseEasting, double falseNorthing,
                       const CGxEllipsoid& ellipsoid);
    // From a catalogue definition: its name, its parameters and the ellipsoid
    // its identifier names in the catalogue. Without a known ellipsoid (or
    // without a definition) no formulas are built and every point converts
    // to NaN; an empty name gives the local grid, which is the identity.
    explicit CGxAlbersEqualArea(const CGxAlbersEqualAreaProjection* definition);
};
