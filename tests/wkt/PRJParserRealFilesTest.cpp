#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/NumberText.h"
#include "foundation/Tolerance.h"
#include "tests/support/TestFiles.h"
#include "wkt/PRJParser.h"

// Real .prj texts of national grids as GIS software writes them, in the ESRI
// and the GDAL flavour of WKT 1. tests/data/wkt/make_prj_files.sh made them
// with PROJ 9.1.1, for example
//   projinfo EPSG:25832 -o WKT1_ESRI --single-line -q
//   projinfo EPSG:25832 -o WKT1_GDAL --single-line -q
// The expected numbers are those printed in the texts; the table of what
// each file must give is tests/data/wkt/expected_parameters.txt.

namespace {

double Number(const std::string& s) {
    return s == "unset" ? kGxUnset : GxParseNumber(s);
}

// The record's parameters by the keys of expected_parameters.txt.
using Getter = double (CGxPRJParser::*)() const;
const std::map<std::string, Getter> kGetters = {
    {"FE", &CGxPRJParser::GetFalseEasting},
    {"FN", &CGxPRJParser::GetFalseNorthing},
    {"CM", &CGxPRJParser::GetCentralMeridian},
    {"SP1", &CGxPRJParser::GetStandardParallel1},
    {"SP2", &CGxPRJParser::GetStandardParallel2},
    {"LAT0", &CGxPRJParser::GetLatitudeOfOrigin},
    {"LONC", &CGxPRJParser::GetLongitudeOfCenter},
    {"LATC", &CGxPRJParser::GetLatitudeOfCenter},
    {"AZ", &CGxPRJParser::GetAzimuth},
    {"XYROT", &CGxPRJParser::GetXYPlaneRotation},
    {"K", &CGxPRJParser::GetScaleFactor},
    {"LONSP", &CGxPRJParser::GetLongitudeOfSouthPole},
    {"LATSP", &CGxPRJParser::GetLatitudeOfSouthPole},
    {"ROT", &CGxPRJParser::GetAngleOfRotation},
    {"PSP", &CGxPRJParser::GetPseudoParallel},
    {"XS", &CGxPRJParser::GetXScale},
    {"YS", &CGxPRJParser::GetYScale},
};

}  // namespace

// Each text against its line of expected_parameters.txt: outcome, type,
// projection name, linear unit and every parameter slot, so that a value read
// into the wrong slot shows up as well as a missing one.
TEST(PRJParserRealFiles, TypeParametersAndUnit) {
    int rows = 0;
    for (const std::vector<std::string>& field : GxExpectedParameterRows()) {
        SCOPED_TRACE(field[0]);
        ++rows;

        const std::string text = GxReadPrj(field[0]);
        ASSERT_FALSE(text.empty()) << "missing test file";
        EXPECT_NE(CGxPRJParser::IsPRJ(text), 0);
        CGxPRJParser parser(text);
        EXPECT_EQ(parser.Parse(false), field[1] == "true");
        EXPECT_EQ(parser.GetProjectionType(), std::stoi(field[2]));
        EXPECT_EQ(parser.GetProjectionTypeName(), field[3]);
        std::string unit;
        double factor = 0;
        parser.GetProjUnit(unit, factor);
        EXPECT_EQ(unit, field[4]);
        EXPECT_EQ(factor, Number(field[5]));

        std::map<std::string, double> expected;
        std::istringstream pairs(field[6]);
        for (std::string pair; pairs >> pair;) {
            const std::size_t eq = pair.find('=');
            ASSERT_NE(eq, std::string::npos) << pair;
            ASSERT_EQ(kGetters.count(pair.substr(0, eq)), 1u) << pair;
            expected[pair.substr(0, eq)] = Number(pair.substr(eq + 1));
        }
        for (const auto& getter : kGetters) {
            const auto it = expected.find(getter.first);
            EXPECT_EQ((parser.*getter.second)(), it == expected.end() ? kGxUnset : it->second)
                << getter.first;
        }
    }
    EXPECT_EQ(rows, 87);
}

