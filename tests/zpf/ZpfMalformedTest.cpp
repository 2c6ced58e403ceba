// Malformed and hostile files: each is refused with a syntax error naming the
// line of the problem (or read with a defined result), and none crashes or
// reads out of bounds.

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "zpf/zpf.h"

namespace {

namespace fs = std::filesystem;

const std::string kData = std::string(GXCART_TEST_DATA) + "/zpf/";

struct Outcome {
    void* file;
    int code;
    std::string message;
};

Outcome Load(const std::string& path) {
    Outcome o;
    o.file = zpfLoadFile(path.c_str());
    o.code = zpfGetErrorGlb(&o.message);
    return o;
}

// Loads content written to a scratch file.
Outcome LoadText(const std::string& content) {
    fs::path path = fs::temp_directory_path() / "gxzpf_malformed.zpf";
    {
        std::ofstream out(path, std::ios::binary);
        out << content;
    }
    Outcome o = Load(path.string());
    fs::remove(path);
    return o;
}

}  // namespace

TEST(ZpfMalformed, FilesAreRefusedWithTheLineOfTheProblem) {
    struct Case { const char* file; const char* message; };
    const Case cases[] = {
        {"unclosed_block.zpf", "line 2: block 'ELLIPSOID_DEFINITION' is not closed"},
        {"unclosed_section.zpf", "line 4: section 'REF_ELLIPSOID' cannot hold another block"},
        {"stray_close.zpf", "line 6: '}' without an open block"},
        {"unbalanced_quote.zpf", "line 4: unterminated string"},
        {"not_a_number.zpf", "line 4: 'WE' is not a number"},
        {"unit_after_number.zpf", "line 3: expected ',' between values, found 'd'"},
        {"nested_section.zpf", "line 4: section 'UTM_PROJECTION' cannot hold another block 'INNER'"},
        {"keyword_outside_section.zpf", "line 3: keyword 'Scale' outside a section"},
        {"missing_value.zpf", "line 3: missing value"},
        {"bad_escape.zpf", "line 3: unknown escape \\l"},
        {"text_after_brace.zpf", "line 1: unexpected 'U' after '{'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        Outcome o = Load(kData + "bad/" + c.file);
        EXPECT_EQ(o.file, nullptr);
        EXPECT_EQ(o.code, eZpfSyntax);
        EXPECT_NE(o.message.find(c.message), std::string::npos) << o.message;
        zpfClose(o.file);
    }
}

TEST(ZpfMalformed, EmptyAndCommentOnlyFilesHoldNoBlocks) {
    for (const char* text : {"", "\n\n", "# only a comment\n   \t\n", "\xEF\xBB\xBF"}) {
        Outcome o = LoadText(text);
        ASSERT_NE(o.file, nullptr) << o.message;
        EXPECT_EQ(o.code, eZpfOk);
        EXPECT_EQ(zpfGetNoTargets(o.file), 0);
        EXPECT_EQ(zpfTargetByNameNum(o.file, "ELLIPSOID_DEFINITION", 1), nullptr);
        zpfClose(o.file);
    }
}

TEST(ZpfMalformed, BinaryGarbageAndNulBytes) {
    Outcome nul = LoadText(std::string("A {\n  S {\n    K = 1\0 2\n  }\n}\n", 27));
    EXPECT_EQ(nul.file, nullptr);
    EXPECT_NE(nul.message.find("line 3: NUL byte"), std::string::npos) << nul.message;

    // Random bytes, then random bytes in a quoted text: refused, never read.
    std::mt19937 random(20240611);
    for (int round = 0; round < 200; ++round) {
        std::string bytes(1 + random() % 300, '\0');
        for (char& c : bytes) c = static_cast<char>(random());
        Outcome o = LoadText(round % 2 ? bytes : "A {\n S {\n  K = \"" + bytes);
        EXPECT_EQ(o.file, nullptr);
        EXPECT_EQ(o.code, eZpfSyntax);
        EXPECT_EQ(o.message.find("line "), o.message.find(": line ") + 2) << o.message;
        zpfClose(o.file);
    }
}

TEST(ZpfMalformed, EveryTruncationOfAGoodFileIsReadOrRefusedCleanly) {
    std::ifstream in(kData + "map_projection.zpf", std::ios::binary);
    std::string good((std::istreambuf_iterator<char>(in)), {});
    int accepted = 0;
    for (std::size_t n = 0; n <= good.size(); ++n) {
        Outcome o = LoadText(good.substr(0, n));
        if (o.file) ++accepted;
        else EXPECT_EQ(o.code, eZpfSyntax) << n;
        zpfClose(o.file);
    }
    // The file is one block: only the empty prefix and the whole file, with
    // or without its last line break, are complete.
    EXPECT_EQ(accepted, 3);
}

TEST(ZpfMalformed, MegabyteLinesAndDeepNesting) {
    const std::string mega(1 << 20, 'x');
    Outcome longText = LoadText("A {\n S {\n  K = \"" + mega + "\"\n }\n}\n");
    ASSERT_NE(longText.file, nullptr);
    std::string v;
    EXPECT_TRUE(zpfGetParam(zpfSectionByNum(zpfTargetByNum(longText.file, 1), 1), "K", 1, 1, &v));
    EXPECT_EQ(v.size(), mega.size());
    zpfClose(longText.file);

    // Messages quote a short excerpt only.
    Outcome longWord = LoadText("A {\n S {\n  K = " + mega + "\n");
    EXPECT_EQ(longWord.file, nullptr);
    EXPECT_NE(longWord.message.find("line 3: 'xxx"), std::string::npos);
    EXPECT_LT(longWord.message.size(), 200u);

    std::string many;
    for (int i = 0; i < 100000; ++i) many += "B {\n";
    Outcome deep = LoadText(many);
    EXPECT_EQ(deep.file, nullptr);
    EXPECT_NE(deep.message.find("line 3: section 'B' cannot hold another block"), std::string::npos);
    Outcome closers = LoadText(std::string(100000, '}'));
    EXPECT_NE(closers.message.find("line 1: '}' without an open block"), std::string::npos) << closers.message;
}
