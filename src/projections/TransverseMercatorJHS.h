#pragma once

#include "projections/TransverseMercator.h"

class CGxEllipsoid;
class CGxTransverseMercatorProjection;

// Transverse Mercator by Krueger's series in the conformal-latitude form of the
// Finnish recommendation JHS 154 (also IOGP Guidance Note 7-2): conformal
// latitude, the spherical transverse projection (xi0, eta0), then four harmonic
// terms in the third flattening n. This is the Transverse Mercator the library
// builds for its own coordinate systems.
//
// Longitudes are taken relative to the central meridian within +-180 degrees
// (lon0 + 359 is lon0 - 1). Points more than 90 degrees of longitude away from
// the central meridian lie beyond the pole on the grid: the forward folds xi0
// over the pole and the inverse unfolds it for |xi'| > pi/2.
class GXCART_API CGxTransverseMercatorJHS
    : public CGxAlgorithmOf<CGxTransverseMercatorJHS, CGxTransverseMercatorProjection,
                            CGxLocalGridOf<CGxTransverseMercatorJHS, CGxTransverseMercatorBase>> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); k0: scale on the
    // central meridian; lon0, lat0: central meridian and latitude of origin in
    // degrees; FE, FN: false easting and northing in metres.
    CGxTransverseMercatorJHS(const char* name, double k0, double lon0, double lat0, double FE,
                             double FN, const CGxEllipsoid& ellipsoid);
    // The grid a catalogue definition describes, its figure taken from the
    // ellipsoid catalogue by the definition's identifier. An empty or unknown
    // identifier leaves a figure of zero size (a = b = f = 0) whose
    // eccentricity is undefined: every point converts to NaN. A null
    // definition gives the local grid "NON-UTM".
    explicit CGxTransverseMercatorJHS(const CGxTransverseMercatorProjection* definition);

    // Central meridian and latitude of origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;

private:
    CGxTransverseMercatorJHS(const char* name, const GxTransverseMercatorParameters& p);

    friend CGxLocalGridOf<CGxTransverseMercatorJHS, CGxTransverseMercatorBase>;
    void _Forward(double lon, double lat, double* x, double* y) const;
    void _Inverse(double x, double y, double* lon, double* lat) const;
    // Fifth-order series in the longitude difference, degrees.
    double _Convergence(double lon, double lat) const;

    double lon0;  // radians
    double lat0;  // radians
    double e;
    double n;   // third flattening f / (2 - f)
    double B;   // rectifying radius a/(1 + n) (1 + n^2/4 + n^4/64)
    double M0;  // meridian arc from the equator to lat0, metres, unscaled
    double h[4];
    double hp[4];          // inverse coefficients, positive
    double toGeodetic[4];  // conformal to geodetic latitude series, start of the inverse
    double Bk0;            // B k0
    double invBk0;
    double k0M0;
    // e^(2k+2)/(2k+1), k = 0..7: the series in s of e atanh(e s), used when
    // correctionBySeries (small eccentricity).
    double correction[8];
    bool correctionBySeries;
};
