// Transverse Mercator grids built from catalogue definitions. The definition
// always builds the conformal-latitude series form; the Gauss-Krueger form
// takes the same definition through its own constructor. Either grid must be
// the one built from the same numbers and the catalogue ellipsoid, bit for bit
// (a scale read as the central meridian, or an origin latitude left at 0,
// shows up here), and must meet PROJ's values. Without a known ellipsoid the
// figure has no size; without a name the grid is the local one.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/EllipsoidList.h"
#include "definitions/MapProjData.h"
#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Ellipsoid.h"
#include "projections/TransverseMercator.h"
#include "projections/TransverseMercatorJHS.h"
#include "tests/support/DefinitionCheck.h"
#include "tests/support/ReferenceCheck.h"

namespace {

using Def = std::unique_ptr<CGxMapProjData>;
using Grid = std::unique_ptr<CGxProjection>;
using Params = std::vector<double>;

using GridPoint = GxReferencePoint;

// The fourth-order series meet PROJ's exact algorithm to about a micrometre
// within ten degrees of the central meridian.
constexpr double kForwardTolerance = 1e-4;  // metres
constexpr double kInverseTolerance = 1e-9;  // degrees, about 0.1 mm

Def Make(const std::string& name, const std::string& ellipsoid, Params params) {
    return Def(CGxMapProjData::CreateProjection(CGxMapProjData::eTransverseMercator, name, "Branch",
                                                ellipsoid, params.data()));
}

const CGxTransverseMercatorProjection& AsTm(const Def& def) {
    return static_cast<const CGxTransverseMercatorProjection&>(*def);
}

// A grid whose five numbers all differ, with an origin latitude off the
// equator: scale, central meridian, origin latitude, false easting, false
// northing, in the definition's index order.
const Params kInternational49 = {0.9996012717, -2, 49, 400000, -100000};

// The reference points of this grid in the Transverse Mercator reference tables:
// echo "8 55 0 0" | cct -d 6 +proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717
//   +x_0=400000 +y_0=-100000 +ellps=intl
const GridPoint kInternational49Forward = {8, 55, 1038594.064494, 613204.405410};
// echo "850000 1200000 0 0" | cct -I -d 12 (same grid)
const GridPoint kInternational49Inverse = {6.188133556922, 60.430587916063, 850000, 1200000};

// The catalogue's UTM zone 33 as a definition.
const Params kUtm33 = {0.9996, 15, 0, 500000, 0};
// printf "15 0 0 0\n12 45 0 0\n18.5 60 0 0\n16.25 -33.5 0 0\n9 52 0 0\n21 78 0 0\n" |
//   cct -d 6 +proj=utm +zone=33 +ellps=WGS84
const GridPoint kUtm33Forward[] = {
    {15, 0, 500000.000000, 0.000000},          {12, 45, 263553.973899, 4987329.504699},
    {18.5, 60, 695161.172731, 6656575.859116}, {16.25, -33.5, 616110.346907, -3707418.352831},
    {9, 52, 88279.436585, 5778053.301337},     {21, 78, 639026.396365, 8665496.995777},
};
// printf "500000 0 0 0\n250000 5000000 0 0\n760000 6650000 0 0\n620000 -3700000 0 0\n" |
//   cct -I -d 12 +proj=utm +zone=33 +ellps=WGS84
const GridPoint kUtm33Inverse[] = {
    {15.000000000000, 0.000000000000, 500000, 0},
    {11.821978081013, 45.109238235011, 250000, 5000000},
    {19.650623510093, 59.905283822636, 760000, 6650000},
    {16.290873235966, -33.432676233280, 620000, -3700000},
};

void ExpectReference(const CGxProjection& grid, const GridPoint& forward,
                     const GridPoint& inverse) {
    GxExpectForward(grid, forward, kForwardTolerance);
    GxExpectInverse(grid, inverse, kInverseTolerance);
}

// Same bits forward, inverse and in convergence around the reference point,
// the same origin and default area: the definition's numbers reached the
// grid where the value constructor puts them.
void ExpectSameGrid(const CGxProjection& grid, const CGxProjection& fromValues,
                    const GridPoint& around) {
    EXPECT_EQ(typeid(grid), typeid(fromValues));
    EXPECT_STREQ(grid.GetName(), fromValues.GetName());
    EXPECT_FALSE(grid.IsLocal());
    GxExpectSameConversionsAround(grid, fromValues, around.lon, around.lat, {-4.0, 0.0, 2.5},
                                  {-6.0, 0.0, 3.0});
    GxExpectSameOrigin(grid, fromValues);
    GxExpectSameDefaultArea(grid, fromValues);
}

}  // namespace

