#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "foundation/Ellipsoid.h"
#include "projections/TransverseMercator.h"
#include "projections/TransverseMercatorJHS.h"

// Forward and inverse of both Transverse Mercator classes over 1000 points
// scattered across UTM zone 32 (6 to 12 degrees east, 0 to 80 degrees north).
// Times are per iteration of 1000 points; items/s gives points per second.

namespace {

constexpr int kPoints = 1000;

const CGxEllipsoid& Wgs84() {
    static const CGxEllipsoid e("WGS 84", "WE", 6378137.0, 298.257223563);
    return e;
}

template <class P>
void BM_Forward(benchmark::State& state) {
    const P p("UTM-32", 0.9996, 9.0, 0.0, 500000.0, 0.0, Wgs84());
    GxBenchForward(state, p, GxBenchScatter(p, 6, 12, 0, 80, kPoints));
}

template <class P>
void BM_Inverse(benchmark::State& state) {
    const P p("UTM-32", 0.9996, 9.0, 0.0, 500000.0, 0.0, Wgs84());
    GxBenchInverse(state, p, GxBenchScatter(p, 6, 12, 0, 80, kPoints));
}

}  // namespace

BENCHMARK_TEMPLATE(BM_Forward, CGxTransverseMercatorJHS)->Name("TransverseMercatorJHS/Forward");
BENCHMARK_TEMPLATE(BM_Inverse, CGxTransverseMercatorJHS)->Name("TransverseMercatorJHS/Inverse");
BENCHMARK_TEMPLATE(BM_Forward, CGxTransverseMercator)->Name("TransverseMercatorGK/Forward");
BENCHMARK_TEMPLATE(BM_Inverse, CGxTransverseMercator)->Name("TransverseMercatorGK/Inverse");
