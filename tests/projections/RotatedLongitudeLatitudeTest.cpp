#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "foundation/Ellipsoid.h"
#include "projections/RotatedLongitudeLatitude.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

// Rotated-pole grids against independent values from PROJ 9.1.1.
//
// On a sphere the rotation of the Cartesian coordinates is a plain rotation of
// longitude and latitude, which PROJ's ob_tran does directly. A south pole at
// (lonP, latP) puts the rotated north pole at (lonP + 180, -latP); ob_tran
// with o_lat_p = -latP, o_lon_p = 0 and lon_0 = lonP is the same grid.
//
// On an ellipsoid ob_tran is not comparable: it rotates geodetic latitudes as
// if they were spherical, while this grid rotates the Earth-centred position
// and reads the geodetic latitude of the rotated point, which lies off the
// ellipsoid. The same construction is spelled out in a PROJ pipeline instead:
// geodetic to Cartesian, the rotation about z by -lonP, the rotation about y by
// 90 + latP (exact Helmert rotations, position-vector convention, angles in
// arc-seconds), Cartesian to geodetic with the height dropped. The inverse is
// the same pipeline run backwards (cct -I) from height 0.

namespace {

// The tables under tests/data/reference/rotated_longitude_latitude pair a
// longitude/latitude (lon, lat) with its image (x, y), also in degrees.
using Case = GxReferencePoint;

// 1e-9 degrees is about 0.1 mm on the ground; cct printed 10 decimals.
constexpr double kAngleTolerance = 2e-9;

const CGxEllipsoid kSphere("Sphere", "SP", 6371229.0, 0.0);

// Each row's (lon, lat) taken forward, or backward for an inverse table.
void ExpectTable(const CGxProjection& p, const std::vector<Case>& table, bool forward) {
    ASSERT_FALSE(table.empty());
    for (const Case& c : table) {
        SCOPED_TRACE(testing::Message() << c.lon << " " << c.lat);
        double u, v;
        if (forward)
            p.Geo2Proj(c.lon, c.lat, &u, &v);
        else
            p.Proj2Geo(c.lon, c.lat, &u, &v);
        GxExpectLongitudeLatitude(u, v, c.x, c.y, kAngleTolerance);
    }
}

void ExpectForward(const CGxProjection& p, const std::vector<Case>& table) {
    ExpectTable(p, table, true);
}

void ExpectInverse(const CGxProjection& p, const std::vector<Case>& table) {
    ExpectTable(p, table, false);
}

// Geodetic to Cartesian, GRS80, height 0:
//   echo "lon lat 0 0" | cct -d 4 +proj=cart +ellps=GRS80
constexpr double kCartesian[][5] = {
    // lon, lat, X, Y, Z
    {0, 0, 6378137.0000, 0.0000, 0.0000},
    {18, 50.75, 3845697.8182, 1249542.9669, 4915995.1971},
    {-97, -42.5, -573962.7400, -4674551.3916, -4286714.7300},
    {123.4, 89.9, -6148.5353, 9324.7432, 6356742.5670},
    {-179.5, -0.5, -6377652.9151, -55656.9338, -55286.4503},
};

// Cartesian to geodetic, GRS80, for points up to 300 km off the surface, by
// GeographicLib's exact solution (the height column is not used):
//   echo "X Y Z" | CartConvert -r -e 6378137 1/298.257222101 -p 12
constexpr double kGeodetic[][5] = {
    // X, Y, Z, lon, lat
    {4000000, 1200000, 4800000, 16.699244233993621, 49.166488714618005},       // h -3.5 km
    {-2000000, -500000, -5900000, -165.963756532073518, -70.861386819754856},  // h -109 km
    {20000, -10000, 6370000, -26.565051177077990, 89.800218440462714},         // h +13 km
    {6390000, 0, 0, 0.0, 0.0},                                                 // h +12 km
    {3500000, 3500000, 3500000, 45.0, 35.455284754616351},                     // h -309 km
};

const auto kSphereEuropeForward =
    GxReadReferencePoints("rotated_longitude_latitude/sphere_europe_forward.txt");
const auto kSphereEuropeInverse =
    GxReadReferencePoints("rotated_longitude_latitude/sphere_europe_inverse.txt");
const auto kGrs80EuropeForward =
    GxReadReferencePoints("rotated_longitude_latitude/grs80_europe_forward.txt");
const auto kGrs80EuropeInverse =
    GxReadReferencePoints("rotated_longitude_latitude/grs80_europe_inverse.txt");
const auto kClarke1866NorthAmericaForward =
    GxReadReferencePoints("rotated_longitude_latitude/clarke1866_north_america_forward.txt");
const auto kClarke1866NorthAmericaInverse =
    GxReadReferencePoints("rotated_longitude_latitude/clarke1866_north_america_inverse.txt");

}  // namespace

