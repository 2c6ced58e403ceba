#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "foundation/Tolerance.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/TestFiles.h"
#include "wkt/PRJParser.h"

// The dialects of WKT that other writers use beyond the ESRI and GDAL forms:
// the four forms of the web Mercator, projection names with blanks or in
// EPSG's spelling, texts laid out over several lines, and the texts that
// contradict their own names, which are refused rather than guessed. The
// accuracy of every accepted dialect text against PROJ is checked with the
// national grids (tests/data/wkt/dialects, blocks in grid_points.txt).

namespace {

using Type = CGxMapProjData::EProjectionType;

std::string P(const std::string& name, const std::string& value) {
    return "PARAMETER[\"" + name + "\"," + value + "],";
}

const char kWgs84[] =
    "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
const char kClarke1866[] =
    "GEOGCS[\"NAD27\",DATUM[\"North_American_Datum_1927\",SPHEROID[\"Clarke 1866\",6378206.4,"
    "294.978698213898]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";

std::string Projcs(const std::string& name, const std::string& projection,
                   const std::string& parameters, const std::string& tail = "",
                   const std::string& geogcs = kWgs84) {
    return "PROJCS[\"" + name + "\"," + geogcs + ",PROJECTION[\"" + projection + "\"]," +
           parameters + "UNIT[\"metre\",1]" + tail + "]";
}

const std::string kOrigin =
    P("central_meridian", "0") + P("false_easting", "0") + P("false_northing", "0");

struct Reading {
    bool ok;
    Type type;
    double major, invFlattening;
};

Reading Read(const std::string& text) {
    CGxPRJParser parser(text);
    const bool ok = parser.Parse(false);
    std::string name;
    double major = 0, invFlattening = 0;
    parser.GetEllipsoid(name, major, invFlattening);
    return {ok, parser.GetProjectionType(), major, invFlattening};
}

}  // namespace

// Each form of the web Mercator converts exactly as the library's own web
// Mercator string, bit for bit both ways: the same algorithm on the same
// sphere, whatever spheroid the text names for its datum.
TEST(WebMercator, EveryFormEqualsTheLibrarysStringBitForBit) {
    const char* forms[] = {
        "3857_esri.prj",                        // ESRI Mercator_Auxiliary_Sphere, type 0
        "dialects/web_mercator_geotools.prj",   // EPSG method name, as GeoTools writes it
        "3857_gdal.prj",                        // GDAL's Mercator_1SP with a PROJ4 sphere
        "dialects/web_mercator_named_1sp.prj",  // ellipsoidal Mercator named Pseudo-Mercator
        "dialects/web_mercator_named.prj",
    };
    CGxMapProjection reference(
        CGxMapProjection::IDtoProjectionString(CGxMapProjection::eGoogleMaps));
    ASSERT_TRUE(reference.GetProjection());
    for (const char* file : forms) {
        SCOPED_TRACE(file);
        CGxMapProjection form(GxReadPrj(file).c_str());
        ASSERT_TRUE(form.GetProjection());
        for (double lon = -180; lon <= 180; lon += 22.5) {
            for (double lat = -85; lat <= 85; lat += 8.5) {
                double x0 = 0, y0 = 0, x = 0, y = 0;
                reference.Geo2Proj(lon, lat, &x0, &y0);
                form.Geo2Proj(lon, lat, &x, &y);
                ASSERT_EQ(x, x0) << lon << " " << lat;
                ASSERT_EQ(y, y0) << lon << " " << lat;
                double lon0 = 0, lat0 = 0, back = 0, backLat = 0;
                reference.Proj2Geo(x0, y0, &lon0, &lat0);
                form.Proj2Geo(x0, y0, &back, &backLat);
                ASSERT_EQ(back, lon0);
                ASSERT_EQ(backLat, lat0);
            }
        }
    }
    // The ESRI and GeoTools forms are the same system as the library's own
    // string; GDAL's states the one-parallel form and so is another type.
    const std::string own = CGxMapProjection::IDtoProjectionString(CGxMapProjection::eGoogleMaps);
    EXPECT_TRUE(CGxMapProjection::AreIdentical(own.c_str(), GxReadPrj("3857_esri.prj").c_str()));
    EXPECT_TRUE(CGxMapProjection::AreIdentical(
        own.c_str(), GxReadPrj("dialects/web_mercator_geotools.prj").c_str()));
}

