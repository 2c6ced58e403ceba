#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/MapProjectionList.h"
#include "definitions/Lambert2SPProjection.h"
#include "definitions/MapProjData.h"
#include "definitions/TabledMapProjData.h"
#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Projection.h"
#include "gxcart.h"
#include "tests/support/TestFiles.h"
#include "zpf/zpf.h"

namespace fs = std::filesystem;

namespace {

std::vector<CGxMapProjData*> Entries(CGxMapProjectionList& list) {
    return {list.GetIteratorBegin(), list.GetIteratorEnd()};
}

const char* const kCustomLambert =
    "MAP_PROJECTION_DEFINITION {\n"
    "  LAMBERT_CONIC_2SP_PROJECTION {\n"
    "    Projection_Name = \"My Lambert\"\n    Branch_Name = \"Mine\"\n    Ellipsoid = \"RF\"\n"
    "    Parallel_1 = 44\n    Parallel_2 = 49\n    Origin_Longitude = 3\n"
    "    Origin_Latitude = 46.5\n    Feast = 700000\n    Fnorth = 6600000\n  }\n"
    "  NOT_A_PROJECTION {\n    Projection_Name = \"Skipped\"\n  }\n"
    "  MERCATOR_PROJECTION {\n    Projection_Name = \"Old Mercator\"\n    Ellipsoid = \"WE\"\n"
    "    Parallel_1 = 0\n    Centre = 0\n    Feast = 0\n    Fnorth = 0\n  }\n"
    "}\n";

}  // namespace

TEST(ProjectionCatalogue, OrderGeographicZonesFilesLocal) {
    std::vector<CGxMapProjData*> all = Entries(CGxCartSetup::Instance().GetMapProjectionList());
    ASSERT_GT(all.size(), 62u);
    EXPECT_EQ(all.front()->GetName(), "LONG/LAT");
    EXPECT_EQ(all.front()->GetProjectionType(), CGxMapProjData::eGeographical);
    EXPECT_EQ(all.front()->GetBranchName(), "Non UTM Projections");
    for (int zone = 1; zone <= 60; ++zone) {
        EXPECT_EQ(all[zone]->GetName(), "UTM-" + std::to_string(zone));
        EXPECT_EQ(all[zone]->GetBranchName(), "UTM Projections");
        EXPECT_FALSE(all[zone]->CanEdit());
        EXPECT_FALSE(all[zone]->CanDelete());
    }
    EXPECT_EQ(all.back()->GetName(), "NON-UTM");
    EXPECT_EQ(all.back()->GetProjectionType(), CGxMapProjData::eTransverseMercator);
    EXPECT_EQ(all.back()->GetBranchName(), "Non UTM Projections");
    // The system files sit between the zones and the local grid, not editable.
    EXPECT_GT(all.size(), 61u + 60u + 1u);
    for (std::size_t i = 61; i + 1 < all.size(); ++i) EXPECT_FALSE(all[i]->CanEdit()) << i;
}

TEST(ProjectionCatalogue, Utm33IsTheWgs84ZoneOnFifteenEast) {
    auto* zone = dynamic_cast<CGxTransverseMercatorProjection*>(
        CGxCartSetup::Instance().GetMapProjectionList().GetMapProjection("UTM-33"));
    ASSERT_NE(zone, nullptr);
    EXPECT_EQ(zone->GetCentre(), 15.0);
    EXPECT_EQ(zone->GetScale(), 0.9996);
    EXPECT_EQ(zone->GetFalseEasting(), 500000.0);
    EXPECT_EQ(zone->GetEllipsoidID(), "WE");
    // echo "12 45 0 0" | cct -d 6 +proj=utm +zone=33 +ellps=WGS84
    //   263553.973899  4987329.504699
    std::unique_ptr<CGxProjection> tm(zone->CreateProjection());
    ASSERT_NE(tm, nullptr);
    double x = 0, y = 0;
    tm->Geo2Proj(12, 45, &x, &y);
    EXPECT_NEAR(x, 263553.973899, 1e-3);
    EXPECT_NEAR(y, 4987329.504699, 1e-3);
    // Zone 1 and zone 60 at the ends of the longitude range.
    auto* z1 = dynamic_cast<CGxTransverseMercatorProjection*>(
        CGxCartSetup::Instance().GetMapProjectionList().GetMapProjection("UTM-1"));
    auto* z60 = dynamic_cast<CGxTransverseMercatorProjection*>(
        CGxCartSetup::Instance().GetMapProjectionList().GetMapProjection("UTM-60"));
    ASSERT_TRUE(z1 && z60);
    EXPECT_EQ(z1->GetCentre(), -177.0);
    EXPECT_EQ(z60->GetCentre(), 177.0);
}

