// Albers, Lambert azimuthal equal area, Cassini-Soldner and the equidistant
// conic built from catalogue definitions. A grid made by a definition must be
// the grid made from the same numbers and the catalogue ellipsoid, bit for bit
// (a getter read into the wrong slot, or the ellipsoidal formulas chosen for a
// catalogue sphere, shows up here), and must meet a PROJ reference value. A
// definition without a known ellipsoid gives a grid that converts to NaN, one
// without a name the local grid, which passes coordinates through.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "catalogue/CartSetup.h"
#include "definitions/AlbersEqualAreaProjection.h"
#include "definitions/CassiniSoldnerProjection.h"
#include "definitions/EquidistantConicProjection.h"
#include "definitions/LambertAzimuthalEqualAreaProjection.h"
#include "definitions/MapProjData.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlbersEqualArea.h"
#include "projections/CassiniSoldner.h"
#include "projections/EquidistantConic.h"
#include "projections/LambertAzimuthalEqualArea.h"
#include "tests/support/DefinitionCheck.h"
#include "tests/support/ReferenceCheck.h"

namespace {

using Def = std::unique_ptr<CGxMapProjData>;
using Grid = std::unique_ptr<CGxProjection>;
using Type = CGxMapProjData::EProjectionType;
using Params = std::vector<double>;

constexpr Type kAlbers = CGxMapProjData::eAlbersEqualArea;
constexpr Type kLaea = CGxMapProjData::eLambertAzimuthalEqualArea;
constexpr Type kCassini = CGxMapProjData::eCassiniSoldner;
constexpr Type kEqdc = CGxMapProjData::eEquidistantConic;
constexpr Type kWrapperTypes[] = {kAlbers, kLaea, kCassini, kEqdc};

using GridPoint = GxReferencePoint;

// Forward (metres) and inverse (degrees) tolerances against cct. The forward
// formulas are PROJ's own and cct printed micrometres, except that
// Cassini-Soldner and the equidistant conic sum the meridian arc to third
// order in e^2 against PROJ's fourth (within 0.5 mm). The ellipsoidal inverses
// return through third-order series in e^2 (under 2e-8 degrees); the
// spherical inverses are closed.
struct Tolerance {
    double forward, inverse;
};
constexpr Tolerance kAuthalicSeries = {1e-5, 2e-8};
constexpr Tolerance kArcSeries = {1e-3, 1e-8};
constexpr Tolerance kSpherical = {1e-5, 1e-10};

Def Make(Type type, const std::string& name, const std::string& ellipsoid, Params params) {
    return Def(CGxMapProjData::CreateProjection(type, name, "Branch", ellipsoid, params.data()));
}

// The value constructors take the numbers in the definitions' index order.
Grid FromValues(Type type, const char* name, const Params& p, const CGxEllipsoid& e) {
    switch (type) {
        case kAlbers:
            return std::make_unique<CGxAlbersEqualArea>(name, p[0], p[1], p[2], p[3], p[4], p[5],
                                                        e);
        case kLaea:
            return std::make_unique<CGxLambertAzimuthalEqualArea>(name, p[0], p[1], p[2], p[3], e);
        case kCassini:
            return std::make_unique<CGxCassiniSoldner>(name, p[0], p[1], p[2], p[3], e);
        case kEqdc:
            return std::make_unique<CGxEquidistantConic>(name, p[0], p[1], p[2], p[3], p[4], p[5],
                                                         e);
        default:
            return nullptr;
    }
}

// Every pair of parameters that a wiring slip could exchange holds two
// different values.
const Params kConus = {29.5, 45.5, -96, 23, 500000, 100000};
const Params kAustralia = {-18, -36, 132, 0, 1000000, 2000000};
const Params kEurope = {10, 52, 4321000, 3210000};
const Params kAntarctic = {0, -90, 3000000, 3000000};
const Params kSoldnerBerlin = {13.62720366666667, 52.41864827777778, 40000, 10000};

struct WiringCase {
    const char* name;
    Type type;
    const char* ellipsoid;
    const Params& params;
    Tolerance tolerance;
    GridPoint ref;
};

// Rows of the reference tables of the wrapper tests, on the catalogue figures
// (WE, RF, IN, BR as in those tables), each from
//   echo "lon lat 0 0" | cct -d 6 <projection of the row>
// The sphere rows use the catalogue sphere "XY", radius 6371229 m:
//   echo "-110 42 0 0" | cct -d 6 +proj=aea +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96
//     +x_0=500000 +y_0=100000 +R=6371229
//   echo "20 35 0 0" | cct -d 6 +proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000
//     +R=6371229
//   echo "9.5 45 0 0" | cct -d 6 +proj=cass +lat_0=52.41864827777778 +lon_0=13.62720366666667
//     +x_0=40000 +y_0=10000 +R=6371229
//   echo "-110 42 0 0" | cct -d 6 +proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96
//     +x_0=500000 +y_0=100000 +R=6371229
// clang-format off
const WiringCase kWiring[] = {
    // +proj=aea <kConus> +a=6378137 +rf=298.257223563
    {"Albers CONUS", kAlbers, "WE", kConus, kAuthalicSeries,
     {-110, 42, -647566.110001, 2295593.550795}},
    // +proj=aea <kAustralia> +a=6378388 +rf=297: a southern cone
    {"Albers Australia", kAlbers, "IN", kAustralia, kAuthalicSeries,
     {120, -34, -101289.745344, -1762559.062785}},
    {"Albers sphere", kAlbers, "XY", kConus, kSpherical,
     {-110, 42, -644572.001858, 2301054.150252}},
    // +proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000 +a=6378137 +rf=298.257222101
    {"ETRS89 LAEA", kLaea, "RF", kEurope, kAuthalicSeries,
     {20, 35, 5240847.335380, 1387399.933390}},
    // +proj=laea +lat_0=-90 +lon_0=0 +x_0=3000000 +y_0=3000000 +a=6378388 +rf=297
    {"Antarctic LAEA", kLaea, "IN", kAntarctic, kAuthalicSeries,
     {100, -60, 6259698.704964, 2425227.169334}},
    {"LAEA sphere", kLaea, "XY", kEurope, kSpherical,
     {20, 35, 5239135.588936, 1386143.804371}},
    // +proj=cass <kSoldnerBerlin> +a=6377397.155 +rf=299.1528128
    {"Soldner Berlin", kCassini, "BR", kSoldnerBerlin, kArcSeries,
     {13.1, 49.5, 1816.145214, -314521.567019}},
    {"Soldner sphere", kCassini, "XY", kSoldnerBerlin, kSpherical,
     {9.5, 45, -284379.563865, -806673.803226}},
    // +proj=eqdc <kConus> +a=6378137 +rf=298.257223563
    {"Equidistant CONUS", kEqdc, "WE", kConus, kArcSeries,
     {-110, 42, -647658.255099, 2292341.631356}},
    {"Equidistant sphere", kEqdc, "XY", kConus, kSpherical,
     {-110, 42, -644664.818590, 2297792.561128}},
};
// clang-format on

}  // namespace

