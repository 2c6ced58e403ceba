// Speed and agreement of GxCart beside PROJ, one projection type per line.
//
// For each type the same pseudo-random points inside the grid's area of use
// are converted by GxCart (a CGxMapProjection built from a .prj text or a
// catalogue name, through its array conversions) and by PROJ
// (proj_trans_generic on a pipeline of the grid's PROJ definition behind a
// degree-to-radian step, so both take degrees and give metres). The rounds
// interleave the two libraries and alternate which goes first, so a change
// of machine load falls on both; the table gives the median time per point
// of each, their ratio (GxCart / PROJ, below 1 is faster) and the largest
// difference of the two outputs: metres forward, degrees inverse (the
// inverse starts from PROJ's grid coordinates).
//
//   gxcart_proj_compare [--points N] [--rounds R] [--only TEXT]
//
// PROJ is only a yardstick here: this program is built when its development
// package is found and nothing else depends on it.

#include <proj.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/Ellipsoid.h"
#include "mapprojection/MapProjection.h"
#include "projections/TransverseMercator.h"

namespace {

// One comparison: how GxCart is reached, PROJ's definition of the same grid
// (the commands of tests/data/wkt/grid_points.txt), and the area of use the
// points fill.
struct GxCase {
    const char* label;
    const char* gxcart;  // a .prj file of the WKT test data, or a catalogue name
    const char* proj;
    double west, east, south, north;
};

// The grids are those of the WKT reader's test texts, so every line here has
// a reference table in the tests as well.
const GxCase kCases[] = {
    {"Transverse Mercator (UTM-32)", "UTM-32", "+proj=utm +zone=32 +ellps=WGS84", 6, 12, 0, 84},
    {"Gauss-Krueger TM class (zone 32)", "", "+proj=utm +zone=32 +ellps=WGS84", 6, 12, 0, 84},
    {"Lambert 2SP (Lambert-93)", "2154_gdal.prj",
     "+proj=lcc +lat_0=46.5 +lon_0=3 +lat_1=49 +lat_2=44 +x_0=700000 +y_0=6600000 +ellps=GRS80", -5,
     10, 41, 51.5},
    {"Lambert 1SP (NTF Lambert II)", "27572_gdal.prj",
     "+proj=lcc +lat_1=46.8 +lat_0=46.8 +lon_0=0 +k_0=0.99987742 +x_0=600000 +y_0=2200000 "
     "+ellps=clrk80ign +pm=2.33722917",
     -5, 10, 42, 51.5},
    {"Mercator 1SP (World Mercator)", "3395_gdal.prj", "+proj=merc +lon_0=0 +k=1 +ellps=WGS84",
     -180, 180, -80, 84},
    {"Mercator 2SP (Mercator 41)", "3994_gdal.prj",
     "+proj=merc +lat_ts=-41 +lon_0=100 +ellps=WGS84", 40, 160, -60, 0},
    {"Oblique stereographic (RD New)", "28992_gdal.prj",
     "+proj=sterea +lat_0=52.1561605555556 +lon_0=5.38763888888889 +k=0.9999079 +x_0=155000 "
     "+y_0=463000 +ellps=bessel",
     3.2, 7.3, 50.7, 53.6},
    {"Polar stereographic (UPS North)", "32661_gdal.prj",
     "+proj=stere +lat_0=90 +lon_0=0 +k=0.994 +x_0=2000000 +y_0=2000000 +ellps=WGS84", -180, 180,
     60, 90},
    {"Stereographic north pole (3413)", "3413_esri.prj",
     "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +ellps=WGS84", -180, 180, 60, 90},
    {"Stereographic south pole (3031)", "3031_esri.prj",
     "+proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=0 +ellps=WGS84", -180, 180, -90, -60},
    {"Hotine oblique Mercator (Alaska 1)", "26931_gdal.prj",
     "+proj=omerc +no_uoff +lat_0=57 +lonc=-133.666666666667 +alpha=323.130102361111 "
     "+gamma=323.130102361111 +k=0.9999 +x_0=5000000 +y_0=-5000000 +ellps=GRS80",
     -141, -129, 54, 60},
    {"Oblique Mercator (Swiss LV95)", "2056_gdal.prj",
     "+proj=somerc +lat_0=46.9524055555556 +lon_0=7.43958333333333 +k_0=1 +x_0=2600000 "
     "+y_0=1200000 +ellps=bessel",
     5.9, 10.5, 45.8, 47.8},
    {"Rectified skew orthomorphic (Borneo)", "29873_gdal.prj",
     "+proj=omerc +no_uoff +lat_0=4 +lonc=115 +alpha=53.3158204722222 +gamma=53.1301023611111 "
     "+k=0.99984 +x_0=590476.87 +y_0=442857.65 +ellps=evrstSS",
     109.5, 119.5, 0.8, 7.5},
    {"Krovak (S-JTSK east-north)", "5514_esri.prj",
     "+proj=krovak +lat_0=49.5 +lon_0=24.8333333333333 +alpha=30.2881397527778 +k=0.9999 "
     "+ellps=bessel",
     12, 22.6, 47.7, 51.1},
    {"New Zealand map grid", "27200_gdal.prj",
     "+proj=nzmg +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150 +ellps=intl", 166.4, 178.6, -47.3,
     -34.4},
    {"Albers equal area (CONUS)", "5070_gdal.prj",
     "+proj=aea +lat_0=23 +lon_0=-96 +lat_1=29.5 +lat_2=45.5 +ellps=GRS80", -125, -66, 24, 50},
    {"Lambert azimuthal equal area (Europe)", "3035_gdal.prj",
     "+proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000 +ellps=GRS80", -16, 40, 32, 72},
    {"Cassini-Soldner (Soldner Berlin)", "3068_gdal.prj",
     "+proj=cass +lat_0=52.4186482777778 +lon_0=13.6272036666667 +x_0=40000 +y_0=10000 "
     "+ellps=bessel",
     13, 14, 52.3, 52.7},
    {"Equidistant conic (North America)", "eqdc_gdal.prj",
     "+proj=eqdc +lat_0=40 +lon_0=-96 +lat_1=20 +lat_2=60 +ellps=GRS80", -125, -66, 24, 50},
    {"Geographical (WGS 84)", "4326_gdal.prj", "+proj=longlat +ellps=WGS84", -180, 180, -90, 90},
};

using GxBatch = std::function<void(const double*, const double*, double*, double*, std::size_t)>;

// GxCart's side of one case: forward (degrees to grid) and inverse.
struct GxSide {
    GxBatch forward, inverse;
    std::shared_ptr<void> owner;
};

std::string ReadText(const std::string& path) {
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    std::string s = text.str();
    while (!s.empty() && (s.back() == '\n' || s.back() == '\r')) s.pop_back();
    return s;
}

// The library's own paths through the array conversions; only the
// Gauss-Krueger class, which the library never builds from a text, is called
// directly, point by point.
bool MakeGxCart(const GxCase& c, GxSide* side) {
    if (!*c.gxcart) {
        static const CGxEllipsoid wgs84("WGS 84", "WE", 6378137.0, 298.257223563);
        auto tm = std::make_shared<CGxTransverseMercator>("GK 32", 0.9996, 9.0, 0.0, 500000.0, 0.0,
                                                          wgs84);
        side->owner = tm;
        side->forward = [p = tm.get()](const double* lon, const double* lat, double* x, double* y,
                                       std::size_t n) {
            for (std::size_t i = 0; i < n; ++i) p->Geo2Proj(lon[i], lat[i], &x[i], &y[i]);
        };
        side->inverse = [p = tm.get()](const double* x, const double* y, double* lon, double* lat,
                                       std::size_t n) {
            for (std::size_t i = 0; i < n; ++i) p->Proj2Geo(x[i], y[i], &lon[i], &lat[i]);
        };
        return true;
    }
    const std::string name = c.gxcart;
    const bool isFile = name.size() > 4 && name.compare(name.size() - 4, 4, ".prj") == 0;
    const std::string text = isFile ? ReadText(std::string(GXCART_WKT_DIR "/") + name) : name;
    auto mp = std::make_shared<CGxMapProjection>(text);
    if (!mp->GetProjection()) return false;
    side->owner = mp;
    side->forward = [p = mp.get()](const double* lon, const double* lat, double* x, double* y,
                                   std::size_t n) { p->Geo2Proj(lon, lat, x, y, n); };
    side->inverse = [p = mp.get()](const double* x, const double* y, double* lon, double* lat,
                                   std::size_t n) { p->Proj2Geo(x, y, lon, lat, n); };
    return true;
}

// PROJ's side: degrees in, metres out (and a last step back to degrees for
// the geographical system, whose "grid" is longitude and latitude).
PJ* MakeProj(PJ_CONTEXT* ctx, const GxCase& c) {
    std::string pipeline = "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step ";
    pipeline += c.proj;
    if (std::strstr(c.proj, "+proj=longlat"))
        pipeline += " +step +proj=unitconvert +xy_in=rad +xy_out=deg";
    return proj_create(ctx, pipeline.c_str());
}

void ProjRun(PJ* p, PJ_DIRECTION direction, std::vector<double>& u, std::vector<double>& v) {
    proj_trans_generic(p, direction, u.data(), sizeof(double), u.size(), v.data(), sizeof(double),
                       v.size(), nullptr, 0, 0, nullptr, 0, 0);
}

// A fixed stream of uniform numbers in [0, 1) (splitmix64), so every run and
// every build converts the same points.
class GxUniform {
public:
    double Next() {
        std::uint64_t z = (state += 0x9e3779b97f4a7c15ull);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
        z ^= z >> 31;
        return static_cast<double>(z >> 11) * 0x1.0p-53;
    }

private:
    std::uint64_t state = 20240601;
};

double Seconds(const std::function<void()>& work) {
    const auto t0 = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

double Median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    const std::size_t m = v.size() / 2;
    return v.size() % 2 ? v[m] : 0.5 * (v[m - 1] + v[m]);
}

// Largest difference of two outputs over the points both give; points that
// only one of the two gives are counted apart. Longitude differences are
// taken modulo 360 degrees.
struct GxDiff {
    double max = 0;
    std::size_t unmatched = 0;
};

GxDiff Compare(const std::vector<double>& u0, const std::vector<double>& v0,
               const std::vector<double>& u1, const std::vector<double>& v1, bool angles) {
    GxDiff d;
    for (std::size_t i = 0; i < u0.size(); ++i) {
        const bool finite0 = std::isfinite(u0[i]) && std::isfinite(v0[i]);
        const bool finite1 = std::isfinite(u1[i]) && std::isfinite(v1[i]);
        if (finite0 != finite1) ++d.unmatched;
        if (!finite0 || !finite1) continue;
        double du = std::fabs(u0[i] - u1[i]);
        const double dv = std::fabs(v0[i] - v1[i]);
        if (angles) {
            du = std::fmod(du, 360.0);
            du = std::min(du, 360.0 - du);
            d.max = std::max({d.max, du, dv});
        } else {
            d.max = std::max(d.max, std::hypot(du, dv));
        }
    }
    return d;
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t points = 1000000;
    int rounds = 7;
    std::string only;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (!std::strcmp(argv[i], "--points"))
            points = std::strtoul(argv[i + 1], nullptr, 10);
        else if (!std::strcmp(argv[i], "--rounds"))
            rounds = std::atoi(argv[i + 1]);
        else if (!std::strcmp(argv[i], "--only"))
            only = argv[i + 1];
    }
    if (points == 0 || rounds < 1) {
        std::fprintf(stderr, "usage: %s [--points N] [--rounds R] [--only TEXT]\n", argv[0]);
        return 2;
    }

