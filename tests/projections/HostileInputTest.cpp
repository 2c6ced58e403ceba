// Every algorithm against numbers no caller should send: NaN, infinities,
// values near the limits of a double, latitudes beyond the poles, longitudes
// many turns away and origins no real grid has. Conversions never fail: each
// call must come back (no endless longitude reduction, no iteration without a
// limit), and, under the sanitisers, without undefined behaviour such as a
// float-to-int conversion of a huge value. Results are what the formulas
// give; they are asserted where the answer is defined (NaN in gives NaN out,
// a point still on the grid keeps its place).

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "catalogue/CartSetup.h"
#include "definitions/MapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "mapprojection/MapProjection.h"
#include "projections/AlbersEqualArea.h"
#include "projections/CassiniSoldner.h"
#include "projections/EquidistantConic.h"
#include "projections/IsoMetric.h"
#include "projections/Lambert2SP.h"
#include "projections/LambertAzimuthalEqualArea.h"
#include "projections/Mercator1SP.h"
#include "projections/NewZealandMapGrid.h"
#include "projections/RotatedLongitudeLatitude.h"
#include "projections/Stereographic.h"
#include "projections/StereographicNorthPole.h"
#include "projections/StereographicSouthPole.h"
#include "projections/TransverseMercator.h"
#include "projections/TransverseMercatorJHS.h"
#include "tests/support/Figures.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::nan("");

const std::vector<double> kLongitudes = {kNaN, kInf, -kInf, 1e308, -1e308, 1e-308, -1e-308, 721,
                                         -721, 1e6,  -1e6,  1e300, -1e300, 1e20,   0,       10};
const std::vector<double> kLatitudes = {kNaN,    kInf,       -kInf,       1e308, -1e308, 1e-308,
                                        -1e-308, 90.0000001, -90.0000001, 91,    -91,    180,
                                        -180,    1e300,      1e6,         -1e6,  0,      45};
const std::vector<double> kPlane = {kNaN,  kInf, -kInf, 1e308, -1e308, 1e-308, -1e-308, 1e12,
                                    -1e12, 1e6,  -1e6,  1e300, -1e300, 0,      5e5};

// A figure without a major axis: the New Zealand grid scales its false
// origin to 0/0 on it.
const CGxEllipsoid kNoAxis("none", "N", 0, 0);
constexpr double kNzFalseEasting = 2510000, kNzFalseNorthing = 6023150;

using Algorithm = std::unique_ptr<CGxProjection>;

struct Subject {
    std::string label;
    Algorithm algorithm;
};

// The texts of the reader's test files; their sphere variants (the same
// system on a sphere of radius 6371 km) reach the spherical forms.
std::vector<std::string> PrjTexts() {
    std::vector<std::string> texts;
    const char* files[] = {"25832_gdal.prj", "2154_gdal.prj", "27572_gdal.prj", "28992_gdal.prj",
                           "5514_gdal.prj",  "3577_gdal.prj", "3035_gdal.prj",  "27200_gdal.prj",
                           "29873_gdal.prj", "2056_gdal.prj", "3031_gdal.prj",  "3413_gdal.prj",
                           "32661_gdal.prj", "3395_gdal.prj", "3857_gdal.prj",  "3994_gdal.prj",
                           "3068_gdal.prj",  "eqdc_gdal.prj", "22275_gdal.prj", "4326_gdal.prj",
                           "31700_gdal.prj", "2263_gdal.prj", "26931_gdal.prj"};
    for (const char* f : files) {
        std::ifstream in(std::string(GXCART_TEST_DATA) + "/wkt/" + f);
        std::string line;
        std::getline(in, line);
        if (line.empty()) ADD_FAILURE() << "cannot read " << f;
        texts.push_back(line);
    }
    return texts;
}