// What decides between the web Mercator and the ellipsoidal Mercator, and
// the texts that name the web Mercator but contradict it: those are refused
// (type 22), because PROJ and GDAL read them one way and the text's own
// numbers say another.
TEST(WebMercator, SphereOnlyWhereTheTextSaysSo) {
    const std::string sp0 = P("standard_parallel_1", "0");
    const std::string k1 = P("scale_factor", "1");
    const std::string sphere =
        ",EXTENSION[\"PROJ4\",\"+proj=merc +a=6378137 +b=6378137 +lat_ts=0.0 +lon_0=0.0 +x_0=0.0 "
        "+y_0=0 +k=1.0 +units=m +nadgrids=@null +wktext +no_defs\"]";
    struct Case {
        const char* what;
        std::string text;
        bool ok;
        double invFlattening;  // of the figure read
    };
    const Case cases[] = {
        // ESRI's auxiliary sphere: type 0 is the semi-major axis; a missing
        // type reads as 0, as PROJ reads it; the other types are refused.
        {"aux sphere without type", Projcs("x", "Mercator_Auxiliary_Sphere", kOrigin + sp0), true,
         0},
        {"aux sphere type 1",
         Projcs("x", "Mercator_Auxiliary_Sphere", kOrigin + sp0 + P("Auxiliary_Sphere_Type", "1")),
         false, 0},
        {"aux sphere type 3",
         Projcs("x", "Mercator_Auxiliary_Sphere", kOrigin + sp0 + P("Auxiliary_Sphere_Type", "3")),
         false, 0},
        {"aux sphere parallel 30",
         Projcs("x", "Mercator_Auxiliary_Sphere",
                kOrigin + P("standard_parallel_1", "30") + P("Auxiliary_Sphere_Type", "0")),
         false, 0},
        // The EPSG method has neither a parallel nor a scale.
        {"EPSG method", Projcs("x", "Popular Visualisation Pseudo Mercator", kOrigin), true, 0},
        {"EPSG method with scale 0.5",
         Projcs("x", "Popular Visualisation Pseudo Mercator", kOrigin + P("scale_factor", "0.5")),
         false, 0},
        {"EPSG method with origin latitude 10",
         Projcs("x", "Popular Visualisation Pseudo Mercator",
                kOrigin + P("latitude_of_origin", "10")),
         false, 0},
        // GDAL's PROJ4 extension: its sphere wins over the spheroid, but it
        // must agree with the WKT on the rest.
        {"extension sphere", Projcs("x", "Mercator_1SP", kOrigin + k1, sphere), true, 0},
        {"extension sphere, other meridian",
         Projcs(
             "x", "Mercator_1SP",
             P("central_meridian", "10") + P("false_easting", "0") + P("false_northing", "0") + k1,
             sphere),
         false, 0},
        {"extension of another projection",
         Projcs("x", "Mercator_1SP", kOrigin + k1,
                ",EXTENSION[\"PROJ4\",\"+proj=tmerc +a=6378137 +b=6378137\"]"),
         false, 0},
        {"extension with an ellipsoid",
         Projcs("x", "Mercator_1SP", kOrigin + k1,
                ",EXTENSION[\"PROJ4\",\"+proj=merc +ellps=WGS84 +lon_0=0\"]"),
         true, 298.257223563},
        // A system named the pseudo-Mercator is read as PROJ reads it when
        // its numbers are the web Mercator's.
        {"named WGS_1984_Web_Mercator", Projcs("WGS_1984_Web_Mercator", "Mercator", kOrigin + sp0),
         true, 0},
        {"named, other meridian",
         Projcs(
             "WGS 84 / Pseudo-Mercator", "Mercator_1SP",
             P("central_meridian", "10") + P("false_easting", "0") + P("false_northing", "0") + k1),
         false, 0},
        {"named, on Clarke 1866",
         Projcs("WGS 84 / Pseudo-Mercator", "Mercator_1SP", kOrigin + k1, "", kClarke1866), false,
         294.978698213898},
        // Other names stay ellipsoidal, as PROJ reads them.
        {"Google Maps Global Mercator",
         Projcs("Google Maps Global Mercator", "Mercator_2SP", kOrigin + sp0), true, 298.257223563},
        {"ESRI's aux sphere name on a plain Mercator",
         Projcs("WGS_1984_Web_Mercator_Auxiliary_Sphere", "Mercator", kOrigin + sp0), true,
         298.257223563},
        // The name only matters for a Mercator.
        {"named, Transverse Mercator",
         Projcs("WGS 84 / Pseudo-Mercator", "Transverse_Mercator",
                kOrigin + k1 + P("latitude_of_origin", "0")),
         true, 298.257223563},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Reading r = Read(c.text);
        EXPECT_EQ(r.ok, c.ok);
        if (!c.ok) {
            EXPECT_EQ(r.type, CGxMapProjData::eInvalidProjection);
            continue;
        }
        EXPECT_EQ(r.major, 6378137.0);
        EXPECT_EQ(r.invFlattening, c.invFlattening);
    }
}

