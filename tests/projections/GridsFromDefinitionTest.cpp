#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "catalogue/CartSetup.h"
#include "definitions/GeographicalProjection.h"
#include "definitions/MapProjData.h"
#include "definitions/RotatedLongitudeLatitudeProjection.h"
#include "foundation/Ellipsoid.h"
#include "projections/Geographical.h"
#include "projections/RotatedLongitudeLatitude.h"
#include "tests/support/DefinitionCheck.h"
#include "tests/support/ReferenceCheck.h"

// Geographical and rotated-pole grids built from catalogue definitions: the
// name, the parameters and the catalogue ellipsoid must reach the algorithm,
// and a definition whose ellipsoid the catalogue does not know must give a
// grid that converts to NaN rather than to numbers from nowhere.

namespace {

using Def = std::unique_ptr<CGxMapProjData>;
using Grid = std::unique_ptr<CGxProjection>;

// Longitudes and latitudes in, rotated longitudes and latitudes out, degrees.
using Case = GxReferencePoint;

// About 0.1 mm on the ground; cct printed 10 decimals.
constexpr double kAngleTolerance = 2e-9;

Def Geographical(const std::string& name, const std::string& ellipsoid) {
    return Def(CGxMapProjData::CreateProjection(CGxMapProjData::eGeographical, name, "Branch",
                                                ellipsoid, nullptr));
}

Def Rotated(const std::string& name, const std::string& ellipsoid, double lonP, double latP,
            double angle) {
    double params[] = {lonP, latP, angle};
    return Def(CGxMapProjData::CreateProjection(CGxMapProjData::eRotatedLongitudeLatitude, name,
                                                "Branch", ellipsoid, params));
}

// Same bits, forward and inverse, as the grid built from the same numbers.
void ExpectSameGrid(const CGxProjection& fromDefinition, const CGxProjection& fromValues) {
    const double points[][2] = {{18, 50.75}, {-150, 80}, {170, -60}, {0.5, 0.25}, {-179.5, -89}};
    for (const auto& p : points) {
        double x1, y1, x2, y2;
        fromDefinition.Geo2Proj(p[0], p[1], &x1, &y1);
        fromValues.Geo2Proj(p[0], p[1], &x2, &y2);
        EXPECT_EQ(x1, x2) << p[0] << " " << p[1];
        EXPECT_EQ(y1, y2) << p[0] << " " << p[1];
        fromDefinition.Proj2Geo(p[0], p[1], &x1, &y1);
        fromValues.Proj2Geo(p[0], p[1], &x2, &y2);
        EXPECT_EQ(x1, x2) << p[0] << " " << p[1];
        EXPECT_EQ(y1, y2) << p[0] << " " << p[1];
    }
}

template <std::size_t N>
void ExpectForward(const CGxProjection& p, const Case (&table)[N]) {
    for (const Case& c : table) {
        SCOPED_TRACE(testing::Message() << c.lon << " " << c.lat);
        GxExpectForward(p, c, kAngleTolerance);
    }
}

// Longitudes from the central meridian of a catalogue geographical system
// (meridian 0), never wrapped:
//   echo "lon lat 0 0" | cct -d 10 +proj=pipeline
//     +step +proj=unitconvert +xy_in=deg +xy_out=rad
//     +step +proj=longlat +ellps=WGS84 +over
//     +step +proj=unitconvert +xy_in=rad +xy_out=deg
constexpr Case kGeographicalWgs84[] = {
    {359, 10, 359.0000000000, 10.0000000000},
    {-175, 50, -175.0000000000, 50.0000000000},
    {123.456789, -45.678901, 123.4567890000, -45.6789010000},
};

// Rows of the rotated-grid reference tables: south pole (18, -39.25).
// Sphere of radius 6371229 m (catalogue "XY"):
//   echo "lon lat 0 0" | cct -d 10 +proj=pipeline
//     +step +proj=unitconvert +xy_in=deg +xy_out=rad
//     +step +proj=ob_tran +o_proj=longlat +o_lon_p=0 +o_lat_p=39.25 +lon_0=18 +R=6371229
//     +step +proj=unitconvert +xy_in=rad +xy_out=deg
constexpr Case kSphereEurope[] = {
    {-12, 26.75, -28.0530883045, -18.3059483885},
    {33, 62.75, 6.9776783804, 12.7086520069},
    {18, 50.75, 0.0000000000, 0.0000000000},
    {-150, 80, -3.1541689125, 48.9927406136},
};

// GRS80 (catalogue "RF"), the Cartesian rotation spelled out:
//   echo "lon lat 0 0" | cct -d 10 +proj=pipeline +step +proj=cart +ellps=GRS80
//     +step +proj=helmert +rz=-64800 +exact +convention=position_vector
//     +step +proj=helmert +ry=182700 +exact +convention=position_vector
//     +step +inv +proj=cart +ellps=GRS80
constexpr Case kGrs80Europe[] = {
    {-12, 26.75, -28.1194570809, -18.5627563646},
    {60, 74.75, 11.4907022016, 27.4039206989},
    {18, 50.75, 0.0000000000, -0.1899608431},
    {-150, 80, -3.1788901112, 49.2474021971},
};

}  // namespace

