// The user's custom catalogue files in real use: several processes writing at
// once, processes that only look systems up, damaged files, a process killed
// while it writes, a file-size limit and a read-only folder. Every process is
// gxcart_catalogue_user (tests/catalogue/programs) or the gxcart tool, so the
// reading at load and the writing at exit are the library's own.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/TestFiles.h"
#include "zpf/zpf.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

const char* const kProjections = "custom_projection.zpf";
const char* const kEllipsoids = "custom_ellipsoid.zpf";

void WriteText(const fs::path& p, const std::string& text) {
    std::ofstream(p, std::ios::binary) << text;
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// A home folder of its own; the library's user folder is data/gxcart in it.
class UserHome {
public:
    UserHome() {
        char pattern[] = "/tmp/gxcart-durable-XXXXXX";
        home_ = mkdtemp(pattern);
        folder_ = home_ / "data" / "gxcart";
        fs::create_directories(folder_);
    }
    ~UserHome() {
        SetImmutable(false);
        std::error_code ec;
        fs::remove_all(home_, ec);
    }
    fs::path File(const std::string& name) const { return folder_ / name; }
    const fs::path& Folder() const { return folder_; }
    const fs::path& Home() const { return home_; }
    // The environment of a process of this user.
    std::vector<std::string> Environment() const {
        std::vector<std::string> env;
        for (char** e = environ; *e; ++e)
            if (std::strncmp(*e, "HOME=", 5) != 0 && std::strncmp(*e, "XDG_DATA_HOME=", 14) != 0)
                env.push_back(*e);
        env.push_back("HOME=" + home_.string());
        env.push_back("XDG_DATA_HOME=" + (home_ / "data").string());
        return env;
    }
    // Temporary files of writers left in the folder.
    std::vector<std::string> Temporaries() const {
        std::vector<std::string> found;
        for (const auto& e : fs::directory_iterator(folder_)) {
            const std::string name = e.path().filename().string();
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".tmp") == 0)
                found.push_back(name);
        }
        return found;
    }
    // Even root cannot create files in an immutable folder.
    bool SetImmutable(bool on) const {
        const std::string command =
            std::string("chattr ") + (on ? "+i" : "-i") + " '" + folder_.string() + "' 2>/dev/null";
        return std::system(command.c_str()) == 0;
    }

private:
    fs::path home_;
    fs::path folder_;
};

struct Outcome {
    int exitCode = -1;  // -1 when ended by a signal
    int signal = 0;
    std::string out;
    std::string err;
};

// A running program of the user, its output going to files in the home.
class Process {
public:
    Process(const UserHome& home, const std::vector<std::string>& args,
            const char* program = GXCART_CATALOGUE_USER) {
        static int counter = 0;
        const std::string stem = (home.Home() / ("run-" + std::to_string(++counter))).string();
        out_ = stem + ".out";
        err_ = stem + ".err";
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, out_.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0644);
        posix_spawn_file_actions_addopen(&actions, 2, err_.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0644);
        std::vector<std::string> argv{program};
        argv.insert(argv.end(), args.begin(), args.end());
        std::vector<char*> argp;
        for (std::string& a : argv) argp.push_back(&a[0]);
        argp.push_back(nullptr);
        std::vector<std::string> env = home.Environment();
        std::vector<char*> envp;
        for (std::string& e : env) envp.push_back(&e[0]);
        envp.push_back(nullptr);
        if (posix_spawn(&pid_, program, &actions, nullptr, argp.data(), envp.data()) != 0)
            pid_ = -1;
        posix_spawn_file_actions_destroy(&actions);
    }
    Process(Process&& other) noexcept : pid_(other.pid_), out_(other.out_), err_(other.err_) {
        other.pid_ = -1;
    }
    ~Process() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
    }
    std::string Output() const { return GxSlurp(out_); }
    void Kill() const { kill(pid_, SIGKILL); }
    Outcome Wait() {
        Outcome o;
        int status = 0;
        if (pid_ <= 0 || waitpid(pid_, &status, 0) != pid_) return o;
        pid_ = -1;
        if (WIFEXITED(status)) o.exitCode = WEXITSTATUS(status);
        if (WIFSIGNALED(status)) o.signal = WTERMSIG(status);
        o.out = GxSlurp(out_);
        o.err = GxSlurp(err_);
        return o;
    }

private:
    pid_t pid_ = -1;
    std::string out_;
    std::string err_;
};

