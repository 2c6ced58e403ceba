#pragma once

#include "foundation/Matrix.h"
#include "foundation/Projection.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxRotatedLongitudeLatitudeProjection;

// Longitude and latitude in a rotated geographic system (the rotated-pole
// grids of limited-area weather and climate models), in degrees. The rotated
// system's south pole sits at a given geographic point; the rotation is
// applied to Earth-centred Cartesian coordinates of the ellipsoid.
class GXCART_API CGxRotatedLongitudeLatitude : public CGxProjection {
public:
    // name: coordinate-system string (empty means "NON-UTM");
    // southPoleLongitude, southPoleLatitude: geographic position of the
    // rotated south pole, degrees; rotationAngle (degrees) is kept but takes no
    // part in the conversion: the grid is always the one whose rotated prime
    // meridian runs through the geographic poles.
    CGxRotatedLongitudeLatitude(const char* name, double southPoleLongitude,
                                double southPoleLatitude, double rotationAngle,
                                const CGxEllipsoid& ellipsoid);
    // From a catalogue definition: its name, south pole and rotation angle,
    // and the catalogue ellipsoid its identifier names. With an empty or
    // unknown identifier, or no definition, only the name is kept and every
    // number is NaN, so every point converts to NaN.
    explicit CGxRotatedLongitudeLatitude(const CGxRotatedLongitudeLatitudeProjection* definition);

    const char* GetName() const override;
    // Geographic to rotated longitude/latitude, degrees; the rotated longitude
    // is in (-180, 180].
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    // Rotated to geographic longitude/latitude, degrees; the longitude is in
    // (-180, 180].
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // (southPoleLongitude, southPoleLatitude + 90): the geographic point on the
    // rotated equator and prime meridian, for a south pole at or below the
    // equator.
    void GetOrigin(double* lon, double* lat) const override;
    // Numerical, from a one-arc-minute step north; 0 for a local grid.
    double GetConvergence(double lon, double lat) const override;
    // Rotated coordinates of the corners of the +-3 degree box around the
    // origin, the box clamped to longitudes +-180 and latitudes +-90.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool IsGeographical() const override;
    // Always hands its figure out and answers true, even with a major axis not
    // above 0; a grid built without a known ellipsoid hands out NaN.
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxRotatedLongitudeLatitudeProjection& definition) const;

    // Longitude/latitude (degrees, height 0) to Earth-centred X, Y, Z on this
    // object's ellipsoid, in its unit.
    void Geo2XYZ(double lon, double lat, double* X, double* Y, double* Z) const;
    // Earth-centred X, Y, Z to longitude/latitude in degrees by Bowring's
    // closed form; the height above the ellipsoid is dropped.
    void XYZ2Geo(double X, double Y, double Z, double* lon, double* lat) const;

    double GetSouthPoleLongitude() const { return southPoleLongitude; }
    double GetSouthPoleLatitude() const { return southPoleLatitude; }
    double GetRotationAngle() const { return rotationAngle; }

private:
    // a, f, e2, b and ep2 from the ellipsoid.
    void _SetFigure(const CGxEllipsoid& ellipsoid);
    // toRotated and fromRotated from the south pole.
    void _BuildRotations();
    // Geo2XYZ, the rotation, XYZ2Geo.
    void _rotate(const CMatrix& rotation, double lon, double lat, double* outLon,
                 double* outLat) const;

    GxProjectionName name;
    double a;
    double f;    // flattening, 0 for a sphere
    double e2;   // first eccentricity squared
    double b;    // semi-minor axis
    double ep2;  // second eccentricity squared, (a^2 - b^2)/b^2
    double southPoleLongitude;  // degrees
    double southPoleLatitude;   // degrees
    double rotationAngle;       // degrees, not applied
    CMatrix toRotated;
    CMatrix fromRotated;
};
