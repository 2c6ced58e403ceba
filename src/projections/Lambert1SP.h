#pragma once

#include "foundation/Projection.h"
#include "projections/FromDefinition.h"
#include "projections/LambertConeMath.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxLambert1SPProjection;

// Lambert conformal conic with one standard parallel: the cone touches the
// ellipsoid along the parallel of the natural origin, where the scale is k0.
class GXCART_API CGxLambert1SP : public CGxProjection {
public:
    // name: coordinate-system string (empty means "NON-UTM"); scale: k0 at the
    // natural origin; originLongitude, originLatitude in degrees; false easting
    // and northing in the ellipsoid's unit.
    CGxLambert1SP(const char* name, double scale, double originLongitude, double originLatitude,
                  double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxLambert1SP(const CGxLambert1SPProjection* definition);

    const char* GetName() const override;
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // The natural origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // n times the longitude difference from the origin, degrees; on a cone it
    // does not depend on the latitude.
    double GetConvergence(double lon, double lat) const override;
    // Projected corners of the +-3 degree box around the natural origin.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxLambert1SPProjection& definition) const;

private:
    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double scale, double originLongitude, double originLatitude, double falseEasting,
                double falseNorthing, const CGxEllipsoid& ellipsoid);

    GxProjectionName name;
    double a = kGxNoFigure;
    double f = kGxNoFigure;     // flattening, 0 for a sphere
    double lat0 = kGxNoFigure;  // radians
    double k0 = kGxNoFigure;
    GxLambertCone cone;
};
