#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

#include "datum/DatumShift.h"
#include "foundation/ProjectionInfo.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/TestFiles.h"

namespace {

struct Point {
    double lon, lat;
    double x, y;  // in the system's axis order and signs
};

// Forward within tol metres, inverse back within 1e-8 degrees (about a
// millimetre).
void ExpectConverts(const CGxMapProjection& mp, const Point& p, double tol = 1e-3) {
    SCOPED_TRACE(testing::Message() << "lon " << p.lon << " lat " << p.lat);
    double x = 0, y = 0, lon = 0, lat = 0;
    mp.Geo2Proj(p.lon, p.lat, &x, &y);
    EXPECT_NEAR(x, p.x, tol);
    EXPECT_NEAR(y, p.y, tol);
    mp.Proj2Geo(p.x, p.y, &lon, &lat);
    EXPECT_NEAR(lon, p.lon, 1e-8);
    EXPECT_NEAR(lat, p.lat, 1e-8);
}

}  // namespace

// UTM zone 32 from the catalogue (WGS 84) and from the ETRS89 texts of both
// flavours (GRS 1980, 0.1 mm apart in the northing).
//   printf "9 48 0 0\n12.5 55.1 0 0\n3.2 38.5 0 0\n" |
//     cct -d 6 +proj=utm +zone=32 +ellps=WGS84     (and +ellps=GRS80)
TEST(MapProjection, UtmZone32FromCatalogueNameAndFromBothWktFlavours) {
    const CGxMapProjection zone("UTM-32");
    ExpectConverts(zone, {9, 48, 500000.000000, 5316300.224451});
    ExpectConverts(zone, {12.5, 55.1, 723284.747291, 6111515.609503});
    ExpectConverts(zone, {3.2, 38.5, -5943.137245, 4277265.427114});
    for (const char* file : {"wkt/25832_esri.prj", "wkt/25832_gdal.prj"}) {
        SCOPED_TRACE(file);
        const CGxMapProjection etrs(GxReadText(file));
        ExpectConverts(etrs, {9, 48, 500000.000000, 5316300.224329});
        ExpectConverts(etrs, {12.5, 55.1, 723284.747293, 6111515.609379});
        ExpectConverts(etrs, {3.2, 38.5, -5943.137249, 4277265.427003});
    }
}

// A catalogue name is kept as the WKT of its algorithm, which names the zone
// and reads back to the same system; a WKT text is kept exactly as given.
TEST(MapProjection, NormalisedString) {
    const CGxMapProjection zone("UTM-32");
    const std::string wkt = zone.GetProjectionString();
    EXPECT_EQ(wkt.rfind("PROJCS[\"UTM-32\"", 0), 0u) << wkt;
    EXPECT_NE(wkt.find("PARAMETER[\"Central_Meridian\",9]"), std::string::npos);
    EXPECT_STREQ(zone.GetName(), "UTM-32");
    // Read back, the text gives the series form of Transverse Mercator; the
    // two forms agree far below a millimetre inside a zone.
    double x1, y1, x2, y2;
    zone.Geo2Proj(12.5, 55.1, &x1, &y1);
    CGxMapProjection(wkt).Geo2Proj(12.5, 55.1, &x2, &y2);
    EXPECT_NEAR(x1, x2, 1e-5);
    EXPECT_NEAR(y1, y2, 1e-5);

    const std::string padded = "  " + GxReadText("wkt/25832_gdal.prj") + "\n";
    EXPECT_EQ(CGxMapProjection(padded).GetProjectionString(), padded);
}

