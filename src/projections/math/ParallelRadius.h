#pragma once

#include <cmath>

// Radius of the parallel at geodetic latitude phi in units of the semi-major
// axis: m(phi) = cos(phi) / sqrt(1 - e^2 sin^2(phi)). Conic projections take
// their cone constant from it, and it is the scale that fixes a polar or
// cylindrical projection to a standard parallel.
inline double GxParallelRadius(double phi, double e2) {
    const double s = std::sin(phi);
    return std::cos(phi) / std::sqrt(1 - e2 * s * s);
}
