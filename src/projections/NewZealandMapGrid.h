#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"

class CGxEllipsoid;
class CGxNewZealandMapGridProjection;

// The fixed coefficients of the New Zealand map grid, shared by every
// instance. Coefficients as published by the Department of Lands and Survey
// (Reilly, 1973, "A conformal mapping projection with minimum scale error").
class GXCART_API CGxNewZealandMapGridConstants {
public:
    struct Complex {
        double re, im;
    };

    // Isometric latitude from the latitude difference u in units of 1e5
    // arc-seconds: psi = sum A[n-1] u^n, n = 1..10.
    static constexpr double kIsometricSeries[10] = {
        0.6399175073, -0.1358797613, 0.063294409, -0.02526853, 0.0117879,
        -0.0055161,   0.0026906,     -0.001333,   0.00067,     -0.00034};
    // Conformal polynomial z = sum B[n] zeta^n, n = 0..6 (B0 = 0).
    static constexpr Complex kForwardPolynomial[7] = {{0.0, 0.0},
                                                      {0.7557853228, 0.0},
                                                      {0.249204646, 0.003371507},
                                                      {-0.001541739, 0.04105856},
                                                      {-0.10162907, 0.01727609},
                                                      {-0.26623489, -0.36249218},
                                                      {-0.6870983, -1.1651967}};
    // Approximate inverse polynomial zeta = sum C[n] z^n, n = 0..6 (C0 = 0),
    // the start of the Newton-Raphson solution.
    static constexpr Complex kInversePolynomial[7] = {{0.0, 0.0},
                                                      {1.3231270439, 0.0},
                                                      {-0.577245789, -0.007809598},
                                                      {0.508307513, -0.112208952},
                                                      {-0.15094762, 0.18200602},
                                                      {1.01418179, 1.64497696},
                                                      {1.9660549, 2.5127645}};
    // Latitude difference in units of 1e5 arc-seconds from the isometric
    // latitude: sum D[n-1] psi^n, n = 1..9.
    static constexpr double kLatitudeSeries[9] = {1.5627014243, 0.5185406398, -0.03333098,
                                                  -0.1052906,   -0.0368594,   0.007317,
                                                  0.0122,       0.00394,      -0.0013};
};

// The New Zealand map grid: a conformal projection of minimum scale error over
// New Zealand, built from a power series in the latitude difference (to the
// isometric latitude) and a complex polynomial in psi + i dlambda. The inverse
// solves the polynomial by Newton-Raphson. Unlike the other grids the origin
// is kept in degrees.
class GXCART_API CGxNewZealandMapGrid
    : public CGxAlgorithmOf<CGxNewZealandMapGrid, CGxNewZealandMapGridProjection>,
      public CGxNewZealandMapGridConstants {
public:
    // Origin longitude and latitude in degrees (the grid's own: 173 E, 41 S);
    // false easting and northing in the ellipsoid unit. Only the semi-major
    // axis of the ellipsoid enters the formulas: the coefficients belong to
    // the International 1924 ellipsoid.
    CGxNewZealandMapGrid(const char* name, double originLongitude, double originLatitude,
                         double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue
    // ellipsoid of its identifier. With a null definition, an empty or an
    // unknown identifier the grid keeps only the name and its numbers stay
    // NaN.
    explicit CGxNewZealandMapGrid(const CGxNewZealandMapGridProjection* definition);

    // The stored origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // The grid's fixed working area, eastings 2000 to 3000 km and northings
    // 5300 to 6800 km, whatever the parameters.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

private:
    // The convergence is the numerical one, from a one-arc-minute step north.
    friend CGxLocalGridOf<CGxNewZealandMapGrid>;
    void _Forward(double lon, double lat, double* x, double* y) const;
    // Newton-Raphson on the complex polynomial: a few passes inside New
    // Zealand, at most 100.
    void _Inverse(double x, double y, double* lon, double* lat) const;

    // Takes the parameters (as for the constructor by numbers); called once,
    // while the object is being built.
    void _Setup(double originLongitude, double originLatitude, double falseEasting,
                double falseNorthing, const CGxEllipsoid& ellipsoid);

    double e = kGxNoFigure, e2 = kGxNoFigure;
    double lon0 = kGxNoFigure, lat0 = kGxNoFigure;  // degrees
    double falseEasting = kGxNoFigure, falseNorthing = kGxNoFigure;
};
