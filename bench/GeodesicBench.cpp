#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include "BenchSupport.h"
#include "datum/Vincenty.h"
#include "foundation/Ellipsoid.h"

#ifdef GXCART_BENCH_GEOGRAPHICLIB
#include <GeographicLib/Geodesic.hpp>
#endif

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

constexpr double kWgs84Major = 6378137.0;
constexpr double kWgs84InverseFlattening = 298.257223563;

const CGxVincenty& Wgs84() {
    static const CGxVincenty v(CGxEllipsoid("WGS 84", "WE", kWgs84Major, kWgs84InverseFlattening));
    return v;
}

// Pairs of points spread evenly over the sphere (uniform in longitude and in
// the sine of the latitude), drawn once with a fixed seed: lon1, lat1, lon2,
// lat2. About one pair in 500 is within 5 degrees of the antipode.
const std::vector<std::array<double, 4>>& RandomPairs() {
    static const std::vector<std::array<double, 4>> pairs = [] {
        std::mt19937_64 rng(20250301);
        std::uniform_real_distribution<double> unit(-1.0, 1.0);
        const double toDeg = 180.0 / 3.141592653589793;
        std::vector<std::array<double, 4>> p(4096);
        for (auto& q : p)
            q = {180.0 * unit(rng), std::asin(unit(rng)) * toDeg, 180.0 * unit(rng),
                 std::asin(unit(rng)) * toDeg};
        return p;
    }();
    return pairs;
}

// Pairs within 2 degrees of each other's antipode, where the inverse is solved
// for the azimuth.
const std::vector<std::array<double, 4>>& NearAntipodalPairs() {
    static const std::vector<std::array<double, 4>> pairs = [] {
        std::mt19937_64 rng(20250302);
        std::uniform_real_distribution<double> unit(-1.0, 1.0);
        std::vector<std::array<double, 4>> p(1024);
        for (auto& q : p) {
            const double lat1 = 80.0 * unit(rng);
            q = {0.0, lat1, 180.0 + 2.0 * unit(rng), -lat1 + 2.0 * unit(rng)};
        }
        return p;
    }();
    return pairs;
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

// One pass over the random pairs; per_point is the time of one inverse.
template <class Solve>
void InverseOverPairs(benchmark::State& state, const std::vector<std::array<double, 4>>& pairs,
                      Solve solve) {
    for (auto _ : state) {
        for (const auto& p : pairs) {
            double s = 0, a1 = 0, a2 = 0;
            solve(p, s, a1, a2);
            benchmark::DoNotOptimize(s);
            benchmark::DoNotOptimize(a1);
            benchmark::DoNotOptimize(a2);
        }
    }
    GxBenchCountPoints(state, pairs.size());
}

void BM_GeodesicInverseRandomPairs(benchmark::State& state) {
    const CGxVincenty& v = Wgs84();
    InverseOverPairs(state, RandomPairs(), [&](const auto& p, double& s, double& a1, double& a2) {
        v.GetDistance(p[0], p[1], p[2], p[3], s, a1, a2);
    });
}
BENCHMARK(BM_GeodesicInverseRandomPairs);

void BM_GeodesicInverseNearAntipode(benchmark::State& state) {
    const CGxVincenty& v = Wgs84();
    InverseOverPairs(state, NearAntipodalPairs(),
                     [&](const auto& p, double& s, double& a1, double& a2) {
                         v.GetDistance(p[0], p[1], p[2], p[3], s, a1, a2);
                     });
}
BENCHMARK(BM_GeodesicInverseNearAntipode);

#ifdef GXCART_BENCH_GEOGRAPHICLIB
// The yardstick: GeographicLib's inverse on the same pairs (latitude first).
void BM_GeographicLibInverseRandomPairs(benchmark::State& state) {
    const GeographicLib::Geodesic g(kWgs84Major, 1 / kWgs84InverseFlattening);
    InverseOverPairs(state, RandomPairs(), [&](const auto& p, double& s, double& a1, double& a2) {
        g.Inverse(p[1], p[0], p[3], p[2], s, a1, a2);
    });
}
BENCHMARK(BM_GeographicLibInverseRandomPairs);

void BM_GeographicLibInverseNearAntipode(benchmark::State& state) {
    const GeographicLib::Geodesic g(kWgs84Major, 1 / kWgs84InverseFlattening);
    InverseOverPairs(state, NearAntipodalPairs(),
                     [&](const auto& p, double& s, double& a1, double& a2) {
                         g.Inverse(p[1], p[0], p[3], p[2], s, a1, a2);
                     });
}
BENCHMARK(BM_GeographicLibInverseNearAntipode);
#endif

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
