// Array conversions against the single-point calls they stand for: every
// point must come out with the same bits, whatever it holds (signalling and
// quiet NaN, infinities, the largest doubles, latitudes beyond the poles),
// with separate output arrays and with outputs that are the input arrays.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "datum/DatumConverter.h"
#include "mapprojection/Cartography.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/TestFiles.h"

namespace {

using Values = std::vector<double>;

// Each value paired with each: 19 x 19 = 361 points. Ordinary longitudes,
// latitudes, eastings and northings stand among the hostile values, so both
// directions see real points as well.
void HostilePoints(Values& first, Values& second) {
    using limits = std::numeric_limits<double>;
    const double inf = limits::infinity(), nan = limits::quiet_NaN();
    const double snan = limits::signaling_NaN(), tiny = limits::denorm_min();
    const Values values = {0.0,    -0.0, 9.5,   48.25, -33.9, 537117.14, 5344208.12,
                           -2.6e6, 91.0, -95.0, 180.5, 1e308, -1e308,    inf,
                           -inf,   nan,  -nan,  snan,  tiny};
    first.clear();
    second.clear();
    for (double a : values) {
        for (double b : values) {
            first.push_back(a);
            second.push_back(b);
        }
    }
}

bool SameBits(const Values& u, const Values& v) {
    return u.size() == v.size() && std::memcmp(u.data(), v.data(), u.size() * sizeof(double)) == 0;
}

// A conversion of one point and its array form over count points.
template <class Point, class Array>
void ExpectArrayMatchesPoints(Point point, Array array) {
    Values a, b;
    HostilePoints(a, b);
    const std::size_t n = a.size();

    // Separate outputs, filled first: a system without algorithm leaves them
    // as they are or works on what they hold.
    Values expected1(n, 7.25), expected2(n, -7.25);
    for (std::size_t i = 0; i < n; ++i) point(a[i], b[i], &expected1[i], &expected2[i]);
    Values got1(n, 7.25), got2(n, -7.25);
    array(a.data(), b.data(), got1.data(), got2.data(), n);
    EXPECT_TRUE(SameBits(expected1, got1) && SameBits(expected2, got2)) << "separate outputs";

    // In place, and crossed (the first output is the second input): a loop
    // that wrote an output before reading both inputs of its point fails one
    // of these.
    for (bool crossed : {false, true}) {
        Values e1 = a, e2 = b, g1 = a, g2 = b;
        for (std::size_t i = 0; i < n; ++i)
            point(e1[i], e2[i], crossed ? &e2[i] : &e1[i], crossed ? &e1[i] : &e2[i]);
        if (crossed)
            array(g1.data(), g2.data(), g2.data(), g1.data(), n);
        else
            array(g1.data(), g2.data(), g1.data(), g2.data(), n);
        EXPECT_TRUE(SameBits(e1, g1) && SameBits(e2, g2)) << (crossed ? "crossed" : "in place");
    }
}

// Systems whose axes are plain, swapped, reversed, geographical, rotated and
// local, and a string that resolves to no algorithm at all.
std::vector<std::string> Systems() {
    return {
        "UTM-32",
        GxReadText("mapprojection/gk3_north_east.prj"),
        GxReadText("mapprojection/lo29_west_south.prj"),
        "LONG/LAT",
        "EURO-CORDEX rotated pole grid",
        "NON-UTM",
        "no such system",
    };
}

}  // namespace

TEST(BatchConversion, MapProjectionArraysMatchPointCalls) {
    for (const std::string& s : Systems()) {
        SCOPED_TRACE(s.substr(0, 50));
        const CGxMapProjection system(s);
        ExpectArrayMatchesPoints(
            [&](double a, double b, double* c, double* d) { system.Geo2Proj(a, b, c, d); },
            [&](const double* a, const double* b, double* c, double* d, std::size_t n) {
                system.Geo2Proj(a, b, c, d, n);
            });
        ExpectArrayMatchesPoints(
            [&](double a, double b, double* c, double* d) { system.Proj2Geo(a, b, c, d); },
            [&](const double* a, const double* b, double* c, double* d, std::size_t n) {
                system.Proj2Geo(a, b, c, d, n);
            });
    }
}

