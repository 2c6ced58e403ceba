#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>

#include "foundation/Ellipsoid.h"
#include "projections/LambertAzimuthalEqualArea.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

// The reference values carry micrometres; the forward formulas are PROJ's own.
// Near the poles the polar forward loses a little to the difference of two
// nearly equal authalic terms (0.5 micrometres at 89.5 degrees).
constexpr double kForwardTolerance = 1e-5;  // metres
// The ellipsoidal inverse is exact (series start and a Newton step on q):
// from cct's coordinates back to the point within 1e-10 degrees (PROJ 9.1's
// own inverse, the bare series, is 1.4e-8 off), our forward and inverse back
// within 1e-11, up to 0.1 degree from a pole. The spherical inverse is closed.
constexpr double kEllipsoidInverseTolerance = 1e-10;  // degrees
constexpr GxReferenceTolerance kEllipsoid = {kForwardTolerance, kEllipsoidInverseTolerance, 1e-11,
                                             true};
constexpr double kSphereInverseTolerance = 1e-10;  // degrees

const auto kEuropeGrs80 = GxReadReferencePoints("lambert_azimuthal_equal_area/europe_grs80.txt");
const auto kSouthAmericaIntl =
    GxReadReferencePoints("lambert_azimuthal_equal_area/south_america_intl.txt");
const auto kNorthPolarWgs84 =
    GxReadReferencePoints("lambert_azimuthal_equal_area/north_polar_wgs84.txt");
const auto kSouthPolarIntl =
    GxReadReferencePoints("lambert_azimuthal_equal_area/south_polar_intl.txt");
const auto kEuropeSphere = GxReadReferencePoints("lambert_azimuthal_equal_area/europe_sphere.txt");
const auto kNorthPolarSphere =
    GxReadReferencePoints("lambert_azimuthal_equal_area/north_polar_sphere.txt");
const auto kSouthPolarSphere =
    GxReadReferencePoints("lambert_azimuthal_equal_area/south_polar_sphere.txt");
const auto kEuropeGrid =
    GxReadReferencePoints("lambert_azimuthal_equal_area/europe_grs80_grid.txt");
const auto kNorthPolarGrid =
    GxReadReferencePoints("lambert_azimuthal_equal_area/north_polar_wgs84_grid.txt");
const auto kSouthPolarGrid =
    GxReadReferencePoints("lambert_azimuthal_equal_area/south_polar_intl_grid.txt");
const auto kObliqueNearPole =
    GxReadReferencePoints("lambert_azimuthal_equal_area/oblique_near_pole_wgs84.txt");

// cct -d 6 +proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000 +a=6378137 +rf=298.257222101
const GxReferencePoint kEuropeCorners[] = {
    {7, 49, 4101491.629250, 2880784.197837},
    {13, 55, 4512994.772825, 3547831.447562},
};

}  // namespace

TEST(LambertAzimuthalEqualArea, EllipsoidObliqueMatchesReference) {
    CGxLambertAzimuthalEqualArea europe("LAEA Europe", 10, 52, 4321000, 3210000, kGxGrs80);
    GxExpectReferenceTable(europe, kEuropeGrs80, kEllipsoid);
    GxExpectReferenceTable(europe, kEuropeGrid, kEllipsoid);
    CGxLambertAzimuthalEqualArea south("South", -60, -15, 500000, 1000000, kGxInternational);
    GxExpectReferenceTable(south, kSouthAmericaIntl, kEllipsoid);
}

TEST(LambertAzimuthalEqualArea, EllipsoidPolarMatchesReference) {
    CGxLambertAzimuthalEqualArea north("North", -40, 90, 1000000, 2000000, kGxWgs84);
    GxExpectReferenceTable(north, kNorthPolarWgs84, kEllipsoid);
    GxExpectReferenceTable(north, kNorthPolarGrid, kEllipsoid);
    CGxLambertAzimuthalEqualArea south("South", 0, -90, 3000000, 3000000, kGxInternational);
    GxExpectReferenceTable(south, kSouthPolarIntl, kEllipsoid);
    GxExpectReferenceTable(south, kSouthPolarGrid, kEllipsoid);
}

// A centre one degree from the pole, where PROJ's cos(beta0) = sqrt(1 -
// sin^2(beta0)) still holds to 1e-6 m; closer to the pole cct itself drifts
// (3 mm at 0.01 degrees).
TEST(LambertAzimuthalEqualArea, EllipsoidObliqueNextToPoleMatchesReference) {
    CGxLambertAzimuthalEqualArea p("Near pole", 30, 89, 0, 0, kGxWgs84);
    GxExpectReferenceTable(p, kObliqueNearPole, kEllipsoid);
}

