// The WKT writer: the exact element text, the parameter list of every type,
// numbers independent of the process locale, the caller's buffer, and real
// .prj texts written back after reading.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Tolerance.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/TestFiles.h"
#include "wkt/PRJParser.h"

namespace {

using EType = CGxMapProjData::EProjectionType;

std::string Written(const CGxPRJParser& parser) {
    std::string out;
    EXPECT_TRUE(parser.Format(out));
    return out;
}

// The UTM zone 32 grid on WGS 84 as a definition: FE 500000, FN 0, CM 9,
// scale 0.9996, latitude of origin 0.
CGxTransverseMercatorProjection Zone32() {
    return CGxTransverseMercatorProjection("WGS 84 / UTM zone 32N", "UTM Projections", "WE", 0.9996,
                                           9, 0, 500000, 0);
}

const char* const kZone32Text =
    "PROJCS[\"WGS 84 / UTM zone 32N\",GEOGCS[\"Unused\",DATUM[\"UTM Projections\","
    "SPHEROID[\"WGS 84\",6378137,298.257223563]],PRIMEM[\"Greenwich\",0],"
    "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
    "PARAMETER[\"False_Easting\",500000],PARAMETER[\"False_Northing\",0],"
    "PARAMETER[\"Central_Meridian\",9],PARAMETER[\"Scale_Factor\",0.9996],"
    "PARAMETER[\"Latitude_Of_Origin\",0],UNIT[\"Meter\",1]]";

// The PARAMETER names of a written text, in order.
std::vector<std::string> ParameterNames(const std::string& text) {
    std::vector<std::string> names;
    const std::string key = "PARAMETER[\"";
    for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key, at)) {
        at += key.size();
        names.push_back(text.substr(at, text.find('"', at) - at));
    }
    return names;
}

}  // namespace

TEST(WktWriter, TransverseMercatorDefinitionText) {
    CGxTransverseMercatorProjection definition = Zone32();
    CGxPRJParser parser(&definition);
    EXPECT_EQ(Written(parser), kZone32Text);
}

TEST(WktWriter, UnsetValuesArePrintedAsTheMarker) {
    // A record nobody filled but for its type: the writer checks nothing and
    // prints what it holds, the unset marker included.
    CGxPRJParser parser("");
    parser.SetProjectionType(CGxMapProjData::eMercator1SP);
    parser.SetProjectionTypeName("Mercator_1SP");
    parser.SetFalseEasting(0.0);
    EXPECT_EQ(Written(parser),
              "PROJCS[\"\",GEOGCS[\"\",DATUM[\"\",SPHEROID[\"\",-1e-35,-1e-35]],"
              "PRIMEM[\"\",-1e-35],UNIT[\"\",-1e-35]],PROJECTION[\"Mercator_1SP\"],"
              "PARAMETER[\"False_Easting\",0],PARAMETER[\"False_Northing\",-1e-35],"
              "PARAMETER[\"Central_Meridian\",-1e-35],PARAMETER[\"Scale_Factor\",-1e-35],"
              "UNIT[\"\",-1e-35]]");
}

TEST(WktWriter, ReadTextLosesDatumShiftAndAxesOnly) {
    // A GDAL text with TOWGS84 and AXIS elements, read and written back.
    CGxPRJParser parser(GxReadPrj("ed50_utm32_towgs84_gdal.prj"));
    ASSERT_TRUE(parser.Parse(true));
    const std::string text = Written(parser);
    EXPECT_EQ(
        text,
        "PROJCS[\"unknown\",GEOGCS[\"unknown\",DATUM[\"Unknown based on International 1924 "
        "(Hayford 1909, 1910) ellipsoid using towgs84=-87,-98,-121\",SPHEROID[\"International "
        "1924 (Hayford 1909, 1910)\",6378388,297]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\","
        "0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"False_"
        "Easting\",500000],PARAMETER[\"False_Northing\",0],PARAMETER[\"Central_Meridian\",9],"
        "PARAMETER[\"Scale_Factor\",0.9996],PARAMETER[\"Latitude_Of_Origin\",0],UNIT["
        "\"metre\",1]]");
    EXPECT_EQ(text.find("TOWGS84"), std::string::npos);
    EXPECT_EQ(text.find("AXIS"), std::string::npos);
}

