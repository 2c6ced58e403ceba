#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <string>

#include "foundation/Tolerance.h"
#include "tests/support/TestFiles.h"
#include "wkt/PRJParser.h"

// Malformed and hostile texts: each ends with a defined result, and a parser
// never answers true while holding the invalid type (or the reverse).

namespace {

// Parses and checks the one invariant every outcome keeps.
bool ParseChecked(CGxPRJParser& parser) {
    const bool ok = parser.Parse(true);
    EXPECT_EQ(ok, parser.GetProjectionType() != CGxMapProjData::eInvalidProjection);
    return ok;
}

// Every reader of the class over one text.
void ReadEverything(const std::string& text) {
    std::string name, value, out;
    double number = 0;
    CGxPRJParser::IsPRJ(text);
    CGxPRJParser::ShortName(text);
    for (const char* keyword : {"PROJCS", "GEOGCS", "UNIT", "AXIS", "PARAMETER", "TOWGS84"}) {
        CGxPRJParser::GetName(text, keyword);
        CGxPRJParser::GetNameParam(text, keyword, name, number);
        CGxPRJParser::GetNameParam(text, keyword, name, value);
    }
    CGxPRJParser::GetParam(text, "False_Easting", 0);
    CGxPRJParser::FormatAsReadableWKT(text, out);
    CGxPRJParser parser(text);
    ParseChecked(parser);
}

const char kTransverseMercator[] =
    "PROJCS[\"test\",GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378137.0,298.257223563]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],"
    "PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"False_Easting\",500000.0],"
    "PARAMETER[\"False_Northing\",0.0],PARAMETER[\"Central_Meridian\",9.0],"
    "PARAMETER[\"Scale_Factor\",0.9996],PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]";

}  // namespace

// Every proper prefix of a real text leaves a bracket open and is refused
// untouched; closed again with the missing brackets, it is read as far as it
// goes, whatever keyword or number it was cut in.
TEST(PRJParserHostile, EveryPrefixOfRealTexts) {
    for (const char* file : {"25832_gdal.prj", "5514_esri.prj", "7415_gdal.prj",
                             "rdnew_towgs84_gdal.prj", "29873_gdal.prj"}) {
        SCOPED_TRACE(file);
        const std::string text = GxReadPrj(file);
        ASSERT_FALSE(text.empty());
        int parsedWhenClosed = 0;
        for (std::size_t n = 0; n < text.size(); ++n) {
            const std::string prefix = text.substr(0, n);
            CGxPRJParser parser(prefix);
            EXPECT_FALSE(parser.Parse(true)) << n;
            EXPECT_EQ(parser.GetProjectionType(), CGxMapProjData::eInvalidProjection);
            EXPECT_EQ(parser.GetProjCSname(), "");

            const int open = CGxPRJParser::_GetBracketLevel(prefix);
            const std::string closed = prefix + std::string(open > 0 ? open : 0, ']');
            ReadEverything(prefix);
            ReadEverything(closed);
            CGxPRJParser closedParser(closed);
            if (ParseChecked(closedParser)) ++parsedWhenClosed;
        }
        // Cut inside the final linear unit (or the elements after it) the
        // text is still a complete coordinate system.
        EXPECT_GT(parsedWhenClosed, 0);
        CGxPRJParser whole(text);
        EXPECT_TRUE(ParseChecked(whole));
    }
}

// Each keyword as the last word of a text, with nothing after it: its name
// reads empty and its number 0. Only a bare UNIT makes a complete system: a
// geographic one whose angular unit is 0, since a malformed number is not an
// error.
TEST(PRJParserHostile, KeywordWithNothingAfterIt) {
    for (const char* keyword : {"COMPD_CS", "PROJCS", "DATUM", "SPHEROID", "TOWGS84", "PRIMEM",
                                "PROJECTION", "PARAMETER", "AXIS"}) {
        SCOPED_TRACE(keyword);
        const std::string text =
            std::string(keyword == std::string("PROJCS") ? "GEOGCS" : "PROJCS") + "[,,]" + keyword;
        CGxPRJParser parser(text);
        EXPECT_FALSE(ParseChecked(parser));
        EXPECT_EQ(CGxPRJParser::GetName(text, keyword), "");
    }

    CGxPRJParser spheroid("PROJCS[,,]SPHEROID");
    spheroid.Parse(false);
    std::string name = "x";
    double a = 1, rf = 1;
    spheroid.GetEllipsoid(name, a, rf);
    EXPECT_EQ(name, "");
    EXPECT_EQ(a, 0);
    EXPECT_EQ(rf, 0);

    CGxPRJParser unit("PROJCS[,,]UNIT");
    EXPECT_TRUE(ParseChecked(unit));
    EXPECT_EQ(unit.GetProjectionType(), CGxMapProjData::eGeographical);
    double factor = 1;
    unit.GetAngularUnit(name, factor);
    EXPECT_EQ(factor, 0);

    // A projection without a name is not in the table.
    const std::string unnamed = "PROJCS[UNIT[\"D\",1],,]PROJECTION";
    CGxPRJParser projection(unnamed);
    EXPECT_FALSE(ParseChecked(projection));
    EXPECT_EQ(projection.GetProjectionTypeName(), "");

    // After a complete text: an empty AXIS takes the first axis's place.
    const std::string axis = std::string(kTransverseMercator) + "AXIS";
    CGxPRJParser axisParser(axis);
    EXPECT_TRUE(ParseChecked(axisParser));
    std::string direction;
    axisParser.GetAxisInfo(CGxPRJParser::eFirstAxis, name, direction);
    EXPECT_EQ(name, "");
    EXPECT_EQ(direction, "");
    axisParser.GetAxisInfo(CGxPRJParser::eSecondAxis, name, direction);
    EXPECT_EQ(name, "Northing");
}

