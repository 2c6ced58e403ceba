#pragma once

#include <cmath>

#include "foundation/Angles.h"

// Grid convergence by finite difference, for the projections without a
// closed form: project (lon, lat) and (lon, lat + one arc minute) through the
// forward conversion and take the direction of the image of that step,
// atan2(x1 - x2, y2 - y1), in degrees. TProjection is anything with
// Geo2Proj(lon, lat, &x, &y) in degrees.
template <class TProjection>
double GxNumericalConvergence(const TProjection& p, double lon, double lat) {
    double x1, y1, x2, y2;
    p.Geo2Proj(lon, lat, &x1, &y1);
    p.Geo2Proj(lon, lat + kGxArcMinute, &x2, &y2);
    return std::atan2(x1 - x2, y2 - y1) * kGxRadToDeg;
}