Outcome RunUser(const UserHome& home, const std::vector<std::string>& args) {
    return Process(home, args).Wait();
}

// A custom file as the library would read it: whether it reads completely,
// and the names (or identifiers) of its entries in order.
struct Content {
    int problems = -1;
    std::vector<std::string> names;
};

Content Read(const fs::path& path, const char* block, const char* nameKeyword) {
    Content c;
    void* file = zpfLoadFile(path.string().c_str());
    if (!file) return c;
    c.problems = zpfGetNoProblems(file);
    void* target = zpfTargetByNameNum(file, block, 1);
    for (int i = 1; target && i <= zpfGetNoSections(target); ++i) {
        std::string name;
        zpfGetParam(zpfSectionByNum(target, i), nameKeyword, 1, 1, &name);
        c.names.push_back(name);
    }
    zpfGetErrorGlb();
    zpfClose(file);
    return c;
}

Content Projections(const UserHome& home) {
    return Read(home.File(kProjections), "MAP_PROJECTION_DEFINITION", "Projection_Name");
}

Content Ellipsoids(const UserHome& home) {
    return Read(home.File(kEllipsoids), "ELLIPSOID_DEFINITION", "ID_Code");
}

// Whether every line of before stands in after, in the same order.
bool KeepsEveryLine(const std::string& before, const std::string& after) {
    std::istringstream a(after);
    std::istringstream b(before);
    std::string wanted;
    std::string line;
    while (std::getline(b, wanted)) {
        bool found = false;
        while (!found && std::getline(a, line)) found = line == wanted;
        if (!found) return false;
    }
    return true;
}

// Hand-written files: comments, survey feet, a reduction, degrees and
// minutes, numbers written the way the user typed them.
const char* const kHandWrittenEllipsoids =
    "# Ellipsoids of our surveys\n"
    "ELLIPSOID_DEFINITION {\n"
    "    REF_ELLIPSOID {\n"
    "        Ellipsoid_Name = \"GRS 1980 (site copy)\"\n"
    "        ID_Code = \"E1\"\n"
    "        Semi_Major_Axis = 6378137.000\n"
    "        Inverse_Flatness = 298.257222101   # as in the report\n"
    "    }\n"
    "}\n";

const char* const kHandWrittenProjections =
    "# Site grids, typed in from the survey report of 2019.\n"
    "MAP_PROJECTION_DEFINITION {\n"
    "\n"
    "    # Harbour: false easting in US survey feet, as the report gives it\n"
    "    UTM_PROJECTION {\n"
    "        Projection_Name = \"Site A\"\n"
    "        Branch_Name     = \"Sites\"\n"
    "        Ellipsoid       = \"E1\"\n"
    "        Scale_Reduction = 2500\n"
    "        Centre_dms      = 9, 0, 0\n"
    "        Origin_Latitude = 0\n"
    "        Feast_ft_us     = 1640416.6667\n"
    "        Fnorth          = 0\n"
    "    }\n"
    "}\n";

// echo 9.5 50 0 0 | cct -d 3 +proj=tmerc +lon_0=9 +k=0.9996 +x_0=500000 +ellps=GRS80
//    535833.459    5538750.477
// The same with +proj=utm +zone=32 +ellps=WGS84 gives 535833.459 5538750.478.
const char* const kSiteAAt95x50 = "Site A 535833.459 5538750.477";
const char* const kUtm32At95x50 = "UTM-32 535833.459 5538750.478";

}  // namespace

// Every process adds its own ellipsoid and a projection on it, eight at a
// time; each used to write back the copy it had read at load, so only the
// last to exit kept its entries. A reader among them never finds a projection
// whose ellipsoid is missing.
TEST(CustomFileDurability, ProcessesWritingAtOnceKeepEveryEntry) {
    UserHome home;
    constexpr int kRounds = 6;
    constexpr int kWriters = 8;
    std::set<std::string> expected;
    for (int round = 0; round < kRounds; ++round) {
        std::vector<Process> running;
        for (int w = 0; w < kWriters; ++w) {
            const std::string tag = std::to_string(round) + "-" + std::to_string(w);
            running.emplace_back(home, std::vector<std::string>{"add", tag});
            expected.insert(tag);
        }
        running.emplace_back(home, std::vector<std::string>{"check"});
        for (Process& p : running) {
            const Outcome o = p.Wait();
            EXPECT_EQ(o.exitCode, 0) << o.out << o.err;
        }
    }
    const Content projections = Projections(home);
    const Content ellipsoids = Ellipsoids(home);
    EXPECT_EQ(projections.problems, 0);
    EXPECT_EQ(ellipsoids.problems, 0);
    std::set<std::string> sites(projections.names.begin(), projections.names.end());
    std::set<std::string> ids(ellipsoids.names.begin(), ellipsoids.names.end());
    EXPECT_EQ(projections.names.size(), expected.size());
    EXPECT_EQ(ellipsoids.names.size(), expected.size());
    for (const std::string& tag : expected) {
        EXPECT_EQ(sites.count("Site " + tag), 1u) << tag;
        EXPECT_EQ(ids.count("E-" + tag), 1u) << tag;
    }
    EXPECT_TRUE(home.Temporaries().empty());
}

