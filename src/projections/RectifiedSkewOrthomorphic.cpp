#include "projections/RectifiedSkewOrthomorphic.h"

CGxRectifiedSkewOrthomorphic::CGxRectifiedSkewOrthomorphic(
    const char* name, double scale, double centreLongitude, double centreLatitude, double azimuth,
    double xyPlaneRotation, double falseEasting, double falseNorthing,
    const CGxEllipsoid& ellipsoid)
    : CGxObliqueMercatorBase(name, scale, centreLongitude, centreLatitude, azimuth, xyPlaneRotation,
                             false, falseEasting, falseNorthing, ellipsoid) {}

CGxProjection* CGxRectifiedSkewOrthomorphic::Clone() const {
    return new CGxRectifiedSkewOrthomorphic(*this);
}
