// Forward and inverse cost per point of the conformal projections: Lambert
// conic (one and two parallels), Mercator (both forms), the oblique and polar
// stereographic and the polar wrapper. Each iteration converts 1024 points
// spread over the projection's natural area; the "per_point" counter is the
// time of one conversion.

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <vector>

#include "foundation/Ellipsoid.h"
#include "projections/Lambert1SP.h"
#include "projections/Lambert2SP.h"
#include "projections/Mercator1SP.h"
#include "projections/Mercator2SP.h"
#include "projections/PolarStereographic.h"
#include "projections/Stereographic.h"
#include "projections/StereographicNorthPole.h"
#include "projections/StereographicSouthPole.h"

namespace {

const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);

constexpr int kPoints = 1024;

struct Point {
    double a, b;
};

// A 32 x 32 grid over lon0 +- halfLon, lat from lat0 to lat1.
std::vector<Point> Grid(double lon0, double halfLon, double lat0, double lat1) {
    std::vector<Point> pts(kPoints);
    for (int i = 0; i < kPoints; ++i)
        pts[i] = {lon0 - halfLon + 2 * halfLon * (i % 32) / 31,
                  lat0 + (lat1 - lat0) * (i / 32) / 31};
    return pts;
}

struct Case {
    std::function<std::unique_ptr<CGxProjection>()> make;
    std::vector<Point> area;
};

Case Lambert2SP() {
    return {
        [] { return std::make_unique<CGxLambert2SP>("L2", 49, 44, 3, 46.5, 7e5, 6.6e6, kWgs84); },
        Grid(3, 8, 41, 52)};
}
Case Lambert1SP() {
    return {[] { return std::make_unique<CGxLambert1SP>("L1", 0.9999, 3, 46.5, 6e5, 2e6, kWgs84); },
            Grid(3, 8, 41, 52)};
}
Case Mercator1SP() {
    return {[] { return std::make_unique<CGxMercator1SP>("M1", 0.997, 110, 3.9e6, 9e5, kWgs84); },
            Grid(110, 20, -10, 25)};
}
Case Mercator2SP() {
    return {[] { return std::make_unique<CGxMercator2SP>("M2", 42, 51, 5e5, 0, kWgs84); },
            Grid(51, 15, 30, 55)};
}
Case StereographicOblique() {
    return {[] {
                return std::make_unique<CGxStereographic>("S", 0.9999079, 5.387638889, 52.156160556,
                                                          155000, 463000, kWgs84);
            },
            Grid(5.4, 5, 49, 56)};
}
Case StereographicPolarAspect() {
    return {[] { return std::make_unique<CGxStereographic>("U", 0.994, 0, 90, 2e6, 2e6, kWgs84); },
            Grid(0, 180, 60, 89)};
}
Case NorthPole() {
    return {[] { return std::make_unique<CGxStereographicNorthPole>("N", 70, -45, 0, 0, kWgs84); },
            Grid(0, 180, 55, 89)};
}
Case SouthPole() {
    return {[] { return std::make_unique<CGxStereographicSouthPole>("S", -71, 0, 0, 0, kWgs84); },
            Grid(0, 180, -89, -55)};
}
Case PolarWrapper() {
    return {[] { return std::make_unique<CGxPolarStereographic>("W", 1, 0, -71, 0, 0, kWgs84); },
            Grid(0, 180, -89, -55)};
}

void SetPerPoint(benchmark::State& state) {
    state.counters["per_point"] = benchmark::Counter(
        kPoints, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Forward(benchmark::State& state, Case (*make)()) {
    const Case c = make();
    const std::unique_ptr<CGxProjection> p = c.make();
    double x, y;
    for (auto _ : state) {
        for (const Point& q : c.area) {
            p->Geo2Proj(q.a, q.b, &x, &y);
            benchmark::DoNotOptimize(x);
            benchmark::DoNotOptimize(y);
        }
    }
    SetPerPoint(state);
}

void Inverse(benchmark::State& state, Case (*make)()) {
    Case c = make();
    const std::unique_ptr<CGxProjection> p = c.make();
    for (Point& q : c.area) p->Geo2Proj(q.a, q.b, &q.a, &q.b);
    double lon, lat;
    for (auto _ : state) {
        for (const Point& q : c.area) {
            p->Proj2Geo(q.a, q.b, &lon, &lat);
            benchmark::DoNotOptimize(lon);
            benchmark::DoNotOptimize(lat);
        }
    }
    SetPerPoint(state);
}

}  // namespace

BENCHMARK_CAPTURE(Forward, Conformal_Lambert2SP, &Lambert2SP);
BENCHMARK_CAPTURE(Inverse, Conformal_Lambert2SP, &Lambert2SP);
BENCHMARK_CAPTURE(Forward, Conformal_Lambert1SP, &Lambert1SP);
BENCHMARK_CAPTURE(Inverse, Conformal_Lambert1SP, &Lambert1SP);
BENCHMARK_CAPTURE(Forward, Conformal_Mercator1SP, &Mercator1SP);
BENCHMARK_CAPTURE(Inverse, Conformal_Mercator1SP, &Mercator1SP);
BENCHMARK_CAPTURE(Forward, Conformal_Mercator2SP, &Mercator2SP);
BENCHMARK_CAPTURE(Inverse, Conformal_Mercator2SP, &Mercator2SP);
BENCHMARK_CAPTURE(Forward, Conformal_StereographicOblique, &StereographicOblique);
BENCHMARK_CAPTURE(Inverse, Conformal_StereographicOblique, &StereographicOblique);
BENCHMARK_CAPTURE(Forward, Conformal_StereographicPolarAspect, &StereographicPolarAspect);
BENCHMARK_CAPTURE(Inverse, Conformal_StereographicPolarAspect, &StereographicPolarAspect);
BENCHMARK_CAPTURE(Forward, Conformal_StereographicNorthPole, &NorthPole);
BENCHMARK_CAPTURE(Inverse, Conformal_StereographicNorthPole, &NorthPole);
BENCHMARK_CAPTURE(Forward, Conformal_StereographicSouthPole, &SouthPole);
BENCHMARK_CAPTURE(Inverse, Conformal_StereographicSouthPole, &SouthPole);
BENCHMARK_CAPTURE(Forward, Conformal_PolarStereographic, &PolarWrapper);
BENCHMARK_CAPTURE(Inverse, Conformal_PolarStereographic, &PolarWrapper);
