// Krovak's oblique conformal conic against PROJ's krovak on the S-JTSK grid
// (EPSG:5514 and its axis variants, Bessel 1841; PROJ fixes the azimuth of
// the cone axis at 30 deg 17' 17.30311" and the pseudo standard parallel at
// 78 deg 30'), and against an oblique Lambert conic on a sphere.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/Krovak.h"
#include "tests/support/ReferenceCheck.h"

namespace {

using GridPoint = GxReferencePoint;

constexpr double kForwardTolerance = 1e-3;  // metres
constexpr double kInverseTolerance = 1e-9;  // degrees
// The one-arc-minute finite difference against PROJ's derivatives, degrees.
constexpr double kConvergenceTolerance = 2e-4;

const CGxEllipsoid kBessel("Bessel 1841", "BR", 6377397.155, 299.1528128);

// S-JTSK with the cone's axes turned and scaled into the wanted orientation.
CGxKrovak Sjtsk(double rotation, double xScale, double yScale, double falseEasting = 0,
                double falseNorthing = 0) {
    return CGxKrovak("S-JTSK", 0.9999, 78.5, 24.8333333333333, 49.5, 30.2881397527778, rotation,
                     xScale, yScale, falseEasting, falseNorthing, kBessel);
}

// Easting/northing (EPSG:5514), the cone's southing and westing negated:
// echo "lon lat 0 0" | cct -d 6 +proj=krovak +lat_0=49.5 +lon_0=24.8333333333333
//   +alpha=30.2881397527778 +k=0.9999 +x_0=0 +y_0=0 +ellps=bessel
const GridPoint kEastNorth[] = {
    {12.2, 47.8, -942125.487086, -1270008.146338},  {12.2, 49, -920040.437194, -1138358.586462},
    {12.2, 50.1, -899771.299505, -1017713.216373},  {12.2, 51, -883178.048906, -919002.775327},
    {14.42, 47.8, -777641.820201, -1295077.849659}, {14.42, 49, -759469.399678, -1162873.522011},
    {14.42, 50.1, -742797.848009, -1041695.269559}, {14.42, 51, -729156.463976, -942529.122653},
    {16.6, 47.8, -615523.616477, -1314966.062715},  {16.6, 49, -601177.992068, -1182314.903332},
    {16.6, 50.1, -588022.488242, -1060705.194544},  {16.6, 51, -577263.563624, -961167.812188},
    {18.8, 47.8, -451438.568308, -1330302.295387},  {18.8, 49, -440940.249781, -1197301.562902},
    {18.8, 50.1, -431316.543679, -1075352.510628},  {18.8, 51, -423449.893947, -975521.258990},
    {21, 47.8, -286996.612099, -1340897.628508},    {21, 49, -280333.102686, -1207652.369578},
    {21, 50.1, -274226.612043, -1085464.792859},    {21, 51, -269237.054313, -985425.721141},
    {22.5, 47.8, -174738.112751, -1345409.782779},  {22.5, 49, -170683.886410, -1212059.547708},
    {22.5, 50.1, -166969.099958, -1089769.234701},  {22.5, 51, -163934.371159, -989640.273224},
};

// PROJ's krovak holds Bessel 1841 whatever ellipsoid it is given, and its own
// azimuth and pseudo parallel. On a sphere the Gaussian sphere is the sphere
// itself and Krovak is a Lambert conic with one standard parallel on the
// sphere turned to the pseudo pole (latitude 90 - azimuth on the origin
// meridian), which PROJ gives with any azimuth and parallel. Here azimuth 25,
// pseudo parallel 75, scale 0.9995, origin longitude 20, southing/westing with
// false origin (1000000, -300000):
// echo "lon lat 0 0" | cct -d 6 +proj=ob_tran +o_proj=lcc +o_lat_p=65 +o_lon_p=180 +lon_0=-160
//   +lat_1=75 +lat_0=90 +k_0=0.9995 +R=6371000 +x_0=300000 +y_0=-1000000 +axis=swu
const GridPoint kSphere[] = {
    {5, 36, 4141451.591164, 1075645.365219},   {5, 45, 3144624.517551, 875994.852728},
    {5, 54, 2163098.846838, 675039.267168},    {15, 36, 4260638.458785, 160499.230158},
    {15, 45, 3249505.599100, 94049.423347},    {15, 54, 2250428.053445, 27230.525463},
    {25, 36, 4260638.458785, -760499.230158},  {25, 45, 3249505.599100, -694049.423347},
    {25, 54, 2250428.053445, -627230.525463},  {35, 36, 4141451.591164, -1675645.365219},
    {35, 45, 3144624.517551, -1475994.852728}, {35, 54, 2163098.846838, -1275039.267168},
};

// The cone's own axes, southing and westing (EPSG:2065):
// echo "lon lat 0 0" | cct -d 6 +proj=krovak +axis=swu +lat_0=49.5 +lon_0=24.8333333333333
//   +alpha=30.2881397527778 +k=0.9999 +x_0=0 +y_0=0 +ellps=bessel
const GridPoint kSouthWest[] = {
    {13, 48.2, 1235644.216703, 876042.817279},   {13, 50.5, 982948.571278, 836385.560487},
    {17.5, 48.2, 1277544.591868, 544193.525155}, {17.5, 50.5, 1022956.791404, 519714.165478},
    {22, 48.2, 1299712.442086, 210525.804162},   {22, 50.5, 1044086.763172, 201092.664455},
};

// Easting and southing: the same command with +axis=esu.
const GridPoint kEastSouth[] = {
    {13, 48.2, -876042.817279, 1235644.216703},   {13, 50.5, -836385.560487, 982948.571278},
    {17.5, 48.2, -544193.525155, 1277544.591868}, {17.5, 50.5, -519714.165478, 1022956.791404},
    {22, 48.2, -210525.804162, 1299712.442086},   {22, 50.5, -201092.664455, 1044086.763172},
};

// Northing and easting: the same command with +axis=neu.
const GridPoint kNorthEast[] = {
    {13, 48.2, -1235644.216703, -876042.817279},   {13, 50.5, -982948.571278, -836385.560487},
    {17.5, 48.2, -1277544.591868, -544193.525155}, {17.5, 50.5, -1022956.791404, -519714.165478},
    {22, 48.2, -1299712.442086, -210525.804162},   {22, 50.5, -1044086.763172, -201092.664455},
};

TEST(Krovak, SjtskEastNorth) {
    GxExpectReferenceTable(Sjtsk(90, -1, 1), kEastNorth, kGxMillimetreTable);
}

TEST(Krovak, SphereWithOwnAzimuthAndPseudoParallel) {
    const CGxEllipsoid sphere("sphere", "S", 6371000, 0);
    GxExpectReferenceTable(
        CGxKrovak("sphere", 0.9995, 75, 20, 48, 25, 0, 1, 1, 1000000, -300000, sphere), kSphere,
        kGxMillimetreTable);
}

// Every orientation comes from the scales and the rotation alone; a sign or
// axis swapped in the plane step fails one of these.
TEST(Krovak, AxisOrientationByScalesAndRotation) {
    GxExpectReferenceTable(Sjtsk(0, 1, 1), kSouthWest, kGxMillimetreTable);
    GxExpectReferenceTable(Sjtsk(90, 1, 1), kEastSouth, kGxMillimetreTable);
    GxExpectReferenceTable(Sjtsk(0, -1, -1), kNorthEast, kGxMillimetreTable);
}

// The false origin is added after the rotation, in grid axes: on the
// southing/westing grid it shifts southing and westing.
TEST(Krovak, FalseOriginInGridAxes) {
    const CGxKrovak shifted = Sjtsk(0, 1, 1, 1000, -2000);
    for (const GridPoint& r : kSouthWest) {
        double x, y;
        shifted.Geo2Proj(r.lon, r.lat, &x, &y);
        EXPECT_NEAR(x, r.x + 1000, kForwardTolerance);
        EXPECT_NEAR(y, r.y - 2000, kForwardTolerance);
    }
}

// Convergence from proj -V (its "Convergence" line) on the east/north grid:
// echo "lon lat" | proj -V +proj=krovak +lat_0=49.5 +lon_0=24.8333333333333
//   +alpha=30.2881397527778 +k=0.9999 +ellps=bessel
TEST(Krovak, Convergence) {
    const CGxKrovak p = Sjtsk(90, -1, 1);
    EXPECT_NEAR(p.GetConvergence(14.42, 50.1), -7.83415858, kConvergenceTolerance);
    EXPECT_NEAR(p.GetConvergence(21, 48.5), -2.86311642, kConvergenceTolerance);
    EXPECT_NEAR(p.GetConvergence(12.5, 50.6), -9.31053740, kConvergenceTolerance);
}

// The default area is a 1000 km square around the projected origin whose both
// ranges are centred on the origin's first grid coordinate, whatever the axes
// mean. The origin (24.8333333333333, 49.5) projects to (0, -1159048.159528)
// east/north and to (1159048.159528, 0) south/west (cct as above).
TEST(Krovak, DefaultAreaCentredOnFirstCoordinate) {
    double lon, lat, x0, y0, x1, y1;
    const CGxKrovak eastNorth = Sjtsk(90, -1, 1);
    eastNorth.GetOrigin(&lon, &lat);
    EXPECT_DOUBLE_EQ(lon, 24.8333333333333);
    EXPECT_DOUBLE_EQ(lat, 49.5);
    eastNorth.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, -500000, kForwardTolerance);
    EXPECT_NEAR(y0, -500000, kForwardTolerance);
    EXPECT_NEAR(x1, 500000, kForwardTolerance);
    EXPECT_NEAR(y1, 500000, kForwardTolerance);

