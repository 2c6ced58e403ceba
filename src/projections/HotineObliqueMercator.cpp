#include "projections/HotineObliqueMercator.h"

CGxHotineObliqueMercator::CGxHotineObliqueMercator(const char* name, double scale,
                                                   double centreLongitude, double centreLatitude,
                                                   double azimuth, double falseEasting,
                                                   double falseNorthing,
                                                   const CGxEllipsoid& ellipsoid)
    : CGxObliqueMercatorBase(name, scale, centreLongitude, centreLatitude, azimuth, azimuth, false,
                             falseEasting, falseNorthing, ellipsoid) {}

CGxProjection* CGxHotineObliqueMercator::Clone() const {
    return new CGxHotineObliqueMercator(*this);
}
