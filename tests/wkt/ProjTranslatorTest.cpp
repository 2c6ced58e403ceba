#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "datum/DatumConverter.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/TestFiles.h"
#include "wkt/ProjTranslator.h"

// The PROJ.4 text of a coordinate system: its exact item layout for every
// projection type, and, where the text carries the whole grid, PROJ's
// coordinates from that very text against the library's own.

namespace {

std::string Translate(const std::string& wkt) {
    return CGxProjTranslator::Convert2Proj4(wkt, nullptr, 0);
}

const char kWgs84[] = "\"WGS_1984\",6378137,298.257223563";
const char kGrs80[] = "\"GRS_1980\",6378137,298.257222101";
const char kBessel[] = "\"Bessel_1841\",6377397.155,299.1528128";
const char kHayford[] = "\"International_1924\",6378388,297";
const char kMetre[] = "UNIT[\"Meter\",1]";

// A projected text in degrees (the exact factor, so that the angles are
// written as given) with the parameters as "name",value pairs.
std::string Projcs(const char* spheroid, const char* projection,
                   const std::vector<std::pair<const char*, double>>& parameters,
                   const char* linearUnit = kMetre) {
    std::string text = "PROJCS[\"test\",GEOGCS[\"GCS\",DATUM[\"D\",SPHEROID[";
    text += spheroid;
    text += "]],PRIMEM[\"Greenwich\",0],UNIT[\"Degree\",0.017453292519943295]],PROJECTION[\"";
    text += projection;
    text += "\"],";
    for (const auto& [name, value] : parameters) {
        char number[32];
        std::snprintf(number, sizeof number, "%.16g", value);
        text += std::string("PARAMETER[\"") + name + "\"," + number + "],";
    }
    return text + linearUnit + "]";
}

// Parameter sets shared by several cases.
std::vector<std::pair<const char*, double>> RdNew() {
    return {{"False_Easting", 155000},
            {"False_Northing", 463000},
            {"Central_Meridian", 5.38763888888889},
            {"Scale_Factor", 0.9999079},
            {"Latitude_Of_Origin", 52.15616055555555}};
}
std::vector<std::pair<const char*, double>> ObliqueAtGreenwich() {
    return {{"False_Easting", 500000}, {"False_Northing", 300000}, {"Scale_Factor", 0.9996},
            {"Azimuth", 30},           {"Longitude_Of_Center", 0}, {"Latitude_Of_Center", 52}};
}
std::vector<std::pair<const char*, double>> Krovak() {
    return {{"False_Easting", 0},
            {"False_Northing", 0},
            {"Pseudo_Standard_Parallel_1", 78.5},
            {"Scale_Factor", 0.9999},
            {"Azimuth", 30.28813975277778},
            {"Longitude_Of_Center", 24.83333333333333},
            {"Latitude_Of_Center", 49.5},
            {"X_Scale", -1},
            {"Y_Scale", 1},
            {"XY_Plane_Rotation", 90}};
}
std::vector<std::pair<const char*, double>> Polar(double latitude) {
    return {{"False_Easting", 2000000},
            {"False_Northing", 2000000},
            {"Central_Meridian", 0},
            {"Scale_Factor", 0.994},
            {"Latitude_Of_Origin", latitude}};
}

struct GridCase {
    const char* name;
    std::string wkt;
    std::string text;
    // PROJ's coordinates are in the text's unit (+to_meter), the library's
    // in metres.
    double metresPerUnit;
    // lon, lat, then PROJ's easting and northing.
    std::vector<std::array<double, 4>> points;
};

// Each text as written, fed to cct without the two trailing words (the
// command-line tools take "no_defs" and "<>" for input files; projinfo,
// which reads the text as one argument, accepts it whole), for example
//   echo "9 50 0 0" | cct -d 4 +proj=tmerc +lat_0=0 +lon_0=9 +k=0.9996 +x_0=500000
//     +y_0=0 +a=6378137 +b=6356752.314245179 +units=m +no_defs
// clang-format off
// clang-format off
std::vector<GridCase> GridCases() {
    const char* const ftUs = "UNIT[\"US survey foot\",0.3048006096012192]";
    return {
        {"Transverse Mercator", Projcs(kWgs84, "Transverse_Mercator",
                {{"False_Easting", 500000}, {"False_Northing", 0}, {"Central_Meridian", 9},
                 {"Scale_Factor", 0.9996}, {"Latitude_Of_Origin", 0}}),
         "+proj=tmerc +lat_0=0 +lon_0=9 +k=0.9996 +x_0=500000 +y_0=0 +a=6378137 "
         "+b=6356752.314245179 +units=m +no_defs  no_defs <>",
         1.0, {{9, 50, 500000.0000, 5538630.7029}, {12, 60, 667294.8211, 6655205.4836},
          {6.5, 47.2, 310651.0049, 5230421.7092}}},
        {"Lambert two parallels", Projcs(kGrs80, "Lambert_Conformal_Conic_2SP",
                {{"False_Easting", 700000}, {"False_Northing", 6600000},
                 {"Central_Meridian", 3}, {"Standard_Parallel_1", 49},
                 {"Standard_Parallel_2", 44}, {"Latitude_Of_Origin", 46.5}}),
         "+proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000 +y_0=6600000 "
         "+a=6378137 +b=6356752.314140356 +units=m +no_defs  no_defs <>",
         1.0, {{-1, 43.5, 376498.8844, 6274963.9393}, {7.5, 50.8, 1017681.4044, 7087224.2492}}},
        {"Lambert two parallels in US survey feet", Projcs(kGrs80, "Lambert_Conformal_Conic_2SP",
                {{"False_Easting", 984250}, {"False_Northing", 0}, {"Central_Meridian", -74},
                 {"Standard_Parallel_1", 41.03333333333333},
                 {"Standard_Parallel_2", 40.66666666666666},
                 {"Latitude_Of_Origin", 40.16666666666666}}, ftUs),
         "+proj=lcc +lat_1=41.03333333333333 +lat_2=40.66666666666666 +lat_0=40.16666666666666 "
         "+lon_0=-74 +x_0=300000 +y_0=0 +a=6378137 +b=6356752.314140356 "
         "+to_meter=0.3048006096012192 +no_defs  no_defs <>",
         0.3048006096012192,
         {{-74, 40.7, 984250.0000, 194305.3389}, {-73.9, 40.6, 1012019.6680, 157888.4311}}},
        // One parallel, written twice; grads and the Paris meridian: angles
        // in degrees, the meridian added to the central longitude.
        {"Lambert one parallel, NTF (Paris) grads", GxReadPrj("27572_gdal.prj"),
         "+proj=lcc +lat_1=46.79999999999981 +lat_0=46.79999999999981 +lon_0=2.33722917 "
         "+k=0.99987742 +x_0=600000 +y_0=2200000 +a=6378249.2 +b=6356515 +units=m "
         "+no_defs  no_defs <>",
         1.0, {{2.35, 48.85, 600937.8043, 2427953.7993}, {5, 45, 809996.7503, 2003482.1446}}},
        {"Oblique stereographic", Projcs(kBessel, "Oblique_Stereographic", RdNew()),
         "+proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.9999079 "
         "+x_0=155000 +y_0=463000 +a=6377397.155 +b=6356078.962818188 +units=m "
         "+no_defs  no_defs <>",
         1.0, {{4, 51, 57605.9460, 335312.6622}, {7, 53.5, 261980.0913, 613721.9733}}},
        {"Oblique stereographic, EPSG's name", Projcs(kBessel, "Oblique Stereographic", RdNew()),
         "+proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.9999079 "
         "+x_0=155000 +y_0=463000 +a=6377397.155 +b=6356078.962818188 +units=m "
         "+no_defs  no_defs <>",
         1.0, {{4, 51, 57605.9460, 335312.6622}, {7, 53.5, 261980.0913, 613721.9733}}},
        // The web Mercator's sphere takes the place of the datum's spheroid.
        {"Web Mercator, ESRI's auxiliary sphere", GxReadPrj("3857_esri.prj"),
         "+proj=merc +lat_ts=0 +lon_0=0 +k=1 +x_0=0 +y_0=0 +a=6378137 +b=6378137 +units=m "
         "+no_defs  no_defs <>",
         1.0, {{45, 30, 5009377.0857, 3503549.8435}, {-120, -60, -13358338.8952, -8399737.8898}}},
        {"New Zealand map grid", Projcs(kHayford, "New_Zealand_Map_Grid",
                {{"False_Easting", 2510000}, {"False_Northing", 6023150},
                 {"Longitude_Of_Origin", 173}, {"Latitude_Of_Origin", -41}}),
         "+proj=nzmg +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150 +a=6378388 "
         "+b=6356911.946127946 +units=m +no_defs  no_defs <>",
         1.0, {{174.76, -36.85, 2667368.2629, 6482219.9083},
          {168.7, -45.9, 2176295.7507, 5470125.8034}}},
        // PROJ's omerc takes the centre longitude from +lonc only; a centre
        // on the Greenwich meridian is the case the written +lon_0 gets
        // right.
        {"Oblique Mercator from the centre, on Greenwich",
         Projcs(kWgs84, "Hotine_Oblique_Mercator_Azimuth_Center", ObliqueAtGreenwich()),
         "+proj=omerc +lat_0=52 +lon_0=0 +alpha=30 +k=0.9996 +x_0=500000 +y_0=300000 +a=6378137 "
         "+b=6356752.314245179 +units=m +no_defs  no_defs <>",
         1.0, {{1, 53, 567111.4913, 411696.0141}, {-2, 50.5, 358164.1163, 135118.7541}}},
        {"Mercator with a standard parallel", Projcs(kWgs84, "Mercator_2SP",
                {{"False_Easting", 0}, {"False_Northing", 0}, {"Central_Meridian", 100},
                 {"Standard_Parallel_1", -41}}),
         "+proj=merc +lat_ts=-41 +lon_0=100 +k=0.7557992272019596 +x_0=0 +y_0=0 +a=6378137 "
         "+b=6356752.314245179 +units=m +no_defs  no_defs <>",
         1.0, {{130, -20, 2524055.5534, -1706914.8487}, {150, -45, 4206759.2557, -4225897.1343}}},
        {"Mercator with unit scale", Projcs(kWgs84, "Mercator_1SP",
                {{"False_Easting", 1000000}, {"False_Northing", 500000},
                 {"Central_Meridian", -20}, {"Scale_Factor", 1}}),
         "+proj=merc +lat_ts=0 +lon_0=-20 +k=1 +x_0=1000000 +y_0=500000 +a=6378137 "
         "+b=6356752.314245179 +units=m +no_defs  no_defs <>",
         1.0, {{-10, 30, 2113194.9079, 3982189.0854}, {-35, -50, -669792.3619, -5913524.5942}}},
        {"Stereographic north pole", Projcs(kWgs84, "Stereographic_North_Pole",
                {{"False_Easting", 0}, {"False_Northing", 0}, {"Central_Meridian", -45},
                 {"Standard_Parallel_1", 70}}),
         "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +k=0.969858190326352 +x_0=0 +y_0=0 "
         "+a=6378137 +b=6356752.314245179 +units=m +no_defs  no_defs <>",
         1.0, {{10, 80, 889533.8315, -622858.2943}, {-120, 65, -2656535.2532, -711816.4758}}},
        {"Stereographic south pole", Projcs(kWgs84, "Stereographic_South_Pole",
                {{"False_Easting", 0}, {"False_Northing", 0}, {"Central_Meridian", 0},
                 {"Standard_Parallel_1", -71}}),
         "+proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=0 +k=0.9727690128917972 +x_0=0 +y_0=0 "
         "+a=6378137 +b=6356752.314245179 +units=m +no_defs  no_defs <>",
         1.0, {{120, -80, 943257.0779, -544589.7278}, {-60, -65, -2388932.7669, 1379250.9760}}},
        // With axes scaled -1 and turned by 90 degrees the grid is the one
        // PROJ's krovak gives (negative eastings and northings).
        {"Krovak, south-west axes as negative values", Projcs(kBessel, "Krovak", Krovak()),
         "+proj=krovak +lat_0=49.5 +lon_0=24.83333333333333 +alpha=30.28813975277778 +k=0.9999 "
         "+x_0=0 +y_0=0 +a=6377397.155 +b=6356078.962818188 +units=m +no_defs  no_defs <>",
         1.0, {{14.4, 50.1, -744215.0965, -1041500.0769}, {17, 49.5, -566389.6320, -1130081.4132}}},
        {"Albers", Projcs(kGrs80, "Albers_Conic_Equal_Area",
                {{"False_Easting", 0}, {"False_Northing", 0}, {"Central_Meridian", -96},
                 {"Standard_Parallel_1", 29.5}, {"Standard_Parallel_2", 45.5},
                 {"Latitude_Of_Origin", 23}}),
         "+proj=aea +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=0 +y_0=0 +a=6378137 "
         "+b=6356752.314140356 +units=m +no_defs  no_defs <>",
         1.0, {{-120, 45, -1869811.8920, 2683087.8653}, {-75, 30, 2007605.8255, 992097.5202}}},
        {"Lambert azimuthal equal area", Projcs(kGrs80, "Lambert_Azimuthal_Equal_Area",
                {{"False_Easting", 4321000}, {"False_Northing", 3210000},
                 {"Central_Meridian", 10}, {"Latitude_Of_Origin", 52}}),
         "+proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000 +a=6378137 "
         "+b=6356752.314140356 +units=m +no_defs  no_defs <>",
         1.0, {{-5, 40, 3042765.8358, 2005271.6753}, {25, 65, 5026876.8348, 4731029.9640}}},
        {"Cassini-Soldner", Projcs(kBessel, "Cassini_Soldner",
                {{"False_Easting", 40000}, {"False_Northing", 10000},
                 {"Central_Meridian", 13.62720366666667},
                 {"Latitude_Of_Origin", 52.41864827777778}}),
         "+proj=cass +lat_0=52.41864827777778 +lon_0=13.62720366666667 +x_0=40000 +y_0=10000 "
         "+a=6377397.155 +b=6356078.962818188 +units=m +no_defs  no_defs <>",
         1.0, {{13.4, 52.5, 24572.4587, 19075.7278}, {13.9, 52.3, 58607.2942, -3165.9250}}},
        {"Equidistant conic", Projcs(kGrs80, "Equidistant_Conic",
                {{"False_Easting", 0}, {"False_Northing", 0}, {"Central_Meridian", -96},
                 {"Standard_Parallel_1", 20}, {"Standard_Parallel_2", 60},
                 {"Latitude_Of_Origin", 40}}),
         "+proj=eqdc +lat_1=20 +lat_2=60 +lat_0=40 +lon_0=-96 +x_0=0 +y_0=0 +a=6378137 "
         "+b=6356752.314140356 +units=m +no_defs  no_defs <>",
         1.0, {{-120, 50, -1614127.1708, 1325577.0988}, {-80, 25, 1568802.9491, -1525096.0102}}},
        {"Polar stereographic, north", Projcs(kWgs84, "Polar_Stereographic", Polar(90)),
         "+proj=stere +lat_0=90 +lat_ts=90 +lon_0=0 +k=0.994 +x_0=2000000 +y_0=2000000 "
         "+a=6378137 +b=6356752.314245179 +units=m +no_defs  no_defs <>",
         1.0, {{45, 85, 2392767.6881, 1607232.3119}, {-100, 70, -208322.8298, 2389386.8970}}},
        {"Polar stereographic, south", Projcs(kWgs84, "Polar_Stereographic", Polar(-90)),
         "+proj=stere +lat_0=-90 +lat_ts=-90 +lon_0=0 +k=0.994 +x_0=2000000 +y_0=2000000 "
         "+a=6378137 +b=6356752.314245179 +units=m +no_defs  no_defs <>",
         1.0, {{45, -85, 2392767.6881, 2392767.6881}, {-100, -70, -208322.8298, 1610613.1030}}},
    };
}
// clang-format on

}  // namespace

