// Catalogue files in the layouts the ellipsoid and projection catalogues use,
// and write-then-read round trips that keep structure, order, texts byte for
// byte and doubles bit for bit, in any numeric locale.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/CommaLocale.h"
#include "zpf/zpf.h"

namespace {

namespace fs = std::filesystem;
using Limits = std::numeric_limits<double>;

const std::string kData = std::string(GXCART_TEST_DATA) + "/zpf/";

std::string Text(void* section, const char* keyword, int occurrence = 1, int valueNum = 1) {
    std::string s = "<absent>";
    zpfGetParam(section, keyword, occurrence, valueNum, &s);
    return s;
}

double Number(void* section, const char* keyword) {
    double d = -1.0;
    EXPECT_TRUE(zpfGetParam(section, keyword, 1, 1, &d)) << keyword;
    return d;
}

std::uint64_t Bits(double d) {
    std::uint64_t u;
    std::memcpy(&u, &d, sizeof u);
    return u;
}

// Doubles whose text form is easily wrong: inexact binary fractions, the
// unset marker, denormals, extremes, a negative zero, the non-finite values.
const std::vector<double> kAwkward = {0.1,
                                      1e-35,
                                      -1e-35,
                                      6378137.0,
                                      298.257223563,
                                      1.0 / 3.0,
                                      5e-324,
                                      Limits::denorm_min() * 12345,
                                      Limits::min(),
                                      -0.0,
                                      1e308,
                                      Limits::max(),
                                      0.017453292519943295,
                                      Limits::infinity(),
                                      -Limits::infinity(),
                                      Limits::quiet_NaN()};

// Every awkward double both as the values of one keyword and as keywords of
// their own.
void* BuildAwkwardFile() {
    void* f = zpfCreate();
    zpfAddTarget(f, "NUMBERS");
    void* s = zpfAddSection(f, "ALL");
    void* k = zpfAddKeyword(s, "Values");
    for (double d : kAwkward) zpfAddValue(k, d), zpfPutParam(s, "One", d);
    zpfEndSection(s);
    return f;
}

void ExpectAwkwardBack(void* f) {
    void* s = zpfSectionByNum(zpfTargetByNameNum(f, "NUMBERS", 1), 1);
    void* k = zpfKeywordByNameNum(s, "Values", 1);
    ASSERT_EQ(zpfGetNoParams(k), static_cast<int>(kAwkward.size()));
    for (int i = 0; i < static_cast<int>(kAwkward.size()); ++i) {
        double d = 0.0, e = 0.0;
        ASSERT_TRUE(zpfGetDouble(zpfParamByNum(k, i + 1), &d));
        ASSERT_TRUE(zpfGetParam(s, "One", i + 1, 1, &e));
        EXPECT_EQ(Bits(d), Bits(kAwkward[i])) << i;
        EXPECT_EQ(Bits(e), Bits(kAwkward[i])) << i;
    }
}

// A folder of its own per test and process, removed afterwards.
class ZpfRoundTrip : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() /
               ("gxzpf_" + std::string(info->name()) + "_" + std::to_string(getpid()));
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    // Writes and closes file, then loads what was written.
    void* Reload(void* file) {
        std::string path = (dir_ / "out.zpf").string();
        EXPECT_TRUE(zpfWrite(file, path.c_str()));
        zpfClose(file);
        return zpfLoadFile(path.c_str());
    }

    fs::path dir_;
};

}  // namespace

namespace {

void ExpectEllipsoids(void* f) {
    void* block = zpfTargetByNameNum(f, "ELLIPSOID_DEFINITION", 1);
    ASSERT_EQ(zpfGetNoInstances(block, "REF_ELLIPSOID"), 4);
    struct Row {
        const char* name;
        const char* id;
        double a;
        double rf;
    };
    const Row rows[] = {{"WGS 84", "WE", 6378137.0, 298.257223563},
                        {"GRS 1980", "RF", 6378137.0, 298.257222101},
                        {"Bessel 1841", "BR", 6377397.155, 299.1528128},
                        {"Sphere \"authalic\", r = 6371007.181 m", "SA", 6371007.181, 0.0}};
    for (int i = 0; i < 4; ++i) {
        void* s = zpfSectionByNameNum(block, "REF_ELLIPSOID", i + 1);
        EXPECT_EQ(Text(s, "Ellipsoid_Name"), rows[i].name);
        EXPECT_EQ(Text(s, "ID_Code"), rows[i].id);
        EXPECT_EQ(Number(s, "Semi_Major_Axis"), rows[i].a);
        EXPECT_EQ(Number(s, "Inverse_Flatness"), rows[i].rf);
    }
    void* grs = zpfSectionByNum(block, 2);
    // A number asked for as text is the text the file holds, not a reformat;
    // a quoted text is never a number.
    EXPECT_EQ(Text(grs, "Semi_Major_Axis"), "6378137.000");
    double d = 0.0;
    EXPECT_FALSE(zpfGetParam(grs, "ID_Code", 1, 1, &d));
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotANumber);
    EXPECT_EQ(zpfSectionByNameNum(block, "REF_ELLIPSOID", 5), nullptr);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotFound);
}

