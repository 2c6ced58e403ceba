// The oblique Mercator family, Krovak and the New Zealand map grid built from
// catalogue definitions. A grid made by a definition must be the grid made
// from the same numbers and the catalogue ellipsoid, bit for bit (a parameter
// read from the wrong getter, or the azimuth standing in for the rotation,
// shows up here), and must meet a PROJ reference value. A definition without
// a known ellipsoid gives a grid that converts to NaN, and one without a name
// the local grid, which converts nothing.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "catalogue/CartSetup.h"
#include "definitions/HotineObliqueMercatorProjection.h"
#include "definitions/KrovakProjection.h"
#include "definitions/MapProjData.h"
#include "definitions/NewZealandMapGridProjection.h"
#include "definitions/ObliqueMercatorProjection.h"
#include "definitions/RectifiedSkewOrthomorphicProjection.h"
#include "foundation/Ellipsoid.h"
#include "projections/HotineObliqueMercator.h"
#include "projections/Krovak.h"
#include "projections/NewZealandMapGrid.h"
#include "projections/ObliqueMercator.h"
#include "projections/RectifiedSkewOrthomorphic.h"
#include "tests/support/FromDefinitionCheck.h"

namespace {

using Type = CGxMapProjData::EProjectionType;
using Params = std::vector<double>;
using GridPoint = GxReferencePoint;

// Real grids, parameters in the definitions' index order; every pair that a
// wiring slip could exchange holds two different values.
// Alaska zone 1 (EPSG:26931): scale, centre longitude and latitude, azimuth, false origin.
const Params kAlaska = {0.9999, -133.666666666667, 57, 323.130102361111, 5000000, -5000000};
// The Swiss grid (LV95), the centre-origin form with an east-west central line.
const Params kSwiss = {1, 7.43958333333333, 46.9524055555556, 90, 2600000, 1200000};
// RSO Borneo (EPSG:29874), whose rectification differs from its azimuth.
const Params kBorneo = {0.99984, 115, 4, 53.3158204722222, 53.1301023611111, 2000000, 5000000};
// S-JTSK easting/northing with a false origin: scale, pseudo parallel, centre
// longitude and latitude, azimuth, rotation, x and y scales, false origin.
const Params kSjtsk = {0.9999, 78.5, 24.8333333333333, 49.5, 30.2881397527778, 90, -1, 1,
                       1000,   -2000};
// NZGD49 / New Zealand Map Grid (EPSG:27200).
const Params kNzmg = {173, -41, 2510000, 6023150};

// One reference point per grid, each from the grid's own reference table:
// echo "-137.5 58.5 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=57 +lonc=-133.666666666667
//   +alpha=323.130102361111 +gamma=323.130102361111 +k=0.9999 +x_0=5000000 +y_0=-5000000
//   +ellps=GRS80
const GridPoint kAlaskaPoint = {-137.5, 58.5, 595294.642689, 748468.537163};
// echo "8.5 47.7 0 0" | cct -d 6 +proj=somerc +lat_0=46.9524055555556 +lon_0=7.43958333333333
//   +k_0=1 +x_0=2600000 +y_0=1200000 +ellps=bessel
const GridPoint kSwissPoint = {8.5, 47.7, 2679586.351919, 1283646.747503};
// echo "117.5 6 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=4 +lonc=115
//   +alpha=53.3158204722222 +gamma=53.1301023611111 +k=0.99984 +x_0=2000000 +y_0=5000000
//   +ellps=evrstSS
const GridPoint kBorneoPoint = {117.5, 6, 2866520.023490, 5665353.706004};
// echo "14.42 50.1 0 0" | cct -d 6 +proj=krovak +lat_0=49.5 +lon_0=24.8333333333333
//   +alpha=30.2881397527778 +k=0.9999 +x_0=1000 +y_0=-2000 +ellps=bessel
const GridPoint kSjtskPoint = {14.42, 50.1, -741797.848009, -1043695.269559};
// echo "174.5 -38 0 0" | cct -d 6 +proj=nzmg +lat_0=-41 +lon_0=173 +x_0=2510000
//   +y_0=6023150 +ellps=intl
const GridPoint kNzmgPoint = {174.5, -38, 2641937.091394, 6355051.264384};

// Every type of the group with the parameters of its real grid.
struct TypeCase {
    Type type;
    const Params& params;
};
const TypeCase kTypes[] = {
    {CGxMapProjData::eHotineObliqueMercator, kAlaska},
    {CGxMapProjData::eObliqueMercator, kSwiss},
    {CGxMapProjData::eRectifiedSkewOrthomorphic, kBorneo},
    {CGxMapProjData::eKrovak, kSjtsk},
    {CGxMapProjData::eNewZealandMapGrid, kNzmg},
};

}  // namespace