// The recently used list: every process read it, changed it and wrote it
// through the same temporary name, so choices made at the same time were lost.
TEST(CustomFileDurability, ChoicesMadeAtOnceAreAllInTheRecentlyUsedList) {
    UserHome home;
    std::vector<Process> running;
    for (int zone = 31; zone <= 38; ++zone)
        running.emplace_back(home,
                             std::vector<std::string>{"recent", "UTM-" + std::to_string(zone)});
    for (Process& p : running) EXPECT_EQ(p.Wait().exitCode, 0);
    const std::string list = GxSlurp(home.File(".MapProjectionBuffer.txt"));
    for (int zone = 31; zone <= 38; ++zone)
        EXPECT_TRUE(Contains(list, "PROJCS[\"UTM-" + std::to_string(zone) + "\"")) << zone << "\n"
                                                                                   << list;
    EXPECT_TRUE(home.Temporaries().empty());
}

// Opening a catalogue name marks the projection list modified; the files
// used to be rewritten from memory at every exit, losing comments, survey
// feet and the entries of other processes.
TEST(CustomFileDurability, LookingUpAndConvertingLeavesTheFilesAsTheyWere) {
    UserHome home;
    WriteText(home.File(kProjections), kHandWrittenProjections);
    WriteText(home.File(kEllipsoids), kHandWrittenEllipsoids);
    struct stat before {};
    stat(home.File(kProjections).c_str(), &before);

    const Outcome library = RunUser(
        home, {"convert", "UTM-32", "9.5", "50", "convert", "Site A", "9.5", "50", "convert-flat",
               "Site A", "9.5", "50", "convert-flat", "UTM-32", "9.5", "50"});
    EXPECT_EQ(library.exitCode, 0);
    EXPECT_TRUE(Contains(library.out, kUtm32At95x50)) << library.out;
    EXPECT_EQ(std::count(library.out.begin(), library.out.end(), '\n'), 4);
    std::istringstream lines(library.out);
    std::string line;
    std::getline(lines, line);
    std::getline(lines, line);
    EXPECT_EQ(line, kSiteAAt95x50);
    std::getline(lines, line);
    EXPECT_EQ(line, kSiteAAt95x50);
    EXPECT_EQ(library.err, "");
    for (const char* name : {"UTM-32", "Site A"}) {
        const Outcome tool = Process(home, {"info", name}, GXCART_TOOL).Wait();
        EXPECT_EQ(tool.exitCode, 0) << tool.err;
        EXPECT_EQ(tool.err, "");
    }

    EXPECT_EQ(GxSlurp(home.File(kProjections)), kHandWrittenProjections);
    EXPECT_EQ(GxSlurp(home.File(kEllipsoids)), kHandWrittenEllipsoids);
    struct stat after {};
    stat(home.File(kProjections).c_str(), &after);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    // Nothing else appeared in the folder either: no lock, no temporary file.
    EXPECT_EQ(std::distance(fs::directory_iterator(home.Folder()), fs::directory_iterator()), 2);
}