TEST(RotatedLongitudeLatitude, CartesianConversionsMatchProj) {
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kGxGrs80);
    for (const auto& c : kCartesian) {
        double X, Y, Z;
        grid.Geo2XYZ(c[0], c[1], &X, &Y, &Z);
        EXPECT_NEAR(X, c[2], 1e-4) << c[0] << " " << c[1];
        EXPECT_NEAR(Y, c[3], 1e-4) << c[0] << " " << c[1];
        EXPECT_NEAR(Z, c[4], 1e-4) << c[0] << " " << c[1];
    }
    // Bowring's closed form stays within 1e-10 degrees (10 micrometres) even
    // hundreds of kilometres off the surface; rotated points of a grid are
    // never more than about 21 km off.
    for (const auto& c : kGeodetic) {
        double lon, lat;
        grid.XYZ2Geo(c[0], c[1], c[2], &lon, &lat);
        EXPECT_NEAR(lon, c[3], 1e-10) << c[0] << " " << c[1] << " " << c[2];
        EXPECT_NEAR(lat, c[4], 1e-10) << c[0] << " " << c[1] << " " << c[2];
    }
}

TEST(RotatedLongitudeLatitude, PolarAxisKeepsItsHemisphere) {
    // Straight above a pole the closed form's denominator rounds to a tiny
    // negative number; a plain evaluation put the north pole on the south one.
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kGxGrs80);
    double lon, lat;
    grid.XYZ2Geo(0, 0, 6356752.3, &lon, &lat);
    EXPECT_EQ(lat, 90.0);
    grid.XYZ2Geo(0, 0, -6356752.3, &lon, &lat);
    EXPECT_EQ(lat, -90.0);
    grid.XYZ2Geo(0, 0, 0, &lon, &lat);
    EXPECT_TRUE(std::isnan(lat));
}

TEST(RotatedLongitudeLatitude, SphereMatchesObliqueTransformation) {
    CGxRotatedLongitudeLatitude europe("Rotated EU", 18, -39.25, 0, kSphere);
    ExpectForward(europe, kSphereEuropeForward);
    ExpectInverse(europe, kSphereEuropeInverse);
}

TEST(RotatedLongitudeLatitude, EllipsoidMatchesCartesianRotationPipeline) {
    CGxRotatedLongitudeLatitude europe("Rotated EU", 18, -39.25, 0, kGxGrs80);
    ExpectForward(europe, kGrs80EuropeForward);
    ExpectInverse(europe, kGrs80EuropeInverse);
    CGxRotatedLongitudeLatitude america("Rotated NA", -97, -42.5, 0, kGxClarke1866);
    ExpectForward(america, kClarke1866NorthAmericaForward);
    ExpectInverse(america, kClarke1866NorthAmericaInverse);
}

TEST(RotatedLongitudeLatitude, RoundTrip) {
    // On a sphere forward and inverse undo each other to rounding. On an
    // ellipsoid the rotated point's height is dropped between the two, so a
    // round trip lands a few tens of metres away at most (41 m in this box).
    CGxRotatedLongitudeLatitude sphere("Rotated", 18, -39.25, 0, kSphere);
    CGxRotatedLongitudeLatitude ellipsoid("Rotated", 18, -39.25, 0, kGxGrs80);
    constexpr double kMetresPerDegree = 111320.0;
    for (double lon = -20; lon <= 40; lon += 5) {
        for (double lat = 20; lat <= 80; lat += 5) {
            double x, y, lon2, lat2;
            sphere.Geo2Proj(lon, lat, &x, &y);
            sphere.Proj2Geo(x, y, &lon2, &lat2);
            EXPECT_NEAR(lon2, lon, 1e-9);
            EXPECT_NEAR(lat2, lat, 1e-9);

            ellipsoid.Geo2Proj(lon, lat, &x, &y);
            ellipsoid.Proj2Geo(x, y, &lon2, &lat2);
            const double east = (lon2 - lon) * std::cos(lat * 0.017453292519943295);
            EXPECT_LT(std::hypot(east, lat2 - lat) * kMetresPerDegree, 45.0) << lon << " " << lat;
        }
    }
}

TEST(RotatedLongitudeLatitude, SouthPoleAtGeographicSouthPoleIsIdentity) {
    // The rotation is the unit matrix; what is left is the Cartesian round
    // trip, whose closed form is good to about 1e-11 degrees on the surface.
    CGxRotatedLongitudeLatitude grid("Unrotated", 0, -90, 0, kGxGrs80);
    const double points[][2] = {{0, 0},       {13.5, 52.25}, {-179.25, -33},
                                {120, 89.75}, {-45, -89.75}, {179.999, 1e-7}};
    for (const auto& p : points) {
        double x, y, lon, lat;
        grid.Geo2Proj(p[0], p[1], &x, &y);
        EXPECT_NEAR(x, p[0], 1e-10);
        EXPECT_NEAR(y, p[1], 1e-10);
        grid.Proj2Geo(p[0], p[1], &lon, &lat);
        EXPECT_NEAR(lon, p[0], 1e-10);
        EXPECT_NEAR(lat, p[1], 1e-10);
    }
    // Longitudes come back in (-180, 180].
    double x, y;
    grid.Geo2Proj(200, 10, &x, &y);
    EXPECT_NEAR(x, -160, 1e-11);
    // Meridians of the two systems coincide: no convergence.
    EXPECT_NEAR(grid.GetConvergence(75, 40), 0.0, 1e-9);
}

