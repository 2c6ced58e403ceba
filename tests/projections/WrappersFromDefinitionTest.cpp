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

struct GridPoint {
    double lon, lat, x, y;
};

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

const CGxEllipsoid& Catalogue(const char* id) {
    const CGxEllipsoid* e = CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoid(id);
    if (!e) {
        ADD_FAILURE() << "ellipsoid " << id << " missing from the system catalogue";
        static const CGxEllipsoid missing;
        return missing;
    }
    return *e;
}

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

void ExpectIdentity(const CGxProjection& p) {
    double x, y;
    p.Geo2Proj(1234.5, -987.25, &x, &y);
    EXPECT_EQ(x, 1234.5);
    EXPECT_EQ(y, -987.25);
    p.Proj2Geo(1234.5, -987.25, &x, &y);
    EXPECT_EQ(x, 1234.5);
    EXPECT_EQ(y, -987.25);
}

}  // namespace

TEST(WrappersFromDefinition, GridIsTheValueBuiltGridAndMeetsReference) {
    for (const WiringCase& c : kWiring) {
        SCOPED_TRACE(c.name);
        const CGxEllipsoid& figure = Catalogue(c.ellipsoid);
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
        for (double dLon : {-1.0, 0.0, 1.5}) {
            for (double dLat : {-1.0, 0.0, 0.5}) {
                const double lon = c.ref.lon + dLon, lat = c.ref.lat + dLat;
                SCOPED_TRACE(testing::Message() << "lon " << lon << " lat " << lat);
                double x1, y1, x2, y2, lon1, lat1, lon2, lat2;
                grid->Geo2Proj(lon, lat, &x1, &y1);
                fromValues->Geo2Proj(lon, lat, &x2, &y2);
                EXPECT_EQ(x1, x2);
                EXPECT_EQ(y1, y2);
                grid->Proj2Geo(x2, y2, &lon1, &lat1);
                fromValues->Proj2Geo(x2, y2, &lon2, &lat2);
                EXPECT_EQ(lon1, lon2);
                EXPECT_EQ(lat1, lat2);
                EXPECT_EQ(grid->GetConvergence(lon, lat), fromValues->GetConvergence(lon, lat));
            }
        }
        double a[4], b[4];
        grid->GetOrigin(&a[0], &a[1]);
        fromValues->GetOrigin(&b[0], &b[1]);
        EXPECT_EQ(a[0], b[0]);
        EXPECT_EQ(a[1], b[1]);
        grid->GetDefaultArea(&a[0], &a[1], &a[2], &a[3]);
        fromValues->GetDefaultArea(&b[0], &b[1], &b[2], &b[3]);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(a[i], b[i]) << "default area " << i;

        // The catalogue figure itself, a sphere keeping inverse flattening 0.
        CGxEllipsoid out;
        ASSERT_TRUE(grid->GetAnonymousEllipsoid(out));
        EXPECT_EQ(out.GetMajor(), figure.GetMajor());
        EXPECT_NEAR(out.GetInvFlatness(), figure.GetInvFlatness(), 1e-9);

        double x, y, lon, lat;
        grid->Geo2Proj(c.ref.lon, c.ref.lat, &x, &y);
        EXPECT_NEAR(x, c.ref.x, c.tolerance.forward);
        EXPECT_NEAR(y, c.ref.y, c.tolerance.forward);
        grid->Proj2Geo(c.ref.x, c.ref.y, &lon, &lat);
        EXPECT_NEAR(lon, c.ref.lon, c.tolerance.inverse);
        EXPECT_NEAR(lat, c.ref.lat, c.tolerance.inverse);
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
            ExpectIdentity(*grid);
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
        ExpectIdentity(*p);
    }
}
