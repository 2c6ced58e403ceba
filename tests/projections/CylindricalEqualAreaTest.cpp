#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

#include "definitions/CylindricalEqualAreaProjection.h"
#include "foundation/Ellipsoid.h"
#include "mapprojection/MapProjection.h"
#include "projections/CylindricalEqualArea.h"
#include "tests/support/ReferenceFile.h"
#include "wkt/PRJParser.h"
#include "wkt/ProjTranslator.h"
#include "zpf/zpf.h"

// Lambert cylindrical equal area against PROJ's cea (the commands head each
// table): the EASE-Grid 2.0 cylinder on WGS 84, the original EASE grid on its
// sphere, and a Pacific grid whose area crosses the antimeridian.

namespace {

const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
const CGxEllipsoid kIntl("International 1924", "IN", 6378388.0, 297.0);
const CGxEllipsoid kEaseSphere("Sphere_International_1924_Authalic", "SP", 6371228.0, 0.0);

// The forward is closed and PROJ's own; cct prints nanometres. The inverse
// returns from the authalic latitude exactly, so cct's coordinates go back to
// the point within 1e-10 degrees (PROJ 9.1's inverse, a truncated series, is
// not the yardstick there). Longitudes are compared on the ground: the poles
// are rows of the tables.
constexpr GxReferenceTolerance kTolerance = {1e-6, 1e-10, 1e-11, true};

const auto kEase2 = GxReadReferencePoints("cylindrical_equal_area/wgs84_ease2.txt");
const auto kEase = GxReadReferencePoints("cylindrical_equal_area/sphere_ease.txt");
const auto kPacific = GxReadReferencePoints("cylindrical_equal_area/pacific_intl.txt");

std::string EaseText(const std::string& projection, const std::string& parameters) {
    return "PROJCS[\"NSIDC EASE-Grid Global\",GEOGCS[\"Unspecified datum based upon the "
           "International 1924 Authalic Sphere\",DATUM[\"Not_specified\",SPHEROID[\"International "
           "1924 Authalic Sphere\",6371228,0]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\","
           "0.0174532925199433]],PROJECTION[\"" +
           projection + "\"]," + parameters + "UNIT[\"metre\",1]]";
}

void ExpectTableThrough(const CGxMapProjection& system, const std::vector<GxReferencePoint>& rows) {
    for (const GxReferencePoint& r : rows) {
        SCOPED_TRACE(testing::Message() << r.lon << " " << r.lat);
        double x, y;
        system.Geo2Proj(r.lon, r.lat, &x, &y);
        EXPECT_NEAR(x, r.x, 1e-6);
        EXPECT_NEAR(y, r.y, 1e-6);
    }
}

}  // namespace

TEST(CylindricalEqualArea, MatchesReference) {
    GxExpectReferenceTable(CGxCylindricalEqualArea("EASE 2", 30, 0, 0, 0, kWgs84), kEase2,
                           kTolerance);
    GxExpectReferenceTable(CGxCylindricalEqualArea("EASE", 30, 0, 0, 0, kEaseSphere), kEase,
                           kTolerance);
    // lon0 = 165: -170 lies 25 degrees east of the central meridian, not 335
    // west of it, and the inverse gives it back as -170.
    GxExpectReferenceTable(CGxCylindricalEqualArea("Pacific", -20, 165, 1000000, 2000000, kIntl),
                           kPacific, kTolerance);
}

