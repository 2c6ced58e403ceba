#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <memory>
#include <string>

#include "definitions/MapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "projections/RotatedLongitudeLatitude.h"
#include "tests/support/TestFiles.h"
#include "wkt/PRJParser.h"

// Building the algorithm and the definition from a parsed text: unit and
// prime-meridian conversions, the values written back by the trial build of
// Parse, texts that give an algorithm but no definition or neither, and the
// parameters with their units as the parser reports them.

namespace {

struct Deleter {
    void operator()(CGxProjection* p) const { CGxProjection::Release(p); }
};
using Algorithm = std::unique_ptr<CGxProjection, Deleter>;

// The definition itself is protected; a test reaches it through a subclass.
class ParserWithDefinition : public CGxPRJParser {
public:
    using CGxPRJParser::CGxPRJParser;
    std::unique_ptr<CGxMapProjData> Definition() const {
        return std::unique_ptr<CGxMapProjData>(_CreateProjData());
    }
};

std::string P(const std::string& name, const std::string& value) {
    return "PARAMETER[\"" + name + "\"," + value + "],";
}

// A projected text on WGS 84 with the given prime meridian, angular unit,
// projection, parameters (each ending in a comma) and linear unit.
std::string Projcs(const std::string& primem, const std::string& angularUnit,
                   const std::string& projection, const std::string& parameters,
                   const std::string& linearUnit = "UNIT[\"Meter\",1.0]") {
    return "PROJCS[\"test grid\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
           "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]]," +
           primem + "," + angularUnit + "],PROJECTION[\"" + projection + "\"]," + parameters +
           linearUnit + "]";
}

const char kGreenwich[] = "PRIMEM[\"Greenwich\",0.0]";
const char kDegree[] = "UNIT[\"Degree\",0.0174532925199433]";

std::string Utm32Parameters() {
    return P("False_Easting", "500000") + P("False_Northing", "0") + P("Central_Meridian", "9") +
           P("Scale_Factor", "0.9996") + P("Latitude_Of_Origin", "0");
}

}  // namespace

// A length unit scales the false origin into metres in the algorithm while
// the record keeps the number as written: 2000000 US survey feet is
// 609601.2192024384 m, which the origin of the grid shows.
TEST(WktToProjection, LinearUnitScalesFalseOrigin) {
    const std::string text = Projcs(kGreenwich, kDegree, "Transverse_Mercator",
                                    P("False_Easting", "2000000") + P("False_Northing", "1000000") +
                                        P("Central_Meridian", "-75") + P("Scale_Factor", "0.9999") +
                                        P("Latitude_Of_Origin", "0"),
                                    "UNIT[\"US survey foot\",0.3048006096012192]");
    CGxPRJParser parser(text);
    ASSERT_TRUE(parser.Parse(false));
    const Algorithm tm(parser.CreateMapProjection());
    ASSERT_TRUE(tm);
    double x = 0, y = 0;
    tm->Geo2Proj(-75, 0, &x, &y);
    EXPECT_NEAR(x, 609601.2192024384, 1e-6);
    EXPECT_NEAR(y, 304800.6096012192, 1e-6);
    EXPECT_EQ(parser.GetFalseEasting(), 2000000.0);
    EXPECT_EQ(parser.GetFalseNorthing(), 1000000.0);
}

