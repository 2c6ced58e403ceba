#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Ellipsoid.h"
#include "projections/LambertAzimuthalEqualArea.h"
#include "tests/support/ReferenceCheck.h"

namespace {

const CGxEllipsoid kGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);
const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
const CGxEllipsoid kIntl("International 1924", "IN", 6378388.0, 297.0);
const CGxEllipsoid kSphere("Sphere", "SP", 6371000.0, 0.0);

// The reference values carry micrometres; the forward formulas are PROJ's own.
// Near the poles the polar forward loses a little to the difference of two
// nearly equal authalic terms (0.5 micrometres at 89.5 degrees).
constexpr double kForwardTolerance = 1e-5;  // metres
// The ellipsoidal inverse returns from the authalic latitude by a series in
// e^2 to third order, measured at most 1.4e-8 degrees (1.6 mm) from the exact
// inverse over these tables; the spherical inverse is closed.
constexpr double kEllipsoidInverseTolerance = 2e-8;  // degrees
constexpr double kSphereInverseTolerance = 1e-10;    // degrees

// Each row: echo "lon lat 0 0" | <command>.
// cct -d 6 +proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000 +a=6378137 +rf=298.257222101
const GxReferencePoint kEuropeGrs80[] = {
    {-20, 35, 1630549.044288, 1860975.010784}, {0, 35, 3401152.664620, 1387399.933390},
    {20, 35, 5240847.335380, 1387399.933390},  {40, 35, 7011450.955712, 1860975.010784},
    {-20, 50, 2238889.762536, 3422994.193028}, {0, 50, 3606514.431275, 3036305.967363},
    {20, 50, 5035485.568725, 3036305.967363},  {40, 50, 6403110.237464, 3422994.193028},
    {-20, 60, 2701325.914272, 4450480.066711}, {0, 60, 3763728.778690, 4139313.258590},
    {20, 60, 4878271.221310, 4139313.258590},  {40, 60, 5940674.085728, 4450480.066711},
    {-20, 70, 3204855.397402, 5456815.649109}, {0, 70, 3935881.055779, 5235181.992318},
    {20, 70, 4706118.944221, 5235181.992318},  {40, 70, 5437144.602598, 5456815.649109},
};

// cct -d 6 +proj=laea +lat_0=-15 +lon_0=-60 +x_0=500000 +y_0=1000000 +a=6378388 +rf=297
const GxReferencePoint kSouthAmericaIntl[] = {
    {-75, -30, -954037.402139, -717677.207546}, {-65, -30, 13534.458074, -663094.629056},
    {-55, -30, 986465.541926, -663094.629056},  {-45, -30, 1954037.402139, -717677.207546},
    {-75, 0, -1178961.869812, 2611575.260753},  {-65, 0, -61151.687111, 2649645.785634},
    {-55, 0, 1061151.687111, 2649645.785634},   {-45, 0, 2178961.869812, 2611575.260753},
};

// cct -d 6 +proj=laea +lat_0=90 +lon_0=-40 +x_0=1000000 +y_0=2000000 +a=6378137 +rf=298.257223563
const GxReferencePoint kNorthPolarWgs84[] = {
    {-180, 60, -1127510.997694, 4535468.874786}, {-40, 60, 1000000.000000, -1309819.551020},
    {45, 60, 4297224.688367, 1711530.218670},    {135, 60, 1288469.781330, 5297224.688367},
    {-180, 85, 641145.556890, 2427666.071795},   {-40, 85, 1000000.000000, 1441721.592478},
    {45, 85, 1556153.989632, 1951342.830732},    {135, 85, 1048657.169268, 2556153.989632},
};

// cct -d 6 +proj=laea +lat_0=-90 +lon_0=0 +x_0=3000000 +y_0=3000000 +a=6378388 +rf=297
const GxReferencePoint kSouthPolarIntl[] = {
    {-180, -60, 3000000.000000, -309984.811750}, {-90, -60, -309984.811750, 3000000.000000},
    {0, -60, 3000000.000000, 6309984.811750},    {100, -60, 6259698.704964, 2425227.169334},
    {-180, -85, 3000000.000000, 2441691.732722}, {-90, -85, 2441691.732722, 3000000.000000},
    {0, -85, 3000000.000000, 3558308.267278},    {100, -85, 3549826.310186, 2903050.786811},
};

