#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <list>
#include <string>

#include "foundation/Tolerance.h"
#include "wkt/PRJParser.h"
#include "wkt/WktTokenizer.h"

namespace {

using Type = CGxMapProjData::EProjectionType;

const char kGeogcs[] =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

std::string P(const std::string& name, const std::string& value) {
    return "PARAMETER[\"" + name + "\"," + value + "],";
}

// A projected text in the ESRI layout with the given projection and
// parameters (each ending in a comma).
std::string Projcs(const std::string& projection, const std::string& parameters) {
    return "PROJCS[\"test\"," + std::string(kGeogcs) + ",PROJECTION[\"" + projection + "\"]," +
           parameters + "UNIT[\"Meter\",1.0]]";
}

struct Outcome {
    bool ok;
    Type type;
    CGxPRJParser parser;
};

Outcome ParseText(const std::string& text, bool sort = false) {
    CGxPRJParser parser(text);
    const bool ok = parser.Parse(sort);
    return {ok, parser.GetProjectionType(), parser};
}

const std::string kHotineBase = P("False_Easting", "0") + P("False_Northing", "0") +
                                P("Scale_Factor", "1") + P("Longitude_Of_Center", "10") +
                                P("Latitude_Of_Center", "50");

}  // namespace

// The tokenizer skips runs of delimiters, keeps its place when the set
// changes between calls, and ends cleanly on texts that stop anywhere.
TEST(WktTokenizer, CutsAtChangingDelimiterSets) {
    CGxWktTokenizer t("UNIT[\"Degree\",0.0174532925199433]],AXIS", 0);
    EXPECT_EQ(t.Next("[]\""), "UNIT");
    EXPECT_EQ(t.Next("[]\""), "Degree");
    EXPECT_EQ(t.Next("],"), "0.0174532925199433");
    EXPECT_EQ(t.Rest(), "],AXIS");
    EXPECT_EQ(t.Next(","), "]");
    EXPECT_EQ(t.Next(","), "AXIS");
    EXPECT_EQ(t.Rest(), "");
    EXPECT_FALSE(t.Exhausted());
    EXPECT_EQ(t.Next(","), "");
    EXPECT_TRUE(t.Exhausted());
    EXPECT_EQ(t.Next(""), "");

    CGxWktTokenizer onlyDelimiters("[[\"]", 0);
    EXPECT_EQ(onlyDelimiters.Next("[]\""), "");
    EXPECT_TRUE(onlyDelimiters.Exhausted());
    CGxWktTokenizer pastEnd("abc", 7);
    EXPECT_EQ(pastEnd.Next(","), "");
    CGxWktTokenizer noSet("a,b", 0);
    EXPECT_EQ(noSet.Next(nullptr), "a,b");
    EXPECT_EQ(noSet.Next(","), "");
}

TEST(PRJParserRecognition, IsPRJAndBracketCounters) {
    EXPECT_NE(CGxPRJParser::IsPRJ(kGeogcs), 0);
    // Balanced but not more commas than brackets.
    EXPECT_EQ(CGxPRJParser::IsPRJ("GEOGCS[]"), 0);
    EXPECT_EQ(CGxPRJParser::IsPRJ("GEOGCS[\"a\",1]"), 0);
    EXPECT_NE(CGxPRJParser::IsPRJ("GEOGCS[\"a\",1,2]"), 0);
    // Keywords are upper case; parentheses are not counted, so they neither
    // close a bracket nor count as one.
    EXPECT_EQ(CGxPRJParser::IsPRJ("geogcs[\"a\",1,2]"), 0);
    EXPECT_EQ(CGxPRJParser::IsPRJ("GEOGCS[\"a\",1,2)"), 0);
    EXPECT_NE(CGxPRJParser::IsPRJ("GEOGCS(\"a\",1,2)"), 0);
    EXPECT_EQ(CGxPRJParser::IsPRJ("GEOGCS[\"a\",1,2]]"), 0);
    EXPECT_EQ(CGxPRJParser::IsPRJ("UTM-32"), 0);
    EXPECT_EQ(CGxPRJParser::IsPRJ(""), 0);

    EXPECT_EQ(CGxPRJParser::_MatchBrackets(""), -1);
    EXPECT_EQ(CGxPRJParser::_MatchBrackets("a[b]"), -1);
    EXPECT_EQ(CGxPRJParser::_MatchBrackets("a]b[c]"), 1);
    EXPECT_EQ(CGxPRJParser::_MatchBrackets("[[a]"), 4);
    EXPECT_EQ(CGxPRJParser::_MatchCommas("[,]"), 0);
    EXPECT_NE(CGxPRJParser::_MatchCommas("[,,]"), 0);
    EXPECT_EQ(CGxPRJParser::_GetBracketLevel(""), 0);
    EXPECT_EQ(CGxPRJParser::_GetBracketLevel("[[]"), 1);
    EXPECT_EQ(CGxPRJParser::_GetBracketLevel("]][[[["), -1);
}

