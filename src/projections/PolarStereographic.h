#pragma once

#include "foundation/Projection.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxPolarStereographicProjection;

// Polar stereographic for every origin latitude: an origin at a pole gives
// the polar aspect of CGxStereographic with the given scale at the pole; any
// other origin latitude is taken as the standard parallel of a north-pole
// (latitude 0 or above) or south-pole (below 0) projection, whose scale at
// the pole is derived and the scale argument unused. The wrapper owns that
// inner algorithm and answers every question through it.
class GXCART_API CGxPolarStereographic : public CGxProjection {
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

    const char* GetName() const override;
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    void GetOrigin(double* lon, double* lat) const override;
    double GetConvergence(double lon, double lat) const override;
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxPolarStereographicProjection& definition) const;

private:
    // Owned; null only when it could not be allocated, and then the wrapper
    // answers like an algorithm without parameters (NaN coordinates).
    CGxProjection* inner = nullptr;
};