// Grids built from values that the texts and the catalogue do not reach: both
// Transverse Mercator forms on UTM zone 32, the wrappers in each of their
// aspects on an ellipsoid and on a sphere, the rotated grid on an ellipsoid,
// the New Zealand grid without a major axis and the affine grid.
std::vector<Subject> ValueBuilt() {
    std::vector<Subject> out;
    auto add = [&out](const std::string& label, CGxProjection* p) {
        out.push_back({label, Algorithm(p)});
    };
    add("TM series UTM 32", new CGxTransverseMercatorJHS("TM", 0.9996, 9, 0, 500000, 0, kGxWgs84));
    add("TM Gauss-Krueger UTM 32",
        new CGxTransverseMercator("TM", 0.9996, 9, 0, 500000, 0, kGxWgs84));
    for (const CGxEllipsoid* e : {&kGxWgs84, &kGxSphere}) {
        const std::string figure = " on " + e->GetName();
        add("Albers" + figure,
            new CGxAlbersEqualArea("Albers", 29.5, 45.5, -96, 23, 500000, 100000, *e));
        add("LAEA" + figure, new CGxLambertAzimuthalEqualArea("LAEA", 10, 52, 0, 0, *e));
        add("LAEA polar" + figure, new CGxLambertAzimuthalEqualArea("Polar", 0, 90, 0, 0, *e));
        add("Cassini" + figure, new CGxCassiniSoldner("Cassini", 12, 50, 0, 0, *e));
        add("Eqdc" + figure, new CGxEquidistantConic("Eqdc", 29.5, 45.5, -96, 23, 0, 0, *e));
    }
    add("rotated GRS80", new CGxRotatedLongitudeLatitude("Rotated", 18, -39.25, 0, kGxGrs80));
    add("NZMG", new CGxNewZealandMapGrid("NZMG", 173, -41, kNzFalseEasting, kNzFalseNorthing,
                                         kGxInternational));
    add("NZMG without axis",
        new CGxNewZealandMapGrid("none", 173, -41, kNzFalseEasting, kNzFalseNorthing, kNoAxis));
    add("isometric", new CGxIsoMetric(0, 0, 1000, 0, 0, 1000, 10, 50, 10.01, 50.01));
    add("Lambert-93", new CGxLambert2SP("L", 49, 44, 3, 46.5, 700000, 6600000, kGxGrs80));
    add("Mercator", new CGxMercator1SP("M", 0.997, 110, 3900000, 900000, kGxWgs84));
    add("stereographic RD", new CGxStereographic("RD", 0.9999079, 5.38763888888889,
                                                 52.15616055555555, 155000, 463000, kGxBessel));
    add("stereographic north", new CGxStereographic("N", 0.994, 0, 90, 2000000, 2000000, kGxWgs84));
    add("stereographic south",
        new CGxStereographic("S", 0.97, -30, -90, 1500000, 2500000, kGxInternational));
    add("north pole", new CGxStereographicNorthPole("N", 70, -45, 0, 0, kGxWgs84));
    add("south pole", new CGxStereographicSouthPole("S", -71, 0, 0, 0, kGxWgs84));
    return out;
}

std::vector<Subject> AllAlgorithms() {
    std::vector<Subject> out = ValueBuilt();
    auto add = [&out](const std::string& label, CGxProjection* p) {
        if (p) out.push_back({label, Algorithm(p)});
    };
    const std::regex spheroid(R"(SPHEROID\["[^"]*",[^,\]]+,[^,\]]+)");
    for (const std::string& text : PrjTexts()) {
        add(text.substr(0, 60), CGxMapProjection::GetProjection(text.c_str(), nullptr));
        const std::string sphere =
            std::regex_replace(text, spheroid, R"(SPHEROID["Sphere",6371000,0)");
        add("sphere " + text.substr(0, 60),
            CGxMapProjection::GetProjection(sphere.c_str(), nullptr));
    }
    // The first catalogue definition of every type, and the default
    // definition of every type (which names no ellipsoid: a figure of zero
    // size).
    bool seen[32] = {};
    CGxMapProjectionList& catalogue = CGxCartSetup::Instance().GetMapProjectionList();
    for (auto it = catalogue.GetIteratorBegin(); it != catalogue.GetIteratorEnd(); ++it) {
        const int type = (*it)->GetProjectionType();
        if (type < 0 || type >= 32 || seen[type]) continue;
        seen[type] = true;
        add((*it)->GetName(), (*it)->CreateProjection());
    }
    for (int i = 0; i < CGxMapProjData::GetNoOfProjections(); ++i) {
        const auto type = CGxMapProjData::Enum2ProjectionType(i);
        std::unique_ptr<CGxMapProjData> def(CGxMapProjData::CreateDefaultParameterProjection(type));
        if (def) add("default " + def->GetProjectionTypeTitle(), def->CreateProjection());
    }
    return out;
}