// One malformed section used to make the whole file be refused, and the next
// run wrote it back empty. Now only that section is skipped and reported; its
// name finds nothing rather than another system; what the user wrote stays.
TEST(CustomFileDurability, DamagedSectionsAreSkippedAndNothingTheUserWroteIsLost) {
    UserHome home;
    std::string ellipsoids = kHandWrittenEllipsoids;
    ellipsoids.erase(ellipsoids.rfind('}'));
    ellipsoids +=
        "    # The second figure has a unit typed after its axis.\n"
        "    REF_ELLIPSOID {\n"
        "        Ellipsoid_Name = \"Local\"\n"
        "        ID_Code = \"E2\"\n"
        "        Semi_Major_Axis = 6378000 m\n"  // line 13
        "        Inverse_Flatness = 300\n"
        "    }\n"
        "}\n";
    std::string projections = kHandWrittenProjections;
    projections.erase(projections.rfind('}'));
    projections +=
        "    UTM_PROJECTION {\n"  // line 15
        "        Projection_Name = \"Site B\"\n"
        "        Ellipsoid = \"E1\"\n"
        "        Scale = 0.9996\n"
        "        Centre = 9\n"
        "        Feast = 500000m\n"  // line 20
        "    }\n"
        "    UTM_PROJECTION {\n"  // line 22
        "        Projection_Name = \"Site C\"\n"
        "        Ellipsoid = \"E1\"\n"
        "        Scale = 0,9996\n"  // line 25
        "        Centre = 9\n"
        "        Feast = 500000\n"
        "    }\n"
        "    # Lambert-93 on the site copy of GRS 1980, first parallel with a\n"
        "    # fraction of a degree in the degrees-minutes-seconds form\n"
        "    LAMBERT_CONIC_2SP_PROJECTION {\n"
        "        Projection_Name = \"Site D\"\n"
        "        Ellipsoid = \"E1\"\n"
        "        Parallel_1_dms = 45.5, 0, 0\n"
        "        Parallel_2 = 44\n"
        "        Origin_Longitude = 3\n"
        "        Origin_Latitude = 46.5\n"
        "        Feast = 700000\n"
        "        Fnorth = 6600000\n"
        "    }\n"
        "    UTM_PROJECTION {\n"
        "        Projection_Name = \"Site E\"\n"
        "        Ellipsoid = \"E2\"\n"
        "        Scale = 0.9996\n"
        "        Centre = 9\n"
        "        Feast = 500000\n"
        "    }\n"
        "}\n";
    WriteText(home.File(kProjections), projections);
    WriteText(home.File(kEllipsoids), ellipsoids);

    // echo 3.5 45.6 0 0 | cct -d 3 +proj=lcc +lat_1=45.5 +lat_2=44 +lon_0=3 +lat_0=46.5
    //     +x_0=700000 +y_0=6600000 +ellps=GRS80
    //    739010.501    6500064.465
    const Outcome ordinary =
        RunUser(home, {"convert", "Site A",  "9.5",     "50",     "convert", "Site B",  "9.5",
                       "50",      "convert", "Site C",  "9.5",    "50",      "convert", "Site D",
                       "3.5",     "45.6",    "convert", "Site E", "9.5",     "50",      "report"});
    EXPECT_EQ(ordinary.exitCode, 0);
    EXPECT_EQ(ordinary.out, std::string(kSiteAAt95x50) +
                                "\nSite B unavailable\nSite C unavailable\n"
                                "Site D 739010.501 6500064.465\nSite E unavailable\n");
    const std::string path = home.File(kProjections).string();
    for (const std::string& told :
         {path + ": line 20: '500000m' is not a number (quote text values); section "
                 "'UTM_PROJECTION' of line 15 is "
                 "skipped",
          path + ": line 25: keyword 'Scale' holds 2 values where one number is expected; section "
                 "'UTM_PROJECTION' of line 22 is skipped",
          home.File(kEllipsoids).string() +
              ": line 13: expected ',' between values, found 'm'; section "
              "'REF_ELLIPSOID' of line 10 is skipped",
          std::string("'Site E' uses the ellipsoid 'E2', whose section was skipped")})
        EXPECT_TRUE(Contains(ordinary.err, told)) << told << "\n" << ordinary.err;
    // The tool tells the user too, on standard error, and still works.
    const Outcome tool = Process(home, {"info", "Site A"}, GXCART_TOOL).Wait();
    EXPECT_EQ(tool.exitCode, 0);
    EXPECT_TRUE(Contains(tool.err, "gxcart: " + path + ": line 25: keyword 'Scale' holds 2 values"))
        << tool.err;
    EXPECT_EQ(GxSlurp(home.File(kProjections)), projections);
    EXPECT_EQ(GxSlurp(home.File(kEllipsoids)), ellipsoids);

    // A run that adds an entry keeps the damaged original beside the file and
    // carries every line the user wrote into the new one.
    const Outcome adding = RunUser(home, {"add-tm", "Site F", "E1", "3"});
    EXPECT_EQ(adding.exitCode, 0);
    EXPECT_TRUE(Contains(adding.err, "the file as it was is kept as " + path + ".unreadable-"))
        << adding.err;
    std::vector<fs::path> copies;
    for (const auto& e : fs::directory_iterator(home.Folder()))
        if (Contains(e.path().filename().string(), ".unreadable-")) copies.push_back(e.path());
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(GxSlurp(copies[0]), projections);
    EXPECT_TRUE(KeepsEveryLine(projections, GxSlurp(home.File(kProjections))));
    EXPECT_EQ(GxSlurp(home.File(kEllipsoids)), ellipsoids);

    // Another such run needs no second copy: the first holds every damaged
    // part, and the file still carries them.
    EXPECT_EQ(RunUser(home, {"add-tm", "Site G", "E1", "4"}).exitCode, 0);
    int copiesNow = 0;
    for (const auto& e : fs::directory_iterator(home.Folder()))
        copiesNow += Contains(e.path().filename().string(), ".unreadable-") ? 1 : 0;
    EXPECT_EQ(copiesNow, 1);
    const Outcome later =
        RunUser(home, {"convert", "Site A", "9.5", "50", "convert", "Site F", "3", "0", "convert",
                       "Site G", "4", "0", "convert", "Site B", "9.5", "50"});
    EXPECT_EQ(later.out, std::string(kSiteAAt95x50) +
                             "\nSite F 500000.000 0.000\nSite G 500000.000 0.000\n"
                             "Site B unavailable\n");
    EXPECT_TRUE(KeepsEveryLine(projections, GxSlurp(home.File(kProjections))));
}