TEST(PRJParserRecognition, ShortNameOrder) {
    EXPECT_EQ(CGxPRJParser::ShortName("COMPD_CS[\"c\",PROJCS[\"p\",GEOGCS[\"g\"]]]"), "c");
    EXPECT_EQ(CGxPRJParser::ShortName("PROJCS[\"p\",GEOGCS[\"g\"]]"), "p");
    EXPECT_EQ(CGxPRJParser::ShortName(kGeogcs), "GCS_WGS_1984");
    EXPECT_EQ(CGxPRJParser::ShortName("NON-UTM"), "Local Coordinates");
    EXPECT_EQ(CGxPRJParser::ShortName(" NON-UTM"), " NON-UTM");
    EXPECT_EQ(CGxPRJParser::ShortName("UTM-32"), "UTM-32");
}

// GetNameParam hands back the text after the value, so a caller can walk
// the repeated elements; an absent keyword leaves the outputs alone.
TEST(PRJParserReaders, NameParamWalksRepeatedElements) {
    const std::string text =
        Projcs("Mercator", P("False_Easting", "1.5") + P("False_Northing", "-2"));
    std::string rest = text.substr(text.find("PROJECTION"));
    std::string name;
    double value = 0;
    std::list<std::pair<std::string, double>> seen;
    while (!(rest = CGxPRJParser::GetNameParam(rest, "PARAMETER", name, value)).empty()) {
        seen.emplace_back(name, value);
    }
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen.front(), std::make_pair(std::string("False_Easting"), 1.5));
    EXPECT_EQ(seen.back(), std::make_pair(std::string("False_Northing"), -2.0));

    name = "kept";
    value = 7;
    std::string direction = "kept";
    EXPECT_EQ(CGxPRJParser::GetNameParam(text, "AXIS", name, value), "");
    EXPECT_EQ(CGxPRJParser::GetNameParam(text, "AXIS", name, direction), "");
    EXPECT_EQ(name, "kept");
    EXPECT_EQ(value, 7);
    EXPECT_EQ(direction, "kept");
    EXPECT_EQ(CGxPRJParser::GetName(text, "VERT_CS"), "");
    EXPECT_EQ(CGxPRJParser::GetName(text, "DATUM"), "D_WGS_1984");
}

// Parameter names match in any case but only as a whole quoted name, and
// anywhere in the text.
TEST(PRJParserReaders, ParameterNamesMatchQuotedOnly) {
    const std::string text =
        Projcs("Transverse_Mercator", P("SCALE_FACTOR", "0.9996") + P("Standard_Parallel_1", "33"));
    EXPECT_EQ(CGxPRJParser::GetParam(text, "scale_factor", -1), 0.9996);
    EXPECT_EQ(CGxPRJParser::GetParam(text, "Factor", -1), -1);
    EXPECT_EQ(CGxPRJParser::GetParam(text, "Parallel_1", -1), -1);
    EXPECT_EQ(CGxPRJParser::GetParam(text, "Scale", -1), -1);
    // The quoted datum name is found like a parameter: 0 from the text after it.
    EXPECT_EQ(CGxPRJParser::GetParam(text, "D_WGS_1984", -1), 0);

    const std::list<std::string> names = {"Longitude_Of_Origin", "Standard_Parallel_1",
                                          "Scale_Factor"};
    EXPECT_EQ(CGxPRJParser::GetParam(text, names, -1), 33);
    EXPECT_EQ(CGxPRJParser::GetParam(text, std::list<std::string>{"a", "b"}, -1), -1);
    EXPECT_EQ(CGxPRJParser::GetParam(text, std::list<std::string>{}, -1), -1);
}