TEST(ProjectionCatalogue, LookUpIsExactAndCaseSensitive) {
    CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    EXPECT_EQ(list.GetMapProjection("utm-33"), nullptr);
    EXPECT_EQ(list.GetMapProjection("UTM-33 "), nullptr);
    EXPECT_EQ(list.GetMapProjection("UTM-61"), nullptr);
    EXPECT_NE(list.GetMapProjection("LONG/LAT"), nullptr);
    // A WKT text is looked up by its PROJCS name.
    EXPECT_EQ(
        list.GetMapProjection("PROJCS[\"UTM-32\",GEOGCS[\"x\",DATUM[\"d\",SPHEROID[\"s\",1,1]],"
                              "PRIMEM[\"G\",0],UNIT[\"Degree\",0.0174532925199433]],"
                              "PROJECTION[\"Transverse_Mercator\"],UNIT[\"Meter\",1]]"),
        list.GetMapProjection("UTM-32"));
}

// Look-ups use short names kept beside the list; they must follow every
// change of the list and of the names in it.
TEST(ProjectionCatalogue, LookUpFollowsAdditionsRenamesAndDeletions) {
    // Every entry of the loaded catalogue is found by its own name: the first
    // entry of that name, including the last entry, "NON-UTM".
    CGxMapProjectionList& loaded = CGxCartSetup::Instance().GetMapProjectionList();
    std::vector<CGxMapProjData*> all = Entries(loaded);
    for (CGxMapProjData* d : all) {
        CGxMapProjData* found = loaded.GetMapProjection(d->GetName());
        ASSERT_NE(found, nullptr) << d->GetName();
        EXPECT_EQ(found->GetName(), d->GetName());
    }
    EXPECT_EQ(loaded.GetMapProjection("NON-UTM"), all.back());

    CGxMapProjectionList list;
    auto* first = new CGxTransverseMercatorProjection("Site grid", "Projects", "IN", 1.0, 7.5, 0, 0,
                                                      0, true, true);
    auto* second = new CGxTransverseMercatorProjection("Site grid", "Projects", "IN", 1.0, 9.0, 0,
                                                       0, 0, true, true);
    list.AddMapProjection(first);
    list.AddMapProjection(second);
    EXPECT_EQ(list.GetMapProjection("Site grid"), first);  // the first of two equal names

    first->SetName("Old site grid");
    EXPECT_EQ(list.GetMapProjection("Site grid"), second);
    EXPECT_EQ(list.GetMapProjection("Old site grid"), first);

    // A definition read again from a section takes that section's name, even
    // when it becomes a system definition.
    void* file = zpfCreate();
    zpfAddTarget(file, "MAP_PROJECTION_DEFINITION");
    void* section = zpfAddSection(file, CGxTransverseMercatorProjection::SectionName);
    zpfPutParam(section, "Projection_Name", "Harbour grid");
    zpfEndSection(section);
    second->ReadFromHandle(section, false);
    zpfGetErrorGlb();
    zpfClose(file);
    EXPECT_EQ(list.GetMapProjection("Site grid"), nullptr);
    EXPECT_EQ(list.GetMapProjection("Harbour grid"), second);

    list.DeleteMapProjection(first);
    EXPECT_EQ(list.GetMapProjection("Old site grid"), nullptr);
    EXPECT_EQ(list.GetMapProjection("Harbour grid"), second);
}

