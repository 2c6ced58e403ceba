// What a keyword file keeps when it is changed and written again: the user's
// comments and layout, the parts it could not read, the old file when the
// write cannot complete (even under a file-size limit whose signal would end
// the process), and no temporary file of a writer that died.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/TestFiles.h"
#include "zpf/FileReplace.h"
#include "zpf/zpf.h"

namespace {

namespace fs = std::filesystem;

class ZpfKeep : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() /
               ("gxzpf_keep_" + std::string(info->name()) + "_" + std::to_string(getpid()));
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    fs::path Write(const char* name, const std::string& text) {
        std::ofstream(dir_ / name, std::ios::binary) << text;
        return dir_ / name;
    }
    int FilesIn() const {
        int n = 0;
        for (const auto& e : fs::directory_iterator(dir_)) n += e.is_regular_file() ? 1 : 0;
        return n;
    }

    fs::path dir_;
};

const char* const kCommented =
    "# Sites\r\n"
    "B {\r\n"
    "    # first\r\n"
    "    S {\r\n"
    "        Name = \"one\"   # kept as typed\r\n"
    "    }\r\n"
    "    # second, to be replaced\r\n"
    "    S {\r\n"
    "        Name = \"two\"\r\n"
    "    }\r\n"
    "    # third, to be removed\r\n"
    "    S {\r\n"
    "        Name = \"three\"\r\n"
    "    }\r\n"
    "    S {\r\n"
    "        Name = \"four\"\r\n"
    "    }\r\n"
    "    # end of the sites\r\n"
    "}\r\n"
    "# trailing words";

void* AddNamed(void* block, const char* name) {
    void* s = zpfAddSection(block, "S");
    zpfPutParam(s, "Name", name);
    zpfEndSection(s);
    return s;
}

}  // namespace

// Only sections that are added, replaced or removed are written anew; every
// other byte stays, CR LF line ends and the missing last line end included.
TEST_F(ZpfKeep, EditsKeepCommentsAndUntouchedSections) {
    const fs::path path = Write("sites.zpf", kCommented);
    void* f = zpfLoadFile(path.c_str());
    ASSERT_NE(f, nullptr);
    std::string text;
    ASSERT_TRUE(zpfFormat(f, &text));
    EXPECT_EQ(text, kCommented);

    void* block = zpfTargetByNum(f, 1);
    EXPECT_EQ(zpfGetLine(block), 2);
    EXPECT_EQ(zpfGetLine(zpfSectionByNum(block, 2)), 8);
    EXPECT_TRUE(zpfReplaceSection(zpfSectionByNum(block, 2), AddNamed(block, "TWO")));
    void* third = zpfSectionByNum(block, 3);
    EXPECT_TRUE(zpfRemoveSection(third));
    EXPECT_EQ(zpfGetName(third), "");  // the handle is no longer valid
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNullHandle);
    AddNamed(block, "five");
    ASSERT_TRUE(zpfFormat(f, &text));
    EXPECT_EQ(text,
              "# Sites\r\nB {\r\n    # first\r\n    S {\r\n        Name = \"one\"   # kept as "
              "typed\r\n    }\r\n"
              "    # second, to be replaced\r\n"
              "    S {\n        Name = \"TWO\"\n    }\n"
              "    # third, to be removed\r\n"
              "    S {\r\n        Name = \"four\"\r\n    }\r\n"
              "    S {\n        Name = \"five\"\n    }\n"
              "    # end of the sites\r\n}\r\n# trailing words");
    // Sections of two blocks, or one section twice, cannot be exchanged.
    void* other = zpfAddTarget(f, "C");
    EXPECT_FALSE(zpfReplaceSection(zpfSectionByNum(block, 1), AddNamed(other, "x")));
    EXPECT_FALSE(zpfReplaceSection(zpfSectionByNum(block, 1), zpfSectionByNum(block, 1)));
    EXPECT_EQ(zpfGetErrorGlb(), eZpfState);
    zpfClose(f);
}

TEST_F(ZpfKeep, CheckParamTellsWhyAValueDoesNotFitWithItsLine) {
    const fs::path path =
        Write("shapes.zpf",
              "B {\n  S {\n    Scale = 0,9996\n    Name = \"x\"\n    Dms = 45, 30, 0\n"
              "    Empty =\n    Number = \"45\"\n    Four = 1, 2, 3, 4\n  }\n}\n");
    void* f = zpfLoadFile(path.c_str());
    void* s = zpfSectionByNum(zpfTargetByNum(f, 1), 1);
    struct Case {
        const char* keyword;
        int least, most, numbers;
        const char* problem;  // "" when the keyword fits
    };
    const Case cases[] = {
        {"Scale", 1, 1, 1, "line 3: keyword 'Scale' holds 2 values where one number is expected"},
        {"Name", 1, 1, 0, ""},
        {"Name", 1, 1, 1, "line 4: keyword 'Name' holds the text \"x\" where a number is expected"},
        {"Dms", 1, 3, 1, ""},
        {"Four", 1, 3, 1,
         "line 8: keyword 'Four' holds 4 values where 1 to 3 numbers are expected"},
        {"Empty", 1, 1, 0, "line 6: keyword 'Empty' holds no value where one value is expected"},
        {"Number", 1, 1, 1,
         "line 7: keyword 'Number' holds the text \"45\" where a number is expected"},
        {"Absent", 1, 1, 1, ""},
    };
    for (const Case& c : cases) {
        std::string problem;
        const int fits = zpfCheckParam(s, c.keyword, c.least, c.most, c.numbers, &problem);
        EXPECT_EQ(fits != 0, std::string(c.problem).empty()) << c.keyword;
        EXPECT_EQ(problem, c.problem);
    }
    zpfGetErrorGlb();
    zpfClose(f);
}

