// Conversions from several threads at once. Algorithms, map projections,
// local grids and datum converters are immutable once built, so threads that
// share one of them must get exactly the bits a single thread gets; threads
// that build their own systems (from WKT or by catalogue name) only read the
// catalogue; and the text-returning statics hand each thread its own buffer.
// The test also runs under ThreadSanitizer (scripts/tsan.sh), which reports
// any unsynchronised write that the bit comparison could miss.

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "catalogue/CartSetup.h"
#include "datum/DatumConverter.h"
#include "foundation/Projection.h"
#include "gxcart.h"
#include "mapprojection/Cartography.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/TestFiles.h"
#include "wkt/PRJParser.h"
#include "wkt/ProjTranslator.h"

namespace {

constexpr int kThreads = 6;

// One system of every algorithm family the WKT reader builds.
const std::vector<std::string>& WktTexts() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> t;
        for (const char* f : {"25832_gdal.prj", "2154_esri.prj", "28992_gdal.prj", "5514_gdal.prj",
                              "3577_esri.prj", "3035_gdal.prj", "27200_gdal.prj", "29873_gdal.prj",
                              "2056_gdal.prj", "3031_gdal.prj", "3395_gdal.prj", "3068_gdal.prj",
                              "eqdc_esri.prj", "22275_gdal.prj", "3413_esri.prj", "4326_gdal.prj"})
            t.push_back(GxReadPrj(f));
        return t;
    }();
    return texts;
}

// Catalogue names: built-in zones, entries of the system files of each type
// and the special strings.
const std::vector<std::string> kCatalogueNames = {"UTM-1",
                                                  "UTM-32",
                                                  "UTM-60",
                                                  "LONG/LAT",
                                                  "NON-UTM",
                                                  "ETRS89-extended / LAEA Europe",
                                                  "ETRS89-extended / LCC Europe",
                                                  "DHDN / Soldner Berlin",
                                                  "Amersfoort / RD New",
                                                  "CH1903+ / LV95",
                                                  "S-JTSK / Krovak East North",
                                                  "GDA2020 / Australian Albers",
                                                  "NZGD49 / New Zealand Map Grid",
                                                  "GDM2000 / Peninsula RSO",
                                                  "WGS 84 / UPS North (E,N)",
                                                  "WGS 84 / Antarctic Polar Stereographic",
                                                  "EURO-CORDEX rotated pole grid",
                                                  "Europe Equidistant Conic"};

// Everything an algorithm answers on a small grid around its origin, in call
// order. Compared with memcmp, so NaN results compare too.
std::vector<double> AlgorithmTrace(const CGxProjection& p) {
    std::vector<double> out;
    double lon0 = 0, lat0 = 0;
    p.GetOrigin(&lon0, &lat0);
    for (double dLon : {-3.0, 0.0, 2.5}) {
        for (double dLat : {-2.0, 0.0, 1.5}) {
            const double lon = lon0 + dLon, lat = lat0 + dLat;
            double x = 0, y = 0, lon1 = 0, lat1 = 0;
            p.Geo2Proj(lon, lat, &x, &y);
            p.Proj2Geo(x, y, &lon1, &lat1);
            out.insert(out.end(), {x, y, lon1, lat1, p.GetConvergence(lon, lat)});
        }
    }
    return out;
}

std::vector<double> MapProjectionTrace(const CGxMapProjection& m) {
    std::vector<double> out;
    for (double lon : {7.0, 9.5, 11.0}) {
        for (double lat : {48.0, 52.5}) {
            double x = 0, y = 0, lon1 = 0, lat1 = 0, X = 0, Y = 0, Z = 0, h = 0;
            m.Geo2Proj(lon, lat, &x, &y);
            m.Proj2Geo(x, y, &lon1, &lat1);
            m.Geo2XYZ(lon, lat, 100, &X, &Y, &Z);
            m.XYZ2Geo(X, Y, Z, &lon1, &lat1, &h);
            double d = 0, az1 = 0, az2 = 0, lon2 = 0, lat2 = 0, az = 0;
            m.GetDistance(lon, lat, lon + 1, lat - 1, d, az1, az2);
            m.GetPoint(lon, lat, 30, 1e5, lon2, lat2, az);
            out.insert(out.end(), {x, y, lon1, lat1, X, Y, Z, h, d, az1, az2, lon2, lat2, az,
                                   m.GetConvergence(lon, lat)});
        }
    }
    return out;
}

