#include <benchmark/benchmark.h>

#include <string>

#include "foundation/Projection.h"
#include "mapprojection/MapProjection.h"

// The facade in the loops host programs write: building a coordinate system
// from a WKT text, from a catalogue name and from a special string, the
// classification of a string, and one conversion through the facade (axis
// rule included) against the same conversion of the bare algorithm.

namespace {

const char* const kEtrs89Utm32 =
    "PROJCS[\"ETRS89 / UTM zone 32N\",GEOGCS[\"ETRS89\",DATUM[\"European_Terrestrial_Reference_"
    "System_1989\",SPHEROID[\"GRS 1980\",6378137,298.257222101,AUTHORITY[\"EPSG\",\"7019\"]],"
    "AUTHORITY[\"EPSG\",\"6258\"]],PRIMEM[\"Greenwich\",0,AUTHORITY[\"EPSG\",\"8901\"]],"
    "UNIT[\"degree\",0.0174532925199433,AUTHORITY[\"EPSG\",\"9122\"]],AUTHORITY[\"EPSG\",\"4258\"]]"
    ","
    "PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],"
    "PARAMETER[\"central_meridian\",9],PARAMETER[\"scale_factor\",0.9996],"
    "PARAMETER[\"false_easting\",500000],PARAMETER[\"false_northing\",0],"
    "UNIT[\"metre\",1,AUTHORITY[\"EPSG\",\"9001\"]],AXIS[\"Easting\",EAST],"
    "AXIS[\"Northing\",NORTH],AUTHORITY[\"EPSG\",\"25832\"]]";

void BM_MapProjection_FromWkt(benchmark::State& state) {
    for (auto _ : state) {
        CGxMapProjection mp(kEtrs89Utm32);
        benchmark::DoNotOptimize(mp.GetProjection());
    }
}
BENCHMARK(BM_MapProjection_FromWkt);

// A zone at the front of the catalogue, the first system read from its files,
// one in the middle and the last before the user's own: a name is found by a
// walk along the catalogue, so the cost grows with its position.
void BM_MapProjection_FromCatalogueZone(benchmark::State& state) {
    for (auto _ : state) {
        CGxMapProjection mp("UTM-32");
        benchmark::DoNotOptimize(mp.GetProjection());
    }
}
BENCHMARK(BM_MapProjection_FromCatalogueZone);

void BM_MapProjection_FromCatalogueFirstFileName(benchmark::State& state) {
    for (auto _ : state) {
        CGxMapProjection mp("ETRS89-extended / LAEA Europe");
        benchmark::DoNotOptimize(mp.GetProjection());
    }
}
BENCHMARK(BM_MapProjection_FromCatalogueFirstFileName);

void BM_MapProjection_FromCatalogueFileName(benchmark::State& state) {
    for (auto _ : state) {
        CGxMapProjection mp("NAD83 / New York Long Island");
        benchmark::DoNotOptimize(mp.GetProjection());
    }
}
BENCHMARK(BM_MapProjection_FromCatalogueFileName);

void BM_MapProjection_FromCatalogueLastFileName(benchmark::State& state) {
    for (auto _ : state) {
        CGxMapProjection mp("NAD27 / Wyoming West Central");
        benchmark::DoNotOptimize(mp.GetProjection());
    }
}
BENCHMARK(BM_MapProjection_FromCatalogueLastFileName);

void BM_MapProjection_FromLongLat(benchmark::State& state) {
    for (auto _ : state) {
        CGxMapProjection mp("LONG/LAT");
        benchmark::DoNotOptimize(mp.GetProjection());
    }
}
BENCHMARK(BM_MapProjection_FromLongLat);

void BM_MapProjection_IsTypeOfWkt(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CGxMapProjection::IsType(CGxMapProjection::eProjectedSystems, kEtrs89Utm32));
}
BENCHMARK(BM_MapProjection_IsTypeOfWkt);

void BM_MapProjection_Geo2Proj(benchmark::State& state) {
    const CGxMapProjection mp(kEtrs89Utm32);
    double lon = 9.5, lat = 48.0, x, y;
    for (auto _ : state) {
        mp.Geo2Proj(lon, lat, &x, &y);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        lat += 1e-9;
    }
}
BENCHMARK(BM_MapProjection_Geo2Proj);

void BM_MapProjection_Geo2ProjBareAlgorithm(benchmark::State& state) {
    const CGxMapProjection mp(kEtrs89Utm32);
    const CGxProjection* algorithm = mp.GetProjection();
    double lon = 9.5, lat = 48.0, x, y;
    for (auto _ : state) {
        algorithm->Geo2Proj(lon, lat, &x, &y);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        lat += 1e-9;
    }
}
BENCHMARK(BM_MapProjection_Geo2ProjBareAlgorithm);

}  // namespace