// The prime meridian moves every centre longitude: a Greenwich-based central
// meridian of 0 on the Paris meridian puts the grid's origin on Paris, and
// the rotated pole, which is given in absolute terms, is not moved.
TEST(WktToProjection, PrimeMeridianMovesTheCentre) {
    const char paris[] = "PRIMEM[\"Paris\",2.33722917]";
    CGxPRJParser parser(Projcs(paris, kDegree, "Transverse_Mercator",
                               P("False_Easting", "500000") + P("False_Northing", "0") +
                                   P("Central_Meridian", "0") + P("Scale_Factor", "1") +
                                   P("Latitude_Of_Origin", "0")));
    ASSERT_TRUE(parser.Parse(false));
    const Algorithm tm(parser.CreateMapProjection());
    ASSERT_TRUE(tm);
    double lon = 0, lat = 1, x = 0, y = 1;
    tm->GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 2.33722917);
    EXPECT_EQ(lat, 0.0);
    tm->Geo2Proj(2.33722917, 0, &x, &y);
    EXPECT_NEAR(x, 500000, 1e-9);
    EXPECT_NEAR(y, 0, 1e-9);
    EXPECT_EQ(parser.GetCentralMeridian(), 0.0);

    // Oblique Mercator: the longitude of the centre moves too.
    CGxPRJParser oblique(Projcs(paris, kDegree, "Hotine_Oblique_Mercator_Azimuth_Center",
                                P("False_Easting", "0") + P("False_Northing", "0") +
                                    P("Scale_Factor", "1") + P("Azimuth", "90") +
                                    P("Longitude_Of_Center", "1") + P("Latitude_Of_Center", "46")));
    ASSERT_TRUE(oblique.Parse(false));
    const Algorithm om(oblique.CreateMapProjection());
    ASSERT_TRUE(om);
    om->Geo2Proj(3.33722917, 46, &x, &y);
    EXPECT_NEAR(x, 0, 1e-6);
    EXPECT_NEAR(y, 0, 1e-6);

    // The rotated pole takes its three angles as written: no prime meridian
    // and no angular unit (here grads) is applied to them. This checks the
    // wiring against the same grid built directly from those numbers.
    CGxPRJParser rotated(
        Projcs(paris, "UNIT[\"Grad\",0.0157079632679489]", "Rotated_Longitude_Latitude",
               P("Longitude_Of_South_Pole", "18") + P("Latitude_Of_South_Pole", "-39.25") +
                   P("Angle_Of_Rotation", "10")));
    ASSERT_TRUE(rotated.Parse(false));
    const Algorithm fromText(rotated.CreateMapProjection());
    ASSERT_TRUE(fromText);
    const CGxRotatedLongitudeLatitude direct(
        "test grid", 18, -39.25, 10, CGxEllipsoid("WGS_1984", "", 6378137.0, 298.257223563));
    double xd = 0, yd = 0;
    fromText->Geo2Proj(10, 50, &x, &y);
    direct.Geo2Proj(10, 50, &xd, &yd);
    EXPECT_EQ(x, xd);
    EXPECT_EQ(y, yd);
}

// The angular unit turns every angle into degrees, while the prime meridian
// is added as written. The texts of NTF (Paris) Lambert zone II write the
// Paris meridian in degrees (2.33722917) under a grad unit, and that is what
// places the grid right (see grid_points.txt, where it matches PROJ). A text
// that gives the meridian in grads, as the unit would suggest (2.5969213),
// gets its grid centred 2.5969213 degrees east of Greenwich instead, 0.26
// degrees east of Paris; PROJ would take the value in grads and land on
// Paris. The library keeps the number-as-degrees reading; these references
// pin where that puts the grid.
//   echo "2.35 48.85 0 0" | cct -d 6 +proj=lcc +lat_1=46.8 +lat_0=46.8
//       +lon_0=2.5969213 +k_0=0.99987742 +x_0=600000 +y_0=2200000 +ellps=clrk80ign
//   -> 581867.780864 2427982.204837; (-1.5, 43.5) -> 268293.412040 1841751.799632
//   The same points on Lambert II (+lon_0=0 +pm=2.33722917):
//   -> 600937.804345 2427953.799314; 289302.070948 1840690.534296
TEST(WktToProjection, PrimeMeridianInGradsIsTakenAsDegrees) {
    std::string text = GxReadPrj("27572_gdal.prj");
    const std::string degrees = "PRIMEM[\"Paris\",2.33722917";
    ASSERT_NE(text.find(degrees), std::string::npos);
    text.replace(text.find(degrees), degrees.size(), "PRIMEM[\"Paris\",2.5969213");
    CGxPRJParser parser(text);
    ASSERT_TRUE(parser.Parse(false));
    const Algorithm lambert(parser.CreateMapProjection());
    ASSERT_TRUE(lambert);

    struct Case {
        double lon, lat, x, y, lambertIIx;
    };
    const Case cases[] = {
        {2.35, 48.85, 581867.780864, 2427982.204837, 600937.804345},
        {-1.5, 43.5, 268293.412040, 1841751.799632, 289302.070948},
    };
    for (const Case& c : cases) {
        double x = 0, y = 0;
        lambert->Geo2Proj(c.lon, c.lat, &x, &y);
        EXPECT_NEAR(x, c.x, 1e-3);
        EXPECT_NEAR(y, c.y, 1e-3);
        EXPECT_GT(std::fabs(x - c.lambertIIx), 19000);
    }
    double lon = 0, lat = 0;
    lambert->GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 2.5969213, 1e-12);
    EXPECT_NEAR(lat, 46.8, 1e-12);
}

