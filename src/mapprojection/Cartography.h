#pragma once

#include <cstddef>

#include "foundation/ClonePtr.h"
#include "foundation/GxExport.h"

class CGxMapProjection;

// A local model grid laid over a coordinate system: its origin is a
// geographical point and its axes are turned against true north by an
// orientation angle. Host programs go between longitude/latitude, projected
// easting/northing and grid coordinates (X, Y) through it.
//
// Angles are degrees; projected and grid coordinates are metres, whatever
// linear unit the system declares. The rotation is taken once, at the
// origin: the grid is a plane rotation and shift of the projected
// coordinates, so away from the origin its axes follow projection north, not
// true north.
class GXCART_API CGxCartography {
public:
    // A copy of the given system, with the grid origin (lon, lat) and its
    // orientation clockwise from true north.
    CGxCartography(const CGxMapProjection& mapProjection, double lon, double lat,
                   double orientation);
    // A system from a projection string. The bare "UTM" (exactly, no blanks)
    // means the UTM zone of the origin longitude; a longitude that is not
    // finite has no zone and leaves "UTM" to the map projection, which
    // refuses it with std::out_of_range.
    CGxCartography(const char* projectionString, double lon, double lat, double orientation);
    // The copy rebuilds its system from the source's normalised projection
    // string.
    CGxCartography(const CGxCartography& other);
    CGxCartography& operator=(const CGxCartography& other);
    virtual ~CGxCartography();

    // Through the system; nothing is done when there is none.
    void Geo2Proj(double lon, double lat, double* x, double* y) const;
    void Proj2Geo(double x, double y, double* lon, double* lat) const;

    // Projected coordinates to grid coordinates and back.
    void Proj2Xy(double x, double y, double* X, double* Y) const;
    void Xy2Proj(double X, double Y, double* x, double* y) const;
    // Longitude/latitude to grid coordinates and back.
    void Geo2Xy(double lon, double lat, double* X, double* Y) const;
    void Xy2Geo(double X, double Y, double* lon, double* lat) const;

    // The six conversions over count points: point i of the inputs goes to
    // element i of the outputs with exactly the bits the single-point call
    // gives it. An output array may be an input array (in-place conversion).
    // A null array or count 0 does nothing; nothing is allocated.
    void Geo2Proj(const double* lon, const double* lat, double* x, double* y,
                  std::size_t count) const;
    void Proj2Geo(const double* x, const double* y, double* lon, double* lat,
                  std::size_t count) const;
    void Proj2Xy(const double* x, const double* y, double* X, double* Y, std::size_t count) const;
    void Xy2Proj(const double* X, const double* Y, double* x, double* y, std::size_t count) const;
    void Geo2Xy(const double* lon, const double* lat, double* X, double* Y,
                std::size_t count) const;
    void Xy2Geo(const double* X, const double* Y, double* lon, double* lat,
                std::size_t count) const;

    // The grid's angle against projection north: the orientation less the
    // grid convergence at the origin.
    double GetProjectionNorth() const { return projectionNorth; }
    // The grid's angle against true north at a grid point.
    double GetTrueNorth(double X, double Y) const;

    // Projected coordinates of another system to projected coordinates of
    // this one, through longitude/latitude. Neither grid takes part: the
    // input and the output are easting/northing.
    void ConvertFrom(const CGxCartography& other, double xIn, double yIn, double* xOut,
                     double* yOut) const;

    // The system, still owned by this object (may be null after a failed
    // copy), its algorithm name and its normalised projection string.
    CGxMapProjection* GetProjection() const { return mapProjection.get(); }
    const char* GetProjectionName() const;
    const char* GetProjectionString() const;

    // Turns (x, y) by angle degrees: x' = x cos a + y sin a,
    // y' = y cos a - x sin a.
    static void _csysrot(double x, double y, double angle, double* xOut, double* yOut);

private:
    void _Initialise(double lon, double lat, double orientation);
    bool _HasAlgorithm() const;

    // A copy rebuilds its system from the projection string (a system that
    // no longer resolves leaves the copy without one).
    struct RebuiltSystem {
        static CGxMapProjection* Copy(const CGxMapProjection& system);
        static void Release(CGxMapProjection* system);
    };

    // First member, and the only one whose copy can fail.
    GxClonePtr<CGxMapProjection, RebuiltSystem> mapProjection;
    double x0, y0;           // projected coordinates of the grid origin
    double projectionNorth;  // degrees
    double cosA, sinA;       // of projectionNorth
    double lon, lat;         // grid origin, degrees
    double orientation;      // against true north, degrees
};
