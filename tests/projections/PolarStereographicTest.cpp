// Polar stereographic defined by a standard parallel (north- and south-pole
// classes) and the wrapper that chooses among the polar forms, against PROJ's
// "stere" with lat_0 = +-90 and lat_ts.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/PolarStereographic.h"
#include "projections/StereographicNorthPole.h"
#include "projections/StereographicSouthPole.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

// The ellipsoids as PROJ defines them (+ellps=...); Clarke 1866 is given there
// by its axes a = 6378206.4, b = 6356583.8, so 1/f = a / (a - b).

const auto kArctic70 = GxReadReferencePoints("polar_stereographic/arctic70.txt");
const auto kArctic60 = GxReadReferencePoints("polar_stereographic/arctic60.txt");
const auto kAntarctic71 = GxReadReferencePoints("polar_stereographic/antarctic71.txt");
const auto kAntarctic60 = GxReadReferencePoints("polar_stereographic/antarctic60.txt");
const auto kUpsSouth = GxReadReferencePoints("polar_stereographic/ups_south.txt");
const auto kEquator = GxReadReferencePoints("polar_stereographic/equator.txt");

CGxStereographicNorthPole Arctic70() {
    return CGxStereographicNorthPole("Arctic", 70, -45, 0, 0, kGxWgs84);
}

CGxStereographicSouthPole Antarctic71() {
    return CGxStereographicSouthPole("Antarctic", -71, 0, 0, 0, kGxWgs84);
}

}  // namespace

TEST(StereographicNorthPole, AgreesWithProjOnTwoEllipsoids) {
    GxExpectReferenceTable(Arctic70(), kArctic70, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxStereographicNorthPole("A60", 60, 10, 300000, -400000, kGxInternational), kArctic60,
        kGxMillimetreTable);
    GxExpectReferenceTable(CGxStereographicNorthPole("Eq", 0, 0, 0, 0, kGxWgs84), kEquator,
                           kGxMillimetreTable);
}

TEST(StereographicSouthPole, AgreesWithProjOnTwoEllipsoids) {
    GxExpectReferenceTable(Antarctic71(), kAntarctic71, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxStereographicSouthPole("A60", -60, 140, 1000000, 2000000, kGxClarke1866), kAntarctic60,
        kGxMillimetreTable);
}

TEST(StereographicPoles, DerivedScaleAtThePole) {
    // proj -V, "Parallel scale (k)" a hair from the pole (89.999999), where
    // it equals the scale at the pole to all printed digits:
    //   +proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +ellps=WGS84   -> 0.96985819
    //   +proj=stere +lat_0=90 +lat_ts=60 +lon_0=10 +ellps=intl     -> 0.93306931
    //   +proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=0 +ellps=WGS84   -> 0.97276901
    double k0 = 0;
    Arctic70().GetDerivedParameters(&k0);
    EXPECT_NEAR(k0, 0.96985819, 5e-9);
    CGxStereographicNorthPole("A60", 60, 10, 0, 0, kGxInternational).GetDerivedParameters(&k0);
    EXPECT_NEAR(k0, 0.93306931, 5e-9);
    Antarctic71().GetDerivedParameters(&k0);
    EXPECT_NEAR(k0, 0.97276901, 5e-9);
    // The two hemispheres mirror each other.
    double k0South = 0;
    CGxStereographicSouthPole("S", -70, -45, 0, 0, kGxWgs84).GetDerivedParameters(&k0South);
    Arctic70().GetDerivedParameters(&k0);
    EXPECT_NEAR(k0South, k0, 1e-15);
}

