// Every algorithm against numbers no caller should send: NaN, infinities,
// values near the limits of a double, latitudes beyond the poles and
// longitudes many turns away. Conversions never fail: each call must come
// back (no endless longitude reduction, no iteration without a limit), and,
// under the sanitisers, without undefined behaviour such as a float-to-int
// conversion of a huge value. Results are what the formulas give and are not
// asserted, except where a finite answer is part of the behaviour.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <fstream>
#include <limits>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <typeinfo>
#include <vector>

#include "catalogue/CartSetup.h"
#include "definitions/MapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "mapprojection/MapProjection.h"
#include "projections/IsoMetric.h"
#include "projections/TransverseMercator.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::nan("");

const std::vector<double> kLongitudes = {kNaN, kInf, -kInf, 1e308, -1e308, 1e-308, -1e-308, 721,
                                         -721, 1e6,  -1e6,  1e300, -1e300, 0,      10};
const std::vector<double> kLatitudes = {kNaN,    kInf,       -kInf,       1e308, -1e308, 1e-308,
                                        -1e-308, 90.0000001, -90.0000001, 91,    -91,    180,
                                        -180,    1e6,        -1e6,        0,     45};
const std::vector<double> kPlane = {kNaN, kInf, -kInf, 1e308,  -1e308, 1e-308, -1e-308,
                                    1e6,  -1e6, 1e300, -1e300, 0,      5e5};

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

std::vector<Subject> AllAlgorithms() {
    std::vector<Subject> out;
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
    const CGxEllipsoid grs80("GRS 1980", "RF", 6378137.0, 298.257222101);
    add("TM classic", new CGxTransverseMercator("TM", 0.9996, 9, 0, 500000, 0, grs80));
    add("isometric", new CGxIsoMetric(0, 0, 1000, 0, 0, 1000, 10, 50, 10.01, 50.01));
    return out;
}

// A call that returns at all is the test; the time bound turns a loop that
// only ends after billions of turns into a failure rather than a slow pass.
constexpr double kSecondsPerSubject = 2.0;

}  // namespace

TEST(HostileNumbers, EveryAlgorithmReturnsFromEveryCall) {
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
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        EXPECT_LT(spent.count(), kSecondsPerSubject);
        (void)sink;
    }
}

// The Transverse Mercator reduces any finite longitude to within half a turn
// of its central meridian, so a longitude given as many turns away, however
// far, still lands on the grid. (The point scale beside it is a series in the
// unreduced longitude difference and may overflow; it only has to return.)
TEST(HostileNumbers, TransverseMercatorReducesAnyFiniteLongitude) {
    const CGxEllipsoid grs80("GRS 1980", "RF", 6378137.0, 298.257222101);
    const CGxTransverseMercator classic("TM", 0.9996, 9, 0, 500000, 0, grs80);
    const Algorithm gaussKrueger(CGxMapProjection::GetProjection("UTM-32", nullptr));
    ASSERT_TRUE(gaussKrueger);
    for (double lon : {729.0, -711.0, 1e6, -1e6, 1e15, 1e300, -1e308, 1e-308}) {
        SCOPED_TRACE(lon);
        const CGxProjection* both[] = {&classic, gaussKrueger.get()};
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

// The facade adds the axis rules, the geocentric conversion and the
// geodesics; none of them may fail on these numbers either.
TEST(HostileNumbers, MapProjectionOperationsReturn) {
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
