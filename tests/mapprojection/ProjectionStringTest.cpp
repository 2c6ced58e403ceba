#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <thread>

#include "catalogue/CartSetup.h"
#include "catalogue/EllipsoidList.h"
#include "definitions/MapProjData.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/TestFiles.h"

namespace {

using MP = CGxMapProjection;

const char* const kBogusProjection =
    "PROJCS[\"Bogus\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\","
    "6378137,298.257223563]],PRIMEM[\"Greenwich\",0],UNIT[\"Degree\",0.0174532925199433]],"
    "PROJECTION[\"No_Such_Projection\"],PARAMETER[\"False_Easting\",0],UNIT[\"Meter\",1]]";

}  // namespace

// What each kind of projection string is. The special strings are exact and
// case-sensitive but blanks around them do not count; the bare "UTM" names no
// system and no predicate throws for it.
TEST(ProjectionString, Classification) {
    const std::string utm32 = GxReadText("wkt/25832_gdal.prj");
    const std::string wgs84 = MP::IDtoProjectionString(MP::eWgs84);
    struct Case {
        std::string s;
        bool valid, local, longLat, georeferenced, geographical, datum;
        bool projected, geographic, longLatBit, localBit;
    };
    const Case cases[] = {
        {"NON-UTM", true, true, false, false, false, false, false, false, false, true},
        {" NON-UTM\t", true, true, false, false, false, false, false, false, false, true},
        {"non-utm", false, false, false, false, false, false, false, false, false, false},
        {"LONG/LAT", true, false, true, true, true, false, false, false, true, false},
        {"Long/Lat", false, false, false, false, false, false, false, false, false, false},
        {"UTM", false, false, false, false, false, false, false, false, false, false},
        {" UTM-32 ", true, false, false, true, false, true, true, false, false, false},
        {"utm-32", false, false, false, false, false, false, false, false, false, false},
        {"ETRS89-extended / LCC Europe", true, false, false, true, false, true, true, false, false,
         false},
        {"", false, false, false, false, false, false, false, false, false, false},
        {"   ", false, false, false, false, false, false, false, false, false, false},
        {utm32, true, false, false, true, false, true, true, false, false, false},
        {wgs84, true, false, false, true, true, true, false, true, false, false},
        {kBogusProjection, false, false, false, false, false, false, false, false, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("\"" + c.s.substr(0, 40) + "\"");
        const char* s = c.s.c_str();
        EXPECT_EQ(MP::IsValid(s), c.valid);
        EXPECT_EQ(MP::IsLocal(s), c.local);
        EXPECT_EQ(MP::IsLongLat(s), c.longLat);
        EXPECT_EQ(MP::IsGeoreferenced(s), c.georeferenced);
        EXPECT_EQ(MP::IsGeographical(s), c.geographical);
        EXPECT_EQ(MP::HasDatum(s), c.datum);
        EXPECT_EQ(MP::IsType(MP::eProjectedSystems, s), c.projected);
        EXPECT_EQ(MP::IsType(MP::eGeographicSystems, s), c.geographic);
        EXPECT_EQ(MP::IsType(MP::eLongLatString, s), c.longLatBit);
        EXPECT_EQ(MP::IsType(MP::eNonUtmString, s), c.localBit);
        EXPECT_EQ(MP::IsType(MP::eAllSystems, s),
                  c.projected || c.geographic || c.longLatBit || c.localBit);
    }
    EXPECT_FALSE(MP::IsValid(nullptr));
    EXPECT_FALSE(MP::IsType(MP::eAllSystems, nullptr));
}

TEST(ProjectionString, CatalogueMembershipAndParsedType) {
    EXPECT_TRUE(MP::_Exists("UTM-32", MP::eProjectedSystems));
    EXPECT_FALSE(MP::_Exists("UTM-32", MP::eGeographicSystems));
    EXPECT_TRUE(MP::_Exists("LONG/LAT", MP::eLongLatString));
    // "LONG/LAT" is no WKT, so it is not of the geographic class by type.
    EXPECT_FALSE(MP::_Exists("LONG/LAT", MP::eGeographicSystems));
    EXPECT_FALSE(MP::_Exists("UTM-99", MP::eAllSystems));
    // The catalogue knows its systems by display name: a WKT text of the same
    // name is taken for the catalogue's, another is not.
    EXPECT_TRUE(MP::_Exists(GxReadText("wkt/25832_gdal.prj").c_str(), MP::eProjectedSystems));
    EXPECT_FALSE(MP::_Exists(GxReadText("wkt/25832_esri.prj").c_str(), MP::eAllSystems));

    const std::string utm = GxReadText("wkt/25832_esri.prj");
    EXPECT_TRUE(MP::IsProjectionOfType(utm.c_str(), CGxMapProjData::eTransverseMercator));
    EXPECT_FALSE(MP::IsProjectionOfType(utm.c_str(), CGxMapProjData::eLambert2SP));
    // A catalogue name is not WKT: the reader finds no type in it.
    EXPECT_TRUE(MP::IsProjectionOfType("UTM-32", CGxMapProjData::eInvalidProjection));
    EXPECT_TRUE(MP::IsProjectionOfType(MP::IDtoProjectionString(MP::eGoogleMaps),
                                       CGxMapProjData::eMercator2SP));

    EXPECT_EQ(MP::GetCoordSysType(GxReadText("mapprojection/gk3_north_east.prj").c_str()),
              MP::eNorthEast);
    EXPECT_EQ(MP::GetCoordSysType(GxReadText("mapprojection/lo29_west_south.prj").c_str()),
              MP::eWestSouth);
    EXPECT_EQ(MP::GetCoordSysType("UTM-32"), MP::eEastNorth);
    EXPECT_EQ(MP::GetCoordSysType("UTM"), MP::eEastNorth);
}

// Sameness of two systems, whatever their spelling: the flavour of the text,
// the unit of its lengths and the order of its standard parallels do not
// matter; the figure, the datum shift and the axis directions do.
TEST(ProjectionString, AreIdentical) {
    const std::string esri = GxReadText("wkt/25832_esri.prj");
    const std::string gdal = GxReadText("wkt/25832_gdal.prj");
    // The same grid with its false easting in US survey feet.
    const std::string feet =
        GxReplaced(GxReplaced(esri, "PARAMETER[\"False_Easting\",500000.0]",
                              "PARAMETER[\"False_Easting\",1640416.6666666667]"),
                   "UNIT[\"Meter\",1.0]]", "UNIT[\"Foot_US\",0.3048006096012192]]");
    const std::string west = GxReplaced(gdal, "AXIS[\"Easting\",EAST]", "AXIS[\"Easting\",WEST]");
    const std::string renamedAxis =
        GxReplaced(gdal, "AXIS[\"Easting\",EAST]", "AXIS[\"Rechtswert\",east]");
    const std::string otherMeridian =
        GxReplaced(esri, "\"Central_Meridian\",9.0", "\"Central_Meridian\",9.5");
    const std::string ed50 = GxReadText("wkt/ed50_utm32_towgs84_gdal.prj");
    const std::string ed50NoShift = GxReplaced(ed50, ",TOWGS84[-87,-98,-121,0,0,0,0]", "");
    const std::string nyc = GxReadText("wkt/2263_esri.prj");
    const std::string nycSwapped =
        GxReplaced(nyc,
                   "PARAMETER[\"Standard_Parallel_1\",41.0333333333333],"
                   "PARAMETER[\"Standard_Parallel_2\",40.6666666666667]",
                   "PARAMETER[\"Standard_Parallel_1\",40.6666666666667],"
                   "PARAMETER[\"Standard_Parallel_2\",41.0333333333333]");

    EXPECT_TRUE(MP::AreIdentical(esri.c_str(), gdal.c_str()));
    EXPECT_TRUE(MP::AreIdentical(esri.c_str(), feet.c_str()));
    EXPECT_TRUE(MP::AreIdentical(gdal.c_str(), renamedAxis.c_str()));
    EXPECT_TRUE(MP::AreIdentical(nyc.c_str(), nycSwapped.c_str()));
    EXPECT_FALSE(MP::AreIdentical(gdal.c_str(), west.c_str()));
    EXPECT_FALSE(MP::AreIdentical(esri.c_str(), otherMeridian.c_str()));
    EXPECT_FALSE(MP::AreIdentical(ed50.c_str(), ed50NoShift.c_str()));
    // UTM-32 of the catalogue is on WGS 84, the ETRS89 text on GRS 1980.
    EXPECT_FALSE(MP::AreIdentical("UTM-32", esri.c_str()));
    EXPECT_TRUE(MP::AreIdentical("UTM-32", " UTM-32"));
    EXPECT_FALSE(MP::AreIdentical("UTM-32", "UTM-33"));
    EXPECT_FALSE(MP::AreIdentical(esri.c_str(), MP::IDtoProjectionString(MP::eWgs84)));
    EXPECT_FALSE(MP::AreIdentical("UTM", "UTM"));
    EXPECT_FALSE(MP::AreIdentical("", esri.c_str()));
    EXPECT_FALSE(MP::AreIdentical(kBogusProjection, kBogusProjection));
}

// Zones are six degrees wide from 180 west; a longitude just west of
// Greenwich lies in zone 30.
TEST(ProjectionString, LongitudeToUtmZone) {
    const struct {
        double lon;
        const char* zone;
    } cases[] = {
        {-180, "UTM-1"}, {-174.0001, "UTM-1"}, {-0.1, "UTM-30"}, {0, "UTM-31"},
        {9, "UTM-32"},   {179.9, "UTM-60"},    {180, "UTM-61"},  {-186, "UTM-0"},
    };
    for (const auto& c : cases) EXPECT_STREQ(MP::LongitudeToUTMZone(c.lon), c.zone) << c.lon;
    EXPECT_STREQ(MP::LongitudeToUTMZone(std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_STREQ(MP::LongitudeToUTMZone(std::numeric_limits<double>::infinity()), "");
    EXPECT_STREQ(MP::LongitudeToUTMZone(1e300), "UTM-2147483647");
}

TEST(ProjectionString, ShortNamesAndBuiltInStrings) {
    EXPECT_STREQ(MP::ShortName(GxReadText("wkt/25832_gdal.prj").c_str()), "ETRS89 / UTM zone 32N");
    EXPECT_STREQ(MP::ShortName("UTM-32"), "UTM-32");
    EXPECT_STREQ(MP::ShortName("NON-UTM"), "Local Coordinates");
    EXPECT_STREQ(MP::ShortName(nullptr), "");

    EXPECT_STREQ(MP::IDtoProjectionString(MP::eNonUtm), "NON-UTM");
    EXPECT_STREQ(MP::IDtoProjectionString(MP::eLongLat), "LONG/LAT");
    EXPECT_STREQ(MP::ShortName(MP::IDtoProjectionString(MP::eGoogleMaps)),
                 "Google Maps - Mercator");
    EXPECT_STREQ(MP::ShortName(MP::IDtoProjectionString(MP::eWgs84)), "GCS_WGS_1984");
    for (int id : {0, 5, -1, 1000}) EXPECT_STREQ(MP::IDtoProjectionString(id), "") << id;
}

TEST(ProjectionString, EnumeratesTheCatalogues) {
    long count = -1;
    const std::string special = MP::EnumMapProjections(MP::eSpecialStrings, &count);
    EXPECT_EQ(special, "LONG/LAT;NON-UTM;");
    EXPECT_EQ(count, 2);

    const std::string projected = MP::EnumMapProjections(MP::eProjectedSystems, &count);
    // The sixty zones and the projected systems of the catalogue files, as WKT.
    EXPECT_GT(count, 60 + 100);
    EXPECT_EQ(projected.rfind("PROJCS[\"UTM-1\",", 0), 0u) << projected.substr(0, 80);
    EXPECT_EQ(projected.find("LONG/LAT"), std::string::npos);
    long separators = 0;
    for (char c : projected) separators += c == ';';
    EXPECT_EQ(separators, count);

    CGxEllipsoidList& ellipsoids = CGxCartSetup::Instance().GetEllipsoidList();
    const long all = static_cast<long>(
        std::distance(ellipsoids.GetIteratorBegin(CGxEllipsoidList::eAllEllipsoids),
                      ellipsoids.GetIteratorEnd(CGxEllipsoidList::eAllEllipsoids)));
    const std::string names = MP::EnumEllipsoids(CGxEllipsoidList::eAllEllipsoids, &count);
    EXPECT_EQ(count, all);
    EXPECT_EQ(names.rfind("WGS 84;WGS 72;GRS 1980;", 0), 0u) << names.substr(0, 60);
    EXPECT_STREQ(MP::EnumEllipsoids(CGxEllipsoidList::eCustomEllipsoids, &count), "");
    EXPECT_EQ(count, 0);
    MP::EnumEllipsoids(CGxEllipsoidList::eSystemEllipsoids, nullptr);
}

// The text results live in per-thread buffers: two threads asking at the
// same time each read their own answers.
TEST(ProjectionString, TextBuffersArePerThread) {
    const std::string wkt = GxReadText("wkt/25832_gdal.prj");
    auto ask = [&wkt](double lon, const char* zone, bool useWkt, const char* name, int* wrong,
                      const char** buffer) {
        for (int i = 0; i < 20000; ++i) {
            const char* z = MP::LongitudeToUTMZone(lon);
            const char* n = MP::ShortName(useWkt ? wkt.c_str() : name);
            if (std::strcmp(z, zone) != 0 || std::strcmp(n, name) != 0) ++*wrong;
            *buffer = z;
        }
    };
    int wrong1 = 0, wrong2 = 0;
    const char *buffer1 = nullptr, *buffer2 = nullptr;
    std::thread t1(ask, 9.0, "UTM-32", true, "ETRS89 / UTM zone 32N", &wrong1, &buffer1);
    std::thread t2(ask, -75.0, "UTM-18", false, "UTM-5", &wrong2, &buffer2);
    t1.join();
    t2.join();
    EXPECT_EQ(wrong1, 0);
    EXPECT_EQ(wrong2, 0);
    EXPECT_NE(buffer1, buffer2);
}