TEST(BatchConversion, CartographyArraysMatchPointCalls) {
    using Point = void (CGxCartography::*)(double, double, double*, double*) const;
    using Array =
        void (CGxCartography::*)(const double*, const double*, double*, double*, std::size_t) const;
    struct Member {
        const char* name;
        Point point;
        Array array;
    };
    const Member members[] = {
        {"Geo2Proj", &CGxCartography::Geo2Proj, &CGxCartography::Geo2Proj},
        {"Proj2Geo", &CGxCartography::Proj2Geo, &CGxCartography::Proj2Geo},
        {"Geo2Xy", &CGxCartography::Geo2Xy, &CGxCartography::Geo2Xy},
        {"Xy2Geo", &CGxCartography::Xy2Geo, &CGxCartography::Xy2Geo},
        {"Proj2Xy", &CGxCartography::Proj2Xy, &CGxCartography::Proj2Xy},
        {"Xy2Proj", &CGxCartography::Xy2Proj, &CGxCartography::Xy2Proj},
    };
    const CGxCartography grids[] = {
        CGxCartography("UTM-32", 9.5, 48.25, 10.0),
        CGxCartography(GxReadText("mapprojection/lo29_west_south.prj").c_str(), 29.7, -25.9, -5.0),
        CGxCartography("no such system", 9.5, 48.25, 10.0),
    };
    for (const CGxCartography& grid : grids) {
        for (const Member& m : members) {
            SCOPED_TRACE(std::string(m.name) + " over " + grid.GetProjectionName());
            ExpectArrayMatchesPoints(
                [&](double a, double b, double* c, double* d) { (grid.*m.point)(a, b, c, d); },
                [&](const double* a, const double* b, double* c, double* d, std::size_t n) {
                    (grid.*m.array)(a, b, c, d, n);
                });
        }
    }
}

// In place with and without heights, both directions, every conversion type,
// across datums (WGS 84 to ED50) and with a local grid on one side.
TEST(BatchConversion, DatumConverterArraysMatchPointCalls) {
    const std::string ed50 = GxReadText("wkt/ed50_utm32_towgs84_gdal.prj");
    CGxDatumConverter acrossDatums("UTM-32", ed50.c_str());
    CGxDatumConverter local("NON-UTM", "UTM-32");
    Values x, y;
    HostilePoints(x, y);
    const Values h(x.rbegin(), x.rend());
    for (CGxDatumConverter* converter : {&acrossDatums, &local}) {
        for (int type = 0; type < 4; ++type) {
            converter->SetConversionType(static_cast<CGxDatumConverter::ETypeOfConversion>(type));
            for (bool inverse : {false, true}) {
                for (bool heights : {false, true}) {
                    SCOPED_TRACE(testing::Message()
                                 << converter->GetMapProjection(true)->GetName() << " type " << type
                                 << " inverse " << inverse << " heights " << heights);
                    Values ex = x, ey = y, eh = h, gx = x, gy = y, gh = h;
                    for (std::size_t i = 0; i < x.size(); ++i) {
                        if (heights && inverse) converter->InvConvert(ex[i], ey[i], eh[i]);
                        if (heights && !inverse) converter->Convert(ex[i], ey[i], eh[i]);
                        if (!heights && inverse) converter->InvConvert(ex[i], ey[i]);
                        if (!heights && !inverse) converter->Convert(ex[i], ey[i]);
                    }
                    double* hs = heights ? gh.data() : nullptr;
                    if (inverse)
                        converter->InvConvert(gx.data(), gy.data(), hs, x.size());
                    else
                        converter->Convert(gx.data(), gy.data(), hs, x.size());
                    EXPECT_TRUE(SameBits(ex, gx) && SameBits(ey, gy) && SameBits(eh, gh));
                }
            }
        }
    }
}

// A null array (other than the heights) or a count of 0 writes nothing. A
// system without algorithm matters here: its point call still applies the
// axis rule to what the outputs hold.
TEST(BatchConversion, NullArraysAndZeroCountWriteNothing) {
    const double in[2] = {9.5, 48.25};
    const CGxMapProjection utm("UTM-32"), nothing("no such system");
    const CGxCartography grid("UTM-32", 9.5, 48.25, 10.0);
    const CGxDatumConverter converter("UTM-32", "LONG/LAT");
    double x[2] = {1.0, 2.0}, y[2] = {3.0, 4.0};

    utm.Geo2Proj(nullptr, in, x, y, 2);
    utm.Proj2Geo(in, in, x, nullptr, 2);
    nothing.Geo2Proj(in, nullptr, x, y, 2);
    nothing.Geo2Proj(in, in, x, y, 0);
    grid.Geo2Xy(in, nullptr, x, y, 2);
    grid.Xy2Geo(nullptr, in, x, y, 2);
    grid.Xy2Proj(in, in, nullptr, y, 2);
    converter.Convert(x, nullptr, y, 2);
    converter.InvConvert(nullptr, x, nullptr, 2);
    converter.Convert(x, y, nullptr, 0);
    utm.Geo2XYZ(in, nullptr, nullptr, x, y, y, 2);
    utm.Geo2XYZ(in, in, in, x, nullptr, y, 2);
    utm.XYZ2Geo(in, in, nullptr, x, y, y, 2);
    utm.XYZ2Geo(in, in, in, x, nullptr, nullptr, 2);
    utm.GetConvergence(in, in, nullptr, 2);
    nothing.GetConvergence(in, nullptr, x, 2);
    utm.Geo2XYZ(in, in, in, x, x, y, 0);
    EXPECT_TRUE(x[0] == 1.0 && x[1] == 2.0 && y[0] == 3.0 && y[1] == 4.0);
}