TEST(WktWriter, CommaLocaleStillWritesPoints) {
    gxtest::CommaLocale comma;
    if (!comma.active()) GTEST_SKIP() << comma.reason();
    CGxTransverseMercatorProjection definition = Zone32();
    CGxPRJParser parser(&definition);
    EXPECT_EQ(Written(parser), kZone32Text);
}

TEST(WktWriter, BufferTakesTheTextOnlyWithItsTerminator) {
    CGxTransverseMercatorProjection definition = Zone32();
    const CGxPRJParser parser(&definition);
    const int length = static_cast<int>(std::strlen(kZone32Text));
    std::vector<char> buffer(length + 8, 'x');

    // No room for the terminator: refused, the buffer untouched.
    EXPECT_FALSE(parser.Format(buffer.data(), length - 1));
    EXPECT_FALSE(parser.Format(buffer.data(), length));
    EXPECT_EQ(std::string(buffer.begin(), buffer.end()), std::string(length + 8, 'x'));

    ASSERT_TRUE(parser.Format(buffer.data(), length + 1));
    EXPECT_STREQ(buffer.data(), kZone32Text);
    EXPECT_EQ(buffer[length + 1], 'x');  // nothing written past the terminator

    EXPECT_FALSE(parser.Format(nullptr, 4096));
    EXPECT_FALSE(parser.Format(buffer.data(), 0));
    EXPECT_FALSE(parser.Format(buffer.data(), -1));
}

TEST(WktWriter, TypeWithoutParameterListStopsAfterProjection) {
    // Undefined and out-of-range types: the text up to PROJECTION and false.
    // The buffer form answers only whether the text fits.
    for (int type : {0, 22, 24, -5}) {
        CGxTransverseMercatorProjection definition = Zone32();
        CGxPRJParser parser(&definition);
        parser.SetProjectionType(static_cast<EType>(type));
        std::string out;
        EXPECT_FALSE(parser.Format(out)) << type;
        const std::string head(kZone32Text, std::strstr(kZone32Text, "PARAMETER"));
        EXPECT_EQ(out, head) << type;
        char buffer[1024];
        EXPECT_TRUE(parser.Format(buffer, sizeof buffer)) << type;
        EXPECT_EQ(buffer, head) << type;
    }
}

TEST(WktWriter, ParameterNamesAndOrderOfEveryType) {
    // The element list of each type as other WKT readers expect it.
    const std::vector<std::string> tm = {"False_Easting", "False_Northing", "Central_Meridian",
                                         "Scale_Factor", "Latitude_Of_Origin"};
    const std::vector<std::string> cone = {"False_Easting",       "False_Northing",
                                           "Central_Meridian",    "Standard_Parallel_1",
                                           "Standard_Parallel_2", "Latitude_Of_Origin"};
    const std::vector<std::string> hotine = {"False_Easting",       "False_Northing",
                                             "Scale_Factor",        "Azimuth",
                                             "Longitude_Of_Center", "Latitude_Of_Center"};
    const std::vector<std::string> oneParallel = {"False_Easting", "False_Northing",
                                                  "Central_Meridian", "Standard_Parallel_1"};
    const std::vector<std::string> origin = {"False_Easting", "False_Northing", "Central_Meridian",
                                             "Latitude_Of_Origin"};
    const struct {
        int type;
        std::vector<std::string> names;
    } kCases[] = {
        {1, tm},
        {2, cone},
        {3, tm},
        {4, tm},
        {5, {"False_Easting", "False_Northing", "Longitude_Of_Origin", "Latitude_Of_Origin"}},
        {6, hotine},
        {7, hotine},
        {8,
         {"False_Easting", "False_Northing", "Scale_Factor", "Azimuth", "Longitude_Of_Center",
          "Latitude_Of_Center", "XY_Plane_Rotation"}},
        {9, {"Longitude_Of_South_Pole", "Latitude_Of_South_Pole", "Angle_Of_Rotation"}},
        {10, oneParallel},
        {11, {"False_Easting", "False_Northing", "Central_Meridian", "Scale_Factor"}},
        {12, oneParallel},
        {13, oneParallel},
        {14, {}},
        {15,
         {"False_Easting", "False_Northing", "Pseudo_Standard_Parallel_1", "Scale_Factor",
          "Azimuth", "Longitude_Of_Center", "Latitude_Of_Center", "X_Scale", "Y_Scale",
          "XY_Plane_Rotation"}},
        {16, cone},
        {17, origin},
        {18, origin},
        {19, cone},
        {20, tm},
        {21, tm},
    };
    for (const auto& c : kCases) {
        CGxPRJParser parser("");
        parser.SetProjectionType(static_cast<EType>(c.type));
        EXPECT_EQ(ParameterNames(Written(parser)), c.names) << "type " << c.type;
    }
}

