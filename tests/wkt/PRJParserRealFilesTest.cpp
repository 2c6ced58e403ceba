#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "foundation/Tolerance.h"
#include "wkt/PRJParser.h"

// Real .prj texts of national grids as GIS software writes them, in the ESRI
// and the GDAL flavour of WKT 1. tests/data/wkt/make_prj_files.sh made them
// with PROJ 9.1.1, for example
//   projinfo EPSG:25832 -o WKT1_ESRI --single-line -q
//   projinfo EPSG:25832 -o WKT1_GDAL --single-line -q
// The expected numbers are those printed in the texts.

namespace {

using Type = CGxMapProjData::EProjectionType;
using Getter = double (CGxPRJParser::*)() const;

std::string ReadPrj(const std::string& file) {
    std::ifstream in(std::string(GXCART_TEST_DATA) + "/wkt/" + file);
    std::string line;
    std::getline(in, line);
    return line;
}

// Every projection parameter of the record, so that a value read into the
// wrong slot shows up as an unexpected one.
enum Slot { FE, FN, CM, SP1, SP2, LAT0, LONC, LATC, AZ, XYROT, K, LONSP, LATSP, ROT, PSP, XS, YS };
const std::pair<const char*, Getter> kGetters[] = {
    {"false easting", &CGxPRJParser::GetFalseEasting},
    {"false northing", &CGxPRJParser::GetFalseNorthing},
    {"central meridian", &CGxPRJParser::GetCentralMeridian},
    {"standard parallel 1", &CGxPRJParser::GetStandardParallel1},
    {"standard parallel 2", &CGxPRJParser::GetStandardParallel2},
    {"latitude of origin", &CGxPRJParser::GetLatitudeOfOrigin},
    {"longitude of center", &CGxPRJParser::GetLongitudeOfCenter},
    {"latitude of center", &CGxPRJParser::GetLatitudeOfCenter},
    {"azimuth", &CGxPRJParser::GetAzimuth},
    {"XY-plane rotation", &CGxPRJParser::GetXYPlaneRotation},
    {"scale factor", &CGxPRJParser::GetScaleFactor},
    {"longitude of south pole", &CGxPRJParser::GetLongitudeOfSouthPole},
    {"latitude of south pole", &CGxPRJParser::GetLatitudeOfSouthPole},
    {"angle of rotation", &CGxPRJParser::GetAngleOfRotation},
    {"pseudo standard parallel", &CGxPRJParser::GetPseudoParallel},
    {"X scale", &CGxPRJParser::GetXScale},
    {"Y scale", &CGxPRJParser::GetYScale},
};

struct Case {
    const char* file;
    bool parses;
    Type type;
    const char* typeName;  // PROJECTION name as written; empty when rejected before it is kept
    const char* unit;      // linear unit
    double unitFactor;
    std::vector<std::pair<Slot, double>> parameters;  // every other slot stays unset
};

// Parsed without sorting the parallels: values stay where the text puts them.
const Case kCases[] = {
    // Transverse Mercator, and the south-orientated grids read as plain TM.
    {"25832_esri.prj", true, CGxMapProjData::eTransverseMercator, "Transverse_Mercator", "Meter", 1,
     {{FE, 500000}, {FN, 0}, {CM, 9}, {K, 0.9996}, {LAT0, 0}}},
    {"25832_gdal.prj", true, CGxMapProjData::eTransverseMercator, "Transverse_Mercator", "metre", 1,
     {{FE, 500000}, {FN, 0}, {CM, 9}, {K, 0.9996}, {LAT0, 0}}},
    {"2053_esri.prj", true, CGxMapProjData::eTransverseMercator,
     "Transverse_Mercator_South_Orientated", "Meter", 1,
     {{FE, 0}, {FN, 0}, {CM, 29}, {K, 1}, {LAT0, 0}}},
    {"2053_gdal.prj", true, CGxMapProjData::eTransverseMercator,
     "Transverse_Mercator_South_Orientated", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, 29}, {K, 1}, {LAT0, 0}}},
    {"22275_esri.prj", true, CGxMapProjData::eTransverseMercator,
     "Transverse_Mercator_South_Orientated", "Meter", 1,
     {{FE, 0}, {FN, 0}, {CM, 15}, {K, 1}, {LAT0, 0}}},
    {"22275_gdal.prj", true, CGxMapProjData::eTransverseMercator,
     "Transverse_Mercator_South_Orientated", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, 15}, {K, 1}, {LAT0, 0}}},
    // Lambert conic: ESRI's one name for both forms is decided by the
    // parameters; NTF Lambert II has a scale factor and one parallel.
    {"2154_esri.prj", true, CGxMapProjData::eLambert2SP, "Lambert_Conformal_Conic", "Meter", 1,
     {{FE, 700000}, {FN, 6600000}, {CM, 3}, {SP1, 49}, {SP2, 44}, {LAT0, 46.5}}},
    {"2154_gdal.prj", true, CGxMapProjData::eLambert2SP, "Lambert_Conformal_Conic_2SP", "metre", 1,
     {{FE, 700000}, {FN, 6600000}, {CM, 3}, {SP1, 49}, {SP2, 44}, {LAT0, 46.5}}},
    {"31370_esri.prj", true, CGxMapProjData::eLambert2SP, "Lambert_Conformal_Conic", "Meter", 1,
     {{FE, 150000.013}, {FN, 5400088.438}, {CM, 4.36748666666667}, {SP1, 51.1666672333333},
      {SP2, 49.8333339}, {LAT0, 90}}},
    {"31370_gdal.prj", true, CGxMapProjData::eLambert2SP, "Lambert_Conformal_Conic_2SP", "metre", 1,
     {{FE, 150000.013}, {FN, 5400088.438}, {CM, 4.36748666666667}, {SP1, 51.1666672333333},
      {SP2, 49.8333339}, {LAT0, 90}}},
    {"2263_esri.prj", true, CGxMapProjData::eLambert2SP, "Lambert_Conformal_Conic",
     "US survey foot", 0.304800609601219,
     {{FE, 984250}, {FN, 0}, {CM, -74}, {SP1, 41.0333333333333}, {SP2, 40.6666666666667},
      {LAT0, 40.1666666666667}}},
    {"2263_gdal.prj", true, CGxMapProjData::eLambert2SP, "Lambert_Conformal_Conic_2SP",
     "US survey foot", 0.304800609601219,
     {{FE, 984250}, {FN, 0}, {CM, -74}, {SP1, 41.0333333333333}, {SP2, 40.6666666666667},
      {LAT0, 40.1666666666667}}},
    {"27572_esri.prj", true, CGxMapProjData::eLambert1SP, "Lambert_Conformal_Conic", "Meter", 1,
     {{FE, 600000}, {FN, 2200000}, {CM, 0}, {SP1, 52}, {K, 0.99987742}, {LAT0, 52}}},
    {"27572_gdal.prj", true, CGxMapProjData::eLambert1SP, "Lambert_Conformal_Conic_1SP", "metre", 1,
     {{FE, 600000}, {FN, 2200000}, {CM, 0}, {K, 0.99987742}, {LAT0, 52}}},
    // The Belgian 1972 variant of the Lambert conic is not one of ours.
    {"31300_esri.prj", false, CGxMapProjData::eInvalidProjection, "", "", kGxUnset, {}},
    {"31300_gdal.prj", false, CGxMapProjData::eInvalidProjection, "", "", kGxUnset, {}},
    // Oblique (double) stereographic.
    {"28992_esri.prj", true, CGxMapProjData::eStereographic, "Double_Stereographic", "Meter", 1,
     {{FE, 155000}, {FN, 463000}, {CM, 5.38763888888889}, {K, 0.9999079}, {LAT0, 52.1561605555556}}},
    {"28992_gdal.prj", true, CGxMapProjData::eStereographic, "Oblique_Stereographic", "metre", 1,
     {{FE, 155000}, {FN, 463000}, {CM, 5.38763888888889}, {K, 0.9999079}, {LAT0, 52.1561605555556}}},
    {"31700_esri.prj", true, CGxMapProjData::eStereographic, "Double_Stereographic", "Meter", 1,
     {{FE, 500000}, {FN, 500000}, {CM, 25}, {K, 0.99975}, {LAT0, 46}}},
    {"31700_gdal.prj", true, CGxMapProjData::eStereographic, "Oblique_Stereographic", "metre", 1,
     {{FE, 500000}, {FN, 500000}, {CM, 25}, {K, 0.99975}, {LAT0, 46}}},
    // New Zealand map grid: ESRI's Longitude_Of_Origin and GDAL's
    // central_meridian land in the same place.
    {"27200_esri.prj", true, CGxMapProjData::eNewZealandMapGrid, "New_Zealand_Map_Grid", "Meter", 1,
     {{FE, 2510000}, {FN, 6023150}, {CM, 173}, {LAT0, -41}}},
    {"27200_gdal.prj", true, CGxMapProjData::eNewZealandMapGrid, "New_Zealand_Map_Grid", "metre", 1,
     {{FE, 2510000}, {FN, 6023150}, {CM, 173}, {LAT0, -41}}},
    // Hotine oblique Mercator: without a rectified grid angle the rotation
    // is the azimuth; GDAL writes it equal to the azimuth for Alaska and
    // Switzerland and different for Borneo, which makes the latter a
    // rectified skew orthomorphic grid. ESRI's name for Borneo is not one
    // of ours.
    {"26931_esri.prj", true, CGxMapProjData::eHotineObliqueMercator,
     "Hotine_Oblique_Mercator_Azimuth_Natural_Origin", "Meter", 1,
     {{FE, 5000000}, {FN, -5000000}, {K, 0.9999}, {AZ, -36.8698976388889},
      {XYROT, -36.8698976388889}, {LONC, -133.666666666667}, {LATC, 57}}},
    {"26931_gdal.prj", true, CGxMapProjData::eHotineObliqueMercator, "Hotine_Oblique_Mercator",
     "metre", 1,
     {{FE, 5000000}, {FN, -5000000}, {K, 0.9999}, {AZ, 323.130102361111},
      {XYROT, 323.130102361111}, {LONC, -133.666666666667}, {LATC, 57}}},
    {"2056_esri.prj", true, CGxMapProjData::eObliqueMercator,
     "Hotine_Oblique_Mercator_Azimuth_Center", "Meter", 1,
     {{FE, 2600000}, {FN, 1200000}, {K, 1}, {AZ, 90}, {XYROT, 90}, {LONC, 7.43958333333333},
      {LATC, 46.9524055555556}}},
    {"2056_gdal.prj", true, CGxMapProjData::eObliqueMercator,
     "Hotine_Oblique_Mercator_Azimuth_Center", "metre", 1,
     {{FE, 2600000}, {FN, 1200000}, {K, 1}, {AZ, 90}, {XYROT, 90}, {LONC, 7.43958333333333},
      {LATC, 46.9524055555556}}},
    {"29873_esri.prj", false, CGxMapProjData::eInvalidProjection, "", "", kGxUnset, {}},
    {"29873_gdal.prj", true, CGxMapProjData::eRectifiedSkewOrthomorphic,
     "Hotine_Oblique_Mercator_Azimuth_Center", "metre", 1,
     {{FE, 590476.87}, {FN, 442857.65}, {K, 0.99984}, {AZ, 53.3158204722222},
      {XYROT, 53.1301023611111}, {LONC, 115}, {LATC, 4}}},
    // Mercator: ESRI's "Mercator" is the standard-parallel form; the web
    // Mercator's auxiliary sphere is not one of ours, while GDAL writes that
    // grid as a plain Mercator_1SP.
    {"3395_esri.prj", true, CGxMapProjData::eMercator2SP, "Mercator", "Meter", 1,
     {{FE, 0}, {FN, 0}, {CM, 0}, {SP1, 0}}},
    {"3395_gdal.prj", true, CGxMapProjData::eMercator1SP, "Mercator_1SP", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, 0}, {K, 1}}},
    {"3994_esri.prj", true, CGxMapProjData::eMercator2SP, "Mercator", "Meter", 1,
     {{FE, 0}, {FN, 0}, {CM, 100}, {SP1, -41}}},
    {"3994_gdal.prj", true, CGxMapProjData::eMercator2SP, "Mercator_2SP", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, 100}, {SP1, -41}}},
    {"3857_esri.prj", false, CGxMapProjData::eInvalidProjection, "", "", kGxUnset, {}},
    {"3857_gdal.prj", true, CGxMapProjData::eMercator1SP, "Mercator_1SP", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, 0}, {K, 1}}},
    // Polar stereographic. GDAL writes the standard-parallel variant as
    // Polar_Stereographic without a scale factor, which that type needs: the
    // text is refused, with its parameters and unit still read.
    {"3031_esri.prj", true, CGxMapProjData::eStereographicSouthPole, "Stereographic_South_Pole",
     "Meter", 1, {{FE, 0}, {FN, 0}, {CM, 0}, {SP1, -71}}},
    {"3031_gdal.prj", false, CGxMapProjData::eInvalidProjection, "Polar_Stereographic", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, 0}, {LAT0, -71}}},
    {"3413_esri.prj", true, CGxMapProjData::eStereographicNorthPole, "Stereographic_North_Pole",
     "Meter", 1, {{FE, 0}, {FN, 0}, {CM, -45}, {SP1, 70}}},
    {"3413_gdal.prj", false, CGxMapProjData::eInvalidProjection, "Polar_Stereographic", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, -45}, {LAT0, 70}}},
    {"32661_esri.prj", true, CGxMapProjData::ePolarStereographic, "Polar_Stereographic", "Meter", 1,
     {{FE, 2000000}, {FN, 2000000}, {CM, 0}, {K, 0.994}, {LAT0, 90}}},
    {"32661_gdal.prj", true, CGxMapProjData::ePolarStereographic, "Polar_Stereographic", "metre", 1,
     {{FE, 2000000}, {FN, 2000000}, {CM, 0}, {K, 0.994}, {LAT0, 90}}},
    // Krovak: GDAL leaves out the axis scales and the plane rotation of the
    // east-north grid, which then take their neutral values.
    {"5514_esri.prj", true, CGxMapProjData::eKrovak, "Krovak", "Meter", 1,
     {{FE, 0}, {FN, 0}, {PSP, 78.5}, {K, 0.9999}, {AZ, 30.28813975277778},
      {LONC, 24.83333333333333}, {LATC, 49.5}, {XS, -1}, {YS, 1}, {XYROT, 90}}},
    {"5514_gdal.prj", true, CGxMapProjData::eKrovak, "Krovak", "metre", 1,
     {{FE, 0}, {FN, 0}, {PSP, 78.5}, {K, 0.9999}, {AZ, 30.2881397527778},
      {LONC, 24.8333333333333}, {LATC, 49.5}, {XS, 1}, {YS, 1}, {XYROT, 0}}},
    // Albers and equidistant conic: GDAL's centre names stand for the
    // central meridian and the latitude of origin.
    {"5070_esri.prj", true, CGxMapProjData::eAlbersEqualArea, "Albers", "Meter", 1,
     {{FE, 0}, {FN, 0}, {CM, -96}, {SP1, 29.5}, {SP2, 45.5}, {LAT0, 23}}},
    {"5070_gdal.prj", true, CGxMapProjData::eAlbersEqualArea, "Albers_Conic_Equal_Area", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, -96}, {SP1, 29.5}, {SP2, 45.5}, {LAT0, 23}}},
    {"3577_esri.prj", true, CGxMapProjData::eAlbersEqualArea, "Albers", "Meter", 1,
     {{FE, 0}, {FN, 0}, {CM, 132}, {SP1, -18}, {SP2, -36}, {LAT0, 0}}},
    {"3577_gdal.prj", true, CGxMapProjData::eAlbersEqualArea, "Albers_Conic_Equal_Area", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, 132}, {SP1, -18}, {SP2, -36}, {LAT0, 0}}},
    {"eqdc_esri.prj", true, CGxMapProjData::eEquidistantConic, "Equidistant_Conic", "Meter", 1,
     {{FE, 0}, {FN, 0}, {CM, -96}, {SP1, 20}, {SP2, 60}, {LAT0, 40}}},
    {"eqdc_gdal.prj", true, CGxMapProjData::eEquidistantConic, "Equidistant_Conic", "metre", 1,
     {{FE, 0}, {FN, 0}, {CM, -96}, {SP1, 20}, {SP2, 60}, {LAT0, 40}}},
    {"3035_esri.prj", true, CGxMapProjData::eLambertAzimuthalEqualArea,
     "Lambert_Azimuthal_Equal_Area", "Meter", 1,
     {{FE, 4321000}, {FN, 3210000}, {CM, 10}, {LAT0, 52}}},
    {"3035_gdal.prj", true, CGxMapProjData::eLambertAzimuthalEqualArea,
     "Lambert_Azimuthal_Equal_Area", "metre", 1,
     {{FE, 4321000}, {FN, 3210000}, {CM, 10}, {LAT0, 52}}},
    // Cassini-Soldner: ESRI's Scale_Factor is not a parameter of the type.
    {"3068_esri.prj", true, CGxMapProjData::eCassiniSoldner, "Cassini", "Meter", 1,
     {{FE, 40000}, {FN, 10000}, {CM, 13.6272036666667}, {LAT0, 52.4186482777778}}},
    {"3068_gdal.prj", true, CGxMapProjData::eCassiniSoldner, "Cassini_Soldner", "metre", 1,
     {{FE, 40000}, {FN, 10000}, {CM, 13.6272036666667}, {LAT0, 52.4186482777778}}},
    {"2314_esri.prj", true, CGxMapProjData::eCassiniSoldner, "Cassini", "Clarke's foot",
     0.3047972654, {{FE, 283800}, {FN, 214500}, {CM, -61.3333333333333}, {LAT0, 10.4416666666667}}},
    {"2314_gdal.prj", true, CGxMapProjData::eCassiniSoldner, "Cassini_Soldner", "Clarke's foot",
     0.3047972654, {{FE, 283800}, {FN, 214500}, {CM, -61.3333333333333}, {LAT0, 10.4416666666667}}},
    // Geographic systems need no linear unit.
    {"4326_esri.prj", true, CGxMapProjData::eGeographical, "Geographical", "", kGxUnset, {}},
    {"4326_gdal.prj", true, CGxMapProjData::eGeographical, "Geographical", "", kGxUnset, {}},
    {"4807_esri.prj", true, CGxMapProjData::eGeographical, "Geographical", "", kGxUnset, {}},
    {"4807_gdal.prj", true, CGxMapProjData::eGeographical, "Geographical", "", kGxUnset, {}},
    // A compound system is read through its horizontal part.
    {"7415_gdal.prj", true, CGxMapProjData::eStereographic, "Oblique_Stereographic", "metre", 1,
     {{FE, 155000}, {FN, 463000}, {CM, 5.38763888888889}, {K, 0.9999079}, {LAT0, 52.1561605555556}}},
};

}  // namespace