// Projection names match without regard to case and with blanks read as
// underscores; other punctuation must match. EPSG's spellings find their
// types, and those whose grid the library cannot build as EPSG defines it
// are refused.
TEST(PRJParserNames, BlanksUnderscoresAndEpsgSpellings) {
    const std::string tm = kOrigin + P("scale_factor", "0.9996") + P("latitude_of_origin", "0");
    EXPECT_EQ(Read(Projcs("x", "TRANSVERSE MERCATOR", tm)).type,
              CGxMapProjData::eTransverseMercator);
    EXPECT_EQ(Read(Projcs("x", "transverse_mercator", tm)).type,
              CGxMapProjData::eTransverseMercator);
    EXPECT_EQ(Read(Projcs("x", "Gauss Kruger", tm)).type, CGxMapProjData::eTransverseMercator);
    EXPECT_FALSE(Read(Projcs("x", "Transverse-Mercator", tm)).ok);
    EXPECT_FALSE(Read(Projcs("x", "Transverse  Mercator", tm)).ok);

    const std::string hotine = P("false_easting", "0") + P("false_northing", "0") +
                               P("scale_factor", "0.99984") + P("longitude_of_center", "115") +
                               P("latitude_of_center", "4") + P("azimuth", "53.3158204722222");
    const std::string skewed = hotine + P("rectified_grid_angle", "53.1301023611111");
    // Variant A with a grid angle apart from the azimuth is the rectified
    // skew orthomorphic grid, counted from the natural origin as EPSG's is.
    EXPECT_EQ(Read(Projcs("x", "Hotine Oblique Mercator (variant A)", skewed)).type,
              CGxMapProjData::eRectifiedSkewOrthomorphic);
    // Variant B counts from the centre, which the skew grid cannot.
    EXPECT_TRUE(Read(Projcs("x", "Hotine Oblique Mercator (variant B)", hotine)).ok);
    EXPECT_FALSE(Read(Projcs("x", "Hotine Oblique Mercator (variant B)", skewed)).ok);
    EXPECT_FALSE(Read(Projcs("x", "Rectified_Skew_Orthomorphic_Center",
                             skewed + P("XY_Plane_Rotation", "53.1301023611111")))
                     .ok);

    // The east-north Krovak fixes its axis scales and rotation.
    const std::string krovak =
        P("latitude_of_center", "49.5") + P("longitude_of_center", "24.8333333333333") +
        P("azimuth", "30.2881397527778") + P("pseudo_standard_parallel_1", "78.5") +
        P("scale_factor", "0.9999") + P("false_easting", "0") + P("false_northing", "0");
    EXPECT_FALSE(Read(Projcs("x", "Krovak (North Orientated)", krovak + P("X_Scale", "1"))).ok);
    EXPECT_TRUE(Read(Projcs("x", "Krovak (North Orientated)",
                            krovak + P("X_Scale", "-1") + P("XY_Plane_Rotation", "90")))
                    .ok);

    // A two-parallel Mercator without its parallel takes a scale of exactly 1
    // as the equator; another scale is read differently by different
    // software.
    EXPECT_EQ(Read(Projcs("x", "Mercator", kOrigin + P("scale_factor", "1"))).type,
              CGxMapProjData::eMercator2SP);
    EXPECT_FALSE(Read(Projcs("x", "Mercator", kOrigin + P("scale_factor", "0.9996"))).ok);
    EXPECT_TRUE(Read(Projcs("x", "Mercator_2SP", kOrigin + P("scale_factor", "1"))).ok);
    CGxPRJParser parallelWins(
        Projcs("x", "Mercator", kOrigin + P("standard_parallel_1", "30") + P("scale_factor", "1")));
    ASSERT_TRUE(parallelWins.Parse(false));
    EXPECT_EQ(parallelWins.GetStandardParallel1(), 30.0);
}