int Int(void* keyword, int valueNum) {
    int i = 99;
    return zpfGetInt(zpfParamByNum(keyword, valueNum), &i) ? i : -99;
}

void ExpectProjections(void* f) {
    void* block = zpfTargetByNameNum(f, "MAP_PROJECTION_DEFINITION", 1);
    ASSERT_EQ(zpfGetNoSections(block), 4);
    const char* order[] = {"UTM_PROJECTION", "LAMBERT_CONIC_2SP_PROJECTION",
                           "SOME_FUTURE_PROJECTION", "LAMBERT_CONIC_2SP_PROJECTION"};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(zpfGetName(zpfSectionByNum(block, i + 1)), order[i]);
    EXPECT_EQ(zpfGetNoInstances(block, "LAMBERT_CONIC_2SP_PROJECTION"), 2);
    EXPECT_EQ(zpfGetNoInstances(block, "lambert_conic_2sp_projection"), 0);
    // The first section has CR LF line ends.
    EXPECT_EQ(Text(zpfSectionByNum(block, 1), "Projection_Name"), "ETRS89 / UTM zone 32N");
    EXPECT_EQ(Number(zpfSectionByNameNum(block, "LAMBERT_CONIC_2SP_PROJECTION", 1), "Parallel_1"),
              10.0);

    void* dms = zpfKeywordByNameNum(zpfSectionByNum(block, 4), "Parallel_1_dms", 1);
    ASSERT_EQ(zpfGetNoParams(dms), 3);
    double seconds = 0.0;
    EXPECT_EQ(Int(dms, 1), -45);
    EXPECT_EQ(Int(dms, 2), 30);
    EXPECT_TRUE(zpfGetDouble(zpfParamByNum(dms, 3), &seconds));
    EXPECT_EQ(seconds, 15.5);
    // Refused as integers: seconds with a fraction (not cut to 15), a value
    // beyond int (not wrapped) and a quoted "45" (a text).
    EXPECT_EQ(Int(dms, 3), -99);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotANumber);
    void* future = zpfSectionByNum(block, 3);
    EXPECT_EQ(Int(zpfKeywordByNameNum(future, "Huge", 1), 1), -99);
    EXPECT_EQ(Int(zpfKeywordByNameNum(future, "Quoted", 1), 1), -99);
    EXPECT_EQ(zpfParamByNum(dms, 4), nullptr);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotFound);
}

}  // namespace

// Read as they stand, then written and read again: the same answers, so
// order, repeated names and several values per keyword all survive.
TEST_F(ZpfRoundTrip, CatalogueFilesReadAndSurviveRewriting) {
    void* ellipsoids = zpfLoadFile((kData + "ellipsoid.zpf").c_str());
    ASSERT_NE(ellipsoids, nullptr);
    ExpectEllipsoids(ellipsoids);
    void* again = Reload(ellipsoids);
    ExpectEllipsoids(again);
    zpfClose(again);

    void* projections = zpfLoadFile((kData + "map_projection.zpf").c_str());
    ASSERT_NE(projections, nullptr);
    ExpectProjections(projections);
    again = Reload(projections);
    ExpectProjections(again);
    zpfClose(again);
}

