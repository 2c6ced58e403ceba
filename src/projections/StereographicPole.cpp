// Polar stereographic about a pole defined by its standard parallel (EPSG
// Guidance Note 7-2, method 9829): the scale at the pole is
// k0 = K m(latC) / (2 t(latC)), which makes the scale 1 on the standard
// parallel; lonOrigin points to grid south from a north pole and to grid
// north from a south pole.

#include "projections/StereographicPole.h"

#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"
#include "projections/ProjectionSupport.h"

CGxStereographicPole::CGxStereographicPole(bool south, const char* name_, double standardParallel,
                                           double centreLongitude, double falseEasting,
                                           double falseNorthing, const CGxEllipsoid& ellipsoid)
    : name(name_), poleLatitude(south ? -90.0 : 90.0) {
    _Setup(south, standardParallel, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

void CGxStereographicPole::_Setup(bool south, double standardParallel, double centreLongitude,
                                  double falseEasting, double falseNorthing,
                                  const CGxEllipsoid& ellipsoid) {
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
    latC = standardParallel * kGxDegToRad;
    const double e = ellipsoid.GetEccentricity();
    k0 = GxPolarScaleFromParallel(latC, e, south);
    polar = GxPolarStereographicMath(a, e, k0, south, centreLongitude * kGxDegToRad, falseEasting,
                                     falseNorthing);
}

const char* CGxStereographicPole::GetName() const {
    return name.name;
}

void CGxStereographicPole::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    polar.Forward(lon, lat, x, y);
}

void CGxStereographicPole::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    polar.Inverse(x, y, lon, lat);
}

void CGxStereographicPole::GetOrigin(double* lon, double* lat) const {
    *lon = polar.lonOrigin * kGxRadToDeg;
    *lat = poleLatitude;
}

double CGxStereographicPole::GetConvergence(double lon, double lat) const {
    if (name.isLocal) return 0.0;
    return GxNumericalConvergence(*this, lon, lat);
}

void CGxStereographicPole::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxPolarDefaultArea(*this, x0, y0, x1, y1);
}

bool CGxStereographicPole::IsLocal() const {
    return name.isLocal;
}

void CGxStereographicPole::GetDerivedParameters(double* out) const {
    if (out) out[0] = k0;
}

bool CGxStereographicPole::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

bool CGxStereographicPole::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}