TEST(PRJParserParse, ProjectionNameInAnyCase) {
    const std::string params = P("False_Easting", "500000") + P("False_Northing", "0") +
                               P("Central_Meridian", "9") + P("Scale_Factor", "0.9996") +
                               P("Latitude_Of_Origin", "0");
    Outcome r = ParseText(Projcs("TRANSVERSE_mercator", params));
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.type, CGxMapProjData::eTransverseMercator);
    EXPECT_EQ(r.parser.GetProjectionTypeName(), "TRANSVERSE_mercator");

    r = ParseText(Projcs("Non_Projected", params));
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.type, CGxMapProjData::eNonProjected);

    r = ParseText(Projcs("Sinusoidal", params));
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.type, CGxMapProjData::eInvalidProjection);
    EXPECT_EQ(r.parser.GetProjectionTypeName(), "");
}

// The one Lambert name picks its form from the parameters present.
TEST(PRJParserParse, LambertOneOrTwoParallels) {
    const std::string common = P("False_Easting", "1") + P("False_Northing", "2") +
                               P("Central_Meridian", "3") + P("Latitude_Of_Origin", "46");
    Outcome two = ParseText(Projcs("Lambert_Conformal_Conic",
                                   common + P("Standard_Parallel_1", "44") +
                                       P("Standard_Parallel_2", "49") + P("Scale_Factor", "1")));
    EXPECT_TRUE(two.ok);
    EXPECT_EQ(two.type, CGxMapProjData::eLambert2SP);

    Outcome one =
        ParseText(Projcs("Lambert_Conformal_Conic",
                         common + P("Standard_Parallel_1", "46") + P("Scale_Factor", "0.9998")));
    EXPECT_TRUE(one.ok);
    EXPECT_EQ(one.type, CGxMapProjData::eLambert1SP);
    EXPECT_EQ(one.parser.GetScaleFactor(), 0.9998);

    Outcome neither =
        ParseText(Projcs("Lambert_Conformal_Conic", common + P("Standard_Parallel_1", "46")));
    EXPECT_FALSE(neither.ok);
    EXPECT_EQ(neither.type, CGxMapProjData::eInvalidProjection);

    // The false easting is required before anything is decided.
    Outcome noEasting = ParseText(Projcs(
        "Lambert_Conformal_Conic_2SP",
        P("False_Northing", "2") + P("Central_Meridian", "3") + P("Latitude_Of_Origin", "46") +
            P("Standard_Parallel_1", "44") + P("Standard_Parallel_2", "49")));
    EXPECT_FALSE(noEasting.ok);

    // Named 1SP it needs its scale, whatever else is there.
    Outcome oneNoScale =
        ParseText(Projcs("Lambert_Conformal_Conic_1SP",
                         common + P("Standard_Parallel_1", "44") + P("Standard_Parallel_2", "49")));
    EXPECT_FALSE(oneNoScale.ok);
}

// A grid angle that differs from the azimuth by a relative 2.2e-13 is the
// same angle; a real difference makes the rectified skew orthomorphic form.
TEST(PRJParserParse, HotineGridAngleDecision) {
    struct Case {
        const char* projection;
        const char* azimuth;
        const char* gridAngle;  // null: no grid angle in the text
        Type type;
        double rotation;
    };
    const Case cases[] = {
        {"Hotine_Oblique_Mercator", "45", "45.00000000001", CGxMapProjData::eHotineObliqueMercator,
         45.00000000001},
        {"Hotine_Oblique_Mercator", "45", "0", CGxMapProjData::eRectifiedSkewOrthomorphic, 0},
        {"Hotine_Oblique_Mercator", "45", nullptr, CGxMapProjData::eHotineObliqueMercator, 45},
        {"Hotine_Oblique_Mercator_Azimuth_Center", "45", "45", CGxMapProjData::eObliqueMercator,
         45},
        {"Hotine_Oblique_Mercator_Azimuth_Center", "45", "44.9999",
         CGxMapProjData::eRectifiedSkewOrthomorphic, 44.9999},
        // A NaN azimuth is present, and an angle that cannot be compared
        // leaves the type as named.
        {"Hotine_Oblique_Mercator", "nan", "45", CGxMapProjData::eHotineObliqueMercator, 45},
        {"Hotine_Oblique_Mercator", "45", "inf", CGxMapProjData::eHotineObliqueMercator, INFINITY},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.azimuth) + " / " + (c.gridAngle ? c.gridAngle : "none"));
        std::string params = kHotineBase + P("Azimuth", c.azimuth);
        if (c.gridAngle) params += P("Rectified_Grid_Angle", c.gridAngle);
        Outcome r = ParseText(Projcs(c.projection, params));
        EXPECT_TRUE(r.ok);
        EXPECT_EQ(r.type, c.type);
        EXPECT_EQ(r.parser.GetXYPlaneRotation(), c.rotation);
    }
    // A missing required parameter fails before any decision.
    Outcome r =
        ParseText(Projcs("Hotine_Oblique_Mercator", P("False_Easting", "0") + P("Azimuth", "45") +
                                                        P("Rectified_Grid_Angle", "0")));
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.type, CGxMapProjData::eInvalidProjection);
}

