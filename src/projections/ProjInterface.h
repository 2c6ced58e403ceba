#pragma once

#include "foundation/GxExport.h"
#include "foundation/Projection.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;
class CGxMapProjData;

// The slim interface of an inner implementation: the ellipsoidal or spherical
// formulas of one projection, without a name and without the WKT side. A
// wrapper algorithm owns exactly one of these and forwards to it, so the
// choice between the two sets of formulas is made once, at construction.
//
// Angles are decimal degrees, longitude first; lengths are in the units of the
// semi-major axis.
class GXCART_API CGxProjInterface {
public:
    virtual void Geo2Proj(double lon, double lat, double* x, double* y) const = 0;
    virtual void Proj2Geo(double x, double y, double* lon, double* lat) const = 0;
    // Longitude and latitude of the projection origin, degrees.
    virtual void GetOrigin(double* lon, double* lat) const = 0;
    // Lower-left and upper-right corners of the natural area, projected.
    virtual void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const = 0;
    // (major, inverse flattening; 0 for a sphere) into out, names kept; false
    // when the major axis is not positive.
    virtual bool GetAnonymousEllipsoid(CGxEllipsoid& out) const = 0;
    // A new heap copy of the same concrete class, owned by the caller.
    virtual CGxProjInterface* Clone() const = 0;
    virtual ~CGxProjInterface();
};

// Which set of formulas a wrapper holds.
enum EGxInnerKind {
    eGxInnerNone = 0,  // no formulas: built from a definition without a known figure
    eGxInnerEllipsoid = 1,
    eGxInnerSphere = 2,
};

// The kind an ellipsoid calls for: an inverse flattening of exactly 0 is a
// sphere and takes the spherical formulas; every other value, including a
// negative one, takes the ellipsoidal formulas.
GXCART_API EGxInnerKind GxInnerKindFor(const CGxEllipsoid& ellipsoid);

// Builds the inner implementation the ellipsoid calls for from the
// projection's numbers; the ellipsoid goes last, as the inner constructors
// take it.
template <class TEllipsoidForm, class TSphereForm, class... TArgs>
CGxProjInterface* GxMakeInner(const CGxEllipsoid& ellipsoid, TArgs... args) {
    if (GxInnerKindFor(ellipsoid) == eGxInnerSphere) return new TSphereForm(args..., ellipsoid);
    return new TEllipsoidForm(args..., ellipsoid);
}

// GetAnonymousEllipsoid of an inner implementation, which keeps the inverse
// flattening (0 or less: a sphere).
bool GxInnerAnonymousEllipsoid(double a, double invFlattening, CGxEllipsoid& out);

// Default area of an inner implementation: the projected corners of
// (lon0 - half, max(lat0 - half, -90)) and (lon0 + half, min(lat0 + half, 90)).
void GxInnerDefaultArea(const CGxProjInterface& inner, double lon0, double lat0, double half,
                        double* x0, double* y0, double* x1, double* y1);

// The common body of the wrapper algorithms (Albers, Lambert azimuthal equal
// area, Cassini-Soldner, equidistant conic): it keeps the coordinate-system
// name and owns one inner implementation, to which it forwards the forward
// and inverse conversions, the origin, the default area and the anonymous
// ellipsoid. Copies clone the inner object; destruction releases it.
//
// A wrapper named as a local grid ("NON-UTM") is the identity and has
// convergence 0. A wrapper without an inner object (built from a definition
// whose ellipsoid the catalogue does not know) converts to NaN, reports the
// origin (0, 0), a default area of four zeros, convergence 0 and no anonymous
// ellipsoid.
class GXCART_API CGxProjWrapper : public CGxProjection {
public:
    const char* GetName() const override;
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    void GetOrigin(double* lon, double* lat) const override;
    // Numerical convergence (degrees) through this object's forward, over one
    // arc minute of latitude; 0 without an inner object or for a local grid.
    double GetConvergence(double lon, double lat) const override;
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    ~CGxProjWrapper() override;

protected:
    // Takes ownership of inner, which may be null.
    CGxProjWrapper(const char* name, int kind, CGxProjInterface* inner);
    // For the constructors from a definition: the definition's name (empty for
    // a null definition, which makes the local grid) and no inner object yet.
    explicit CGxProjWrapper(const CGxMapProjData* definition);
    CGxProjWrapper(const CGxProjWrapper& other);
    CGxProjWrapper& operator=(const CGxProjWrapper& other);

    // 0 no formulas, 1 ellipsoidal, 2 spherical (EGxInnerKind).
    int _Kind() const { return kind; }

    // The catalogue ellipsoid a definition names by its identifier; null for a
    // null definition or an empty or unknown identifier.
    static const CGxEllipsoid* _DefinitionEllipsoid(const CGxMapProjData* definition);

    // Builds the inner implementation the ellipsoid calls for, in the
    // constructor of a wrapper that was made without one.
    template <class TEllipsoidForm, class TSphereForm, class... TArgs>
    void _BuildInner(const CGxEllipsoid& ellipsoid, TArgs... args) {
        kind = GxInnerKindFor(ellipsoid);
        inner = GxMakeInner<TEllipsoidForm, TSphereForm>(ellipsoid, args...);
    }

private:
    GxProjectionName name;
    CGxProjInterface* inner;
    int kind;
};
