// Lambert conformal conic, one and two standard parallels, against PROJ.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "foundation/Ellipsoid.h"
#include "projections/Lambert1SP.h"
#include "projections/Lambert2SP.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

// The ellipsoids as PROJ defines them (+ellps=...); Clarke 1866 is given there
// by its axes a = 6378206.4, b = 6356583.8, so 1/f = a / (a - b).

const auto kFrance2SP = GxReadReferencePoints("lambert_conic/france_2sp.txt");
const auto kTexas2SP = GxReadReferencePoints("lambert_conic/texas_2sp.txt");
const auto kSouthernCone2SP = GxReadReferencePoints("lambert_conic/southern_cone_2sp.txt");
const auto kFrance1SP = GxReadReferencePoints("lambert_conic/france_1sp.txt");
const auto kJamaica1SP = GxReadReferencePoints("lambert_conic/jamaica_1sp.txt");
const auto kSouthern1SP = GxReadReferencePoints("lambert_conic/southern_1sp.txt");

CGxLambert2SP France2SP() {
    return CGxLambert2SP("Lambert-93", 49, 44, 3, 46.5, 700000, 6600000, kGxGrs80);
}

CGxLambert2SP SouthernCone() {
    return CGxLambert2SP("South", -20, -40, 25, -30, 1000000, 2000000, kGxInternational);
}

}  // namespace

TEST(LambertConformalConic2SP, AgreesWithProjOnTwoEllipsoidsAndASouthernCone) {
    GxExpectReferenceTable(France2SP(), kFrance2SP, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxLambert2SP("Texas", 30.5, 35.25, -100.5, 29, 700000, 3000000, kGxClarke1866), kTexas2SP,
        kGxMillimetreTable);
    GxExpectReferenceTable(SouthernCone(), kSouthernCone2SP, kGxMillimetreTable);
}

TEST(LambertConformalConic1SP, AgreesWithProjOnThreeEllipsoidsAndASouthernCone) {
    GxExpectReferenceTable(
        CGxLambert1SP("France", 0.99987742, 2.337229167, 46.8, 600000, 2200000, kGxGrs80),
        kFrance1SP, kGxMillimetreTable);
    GxExpectReferenceTable(CGxLambert1SP("Jamaica", 1, -77, 18, 250000, 150000, kGxClarke1866),
                           kJamaica1SP, kGxMillimetreTable);
    GxExpectReferenceTable(CGxLambert1SP("South", 0.9999, 145, -35, 400000, 800000, kGxBessel),
                           kSouthern1SP, kGxMillimetreTable);
}

TEST(LambertConformalConic2SP, PoleOfTheConeMapsToTheApexAndBack) {
    // The pole on the cone's side is the apex: x = FE, y = FN + rF.
    // cct -d 6 +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000
    //   +y_0=6600000 +ellps=GRS80  <<< "3 90 0 0"     -> 700000 12655612.049876
    // cct -d 6 +proj=lcc +lat_1=-20 +lat_2=-40 +lat_0=-30 +lon_0=25 +x_0=1000000
    //   +y_0=2000000 +ellps=intl   <<< "25 -90 0 0"   -> 1000000 -8832800.623143
    struct {
        CGxLambert2SP p;
        double lat, x, y;
    } cases[] = {{France2SP(), 90, 700000, 12655612.049876},
                 {SouthernCone(), -90, 1000000, -8832800.623143}};
    for (const auto& c : cases) {
        double x, y, lon, lat;
        double lon0, lat0;
        c.p.GetOrigin(&lon0, &lat0);
        // Every meridian meets at the apex.
        for (double lon : {lon0 - 100, lon0, lon0 + 45}) {
            c.p.Geo2Proj(lon, c.lat, &x, &y);
            EXPECT_NEAR(x, c.x, 1e-3);
            EXPECT_NEAR(y, c.y, 1e-3);
        }
        // Back from the apex: the pole (its longitude is any).
        c.p.Proj2Geo(c.x, c.y, &lon, &lat);
        EXPECT_NEAR(lat, c.lat, 1e-9);
    }
}

