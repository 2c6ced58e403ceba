#pragma once

#include <limits>

// The value of every numeric field of an algorithm whose definition names no
// known ellipsoid: without a figure the grid has no geometry, so every point
// converts to NaN rather than to coordinates on some guessed ellipsoid.
constexpr double kGxNoFigure = std::numeric_limits<double>::quiet_NaN();
