#pragma once

#include "foundation/Projection.h"
#include "projections/FromDefinition.h"
#include "projections/LambertConeMath.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxLambert2SPProjection;

// Lambert conformal conic with two standard parallels, true to scale on both;
// coordinates count from a false origin.
class GXCART_API CGxLambert2SP : public CGxProjection {
public:
    // name: coordinate-system string (empty means "NON-UTM"); parallel1,
    // parallel2: the standard parallels, degrees; originLongitude,
    // originLatitude: the false origin, degrees; false easting and northing
    // at the false origin, in the ellipsoid's unit.
    CGxLambert2SP(const char* name, double parallel1, double parallel2, double originLongitude,
                  double originLatitude, double falseEasting, double falseNorthing,
                  const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxLambert2SP(const CGxLambert2SPProjection* definition);

    const char* GetName() const override;
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // The false origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // n times the longitude difference from the origin, degrees.
    double GetConvergence(double lon, double lat) const override;
    // Projected corners of the +-3 degree box around the false origin; a false
    // origin at a pole is replaced by the mean standard parallel.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxLambert2SPProjection& definition) const;

private:
    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double parallel1, double parallel2, double originLongitude, double originLatitude,
                double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid);

    GxProjectionName name;
    double a = kGxNoFigure;
    double f = kGxNoFigure;     // flattening, 0 for a sphere
    double lat1 = kGxNoFigure;  // radians
    double lat2 = kGxNoFigure;  // radians
    double latF = kGxNoFigure;  // radians
    GxLambertCone cone;
};