// An oblique centre closer to the pole than any reference reaches is the
// polar aspect moved by the centre's offset: within twice that offset of the
// polar table, and exact in the round trip. The ill-conditioned cos(beta0)
// made this metres (at 1e-3 degrees) to 1e13 m (just outside the nearness
// switch to the polar aspect).
TEST(LambertAzimuthalEqualArea, EllipsoidObliqueCentreTendsToThePolarAspect) {
    const double metresPerDegree = 6378137.0 * 3.141592653589793 / 180;
    for (double originLatitude : {90 * (1 - 1e-11), 90 - 1e-8, 90 - 1e-6}) {
        SCOPED_TRACE(testing::Message() << std::setprecision(17) << originLatitude);
        CGxLambertAzimuthalEqualArea p("Near pole", -40, originLatitude, 1000000, 2000000,
                                       kGxWgs84);
        const double offset = (90 - originLatitude) * metresPerDegree;
        for (const GxReferencePoint& r : kNorthPolarGrid) {
            GxExpectForward(p, r, 2 * offset + 1e-6);
            GxExpectRoundTrip(p, r.lon, r.lat, 1e-11, true);
        }
    }
}

TEST(LambertAzimuthalEqualArea, SphereMatchesReference) {
    CGxLambertAzimuthalEqualArea europe("LAEA Europe", 10, 52, 4321000, 3210000, kGxSphere);
    GxExpectReferenceTable(europe, kEuropeSphere,
                           GxOnGround(kForwardTolerance, kSphereInverseTolerance));
    CGxLambertAzimuthalEqualArea north("North", -40, 90, 1000000, 2000000, kGxSphere);
    GxExpectReferenceTable(north, kNorthPolarSphere,
                           GxOnGround(kForwardTolerance, kSphereInverseTolerance));
    CGxLambertAzimuthalEqualArea south("South", 0, -90, 3000000, 3000000, kGxSphere);
    GxExpectReferenceTable(south, kSouthPolarSphere,
                           GxOnGround(kForwardTolerance, kSphereInverseTolerance));
}

TEST(LambertAzimuthalEqualArea, PolarAspectChosenByNearnessToThePole) {
    // An origin latitude a rounding error away from -90 must still take the
    // polar formulas: the oblique ones would divide by cos(beta0), nearly 0.
    const double nearSouthPole = -90 * (1 - 1e-13);
    CGxLambertAzimuthalEqualArea ellipsoid("South", 0, nearSouthPole, 3000000, 3000000,
                                           kGxInternational);
    GxExpectReferenceTable(ellipsoid, kSouthPolarIntl, kEllipsoid);
    CGxLambertAzimuthalEqualArea sphere("South", 0, nearSouthPole, 3000000, 3000000, kGxSphere);
    GxExpectReferenceTable(sphere, kSouthPolarSphere,
                           GxOnGround(kForwardTolerance, kSphereInverseTolerance));
}

TEST(LambertAzimuthalEqualArea, CentreReturnsOnEllipsoidButNaNOnSphere) {
    double lon, lat;
    CGxLambertAzimuthalEqualArea ellipsoid("LAEA Europe", 10, 52, 4321000, 3210000, kGxGrs80);
    ellipsoid.Proj2Geo(4321000, 3210000, &lon, &lat);
    EXPECT_EQ(lon, 10);
    EXPECT_EQ(lat, 52);

    // The spherical inverse divides 0 by 0 at the centre; its latitude is NaN
    // on purpose, while the direction (the longitude) is still defined.
    CGxLambertAzimuthalEqualArea sphere("LAEA Europe", 10, 52, 4321000, 3210000, kGxSphere);
    sphere.Proj2Geo(4321000, 3210000, &lon, &lat);
    EXPECT_EQ(lon, 10);
    EXPECT_TRUE(std::isnan(lat));

    // At a polar centre the sphere has its own guard and returns the pole.
    CGxLambertAzimuthalEqualArea pole("North", -40, 90, 1000000, 2000000, kGxSphere);
    pole.Proj2Geo(1000000, 2000000, &lon, &lat);
    EXPECT_EQ(lat, 90);
}

TEST(LambertAzimuthalEqualArea, DefaultAreaObliqueBoxAndPolarSquare) {
    CGxLambertAzimuthalEqualArea europe("LAEA Europe", 10, 52, 4321000, 3210000, kGxGrs80);
    GxExpectDefaultArea(europe, kEuropeCorners, kForwardTolerance);

    // Around a pole the square is 200 km each way from the pole's easting, and
    // the northing range is taken from the easting too, as the polar
    // stereographic does: with unequal false easting and northing the box
    // does not contain the pole.
    double x0, y0, x1, y1;
    for (const CGxEllipsoid& e : {kGxWgs84, kGxSphere}) {
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
    CGxLambertAzimuthalEqualArea europe("LAEA Europe", 10, 52, 4321000, 3210000, kGxGrs80);
    EXPECT_NEAR(europe.GetConvergence(30, 60), 16.99418005, 2e-3);
    EXPECT_NEAR(europe.GetConvergence(-10, 40), -13.78785351, 2e-3);
    CGxLambertAzimuthalEqualArea north("North", -40, 90, 1000000, 2000000, kGxWgs84);
    EXPECT_NEAR(north.GetConvergence(45, 60), 85.0, 1e-7);
    CGxLambertAzimuthalEqualArea south("South", -60, -15, 500000, 1000000, kGxSphere);
    EXPECT_NEAR(south.GetConvergence(-70, -40), 5.83589606, 2e-3);
}
