#pragma once

// Point sets and timing loops of the conversion benchmarks. Each benchmark
// times one pass over a fixed set of points spread over the projection's
// natural area, so that the time is not that of one cached case, and reports
// points per second (items/s) and the time of one conversion (per_point).

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

// Longitudes and latitudes in degrees and their images under the benchmarked
// projection, the inputs of the inverse.
struct GxBenchPoints {
    std::vector<double> lon, lat, x, y;
};

// Adds (lon, lat) and its image under p.
template <class P>
void GxBenchAdd(const P& p, double lon, double lat, GxBenchPoints* pts) {
    double x, y;
    p.Geo2Proj(lon, lat, &x, &y);
    pts->lon.push_back(lon);
    pts->lat.push_back(lat);
    pts->x.push_back(x);
    pts->y.push_back(y);
}

// nLon x nLat points evenly over [lon0, lon1] x [lat0, lat1], ends included.
template <class P>
GxBenchPoints GxBenchMesh(const P& p, double lon0, double lon1, double lat0, double lat1,
                          int nLon = 32, int nLat = 32) {
    GxBenchPoints pts;
    for (int j = 0; j < nLat; ++j) {
        for (int i = 0; i < nLon; ++i) {
            GxBenchAdd(p, lon0 + (lon1 - lon0) * i / (nLon - 1),
                       lat0 + (lat1 - lat0) * j / (nLat - 1), &pts);
        }
    }
    return pts;
}

// n points over [lon0, lon1] x [lat0, lat1] by a low-discrepancy walk (the
// fractional parts of multiples of two irrational numbers), so that
// neighbouring points differ and no branch predictor learns the order.
template <class P>
GxBenchPoints GxBenchScatter(const P& p, double lon0, double lon1, double lat0, double lat1,
                             int n) {
    GxBenchPoints pts;
    for (int i = 0; i < n; ++i) {
        const double u = (i * 0.6180339887498949) - static_cast<int>(i * 0.6180339887498949);
        const double v = (i * 0.7548776662466927) - static_cast<int>(i * 0.7548776662466927);
        GxBenchAdd(p, lon0 + (lon1 - lon0) * u, lat0 + (lat1 - lat0) * v, &pts);
    }
    return pts;
}

// Reports the points of every iteration: items/s and the time of one.
inline void GxBenchCountPoints(benchmark::State& state, std::size_t points) {
    state.SetItemsProcessed(state.iterations() * static_cast<benchmark::IterationCount>(points));
    state.counters["per_point"] = benchmark::Counter(
        static_cast<double>(points),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Times the forward conversion of every point.
template <class P>
void GxBenchForward(benchmark::State& state, const P& p, const GxBenchPoints& pts) {
    const std::size_t n = pts.lon.size();
    for (auto _ : state) {
        for (std::size_t i = 0; i < n; ++i) {
            double x, y;
            p.Geo2Proj(pts.lon[i], pts.lat[i], &x, &y);
            benchmark::DoNotOptimize(x);
            benchmark::DoNotOptimize(y);
        }
    }
    GxBenchCountPoints(state, n);
}

// Times the inverse conversion of the images of every point.
template <class P>
void GxBenchInverse(benchmark::State& state, const P& p, const GxBenchPoints& pts) {
    const std::size_t n = pts.x.size();
    for (auto _ : state) {
        for (std::size_t i = 0; i < n; ++i) {
            double lon, lat;
            p.Proj2Geo(pts.x[i], pts.y[i], &lon, &lat);
            benchmark::DoNotOptimize(lon);
            benchmark::DoNotOptimize(lat);
        }
    }
    GxBenchCountPoints(state, n);
}
