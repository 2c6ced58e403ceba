#pragma once

#include "foundation/ClonePtr.h"
#include "foundation/GxExport.h"
#include "projections/Algorithm.h"

class CGxEllipsoid;
class CGxPolarStereographicProjection;

// Polar stereographic for every origin latitude: an origin at a pole gives
// the polar aspect of CGxStereographic with the given scale at the pole; any
// other origin latitude is taken as the standard parallel of a north-pole
// (latitude 0 or above) or south-pole (below 0) projection, whose scale at
// the pole is derived and the scale argument unused. The wrapper owns that
// inner algorithm, which carries the same name, and answers every question
// through it.
class GXCART_API CGxPolarStereographic
    : public CGxAlgorithmOf<CGxPolarStereographic, CGxPolarStereographicProjection> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); scale: k0 at the
    // pole (used only for an origin at a pole); centreLongitude and
    // originLatitude in degrees; false easting and northing in the
    // ellipsoid's unit.
    CGxPolarStereographic(const char* name, double scale, double centreLongitude,
                          double originLatitude, double falseEasting, double falseNorthing,
                          const CGxEllipsoid& ellipsoid);
    // From a definition: the inner form is chosen from its origin latitude as
    // above, and that form takes the definition's name, its parameters and
    // the catalogue ellipsoid of its identifier. With an empty or unknown
    // identifier the inner grid keeps only the name and converts every point
    // to NaN; a null definition gives the local grid "NON-UTM".
    explicit CGxPolarStereographic(const CGxPolarStereographicProjection* definition);
    CGxPolarStereographic(const CGxPolarStereographic& other);
    CGxPolarStereographic& operator=(const CGxPolarStereographic& other);
    ~CGxPolarStereographic() override;

    void GetOrigin(double* lon, double* lat) const override;
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    // The figure of the inner grid.
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;

private:
    friend CGxLocalGridOf<CGxPolarStereographic>;
    void _Forward(double lon, double lat, double* x, double* y) const;
    void _Inverse(double x, double y, double* lon, double* lat) const;
    double _Convergence(double lon, double lat) const;

    using InnerGrid = GxClonePtr<CGxProjection>;
    // Null only when it could not be allocated, and then the wrapper answers
    // like an algorithm without parameters (NaN coordinates).
    InnerGrid inner;
};