// The trial build of Parse writes back what the algorithm derives: the scale
// on the equator (Mercator) or at the pole (polar stereographic) that a
// standard parallel gives, and for the one-parallel Mercator its parallel.
// PROJ's scale factors as references:
//   echo "101 0 0 0" | cct -d 9 +proj=merc +lat_ts=-41 +lon_0=100 +datum=WGS84
//     -> x = 84135.185114072 for one degree of longitude on the equator, so
//     k0 = 84135.185114072 / (6378137 pi / 180) = 0.7557992272019611
//     (= cos(lat1) / sqrt(1 - e2 sin^2 lat1), lat1 = -41).
//   echo "0 -89.9999 0 0" | cct -d 9 +proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=0 +datum=WGS84
//     -> 10.865244225 m from the pole; GeodSolve -i -p 12 <<< "-90 0 -89.9999 0"
//     -> 11.1693979563 m on the ellipsoid: k0 = 0.97276901293 (the scale
//     changes by a part in 1e11 over those 11 m).
//   The same for +lat_0=90 +lat_ts=70 +lon_0=-45 at (-45, 89.9999):
//     10.832732089 / 11.1693979563 = 0.96985819033.
TEST(WktToProjection, TrialBuildWritesTheDerivedValue) {
    struct Case {
        const char* file;
        double scale;
        double tolerance;
    };
    const Case cases[] = {
        {"3994_gdal.prj", 0.7557992272019611, 1e-14},
        {"3994_esri.prj", 0.7557992272019611, 1e-14},
        {"3395_esri.prj", 1.0, 1e-15},
        {"3031_esri.prj", 0.97276901293, 1e-9},
        {"3413_esri.prj", 0.96985819033, 1e-9},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        CGxPRJParser parser(GxReadPrj(c.file));
        EXPECT_TRUE(GxIsUnset(parser.GetScaleFactor()));
        ASSERT_TRUE(parser.Parse(false));
        EXPECT_NEAR(parser.GetScaleFactor(), c.scale, c.tolerance);
    }

    // The one-parallel Mercator of scale 1 is true to scale on the equator;
    // its text has no standard parallel until the build supplies it.
    CGxPRJParser mercator(GxReadPrj("3395_gdal.prj"));
    ASSERT_TRUE(mercator.Parse(false));
    EXPECT_EQ(mercator.GetStandardParallel1(), 0.0);
    EXPECT_EQ(mercator.GetScaleFactor(), 1.0);

    // Types without a derived value are left as read.
    CGxPRJParser tm(GxReadPrj("25832_esri.prj"));
    ASSERT_TRUE(tm.Parse(false));
    EXPECT_TRUE(GxIsUnset(tm.GetStandardParallel1()));
}

// "Non_Projected" is a plane system read with Transverse Mercator
// parameters: it gets the Transverse Mercator algorithm but no definition.
//   echo "9 50 0 0" | cct -d 6 +proj=utm +zone=32 +ellps=WGS84
//     -> 500000.000000 5538630.702867; (12, 60) -> 667294.821124 6655205.483635
TEST(WktToProjection, NonProjectedHasAlgorithmButNoDefinition) {
    ParserWithDefinition parser(Projcs(kGreenwich, kDegree, "Non_Projected", Utm32Parameters()));
    ASSERT_TRUE(parser.Parse(false));
    EXPECT_EQ(parser.GetProjectionType(), CGxMapProjData::eNonProjected);
    const Algorithm tm(parser.CreateMapProjection());
    ASSERT_TRUE(tm);
    double x = 0, y = 0;
    tm->Geo2Proj(9, 50, &x, &y);
    EXPECT_NEAR(x, 500000.000000, 1e-3);
    EXPECT_NEAR(y, 5538630.702867, 1e-3);
    tm->Geo2Proj(12, 60, &x, &y);
    EXPECT_NEAR(x, 667294.821124, 1e-3);
    EXPECT_NEAR(y, 6655205.483635, 1e-3);

    EXPECT_FALSE(parser.Definition());
    EXPECT_EQ(parser.GetNoOfParameters(), 0);
    EXPECT_EQ(parser.GetProjectionTypeTitle(), "Non projection");
    std::string name = "kept";
    double value = 7;
    std::string unit = "kept";
    double factor = 7;
    EXPECT_EQ(parser.GetParameter(0, name, value, unit, factor), 0);
    EXPECT_EQ(name, "kept");
    EXPECT_EQ(value, 7.0);
}

