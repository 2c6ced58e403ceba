#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/EllipsoidList.h"
#include "foundation/Ellipsoid.h"
#include "tests/support/TestFiles.h"

namespace fs = std::filesystem;

namespace {

int Count(CGxEllipsoidList& list, CGxEllipsoidList::EEllipsoidTypes type) {
    return static_cast<int>(std::distance(list.GetIteratorBegin(type), list.GetIteratorEnd(type)));
}

// Runs body in a child process that exits normally, so that the library's
// unload (the setup singleton's destructor) runs there and not in the test.
int RunChild(void (*body)(const std::string&), const std::string& arg) {
    pid_t pid = fork();
    if (pid == 0) {
        body(arg);
        std::exit(0);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return status;
}

}  // namespace

TEST(EllipsoidCatalogue, SystemFileIsReadAtLoad) {
    CGxEllipsoidList& list = CGxCartSetup::Instance().GetEllipsoidList();
    const CGxEllipsoid* we = list.GetEllipsoid("WE");
    ASSERT_NE(we, nullptr);
    EXPECT_EQ(we->GetName(), "WGS 84");
    EXPECT_EQ(we->GetMajor(), 6378137.0);
    EXPECT_EQ(we->GetInvFlatness(), 298.257223563);
    const CGxEllipsoid* xy = list.GetEllipsoid("XY");
    ASSERT_NE(xy, nullptr);
    EXPECT_EQ(xy->GetMajor(), 6371229.0);
    EXPECT_EQ(xy->GetFlatness(), 0.0);
    for (const char* id : {"WD", "RF", "IN", "BR", "BN", "CC", "CD", "AA", "AM", "AN", "KA",
                           "HE", "HO", "ID", "SA", "FA", "EA", "EB", "EC", "ED", "EE", "EF"})
        EXPECT_NE(list.GetEllipsoid(id), nullptr) << id;
    // Identifiers are case-sensitive and whole.
    EXPECT_EQ(list.GetEllipsoid("we"), nullptr);
    EXPECT_EQ(list.GetEllipsoid("W"), nullptr);
    EXPECT_EQ(list.GetEllipsoidFromName("Bessel 1841")->GetID(), "BR");
}

TEST(EllipsoidCatalogue, CustomEntriesFollowSystemEntries) {
    GxTempFolder dir;
    CGxEllipsoidList list;
    list.ReadEllipsoids(std::string(GXCART_TEST_DATA) + "/../../data/ellipsoid.zpf", false);
    list.GenerateCompleteList();
    const int system = Count(list, CGxEllipsoidList::eSystemEllipsoids);
    ASSERT_GT(system, 20);
    EXPECT_EQ(Count(list, CGxEllipsoidList::eAllEllipsoids), system);
    EXPECT_EQ(Count(list, CGxEllipsoidList::eCustomEllipsoids), 0);

    auto* mine = new CGxEllipsoid("Local sphere", "LS", 6370000.0, 0.0);
    list.AddEllipsoid(mine);
    EXPECT_EQ(list.GetEllipsoid("LS"), mine);
    EXPECT_EQ(*std::prev(list.GetIteratorEnd(CGxEllipsoidList::eAllEllipsoids)), mine);
    for (auto it = list.GetIteratorBegin(CGxEllipsoidList::eSystemEllipsoids);
         it != list.GetIteratorEnd(CGxEllipsoidList::eSystemEllipsoids); ++it)
        EXPECT_NE(*it, mine);
    // Any other selector walks the complete list.
    EXPECT_EQ(Count(list, static_cast<CGxEllipsoidList::EEllipsoidTypes>(7)), system + 1);

    // Deleting a system entry through the custom interface does nothing.
    CGxEllipsoid* we = list.GetEllipsoid("WE");
    list.DeleteEllipsoid(we);
    EXPECT_EQ(list.GetEllipsoid("WE"), we);
    list.DeleteEllipsoid(mine);
    EXPECT_EQ(list.GetEllipsoid("LS"), nullptr);
}

TEST(EllipsoidCatalogue, SystemEntryWinsOverCustomWithSameIdentifier) {
    GxTempFolder dir;
    GxWriteText(dir.path() / "custom_ellipsoid.zpf",
                "ELLIPSOID_DEFINITION {\n  REF_ELLIPSOID {\n    Ellipsoid_Name = \"My WGS\"\n"
                "    ID_Code = \"WE\"\n    Semi_Major_Axis = 6378000\n    Inverse_Flatness = 300\n"
                "  }\n}\n");
    CGxEllipsoidList list;
    list.ReadEllipsoids(std::string(GXCART_TEST_DATA) + "/../../data/ellipsoid.zpf", false);
    list.ReadEllipsoids(dir.folder() + "custom_ellipsoid.zpf", true);
    list.GenerateCompleteList();
    EXPECT_EQ(Count(list, CGxEllipsoidList::eCustomEllipsoids), 1);
    EXPECT_EQ(list.GetEllipsoid("WE")->GetName(), "WGS 84");
    EXPECT_EQ(list.GetEllipsoidFromName("My WGS")->GetMajor(), 6378000.0);
}

TEST(EllipsoidCatalogue, MissingAndMalformedFilesAddNothing) {
    GxTempFolder dir;
    GxWriteText(dir.path() / "broken.zpf", "ELLIPSOID_DEFINITION {\n  REF_ELLIPSOID {\n");
    GxWriteText(dir.path() / "other.zpf", "SOMETHING_ELSE {\n}\n");
    CGxEllipsoidList list;
    list.ReadEllipsoids(dir.folder() + "absent.zpf", false);
    list.ReadEllipsoids(dir.folder() + "broken.zpf", false);
    list.ReadEllipsoids(dir.folder() + "other.zpf", true);
    list.GenerateCompleteList();
    EXPECT_EQ(Count(list, CGxEllipsoidList::eAllEllipsoids), 0);
}

TEST(EllipsoidCatalogue, CustomFileRoundTripKeepsEveryValue) {
    GxTempFolder dir;
    CGxEllipsoidList list;
    list.AddEllipsoid(new CGxEllipsoid("Third", "T3", 6378137.0 / 3.0, 1.0 / 3.0));
    list.AddEllipsoid(new CGxEllipsoid("Quote \" and \\ in a name", "Q\"", 6378388, 297));
    ASSERT_TRUE(list.WriteCustomEllipsoids(dir.folder() + "custom_ellipsoid.zpf"));
    CGxEllipsoidList back;
    back.ReadEllipsoids(dir.folder() + "custom_ellipsoid.zpf", true);
    back.GenerateCompleteList();
    ASSERT_EQ(Count(back, CGxEllipsoidList::eCustomEllipsoids), 2);
    const CGxEllipsoid* third = back.GetEllipsoid("T3");
    ASSERT_NE(third, nullptr);
    EXPECT_EQ(third->GetMajor(), 6378137.0 / 3.0);
    EXPECT_EQ(third->GetInvFlatness(), 1.0 / 3.0);
    EXPECT_EQ(back.GetEllipsoid("Q\"")->GetName(), "Quote \" and \\ in a name");
}

namespace {
void AddAndUnload(const std::string& user) {
    CGxCartSetup& setup = CGxCartSetup::Instance();
    setup.ReadData("", user);
    setup.GetEllipsoidList().AddEllipsoid(new CGxEllipsoid("Unload test", "UT", 6377000, 299));
    setup.SetEllipsoidListModified();
}

void AddManyUnderFileSizeLimit(const std::string& user) {
    CGxCartSetup& setup = CGxCartSetup::Instance();
    setup.ReadData("", user);
    for (int i = 0; i < 200; ++i)
        setup.GetEllipsoidList().AddEllipsoid(new CGxEllipsoid("Bulk", "B", 6377000 + i, 299));
    setup.SetEllipsoidListModified();
    rlimit small{4096, 4096};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
}
}  // namespace

TEST(EllipsoidCatalogue, UnloadWritesModifiedCustomFileIntoNewUserFolder) {
    GxTempFolder dir;
    const std::string user = dir.folder() + "new/user/";  // created only when written
    ASSERT_EQ(RunChild(AddAndUnload, user), 0);
    CGxEllipsoidList back;
    back.ReadEllipsoids(user + "custom_ellipsoid.zpf", true);
    back.GenerateCompleteList();
    const CGxEllipsoid* ut = back.GetEllipsoid("UT");
    ASSERT_NE(ut, nullptr);
    EXPECT_EQ(ut->GetMajor(), 6377000.0);
    // Custom entries read at load, then written, stay custom: nothing else.
    EXPECT_EQ(Count(back, CGxEllipsoidList::eAllEllipsoids), 1);
}

TEST(EllipsoidCatalogue, FailedWriteAtUnloadKeepsThePreviousFile) {
    GxTempFolder dir;
    const std::string previous =
        "ELLIPSOID_DEFINITION {\n  REF_ELLIPSOID {\n    Ellipsoid_Name = \"Kept\"\n"
        "    ID_Code = \"KP\"\n    Semi_Major_Axis = 6378000\n    Inverse_Flatness = 300\n  }\n}\n";
    GxWriteText(dir.path() / "custom_ellipsoid.zpf", previous);
    ASSERT_EQ(RunChild(AddManyUnderFileSizeLimit, dir.folder()), 0);
    EXPECT_EQ(GxSlurp(dir.path() / "custom_ellipsoid.zpf"), previous);
}

// A damaged section hides its identifier from the entries after it in its
// file and, for a custom file, from later additions; never from a system
// ellipsoid or an entry that stands before it. The projections that use such
// an identifier are then refused by name, not converted on a wrong figure.
TEST(EllipsoidCatalogue, DamagedSectionsHideTheirIdentifierOnlyFromLaterEntries) {
    GxTempFolder dir;
    auto section = [](const char* id, const char* axis) {
        return std::string("  REF_ELLIPSOID {\n    Ellipsoid_Name = \"") + id +
               "\"\n    ID_Code = \"" + id + "\"\n    Semi_Major_Axis = " + axis +
               "\n    Inverse_Flatness = 300\n  }\n";
    };
    GxWriteText(dir.path() / "system.zpf",
                "ELLIPSOID_DEFINITION {\n" + section("AA", "6378000") +
                    section("AA", "6378000, 1") + section("BB", "\"6378000\"") +
                    section("BB", "6377000") + section("WE", "6378137") + "}\n");
    GxWriteText(dir.path() / "custom.zpf", "ELLIPSOID_DEFINITION {\n" + section("WE", "6378000 m") +
                                               section("CC", "6378000 m") + "}\n");
    CGxCartSetup::GetReport();
    CGxEllipsoidList list;
    list.ReadEllipsoids(dir.folder() + "system.zpf", false);
    list.ReadEllipsoids(dir.folder() + "custom.zpf", true);
    list.AddEllipsoid(new CGxEllipsoid("Later", "CC", 6378000, 300));
    ASSERT_NE(list.GetEllipsoid("AA"), nullptr);
    EXPECT_EQ(list.GetEllipsoid("AA")->GetMajor(), 6378000.0);
    EXPECT_EQ(list.GetEllipsoid("BB"), nullptr);
    EXPECT_EQ(list.GetEllipsoid("WE")->GetMajor(), 6378137.0);
    EXPECT_EQ(list.GetEllipsoid("CC"), nullptr);
    EXPECT_EQ(list.UnavailableIdentifiers(), (std::vector<std::string>{"BB", "CC"}));
    const std::string report = CGxCartSetup::GetReport();
    EXPECT_NE(
        report.find(dir.folder() + "system.zpf: line 17: keyword 'Semi_Major_Axis' holds the text "
                                   "\"6378000\" where a number is expected"),
        std::string::npos)
        << report;
    EXPECT_NE(
        report.find(dir.folder() + "custom.zpf: line 11: expected ',' between values, found 'm'"),
        std::string::npos)
        << report;
}