// A Krovak without axis scales and plane rotation takes its orientation from
// what else the text writes, as GDAL writes the two grids and PROJ reads
// them: AXIS elements state the grid's directions (the east-north grid
// ordered and signed by them), no AXIS elements the classic southing-westing
// grid, unless the system has ESRI's east-north name. Before, the AXIS
// elements were applied to the classic grid's southing and westing, which put
// GDAL's EPSG:5514 text over 1000 km from PROJ.
//   K="+proj=krovak +lat_0=49.5 +lon_0=24.8333333333333 +alpha=30.2881397527778
//      +k=0.9999 +x_0=0 +y_0=0 +ellps=bessel"
//   echo "14.42 50.09 0 0" | cct -d 6 $K +axis=enu  -> -742949.430991 -1042796.966163
//                                        +axis=swu  ->  1042796.966163   742949.430991
//                                        +axis=wsu  ->   742949.430991  1042796.966163
//                                        +axis=neu  -> -1042796.966163  -742949.430991
TEST(PRJParserNames, KrovakOrientedByItsAxesOrName) {
    const std::string krovak =
        P("latitude_of_center", "49.5") + P("longitude_of_center", "24.8333333333333") +
        P("azimuth", "30.2881397527778") + P("pseudo_standard_parallel_1", "78.5") +
        P("scale_factor", "0.9999") + P("false_easting", "0") + P("false_northing", "0");
    const std::string bessel =
        "GEOGCS[\"S-JTSK\",DATUM[\"S_JTSK\",SPHEROID[\"Bessel 1841\",6377397.155,"
        "299.1528128]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
    struct Case {
        const char* name;
        const char* axes;
        double x, y;
    };
    const Case cases[] = {
        {"S-JTSK / Krovak East North", ",AXIS[\"Easting\",EAST],AXIS[\"Northing\",NORTH]",
         -742949.430991, -1042796.966163},
        {"S-JTSK / Krovak", ",AXIS[\"X\",SOUTH],AXIS[\"Y\",WEST]", 1042796.966163, 742949.430991},
        {"S-JTSK / Krovak", ",AXIS[\"Y\",WEST],AXIS[\"X\",SOUTH]", 742949.430991, 1042796.966163},
        {"S-JTSK / Krovak", ",AXIS[\"X\",NORTH],AXIS[\"Y\",EAST]", -1042796.966163, -742949.430991},
        {"S-JTSK / Krovak", "", 1042796.966163, 742949.430991},
        // The name decides only without AXIS elements, and only as ESRI
        // writes it.
        {"S_JTSK_Krovak_East_North", "", -742949.430991, -1042796.966163},
        {"S_JTSK_Krovak_East_North", ",AXIS[\"X\",SOUTH],AXIS[\"Y\",WEST]", 1042796.966163,
         742949.430991},
        {"S-JTSK / Krovak East North", "", 1042796.966163, 742949.430991},
    };
    for (const Case& c : cases) {
        const std::string text = Projcs(c.name, "Krovak", krovak, c.axes, bessel);
        SCOPED_TRACE(text);
        CGxMapProjection grid(text.c_str());
        ASSERT_TRUE(grid.GetProjection());
        double x = 0, y = 0, lon = 0, lat = 0;
        grid.Geo2Proj(14.42, 50.09, &x, &y);
        EXPECT_NEAR(x, c.x, 1e-3);
        EXPECT_NEAR(y, c.y, 1e-3);
        grid.Proj2Geo(c.x, c.y, &lon, &lat);
        EXPECT_NEAR(lon, 14.42, 1e-8);
        EXPECT_NEAR(lat, 50.09, 1e-8);
    }
    // Scales or a rotation written are the text's own orientation, whatever
    // its axes and name say.
    CGxMapProjection classic(Projcs("S_JTSK_Krovak_East_North", "Krovak",
                                    krovak + P("X_Scale", "1"),
                                    ",AXIS[\"Easting\",EAST],AXIS[\"Northing\",NORTH]", bessel)
                                 .c_str());
    double x = 0, y = 0;
    classic.Geo2Proj(14.42, 50.09, &x, &y);
    EXPECT_NEAR(x, 1042796.966163, 1e-3);
    EXPECT_NEAR(y, 742949.430991, 1e-3);
}