// A wrong item order, a missing blank, an angle left in grads, a false
// origin left in feet or a lost prime meridian shows in the text; a text
// that names the wrong parameter (or PROJ reads differently) shows in the
// coordinates.
TEST(ProjTranslator, TextCarriesTheGridToProj) {
    for (const GridCase& c : GridCases()) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Translate(c.wkt), c.text);
        CGxMapProjection grid(c.wkt);
        ASSERT_TRUE(grid.GetProjection());
        for (const auto& p : c.points) {
            double x = 0, y = 0;
            grid.Geo2Proj(p[0], p[1], &x, &y);
            EXPECT_NEAR(x, p[2] * c.metresPerUnit, 1e-3) << p[0] << " " << p[1];
            EXPECT_NEAR(y, p[3] * c.metresPerUnit, 1e-3) << p[0] << " " << p[1];
        }
    }
}

// Systems the text cannot carry whole. What is written is pinned here; PROJ
// reads each of them as another grid:
// - the natural-origin Hotine grid writes the same text as the centre-based
//   one (PROJ's omerc counts from the centre), although the two grids lie
//   thousands of kilometres apart;
// - the centre longitude goes out as +lon_0, which omerc ignores (it reads
//   +lonc), so any centre off Greenwich moves: the Swiss grid lands 565 km
//   east in PROJ;
// - the rectified skew orthomorphic grid counts from the natural origin;
// - a plain "Stereographic" is the library's double stereographic, PROJ's
//   stere an ellipsoidal one metres apart at 150 km;
// - a one-parallel Mercator with a scale other than 1 writes +lat_ts=0,
//   which PROJ lets decide the scale;
// - Krovak writes neither its pseudo standard parallel nor its axis scales
//   and rotation, so the north-east oriented form reads as the south-west
//   one;
// - "Non_Projected" writes no +proj, and a geographical text's prime
//   meridian is not written.
TEST(ProjTranslator, TextsThatCannotCarryTheGrid) {
    const std::string naturalOrigin =
        Projcs(kWgs84, "Hotine_Oblique_Mercator_Azimuth_Natural_Origin", ObliqueAtGreenwich());
    const std::string centre =
        Projcs(kWgs84, "Hotine_Oblique_Mercator_Azimuth_Center", ObliqueAtGreenwich());
    EXPECT_EQ(Translate(naturalOrigin), Translate(centre));
    double xn = 0, yn = 0, xc = 0, yc = 0;
    CGxMapProjection(naturalOrigin).Geo2Proj(1, 53, &xn, &yn);
    CGxMapProjection(centre).Geo2Proj(1, 53, &xc, &yc);
    EXPECT_GT(std::hypot(xn - xc, yn - yc), 1e6);

    auto skew = ObliqueAtGreenwich();
    skew.emplace_back("Rectified_Grid_Angle", 25);
    auto plainStereographic = RdNew();
    auto gdalKrovak = Krovak();
    gdalKrovak[7].second = 1;
    gdalKrovak[9].second = 0;
    const struct {
        const char* name;
        std::string wkt;
        const char* text;
    } cases[] = {
        {"Swiss oblique Mercator", GxReadPrj("2056_gdal.prj"),
         "+proj=omerc +lat_0=46.95240555555561 +lon_0=7.439583333333331 +alpha=90.00000000000001 "
         "+k=1 +x_0=2600000 +y_0=1200000 +a=6377397.155 +b=6356078.962818188 +units=m "
         "+no_defs  no_defs <>"},
        {"rectified skew orthomorphic",
         Projcs(kWgs84, "Hotine_Oblique_Mercator_Azimuth_Center", skew),
         "+proj=omerc +lat_0=52 +lon_0=0 +alpha=30 +gamma=25 +k=0.9996 +x_0=500000 +y_0=300000 "
         "+a=6378137 +b=6356752.314245179 +units=m +no_defs  no_defs <>"},
        {"plain stereographic", Projcs(kBessel, "Stereographic", plainStereographic),
         "+proj=stere +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.9999079 "
         "+x_0=155000 +y_0=463000 +a=6377397.155 +b=6356078.962818188 +units=m "
         "+no_defs  no_defs <>"},
        {"Mercator scaled on the equator",
         Projcs(kWgs84, "Mercator_1SP",
                {{"False_Easting", 0},
                 {"False_Northing", 0},
                 {"Central_Meridian", -20},
                 {"Scale_Factor", 0.997}}),
         "+proj=merc +lat_ts=0 +lon_0=-20 +k=0.997 +x_0=0 +y_0=0 +a=6378137 "
         "+b=6356752.314245179 +units=m +no_defs  no_defs <>"},
        {"Krovak north-east", Projcs(kBessel, "Krovak", gdalKrovak),
         "+proj=krovak +lat_0=49.5 +lon_0=24.83333333333333 +alpha=30.28813975277778 +k=0.9999 "
         "+x_0=0 +y_0=0 +a=6377397.155 +b=6356078.962818188 +units=m +no_defs  no_defs <>"},
        {"Non_Projected",
         Projcs(kWgs84, "Non_Projected",
                {{"False_Easting", 500000},
                 {"False_Northing", 0},
                 {"Central_Meridian", 9},
                 {"Scale_Factor", 0.9996},
                 {"Latitude_Of_Origin", 0}}),
         "+a=6378137 +b=6356752.314245179 +units=m +no_defs  no_defs <>"},
        {"geographical on the Paris meridian", GxReadPrj("4807_gdal.prj"),
         "+proj=longlat +a=6378249.2 +b=6356515 +no_defs  no_defs <>"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Translate(c.wkt), c.text);
    }
}

