// Definitions and algorithms handed to the WKT writer. What they write must
// read back (CGxPRJParser(text).Parse) to the same type, names, spheroid and
// parameters; a system whose ellipsoid the catalogue does not know becomes a
// "Non_Projected" plane grid.
//
// The spheroid numbers expected are those of the ellipsoid catalogue
// (data/ellipsoid.zpf), which carries the published EPSG values: WGS 84
// 6378137 / 298.257223563, GRS 1980 6378137 / 298.257222101, Bessel 1841
// 6377397.155 / 299.1528128, International 1924 6378388 / 297, Everest
// (Sabah and Sarawak) 6377298.556 / 300.8017.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/MapProjectionList.h"
#include "definitions/GeographicalProjection.h"
#include "definitions/MapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "mapprojection/MapProjection.h"
#include "projections/IsoMetric.h"
#include "projections/Lambert2SP.h"
#include "projections/TransverseMercator.h"
#include "projections/TransverseMercatorJHS.h"
#include "wkt/PRJParser.h"

namespace {

using EType = CGxMapProjData::EProjectionType;
using Def = std::unique_ptr<CGxMapProjData>;
using Grid = std::unique_ptr<CGxProjection>;

struct Spheroid {
    const char* name;
    double a, invF;
};
const Spheroid kWgs84 = {"WGS 84", 6378137, 298.257223563};
const Spheroid kGrs80 = {"GRS 1980", 6378137, 298.257222101};
const Spheroid kBessel = {"Bessel 1841", 6377397.155, 299.1528128};
const Spheroid kHayford = {"International 1924", 6378388, 297};
const Spheroid kEverestSabah = {"Everest (Sabah and Sarawak)", 6377298.556, 300.8017};
const Spheroid kModelSphere = {"Sphere for rotated-pole model grids", 6371229, 0};

std::string Written(const CGxPRJParser& parser) {
    std::string text;
    EXPECT_TRUE(parser.Format(text));
    return text;
}

// The written text read back.
std::unique_ptr<CGxPRJParser> ReadBack(const CGxPRJParser& written, bool sortParallels = true) {
    auto read = std::make_unique<CGxPRJParser>(Written(written));
    EXPECT_TRUE(read->Parse(sortParallels)) << Written(written);
    return read;
}

void ExpectSpheroid(const CGxPRJParser& parser, const Spheroid& expected) {
    std::string name;
    double a = 0, invF = 0;
    parser.GetEllipsoid(name, a, invF);
    EXPECT_EQ(name, expected.name);
    EXPECT_EQ(a, expected.a);
    EXPECT_EQ(invF, expected.invF);
}

// Every parameter of the definition, as the definition rebuilt from the read
// text lists it: same count, labels and values.
void ExpectParameters(const CGxPRJParser& read, const CGxMapProjData& original) {
    ASSERT_EQ(read.GetNoOfParameters(), original.GetNoOfParameters());
    for (int i = 0; i < original.GetNoOfParameters(); ++i) {
        std::string label, readLabel, unit;
        double value = 0, readValue = 0, factor = 0;
        CGxMapProjData::EParamType kind;
        ASSERT_TRUE(original.GetParameter(i, label, value, kind));
        ASSERT_EQ(read.GetParameter(i, readLabel, readValue, unit, factor), 1);
        EXPECT_EQ(readLabel, label);
        // Sixteen digits keep a catalogue value to its last bit or two.
        EXPECT_DOUBLE_EQ(readValue, value) << label;
    }
}

std::string ProjUnitName(const CGxPRJParser& parser) {
    std::string name;
    double factor = 0;
    parser.GetProjUnit(name, factor);
    EXPECT_EQ(factor, 1.0);
    return name;
}

// One definition of every type, on catalogue ellipsoids, with parameters of
// real grids where there is one (values in the definitions' index order).
struct DefinitionCase {
    EType type;
    const char* ellipsoid;
    Spheroid spheroid;
    std::vector<double> params;
};
const DefinitionCase kDefinitions[] = {
    {CGxMapProjData::eTransverseMercator, "BR", kBessel, {1, 9, 0, 3500000, 0}},
    {CGxMapProjData::eLambert2SP, "RF", kGrs80, {44, 49, 3, 46.5, 700000, 6600000}},
    {CGxMapProjData::eLambert1SP, "IN", kHayford, {0.99987742, 0, 52, 600000, 2200000}},
    {CGxMapProjData::eStereographic,
     "BR",
     kBessel,
     {0.9999079, 5.38763888888889, 52.1561605555556, 155000, 463000}},
    {CGxMapProjData::eNewZealandMapGrid, "IN", kHayford, {173, -41, 2510000, 6023150}},
    {CGxMapProjData::eHotineObliqueMercator,
     "RF",
     kGrs80,
     {0.9999, -133.666666666667, 57, 323.130102361111, 5000000, -5000000}},
    {CGxMapProjData::eObliqueMercator,
     "BR",
     kBessel,
     {1, 7.43958333333333, 46.9524055555556, 90, 2600000, 1200000}},
    {CGxMapProjData::eRectifiedSkewOrthomorphic,
     "EB",
     kEverestSabah,
     {0.99984, 115, 4, 53.3158204722222, 53.1301023611111, 590476.87, 442857.65}},
    {CGxMapProjData::eRotatedLongitudeLatitude, "XY", kModelSphere, {10, -40, 25}},
    {CGxMapProjData::eMercator2SP, "WE", kWgs84, {-41, 100, 250000, 10000}},
    {CGxMapProjData::eMercator1SP, "BR", kBessel, {0.997, 110, 3900000, 900000}},
    {CGxMapProjData::eStereographicNorthPole, "WE", kWgs84, {70, -45, 2000000, 2000000}},
    {CGxMapProjData::eStereographicSouthPole, "WE", kWgs84, {-71, 0, 1500000, 1000000}},
    {CGxMapProjData::eGeographical, "WE", kWgs84, {}},
    {CGxMapProjData::eKrovak,
     "BR",
     kBessel,
     {0.9999, 78.5, 24.8333333333333, 49.5, 30.2881397527778, 90, -1, 1, 0, 0}},
    {CGxMapProjData::eAlbersEqualArea, "RF", kGrs80, {29.5, 45.5, -96, 23, 0, 0}},
    {CGxMapProjData::eLambertAzimuthalEqualArea, "RF", kGrs80, {10, 52, 4321000, 3210000}},
    {CGxMapProjData::eCassiniSoldner,
     "BR",
     kBessel,
     {13.6272036666667, 52.4186482777778, 40000, 10000}},
    {CGxMapProjData::eEquidistantConic, "WE", kWgs84, {20, 60, -96, 40, 100000, 200000}},
    {CGxMapProjData::ePolarStereographic, "WE", kWgs84, {0.994, 0, 90, 2000000, 2000000}},
};

Def MakeDefinition(const DefinitionCase& c, const std::string& ellipsoid) {
    std::vector<double> params = c.params;
    params.resize(10, 0.0);
    return Def(CGxMapProjData::CreateProjection(c.type, "Grid " + std::to_string(c.type),
                                                "Branch " + std::to_string(c.type), ellipsoid,
                                                params.data()));
}

}  // namespace

