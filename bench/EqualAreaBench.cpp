// Forward and inverse cost per point of the wrapper projections (Albers,
// Lambert azimuthal equal area, Cassini-Soldner, equidistant conic), in their
// ellipsoidal and spherical forms, through the wrapper and through the inner
// form directly (the difference is the forwarding call).

#include <benchmark/benchmark.h>

#include <memory>

#include "BenchSupport.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlbersEqualArea.h"
#include "projections/CassiniSoldner.h"
#include "projections/EquidistantConic.h"
#include "projections/LambertAzimuthalEqualArea.h"

namespace {

const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
const CGxEllipsoid kSphere("Sphere", "SP", 6371000.0, 0.0);

// The four projections around (10, 50), each built on the given ellipsoid.
std::unique_ptr<CGxProjection> Make(int which, const CGxEllipsoid& e) {
    switch (which) {
        case 0:
            return std::make_unique<CGxAlbersEqualArea>("Albers", 45, 55, 10, 50, 0, 0, e);
        case 1:
            return std::make_unique<CGxLambertAzimuthalEqualArea>("LAEA", 10, 50, 0, 0, e);
        case 2:
            return std::make_unique<CGxCassiniSoldner>("Cassini", 10, 50, 0, 0, e);
        default:
            return std::make_unique<CGxEquidistantConic>("Eqdc", 45, 55, 10, 50, 0, 0, e);
    }
}

std::unique_ptr<CGxProjInterface> MakeInner(int which) {
    switch (which) {
        case 0:
            return std::make_unique<CGxAlbersEqualAreaEllipsoid>(45, 55, 10, 50, 0, 0, kWgs84);
        case 1:
            return std::make_unique<CGxLambertAzimuthalEqualAreaEllipsoid>(10, 50, 0, 0, kWgs84);
        case 2:
            return std::make_unique<CGxCassiniSoldnerEllipsoid>(10, 50, 0, 0, kWgs84);
        default:
            return std::make_unique<CGxEquidistantConicEllipsoid>(45, 55, 10, 50, 0, 0, kWgs84);
    }
}

// Points spread over +-4 degrees around the common origin (10, 50).
template <class P>
GxBenchPoints Around(const P& p) {
    return GxBenchMesh(p, 6, 14, 46, 54);
}

// which: 0 Albers, 1 Lambert azimuthal, 2 Cassini, 3 equidistant conic.
void BM_EqualAreaForward(benchmark::State& state, int which, bool sphere) {
    const auto p = Make(which, sphere ? kSphere : kWgs84);
    GxBenchForward(state, *p, Around(*p));
}
void BM_EqualAreaInverse(benchmark::State& state, int which, bool sphere) {
    const auto p = Make(which, sphere ? kSphere : kWgs84);
    GxBenchInverse(state, *p, Around(*p));
}
void BM_EqualAreaInnerForward(benchmark::State& state, int which) {
    const auto p = MakeInner(which);
    GxBenchForward(state, *p, Around(*p));
}
void BM_EqualAreaInnerInverse(benchmark::State& state, int which) {
    const auto p = MakeInner(which);
    GxBenchInverse(state, *p, Around(*p));
}

}  // namespace

BENCHMARK_CAPTURE(BM_EqualAreaForward, AlbersEllipsoid, 0, false);
BENCHMARK_CAPTURE(BM_EqualAreaInverse, AlbersEllipsoid, 0, false);
BENCHMARK_CAPTURE(BM_EqualAreaForward, AlbersSphere, 0, true);
BENCHMARK_CAPTURE(BM_EqualAreaInverse, AlbersSphere, 0, true);
BENCHMARK_CAPTURE(BM_EqualAreaForward, LambertAzimuthalEllipsoid, 1, false);
BENCHMARK_CAPTURE(BM_EqualAreaInverse, LambertAzimuthalEllipsoid, 1, false);
BENCHMARK_CAPTURE(BM_EqualAreaForward, LambertAzimuthalSphere, 1, true);
BENCHMARK_CAPTURE(BM_EqualAreaInverse, LambertAzimuthalSphere, 1, true);
BENCHMARK_CAPTURE(BM_EqualAreaForward, CassiniEllipsoid, 2, false);
BENCHMARK_CAPTURE(BM_EqualAreaInverse, CassiniEllipsoid, 2, false);
BENCHMARK_CAPTURE(BM_EqualAreaForward, CassiniSphere, 2, true);
BENCHMARK_CAPTURE(BM_EqualAreaInverse, CassiniSphere, 2, true);
BENCHMARK_CAPTURE(BM_EqualAreaForward, EquidistantConicEllipsoid, 3, false);
BENCHMARK_CAPTURE(BM_EqualAreaInverse, EquidistantConicEllipsoid, 3, false);
BENCHMARK_CAPTURE(BM_EqualAreaForward, EquidistantConicSphere, 3, true);
BENCHMARK_CAPTURE(BM_EqualAreaInverse, EquidistantConicSphere, 3, true);
BENCHMARK_CAPTURE(BM_EqualAreaInnerForward, AlbersEllipsoid, 0);
BENCHMARK_CAPTURE(BM_EqualAreaInnerInverse, AlbersEllipsoid, 0);
BENCHMARK_CAPTURE(BM_EqualAreaInnerForward, LambertAzimuthalEllipsoid, 1);
BENCHMARK_CAPTURE(BM_EqualAreaInnerInverse, LambertAzimuthalEllipsoid, 1);
BENCHMARK_CAPTURE(BM_EqualAreaInnerForward, CassiniEllipsoid, 2);
BENCHMARK_CAPTURE(BM_EqualAreaInnerInverse, CassiniEllipsoid, 2);
BENCHMARK_CAPTURE(BM_EqualAreaInnerForward, EquidistantConicEllipsoid, 3);
BENCHMARK_CAPTURE(BM_EqualAreaInnerInverse, EquidistantConicEllipsoid, 3);
