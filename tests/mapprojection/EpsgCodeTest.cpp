// Projection strings that name a system by its register code ("EPSG:25832",
// "urn:ogc:def:crs:EPSG::25832", "ESRI:102031") resolve to the catalogue
// system carrying that code and behave exactly as its name does. Each test
// runs in a process of its own (gtest_discover_tests), which the first test
// relies on.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/MapProjectionList.h"
#include "definitions/MapProjData.h"
#include "definitions/TabledMapProjData.h"
#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "gxcart.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/ReferenceFile.h"

namespace {

using MP = CGxMapProjection;

// Points over Europe and beyond, for bit-for-bit comparisons.
const double kLongitudes[] = {-170.5, -3.25, 0.0, 9.0, 9.123456789, 14.75, 33.0, 179.9};
const double kLatitudes[] = {-79.5, -10.0, 0.0, 48.25, 54.987654321, 84.0};

// Both systems give the same bits for every point, forward and back, and the
// same convergence.
void ExpectSameConversions(const MP& a, const MP& b) {
    for (double lon : kLongitudes) {
        for (double lat : kLatitudes) {
            SCOPED_TRACE(testing::Message() << lon << ", " << lat);
            double xa = 0, ya = 0, xb = 0, yb = 0;
            a.Geo2Proj(lon, lat, &xa, &ya);
            b.Geo2Proj(lon, lat, &xb, &yb);
            EXPECT_EQ(std::memcmp(&xa, &xb, sizeof xa), 0) << xa << " " << xb;
            EXPECT_EQ(std::memcmp(&ya, &yb, sizeof ya), 0) << ya << " " << yb;
            double la = 0, pa = 0, lb = 0, pb = 0;
            a.Proj2Geo(xa, ya, &la, &pa);
            b.Proj2Geo(xa, ya, &lb, &pb);
            EXPECT_EQ(std::memcmp(&la, &lb, sizeof la), 0) << la << " " << lb;
            EXPECT_EQ(std::memcmp(&pa, &pb, sizeof pa), 0) << pa << " " << pb;
            const double ca = a.GetConvergence(lon, lat), cb = b.GetConvergence(lon, lat);
            EXPECT_EQ(std::memcmp(&ca, &cb, sizeof ca), 0) << ca << " " << cb;
        }
    }
}

bool Listed(const std::string& name) {
    CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    for (auto it = list.GetIteratorBegin(); it != list.GetIteratorEnd(); ++it)
        if ((*it)->GetName() == name) return true;
    return false;
}

}  // namespace

// Thousands of EPSG systems wait in a file read only when a look-up needs
// it: start-up, names and codes of the catalogue do not read it; a code only
// it carries does, and its systems are then found by name too but still not
// listed.
TEST(EpsgCode, DeferredSystemsAreReadOnFirstNeedAndThenKnownByName) {
    const CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    ASSERT_EQ(list.GetNoOfDeferredMapProjections(), 0u) << "read at start-up";
    EXPECT_NE(MP("UTM-32").GetProjection(), nullptr);
    EXPECT_NE(MP("EPSG:25832").GetProjection(), nullptr);
    EXPECT_NE(MP("EPSG:4326").GetProjection(), nullptr);
    EXPECT_EQ(list.GetNoOfDeferredMapProjections(), 0u);

    const MP coded("EPSG:2958");
    ASSERT_NE(coded.GetProjection(), nullptr);
    EXPECT_GT(list.GetNoOfDeferredMapProjections(), 4000u);
    EXPECT_STREQ(coded.GetName(), "NAD83(CSRS) / UTM zone 17N");
    const MP named("NAD83(CSRS) / UTM zone 17N");
    EXPECT_STREQ(named.GetProjectionString(), coded.GetProjectionString());
    ExpectSameConversions(coded, named);
    EXPECT_TRUE(MP::IsValid("NAD83(CSRS) / UTM zone 17N"));
    EXPECT_FALSE(Listed("NAD83(CSRS) / UTM zone 17N"));
}

