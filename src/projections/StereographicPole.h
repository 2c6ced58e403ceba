#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"
#include "projections/math/PolarStereographicMath.h"

class CGxEllipsoid;
class CGxMapProjData;

// Polar stereographic about either pole, true to scale along a standard
// parallel; the scale at the pole is derived from it. The north- and
// south-pole algorithms are this grid with the pole fixed; they add only
// their constructors and their catalogue definition type.
class GXCART_API CGxStereographicPole : public CGxLocalGridOf<CGxStereographicPole> {
public:
    // The central meridian and the latitude of the pole (90.0 or -90.0), degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // The +-200 km square around the easting of the pole.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    // Writes the derived scale at the pole into out[0].
    void GetDerivedParameters(double* out) const override;

protected:
    // name: coordinate-system string (empty means "NON-UTM"); standardParallel
    // and centreLongitude in degrees; false easting and northing (the
    // coordinates of the pole) in the ellipsoid's unit.
    CGxStereographicPole(bool south, const char* name, double standardParallel,
                         double centreLongitude, double falseEasting, double falseNorthing,
                         const CGxEllipsoid& ellipsoid);
    // From a definition: its name only, the numbers NaN until _Setup is
    // called with the definition's parameters and its catalogue ellipsoid.
    CGxStereographicPole(bool south, const CGxMapProjData* definition);

    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(bool south, double standardParallel, double centreLongitude, double falseEasting,
                double falseNorthing, const CGxEllipsoid& ellipsoid);

private:
    // The convergence is the numerical one, over one arc minute of latitude.
    friend CGxLocalGridOf<CGxStereographicPole>;
    void _Forward(double lon, double lat, double* x, double* y) const {
        polar.Forward(lon, lat, x, y);
    }
    void _Inverse(double x, double y, double* lon, double* lat) const {
        polar.Inverse(x, y, lon, lat);
    }

    double poleLatitude;        // degrees
    double latC = kGxNoFigure;  // standard parallel, radians
    double k0 = kGxNoFigure;    // derived scale at the pole
    GxPolarStereographicMath polar;
};
