#pragma once

#include <algorithm>
#include <cmath>

#include "foundation/Angles.h"
#include "foundation/GxExport.h"

// Numbers shared by the whole library: the marker of an absent number and the
// nearness test used wherever two doubles are compared for sameness. (The
// angle constants live in Angles.h; they are included here for the code that
// has always found them through this header.)

// An absent number (unset unit, missing WKT value). A value is absent exactly
// when it compares equal to this marker.
constexpr double kGxUnset = -1e-35;

// Relative tolerance of the nearness test.
constexpr double kGxRelativeTolerance = 1e-12;

// u and v agree when they are equal or differ by no more than 1e-12 relative
// to the larger magnitude. NaN agrees with nothing, not even itself.
inline bool GxIsNear(double u, double v) {
    if (u == v) return true;
    return std::fabs(u - v) / std::max(std::fabs(u), std::fabs(v)) <= kGxRelativeTolerance;
}

inline bool GxIsUnset(double v) {
    return v == kGxUnset;
}
