#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/Geographical.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceCheck.h"

namespace {

struct Case {
    double lon, lat, x, y;  // degrees
};

// Longitudes relative to a central meridian, never wrapped (PROJ needs +over
// to leave them alone):
//   echo "lon lat 0 0" | cct -d 10 +proj=pipeline
//     +step +proj=unitconvert +xy_in=deg +xy_out=rad
//     +step +proj=longlat +lon_0=10 +ellps=GRS80 +over
//     +step +proj=unitconvert +xy_in=rad +xy_out=deg
constexpr Case kMeridian10[] = {
    {15, 50, 5.0000000000, 50.0000000000},
    {-180, -60, -190.0000000000, -60.0000000000},
    {180, 81, 170.0000000000, 81.0000000000},
    {0, 0, -10.0000000000, 0.0000000000},
    {-175, 50, -185.0000000000, 50.0000000000},
    {179.999999, -89.999999, 169.9999990000, -89.9999990000},
    {10, 90, 0.0000000000, 90.0000000000},
    {10, -90, 0.0000000000, -90.0000000000},
    {-33.3, 12.125, -43.3000000000, 12.1250000000},
    {123.456789, -45.678901, 113.4567890000, -45.6789010000},
    {359, 10, 349.0000000000, 10.0000000000},
    {-359.5, -10, -369.5000000000, -10.0000000000},
    {7.25, 52.5, -2.7500000000, 52.5000000000},
    {90, -1e-06, 80.0000000000, -0.0000010000},
    {-1e-06, 33, -10.0000010000, 33.0000000000},
};

template <std::size_t N>
void ExpectTable(const CGxProjection& p, const Case (&table)[N]) {
    for (const Case& c : table) {
        double x, y, lon, lat;
        p.Geo2Proj(c.lon, c.lat, &x, &y);
        EXPECT_NEAR(x, c.x, 1e-12) << c.lon << " " << c.lat;
        EXPECT_EQ(y, c.y) << c.lon << " " << c.lat;
        p.Proj2Geo(c.x, c.y, &lon, &lat);
        EXPECT_NEAR(lon, c.lon, 1e-12) << c.x << " " << c.y;
        EXPECT_EQ(lat, c.lat) << c.x << " " << c.y;
    }
}

}  // namespace

TEST(Geographical, ShiftsLongitudeToTheCentralMeridian) {
    CGxGeographical ten("Geo 10E", 10, kGxGrs80);
    double x, y;
    ten.Geo2Proj(15, 50, &x, &y);
    EXPECT_EQ(x, 5.0);
    EXPECT_EQ(y, 50.0);
    ExpectTable(ten, kMeridian10);
    // An empty name is the local grid, which ignores the central meridian.
    GxExpectIdentity(CGxGeographical("", 10, kGxGrs80), 15, 50);
}

TEST(Geographical, DefaultAreaFollowsTheCentralMeridian) {
    double x0, y0, x1, y1;
    CGxGeographical("Geo 10E", 10, kGxGrs80).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_EQ(x0, -190.0);
    EXPECT_EQ(y0, -60.0);
    EXPECT_EQ(x1, 170.0);
    EXPECT_EQ(y1, 81.0);
    CGxGeographical("Geo", 0, kGxGrs80).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_EQ(x0, -180.0);
    EXPECT_EQ(x1, 180.0);
}

TEST(Geographical, IsGeographicalWithBaseOriginAndConvergence) {
    CGxGeographical geo("Geo 10E", 10, kGxGrs80);
    EXPECT_TRUE(geo.IsGeographical());
    EXPECT_FALSE(geo.IsLocal());
    EXPECT_STREQ(geo.GetName(), "Geo 10E");
    // Grid north is true north everywhere; the origin is left at (0, 0) even
    // with a central meridian.
    EXPECT_EQ(geo.GetConvergence(80, 60), 0.0);
    double lon = -1, lat = -1;
    geo.GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 0.0);
    EXPECT_EQ(lat, 0.0);
}
