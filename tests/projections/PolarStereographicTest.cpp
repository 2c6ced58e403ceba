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
#include "tests/support/ReferenceCheck.h"

namespace {

// The ellipsoids as PROJ defines them (+ellps=...); Clarke 1866 is given there
// by its axes a = 6378206.4, b = 6356583.8, so 1/f = a / (a - b).
const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
const CGxEllipsoid kInternational("International 1924", "IN", 6378388.0, 297.0);
const CGxEllipsoid kClarke1866("Clarke 1866", "CC", 6378206.4, 294.9786982138982);

// The NSIDC sea-ice grid geometry.
// cct -d 6 +proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +x_0=0 +y_0=0 +ellps=WGS84
const GxReferencePoint kArctic70[] = {
    {-180.0, 50.0, -3189757.915757, 3189757.915757},
    {-180.0, 62.75, -2125989.090535, 2125989.090535},
    {-180.0, 70.0, -1547098.477551, 1547098.477551},
    {-180.0, 88.0, -153212.894840, 153212.894840},
    {-125.0, 50.0, -4442466.695622, -783326.739337},
    {-125.0, 62.75, -2960925.555919, -522091.063378},
    {-125.0, 70.0, -2154688.112040, -379929.649164},
    {-125.0, 88.0, -213383.962245, -37625.349794},
    {-45.0, 50.0, 0.000000, -4510998.905151},
    {-45.0, 62.75, 0.000000, -3006602.605292},
    {-45.0, 70.0, 0.000000, -2187927.649279},
    {-45.0, 88.0, 0.000000, -216675.753813},
    {0.0, 50.0, 3189757.915757, -3189757.915757},
    {0.0, 62.75, 2125989.090535, -2125989.090535},
    {0.0, 70.0, 1547098.477551, -1547098.477551},
    {0.0, 88.0, 153212.894840, -153212.894840},
    {60.5, 50.0, 4346935.919394, 1205512.021903},
    {60.5, 62.75, 2897253.831156, 803479.597751},
    {60.5, 70.0, 2108353.712262, 584698.231970},
    {60.5, 88.0, 208795.354846, 57904.076585},
    {150.0, 50.0, -1167532.429090, 4357290.344847},
    {150.0, 62.75, -778166.015305, 2904155.105840},
    {150.0, 70.0, -566277.344940, 2113375.822491},
    {150.0, 88.0, -56079.811699, 209292.706539},
};

// cct -d 6 +proj=stere +lat_0=90 +lat_ts=60 +lon_0=10 +x_0=300000 +y_0=-400000 +ellps=intl
const GxReferencePoint kArctic60[] = {
    {-100.0, 40.0, -4920717.403155, 1500185.736264}, {-100.0, 60.0, -2704445.851270, 693528.860327},
    {-100.0, 75.5, -1127426.490233, 119540.754048},  {-100.0, 89.0, 202059.269483, -364352.489369},
    {-10.0, 40.0, -1600185.736264, -5620717.403155}, {-10.0, 60.0, -793528.860327, -3404445.851270},
    {-10.0, 75.5, -219540.754048, -1827426.490233},  {-10.0, 89.0, 264352.489369, -497940.730517},
    {10.0, 40.0, 300000.000000, -5955771.416816},    {10.0, 60.0, 300000.000000, -3597264.493529},
    {10.0, 75.5, 300000.000000, -1919035.542749},    {10.0, 89.0, 300000.000000, -504226.348436},
    {95.25, 40.0, 5836690.133761, -860063.472374},   {95.25, 60.0, 3486283.496612, -664759.741652},
    {95.25, 75.5, 1813818.418972, -525788.610442},   {95.25, 89.0, 403868.383303, -408630.797090},
};

// The Antarctic polar stereographic geometry.
// cct -d 6 +proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=0 +x_0=0 +y_0=0 +ellps=WGS84
const GxReferencePoint kAntarctic71[] = {
    {-179.25, -50.0, -59224.368726, -4524150.078410},
    {-179.25, -65.0, -36107.674935, -2758265.624517},
    {-179.25, -71.0, -27262.487493, -2082581.673432},
    {-179.25, -82.5, -10681.265068, -815941.938016},
    {-179.25, -89.0, -1422.251171, -108645.780170},
    {-100.25, -50.0, -4452329.241262, -805112.281130},
    {-100.25, -65.0, -2714478.185375, -490857.617548},
    {-100.25, -71.0, -2049520.710240, -370613.718086},
    {-100.25, -82.5, -802988.867928, -145204.041334},
    {-100.25, -89.0, -106921.029499, -19334.471755},
    {0.0, -50.0, 0.000000, 4524537.706531},
    {0.0, -65.0, 0.000000, 2758501.952071},
    {0.0, -71.0, 0.000000, 2082760.108543},
    {0.0, -82.5, 0.000000, 816011.847730},
    {0.0, -89.0, 0.000000, 108655.088915},
    {45.0, -50.0, 3199331.294023, 3199331.294023},
    {45.0, -65.0, 1950555.436226, 1950555.436226},
    {45.0, -71.0, 1472733.796336, 1472733.796336},
    {45.0, -82.5, 577007.511059, 577007.511059},
    {45.0, -89.0, 76830.750182, 76830.750182},
    {135.0, -50.0, 3199331.294023, -3199331.294023},
    {135.0, -65.0, 1950555.436226, -1950555.436226},
    {135.0, -71.0, 1472733.796336, -1472733.796336},
    {135.0, -82.5, 577007.511059, -577007.511059},
    {135.0, -89.0, 76830.750182, -76830.750182},
};

// cct -d 6 +proj=stere +lat_0=-90 +lat_ts=-60 +lon_0=140 +x_0=1000000 +y_0=2000000 +ellps=clrk66
const GxReferencePoint kAntarctic60[] = {
    {-90.0, -45.0, 4782077.545261, -1173539.873312}, {-90.0, -60.0, 3449219.417997, -55139.110314},
    {-90.0, -77.25, 2022005.804869, 1142435.306074}, {-90.0, -88.0, 1159694.910785, 1866000.059259},
    {60.0, -45.0, -3862145.169935, 2857327.377581},  {60.0, -60.0, -2148655.790584, 2555192.968844},
    {60.0, -77.25, -313865.336794, 2231669.907894},  {60.0, -88.0, 794700.180035, 2036199.897394},
    {140.0, -45.0, 1000000.000000, 6937151.596404},  {140.0, -60.0, 1000000.000000, 5197228.881427},
    {140.0, -77.25, 1000000.000000, 3334133.827415}, {140.0, -88.0, 1000000.000000, 2208466.900608},
    {177.5, -45.0, 4005547.461059, 5916905.710531},  {177.5, -60.0, 2946349.622726, 4536532.212756},
    {177.5, -77.25, 1812169.215266, 3058439.528375}, {177.5, -88.0, 1126906.608315, 2165387.911938},
};

// The UPS South geometry: origin at the pole with a given scale.
// cct -d 6 +proj=stere +lat_0=-90 +k_0=0.994 +lon_0=0 +x_0=2000000 +y_0=2000000 +ellps=WGS84
const GxReferencePoint kUpsSouth[] = {
    {-150.0, -60.0, 297059.641314, -949579.223503},
    {-150.0, -81.25, 1513362.742991, 1157119.546005},
    {-150.0, -88.0, 1888965.365536, 1807682.371708},
    {-20.5, -60.0, 807235.433087, 5190193.747859},
    {-20.5, -81.25, 1659152.081199, 2911639.169784},
    {-20.5, -88.0, 1922229.702870, 2208006.108292},
    {60.0, -60.0, 4949579.223503, 3702940.358686},
    {60.0, -81.25, 2842880.453995, 2486637.257009},
    {60.0, -88.0, 2192317.628292, 2111034.634464},
    {100.0, -60.0, 5354137.736302, 1408575.020078},
    {100.0, -81.25, 2958488.287214, 1830992.654271},
    {100.0, -88.0, 2218695.537747, 1961438.076135},
};

// The equator as standard parallel.
// cct -d 6 +proj=stere +lat_0=90 +lat_ts=0 +lon_0=0 +x_0=0 +y_0=0 +ellps=WGS84
const GxReferencePoint kEquator[] = {
    {-120.0, -30.0, -9535217.956842, 5505160.654164},
    {-120.0, 0.0, -5523628.670817, 3189068.500000},
    {-120.0, 45.0, -2298830.140070, 1327230.200191},
    {-120.0, 80.0, -486458.326594, 280856.845809},
    {0.0, -30.0, 0.000000, -11010321.308329},
    {0.0, 0.0, 0.000000, -6378137.000000},
    {0.0, 45.0, 0.000000, -2654460.400382},
    {0.0, 80.0, 0.000000, -561713.691618},
    {30.0, -30.0, 5505160.654164, -9535217.956842},
    {30.0, 0.0, 3189068.500000, -5523628.670817},
    {30.0, 45.0, 1327230.200191, -2298830.140070},
    {30.0, 80.0, 280856.845809, -486458.326594},
    {179.0, -30.0, 192156.602478, 11008644.383064},
    {179.0, 0.0, 111313.839237, 6377165.578842},
    {179.0, 45.0, 46326.721779, 2654056.113205},
    {179.0, 80.0, 9803.255647, 561628.139902},
};

CGxStereographicNorthPole Arctic70() {
    return CGxStereographicNorthPole("Arctic", 70, -45, 0, 0, kWgs84);
}

CGxStereographicSouthPole Antarctic71() {
    return CGxStereographicSouthPole("Antarctic", -71, 0, 0, 0, kWgs84);
}

}  // namespace

