#include "projections/ObliqueMercator.h"

CGxObliqueMercator::CGxObliqueMercator(const char* name, double scale, double centreLongitude,
                                       double centreLatitude, double azimuth, double falseEasting,
                                       double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxObliqueMercatorBase(name, scale, centreLongitude, centreLatitude, azimuth, azimuth, true,
                             falseEasting, falseNorthing, ellipsoid) {}

CGxProjection* CGxObliqueMercator::Clone() const {
    return new CGxObliqueMercator(*this);
}
