#pragma once

#include "foundation/GxExport.h"
#include "projections/Algorithm.h"

class CGxEllipsoid;
class CGxGeographicalProjection;

// Geographical coordinates as a grid: x is the longitude east of a central
// meridian and y the latitude, both in degrees.
class GXCART_API CGxGeographical
    : public CGxAlgorithmOf<CGxGeographical, CGxGeographicalProjection> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); centralMeridian
    // in degrees; the ellipsoid is kept only to be handed out again (an
    // anonymous ellipsoid only when its major axis is above 0).
    CGxGeographical(const char* name, double centralMeridian, const CGxEllipsoid& ellipsoid);
    // From a catalogue definition: its name, central meridian 0 (the
    // definition carries no parameters) and the catalogue ellipsoid its
    // identifier names. With an empty or unknown identifier, or no definition,
    // only the name is kept: eastings convert to NaN and there is no
    // anonymous ellipsoid.
    explicit CGxGeographical(const CGxGeographicalProjection* definition);

    // The grid of longitudes from -180 to 180 and latitudes from -60 to 81.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsGeographical() const override;

private:
    friend CGxLocalGridOf<CGxGeographical>;
    // x = lon - centralMeridian, y = lat (degrees); no wrapping.
    void _Forward(double lon, double lat, double* x, double* y) const {
        *x = lon - centralMeridian;
        *y = lat;
    }
    void _Inverse(double x, double y, double* lon, double* lat) const {
        *lon = x + centralMeridian;
        *lat = y;
    }
    // Grid north is true north.
    double _Convergence(double, double) const { return 0.0; }

    double centralMeridian;  // degrees
};