TEST(ProjectionCatalogue, CustomFileEntriesAreEditableAndUnknownSectionsSkipped) {
    GxTempFolder dir;
    GxWriteText(dir / "custom_projection.zpf", kCustomLambert);
    CGxMapProjectionList custom;
    custom.ReadMapProjections(dir.folder() + "custom_projection.zpf", true);
    std::vector<CGxMapProjData*> read = Entries(custom);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0]->GetProjectionType(), CGxMapProjData::eLambert2SP);
    EXPECT_TRUE(read[0]->CanEdit());
    EXPECT_TRUE(read[0]->CanDelete());
    EXPECT_EQ(static_cast<CGxLambert2SPProjection*>(read[0])->GetOriginLatitude(), 46.5);
    // The old Mercator section name reads as Mercator with two standard parallels.
    EXPECT_EQ(read[1]->GetProjectionType(), CGxMapProjData::eMercator2SP);

    // The same file read as a system file is never written back.
    CGxMapProjectionList system;
    system.ReadMapProjections(dir.folder() + "custom_projection.zpf", false);
    ASSERT_EQ(Entries(system).size(), 2u);
    ASSERT_TRUE(system.WriteCustomMapProjections(dir.folder() + "written.zpf"));
    CGxMapProjectionList back;
    back.ReadMapProjections(dir.folder() + "written.zpf", true);
    EXPECT_TRUE(Entries(back).empty());

    // Editable entries survive write and read with every value.
    ASSERT_TRUE(custom.WriteCustomMapProjections(dir.folder() + "written.zpf"));
    back.ReadMapProjections(dir.folder() + "written.zpf", true);
    ASSERT_EQ(Entries(back).size(), 2u);
    auto* lambert = static_cast<CGxLambert2SPProjection*>(back.GetMapProjection("My Lambert"));
    ASSERT_NE(lambert, nullptr);
    EXPECT_EQ(lambert->GetParallel1(), 44.0);
    EXPECT_EQ(lambert->GetFalseNorthing(), 6600000.0);
    EXPECT_EQ(lambert->GetBranchName(), "Mine");

    back.DeleteMapProjection(lambert);
    EXPECT_EQ(back.GetMapProjection("My Lambert"), nullptr);
}

// The keyword Code: a custom system keeps its code through write and read,
// is found by it, and a section without one has none. A system definition
// does not take a new code, as it takes no new name.
TEST(ProjectionCatalogue, CodesAreReadWrittenAndFound) {
    GxTempFolder dir;
    GxWriteText(dir / "custom_projection.zpf",
                "MAP_PROJECTION_DEFINITION {\n"
                "  UTM_PROJECTION {\n    Projection_Name = \"Site grid\"\n"
                "    Branch_Name = \"Mine\"\n    Ellipsoid = \"RF\"\n    Code = \"epsg:25832\"\n"
                "    Scale = 0.9996\n    Centre = 9\n    Origin_Latitude = 0\n"
                "    Feast = 500000\n    Fnorth = 0\n  }\n"
                "  UTM_PROJECTION {\n    Projection_Name = \"Uncoded\"\n    Ellipsoid = \"RF\"\n"
                "    Code = \"IGNF:LAMB93\"\n  }\n"
                "  UTM_PROJECTION {\n    Projection_Name = \"Plain\"\n    Ellipsoid = \"RF\"\n  }\n"
                "}\n");
    CGxMapProjectionList custom;
    custom.ReadMapProjections(dir.folder() + "custom_projection.zpf", true);
    auto* site = dynamic_cast<CGxTabledMapProjData*>(custom.GetMapProjection("Site grid"));
    ASSERT_NE(site, nullptr);
    EXPECT_EQ(site->GetCode(), "epsg:25832");  // kept as written
    // Found in any spelling of the code; a code of no register is kept but
    // finds nothing.
    EXPECT_EQ(custom.GetMapProjectionByCode("EPSG:25832"), site);
    EXPECT_EQ(custom.GetMapProjectionByCode("urn:ogc:def:crs:EPSG::25832"), site);
    EXPECT_EQ(custom.GetMapProjectionByCode("EPSG:25833"), nullptr);
    EXPECT_EQ(custom.GetMapProjectionByCode("IGNF:LAMB93"), nullptr);
    EXPECT_EQ(custom.GetMapProjectionByCode("Site grid"), nullptr);
    EXPECT_EQ(GxDefinitionCode(custom.GetMapProjection("Uncoded")), "IGNF:LAMB93");
    EXPECT_EQ(GxDefinitionCode(custom.GetMapProjection("Plain")), "");
    EXPECT_EQ(GxDefinitionCode(nullptr), "");

    // A code changed on an editable entry is followed by the look-up.
    site->SetCode("EPSG:25833");
    EXPECT_EQ(custom.GetMapProjectionByCode("EPSG:25832"), nullptr);
    EXPECT_EQ(custom.GetMapProjectionByCode("EPSG:25833"), site);

    ASSERT_TRUE(custom.WriteCustomMapProjections(dir.folder() + "written.zpf"));
    CGxMapProjectionList back;
    back.ReadMapProjections(dir.folder() + "written.zpf", false);
    auto* read = dynamic_cast<CGxTabledMapProjData*>(back.GetMapProjection("Site grid"));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->GetCode(), "EPSG:25833");
    EXPECT_EQ(GxDefinitionCode(back.GetMapProjection("Uncoded")), "IGNF:LAMB93");
    EXPECT_EQ(GxDefinitionCode(back.GetMapProjection("Plain")), "");
    read->SetCode("EPSG:1");
    EXPECT_EQ(read->GetCode(), "EPSG:25833");
    // Without a deferred file the look-up simply finds nothing more.
    EXPECT_EQ(back.GetMapProjectionByCode("EPSG:2958"), nullptr);
    EXPECT_EQ(back.GetDeferredMapProjection("NAD83(CSRS) / UTM zone 17N"), nullptr);
    EXPECT_EQ(back.GetNoOfDeferredMapProjections(), 0u);
}