// Every spelling of a code gives the bits of the system's name and the same
// normalised WKT.
TEST(EpsgCode, SpellingsOfACodeGiveTheNamedSystemBitForBit) {
    const MP named("ETRS89 / UTM zone 32N");
    ASSERT_NE(named.GetProjection(), nullptr);
    for (const char* s : {"EPSG:25832", "epsg:25832", "Epsg:25832", "urn:ogc:def:crs:EPSG::25832",
                          "URN:OGC:DEF:CRS:EPSG:10.076:25832", "  EPSG:25832\r\n"}) {
        SCOPED_TRACE(s);
        const MP coded(s);
        ASSERT_NE(coded.GetProjection(), nullptr);
        EXPECT_STREQ(coded.GetProjectionString(), named.GetProjectionString());
        EXPECT_STREQ(coded.GetName(), named.GetName());
        ExpectSameConversions(coded, named);
    }
    // The flat interface and a bare algorithm take codes too.
    GxMapProjectionHandle handle = nullptr;
    int status = -1;
    C_GXMP_CREATE("epsg:25832", &handle, &status);
    ASSERT_NE(handle, nullptr);
    double x = 0, y = 0, xn = 0, yn = 0;
    C_GXMP_GEO2PROJ(handle, 9.5, 48.25, &x, &y);
    named.Geo2Proj(9.5, 48.25, &xn, &yn);
    EXPECT_EQ(x, xn);
    EXPECT_EQ(y, yn);
    C_GXMP_DESTROY(&handle, &status);
    CGxProjection* algorithm = NewGxProjection("urn:ogc:def:crs:EPSG::25832");
    ASSERT_NE(algorithm, nullptr);
    EXPECT_STREQ(algorithm->GetName(), "ETRS89 / UTM zone 32N");
    CGxProjection::Release(algorithm);
}

// Every code the start-up catalogue carries reaches the system of its
// section, in both spellings: no code is hidden by another system with the
// same code or by a name.
TEST(EpsgCode, EveryCodeOfTheCatalogueNamesItsSystem) {
    CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    // Another test of this program may have read the deferred file already.
    const bool deferredUnread = list.GetNoOfDeferredMapProjections() == 0;
    int coded = 0;
    for (auto it = list.GetIteratorBegin(); it != list.GetIteratorEnd(); ++it) {
        const std::string& code = GxDefinitionCode(*it);
        if (code.empty()) continue;
        ++coded;
        SCOPED_TRACE(code);
        EXPECT_EQ(list.GetMapProjectionByCode(code), *it);
        const std::string urn = "urn:ogc:def:crs:" + code.substr(0, 4) + "::" + code.substr(5);
        const MP byCode(urn), byName((*it)->GetName());
        ASSERT_NE(byCode.GetProjection(), nullptr);
        EXPECT_STREQ(byCode.GetProjectionString(), byName.GetProjectionString());
    }
    EXPECT_EQ(coded, 93 + 124 + 221);
    // None of this needed the deferred systems.
    if (deferredUnread) {
        EXPECT_EQ(list.GetNoOfDeferredMapProjections(), 0u);
    }
}

// Codes of start-up and deferred systems against PROJ, to a millimetre
// forward; back to the point within 1e-8 degree (about a millimetre).
TEST(EpsgCode, ProjectedSystemsAgreeWithProj) {
    const auto rows = GxReadReferenceRows("epsg_codes/projected.txt", 5);
    for (const auto& r : rows) {
        const std::string code = "EPSG:" + std::to_string(static_cast<long>(r[0]));
        SCOPED_TRACE(code);
        const MP system(code);
        ASSERT_NE(system.GetProjection(), nullptr);
        double x = 0, y = 0, lon = 0, lat = 0;
        system.Geo2Proj(r[1], r[2], &x, &y);
        EXPECT_NEAR(x, r[3], 1e-3);
        EXPECT_NEAR(y, r[4], 1e-3);
        system.Proj2Geo(r[3], r[4], &lon, &lat);
        EXPECT_NEAR(lon, r[1], 1e-8);
        EXPECT_NEAR(lat, r[2], 1e-8);
    }
}

// The southern zone differs from the zone name by its false northing only:
// "UTM-33" at 10 degrees south gives a negative northing.
TEST(EpsgCode, SouthernZoneIsTheZoneWithTenThousandKilometresFalseNorthing) {
    const MP south("EPSG:32733"), zone("UTM-33");
    double xs = 0, ys = 0, xz = 0, yz = 0;
    south.Geo2Proj(15, -10, &xs, &ys);
    zone.Geo2Proj(15, -10, &xz, &yz);
    EXPECT_EQ(xs, xz);
    EXPECT_NEAR(ys - yz, 10000000.0, 1e-6);
    EXPECT_STREQ(south.GetName(), "WGS 84 / UTM zone 33S");
    // The northern zones of WGS 84 are the built-in zones under their EPSG
    // names, to the bit.
    ExpectSameConversions(MP("EPSG:32633"), zone);
}

