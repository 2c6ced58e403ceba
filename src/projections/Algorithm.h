#pragma once

#include "foundation/GxExport.h"
#include "foundation/Projection.h"
#include "projections/ProjectionName.h"
#include "projections/math/NoFigure.h"

class CGxEllipsoid;
class CGxMapProjData;
class CGxPRJParser;

// What every projection algorithm of the catalogue has alike, written once:
// the coordinate-system name with its local-grid flag, the figure of the
// earth it was built on, and its way back to the catalogue. A projection type
// adds its constructors, its forward and inverse formulas and what is really
// its own (origin, default area, convergence when it has a closed form).
//
// Three layers, so that the formulas are reached without any virtual call
// beyond the one the facade makes:
//
//   CGxAlgorithm                    name, figure, anonymous ellipsoid,
//                                   catalogue figure
//   CGxLocalGridOf<TAlgorithm>      the local grid in front of the formulas:
//                                   Geo2Proj, Proj2Geo and GetConvergence call
//                                   TAlgorithm's _Forward, _Inverse and
//                                   _Convergence directly (no virtual call),
//                                   unless the grid is the local one
//   CGxAlgorithmOf<TAlgorithm, TDefinition>
//                                   copy (Clone) and the WKT transfer through
//                                   the catalogue definition of type
//                                   TDefinition
//
// A type declares `class CGxKrovak : public CGxAlgorithmOf<CGxKrovak,
// CGxKrovakProjection>`, makes the local-grid layer its friend (`friend
// CGxLocalGridOf<CGxKrovak>;`), writes _Forward and _Inverse, and
// instantiates both layers in its source file, after including
// AlgorithmCatalogue.h. Projections that share their formulas put a base
// between the layers (the oblique Mercator family:
// CGxAlgorithmOf<CGxObliqueMercator, ..., CGxObliqueMercatorBase>, whose base
// is CGxLocalGridOf<CGxObliqueMercatorBase>).
//
// The members that reach the catalogues and definitions (GetEllipsoid, the
// constructor from a definition, the transfer) are defined in
// AlgorithmCatalogue.h/.cpp, the one seam between the algorithms and the
// catalogues; this header only declares them.

// GetAnonymousEllipsoid of the algorithms: false for a major axis not above 0,
// else SetParams(a, 1/f), or (a, 0) for a sphere; names in out are kept.
bool GxAnonymousEllipsoid(double a, double f, CGxEllipsoid& out);

class GXCART_API CGxAlgorithm : public CGxProjection {
public:
    // The coordinate-system string the algorithm was built from ("NON-UTM" for
    // an empty one), at most 255 characters.
    const char* GetName() const override;
    // True for the local grid "NON-UTM", which converts nothing.
    bool IsLocal() const override;
    // The figure the grid was built on; false without one.
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;

protected:
    // name: the coordinate-system string; the figure stays unset (NaN) until
    // _SetFigure.
    explicit CGxAlgorithm(const char* name);
    // The name of a catalogue definition (empty for a null definition, which
    // makes the local grid).
    explicit CGxAlgorithm(const CGxMapProjData* definition);

    // a and f from the ellipsoid.
    void _SetFigure(const CGxEllipsoid& ellipsoid);
    bool _IsLocalGrid() const { return name.isLocal; }
    // Grid convergence of the projections without a closed form: by finite
    // difference over one arc minute of latitude through the forward, degrees.
    double _Convergence(double lon, double lat) const;
    // The catalogue definition of this grid's name into out when it is of
    // out's class (AlgorithmCatalogue.h); a grid whose written definition
    // differs from the catalogue's hides it with its own.
    template <class TDefinition>
    bool _CatalogueDefinition(TDefinition& out) const;

    double a = kGxNoFigure;  // semi-major axis
    double f = kGxNoFigure;  // flattening, 0 for a sphere

private:
    GxProjectionName name;
};

// The local-grid identity in front of the formulas. TAlgorithm (which may be
// the base of several types that share their formulas) provides
// _Forward(lon, lat, x, y), _Inverse(x, y, lon, lat) and, unless the numerical
// one of CGxAlgorithm serves, _Convergence(lon, lat); they are reached by a
// direct call that the compiler inlines into the one virtual call.
template <class TAlgorithm, class TBase = CGxAlgorithm>
class GXCART_API CGxLocalGridOf : public TBase {
public:
    // Longitude/latitude in degrees to the grid; the local grid hands the
    // numbers through unchanged.
    void Geo2Proj(double lon, double lat, double* x, double* y) const override {
        if (this->_IsLocalGrid()) {
            *x = lon;
            *y = lat;
            return;
        }
        _Self()._Forward(lon, lat, x, y);
    }
    // The grid to longitude/latitude in degrees; the identity on the local
    // grid.
    void Proj2Geo(double x, double y, double* lon, double* lat) const override {
        if (this->_IsLocalGrid()) {
            *lon = x;
            *lat = y;
            return;
        }
        _Self()._Inverse(x, y, lon, lat);
    }
    // Grid convergence in degrees; 0 on the local grid.
    double GetConvergence(double lon, double lat) const override {
        if (this->_IsLocalGrid()) return 0.0;
        return _Self()._Convergence(lon, lat);
    }

protected:
    using TBase::TBase;

private:
    const TAlgorithm& _Self() const { return static_cast<const TAlgorithm&>(*this); }
};

// A projection type of the catalogue: its copy, and its WKT transfer through
// the catalogue definition of type TDefinition.
template <class TAlgorithm, class TDefinition, class TBase = CGxLocalGridOf<TAlgorithm>>
class GXCART_API CGxAlgorithmOf : public TBase {
public:
    // A new heap copy of the same class, owned by the caller.
    CGxProjection* Clone() const override {
        return new TAlgorithm(static_cast<const TAlgorithm&>(*this));
    }
    // Hands the catalogue definition of this grid's name (a default one of
    // the type when the catalogue has none) and its catalogue figure to the
    // WKT writer; without a figure the system is "Non_Projected".
    void TransferParameters(CGxPRJParser& parser) const override;
    // The catalogue definition of this grid's name when it is of this type.
    bool GetMapProjection(TDefinition& definition) const;

protected:
    using TBase::TBase;
};
