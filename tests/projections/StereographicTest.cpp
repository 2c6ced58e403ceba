// Oblique stereographic on the ellipsoid and its polar aspect, against PROJ.
//
// The oblique aspect is the double projection through the Gauss conformal
// sphere; PROJ's "sterea" works on the same sphere (chi0 = asin(sin(lat0) / n),
// R = sqrt(rho0 nu0)), so the two agree to the micrometre, whereas PROJ's
// "stere" with an oblique origin is a different (single-step) projection. The
// polar aspect is compared with PROJ's "stere" at lat_0 = +-90 with k_0.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/Stereographic.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

// The ellipsoids as PROJ defines them (+ellps=...).

const auto kDutch = GxReadReferencePoints("stereographic/dutch.txt");
const auto kRomania = GxReadReferencePoints("stereographic/romania.txt");
const auto kChile = GxReadReferencePoints("stereographic/chile.txt");
const auto kNorthPolar = GxReadReferencePoints("stereographic/north_polar.txt");
const auto kSouthPolar = GxReadReferencePoints("stereographic/south_polar.txt");

CGxStereographic Dutch() {
    return CGxStereographic("RD", 0.9999079, 5.38763888888889, 52.15616055555555, 155000, 463000,
                            kGxBessel);
}

CGxStereographic NorthPolar(double lat0 = 90) {
    return CGxStereographic("UPS North", 0.994, 0, lat0, 2000000, 2000000, kGxWgs84);
}

CGxStereographic SouthPolar(double lat0 = -90) {
    return CGxStereographic("South", 0.97, -30, lat0, 1500000, 2500000, kGxInternational);
}

}  // namespace

TEST(Stereographic, ObliqueAspectAgreesWithProjOnThreeEllipsoids) {
    GxExpectReferenceTable(Dutch(), kDutch, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxStereographic("Stereo 70", 0.99975, 25, 46, 500000, 500000, kGxKrassowsky), kRomania,
        kGxMillimetreTable);
    GxExpectReferenceTable(CGxStereographic("Chile", 1, -70.75, -33.5, 200000, 600000, kGxGrs80),
                           kChile, kGxMillimetreTable);
}

TEST(Stereographic, PolarAspectAgreesWithProj) {
    GxExpectReferenceTable(NorthPolar(), kNorthPolar, kGxMillimetreTable);
    GxExpectReferenceTable(SouthPolar(), kSouthPolar, kGxMillimetreTable);
}

TEST(Stereographic, PolarAspectSwitchUsesTheRelativeTolerance) {
    // 89.9999999999999 differs from 90 by about 1e-15 relative: it is the pole
    // and selects the polar formulas, and so does -89.9999999999999.
    GxExpectReferenceTable(NorthPolar(89.9999999999999), kNorthPolar, kGxMillimetreTable);
    GxExpectReferenceTable(SouthPolar(-89.9999999999999), kSouthPolar, kGxMillimetreTable);

    // 1e-8 degrees (about a millimetre) short of the pole is no longer near
    // it: the oblique formulas take over, and they must still give the polar
    // map to within the millimetre the origin moved.
    const CGxStereographic oblique = NorthPolar(90 - 1e-8);
    for (const GxReferencePoint& r : kNorthPolar) {
        SCOPED_TRACE(testing::Message() << r.lon << " " << r.lat);
        GxExpectForward(oblique, r, 3e-3);
    }
    // The default area tells the aspects apart: the polar one is the +-200 km
    // square around the pole, the oblique one the +-3 degree box around its
    // origin, from (-3, 87 - 1e-8) to (3, 90):
    // cct -d 6 +proj=stere +lat_0=90 +k_0=0.994 +lon_0=0 +x_0=2000000
    //   +y_0=2000000 +ellps=WGS84 <<< "-3 87 0 0" -> 1982564.564787 1667312.077493
    double x0, y0, x1, y1;
    NorthPolar(89.9999999999999).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1800000);
    EXPECT_DOUBLE_EQ(y1, 2200000);
    oblique.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 1982564.564787, 5e-3);
    EXPECT_NEAR(y0, 1667312.077493, 5e-3);
    EXPECT_NEAR(x1, 2000000, 5e-3);
    EXPECT_NEAR(y1, 2000000, 5e-3);
}

