#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "foundation/ProjectionInfo.h"
#include "foundation/Tolerance.h"
#include "wkt/PRJParser.h"

namespace {

using Axis = CGxProjectionInfo::CAxis;

CGxProjectionInfo WithAxes(const char* first, const char* second) {
    CGxPRJParser parser("");
    parser.SetAxisInfo(CGxPRJParser::eFirstAxis, "A", first);
    parser.SetAxisInfo(CGxPRJParser::eSecondAxis, "B", second);
    CGxProjectionInfo info;
    info.SetProjectionInfo(parser);
    return info;
}

}  // namespace

// An easting of 100 and a northing of 200 in the order and signs of each
// grid; the inverse gives the pair back.
TEST(ProjectionInfo, AxisOrderAndSigns) {
    struct Case {
        const char* first;
        const char* second;
        double x, y;
    };
    const Case cases[] = {
        {"EAST", "NORTH", 100, 200},    // the default grid
        {"NORTH", "EAST", 200, 100},    // Gauss-Krueger style: northing first
        {"WEST", "SOUTH", -100, -200},  // counted west and south, no swap
        {"SOUTH", "WEST", -200, -100},  // Krovak's classic grid: southing, westing
        {"north", "west", -200, 100},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.first) + "," + c.second);
        const CGxProjectionInfo info = WithAxes(c.first, c.second);
        double x = 100, y = 200;
        info.Convert(x, y);
        EXPECT_EQ(x, c.x);
        EXPECT_EQ(y, c.y);
        info.InvConvert(x, y);
        EXPECT_EQ(x, 100);
        EXPECT_EQ(y, 200);
    }
    CGxProjectionInfo plain;
    double x = -3.5, y = 7.25;
    plain.Convert(x, y);
    EXPECT_EQ(x, -3.5);
    EXPECT_EQ(y, 7.25);
}

TEST(ProjectionInfo, DirectionWords) {
    for (const char* word : {"NORTH", "north", "North", "nOrTh"}) {
        EXPECT_EQ(Axis::StringToType(word), Axis::eNorth) << word;
    }
    EXPECT_EQ(Axis::StringToType("south"), Axis::eSouth);
    EXPECT_EQ(Axis::StringToType("West"), Axis::eWest);
    for (const char* word : {"", "UP", "NORTHEAST", "NORT", "NORTH ", " NORTH"}) {
        EXPECT_EQ(Axis::StringToType(word), Axis::eEast) << '"' << word << '"';
    }
    EXPECT_EQ(Axis::StringToType(nullptr), Axis::eEast);

    // A type outside the four keeps the sign the axis had.
    Axis axis(Axis::eSouth, "S");
    axis.SetProperties(static_cast<Axis::EType>(9), "odd");
    EXPECT_EQ(axis.GetFactor(), -1);
    EXPECT_EQ(axis.GetType(), 9);
    EXPECT_STREQ(axis.GetName(), "odd");
    Axis fresh(static_cast<Axis::EType>(-4), nullptr);
    EXPECT_EQ(fresh.GetFactor(), 1);
    EXPECT_STREQ(fresh.GetName(), "");
}

// Units, datum shift and axis names from a read text; a geographic system
// has no linear unit.
TEST(ProjectionInfo, FromReadText) {
    CGxPRJParser parser(
        "PROJCS[\"p\",GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378388,297],"
        "TOWGS84[-87,-98,-121,0,0,0,0]],PRIMEM[\"Greenwich\",0],UNIT[\"grad\",0.0157079632679489]],"
        "PROJECTION[\"Mercator_1SP\"],PARAMETER[\"False_Easting\",0],PARAMETER[\"False_Northing\","
        "0],"
        "PARAMETER[\"Central_Meridian\",0],PARAMETER[\"Scale_Factor\",1],"
        "UNIT[\"US survey "
        "foot\",0.304800609601219],AXIS[\"Northing\",NORTH],AXIS[\"Easting\",EAST]]");
    ASSERT_TRUE(parser.Parse(false));
    CGxProjectionInfo info;
    info.SetProjectionInfo(parser);
    char name[CGxProjectionInfo::kUnitNameSize];
    double factor = 0;
    EXPECT_TRUE(info.GetProjUnit(&factor, name));
    EXPECT_STREQ(name, "US survey foot");
    EXPECT_EQ(factor, 0.304800609601219);
    EXPECT_TRUE(info.GetAngularUnit(&factor, name));
    EXPECT_STREQ(name, "grad");
    EXPECT_EQ(factor, 0.0157079632679489);
    CGxDatumShift shift;
    info.GetDatumShift(shift);
    EXPECT_EQ(shift.GetType(), CGxCartDef::eThreeParameterShift);
    EXPECT_EQ(shift[1], -98);
    Axis::EType first, second;
    info.GetAxisTypes(first, second);
    EXPECT_EQ(first, Axis::eNorth);
    EXPECT_EQ(second, Axis::eEast);
    EXPECT_STREQ(info.GetAxis1().GetName(), "Northing");

    CGxPRJParser geographic(
        "GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378137,298.257223563]],PRIMEM[\"Greenwich\",0],"
        "UNIT[\"degree\",0.0174532925199433]]");
    ASSERT_TRUE(geographic.Parse(false));
    info.SetProjectionInfo(geographic);
    EXPECT_FALSE(info.GetProjUnit(&factor, name));
    EXPECT_EQ(factor, kGxUnset);
    EXPECT_STREQ(name, "");
    EXPECT_TRUE(info.GetAngularUnit(nullptr, nullptr));

    const CGxProjectionInfo empty;
    EXPECT_FALSE(empty.GetProjUnit(&factor, name));
    EXPECT_FALSE(empty.GetAngularUnit(&factor, name));
    EXPECT_STREQ(empty.GetAxis2().GetName(), "Northing");
}

// Names longer than the fixed fields are cut so that the terminator fits:
// 63 characters for a unit, 31 for an axis.
TEST(ProjectionInfo, NamesTruncateAtTheirFields) {
    for (std::size_t length : {62u, 63u, 64u, 65u, 5000u}) {
        SCOPED_TRACE(length);
        const std::string unit(length, 'u');
        const std::string axis(length / 2, 'a');
        CGxPRJParser parser("");
        parser.SetProjUnit(unit, 1);
        parser.SetAngularUnit(unit, 1);
        parser.SetAxisInfo(CGxPRJParser::eFirstAxis, axis, "EAST");
        parser.SetAxisInfo(CGxPRJParser::eSecondAxis, axis, "NORTH");
        CGxProjectionInfo info;
        info.SetProjectionInfo(parser);
        char name[CGxProjectionInfo::kUnitNameSize + 8];
        std::memset(name, 'x', sizeof name);
        double factor = 0;
        info.GetProjUnit(&factor, name);
        EXPECT_EQ(std::string(name), unit.substr(0, 63));
        EXPECT_EQ(name[CGxProjectionInfo::kUnitNameSize], 'x');  // nothing written past 64
        info.GetAngularUnit(&factor, name);
        EXPECT_EQ(std::string(name), unit.substr(0, 63));
        EXPECT_EQ(std::string(info.GetAxis1().GetName()), axis.substr(0, 31));

        // A copy carries the cut names and the axis rules.
        CGxProjectionInfo copy;
        copy = info;
        EXPECT_EQ(std::string(copy.GetAxis2().GetName()), axis.substr(0, 31));
    }
}