std::vector<double> CartographyTrace(const CGxCartography& c) {
    std::vector<double> out;
    for (double lon : {8.0, 9.0, 10.0}) {
        for (double lat : {49.0, 50.0, 51.0}) {
            double X = 0, Y = 0, lon1 = 0, lat1 = 0;
            c.Geo2Xy(lon, lat, &X, &Y);
            c.Xy2Geo(X, Y, &lon1, &lat1);
            out.insert(out.end(), {X, Y, lon1, lat1, c.GetTrueNorth(X, Y)});
        }
    }
    return out;
}

std::vector<double> ConverterTrace(const CGxDatumConverter& dc) {
    std::vector<double> out;
    for (double e : {450000.0, 500000.0, 560000.0}) {
        for (double n : {5400000.0, 5600000.0}) {
            double x = e, y = n, z = 50;
            dc.Convert(x, y, z);
            out.insert(out.end(), {x, y, z});
            dc.InvConvert(x, y, z);
            out.insert(out.end(), {x, y, z});
        }
    }
    return out;
}

bool SameBits(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

// Runs body(thread index) on kThreads threads released together, so their
// calls overlap; returns the number of threads whose body reported a mismatch.
int RunTogether(const std::function<bool(int)>& body) {
    std::atomic<int> ready{0};
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            ++ready;
            while (ready.load() < kThreads) std::this_thread::yield();
            if (!body(t)) ++failures;
        });
    }
    for (std::thread& th : threads) th.join();
    return failures.load();
}

}  // namespace

// A data race on a shared algorithm (a coefficient cached on first use, a
// scratch member written during a conversion) shows up as a different bit or
// a sanitizer report.
TEST(ThreadSafety, SharedObjectsGiveTheSingleThreadedBits) {
    std::vector<std::unique_ptr<CGxProjection>> algorithms;
    for (const std::string& s : WktTexts())
        algorithms.emplace_back(CGxMapProjection::GetProjection(s.c_str(), nullptr));
    for (const char* name : {"UTM-32", "GDM2000 / Peninsula RSO", "WGS 84 / UPS North (E,N)",
                             "EURO-CORDEX rotated pole grid"})
        algorithms.emplace_back(CGxMapProjection::GetProjection(name, nullptr));
    for (const auto& a : algorithms) ASSERT_NE(a, nullptr);

    const CGxMapProjection map(GxReadPrj("ed50_utm32_towgs84_gdal.prj"));
    const CGxCartography grid("UTM-32", 9.0, 50.0, 30.0);
    const CGxDatumConverter converter(GxReadPrj("ed50_utm32_towgs84_gdal.prj").c_str(),
                                      GxReadPrj("25832_gdal.prj").c_str());
    ASSERT_NE(map.GetProjection(), nullptr);

    std::vector<std::vector<double>> expected;
    for (const auto& a : algorithms) expected.push_back(AlgorithmTrace(*a));
    const std::vector<double> mapExpected = MapProjectionTrace(map);
    const std::vector<double> gridExpected = CartographyTrace(grid);
    const std::vector<double> converterExpected = ConverterTrace(converter);

    const int failures = RunTogether([&](int t) {
        bool same = true;
        for (int round = 0; round < 3; ++round) {
            // Threads start on different algorithms so that every object is
            // in use by several threads at different stages.
            for (std::size_t k = 0; k < algorithms.size(); ++k) {
                const std::size_t i = (k + t) % algorithms.size();
                same &= SameBits(AlgorithmTrace(*algorithms[i]), expected[i]);
            }
            same &= SameBits(MapProjectionTrace(map), mapExpected);
            same &= SameBits(CartographyTrace(grid), gridExpected);
            same &= SameBits(ConverterTrace(converter), converterExpected);
        }
        return same;
    });
    EXPECT_EQ(failures, 0);
}

// Each thread builds its own systems from WKT and by catalogue name while the
// others do the same: the catalogue is read concurrently, and the systems
// built equal those built by one thread (same normalised string, same bits).
TEST(ThreadSafety, ThreadsBuildTheirOwnSystems) {
    std::vector<std::string> strings = WktTexts();
    strings.insert(strings.end(), kCatalogueNames.begin(), kCatalogueNames.end());

    auto describe = [](const std::string& s) {
        const CGxMapProjection m(s);
        std::vector<double> trace;
        if (m.GetProjection()) trace = AlgorithmTrace(*m.GetProjection());
        trace.push_back(CGxMapProjection::IsValid(s.c_str()) ? 1 : 0);
        trace.push_back(CGxMapProjection::IsGeographical(s.c_str()) ? 1 : 0);
        return std::make_pair(std::string(m.GetProjectionString()), trace);
    };
    std::vector<std::pair<std::string, std::vector<double>>> expected;
    for (const std::string& s : strings) {
        expected.push_back(describe(s));
        ASSERT_FALSE(expected.back().first.empty()) << s;
    }

    const CGxMapProjectionList& catalogue = CGxCartSetup::Instance().GetMapProjectionList();
    std::atomic<int> firstDifferent{-1};
    const int failures = RunTogether([&](int t) {
        bool same = true;
        for (std::size_t k = 0; k < strings.size(); ++k) {
            const std::size_t i = (k * 7 + t) % strings.size();
            const auto got = describe(strings[i]);
            if (got.first != expected[i].first || !SameBits(got.second, expected[i].second)) {
                same = false;
                firstDifferent = static_cast<int>(i);
            }
            same &= catalogue.GetMapProjection(kCatalogueNames[(k + t) % kCatalogueNames.size()]) !=
                    nullptr;
        }
        return same;
    });
    EXPECT_EQ(failures, 0) << (firstDifferent >= 0 ? strings[firstDifferent].substr(0, 80) : "");
}