// EPSG:3857 is the library's own spherical web Mercator string: the same
// bits and, compared as systems, identical.
TEST(EpsgCode, WebMercatorIsTheLibrarysOwnString) {
    const char* google = MP::IDtoProjectionString(MP::eGoogleMaps);
    const MP coded("EPSG:3857"), builtIn(google);
    ASSERT_NE(coded.GetProjection(), nullptr);
    ASSERT_NE(builtIn.GetProjection(), nullptr);
    ExpectSameConversions(coded, builtIn);
    EXPECT_TRUE(MP::AreIdentical("EPSG:3857", google));
    EXPECT_TRUE(MP::AreIdentical(google, "urn:ogc:def:crs:EPSG::3857"));
    CGxEllipsoid figure;
    ASSERT_TRUE(coded.GetProjection()->GetAnonymousEllipsoid(figure));
    EXPECT_EQ(figure.GetMajor(), 6378137.0);
    EXPECT_EQ(figure.GetMinor(), 6378137.0);
}

// Geographic codes are longitude and latitude (in that order, whatever the
// dataset's axis order) on the datum's ellipsoid, which datum conversions
// and geodesics use.
TEST(EpsgCode, GeographicCodesAreLongitudeLatitudeOnTheirEllipsoid) {
    const struct {
        const char* code;
        const char* name;
        double a, inverseFlattening;
    } cases[] = {
        {"EPSG:4326", "WGS 84", 6378137.0, 298.257223563},
        {"EPSG:4258", "ETRS89", 6378137.0, 298.257222101},
        {"EPSG:4269", "NAD83", 6378137.0, 298.257222101},
        {"EPSG:4230", "ED50", 6378388.0, 297.0},
        {"EPSG:4267", "NAD27", 6378206.4, 294.9786982},
        {"EPSG:4277", "OSGB36", 6377563.396, 299.3249646},
        // A deferred one, on an ellipsoid added for the EPSG systems.
        {"EPSG:7683", "GSK-2011", 6378136.5, 298.2564151},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code);
        const MP system(c.code);
        ASSERT_NE(system.GetProjection(), nullptr);
        EXPECT_STREQ(system.GetName(), c.name);
        EXPECT_TRUE(MP::IsGeographical(c.code));
        EXPECT_TRUE(system.IsGeographical());
        double x = 0, y = 0;
        system.Geo2Proj(-3.5, 52.25, &x, &y);
        EXPECT_EQ(x, -3.5);
        EXPECT_EQ(y, 52.25);
        CGxEllipsoid figure;
        ASSERT_TRUE(system.GetProjection()->GetAnonymousEllipsoid(figure));
        EXPECT_EQ(figure.GetMajor(), c.a);
        EXPECT_NEAR(figure.GetInvFlatness(), c.inverseFlattening, 1e-9);
        double distance = 0;
        EXPECT_TRUE(system.GetDistance(0, 0, 1, 0, distance));
        // One degree of the equator: a times pi / 180.
        EXPECT_NEAR(distance, c.a * 3.141592653589793 / 180.0, 1e-6);
    }
}

// The string predicates and the flat interface answer for a code what they
// answer for the name.
TEST(EpsgCode, PredicatesAnswerAsForTheName) {
    const char* name = "ETRS89 / UTM zone 32N";
    for (const char* code : {"EPSG:25832", "urn:ogc:def:crs:epsg::25832"}) {
        SCOPED_TRACE(code);
        EXPECT_TRUE(MP::IsValid(code));
        EXPECT_TRUE(MP::IsGeoreferenced(code));
        EXPECT_TRUE(MP::HasDatum(code));
        EXPECT_FALSE(MP::IsGeographical(code));
        EXPECT_FALSE(MP::IsLocal(code));
        for (int mask = 0; mask <= 15; ++mask)
            EXPECT_EQ(MP::IsType(mask, code), MP::IsType(mask, name)) << mask;
        EXPECT_EQ(MP::GetCoordSysType(code), MP::GetCoordSysType(name));
        EXPECT_TRUE(MP::AreIdentical(code, name));
        EXPECT_EQ(S_ISVALID(code), 1);
        EXPECT_EQ(S_HASDATUM(code), 1);
        EXPECT_EQ(S_ISTYPE(code, MP::eProjectedSystems), 1);
    }
    EXPECT_TRUE(MP::IsType(MP::eGeographicSystems, "EPSG:4326"));
    EXPECT_FALSE(MP::IsType(MP::eProjectedSystems, "EPSG:4326"));
    EXPECT_EQ(S_ISGEOGRAPHICAL("epsg:4326"), 1);
    // A code names its system's definition in the catalogue as its name does.
    const CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    EXPECT_EQ(list.GetMapProjectionByCode("EPSG:25832"), list.GetMapProjection(name));
    EXPECT_EQ(GxDefinitionCode(list.GetMapProjection(name)), "EPSG:25832");
    EXPECT_EQ(MP::Ellipsoid("EPSG:25832"), MP::Ellipsoid(name));
}