TEST(GeographicalFromDefinition, WiresNameAndCatalogueEllipsoid) {
    Def def = Geographical("World WGS 84", "WE");
    ASSERT_TRUE(def);
    Grid grid(def->CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_STREQ(grid->GetName(), "World WGS 84");
    EXPECT_FALSE(grid->IsLocal());
    EXPECT_TRUE(grid->IsGeographical());

    ExpectSameGrid(*grid, CGxGeographical("World WGS 84", 0, GxSystemEllipsoid("WE")));
    ExpectForward(*grid, kGeographicalWgs84);

    // The WGS 84 figure, not the GRS80 one next to it in the catalogue.
    CGxEllipsoid out;
    ASSERT_TRUE(grid->GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6378137.0);
    EXPECT_DOUBLE_EQ(out.GetInvFlatness(), 298.257223563);

    double x0, y0, x1, y1;
    grid->GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_EQ(x0, -180.0);
    EXPECT_EQ(y0, -60.0);
    EXPECT_EQ(x1, 180.0);
    EXPECT_EQ(y1, 81.0);
}

TEST(RotatedFromDefinition, WiresPoleAndCatalogueEllipsoid) {
    // Sphere "XY", the figure of the regional climate grids.
    Def sphereDef = Rotated("Europe rotated", "XY", 18, -39.25, 0);
    ASSERT_TRUE(sphereDef);
    Grid sphere(sphereDef->CreateProjection());
    ASSERT_TRUE(sphere);
    EXPECT_STREQ(sphere->GetName(), "Europe rotated");
    EXPECT_FALSE(sphere->IsLocal());
    EXPECT_TRUE(sphere->IsGeographical());
    ExpectSameGrid(*sphere, CGxRotatedLongitudeLatitude("Europe rotated", 18, -39.25, 0,
                                                        GxSystemEllipsoid("XY")));
    ExpectForward(*sphere, kSphereEurope);

    // Pole longitude and latitude in their own places: swapped, the origin
    // would not be (18, 50.75).
    double lon, lat;
    sphere->GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 18.0);
    EXPECT_EQ(lat, 50.75);

    // The same pole on GRS80: a flattened figure must reach the Cartesian
    // rotation, which moves the origin off the rotated equator.
    Grid grs80(Rotated("Europe rotated GRS80", "RF", 18, -39.25, 0)->CreateProjection());
    ASSERT_TRUE(grs80);
    ExpectSameGrid(*grs80, CGxRotatedLongitudeLatitude("Europe rotated GRS80", 18, -39.25, 0,
                                                       GxSystemEllipsoid("RF")));
    ExpectForward(*grs80, kGrs80Europe);
}

TEST(RotatedFromDefinition, RotationAngleIsCarriedButNotApplied) {
    Grid turned(Rotated("Turned", "XY", 18, -39.25, 30)->CreateProjection());
    ASSERT_TRUE(turned);
    EXPECT_EQ(static_cast<CGxRotatedLongitudeLatitude&>(*turned).GetRotationAngle(), 30.0);
    ExpectForward(*turned, kSphereEurope);
}

TEST(GridsFromDefinition, EmptyNameIsTheLocalIdentityGrid) {
    // A local grid needs neither parameters nor an ellipsoid: it passes
    // coordinates through even when the catalogue cannot supply a figure.
    for (const char* ellipsoid : {"WE", "", "NOT-IN-CATALOGUE"}) {
        SCOPED_TRACE(ellipsoid);
        Grid geo(Geographical("", ellipsoid)->CreateProjection());
        Grid rotated(Rotated("", ellipsoid, 18, -39.25, 0)->CreateProjection());
        for (const Grid* g : {&geo, &rotated}) {
            ASSERT_TRUE(*g);
            EXPECT_STREQ((*g)->GetName(), "NON-UTM");
            EXPECT_TRUE((*g)->IsLocal());
            GxExpectIdentity(**g, 1234.5, -987.25);
        }
        EXPECT_EQ(rotated->GetConvergence(30, 60), 0.0);
    }
}