TEST(DefinitionTransfer, EveryTypeReadsBack) {
    for (const DefinitionCase& c : kDefinitions) {
        SCOPED_TRACE("type " + std::to_string(c.type));
        const Def definition = MakeDefinition(c, c.ellipsoid);
        ASSERT_TRUE(definition);
        const CGxPRJParser written(definition.get());
        const auto read = ReadBack(written);

        EXPECT_EQ(read->GetProjectionType(), c.type);
        EXPECT_EQ(read->GetProjCSname(), definition->GetName());
        EXPECT_EQ(read->GetGeoCSname(), "Unused");
        EXPECT_EQ(read->GetDatum(), definition->GetBranchName());
        ExpectSpheroid(*read, c.spheroid);
        std::string name;
        double value = 0;
        read->GetPrimeMeridian(name, value);
        EXPECT_EQ(name, "Greenwich");
        EXPECT_EQ(value, 0.0);
        read->GetAngularUnit(name, value);
        EXPECT_EQ(name, "Degree");
        EXPECT_DOUBLE_EQ(value, kGxDegToRad);
        // Geographical and rotated-pole grids give their coordinates in
        // degrees.
        const bool degrees = c.type == CGxMapProjData::eGeographical ||
                             c.type == CGxMapProjData::eRotatedLongitudeLatitude;
        EXPECT_EQ(ProjUnitName(*read), degrees ? "Degree" : "Meter");
        ExpectParameters(*read, *definition);
    }
}

