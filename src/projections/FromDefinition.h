#pragma once

#include <limits>
#include <string>

class CGxEllipsoid;
class CGxMapProjData;

// What every algorithm built from a projection definition takes from it
// before its own parameters: the coordinate-system name and the figure of the
// earth, which the definition names by a catalogue identifier.

// The value of every numeric field of an algorithm whose definition names no
// known ellipsoid: without a figure the grid has no geometry, so every point
// converts to NaN rather than to coordinates on some guessed ellipsoid.
constexpr double kGxNoFigure = std::numeric_limits<double>::quiet_NaN();

// The definition's name; empty for a null definition, which the name buffer
// turns into the local grid "NON-UTM".
std::string GxDefinitionName(const CGxMapProjData* definition);

// The catalogue ellipsoid whose identifier the definition holds; null for a
// null definition, an empty identifier or one the catalogue does not know.
// The catalogue keeps the ellipsoid for the life of the process.
const CGxEllipsoid* GxDefinitionEllipsoid(const CGxMapProjData* definition);