// A call that returns at all is the test; the time bound turns a loop that
// only ends after billions of turns into a failure rather than a slow pass.
constexpr double kSecondsPerSubject = 2.0;

// Where the answer is defined: which outputs a probe must give as NaN.
enum class Outcome {
    eBothNaN,
    eFirstNaN,
    eSecondNaN,
    eEitherNaN,
};

struct Probe {
    bool forward;  // Geo2Proj of (a, b), else Proj2Geo
    double a, b;
    Outcome outcome;
};

struct NaNCase {
    std::string label;  // a label of ValueBuilt()
    std::vector<Probe> probes;
};

const Probe kTransverseMercatorProbes[] = {
    {true, kNaN, 10, Outcome::eBothNaN},
    {true, 10, kNaN, Outcome::eBothNaN},
    {false, kNaN, 1000, Outcome::eBothNaN},
};
const Probe kWrapperProbes[] = {
    {true, kNaN, 45, Outcome::eFirstNaN},
    {false, kNaN, kNaN, Outcome::eEitherNaN},
};

std::vector<NaNCase> NaNCases() {
    std::vector<NaNCase> cases;
    for (const char* tm : {"TM series UTM 32", "TM Gauss-Krueger UTM 32"})
        cases.push_back(
            {tm, {std::begin(kTransverseMercatorProbes), std::end(kTransverseMercatorProbes)}});
    for (const char* wrapper : {"Albers", "LAEA", "LAEA polar", "Cassini", "Eqdc"}) {
        for (const char* figure : {" on WGS 84", " on Sphere"}) {
            cases.push_back({std::string(wrapper) + figure,
                             {std::begin(kWrapperProbes), std::end(kWrapperProbes)}});
        }
    }
    std::vector<Probe> rotated;
    for (const auto& in :
         {std::pair<double, double>{kNaN, 45}, {10, kNaN}, {kInf, 45}, {10, -kInf}}) {
        rotated.push_back({true, in.first, in.second, Outcome::eEitherNaN});
        rotated.push_back({false, in.first, in.second, Outcome::eEitherNaN});
    }
    cases.push_back({"rotated GRS80", rotated});
    // NaN is no latitude beyond the pole: the cone's clamp of the isometric
    // term must not send it to the apex. Beyond a pole the Mercator has no
    // point.
    cases.push_back({"Lambert-93",
                     {{true, 3, kNaN, Outcome::eEitherNaN},
                      {true, kNaN, 45, Outcome::eBothNaN},
                      {false, kNaN, 6600000, Outcome::eBothNaN}}});
    cases.push_back({"Mercator",
                     {{true, kNaN, kNaN, Outcome::eBothNaN},
                      {false, kNaN, kNaN, Outcome::eBothNaN},
                      {true, 110, 95, Outcome::eSecondNaN}}});
    for (const char* stereographic :
         {"stereographic RD", "stereographic north", "stereographic south"}) {
        cases.push_back(
            {stereographic,
             {{true, kNaN, 50, Outcome::eBothNaN}, {false, kNaN, kNaN, Outcome::eSecondNaN}}});
    }
    cases.push_back({"north pole", {{true, kNaN, 70, Outcome::eBothNaN}}});
    cases.push_back({"south pole", {{false, kNaN, 0, Outcome::eSecondNaN}}});
    cases.push_back({"NZMG",
                     {{false, kNaN, kNzFalseNorthing, Outcome::eBothNaN},
                      {true, kNaN, -41, Outcome::eFirstNaN}}});
    // A zero major axis scales the false origin to 0/0, whose NaN goes
    // through.
    cases.push_back(
        {"NZMG without axis", {{false, kNzFalseEasting, kNzFalseNorthing, Outcome::eBothNaN}}});
    return cases;
}

}  // namespace