// Systems without a PROJ.4 form answer "+proj=undef " with nothing else
// (no figure, no shift, no unit); strings that give no system answer "".
TEST(ProjTranslator, UndefinedAndUnresolvedSystems) {
    const std::string rotated =
        "PROJCS[\"rotated\",GEOGCS[\"GCS\",DATUM[\"D\",SPHEROID[\"WGS_1984\",6378137,"
        "298.257223563],TOWGS84[1,2,3,0,0,0,0]],PRIMEM[\"Greenwich\",0],UNIT[\"Degree\","
        "0.017453292519943295]],PROJECTION[\"Rotated_Longitude_Latitude\"],"
        "PARAMETER[\"Longitude_Of_South_Pole\",10],PARAMETER[\"Latitude_Of_South_Pole\",-40],"
        "PARAMETER[\"Angle_Of_Rotation\",0],UNIT[\"Degree\",0.017453292519943295]]";
    double shift[3] = {1, 2, 3};
    EXPECT_EQ(Translate(rotated), "+proj=undef ");
    EXPECT_EQ(CGxProjTranslator::Convert2Proj4(rotated, shift, 3), "+proj=undef ");
    EXPECT_EQ(Translate("LONG/LAT"), "+proj=undef ");
    EXPECT_EQ(Translate("NON-UTM"), "+proj=undef ");
    // A polar text without scale is not read: its grid is undefined.
    EXPECT_EQ(Translate(GxReadPrj("3413_gdal.prj")), "+proj=undef ");

    EXPECT_EQ(Translate("UTM"), "");
    EXPECT_EQ(Translate("no such system"), "");
    EXPECT_EQ(Translate(GxReadPrj("31300_esri.prj")), "");
    EXPECT_EQ(Translate("PROJCS[\"cut\",GEOGCS[\"GCS\",DATUM[\"D\",SPHEROID[\"WGS_1984\",6378"),
              "");
}

