#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "datum/DatumConverter.h"
#include "foundation/Tolerance.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/TestFiles.h"

// Conversions between coordinate systems on different datums, checked
// against PROJ pipelines that make the same steps: inverse projection,
// geocentric coordinates on the source ellipsoid, the source's TOWGS84
// Helmert step, the target's Helmert step inverted, geodetic coordinates on
// the target ellipsoid, projection.

namespace {

using Conversion = CGxDatumConverter::ETypeOfConversion;

// The geographical systems the projected ones of tests/data/wkt stand on.
const char kDhdn[] =
    "GEOGCS[\"DHDN\",DATUM[\"Deutsches_Hauptdreiecksnetz\",SPHEROID[\"Bessel 1841\","
    "6377397.155,299.1528128],TOWGS84[598.1,73.7,418.2,0.202,0.045,-2.455,6.7]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
const char kDhdnWithoutShift[] =
    "GEOGCS[\"DHDN\",DATUM[\"Deutsches_Hauptdreiecksnetz\",SPHEROID[\"Bessel 1841\","
    "6377397.155,299.1528128]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
const char kEd50[] =
    "GEOGCS[\"ED50\",DATUM[\"European_Datum_1950\",SPHEROID[\"International 1924\",6378388,297],"
    "TOWGS84[-87,-98,-121,0,0,0,0]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
const char kEd50WithoutShift[] =
    "GEOGCS[\"ED50\",DATUM[\"European_Datum_1950\",SPHEROID[\"International 1924\",6378388,297]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";

std::string Ed50Utm31() {
    std::string text = GxReadPrj("ed50_utm32_towgs84_gdal.prj");
    const std::string from = "\"central_meridian\",9]";
    return text.replace(text.find(from), from.size(), "\"central_meridian\",3]");
}

struct Point {
    double x, y, z;
};

// Metres between two places: plane coordinates directly, longitude and
// latitude through the length of a degree on the sphere (ample for a
// millimetre check).
double Apart(const Point& a, const Point& b, bool geographical) {
    if (!geographical) return std::hypot(a.x - b.x, a.y - b.y);
    const double metresPerDegree = 6371000.0 * kGxDegToRad;
    const double dx = (a.x - b.x) * metresPerDegree * std::cos(b.y * kGxDegToRad);
    const double dy = (a.y - b.y) * metresPerDegree;
    return std::hypot(dx, dy);
}

constexpr double kMillimetre = 1e-3;

struct PipelineCase {
    const char* name;
    std::string source;
    std::string target;
    Conversion type;
    // Point in, point out of Convert; then of InvConvert.
    std::vector<std::pair<Point, Point>> forward;
    std::vector<std::pair<Point, Point>> inverse;
};

// The reference values come from cct, forward and (-I) inverse, with these
// pipelines; the horizontal values are those `cs2cs -f %.10f` gives for the
// same systems written with +towgs84 on both sides (cs2cs keeps the height,
// as the systems are two-dimensional to it, so the heights come from cct).
//   RDP="+proj=sterea +lat_0=52.1561605555556 +lon_0=5.38763888888889 +k=0.9999079
//        +x_0=155000 +y_0=463000 +ellps=bessel"
//   RDH="+proj=helmert +x=565.417 +y=50.3319 +z=465.552 +rx=-0.398957 +ry=0.343988
//        +rz=-1.8774 +s=4.0725 +convention=position_vector"
//   EDH="+proj=helmert +x=-87 +y=-98 +z=-121"
//   DHH="+proj=helmert +x=598.1 +y=73.7 +z=418.2 +rx=0.202 +ry=0.045 +rz=-2.455 +s=6.7
//        +convention=position_vector"
//   UTM="+proj=utm +zone=32 +ellps=intl"   DEG="+proj=unitconvert +xy_in=deg +xy_out=rad"
//   A: cct -d 5 +proj=pipeline +step +inv $RDP +step +proj=cart +ellps=bessel +step $RDH
//        +step +inv $EDH +step +inv +proj=cart +ellps=intl +step $UTM
//   B: cct -d 11 +proj=pipeline +step +inv $UTM +step +proj=cart +ellps=intl +step $EDH
//        +step +inv $DHH +step +inv +proj=cart +ellps=bessel +step +inv $DEG
//   C: cct -d 5 +proj=pipeline +step $DEG +step +proj=cart +ellps=WGS84 +step +inv $RDH
//        +step +inv +proj=cart +ellps=bessel +step $RDP
//   D: cct -d 11 +proj=pipeline +step $DEG +step +proj=cart +ellps=bessel +step $DHH
//        +step +inv $EDH +step +inv +proj=cart +ellps=intl +step +inv $DEG
std::vector<PipelineCase> PipelineCases() {
    const std::string rdNew = GxReadPrj("rdnew_towgs84_gdal.prj");
    const std::string ed50Utm32 = GxReadPrj("ed50_utm32_towgs84_gdal.prj");
    const std::string wgs84 = GxReadPrj("4326_gdal.prj");
    return {
        // A: seven-parameter projected to three-parameter projected.
        {"RD New to ED50 UTM 32",
         rdNew,
         ed50Utm32,
         CGxDatumConverter::eProjToProj,
         {{{155000, 463000, 0}, {252960.20049, 5784656.56934, 3.58829}},
          {{250000, 400000, -30}, {344733.06069, 5717008.42468, -25.18291}}},
         {{{300000, 5800000, 0}, {201202.41035, 480663.59540, -4.15032}},
          {{420000, 5700000, 100}, {326036.62772, 386731.57555, 94.41762}}}},
        // B: three-parameter projected to seven-parameter geographical.
        {"ED50 UTM 32 to DHDN",
         ed50Utm32,
         kDhdn,
         CGxDatumConverter::eProjToGeo,
         {{{500000, 5300000, 0}, {8.99991084383, 47.85244161338, -10.31826669723}},
          {{650000, 5900000, 500}, {11.24721579494, 53.22777876733, 492.82911305409}}},
         {{{9, 48, 0}, {500006.80259, 5316398.52863, 10.30871}},
          {{7.5, 53.25, 120}, {399943.59477, 5901167.03904, 124.86983}}}},
        // C: WGS 84 itself (no shift) to a seven-parameter projected system.
        {"WGS 84 to RD New",
         wgs84,
         rdNew,
         CGxDatumConverter::eGeoToProj,
         {{{4.9, 52.37, 0}, {121819.36513, 487013.76169, -42.97588}},
          {{5.7, 50.85, -10}, {177029.48403, 317843.11268, -55.37382}}},
         {{{155000, 463000, 0}, {5.38720350886, 52.15517229965, 43.34649968147}},
          {{233000, 582000, 75}, {6.55496289592, 53.21892499135, 116.28652939573}}}},
        // D: seven-parameter geographical to three-parameter geographical.
        {"DHDN to ED50",
         kDhdn,
         kEd50,
         CGxDatumConverter::eGeoToGeo,
         {{{9, 48, 0}, {9.00009118866, 47.99995041610, 10.30870647077}},
          {{13.4, 52.5, 35}, {13.39936533366, 52.49928573610, 43.73964094836}}},
         {{{9, 48, 0}, {8.99990879433, 48.00004958634, -10.30808219500}},
          {{13.4, 52.5, 35}, {13.40063478131, 52.50071436588, 26.26176678110}}}},
    };
}

void ExpectNear(const Point& actual, const Point& expected, bool geographical, bool withHeight) {
    EXPECT_LT(Apart(actual, expected, geographical), kMillimetre)
        << actual.x << " " << actual.y << " expected " << expected.x << " " << expected.y;
    if (withHeight) {
        EXPECT_NEAR(actual.z, expected.z, kMillimetre);
    }
}

const double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

// Every conversion type in both directions, with heights: a wrong rotation
// sign, rotations left in arc-seconds, the scale applied the wrong way, the
// target shift applied forwards, or a side projected that should not be,
// each moves the points by metres.
TEST(DatumConverter, AgreesWithPipelinesInAllFourTypes) {
    for (const PipelineCase& c : PipelineCases()) {
        SCOPED_TRACE(c.name);
        CGxDatumConverter converter(c.source.c_str(), c.target.c_str());
        converter.SetConversionType(c.type);
        EXPECT_FALSE(converter.GetBypassXYZ());
        const bool targetGeographical =
            c.type == CGxDatumConverter::eProjToGeo || c.type == CGxDatumConverter::eGeoToGeo;
        const bool sourceGeographical =
            c.type == CGxDatumConverter::eGeoToProj || c.type == CGxDatumConverter::eGeoToGeo;

        for (const auto& [in, expected] : c.forward) {
            Point p = in;
            converter.Convert(p.x, p.y, p.z);
            ExpectNear(p, expected, targetGeographical, true);
            // The two-coordinate call starts from height 0 and drops the
            // height: for a point at height 0 the same place.
            if (in.z == 0.0) {
                Point q = in;
                converter.Convert(q.x, q.y);
                ExpectNear(q, expected, targetGeographical, false);
            }
        }
        for (const auto& [in, expected] : c.inverse) {
            Point p = in;
            converter.InvConvert(p.x, p.y, p.z);
            ExpectNear(p, expected, sourceGeographical, true);
            if (in.z == 0.0) {
                Point q = in;
                converter.InvConvert(q.x, q.y);
                ExpectNear(q, expected, sourceGeographical, false);
            }
        }
    }
}

// Two systems on one ellipsoid with one shift need no geocentric step: the
// height passes as given and only the projections change. A bypass forced
// on a pair that does differ keeps longitude and latitude across the datums
// (what PROJ does for two systems it cannot relate), and the reset brings
// the datum shift back.
//   echo "500000 5300000 0" | cs2cs -f %.6f +proj=utm +zone=32 +ellps=intl
//     +to +proj=utm +zone=31 +ellps=intl               -> 948787.400150 5317452.657999
//   echo "155000 463000 12.5" | cs2cs -f %.6f $RDP +to +proj=utm +zone=32 +ellps=intl
//     -> 252901.788202 5784682.307142
TEST(DatumConverter, BypassKeepsHeightAndGeodeticPosition) {
    const std::string ed50Utm32 = GxReadPrj("ed50_utm32_towgs84_gdal.prj");
    const std::string zone31 = Ed50Utm31();
    CGxDatumConverter sameDatum(ed50Utm32.c_str(), zone31.c_str());
    EXPECT_TRUE(sameDatum.GetBypassXYZ());
    Point p{500000, 5300000, 123.4};
    sameDatum.Convert(p.x, p.y, p.z);
    ExpectNear(p, {948787.400150, 5317452.657999, 123.4}, false, true);
    EXPECT_EQ(p.z, 123.4);

    const std::string rdNew = GxReadPrj("rdnew_towgs84_gdal.prj");
    CGxDatumConverter converter(rdNew.c_str(), ed50Utm32.c_str());
    converter.BypassXYZ();
    EXPECT_TRUE(converter.GetBypassXYZ());
    Point q{155000, 463000, 12.5};
    converter.Convert(q.x, q.y, q.z);
    ExpectNear(q, {252901.788202, 5784682.307142, 12.5}, false, true);

    converter.ResetBypassXYZ();
    EXPECT_FALSE(converter.GetBypassXYZ());
    Point r{155000, 463000, 0};
    converter.Convert(r.x, r.y, r.z);
    ExpectNear(r, {252960.20049, 5784656.56934, 3.58829}, false, true);
}

// The geocentric step alone. A TOWGS84 record of rZ = 1 arc-second and a
// scale of 1 ppm must act as 4.84813681109536e-06 radians and 1.000001.
//   printf "6378137 0 0 0\n4000000 700000 4900000 0\n" | cct -d 6 +proj=helmert
//     +rz=1 +s=1 +convention=position_vector     (and cct -I for the way back)
TEST(DatumConverter, SevenParameterUnitsOfTheGeocentricStep) {
    const std::string source =
        "GEOGCS[\"test\",DATUM[\"D\",SPHEROID[\"WGS 84\",6378137,298.257223563],"
        "TOWGS84[0,0,0,0,0,1,1]],PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
    CGxDatumConverter converter(source.c_str(), GxReadPrj("4326_gdal.prj").c_str());
    struct Case {
        Point in, forward, back;
    };
    const Case cases[] = {
        {{6378137, 0, 0}, {6378143.378137, 30.922112, 0}, {6378130.621869, -30.922050, 0}},
        {{4000000, 700000, 4900000},
         {4000000.606301, 700020.092567, 4900004.900000},
         {3999999.393696, 699979.907473, 4899995.100005}},
    };
    for (const Case& c : cases) {
        Point p = c.in;
        converter.DatumShift(p.x, p.y, p.z);
        EXPECT_NEAR(p.x, c.forward.x, 1e-6);
        EXPECT_NEAR(p.y, c.forward.y, 1e-6);
        EXPECT_NEAR(p.z, c.forward.z, 1e-6);
        Point q = c.in;
        converter.InvDatumShift(q.x, q.y, q.z);
        EXPECT_NEAR(q.x, c.back.x, 1e-6);
        EXPECT_NEAR(q.y, c.back.y, 1e-6);
        EXPECT_NEAR(q.z, c.back.z, 1e-6);
    }
}

// Shifts set by hand are taken in radians and as a fraction, unlike those
// read from TOWGS84: DHDN's record given that way reproduces the pipeline
// value of a DHDN text that carries it (case B inverse above). Setting the
// target's record equal to the source's on the same ellipsoid turns the
// geocentric step off, while the reset still goes back to the choice made
// at construction.
TEST(DatumConverter, SetDatumShiftTakesRadiansAndAFraction) {
    const std::string ed50Utm32 = GxReadPrj("ed50_utm32_towgs84_gdal.prj");
    CGxDatumConverter converter(kDhdnWithoutShift, ed50Utm32.c_str());
    converter.SetConversionType(CGxDatumConverter::eGeoToProj);
    const double arcsec = kGxPi / 180.0 / 3600.0;
    double dhdn[7] = {598.1, 73.7, 418.2, 0.202 * arcsec, 0.045 * arcsec, -2.455 * arcsec, 6.7e-6};
    converter.SetDatumShift(CGxCartDef::eSevenParameterShift, dhdn, true);
    Point p{9, 48, 0};
    converter.Convert(p.x, p.y, p.z);
    ExpectNear(p, {500006.80259, 5316398.52863, 10.30871}, false, true);

    CGxDatumConverter sameFigure(ed50Utm32.c_str(), kEd50WithoutShift);
    EXPECT_FALSE(sameFigure.GetBypassXYZ());
    double ed50[3] = {-87, -98, -121};
    sameFigure.SetDatumShift(CGxCartDef::eThreeParameterShift, ed50, false);
    EXPECT_TRUE(sameFigure.GetBypassXYZ());
    sameFigure.ResetBypassXYZ();
    EXPECT_FALSE(sameFigure.GetBypassXYZ());
    // Different figures never bypass, whatever the shifts.
    CGxDatumConverter otherFigure(ed50Utm32.c_str(), kDhdnWithoutShift);
    otherFigure.SetDatumShift(CGxCartDef::eThreeParameterShift, ed50, false);
    EXPECT_FALSE(otherFigure.GetBypassXYZ());
}

// Swapping the systems swaps their shifts and turns projected-to-
// geographical into geographical-to-projected: the swapped converter's
// Convert is the first one's InvConvert (case B above). Swapping back
// restores the first behaviour.
TEST(DatumConverter, InvertOrderSwapsRolesAndTwiceRestores) {
    CGxDatumConverter converter(GxReadPrj("ed50_utm32_towgs84_gdal.prj").c_str(), kDhdn);
    converter.SetConversionType(CGxDatumConverter::eProjToGeo);
    CGxMapProjection* const first = converter.GetMapProjection(true);
    converter.InvertOrder();
    EXPECT_EQ(converter.GetMapProjection(false), first);
    Point p{9, 48, 0};
    converter.Convert(p.x, p.y, p.z);
    ExpectNear(p, {500006.80259, 5316398.52863, 10.30871}, false, true);
    Point q{500000, 5300000, 0};
    converter.InvConvert(q.x, q.y, q.z);
    ExpectNear(q, {8.99991084383, 47.85244161338, -10.31826669723}, true, true);

    converter.InvertOrder();
    EXPECT_EQ(converter.GetMapProjection(true), first);
    Point r{500000, 5300000, 0};
    converter.Convert(r.x, r.y, r.z);
    ExpectNear(r, {8.99991084383, 47.85244161338, -10.31826669723}, true, true);
}

// A local grid has no place on the Earth: whichever side it is on, and
// whatever the conversion type, nothing is converted.
TEST(DatumConverter, LocalGridOnEitherSideConvertsNothing) {
    const std::string rdNew = GxReadPrj("rdnew_towgs84_gdal.prj");
    const Conversion types[] = {CGxDatumConverter::eProjToProj, CGxDatumConverter::eProjToGeo,
                                CGxDatumConverter::eGeoToProj, CGxDatumConverter::eGeoToGeo};
    CGxDatumConverter localSource("NON-UTM", rdNew.c_str());
    CGxDatumConverter localTarget(rdNew.c_str(), "NON-UTM");
    for (CGxDatumConverter* converter : {&localSource, &localTarget}) {
        for (Conversion type : types) {
            converter->SetConversionType(type);
            double x = 155000, y = 463000, z = 7;
            converter->Convert(x, y, z);
            EXPECT_EQ(x, 155000);
            EXPECT_EQ(y, 463000);
            EXPECT_EQ(z, 7);
            converter->InvConvert(x, y, z);
            converter->InvConvert(x, y);
            EXPECT_EQ(x, 155000);
            EXPECT_EQ(y, 463000);
            EXPECT_EQ(z, 7);
        }
    }
}

// An owning converter's copies own copies of the systems and outlive the
// original; a borrowing converter's copies share the caller's systems.
TEST(DatumConverter, CopiesOwnOrShareTheSystems) {
    const std::string rdNew = GxReadPrj("rdnew_towgs84_gdal.prj");
    const std::string ed50Utm32 = GxReadPrj("ed50_utm32_towgs84_gdal.prj");
    const Point expected{252960.20049, 5784656.56934, 3.58829};

    auto* original = new CGxDatumConverter(rdNew.c_str(), ed50Utm32.c_str());
    CGxDatumConverter copy(*original);
    CGxDatumConverter assigned("NON-UTM", "NON-UTM");
    assigned = *original;
    EXPECT_NE(copy.GetMapProjection(true), original->GetMapProjection(true));
    EXPECT_NE(assigned.GetMapProjection(false), original->GetMapProjection(false));
    delete original;
    for (const CGxDatumConverter* c : {&copy, &assigned}) {
        Point p{155000, 463000, 0};
        c->Convert(p.x, p.y, p.z);
        ExpectNear(p, expected, false, true);
    }
    const CGxDatumConverter& self = assigned;
    assigned = self;
    Point p{155000, 463000, 0};
    assigned.Convert(p.x, p.y, p.z);
    ExpectNear(p, expected, false, true);

    CGxMapProjection source(rdNew);
    CGxMapProjection target(ed50Utm32);
    CGxDatumConverter borrowing(&source, &target);
    CGxDatumConverter shared(borrowing);
    EXPECT_EQ(shared.GetMapProjection(true), &source);
    EXPECT_EQ(shared.GetMapProjection(false), &target);
    Point q{155000, 463000, 0};
    shared.Convert(q.x, q.y, q.z);
    ExpectNear(q, expected, false, true);
}

// Input without a sensible answer gets a defined one: an unknown conversion
// type and missing systems leave the coordinates alone, NaN stays NaN, and
// the bare "UTM" (no zone) is refused as the map projection refuses it.
TEST(DatumConverter, HostileInputStaysDefined) {
    const std::string rdNew = GxReadPrj("rdnew_towgs84_gdal.prj");
    const std::string ed50Utm32 = GxReadPrj("ed50_utm32_towgs84_gdal.prj");
    CGxDatumConverter converter(rdNew.c_str(), ed50Utm32.c_str());
    converter.SetConversionType(static_cast<Conversion>(7));
    double x = 155000, y = 463000, z = 1;
    converter.Convert(x, y, z);
    converter.InvConvert(x, y, z);
    EXPECT_EQ(x, 155000);
    EXPECT_EQ(y, 463000);
    EXPECT_EQ(z, 1);
    converter.InvertOrder();
    converter.Convert(x, y, z);
    EXPECT_EQ(x, 155000);

    converter.SetConversionType(CGxDatumConverter::eProjToProj);
    x = kNaN;
    y = 463000;
    z = 0;
    converter.Convert(x, y, z);
    EXPECT_TRUE(std::isnan(x) || std::isnan(y));

    CGxDatumConverter nothing(static_cast<CGxMapProjection*>(nullptr), nullptr);
    EXPECT_EQ(nothing.GetMapProjection(true), nullptr);
    x = 1;
    y = 2;
    z = 3;
    nothing.Convert(x, y, z);
    nothing.InvConvert(x, y);
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 3);
    // Setting shifts on it, a null record included, changes nothing either.
    nothing.SetDatumShift(CGxCartDef::eSevenParameterShift, nullptr, true);
    nothing.Convert(x, y, z);
    EXPECT_EQ(x, 1);