TEST(StereographicNorthPole, AgreesWithProjOnTwoEllipsoids) {
    GxExpectReferenceTable(Arctic70(), kArctic70, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxStereographicNorthPole("A60", 60, 10, 300000, -400000, kInternational), kArctic60,
        kGxMillimetreTable);
    GxExpectReferenceTable(CGxStereographicNorthPole("Eq", 0, 0, 0, 0, kWgs84), kEquator,
                           kGxMillimetreTable);
}

TEST(StereographicSouthPole, AgreesWithProjOnTwoEllipsoids) {
    GxExpectReferenceTable(Antarctic71(), kAntarctic71, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxStereographicSouthPole("A60", -60, 140, 1000000, 2000000, kClarke1866), kAntarctic60,
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
    CGxStereographicNorthPole("A60", 60, 10, 0, 0, kInternational).GetDerivedParameters(&k0);
    EXPECT_NEAR(k0, 0.93306931, 5e-9);
    Antarctic71().GetDerivedParameters(&k0);
    EXPECT_NEAR(k0, 0.97276901, 5e-9);
    // The two hemispheres mirror each other.
    double k0South = 0;
    CGxStereographicSouthPole("S", -70, -45, 0, 0, kWgs84).GetDerivedParameters(&k0South);
    Arctic70().GetDerivedParameters(&k0);
    EXPECT_NEAR(k0South, k0, 1e-15);
}

TEST(StereographicPoles, PoleIsTheFalseOriginBothWays) {
    const CGxStereographicNorthPole north("N", 60, 10, 300000, -400000, kInternational);
    const CGxStereographicSouthPole south("S", -60, 140, 1000000, 2000000, kClarke1866);
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
    CGxStereographicNorthPole("N", 60, 10, 300000, -400000, kInternational)
        .GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 100000);
    EXPECT_DOUBLE_EQ(y0, 100000);
    EXPECT_DOUBLE_EQ(x1, 500000);
    EXPECT_DOUBLE_EQ(y1, 500000);
    CGxStereographicSouthPole("S", -71, 0, 2000000, 0, kWgs84).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1800000);
    EXPECT_DOUBLE_EQ(y0, 1800000);
    EXPECT_DOUBLE_EQ(x1, 2200000);
    EXPECT_DOUBLE_EQ(y1, 2200000);
}