// A parameter a text leaves out is read as its default (0 for the offsets
// and the latitude of origin, 1 for the scale) only under the names whose
// writers leave defaults out: EPSG's method names and names written with
// blanks. The OGC, ESRI and GDAL names keep their rule that the type's
// parameters are all written, and the parameters without a default (central
// meridian, parallels) stay required under every name. The accuracy of the
// texts that open this way is checked with the grids (the *_defaults.prj
// dialect texts in grid_points.txt).
TEST(PRJParserNames, OmittedParametersTakeDefaultsOnlyUnderDialectNames) {
    const std::string tmPart =
        P("central_meridian", "-73.5") + P("scale_factor", "0.9999") + P("false_easting", "304800");
    const std::string lccPart = P("central_meridian", "10.5") + P("standard_parallel_1", "48") +
                                P("standard_parallel_2", "54");
    struct Case {
        const char* what;
        std::string text;
        Type type;  // eInvalidProjection: refused
    };
    const Case cases[] = {
        {"blank TM without false northing and origin", Projcs("x", "Transverse Mercator", tmPart),
         CGxMapProjData::eTransverseMercator},
        {"OGC TM without them", Projcs("x", "Transverse_Mercator", tmPart),
         CGxMapProjData::eInvalidProjection},
        {"blank TM without its meridian",
         Projcs("x", "Transverse Mercator", P("scale_factor", "0.9999")),
         CGxMapProjData::eInvalidProjection},
        {"EPSG Lambert 2SP with parallels only",
         Projcs("x", "Lambert Conic Conformal (2SP)", lccPart), CGxMapProjData::eLambert2SP},
        {"OGC Lambert 2SP with parallels only", Projcs("x", "Lambert_Conformal_Conic_2SP", lccPart),
         CGxMapProjData::eInvalidProjection},
        {"blank Lambert with parallels only", Projcs("x", "Lambert Conformal Conic", lccPart),
         CGxMapProjData::eLambert2SP},
        // Under the name of both forms the scale is not filled in: whether
        // the text writes one decides the form, and without the second
        // parallel or a scale there is no form.
        {"blank Lambert with one parallel",
         Projcs("x", "Lambert Conformal Conic",
                P("central_meridian", "10.5") + P("standard_parallel_1", "48")),
         CGxMapProjData::eInvalidProjection},
        {"EPSG Mercator A with its meridian",
         Projcs("x", "Mercator (variant A)", P("central_meridian", "0")),
         CGxMapProjData::eMercator1SP},
        {"EPSG Mercator A without it", Projcs("x", "Mercator (variant A)", ""),
         CGxMapProjData::eInvalidProjection},
        {"OGC Mercator 1SP without parameters", Projcs("x", "Mercator_1SP", ""),
         CGxMapProjData::eInvalidProjection},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Reading r = Read(c.text);
        EXPECT_EQ(r.type, c.type);
        EXPECT_EQ(r.ok, c.type != CGxMapProjData::eInvalidProjection);
    }
    // The written values are kept; only the absent ones are filled.
    CGxPRJParser written(
        Projcs("x", "Transverse Mercator", tmPart + P("false_northing", "-5000000")));
    ASSERT_TRUE(written.Parse(false));
    EXPECT_EQ(written.GetFalseNorthing(), -5000000.0);
    EXPECT_EQ(written.GetLatitudeOfOrigin(), 0.0);
    EXPECT_EQ(written.GetScaleFactor(), 0.9999);
}

