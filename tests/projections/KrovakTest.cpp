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
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

using GridPoint = GxReferencePoint;

constexpr double kForwardTolerance = 1e-3;  // metres
constexpr double kInverseTolerance = 1e-9;  // degrees
// The one-arc-minute finite difference against PROJ's derivatives, degrees.
constexpr double kConvergenceTolerance = 2e-4;

// S-JTSK with the cone's axes turned and scaled into the wanted orientation.
CGxKrovak Sjtsk(double rotation, double xScale, double yScale, double falseEasting = 0,
                double falseNorthing = 0) {
    return CGxKrovak("S-JTSK", 0.9999, 78.5, 24.8333333333333, 49.5, 30.2881397527778, rotation,
                     xScale, yScale, falseEasting, falseNorthing, kGxBessel);
}

const auto kEastNorth = GxReadReferencePoints("krovak/east_north.txt");
const auto kSphere = GxReadReferencePoints("krovak/sphere.txt");
const auto kSouthWest = GxReadReferencePoints("krovak/south_west.txt");
const auto kEastSouth = GxReadReferencePoints("krovak/east_south.txt");
const auto kNorthEast = GxReadReferencePoints("krovak/north_east.txt");

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
                         kGxBessel);
    flat.Geo2Proj(14.42, 50.1, &x, &y);
    EXPECT_FALSE(std::isfinite(x) && std::isfinite(y));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Sjtsk(90, -1, 1).Geo2Proj(nan, 50.1, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
    Sjtsk(90, -1, 1).Proj2Geo(nan, nan, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
}

}  // namespace