TEST(StereographicPoles, PoleIsTheFalseOriginBothWays) {
    const CGxStereographicNorthPole north("N", 60, 10, 300000, -400000, kGxInternational);
    const CGxStereographicSouthPole south("S", -60, 140, 1000000, 2000000, kGxClarke1866);
    double lon, lat, x, y;
    north.GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 10, 1e-12);
    EXPECT_EQ(lat, 90.0);
    north.Geo2Proj(-33, 90, &x, &y);
    EXPECT_EQ(x, 300000);
    EXPECT_EQ(y, -400000);
    north.Proj2Geo(300000, -400000, &lon, &lat);
    EXPECT_NEAR(lon, 10, 1e-12);
    EXPECT_NEAR(lat, 90, 1e-12);

    south.GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 140, 1e-12);
    EXPECT_EQ(lat, -90.0);
    south.Geo2Proj(71, -90, &x, &y);
    EXPECT_EQ(x, 1000000);
    EXPECT_EQ(y, 2000000);
    south.Proj2Geo(1000000, 2000000, &lon, &lat);
    EXPECT_NEAR(lon, 140, 1e-12);
    EXPECT_NEAR(lat, -90, 1e-12);
}

TEST(StereographicPoles, GridLineThroughThePoleKeepsTheOriginLongitude) {
    // From a north pole the origin meridian points to grid south; the grid
    // line x = false easting north of the pole is the meridian lon0 + 180, but
    // the inverse keeps lon0 there (PROJ gives lon0 + 180). The latitude is
    // right all the same.
    // cct -d 6 +proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +x_0=0 +y_0=0 +ellps=WGS84
    //   135 80 -> 0.000000 1085920.297393 (x is 1.3e-10 in full precision)
    double lon, lat;
    Arctic70().Proj2Geo(0, 1085920.297393, &lon, &lat);
    EXPECT_NEAR(lon, -45, 1e-12);
    EXPECT_NEAR(lat, 80, 1e-9);
    // From a south pole the origin meridian points to grid north; south of
    // the pole on the grid line lies lon0 + 180.
    Antarctic71().Proj2Geo(0, -500000, &lon, &lat);
    EXPECT_EQ(lon, 0.0);
    EXPECT_LT(lat, -85);
    // Just off the line the far side is found.
    Antarctic71().Proj2Geo(1e-6, -500000, &lon, &lat);
    EXPECT_NEAR(std::fabs(lon), 180, 1e-9);
}

TEST(StereographicPoles, ConvergenceAndDefaultArea) {
    // proj -V: +proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +ellps=WGS84 at
    // (60.5, 62.75) -> 105.5; +proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=0
    // +ellps=WGS84 at (45, -65) -> -45. Meridians are straight, so the
    // finite difference is exact.
    EXPECT_NEAR(Arctic70().GetConvergence(60.5, 62.75), 105.5, 1e-9);
    EXPECT_NEAR(Antarctic71().GetConvergence(45, -65), -45, 1e-9);

    // +-200 km around the easting of the pole in both axes: the northing
    // limits come from the false easting, not the false northing.
    double x0, y0, x1, y1;
    CGxStereographicNorthPole("N", 60, 10, 300000, -400000, kGxInternational)
        .GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 100000);
    EXPECT_DOUBLE_EQ(y0, 100000);
    EXPECT_DOUBLE_EQ(x1, 500000);
    EXPECT_DOUBLE_EQ(y1, 500000);
    CGxStereographicSouthPole("S", -71, 0, 2000000, 0, kGxWgs84).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1800000);
    EXPECT_DOUBLE_EQ(y0, 1800000);
    EXPECT_DOUBLE_EQ(x1, 2200000);
    EXPECT_DOUBLE_EQ(y1, 2200000);
}

TEST(PolarStereographic, OriginAtAPoleUsesTheGivenScale) {
    // The pole itself, or within the relative tolerance of it: the polar
    // aspect of the stereographic with scale 0.994 at the pole.
    for (double lat0 : {-90.0, -89.9999999999999}) {
        const CGxPolarStereographic p("UPS South", 0.994, 0, lat0, 2000000, 2000000, kGxWgs84);
        GxExpectReferenceTable(p, kUpsSouth, kGxMillimetreTable);
    }
    // The inner object keeps the origin latitude as given, where a pole class
    // would report exactly -90.
    double lon, lat;
    CGxPolarStereographic("P", 0.994, 0, -89.9999999999999, 0, 0, kGxWgs84).GetOrigin(&lon, &lat);
    EXPECT_NE(lat, -90.0);
    EXPECT_NEAR(lat, -89.9999999999999, 1e-12);
}