// A three-value TOWGS84 is still read as seven comma-separated fields: the
// missing four come from the text after it, the last being the degree
// factor of the angular unit.
TEST(PRJParserParse, ThreeValueDatumShiftReadsSevenFields) {
    const std::string text =
        "GEOGCS[\"GCS_ED_1950\",DATUM[\"D_European_1950\",SPHEROID[\"International_1924\",6378388."
        "0,"
        "297.0],TOWGS84[-87,-98,-121]],PRIMEM[\"Greenwich\",0],UNIT[\"Degree\",0.0174532925199433]"
        "]";
    Outcome r = ParseText(text);
    ASSERT_TRUE(r.ok);
    CGxDatumShift shift;
    r.parser.GetDatumShift(shift);
    const double expected[7] = {-87, -98, -121, 0, 0, 0, 0.0174532925199433};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(shift[i], expected[i]) << i;
    EXPECT_EQ(shift.GetType(), CGxCartDef::eSevenParameterShift);
}

TEST(PRJParserParse, NaNCountsAsPresent) {
    Outcome r = ParseText(
        Projcs("Mercator_1SP", P("False_Easting", "0") + P("False_Northing", "nan") +
                                   P("Central_Meridian", "0") + P("Scale_Factor", "NaN")));
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.type, CGxMapProjData::eMercator1SP);
    EXPECT_TRUE(std::isnan(r.parser.GetFalseNorthing()));
    EXPECT_TRUE(std::isnan(r.parser.GetScaleFactor()));
    // Only the marker itself is absence, also when written out.
    Outcome unset =
        ParseText(Projcs("Mercator_1SP", P("False_Easting", "0") + P("False_Northing", "-1e-35") +
                                             P("Central_Meridian", "0") + P("Scale_Factor", "1")));
    EXPECT_FALSE(unset.ok);
}

// A PROJCS whose projection is "Geographical" reads no parameters but, being
// projected, needs its linear unit.
TEST(PRJParserParse, GeographicalProjectionNeedsLinearUnit) {
    Outcome r = ParseText(Projcs("Geographical", ""));
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.type, CGxMapProjData::eGeographical);
    std::string noLinearUnit = Projcs("Geographical", "");
    noLinearUnit = noLinearUnit.substr(0, noLinearUnit.rfind(",UNIT")) + "]";
    Outcome missing = ParseText(noLinearUnit);
    EXPECT_FALSE(missing.ok);
    EXPECT_EQ(missing.type, CGxMapProjData::eInvalidProjection);
}