TEST(RotatedLongitudeLatitude, RotationAngleTakesNoPart) {
    CGxRotatedLongitudeLatitude plain("Rotated", 18, -39.25, 0, kGxGrs80);
    for (double angle : {37.0, -123.5, 180.0}) {
        CGxRotatedLongitudeLatitude turned("Rotated", 18, -39.25, angle, kGxGrs80);
        EXPECT_EQ(turned.GetRotationAngle(), angle);
        for (const Case& c : kGrs80EuropeForward) {
            double x1, y1, x2, y2;
            plain.Geo2Proj(c.lon, c.lat, &x1, &y1);
            turned.Geo2Proj(c.lon, c.lat, &x2, &y2);
            EXPECT_EQ(x1, x2);
            EXPECT_EQ(y1, y2);
            plain.Proj2Geo(c.lon, c.lat, &x1, &y1);
            turned.Proj2Geo(c.lon, c.lat, &x2, &y2);
            EXPECT_EQ(x1, x2);
            EXPECT_EQ(y1, y2);
        }
    }
}

TEST(RotatedLongitudeLatitude, ConvergencePointsAtTheRotatedPole) {
    // On the rotated equator of a spherical grid, grid north is the direction
    // of the great circle towards the rotated north pole (-162, 39.25).
    // Points: cct -I with the ob_tran pipeline above at rotated (x, 0);
    // azimuths: echo "lat lon 39.25 -162" | GeodSolve -i -e 6371229 0 -p 12
    const double cases[][3] = {
        // lon, lat, azimuth
        {-11.910107358338, 46.693174544422, -22.714758309342724},
        {33.572481934531, 49.696416881067, 11.998804526371691},
        {54.390439487896, 44.574660357106, 27.350668528105210},
    };
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kSphere);
    for (const auto& c : cases) EXPECT_NEAR(grid.GetConvergence(c[0], c[1]), c[2], 1e-3);
}

TEST(RotatedLongitudeLatitude, OriginAndDefaultArea) {
    // Corners of the +-3 degree box around the origin through the GRS80
    // pipeline above:
    //   (15, 47.75) -> (-2.0270760465, -3.1717298376)
    //   (21, 53.75) -> (1.7833599168, 2.8716880015)
    // The origin itself is at (0, -0.19) rather than (0, 0): the rotation acts
    // on the geocentric direction, not the geodetic one.
    CGxRotatedLongitudeLatitude europe("Rotated", 18, -39.25, 0, kGxGrs80);
    double lon, lat, x0, y0, x1, y1;
    europe.GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 18.0);
    EXPECT_EQ(lat, 50.75);
    europe.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, -2.0270760465, kAngleTolerance);
    EXPECT_NEAR(y0, -3.1717298376, kAngleTolerance);
    EXPECT_NEAR(x1, 1.7833599168, kAngleTolerance);
    EXPECT_NEAR(y1, 2.8716880015, kAngleTolerance);

    // An origin at (179, 88) clamps the box's east side to 180 and its north
    // side to the pole. Pipeline with +rz=-644400 +ry=316800:
    //   (176, 85) -> (-0.2634640445, -3.0470579842)
    //   (180, 90) -> (0, 2.0135134934)
    CGxRotatedLongitudeLatitude nearPole("Rotated", 179, -2, 0, kGxGrs80);
    nearPole.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, -0.2634640445, kAngleTolerance);
    EXPECT_NEAR(y0, -3.0470579842, kAngleTolerance);
    EXPECT_NEAR(x1, 0.0, kAngleTolerance);
    EXPECT_NEAR(y1, 2.0135134934, kAngleTolerance);
}

// The rotated grid hands its figure out and answers true whatever the figure,
// unlike the geographical grid and the map projections, which refuse a major
// axis not above 0; the names of the target are kept.
TEST(RotatedLongitudeLatitude, AnonymousEllipsoidIsAlwaysHandedOut) {
    CGxEllipsoid out("Kept", "KP", 1, 1);
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kGxGrs80);
    ASSERT_TRUE(grid.GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6378137.0);
    EXPECT_DOUBLE_EQ(out.GetInvFlatness(), 298.257222101);
    EXPECT_EQ(out.GetName(), "Kept");
    CGxRotatedLongitudeLatitude sphere("Rotated", 18, -39.25, 0, kSphere);
    ASSERT_TRUE(sphere.GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetInvFlatness(), 0.0);

    const CGxEllipsoid flat("No axis", "NA", 0.0, 300.0);
    ASSERT_TRUE(
        CGxRotatedLongitudeLatitude("Rotated", 18, -39.25, 0, flat).GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 0.0);
    EXPECT_DOUBLE_EQ(out.GetInvFlatness(), 300.0);
    const CGxEllipsoid negative("Negative", "NG", -6378137.0, 0.0);
    ASSERT_TRUE(
        CGxRotatedLongitudeLatitude("Rotated", 18, -39.25, 0, negative).GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), -6378137.0);
    EXPECT_EQ(out.GetInvFlatness(), 0.0);
    EXPECT_EQ(out.GetName(), "Kept");
}
