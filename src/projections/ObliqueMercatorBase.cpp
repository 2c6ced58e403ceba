#include "projections/ObliqueMercatorBase.h"

#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"

CGxObliqueMercatorBase::CGxObliqueMercatorBase(const char* name_, double scale,
                                               double centreLongitude, double centreLatitude,
                                               double azimuth, double gridAngle,
                                               bool originAtCentre, double falseEasting,
                                               double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxLocalGridOf(name_) {
    _Setup(scale, centreLongitude, centreLatitude, azimuth, gridAngle, originAtCentre, falseEasting,
           falseNorthing, ellipsoid);
}

void CGxObliqueMercatorBase::_Setup(double scale, double centreLongitude, double centreLatitude,
                                    double azimuth, double gridAngle, bool originAtCentre,
                                    double falseEasting, double falseNorthing,
                                    const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    latC = centreLatitude * kGxDegToRad;
    lonC = centreLongitude * kGxDegToRad;
    hotine.Set(a, ellipsoid.GetEccentricity(), scale, latC, lonC, azimuth * kGxDegToRad,
               gridAngle * kGxDegToRad, azimuth, originAtCentre, falseEasting, falseNorthing);
}

void CGxObliqueMercatorBase::GetOrigin(double* lon, double* lat) const {
    *lon = lonC * kGxRadToDeg;
    *lat = latC * kGxRadToDeg;
}

void CGxObliqueMercatorBase::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxDefaultAreaAround(*this, lonC * kGxRadToDeg, latC * kGxRadToDeg, kGxDefaultAreaHalfSide, x0,
                        y0, x1, y1);
}

template class CGxLocalGridOf<CGxObliqueMercatorBase>;
