// What the flat interface costs over the class: a handle call per point,
// against the member call it forwards to.

#include <benchmark/benchmark.h>

#include "gxcart.h"
#include "mapprojection/MapProjection.h"

namespace {

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
    const char* ed50 =
        "PROJCS[\"ED50 / UTM 32\",GEOGCS[\"ED50\",DATUM[\"European_Datum_1950\","
        "SPHEROID[\"International 1924\",6378388,297],TOWGS84[-87,-98,-121,0,0,0,0]],"
        "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],"
        "PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],"
        "PARAMETER[\"central_meridian\",9],PARAMETER[\"scale_factor\",0.9996],"
        "PARAMETER[\"false_easting\",500000],PARAMETER[\"false_northing\",0],UNIT[\"metre\",1]]";
    GxDatumConverterHandle dc = nullptr;
    int status = 0;
    C_GXDC_CREATE("UTM-32", ed50, &dc, &status);
    for (auto _ : state) {
        double x = 537117.141935, y = 5344208.122025, h = 120.0;
        C_GXDC_CONVERTXYH(dc, &x, &y, &h);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
    }
    C_GXDC_DESTROY(&dc, &status);
}
BENCHMARK(BM_FlatConvertAcrossDatums);

}  // namespace
