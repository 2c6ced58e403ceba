#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"
#include "projections/math/PolarStereographicMath.h"

class CGxEllipsoid;
class CGxStereographicProjection;

// Oblique ("double") stereographic on the ellipsoid with a scale factor at the
// natural origin. An origin latitude at a pole (within the 1e-12 relative
// nearness) switches to the polar aspect with the same scale factor.
class GXCART_API CGxStereographic
    : public CGxAlgorithmOf<CGxStereographic, CGxStereographicProjection> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); scale: k0 at the
    // natural origin; centreLongitude, originLatitude in degrees; false easting
    // and northing in the ellipsoid's unit.
    CGxStereographic(const char* name, double scale, double centreLongitude, double originLatitude,
                     double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN (the
    // oblique formulas then give NaN for every point).
    explicit CGxStereographic(const CGxStereographicProjection* definition);

    // The natural origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Oblique aspect: the +-3 degree box around the origin. Polar aspect: the
    // +-200 km square around the easting of the pole.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

private:
    enum EAspect { eOblique = 1, eNorthPolar = 2, eSouthPolar = 3 };

    // The convergence is the numerical one, over one arc minute of latitude.
    friend CGxLocalGridOf<CGxStereographic>;
    void _Forward(double lon, double lat, double* x, double* y) const;
    void _Inverse(double x, double y, double* lon, double* lat) const;

    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double scale, double centreLongitude, double originLatitude, double falseEasting,
                double falseNorthing, const CGxEllipsoid& ellipsoid);
    void _ObliqueForward(double lon, double lat, double* x, double* y) const;
    void _ObliqueInverse(double x, double y, double* lon, double* lat) const;

    double e = kGxNoFigure;
    double lon0 = kGxNoFigure;  // radians; also the origin longitude on the conformal sphere
    double lat0 = kGxNoFigure;  // radians
    double falseEasting = kGxNoFigure;
    double falseNorthing = kGxNoFigure;
    double k0 = kGxNoFigure;
    int aspect = eOblique;
    // Conformal (Gauss) sphere of the oblique aspect; 0 in the polar aspects.
    double R = kGxNoFigure;     // radius
    double n = kGxNoFigure;     // sphere-to-ellipsoid longitude ratio
    double c = kGxNoFigure;     // conformal constant
    double chi0 = kGxNoFigure;  // conformal latitude of the origin
    double sqrtC = kGxNoFigure;
    double sinChi0 = kGxNoFigure;
    double cosChi0 = kGxNoFigure;
    double twoRk = kGxNoFigure;  // 2 R k0
    double g = kGxNoFigure;      // 2 R k0 tan(pi/4 - chi0/2)
    double h = kGxNoFigure;      // 4 R k0 tan(chi0) + g = 2 R k0 tan(pi/4 + chi0/2)
    // Conformal-to-geodetic latitude series of the figure, the start of the
    // oblique inverse's latitude iteration.
    double conformal[4] = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};
    GxPolarStereographicMath polar;
};