// Catalogue grids of other types, and a text in US survey feet, which
// converts in metres: its false origin is turned into metres when the
// algorithm is built.
//   printf "5 50 0 0\n20 60 0 0\n" | cct -d 6 +proj=lcc +lat_1=35 +lat_2=65
//     +lat_0=52 +lon_0=10 +x_0=4000000 +y_0=2800000 +ellps=GRS80
//   printf "5 50 0 0\n" | cct -d 6 +proj=laea +lat_0=52 +lon_0=10
//     +x_0=4321000 +y_0=3210000 +ellps=GRS80
//   printf -- "-73.9857 40.7484 0 0\n-72.5 40.9 0 0\n" | cct -d 6 +proj=lcc
//     +lat_0=40.1666666666667 +lon_0=-74 +lat_1=41.0333333333333
//     +lat_2=40.6666666666667 +x_0=300000 +y_0=0 +ellps=GRS80 +units=m
TEST(MapProjection, OtherTypesAndUnits) {
    const CGxMapProjection lcc("ETRS89-extended / LCC Europe");
    ExpectConverts(lcc, {5, 50, 3654072.121865, 2596848.659964});
    ExpectConverts(lcc, {20, 60, 4544641.620652, 3701461.697061});
    ExpectConverts(CGxMapProjection("ETRS89-extended / LAEA Europe"),
                   {5, 50, 3962799.450955, 2999718.853160});

    const CGxMapProjection longIsland(GxReadText("wkt/2263_esri.prj"));
    ExpectConverts(longIsland, {-73.9857, 40.7484, 301207.692309, 64599.221306});
    ExpectConverts(longIsland, {-72.5, 40.9, 426386.552417, 82516.438316});
    double factor = 0;
    char name[CGxProjectionInfo::kUnitNameSize] = "";
    ASSERT_TRUE(longIsland.GetUnit(CGxMapProjection::eProjectedUnit, &factor, name));
    EXPECT_STREQ(name, "US survey foot");
    EXPECT_EQ(factor, 0.304800609601219);
    // A catalogue name has the units of its written WKT; a special string,
    // which is no WKT, has none.
    ASSERT_TRUE(lcc.GetUnit(CGxMapProjection::eAngularUnit, &factor, name));
    EXPECT_STREQ(name, "Degree");
    EXPECT_NEAR(factor, 0.017453292519943295, 1e-15);
    EXPECT_FALSE(lcc.GetUnit(static_cast<CGxMapProjection::EMapProjectionInfo>(3), &factor, name));
    EXPECT_FALSE(
        CGxMapProjection("LONG/LAT").GetUnit(CGxMapProjection::eAngularUnit, &factor, nullptr));

    CGxDatumShift shift;
    CGxMapProjection(GxReadText("wkt/ed50_utm32_towgs84_gdal.prj")).GetDatumShift(shift);
    EXPECT_EQ(shift.GetType(), CGxCartDef::eThreeParameterShift);
    EXPECT_EQ(shift[2], -121);
}

// The axis rule around the algorithm. A Gauss-Krueger grid stated northing
// first gives (northing, easting); the south-orientated Lo29 grid, read as
// plain Transverse Mercator, counts west and south through its axes.
//   printf "8 50 0 0\n10.2 52.5 0 0\n" | cct -d 6 +proj=tmerc +lat_0=0 +lon_0=9
//     +k=1 +x_0=3500000 +y_0=0 +ellps=bessel +axis=neu
//   printf "28 -26 0 0\n30.5 -24.1 0 0\n" | cct -d 6 +proj=tmerc +axis=wsu
//     +lat_0=0 +lon_0=29 +k=1 +x_0=0 +y_0=0 +ellps=WGS84
TEST(MapProjection, AxisOrderAndSigns) {
    const CGxMapProjection gk(GxReadText("mapprojection/gk3_north_east.prj"));
    EXPECT_EQ(gk.GetCoordSysType(), CGxMapProjection::eNorthEast);
    ExpectConverts(gk, {8, 50, 5540758.787686, 3428313.613376});
    ExpectConverts(gk, {10.2, 52.5, 5819057.324453, 3581480.775313});

    const CGxMapProjection lo29(GxReadText("mapprojection/lo29_west_south.prj"));
    EXPECT_EQ(lo29.GetCoordSysType(), CGxMapProjection::eWestSouth);
    ExpectConverts(lo29, {28, -26, 100120.866468, 2877217.611706});
    ExpectConverts(lo29, {30.5, -24.1, -152521.185454, 2667179.904614});
    // The same text without axes is the plain (east, north) grid.
    const CGxMapProjection plain(GxReadText("wkt/2053_gdal.prj"));
    EXPECT_EQ(plain.GetCoordSysType(), CGxMapProjection::eEastNorth);
    ExpectConverts(plain, {28, -26, -100120.866468, -2877217.611706});

    // Copies keep algorithm and axes, and outlive the original.
    auto* original = new CGxMapProjection(gk);
    CGxMapProjection assigned("NON-UTM");
    assigned = *original;
    delete original;
    ExpectConverts(assigned, {8, 50, 5540758.787686, 3428313.613376});
}