TEST(LambertConformalConic2SP, BeyondTheApexPoleClampsToTheApex) {
    // Past 90 degrees the isometric term turns negative; it is held at 0, so
    // the point lands on the apex rather than on a mirrored cone.
    const CGxLambert2SP p = France2SP();
    double x, y;
    p.Geo2Proj(3, 95, &x, &y);
    EXPECT_NEAR(x, 700000, 1e-3);
    EXPECT_NEAR(y, 12655612.049876, 1e-3);
}

TEST(LambertConformalConic2SP, LongitudeIsNotWrapped) {
    // lon0 + 362 is not lon0 + 2: the angle on the cone grows by 360 n degrees.
    // PROJ wraps longitudes unless told +over, which then matches us:
    // cct -d 6 +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000
    //   +y_0=6600000 +ellps=GRS80 +over
    //   365 47  -> -5251047.326878 13421124.946364
    //   -355 47 ->  6604651.393470 13721476.113922
    //   5 47    ->   851956.742604  6657455.380548
    const CGxLambert2SP p = France2SP();
    const GxReferencePoint unwrapped[] = {{365, 47, -5251047.326878, 13421124.946364},
                                          {-355, 47, 6604651.393470, 13721476.113922},
                                          {5, 47, 851956.742604, 6657455.380548}};
    for (const GxReferencePoint& r : unwrapped) {
        SCOPED_TRACE(r.lon);
        GxExpectForward(p, r, 1e-3);
    }
}

TEST(LambertConformalConic2SP, EqualParallelsAreTheTangentCone) {
    // With both parallels equal the ratio of logarithms is 0/0; the tangent
    // cone takes n = sin(lat1) and then is the one-parallel form with scale 1.
    // cct -d 6 +proj=lcc +lat_1=46.8 +lat_2=46.8 +lat_0=46.8 +lon_0=2.337229167
    //   +x_0=600000 +y_0=2200000 +ellps=GRS80
    //   10 50 -> 1149390.118155 2582823.266650
    //   -3 40 ->  141493.983042 1458368.645636
    const CGxLambert2SP twoSP("T", 46.8, 46.8, 2.337229167, 46.8, 600000, 2200000, kGxGrs80);
    const CGxLambert1SP oneSP("T", 1, 2.337229167, 46.8, 600000, 2200000, kGxGrs80);
    const GxReferencePoint table[] = {{10, 50, 1149390.118155, 2582823.266650},
                                      {-3, 40, 141493.983042, 1458368.645636}};
    GxExpectReferenceTable(twoSP, table, kGxMillimetreTable);
    GxExpectReferenceTable(oneSP, table, kGxMillimetreTable);
    EXPECT_DOUBLE_EQ(twoSP.GetConvergence(10, 50), oneSP.GetConvergence(10, 50));
}

TEST(LambertConformalConic, ConvergenceIsConeConstantTimesLongitudeDifference) {
    // proj -V (PROJ's "Convergence" line), same parameters as the tables:
    //   France 2SP  7.125 49.75 ->  2.99313203;  -5.5 41 -> -6.16766600;
    //               10 51.5     ->  5.07925436
    //   South cone  38 -45.25   -> -6.53414162;  12 -12  ->  6.53414162
    const CGxLambert2SP france = France2SP();
    EXPECT_NEAR(france.GetConvergence(7.125, 49.75), 2.99313203, 1e-8);
    EXPECT_NEAR(france.GetConvergence(-5.5, 41), -6.16766600, 1e-8);
    EXPECT_NEAR(france.GetConvergence(10, 51.5), 5.07925436, 1e-8);
    // On a cone the convergence does not depend on the latitude.
    EXPECT_EQ(france.GetConvergence(10, 51.5), france.GetConvergence(10, -20));
    const CGxLambert2SP south = SouthernCone();
    EXPECT_NEAR(south.GetConvergence(38, -45.25), -6.53414162, 1e-8);
    EXPECT_NEAR(south.GetConvergence(12, -12), 6.53414162, 1e-8);
}

