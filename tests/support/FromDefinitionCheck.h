#pragma once

// Checks shared by the tests that build grids from catalogue definitions: the
// definition's grid against the grid built from the same numbers, the NaN
// grid of an unknown ellipsoid and the local grid of a nameless definition.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "definitions/MapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "tests/support/DefinitionCheck.h"
#include "tests/support/ReferenceCheck.h"

using GxDefinition = std::unique_ptr<CGxMapProjData>;
using GxGrid = std::unique_ptr<CGxProjection>;

// An editable definition of the type, parameters in the definition's index
// order.
inline GxDefinition GxMakeDefinition(CGxMapProjData::EProjectionType type, const std::string& name,
                                     const std::string& ellipsoid, std::vector<double> params) {
    return GxDefinition(
        CGxMapProjData::CreateProjection(type, name, "Branch", ellipsoid, params.data()));
}

// The definition's grid is the value-built one: same class, same name, same
// bits forward and inverse around the reference point, same origin; and it
// meets the reference to 1 mm forward and 1e-9 degrees inverse.
inline void GxExpectBuiltAs(const CGxMapProjData& def, const CGxProjection& fromValues,
                            const GxReferencePoint& ref) {
    SCOPED_TRACE(def.GetName());
    const GxGrid grid(def.CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_EQ(typeid(*grid), typeid(fromValues));
    EXPECT_STREQ(grid->GetName(), def.GetName().c_str());
    EXPECT_FALSE(grid->IsLocal());
    GxExpectSameConversionsAround(*grid, fromValues, ref.lon, ref.lat, {-1.0, 0.0, 1.5},
                                  {-1.0, 0.0, 0.5});
    GxExpectSameOrigin(*grid, fromValues);
    GxExpectForward(*grid, ref, 1e-3);
    GxExpectInverse(*grid, ref, 1e-9);
}

// Without a known ellipsoid nothing is guessed: the grid keeps the name but
// converts (lon, lat) and any easting/northing to NaN, its origin longitude
// and convergence are NaN and it has no anonymous ellipsoid. Returns the grid
// for checks of its own.
inline GxGrid GxExpectNaNGrid(CGxMapProjData::EProjectionType type, const std::string& ellipsoid,
                              const std::vector<double>& params, double lon, double lat) {
    SCOPED_TRACE(testing::Message() << "type " << type << " ellipsoid '" << ellipsoid << "'");
    const GxDefinition def = GxMakeDefinition(type, "Somewhere", ellipsoid, params);
    GxGrid grid(def ? def->CreateProjection() : nullptr);
    if (!grid) {
        ADD_FAILURE() << "no grid";
        return grid;
    }
    EXPECT_STREQ(grid->GetName(), "Somewhere");
    EXPECT_FALSE(grid->IsLocal());
    double x, y, lon0, lat0;
    grid->Geo2Proj(lon, lat, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
    grid->Proj2Geo(1000, 2000, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
    grid->GetOrigin(&lon0, &lat0);
    EXPECT_TRUE(std::isnan(lon0));
    EXPECT_TRUE(std::isnan(grid->GetConvergence(lon, lat)));
    CGxEllipsoid out("kept", "K", 1, 2);
    EXPECT_FALSE(grid->GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 1);
    return grid;
}

// The local grid "NON-UTM" hands coordinates through unchanged and has no
// convergence.
inline void GxExpectLocalGrid(const CGxProjection& grid) {
    EXPECT_STREQ(grid.GetName(), "NON-UTM");
    EXPECT_TRUE(grid.IsLocal());
    GxExpectIdentity(grid, 1234.5, -987.25);
    EXPECT_EQ(grid.GetConvergence(10, 50), 0.0);
}

// A nameless definition of the type gives the local grid, on a catalogue
// ellipsoid and on an unknown one alike.
inline void GxExpectNamelessIsLocal(CGxMapProjData::EProjectionType type,
                                    const std::string& ellipsoid,
                                    const std::vector<double>& params) {
    for (const std::string& id : {ellipsoid, std::string("NOT-IN-CATALOGUE")}) {
        SCOPED_TRACE(testing::Message() << "type " << type << " ellipsoid " << id);
        const GxDefinition def = GxMakeDefinition(type, "", id, params);
        ASSERT_TRUE(def);
        const GxGrid grid(def->CreateProjection());
        ASSERT_TRUE(grid);
        GxExpectLocalGrid(*grid);
    }
}