    Sjtsk(0, 1, 1).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 1159048.159528 - 500000, kForwardTolerance);
    EXPECT_NEAR(y0, 1159048.159528 - 500000, kForwardTolerance);
    EXPECT_NEAR(x1, 1159048.159528 + 500000, kForwardTolerance);
    EXPECT_NEAR(y1, 1159048.159528 + 500000, kForwardTolerance);
}

TEST(Krovak, CloneLocalGridAndAnonymousEllipsoid) {
    const CGxKrovak p = Sjtsk(90, -1, 1);
    std::unique_ptr<CGxProjection> copy(p.Clone());
    ASSERT_NE(dynamic_cast<CGxKrovak*>(copy.get()), nullptr);
    EXPECT_STREQ(copy->GetName(), "S-JTSK");
    GxExpectReferenceTable(*copy, kEastNorth, kGxMillimetreTable);

    CGxEllipsoid out;
    ASSERT_TRUE(copy->GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6377397.155);
    EXPECT_DOUBLE_EQ(out.GetInvFlatness(), 299.1528128);

    const CGxKrovak local("", 0.9999, 78.5, 24.8333333333333, 49.5, 30.2881397527778, 90, -1, 1, 0,
                          0, kBessel);
    EXPECT_STREQ(local.GetName(), "NON-UTM");
    EXPECT_TRUE(local.IsLocal());
    double x, y;
    local.Geo2Proj(14.42, 50.1, &x, &y);
    EXPECT_EQ(x, 14.42);
    EXPECT_EQ(y, 50.1);
    local.Proj2Geo(-742797.85, -1041695.27, &x, &y);
    EXPECT_EQ(x, -742797.85);
    EXPECT_EQ(y, -1041695.27);
    EXPECT_EQ(local.GetConvergence(14.42, 50.1), 0.0);
}

