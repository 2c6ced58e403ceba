// The Hotine oblique Mercator family: natural-origin Hotine, centre-origin
// oblique Mercator and rectified skew orthomorphic, against PROJ's omerc (and
// somerc for the Swiss grid) on real national grids and on made-up southern
// and equatorial centres.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/HotineObliqueMercator.h"
#include "projections/ObliqueMercator.h"
#include "projections/RectifiedSkewOrthomorphic.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

using GridPoint = GxReferencePoint;

constexpr double kForwardTolerance = 1e-3;  // metres
constexpr double kInverseTolerance = 1e-9;  // degrees
// The one-arc-minute finite difference against PROJ's derivatives, degrees.
constexpr double kConvergenceTolerance = 2e-4;

const CGxEllipsoid kClarke1866("Clarke 1866", "CC", 6378206.4, 294.9786982);
const CGxEllipsoid kEverestSabah("Everest (Sabah & Sarawak)", "EB", 6377298.556, 300.8017);
const CGxEllipsoid kEverest1969("Everest 1969", "ED", 6377295.664, 300.8017);

// Alaska state plane zone 1 (EPSG:26931), natural origin, grid rectified by
// the azimuth.
CGxHotineObliqueMercator AlaskaZone1(const CGxEllipsoid& ellipsoid) {
    return CGxHotineObliqueMercator("Alaska zone 1", 0.9999, -133.666666666667, 57,
                                    323.130102361111, 5000000, -5000000, ellipsoid);
}

// Timbalai 1948 / RSO Borneo (EPSG:29874).
CGxRectifiedSkewOrthomorphic BorneoRso(double rotation) {
    return CGxRectifiedSkewOrthomorphic("RSO Borneo", 0.99984, 115, 4, 53.3158204722222, rotation,
                                        2000000, 5000000, kEverestSabah);
}

const auto kAlaskaNad83 = GxReadReferencePoints("oblique_mercator/alaska_nad83.txt");
const auto kAlaskaClarke = GxReadReferencePoints("oblique_mercator/alaska_clarke.txt");
const auto kSouthernHotine = GxReadReferencePoints("oblique_mercator/southern_hotine.txt");

TEST(HotineObliqueMercator, AlaskaZone1OnTwoEllipsoids) {
    GxExpectReferenceTable(AlaskaZone1(kGxGrs80), kAlaskaNad83, kGxMillimetreTable);
    GxExpectReferenceTable(AlaskaZone1(kClarke1866), kAlaskaClarke, kGxMillimetreTable);
}

TEST(HotineObliqueMercator, SouthernCentre) {
    GxExpectReferenceTable(
        CGxHotineObliqueMercator("south", 0.9996, 146, -38, 40, 400000, 2000000, kGxInternational),
        kSouthernHotine, kGxMillimetreTable);
}

const auto kSwiss = GxReadReferencePoints("oblique_mercator/swiss.txt");
const auto kRassadiran = GxReadReferencePoints("oblique_mercator/rassadiran.txt");
const auto kSouthernCentre = GxReadReferencePoints("oblique_mercator/southern_centre.txt");
const auto kEquatorialCentre = GxReadReferencePoints("oblique_mercator/equatorial_centre.txt");

// Azimuth 90 takes the east-west form of the centre offset, and the
// longitude of the natural origin sits exactly a quarter turn from the centre
// on the aposphere, where rounding once pushed asin past 1 and every result
// came out NaN.
TEST(ObliqueMercator, SwissGridAtAzimuth90) {
    GxExpectReferenceTable(CGxObliqueMercator("CH1903+ / LV95", 1, 7.43958333333333,
                                              46.9524055555556, 90, 2600000, 1200000, kGxBessel),
                           kSwiss, kGxMillimetreTable);
}

TEST(ObliqueMercator, CentreOriginGrids) {
    GxExpectReferenceTable(
        CGxObliqueMercator("Nakhl e Taqi", 0.999895934, 52.6035391666667, 27.5188288055556,
                           0.571661194444444, 658377.437, 3044969.194, kGxInternational),
        kRassadiran, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxObliqueMercator("south", 0.9996, 25, -30, 50, 500000, 1000000, kGxGrs80),
        kSouthernCentre, kGxMillimetreTable);
    GxExpectReferenceTable(CGxObliqueMercator("equator", 1, 110, 0, 30, 0, 0, kGxWgs84),
                           kEquatorialCentre, kGxMillimetreTable);
}

const auto kBorneo = GxReadReferencePoints("oblique_mercator/borneo.txt");
const auto kMalaya = GxReadReferencePoints("oblique_mercator/malaya.txt");
const auto kPeninsula = GxReadReferencePoints("oblique_mercator/peninsula.txt");