    PJ_CONTEXT* ctx = proj_context_create();
    std::printf("GxCart beside PROJ %s: %zu points per type, median of %d rounds, ns per point\n\n",
                proj_info().version, points, rounds);
    std::printf("%-38s %9s %9s %6s  %9s %9s %6s  %10s %10s\n", "type", "fwd Gx", "fwd PROJ",
                "ratio", "inv Gx", "inv PROJ", "ratio", "fwd diff m", "inv diff deg");

    int failures = 0;
    for (const GxCase& c : kCases) {
        if (!only.empty() && std::string(c.label).find(only) == std::string::npos) continue;
        GxSide gx;
        PJ* pj = MakeProj(ctx, c);
        if (!MakeGxCart(c, &gx) || !pj) {
            std::printf("%-38s not built (%s)\n", c.label, pj ? "GxCart" : "PROJ");
            ++failures;
            proj_destroy(pj);
            continue;
        }

        GxUniform uniform;
        std::vector<double> lon(points), lat(points);
        for (std::size_t i = 0; i < points; ++i) {
            lon[i] = c.west + (c.east - c.west) * uniform.Next();
            lat[i] = c.south + (c.north - c.south) * uniform.Next();
        }
        // PROJ's grid coordinates are the input of both inverses.
        std::vector<double> east(lon), north(lat);
        ProjRun(pj, PJ_FWD, east, north);

        std::vector<double> gxX(points), gxY(points), gxLon(points), gxLat(points);
        std::vector<double> pjX, pjY, pjLon, pjLat;
        std::vector<double> tGxF, tPjF, tGxI, tPjI;
        for (int r = 0; r < rounds; ++r) {
            // PROJ converts in place: its inputs are copied outside the clock.
            pjX = lon, pjY = lat, pjLon = east, pjLat = north;
            const auto gxF = [&] {
                tGxF.push_back(Seconds(
                    [&] { gx.forward(lon.data(), lat.data(), gxX.data(), gxY.data(), points); }));
            };
            const auto pjF = [&] {
                tPjF.push_back(Seconds([&] { ProjRun(pj, PJ_FWD, pjX, pjY); }));
            };
            const auto gxI = [&] {
                tGxI.push_back(Seconds([&] {
                    gx.inverse(east.data(), north.data(), gxLon.data(), gxLat.data(), points);
                }));
            };
            const auto pjI = [&] {
                tPjI.push_back(Seconds([&] { ProjRun(pj, PJ_INV, pjLon, pjLat); }));
            };
            if (r % 2 == 0) {
                gxF(), pjF(), gxI(), pjI();
            } else {
                pjF(), gxF(), pjI(), gxI();
            }
        }

        const double ns = 1e9 / static_cast<double>(points);
        const double gf = Median(tGxF) * ns, pf = Median(tPjF) * ns;
        const double gi = Median(tGxI) * ns, pi = Median(tPjI) * ns;
        const GxDiff df = Compare(gxX, gxY, pjX, pjY, std::strstr(c.proj, "longlat") != nullptr);
        const GxDiff di = Compare(gxLon, gxLat, pjLon, pjLat, true);
        std::printf("%-38s %9.1f %9.1f %6.2f  %9.1f %9.1f %6.2f  %10.3g %10.3g", c.label, gf, pf,
                    gf / pf, gi, pi, gi / pi, df.max, di.max);
        if (df.unmatched || di.unmatched)
            std::printf("  (%zu / %zu points converted by one library only)", df.unmatched,
                        di.unmatched);
        std::printf("\n");
        std::fflush(stdout);
        proj_destroy(pj);
    }
    proj_context_destroy(ctx);
    return failures ? 1 : 0;
}
