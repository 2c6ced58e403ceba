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
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

using GridPoint = GxReferencePoint;

constexpr double kForwardTolerance = 1e-3;  // metres
constexpr double kInverseTolerance = 1e-9;  // degrees
// The one-arc-minute finite difference against PROJ's derivatives, degrees.
constexpr double kConvergenceTolerance = 2e-4;

constexpr double kFalseEasting = 2510000, kFalseNorthing = 6023150;

CGxNewZealandMapGrid Nzmg(double falseEasting = kFalseEasting,
                          double falseNorthing = kFalseNorthing,
                          const CGxEllipsoid& ellipsoid = kGxInternational) {
    return CGxNewZealandMapGrid("NZGD49 / New Zealand Map Grid", 173, -41, falseEasting,
                                falseNorthing, ellipsoid);
}

const auto kNzmg = GxReadReferencePoints("new_zealand_map_grid/nzmg.txt");

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

}  // namespace
