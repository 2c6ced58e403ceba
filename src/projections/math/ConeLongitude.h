#pragma once

#include <cmath>

#include "foundation/Angles.h"

// Longitude difference from the central meridian (radians) for the Albers
// and equidistant conic cones: taken the shorter way round, so that a grid
// whose area crosses the antimeridian (Alaska on lon0 = -154, say) places
// 170 E at -36 degrees from its central meridian and not at +324, which would
// wrap the cone past its own gap. Differences within +-pi pass unchanged.
// The Lambert conformal cone and Mercator deliberately take the difference as
// it comes.
inline double GxConeLongitudeDifference(double lonRad, double lon0) {
    const double d = lonRad - lon0;
    return std::fabs(d) > kGxPi ? std::remainder(d, kGxTwoPi) : d;
}