TEST(RectifiedSkewOrthomorphic, MalaysianAndBorneanGrids) {
    GxExpectReferenceTable(BorneoRso(53.1301023611111), kBorneo, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxRectifiedSkewOrthomorphic("RSO Malaya", 0.99984, 102.25, 4, 323.0257905,
                                     323.130102361111, 804670.24, 0, kEverest1969),
        kMalaya, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxRectifiedSkewOrthomorphic("Peninsula RSO", 0.99984, 102.25, 4, 323.025796466667,
                                     323.130102361111, 804671, 0, kGxGrs80),
        kPeninsula, kGxMillimetreTable);
}

const auto kBorneoSkew = GxReadReferencePoints("oblique_mercator/borneo_skew.txt");
const auto kBorneoMinus30 = GxReadReferencePoints("oblique_mercator/borneo_minus30.txt");

TEST(RectifiedSkewOrthomorphic, PlaneRotation) {
    GxExpectReferenceTable(BorneoRso(0), kBorneoSkew, kGxMillimetreTable);
    GxExpectReferenceTable(BorneoRso(-30), kBorneoMinus30, kGxMillimetreTable);
}

TEST(RectifiedSkewOrthomorphic, RotationEqualToAzimuthIsHotine) {
    const CGxHotineObliqueMercator hotine = AlaskaZone1(kClarke1866);
    const CGxRectifiedSkewOrthomorphic rso("rso", 0.9999, -133.666666666667, 57, 323.130102361111,
                                           323.130102361111, 5000000, -5000000, kClarke1866);
    for (const GridPoint& r : kAlaskaClarke) {
        double xh, yh, xr, yr;
        hotine.Geo2Proj(r.lon, r.lat, &xh, &yh);
        rso.Geo2Proj(r.lon, r.lat, &xr, &yr);
        EXPECT_DOUBLE_EQ(xh, xr);
        EXPECT_DOUBLE_EQ(yh, yr);
    }
}

// Convergence from proj -V (its "Convergence" line) at the given point.
TEST(ObliqueMercatorFamily, Convergence) {
    // echo "-137.5 58.5" | proj -V <Alaska zone 1 NAD83 as above>: -3.25689196
    EXPECT_NEAR(AlaskaZone1(kGxGrs80).GetConvergence(-137.5, 58.5), -3.25689196,
                kConvergenceTolerance);
    // echo "117.5 6" | proj -V <RSO Borneo as above>: 0.40056649
    EXPECT_NEAR(BorneoRso(53.1301023611111).GetConvergence(117.5, 6), 0.40056649,
                kConvergenceTolerance);
    // echo "10.4 47.7" | proj -V <somerc as above>: 2.16318632
    const CGxObliqueMercator swiss("CH", 1, 7.43958333333333, 46.9524055555556, 90, 2600000,
                                   1200000, kGxBessel);
    EXPECT_NEAR(swiss.GetConvergence(10.4, 47.7), 2.16318632, kConvergenceTolerance);
}

TEST(ObliqueMercatorFamily, OriginAndDefaultAreaAroundCentre) {
    const CGxHotineObliqueMercator alaska = AlaskaZone1(kGxGrs80);
    double lon, lat;
    alaska.GetOrigin(&lon, &lat);
    EXPECT_DOUBLE_EQ(lon, -133.666666666667);
    EXPECT_DOUBLE_EQ(lat, 57);
    // The corners of the +-3 degree box around the centre:
    // echo "-136.666666666667 54 0 0" (and "-130.666666666667 60 0 0") | cct -d 6 <Alaska zone 1
    // NAD83 as above>
    double x0, y0, x1, y1;
    alaska.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 621908.814319, kForwardTolerance);
    EXPECT_NEAR(y0, 245193.057583, kForwardTolerance);
    EXPECT_NEAR(x1, 986079.180168, kForwardTolerance);
    EXPECT_NEAR(y1, 913136.981889, kForwardTolerance);
}

// At a geographic pole t(phi) is 0 and the forward formulas have no value:
// we return NaN there (PROJ takes the limit, a finite point). NaN input goes
// through as NaN.
TEST(ObliqueMercatorFamily, UnprojectablePointsGiveNaN) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const CGxObliqueMercator p("south", 0.9996, 25, -30, 50, 500000, 1000000, kGxGrs80);
    double x, y;
    p.Geo2Proj(25, 90, &x, &y);
    EXPECT_TRUE(std::isnan(x) || std::isnan(y));
    p.Geo2Proj(nan, -30, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
    p.Proj2Geo(nan, 1000000, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
}

}  // namespace
