#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Ellipsoid.h"
#include "projections/EquidistantConic.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

const CGxEllipsoid kClarke66("Clarke 1866", "CC", 6378206.4, 294.978698213898);

CGxEllipsoid Sphere(double radius) {
    return CGxEllipsoid("Sphere", "SP", radius, 0.0);
}

// The meridian arc and its inverse are exact here (series in n to sixth
// order, against GeodSolve below). PROJ 9.1 takes the arc from a series in e^2
// to fourth order, off by 1.4 micrometres at 50 degrees and up to 4.8 at 70
// to 75 (cct against GeodSolve): the grids up to 45 degrees hold PROJ to
// 1e-6 m, the tables that reach 52 and 80 degrees to 1e-5 m.
constexpr double kEllipsoidForwardTolerance = 1e-5;  // metres
constexpr double kGridForwardTolerance = 1e-6;       // metres
constexpr double kSphereForwardTolerance = 1e-5;     // metres
// From cct's coordinates back to the point within 1e-10 degrees, our forward
// and inverse back within 1e-11; the spherical inverse is closed.
constexpr GxReferenceTolerance kEllipsoid = {kEllipsoidForwardTolerance, 1e-10, 1e-11, true};
constexpr GxReferenceTolerance kEllipsoidGrid = {kGridForwardTolerance, 1e-10, 1e-11, true};
constexpr double kSphereInverseTolerance = 1e-10;  // degrees

const auto kConusWgs84 = GxReadReferencePoints("equidistant_conic/conus_wgs84.txt");
const auto kSouthernIntl = GxReadReferencePoints("equidistant_conic/southern_intl.txt");
const auto kTangentClarke = GxReadReferencePoints("equidistant_conic/tangent_clarke.txt");
const auto kConusSphere = GxReadReferencePoints("equidistant_conic/conus_sphere.txt");
const auto kSouthernSphere = GxReadReferencePoints("equidistant_conic/southern_sphere.txt");
const auto kTangentSphere = GxReadReferencePoints("equidistant_conic/tangent_sphere.txt");
const auto kConusGrid = GxReadReferencePoints("equidistant_conic/conus_wgs84_grid.txt");
const auto kSouthernGrid = GxReadReferencePoints("equidistant_conic/southern_intl_grid.txt");
const auto kAlaska = GxReadReferencePoints("equidistant_conic/alaska_grs80.txt");

// cct -d 6 +proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=500000 +y_0=100000
// +a=6378137 +rf=298.257223563
const GxReferencePoint kConusCorners[] = {
    {-101, 18, -52024.208639, -438935.636111},
    {-91, 28, 993404.597886, 666971.673548},
};

}  // namespace

TEST(EquidistantConic, EllipsoidMatchesReference) {
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kGxWgs84);
    GxExpectReferenceTable(conus, kConusWgs84, kEllipsoid);
    GxExpectReferenceTable(conus, kConusGrid, kEllipsoidGrid);
    // Both parallels south: n < 0, negative radii, and the inverse turns both
    // coordinate differences round.
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kGxInternational);
    GxExpectReferenceTable(south, kSouthernIntl, kEllipsoid);
    GxExpectReferenceTable(south, kSouthernGrid, kEllipsoidGrid);
}

// A grid centred on -154 that reaches the western Aleutians: 172 E lies 34
// degrees west of the central meridian (also written as -188), not 326 east.
TEST(EquidistantConic, GridAcrossTheAntimeridian) {
    for (const CGxEllipsoid& e : {kGxGrs80, Sphere(6371000)}) {
        CGxEquidistantConic alaska("Alaska", 55, 65, -154, 50, 0, 0, e);
        if (e.GetInvFlatness() != 0) GxExpectReferenceTable(alaska, kAlaska, kEllipsoid);
        GxExpectAleutiansWestOfCentre(alaska);
    }
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
    GxExpectReferenceTable(ellipsoid, kTangentClarke, kEllipsoid);
    CGxEquidistantConic sphere("Tangent", 60, 60, 10, 50, 300000, -400000, Sphere(6371000));
    GxExpectReferenceTable(sphere, kTangentSphere,
                           GxOnGround(kSphereForwardTolerance, kSphereInverseTolerance));
}

TEST(EquidistantConic, CentralMeridianNorthingIsMeridianArc) {
    // The arc to within a nanometre or two (the rounding of northings of
    // thousands of kilometres), from the equator to next to the pole.
    //   echo "lat1 lon lat2 lon" | GeodSolve -i -p 9 -e <a> <f>   -> s12
    struct Arc {
        double lat1, lat2, s12;
    };
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kGxWgs84);
    // -e 6378137 1/298.257223563
    for (const Arc& arc : {Arc{10, 70, 6663125.894535823}, Arc{0, 89, 9890271.864398522}}) {
        double x, y1, y2;
        conus.Geo2Proj(-96, arc.lat1, &x, &y1);
        conus.Geo2Proj(-96, arc.lat2, &x, &y2);
        EXPECT_NEAR(y2 - y1, arc.s12, 1e-8) << arc.lat1 << " " << arc.lat2;
    }
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kGxInternational);
    // -e 6378388 1/297
    for (const Arc& arc : {Arc{-10, -60, 5548361.067221197}, Arc{-85, -5, 8890911.319982128}}) {
        double x, y1, y2;
        south.Geo2Proj(132, arc.lat1, &x, &y1);
        south.Geo2Proj(132, arc.lat2, &x, &y2);
        EXPECT_NEAR(std::fabs(y2 - y1), arc.s12, 1e-8) << arc.lat1 << " " << arc.lat2;
    }
}

TEST(EquidistantConic, DefaultAreaIsTenDegreeBox) {
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kGxWgs84);
    GxExpectDefaultArea(conus, kConusCorners, kEllipsoidForwardTolerance);
}

TEST(EquidistantConic, ConvergenceMatchesReference) {
    // echo "lon lat" | proj -V <parameters of the tables above>: "Convergence".
    // Meridians are straight, so the one-arc-minute chord is exact: n (lon - lon0).
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kGxWgs84);
    EXPECT_NEAR(conus.GetConvergence(-70, 25), 15.77770883, 1e-7);
    EXPECT_EQ(conus.GetConvergence(-96, 45), 0.0);  // on the central meridian
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kGxInternational);
    EXPECT_NEAR(south.GetConvergence(150, -40), -8.13932831, 1e-7);
    CGxEquidistantConic tangent("Tangent", 60, 60, 10, 50, 300000, -400000, Sphere(6371000));
    EXPECT_NEAR(tangent.GetConvergence(-20, 70), -25.98076211, 1e-7);
}
