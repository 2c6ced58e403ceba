// Reading values and finding keywords in files as they are loaded: numbers
// in every written form give the double the C library reads from the same
// text, bit for bit; keywords whose names differ in one byte anywhere are
// told apart by every look-up and by the shape checks; long sections and
// keywords with many values keep their order.

#include <gtest/gtest.h>
#include <locale.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "zpf/zpf.h"

namespace {

namespace fs = std::filesystem;

std::uint64_t Bits(double d) {
    std::uint64_t u;
    std::memcpy(&u, &d, sizeof u);
    return u;
}

// The reference: glibc's strtod in the C locale.
double CRead(const std::string& text) {
    static const locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    return strtod_l(text.c_str(), nullptr, c);
}

// Loads content from a scratch file of this test and process.
class ZpfLoaded : public ::testing::Test {
protected:
    void* Load(const std::string& content) {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        path_ = fs::temp_directory_path() /
                ("gxzpf_" + std::string(info->name()) + "_" + std::to_string(getpid()) + ".zpf");
        std::ofstream(path_, std::ios::binary) << content;
        file_ = zpfLoadFile(path_.string().c_str());
        EXPECT_NE(file_, nullptr);
        EXPECT_EQ(zpfGetNoProblems(file_), 0) << zpfGetProblem(file_, 1);
        return zpfSectionByNum(zpfTargetByNum(file_, 1), 1);
    }
    void TearDown() override {
        zpfClose(file_);
        fs::remove(path_);
    }

    fs::path path_;
    void* file_ = nullptr;
};

// Integers and plain decimals are the common case and take a shorter way
// than exponents or more than fifteen digits; on both sides of that border
// the value must be the correctly rounded one, and the text stays as written.
TEST_F(ZpfLoaded, NumbersAreTheDoublesTheCLibraryReads) {
    std::vector<std::string> texts = {"0",
                                      "-0",
                                      "+0",
                                      "-0.0",
                                      "0.000",
                                      "007",
                                      "+3",
                                      "-45",
                                      "6378137",
                                      "6378137.000",
                                      "298.257223563",
                                      "0.1",
                                      "0.3",
                                      "-0.9996",
                                      "123456789012345",
                                      "999999999999999",
                                      "1234567890123456",
                                      "9007199254740993",
                                      "0.000000000000001",
                                      "0.0000000000000001",
                                      "12345678.9012345",
                                      "1234567.890123456",
                                      "0.299792458",
                                      ".5",
                                      "5.",
                                      "-.5",
                                      "+.5",
                                      "1e22",
                                      "1e23",
                                      "4.9e-324",
                                      "1e-400",
                                      "1e400",
                                      "1.7976931348623157e308",
                                      "2.2250738585072011e-308",
                                      "00000000000000000001"};
    std::mt19937_64 random(20241124);
    for (int i = 0; i < 3000; ++i) {
        std::string digits;
        const int count = 1 + static_cast<int>(random() % 20);
        for (int d = 0; d < count; ++d) digits += static_cast<char>('0' + random() % 10);
        if (random() % 4 != 0) digits.insert(random() % (digits.size() + 1), ".");
        if (digits == ".") digits = "0.5";
        if (random() % 10 == 0)
            digits += "e" + std::to_string(static_cast<int>(random() % 80) - 40);
        const char* signs[] = {"", "", "-", "+"};
        texts.push_back(signs[random() % 4] + digits);
    }
    std::string content = "B {\n    S {\n";
    for (std::size_t i = 0; i < texts.size(); ++i)
        content += "        N" + std::to_string(i) + " = " + texts[i] + "\n";
    content += "    }\n}\n";
    void* section = Load(content);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string name = "N" + std::to_string(i);
        double read = -1.0;
        std::string text;
        ASSERT_TRUE(zpfGetParam(section, name.c_str(), 1, 1, &read)) << texts[i];
        EXPECT_EQ(Bits(read), Bits(CRead(texts[i]))) << texts[i];
        ASSERT_TRUE(zpfGetParam(section, name.c_str(), 1, 1, &text));
        EXPECT_EQ(text, texts[i]);
    }
}

