// Writing a file and reading it back keeps its whole content: structure and
// order, repeated names, several values per keyword, texts byte for byte and
// doubles bit for bit, in any numeric locale.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/NumberText.h"
#include "tests/support/CommaLocale.h"
#include "zpf/zpf.h"

namespace {

namespace fs = std::filesystem;

// A folder of its own per test, removed afterwards.
class ZpfRoundTrip : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() / (std::string("gxzpf_rt_") + info->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    // Writes file, closes it and loads the result.
    void* Reload(void* file) {
        std::string path = (dir_ / "out.zpf").string();
        EXPECT_TRUE(zpfWrite(file, path.c_str()));
        zpfClose(file);
        void* back = zpfLoadFile(path.c_str());
        std::string message;
        EXPECT_NE(back, nullptr) << (zpfPeekErrorGlb(&message), message);
        return back;
    }

    fs::path dir_;
};

std::uint64_t Bits(double d) {
    std::uint64_t u;
    std::memcpy(&u, &d, sizeof u);
    return u;
}

// Doubles whose text form is easily wrong: binary fractions that are not
// exact, the unset marker, extremes, a denormal, a negative zero.
const std::vector<double> kAwkward = {0.1,   1e-35, -1e-35, 6378137.0, 298.257223563, 1.0 / 3.0, 2.0 / 3.0,
                                      5e-324, std::numeric_limits<double>::denorm_min() * 12345,
                                      std::numeric_limits<double>::min(), -0.0, 1e308,
                                      std::numeric_limits<double>::max(), 0.017453292519943295,
                                      std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

void* BuildAwkwardFile() {
    void* f = zpfCreate();
    zpfAddTarget(f, "NUMBERS");
    void* s = zpfAddSection(f, "ALL");
    void* k = zpfAddKeyword(s, "Values");
    for (double d : kAwkward) zpfAddValue(k, d);
    for (double d : kAwkward) zpfPutParam(s, "One", d);
    zpfEndSection(s);
    return f;
}

void ExpectAwkwardBack(void* f) {
    void* s = zpfSectionByNum(zpfTargetByNameNum(f, "NUMBERS", 1), 1);
    void* k = zpfKeywordByNameNum(s, "Values", 1);
    ASSERT_EQ(zpfGetNoParams(k), static_cast<int>(kAwkward.size()));
    for (std::size_t i = 0; i < kAwkward.size(); ++i) {
        double d = 0.0, e = 0.0;
        ASSERT_TRUE(zpfGetDouble(zpfParamByNum(k, static_cast<int>(i) + 1), &d));
        ASSERT_TRUE(zpfGetParam(s, "One", static_cast<int>(i) + 1, 1, &e));
        EXPECT_EQ(Bits(d), Bits(kAwkward[i])) << GxFormatNumber(kAwkward[i]);
        EXPECT_EQ(Bits(e), Bits(kAwkward[i])) << GxFormatNumber(kAwkward[i]);
    }
}

}  // namespace

TEST_F(ZpfRoundTrip, StructureOrderAndRepeatedNamesSurvive) {
    void* f = zpfCreate();
    zpfAddTarget(f, "FIRST");
    for (const char* name : {"B", "A", "B", "C", "B"}) {
        void* s = zpfAddSection(f, name);
        zpfPutParam(s, "K", std::string(name));
        zpfPutParam(s, "X", 1.0);
        zpfPutParam(s, "K", "again");
        zpfEndSection(s);
    }
    void* second = zpfAddTarget(f, "FIRST");  // a block name may repeat as well
    void* mixed = zpfAddSection(second, "MIXED");
    void* k = zpfAddKeyword(mixed, "Dms");
    zpfAddValue(k, 45.0);
    zpfAddValue(k, 30.0);
    zpfAddValue(k, 15.25);
    zpfAddValue(k, std::string("N"));
    zpfAddKeyword(mixed, "Empty");
    zpfEndSection(mixed);

    void* back = Reload(f);
    ASSERT_EQ(zpfGetNoTargets(back), 2);
    void* t1 = zpfTargetByNameNum(back, "FIRST", 1);
    ASSERT_EQ(zpfGetNoSections(t1), 5);
    EXPECT_EQ(zpfGetNoInstances(t1, "B"), 3);
    const char* order[] = {"B", "A", "B", "C", "B"};
    for (int i = 0; i < 5; ++i) {
        void* s = zpfSectionByNum(t1, i + 1);
        EXPECT_EQ(zpfGetName(s), order[i]);
        ASSERT_EQ(zpfGetNoKeywords(s), 3);
        EXPECT_EQ(zpfGetName(zpfKeywordByNum(s, 2)), "X");
        std::string v;
        EXPECT_TRUE(zpfGetParam(s, "K", 2, 1, &v));
        EXPECT_EQ(v, "again");
    }
    void* m = zpfSectionByNum(zpfTargetByNameNum(back, "FIRST", 2), 1);
    void* dms = zpfKeywordByNameNum(m, "Dms", 1);
    ASSERT_EQ(zpfGetNoParams(dms), 4);
    double sec = 0.0;
    EXPECT_TRUE(zpfGetDouble(zpfParamByNum(dms, 3), &sec));
    EXPECT_EQ(sec, 15.25);
    EXPECT_TRUE(zpfIsText(zpfParamByNum(dms, 4)));
    EXPECT_EQ(zpfGetNoParams(zpfKeywordByNameNum(m, "Empty", 1)), 0);
    zpfClose(back);
}

TEST_F(ZpfRoundTrip, TextsAndNamesNeedingQuotesSurviveByteForByte) {
    const std::string texts[] = {"", "plain", "quote \" and backslash \\", "tab\tnew\nline\rcr",
                                 std::string("nul\0byte\x01\x7F", 10), "UTF-8 \xC3\xA9\xE2\x82\xAC", "# not a comment",
                                 "a, b = {c}"};
    void* f = zpfCreate();
    zpfAddTarget(f, "odd block { }");
    void* s = zpfAddSection(f, "");
    for (const auto& t : texts) zpfPutParam(s, t.c_str(), t);
    zpfEndSection(s);

    void* back = Reload(f);
    void* b = zpfTargetByNameNum(back, "odd block { }", 1);
    void* s2 = zpfSectionByNameNum(b, "", 1);
    ASSERT_EQ(zpfGetNoKeywords(s2), 8);
    for (int i = 0; i < 8; ++i) {
        std::string v;
        EXPECT_TRUE(zpfGetString(zpfParamByNum(zpfKeywordByNum(s2, i + 1), 1), &v));
        EXPECT_EQ(v, texts[i]);
        // The name is cut at its NUL: names are C strings.
        EXPECT_EQ(zpfGetName(zpfKeywordByNum(s2, i + 1)), std::string(texts[i].c_str()));
    }
    zpfClose(back);
}

TEST_F(ZpfRoundTrip, DoublesSurviveBitForBit) {
    void* back = Reload(BuildAwkwardFile());
    ExpectAwkwardBack(back);
    // Not a number stays not a number.
    void* again = zpfCreate();
    zpfAddTarget(again, "T");
    void* s = zpfAddSection(again, "S");
    zpfPutParam(s, "N", std::nan(""));
    zpfEndSection(s);
    void* nanBack = Reload(again);
    double d = 0.0;
    EXPECT_TRUE(zpfGetParam(zpfSectionByNum(zpfTargetByNum(nanBack, 1), 1), "N", 1, 1, &d));
    EXPECT_TRUE(std::isnan(d));
    zpfClose(nanBack);
    zpfClose(back);
}

TEST_F(ZpfRoundTrip, CommaDecimalLocaleChangesNothing) {
    std::string path = (dir_ / "comma.zpf").string();
    std::string expected;
    {
        void* f = BuildAwkwardFile();
        ASSERT_TRUE(zpfWrite(f, path.c_str()));
        zpfClose(f);
        std::ifstream in(path);
        expected.assign(std::istreambuf_iterator<char>(in), {});
    }
    gxtest::CommaLocale comma;
    if (!comma.active()) GTEST_SKIP() << comma.reason();
    // Reading under a comma locale...
    void* f = zpfLoadFile(path.c_str());
    ASSERT_NE(f, nullptr);
    ExpectAwkwardBack(f);
    // ...and writing under it give the same numbers and the same text.
    ASSERT_TRUE(zpfWrite(f, path.c_str()));
    zpfClose(f);
    std::ifstream in(path);
    std::string written(std::istreambuf_iterator<char>(in), {});
    EXPECT_EQ(written, expected);
    EXPECT_NE(written.find("0.1, 1e-35"), std::string::npos) << written;
}
