#pragma once

#include "foundation/Geocentric.h"
#include "foundation/GxExport.h"
#include "foundation/Matrix.h"
#include "projections/Algorithm.h"

class CGxEllipsoid;
class CGxRotatedLongitudeLatitudeProjection;

// Longitude and latitude in a rotated geographic system (the rotated-pole
// grids of limited-area weather and climate models), in degrees. The rotated
// system's south pole sits at a given geographic point; the rotation is
// applied to Earth-centred Cartesian coordinates of the ellipsoid.
class GXCART_API CGxRotatedLongitudeLatitude
    : public CGxAlgorithmOf<CGxRotatedLongitudeLatitude, CGxRotatedLongitudeLatitudeProjection> {
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

    // (southPoleLongitude, southPoleLatitude + 90): the geographic point on the
    // rotated equator and prime meridian, for a south pole at or below the
    // equator.
    void GetOrigin(double* lon, double* lat) const override;
    // Rotated coordinates of the corners of the +-3 degree box around the
    // origin, the box clamped to longitudes +-180 and latitudes +-90.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsGeographical() const override;
    // Always hands its figure out and answers true, even with a major axis not
    // above 0; a grid built without a known ellipsoid hands out NaN.
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;

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
    // The convergence is the numerical one, from a one-arc-minute step north.
    friend CGxLocalGridOf<CGxRotatedLongitudeLatitude>;
    // Geographic to rotated longitude/latitude, degrees; the rotated longitude
    // is in (-180, 180].
    void _Forward(double lon, double lat, double* x, double* y) const;
    // Rotated to geographic longitude/latitude, degrees; the longitude is in
    // (-180, 180].
    void _Inverse(double x, double y, double* lon, double* lat) const;

    // a, f and the geocentric figure from the ellipsoid.
    void _SetAxes(const CGxEllipsoid& ellipsoid);
    // toRotated and fromRotated from the south pole.
    void _BuildRotations();
    // Geo2XYZ, the rotation, XYZ2Geo.
    void _rotate(const CMatrix& rotation, double lon, double lat, double* outLon,
                 double* outLat) const;

    // Without a known ellipsoid every number of the figure is NaN.
    GxGeocentric geocentric = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};
    double southPoleLongitude;  // degrees
    double southPoleLatitude;   // degrees
    double rotationAngle;       // degrees, not applied
    CMatrix toRotated;
    CMatrix fromRotated;
};