// Quotes that do not close, or are missing, shift what is taken as a name;
// a parameter name without its quotes is not a parameter.
TEST(PRJParserHostile, BrokenQuotes) {
    std::string text = kTransverseMercator;
    text.erase(text.find("test") + 4, 1);  // PROJCS["test,GEOGCS[...
    CGxPRJParser openName(text);
    EXPECT_TRUE(ParseChecked(openName));
    EXPECT_EQ(openName.GetProjCSname(), "test,GEOGCS");

    text = kTransverseMercator;
    text.erase(text.find("False_Easting") + 13, 1);  // "False_Easting,500000.0]
    CGxPRJParser openParameter(text);
    EXPECT_FALSE(ParseChecked(openParameter));
    EXPECT_EQ(openParameter.GetFalseEasting(), kGxUnset);

    text = kTransverseMercator;
    for (std::size_t at; (at = text.find('"')) != std::string::npos;) text.erase(at, 1);
    CGxPRJParser noQuotes(text);
    EXPECT_FALSE(ParseChecked(noQuotes));
    EXPECT_EQ(noQuotes.GetProjectionTypeName(), "Transverse_Mercator");
    EXPECT_EQ(noQuotes.GetProjCSname(), "test,GEOGCS");
}

TEST(PRJParserHostile, ExtremeNumbersAndLongNames) {
    std::string text = kTransverseMercator;
    text.replace(text.find("500000.0"), 8, "1e400");
    text.replace(text.find("0.9996"), 6, "abc");
    CGxPRJParser numbers(text);
    EXPECT_TRUE(ParseChecked(numbers));
    EXPECT_EQ(numbers.GetFalseEasting(), HUGE_VAL);
    EXPECT_EQ(numbers.GetScaleFactor(), 0);

    const std::string longName(1 << 20, 'N');
    text = kTransverseMercator;
    text.replace(text.find("test"), 4, longName);
    CGxPRJParser named(text);
    EXPECT_TRUE(ParseChecked(named));
    EXPECT_EQ(named.GetProjCSname(), longName);

    // Deep nesting is counted, not recursed into, and the readable form
    // stops indenting at sixteen levels, so its size stays proportional.
    std::string deep = "GEOGCS";
    for (int i = 0; i < 100000; ++i) deep += "[a,";
    deep += ",";
    deep.append(100000, ']');
    EXPECT_NE(CGxPRJParser::IsPRJ(deep), 0);
    ReadEverything(deep);
    std::string out;
    CGxPRJParser::FormatAsReadableWKT(deep, out);
    EXPECT_LT(out.size(), 80 * deep.size());
    EXPECT_NE(out.find("\r\n" + std::string(64, ' ') + "[a,"), std::string::npos);
    EXPECT_EQ(out.find(std::string(65, ' ')), std::string::npos);
}

// Random bytes (never NUL) mixed with the keywords and delimiters the reader
// looks for, balanced or not: every reader ends with a defined result.
TEST(PRJParserHostile, BinaryGarbage) {
    const char* pieces[] = {"PROJCS",           "GEOGCS",      "DATUM",      "SPHEROID",  "TOWGS84",
                            "PRIMEM",           "UNIT",        "PROJECTION", "PARAMETER", "AXIS",
                            "COMPD_CS",         "[",           "]",          "\"",        ",",
                            "\"Scale_Factor\"", "\"Azimuth\"", "nan",        "1e308"};
    std::uint32_t state = 12345;
    auto next = [&state]() {
        state = state * 1664525u + 1013904223u;
        return state >> 8;
    };
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        const std::uint32_t length = next() % 300;
        for (std::uint32_t i = 0; i < length; ++i) {
            if (next() % 4 == 0) {
                text += pieces[next() % std::size(pieces)];
            } else {
                text += static_cast<char>(1 + next() % 255);
            }
        }
        if (round % 2) {
            const int open = CGxPRJParser::_GetBracketLevel(text);
            if (open > 0) text.append(open, ']');
        }
        ReadEverything(text);
    }
}