TEST(WrappersFromDefinition, GridIsTheValueBuiltGridAndMeetsReference) {
    for (const WiringCase& c : kWiring) {
        SCOPED_TRACE(c.name);
        const CGxEllipsoid& figure = GxSystemEllipsoid(c.ellipsoid);
        const Grid fromValues = FromValues(c.type, c.name, c.params, figure);
        Def def = Make(c.type, c.name, c.ellipsoid, c.params);
        ASSERT_TRUE(def);
        const Grid grid(def->CreateProjection());
        ASSERT_TRUE(grid);
        // The grid keeps nothing of its definition.
        def.reset();

        EXPECT_EQ(typeid(*grid), typeid(*fromValues));
        EXPECT_STREQ(grid->GetName(), c.name);
        EXPECT_FALSE(grid->IsLocal());
        GxExpectSameConversionsAround(*grid, *fromValues, c.ref.lon, c.ref.lat, {-1.0, 0.0, 1.5},
                                      {-1.0, 0.0, 0.5});
        GxExpectSameOrigin(*grid, *fromValues);
        GxExpectSameDefaultArea(*grid, *fromValues);

        // The catalogue figure itself, a sphere keeping inverse flattening 0.
        CGxEllipsoid out;
        ASSERT_TRUE(grid->GetAnonymousEllipsoid(out));
        EXPECT_EQ(out.GetMajor(), figure.GetMajor());
        EXPECT_NEAR(out.GetInvFlatness(), figure.GetInvFlatness(), 1e-9);

        GxExpectForward(*grid, c.ref, c.tolerance.forward);
        GxExpectInverse(*grid, c.ref, c.tolerance.inverse);
    }
}

