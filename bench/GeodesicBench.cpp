#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>

#include "datum/Vincenty.h"
#include "foundation/Ellipsoid.h"

namespace {

// Point pairs from a metre to 15 000 km, none nearly antipodal:
// lon1, lat1, lon2, lat2 in degrees.
constexpr std::array<std::array<double, 4>, 8> kPairs = {{
    {7.0, 50.0, 7.00001, 50.00001},
    {-0.1, 51.5, 2.35, 48.86},
    {13.4, 52.5, 37.6, 55.75},
    {-74.0, 40.7, -118.2, 34.05},
    {151.2, -33.9, 174.8, -36.85},
    {-46.6, -23.5, 28.0, -26.2},
    {139.7, 35.7, -122.4, 37.8},
    {0.0, 0.0, 100.0, 0.0},
}};

const CGxVincenty& Wgs84() {
    static const CGxVincenty v(CGxEllipsoid("WGS 84", "WE", 6378137.0, 298.257223563));
    return v;
}

void BM_GeodesicInverse(benchmark::State& state) {
    const CGxVincenty& v = Wgs84();
    std::size_t i = 0;
    for (auto _ : state) {
        const auto& p = kPairs[i++ % kPairs.size()];
        double s = 0, a1 = 0, a2 = 0;
        v.GetDistance(p[0], p[1], p[2], p[3], s, a1, a2);
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(a2);
    }
}
BENCHMARK(BM_GeodesicInverse);

void BM_GeodesicDirect(benchmark::State& state) {
    const CGxVincenty& v = Wgs84();
    // The same lines, given by start point, azimuth and length.
    std::array<std::array<double, 4>, kPairs.size()> lines{};
    for (std::size_t k = 0; k < kPairs.size(); ++k) {
        const auto& p = kPairs[k];
        double s = 0, a1 = 0, a2 = 0;
        v.GetDistance(p[0], p[1], p[2], p[3], s, a1, a2);
        lines[k] = {p[0], p[1], a1, s};
    }
    std::size_t i = 0;
    for (auto _ : state) {
        const auto& l = lines[i++ % lines.size()];
        double lon = 0, lat = 0, az = 0;
        v.GetPoint(l[0], l[1], l[2], l[3], lon, lat, az);
        benchmark::DoNotOptimize(lon);
        benchmark::DoNotOptimize(lat);
    }
}
BENCHMARK(BM_GeodesicDirect);

}  // namespace
