#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>

#include "datum/DatumConverter.h"

// Datum conversions per point through a seven-parameter shift: the whole
// chain between two projected systems, the chain between two geographical
// systems (no projections), and the geocentric step alone.

namespace {

// RD New (Bessel, seven parameters) and ED50 / UTM zone 32 (International
// 1924, three parameters), as GDAL writes them.
const char kRdNew[] =
    "PROJCS[\"RD New\",GEOGCS[\"Amersfoort\",DATUM[\"Amersfoort\",SPHEROID[\"Bessel 1841\","
    "6377397.155,299.1528128],TOWGS84[565.417,50.3319,465.552,-0.398957,0.343988,-1.8774,"
    "4.0725]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],"
    "PROJECTION[\"Oblique_Stereographic\"],PARAMETER[\"latitude_of_origin\",52.1561605555556],"
    "PARAMETER[\"central_meridian\",5.38763888888889],PARAMETER[\"scale_factor\",0.9999079],"
    "PARAMETER[\"false_easting\",155000],PARAMETER[\"false_northing\",463000],"
    "UNIT[\"metre\",1],AXIS[\"Easting\",EAST],AXIS[\"Northing\",NORTH]]";
const char kEd50Utm32[] =
    "PROJCS[\"ED50 / UTM zone 32N\",GEOGCS[\"ED50\",DATUM[\"European_Datum_1950\","
    "SPHEROID[\"International 1924\",6378388,297],TOWGS84[-87,-98,-121,0,0,0,0]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],"
    "PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],"
    "PARAMETER[\"central_meridian\",9],PARAMETER[\"scale_factor\",0.9996],"
    "PARAMETER[\"false_easting\",500000],PARAMETER[\"false_northing\",0],UNIT[\"metre\",1],"
    "AXIS[\"Easting\",EAST],AXIS[\"Northing\",NORTH]]";
const char kDhdn[] =
    "GEOGCS[\"DHDN\",DATUM[\"Deutsches_Hauptdreiecksnetz\",SPHEROID[\"Bessel 1841\","
    "6377397.155,299.1528128],TOWGS84[598.1,73.7,418.2,0.202,0.045,-2.455,6.7]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
const char kWgs84[] =
    "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";

// Points across the Netherlands (RD easting, northing, height) and across
// Germany (longitude, latitude, height).
constexpr std::array<std::array<double, 3>, 4> kRdPoints = {{
    {155000, 463000, 0},
    {120000, 487000, 50},
    {250000, 400000, -30},
    {30000, 380000, 10},
}};
constexpr std::array<std::array<double, 3>, 4> kGeoPoints = {{
    {9.0, 48.0, 0},
    {13.4, 52.5, 35},
    {7.5, 53.25, 120},
    {11.6, 48.1, 520},
}};

template <std::size_t N>
void Run(benchmark::State& state, const CGxDatumConverter& converter,
         const std::array<std::array<double, 3>, N>& points) {
    std::size_t i = 0;
    for (auto _ : state) {
        const auto& p = points[i++ % N];
        double x = p[0], y = p[1], z = p[2];
        converter.Convert(x, y, z);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        benchmark::DoNotOptimize(z);
    }
}

// Oblique stereographic inverse, geocentric step, Transverse Mercator.
void BM_DatumProjToProjSevenParameter(benchmark::State& state) {
    const CGxDatumConverter converter(kRdNew, kEd50Utm32);
    Run(state, converter, kRdPoints);
}
BENCHMARK(BM_DatumProjToProjSevenParameter);

void BM_DatumGeoToGeoSevenParameter(benchmark::State& state) {
    CGxDatumConverter converter(kDhdn, kWgs84);
    converter.SetConversionType(CGxDatumConverter::eGeoToGeo);
    Run(state, converter, kGeoPoints);
}
BENCHMARK(BM_DatumGeoToGeoSevenParameter);

void BM_DatumGeocentricStepSevenParameter(benchmark::State& state) {
    const CGxDatumConverter converter(kDhdn, kRdNew);
    std::size_t i = 0;
    for (auto _ : state) {
        double X = 3987000.0 + static_cast<double>(i++ % 4) * 1000.0;
        double Y = 627000.0, Z = 4917000.0;
        converter.DatumShift(X, Y, Z);
        benchmark::DoNotOptimize(X);
        benchmark::DoNotOptimize(Y);
        benchmark::DoNotOptimize(Z);
    }
}
BENCHMARK(BM_DatumGeocentricStepSevenParameter);

}  // namespace
