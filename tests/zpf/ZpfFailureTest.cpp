// Failures through the handle interface: bad handles, misuse while building,
// the last-error contract, and writes that cannot complete.

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <thread>

#include "zpf/zpf.h"

namespace {

namespace fs = std::filesystem;

std::string Slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), {});
}

// A file with one block and one closed section holding Key = 1.
struct Built {
    Built() : file(zpfCreate()), target(zpfAddTarget(file, "B")), section(zpfAddSection(target, "S")) {
        zpfPutParam(section, "Key", 1.0);
        zpfEndSection(section);
        keyword = zpfKeywordByNameNum(section, "Key", 1);
        value = zpfParamByNum(keyword, 1);
    }
    ~Built() { zpfClose(file); }
    void* file;
    void* target;
    void* section;
    void* keyword = nullptr;
    void* value = nullptr;
};

class ZpfWriteFailure : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / "gxzpf_write_failure";
        std::system(("chattr -i '" + dir_.string() + "' 2>/dev/null").c_str());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
        target_ = dir_ / "custom.zpf";
        std::ofstream(target_) << "OLD {\n}\n";
    }
    void TearDown() override {
        std::system(("chattr -i '" + dir_.string() + "' 2>/dev/null").c_str());
        fs::remove_all(dir_);
    }

    // The write fails with an I/O error and leaves the folder as it was.
    void ExpectRefused(const fs::path& path) {
        Built b;
        EXPECT_FALSE(zpfWrite(b.file, path.string().c_str()));
        std::string message;
        EXPECT_EQ(zpfGetErrorGlb(&message), eZpfIo) << path;
        EXPECT_NE(message.find(path.string()), std::string::npos) << message;
        EXPECT_EQ(Slurp(target_), "OLD {\n}\n");
        int entries = 0;
        for (const auto& e : fs::directory_iterator(dir_)) entries += (e.path().filename() != "sub") ? 1 : 0;
        EXPECT_EQ(entries, 1) << "a temporary file was left behind";
    }

    fs::path dir_;
    fs::path target_;
};

}  // namespace

TEST(ZpfHandles, NullAndWrongKindHandlesFailWithoutTouchingThem) {
    Built b;
    double d = 0;
    int i = 0;
    std::string s;
    // Each call gets a handle that is null or of another kind.
    const std::function<bool(void*)> calls[] = {
        [&](void* h) { return zpfWrite(h, "/nonexistent/never.zpf") == 0; },
        [&](void* h) { return zpfTargetByNameNum(h, "B", 1) == nullptr; },
        [&](void* h) { return zpfAddTarget(h, "B") == nullptr; },
        [&](void* h) { return zpfSectionByNameNum(h, "S", 1) == nullptr; },
        [&](void* h) { return zpfSectionByNum(h, 1) == nullptr; },
        [&](void* h) { return zpfGetNoSections(h) == 0; },
        [&](void* h) { return zpfGetNoInstances(h, "S") == 0; },
        [&](void* h) { return zpfEndSection(h) == 0; },
        [&](void* h) { return zpfPutParam(h, "K", 1.0) == 0; },
        [&](void* h) { return zpfPutParam(h, "K", "t") == 0; },
        [&](void* h) { return zpfGetParam(h, "Key", 1, 1, &d) == 0; },
        [&](void* h) { return zpfGetParam(h, "Key", 1, 1, &s) == 0; },
        [&](void* h) { return zpfKeywordByNameNum(h, "Key", 1) == nullptr; },
        [&](void* h) { return zpfGetNoParams(h) == 0; },
        [&](void* h) { return zpfParamByNum(h, 1) == nullptr; },
        [&](void* h) { return zpfGetInt(h, &i) == 0; },
        [&](void* h) { return zpfGetDouble(h, &d) == 0; },
    };
    void* foreign[] = {b.file, b.target, b.section, b.keyword, b.value};
    for (std::size_t c = 0; c < std::size(calls); ++c) {
        SCOPED_TRACE("call " + std::to_string(c));
        int wrong = 0;
        for (void* h : foreign) {
            zpfGetErrorGlb();
            bool failed = calls[c](h);
            if (zpfGetErrorGlb() == eZpfNullHandle) {
                ++wrong;
                EXPECT_TRUE(failed);
            }
        }
        EXPECT_EQ(wrong, 4);  // exactly one of the five kinds is right
        EXPECT_TRUE(calls[c](nullptr));
        EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle);
    }
    EXPECT_EQ(zpfGetName(nullptr), "");
    EXPECT_EQ(zpfGetName(b.value), "");
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle);
    zpfClose(b.section);  // not a file: refused, the file stays usable
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle);
    EXPECT_EQ(zpfGetName(zpfSectionByNum(b.target, 1)), "S");
    // Null texts count as null arguments.
    EXPECT_EQ(zpfLoadFile(nullptr), nullptr);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle);
    EXPECT_EQ(zpfSectionByNameNum(b.target, nullptr, 1), nullptr);
    EXPECT_EQ(zpfGetParam(b.section, "Key", 1, 1, static_cast<double*>(nullptr)), 0);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle);
}