TEST(Stereographic, ObliqueAspectStaysAccurateAsTheOriginNearsThePole) {
    // Between 1e-12 and a hundredth of a degree from a pole the oblique
    // formulas are still in charge; the map must tend smoothly to the polar
    // one, differing by about the distance the origin moved (111 km per
    // degree; allow 1.2 times that, plus a millimetre), not break down.
    // Polar values from kNorthPolar and kSouthPolar.
    struct {
        CGxStereographic (*make)(double);
        double pole, lon, lat, x, y;
    } cases[] = {{NorthPolar, 90, 45.5, 70.25, 3579004.931199, 448316.175664},
                 {SouthPolar, -90, -179, -66.5, 170657.043202, 287601.791993}};
    for (const auto& c : cases) {
        for (double offset : {1e-2, 1e-4, 1e-6, 1e-8, 1e-10}) {
            SCOPED_TRACE(testing::Message() << "origin " << c.pole << " offset " << offset);
            const CGxStereographic p = c.make(c.pole - std::copysign(offset, c.pole));
            double x, y, lon, lat;
            p.Geo2Proj(c.lon, c.lat, &x, &y);
            const double tolerance = 111000 * offset * 1.2 + 1e-3;
            EXPECT_NEAR(x, c.x, tolerance);
            EXPECT_NEAR(y, c.y, tolerance);
            p.Proj2Geo(x, y, &lon, &lat);
            EXPECT_NEAR(lon, c.lon, 1e-9);
            EXPECT_NEAR(lat, c.lat, 1e-9);
        }
    }
}

TEST(Stereographic, PolesAreOrdinaryPointsOfTheObliqueAspect) {
    // cct -d 6 +proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889
    //   +k=0.9999079 +x_0=155000 +y_0=463000 +ellps=bessel
    //   5.38763888888889 90  -> 155000   4842954.188318
    //   5.38763888888889 -90 -> 155000 -36734327.960018
    const GxReferencePoint poles[] = {{5.38763888888889, 90, 155000, 4842954.188318},
                                      {5.38763888888889, -90, 155000, -36734327.960018}};
    const CGxStereographic p = Dutch();
    for (const GxReferencePoint& r : poles) {
        GxExpectForward(p, r, 1e-3);
        double lon, lat;
        p.Proj2Geo(r.x, r.y, &lon, &lat);
        EXPECT_NEAR(lat, r.lat, 1e-9);
    }
}

TEST(Stereographic, OriginConvergenceAndDefaultArea) {
    double lon, lat;
    Dutch().GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 5.38763888888889, 1e-12);
    EXPECT_NEAR(lat, 52.15616055555555, 1e-12);
    NorthPolar(89.9999999999999).GetOrigin(&lon, &lat);
    EXPECT_NEAR(lat, 89.9999999999999, 1e-12);

    // proj -V, PROJ's "Convergence" line, same parameters as the tables:
    //   RD     9.5 56 -> 3.33265534;  1.5 49 -> -3.00478751;  7.125 50.5 -> 1.35660618
    //   Chile  -60 -20 -> -4.88484889; -80 -45 -> 5.89052211
    //   UPS N  45.5 70.25 -> 45.5;  -90 60 -> -90
    // The convergence is taken along a one-arc-minute chord of the meridian,
    // which on this map is a curve: the chord leans off the tangent by up to
    // 7e-4 degrees at these points.
    const CGxStereographic dutch = Dutch();
    EXPECT_NEAR(dutch.GetConvergence(9.5, 56), 3.33265534, 1e-3);
    EXPECT_NEAR(dutch.GetConvergence(1.5, 49), -3.00478751, 1e-3);
    EXPECT_NEAR(dutch.GetConvergence(7.125, 50.5), 1.35660618, 1e-3);
    const CGxStereographic chile("Chile", 1, -70.75, -33.5, 200000, 600000, kGxGrs80);
    EXPECT_NEAR(chile.GetConvergence(-60, -20), -4.88484889, 1e-3);
    EXPECT_NEAR(chile.GetConvergence(-80, -45), 5.89052211, 1e-3);
    EXPECT_NEAR(NorthPolar().GetConvergence(45.5, 70.25), 45.5, 1e-9);
    EXPECT_NEAR(NorthPolar().GetConvergence(-90, 60), -90, 1e-9);

    // Oblique: the +-3 degree box around the origin.
    // cct -d 6 (RD parameters as above)
    //   2.38763888888889 49.15616055555555 ->  -63891.378696 133702.100427
    //   8.38763888888889 55.15616055555555 ->  346284.338539 800938.347499
    double x0, y0, x1, y1;
    dutch.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, -63891.378696, 1e-3);
    EXPECT_NEAR(y0, 133702.100427, 1e-3);
    EXPECT_NEAR(x1, 346284.338539, 1e-3);
    EXPECT_NEAR(y1, 800938.347499, 1e-3);

    // Polar: +-200 km around the easting of the pole, in both axes (the
    // northing limits come from the easting too).
    CGxStereographic("P", 0.994, 0, 90, 2000000, 0, kGxWgs84).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1800000);
    EXPECT_DOUBLE_EQ(y0, 1800000);
    EXPECT_DOUBLE_EQ(x1, 2200000);
    EXPECT_DOUBLE_EQ(y1, 2200000);
    SouthPolar().GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1300000);
    EXPECT_DOUBLE_EQ(y0, 1300000);
    EXPECT_DOUBLE_EQ(x1, 1700000);
    EXPECT_DOUBLE_EQ(y1, 1700000);
}

// The scale factor is given, not derived: nothing is written.
TEST(Stereographic, NoDerivedParameter) {
    double derived = -7;
    Dutch().GetDerivedParameters(&derived);
    EXPECT_EQ(derived, -7);
}