TEST(HostileInput, EveryAlgorithmReturnsFromEveryCall) {
    const std::vector<Subject> subjects = AllAlgorithms();
    // Every algorithm class but the gnomonic placeholder, which aborts by
    // design.
    std::set<std::string> classes;
    for (const Subject& s : subjects) classes.insert(typeid(*s.algorithm).name());
    ASSERT_EQ(classes.size(), 22u);
    for (const Subject& s : subjects) {
        SCOPED_TRACE(s.label);
        const CGxProjection& p = *s.algorithm;
        const auto start = std::chrono::steady_clock::now();
        double x, y, lon, lat, sink = 0;
        for (double lo : kLongitudes) {
            for (double la : kLatitudes) {
                p.Geo2Proj(lo, la, &x, &y);
                sink += x + y + p.GetConvergence(lo, la);
            }
        }
        for (double a : kPlane) {
            for (double b : kPlane) {
                p.Proj2Geo(a, b, &lon, &lat);
                sink += lon + lat;
            }
        }
        double area[4];
        p.GetDefaultArea(&area[0], &area[1], &area[2], &area[3]);
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        EXPECT_LT(spent.count(), kSecondsPerSubject);
        (void)sink;
    }
}

// NaN in gives NaN out, in the outputs the formulas carry it to.
TEST(HostileInput, NaNGivesNaN) {
    const std::vector<Subject> subjects = ValueBuilt();
    for (const NaNCase& c : NaNCases()) {
        SCOPED_TRACE(c.label);
        const CGxProjection* p = nullptr;
        for (const Subject& s : subjects) {
            if (s.label == c.label) p = s.algorithm.get();
        }
        ASSERT_NE(p, nullptr);
        for (const Probe& probe : c.probes) {
            SCOPED_TRACE(testing::Message() << (probe.forward ? "forward " : "inverse ") << probe.a
                                            << ", " << probe.b);
            double u = 0, v = 0;
            if (probe.forward)
                p->Geo2Proj(probe.a, probe.b, &u, &v);
            else
                p->Proj2Geo(probe.a, probe.b, &u, &v);
            switch (probe.outcome) {
                case Outcome::eBothNaN:
                    EXPECT_TRUE(std::isnan(u) && std::isnan(v)) << u << ", " << v;
                    break;
                case Outcome::eFirstNaN:
                    EXPECT_TRUE(std::isnan(u)) << u;
                    break;
                case Outcome::eSecondNaN:
                    EXPECT_TRUE(std::isnan(v)) << v;
                    break;
                case Outcome::eEitherNaN:
                    EXPECT_TRUE(std::isnan(u) || std::isnan(v)) << u << ", " << v;
                    break;
            }
        }
    }
    // Without a major axis there is no figure to hand out.
    CGxEllipsoid out;
    EXPECT_FALSE(CGxNewZealandMapGrid("none", 173, -41, kNzFalseEasting, kNzFalseNorthing, kNoAxis)
                     .GetAnonymousEllipsoid(out));
}

// The Transverse Mercator reduces any finite longitude to within half a turn
// of its central meridian, so a longitude given as many turns away, however
// far, still lands on the grid. (The point scale beside it is a series in the
// unreduced longitude difference and may overflow; it only has to return.)
TEST(HostileInput, TransverseMercatorReducesAnyFiniteLongitude) {
    const CGxTransverseMercator classic("TM", 0.9996, 9, 0, 500000, 0, kGxGrs80);
    const Algorithm series(CGxMapProjection::GetProjection("UTM-32", nullptr));
    ASSERT_TRUE(series);
    for (double lon : {729.0, -711.0, 1e6, -1e6, 1e15, 1e300, -1e308, 1e-308}) {
        SCOPED_TRACE(lon);
        const CGxProjection* both[] = {&classic, series.get()};
        for (const CGxProjection* p : both) {
            double x = kNaN, y = kNaN;
            p->Geo2Proj(lon, 45, &x, &y);
            EXPECT_TRUE(std::isfinite(x) && std::isfinite(y)) << x << " " << y;
        }
    }
    for (double lo : kLongitudes) {
        for (double la : kLatitudes) classic.GetScaleFactor(lo, la);
    }
}