// cct -d 6 +proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000 +R=6371000
const GxReferencePoint kEuropeSphere[] = {
    {-20, 35, 1635833.662287, 1860185.543559}, {0, 35, 3402897.411455, 1386209.358924},
    {20, 35, 5239102.588545, 1386209.358924},  {40, 35, 7006166.337713, 1860185.543559},
    {-20, 50, 2245383.069133, 3422872.964188}, {0, 50, 3608695.926401, 3036394.007707},
    {20, 50, 5033304.073599, 3036394.007707},  {40, 50, 6396616.930867, 3422872.964188},
    {-20, 60, 2707556.611458, 4448865.159595}, {0, 60, 3765840.350867, 4138156.927380},
    {20, 60, 4876159.649133, 4138156.927380},  {40, 60, 5934443.388542, 4448865.159595},
    {-20, 70, 3209851.568307, 5452472.364154}, {0, 70, 3937587.801611, 5231357.299791},
    {20, 70, 4704412.198389, 5231357.299791},  {40, 70, 5432148.431693, 5452472.364154},
};

// cct -d 6 +proj=laea +lat_0=90 +lon_0=-40 +x_0=1000000 +y_0=2000000 +R=6371000
const GxReferencePoint kNorthPolarSphere[] = {
    {-180, 60, -1119831.435218, 4526316.728615}, {-40, 60, 1000000.000000, -1297872.272696},
    {45, 60, 4285322.873044, 1712571.492586},    {135, 60, 1287428.507414, 5285322.873044},
    {-180, 85, 642739.781822, 2425766.148505},   {-40, 85, 1000000.000000, 1444201.766191},
    {45, 85, 1553683.253729, 1951558.992115},    {135, 85, 1048441.007885, 2553683.253729},
};

// cct -d 6 +proj=laea +lat_0=-90 +lon_0=0 +x_0=3000000 +y_0=3000000 +R=6371000
const GxReferencePoint kSouthPolarSphere[] = {
    {-180, -60, 3000000.000000, -297872.272696}, {-90, -60, -297872.272696, 3000000.000000},
    {0, -60, 3000000.000000, 6297872.272696},    {100, -60, 6247770.182595, 2427330.489668},
    {-180, -85, 3000000.000000, 2444201.766191}, {-90, -85, 2444201.766191, 3000000.000000},
    {0, -85, 3000000.000000, 3555798.233809},    {100, -85, 3547354.409766, 2903486.649549},
};

// cct -d 6 +proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000 +a=6378137 +rf=298.257222101
const GxReferencePoint kEuropeCorners[] = {
    {7, 49, 4101491.629250, 2880784.197837},
    {13, 55, 4512994.772825, 3547831.447562},
};

}  // namespace

TEST(LambertAzimuthalEqualArea, EllipsoidObliqueMatchesReference) {
    CGxLambertAzimuthalEqualArea europe("LAEA Europe", 10, 52, 4321000, 3210000, kGrs80);
    GxExpectReferenceTable(europe, kEuropeGrs80,
                           GxOnGround(kForwardTolerance, kEllipsoidInverseTolerance));
    CGxLambertAzimuthalEqualArea south("South", -60, -15, 500000, 1000000, kIntl);
    GxExpectReferenceTable(south, kSouthAmericaIntl,
                           GxOnGround(kForwardTolerance, kEllipsoidInverseTolerance));
}

TEST(LambertAzimuthalEqualArea, EllipsoidPolarMatchesReference) {
    CGxLambertAzimuthalEqualArea north("North", -40, 90, 1000000, 2000000, kWgs84);
    GxExpectReferenceTable(north, kNorthPolarWgs84,
                           GxOnGround(kForwardTolerance, kEllipsoidInverseTolerance));
    CGxLambertAzimuthalEqualArea south("South", 0, -90, 3000000, 3000000, kIntl);
    GxExpectReferenceTable(south, kSouthPolarIntl,
                           GxOnGround(kForwardTolerance, kEllipsoidInverseTolerance));
}

TEST(LambertAzimuthalEqualArea, SphereMatchesReference) {
    CGxLambertAzimuthalEqualArea europe("LAEA Europe", 10, 52, 4321000, 3210000, kSphere);
    GxExpectReferenceTable(europe, kEuropeSphere,
                           GxOnGround(kForwardTolerance, kSphereInverseTolerance));
    CGxLambertAzimuthalEqualArea north("North", -40, 90, 1000000, 2000000, kSphere);
    GxExpectReferenceTable(north, kNorthPolarSphere,
                           GxOnGround(kForwardTolerance, kSphereInverseTolerance));
    CGxLambertAzimuthalEqualArea south("South", 0, -90, 3000000, 3000000, kSphere);
    GxExpectReferenceTable(south, kSouthPolarSphere,
                           GxOnGround(kForwardTolerance, kSphereInverseTolerance));
}