// Keys of names compare their length and their first and last bytes; a
// look-up must still see a difference in the middle of a long name, in the
// overlap of a short one, in a byte above 0x7F and between a name and its
// prefix.
TEST_F(ZpfLoaded, NamesDifferingInOneByteAreToldApart) {
    const std::vector<std::string> names = {"",
                                            "A",
                                            "B",
                                            "AB",
                                            "ABC",
                                            "ABD",
                                            "ABCD",
                                            "ABCE",
                                            "AxyzB",
                                            "AxzzB",
                                            "Scale_1",
                                            "Scale_2",
                                            "Parallel",
                                            "Parallem",
                                            "Parallel_1",
                                            "Parallel_2",
                                            "Parallel_1_dms",
                                            "Parallel_2_dms",
                                            "Origin_Latitude_",
                                            "Origin_Latitudf_",
                                            "Latitude_of_first_standard_parallel",
                                            "Latitude_of_first_standarx_parallel",
                                            "Latitude_of_first_standard_parallel_dms",
                                            "\xC3\xA9tendue_nord",
                                            "\xC3\xA9tendue_sud",
                                            "\xC3\xA8tendue_nord"};
    std::string content = "B {\n    S {\n";
    for (std::size_t i = 0; i < names.size(); ++i)
        content +=
            "        \"" + names[i] + "\" = " + std::to_string(i) + ", " + std::to_string(i) + "\n";
    // Second occurrences count from the first.
    for (std::size_t i = 0; i < names.size(); ++i)
        content += "        \"" + names[i] + "\" = \"second " + std::to_string(i) + "\"\n";
    content += "    }\n}\n";
    void* section = Load(content);

    for (std::size_t i = 0; i < names.size(); ++i) {
        const char* name = names[i].c_str();
        double value = -1.0;
        EXPECT_TRUE(zpfGetParam(section, name, 1, 1, &value));
        EXPECT_EQ(value, static_cast<double>(i)) << i;
        std::string second;
        EXPECT_TRUE(zpfGetParam(section, name, 2, 1, &second));
        EXPECT_EQ(second, "second " + std::to_string(i));
        EXPECT_EQ(zpfKeywordByNameNum(section, name, 3), nullptr);
        EXPECT_EQ(zpfGetErrorGlb(), eZpfNotFound);
        // The first occurrence holds two numbers, the second a text.
        std::string problem;
        EXPECT_TRUE(zpfCheckParam(section, name, 2, 2, 1, &problem)) << problem;
        EXPECT_FALSE(zpfCheckParam(section, name, 1, 1, 1, &problem));
        EXPECT_NE(problem.find("line " + std::to_string(3 + i) + ": keyword '" + names[i] +
                               "' holds 2 values"),
                  std::string::npos)
            << problem;
    }
    // Absent names alike in length and ends to present ones.
    for (const char* absent : {"C", "AC", "ABE", "AxxxB", "Parallel_3_dms", "Origin_Latitude_x",
                               "Latitude_of_first_standard_parallem"}) {
        EXPECT_EQ(zpfKeywordByNameNum(section, absent, 1), nullptr) << absent;
        EXPECT_TRUE(zpfCheckParam(section, absent, 5, 5, 1, nullptr));
    }

    // One pass over many shapes: each fits, then one is made not to fit and
    // is the one reported; a name of another length by a multiple of 32
    // is a different name.
    std::vector<ZpfParamShape> shapes;
    for (const std::string& name : names) shapes.push_back({name.c_str(), 2, 2, 1});
    const std::string longer = std::string("A") + std::string(32, 'x');
    shapes.push_back({longer.c_str(), 0, 0, 1});
    std::string problem;
    EXPECT_TRUE(zpfCheckParams(section, shapes.data(), static_cast<int>(shapes.size()), &problem))
        << problem;
    shapes[19] = {names[19].c_str(), 1, 1, 1};
    EXPECT_FALSE(zpfCheckParams(section, shapes.data(), static_cast<int>(shapes.size()), &problem));
    EXPECT_EQ(problem,
              "line 22: keyword 'Origin_Latitudf_' holds 2 values where one number is expected");
}

