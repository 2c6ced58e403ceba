// Everything that must fail, and fail cleanly: malformed and hostile files
// (the bad part skipped with the line of the problem, the rest read, never a
// crash), null and wrong-kind handles, misuse while building, the last-error
// contract, and writes that cannot complete (the old file stays).

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <thread>

#include "tests/support/TestFiles.h"
#include "zpf/zpf.h"

namespace {

namespace fs = std::filesystem;

const std::string kData = std::string(GXCART_TEST_DATA) + "/zpf/";

// A scratch path of this test and process, so tests run in parallel never
// share one.
fs::path Scratch(const char* suffix) {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    return fs::temp_directory_path() /
           ("gxzpf_" + std::string(info->name()) + "_" + std::to_string(getpid()) + suffix);
}

// What loading a file gives: the pending error, the problems, the sections of
// the first block, and whether the text written back is the text read.
struct Outcome {
    bool loaded = false;
    int code = eZpfOk;
    std::string message;
    int problems = 0;
    std::string firstProblem;
    int sections = 0;
    int damaged = 0;
    bool writesBackAsRead = false;
};

Outcome Load(const std::string& path) {
    Outcome o;
    void* file = zpfLoadFile(path.c_str());
    o.loaded = file != nullptr;
    o.code = zpfGetErrorGlb(&o.message);
    if (!file) return o;
    o.problems = zpfGetNoProblems(file);
    if (o.problems > 0) o.firstProblem = zpfGetProblem(file, 1);
    if (void* block = zpfTargetByNum(file, 1)) {
        o.sections = zpfGetNoSections(block);
        o.damaged = zpfGetNoDamagedSections(block);
    }
    std::string text;
    zpfFormat(file, &text);
    o.writesBackAsRead = text == GxSlurp(path);
    zpfGetErrorGlb();
    zpfClose(file);
    return o;
}

Outcome LoadText(const std::string& content) {
    fs::path path = Scratch(".zpf");
    std::ofstream(path, std::ios::binary) << content;
    Outcome o = Load(path.string());
    fs::remove(path);
    return o;
}

// A file with one block and one closed section holding Key = 1.
struct Built {
    Built()
        : file(zpfCreate()), target(zpfAddTarget(file, "B")), section(zpfAddSection(target, "S")) {
        zpfPutParam(section, "Key", 1.0);
        zpfEndSection(section);
        keyword = zpfKeywordByNameNum(section, "Key", 1);
        value = zpfParamByNum(keyword, 1);
    }
    ~Built() { zpfClose(file); }
    void *file, *target, *section, *keyword, *value;
};

class ZpfWriteFailure : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(dir_);
        std::ofstream(target_) << "OLD {\n}\n";
    }
    void TearDown() override {
        Chattr("-i");
        fs::remove_all(dir_);
    }
    bool Chattr(const char* flag) {
        return std::system(("chattr " + std::string(flag) + " '" + dir_.string() + "' 2>/dev/null")
                               .c_str()) == 0;
    }

    // The write fails with an I/O error naming the path; the old file is as
    // it was and no temporary file is left beside it.
    void ExpectRefused(const fs::path& path, void* file) {
        EXPECT_FALSE(zpfWrite(file, path.string().c_str()));
        std::string message;
        EXPECT_EQ(zpfGetErrorGlb(&message), eZpfIo) << path;
        EXPECT_NE(message.find(path.string()), std::string::npos) << message;
        EXPECT_EQ(GxSlurp(target_), "OLD {\n}\n");
        int files = 0;
        for (const auto& e : fs::directory_iterator(dir_)) files += e.is_regular_file() ? 1 : 0;
        EXPECT_EQ(files, 1);
    }

    fs::path dir_ = Scratch("");
    fs::path target_ = dir_ / "custom.zpf";
    Built built_;
};

}  // namespace