TEST(ZpfHandles, KeywordsGoOnlyIntoAnOpenSection) {
    Built b;
    EXPECT_FALSE(zpfPutParam(b.section, "Late", 2.0));  // closed by zpfEndSection
    EXPECT_EQ(zpfGetErrorGlb(), eZpfState);
    EXPECT_FALSE(zpfAddValue(b.keyword, 2.0));
    EXPECT_EQ(zpfGetErrorGlb(), eZpfState);
    EXPECT_FALSE(zpfEndSection(b.section));
    EXPECT_EQ(zpfGetErrorGlb(), eZpfState);
    EXPECT_EQ(zpfGetNoKeywords(b.section), 1);

    void* empty = zpfCreate();
    EXPECT_EQ(zpfAddSection(empty, "S"), nullptr);  // no block to hold it
    EXPECT_EQ(zpfGetErrorGlb(), eZpfState);
    zpfAddTarget(empty, "ONE");
    zpfAddTarget(empty, "TWO");
    void* s = zpfAddSection(empty, "S");  // a file handle means its last block
    EXPECT_EQ(zpfGetNoSections(zpfTargetByNameNum(empty, "TWO", 1)), 1);
    EXPECT_EQ(zpfGetNoSections(zpfTargetByNameNum(empty, "ONE", 1)), 0);
    EXPECT_TRUE(zpfEndSection(s));
    zpfClose(empty);
}

TEST(ZpfErrors, PeekKeepsGetClearsAndEachThreadHasItsOwn) {
    EXPECT_EQ(zpfLoadFile("/nonexistent/folder/ellipsoid.zpf"), nullptr);
    std::string message;
    EXPECT_EQ(zpfPeekErrorGlb(&message), eZpfNotFound);
    EXPECT_NE(message.find("/nonexistent/folder/ellipsoid.zpf"), std::string::npos);
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
    EXPECT_EQ(zpfPeekErrorGlb(), eZpfNotFound);
    void* f = zpfLoadFile((std::string(GXCART_TEST_DATA) + "/zpf/ellipsoid.zpf").c_str());
    EXPECT_NE(f, nullptr);
    EXPECT_EQ(zpfPeekErrorGlb(), eZpfOk);
    zpfClose(f);

    EXPECT_EQ(zpfLoadFile(GXCART_TEST_DATA), nullptr);  // a folder
    EXPECT_EQ(zpfGetErrorGlb(), eZpfIo);
}

TEST_F(ZpfWriteFailure, MissingFolderFolderTargetAndFileAsFolder) {
    ExpectRefused(dir_ / "missing" / "custom.zpf");
    fs::create_directory(dir_ / "sub");
    ExpectRefused(dir_ / "sub");
    EXPECT_TRUE(fs::is_directory(dir_ / "sub"));
    ExpectRefused(target_ / "custom.zpf");  // the parent is a regular file
}

TEST_F(ZpfWriteFailure, ReadOnlyFolderKeepsTheOldFile) {
    if (std::system(("chattr +i '" + dir_.string() + "' 2>/dev/null").c_str()) != 0)
        GTEST_SKIP() << "chattr +i is not available to make the folder read-only";
    ExpectRefused(target_);
}

TEST_F(ZpfWriteFailure, WriteFailingHalfwayKeepsTheOldFile) {
    // A file size limit makes the temporary file's write fail part way, the
    // way a full disk would.
    Built b;
    void* s = zpfAddSection(b.target, "BIG");
    zpfPutParam(s, "Text", std::string(64 * 1024, 'x'));
    zpfEndSection(s);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit small = old;
    small.rlim_cur = 4096;
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    int written = zpfWrite(b.file, target_.string().c_str());
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_FALSE(written);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfIo);
    EXPECT_EQ(Slurp(target_), "OLD {\n}\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()), 1);

    // Without the limit the same file replaces the old one.
    EXPECT_TRUE(zpfWrite(b.file, target_.string().c_str()));
    EXPECT_NE(Slurp(target_).find("BIG {"), std::string::npos);
}