// Codes the catalogue does not carry are unknown strings: no system, no
// exception, every predicate false. EPSG:2263 is in US survey feet, which
// definitions cannot give, so it is deliberately absent.
TEST(EpsgCode, UnknownAndMalformedCodesAreUnknownStrings) {
    for (const char* s :
         {"EPSG:99999", "EPSG:2263", "EPSG:", "EPSG:025832", "EPSG: 25832", "EPSG:25832x",
          "EPSG:-25832", "EPSG:99999999999999999999", "urn:ogc:def:crs:EPSG:25832", "ESRI:54004",
          "IGNF:LAMB93", "EPSG:27572"}) {
        SCOPED_TRACE(s);
        MP system(s);
        EXPECT_EQ(system.GetProjection(), nullptr);
        EXPECT_STREQ(system.GetProjectionString(), "");
        EXPECT_FALSE(MP::IsValid(s));
        EXPECT_FALSE(MP::HasDatum(s));
        EXPECT_FALSE(MP::IsType(MP::eAllSystems, s));
        EXPECT_EQ(NewGxProjection(s), nullptr);
    }
}

// The ESRI systems of the catalogue answer to their ESRI codes.
TEST(EpsgCode, EsriCodesOfTheCatalogue) {
    ExpectSameConversions(MP("ESRI:102031"), MP("Europe Equidistant Conic"));
    ExpectSameConversions(MP("esri:102005"), MP("USA Contiguous Equidistant Conic"));
    // The same number in the other register is another system, or none.
    EXPECT_EQ(MP("EPSG:102031").GetProjection(), nullptr);
}

// A name wins over a code: a user's own system named like a code keeps that
// string. A user's own system named like a coded one does not take the code
// over, and the code's normalised WKT is that of the coded system.
TEST(EpsgCode, NamesWinOverCodesAndCodesKeepTheirSystem) {
    double zone33[] = {0.9996, 15.0, 0.0, 500000.0, 0.0};
    CGxMapProjData* named = CGxMapProjData::CreateProjection(CGxMapProjData::eTransverseMercator,
                                                             "EPSG:25832", "Mine", "RF", zone33);
    double odd[] = {1.0, 3.0, 0.0, 0.0, 0.0};
    CGxMapProjData* lookalike = CGxMapProjData::CreateProjection(
        CGxMapProjData::eTransverseMercator, "WGS 84 / UTM zone 33S", "Mine", "WE", odd);
    ASSERT_TRUE(named && lookalike);
    MP::AddMapProjection(named);
    MP::AddMapProjection(lookalike);

    double lon = 0, lat = 0;
    MP("EPSG:25832").GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 15.0, 1e-12);

    const MP coded("EPSG:32733");
    coded.GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 15.0, 1e-12);
    double x = 0, y = 0;
    coded.Geo2Proj(15, -10, &x, &y);
    EXPECT_NEAR(y, 8894587.5087, 1e-3);
    // Its string stands on its own and gives the same system again (read
    // back from WKT, to the last few bits).
    const MP again(coded.GetProjectionString());
    double x2 = 0, y2 = 0;
    again.Geo2Proj(15, -10, &x2, &y2);
    EXPECT_NEAR(x2, x, 1e-6);
    EXPECT_NEAR(y2, y, 1e-6);

    MP::DeleteMapProjection(named);
    MP::DeleteMapProjection(lookalike);
    MP("EPSG:25832").GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 9.0, 1e-12);
}