// Statics that hand back text from a per-thread buffer, and the flat
// functions that copy text out: each thread asks with its own arguments and
// must read its own answers, while the others overwrite theirs.
TEST(ThreadSafety, TextResultsArePerThread) {
    struct Expected {
        double lon;
        std::string zone, shortName, proj4, readable, shortNameFlat, zoneFlat;
    };
    const std::vector<std::string>& wkt = WktTexts();
    auto compute = [&](int t) {
        Expected e;
        e.lon = -177.0 + 37.0 * t;
        const std::string& s = wkt[t % wkt.size()];
        e.zone = CGxMapProjection::LongitudeToUTMZone(e.lon);
        e.shortName = CGxMapProjection::ShortName(s.c_str());
        e.proj4 = CGxProjTranslator::Convert2Proj4(s, nullptr, 0);
        CGxPRJParser::FormatAsReadableWKT(s, e.readable);
        char buffer[512] = "";
        int status = -1;
        S_PROJECTIONSHORTNAME(s.c_str(), buffer, sizeof buffer, &status);
        e.shortNameFlat = buffer;
        S_LONGITUDETOUTMZONE(e.lon, buffer, sizeof buffer, &status);
        e.zoneFlat = buffer;
        return e;
    };
    std::vector<Expected> expected;
    for (int t = 0; t < kThreads; ++t) expected.push_back(compute(t));
    const std::string google = CGxMapProjection::IDtoProjectionString(3);
    long count = 0;
    const std::string ellipsoids =
        CGxMapProjection::EnumEllipsoids(CGxEllipsoidList::eAllEllipsoids, &count);
    const std::string geographic = CGxMapProjection::EnumMapProjections(2, &count);
    // Distinct answers per thread, or the comparison proves nothing.
    EXPECT_NE(expected[0].zone, expected[1].zone);
    EXPECT_NE(expected[0].shortName, expected[1].shortName);
    EXPECT_FALSE(google.empty() || ellipsoids.empty() || geographic.empty());

    const int failures = RunTogether([&](int t) {
        const Expected& e = expected[t];
        const std::string& s = wkt[t % wkt.size()];
        bool same = true;
        for (int round = 0; round < 10; ++round) {
            // Keep the pointers across other threads' calls before reading.
            const char* zone = CGxMapProjection::LongitudeToUTMZone(e.lon);
            const char* shortName = CGxMapProjection::ShortName(s.c_str());
            std::this_thread::yield();
            same &= e.zone == zone && e.shortName == shortName;
            same &= google == CGxMapProjection::IDtoProjectionString(3);
            char buffer[2048] = "";
            int status = -1;
            S_GETGOOGLEMAPPROJECTIONSTRING(buffer, sizeof buffer, &status);
            same &= google == buffer;
            S_PROJECTIONSHORTNAME(s.c_str(), buffer, sizeof buffer, &status);
            same &= e.shortNameFlat == buffer;
            S_LONGITUDETOUTMZONE(e.lon, buffer, sizeof buffer, &status);
            same &= e.zoneFlat == buffer;
            C_GXC_CONVERT2PROJ4(s.c_str(), nullptr, 0, buffer, sizeof buffer, &status);
            same &= e.proj4 == buffer;
            std::string readable;
            CGxPRJParser::FormatAsReadableWKT(s, readable);
            same &= e.readable == readable;
        }
        long n = 0;
        same &=
            ellipsoids == CGxMapProjection::EnumEllipsoids(CGxEllipsoidList::eAllEllipsoids, &n);
        // The catalogue walk builds a system for every entry and is slow
        // under the sanitisers: two threads suffice to share its buffer.
        if (t < 2) same &= geographic == CGxMapProjection::EnumMapProjections(2, &n);
        return same;
    });
    EXPECT_EQ(failures, 0);
}
