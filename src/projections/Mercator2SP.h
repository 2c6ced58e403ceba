#pragma once

#include "foundation/Projection.h"
#include "projections/FromDefinition.h"
#include "projections/MercatorMath.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxMercator2SPProjection;

// Normal-aspect Mercator on the ellipsoid, true to scale along a standard
// parallel and its mirror; the equator scale k0 is derived from it.
class GXCART_API CGxMercator2SP : public CGxProjection {
public:
    // name: coordinate-system string (empty means "NON-UTM"); parallel1: the
    // standard parallel, degrees; centreLongitude in degrees; false easting
    // and northing in the ellipsoid's unit.
    CGxMercator2SP(const char* name, double parallel1, double centreLongitude, double falseEasting,
                   double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxMercator2SP(const CGxMercator2SPProjection* definition);

    const char* GetName() const override;
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // The central meridian and latitude 0, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // By finite difference; zero up to rounding on a normal cylinder.
    double GetConvergence(double lon, double lat) const override;
    // Centred on Greenwich: the world from 60 S to 81 N; otherwise a +-3
    // degree box around (centre, 0).
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    // Writes the derived equator scale k0 into out[0].
    void GetDerivedParameters(double* out) const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxMercator2SPProjection& definition) const;

private:
    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double parallel1, double centreLongitude, double falseEasting, double falseNorthing,
                const CGxEllipsoid& ellipsoid);

    GxProjectionName name;
    double a = kGxNoFigure;
    double f = kGxNoFigure;     // flattening, 0 for a sphere
    double lat1 = kGxNoFigure;  // radians
    double k0 = kGxNoFigure;
    GxMercatorCylinder cylinder;
};