TEST(PRJParserRealFiles, TypeParametersAndUnit) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.file);
        const std::string text = ReadPrj(c.file);
        ASSERT_FALSE(text.empty()) << "missing test file";
        EXPECT_NE(CGxPRJParser::IsPRJ(text), 0);
        CGxPRJParser parser(text);
        EXPECT_EQ(parser.Parse(false), c.parses);
        EXPECT_EQ(parser.GetProjectionType(), c.type);
        EXPECT_EQ(parser.GetProjectionTypeName(), c.typeName);

        std::string unit;
        double factor = 0;
        parser.GetProjUnit(unit, factor);
        EXPECT_EQ(unit, c.unit);
        EXPECT_EQ(factor, c.unitFactor);

        for (int slot = 0; slot < static_cast<int>(std::size(kGetters)); ++slot) {
            double expected = kGxUnset;
            for (const auto& p : c.parameters) {
                if (p.first == slot) expected = p.second;
            }
            EXPECT_EQ((parser.*kGetters[slot].second)(), expected) << kGetters[slot].first;
        }
    }
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
        CGxPRJParser parser(ReadPrj(c.file));
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
        CGxPRJParser parser(ReadPrj(file));
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
    const std::string text = ReadPrj("7415_gdal.prj");
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
        {"ed50_utm32_towgs84_gdal.prj", CGxCartDef::eThreeParameterShift, {-87, -98, -121, 0, 0, 0, 0}},
    };
    for (const Shift& c : cases) {
        SCOPED_TRACE(c.file);
        CGxPRJParser parser(ReadPrj(c.file));
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
        CGxPRJParser parser(ReadPrj(c.file));
        ASSERT_TRUE(parser.Parse(true));
        EXPECT_EQ(parser.GetStandardParallel1(), c.first);
        EXPECT_EQ(parser.GetStandardParallel2(), c.second);
    }
}