TEST_F(ZpfRoundTrip, TextsAndNamesNeedingQuotesSurviveByteForByte) {
    const std::string texts[] = {"",
                                 "quote \" and backslash \\",
                                 "tab\tnew\nline\rcr",
                                 std::string("nul\0byte\x01\x7F", 10),
                                 "UTF-8 \xC3\xA9\xE2\x82\xAC",
                                 "# not a comment",
                                 "a, b = {c}"};
    void* f = zpfCreate();
    zpfAddTarget(f, "odd block { }");
    void* s = zpfAddSection(f, "");
    for (const auto& t : texts) zpfPutParam(s, t.c_str(), t);
    zpfEndSection(s);

    void* back = Reload(f);
    void* s2 = zpfSectionByNameNum(zpfTargetByNameNum(back, "odd block { }", 1), "", 1);
    ASSERT_EQ(zpfGetNoKeywords(s2), 7);
    for (int i = 0; i < 7; ++i) {
        std::string v;
        EXPECT_TRUE(zpfGetString(zpfParamByNum(zpfKeywordByNum(s2, i + 1), 1), &v));
        EXPECT_EQ(v, texts[i]);
        // Names are C strings, cut at a NUL.
        EXPECT_EQ(zpfGetName(zpfKeywordByNum(s2, i + 1)), std::string(texts[i].c_str()));
    }
    zpfClose(back);
}

TEST_F(ZpfRoundTrip, DoublesSurviveBitForBit) {
    void* back = Reload(BuildAwkwardFile());
    ASSERT_NE(back, nullptr);
    ExpectAwkwardBack(back);
    zpfClose(back);
}

TEST_F(ZpfRoundTrip, CommaDecimalLocaleChangesNothing) {
    std::string path = (dir_ / "comma.zpf").string();
    void* built = BuildAwkwardFile();
    ASSERT_TRUE(zpfWrite(built, path.c_str()));
    zpfClose(built);
    std::ifstream before(path);
    std::string expected((std::istreambuf_iterator<char>(before)), {});

    gxtest::CommaLocale comma;
    if (!comma.active()) GTEST_SKIP() << comma.reason();
    void* f = zpfLoadFile(path.c_str());
    ASSERT_NE(f, nullptr);
    ExpectAwkwardBack(f);
    ASSERT_TRUE(zpfWrite(f, path.c_str()));
    zpfClose(f);
    std::ifstream after(path);
    std::string written((std::istreambuf_iterator<char>(after)), {});
    EXPECT_EQ(written, expected);
    EXPECT_NE(written.find("Values = 0.1, 1e-35, -1e-35, 6378137, 298.257223563,"),
              std::string::npos)
        << written;
}

// Nodes are stored in blocks; growing a file by thousands of sections must
// neither move nodes whose handles the caller holds nor mix up the values of
// a keyword that receives more values after other keywords were added.
TEST_F(ZpfRoundTrip, HandlesSurviveAFileGrowingByThousandsOfNodes) {
    void* f = zpfCreate();
    zpfAddTarget(f, "GROWN");
    void* first = zpfAddSection(f, "FIRST");
    void* spread = zpfAddKeyword(first, "Spread");
    zpfAddValue(spread, 0.0);
    void* value = zpfParamByNum(spread, 1);
    constexpr int kSections = 3000;
    for (int i = 1; i <= kSections; ++i) {
        void* s = zpfAddSection(f, "MORE");
        zpfPutParam(s, "Index", static_cast<double>(i));
        zpfPutParam(s, "Name", "section " + std::to_string(i));
        zpfEndSection(s);
        if (i % 1000 == 0) zpfAddValue(spread, static_cast<double>(i));
    }
    zpfEndSection(first);

    EXPECT_EQ(zpfGetName(first), "FIRST");
    EXPECT_EQ(zpfGetName(spread), "Spread");
    std::string text;
    ASSERT_TRUE(zpfGetString(value, &text));
    EXPECT_EQ(text, "0");

    void* back = Reload(f);
    void* block = zpfTargetByNameNum(back, "GROWN", 1);
    ASSERT_EQ(zpfGetNoSections(block), kSections + 1);
    void* grown = zpfKeywordByNameNum(zpfSectionByNum(block, 1), "Spread", 1);
    ASSERT_EQ(zpfGetNoParams(grown), 4);
    for (int v = 1; v <= 4; ++v) {
        double d = -1.0;
        EXPECT_TRUE(zpfGetDouble(zpfParamByNum(grown, v), &d));
        EXPECT_EQ(d, 1000.0 * (v - 1));
    }
    void* last = zpfSectionByNameNum(block, "MORE", kSections);
    EXPECT_EQ(Number(last, "Index"), kSections);
    EXPECT_EQ(Text(last, "Name"), "section 3000");
    zpfClose(back);
}