// The names and numbers of the geographic part, from both flavours of the
// same grid; GDAL's AUTHORITY clauses after a value must not leak into it.
TEST(PRJParserRealFiles, GeographicPartAndAxes) {
    struct Names {
        const char* file;
        const char* projCS;
        const char* geoCS;
        const char* datum;
        const char* spheroid;
        const char* angularUnit;
        const char* axis1;
        const char* axis2;
    };
    const Names cases[] = {
        {"25832_esri.prj", "ETRS_1989_UTM_Zone_32N", "GCS_ETRS_1989", "D_ETRS_1989", "GRS_1980",
         "Degree", "Easting", "Northing"},
        {"25832_gdal.prj", "ETRS89 / UTM zone 32N", "ETRS89",
         "European_Terrestrial_Reference_System_1989", "GRS 1980", "degree", "Easting", "Northing"},
        {"4326_gdal.prj", "WGS 84", "WGS 84", "WGS_1984", "WGS 84", "degree", "Longitude",
         "Latitude"},
    };
    for (const Names& c : cases) {
        SCOPED_TRACE(c.file);
        CGxPRJParser parser(GxReadPrj(c.file));
        ASSERT_TRUE(parser.Parse(false));
        EXPECT_EQ(parser.GetProjCSname(), c.projCS);
        EXPECT_EQ(parser.GetGeoCSname(), c.geoCS);
        EXPECT_EQ(parser.GetDatum(), c.datum);
        std::string name, direction;
        double a = 0, rf = 0, value = 1;
        parser.GetEllipsoid(name, a, rf);
        EXPECT_EQ(name, c.spheroid);
        EXPECT_EQ(a, 6378137.0);
        EXPECT_EQ(rf, c.spheroid[0] == 'W' ? 298.257223563 : 298.257222101);
        parser.GetPrimeMeridian(name, value);
        EXPECT_EQ(name, "Greenwich");
        EXPECT_EQ(value, 0.0);
        parser.GetAngularUnit(name, value);
        EXPECT_EQ(name, c.angularUnit);
        EXPECT_EQ(value, 0.0174532925199433);
        parser.GetAxisInfo(CGxPRJParser::eFirstAxis, name, direction);
        EXPECT_EQ(name, c.axis1);
        EXPECT_EQ(direction, "EAST");
        parser.GetAxisInfo(CGxPRJParser::eSecondAxis, name, direction);
        EXPECT_EQ(name, c.axis2);
        EXPECT_EQ(direction, "NORTH");
        CGxDatumShift shift;
        parser.GetDatumShift(shift);
        EXPECT_EQ(shift.GetType(), CGxCartDef::eNoDatumShift);
    }
}

// NTF (Paris): angles in grads from the Paris meridian. Nothing is converted;
// the prime meridian keeps the value as written (ESRI and GDAL both give it
// in degrees although the unit is the grad).
TEST(PRJParserRealFiles, ParisMeridianAndGrads) {
    for (const char* file : {"27572_esri.prj", "27572_gdal.prj", "4807_gdal.prj"}) {
        SCOPED_TRACE(file);
        CGxPRJParser parser(GxReadPrj(file));
        ASSERT_TRUE(parser.Parse(false));
        std::string name;
        double value = 0;
        parser.GetPrimeMeridian(name, value);
        EXPECT_EQ(name, "Paris");
        EXPECT_EQ(value, 2.33722917);
        parser.GetAngularUnit(name, value);
        EXPECT_TRUE(name == "Grad" || name == "grad") << name;
        EXPECT_EQ(value, 0.0157079632679489);
    }
}

// The compound system's own name is the display name; the geographic name,
// the linear unit and the axes come from the horizontal part.
TEST(PRJParserRealFiles, CompoundSystem) {
    const std::string text = GxReadPrj("7415_gdal.prj");
    EXPECT_EQ(CGxPRJParser::ShortName(text), "Amersfoort / RD New + NAP height");
    CGxPRJParser parser(text);
    ASSERT_TRUE(parser.Parse(false));
    EXPECT_EQ(parser.GetProjCSname(), "Amersfoort / RD New + NAP height");
    EXPECT_EQ(parser.GetGeoCSname(), "Amersfoort");
    std::string name, direction;
    parser.GetAxisInfo(CGxPRJParser::eSecondAxis, name, direction);
    EXPECT_EQ(name, "Northing");
    EXPECT_EQ(direction, "NORTH");
}

// TOWGS84 as GDAL writes it for a bound system: seven values for RD New, a
// translation padded with zeros for ED50.
TEST(PRJParserRealFiles, DatumShiftToWgs84) {
    struct Shift {
        const char* file;
        CGxCartDef::ETypeOfDatumShift type;
        double values[7];
    };
    const Shift cases[] = {
        {"rdnew_towgs84_gdal.prj",
         CGxCartDef::eSevenParameterShift,
         {565.417, 50.3319, 465.552, -0.398957, 0.343988, -1.8774, 4.0725}},
        {"ed50_utm32_towgs84_gdal.prj",
         CGxCartDef::eThreeParameterShift,
         {-87, -98, -121, 0, 0, 0, 0}},
    };
    for (const Shift& c : cases) {
        SCOPED_TRACE(c.file);
        CGxPRJParser parser(GxReadPrj(c.file));
        ASSERT_TRUE(parser.Parse(false));
        CGxDatumShift shift;
        parser.GetDatumShift(shift);
        EXPECT_EQ(shift.GetType(), c.type);
        for (int i = 0; i < 7; ++i) EXPECT_EQ(shift[i], c.values[i]) << i;
    }
}

// Sorting the parallels touches the two-parallel conics only. NTF Lambert II
// comes in as "Lambert_Conformal_Conic" with a single parallel and becomes
// the one-parallel form before sorting: its unset second parallel must not
// be sorted in front of the first.
TEST(PRJParserRealFiles, SortedParallels) {
    struct Sorted {
        const char* file;
        double first;
        double second;
    };
    const Sorted cases[] = {
        {"2154_esri.prj", 44, 49},
        {"3577_gdal.prj", -36, -18},
        {"5070_esri.prj", 29.5, 45.5},
        {"27572_esri.prj", 52, kGxUnset},
    };
    for (const Sorted& c : cases) {
        SCOPED_TRACE(c.file);
        CGxPRJParser parser(GxReadPrj(c.file));
        ASSERT_TRUE(parser.Parse(true));
        EXPECT_EQ(parser.GetStandardParallel1(), c.first);
        EXPECT_EQ(parser.GetStandardParallel2(), c.second);
    }
}