// The shift comes from TOWGS84 (always seven values, rotations in
// arc-seconds and scale in ppm as PROJ reads them) unless the caller gives
// one; a caller's short list is padded with zeros, a long one cut at seven.
// The text with RD New's shift, fed to cs2cs, lands where the library's own
// datum conversion does:
//   echo "155000 463000 0" | cs2cs -f %.11f <text up to +no_defs>
//     +to +proj=longlat +ellps=WGS84 +towgs84=0,0,0   -> 5.38720350886 52.15517229965
TEST(ProjTranslator, DatumShiftItems) {
    const std::string rdNew = GxReadPrj("rdnew_towgs84_gdal.prj");
    const std::string rdNewText = Translate(rdNew);
    EXPECT_NE(rdNewText.find(" +towgs84=565.417,50.3319,465.552,-0.398957,0.343988,-1.8774,"
                             "4.0725 +units=m +no_defs  no_defs <>"),
              std::string::npos)
        << rdNewText;
    CGxDatumConverter converter(rdNew.c_str(), GxReadPrj("4326_gdal.prj").c_str());
    converter.SetConversionType(CGxDatumConverter::eProjToGeo);
    double lon = 155000, lat = 463000;
    converter.Convert(lon, lat);
    EXPECT_NEAR(lon, 5.38720350886, 1e-8);
    EXPECT_NEAR(lat, 52.15517229965, 1e-8);

    EXPECT_NE(
        Translate(GxReadPrj("ed50_utm32_towgs84_gdal.prj")).find(" +towgs84=-87,-98,-121,0,0,0,0 "),
        std::string::npos);
    const std::string utm = GxReadPrj("25832_gdal.prj");
    const std::string plain = Translate(utm);
    EXPECT_EQ(plain.find("towgs84"), std::string::npos);

    const std::string tail = " +units=m +no_defs  no_defs <>";
    const std::string head = plain.substr(0, plain.size() - tail.size());
    double values[9] = {1.5, -2, 3, 0.25, 0.5, -0.75, 1e-3, 99, 99};
    struct {
        int count;
        const char* items;
    } cases[] = {
        {1, " +towgs84=1.5,0,0,0,0,0,0"},
        {3, " +towgs84=1.5,-2,3,0,0,0,0"},
        {7, " +towgs84=1.5,-2,3,0.25,0.5,-0.75,0.001"},
        {9, " +towgs84=1.5,-2,3,0.25,0.5,-0.75,0.001"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CGxProjTranslator::Convert2Proj4(utm, values, c.count), head + c.items + tail)
            << c.count;
    }
    // The caller's list replaces the text's; an empty one leaves it.
    EXPECT_NE(
        CGxProjTranslator::Convert2Proj4(rdNew, values, 3).find(" +towgs84=1.5,-2,3,0,0,0,0 "),
        std::string::npos);
    EXPECT_EQ(CGxProjTranslator::Convert2Proj4(rdNew, values, 0), rdNewText);
    EXPECT_EQ(CGxProjTranslator::Convert2Proj4(rdNew, nullptr, 3), rdNewText);
}

