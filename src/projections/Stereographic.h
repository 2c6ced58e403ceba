#pragma once

#include "foundation/Projection.h"
#include "projections/FromDefinition.h"
#include "projections/PolarStereographicMath.h"
#include "projections/ProjectionSupport.h"

class CGxEllipsoid;
class CGxPRJParser;
class CGxStereographicProjection;

// Oblique ("double") stereographic on the ellipsoid with a scale factor at the
// natural origin. An origin latitude at a pole (within the 1e-12 relative
// nearness) switches to the polar aspect with the same scale factor.
class GXCART_API CGxStereographic : public CGxProjection {
public:
    // name: coordinate-system string (empty means "NON-UTM"); scale: k0 at the
    // natural origin; centreLongitude, originLatitude in degrees; false easting
    // and northing in the ellipsoid's unit.
    CGxStereographic(const char* name, double scale, double centreLongitude, double originLatitude,
                     double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN (the
    // oblique formulas then give NaN for every point).
    explicit CGxStereographic(const CGxStereographicProjection* definition);

    const char* GetName() const override;
    void Geo2Proj(double lon, double lat, double* x, double* y) const override;
    void Proj2Geo(double x, double y, double* lon, double* lat) const override;
    // The natural origin, degrees.
    void GetOrigin(double* lon, double* lat) const override;
    // By finite difference over one arc minute of latitude, degrees.
    double GetConvergence(double lon, double lat) const override;
    // Oblique aspect: the +-3 degree box around the origin. Polar aspect: the
    // +-200 km square around the easting of the pole.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const override;
    bool IsLocal() const override;
    bool GetAnonymousEllipsoid(CGxEllipsoid& out) const override;
    CGxProjection* Clone() const override;
    void TransferParameters(CGxPRJParser& parser) const override;

    // The catalogue figure of the coordinate system this grid is named
    // after; false when the catalogue knows none.
    bool GetEllipsoid(CGxEllipsoid& ellipsoid) const;
    // The catalogue definition of that name when it is of this type.
    bool GetMapProjection(CGxStereographicProjection& definition) const;

private:
    enum EAspect { eOblique = 1, eNorthPolar = 2, eSouthPolar = 3 };

    // Takes the parameters (as for the constructor by numbers) and computes
    // every coefficient; called once, while the object is being built.
    void _Setup(double scale, double centreLongitude, double originLatitude, double falseEasting,
                double falseNorthing, const CGxEllipsoid& ellipsoid);
    void _ObliqueForward(double lon, double lat, double* x, double* y) const;
    void _ObliqueInverse(double x, double y, double* lon, double* lat) const;

    GxProjectionName name;
    double a = kGxNoFigure;
    double f = kGxNoFigure;  // flattening, 0 for a sphere
    double e = kGxNoFigure;
    double lon0 = kGxNoFigure;  // radians; also the origin longitude on the conformal sphere
    double lat0 = kGxNoFigure;  // radians
    double falseEasting = kGxNoFigure;
    double falseNorthing = kGxNoFigure;
    double k0 = kGxNoFigure;
    int aspect = eOblique;
    // Conformal (Gauss) sphere of the oblique aspect; 0 in the polar aspects.
    double R = kGxNoFigure;     // radius
    double n = kGxNoFigure;     // sphere-to-ellipsoid longitude ratio
    double c = kGxNoFigure;     // conformal constant
    double chi0 = kGxNoFigure;  // conformal latitude of the origin
    double sqrtC = kGxNoFigure;
    double sinChi0 = kGxNoFigure;
    double cosChi0 = kGxNoFigure;
    double twoRk = kGxNoFigure;  // 2 R k0
    double g = kGxNoFigure;      // 2 R k0 tan(pi/4 - chi0/2)
    double h = kGxNoFigure;      // 4 R k0 tan(chi0) + g = 2 R k0 tan(pi/4 + chi0/2)
    // Conformal-to-geodetic latitude series of the figure, the start of the
    // oblique inverse's latitude iteration.
    double conformal[4] = {kGxNoFigure, kGxNoFigure, kGxNoFigure, kGxNoFigure};
    GxPolarStereographicMath polar;
};
