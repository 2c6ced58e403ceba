#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"

class CGxEllipsoid;
class CGxKrovakProjection;

// Krovak's oblique conformal conic: the ellipsoid goes conformally onto the
// Gaussian sphere of the centre latitude, the sphere is turned so that its
// pole moves to the cone's axis (the pseudo pole, reached from the centre
// along the given azimuth), and the turned sphere goes onto a cone tangent
// along the pseudo standard parallel. Formulas as in the Czech and Slovak
// survey's guidance (EPSG method 9819).
//
// The cone's own axes are southing Xp = r cos(theta) and westing
// Yp = r sin(theta). Two axis scales and a plane rotation give any other
// orientation: scales (1, 1) and rotation 0 keep southing/westing; scales
// (-1, 1) with a rotation of 90 degrees give easting/northing.
class GXCART_API CGxKrovak : public CGxAlgorithmOf<CGxKrovak, CGxKrovakProjection> {
public:
    // Angles in degrees; xScale and yScale are plain factors on Xp and Yp;
    // false easting and northing in the ellipsoid unit, added after the
    // rotation.
    CGxKrovak(const char* name, double scaleAtPseudoParallel, double pseudoParallel,
              double centreLongitude, double centreLatitude, double azimuth, double xyPlaneRotation,
              double xScale, double yScale, double falseEasting, double falseNorthing,
              const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue
    // ellipsoid of its identifier. With a null definition, an empty or an
    // unknown identifier the grid keeps only the name and its numbers stay
    // NaN.
    explicit CGxKrovak(const CGxKrovakProjection* definition);

    // Origin longitude and centre latitude, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // A square of 1000 km around the projected origin; both axes are centred
    // on the origin's first coordinate.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;

private:
    // The convergence is the numerical one, from a one-arc-minute step north.
    friend CGxLocalGridOf<CGxKrovak>;
    void _Forward(double lon, double lat, double* x, double* y) const;
    void _Inverse(double x, double y, double* lon, double* lat) const;

    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double scaleAtPseudoParallel, double pseudoParallel, double centreLongitude,
                double centreLatitude, double azimuth, double xyPlaneRotation, double xScale,
                double yScale, double falseEasting, double falseNorthing,
                const CGxEllipsoid& ellipsoid);

    double e = kGxNoFigure, e2 = kGxNoFigure;
    double kp = kGxNoFigure;      // scale on the pseudo standard parallel
    double latP = kGxNoFigure;    // pseudo standard parallel, radians
    double latC = kGxNoFigure;    // centre latitude, radians
    double lon0 = kGxNoFigure;    // origin longitude, radians
    double alphaC = kGxNoFigure;  // azimuth of the initial line: co-latitude of the pseudo pole
    double rotation = kGxNoFigure;
    double xScale = kGxNoFigure, yScale = kGxNoFigure;
    double falseEasting = kGxNoFigure, falseNorthing = kGxNoFigure;
    double A = kGxNoFigure, B = kGxNoFigure, gamma0 = kGxNoFigure;
    double t0 = kGxNoFigure, n = kGxNoFigure, r0 = kGxNoFigure;
    double cosRot = kGxNoFigure, sinRot = kGxNoFigure;
    // Derived once for the conversions.
    double cosAlpha = kGxNoFigure, sinAlpha = kGxNoFigure, tanHalfP = kGxNoFigure;
    // Conformal-to-geodetic latitude series of the figure, the start of the
    // inverse's latitude iteration.
    double conformal[4] = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};
};