// A text without PRIMEM lies on Greenwich, as its grid does: the absent
// marker must not creep into a central longitude of 0.
TEST(ProjTranslator, MissingPrimeMeridianIsGreenwich) {
    std::string text = Projcs(kWgs84, "Mercator_1SP",
                              {{"False_Easting", 0},
                               {"False_Northing", 0},
                               {"Central_Meridian", 0},
                               {"Scale_Factor", 1}});
    const std::string primem = "PRIMEM[\"Greenwich\",0],";
    text.erase(text.find(primem), primem.size());
    EXPECT_EQ(Translate(text),
              "+proj=merc +lat_ts=0 +lon_0=0 +k=1 +x_0=0 +y_0=0 +a=6378137 "
              "+b=6356752.314245179 +units=m +no_defs  no_defs <>");
}

// A catalogue name is written out as its WKT first, then translated.
TEST(ProjTranslator, CatalogueNameTranslatesItsSystem) {
    EXPECT_EQ(Translate("UTM-32"),
              "+proj=tmerc +lat_0=0 +lon_0=9.000000000000002 +k=0.9996 +x_0=500000 +y_0=0 "
              "+a=6378137 +b=6356752.314245179 +units=m +no_defs  no_defs <>");
}

// Numbers keep their decimal point whatever the process locale says.
TEST(ProjTranslator, TextIndependentOfLocale) {
    const std::string rdNew = GxReadPrj("rdnew_towgs84_gdal.prj");
    const std::string expected = Translate(rdNew);
    gxtest::CommaLocale comma;
    if (!comma.active()) GTEST_SKIP() << comma.reason();
    EXPECT_EQ(Translate(rdNew), expected);
}