    EXPECT_THROW(CGxDatumConverter("UTM", rdNew.c_str()), std::out_of_range);
    EXPECT_THROW(CGxDatumConverter(rdNew.c_str(), "UTM"), std::out_of_range);
}

// The web Mercator's sphere is a device of the projection: its longitudes and
// latitudes are WGS 84's. Every form of it (the library's own string, ESRI's,
// old GDAL's, GeoTools', a Mercator named the pseudo-Mercator) converts to
// and from WGS 84 without a geocentric step, heights unchanged, as PROJ does;
// before, the step went through the sphere and landed up to 42 km off.
//   printf '0 0\n50 10\n-60 -120\n80 150\n-85 179.9\n' | cs2cs -f %.6f EPSG:4326 EPSG:3857
// Towards another datum it leaves through WGS 84's ellipsoid:
//   P="+proj=pipeline +step +inv +proj=webmerc +ellps=WGS84 +step +proj=cart +ellps=WGS84
//      +step +inv +proj=helmert +x=-87 +y=-98 +z=-121 +step +inv +proj=cart +ellps=intl
//      +step +proj=utm +zone=32 +ellps=intl"
//   cct -d 6 $P (and cct -I -d 6 $P for the way back)
TEST(DatumConverter, WebMercatorLongitudesAndLatitudesAreWgs84s) {
    const std::string forms[] = {
        CGxMapProjection::IDtoProjectionString(CGxMapProjection::eGoogleMaps),
        GxReadPrj("3857_esri.prj"),
        GxReadPrj("3857_gdal.prj"),
        GxReadPrj("dialects/web_mercator_geotools.prj"),
        GxReadPrj("dialects/web_mercator_named.prj"),
        GxReadPrj("dialects/web_mercator_named_1sp.prj"),
    };
    const std::vector<std::pair<Point, Point>> wgs84ToWebMercator = {
        {{0, 0, 0}, {0, 0, 0}},
        {{10, 50, 123.4}, {1113194.907933, 6446275.841017, 123.4}},
        {{-120, -60, -20}, {-13358338.895193, -8399737.889818, -20}},
        {{150, 80, 0}, {16697923.618991, 15538711.096309, 0}},
        {{179.9, -85, 0}, {20026376.393710, -19971868.880409, 0}},
    };
    const std::vector<std::pair<Point, Point>> toEd50Utm32 = {
        {{1113194.907933, 6446275.841017, 0}, {571750.043219, 5539311.655440, -38.753192}},
        {{1669792.361900, 6274861.394007, 100}, {938829.067844, 5445024.499048, 64.060523}},
    };
    const std::vector<std::pair<Point, Point>> fromEd50Utm32 = {
        {{500000, 5300000, 0}, {1001751.686538, 6082191.814427, 43.190825}},
        {{650000, 5900000, 100}, {1251875.971725, 7024962.599284, 133.000587}},
    };
    const std::string wgs84 = GxReadPrj("4326_esri.prj");
    const std::string ed50Utm32 = GxReadPrj("ed50_utm32_towgs84_gdal.prj");
    for (const std::string& form : forms) {
        SCOPED_TRACE(form);
        CGxDatumConverter fromWgs84(wgs84.c_str(), form.c_str());
        EXPECT_TRUE(CGxDatumConverter::IsWebMercator(*fromWgs84.GetMapProjection(false)));
        EXPECT_TRUE(fromWgs84.GetBypassXYZ());
        fromWgs84.SetConversionType(CGxDatumConverter::eGeoToProj);
        for (const auto& [in, expected] : wgs84ToWebMercator) {
            Point p = in;
            fromWgs84.Convert(p.x, p.y, p.z);
            ExpectNear(p, expected, false, true);
            fromWgs84.InvConvert(p.x, p.y, p.z);
            ExpectNear(p, in, true, true);
        }
        // The same from the web Mercator's side.
        CGxDatumConverter toWgs84(form.c_str(), wgs84.c_str());
        toWgs84.SetConversionType(CGxDatumConverter::eProjToGeo);
        Point q = wgs84ToWebMercator[1].second;
        toWgs84.Convert(q.x, q.y, q.z);
        ExpectNear(q, wgs84ToWebMercator[1].first, true, true);

        CGxDatumConverter toEd50(form.c_str(), ed50Utm32.c_str());
        EXPECT_FALSE(toEd50.GetBypassXYZ());
        for (const auto& [in, expected] : toEd50Utm32) {
            Point p = in;
            toEd50.Convert(p.x, p.y, p.z);
            ExpectNear(p, expected, false, true);
        }
        for (const auto& [in, expected] : fromEd50Utm32) {
            Point p = in;
            toEd50.InvConvert(p.x, p.y, p.z);
            ExpectNear(p, expected, false, true);
        }
        // Inverting the order keeps each side's figure with its system.
        toEd50.InvertOrder();
        Point r = fromEd50Utm32[0].first;
        toEd50.Convert(r.x, r.y, r.z);
        ExpectNear(r, fromEd50Utm32[0].second, false, true);
    }

    // Only the sphere of WGS 84's semi-major axis, without a datum shift,
    // under a Mercator: a sphere of another radius, a shift, or another
    // projection keep their own figure and the geocentric step on it.
    const std::string sphere =
        "GEOGCS[\"s\",DATUM[\"s\",SPHEROID[\"s\",RADIUS,0]SHIFT],PRIMEM[\"Greenwich\",0],"
        "UNIT[\"degree\",0.0174532925199433]]";
    const auto projcs = [&sphere](const char* radius, const char* shift, const char* projection,
                                  const char* parameters) {
        std::string geogcs = sphere;
        geogcs.replace(geogcs.find("RADIUS"), 6, radius);
        geogcs.replace(geogcs.find("SHIFT"), 5, shift);
        return "PROJCS[\"p\"," + geogcs + ",PROJECTION[\"" + projection + "\"]," + parameters +
               "UNIT[\"metre\",1]]";
    };
    const char mercator[] =
        "PARAMETER[\"central_meridian\",0],PARAMETER[\"standard_parallel_1\",0],"
        "PARAMETER[\"false_easting\",0],PARAMETER[\"false_northing\",0],";
    const char transverse[] =
        "PARAMETER[\"central_meridian\",0],PARAMETER[\"scale_factor\",1],"
        "PARAMETER[\"latitude_of_origin\",0],PARAMETER[\"false_easting\",0],"
        "PARAMETER[\"false_northing\",0],";
    for (const std::string& other :
         {projcs("6371000", "", "Mercator", mercator),
          projcs("6378137", ",TOWGS84[1,2,3,0,0,0,0]", "Mercator", mercator),
          projcs("6378137", "", "Transverse_Mercator", transverse)}) {
        SCOPED_TRACE(other);
        CGxMapProjection system(other.c_str());
        ASSERT_TRUE(system.GetProjection());
        EXPECT_FALSE(CGxDatumConverter::IsWebMercator(system));
        CGxDatumConverter converter(wgs84.c_str(), other.c_str());
        EXPECT_FALSE(converter.GetBypassXYZ());
    }
    EXPECT_TRUE(CGxDatumConverter::IsWebMercator(
        CGxMapProjection(projcs("6378137", "", "Mercator", mercator).c_str())));
}