TEST(PolarStereographic, OtherOriginLatitudesAreStandardParallels) {
    // Any other origin latitude is a standard parallel; the scale argument
    // (here a nonsensical 0.5) is not used and the pole classes derive theirs.
    const CGxPolarStereographic north("Arctic", 0.5, -45, 70, 0, 0, kGxWgs84);
    GxExpectReferenceTable(north, kArctic70, kGxMillimetreTable);
    const CGxPolarStereographic south("Antarctic", 0.5, 0, -71, 0, 0, kGxWgs84);
    GxExpectReferenceTable(south, kAntarctic71, kGxMillimetreTable);
    double lon, lat;
    north.GetOrigin(&lon, &lat);
    EXPECT_EQ(lat, 90.0);
    south.GetOrigin(&lon, &lat);
    EXPECT_EQ(lat, -90.0);

    // Latitude 0 (either signed zero) is the equator as standard parallel of
    // a north-pole projection.
    for (double lat0 : {0.0, -0.0}) {
        const CGxPolarStereographic equator("Eq", 1, 0, lat0, 0, 0, kGxWgs84);
        GxExpectReferenceTable(equator, kEquator, kGxMillimetreTable);
        equator.GetOrigin(&lon, &lat);
        EXPECT_EQ(lat, 90.0);
    }
}

TEST(PolarStereographic, ForwardsToTheInnerAlgorithm) {
    const CGxPolarStereographic p("Antarctic", 1, 0, -71, 2000000, 0, kGxWgs84);
    EXPECT_STREQ(p.GetName(), "Antarctic");
    EXPECT_FALSE(p.IsLocal());
    EXPECT_NEAR(p.GetConvergence(45, -65), -45, 1e-9);
    double x0, y0, x1, y1;
    p.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1800000);
    EXPECT_DOUBLE_EQ(y0, 1800000);
    EXPECT_DOUBLE_EQ(x1, 2200000);
    EXPECT_DOUBLE_EQ(y1, 2200000);
    CGxEllipsoid out;
    ASSERT_TRUE(p.GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6378137.0);

    // A local grid name reaches the inner object, which then passes
    // coordinates through, and the wrapper says it is local.
    const CGxPolarStereographic local("", 1, 0, 90, 2000000, 0, kGxWgs84);
    EXPECT_STREQ(local.GetName(), "NON-UTM");
    EXPECT_TRUE(local.IsLocal());
    double x, y;
    local.Geo2Proj(5, 6, &x, &y);
    EXPECT_EQ(x, 5);
    EXPECT_EQ(y, 6);
}

TEST(PolarStereographic, CopiesOwnTheirOwnInnerAlgorithm) {
    // Clones, copies and assignments each get their own inner object: using
    // them after the original is gone must neither crash nor change results
    // (a shared inner pointer would be freed twice).
    auto original = std::make_unique<CGxPolarStereographic>("Arctic", 1, -45, 70, 0, 0, kGxWgs84);
    std::unique_ptr<CGxProjection> clone(original->Clone());
    CGxPolarStereographic copy(*original);
    CGxPolarStereographic assigned("Other", 0.994, 0, -90, 2000000, 2000000, kGxWgs84);
    assigned = *original;
    assigned = assigned;
    original.reset();
    GxExpectReferenceTable(*clone, kArctic70, kGxMillimetreTable);
    GxExpectReferenceTable(copy, kArctic70, kGxMillimetreTable);
    GxExpectReferenceTable(assigned, kArctic70, kGxMillimetreTable);
    EXPECT_STREQ(assigned.GetName(), "Arctic");
}