// The built-in spherical web Mercator (a sphere of radius 6378137, written
// with inverse flattening 0) and WGS 84 geographical strings.
//   printf "0 0 0 0\n-74.006 40.7128 0 0\n139.69 35.68 0 0\n151.2 -33.87 0 0\n" |
//     cct -d 6 +proj=merc +a=6378137 +b=6378137
TEST(MapProjection, BuiltInWebMercatorAndWgs84) {
    const CGxMapProjection web(
        CGxMapProjection::IDtoProjectionString(CGxMapProjection::eGoogleMaps));
    ExpectConverts(web, {0, 0, 0.0, 0.0});
    ExpectConverts(web, {-74.006, 40.7128, -8238310.235647, 4970071.579142});
    ExpectConverts(web, {139.69, 35.68, 15550219.668912, 4256678.731904});
    ExpectConverts(web, {151.2, -33.87, 16831507.007943, -4011359.531052});

    const CGxMapProjection wgs84(CGxMapProjection::IDtoProjectionString(CGxMapProjection::eWgs84));
    EXPECT_TRUE(wgs84.IsGeographical());
    ExpectConverts(wgs84, {12.5, 45.25, 12.5, 45.25}, 0);
}

// "LONG/LAT" is plain longitude/latitude; "NON-UTM" hands coordinates through
// unchanged; both keep their string as given. The empty string stands for
// the local grid.
TEST(MapProjection, SpecialStrings) {
    const CGxMapProjection longLat(" LONG/LAT ");
    EXPECT_TRUE(longLat.IsGeographical());
    EXPECT_FALSE(longLat.IsLocal());
    EXPECT_STREQ(longLat.GetProjectionString(), " LONG/LAT ");
    ExpectConverts(longLat, {-71.25, 42.5, -71.25, 42.5}, 0);

    const CGxMapProjection local("NON-UTM");
    EXPECT_TRUE(local.IsLocal());
    EXPECT_FALSE(local.IsGeographical());
    ExpectConverts(local, {1234.5, -678.25, 1234.5, -678.25}, 0);
    EXPECT_EQ(local.GetConvergence(1234.5, -678.25), 0.0);
    EXPECT_TRUE(CGxMapProjection("").IsLocal());
    EXPECT_TRUE(CGxMapProjection(static_cast<const char*>(nullptr)).IsLocal());
}

// The bare "UTM" names no zone; a string that resolves to nothing gives an
// object that converts nothing and answers 0, false or "".
TEST(MapProjection, GenericUtmThrowsAndUnknownNamesGiveNoAlgorithm) {
    try {
        CGxMapProjection generic("UTM");
        FAIL() << "no exception";
    } catch (const std::out_of_range& e) {
        EXPECT_STREQ(e.what(), "Can't use generic UTM");
    }
    EXPECT_THROW(CGxMapProjection(std::string(" UTM\t")), std::out_of_range);
    EXPECT_THROW(CGxMapProjection::GetProjection("UTM", nullptr), std::out_of_range);

    for (const char* s : {"utm-32", "UTM-61", "non-utm", "PROJCS[\"x\",GEOGCS[\"y\",1,2]]"}) {
        SCOPED_TRACE(s);
        const CGxMapProjection none(s);
        EXPECT_EQ(none.GetProjection(), nullptr);
        EXPECT_STREQ(none.GetProjectionString(), "");
        EXPECT_STREQ(none.GetName(), "");
        double a = 7, b = 8, c = 9, d = 10;
        none.Proj2Geo(1, 2, &a, &b);
        none.GetDefaultArea(&a, &b, &c, &d);
        none.GetDefaultArea(100, 100, CGxMapProjection::eWidth, 10, &a, &b, &c, &d);
        none.Geo2XYZ(9, 48, 0, &a, &b, &c);
        EXPECT_EQ(a + b + c + d, 34);
        EXPECT_EQ(none.GetConvergence(9, 48), 0);
        EXPECT_FALSE(none.IsGeographical());
        EXPECT_FALSE(none.GetDistance(9, 48, 10, 49, a));
    }
}