// A text that did not parse, and a record that was never parsed, give
// neither an algorithm nor a definition.
TEST(WktToProjection, FailedParseGivesNothing) {
    // An unknown projection, a missing required scale, and a record that
    // was never parsed.
    for (const char* file : {"31300_esri.prj", "3031_gdal.prj", ""}) {
        SCOPED_TRACE(file);
        const bool parse = *file != '\0';
        ParserWithDefinition parser(parse ? GxReadPrj(file) : GxReadPrj("25832_esri.prj"));
        if (parse) {
            EXPECT_FALSE(parser.Parse(false));
        }
        EXPECT_EQ(parser.GetProjectionType(), CGxMapProjData::eInvalidProjection);
        EXPECT_EQ(parser.CreateMapProjection(), nullptr);
        EXPECT_FALSE(parser.Definition());
        EXPECT_EQ(parser.GetNoOfParameters(), 0);
        EXPECT_EQ(parser.GetProjectionTypeTitle(), "Non projection");
        std::string name, unit;
        double value = 0, factor = 0;
        EXPECT_EQ(parser.GetParameter(0, name, value, unit, factor), 0);
    }
}

// The definition carries the text's names and its numbers as written; each
// parameter's unit follows its kind: scales none, lengths the linear unit,
// angles the angular unit (grads for NTF).
TEST(WktToProjection, ParametersCarryTheTextsUnits) {
    struct Expected {
        int index;
        const char* label;
        double value;
        const char* unit;
        double factor;
    };
    struct Case {
        const char* file;
        const char* title;
        int count;
        Expected parameters[3];
    };
    const Case cases[] = {
        {"2263_esri.prj",
         "Lambert conformal conic with 2 standard parallels",
         6,
         {{0, "First parallel:", 41.0333333333333, "Degree", 0.0174532925199433},
          {2, "Longitude origin:", -74, "Degree", 0.0174532925199433},
          {4, "False easting:", 984250, "US survey foot", 0.304800609601219}}},
        {"27572_gdal.prj",
         "Lambert conformal conic with 1 standard parallel",
         5,
         {{0, "Scale:", 0.99987742, "", 1.0},
          {2, "Latitude origin:", 52, "grad", 0.0157079632679489},
          {1, "Central meridian:", 0, "grad", 0.0157079632679489}}},
        {"2314_gdal.prj",
         "Cassini-Soldner",
         4,
         {{0, "Central Meridian:", -61.3333333333333, "degree", 0.0174532925199433},
          {3, "False northing:", 214500, "Clarke's foot", 0.3047972654},
          {1, "Latitude origin:", 10.4416666666667, "degree", 0.0174532925199433}}},
        {"5514_esri.prj",
         "Krovak oblique conformal conic",
         10,
         {{6, "X scale:", -1, "", 1.0},
          {5, "XY plane rotation:", 90, "Degree", 0.0174532925199433},
          {9, "False northing:", 0, "Meter", 1.0}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        ParserWithDefinition parser(GxReadPrj(c.file));
        ASSERT_TRUE(parser.Parse(false));
        EXPECT_EQ(parser.GetProjectionTypeTitle(), c.title);
        EXPECT_EQ(parser.GetNoOfParameters(), c.count);
        for (const Expected& e : c.parameters) {
            SCOPED_TRACE(e.label);
            std::string name, unit = "stale";
            double value = 0, factor = 0;
            EXPECT_EQ(parser.GetParameter(e.index, name, value, unit, factor), 1);
            EXPECT_EQ(name, e.label);
            EXPECT_EQ(value, e.value);
            EXPECT_EQ(unit, e.unit);
            EXPECT_EQ(factor, e.factor);
        }
        // Outside the range nothing is answered and nothing is touched.
        for (int index : {-1, c.count}) {
            std::string name = "kept", unit = "kept";
            double value = 7, factor = 7;
            EXPECT_EQ(parser.GetParameter(index, name, value, unit, factor), 0);
            EXPECT_EQ(name, "kept");
            EXPECT_EQ(unit, "kept");
            EXPECT_EQ(value, 7.0);
            EXPECT_EQ(factor, 7.0);
        }
        const std::unique_ptr<CGxMapProjData> definition = parser.Definition();
        ASSERT_TRUE(definition);
        EXPECT_EQ(definition->GetName(), parser.GetProjCSname());
        EXPECT_EQ(definition->GetBranchName(), parser.GetDatum());
        std::string spheroid;
        double a = 0, rf = 0;
        parser.GetEllipsoid(spheroid, a, rf);
        EXPECT_EQ(definition->GetEllipsoidID(), spheroid);
    }

    // A geographic system has a definition without parameters.
    CGxPRJParser geographic(GxReadPrj("4326_gdal.prj"));
    ASSERT_TRUE(geographic.Parse(false));
    EXPECT_EQ(geographic.GetProjectionTypeTitle(), "Geographical");
    EXPECT_EQ(geographic.GetNoOfParameters(), 0);
    const Algorithm longLat(geographic.CreateMapProjection());
    ASSERT_TRUE(longLat);
    EXPECT_TRUE(longLat->IsGeographical());
}

// The algorithm is named after the system, and its figure is the text's
// SPHEROID by its numbers, whatever the catalogue calls it.
TEST(WktToProjection, NameAndFigureComeFromTheText) {
    std::string text = GxReadPrj("2056_gdal.prj");
    CGxPRJParser parser(text);
    ASSERT_TRUE(parser.Parse(false));
    const Algorithm swiss(parser.CreateMapProjection());
    ASSERT_TRUE(swiss);
    EXPECT_STREQ(swiss->GetName(), "CH1903+ / LV95");
    CGxEllipsoid figure("kept", "kept", 0, 0);
    ASSERT_TRUE(swiss->GetAnonymousEllipsoid(figure));
    EXPECT_EQ(figure.GetMajor(), 6377397.155);
    EXPECT_EQ(figure.GetInvFlatness(), 299.1528128);
}

// A record filled by hand, without units or prime meridian, is taken in
// degrees and metres, the library's own units.
//   echo "9 50 0 0" | cct -d 6 +proj=utm +zone=32 +ellps=GRS80
//     -> 500000.000000 5538630.702744
TEST(WktToProjection, RecordWithoutUnitsIsInDegreesAndMetres) {
    CGxPRJParser parser("");
    parser.SetProjectionType(CGxMapProjData::eTransverseMercator);
    parser.SetProjCSname("by hand");
    parser.SetEllipsoid("GRS 1980", 6378137.0, 298.257222101);
    parser.SetScaleFactor(0.9996);
    parser.SetCentralMeridian(9);
    parser.SetLatitudeOfOrigin(0);
    parser.SetFalseEasting(500000);
    parser.SetFalseNorthing(0);
    const Algorithm utm(parser.CreateMapProjection());
    ASSERT_TRUE(utm);
    double x = 0, y = 0;
    utm->Geo2Proj(9, 50, &x, &y);
    EXPECT_NEAR(x, 500000.000000, 1e-3);
    EXPECT_NEAR(y, 5538630.702744, 1e-3);
}

// Hostile numbers: NaN, infinities and huge values in every parameter of
// every type still parse (a NaN is present), build an algorithm without
// crashing or hanging, and convert to something without crashing.
TEST(WktToProjection, HostileNumbersBuildSafely) {
    const char* projections[] = {
        "Transverse_Mercator",
        "Lambert_Conformal_Conic_2SP",
        "Lambert_Conformal_Conic_1SP",
        "Oblique_Stereographic",
        "New_Zealand_Map_Grid",
        "Hotine_Oblique_Mercator",
        "Hotine_Oblique_Mercator_Azimuth_Center",
        "Rectified_Skew_Orthomorphic_Natural_Origin",
        "Rotated_Longitude_Latitude",
        "Mercator_2SP",
        "Mercator_1SP",
        "Stereographic_North_Pole",
        "Stereographic_South_Pole",
        "Geographical",
        "Krovak",
        "Albers",
        "Lambert_Azimuthal_Equal_Area",
        "Cassini",
        "Equidistant_Conic",
        "Polar_Stereographic",
        "Non_Projected",
    };
    const char* names[] = {"False_Easting",
                           "False_Northing",
                           "Central_Meridian",
                           "Standard_Parallel_1",
                           "Standard_Parallel_2",
                           "Latitude_Of_Origin",
                           "Longitude_Of_Center",
                           "Latitude_Of_Center",
                           "Azimuth",
                           "XY_Plane_Rotation",
                           "Scale_Factor",
                           "Longitude_Of_South_Pole",
                           "Latitude_Of_South_Pole",
                           "Angle_Of_Rotation",
                           "Pseudo_Standard_Parallel_1",
                           "X_Scale",
                           "Y_Scale"};
    for (const char* number : {"nan", "inf", "-inf", "1e308", "0"}) {
        std::string parameters;
        for (const char* name : names) parameters += P(name, number);
        for (const char* projection : projections) {
            SCOPED_TRACE(std::string(projection) + " with " + number);
            CGxPRJParser parser(Projcs(kGreenwich, kDegree, projection, parameters));
            EXPECT_TRUE(parser.Parse(false));
            const Algorithm algorithm(parser.CreateMapProjection());
            ASSERT_TRUE(algorithm);
            double x = 0, y = 0, lon = 0, lat = 0;
            algorithm->Geo2Proj(10, 50, &x, &y);
            algorithm->Proj2Geo(x, y, &lon, &lat);
            parser.GetNoOfParameters();
            parser.GetProjectionTypeTitle();
        }
    }

    // A prime meridian at infinity and units of zero still build.
    const std::string text =
        "PROJCS[\"bad\",GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378137,nan]],PRIMEM[\"p\",inf],"
        "UNIT[\"u\",0]],PROJECTION[\"Transverse_Mercator\"]," +
        Utm32Parameters() + "UNIT[\"m\",0]]";
    CGxPRJParser parser(text);
    EXPECT_TRUE(parser.Parse(false));
    const Algorithm algorithm(parser.CreateMapProjection());
    ASSERT_TRUE(algorithm);
    double x = 0, y = 0;
    algorithm->Geo2Proj(9, 50, &x, &y);
    algorithm->Proj2Geo(x, y, &x, &y);
}

// A spheroid without a size is no figure: a semi-major axis of 0 (as some
// writers put in a file they could not fill), negative, NaN, infinite or not
// a number at all refuses the text, projected or geographic, instead of
// building grids and Earth-centred coordinates on nothing. Before, such texts
// opened and every length on them was meaningless.
TEST(WktToProjection, SpheroidWithoutSizeIsRefused) {
    for (const char* major : {"0", "0.0000000000000000", "-1", "-6378137", "nan", "inf", "x"}) {
        SCOPED_TRACE(major);
        const std::string spheroid = std::string("SPHEROID[\"s\",") + major + ",298.257223563]";
        const std::string geogcs = "GEOGCS[\"g\",DATUM[\"d\"," + spheroid +
                                   "],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
        for (const std::string& text :
             {geogcs, "PROJCS[\"p\"," + geogcs + ",PROJECTION[\"Transverse_Mercator\"]," +
                          Utm32Parameters() + "UNIT[\"m\",1]]"}) {
            CGxPRJParser parser(text);
            EXPECT_FALSE(parser.Parse(false));
            EXPECT_EQ(parser.GetProjectionType(), CGxMapProjData::eInvalidProjection);
            EXPECT_EQ(Algorithm(parser.CreateMapProjection()), nullptr);
        }
    }
    // A sphere (inverse flattening 0) is a figure. A name with brackets in
    // it keeps the numbers after it ("WGS 84 [EPSG ID 7030]" was read with
    // the semi-major axis 0), and an empty name does not take the numbers.
    struct Figure {
        const char* spheroid;
        const char* name;
        double major, invFlattening;
    };
    const Figure figures[] = {
        {"SPHEROID[\"Sphere\",6371000,0]", "Sphere", 6371000, 0},
        {"SPHEROID[\"WGS 84 [EPSG ID 7030]\",6378137.0,298.257223563]", "WGS 84 [EPSG ID 7030]",
         6378137, 298.257223563},
        {"SPHEROID[\"\",6378137,298.257223563]", "", 6378137, 298.257223563},
    };
    for (const Figure& f : figures) {
        SCOPED_TRACE(f.spheroid);
        CGxPRJParser parser(std::string("GEOGCS[\"g\",DATUM[\"d\",") + f.spheroid +
                            "],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]");
        EXPECT_TRUE(parser.Parse(false));
        std::string name;
        double major = 0, invFlattening = -1;
        parser.GetEllipsoid(name, major, invFlattening);
        EXPECT_EQ(name, f.name);
        EXPECT_EQ(major, f.major);
        EXPECT_EQ(invFlattening, f.invFlattening);
    }
}
