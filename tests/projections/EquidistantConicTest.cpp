#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Ellipsoid.h"
#include "projections/EquidistantConic.h"
#include "tests/support/ReferenceFile.h"

namespace {

const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
const CGxEllipsoid kIntl("International 1924", "IN", 6378388.0, 297.0);
const CGxEllipsoid kClarke66("Clarke 1866", "CC", 6378206.4, 294.978698213898);

CGxEllipsoid Sphere(double radius) {
    return CGxEllipsoid("Sphere", "SP", radius, 0.0);
}

// The meridian arc here is a series in e^2 to third order against PROJ's
// fourth: the forward stays within 0.5 mm of PROJ over these tables.
constexpr double kEllipsoidForwardTolerance = 1e-3;  // metres
constexpr double kSphereForwardTolerance = 1e-5;     // metres
// The footpoint series inverts the exact arc, the forward uses the third-order
// one: inverse and round trip measured within 3.3e-9 degrees (0.4 mm) up to
// 52 degrees of latitude and 7.4e-9 degrees (0.8 mm) from 60 to 80; the
// spherical inverse is closed.
constexpr double kEllipsoidInverseTolerance = 1e-8;  // degrees
constexpr double kSphereInverseTolerance = 1e-10;    // degrees

const auto kConusWgs84 = GxReadReferencePoints("equidistant_conic/conus_wgs84.txt");
const auto kSouthernIntl = GxReadReferencePoints("equidistant_conic/southern_intl.txt");
const auto kTangentClarke = GxReadReferencePoints("equidistant_conic/tangent_clarke.txt");
const auto kConusSphere = GxReadReferencePoints("equidistant_conic/conus_sphere.txt");
const auto kSouthernSphere = GxReadReferencePoints("equidistant_conic/southern_sphere.txt");
const auto kTangentSphere = GxReadReferencePoints("equidistant_conic/tangent_sphere.txt");

// cct -d 6 +proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=500000 +y_0=100000
// +a=6378137 +rf=298.257223563
const GxReferencePoint kConusCorners[] = {
    {-101, 18, -52024.208639, -438935.636111},
    {-91, 28, 993404.597886, 666971.673548},
};

}  // namespace

TEST(EquidistantConic, EllipsoidMatchesReference) {
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kWgs84);
    GxExpectReferenceTable(conus, kConusWgs84,
                           GxOnGround(kEllipsoidForwardTolerance, kEllipsoidInverseTolerance));
    // Both parallels south: n < 0, negative radii, and the inverse turns both
    // coordinate differences round.
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kIntl);
    GxExpectReferenceTable(south, kSouthernIntl,
                           GxOnGround(kEllipsoidForwardTolerance, kEllipsoidInverseTolerance));
}

TEST(EquidistantConic, SphereMatchesReference) {
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, Sphere(6371000));
    GxExpectReferenceTable(conus, kConusSphere,
                           GxOnGround(kSphereForwardTolerance, kSphereInverseTolerance));
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, Sphere(6370997));
    GxExpectReferenceTable(south, kSouthernSphere,
                           GxOnGround(kSphereForwardTolerance, kSphereInverseTolerance));
}

TEST(EquidistantConic, EqualParallelsGiveTangentCone) {
    // The secant formula would be 0/0; the tangent cone at 60 degrees north
    // has n = sin 60 on the ellipsoid and on the sphere alike.
    CGxEquidistantConic ellipsoid("Tangent", 60, 60, 10, 50, 300000, -400000, kClarke66);
    GxExpectReferenceTable(ellipsoid, kTangentClarke,
                           GxOnGround(kEllipsoidForwardTolerance, kEllipsoidInverseTolerance));
    CGxEquidistantConic sphere("Tangent", 60, 60, 10, 50, 300000, -400000, Sphere(6371000));
    GxExpectReferenceTable(sphere, kTangentSphere,
                           GxOnGround(kSphereForwardTolerance, kSphereInverseTolerance));
}

TEST(EquidistantConic, CentralMeridianNorthingIsMeridianArc) {
    // echo "10 -96 70 -96" | GeodSolve -i -p 6 -e 6378137 1/298.257223563
    //   ->  s12 = 6663125.894536
    // echo "-10 132 -60 132" | GeodSolve -i -p 6 -e 6378388 1/297
    //   ->  s12 = 5548361.067221
    double x, y1, y2;
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kWgs84);
    conus.Geo2Proj(-96, 10, &x, &y1);
    conus.Geo2Proj(-96, 70, &x, &y2);
    EXPECT_NEAR(y2 - y1, 6663125.894536, 1e-3);

    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kIntl);
    south.Geo2Proj(132, -10, &x, &y1);
    south.Geo2Proj(132, -60, &x, &y2);
    EXPECT_NEAR(y1 - y2, 5548361.067221, 1e-3);
}

TEST(EquidistantConic, DefaultAreaIsTenDegreeBox) {
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kWgs84);
    GxExpectDefaultArea(conus, kConusCorners, kEllipsoidForwardTolerance);
}

TEST(EquidistantConic, ConvergenceMatchesReference) {
    // echo "lon lat" | proj -V <parameters of the tables above>: "Convergence".
    // Meridians are straight, so the one-arc-minute chord is exact: n (lon - lon0).
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kWgs84);
    EXPECT_NEAR(conus.GetConvergence(-70, 25), 15.77770883, 1e-7);
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kIntl);
    EXPECT_NEAR(south.GetConvergence(150, -40), -8.13932831, 1e-7);
    CGxEquidistantConic tangent("Tangent", 60, 60, 10, 50, 300000, -400000, Sphere(6371000));
    EXPECT_NEAR(tangent.GetConvergence(-20, 70), -25.98076211, 1e-7);
}
