// The conformal grids (Lambert conic, Mercator, the stereographic family and
// the polar stereographic wrapper) built from catalogue definitions. A grid
// made by a definition must be the grid made from the same numbers and the
// catalogue ellipsoid, bit for bit (a parameter read from the wrong getter, or
// the wrapper choosing its inner form by another rule, shows up here), and
// must meet a PROJ reference value. A definition without a known ellipsoid
// gives a grid that converts to NaN, and one without a name the local grid,
// which converts nothing.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "definitions/Lambert1SPProjection.h"
#include "definitions/Lambert2SPProjection.h"
#include "definitions/MapProjData.h"
#include "definitions/Mercator1SPProjection.h"
#include "definitions/Mercator2SPProjection.h"
#include "definitions/PolarStereographicProjection.h"
#include "definitions/StereographicNorthPoleProjection.h"
#include "definitions/StereographicProjection.h"
#include "definitions/StereographicSouthPoleProjection.h"
#include "foundation/Ellipsoid.h"
#include "projections/Lambert1SP.h"
#include "projections/Lambert2SP.h"
#include "projections/Mercator1SP.h"
#include "projections/Mercator2SP.h"
#include "projections/PolarStereographic.h"
#include "projections/Stereographic.h"
#include "projections/StereographicNorthPole.h"
#include "projections/StereographicSouthPole.h"
#include "tests/support/DefinitionCheck.h"
#include "tests/support/ReferenceCheck.h"