// The definition always builds the series form, whatever the parameters.
TEST(TransverseMercatorFromDefinition, DefinitionBuildsSeriesFormWithItsNumbers) {
    const Def def = Make("International 49N", "IN", kInternational49);
    ASSERT_TRUE(def);
    const Grid grid(def->CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_STREQ(grid->GetName(), "International 49N");
    ExpectSameGrid(*grid,
                   CGxTransverseMercatorJHS("International 49N", 0.9996012717, -2, 49, 400000,
                                            -100000, GxSystemEllipsoid("IN")),
                   kInternational49Forward);
    ExpectReference(*grid, kInternational49Forward, kInternational49Inverse);
}

TEST(TransverseMercatorFromDefinition, GaussKruegerFormTakesTheSameDefinition) {
    const Def def = Make("International 49N", "IN", kInternational49);
    ASSERT_TRUE(def);
    const CGxTransverseMercator grid(&AsTm(def));
    ExpectSameGrid(grid,
                   CGxTransverseMercator("International 49N", 0.9996012717, -2, 49, 400000, -100000,
                                         GxSystemEllipsoid("IN")),
                   kInternational49Forward);
    ExpectReference(grid, kInternational49Forward, kInternational49Inverse);
}

// The catalogue's zone definitions are plain Transverse Mercator definitions on
// WGS 84; both forms of one of them meet PROJ's UTM across the zone, north and
// south of the equator, and at six degrees from the central meridian.
TEST(TransverseMercatorFromDefinition, Utm33DefinitionMeetsProjUtm) {
    const Def def = Make("UTM-33", "WE", kUtm33);
    ASSERT_TRUE(def);
    const Grid series(def->CreateProjection());
    ASSERT_TRUE(series);
    const CGxTransverseMercator gaussKrueger(&AsTm(def));
    const CGxProjection* const grids[] = {series.get(), &gaussKrueger};
    for (const CGxProjection* grid : grids) {
        SCOPED_TRACE(typeid(*grid).name());
        EXPECT_STREQ(grid->GetName(), "UTM-33");
        for (const GridPoint& p : kUtm33Forward) {
            SCOPED_TRACE(testing::Message() << "forward " << p.lon << ", " << p.lat);
            GxExpectForward(*grid, p, kForwardTolerance);
        }
        for (const GridPoint& p : kUtm33Inverse) {
            SCOPED_TRACE(testing::Message() << "inverse " << p.x << ", " << p.y);
            GxExpectInverse(*grid, p, kInverseTolerance);
        }
    }
}

// The type's default definition, not editable, still builds its grid: the
// transverse Mercator of the Greenwich meridian on WGS 84.
// echo "3 50 0 0" | cct -d 6 +proj=tmerc +lon_0=0 +k=0.9996 +x_0=500000 +ellps=WGS84
TEST(TransverseMercatorFromDefinition, DefaultDefinitionBuildsGreenwichGrid) {
    const Def def(
        CGxMapProjData::CreateDefaultParameterProjection(CGxMapProjData::eTransverseMercator));
    ASSERT_TRUE(def);
    const Grid grid(def->CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_STREQ(grid->GetName(), "Default Transverse Mercator");
    double x, y;
    grid->Geo2Proj(3, 50, &x, &y);
    EXPECT_NEAR(x, 714984.236735, kForwardTolerance);
    EXPECT_NEAR(y, 5542944.018649, kForwardTolerance);
}

// Without a known ellipsoid the figure has no size (a = b = f = 0), nothing is
// guessed and no anonymous ellipsoid is offered. The series form needs the
// eccentricity, undefined for such a figure, so every point converts to NaN;
// the Gauss-Krueger form scales everything by the vanishing radius, which puts
// every point on the false origin and leaves the inverse without an answer.
TEST(TransverseMercatorFromDefinition, UnknownOrEmptyEllipsoidHasNoFigure) {
    for (const char* id : {"NOT-IN-CATALOGUE", ""}) {
        SCOPED_TRACE(testing::Message() << "ellipsoid '" << id << "'");
        const Def def = Make("Somewhere", id, kInternational49);
        ASSERT_TRUE(def);
        const Grid series(def->CreateProjection());
        ASSERT_TRUE(series);
        const CGxTransverseMercator gaussKrueger(&AsTm(def));
        const CGxProjection* const grids[] = {series.get(), &gaussKrueger};
        for (const CGxProjection* grid : grids) {
            EXPECT_STREQ(grid->GetName(), "Somewhere");
            EXPECT_FALSE(grid->IsLocal());
            double lon, lat;
            grid->GetOrigin(&lon, &lat);
            EXPECT_EQ(lon, -2);
            EXPECT_EQ(lat, 49);
            grid->Proj2Geo(850000, 1200000, &lon, &lat);
            EXPECT_TRUE(std::isnan(lon) && std::isnan(lat)) << lon << ", " << lat;
            EXPECT_TRUE(std::isnan(grid->GetConvergence(3, 50)));
            CGxEllipsoid out("kept", "K", 1, 2);
            EXPECT_FALSE(grid->GetAnonymousEllipsoid(out));
            EXPECT_EQ(out.GetMajor(), 1);
        }
        double x, y;
        series->Geo2Proj(3, 50, &x, &y);
        EXPECT_TRUE(std::isnan(x) && std::isnan(y)) << x << ", " << y;
        gaussKrueger.Geo2Proj(3, 50, &x, &y);
        EXPECT_EQ(x, 400000);
        EXPECT_EQ(y, -100000);
    }
}

// A definition without a name, or no definition at all, gives the local grid
// "NON-UTM", which hands coordinates through unchanged whatever the ellipsoid.
TEST(TransverseMercatorFromDefinition, NoNameOrNoDefinitionIsLocalGrid) {
    auto expectLocal = [](const CGxProjection& grid) {
        EXPECT_STREQ(grid.GetName(), "NON-UTM");
        EXPECT_TRUE(grid.IsLocal());
        GxExpectIdentity(grid, 1234.5, -987.25);
        EXPECT_EQ(grid.GetConvergence(10, 50), 0.0);
    };
    for (const char* id : {"WE", "NOT-IN-CATALOGUE"}) {
        SCOPED_TRACE(testing::Message() << "ellipsoid " << id);
        const Def def = Make("", id, kUtm33);
        ASSERT_TRUE(def);
        const Grid grid(def->CreateProjection());
        ASSERT_TRUE(grid);
        expectLocal(*grid);
        expectLocal(CGxTransverseMercator(&AsTm(def)));
    }
    expectLocal(
        CGxTransverseMercatorJHS(static_cast<const CGxTransverseMercatorProjection*>(nullptr)));
    expectLocal(
        CGxTransverseMercator(static_cast<const CGxTransverseMercatorProjection*>(nullptr)));
}