// Off the earth: beyond the poles forward, beyond the poles' lines inverse.
// The pole's own northing, an ulp beyond its line, is still the pole.
TEST(CylindricalEqualArea, OutsideTheEarthIsNaN) {
    const CGxCylindricalEqualArea grid("EASE 2", 30, 0, 0, 0, kWgs84);
    double x, y, lon, lat;
    grid.Geo2Proj(10, 90.5, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
    grid.Proj2Geo(0, 7342230.2, &lon, &lat);
    EXPECT_TRUE(std::isnan(lon) && std::isnan(lat));
    grid.Proj2Geo(0, std::nextafter(7342230.136498680, 1e300), &lon, &lat);
    EXPECT_DOUBLE_EQ(lat, 90.0);
    grid.Geo2Proj(std::nan(""), 10, &x, &y);
    EXPECT_TRUE(std::isnan(x));
    EXPECT_EQ(grid.GetConvergence(30, 45), 0.0);
    EXPECT_TRUE(std::isnan(grid.GetConvergence(30, 95)));
    double k0;
    grid.GetDerivedParameters(&k0);
    // The EASE-Grid 2.0 scale on the equator, from cct's easting of (0.5, 1):
    // 48243.140125448 / (6378137 * 0.5 * pi / 180).
    EXPECT_NEAR(k0, 0.8667510025722, 1e-12);
}

// The texts other writers give the EASE grid: ESRI's and GDAL's name with
// every parameter, and EPSG's method name, whose writers leave out a false
// origin of 0. Each converts as PROJ's cea on the sphere.
TEST(CylindricalEqualArea, ReadFromEachDialect) {
    const std::string full =
        "PARAMETER[\"standard_parallel_1\",30],"
        "PARAMETER[\"central_meridian\",0],PARAMETER[\"false_easting\",0],"
        "PARAMETER[\"false_northing\",0],";
    const std::string epsg =
        "PARAMETER[\"standard_parallel_1\",30],"
        "PARAMETER[\"central_meridian\",0],";
    for (const std::string& text :
         {EaseText("Cylindrical_Equal_Area", full), EaseText("Cylindrical Equal Area", full),
          EaseText("Lambert Cylindrical Equal Area", epsg)}) {
        SCOPED_TRACE(text);
        CGxPRJParser parser(text);
        ASSERT_TRUE(parser.Parse(false));
        EXPECT_EQ(parser.GetProjectionType(), CGxMapProjData::eCylindricalEqualArea);
        ExpectTableThrough(CGxMapProjection(text), kEase);
    }
    // ESRI's and GDAL's name states every parameter; one left out is refused.
    EXPECT_FALSE(CGxPRJParser(EaseText("Cylindrical_Equal_Area", epsg)).Parse(false));
    // The spherical method on the authalic sphere is another projection.
    EXPECT_FALSE(
        CGxPRJParser(EaseText("Lambert Cylindrical Equal Area (Spherical)", full)).Parse(false));
}

// A definition written as WKT and read back converts alike; its PROJ.4 text
// is PROJ's cea.
TEST(CylindricalEqualArea, WrittenAndReadBack) {
    CGxCylindricalEqualAreaProjection definition("EASE-Grid 2.0 Global", "", "WE", 30, 0, 0, 0);
    CGxPRJParser writer(&definition);
    std::string text;
    ASSERT_TRUE(writer.Format(text));
    EXPECT_NE(text.find("PROJECTION[\"Cylindrical_Equal_Area\"]"), std::string::npos) << text;
    ExpectTableThrough(CGxMapProjection(text), kEase2);
    EXPECT_EQ(CGxProjTranslator::Convert2Proj4(text, nullptr, 0).rfind("+proj=cea +lat_ts=30", 0),
              0u)
        << CGxProjTranslator::Convert2Proj4(text, nullptr, 0);
}

// A catalogue section of the type is read by the type that wrote it, as the
// catalogue files' readers find it among every type with a definition class.
TEST(CylindricalEqualArea, CatalogueSectionReadBack) {
    const auto types = GxDefinitionTypes();
    EXPECT_NE(std::find(types.begin(), types.end(), CGxMapProjData::eCylindricalEqualArea),
              types.end());
    CGxCylindricalEqualAreaProjection original("EASE", "World", "SP", 30, -0.5, 1.25, -2.5, true,
                                               true);
    std::unique_ptr<void, void (*)(void*)> file(zpfCreate(), [](void* f) { zpfClose(f); });
    void* block = zpfAddTarget(file.get(), "MAP_PROJECTION_DEFINITION");
    ASSERT_NE(block, nullptr);
    original.WriteToHandle(file.get());
    void* section = zpfSectionByNum(block, 1);
    ASSERT_NE(section, nullptr);
    EXPECT_EQ(zpfGetName(section), std::string("CYLINDRICAL_EQUAL_AREA_PROJECTION"));
    std::unique_ptr<CGxMapProjData> copy(
        CGxMapProjData::CreateDefaultParameterProjection(CGxMapProjData::eCylindricalEqualArea));
    ASSERT_NE(copy, nullptr);
    copy->ReadFromHandle(section, true);
    const auto& back = dynamic_cast<const CGxCylindricalEqualAreaProjection&>(*copy);
    EXPECT_EQ(back.GetName(), "EASE");
    EXPECT_EQ(back.GetEllipsoidID(), "SP");
    EXPECT_EQ(back.GetParallel1(), 30);
    EXPECT_EQ(back.GetCentre(), -0.5);
    EXPECT_EQ(back.GetFalseEasting(), 1.25);
    EXPECT_EQ(back.GetFalseNorthing(), -2.5);
}