TEST(DefinitionTransfer, UnknownEllipsoidGivesNonProjectedPlaneGrid) {
    // Identifiers are matched exactly: "we" is not WGS 84's "WE".
    for (const char* id : {"ZZ", "", "we"}) {
        SCOPED_TRACE(std::string("ellipsoid '") + id + "'");
        const Def tm = MakeDefinition(kDefinitions[0], id);
        const CGxPRJParser written(tm.get());
        EXPECT_EQ(written.GetProjectionType(), CGxMapProjData::eNonProjected);
        EXPECT_EQ(written.GetProjectionTypeName(), "Non_Projected");
        const std::string text = Written(written);
        EXPECT_NE(text.find("SPHEROID[\" \",-1e-35,-1e-35]]"), std::string::npos) << text;

        // A Transverse Mercator parameter set is exactly what a plane grid
        // reads, so it comes back whole.
        const auto read = ReadBack(written);
        EXPECT_EQ(read->GetProjectionType(), CGxMapProjData::eNonProjected);
        EXPECT_EQ(read->GetFalseEasting(), 3500000);
        EXPECT_EQ(read->GetCentralMeridian(), 9);
        EXPECT_EQ(read->GetScaleFactor(), 1);
    }
    // A conic has no scale factor to give: the plane grid lacks it.
    const Def lambert = MakeDefinition(kDefinitions[1], "ZZ");
    const std::string text = Written(CGxPRJParser(lambert.get()));
    EXPECT_NE(text.find("PROJECTION[\"Non_Projected\"],PARAMETER[\"False_Easting\",700000]"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("PARAMETER[\"Scale_Factor\",-1e-35]"), std::string::npos) << text;
}

TEST(DefinitionTransfer, NullObjectLeavesTheRecordUndefined) {
    const CGxPRJParser fromDefinition(static_cast<CGxMapProjData*>(nullptr));
    const CGxPRJParser fromAlgorithm(static_cast<CGxProjection*>(nullptr));
    for (const CGxPRJParser* p : {&fromDefinition, &fromAlgorithm}) {
        EXPECT_EQ(p->GetProjectionType(), CGxMapProjData::eInvalidProjection);
        std::string text;
        EXPECT_FALSE(p->Format(text));
    }
}

TEST(AlgorithmTransfer, CatalogueUtmZone) {
    // The catalogue's UTM zone 33 (central meridian 15 = 6 * 33 - 183) as the
    // algorithm the catalogue definition builds.
    CGxMapProjData* zone =
        CGxCartSetup::Instance().GetMapProjectionList().GetMapProjection("UTM-33");
    ASSERT_NE(zone, nullptr);
    const Grid grid(zone->CreateProjection());
    ASSERT_TRUE(grid);
    EXPECT_EQ(Written(CGxPRJParser(grid.get())),
              "PROJCS[\"UTM-33\",GEOGCS[\"Unused\",DATUM[\"UTM Projections\",SPHEROID[\"WGS 84\","
              "6378137,298.257223563]],PRIMEM[\"Greenwich\",0],UNIT[\"Degree\","
              "0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"False_"
              "Easting\",500000],PARAMETER[\"False_Northing\",0],PARAMETER[\"Central_Meridian\","
              "15],PARAMETER[\"Scale_Factor\",0.9996],PARAMETER[\"Latitude_Of_Origin\",0],UNIT["
              "\"Meter\",1]]");
}

TEST(AlgorithmTransfer, EveryTypeOfTheCatalogueReadsBack) {
    // The first catalogue system of each type with a known ellipsoid. The
    // catalogue's only geographical system, "LONG/LAT", has no ellipsoid, so
    // one is added for the test.
    auto* geographic = new CGxGeographicalProjection("Transfer test geographic", "Test", "WE");
    CGxMapProjection::AddMapProjection(geographic);

    CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    std::map<int, CGxMapProjData*> firstOfType;
    for (auto it = list.GetIteratorBegin(); it != list.GetIteratorEnd(); ++it) {
        CGxMapProjData* d = *it;
        if (!CGxMapProjection::EllipsoidFromID(d->GetEllipsoidID())) continue;
        firstOfType.emplace(d->GetProjectionType(), d);
    }
    ASSERT_EQ(firstOfType.size(), 20u);

    for (const auto& [type, definition] : firstOfType) {
        SCOPED_TRACE(definition->GetName());
        const Grid grid(definition->CreateProjection());
        ASSERT_TRUE(grid);
        const CGxPRJParser written(grid.get());
        EXPECT_EQ(written.GetProjectionType(), type);
        // Read as written: the southern Albers grids list their parallels
        // from the equator outwards, which sorting would swap.
        const auto read = ReadBack(written, false);
        EXPECT_EQ(read->GetProjectionType(), type);
        EXPECT_EQ(read->GetProjCSname(), definition->GetName());
        EXPECT_EQ(read->GetDatum(), definition->GetBranchName());
        const CGxEllipsoid* figure =
            CGxMapProjection::EllipsoidFromID(definition->GetEllipsoidID());
        ExpectSpheroid(*read,
                       {figure->GetName().c_str(), figure->GetMajor(), figure->GetInvFlatness()});
        ExpectParameters(*read, *definition);

        // The grid the text describes converts as the original does: nothing
        // was lost or put in another unit on the way.
        const Grid rebuilt(read->CreateMapProjection());
        ASSERT_TRUE(rebuilt);
        double lon0 = 0, lat0 = 0;
        grid->GetOrigin(&lon0, &lat0);
        const double lon = lon0 + 0.5, lat = std::max(-89.0, std::min(89.0, lat0 - 0.5));
        double x = 0, y = 0, xr = 0, yr = 0;
        grid->Geo2Proj(lon, lat, &x, &y);
        rebuilt->Geo2Proj(lon, lat, &xr, &yr);
        // This includes the Swiss grid, whose east-west central line once
        // made the last digit of its centre move it by centimetres.
        EXPECT_NEAR(xr, x, 1e-6);
        EXPECT_NEAR(yr, y, 1e-6);
    }
    CGxMapProjection::DeleteMapProjection(geographic);
}

TEST(AlgorithmTransfer, GaussKruegerWritesItsOwnCentralMeridian) {
    // Both Transverse Mercator forms named after the catalogue's zone 33 but
    // built on the meridian 16: the Gauss-Krueger form writes the meridian it
    // was built on, the series form the catalogue's.
    const CGxEllipsoid wgs84("WGS 84", "WE", 6378137, 298.257223563);
    CGxTransverseMercator gaussKrueger("UTM-33", 0.9996, 16, 0, 500000, 0, wgs84);
    CGxTransverseMercatorJHS series("UTM-33", 0.9996, 16, 0, 500000, 0, wgs84);
    EXPECT_EQ(CGxPRJParser(&gaussKrueger).GetCentralMeridian(), 16);
    EXPECT_EQ(CGxPRJParser(&series).GetCentralMeridian(), 15);
    for (CGxProjection* p :
         {static_cast<CGxProjection*>(&gaussKrueger), static_cast<CGxProjection*>(&series)}) {
        const CGxPRJParser written(p);
        EXPECT_EQ(written.GetProjectionType(), CGxMapProjData::eTransverseMercator);
        EXPECT_EQ(written.GetScaleFactor(), 0.9996);
        EXPECT_EQ(written.GetDatum(), "UTM Projections");
    }
}

TEST(AlgorithmTransfer, NameTheCatalogueDoesNotHold) {
    // Built from numbers under a name of its own: no definition and no figure
    // to be found, so the text is an empty plane grid.
    const CGxEllipsoid grs80("GRS 1980", "RF", 6378137, 298.257222101);
    CGxLambert2SP own("Lambert of my own", 44, 49, 3, 46.5, 700000, 6600000, grs80);
    const CGxPRJParser written(&own);
    EXPECT_EQ(written.GetProjectionType(), CGxMapProjData::eNonProjected);
    EXPECT_EQ(written.GetProjectionTypeName(), "Non_Projected");
    EXPECT_EQ(written.GetProjCSname(), "");
    EXPECT_EQ(written.GetFalseEasting(), 0.0);

    // A catalogue name of another type: the figure is found through that
    // entry, but its parameters are not taken for this type's.
    CGxLambert2SP misnamed("UTM-33", 44, 49, 3, 46.5, 700000, 6600000, grs80);
    const CGxPRJParser other(&misnamed);
    EXPECT_EQ(other.GetProjectionType(), CGxMapProjData::eLambert2SP);
    EXPECT_EQ(other.GetProjCSname(), "");
    EXPECT_EQ(other.GetFalseEasting(), 0.0);
    ExpectSpheroid(other, kWgs84);
}

TEST(AlgorithmTransfer, AffineGridWritesNothing) {
    CGxIsoMetric grid(0, 0, 1000, 0, 0, 1000, 10, 50, 10.01, 50.01);
    const CGxPRJParser written(&grid);
    EXPECT_EQ(written.GetProjectionType(), CGxMapProjData::eInvalidProjection);
    std::string text;
    EXPECT_FALSE(written.Format(text));
}
