// Reading catalogue files in the layouts the ellipsoid and projection
// catalogues use, and the meaning of each value accessor.

#include <gtest/gtest.h>

#include <string>

#include "zpf/zpf.h"

namespace {

const std::string kData = std::string(GXCART_TEST_DATA) + "/zpf/";

// Owns a loaded file for the length of a test.
struct Loaded {
    explicit Loaded(const std::string& name) : file(zpfLoadFile((kData + name).c_str())) {}
    ~Loaded() { zpfClose(file); }
    void* file;
};

std::string Text(void* section, const char* keyword, int occurrence = 1, int valueNum = 1) {
    std::string s = "<absent>";
    zpfGetParam(section, keyword, occurrence, valueNum, &s);
    return s;
}

double Number(void* section, const char* keyword) {
    double d = -1.0;
    EXPECT_TRUE(zpfGetParam(section, keyword, 1, 1, &d)) << keyword;
    return d;
}

}  // namespace

TEST(ZpfCatalogue, EllipsoidFileReadsEveryReferenceEllipsoid) {
    Loaded f("ellipsoid.zpf");
    ASSERT_NE(f.file, nullptr) << [] { std::string m; zpfPeekErrorGlb(&m); return m; }();
    EXPECT_EQ(zpfPeekErrorGlb(), eZpfOk);
    void* block = zpfTargetByNameNum(f.file, "ELLIPSOID_DEFINITION", 1);
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(zpfGetNoInstances(block, "REF_ELLIPSOID"), 4);

    struct Row { const char* name; const char* id; double a; double rf; };
    const Row rows[] = {{"WGS 84", "WE", 6378137.0, 298.257223563},
                        {"GRS 1980", "RF", 6378137.0, 298.257222101},
                        {"Bessel 1841", "BR", 6377397.155, 299.1528128},
                        {"Sphere \"authalic\", r = 6371007.181 m", "SA", 6371007.181, 0.0}};
    for (int i = 0; i < 4; ++i) {
        void* s = zpfSectionByNameNum(block, "REF_ELLIPSOID", i + 1);
        ASSERT_NE(s, nullptr);
        EXPECT_EQ(Text(s, "Ellipsoid_Name"), rows[i].name);
        EXPECT_EQ(Text(s, "ID_Code"), rows[i].id);
        EXPECT_EQ(Number(s, "Semi_Major_Axis"), rows[i].a);
        EXPECT_EQ(Number(s, "Inverse_Flatness"), rows[i].rf);
    }
    // A number asked for as text is the text the file holds, not a reformat.
    EXPECT_EQ(Text(zpfSectionByNum(block, 2), "Semi_Major_Axis"), "6378137.000");
    EXPECT_EQ(zpfSectionByNameNum(block, "REF_ELLIPSOID", 5), nullptr);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotFound);
}

TEST(ZpfCatalogue, ProjectionFileKeepsSectionOrderAndMultiValueKeywords) {
    Loaded f("map_projection.zpf");
    ASSERT_NE(f.file, nullptr);
    void* block = zpfTargetByNameNum(f.file, "MAP_PROJECTION_DEFINITION", 1);
    ASSERT_EQ(zpfGetNoSections(block), 4);
    const char* order[] = {"UTM_PROJECTION", "LAMBERT_CONIC_2SP_PROJECTION", "SOME_FUTURE_PROJECTION",
                           "LAMBERT_CONIC_2SP_PROJECTION"};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(zpfGetName(zpfSectionByNum(block, i + 1)), order[i]);
    EXPECT_EQ(zpfGetNoInstances(block, "LAMBERT_CONIC_2SP_PROJECTION"), 2);
    EXPECT_EQ(zpfGetNoInstances(block, "lambert_conic_2sp_projection"), 0);  // names are case-sensitive

    // The CR LF section reads like the others.
    void* utm = zpfSectionByNum(block, 1);
    EXPECT_EQ(Text(utm, "Projection_Name"), "ETRS89 / UTM zone 32N");
    EXPECT_EQ(Number(utm, "Scale_Reduction"), 2500.0);

    // Degrees, minutes, seconds as three values, read one by one.
    void* second = zpfSectionByNameNum(block, "LAMBERT_CONIC_2SP_PROJECTION", 2);
    void* dms = zpfKeywordByNameNum(second, "Parallel_1_dms", 1);
    ASSERT_EQ(zpfGetNoParams(dms), 3);
    int degrees = 0, minutes = 0;
    double seconds = 0.0;
    EXPECT_TRUE(zpfGetInt(zpfParamByNum(dms, 1), &degrees));
    EXPECT_TRUE(zpfGetInt(zpfParamByNum(dms, 2), &minutes));
    EXPECT_TRUE(zpfGetDouble(zpfParamByNum(dms, 3), &seconds));
    EXPECT_EQ(degrees, -45);
    EXPECT_EQ(minutes, 30);
    EXPECT_EQ(seconds, 15.5);
    // Seconds with a fraction are no integer: refused, not cut to 15.
    int cut = 99;
    EXPECT_FALSE(zpfGetInt(zpfParamByNum(dms, 3), &cut));
    EXPECT_EQ(cut, 99);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotANumber);
    EXPECT_EQ(zpfParamByNum(dms, 4), nullptr);
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotFound);

    // The first section of the name still has both the _dms and the decimal form.
    void* first = zpfSectionByNameNum(block, "LAMBERT_CONIC_2SP_PROJECTION", 1);
    EXPECT_EQ(Number(first, "Parallel_1"), 10.0);
    EXPECT_EQ(Text(first, "Parallel_2_dms", 1, 3), "0.0");
    EXPECT_EQ(zpfGetNoKeywords(zpfSectionByNum(block, 3)), 0);
}

TEST(ZpfCatalogue, ValueKindsDecideWhatEachAccessorGives) {
    void* f = zpfCreate();
    zpfAddTarget(f, "B");
    void* s = zpfAddSection(f, "S");
    ASSERT_NE(s, nullptr);
    zpfPutParam(s, "Name", "45");
    zpfPutParam(s, "Whole", -45.0);
    zpfPutParam(s, "Big", 3e9);
    zpfEndSection(s);

    double d = 0.0;
    int i = 0;
    std::string t;
    // A quoted text stays text even when it looks like a number.
    EXPECT_FALSE(zpfGetParam(s, "Name", 1, 1, &d));
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotANumber);
    EXPECT_FALSE(zpfGetInt(zpfParamByNum(zpfKeywordByNameNum(s, "Name", 1), 1), &i));
    EXPECT_TRUE(zpfGetParam(s, "Whole", 1, 1, &t));
    EXPECT_EQ(t, "-45");
    EXPECT_TRUE(zpfGetInt(zpfParamByNum(zpfKeywordByNameNum(s, "Whole", 1), 1), &i));
    EXPECT_EQ(i, -45);
    // Beyond the range of int an integer read fails instead of wrapping.
    EXPECT_FALSE(zpfGetInt(zpfParamByNum(zpfKeywordByNameNum(s, "Big", 1), 1), &i));
    EXPECT_FALSE(zpfGetParam(s, "Whole", 2, 1, &d));
    EXPECT_FALSE(zpfGetParam(s, "Whole", 1, 0, &d));
    EXPECT_EQ(zpfGetErrorGlb(), eZpfNotFound);
    zpfClose(f);
}