// A problem costs its line, or inside a section that section; the rest of
// the file is read, no error is pending, and the text goes back out unchanged.
TEST(ZpfMalformed, AProblemCostsItsLineOrItsSectionOnly) {
    struct Case {
        const char* file;
        const char* message;
        int sections;  // of the first block that remain readable
        int damaged;
    };
    const Case cases[] = {
        {"unclosed_block.zpf", "line 2: block 'ELLIPSOID_DEFINITION' is not closed", 1, 0},
        {"unclosed_section.zpf",
         "line 4: section 'REF_ELLIPSOID' cannot hold another block 'REF_ELLIPSOID'; section "
         "'REF_ELLIPSOID' of "
         "line 2 is skipped",
         1, 1},
        {"stray_close.zpf", "line 6: '}' without an open block", 1, 0},
        {"unbalanced_quote.zpf", "line 4: unterminated string", 0, 1},
        {"not_a_number.zpf", "line 4: 'WE' is not a number", 0, 1},
        {"unit_after_number.zpf", "line 3: expected ',' between values, found 'd'", 0, 1},
        {"nested_section.zpf", "line 4: section 'UTM_PROJECTION' cannot hold another block 'INNER'",
         1, 1},
        {"keyword_outside_section.zpf", "line 3: keyword 'Scale' outside a section", 0, 0},
        {"missing_value.zpf", "line 3: missing value", 0, 1},
        {"bad_escape.zpf", "line 3: unknown escape \\l", 0, 1},
        {"text_after_brace.zpf", "line 1: unexpected 'U' after '{'", 0, 0},
    };
    for (const auto& c : cases) {
        const std::string path = kData + "bad/" + c.file;
        Outcome o = Load(path);
        ASSERT_TRUE(o.loaded) << c.file;
        EXPECT_EQ(o.code, eZpfOk) << c.file;
        EXPECT_GE(o.problems, 1) << c.file;
        EXPECT_EQ(o.firstProblem.rfind(path + ": " + c.message, 0), 0u) << o.firstProblem;
        EXPECT_EQ(o.sections, c.sections) << c.file;
        EXPECT_EQ(o.damaged, c.damaged) << c.file;
        EXPECT_TRUE(o.writesBackAsRead) << c.file;
    }
    // What can still be read of a damaged section tells which entry it was.
    void* f = zpfLoadFile((kData + "bad/unclosed_section.zpf").c_str());
    void* block = zpfTargetByNum(f, 1);
    std::string id;
    EXPECT_TRUE(zpfGetParam(zpfDamagedSectionByNum(block, 1), "ID_Code", 1, 1, &id));
    EXPECT_EQ(id, "WE");
    EXPECT_TRUE(zpfGetParam(zpfSectionByNum(block, 1), "ID_Code", 1, 1, &id));
    EXPECT_EQ(id, "RF");
    zpfClose(f);

    // Files without blocks are valid and empty.
    EXPECT_EQ(Load(kData + "bad/empty.zpf").problems, 0);
    for (const char* text : {"\n\n", "# only a comment\n   \t\n", "\xEF\xBB\xBF"}) {
        Outcome o = LoadText(text);
        EXPECT_TRUE(o.loaded && o.problems == 0 && o.writesBackAsRead) << text;
    }
}

TEST(ZpfMalformed, GarbageNulBytesAndTruncationsNeverCrash) {
    Outcome nul = LoadText(std::string("A {\n  S {\n    K = 1\0 2\n  }\n}\n", 27));
    EXPECT_NE(nul.firstProblem.find("line 3: NUL byte"), std::string::npos) << nul.firstProblem;
    EXPECT_EQ(nul.damaged, 1);
    EXPECT_TRUE(nul.writesBackAsRead);

    // Random bytes alone, and inside a quoted text: never a crash, and what
    // could not be read is written back byte for byte.
    std::mt19937 random(20240611);
    for (int round = 0; round < 200; ++round) {
        std::string bytes(1 + random() % 300, '\0');
        for (char& c : bytes) c = static_cast<char>(random());
        const bool quoted = round % 2 == 0;
        Outcome o = LoadText(quoted ? "A {\n S {\n  K = \"" + bytes : bytes);
        ASSERT_TRUE(o.loaded);
        EXPECT_TRUE(o.writesBackAsRead) << round;
        if (quoted) {
            EXPECT_NE(o.firstProblem.find(": line "), std::string::npos) << o.firstProblem;
        }
    }

    // Of all prefixes of a one-block file only the empty one and the whole
    // file, with or without its last line break, are complete.
    std::string good = GxSlurp(kData + "map_projection.zpf");
    int complete = 0;
    for (std::size_t n = 0; n <= good.size(); ++n) {
        Outcome o = LoadText(good.substr(0, n));
        complete += o.problems == 0 ? 1 : 0;
        EXPECT_TRUE(o.writesBackAsRead) << n;
    }
    EXPECT_EQ(complete, 3);
}

