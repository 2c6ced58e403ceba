// The text helpers every subsystem shares: trimming, ASCII case folding and
// copies into fixed fields. Folding touches A-Z and a-z only, whatever the
// process locale: bytes of other encodings (Latin-1 letters, UTF-8 sequences)
// pass unchanged, so the same two names match or differ everywhere.

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <string>

#include "foundation/Text.h"

namespace {

// Sets LC_CTYPE to a non-C locale where the machine has one, for the life of
// the object.
class OtherCharacterLocale {
public:
    OtherCharacterLocale() {
        const char* old = std::setlocale(LC_CTYPE, nullptr);
        previous_ = old ? old : "C";
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "C.UTF-8", "C.utf8"}) {
            if (std::setlocale(LC_CTYPE, name)) break;
        }
    }
    ~OtherCharacterLocale() { std::setlocale(LC_CTYPE, previous_.c_str()); }
    OtherCharacterLocale(const OtherCharacterLocale&) = delete;
    OtherCharacterLocale& operator=(const OtherCharacterLocale&) = delete;

private:
    std::string previous_;
};

}  // namespace

TEST(Text, FoldsOnlyAsciiLettersInAnyLocale) {
    const OtherCharacterLocale locale;
    for (int i = 0; i < 256; ++i) {
        const char c = static_cast<char>(i);
        const bool upper = i >= 'A' && i <= 'Z';
        const bool lower = i >= 'a' && i <= 'z';
        EXPECT_EQ(GxAsciiLower(c), upper ? static_cast<char>(i + 32) : c) << i;
        EXPECT_EQ(GxAsciiUpper(c), lower ? static_cast<char>(i - 32) : c) << i;
    }
    EXPECT_EQ(GxAsciiLowered("PROJCS[\"Name\xC4\"]"), "projcs[\"name\xC4\"]");
}

TEST(Text, ComparesIgnoringCase) {
    const struct {
        const char* a;
        const char* b;
        bool equal;
        bool startsWith;  // a starts with b
    } rows[] = {
        {"North", "NORTH", true, true},
        {"east", "EAST", true, true},
        {"EASTING", "east", false, true},
        {"EAS", "EAST", false, false},
        {"", "", true, true},
        {"x", "", false, true},
        {"\xC4", "\xE4", false, false},
        {"I", "i", true, true},
        {"epsg:4326", "EPSG", false, true},
    };
    const OtherCharacterLocale locale;
    for (const auto& row : rows) {
        EXPECT_EQ(GxEqualsIgnoringCase(row.a, row.b), row.equal) << row.a << " | " << row.b;
        EXPECT_EQ(GxEqualsIgnoringCase(row.b, row.a), row.equal) << row.a << " | " << row.b;
        EXPECT_EQ(GxStartsWithIgnoringCase(row.a, row.b), row.startsWith)
            << row.a << " | " << row.b;
    }
}

TEST(Text, TrimsTheCLocaleBlanks) {
    const struct {
        const char* text;
        const char* trimmed;
    } rows[] = {
        {"  LONG/LAT\r\n", "LONG/LAT"},
        {"\t\v\fNON-UTM \t", "NON-UTM"},
        {" \t\r\n\v\f", ""},
        {"", ""},
        {"a  b", "a  b"},
        {"\xA0name\xA0", "\xA0name\xA0"},
    };
    for (const auto& row : rows) EXPECT_EQ(GxTrimmed(row.text), row.trimmed) << row.text;
    EXPECT_EQ(GxTrimmed(nullptr), "");
    EXPECT_EQ(GxTrimmed(std::string(" x ")), "x");
}

// The copy never writes past the field and always leaves a terminator in it.
TEST(Text, CopiesIntoFixedFieldsWithTerminator) {
    const struct {
        const char* text;
        std::size_t size;
        const char* stored;
    } rows[] = {
        {"abc", 4, "abc"}, {"abcd", 4, "abc"}, {"abcdefghijk", 4, "abc"},
        {"", 4, ""},       {nullptr, 4, ""},   {"abc", 1, ""},
    };
    for (const auto& row : rows) {
        char buffer[16];
        std::memset(buffer, '#', sizeof buffer);
        const std::size_t copied = GxCopyField(buffer, row.size, row.text);
        EXPECT_STREQ(buffer, row.stored);
        EXPECT_EQ(copied, std::strlen(row.stored));
        for (std::size_t i = row.size; i < sizeof buffer; ++i) EXPECT_EQ(buffer[i], '#') << i;
    }
    char untouched[2] = {'#', '#'};
    EXPECT_EQ(GxCopyField(untouched, 0, "abc"), 0u);
    EXPECT_EQ(untouched[0], '#');

    // A counted text need not be terminated.
    char field[8];
    EXPECT_EQ(GxCopyField(field, sizeof field, "abcdef", 2), 2u);
    EXPECT_STREQ(field, "ab");
}
