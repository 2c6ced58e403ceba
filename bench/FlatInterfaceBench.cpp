// What the flat interface costs over the class: a handle call per point,
// against the member call it forwards to; and what converting a whole mesh in
// one array call saves over a call per point.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

#include "BenchSupport.h"
#include "gxcart.h"
#include "mapprojection/MapProjection.h"

namespace {

const char* const kEd50Utm32 =
    "PROJCS[\"ED50 / UTM 32\",GEOGCS[\"ED50\",DATUM[\"European_Datum_1950\","
    "SPHEROID[\"International 1924\",6378388,297],TOWGS84[-87,-98,-121,0,0,0,0]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],"
    "PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],"
    "PARAMETER[\"central_meridian\",9],PARAMETER[\"scale_factor\",0.9996],"
    "PARAMETER[\"false_easting\",500000],PARAMETER[\"false_northing\",0],UNIT[\"metre\",1]]";

void BM_FlatGeo2Proj(benchmark::State& state) {
    GxMapProjectionHandle utm = nullptr;
    int status = 0;
    C_GXMP_CREATE("UTM-32", &utm, &status);
    double lon = 9.5, lat = 48.25, x = 0, y = 0;
    for (auto _ : state) {
        C_GXMP_GEO2PROJ(utm, lon, lat, &x, &y);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        lon += 1e-9;
    }
    C_GXMP_DESTROY(&utm, &status);
}
BENCHMARK(BM_FlatGeo2Proj);

void BM_ClassGeo2Proj(benchmark::State& state) {
    const CGxMapProjection utm("UTM-32");
    double lon = 9.5, lat = 48.25, x = 0, y = 0;
    for (auto _ : state) {
        utm.Geo2Proj(lon, lat, &x, &y);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        lon += 1e-9;
    }
}
BENCHMARK(BM_ClassGeo2Proj);

// Converting through a datum converter with the geocentric step.
void BM_FlatConvertAcrossDatums(benchmark::State& state) {
    GxDatumConverterHandle dc = nullptr;
    int status = 0;
    C_GXDC_CREATE("UTM-32", kEd50Utm32, &dc, &status);
    for (auto _ : state) {
        double x = 537117.141935, y = 5344208.122025, h = 120.0;
        C_GXDC_CONVERTXYH(dc, &x, &y, &h);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
    }
    C_GXDC_DESTROY(&dc, &status);
}
BENCHMARK(BM_FlatConvertAcrossDatums);

// A mesh of 4096 points around the grid origin, for the array benchmarks.
GxBenchPoints Mesh(const char* system) {
    const CGxMapProjection mp(system);
    return GxBenchScatter(mp, 6.0, 12.0, 44.0, 54.0, 4096);
}

// One flat call per point against one array call for the whole mesh, through
// an ordinary grid (UTM-32), a grid with swapped axes and the geographical
// system, whose conversion costs next to nothing so that what each call
// costs around it shows.
const char* const kNorthEastGrid =
    "PROJCS[\"DHDN / 3-degree Gauss-Kruger zone 3\",GEOGCS[\"DHDN\",DATUM[\"DHDN\","
    "SPHEROID[\"Bessel 1841\",6377397.155,299.1528128]],PRIMEM[\"Greenwich\",0],"
    "UNIT[\"degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
    "PARAMETER[\"latitude_of_origin\",0],PARAMETER[\"central_meridian\",9],"
    "PARAMETER[\"scale_factor\",1],PARAMETER[\"false_easting\",3500000],"
    "PARAMETER[\"false_northing\",0],UNIT[\"metre\",1],AXIS[\"X\",NORTH],AXIS[\"Y\",EAST]]";

void BM_FlatGeo2ProjPointByPoint(benchmark::State& state, const char* system) {
    const GxBenchPoints pts = Mesh(system);
    const std::size_t n = pts.lon.size();
    std::vector<double> x(n), y(n);
    GxMapProjectionHandle mp = nullptr;
    int status = 0;
    C_GXMP_CREATE(system, &mp, &status);
    for (auto _ : state) {
        for (std::size_t i = 0; i < n; ++i)
            C_GXMP_GEO2PROJ(mp, pts.lon[i], pts.lat[i], &x[i], &y[i]);
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
    GxBenchCountPoints(state, n);
    C_GXMP_DESTROY(&mp, &status);
}
BENCHMARK_CAPTURE(BM_FlatGeo2ProjPointByPoint, utm32, "UTM-32");
BENCHMARK_CAPTURE(BM_FlatGeo2ProjPointByPoint, northEast, kNorthEastGrid);
BENCHMARK_CAPTURE(BM_FlatGeo2ProjPointByPoint, longLat, "LONG/LAT");

void BM_FlatGeo2ProjArray(benchmark::State& state, const char* system) {
    const GxBenchPoints pts = Mesh(system);
    const std::size_t n = pts.lon.size();
    std::vector<double> x(n), y(n);
    GxMapProjectionHandle mp = nullptr;
    int status = 0;
    C_GXMP_CREATE(system, &mp, &status);
    for (auto _ : state) {
        C_GXMP_GEO2PROJARRAY(mp, pts.lon.data(), pts.lat.data(), x.data(), y.data(), n);
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
    GxBenchCountPoints(state, n);
    C_GXMP_DESTROY(&mp, &status);
}
BENCHMARK_CAPTURE(BM_FlatGeo2ProjArray, utm32, "UTM-32");
BENCHMARK_CAPTURE(BM_FlatGeo2ProjArray, northEast, kNorthEastGrid);
BENCHMARK_CAPTURE(BM_FlatGeo2ProjArray, longLat, "LONG/LAT");

// Local grid coordinates of the mesh, per point and as one array.
void BM_FlatGeo2XyPointByPoint(benchmark::State& state) {
    const GxBenchPoints pts = Mesh("UTM-32");
    const std::size_t n = pts.lon.size();
    std::vector<double> X(n), Y(n);
    GxCartographyHandle grid = nullptr;
    int status = 0;
    C_GXC_CREATE("UTM-32", 9.5, 48.25, 10.0, &grid, &status);
    for (auto _ : state) {
        for (std::size_t i = 0; i < n; ++i)
            C_GXC_GEO2XY(grid, pts.lon[i], pts.lat[i], &X[i], &Y[i]);
        benchmark::DoNotOptimize(X.data());
        benchmark::ClobberMemory();
    }
    GxBenchCountPoints(state, n);
    C_GXC_DESTROY(&grid, &status);
}
BENCHMARK(BM_FlatGeo2XyPointByPoint);

void BM_FlatGeo2XyArray(benchmark::State& state) {
    const GxBenchPoints pts = Mesh("UTM-32");
    const std::size_t n = pts.lon.size();
    std::vector<double> X(n), Y(n);
    GxCartographyHandle grid = nullptr;
    int status = 0;
    C_GXC_CREATE("UTM-32", 9.5, 48.25, 10.0, &grid, &status);
    for (auto _ : state) {
        C_GXC_GEO2XYARRAY(grid, pts.lon.data(), pts.lat.data(), X.data(), Y.data(), n);
        benchmark::DoNotOptimize(X.data());
        benchmark::ClobberMemory();
    }
    GxBenchCountPoints(state, n);
    C_GXC_DESTROY(&grid, &status);
}
BENCHMARK(BM_FlatGeo2XyArray);

// The mesh across datums in place with heights, per point and as one array;
// each pass starts again from the same coordinates.
void BM_FlatConvertAcrossDatumsArray(benchmark::State& state, bool oneCall) {
    const GxBenchPoints pts = Mesh("UTM-32");
    const std::size_t n = pts.x.size();
    std::vector<double> x(n), y(n), h(n);
    GxDatumConverterHandle dc = nullptr;
    int status = 0;
    C_GXDC_CREATE("UTM-32", kEd50Utm32, &dc, &status);
    for (auto _ : state) {
        state.PauseTiming();
        x = pts.x;
        y = pts.y;
        h.assign(n, 120.0);
        state.ResumeTiming();
        if (oneCall) {
            C_GXDC_CONVERTARRAY(dc, x.data(), y.data(), h.data(), n);
        } else {
            for (std::size_t i = 0; i < n; ++i) C_GXDC_CONVERTXYH(dc, &x[i], &y[i], &h[i]);
        }
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
    GxBenchCountPoints(state, n);
    C_GXDC_DESTROY(&dc, &status);
}
BENCHMARK_CAPTURE(BM_FlatConvertAcrossDatumsArray, pointByPoint, false);
BENCHMARK_CAPTURE(BM_FlatConvertAcrossDatumsArray, oneCall, true);

}  // namespace
