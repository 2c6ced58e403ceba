#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

#include "mapprojection/Cartography.h"
#include "mapprojection/MapProjection.h"

// Reference points of UTM 32 and 33 on WGS 84 at (12.5 E, 48 N):
//   printf "12.5 48 0 0\n" | cct -d 6 +proj=utm +zone=32 +ellps=WGS84
//     761067.412142  5322229.462266
//   printf "12.5 48 0 0\n" | cct -d 6 +proj=utm +zone=33 +ellps=WGS84
//     313517.364852  5319324.563734
// and the grid convergence there (third column, degrees):
//   printf "48 12.5\n" | TransverseMercatorProj -l 9 -k 0.9996     2.602468941792
//   printf "48 12.5\n" | TransverseMercatorProj -l 15 -k 0.9996   -1.858394816545
namespace {
constexpr double kLon = 12.5, kLat = 48;
constexpr double kX32 = 761067.412142, kY32 = 5322229.462266;
constexpr double kX33 = 313517.364852, kY33 = 5319324.563734;
constexpr double kGamma32 = 2.602468941792;
constexpr double kGamma33 = -1.858394816545;
// The facade's convergence is a one-arc-minute finite difference.
constexpr double kConvergenceTol = 2e-4;
}  // namespace

// The grid's origin is its (0, 0); its angle against projection north is the
// orientation less the convergence there, and true north at the origin is
// the orientation itself.
TEST(Cartography, OriginAndNorthAngles) {
    const CGxCartography grid("UTM-32", kLon, kLat, 30);
    EXPECT_NEAR(grid.GetProjectionNorth(), 30 - kGamma32, kConvergenceTol);
    EXPECT_NEAR(grid.GetTrueNorth(0, 0), 30, 1e-9);
    // Away from the origin true north turns with the convergence.
    double X, Y;
    grid.Geo2Xy(14.5, kLat, &X, &Y);
    EXPECT_GT(grid.GetTrueNorth(X, Y), 31);

    grid.Geo2Xy(kLon, kLat, &X, &Y);
    EXPECT_NEAR(X, 0, 1e-6);
    EXPECT_NEAR(Y, 0, 1e-6);
    double lon, lat;
    grid.Xy2Geo(0, 0, &lon, &lat);
    EXPECT_NEAR(lon, kLon, 1e-10);
    EXPECT_NEAR(lat, kLat, 1e-10);
}

// With the orientation equal to the convergence at the origin the grid runs
// parallel to the projection's axes: a pure shift.
TEST(Cartography, GridAlongProjectionNorthIsAShift) {
    const double convergence = CGxMapProjection("UTM-32").GetConvergence(kLon, kLat);
    EXPECT_NEAR(convergence, kGamma32, kConvergenceTol);
    const CGxCartography grid("UTM-32", kLon, kLat, convergence);
    EXPECT_EQ(grid.GetProjectionNorth(), 0);
    double X, Y;
    grid.Proj2Xy(kX32 + 120.5, kY32 - 80.25, &X, &Y);
    EXPECT_NEAR(X, 120.5, 1e-3);
    EXPECT_NEAR(Y, -80.25, 1e-3);
}

// The orientation turns the grid's Y axis clockwise from north: at 90 degrees
// a point east of the origin lies on the grid's Y axis and a point north of it
// on the negative X axis. The local grid makes the projected origin the
// geographical one and has no convergence.
TEST(Cartography, OrientationTurnsClockwise) {
    const CGxCartography grid("NON-UTM", 1000, 2000, 90);
    EXPECT_EQ(grid.GetProjectionNorth(), 90);
    double X, Y;
    grid.Proj2Xy(1000, 2000, &X, &Y);
    EXPECT_EQ(X, 0);
    EXPECT_EQ(Y, 0);
    grid.Proj2Xy(1010, 2000, &X, &Y);
    EXPECT_NEAR(X, 0, 1e-12);
    EXPECT_NEAR(Y, 10, 1e-12);
    grid.Proj2Xy(1000, 2010, &X, &Y);
    EXPECT_NEAR(X, -10, 1e-12);
    EXPECT_NEAR(Y, 0, 1e-12);

    // The plain rotation helper turns by the same rule.
    CGxCartography::_csysrot(10, 0, 90, &X, &Y);
    EXPECT_NEAR(X, 0, 1e-12);
    EXPECT_NEAR(Y, -10, 1e-12);
}

