// The New Zealand map grid against PROJ's nzmg (EPSG:27200). PROJ holds the
// grid's own origin, false origin and International 1924 ellipsoid whatever it
// is given, so other parameters are checked through what they do to those
// reference values.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/NewZealandMapGrid.h"
#include "tests/support/ReferenceCheck.h"

namespace {

using GridPoint = GxReferencePoint;

constexpr double kForwardTolerance = 1e-3;  // metres
constexpr double kInverseTolerance = 1e-9;  // degrees
// The one-arc-minute finite difference against PROJ's derivatives, degrees.
constexpr double kConvergenceTolerance = 2e-4;

const CGxEllipsoid kInternational("International 1924", "IN", 6378388.0, 297.0);
constexpr double kFalseEasting = 2510000, kFalseNorthing = 6023150;

CGxNewZealandMapGrid Nzmg(double falseEasting = kFalseEasting,
                          double falseNorthing = kFalseNorthing,
                          const CGxEllipsoid& ellipsoid = kInternational) {
    return CGxNewZealandMapGrid("NZGD49 / New Zealand Map Grid", 173, -41, falseEasting,
                                falseNorthing, ellipsoid);
}

// From Stewart Island and Fiordland to East Cape and beyond:
// echo "lon lat 0 0" | cct -d 6 +proj=nzmg +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150
//   +ellps=intl
const GridPoint kNzmg[] = {
    {166.5, -47, 2015709.778508, 5336968.082889}, {166.5, -44, 1989164.277959, 5669385.322044},
    {166.5, -41, 1962884.716467, 6002168.840991}, {166.5, -38, 1937621.967593, 6336339.378400},
    {166.5, -35, 1915053.943456, 6672283.422009}, {169, -47, 2205463.164747, 5349164.399372},
    {169, -44, 2189313.350292, 5682186.221856},   {169, -41, 2173350.343689, 6015295.017638},
    {169, -38, 2158254.068183, 6349017.684097},   {169, -35, 2145050.728582, 6683343.450958},
    {171.5, -47, 2395570.800557, 5355363.358831}, {171.5, -44, 2389710.039736, 5688827.366131},
    {171.5, -41, 2383779.737131, 6022055.526780}, {171.5, -38, 2378323.396602, 6355377.538124},
    {171.5, -35, 2373872.415289, 6688730.848688}, {173, -47, 2509779.830654, 5356242.567944},
    {173, -44, 2510020.809925, 5689897.320841},   {173, -41, 2510000.000000, 6023150.000000},
    {173, -38, 2510177.517567, 6356286.471065},   {173, -35, 2510885.621831, 6689327.536663},
    {174.5, -47, 2624067.070467, 5355017.537760}, {174.5, -44, 2630366.738076, 5688805.894005},
    {174.5, -41, 2636190.892896, 6022064.981976}, {174.5, -38, 2641937.091394, 6355051.264384},
    {174.5, -35, 2647828.347388, 6687923.371850}, {176, -47, 2738400.434778, 5351700.122698},
    {176, -44, 2750737.226539, 5685568.776151},   {176, -41, 2762353.612752, 6018825.951264},
    {176, -38, 2773625.523999, 6351680.467389},   {176, -35, 2784771.842300, 6684458.571803},
    {178.5, -47, 2928967.223475, 5341505.589608}, {178.5, -44, 2951399.273625, 5675432.832544},
    {178.5, -41, 2972565.084308, 6008701.935145}, {178.5, -38, 2992955.810300, 6341316.536717},
    {178.5, -35, 3013062.796327, 6673884.118342},
};

TEST(NewZealandMapGrid, AgainstReference) {
    GxExpectReferenceTable(Nzmg(), kNzmg, kGxMillimetreTable);
}

// Only the semi-major axis enters: on GRS 80 the offsets from the false
// origin grow by 6378137 / 6378388, and the false origin moves the grid
// without turning it (easting with x, northing with y).
TEST(NewZealandMapGrid, MajorAxisScalesAndFalseOriginShifts) {
    const CGxEllipsoid grs80("GRS 1980", "RF", 6378137.0, 298.257222101);
    const double ratio = 6378137.0 / 6378388.0;
    const CGxNewZealandMapGrid p = Nzmg(400000, 800000, grs80);
    for (const GridPoint& r : kNzmg) {
        SCOPED_TRACE(testing::Message() << "lon " << r.lon << " lat " << r.lat);
        double x, y, lon, lat;
        p.Geo2Proj(r.lon, r.lat, &x, &y);
        EXPECT_NEAR(x, 400000 + (r.x - kFalseEasting) * ratio, kForwardTolerance);
        EXPECT_NEAR(y, 800000 + (r.y - kFalseNorthing) * ratio, kForwardTolerance);
        p.Proj2Geo(x, y, &lon, &lat);
        EXPECT_NEAR(lon, r.lon, kInverseTolerance);
        EXPECT_NEAR(lat, r.lat, kInverseTolerance);
    }
}

TEST(NewZealandMapGrid, OriginIsFalseOriginExactly) {
    const CGxNewZealandMapGrid p = Nzmg();
    double lon, lat, x, y;
    p.GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 173);
    EXPECT_EQ(lat, -41);
    p.Geo2Proj(173, -41, &x, &y);
    EXPECT_EQ(x, kFalseEasting);
    EXPECT_EQ(y, kFalseNorthing);
    p.Proj2Geo(kFalseEasting, kFalseNorthing, &lon, &lat);
    EXPECT_EQ(lon, 173);
    EXPECT_EQ(lat, -41);
}