// Two processes whose lifetimes overlap: the one that exits last applies its
// own changes to what the first wrote, instead of writing its old copy back.
TEST(CustomFileDurability, OverlappingProcessesMergeEditsDeletionsAndRenames) {
    UserHome home;
    std::string ellipsoids = kHandWrittenEllipsoids;
    ellipsoids.erase(ellipsoids.rfind('}'));
    WriteText(home.File(kEllipsoids),
              ellipsoids +
                  "    REF_ELLIPSOID {\n"
                  "        Ellipsoid_Name = \"Unused\"\n        ID_Code = \"E2\"\n"
                  "        Semi_Major_Axis = 6378000\n        Inverse_Flatness = 300\n"
                  "    }\n}\n");
    std::string projections = kHandWrittenProjections;
    projections.erase(projections.rfind('}'));
    projections +=
        "    # Site B, retired in 2023\n"
        "    UTM_PROJECTION {\n        Projection_Name = \"Site B\"\n        Ellipsoid = \"E1\"\n"
        "        Scale = 1\n        Centre = 10\n        Feast = 0\n    }\n"
        "    UTM_PROJECTION {\n        Projection_Name = \"Site C\"\n        Ellipsoid = \"E1\"\n"
        "        Scale = 1\n        Centre = 11\n        Feast = 0\n    }\n"
        "}\n";
    WriteText(home.File(kProjections), projections);

    const fs::path go = home.Home() / "go";
    Process late(home, {"print", "loaded", "wait", go.string(), "add-tm", "Site Z", "E1", "7"});
    const auto deadline = Clock::now() + std::chrono::seconds(30);
    while (!Contains(late.Output(), "loaded") && Clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    const Outcome early = RunUser(
        home, {"set-centre", "Site A", "8", "delete", "Site B", "rename", "Site C", "Site C2"});
    EXPECT_EQ(early.exitCode, 0) << early.err;
    WriteText(go, "");
    EXPECT_EQ(late.Wait().exitCode, 0);

    // The edit and the rename stay where the entries stood; the deletion
    // keeps the comment above it; the late addition comes last.
    const Content after = Projections(home);
    EXPECT_EQ(after.problems, 0);
    EXPECT_EQ(after.names, (std::vector<std::string>{"Site A", "Site C2", "Site Z"}));
    const std::string text = GxSlurp(home.File(kProjections));
    EXPECT_TRUE(Contains(text, "# Site grids, typed in from the survey report of 2019.\n"));
    EXPECT_TRUE(Contains(text, "# Site B, retired in 2023\n"));
    EXPECT_TRUE(Contains(text, "Centre = 8\n"));
    // echo 9.5 50 0 0 | cct -d 3 +proj=tmerc +lon_0=8 +k=0.9996 +x_0=500000 +ellps=GRS80
    //    607498.493    5539708.757
    EXPECT_EQ(RunUser(home, {"convert", "Site A", "9.5", "50"}).out,
              "Site A 607498.493 5539708.757\n");

    // An ellipsoid a projection in the file still uses is kept; an unused one
    // goes.
    const Outcome deleting = RunUser(home, {"delete-ellipsoid", "E1", "delete-ellipsoid", "E2"});
    EXPECT_TRUE(
        Contains(deleting.err,
                 "the ellipsoid 'E1' is kept, since a projection in custom_projection.zpf uses it"))
        << deleting.err;
    EXPECT_EQ(Ellipsoids(home).names, std::vector<std::string>{"E1"});
}

// The file may be large and the process killed at any moment of the write:
// the file on disk is always complete, and the next run clears what the
// killed writer left.
TEST(CustomFileDurability, AProcessKilledWhileWritingLeavesAWholeFile) {
    constexpr int kKills = 3;
    int killedMidWrite = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        UserHome home;
        WriteText(home.File(kProjections), kHandWrittenProjections);
        WriteText(home.File(kEllipsoids), kHandWrittenEllipsoids);
        Process writer(home, {"bulk", "2000", "rewrite-loop"});
        const auto deadline = Clock::now() + std::chrono::seconds(30);
        while (!Contains(writer.Output(), "ready") && Clock::now() < deadline)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        ASSERT_TRUE(Contains(writer.Output(), "ready"));
        // Killed as soon as a temporary file shows: in the middle of a write.
        while (home.Temporaries().empty() && Clock::now() < deadline) {
        }
        writer.Kill();
        EXPECT_EQ(writer.Wait().signal, SIGKILL);
        killedMidWrite += home.Temporaries().empty() ? 0 : 1;
        const Content c = Projections(home);
        EXPECT_EQ(c.problems, 0);
        ASSERT_EQ(c.names.size(), 2001u);
        EXPECT_EQ(c.names.front(), "Site A");
        // The next run, even one that only converts, clears what was left.
        EXPECT_EQ(RunUser(home, {"convert", "Site A", "9.5", "50"}).out,
                  std::string(kSiteAAt95x50) + "\n");
        EXPECT_TRUE(home.Temporaries().empty());
    }
    EXPECT_GT(killedMidWrite, 0);
}