// Round trips through the grid, in projected and in geographical
// coordinates, far from the origin too.
TEST(Cartography, GridTransformsInvertEachOther) {
    const CGxCartography grid("UTM-33", kLon, kLat, -37.25);
    double X, Y, x, y, lon, lat;
    grid.Proj2Xy(-1e6, 1e7, &X, &Y);
    grid.Xy2Proj(X, Y, &x, &y);
    EXPECT_NEAR(x, -1e6, 1e-8);
    EXPECT_NEAR(y, 1e7, 1e-8);
    grid.Geo2Xy(13.75, 47.1, &X, &Y);
    grid.Xy2Geo(X, Y, &lon, &lat);
    EXPECT_NEAR(lon, 13.75, 1e-9);
    EXPECT_NEAR(lat, 47.1, 1e-9);
}

// "UTM" in the grid's constructor picks the zone of the origin longitude.
TEST(Cartography, GenericUtmPicksTheZoneOfTheOrigin) {
    const CGxCartography grid("UTM", 9, 48, 0);
    EXPECT_STREQ(grid.GetProjectionName(), "UTM-32");
    EXPECT_EQ(std::string(grid.GetProjectionString()).rfind("PROJCS[\"UTM-32\"", 0), 0u);
    double x, y;
    grid.Geo2Proj(kLon, kLat, &x, &y);
    EXPECT_NEAR(x, kX32, 1e-3);
    EXPECT_NEAR(y, kY32, 1e-3);

    EXPECT_STREQ(CGxCartography("UTM", 0, 0, 0).GetProjectionName(), "UTM-31");
    EXPECT_STREQ(CGxCartography("UTM", -180, 0, 0).GetProjectionName(), "UTM-1");
    EXPECT_STREQ(CGxCartography("UTM", -0.1, 0, 0).GetProjectionName(), "UTM-30");
    // Only the exact word: with blanks it goes to the map projection, which
    // refuses it, as it does when the origin has no longitude.
    EXPECT_THROW(CGxCartography(" UTM", 9, 48, 0), std::out_of_range);
    EXPECT_THROW(CGxCartography("UTM", std::numeric_limits<double>::quiet_NaN(), 48, 0),
                 std::out_of_range);
    EXPECT_THROW(CGxCartography(CGxMapProjection("UTM"), 9, 48, 0), std::out_of_range);
}

// Projected coordinates of one system to those of another, through
// longitude/latitude; neither grid's rotation takes part.
TEST(Cartography, ConvertFromAnotherSystem) {
    const CGxCartography zone32("UTM-32", 9, 50, 45);
    const CGxCartography zone33(CGxMapProjection("UTM-33"), 15, 40, -10);
    double x, y;
    zone33.ConvertFrom(zone32, kX32, kY32, &x, &y);
    EXPECT_NEAR(x, kX33, 1e-3);
    EXPECT_NEAR(y, kY33, 1e-3);
    EXPECT_NEAR(zone33.GetProjectionNorth(),
                -10 - CGxMapProjection("UTM-33").GetConvergence(15, 40), 1e-12);
    EXPECT_NEAR(CGxMapProjection("UTM-33").GetConvergence(kLon, kLat), kGamma33, kConvergenceTol);
}

// Copies rebuild the system from its projection string and keep the grid.
TEST(Cartography, CopiesKeepSystemAndGrid) {
    auto* original = new CGxCartography("UTM", 9, 48, 25);
    CGxCartography copy(*original);
    CGxCartography assigned("NON-UTM", 0, 0, 0);
    assigned = *original;
    double X0, Y0;
    original->Geo2Xy(kLon, kLat, &X0, &Y0);
    delete original;
    for (const CGxCartography* grid : {&copy, &assigned}) {
        ASSERT_NE(grid->GetProjection(), nullptr);
        EXPECT_STREQ(grid->GetProjectionName(), "UTM-32");
        double X, Y;
        grid->Geo2Xy(kLon, kLat, &X, &Y);
        EXPECT_NEAR(X, X0, 1e-6);
        EXPECT_NEAR(Y, Y0, 1e-6);
    }
    assigned = assigned;
    EXPECT_NE(assigned.GetProjection(), nullptr);
}

// A string that resolves to nothing: the grid converts nothing and leaves
// its outputs alone.
TEST(Cartography, UnknownSystemConvertsNothing) {
    const CGxCartography grid("no such system", 9, 48, 10);
    EXPECT_STREQ(grid.GetProjectionString(), "");
    EXPECT_STREQ(grid.GetProjectionName(), "");
    EXPECT_EQ(grid.GetProjectionNorth(), 10);
    EXPECT_EQ(grid.GetTrueNorth(5, 5), 10);
    double a = 1, b = 2;
    grid.Geo2Xy(9, 48, &a, &b);
    grid.Xy2Geo(0, 0, &a, &b);
    grid.ConvertFrom(CGxCartography("UTM-32", 9, 48, 0), kX32, kY32, &a, &b);
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 2);
    grid.Proj2Xy(1, 2, nullptr, nullptr);
    grid.Xy2Proj(1, 2, nullptr, nullptr);
}
