// Register codes as users write them: a code read wrongly names another
// system, and a text taken for a code that is none would hide a name.

#include <gtest/gtest.h>

#include <string>

#include "catalogue/CatalogueCode.h"

namespace {
using Code = GxCatalogueCode;
}  // namespace

TEST(CatalogueCode, AcceptedSpellingsAndTheirCanonicalForm) {
    const struct {
        const char* text;
        Code::EAuthority authority;
        std::uint32_t number;
        const char* canonical;
    } cases[] = {
        {"EPSG:25832", Code::eEpsg, 25832, "EPSG:25832"},
        {"epsg:25832", Code::eEpsg, 25832, "EPSG:25832"},
        {"Epsg:4326", Code::eEpsg, 4326, "EPSG:4326"},
        {"ESRI:102031", Code::eEsri, 102031, "ESRI:102031"},
        {"esri:102005", Code::eEsri, 102005, "ESRI:102005"},
        {"urn:ogc:def:crs:EPSG::25832", Code::eEpsg, 25832, "EPSG:25832"},
        {"URN:OGC:DEF:CRS:epsg::3857", Code::eEpsg, 3857, "EPSG:3857"},
        // With the dataset version between the last two colons.
        {"urn:ogc:def:crs:EPSG:10.076:32733", Code::eEpsg, 32733, "EPSG:32733"},
        {"urn:ogc:def:crs:EPSG:v9:4326", Code::eEpsg, 4326, "EPSG:4326"},
        {"EPSG:999999999", Code::eEpsg, 999999999u, "EPSG:999999999"},
        {"EPSG:1", Code::eEpsg, 1, "EPSG:1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        Code code;
        ASSERT_TRUE(GxParseCatalogueCode(c.text, code));
        EXPECT_EQ(code.authority, c.authority);
        EXPECT_EQ(code.number, c.number);
        EXPECT_EQ(GxFormatCatalogueCode(code), c.canonical);
    }
}

TEST(CatalogueCode, OtherTextsAreNoCodeAndLeaveTheResultAlone) {
    const char* const texts[] = {
        "",
        "EPSG",
        "EPSG:",
        "EPSG::25832",
        "EPSG: 25832",
        " EPSG:25832",
        "EPSG:25832 ",
        "EPSG:025832",
        "EPSG:0",
        "EPSG:-25832",
        "EPSG:+25832",
        "EPSG:25832x",
        "EPSG:2.5",
        "EPSG:1e5",
        "EPSG:1000000000",
        "EPSG:4294967297",
        "EPSGX:25832",
        "EPS:25832",
        "IGNF:LAMB93",
        "OGC:CRS84",
        "UTM-32",
        "25832",
        // The URN needs both colons after the register, and nothing else.
        "urn:ogc:def:crs:EPSG:25832",
        "urn:ogc:def:crs:EPSG::",
        "urn:ogc:def:crs:EPSG:1:2:25832",
        "urn:ogc:def:crs:EPSG:a b:25832",
        "urn:ogc:def:crs::25832",
        "urn:ogc:def:EPSG::25832",
        "urn:x-ogc:def:crs:EPSG::25832",
    };
    for (const char* text : texts) {
        SCOPED_TRACE(text);
        Code code;
        code.authority = Code::eEsri;
        code.number = 7;
        EXPECT_FALSE(GxParseCatalogueCode(text, code));
        EXPECT_EQ(code.authority, Code::eEsri);
        EXPECT_EQ(code.number, 7u);
    }
    // A string holding a NUL after the number is not the code before it.
    Code code;
    EXPECT_FALSE(GxParseCatalogueCode(std::string("EPSG:25832\0", 11), code));
    EXPECT_EQ(GxFormatCatalogueCode(Code()), "");
}

// The two registers number independently: the same number in each is a
// different system.
TEST(CatalogueCode, RegistersKeepTheirNumbersApart) {
    Code epsg, esri;
    ASSERT_TRUE(GxParseCatalogueCode("EPSG:102031", epsg));
    ASSERT_TRUE(GxParseCatalogueCode("ESRI:102031", esri));
    EXPECT_NE(epsg, esri);
    EXPECT_NE(epsg.Key(), esri.Key());
}