// A .prj file is read up to its first line feed, a DOS carriage return
// dropped; a file that cannot be read is an empty line.
TEST(ProjTranslator, PrjFiles) {
    const std::string rdNew = GxReadPrj("rdnew_towgs84_gdal.prj");
    const std::string folder = ::testing::TempDir();
    const std::string dos = folder + "gxcart_translator_dos.prj";
    {
        std::ofstream out(dos, std::ios::binary);
        out << rdNew << "\r\nPROJCS[\"second line\"]\r\n";
    }
    double shift[3] = {1, 2, 3};
    EXPECT_EQ(CGxProjTranslator::ConvertPRJFile2Proj4(dos, nullptr, 0), Translate(rdNew));
    EXPECT_EQ(CGxProjTranslator::ConvertPRJFile2Proj4(dos, shift, 3),
              CGxProjTranslator::Convert2Proj4(rdNew, shift, 3));
    std::remove(dos.c_str());

    const std::string direct = CGxProjTranslator::ConvertPRJFile2Proj4(
        std::string(GXCART_TEST_DATA) + "/wkt/2154_esri.prj", nullptr, 0);
    EXPECT_EQ(direct, Translate(GxReadPrj("2154_esri.prj")));
    EXPECT_EQ(direct.rfind("+proj=lcc ", 0), 0u);

    const std::string empty = Translate("");
    EXPECT_EQ(CGxProjTranslator::ConvertPRJFile2Proj4(folder + "gxcart_no_such.prj", nullptr, 0),
              empty);
    EXPECT_EQ(CGxProjTranslator::ConvertPRJFile2Proj4(folder, nullptr, 0), empty);
}