namespace {
void AddProjectionAndUnload(const std::string& user) {
    CGxCartSetup& setup = CGxCartSetup::Instance();
    setup.GetMapProjectionList().AddMapProjection(new CGxTransverseMercatorProjection(
        "Site grid", "Projects", "IN", 1.0, 7.5, 0, 0, 0, true, true));
    setup.ReadData("", user);  // points the user folder at the test's folder
    setup.SetMapProjectionListModified();
}
}  // namespace

TEST(ProjectionCatalogue, CustomProjectionWrittenAtUnloadIsReadByTheNextProcess) {
    GxTempFolder dir;
    pid_t pid = fork();
    if (pid == 0) {
        AddProjectionAndUnload(dir.folder());
        std::exit(0);
    }
    int status = -1;
    waitpid(pid, &status, 0);
    ASSERT_EQ(status, 0);
    CGxMapProjectionList next;
    next.ReadMapProjections(dir.folder() + "custom_projection.zpf", true);
    std::vector<CGxMapProjData*> read = Entries(next);
    ASSERT_EQ(read.size(), 1u);  // the system entries are never written
    EXPECT_EQ(read[0]->GetName(), "Site grid");
    EXPECT_EQ(static_cast<CGxTransverseMercatorProjection*>(read[0])->GetCentre(), 7.5);
    EXPECT_TRUE(read[0]->CanEdit());
}

// A section that cannot be read as its type is skipped and reported with its
// file and line. Its name then finds nothing from the file's first entry on,
// unless an entry before it has that name: a damaged entry never makes its
// name resolve to another system.
TEST(ProjectionCatalogue, SkippedSectionsAreReportedAndLeaveTheirNameUnresolved) {
    GxTempFolder dir;
    const std::string path = dir.folder() + "custom_projection.zpf";
    GxWriteText(
        path,
        "MAP_PROJECTION_DEFINITION {\n"
        "  UTM_PROJECTION {\n    Projection_Name = \"Pier\"\n    Scale = 1\n  }\n"          // 2
        "  UTM_PROJECTION {\n    Projection_Name = \"Harbour\"\n    Scale = 0,9996\n  }\n"  // 6
        "  UTM_PROJECTION {\n    Projection_Name = \"Harbour\"\n    Scale = 0.9996\n  }\n"  // 10
        "  UTM_PROJECTION {\n    Projection_Name = \"Quay\"\n    Centre = \"9\"\n  }\n"     // 14
        "  UTM_PROJECTION {\n    Projection_Name = \"Dock\"\n    Feast = 500000 m\n  }\n"   // 18
        "  UTM_PROJECTION {\n    Projection_Name = \"Pier\"\n    Scale_Reduction = 1, 2500\n  }\n"
        "}\n");
    CGxCartSetup::GetReport();
    CGxMapProjectionList list;
    list.ReadMapProjections(path, true);
    ASSERT_EQ(Entries(list).size(), 2u);
    EXPECT_EQ(list.GetMapProjection("Harbour"), nullptr);
    EXPECT_EQ(list.GetMapProjection("Dock"), nullptr);
    EXPECT_EQ(list.GetMapProjection("Quay"), nullptr);
    EXPECT_EQ(list.GetMapProjection("Pier"), Entries(list)[0]);  // found before the damaged one
    list.AddMapProjection(
        new CGxTransverseMercatorProjection("Dock", "", "WE", 1, 0, 0, 0, 0, true, true));
    EXPECT_EQ(list.GetMapProjection("Dock"), nullptr);

    const std::string report = CGxCartSetup::GetReport();
    for (const char* line :
         {": line 8: keyword 'Scale' holds 2 values where one number is expected; section "
          "'UTM_PROJECTION' of line 6 is skipped",
          ": line 16: keyword 'Centre' holds the text \"9\" where a number is expected; section "
          "'UTM_PROJECTION' of line 14 is skipped",
          ": line 20: expected ',' between values, found 'm'; section 'UTM_PROJECTION' of line 18 "
          "is "
          "skipped",
          ": line 24: keyword 'Scale_Reduction' holds 2 values where one number is expected"})
        EXPECT_NE(report.find(path + line), std::string::npos) << line << "\n" << report;
    EXPECT_EQ(CGxCartSetup::PeekReport(), "");
}