// Grid convergence of UTM 32 east of its central meridian (the facade's is a
// one-arc-minute finite difference).
//   printf "48 12.5\n55.1 12.5\n" | TransverseMercatorProj -l 9 -k 0.9996
//     (third column: gamma in degrees)
TEST(MapProjection, ConvergenceAndOrigin) {
    const CGxMapProjection zone("UTM-32");
    EXPECT_NEAR(zone.GetConvergence(12.5, 48), 2.602468941792, 2e-4);
    EXPECT_NEAR(zone.GetConvergence(12.5, 55.1), 2.871708100665, 2e-4);
    double lon = -1, lat = -1;
    zone.GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 9);
    EXPECT_EQ(lat, 0);
}

// The sized area is centred on the projected origin (UTM 32: 500000, 0) with
// the window's proportions.
TEST(MapProjection, DefaultAreas) {
    const CGxMapProjection zone("UTM-32");
    double x0, y0, x1, y1;
    zone.GetDefaultArea(200, 100, CGxMapProjection::eWidth, 1000, &x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 499500, 1e-6);
    EXPECT_NEAR(x1, 500500, 1e-6);
    EXPECT_NEAR(y0, -250, 1e-6);
    EXPECT_NEAR(y1, 250, 1e-6);
    zone.GetDefaultArea(200, 100, CGxMapProjection::eHeight, 1000, &x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 499000, 1e-6);
    EXPECT_NEAR(y1, 500, 1e-6);
    // An empty window gives the natural area; no selector, nothing.
    double n0, m0, n1, m1;
    zone.GetDefaultArea(&n0, &m0, &n1, &m1);
    zone.GetDefaultArea(0, 100, CGxMapProjection::eWidth, 1000, &x0, &y0, &x1, &y1);
    EXPECT_EQ(x0, n0);
    EXPECT_EQ(y1, m1);
    EXPECT_LT(n0, 500000);
    EXPECT_GT(n1, 500000);
    zone.GetDefaultArea(200, 100, static_cast<CGxMapProjection::ESizeParam>(0), 1000, &x0, &y0, &x1,
                        &y1);
    EXPECT_EQ(x0, n0);
}

// Geocentric coordinates on the figure of the system.
//   printf "9 48 350 0\n-70.5 -33.4 2500 0\n" | cct -d 6 +proj=cart +ellps=GRS80
TEST(MapProjection, GeocentricBothWays) {
    const CGxMapProjection etrs(GxReadText("wkt/25832_esri.prj"));
    const double cases[][6] = {
        {9, 48, 350, 4223307.934899, 668906.263587, 4717136.430692},
        {-70.5, -33.4, 2500, 1779948.398991, -5026419.219617, -3492456.316890},
    };
    for (const auto& c : cases) {
        double X, Y, Z, lon, lat, h;
        etrs.Geo2XYZ(c[0], c[1], c[2], &X, &Y, &Z);
        EXPECT_NEAR(X, c[3], 1e-4);
        EXPECT_NEAR(Y, c[4], 1e-4);
        EXPECT_NEAR(Z, c[5], 1e-4);
        etrs.XYZ2Geo(c[3], c[4], c[5], &lon, &lat, &h);
        EXPECT_NEAR(lon, c[0], 1e-10);
        EXPECT_NEAR(lat, c[1], 1e-10);
        EXPECT_NEAR(h, c[2], 1e-4);
    }
    // On the polar axis, 10 m above the pole of GRS 1980 (b = 6356752.314140 m).
    double lon, lat, h;
    etrs.XYZ2Geo(0, 0, 6356752.314140 + 10, &lon, &lat, &h);
    EXPECT_EQ(lat, 90);
    EXPECT_NEAR(h, 10, 1e-6);
    etrs.XYZ2Geo(0, 0, -6356752.314140, &lon, &lat, &h);
    EXPECT_EQ(lat, -90);
}

