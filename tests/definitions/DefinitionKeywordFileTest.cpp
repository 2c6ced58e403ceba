// Definitions in keyword files: the reading rules (alternative forms, missing
// and malformed values), the written form, the editable flag, a write and
// read of every type, and a catalogue-style file whose sections are matched to
// types by name. The files live in tests/data/definitions.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "definitions/KrovakProjection.h"
#include "definitions/Lambert2SPProjection.h"
#include "definitions/MapProjData.h"
#include "definitions/Mercator1SPProjection.h"
#include "definitions/StereographicProjection.h"
#include "definitions/TransverseMercatorProjection.h"
#include "tests/support/DefinitionValues.h"
#include "zpf/zpf.h"

namespace {

namespace fs = std::filesystem;
using D = CGxMapProjData;
using Definition = std::unique_ptr<CGxMapProjData>;

constexpr const char kBlock[] = "MAP_PROJECTION_DEFINITION";

// 1000 US survey feet in metres: 1000 * 12 / 39.37.
constexpr double kThousandUsFeet = 304.8006096012192;

struct FileCloser {
    void operator()(void* file) const { zpfClose(file); }
};
using File = std::unique_ptr<void, FileCloser>;

File Load(const fs::path& path) {
    File file(zpfLoadFile(path.string().c_str()));
    std::string message;
    if (!file) zpfGetErrorGlb(&message);
    EXPECT_NE(file, nullptr) << message;
    return file;
}

File LoadData(const char* name) {
    return Load(fs::path(GXCART_TEST_DATA) / "definitions" / name);
}

void* Block(void* file) {
    return zpfTargetByNameNum(file, kBlock, 1);
}

void* Section(void* file, int num) {
    void* section = zpfSectionByNum(Block(file), num);
    EXPECT_NE(section, nullptr) << "section " << num;
    return section;
}

std::uint64_t Bits(double d) {
    std::uint64_t u;
    std::memcpy(&u, &d, sizeof u);
    return u;
}

// A folder of its own per test, removed afterwards.
class DefinitionKeywordFile : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() / (std::string("gxdefs_") + info->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    // An empty file with the catalogue block, ready for WriteToHandle.
    static File NewCatalogue() {
        File file(zpfCreate());
        EXPECT_NE(zpfAddTarget(file.get(), kBlock), nullptr);
        return file;
    }

    // Writes the file to disk and loads it again.
    File Reload(const File& file) {
        const fs::path path = dir_ / "out.zpf";
        EXPECT_TRUE(zpfWrite(file.get(), path.string().c_str()));
        return Load(path);
    }

    std::string Text() const {
        std::ifstream in(dir_ / "out.zpf");
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }

    fs::path dir_;
};

TEST_F(DefinitionKeywordFile, AlternativeFormsWinOverDecimalKeywords) {
    File file = LoadData("reading_rules.zpf");
    ASSERT_NE(file, nullptr);
    CGxLambert2SPProjection d;
    d.ReadFromHandle(Section(file.get(), 1), true);
    EXPECT_EQ(d.GetName(), "Alternative forms");
    EXPECT_EQ(d.GetBranchName(), "Tests");
    EXPECT_EQ(d.GetEllipsoidID(), "RF");
    // 45 30 0 beats the decimal 10 beside it.
    EXPECT_EQ(d.GetParallel1(), 45.5);
    // Negative degrees carry the sign to the minutes...
    EXPECT_EQ(d.GetParallel2(), -45.5);
    // ...while with 0 degrees only negative minutes give a negative angle.
    EXPECT_EQ(d.GetOriginLongitude(), -0.5);
    EXPECT_EQ(d.GetOriginLatitude(), 0.5);
    EXPECT_DOUBLE_EQ(d.GetFalseEasting(), kThousandUsFeet);
    EXPECT_DOUBLE_EQ(d.GetFalseNorthing(), -kThousandUsFeet);
    EXPECT_TRUE(d.CanEdit());
    EXPECT_TRUE(d.CanDelete());
}

TEST_F(DefinitionKeywordFile, ReductionLoneDegreesAndMissingKeywords) {
    File file = LoadData("reading_rules.zpf");
    ASSERT_NE(file, nullptr);
    CGxTransverseMercatorProjection d("Before", "Before", "XX", 9, 9, 9, 9, 9, true, true);
    d.ReadFromHandle(Section(file.get(), 2), false);
    EXPECT_EQ(d.GetName(), "Reduction and partial forms");
    EXPECT_EQ(d.GetBranchName(), "");  // absent keyword
    EXPECT_EQ(d.GetEllipsoidID(), "WE");
    EXPECT_EQ(d.GetScale(), 0.9996);  // 1:2500 beats "Scale = 0.5"
    EXPECT_EQ(d.GetCentre(), 12.0);   // degrees alone still count as found
    // "-0" degrees are not negative: the minutes keep their own sign.
    EXPECT_EQ(d.GetOriginLatitude(), 0.5);
    EXPECT_EQ(d.GetFalseEasting(), 1.0);   // the first of two occurrences
    EXPECT_EQ(d.GetFalseNorthing(), 0.0);  // absent keyword
    EXPECT_FALSE(d.CanEdit());
    EXPECT_FALSE(d.CanDelete());
}

TEST_F(DefinitionKeywordFile, KrovakScalesAndRotationsHaveNoAlternativeForms) {
    File file = LoadData("reading_rules.zpf");
    ASSERT_NE(file, nullptr);
    CGxKrovakProjection d;
    d.ReadFromHandle(Section(file.get(), 3), true);
    EXPECT_EQ(d.GetScaleAtPseudoParallel(), 0.9999);
    EXPECT_EQ(d.GetPseudoParallel(), 78.5);
    EXPECT_NEAR(d.GetCenterLongitude(), 24 + 50.0 / 60, 1e-14);
    EXPECT_EQ(d.GetCenterLatitude(), 49.5);
    EXPECT_EQ(d.GetAzimuth(), 30.28813975277778);
    EXPECT_EQ(d.GetXYPlaneRotation(), 90.0);
    EXPECT_EQ(d.GetXScale(), -1.0);
    EXPECT_EQ(d.GetYScale(), 1.0);
}

TEST_F(DefinitionKeywordFile, ValuesOfTheWrongKindHaveDefinedOutcomes) {
    File file = LoadData("reading_rules.zpf");
    ASSERT_NE(file, nullptr);
    CGxLambert2SPProjection d;
    d.ReadFromHandle(Section(file.get(), 4), true);
    EXPECT_EQ(d.GetName(), "42");       // a number read as text keeps its text
    EXPECT_EQ(d.GetEllipsoidID(), "");  // absent
    EXPECT_EQ(d.GetParallel1(), 0.0);   // text where a number belongs
    EXPECT_NEAR(d.GetParallel2(), 45 + 30.0 / 60 + 15.5 / 3600, 1e-14);
    EXPECT_EQ(d.GetOriginLongitude(), 0.0);  // texts in every part
    // A fraction of a degree is read as written: 45.5 degrees and 6 minutes
    // (it was once dropped, leaving the 6 minutes alone).
    EXPECT_NEAR(d.GetOriginLatitude(), 45.6, 1e-13);
    EXPECT_EQ(d.GetFalseEasting(), 7.0);  // unreadable feet: the metres keyword
    EXPECT_EQ(d.GetFalseNorthing(), 1e308);

    CGxMercator1SPProjection byZero;
    byZero.ReadFromHandle(Section(file.get(), 5), true);
    EXPECT_EQ(byZero.GetScale(), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(byZero.GetCentre(), 3.0);
}

TEST_F(DefinitionKeywordFile, EmptyOrNullSection) {
    File file = LoadData("reading_rules.zpf");
    ASSERT_NE(file, nullptr);
    CGxStereographicProjection d("Before", "Branch", "WE", 1, 2, 3, 4, 5, true, true);
    d.ReadFromHandle(nullptr, false);
    EXPECT_EQ(d.GetName(), "Before");
    EXPECT_EQ(d.GetScale(), 1.0);
    EXPECT_TRUE(d.CanEdit());

    d.ReadFromHandle(Section(file.get(), 6), false);
    EXPECT_EQ(d.GetName(), "");
    EXPECT_EQ(d.GetBranchName(), "");
    EXPECT_EQ(d.GetEllipsoidID(), "");
    for (double v : GxParameterValues(d)) EXPECT_EQ(v, 0.0);
    EXPECT_FALSE(d.CanEdit());

    // A handle of the wrong kind is refused by the keyword library and reads
    // as an empty section, never as memory of another shape.
    CGxStereographicProjection wrong("Before", "Branch", "WE", 1, 2, 3, 4, 5, true, true);
    wrong.ReadFromHandle(Block(file.get()), true);
    EXPECT_EQ(wrong.GetName(), "");
    EXPECT_EQ(wrong.GetScale(), 0.0);
}

TEST_F(DefinitionKeywordFile, DegreesMinutesSecondsReader) {
    File file = LoadData("reading_rules.zpf");
    ASSERT_NE(file, nullptr);
    int d = 7, m = 7;
    double s = 7;
    EXPECT_TRUE(D::zpfGetParamDMS(Section(file.get(), 4), "Parallel_2_dms", &d, &m, &s));
    EXPECT_EQ(d, 45);
    EXPECT_EQ(m, 30);
    EXPECT_EQ(s, 15.5);
    EXPECT_TRUE(D::zpfGetParamDMS(Section(file.get(), 2), "Centre_dms", &d, &m, &s));
    EXPECT_EQ(d, 12);
    EXPECT_EQ(m, 0);
    EXPECT_EQ(s, 0.0);
    // Absent keyword, null section, null keyword: false, outputs reset.
    d = m = 7;
    s = 7;
    EXPECT_FALSE(D::zpfGetParamDMS(Section(file.get(), 2), "Parallel_1_dms", &d, &m, &s));
    EXPECT_EQ(d, 0);
    EXPECT_EQ(m, 0);
    EXPECT_EQ(s, 0.0);
    EXPECT_FALSE(D::zpfGetParamDMS(nullptr, "Centre_dms", &d, &m, &s));
    EXPECT_FALSE(D::zpfGetParamDMS(Section(file.get(), 2), nullptr, &d, &m, &s));
    // Outputs a caller does not want may be null.
    EXPECT_TRUE(D::zpfGetParamDMS(Section(file.get(), 1), "Parallel_1_dms", nullptr, &m, nullptr));
    EXPECT_EQ(m, 30);
}

TEST_F(DefinitionKeywordFile, WrittenFormUsesDecimalKeywordsInOrder) {
    File rules = LoadData("reading_rules.zpf");
    ASSERT_NE(rules, nullptr);
    CGxLambert2SPProjection lambert;
    lambert.ReadFromHandle(Section(rules.get(), 1), true);
    CGxTransverseMercatorProjection tm;
    tm.ReadFromHandle(Section(rules.get(), 2), true);

    File out = NewCatalogue();
    lambert.WriteToHandle(out.get());
    tm.WriteToHandle(out.get());
    File back = Reload(out);
    ASSERT_NE(back, nullptr);
    ASSERT_EQ(zpfGetNoSections(Block(back.get())), 2);

    void* l = Section(back.get(), 1);
    EXPECT_EQ(zpfGetName(l), "LAMBERT_CONIC_2SP_PROJECTION");
    double value = 0;
    EXPECT_TRUE(zpfGetParam(l, "Feast", 1, 1, &value));
    EXPECT_DOUBLE_EQ(value, kThousandUsFeet);
    EXPECT_TRUE(zpfGetParam(l, "Parallel_1", 1, 1, &value));
    EXPECT_EQ(value, 45.5);
    for (const char* never :
         {"Feast_ft_us", "Fnorth_ft_us", "Parallel_1_dms", "Origin_Latitude_dms"})
        EXPECT_EQ(zpfKeywordByNameNum(l, never, 1), nullptr) << never;

    void* t = Section(back.get(), 2);
    EXPECT_EQ(zpfGetName(t), "UTM_PROJECTION");
    EXPECT_TRUE(zpfGetParam(t, "Scale", 1, 1, &value));
    EXPECT_EQ(value, 0.9996);
    EXPECT_EQ(zpfKeywordByNameNum(t, "Scale_Reduction", 1), nullptr);
    std::string text;
    EXPECT_TRUE(zpfGetParam(t, "Branch_Name", 1, 1, &text));
    EXPECT_EQ(text, "");  // written even when empty

    // Keywords stand in the order readers of the file expect.
    const std::string written = Text();
    std::size_t at = 0;
    for (const char* keyword :
         {"Projection_Name", "Branch_Name", "Ellipsoid", "Parallel_1", "Parallel_2",
          "Origin_Longitude", "Origin_Latitude", "Feast", "Fnorth"}) {
        const std::size_t found = written.find(std::string(keyword) + " ", at);
        ASSERT_NE(found, std::string::npos) << keyword << " after offset " << at << "\n" << written;
        at = found;
    }
}

TEST_F(DefinitionKeywordFile, OnlyEditableDefinitionsAreWritten) {
    File rules = LoadData("reading_rules.zpf");
    ASSERT_NE(rules, nullptr);
    CGxLambert2SPProjection system;
    system.ReadFromHandle(Section(rules.get(), 1), false);
    Definition fallback(D::CreateDefaultParameterProjection(D::eMercator2SP));
    CGxLambert2SPProjection user;
    user.ReadFromHandle(Section(rules.get(), 1), true);

    File out = NewCatalogue();
    system.WriteToHandle(out.get());
    fallback->WriteToHandle(out.get());
    EXPECT_EQ(zpfGetNoSections(Block(out.get())), 0);
    user.WriteToHandle(out.get());
    EXPECT_EQ(zpfGetNoSections(Block(out.get())), 1);
    // No file, or a file without a block to hold the section: nothing happens.
    user.WriteToHandle(nullptr);
    File bare(zpfCreate());
    user.WriteToHandle(bare.get());
    EXPECT_EQ(zpfGetNoSections(Block(bare.get())), 0);
}

// Every type written by the library and read back gives the same definition,
// field for field and bit for bit, with awkward values and texts.
TEST_F(DefinitionKeywordFile, EveryTypeSurvivesWriteAndRead) {
    const double awkward[10] = {
        1.0 / 3.0,           -0.1,  1e-35, -1e-35,   6378137.123456789, 0.1 + 0.2,
        -179.99999999999997, 1e300, -0.0,  2.0 / 3.0};
    std::vector<Definition> originals;
    File out = NewCatalogue();
    for (int pos = 0; pos < D::GetNoOfProjections(); ++pos) {
        double values[10];
        for (int i = 0; i < 10; ++i) values[i] = awkward[(i + pos) % 10];
        const std::string name =
            "System " + std::to_string(pos + 1) + " \"quoted\", # not a comment";
        originals.emplace_back(D::CreateProjection(D::Enum2ProjectionType(pos), name,
                                                   "Branch / \xC3\xA9t\xC3\xA9", "W E", values));
        originals.back()->WriteToHandle(out.get());
    }
    File back = Reload(out);
    ASSERT_NE(back, nullptr);
    ASSERT_EQ(zpfGetNoSections(Block(back.get())), 20);
    // The two-parallel Mercator is written under its current section name.
    EXPECT_EQ(zpfGetName(Section(back.get(), D::eMercator2SP)), "MERCATOR_2SP_PROJECTION");
    for (int pos = 0; pos < 20; ++pos) {
        const CGxMapProjData& original = *originals[pos];
        SCOPED_TRACE(original.GetProjectionTypeTitle());
        void* section = Section(back.get(), pos + 1);
        Definition copy(D::CreateDefaultParameterProjection(original.GetProjectionType()));
        EXPECT_TRUE(copy->IsSectionID(zpfGetName(section)));
        copy->ReadFromHandle(section, true);
        EXPECT_EQ(copy->GetName(), original.GetName());
        EXPECT_EQ(copy->GetBranchName(), original.GetBranchName());
        EXPECT_EQ(copy->GetEllipsoidID(), original.GetEllipsoidID());
        EXPECT_EQ(copy->CanEdit(), original.CanEdit());
        EXPECT_EQ(copy->CanDelete(), original.CanDelete());
        const std::vector<double> a = GxParameterValues(original), b = GxParameterValues(*copy);
        ASSERT_EQ(a.size(), b.size());
        for (std::size_t i = 0; i < a.size(); ++i) EXPECT_EQ(Bits(a[i]), Bits(b[i])) << i;
    }
}

struct ExpectedSection {
    D::EProjectionType type;
    const char* name;
    const char* branch;
    const char* ellipsoid;
    std::vector<double> params;
};

// Reads a catalogue the way the library's catalogue does: for each section,
// the first type in enumeration order whose IsSectionID accepts the name reads
// it; a name no type accepts is passed over.
TEST_F(DefinitionKeywordFile, CatalogueSectionsGoToTheFirstTypeThatAcceptsThem) {
    File file = LoadData("catalogue.zpf");
    ASSERT_NE(file, nullptr);
    void* block = Block(file.get());
    ASSERT_EQ(zpfGetNoSections(block), 23);

    std::vector<Definition> read;
    std::vector<std::string> skipped;
    for (int num = 1; num <= zpfGetNoSections(block); ++num) {
        void* section = zpfSectionByNum(block, num);
        const std::string name = zpfGetName(section);
        Definition accepted;
        for (int pos = 0; pos < D::GetNoOfProjections() && !accepted; ++pos) {
            Definition candidate(D::CreateDefaultParameterProjection(D::Enum2ProjectionType(pos)));
            if (candidate->IsSectionID(name)) accepted = std::move(candidate);
        }
        if (!accepted) {
            skipped.push_back(name);
            continue;
        }
        accepted->ReadFromHandle(section, false);
        read.push_back(std::move(accepted));
    }
    EXPECT_EQ(skipped, (std::vector<std::string>{"SOME_FUTURE_PROJECTION", "utm_projection"}));

    // The values as the file states them.
    // clang-format off
    const std::vector<ExpectedSection> expected = {
        {D::eTransverseMercator, "ETRS89 / UTM zone 32N", "Europe", "RF",
         {0.9996, 9, 0.25, 500000, -12.5}},
        {D::eLambert2SP, "RGF93 / Lambert-93", "Europe", "RF", {49, 44, 3, 46.5, 700000, 6600000}},
        {D::eLambert1SP, "NTF / Lambert zone II", "Europe", "CF",
         {0.99987742, 2.337229167, 46.8, 600000, 2200000}},
        {D::eStereographic, "Amersfoort / RD New", "Europe", "BR",
         {0.9999079, 5.387638888888889, 52.15616055555555, 155000, 463000}},
        {D::eNewZealandMapGrid, "NZGD49 / New Zealand Map Grid", "Oceania", "IN",
         {173, -41, 2510000, 6023150}},
        {D::eHotineObliqueMercator, "Hotine test", "Asia", "EB",
         {0.99984, 115, 4, 53.31582047222222, 590476.87, 442857.65}},
        {D::eObliqueMercator, "Oblique Mercator test", "Europe", "BR",
         {1.5, 7.439583333333333, 46.95240555555556, 90.5, 600000, 200000}},
        {D::eRectifiedSkewOrthomorphic, "Timbalai 1948 / RSO Borneo", "Asia", "EB",
         {0.99984, 115, 4, 53.31582047222222, 53.13010236111111, 590476.87, 442857.65}},
        {D::eRotatedLongitudeLatitude, "Rotated pole test", "Models", "XY", {18, -39.25, 7.5}},
        {D::eMercator2SP, "Pulkovo 1942 / Caspian Sea Mercator", "Asia", "KA",
         {42, 51, 1000, -2000}},
        {D::eMercator1SP, "Makassar / NEIEZ", "Asia", "BR", {0.997, 110, 3900000, 900000}},
        {D::eStereographicNorthPole, "North pole test", "Polar", "WE", {70, -45, 2000000, 2100000}},
        {D::eStereographicSouthPole, "South pole test", "Polar", "WE", {-71, 70, 3000000, 3100000}},
        // The old section name reads as the two-parallel Mercator, the first
        // type that accepts it.
        {D::eMercator2SP, "Old Mercator section", "Legacy", "WE", {12, 100, 1, 2}},
        {D::eGeographical, "WGS 84 geographical", "World", "WE", {}},
        {D::eKrovak, "S-JTSK / Krovak", "Europe", "BR",
         {0.9999, 78.5, 24.83333333333333, 49.5, 30.28813972222222, 90, -1, -2, 10, 20}},
        {D::eAlbersEqualArea, "NAD83 / Conus Albers", "America", "RF",
         {29.5, 45.5, -96, 23, 10000, 20000}},
        {D::eLambertAzimuthalEqualArea, "ETRS89 / LAEA Europe", "Europe", "RF",
         {10, 52, 4321000, 3210000}},
        {D::eCassiniSoldner, "Cassini test", "Asia", "CF",
         {35.21208055555556, 31.73409694444445, 170251.555, 126867.909}},
        {D::eEquidistantConic, "Equidistant conic test", "Asia", "KA",
         {52, 64, 105, 39, 18500000, -300}},
        {D::ePolarStereographic, "WGS 84 / UPS North", "Polar", "WE",
         {0.994, -1, 90, 2000000, 2000001}},
    };
    // clang-format on
    ASSERT_EQ(read.size(), expected.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
        const CGxMapProjData& d = *read[i];
        SCOPED_TRACE(expected[i].name);
        EXPECT_EQ(d.GetProjectionType(), expected[i].type);
        EXPECT_EQ(d.GetName(), expected[i].name);
        EXPECT_EQ(d.GetBranchName(), expected[i].branch);
        EXPECT_EQ(d.GetEllipsoidID(), expected[i].ellipsoid);
        EXPECT_EQ(GxParameterValues(d), expected[i].params);
        EXPECT_FALSE(d.CanEdit());
        EXPECT_FALSE(d.CanDelete());
    }
}

}  // namespace