TEST(GridsFromDefinition, UnknownOrEmptyEllipsoidConvertsToNaN) {
    for (const char* ellipsoid : {"", "NOT-IN-CATALOGUE", "we"}) {
        SCOPED_TRACE(ellipsoid);
        double x, y, lon, lat;

        Grid geo(Geographical("World", ellipsoid)->CreateProjection());
        ASSERT_TRUE(geo);
        EXPECT_STREQ(geo->GetName(), "World");
        // Longitude and latitude need no figure: the grid still converts,
        // counting from Greenwich, and only reports no ellipsoid.
        geo->Geo2Proj(15, 50, &x, &y);
        EXPECT_EQ(x, 15.0);
        EXPECT_EQ(y, 50.0);
        geo->Proj2Geo(15, 50, &lon, &lat);
        EXPECT_EQ(lon, 15.0);
        EXPECT_EQ(lat, 50.0);
        CGxEllipsoid out("Kept", "KP", 1, 2);
        EXPECT_FALSE(geo->GetAnonymousEllipsoid(out));
        EXPECT_EQ(out.GetMajor(), 1.0);
        EXPECT_EQ(out.GetInvFlatness(), 2.0);

        Grid rotated(Rotated("Europe", ellipsoid, 18, -39.25, 0)->CreateProjection());
        ASSERT_TRUE(rotated);
        EXPECT_STREQ(rotated->GetName(), "Europe");
        rotated->Geo2Proj(15, 50, &x, &y);
        EXPECT_TRUE(std::isnan(x) && std::isnan(y));
        rotated->Proj2Geo(0, 0, &lon, &lat);
        EXPECT_TRUE(std::isnan(lon) && std::isnan(lat));
        // The pole was not taken over either.
        rotated->GetOrigin(&lon, &lat);
        EXPECT_TRUE(std::isnan(lon) && std::isnan(lat));
        EXPECT_TRUE(std::isnan(rotated->GetConvergence(15, 50)));
        double x0, y0, x1, y1;
        rotated->GetDefaultArea(&x0, &y0, &x1, &y1);
        EXPECT_TRUE(std::isnan(x0) && std::isnan(y0) && std::isnan(x1) && std::isnan(y1));
    }
}

TEST(GridsFromDefinition, NullDefinitionIsTheLocalGrid) {
    const CGxGeographicalProjection* noGeo = nullptr;
    const CGxRotatedLongitudeLatitudeProjection* noRotated = nullptr;
    CGxGeographical geo(noGeo);
    CGxRotatedLongitudeLatitude rotated(noRotated);
    EXPECT_STREQ(geo.GetName(), "NON-UTM");
    EXPECT_STREQ(rotated.GetName(), "NON-UTM");
    GxExpectIdentity(geo, 1234.5, -987.25);
    GxExpectIdentity(rotated, 1234.5, -987.25);
}

TEST(RotatedLongitudeLatitude, AnonymousEllipsoidIsAlwaysHandedOut) {
    // The rotated grid answers true whatever its figure, unlike the
    // geographical grid and the map projections, which refuse a major axis not
    // above 0.
    CGxEllipsoid out("Kept", "KP", 1, 1);
    const CGxEllipsoid flat("No axis", "NA", 0.0, 300.0);
    ASSERT_TRUE(CGxRotatedLongitudeLatitude("Rotated", 18, -39.25, 0, flat)
                    .GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 0.0);
    EXPECT_DOUBLE_EQ(out.GetInvFlatness(), 300.0);
    EXPECT_EQ(out.GetName(), "Kept");

    const CGxEllipsoid negative("Negative", "NG", -6378137.0, 0.0);
    ASSERT_TRUE(CGxRotatedLongitudeLatitude("Rotated", 18, -39.25, 0, negative)
                    .GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), -6378137.0);
    EXPECT_EQ(out.GetInvFlatness(), 0.0);

    // Built without a known ellipsoid, the answer is still true and the
    // figure handed out is NaN, so nothing mistakes it for a real one.
    Grid unknown(Rotated("Europe", "NOT-IN-CATALOGUE", 18, -39.25, 0)->CreateProjection());
    ASSERT_TRUE(unknown);
    ASSERT_TRUE(unknown->GetAnonymousEllipsoid(out));
    EXPECT_TRUE(std::isnan(out.GetMajor()));
    EXPECT_TRUE(std::isnan(out.GetInvFlatness()));

    // The catalogue sphere "XY" comes out with inverse flattening 0.
    Grid sphere(Rotated("Europe", "XY", 18, -39.25, 0)->CreateProjection());
    ASSERT_TRUE(sphere);
    ASSERT_TRUE(sphere->GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6371229.0);
    EXPECT_EQ(out.GetInvFlatness(), 0.0);
}
