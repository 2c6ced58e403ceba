#pragma once

#include <cstddef>
#include <string>

#include "foundation/Projection.h"

class CGxEllipsoid;

// Pieces every projection algorithm shares: the coordinate-system name with
// its local-grid flag, the anonymous ellipsoid, the numerical convergence and
// the default boxes around the origin.

// Size of the name buffer, terminator included.
constexpr std::size_t kGxNameSize = 256;

// The coordinate-system string of a plane grid without georeference.
constexpr const char* kGxLocalGridName = "NON-UTM";

// The string test of a local grid: exactly "NON-UTM".
bool GxIsLocalString(const char* s);

// The coordinate-system string an algorithm was built from, truncated safely to
// 255 characters; an empty or null string becomes "NON-UTM". isLocal is decided
// once, here.
struct GxProjectionName {
    char name[kGxNameSize];
    bool isLocal;

    explicit GxProjectionName(const char* s);
};

// GetAnonymousEllipsoid of every algorithm: false for a major axis not above 0,
// else SetParams(a, 1/f), or (a, 0) for a sphere.
bool GxAnonymousEllipsoid(double a, double f, CGxEllipsoid& out);

// Grid convergence by finite difference through the virtual forward: project
// (lon, lat) and (lon, lat + one arc minute) and take atan2(x1 - x2, y2 - y1),
// in degrees.
double GxNumericalConvergence(const CGxProjection& p, double lon, double lat);

// Projects (lon0 - half, max(lat0 - half, -90)) and (lon0 + half,
// min(lat0 + half, 90)) through the virtual forward.
void GxDefaultAreaAround(const CGxProjection& p, double lon0, double lat0, double half, double* x0,
                         double* y0, double* x1, double* y1);

// The catalogue ellipsoid a definition names by its identifier; null for an
// empty or unknown identifier (the look-up is exact, case included).
const CGxEllipsoid* GxCatalogueEllipsoid(const std::string& id);