TEST(StereographicPoles, LocalGridAnonymousEllipsoidAndClone) {
    const CGxStereographicNorthPole local("", 70, -45, 100, 100, kWgs84);
    EXPECT_STREQ(local.GetName(), "NON-UTM");
    EXPECT_TRUE(local.IsLocal());
    double x, y;
    local.Geo2Proj(12.5, 13.5, &x, &y);
    EXPECT_EQ(x, 12.5);
    EXPECT_EQ(y, 13.5);
    local.Proj2Geo(12.5, 13.5, &x, &y);
    EXPECT_EQ(x, 12.5);
    EXPECT_EQ(y, 13.5);
    EXPECT_EQ(local.GetConvergence(30, 70), 0.0);
    EXPECT_TRUE(CGxStereographicSouthPole("NON-UTM", -71, 0, 0, 0, kWgs84).IsLocal());
    EXPECT_FALSE(Antarctic71().IsLocal());

    CGxEllipsoid out;
    ASSERT_TRUE(Antarctic71().GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6378137.0);
    EXPECT_NEAR(out.GetInvFlatness(), 298.257223563, 1e-9);

    std::unique_ptr<CGxProjection> north(Arctic70().Clone());
    GxExpectReferenceTable(*north, kArctic70, kGxMillimetreTable);
    std::unique_ptr<CGxProjection> south(Antarctic71().Clone());
    GxExpectReferenceTable(*south, kAntarctic71, kGxMillimetreTable);
    double k0 = 0;
    south->GetDerivedParameters(&k0);
    EXPECT_NEAR(k0, 0.97276901, 5e-9);
}