TEST(ZpfMalformed, MegabyteLinesAndDeepNesting) {
    const std::string mega(1 << 20, 'x');
    fs::path path = Scratch(".zpf");
    std::ofstream(path, std::ios::binary) << "A {\n S {\n  K = \"" << mega << "\"\n }\n}\n";
    void* f = zpfLoadFile(path.string().c_str());
    std::string v;
    EXPECT_TRUE(zpfGetParam(zpfSectionByNum(zpfTargetByNum(f, 1), 1), "K", 1, 1, &v));
    EXPECT_EQ(v, mega);
    zpfClose(f);
    fs::remove(path);

    // Messages quote a short excerpt only.
    Outcome word = LoadText("A {\n S {\n  K = " + mega + "\n");
    EXPECT_NE(word.firstProblem.find("line 3: 'xxx"), std::string::npos);
    EXPECT_LT(word.firstProblem.size(), 300u);
    // Every line of these is a problem: the count is complete, the messages
    // stop at twenty.
    std::string deep;
    for (int i = 0; i < 100000; ++i) deep += "B {\n";
    const fs::path deepPath = Scratch("-deep.zpf");
    std::ofstream(deepPath, std::ios::binary) << deep;
    f = zpfLoadFile(deepPath.string().c_str());
    EXPECT_NE(zpfGetProblem(f, 1).find("line 3: section 'B' cannot hold another block"),
              std::string::npos);
    EXPECT_GE(zpfGetNoProblems(f), 99998);
    EXPECT_EQ(zpfGetProblem(f, 20).empty(), false);
    EXPECT_EQ(zpfGetProblem(f, 21), "");
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotFound);
    zpfClose(f);
    fs::remove(deepPath);
    EXPECT_NE(LoadText(std::string(100000, '}')).firstProblem.find("line 1: '}' without"),
              std::string::npos);
}

TEST(ZpfHandles, NullAndWrongKindHandlesFailWithoutTouchingThem) {
    Built b;
    double d = 0;
    int i = 0;
    std::string s;
    const std::function<bool(void*)> calls[] = {
        [&](void* h) { return !zpfWrite(h, "/nonexistent/never.zpf"); },
        [&](void* h) { return !zpfTargetByNameNum(h, "B", 1); },
        [&](void* h) { return !zpfAddTarget(h, "B"); },
        [&](void* h) { return !zpfSectionByNameNum(h, "S", 1); },
        [&](void* h) { return !zpfSectionByNum(h, 1); },
        [&](void* h) { return !zpfGetNoSections(h); },
        [&](void* h) { return !zpfGetNoInstances(h, "S"); },
        [&](void* h) { return !zpfEndSection(h); },
        [&](void* h) { return !zpfPutParam(h, "K", 1.0); },
        [&](void* h) { return !zpfPutParam(h, "K", "t"); },
        [&](void* h) { return !zpfGetParam(h, "Key", 1, 1, &d); },
        [&](void* h) { return !zpfGetParam(h, "Key", 1, 1, &s); },
        [&](void* h) { return !zpfKeywordByNameNum(h, "Key", 1); },
        [&](void* h) { return !zpfGetNoParams(h); },
        [&](void* h) { return !zpfParamByNum(h, 1); },
        [&](void* h) { return !zpfGetInt(h, &i); },
        [&](void* h) { return !zpfGetDouble(h, &d); },
        [&](void* h) { return zpfGetName(h).empty(); },
    };
    for (std::size_t c = 0; c < std::size(calls); ++c) {
        // Of the five kinds, exactly one is accepted (two for zpfGetName).
        int refused = 0;
        for (void* h : {b.file, b.target, b.section, b.keyword, b.value}) {
            zpfGetErrorGlb();
            bool failed = calls[c](h);
            if (zpfGetErrorGlb() == eZpfNullHandle) refused += failed ? 1 : 100;
        }
        EXPECT_EQ(refused, c + 1 < std::size(calls) ? 4 : 2) << "call " << c;
        EXPECT_TRUE(calls[c](nullptr));
        EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle) << "call " << c;
    }
    zpfClose(b.section);  // not a file: refused, the file stays usable
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle);
    EXPECT_EQ(zpfGetName(zpfSectionByNum(b.target, 1)), "S");
    // Null texts count as null arguments.
    EXPECT_EQ(zpfLoadFile(nullptr), nullptr);
    EXPECT_EQ(zpfSectionByNameNum(b.target, nullptr, 1), nullptr);
    EXPECT_EQ(zpfGetParam(b.section, "Key", 1, 1, static_cast<double*>(nullptr)), 0);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle);
}