// Earth-centred coordinates and convergences: separate outputs and in place,
// with heights and without (a null height array is height 0 going and no
// heights coming back), over systems with and without an ellipsoid of their
// own. The hostile points include the polar axis (X = Y = 0) for XYZ2Geo.
TEST(BatchConversion, GeocentricAndConvergenceArraysMatchPointCalls) {
    Values a, b;
    HostilePoints(a, b);
    const Values c(a.rbegin(), a.rend());
    const std::size_t n = a.size();
    for (const std::string& s : Systems()) {
        SCOPED_TRACE(s.substr(0, 50));
        const CGxMapProjection system(s);
        for (bool heights : {true, false}) {
            SCOPED_TRACE(heights ? "with heights" : "without heights");
            Values e1(n, 7.25), e2(n, 7.25), e3(n, 7.25);
            for (std::size_t i = 0; i < n; ++i)
                system.Geo2XYZ(a[i], b[i], heights ? c[i] : 0.0, &e1[i], &e2[i], &e3[i]);
            Values g1(n, 7.25), g2(n, 7.25), g3(n, 7.25);
            system.Geo2XYZ(a.data(), b.data(), heights ? c.data() : nullptr, g1.data(), g2.data(),
                           g3.data(), n);
            EXPECT_TRUE(SameBits(e1, g1) && SameBits(e2, g2) && SameBits(e3, g3)) << "Geo2XYZ";

            Values u1(n, 7.25), u2(n, 7.25), u3(n, 7.25);
            for (std::size_t i = 0; i < n; ++i)
                system.XYZ2Geo(a[i], b[i], c[i], &u1[i], &u2[i], &u3[i]);
            if (!heights) u3.assign(n, 7.25);
            Values v1(n, 7.25), v2(n, 7.25), v3(n, 7.25);
            system.XYZ2Geo(a.data(), b.data(), c.data(), v1.data(), v2.data(),
                           heights ? v3.data() : nullptr, n);
            EXPECT_TRUE(SameBits(u1, v1) && SameBits(u2, v2) && SameBits(u3, v3)) << "XYZ2Geo";
        }

        // In place, both directions: each point's three inputs are read
        // before any of its outputs is written.
        Values e1 = a, e2 = b, e3 = c;
        for (std::size_t i = 0; i < n; ++i)
            system.Geo2XYZ(a[i], b[i], c[i], &e1[i], &e2[i], &e3[i]);
        Values g1 = a, g2 = b, g3 = c;
        system.Geo2XYZ(g1.data(), g2.data(), g3.data(), g1.data(), g2.data(), g3.data(), n);
        EXPECT_TRUE(SameBits(e1, g1) && SameBits(e2, g2) && SameBits(e3, g3)) << "Geo2XYZ in place";
        for (std::size_t i = 0; i < n; ++i)
            system.XYZ2Geo(a[i], b[i], c[i], &e1[i], &e2[i], &e3[i]);
        g1 = a, g2 = b, g3 = c;
        system.XYZ2Geo(g1.data(), g2.data(), g3.data(), g1.data(), g2.data(), g3.data(), n);
        EXPECT_TRUE(SameBits(e1, g1) && SameBits(e2, g2) && SameBits(e3, g3)) << "XYZ2Geo in place";

        Values expected(n);
        for (std::size_t i = 0; i < n; ++i) expected[i] = system.GetConvergence(a[i], b[i]);
        Values got(n, 7.25);
        system.GetConvergence(a.data(), b.data(), got.data(), n);
        EXPECT_TRUE(SameBits(expected, got)) << "convergence";
        got = b;
        system.GetConvergence(a.data(), got.data(), got.data(), n);
        EXPECT_TRUE(SameBits(expected, got)) << "convergence in place";
    }
}