// A file-size limit used to end the process with SIGXFSZ at unload and leave
// the temporary file; a read-only folder lost the entries without a word.
TEST(CustomFileDurability, FileSizeLimitAndReadOnlyFolderKeepTheOldFileAndSaySo) {
    UserHome home;
    WriteText(home.File(kProjections), kHandWrittenProjections);
    const Outcome limited = RunUser(home, {"limit", "4096", "bulk", "100", "save"});
    EXPECT_EQ(limited.signal, 0);
    EXPECT_EQ(limited.exitCode, 0);
    EXPECT_EQ(limited.out, "not saved\n");
    // The unload tries again, and says why it failed where nobody can ask.
    EXPECT_TRUE(Contains(limited.err, "gxcart: cannot write '" + home.File(kProjections).string() +
                                          "': File too large; the file on disk is unchanged"))
        << limited.err;
    EXPECT_EQ(GxSlurp(home.File(kProjections)), kHandWrittenProjections);
    EXPECT_TRUE(home.Temporaries().empty());

    // Read-only, with and without the lock file of an earlier writer.
    if (!home.SetImmutable(true))
        GTEST_SKIP() << "chattr +i is not available to make the folder read-only";
    home.SetImmutable(false);
    for (bool lockFileThere : {false, true}) {
        if (lockFileThere)
            WriteText(home.File(".gxcart.lock"), "");
        else
            fs::remove(home.File(".gxcart.lock"));
        ASSERT_TRUE(home.SetImmutable(true));
        const Outcome readOnly = RunUser(home, {"add", "X", "save"});
        home.SetImmutable(false);
        EXPECT_EQ(readOnly.out, "not saved\n");
        EXPECT_TRUE(Contains(
            readOnly.err, lockFileThere ? "Operation not permitted; the file on disk is unchanged"
                                        : "cannot open the lock file"))
            << readOnly.err;
        EXPECT_EQ(GxSlurp(home.File(kProjections)), kHandWrittenProjections);
        EXPECT_TRUE(home.Temporaries().empty());
    }
}
