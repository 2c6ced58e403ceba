// Polar stereographic about a pole defined by its standard parallel (EPSG
// Guidance Note 7-2, method 9829): the scale at the pole is
// k0 = K m(latC) / (2 t(latC)), which makes the scale 1 on the standard
// parallel; lonOrigin points to grid south from a north pole and to grid
// north from a south pole.

#include "projections/StereographicPole.h"

#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"

CGxStereographicPole::CGxStereographicPole(bool south, const char* name_, double standardParallel,
                                           double centreLongitude, double falseEasting,
                                           double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxLocalGridOf(name_), poleLatitude(south ? -90.0 : 90.0) {
    _Setup(south, standardParallel, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxStereographicPole::CGxStereographicPole(bool south, const CGxMapProjData* definition)
    : CGxLocalGridOf(definition), poleLatitude(south ? -90.0 : 90.0) {}

void CGxStereographicPole::_Setup(bool south, double standardParallel, double centreLongitude,
                                  double falseEasting, double falseNorthing,
                                  const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    latC = standardParallel * kGxDegToRad;
    const double e = ellipsoid.GetEccentricity();
    k0 = GxPolarScaleFromParallel(latC, e, south);
    polar = GxPolarStereographicMath(a, e, k0, south, centreLongitude * kGxDegToRad, falseEasting,
                                     falseNorthing);
}

void CGxStereographicPole::GetOrigin(double* lon, double* lat) const {
    *lon = polar.lonOrigin * kGxRadToDeg;
    *lat = poleLatitude;
}

void CGxStereographicPole::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxSquareAroundOrigin(*this, kGxPolarAreaHalfSide, x0, y0, x1, y1);
}

void CGxStereographicPole::GetDerivedParameters(double* out) const {
    if (out) out[0] = k0;
}

template class CGxLocalGridOf<CGxStereographicPole>;