// Blanks, tabs and line breaks between the elements (texts laid out over
// several lines, blanks after keywords and commas) read as the one-line
// text; blanks inside quoted names stay. Before, a blank between a bracket
// and the quote made the name a blank and the number after it 0 (here the
// degree's radians, which put every angle at 0), and a blank before a
// direction word made "NORTH" unknown, so a northing-first grid came out
// easting first.
TEST(PRJParserLayout, BlanksAndLineBreaksBetweenElements) {
    const std::string oneLine =
        "PROJCS[\"DHDN / 3-degree Gauss-Kruger zone 3\",GEOGCS[\"DHDN\",DATUM[\"Deutsches "
        "Hauptdreiecksnetz\",SPHEROID[\"Bessel 1841\",6377397.155,299.1528128]],PRIMEM["
        "\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
        "PARAMETER[\"latitude_of_origin\",0],PARAMETER[\"central_meridian\",9],PARAMETER["
        "\"scale_factor\",1],PARAMETER[\"false_easting\",3500000],PARAMETER[\"false_northing\",0],"
        "UNIT[\"metre\",1],AXIS[\"Northing\",NORTH],AXIS[\"Easting\",EAST]]";
    const std::string laidOut =
        "PROJCS [\"DHDN / 3-degree Gauss-Kruger zone 3\",\r\n"
        "    GEOGCS [ \"DHDN\",\r\n"
        "        DATUM [\"Deutsches Hauptdreiecksnetz\",\r\n"
        "            SPHEROID [\"Bessel 1841\", 6377397.155, 299.1528128]],\r\n"
        "        PRIMEM [\"Greenwich\", 0],\r\n"
        "        UNIT [ \"degree\", 0.0174532925199433]],\r\n"
        "    PROJECTION [\"Transverse_Mercator\"],\r\n"
        "    PARAMETER [\"latitude_of_origin\", 0],\r\n"
        "    PARAMETER [\"central_meridian\", 9],\r\n"
        "    PARAMETER [\"scale_factor\", 1],\r\n"
        "    PARAMETER [\"false_easting\", 3500000],\r\n"
        "    PARAMETER [\"false_northing\", 0],\r\n"
        "    UNIT [\"metre\", 1],\r\n"
        "\tAXIS [\"Northing\", NORTH],\r\n"
        "\tAXIS [\"Easting\", EAST]]\r\n";
    CGxPRJParser a(oneLine), b(laidOut);
    ASSERT_TRUE(a.Parse(false));
    ASSERT_TRUE(b.Parse(false));
    EXPECT_EQ(b.GetProjCSname(), "DHDN / 3-degree Gauss-Kruger zone 3");
    EXPECT_EQ(b.GetGeoCSname(), "DHDN");
    EXPECT_EQ(b.GetDatum(), "Deutsches Hauptdreiecksnetz");
    std::string nameA, nameB, dirA, dirB;
    double majorA = 0, majorB = 0, rfA = 0, rfB = 0, factorA = 0, factorB = 0;
    a.GetEllipsoid(nameA, majorA, rfA);
    b.GetEllipsoid(nameB, majorB, rfB);
    EXPECT_EQ(nameB, "Bessel 1841");
    EXPECT_EQ(majorB, majorA);
    EXPECT_EQ(rfB, rfA);
    a.GetAngularUnit(nameA, factorA);
    b.GetAngularUnit(nameB, factorB);
    EXPECT_EQ(nameB, "degree");
    EXPECT_EQ(factorB, factorA);
    b.GetAxisInfo(CGxPRJParser::eFirstAxis, nameB, dirB);
    EXPECT_EQ(dirB, "NORTH");
    EXPECT_EQ(b.GetCentralMeridian(), 9.0);
    EXPECT_EQ(b.GetFalseEasting(), 3500000.0);

    // The grid of the laid-out text is the one-line text's, northing first:
    //   echo "9.5 50 0 0" | cct -d 6 +proj=tmerc +lat_0=0 +lon_0=9 +k=1
    //       +x_0=3500000 +y_0=0 +ellps=bessel
    //   -> 3535843.428828  5540399.349991
    CGxMapProjection grid(laidOut.c_str());
    double first = 0, second = 0;
    grid.Geo2Proj(9.5, 50, &first, &second);
    EXPECT_NEAR(first, 5540399.349991, 1e-3);
    EXPECT_NEAR(second, 3535843.428828, 1e-3);
}