TEST(PolarStereographic, OriginAtAPoleUsesTheGivenScale) {
    // The pole itself, or within the relative tolerance of it: the polar
    // aspect of the stereographic with scale 0.994 at the pole.
    for (double lat0 : {-90.0, -89.9999999999999}) {
        const CGxPolarStereographic p("UPS South", 0.994, 0, lat0, 2000000, 2000000, kWgs84);
        GxExpectReferenceTable(p, kUpsSouth, kGxMillimetreTable);
    }
    // The inner object keeps the origin latitude as given, where a pole class
    // would report exactly -90.
    double lon, lat;
    CGxPolarStereographic("P", 0.994, 0, -89.9999999999999, 0, 0, kWgs84).GetOrigin(&lon, &lat);
    EXPECT_NE(lat, -90.0);
    EXPECT_NEAR(lat, -89.9999999999999, 1e-12);
}

TEST(PolarStereographic, OtherOriginLatitudesAreStandardParallels) {
    // Any other origin latitude is a standard parallel; the scale argument
    // (here a nonsensical 0.5) is not used and the pole classes derive theirs.
    const CGxPolarStereographic north("Arctic", 0.5, -45, 70, 0, 0, kWgs84);
    GxExpectReferenceTable(north, kArctic70, kGxMillimetreTable);
    const CGxPolarStereographic south("Antarctic", 0.5, 0, -71, 0, 0, kWgs84);
    GxExpectReferenceTable(south, kAntarctic71, kGxMillimetreTable);
    double lon, lat;
    north.GetOrigin(&lon, &lat);
    EXPECT_EQ(lat, 90.0);
    south.GetOrigin(&lon, &lat);
    EXPECT_EQ(lat, -90.0);

    // Latitude 0 (either signed zero) is the equator as standard parallel of
    // a north-pole projection.
    for (double lat0 : {0.0, -0.0}) {
        const CGxPolarStereographic equator("Eq", 1, 0, lat0, 0, 0, kWgs84);
        GxExpectReferenceTable(equator, kEquator, kGxMillimetreTable);
        equator.GetOrigin(&lon, &lat);
        EXPECT_EQ(lat, 90.0);
    }
}

TEST(PolarStereographic, ForwardsToTheInnerAlgorithm) {
    const CGxPolarStereographic p("Antarctic", 1, 0, -71, 2000000, 0, kWgs84);
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
    const CGxPolarStereographic local("", 1, 0, 90, 2000000, 0, kWgs84);
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
    auto original = std::make_unique<CGxPolarStereographic>("Arctic", 1, -45, 70, 0, 0, kWgs84);
    std::unique_ptr<CGxProjection> clone(original->Clone());
    CGxPolarStereographic copy(*original);
    CGxPolarStereographic assigned("Other", 0.994, 0, -90, 2000000, 2000000, kWgs84);
    assigned = *original;
    assigned = assigned;
    original.reset();
    GxExpectReferenceTable(*clone, kArctic70, kGxMillimetreTable);
    GxExpectReferenceTable(copy, kArctic70, kGxMillimetreTable);
    GxExpectReferenceTable(assigned, kArctic70, kGxMillimetreTable);
    EXPECT_STREQ(assigned.GetName(), "Arctic");
}

TEST(StereographicPoles, NotANumberStaysNotANumber) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    double x, y;
    Arctic70().Geo2Proj(nan, 70, &x, &y);
    EXPECT_TRUE(std::isnan(x));
    EXPECT_TRUE(std::isnan(y));
    Antarctic71().Proj2Geo(nan, 0, &x, &y);
    EXPECT_TRUE(std::isnan(y));
}
