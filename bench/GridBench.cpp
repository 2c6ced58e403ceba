// Conversion cost of the geographical and rotated-pole grids, per point, over
// a mesh from 12 degrees west to 48 east and 27 to 75 degrees north.

#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "foundation/Ellipsoid.h"
#include "projections/Geographical.h"
#include "projections/RotatedLongitudeLatitude.h"

namespace {

const CGxEllipsoid kGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);

GxBenchPoints Europe(const CGxProjection& p) {
    return GxBenchMesh(p, -12, 48, 27, 75);
}

void BM_GeographicalForward(benchmark::State& state) {
    const CGxGeographical p("Geo", 10, kGrs80);
    GxBenchForward(state, p, Europe(p));
}
BENCHMARK(BM_GeographicalForward);

void BM_GeographicalInverse(benchmark::State& state) {
    const CGxGeographical p("Geo", 10, kGrs80);
    GxBenchInverse(state, p, Europe(p));
}
BENCHMARK(BM_GeographicalInverse);

void BM_RotatedForward(benchmark::State& state) {
    const CGxRotatedLongitudeLatitude p("Rotated", 18, -39.25, 0, kGrs80);
    GxBenchForward(state, p, Europe(p));
}
BENCHMARK(BM_RotatedForward);

void BM_RotatedInverse(benchmark::State& state) {
    const CGxRotatedLongitudeLatitude p("Rotated", 18, -39.25, 0, kGrs80);
    GxBenchInverse(state, p, Europe(p));
}
BENCHMARK(BM_RotatedInverse);

}  // namespace
