#pragma once

#include "foundation/Projection.h"
#include "projections/FromDefinition.h"
#include "projections/PolarStereographicMath.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;

// Polar stereographic about either pole, true to scale along a standard
// parallel; the scale at the pole is derived from it. The north- and
// south-pole algorithms are this grid with the pole fixed; they add only
// their constructors and their catalogue definition type.
class GXCART_API CGxStereographicPole : public CGxProjection {
public:
    const char* GetName() const override;
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // The central meridian and the latitude of the pole (90.0 or -90.0), degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // By finite difference over one arc minute of latitude, degrees.
    double GetConvergence(double lon, double lat) const override;
    // The +-200 km square around the easting of the pole.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    // Writes the derived scale at the pole into out[0].
    void GetDerivedParameters(double* out) const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;

protected:
    // name: coordinate-system string (empty means "NON-UTM"); standardParallel
    // and centreLongitude in degrees; false easting and northing (the
    // coordinates of the pole) in the ellipsoid's unit.
    CGxStereographicPole(bool south, const char* name, double standardParallel,
                         double centreLongitude, double falseEasting, double falseNorthing,
                         const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    template <class TDefinition>
    CGxStereographicPole(bool south, const TDefinition* def)
        : name(GxDefinitionName(def).c_str()), poleLatitude(south ? -90.0 : 90.0) {
        if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
            _Setup(south, def->GetParallel1(), def->GetCentre(), def->GetFalseEasting(),
                   def->GetFalseNorthing(), *ellipsoid);
        }
    }

private:
    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(bool south, double standardParallel, double centreLongitude, double falseEasting,
                double falseNorthing, const CGxEllipsoid& ellipsoid);

    GxProjectionName name;
    double poleLatitude;  // degrees
    double a = kGxNoFigure;
    double f = kGxNoFigure;     // flattening, 0 for a sphere
    double latC = kGxNoFigure;  // standard parallel, radians
    double k0 = kGxNoFigure;    // derived scale at the pole
    GxPolarStereographicMath polar;
};
