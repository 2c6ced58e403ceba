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
#include "tests/support/FromDefinitionCheck.h"

namespace {

using Type = CGxMapProjData::EProjectionType;
using Params = std::vector<double>;

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

// Beyond the common checks the conformal grids share their default area and
// derived scale with the value-built grid.
void ExpectBuiltAs(const CGxMapProjData& def, const CGxProjection& fromValues,
                   const GxReferencePoint& ref) {
    GxExpectBuiltAs(def, fromValues, ref);
    const GxGrid grid(def.CreateProjection());
    ASSERT_TRUE(grid);
    GxExpectSameDefaultArea(*grid, fromValues);
    double derived1 = -1, derived2 = -1;
    grid->GetDerivedParameters(&derived1);
    fromValues.GetDerivedParameters(&derived2);
    EXPECT_EQ(derived1, derived2);
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

// Each class with the parameters of a real grid. The Mercator equator scale
// derives from the first parallel, not the centre; the pole classes derive
// theirs from their standard parallel.
TEST(ConformalFromDefinition, EveryClassIsBuiltAsFromValues) {
    const CGxLambert2SP lambert93("RGF93 / Lambert-93", 49, 44, 3, 46.5, 700000, 6600000,
                                  GxSystemEllipsoid("RF"));
    const CGxLambert1SP france("France 1SP", 0.99987742, 2.337229167, 46.8, 600000, 2200000,
                               GxSystemEllipsoid("RF"));
    const CGxMercator1SP indonesia("Indonesia", 0.997, 110, 3900000, 900000,
                                   GxSystemEllipsoid("WE"));
    const CGxMercator2SP caspian("Caspian", 42, 51, 500000, -200000, GxSystemEllipsoid("KA"));
    const CGxStereographic dutch("Amersfoort / RD New", 0.9999079, 5.38763888888889,
                                 52.15616055555555, 155000, 463000, GxSystemEllipsoid("BR"));
    const CGxStereographicNorthPole arctic("Arctic 60", 60, 10, 300000, -400000,
                                           GxSystemEllipsoid("IN"));
    const CGxStereographicSouthPole antarctic("Antarctic 60", -60, 140, 1000000, 2000000,
                                              GxSystemEllipsoid("CC"));
    const struct {
        Type type;
        const char* ellipsoid;
        const Params& params;
        const CGxProjection& fromValues;
        const GxReferencePoint& ref;
    } cases[] = {
        {CGxMapProjData::eLambert2SP, "RF", kLambert93, lambert93, kLambert93Point},
        {CGxMapProjData::eLambert1SP, "RF", kFrance1SP, france, kFrance1SPPoint},
        {CGxMapProjData::eMercator1SP, "WE", kIndonesia, indonesia, kIndonesiaPoint},
        {CGxMapProjData::eMercator2SP, "KA", kCaspian, caspian, kCaspianPoint},
        {CGxMapProjData::eStereographic, "BR", kDutchRD, dutch, kDutchRDPoint},
        {CGxMapProjData::eStereographicNorthPole, "IN", kArctic60, arctic, kArctic60Point},
        {CGxMapProjData::eStereographicSouthPole, "CC", kAntarctic60, antarctic, kAntarctic60Point},
    };
    for (const auto& c : cases) {
        const GxDefinition def =
            GxMakeDefinition(c.type, c.fromValues.GetName(), c.ellipsoid, c.params);
        ASSERT_TRUE(def);
        ExpectBuiltAs(*def, c.fromValues, c.ref);
    }
}

// Degrees become radians as (deg pi) / 180 and come back as (rad 180) / pi in
// the Lambert grids. For this origin the round trip gives back the
// definition's very numbers, and the convergence on the central meridian is
// exactly 0; the rounded factor pi / 180 would move both origin values by a
// unit in the last place and leave a convergence of the order of 1e-14
// degrees.
TEST(ConformalFromDefinition, LambertOriginReadsBackExactly) {
    const GxDefinition two = GxMakeDefinition(CGxMapProjData::eLambert2SP, "Texas", "CC",
                                              {30.5, 35.25, -100.5, 29, 700000, 3000000});
    const GxDefinition one = GxMakeDefinition(CGxMapProjData::eLambert1SP, "Texas 1SP", "CC",
                                              {0.9999, -100.5, 29, 700000, 3000000});
    for (const GxDefinition* def : {&two, &one}) {
        ASSERT_TRUE(*def);
        SCOPED_TRACE((*def)->GetName());
        const GxGrid grid((*def)->CreateProjection());
        ASSERT_TRUE(grid);
        double lon, lat;
        grid->GetOrigin(&lon, &lat);
        EXPECT_EQ(lon, -100.5);
        EXPECT_EQ(lat, 29.0);
        EXPECT_EQ(grid->GetConvergence(-100.5, 35), 0.0);
    }
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
        const GxDefinition def =
            GxMakeDefinition(CGxMapProjData::ePolarStereographic, "Polar", c.ellipsoid, p);
        ASSERT_TRUE(def);
        ExpectBuiltAs(*def,
                      CGxPolarStereographic("Polar", p[0], p[1], p[2], p[3], p[4],
                                            GxSystemEllipsoid(c.ellipsoid)),
                      c.ref);
    }
}

// Without a known ellipsoid nothing is guessed; the default area is NaN too.
TEST(ConformalFromDefinition, UnknownOrEmptyEllipsoidConvertsToNaN) {
    for (const TypeCase& c : kTypes) {
        for (const char* id : {"NOT-IN-CATALOGUE", ""}) {
            const GxGrid grid = GxExpectNaNGrid(c.type, id, c.params, 10, 50);
            if (!grid) continue;
            double area[4];
            grid->GetDefaultArea(&area[0], &area[1], &area[2], &area[3]);
            for (double v : area) EXPECT_TRUE(std::isnan(v));
        }
    }
}

// A definition without a name, or no definition at all, gives the local grid.
TEST(ConformalFromDefinition, NoNameOrNoDefinitionIsLocalGrid) {
    for (const TypeCase& c : kTypes) GxExpectNamelessIsLocal(c.type, "WE", c.params);
    GxExpectLocalGrid(CGxLambert1SP(static_cast<const CGxLambert1SPProjection*>(nullptr)));
    GxExpectLocalGrid(CGxLambert2SP(static_cast<const CGxLambert2SPProjection*>(nullptr)));
    GxExpectLocalGrid(CGxMercator1SP(static_cast<const CGxMercator1SPProjection*>(nullptr)));
    GxExpectLocalGrid(CGxMercator2SP(static_cast<const CGxMercator2SPProjection*>(nullptr)));
    GxExpectLocalGrid(CGxStereographic(static_cast<const CGxStereographicProjection*>(nullptr)));
    GxExpectLocalGrid(CGxStereographicNorthPole(
        static_cast<const CGxStereographicNorthPoleProjection*>(nullptr)));
    GxExpectLocalGrid(CGxStereographicSouthPole(
        static_cast<const CGxStereographicSouthPoleProjection*>(nullptr)));
    GxExpectLocalGrid(
        CGxPolarStereographic(static_cast<const CGxPolarStereographicProjection*>(nullptr)));
}

// A name longer than the grid's name buffer is cut to 255 characters, also
// when the wrapper hands it on to its inner grid, which still converts.
TEST(ConformalFromDefinition, LongNameTruncated) {
    const std::string longName(300, 'P');
    const GxDefinition def =
        GxMakeDefinition(CGxMapProjData::ePolarStereographic, longName, "CC", kPolarSouth60);
    ASSERT_TRUE(def);
    const GxGrid grid(def->CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_EQ(std::string(grid->GetName()), longName.substr(0, 255));
    double x, y;
    grid->Geo2Proj(kAntarctic60Point.lon, kAntarctic60Point.lat, &x, &y);
    EXPECT_NEAR(x, kAntarctic60Point.x, 1e-3);
    EXPECT_NEAR(y, kAntarctic60Point.y, 1e-3);
}