// The Newton-Raphson inverse settles everywhere in the working area. At its
// corners it agrees with PROJ's inverse:
// echo "x y 0 0" | cct -I -d 10 +proj=nzmg +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150
//   +ellps=intl
// and forward after inverse returns each point of a 25 km mesh to 1 mm (the
// published forward and inverse latitude series themselves differ by up to
// 0.14 mm at the corners; an unsettled iteration is off by metres).
TEST(NewZealandMapGrid, InverseConvergesOverDefaultArea) {
    const CGxNewZealandMapGrid p = Nzmg();
    const GridPoint corners[] = {
        {166.2537976760, -47.3198071471, 2000000, 5300000},
        {179.4705005001, -47.3228018319, 3000000, 5300000},
        {167.4857224618, -33.9036185190, 2000000, 6800000},
        {178.2789304609, -33.8750626178, 3000000, 6800000},
    };
    for (const GridPoint& c : corners) {
        double lon, lat;
        p.Proj2Geo(c.x, c.y, &lon, &lat);
        EXPECT_NEAR(lon, c.lon, 1e-9);
        EXPECT_NEAR(lat, c.lat, 1e-9);
    }
    double x0, y0, x1, y1;
    p.GetDefaultArea(&x0, &y0, &x1, &y1);
    for (double x = x0; x <= x1; x += 25000) {
        for (double y = y0; y <= y1; y += 25000) {
            double lon, lat, xb, yb;
            p.Proj2Geo(x, y, &lon, &lat);
            p.Geo2Proj(lon, lat, &xb, &yb);
            ASSERT_NEAR(xb, x, kForwardTolerance) << x << " " << y;
            ASSERT_NEAR(yb, y, kForwardTolerance) << x << " " << y;
        }
    }
}

// The working area is the grid's own, not derived from the parameters.
TEST(NewZealandMapGrid, DefaultAreaIsFixed) {
    const CGxEllipsoid sphere("sphere", "S", 6371000, 0);
    for (const CGxNewZealandMapGrid& p :
         {Nzmg(), Nzmg(0, 0), CGxNewZealandMapGrid("moved", 10, 50, -1e6, 3e6, sphere)}) {
        double x0, y0, x1, y1;
        p.GetDefaultArea(&x0, &y0, &x1, &y1);
        EXPECT_EQ(x0, 2000000);
        EXPECT_EQ(y0, 5300000);
        EXPECT_EQ(x1, 3000000);
        EXPECT_EQ(y1, 6800000);
    }
}

// Convergence from proj -V (its "Convergence" line):
// echo "lon lat" | proj -V +proj=nzmg +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150
//   +ellps=intl
TEST(NewZealandMapGrid, Convergence) {
    EXPECT_NEAR(Nzmg().GetConvergence(176, -38), -1.93080147, kConvergenceTolerance);
}

TEST(NewZealandMapGrid, CloneLocalGridAndAnonymousEllipsoid) {
    const CGxNewZealandMapGrid p = Nzmg();
    std::unique_ptr<CGxProjection> copy(p.Clone());
    ASSERT_NE(dynamic_cast<CGxNewZealandMapGrid*>(copy.get()), nullptr);
    EXPECT_STREQ(copy->GetName(), "NZGD49 / New Zealand Map Grid");
    GxExpectReferenceTable(*copy, kNzmg, kGxMillimetreTable);
    CGxEllipsoid out;
    ASSERT_TRUE(copy->GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6378388.0);
    EXPECT_DOUBLE_EQ(out.GetInvFlatness(), 297.0);

    const CGxNewZealandMapGrid local("NON-UTM", 173, -41, kFalseEasting, kFalseNorthing,
                                     kInternational);
    EXPECT_TRUE(local.IsLocal());
    double x, y;
    local.Geo2Proj(174.5, -38, &x, &y);
    EXPECT_EQ(x, 174.5);
    EXPECT_EQ(y, -38);
    local.Proj2Geo(2641937.09, 6355051.26, &x, &y);
    EXPECT_EQ(x, 2641937.09);
    EXPECT_EQ(y, 6355051.26);
    EXPECT_EQ(local.GetConvergence(174.5, -38), 0.0);
}

// Far outside the grid, or with NaN, the iteration stops after its last pass
// and the result is returned (NaN for NaN); nothing hangs or traps. A zero
// major axis scales the false origin to 0/0, whose NaN goes through.
TEST(NewZealandMapGrid, HostileInputEndsWithDefinedResult) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const CGxNewZealandMapGrid p = Nzmg();
    double lon, lat;
    p.Proj2Geo(1e12, -1e12, &lon, &lat);
    p.Proj2Geo(nan, kFalseNorthing, &lon, &lat);
    EXPECT_TRUE(std::isnan(lon) && std::isnan(lat));
    double x, y;
    p.Geo2Proj(nan, -41, &x, &y);
    EXPECT_TRUE(std::isnan(x));
    const CGxEllipsoid noAxis("none", "N", 0, 0);
    const CGxNewZealandMapGrid degenerate("none", 173, -41, kFalseEasting, kFalseNorthing, noAxis);
    degenerate.Proj2Geo(kFalseEasting, kFalseNorthing, &lon, &lat);
    EXPECT_TRUE(std::isnan(lon) && std::isnan(lat));
    CGxEllipsoid out;
    EXPECT_FALSE(degenerate.GetAnonymousEllipsoid(out));
}

}  // namespace