// Found by fuzzing: a WKT whose angular unit factor read 5.017 instead of
// 0.01745 gave a central meridian near 2.9e19 degrees, and the default area
// never came back. Its corners are taken around the origin longitude, which
// returns from radians a few units in the last place off; the forward
// conversion then brought that longitude next to the origin by adding whole
// turns, but at that size a turn is below half a unit in the last place and
// left the value unchanged for ever.
TEST(HostileInput, HugeCentralMeridianEndsConversion) {
    const double kFromFuzzInput = 99999999999999999.0 * (5.0174532925199433 / 0.017453292519943295);
    for (double lon0 = 1e14; lon0 < 1e21; lon0 *= 1.7) {
        for (double sign : {1.0, -1.0}) {
            const CGxTransverseMercatorJHS tm("far", 0.9996, sign * lon0, 0.0, 500000.0, 0.0,
                                              kGxWgs84);
            double x0, y0, x1, y1;
            tm.GetDefaultArea(&x0, &y0, &x1, &y1);
        }
    }
    const CGxTransverseMercatorJHS tm("far", 0.9996, kFromFuzzInput, 0.0, 500000.0, 0.0, kGxWgs84);
    double x0, y0, x1, y1;
    tm.GetDefaultArea(&x0, &y0, &x1, &y1);
}

// A point exactly on such a meridian is still on the central meridian: false
// easting and the meridian arc.
TEST(HostileInput, PointOnHugeCentralMeridian) {
    // echo "9 9 0 0" | cct -d 6 +proj=tmerc +lon_0=9 +k=0.9996 +x_0=500000 +ellps=WGS84
    const double kNorthingAt9 = 994852.177285;
    for (double lon0 : {2.875e19, -1e17, 1e300}) {
        SCOPED_TRACE(lon0);
        const CGxTransverseMercatorJHS tm("far", 0.9996, lon0, 0.0, 500000.0, 0.0, kGxWgs84);
        double x = 0, y = 0;
        tm.Geo2Proj(lon0, 9.0, &x, &y);
        EXPECT_DOUBLE_EQ(x, 500000.0);
        EXPECT_NEAR(y, kNorthingAt9, 1e-3);
    }
}

// The facade adds the axis rules, the geocentric conversion and the
// geodesics; none of them may fail on these numbers either.
TEST(HostileInput, MapProjectionOperationsReturn) {
    for (const char* name : {"UTM-32", "LONG/LAT", "NON-UTM", "WGS 84 / UPS North (E,N)"}) {
        SCOPED_TRACE(name);
        const CGxMapProjection m(name);
        ASSERT_NE(m.GetProjection(), nullptr);
        for (double lo : kLongitudes) {
            for (double la : kLatitudes) {
                double x, y, z, lon, lat, h, d, az1, az2;
                m.Geo2Proj(lo, la, &x, &y);
                m.Proj2Geo(lo, la, &lon, &lat);
                m.GetConvergence(lo, la);
                m.Geo2XYZ(lo, la, la, &x, &y, &z);
                m.XYZ2Geo(lo, la, lo, &lon, &lat, &h);
                m.GetPoint(10, 50, lo, la, lon, lat, az1);
                m.GetPoint(lo, la, 30, 1e5, lon, lat, az1);
                // A failed root search of the inverse geodesic stays inside.
                EXPECT_NO_THROW(m.GetDistance(lo, la, 10, 50, d, az1, az2));
            }
        }
    }
}
