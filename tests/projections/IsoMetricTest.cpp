#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/IsoMetric.h"

// Expected values are worked by hand from the grid's geometry: offsets from
// P1 are measured along the reference directions and scaled by the degrees
// per grid unit between the reference points.

namespace {

// A grid turned 30 degrees anticlockwise: P2 lies 10 km from P1 along
// (cos 30, sin 30) with one degree more longitude; P3 lies 20 km along
// (-sin 30, cos 30) with two degrees more latitude.
constexpr double kX1 = 1000, kY1 = 2000;
constexpr double kCos30 = 0.8660254037844387, kSin30 = 0.5;

CGxIsoMetric TurnedGrid() {
    return CGxIsoMetric(kX1, kY1, kX1 + 10000 * kCos30, kY1 + 10000 * kSin30, kX1 - 20000 * kSin30,
                        kY1 + 20000 * kCos30, 5.0, 50.0, 6.0, 52.0);
}

}  // namespace

TEST(IsoMetric, RotatedOrthogonalAxes) {
    const CGxIsoMetric grid = TurnedGrid();
    struct {
        double along1, along2;  // metres along the P1->P2 and P1->P3 directions
        double lon, lat;
    } cases[] = {
        {0, 0, 5.0, 50.0},         // P1
        {10000, 0, 6.0, 50.0},     // P2
        {0, 20000, 5.0, 52.0},     // P3
        {5000, 10000, 5.5, 51.0},  // halfway along both
        {-25000, 0, 2.5, 50.0},    // behind P1: negative offsets extrapolate
        {30000, -40000, 8.0, 46.0},
    };
    for (const auto& c : cases) {
        const double x = kX1 + c.along1 * kCos30 - c.along2 * kSin30;
        const double y = kY1 + c.along1 * kSin30 + c.along2 * kCos30;
        double lon, lat;
        grid.Proj2Geo(x, y, &lon, &lat);
        EXPECT_NEAR(lon, c.lon, 1e-12) << c.along1 << " " << c.along2;
        EXPECT_NEAR(lat, c.lat, 1e-12) << c.along1 << " " << c.along2;
    }
}

TEST(IsoMetric, SkewedAxesMeasureByProjection) {
    // P1 -> P2 along x, P1 -> P3 at 60 degrees from it. Each coordinate comes
    // from the orthogonal projection of the offset on its own direction, so
    // P2 itself reads 50 m along the latitude direction: latitude 10, not 0.
    CGxIsoMetric grid(0, 0, 100, 0, 50, 86.60254037844386, 0, 0, 10, 20);
    double lon, lat;
    grid.Proj2Geo(100, 0, &lon, &lat);
    EXPECT_NEAR(lon, 10.0, 1e-12);
    EXPECT_NEAR(lat, 10.0, 1e-12);
    grid.Proj2Geo(50, 86.60254037844386, &lon, &lat);
    EXPECT_NEAR(lon, 5.0, 1e-12);
    EXPECT_NEAR(lat, 20.0, 1e-12);
}

TEST(IsoMetric, ForwardLeavesOutputsAlone) {
    const CGxIsoMetric grid = TurnedGrid();
    double x = 123.5, y = -7.25;
    grid.Geo2Proj(5.5, 51.0, &x, &y);
    EXPECT_EQ(x, 123.5);
    EXPECT_EQ(y, -7.25);
}

TEST(IsoMetric, BaseBehaviourAndName) {
    const CGxIsoMetric grid = TurnedGrid();
    EXPECT_STREQ(grid.GetName(), "Isometric");
    EXPECT_FALSE(grid.IsLocal());
    EXPECT_FALSE(grid.IsGeographical());
    EXPECT_EQ(grid.GetConvergence(5, 50), 0.0);
    double lon = -1, lat = -1, x0 = -1, y0 = -1, x1 = -1, y1 = -1;
    grid.GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 0.0);
    EXPECT_EQ(lat, 0.0);
    grid.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_EQ(x0 + y0 + x1 + y1, 0.0);
    CGxEllipsoid out("Kept", "KP", 7, 8);
    EXPECT_FALSE(grid.GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 7.0);
}

TEST(IsoMetric, CoincidingReferencePointsGiveNaN) {
    // P2 on top of P1 leaves no longitude direction: the inverse has no answer
    // and says so with NaN rather than a number.
    CGxIsoMetric grid(10, 10, 10, 10, 10, 20, 5, 50, 6, 52);
    double lon, lat;
    grid.Proj2Geo(15, 15, &lon, &lat);
    EXPECT_TRUE(std::isnan(lon));
    EXPECT_NEAR(lat, 51.0, 1e-12);
}

TEST(IsoMetric, CloneConvertsAlike) {
    std::unique_ptr<CGxProjection> clone;
    {
        const CGxIsoMetric grid = TurnedGrid();
        clone.reset(grid.Clone());
    }
    double lon, lat;
    clone->Proj2Geo(kX1 + 10000 * kCos30, kY1 + 10000 * kSin30, &lon, &lat);
    EXPECT_NEAR(lon, 6.0, 1e-12);
    EXPECT_NEAR(lat, 50.0, 1e-12);
    EXPECT_STREQ(clone->GetName(), "Isometric");
}
