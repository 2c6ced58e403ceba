#pragma once

#include "foundation/GxExport.h"

class CGxEllipsoid;
class CGxMapProjection;
class CGxPRJParser;

// The abstract projection algorithm. The facade holds exactly one per
// coordinate system and reaches it only through these virtual operations, in
// this order. An algorithm copies everything it needs when it is built and is
// immutable afterwards, so many threads may convert through one object.
//
// Angles are decimal degrees, longitude first; lengths are metres (a WKT's
// linear unit is converted when the algorithm is built). Conversions never
// fail and never throw: impossible input gives whatever the formulas give
// (NaN or infinity).
class GXCART_API CGxProjection {
public:
    // The coordinate-system string the algorithm was built from.
    virtual const char* GetName() const = 0;
    // Longitude/latitude (degrees) to easting/northing.
    virtual void Geo2Proj(double lon, double lat, double* x, double* y) const = 0;
    // Easting/northing to longitude/latitude (degrees).
    virtual void Proj2Geo(double x, double y, double* lon, double* lat) const = 0;
    // Longitude and latitude of the projection origin, degrees.
    virtual void GetOrigin(double* lon, double* lat) const;
    // Grid convergence in degrees, positive east of the central meridian in the
    // northern hemisphere.
    virtual double GetConvergence(double lon, double lat) const;
    // Lower-left and upper-right corners of the projection's natural area, in
    // projected coordinates.
    virtual void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const;
    virtual bool IsLocal() const;
    virtual bool IsGeographical() const;

private:
    // Releases the object through its virtual destructor; the facade's way of
    // giving an algorithm back.
    virtual void free();
    friend class CGxMapProjection;

public:
    virtual void GetDerivedParameters(double* out) const;
    // Fills out with (major, inverse flattening; 0 for a sphere) and keeps its
    // names; false when the algorithm has no valid ellipsoid.
    virtual bool GetAnonymousEllipsoid(CGxEllipsoid& out) const;
    // A new heap copy of the same concrete class, owned by the caller.
    virtual CGxProjection* Clone() const = 0;
    // Fills a WKT parser for writing with the coordinate system this
    // algorithm stands for: the catalogue definition of its name and the
    // catalogue figure, or "Non_Projected" when the catalogue knows no figure.
    virtual void TransferParameters(CGxPRJParser& parser) const = 0;
    virtual ~CGxProjection();

    // Releases an algorithm held through a base pointer; null is allowed.
    static void Release(CGxProjection* projection);
};