// Each type with the parameters of its real grid. The centre-origin form
// would miss the reference by the centre's offset if the definition built the
// natural-origin grid; the skew grid's rectification comes from the plane
// rotation, not from the azimuth; Krovak's axis scales have opposite signs and
// a quarter-turn rotation, so an exchange of the two scales, or a rotation
// left at 0, turns the grid.
TEST(ObliqueFamilyFromDefinition, EveryTypeIsBuiltAsFromValues) {
    const CGxHotineObliqueMercator alaska("NAD83 / Alaska zone 1", 0.9999, -133.666666666667, 57,
                                          323.130102361111, 5000000, -5000000,
                                          GxSystemEllipsoid("RF"));
    const CGxObliqueMercator swiss("CH1903+ / LV95", 1, 7.43958333333333, 46.9524055555556, 90,
                                   2600000, 1200000, GxSystemEllipsoid("BR"));
    const CGxRectifiedSkewOrthomorphic borneo("Timbalai 1948 / RSO Borneo", 0.99984, 115, 4,
                                              53.3158204722222, 53.1301023611111, 2000000, 5000000,
                                              GxSystemEllipsoid("EB"));
    const CGxKrovak sjtsk("S-JTSK / Krovak East North", 0.9999, 78.5, 24.8333333333333, 49.5,
                          30.2881397527778, 90, -1, 1, 1000, -2000, GxSystemEllipsoid("BR"));
    const CGxNewZealandMapGrid nzmg("NZGD49 / New Zealand Map Grid", 173, -41, 2510000, 6023150,
                                    GxSystemEllipsoid("IN"));
    const struct {
        Type type;
        const char* ellipsoid;
        const Params& params;
        const CGxProjection& fromValues;
        const GridPoint& ref;
    } cases[] = {
        {CGxMapProjData::eHotineObliqueMercator, "RF", kAlaska, alaska, kAlaskaPoint},
        {CGxMapProjData::eObliqueMercator, "BR", kSwiss, swiss, kSwissPoint},
        {CGxMapProjData::eRectifiedSkewOrthomorphic, "EB", kBorneo, borneo, kBorneoPoint},
        {CGxMapProjData::eKrovak, "BR", kSjtsk, sjtsk, kSjtskPoint},
        {CGxMapProjData::eNewZealandMapGrid, "IN", kNzmg, nzmg, kNzmgPoint},
    };
    for (const auto& c : cases) {
        const GxDefinition def =
            GxMakeDefinition(c.type, c.fromValues.GetName(), c.ellipsoid, c.params);
        ASSERT_TRUE(def);
        GxExpectBuiltAs(*def, c.fromValues, c.ref);
    }
}

// The default definition of the type, on its default ellipsoid "IN", is the
// national grid itself.
TEST(ObliqueFamilyFromDefinition, DefaultNewZealandDefinitionIsNationalGrid) {
    const GxDefinition def(
        CGxMapProjData::CreateDefaultParameterProjection(CGxMapProjData::eNewZealandMapGrid));
    ASSERT_TRUE(def);
    const GxGrid grid(def->CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_STREQ(grid->GetName(), "Default New Zealang Map Grid");
    double x, y;
    grid->Geo2Proj(kNzmgPoint.lon, kNzmgPoint.lat, &x, &y);
    EXPECT_NEAR(x, kNzmgPoint.x, 1e-3);
    EXPECT_NEAR(y, kNzmgPoint.y, 1e-3);
}

// Without a known ellipsoid nothing is guessed; the origin latitude is NaN
// too.
TEST(ObliqueFamilyFromDefinition, UnknownOrEmptyEllipsoidConvertsToNaN) {
    for (const TypeCase& c : kTypes) {
        for (const char* id : {"NOT-IN-CATALOGUE", ""}) {
            const GxGrid grid = GxExpectNaNGrid(c.type, id, c.params, c.params[1], c.params[2]);
            if (!grid) continue;
            double lon, lat;
            grid->GetOrigin(&lon, &lat);
            EXPECT_TRUE(std::isnan(lat));
        }
    }
}

// A definition without a name, or no definition at all, gives the local grid.
TEST(ObliqueFamilyFromDefinition, NoNameOrNoDefinitionIsLocalGrid) {
    for (const TypeCase& c : kTypes) GxExpectNamelessIsLocal(c.type, "BR", c.params);
    GxExpectLocalGrid(
        CGxHotineObliqueMercator(static_cast<const CGxHotineObliqueMercatorProjection*>(nullptr)));
    GxExpectLocalGrid(
        CGxObliqueMercator(static_cast<const CGxObliqueMercatorProjection*>(nullptr)));
    GxExpectLocalGrid(CGxRectifiedSkewOrthomorphic(
        static_cast<const CGxRectifiedSkewOrthomorphicProjection*>(nullptr)));
    GxExpectLocalGrid(CGxKrovak(static_cast<const CGxKrovakProjection*>(nullptr)));
    GxExpectLocalGrid(
        CGxNewZealandMapGrid(static_cast<const CGxNewZealandMapGridProjection*>(nullptr)));
}

// A name longer than the grid's name buffer is cut to 255 characters.
TEST(ObliqueFamilyFromDefinition, LongNameTruncated) {
    const std::string longName(300, 'K');
    const GxDefinition def = GxMakeDefinition(CGxMapProjData::eKrovak, longName, "BR", kSjtsk);
    ASSERT_TRUE(def);
    const GxGrid grid(def->CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_EQ(std::string(grid->GetName()), longName.substr(0, 255));
    double x, y;
    grid->Geo2Proj(kSjtskPoint.lon, kSjtskPoint.lat, &x, &y);
    EXPECT_NEAR(x, kSjtskPoint.x, 1e-3);
}