// A file read only in part is never replaced without its original beside it,
// and a file that stays damaged does not pile up copies.
TEST_F(ZpfKeep, WritingOverAnUnreadableFileKeepsItOnce) {
    const std::string damaged =
        "B {\n  S {\n    Name = \"good\"\n  }\n  S {\n    Name = \"bad\n  }\n}\n";
    const fs::path path = Write("custom.zpf", damaged);
    void* f = zpfLoadFile(path.c_str());
    AddNamed(zpfTargetByNum(f, 1), "new");
    std::string keptAs;
    ASSERT_TRUE(zpfWrite(f, path.c_str(), &keptAs));
    ASSERT_EQ(keptAs.rfind(path.string() + ".unreadable-", 0), 0u) << keptAs;
    EXPECT_EQ(GxSlurp(keptAs), damaged);
    // The unreadable section is carried into the new file as it was.
    EXPECT_NE(GxSlurp(path).find("    Name = \"bad\n"), std::string::npos);
    AddNamed(zpfTargetByNum(f, 1), "newer");
    ASSERT_TRUE(zpfWrite(f, path.c_str(), &keptAs));
    EXPECT_EQ(keptAs, "");
    EXPECT_EQ(FilesIn(), 2);
    zpfClose(f);

    // A complete file is replaced without a copy.
    const fs::path clean = Write("clean.zpf", "B {\n}\n");
    void* g = zpfCreate();
    zpfAddTarget(g, "B");
    ASSERT_TRUE(zpfWrite(g, clean.c_str(), &keptAs));
    EXPECT_EQ(keptAs, "");
    EXPECT_EQ(FilesIn(), 3);
    zpfClose(g);
}

// Under a file-size limit the system raises SIGXFSZ, whose default action
// ends the process. The write must fail like any other, in a process that
// lives on, with the old file intact and no temporary file left.
TEST_F(ZpfKeep, FileSizeLimitFailsTheWriteAndNotTheProcess) {
    const fs::path path = Write("custom.zpf", "OLD {\n}\n");
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        std::signal(SIGXFSZ, SIG_DFL);
        void* f = zpfCreate();
        void* s = zpfAddSection(zpfAddTarget(f, "B"), "S");
        zpfPutParam(s, "Text", std::string(64 * 1024, 'x'));
        zpfEndSection(s);
        const rlimit small{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &small);
        const int written = zpfWrite(f, path.c_str());
        std::string message;
        const int code = zpfGetErrorGlb(&message);
        zpfClose(f);
        _exit(!written && code == eZpfIo && message.find("File too large") != std::string::npos
                  ? 0
                  : 7);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    EXPECT_TRUE(WIFEXITED(status))
        << "ended by signal " << (WIFSIGNALED(status) ? WTERMSIG(status) : 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(GxSlurp(path), "OLD {\n}\n");
    EXPECT_EQ(FilesIn(), 1);
}

// Temporary files name the process that made them; only those of processes
// that no longer run are removed.
TEST_F(ZpfKeep, StaleTemporariesOfEndedProcessesAreRemoved) {
    const pid_t ended = fork();
    if (ended == 0) _exit(0);
    waitpid(ended, nullptr, 0);
    const fs::path target = dir_ / "custom.zpf";
    const std::string mine = ".custom.zpf." + std::to_string(getpid()) + "-0.tmp";
    const std::string running = ".custom.zpf." + std::to_string(getppid()) + "-3.tmp";
    const std::string dead = ".custom.zpf." + std::to_string(ended) + "-7.tmp";
    for (const std::string& name :
         {mine, running, dead, std::string(".other.zpf.1-0.tmp"), std::string("custom.zpf")})
        Write(name.c_str(), "x");
    EXPECT_EQ(gxzpf::RemoveStaleTemporaries(target.string()), 1);
    EXPECT_FALSE(fs::exists(dir_ / dead));
    EXPECT_TRUE(fs::exists(dir_ / mine) && fs::exists(dir_ / running) &&
                fs::exists(dir_ / ".other.zpf.1-0.tmp"));
}