// Distances, azimuths and points on the system's ellipsoid; a bare
// "LONG/LAT" has no figure and measures on WGS 84.
//   printf "48 9 55.1 12.5\n45.25 12.5 -33.9 18.4\n" | GeodSolve -i -E -p 6
//   printf "48 9 30 100000\n" | GeodSolve -E -p 6
//     (azi1 azi2 s12, and lat2 lon2 azi2)
TEST(MapProjection, GeodesicsOnTheSystemsEllipsoid) {
    const CGxMapProjection zone("UTM-32");
    double d = 0, az1 = 0, az2 = 0;
    ASSERT_TRUE(zone.GetDistance(9, 48, 12.5, 55.1, d, az1, az2));
    EXPECT_NEAR(d, 826130.079444, 1e-3);
    EXPECT_NEAR(az1, 15.72567951095, 1e-8);
    EXPECT_NEAR(az2, 18.47231625159, 1e-8);
    ASSERT_TRUE(CGxMapProjection("LONG/LAT").GetDistance(12.5, 45.25, 18.4, -33.9, d));
    EXPECT_NEAR(d, 8785516.284632, 1e-3);

    double lon2 = 0, lat2 = 0;
    ASSERT_TRUE(zone.GetPoint(9, 48, 30, 100000, lon2, lat2, az2));
    EXPECT_NEAR(lat2, 48.77682291871, 1e-9);
    EXPECT_NEAR(lon2, 9.68027730498, 1e-9);
    EXPECT_NEAR(az2, 30.50863306153, 1e-8);

    // A point's distance to itself is 0 with or without a system; the local
    // grid has no figure and is not geographical.
    const CGxMapProjection none("no such system");
    d = -1;
    EXPECT_TRUE(none.GetDistance(9, 48, 9, 48, d));
    EXPECT_EQ(d, 0);
    EXPECT_FALSE(none.GetPoint(9, 48, 30, 1000, lon2, lat2, az2));
    EXPECT_FALSE(CGxMapProjection("NON-UTM").GetDistance(0, 0, 100, 100, d));
}

// Nearly antipodal points have a geodesic like any others; a latitude beyond a
// pole or a NaN has none, and the answer says so without touching the
// outputs.
//   echo "0 0 0 180" | GeodSolve -i -p 10   -> 0 180 20003931.4586254470
TEST(MapProjection, GeodesicsNearTheAntipodeAndWithoutALine) {
    const CGxMapProjection geographic("LONG/LAT");
    double d = -1, az1 = -1, az2 = -1;
    ASSERT_TRUE(geographic.GetDistance(0, 0, 180, 0, d, az1, az2));
    EXPECT_NEAR(d, 20003931.4586254470, 1e-4);
    EXPECT_NEAR(az1, 0.0, 1e-8);
    EXPECT_NEAR(az2, 180.0, 1e-8);

    d = az1 = az2 = -1;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(geographic.GetDistance(0, 91, 10, 0, d, az1, az2));
    EXPECT_FALSE(geographic.GetDistance(0, nan, 10, 0, d, az1, az2));
    EXPECT_TRUE(d == -1 && az1 == -1 && az2 == -1);
    double lon2 = -1, lat2 = -1;
    EXPECT_FALSE(geographic.GetPoint(0, -90.5, 30, 1000, lon2, lat2, az2));
    EXPECT_FALSE(geographic.GetPoint(0, 0, 30, nan, lon2, lat2, az2));
    EXPECT_TRUE(lon2 == -1 && lat2 == -1 && az2 == -1);
}

// Bad arguments: null outputs are ignored, NaN passes through as NaN, a huge
// text resolves to nothing.
TEST(MapProjection, HostileArguments) {
    const CGxMapProjection zone("UTM-32");
    zone.Geo2Proj(9, 48, nullptr, nullptr);
    zone.Proj2Geo(0, 0, nullptr, nullptr);
    zone.GetOrigin(nullptr, nullptr);
    zone.Geo2XYZ(9, 48, 0, nullptr, nullptr, nullptr);
    zone.XYZ2Geo(1, 2, 3, nullptr, nullptr, nullptr);
    zone.GetDefaultArea(nullptr, nullptr, nullptr, nullptr);
    double x = 0, y = 0;
    zone.Geo2Proj(std::numeric_limits<double>::quiet_NaN(), 48, &x, &y);
    EXPECT_TRUE(std::isnan(x));
    EXPECT_EQ(CGxMapProjection(std::string(100000, 'A')).GetProjection(), nullptr);
}