TEST(LambertAzimuthalEqualArea, PolarAspectChosenByNearnessToThePole) {
    // An origin latitude a rounding error away from -90 must still take the
    // polar formulas: the oblique ones would divide by cos(beta0), nearly 0.
    const double nearSouthPole = -90 * (1 - 1e-13);
    CGxLambertAzimuthalEqualArea ellipsoid("South", 0, nearSouthPole, 3000000, 3000000, kIntl);
    GxExpectReferenceTable(ellipsoid, kSouthPolarIntl,
                           GxOnGround(kForwardTolerance, kEllipsoidInverseTolerance));
    CGxLambertAzimuthalEqualArea sphere("South", 0, nearSouthPole, 3000000, 3000000, kSphere);
    GxExpectReferenceTable(sphere, kSouthPolarSphere,
                           GxOnGround(kForwardTolerance, kSphereInverseTolerance));
}

TEST(LambertAzimuthalEqualArea, CentreReturnsOnEllipsoidButNaNOnSphere) {
    double lon, lat;
    CGxLambertAzimuthalEqualArea ellipsoid("LAEA Europe", 10, 52, 4321000, 3210000, kGrs80);
    ellipsoid.Proj2Geo(4321000, 3210000, &lon, &lat);
    EXPECT_EQ(lon, 10);
    EXPECT_NEAR(lat, 52, kEllipsoidInverseTolerance);

    // The spherical inverse divides 0 by 0 at the centre; its latitude is NaN
    // on purpose, while the direction (the longitude) is still defined.
    CGxLambertAzimuthalEqualArea sphere("LAEA Europe", 10, 52, 4321000, 3210000, kSphere);
    sphere.Proj2Geo(4321000, 3210000, &lon, &lat);
    EXPECT_EQ(lon, 10);
    EXPECT_TRUE(std::isnan(lat));

    // At a polar centre the sphere has its own guard and returns the pole.
    CGxLambertAzimuthalEqualArea pole("North", -40, 90, 1000000, 2000000, kSphere);
    pole.Proj2Geo(1000000, 2000000, &lon, &lat);
    EXPECT_EQ(lat, 90);
}

TEST(LambertAzimuthalEqualArea, DefaultAreaObliqueBoxAndPolarSquare) {
    CGxLambertAzimuthalEqualArea europe("LAEA Europe", 10, 52, 4321000, 3210000, kGrs80);
    GxExpectDefaultArea(europe, kEuropeCorners, kForwardTolerance);

    // Around a pole the square is 200 km each way from the pole's easting, and
    // the northing range is taken from the easting too, as the polar
    // stereographic does: with unequal false easting and northing the box
    // does not contain the pole.
    double x0, y0, x1, y1;
    for (const CGxEllipsoid& e : {kWgs84, kSphere}) {
        CGxLambertAzimuthalEqualArea north("North", -40, 90, 1000000, 2000000, e);
        north.GetDefaultArea(&x0, &y0, &x1, &y1);
        EXPECT_NEAR(x0, 800000, 1e-6);
        EXPECT_NEAR(y0, 800000, 1e-6);
        EXPECT_NEAR(x1, 1200000, 1e-6);
        EXPECT_NEAR(y1, 1200000, 1e-6);
    }
}

TEST(LambertAzimuthalEqualArea, ConvergenceMatchesReference) {
    // echo "lon lat" | proj -V <parameters of the tables above>: "Convergence".
    // Ours is the direction of the chord to the point one arc minute north.
    // The image of a meridian curves away from the centre, so the chord
    // departs from the tangent by about 1.4e-3 degrees here; on the straight
    // meridians of the polar aspect the two agree exactly.
    CGxLambertAzimuthalEqualArea europe("LAEA Europe", 10, 52, 4321000, 3210000, kGrs80);
    EXPECT_NEAR(europe.GetConvergence(30, 60), 16.99418005, 2e-3);
    EXPECT_NEAR(europe.GetConvergence(-10, 40), -13.78785351, 2e-3);
    CGxLambertAzimuthalEqualArea north("North", -40, 90, 1000000, 2000000, kWgs84);
    EXPECT_NEAR(north.GetConvergence(45, 60), 85.0, 1e-7);
    CGxLambertAzimuthalEqualArea south("South", -60, -15, 500000, 1000000, kSphere);
    EXPECT_NEAR(south.GetConvergence(-70, -40), 5.83589606, 2e-3);
}
