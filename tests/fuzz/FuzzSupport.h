#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "foundation/Projection.h"

// What every fuzz program shares: the input as text, and ownership of an
// algorithm given back through CGxProjection::Release.
namespace gxfuzz {

inline std::string Text(const std::uint8_t* data, std::size_t size) {
    return std::string(reinterpret_cast<const char*>(data), size);
}

struct ReleaseProjection {
    void operator()(CGxProjection* p) const { CGxProjection::Release(p); }
};
using ProjectionPtr = std::unique_ptr<CGxProjection, ReleaseProjection>;

// Forward, inverse and the queries of an algorithm at a few points chosen to
// reach the origin, mid latitudes, the poles, the antimeridian and values no
// formula can map.
inline void ExerciseAlgorithm(const CGxProjection& p) {
    static const double kLonLat[][2] = {{0, 0},      {9, 48},   {-75, -33},     {179.9, 89.9},
                                        {-180, -90}, {180, 90}, {1e300, 1e-300}};
    double x = 0, y = 0, lon = 0, lat = 0;
    for (const auto& ll : kLonLat) {
        p.Geo2Proj(ll[0], ll[1], &x, &y);
        p.Proj2Geo(x, y, &lon, &lat);
        p.GetConvergence(ll[0], ll[1]);
    }
    static const double kXY[][2] = {{500000, 5000000}, {0, 0}, {-1e7, 1e7}};
    for (const auto& xy : kXY) p.Proj2Geo(xy[0], xy[1], &lon, &lat);
    double x0, y0, x1, y1;
    p.GetDefaultArea(&x0, &y0, &x1, &y1);
    p.GetOrigin(&lon, &lat);
    (void)p.GetName();
    p.IsLocal();
    p.IsGeographical();
}

}  // namespace gxfuzz