TEST(WktWriter, RealTextsReadBackAfterWriting) {
    // Every real text the reader accepts (tests/data/wkt/expected_parameters.txt),
    // written and read again, gives the same system: names, spheroid, unit and
    // the parameters of its type. A Hotine text that its
    // grid angle made rectified skew orthomorphic is left out: it keeps its
    // Hotine name, under which the written rotation is not read again.
    std::vector<std::string> files;
    for (const std::vector<std::string>& row : GxExpectedParameterRows()) {
        if (row[1] != "true") continue;
        if (std::stoi(row[2]) == CGxMapProjData::eRectifiedSkewOrthomorphic) continue;
        files.push_back(row[0]);
    }
    ASSERT_GE(files.size(), 40u);

    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        CGxPRJParser first(GxReadPrj(file));
        ASSERT_TRUE(first.Parse(false));
        std::string text;
        if (first.GetProjectionType() == CGxMapProjData::eGeographical) {
            // A GEOGCS text is written as a PROJCS of the "Geographical"
            // type, which needs a linear unit the text never had.
            first.SetProjectionTypeName("Geographical");
            first.SetProjUnit("Degree", 1.0);
        }
        ASSERT_TRUE(first.Format(text));
        CGxPRJParser second(text);
        ASSERT_TRUE(second.Parse(false)) << text;
        EXPECT_EQ(second.GetProjectionType(), first.GetProjectionType());
        EXPECT_EQ(second.GetProjectionTypeName(), first.GetProjectionTypeName());
        EXPECT_EQ(second.GetProjCSname(), first.GetProjCSname());
        EXPECT_EQ(second.GetDatum(), first.GetDatum());
        std::string n1, n2;
        double a1, a2, f1, f2;
        first.GetEllipsoid(n1, a1, f1);
        second.GetEllipsoid(n2, a2, f2);
        EXPECT_EQ(n2, n1);
        EXPECT_DOUBLE_EQ(a2, a1);
        EXPECT_DOUBLE_EQ(f2, f1);
        first.GetProjUnit(n1, a1);
        second.GetProjUnit(n2, a2);
        EXPECT_EQ(n2, n1);
        EXPECT_DOUBLE_EQ(a2, a1);
        // The parameters of the type, as the definition built from each
        // record lists them.
        ASSERT_EQ(second.GetNoOfParameters(), first.GetNoOfParameters());
        for (int i = 0; i < first.GetNoOfParameters(); ++i) {
            std::string label1, label2, unit1, unit2;
            double v1 = 0, v2 = 0, u1 = 0, u2 = 0;
            ASSERT_EQ(first.GetParameter(i, label1, v1, unit1, u1), 1);
            ASSERT_EQ(second.GetParameter(i, label2, v2, unit2, u2), 1);
            EXPECT_EQ(label2, label1);
            EXPECT_DOUBLE_EQ(v2, v1) << label1;
        }
    }
}

TEST(WktWriter, DatumName) {
    EXPECT_EQ(CGxPRJParser::DatumName(GxReadPrj("2154_gdal.prj")),
              "Reseau_Geodesique_Francais_1993_v1");
    EXPECT_EQ(CGxPRJParser::DatumName(kZone32Text), "UTM Projections");
    EXPECT_EQ(CGxPRJParser::DatumName("GEOGCS[\"x\",PRIMEM[\"Greenwich\",0]]"), "");
    EXPECT_EQ(CGxPRJParser::DatumName(""), "");
}