// The degrees, minutes and seconds of a _dms keyword are the decimals they
// state; a fraction of a degree was once dropped, so 45.5, 0, 0 read as 0.
// The sign stays with the degrees, a "-0" degree being positive.
TEST(ProjectionCatalogue, DmsAnglesWithFractionsAreReadAsWritten) {
    struct Case {
        const char* values;
        double degrees;
        int d, m;  // what zpfGetParamDMS hands out
        double s;
    };
    const Case cases[] = {
        {"45.5, 0, 0", 45.5, 45, 30, 0},
        {"-45.5, 0, 0", -45.5, -45, 30, 0},
        {"45, 30.5, 0", 45 + 30.5 / 60, 45, 30, 30},
        {"-0.5", -0.5, 0, -30, 0},
        {"0, -30, 0", -0.5, 0, -30, 0},
        {"-0, 30, 0", 0.5, 0, 30, 0},
        {"-45, 30, 0", -45.5, -45, 30, 0},
        {"12", 12, 12, 0, 0},
        {"45, 30, 15.5", 45 + 30.0 / 60 + 15.5 / 3600, 45, 30, 15.5},
    };
    GxTempFolder dir;
    std::string text = "MAP_PROJECTION_DEFINITION {\n";
    for (const Case& c : cases)
        text += std::string("  LAMBERT_CONIC_2SP_PROJECTION {\n    Projection_Name = \"") +
                c.values + "\"\n    Parallel_1_dms = " + c.values + "\n  }\n";
    GxWriteText(dir / "dms.zpf", text + "}\n");
    CGxMapProjectionList list;
    list.ReadMapProjections(dir.folder() + "dms.zpf", true);
    void* file = zpfLoadFile((dir.folder() + "dms.zpf").c_str());
    int i = 0;
    for (const Case& c : cases) {
        ++i;
        auto* lambert = static_cast<CGxLambert2SPProjection*>(list.GetMapProjection(c.values));
        ASSERT_NE(lambert, nullptr) << c.values;
        EXPECT_DOUBLE_EQ(lambert->GetParallel1(), c.degrees) << c.values;
        int d = -9, m = -9;
        double s = -9;
        void* section = zpfSectionByNum(zpfTargetByNum(file, 1), i);
        ASSERT_TRUE(CGxMapProjData::zpfGetParamDMS(section, "Parallel_1_dms", &d, &m, &s));
        EXPECT_EQ(d, c.d) << c.values;
        EXPECT_EQ(m, c.m) << c.values;
        EXPECT_NEAR(s, c.s, 1e-9) << c.values;
    }
    zpfClose(file);
}

// C callers get the same report through the flat interface; a buffer too
// small takes nothing away from it.
TEST(ProjectionCatalogue, FlatCallersReadTheReportOnce) {
    GxTempFolder dir;
    GxWriteText(dir / "bad.zpf",
                "MAP_PROJECTION_DEFINITION {\n  UTM_PROJECTION {\n    Scale = 1 2\n  }\n}\n");
    CGxCartSetup::GetReport();
    CGxMapProjectionList list;
    list.ReadMapProjections(dir.folder() + "bad.zpf", true);
    const std::string expected = CGxCartSetup::PeekReport();
    ASSERT_NE(expected.find("bad.zpf: line 3: expected ',' between values"), std::string::npos);
    char small[8];
    int status = -99;
    S_CATALOGUEREPORT(small, sizeof small, &status);
    EXPECT_EQ(status, static_cast<int>(expected.size()));
    std::vector<char> buffer(expected.size() + 1);
    S_CATALOGUEREPORT(buffer.data(), static_cast<int>(expected.size()), &status);
    EXPECT_EQ(status, GXCART_OK);
    EXPECT_EQ(std::string(buffer.data()), expected);
    S_CATALOGUEREPORT(buffer.data(), static_cast<int>(expected.size()), &status);
    EXPECT_EQ(std::string(buffer.data()), "");
}
