#pragma once

#include "foundation/GxExport.h"
#include "projections/ProjInterface.h"

class CGxEllipsoid;
class CGxLambertAzimuthalEqualAreaProjection;

// Lambert azimuthal equal area in its oblique (and equatorial), north-polar
// and south-polar aspects. Parameters in degrees and in the units of the
// semi-major axis: centreLongitude and originLatitude the centre, which maps
// to (falseEasting, falseNorthing). An origin latitude within the nearness
// tolerance of +90 or -90 selects the polar aspect.

// Ellipsoidal formulas through the authalic latitude; the inverse returns from
// it exactly (the series in e^2 to third order, then a Newton step on q). The
// centre itself goes back to the centre exactly. Well conditioned up to the
// poles, also for an oblique centre next to a pole.
class GXCART_API CGxLambertAzimuthalEqualAreaEllipsoid
    : public CGxInnerFormOf<CGxLambertAzimuthalEqualAreaEllipsoid> {
public:
    CGxLambertAzimuthalEqualAreaEllipsoid(double centreLongitude, double originLatitude,
                                          double falseEasting, double falseNorthing,
                                          const CGxEllipsoid& ellipsoid);
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // Oblique aspect: six-degree box around the centre. Polar aspects: a
    // 400 km square around the pole, both ranges taken from the easting.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

private:
    // qP - q (north) or qP + q (south) of the latitude at phiFromPole from
    // its pole, as computed from q, or exactly when it is small.
    double PolarDistance(double phiFromPole, double difference) const;

    double c[4];  // c1, c2, c3 of the authalic-to-geodetic series, and 0
    double lonOrigin;
    int aspect;    // 1 oblique, 2 north polar, 3 south polar
    double qP;     // q at the pole
    double beta0;  // authalic latitude of the centre (oblique aspect)
    double sinBeta0, cosBeta0;
    double Rq;  // radius of the sphere of equal area (oblique aspect)
    double D;   // scale correction between the two axes (oblique aspect)
};

// Spherical formulas, closed in both directions. The inverse of the centre in
// the oblique aspect divides 0 by 0 and gives a NaN latitude.
class GXCART_API CGxLambertAzimuthalEqualAreaSphere
    : public CGxInnerFormOf<CGxLambertAzimuthalEqualAreaSphere> {
public:
    CGxLambertAzimuthalEqualAreaSphere(double centreLongitude, double originLatitude,
                                       double falseEasting, double falseNorthing,
                                       const CGxEllipsoid& ellipsoid);
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // As for the ellipsoid.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

private:
    int aspect;  // 1 oblique, 2 north polar, 3 south polar
    double sinLat0, cosLat0;
};

// The Lambert azimuthal equal-area algorithm: the spherical formulas for an
// inverse flattening of exactly 0, the ellipsoidal ones otherwise.
class GXCART_API CGxLambertAzimuthalEqualArea
    : public CGxProjWrapperOf<CGxLambertAzimuthalEqualArea, CGxLambertAzimuthalEqualAreaEllipsoid,
                              CGxLambertAzimuthalEqualAreaSphere,
                              CGxLambertAzimuthalEqualAreaProjection> {
public:
    CGxLambertAzimuthalEqualArea(const char* name, double centreLongitude, double originLatitude,
                                 double falseEasting, double falseNorthing,
                                 const CGxEllipsoid& ellipsoid);
    // From a catalogue definition: its name, its parameters and the ellipsoid
    // its identifier names in the catalogue. Without a known ellipsoid (or
    // without a definition) no formulas are built and every point converts
    // to NaN; an empty name gives the local grid, which is the identity.
    explicit CGxLambertAzimuthalEqualArea(const CGxLambertAzimuthalEqualAreaProjection* definition);
};