TEST(PRJParserParse, RotatedPoleAndAxes) {
    Outcome r =
        ParseText(Projcs("Rotated_Longitude_Latitude", P("Longitude_Of_South_Pole", "18") +
                                                           P("Latitude_Of_South_Pole", "-39.25") +
                                                           P("Angle_Of_Rotation", "0")));
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.type, CGxMapProjData::eRotatedLongitudeLatitude);
    EXPECT_EQ(r.parser.GetLatitudeOfSouthPole(), -39.25);

    // Axes are taken after PROJECTION, first and second in turn.
    std::string text =
        Projcs("Mercator_1SP", P("False_Easting", "0") + P("False_Northing", "0") +
                                   P("Central_Meridian", "0") + P("Scale_Factor", "1"));
    text.insert(text.size() - 1, ",AXIS[\"southing (X)\",south],AXIS[\"westing (Y)\",west]");
    Outcome axes = ParseText(text);
    EXPECT_TRUE(axes.ok);
    std::string name, direction;
    axes.parser.GetAxisInfo(CGxPRJParser::eFirstAxis, name, direction);
    EXPECT_EQ(name, "southing (X)");
    EXPECT_EQ(direction, "south");
    axes.parser.GetAxisInfo(CGxPRJParser::eSecondAxis, name, direction);
    EXPECT_EQ(name, "westing (Y)");
    EXPECT_EQ(direction, "west");
    // A selector other than 1 or 2 neither reads nor writes.
    axes.parser.SetAxisInfo(static_cast<CGxPRJParser::EAxisType>(3), "x", "x");
    name = "kept";
    axes.parser.GetAxisInfo(static_cast<CGxPRJParser::EAxisType>(0), name, direction);
    EXPECT_EQ(name, "kept");
    axes.parser.GetAxisInfo(CGxPRJParser::eFirstAxis, name, direction);
    EXPECT_EQ(name, "southing (X)");
}

// A text that is not WKT changes nothing; one without an angular unit stops
// after what it read before it.
TEST(PRJParserParse, EarlyFailures) {
    Outcome notWkt = ParseText("UTM-32");
    EXPECT_FALSE(notWkt.ok);
    EXPECT_EQ(notWkt.parser.GetProjCSname(), "");
    EXPECT_EQ(notWkt.type, CGxMapProjData::eInvalidProjection);

    Outcome r = ParseText("GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378137,298]],PRIMEM[\"G\",0]]");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.parser.GetDatum(), "d");
    EXPECT_EQ(r.type, CGxMapProjData::eInvalidProjection);
}

// The readable layout: a new line before each keyword, four spaces for each
// bracket still open.
TEST(PRJParserReadable, ExactLayout) {
    std::string out = "old";
    CGxPRJParser::FormatAsReadableWKT(
        "PROJCS[\"p\",GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",1,2]],PRIMEM[\"G\",0],UNIT[\"D\",0.5]"
        "],"
        "PROJECTION[\"TM\"],UNIT[\"m\",1]]",
        out);
    EXPECT_EQ(out,
              "PROJCS[\"p\",\r\n"
              "    GEOGCS[\"g\",\r\n"
              "        DATUM[\"d\",\r\n"
              "            SPHEROID[\"s\",1,2]],\r\n"
              "        PRIMEM[\"G\",0],\r\n"
              "        UNIT[\"D\",0.5]],\r\n"
              "    PROJECTION[\"TM\"],\r\n"
              "    UNIT[\"m\",1]]");

    // Texts without brackets: the first piece is followed by a bracket.
    CGxPRJParser::FormatAsReadableWKT("", out);
    EXPECT_EQ(out, "[");
    CGxPRJParser::FormatAsReadableWKT("NON-UTM", out);
    EXPECT_EQ(out, "NON-UTM[");
}

// Taking out the inserted line breaks and indents gives back every real text.
TEST(PRJParserReadable, OnlyAddsLineBreaksToRealTexts) {
    const auto removeInserted = [](const std::string& s) {
        std::string plain;
        for (std::size_t i = 0; i < s.size();) {
            if (s.compare(i, 2, "\r\n") == 0) {
                i += 2;
                while (i < s.size() && s[i] == ' ') ++i;
            } else {
                plain += s[i++];
            }
        }
        return plain;
    };
    for (const char* file : {"25832_gdal.prj", "5514_esri.prj", "7415_gdal.prj", "4326_esri.prj",
                             "rdnew_towgs84_gdal.prj"}) {
        SCOPED_TRACE(file);
        std::ifstream in(std::string(GXCART_TEST_DATA) + "/wkt/" + file);
        std::string text;
        std::getline(in, text);
        ASSERT_FALSE(text.empty());
        std::string out;
        CGxPRJParser::FormatAsReadableWKT(text, out);
        EXPECT_NE(out.find("\r\n"), std::string::npos);
        EXPECT_EQ(removeInserted(out), text);
    }
}
