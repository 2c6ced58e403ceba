#pragma once

#include "foundation/Projection.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxGeographicalProjection;

// Geographical coordinates as a grid: x is the longitude east of a central
// meridian and y the latitude, both in degrees.
class GXCART_API CGxGeographical : public CGxProjection {
public:
    // name: coordinate-system string (empty means "NON-UTM"); centralMeridian
    // in degrees; the ellipsoid is kept only to be handed out again.
    CGxGeographical(const char* name, double centralMeridian, const CGxEllipsoid& ellipsoid);
    // From a catalogue definition: its name, central meridian 0 (the
    // definition carries no parameters) and the catalogue ellipsoid its
    // identifier names. With an empty or unknown identifier, or no definition,
    // only the name is kept: eastings convert to NaN and there is no
    // anonymous ellipsoid.
    explicit CGxGeographical(const CGxGeographicalProjection* definition);

    const char* GetName() const override;
    // x = lon - centralMeridian, y = lat (degrees); no wrapping.
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // The grid of longitudes from -180 to 180 and latitudes from -60 to 81.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool IsGeographical() const override;
    // False when the ellipsoid's major axis is not above 0.
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxGeographicalProjection& definition) const;

private:
    GxProjectionName name;
    double a;
    double f;  // flattening, 0 for a sphere
    double centralMeridian;  // degrees
};
