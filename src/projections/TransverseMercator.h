#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"

class CGxEllipsoid;
class CGxTransverseMercatorProjection;

// The numbers a Transverse Mercator grid is built from: k0, the central
// meridian and latitude of origin (degrees), the false origin (metres), and
// the figure as semi-major and semi-minor axes (metres), flattening and
// eccentricity.
struct GxTransverseMercatorParameters {
    double k0, lon0, lat0, FE, FN;
    double a, b, f, e;
};

// What both Transverse Mercator classes keep alike beside the name and the
// figure of every algorithm: the semi-minor axis (metres), the scale k0 on the
// central meridian and the false origin (metres). The default area follows
// from these, and the definition the grid is written as.
class GXCART_API CGxTransverseMercatorBase : public CGxAlgorithm {
public:
    // Projected corners of the +-3 degree box around the origin; (0, 0) to
    // (10000, 10000) on a local grid.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

    // The catalogue definition of this grid's name when it is of this type,
    // as this grid writes it (see _WrittenDefinition).
    bool GetMapProjection(CGxTransverseMercatorProjection& definition) const;

protected:
    CGxTransverseMercatorBase(const char* name, const GxTransverseMercatorParameters& p);

    // The catalogue definition as this grid writes it; it hides the plain
    // look-up of the algorithm base.
    bool _CatalogueDefinition(CGxTransverseMercatorProjection& definition) const;
    // The definition this grid writes for the catalogue entry of its name:
    // the entry itself unless the grid changes it.
    virtual CGxTransverseMercatorProjection _WrittenDefinition(
        const CGxTransverseMercatorProjection& found) const;

    double b;
    double k0;
    double FE;
    double FN;
};

// Transverse Mercator in the Gauss-Krueger form: geodetic latitude to the
// Gaussian (conformal) latitude by a sine series, the spherical transverse
// projection of the Gaussian sphere, then Krueger's complex series in the third
// flattening n (fourth order) summed by complex Clenshaw. Formulas after
// Krueger (1912) in the arrangement of Engsager & Poder and Karney (2011).
//
// The southern hemisphere is the mirror image of the northern one: the forward
// works on |lat| and negates the northing afterwards; northings are folded
// again for latitudes beyond the poles (lat > 90 gives 20000 km - y, lat < -90
// gives y - 20000 km). A latitude of origin other than 0 is handled by
// subtracting the northing of the origin.
class GXCART_API CGxTransverseMercator
    : public CGxAlgorithmOf<CGxTransverseMercator, CGxTransverseMercatorProjection,
                            CGxLocalGridOf<CGxTransverseMercator, CGxTransverseMercatorBase>> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); k0: scale on the
    // central meridian; lon0, lat0: central meridian and latitude of origin in
    // degrees; FE, FN: false easting and northing in metres.
    CGxTransverseMercator(const char* name, double k0, double lon0, double lat0, double FE,
                          double FN, const CGxEllipsoid& ellipsoid);
    // The grid a catalogue definition describes, its figure taken from the
    // ellipsoid catalogue by the definition's identifier. An empty or unknown
    // identifier leaves a figure of zero size (a = b = f = 0): every point then
    // lands on the false origin and the inverse has no answer (NaN). A null
    // definition gives the local grid "NON-UTM".
    explicit CGxTransverseMercator(const CGxTransverseMercatorProjection* definition);

    // Central meridian and latitude of origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;

    // Point scale factor by the classic series in the longitude difference.
    // The fourth-order term is kept as this library has always evaluated it:
    // without the usual division by 24 and with tan^2 of (eta^2 phi) as its
    // last summand, so values away from the central meridian differ from the
    // textbook series.
    double GetScaleFactor(double lon, double lat) const;

protected:
    // The catalogue entry with this grid's own central meridian.
    CGxTransverseMercatorProjection _WrittenDefinition(
        const CGxTransverseMercatorProjection& found) const override;

private:
    CGxTransverseMercator(const char* name, const GxTransverseMercatorParameters& p);

    friend CGxLocalGridOf<CGxTransverseMercator, CGxTransverseMercatorBase>;
    void _Forward(double lon, double lat, double* x, double* y) const;
    void _Inverse(double x, double y, double* lon, double* lat) const;
    // Fifth-order series in the longitude difference, degrees.
    double _Convergence(double lon, double lat) const;

    // The projection without the origin-northing shift, with the given false
    // easting and northing.
    void _SeriesForward(double lon, double lat, double fe, double fn, double* x, double* y) const;
    void _SeriesInverse(double x, double y, double* lon, double* lat) const;

    double lon0;  // degrees
    double lat0;  // degrees
    double n;     // third flattening f / (2 - f)
    double X;     // n^2/4 + n^4/64
    double Qk;    // k0 times the rectifying radius
    double G1[4];
    double G2[4];
    double U1[4];
    double U2[4];
    double originNorthing;  // northing of (lon0, lat0) before FN; 0 when lat0 is 0
};

// The parameters of a value-built grid, the figure copied from the ellipsoid.
GxTransverseMercatorParameters GxTransverseMercatorValues(double k0, double lon0, double lat0,
                                                          double FE, double FN,
                                                          const CGxEllipsoid& ellipsoid);

// The parameters a definition holds, with the figure of the catalogue
// ellipsoid it names. Without a known ellipsoid a, b and f are 0 and the
// eccentricity, undefined for a figure of no size, is NaN; a null definition
// has no numbers at all, so all are NaN but the figure.
GxTransverseMercatorParameters GxTransverseMercatorValues(
    const CGxTransverseMercatorProjection* definition);