// A catalogue section holds a handful of keywords and a keyword one to three
// values; longer ones must keep every entry in order.
TEST_F(ZpfLoaded, LongSectionsAndLongValueListsKeepTheirOrder) {
    constexpr int kKeywords = 300;
    constexpr int kValues = 50;
    std::string content = "B {\n    S {\n";
    for (int i = 1; i <= kKeywords; ++i)
        content += "        K" + std::to_string(i) + " = " + std::to_string(i) + "\n";
    content += "        Many = ";
    for (int v = 1; v <= kValues; ++v) content += (v > 1 ? ", " : "") + std::to_string(v * 10);
    content += "\n    }\n}\n";
    void* section = Load(content);

    ASSERT_EQ(zpfGetNoKeywords(section), kKeywords + 1);
    for (int i = 1; i <= kKeywords; ++i) {
        const std::string name = "K" + std::to_string(i);
        EXPECT_EQ(zpfGetName(zpfKeywordByNum(section, i)), name);
        double value = 0.0;
        EXPECT_TRUE(zpfGetParam(section, name.c_str(), 1, 1, &value));
        EXPECT_EQ(value, i);
    }
    void* many = zpfKeywordByNum(section, kKeywords + 1);
    ASSERT_EQ(zpfGetNoParams(many), kValues);
    for (int v = 1; v <= kValues; ++v) {
        int value = 0;
        EXPECT_TRUE(zpfGetInt(zpfParamByNum(many, v), &value));
        EXPECT_EQ(value, v * 10);
    }
    EXPECT_EQ(zpfParamByNum(many, kValues + 1), nullptr);
    zpfGetErrorGlb();
}

// The message of a look-up that found nothing names the keyword and the
// section even when it is read after both are gone, and only the last
// error's message is given.
TEST_F(ZpfLoaded, AMissIsReportedWhenTheFileIsGone) {
    void* section = Load("B {\n    \"Section with a long name\" {\n        K = 1\n    }\n}\n");
    std::string keyword = "Parallel_1_dms";
    double value = 0.0;
    EXPECT_FALSE(zpfGetParam(section, keyword.c_str(), 2, 1, &value));
    keyword.assign(keyword.size(), 'x');
    zpfClose(file_);
    file_ = nullptr;
    std::string message;
    EXPECT_EQ(zpfPeekErrorGlb(&message), eZpfNotFound);
    EXPECT_EQ(
        message,
        "zpfGetParam: keyword 'Parallel_1_dms' (occurrence 2) in section 'Section with a long "
        "name' not found");
    EXPECT_EQ(zpfGetErrorGlb(&message), eZpfNotFound);
    EXPECT_EQ(zpfGetErrorGlb(&message), eZpfOk);
    EXPECT_EQ(message, "");

    // A later failure replaces the message, a success leaves it.
    section = Load("B {\n    S {\n        K = \"text\"\n    }\n}\n");
    EXPECT_EQ(zpfKeywordByNameNum(section, "Absent", 1), nullptr);
    EXPECT_FALSE(zpfGetParam(section, "K", 1, 1, &value));
    EXPECT_NE(zpfKeywordByNameNum(section, "K", 1), nullptr);
    EXPECT_EQ(zpfGetErrorGlb(&message), eZpfNotANumber);
    EXPECT_EQ(message, "zpfGetParam: the text \"text\" is not a number");
    EXPECT_EQ(zpfKeywordByNameNum(section, std::string(600, 'k').c_str(), 1), nullptr);
    EXPECT_EQ(zpfGetErrorGlb(&message), eZpfNotFound);
    EXPECT_EQ(message.size(), 511u);
    EXPECT_EQ(message.rfind("zpfKeywordByNameNum: keyword 'kkk", 0), 0u) << message;
}

}  // namespace
