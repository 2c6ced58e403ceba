#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "definitions/MapProjData.h"
#include "definitions/ProjectionTypes.h"
#include "foundation/Tolerance.h"
#include "wkt/PRJParser.h"

// The projection-type table holds, for every type, facts that other tables
// must agree with: the definition class's parameter list, the reader's rules
// and the writer's elements. A row that disagrees with them reads, builds or
// writes a system with shifted or missing parameters.

namespace {

using M = CGxMapProjData;
using P = EGxWktParameter;

// The kind a definition shows a parameter in the slot as.
M::EParamType KindOf(P slot) {
    switch (slot) {
        case P::eFalseEasting:
        case P::eFalseNorthing:
            return M::eLength;
        case P::eScaleFactor:
        case P::eXScale:
        case P::eYScale:
            return M::eScale;
        default:
            return M::eAngle;
    }
}

}  // namespace

TEST(ProjectionTypes, EveryNameFindsItsOwnRowWhateverItsCaseAndBlanks) {
    // A name that folds to another row's name would be shadowed by it.
    for (const GxProjectionType& row : GxProjectionTypes()) {
        for (const GxWktName& entry : row.names) {
            SCOPED_TRACE(entry.name);
            std::string shouted = entry.name;
            std::transform(shouted.begin(), shouted.end(), shouted.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c; });
            std::string spaced = entry.name;
            std::replace(spaced.begin(), spaced.end(), '_', ' ');
            for (const std::string& name : {std::string(entry.name), shouted, spaced}) {
                const GxWktName* found = nullptr;
                EXPECT_EQ(GxProjectionTypeNamed(name, &found), &row);
                EXPECT_EQ(found, &entry);
            }
        }
    }
    const GxWktName* untouched = nullptr;
    EXPECT_EQ(GxProjectionTypeNamed("Transverse_Mercator_", &untouched), nullptr);
    EXPECT_EQ(GxProjectionTypeNamed("", &untouched), nullptr);
    EXPECT_EQ(untouched, nullptr);
}

TEST(ProjectionTypes, RowsAgreeWithTheDefinitionClasses) {
    for (const GxProjectionType& row : GxProjectionTypes()) {
        SCOPED_TRACE("type " + std::to_string(row.type));
        EXPECT_EQ(GxProjectionTypeOf(row.type), &row);
        const std::unique_ptr<M> definition(M::CreateDefaultParameterProjection(row.type));
        ASSERT_EQ(definition != nullptr, row.newDefinition != nullptr);
        if (!definition) continue;
        EXPECT_EQ(definition->GetProjectionType(), row.type);
        // The values are the definition's parameters in index order.
        ASSERT_EQ(definition->GetNoOfParameters(), row.values.count);
        for (int i = 0; i < row.values.count; ++i) {
            std::string label;
            double value = 0;
            M::EParamType kind = M::eScale;
            ASSERT_TRUE(definition->GetParameter(i, label, value, kind));
            EXPECT_EQ(kind, KindOf(row.values[i])) << label;
        }
    }
    EXPECT_EQ(GxProjectionTypeOf(M::eInvalidProjection), nullptr);
    EXPECT_EQ(GxProjectionTypeOf(static_cast<M::EProjectionType>(0)), nullptr);
    EXPECT_EQ(GxProjectionTypeOf(static_cast<M::EProjectionType>(-7)), nullptr);
}

TEST(ProjectionTypes, EveryValueIsWrittenAndReadBack) {
    // What the algorithm and the definition take must be in the written text
    // and among what the reader reads, or a written system reads back
    // incomplete.
    for (const GxProjectionType& row : GxProjectionTypes()) {
        SCOPED_TRACE("type " + std::to_string(row.type));
        for (P slot : row.values) {
            EXPECT_TRUE(std::any_of(row.written.begin(), row.written.end(),
                                    [slot](const GxWktWritten& w) { return w.slot == slot; }));
            EXPECT_TRUE(std::any_of(row.rules.begin(), row.rules.end(),
                                    [slot](const GxWktRule& r) { return r.slot == slot; }));
        }
        const GxWktName* entry = nullptr;
        EXPECT_EQ(GxProjectionTypeNamed(row.wktName, &entry), &row) << row.wktName;
    }
}

TEST(ProjectionTypes, RecordSlotsOutsideTheEnumerationReadAsAbsent) {
    CGxPRJParser record("");
    const auto outside = static_cast<P>(kGxWktParameterCount);
    record.SetWktParameter(outside, 1.0);
    record.SetWktParameter(static_cast<P>(-1), 1.0);
    EXPECT_TRUE(GxIsUnset(record.GetWktParameter(outside)));
    EXPECT_TRUE(GxIsUnset(record.GetWktParameter(static_cast<P>(-1))));
    for (int i = 0; i < kGxWktParameterCount; ++i)
        EXPECT_TRUE(GxIsUnset(record.GetWktParameter(static_cast<P>(i))));
    record.SetWktParameter(P::eAzimuth, 30.0);
    EXPECT_EQ(record.GetAzimuth(), 30.0);
}