namespace {

using Def = std::unique_ptr<CGxMapProjData>;
using Grid = std::unique_ptr<CGxProjection>;
using Type = CGxMapProjData::EProjectionType;
using Params = std::vector<double>;

constexpr double kForwardTolerance = 1e-3;  // metres
constexpr double kInverseTolerance = 1e-9;  // degrees

Def Make(Type type, const std::string& name, const std::string& ellipsoid, Params params) {
    return Def(CGxMapProjData::CreateProjection(type, name, "Branch", ellipsoid, params.data()));
}

// Real or realistic grids, parameters in the definitions' index order; every
// pair that a wiring slip could exchange holds two different values.
const Params kLambert93 = {49, 44, 3, 46.5, 700000, 6600000};
const Params kFrance1SP = {0.99987742, 2.337229167, 46.8, 600000, 2200000};
const Params kIndonesia = {0.997, 110, 3900000, 900000};
const Params kCaspian = {42, 51, 500000, -200000};
const Params kDutchRD = {0.9999079, 5.38763888888889, 52.15616055555555, 155000, 463000};
const Params kArctic60 = {60, 10, 300000, -400000};
const Params kAntarctic60 = {-60, 140, 1000000, 2000000};
// The wrapper: an origin at the pole keeps the scale at the pole; any other
// origin latitude is a standard parallel and the scale (here 0.9, which no
// reference uses) is not read.
const Params kPolarAtPole = {0.97, -30, -90, 1500000, 2500000};
const Params kPolarSouth60 = {0.9, 140, -60, 1000000, 2000000};
const Params kPolarNorth60 = {0.9, 10, 60, 300000, -400000};

// One reference point per grid, each from the reference table of the
// projection's own tests:
// cct -d 6 +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000 +y_0=6600000 +ellps=GRS80
const GxReferencePoint kLambert93Point = {-1.25, 44.5, 362276.601644, 6386972.828045};
// cct -d 6 +proj=lcc +lat_1=46.8 +lat_0=46.8 +k_0=0.99987742 +lon_0=2.337229167 +x_0=600000
//   +y_0=2200000 +ellps=GRS80
const GxReferencePoint kFrance1SPPoint = {0.25, 45.0, 435388.020629, 2002108.950783};
// cct -d 6 +proj=merc +k_0=0.997 +lon_0=110 +x_0=3900000 +y_0=900000 +ellps=WGS84
const GxReferencePoint kIndonesiaPoint = {117.25, 6.5, 4704645.109326, 1618139.232733};
// cct -d 6 +proj=merc +lat_ts=42 +lon_0=51 +x_0=500000 +y_0=-200000 +ellps=krass
const GxReferencePoint kCaspianPoint = {46.75, 68.5, 147878.376715, 7657601.396043};
// cct -d 6 +proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.9999079
//   +x_0=155000 +y_0=463000 +ellps=bessel
const GxReferencePoint kDutchRDPoint = {7.125, 53.75, 269599.842985, 641732.678815};
// cct -d 6 +proj=stere +lat_0=90 +lat_ts=60 +lon_0=10 +x_0=300000 +y_0=-400000 +ellps=intl
const GxReferencePoint kArctic60Point = {95.25, 75.5, 1813818.418972, -525788.610442};
// cct -d 6 +proj=stere +lat_0=-90 +lat_ts=-60 +lon_0=140 +x_0=1000000 +y_0=2000000
//   +ellps=clrk66
const GxReferencePoint kAntarctic60Point = {60.0, -77.25, -313865.336794, 2231669.907894};
// cct -d 6 +proj=stere +lat_0=-90 +k_0=0.97 +lon_0=-30 +x_0=1500000 +y_0=2500000 +ellps=intl
const GxReferencePoint kSouthPolarPoint = {-90.0, -80.0, 559377.928804, 3043068.406011};
// cct -d 6 +proj=stere +lat_0=90 +k_0=0.994 +lon_0=0 +x_0=2000000 +y_0=2000000 +ellps=WGS84
const GxReferencePoint kUpsNorthPoint = {45.5, 84.0, 2475543.834116, 1532684.375723};
// cct -d 6 +proj=stere +lat_0=90 +lat_ts=0 +lon_0=0 +x_0=0 +y_0=0 +ellps=WGS84
const GxReferencePoint kEquatorPoint = {30.0, 45.0, 1327230.200191, -2298830.140070};

// The definition's grid is the value-built one: same class, same name, same
// bits forward and inverse around the reference point, same origin,
// convergence, default area and derived scale; and it meets the reference.
void ExpectBuiltAs(const CGxMapProjData& def, const CGxProjection& fromValues,
                   const GxReferencePoint& ref) {
    const Grid grid(def.CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_EQ(typeid(*grid), typeid(fromValues));
    EXPECT_STREQ(grid->GetName(), def.GetName().c_str());
    EXPECT_FALSE(grid->IsLocal());
    GxExpectSameConversionsAround(*grid, fromValues, ref.lon, ref.lat, {-1.0, 0.0, 1.5},
                                  {-1.0, 0.0, 0.5});
    GxExpectSameOrigin(*grid, fromValues);
    GxExpectSameDefaultArea(*grid, fromValues);
    double derived1 = -1, derived2 = -1;
    grid->GetDerivedParameters(&derived1);
    fromValues.GetDerivedParameters(&derived2);
    EXPECT_EQ(derived1, derived2);

    GxExpectForward(*grid, ref, kForwardTolerance);
    GxExpectInverse(*grid, ref, kInverseTolerance);
}

// Every class of the group with the parameters of a real grid; the wrapper
// once for each of its inner forms.
struct TypeCase {
    Type type;
    const Params& params;
};
const TypeCase kTypes[] = {
    {CGxMapProjData::eLambert2SP, kLambert93},
    {CGxMapProjData::eLambert1SP, kFrance1SP},
    {CGxMapProjData::eMercator1SP, kIndonesia},
    {CGxMapProjData::eMercator2SP, kCaspian},
    {CGxMapProjData::eStereographic, kDutchRD},
    {CGxMapProjData::eStereographicNorthPole, kArctic60},
    {CGxMapProjData::eStereographicSouthPole, kAntarctic60},
    {CGxMapProjData::ePolarStereographic, kPolarAtPole},
    {CGxMapProjData::ePolarStereographic, kPolarSouth60},
    {CGxMapProjData::ePolarStereographic, kPolarNorth60},
};

}  // namespace

TEST(ConformalFromDefinition, LambertTwoParallels) {
    const Def def = Make(CGxMapProjData::eLambert2SP, "RGF93 / Lambert-93", "RF", kLambert93);
    ASSERT_TRUE(def);
    ExpectBuiltAs(*def,
                  CGxLambert2SP("RGF93 / Lambert-93", 49, 44, 3, 46.5, 700000, 6600000,
                                GxSystemEllipsoid("RF")),
                  kLambert93Point);
}

TEST(ConformalFromDefinition, LambertOneParallel) {
    const Def def = Make(CGxMapProjData::eLambert1SP, "France 1SP", "RF", kFrance1SP);
    ASSERT_TRUE(def);
    ExpectBuiltAs(*def,
                  CGxLambert1SP("France 1SP", 0.99987742, 2.337229167, 46.8, 600000, 2200000,
                                GxSystemEllipsoid("RF")),
                  kFrance1SPPoint);
}

// Degrees become radians as (deg pi) / 180 and come back as (rad 180) / pi in
// the Lambert grids. For this origin the round trip gives back the
// definition's very numbers, and the convergence on the central meridian is
// exactly 0; the rounded factor pi / 180 would move both origin values by a
// unit in the last place and leave a convergence of the order of 1e-14
// degrees.
TEST(ConformalFromDefinition, LambertOriginReadsBackExactly) {
    const Def two = Make(CGxMapProjData::eLambert2SP, "Texas", "CC",
                         {30.5, 35.25, -100.5, 29, 700000, 3000000});
    const Def one =
        Make(CGxMapProjData::eLambert1SP, "Texas 1SP", "CC", {0.9999, -100.5, 29, 700000, 3000000});
    for (const Def* def : {&two, &one}) {
        ASSERT_TRUE(*def);
        SCOPED_TRACE((*def)->GetName());
        const Grid grid((*def)->CreateProjection());
        ASSERT_TRUE(grid);
        double lon, lat;
        grid->GetOrigin(&lon, &lat);
        EXPECT_EQ(lon, -100.5);
        EXPECT_EQ(lat, 29.0);
        EXPECT_EQ(grid->GetConvergence(-100.5, 35), 0.0);
    }
}

TEST(ConformalFromDefinition, MercatorScaleOnTheEquator) {
    const Def def = Make(CGxMapProjData::eMercator1SP, "Indonesia", "WE", kIndonesia);
    ASSERT_TRUE(def);
    ExpectBuiltAs(*def,
                  CGxMercator1SP("Indonesia", 0.997, 110, 3900000, 900000, GxSystemEllipsoid("WE")),
                  kIndonesiaPoint);
}

// The derived equator scale comes from the first parallel, not the centre.
TEST(ConformalFromDefinition, MercatorStandardParallel) {
    const Def def = Make(CGxMapProjData::eMercator2SP, "Caspian", "KA", kCaspian);
    ASSERT_TRUE(def);
    ExpectBuiltAs(*def, CGxMercator2SP("Caspian", 42, 51, 500000, -200000, GxSystemEllipsoid("KA")),
                  kCaspianPoint);
}

TEST(ConformalFromDefinition, ObliqueStereographic) {
    const Def def = Make(CGxMapProjData::eStereographic, "Amersfoort / RD New", "BR", kDutchRD);
    ASSERT_TRUE(def);
    ExpectBuiltAs(*def,
                  CGxStereographic("Amersfoort / RD New", 0.9999079, 5.38763888888889,
                                   52.15616055555555, 155000, 463000, GxSystemEllipsoid("BR")),
                  kDutchRDPoint);
}

TEST(ConformalFromDefinition, PoleClassesFromTheirStandardParallel) {
    const Def north = Make(CGxMapProjData::eStereographicNorthPole, "Arctic 60", "IN", kArctic60);
    ASSERT_TRUE(north);
    ExpectBuiltAs(
        *north,
        CGxStereographicNorthPole("Arctic 60", 60, 10, 300000, -400000, GxSystemEllipsoid("IN")),
        kArctic60Point);
    const Def south =
        Make(CGxMapProjData::eStereographicSouthPole, "Antarctic 60", "CC", kAntarctic60);
    ASSERT_TRUE(south);
    ExpectBuiltAs(*south,
                  CGxStereographicSouthPole("Antarctic 60", -60, 140, 1000000, 2000000,
                                            GxSystemEllipsoid("CC")),
                  kAntarctic60Point);
}

// The wrapper chooses its inner form from the origin latitude: the polar
// aspect with the given scale at a pole, else the south- or north-pole form
// with that latitude as standard parallel. A wrong choice misses the
// reference by kilometres.
TEST(ConformalFromDefinition, PolarWrapperChoosesItsInnerForm) {
    struct Case {
        const char* ellipsoid;
        Params params;
        GxReferencePoint ref;
    };
    const Case cases[] = {
        {"IN", kPolarAtPole, kSouthPolarPoint},
        {"CC", kPolarSouth60, kAntarctic60Point},
        {"IN", kPolarNorth60, kArctic60Point},
        // Within the nearness test of the pole: the polar aspect with scale
        // 0.994, not a standard parallel (which would give scale 1).
        {"WE", {0.994, 0, 89.9999999999999, 2000000, 2000000}, kUpsNorthPoint},
        // The equator is the standard parallel of a north-pole form.
        {"WE", {0.9, 0, 0, 0, 0}, kEquatorPoint},
    };
    for (const Case& c : cases) {
        const Params& p = c.params;
        SCOPED_TRACE(testing::Message() << "origin latitude " << p[2]);
        const Def def = Make(CGxMapProjData::ePolarStereographic, "Polar", c.ellipsoid, p);
        ASSERT_TRUE(def);
        ExpectBuiltAs(*def,
                      CGxPolarStereographic("Polar", p[0], p[1], p[2], p[3], p[4],
                                            GxSystemEllipsoid(c.ellipsoid)),
                      c.ref);
    }
}

// Without a known ellipsoid nothing is guessed: every conversion, the origin
// longitude, the convergence and the default area are NaN, and there is no
// anonymous ellipsoid. The name is kept.
TEST(ConformalFromDefinition, UnknownOrEmptyEllipsoidConvertsToNaN) {
    for (const TypeCase& c : kTypes) {
        for (const char* id : {"NOT-IN-CATALOGUE", ""}) {
            SCOPED_TRACE(testing::Message() << "type " << c.type << " ellipsoid '" << id << "'");
            const Def def = Make(c.type, "Somewhere", id, c.params);
            ASSERT_TRUE(def);
            const Grid grid(def->CreateProjection());
            ASSERT_TRUE(grid);
            EXPECT_STREQ(grid->GetName(), "Somewhere");
            EXPECT_FALSE(grid->IsLocal());
            double x, y, lon, lat;
            grid->Geo2Proj(10, 50, &x, &y);
            EXPECT_TRUE(std::isnan(x) && std::isnan(y));
            grid->Proj2Geo(1000, 2000, &lon, &lat);
            EXPECT_TRUE(std::isnan(lon) && std::isnan(lat));
            grid->GetOrigin(&lon, &lat);
            EXPECT_TRUE(std::isnan(lon));
            EXPECT_TRUE(std::isnan(grid->GetConvergence(10, 50)));
            double area[4];
            grid->GetDefaultArea(&area[0], &area[1], &area[2], &area[3]);
            for (double v : area) EXPECT_TRUE(std::isnan(v));
            CGxEllipsoid out("kept", "K", 1, 2);
            EXPECT_FALSE(grid->GetAnonymousEllipsoid(out));
            EXPECT_EQ(out.GetMajor(), 1);
        }
    }
}

// A definition without a name, or no definition at all, gives the local grid
// "NON-UTM", which hands coordinates through unchanged whatever the ellipsoid.
TEST(ConformalFromDefinition, NoNameOrNoDefinitionIsLocalGrid) {
    auto expectLocal = [](const CGxProjection& grid) {
        EXPECT_STREQ(grid.GetName(), "NON-UTM");
        EXPECT_TRUE(grid.IsLocal());
        GxExpectIdentity(grid, 1234.5, -987.25);
        EXPECT_EQ(grid.GetConvergence(10, 50), 0.0);
    };
    for (const TypeCase& c : kTypes) {
        for (const char* id : {"WE", "NOT-IN-CATALOGUE"}) {
            SCOPED_TRACE(testing::Message() << "type " << c.type << " ellipsoid " << id);
            const Def def = Make(c.type, "", id, c.params);
            ASSERT_TRUE(def);
            const Grid grid(def->CreateProjection());
            ASSERT_TRUE(grid);
            expectLocal(*grid);
        }
    }
    expectLocal(CGxLambert1SP(static_cast<const CGxLambert1SPProjection*>(nullptr)));
    expectLocal(CGxLambert2SP(static_cast<const CGxLambert2SPProjection*>(nullptr)));
    expectLocal(CGxMercator1SP(static_cast<const CGxMercator1SPProjection*>(nullptr)));
    expectLocal(CGxMercator2SP(static_cast<const CGxMercator2SPProjection*>(nullptr)));
    expectLocal(CGxStereographic(static_cast<const CGxStereographicProjection*>(nullptr)));
    expectLocal(CGxStereographicNorthPole(
        static_cast<const CGxStereographicNorthPoleProjection*>(nullptr)));
    expectLocal(CGxStereographicSouthPole(
        static_cast<const CGxStereographicSouthPoleProjection*>(nullptr)));
    expectLocal(
        CGxPolarStereographic(static_cast<const CGxPolarStereographicProjection*>(nullptr)));
}

// A name longer than the grid's name buffer is cut to 255 characters, also
// when the wrapper hands it on to its inner grid, which still converts.
TEST(ConformalFromDefinition, LongNameTruncated) {
    const std::string longName(300, 'P');
    const Def def = Make(CGxMapProjData::ePolarStereographic, longName, "CC", kPolarSouth60);
    ASSERT_TRUE(def);
    const Grid grid(def->CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_EQ(std::string(grid->GetName()), longName.substr(0, 255));
    double x, y;
    grid->Geo2Proj(kAntarctic60Point.lon, kAntarctic60Point.lat, &x, &y);
    EXPECT_NEAR(x, kAntarctic60Point.x, kForwardTolerance);
    EXPECT_NEAR(y, kAntarctic60Point.y, kForwardTolerance);
}