// The cone's apex is the pseudo pole: on the sphere it lies on the origin
// meridian at latitude 90 - azimuth.
TEST(Krovak, ApexIsPseudoPole) {
    const CGxEllipsoid sphere("sphere", "S", 6371000, 0);
    const CGxKrovak p("sphere", 0.9995, 75, 20, 48, 25, 0, 1, 1, 1000000, -300000, sphere);
    double lon, lat;
    p.Proj2Geo(1000000, -300000, &lon, &lat);
    EXPECT_NEAR(lon, 20, kInverseTolerance);
    EXPECT_NEAR(lat, 65, kInverseTolerance);
}

// A pseudo standard parallel on the equator has no cone, and NaN goes through
// as NaN; nothing traps.
TEST(Krovak, DegenerateInputGivesNonFinite) {
    double x, y;
    const CGxKrovak flat("flat", 0.9999, 0, 24.8333333333333, 49.5, 30.2881397527778, 0, 1, 1, 0, 0,
                         kBessel);
    flat.Geo2Proj(14.42, 50.1, &x, &y);
    EXPECT_FALSE(std::isfinite(x) && std::isfinite(y));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Sjtsk(90, -1, 1).Geo2Proj(nan, 50.1, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
    Sjtsk(90, -1, 1).Proj2Geo(nan, nan, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
}

}  // namespace
