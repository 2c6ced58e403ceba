#pragma once

#include "foundation/ClonePtr.h"
#include "foundation/GxExport.h"
#include "projections/Algorithm.h"

class CGxEllipsoid;
class CGxMapProjData;
class CGxPRJParser;

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

// The numbers every inner implementation keeps: the figure, the origin and
// the false origin. It answers for the origin, the default area and the
// anonymous ellipsoid, so that an inner form adds only its own constants and
// its two conversions.
class GXCART_API CGxInnerForm : public CGxProjInterface {
public:
    // lon0 and lat0 in degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // Ten-degree box around the origin.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    // (a, 1/invFlattening), or (a, 0) when invFlattening is 0 or less.
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;

protected:
    // The figure of the ellipsoid for the ellipsoidal form; for the spherical
    // form a sphere of its semi-major axis, whatever its flattening.
    // centralMeridian and originLatitude in degrees.
    CGxInnerForm(const CGxEllipsoid& ellipsoid, EGxInnerKind form, double centralMeridian,
                 double originLatitude, double falseEasting, double falseNorthing);

    double a;              // semi-major axis; the radius of the spherical forms
    double invFlattening;  // 0 for the spherical forms
    double e, e2;          // eccentricity and its square; 0 for the spherical forms
    double lon0, lat0;     // radians
    double falseEasting, falseNorthing;
};

// An inner form whose copy is a TForm: the concrete class names itself here
// and inherits its Clone.
template <class TForm>
class GXCART_API CGxInnerFormOf : public CGxInnerForm {
public:
    CGxProjInterface* Clone() const override { return new TForm(static_cast<const TForm&>(*this)); }

protected:
    using CGxInnerForm::CGxInnerForm;
};

// The common body of the wrapper algorithms (Albers, Lambert azimuthal equal
// area, Cassini-Soldner, equidistant conic): it owns one inner implementation,
// to which it forwards the forward and inverse conversions, the origin, the
// default area and the anonymous ellipsoid. Copies clone the inner object;
// destruction releases it.
//
// A wrapper named as a local grid ("NON-UTM") is the identity and has
// convergence 0. A wrapper without an inner object (built from a definition
// whose ellipsoid the catalogue does not know) converts to NaN, reports the
// origin (0, 0), a default area of four zeros, convergence 0 and no anonymous
// ellipsoid.
class GXCART_API CGxProjWrapper : public CGxLocalGridOf<CGxProjWrapper> {
public:
    void GetOrigin(double* lon, double* lat) const override;
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    // The figure of the inner form; false without one.
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

    // Builds the inner implementation the ellipsoid calls for, in the
    // constructor of a wrapper that was made without one.
    template <class TEllipsoidForm, class TSphereForm, class... TArgs>
    void _BuildInner(const CGxEllipsoid& ellipsoid, TArgs... args) {
        kind = GxInnerKindFor(ellipsoid);
        inner.reset(GxMakeInner<TEllipsoidForm, TSphereForm>(ellipsoid, args...));
    }

private:
    friend CGxLocalGridOf<CGxProjWrapper>;
    // The inner form's conversions; NaN without one.
    void _Forward(double lon, double lat, double* x, double* y) const;
    void _Inverse(double x, double y, double* lon, double* lat) const;
    // Numerical convergence through this object's forward, over one arc
    // minute of latitude; 0 without an inner object.
    double _Convergence(double lon, double lat) const;

    using InnerForm = GxClonePtr<CGxProjInterface>;
    InnerForm inner;
    int kind;
};

// A wrapper algorithm with its two inner forms, both built from the same
// numbers followed by the ellipsoid. TAlgorithm is the wrapper class itself,
// whose copy Clone makes; TDefinition is its catalogue definition type, the
// one it is written as. The wrapper adds only its public constructors.
template <class TAlgorithm, class TEllipsoidForm, class TSphereForm, class TDefinition>
class GXCART_API CGxProjWrapperOf : public CGxAlgorithmOf<TAlgorithm, TDefinition, CGxProjWrapper> {
protected:
    // From values: the inner form the ellipsoid calls for, built from the
    // projection's numbers.
    template <class... TArgs>
    CGxProjWrapperOf(const char* name, const CGxEllipsoid& ellipsoid, TArgs... numbers)
        : CGxAlgorithmOf<TAlgorithm, TDefinition, CGxProjWrapper>(
              name, GxInnerKindFor(ellipsoid),
              GxMakeInner<TEllipsoidForm, TSphereForm>(ellipsoid, numbers...)) {}

    // From a catalogue definition: its name, and the inner form for the
    // ellipsoid its identifier names in the catalogue, built from the tuple of
    // numbers that numbersOf reads from the definition. Defined in
    // AlgorithmCatalogue.h, which the wrapper's own source file includes.
    template <class TNumbersOf>
    CGxProjWrapperOf(const TDefinition* definition, TNumbersOf numbersOf);
};
