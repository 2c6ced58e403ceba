// Forward and inverse cost per point of the conformal projections: Lambert
// conic (one and two parallels), Mercator (both forms), the oblique and polar
// stereographic and the polar wrapper. Each iteration converts 1024 points
// spread over the projection's natural area; the "per_point" counter is the
// time of one conversion.

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>

#include "BenchSupport.h"
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

// The natural area of a projection: lon0 +- halfLon, lat from lat0 to lat1.
struct Area {
    double lon0, halfLon, lat0, lat1;
};

struct Case {
    std::function<std::unique_ptr<CGxProjection>()> make;
    Area area;
};

// A 32 x 32 mesh over the area.
GxBenchPoints Mesh(const CGxProjection& p, const Area& a) {
    return GxBenchMesh(p, a.lon0 - a.halfLon, a.lon0 + a.halfLon, a.lat0, a.lat1);
}

Case Lambert2SP() {
    return {
        [] { return std::make_unique<CGxLambert2SP>("L2", 49, 44, 3, 46.5, 7e5, 6.6e6, kWgs84); },
        Area{3, 8, 41, 52}};
}
Case Lambert1SP() {
    return {[] { return std::make_unique<CGxLambert1SP>("L1", 0.9999, 3, 46.5, 6e5, 2e6, kWgs84); },
            Area{3, 8, 41, 52}};
}
Case Mercator1SP() {
    return {[] { return std::make_unique<CGxMercator1SP>("M1", 0.997, 110, 3.9e6, 9e5, kWgs84); },
            Area{110, 20, -10, 25}};
}
Case Mercator2SP() {
    return {[] { return std::make_unique<CGxMercator2SP>("M2", 42, 51, 5e5, 0, kWgs84); },
            Area{51, 15, 30, 55}};
}
Case StereographicOblique() {
    return {[] {
                return std::make_unique<CGxStereographic>("S", 0.9999079, 5.387638889, 52.156160556,
                                                          155000, 463000, kWgs84);
            },
            Area{5.4, 5, 49, 56}};
}
Case StereographicPolarAspect() {
    return {[] { return std::make_unique<CGxStereographic>("U", 0.994, 0, 90, 2e6, 2e6, kWgs84); },
            Area{0, 180, 60, 89}};
}
Case NorthPole() {
    return {[] { return std::make_unique<CGxStereographicNorthPole>("N", 70, -45, 0, 0, kWgs84); },
            Area{0, 180, 55, 89}};
}
Case SouthPole() {
    return {[] { return std::make_unique<CGxStereographicSouthPole>("S", -71, 0, 0, 0, kWgs84); },
            Area{0, 180, -89, -55}};
}
Case PolarWrapper() {
    return {[] { return std::make_unique<CGxPolarStereographic>("W", 1, 0, -71, 0, 0, kWgs84); },
            Area{0, 180, -89, -55}};
}

void Forward(benchmark::State& state, Case (*make)()) {
    const Case c = make();
    const std::unique_ptr<CGxProjection> p = c.make();
    GxBenchForward(state, *p, Mesh(*p, c.area));
}

void Inverse(benchmark::State& state, Case (*make)()) {
    const Case c = make();
    const std::unique_ptr<CGxProjection> p = c.make();
    GxBenchInverse(state, *p, Mesh(*p, c.area));
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