TEST(ZpfHandles, KeywordsGoOnlyIntoAnOpenSection) {
    Built b;
    EXPECT_FALSE(zpfPutParam(b.section, "Late", 2.0));  // closed by zpfEndSection
    EXPECT_FALSE(zpfAddValue(b.keyword, 2.0));
    EXPECT_FALSE(zpfEndSection(b.section));
    EXPECT_EQ(zpfGetErrorGlb(), eZpfState);
    EXPECT_EQ(zpfGetNoKeywords(b.section), 1);

    void* f = zpfCreate();
    EXPECT_EQ(zpfAddSection(f, "S"), nullptr);  // no block to hold it
    EXPECT_EQ(zpfGetErrorGlb(), eZpfState);
    zpfAddTarget(f, "ONE");
    zpfAddTarget(f, "TWO");
    zpfAddSection(f, "S");  // a file handle means its last block
    EXPECT_EQ(zpfGetNoSections(zpfTargetByNameNum(f, "TWO", 1)), 1);
    EXPECT_EQ(zpfGetNoSections(zpfTargetByNameNum(f, "ONE", 1)), 0);
    zpfClose(f);
}

TEST(ZpfErrors, PeekKeepsGetClearsAndEachThreadHasItsOwn) {
    EXPECT_EQ(zpfLoadFile("/nonexistent/ellipsoid.zpf"), nullptr);
    std::string message;
    EXPECT_EQ(zpfPeekErrorGlb(&message), eZpfNotFound);
    EXPECT_NE(message.find("/nonexistent/ellipsoid.zpf"), std::string::npos);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotFound);
    EXPECT_EQ(zpfPeekErrorGlb(&message), eZpfOk);
    EXPECT_EQ(message, "");

    // A failed look-up leaves an error that a later successful load clears,
    // so "load, then check the pending error" judges the load alone.
    Built b;
    zpfKeywordByNameNum(b.section, "Absent_dms", 1);
    int otherThread = -1;
    std::thread([&] { otherThread = zpfPeekErrorGlb(); }).join();
    EXPECT_EQ(otherThread, eZpfOk);
    void* f = zpfLoadFile((kData + "ellipsoid.zpf").c_str());
    EXPECT_EQ(zpfPeekErrorGlb(), eZpfOk);
    zpfClose(f);

    EXPECT_EQ(Load(GXCART_TEST_DATA).code, eZpfIo);  // a folder
    EXPECT_EQ(Load("/dev/zero").code, eZpfIo);       // would never end if read
}

TEST_F(ZpfWriteFailure, MissingFolderFolderTargetAndFileAsFolder) {
    ExpectRefused(dir_ / "missing" / "custom.zpf", built_.file);
    fs::create_directory(dir_ / "sub");
    ExpectRefused(dir_ / "sub", built_.file);
    EXPECT_TRUE(fs::is_directory(dir_ / "sub"));
    ExpectRefused(target_ / "custom.zpf", built_.file);  // the parent is a regular file
}

TEST_F(ZpfWriteFailure, ReadOnlyFolderKeepsTheOldFile) {
    if (!Chattr("+i")) GTEST_SKIP() << "chattr +i is not available to make the folder read-only";
    ExpectRefused(target_, built_.file);
}

TEST_F(ZpfWriteFailure, WriteFailingHalfwayKeepsTheOldFile) {
    // A file size limit makes the temporary file's write fail part way, as a
    // full disk would.
    void* s = zpfAddSection(built_.target, "BIG");
    zpfPutParam(s, "Text", std::string(64 * 1024, 'x'));
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit small = old;
    small.rlim_cur = 4096;
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    ExpectRefused(target_, built_.file);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);

    // Without the limit the same file replaces the old one.
    EXPECT_TRUE(zpfWrite(built_.file, target_.string().c_str()));
    EXPECT_NE(GxSlurp(target_).find("BIG {"), std::string::npos);
}