TEST(LambertConformalConic, OriginAndDefaultArea) {
    double lon, lat;
    France2SP().GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 3, 1e-12);
    EXPECT_NEAR(lat, 46.5, 1e-12);
    CGxLambert1SP("J", 1, -77, 18, 250000, 150000, kGxClarke1866).GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, -77, 1e-12);
    EXPECT_NEAR(lat, 18, 1e-12);

    // The +-3 degree box around the false origin:
    // cct -d 6 +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000
    //   +y_0=6600000 +ellps=GRS80
    //   0 43.5 -> 457328.754419 6271378.818746;  6 49.5 -> 917349.973458 6937534.821519
    double x0, y0, x1, y1;
    France2SP().GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 457328.754419, 1e-3);
    EXPECT_NEAR(y0, 6271378.818746, 1e-3);
    EXPECT_NEAR(x1, 917349.973458, 1e-3);
    EXPECT_NEAR(y1, 6937534.821519, 1e-3);
}

TEST(LambertConformalConic2SP, DefaultAreaAtAPolarFalseOriginCentresOnTheMeanParallel) {
    // A box around the apex would be empty; the box is centred on latitude 70,
    // midway between the standard parallels 60 and 80:
    // cct -d 6 +proj=lcc +lat_1=60 +lat_2=80 +lat_0=90 +lon_0=-40 +x_0=2000000
    //   +y_0=1000000 +ellps=WGS84
    //   -43 67 -> 1870958.097548 -1606160.743342
    //   -37 73 -> 2096438.416409  -947693.037830
    const CGxEllipsoid wgs84("WGS 84", "WE", 6378137.0, 298.257223563);
    for (double latF : {90.0, 89.9999999999999}) {
        const CGxLambert2SP p("Arctic", 60, 80, -40, latF, 2000000, 1000000, wgs84);
        double x0, y0, x1, y1;
        p.GetDefaultArea(&x0, &y0, &x1, &y1);
        EXPECT_NEAR(x0, 1870958.097548, 1e-3) << latF;
        EXPECT_NEAR(y0, -1606160.743342, 1e-3) << latF;
        EXPECT_NEAR(x1, 2096438.416409, 1e-3) << latF;
        EXPECT_NEAR(y1, -947693.037830, 1e-3) << latF;
    }
}

TEST(LambertConformalConic, SphereAgreesWithProj) {
    // The sphere is the ellipsoid with e = 0, through the same formulas.
    // cct -d 6 +proj=lcc +lat_1=33 +lat_2=45 +lat_0=23 +lon_0=-96 +x_0=0 +y_0=0 +R=6371000
    //   -120 50 -> -1719152.591966 3244428.145268
    //   -75 28  ->  2069047.833749  808217.874079
    const CGxEllipsoid sphere("Sphere", "SP", 6371000.0, 0.0);
    const GxReferencePoint table[] = {{-120, 50, -1719152.591966, 3244428.145268},
                                      {-75, 28, 2069047.833749, 808217.874079}};
    GxExpectReferenceTable(CGxLambert2SP("Conus", 33, 45, -96, 23, 0, 0, sphere), table,
                           kGxMillimetreTable);
}

TEST(LambertConformalConic, FlatConeGivesNotANumber) {
    // A cone constant of 0 (the one-parallel origin on the equator, or two
    // parallels mirrored about it) is a cylinder, which no cone can draw:
    // every point comes out as NaN rather than somewhere plausible.
    const CGxLambert1SP equator("E", 1, 0, 0, 500000, 0, kGxGrs80);
    const CGxLambert2SP mirrored("M", 30, -30, 0, 0, 500000, 0, kGxGrs80);
    for (const CGxProjection* p : {static_cast<const CGxProjection*>(&equator),
                                   static_cast<const CGxProjection*>(&mirrored)}) {
        double x, y, lon, lat;
        p->Geo2Proj(10, 20, &x, &y);
        EXPECT_TRUE(std::isnan(x) || std::isnan(y));
        p->Proj2Geo(600000, 100000, &lon, &lat);
        EXPECT_TRUE(std::isnan(lon) || std::isnan(lat));
    }
}