TEST(WrappersFromDefinition, UnknownOrEmptyEllipsoidConvertsToNaN) {
    // The look-up is exact: "we" is not WGS 84.
    for (const char* ellipsoid : {"", "NOT-IN-CATALOGUE", "we"}) {
        for (Type type : kWrapperTypes) {
            SCOPED_TRACE(testing::Message()
                         << "type " << type << " ellipsoid '" << ellipsoid << "'");
            Def def = Make(type, "Somewhere", ellipsoid, {40, 50, 10, 45, 500000, 100000});
            ASSERT_TRUE(def);
            const Grid grid(def->CreateProjection());
            ASSERT_TRUE(grid);
            EXPECT_STREQ(grid->GetName(), "Somewhere");
            EXPECT_FALSE(grid->IsLocal());
            // The copy of a grid without formulas must not reach for them.
            const Grid clone(grid->Clone());
            for (const Grid* g : {&grid, &clone}) {
                double x, y, lon, lat;
                (*g)->Geo2Proj(10, 45, &x, &y);
                EXPECT_TRUE(std::isnan(x) && std::isnan(y));
                (*g)->Proj2Geo(500000, 100000, &lon, &lat);
                EXPECT_TRUE(std::isnan(lon) && std::isnan(lat));
                EXPECT_EQ((*g)->GetConvergence(10, 45), 0.0);
                CGxEllipsoid out("Kept", "KP", 1, 2);
                EXPECT_FALSE((*g)->GetAnonymousEllipsoid(out));
                EXPECT_EQ(out.GetMajor(), 1.0);
                EXPECT_EQ(out.GetInvFlatness(), 2.0);
            }
        }
    }
}

TEST(WrappersFromDefinition, EmptyNameIsTheLocalIdentityGrid) {
    // A local grid needs neither parameters nor a figure.
    for (const char* ellipsoid : {"WE", "XY", "", "NOT-IN-CATALOGUE"}) {
        for (Type type : kWrapperTypes) {
            SCOPED_TRACE(testing::Message()
                         << "type " << type << " ellipsoid '" << ellipsoid << "'");
            const Grid grid(Make(type, "", ellipsoid, kConus)->CreateProjection());
            ASSERT_TRUE(grid);
            EXPECT_STREQ(grid->GetName(), "NON-UTM");
            EXPECT_TRUE(grid->IsLocal());
            GxExpectIdentity(*grid, 1234.5, -987.25);
            EXPECT_EQ(grid->GetConvergence(-70, 25), 0.0);
        }
    }
}

TEST(WrappersFromDefinition, NullDefinitionIsTheLocalGrid) {
    const CGxAlbersEqualArea albers(static_cast<const CGxAlbersEqualAreaProjection*>(nullptr));
    const CGxLambertAzimuthalEqualArea laea(
        static_cast<const CGxLambertAzimuthalEqualAreaProjection*>(nullptr));
    const CGxCassiniSoldner cassini(static_cast<const CGxCassiniSoldnerProjection*>(nullptr));
    const CGxEquidistantConic eqdc(static_cast<const CGxEquidistantConicProjection*>(nullptr));
    for (const CGxProjection* p :
         std::initializer_list<const CGxProjection*>{&albers, &laea, &cassini, &eqdc}) {
        EXPECT_STREQ(p->GetName(), "NON-UTM");
        GxExpectIdentity(*p, 1234.5, -987.25);
    }
}
