// Conversion cost of the geographical and rotated-pole grids, per point.

#include <benchmark/benchmark.h>

#include "foundation/Ellipsoid.h"
#include "projections/Geographical.h"
#include "projections/RotatedLongitudeLatitude.h"

namespace {

const CGxEllipsoid kGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);

// A spread of points so that the timing is not that of one cached case.
template <class Convert>
void RunOverGrid(benchmark::State& state, Convert convert) {
    double lon = -12, lat = 27;
    for (auto _ : state) {
        double x, y;
        convert(lon, lat, &x, &y);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        lon += 0.37;
        lat += 0.11;
        if (lon > 48) lon = -12;
        if (lat > 75) lat = 27;
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_GeographicalForward(benchmark::State& state) {
    const CGxGeographical p("Geo", 10, kGrs80);
    RunOverGrid(state, [&p](double a, double b, double* x, double* y) { p.Geo2Proj(a, b, x, y); });
}
BENCHMARK(BM_GeographicalForward);

void BM_GeographicalInverse(benchmark::State& state) {
    const CGxGeographical p("Geo", 10, kGrs80);
    RunOverGrid(state, [&p](double a, double b, double* x, double* y) { p.Proj2Geo(a, b, x, y); });
}
BENCHMARK(BM_GeographicalInverse);

void BM_RotatedForward(benchmark::State& state) {
    const CGxRotatedLongitudeLatitude p("Rotated", 18, -39.25, 0, kGrs80);
    RunOverGrid(state, [&p](double a, double b, double* x, double* y) { p.Geo2Proj(a, b, x, y); });
}
BENCHMARK(BM_RotatedForward);

void BM_RotatedInverse(benchmark::State& state) {
    const CGxRotatedLongitudeLatitude p("Rotated", 18, -39.25, 0, kGrs80);
    // Rotated coordinates of the same box, shifted to sit around the origin.
    RunOverGrid(state, [&p](double a, double b, double* x, double* y) {
        p.Proj2Geo(a - 18, b - 51, x, y);
    });
}
BENCHMARK(BM_RotatedInverse);

}  // namespace
