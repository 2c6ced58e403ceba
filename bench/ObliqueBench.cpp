// Per-point cost of the oblique Mercator family, Krovak and the New Zealand
// map grid, forward and inverse, over 1000 points spread across each grid's
// natural area. Times are per iteration of 1000 points; items/s gives points
// per second.

#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "foundation/Ellipsoid.h"
#include "projections/HotineObliqueMercator.h"
#include "projections/Krovak.h"
#include "projections/NewZealandMapGrid.h"
#include "projections/ObliqueMercator.h"
#include "projections/RectifiedSkewOrthomorphic.h"

namespace {

const CGxEllipsoid kGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);
const CGxEllipsoid kBessel("Bessel 1841", "BR", 6377397.155, 299.1528128);
const CGxEllipsoid kEverestSabah("Everest (Sabah & Sarawak)", "EB", 6377298.556, 300.8017);
const CGxEllipsoid kInternational("International 1924", "IN", 6378388.0, 297.0);

// A 40 x 25 mesh over [lon0, lon1] x [lat0, lat1].
GxBenchPoints Mesh(const CGxProjection& p, double lon0, double lon1, double lat0, double lat1) {
    return GxBenchMesh(p, lon0, lon1, lat0, lat1, 40, 25);
}

// Alaska zone 1.
const CGxHotineObliqueMercator kHotine("Alaska 1", 0.9999, -133.666666666667, 57, 323.130102361111,
                                       5000000, -5000000, kGrs80);
// Swiss grid.
const CGxObliqueMercator kOblique("LV95", 1, 7.43958333333333, 46.9524055555556, 90, 2600000,
                                  1200000, kBessel);
// RSO Borneo.
const CGxRectifiedSkewOrthomorphic kRso("RSO Borneo", 0.99984, 115, 4, 53.3158204722222,
                                        53.1301023611111, 2000000, 5000000, kEverestSabah);
// S-JTSK east/north.
const CGxKrovak kKrovak("S-JTSK", 0.9999, 78.5, 24.8333333333333, 49.5, 30.2881397527778, 90, -1, 1,
                        0, 0, kBessel);
const CGxNewZealandMapGrid kNzmg("NZMG", 173, -41, 2510000, 6023150, kInternational);

const GxBenchPoints& HotinePoints() {
    static const GxBenchPoints pts = Mesh(kHotine, -141, -129, 54, 60);
    return pts;
}
const GxBenchPoints& ObliquePoints() {
    static const GxBenchPoints pts = Mesh(kOblique, 5.9, 10.5, 45.8, 47.8);
    return pts;
}
const GxBenchPoints& RsoPoints() {
    static const GxBenchPoints pts = Mesh(kRso, 109.5, 119.5, 0.8, 7.5);
    return pts;
}
const GxBenchPoints& KrovakPoints() {
    static const GxBenchPoints pts = Mesh(kKrovak, 12, 22.6, 47.7, 51.1);
    return pts;
}
const GxBenchPoints& NzmgPoints() {
    static const GxBenchPoints pts = Mesh(kNzmg, 166.4, 178.6, -47.3, -34.4);
    return pts;
}

void BM_HotineObliqueMercatorForward(benchmark::State& s) {
    GxBenchForward(s, kHotine, HotinePoints());
}
void BM_HotineObliqueMercatorInverse(benchmark::State& s) {
    GxBenchInverse(s, kHotine, HotinePoints());
}
void BM_ObliqueMercatorForward(benchmark::State& s) {
    GxBenchForward(s, kOblique, ObliquePoints());
}
void BM_ObliqueMercatorInverse(benchmark::State& s) {
    GxBenchInverse(s, kOblique, ObliquePoints());
}
void BM_RectifiedSkewOrthomorphicForward(benchmark::State& s) {
    GxBenchForward(s, kRso, RsoPoints());
}
void BM_RectifiedSkewOrthomorphicInverse(benchmark::State& s) {
    GxBenchInverse(s, kRso, RsoPoints());
}
void BM_KrovakForward(benchmark::State& s) {
    GxBenchForward(s, kKrovak, KrovakPoints());
}
void BM_KrovakInverse(benchmark::State& s) {
    GxBenchInverse(s, kKrovak, KrovakPoints());
}
void BM_NewZealandMapGridForward(benchmark::State& s) {
    GxBenchForward(s, kNzmg, NzmgPoints());
}
void BM_NewZealandMapGridInverse(benchmark::State& s) {
    GxBenchInverse(s, kNzmg, NzmgPoints());
}

BENCHMARK(BM_HotineObliqueMercatorForward);
BENCHMARK(BM_HotineObliqueMercatorInverse);
BENCHMARK(BM_ObliqueMercatorForward);
BENCHMARK(BM_ObliqueMercatorInverse);
BENCHMARK(BM_RectifiedSkewOrthomorphicForward);
BENCHMARK(BM_RectifiedSkewOrthomorphicInverse);
BENCHMARK(BM_KrovakForward);
BENCHMARK(BM_KrovakInverse);
BENCHMARK(BM_NewZealandMapGridForward);
BENCHMARK(BM_NewZealandMapGridInverse);

}  // namespace
