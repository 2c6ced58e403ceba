// The catalogue files shipped in data/ are read by the library at load; a
// malformed file would silently empty its part of the catalogue, and a wrong
// keyword would silently give a wrong grid. These tests read the files the
// way the catalogue does and convert sample points of real systems through
// them.

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/CatalogueCode.h"
#include "catalogue/EllipsoidList.h"
#include "definitions/MapProjData.h"
#include "definitions/TabledMapProjData.h"
#include "foundation/Projection.h"
#include "zpf/zpf.h"

namespace {

const std::string kDataFolder = std::string(GXCART_TEST_DATA) + "/../../data/";

struct CatalogueFile {
    bool loaded = false;
    std::string error;
    int blocks = 0;
    std::vector<std::unique_ptr<CGxMapProjData>> entries;
    std::vector<std::string> unreadSections;  // names no definition type accepts
};

// The catalogue's rule: the first type, in enumeration order, whose
// IsSectionID accepts the section's name reads it.
std::unique_ptr<CGxMapProjData> DefinitionFor(const std::string& sectionName) {
    for (int i = 0; i < CGxMapProjData::GetNoOfProjections(); ++i) {
        std::unique_ptr<CGxMapProjData> candidate(CGxMapProjData::CreateDefaultParameterProjection(
            CGxMapProjData::Enum2ProjectionType(i)));
        if (candidate && candidate->IsSectionID(sectionName)) return candidate;
    }
    return nullptr;
}

CatalogueFile Read(const std::string& fileName) {
    CatalogueFile result;
    void* file = zpfLoadFile((kDataFolder + fileName).c_str());
    if (!file) {
        zpfGetErrorGlb(&result.error);
        return result;
    }
    result.loaded = true;
    result.blocks = zpfGetNoTargets(file);
    void* block = zpfTargetByNameNum(file, "MAP_PROJECTION_DEFINITION", 1);
    for (int i = 1; block && i <= zpfGetNoSections(block); ++i) {
        void* section = zpfSectionByNum(block, i);
        std::unique_ptr<CGxMapProjData> definition = DefinitionFor(zpfGetName(section));
        if (!definition) {
            result.unreadSections.push_back(zpfGetName(section));
            continue;
        }
        definition->ReadFromHandle(section, false);
        result.entries.push_back(std::move(definition));
    }
    zpfClose(file);
    return result;
}

const CGxMapProjData* Find(const CatalogueFile& file, const std::string& name) {
    for (const auto& entry : file.entries)
        if (entry->GetName() == name) return entry.get();
    return nullptr;
}

constexpr const char* kFiles[] = {"map_projection.zpf", "state_plane_nad83.zpf",
                                  "state_plane_nad27.zpf"};
// The systems named by EPSG code: read at start-up, and on first need.
constexpr const char* kCodeFiles[] = {"epsg_common.zpf", "epsg_other.zpf"};

}  // namespace

// Counts are those tools/make_map_projection.py and tools/make_state_plane.py
// report; a file that loses sections (a bad edit, a generator fault) fails.
TEST(CatalogueDataFiles, EachFileLoadsAndEverySectionIsRead) {
    const struct {
        const char* file;
        int minimum;
        int expected;
    } cases[] = {
        {"map_projection.zpf", 60, 94},      {"state_plane_nad83.zpf", 124, 124},
        {"state_plane_nad27.zpf", 125, 125}, {"epsg_common.zpf", 221, 221},
        {"epsg_other.zpf", 4000, 4130},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const CatalogueFile file = Read(c.file);
        ASSERT_TRUE(file.loaded) << file.error;
        EXPECT_EQ(file.blocks, 1);
        for (const std::string& name : file.unreadSections) ADD_FAILURE() << "unread: " << name;
        EXPECT_GE(static_cast<int>(file.entries.size()), c.minimum);
        EXPECT_EQ(static_cast<int>(file.entries.size()), c.expected);
    }
}

// Catalogue look-up is by name, so a name used twice (or one of the built-in
// names) would hide a system; an unknown ellipsoid identifier would turn the
// system into a plane grid without georeference.
TEST(CatalogueDataFiles, NamesAreUniqueAndEllipsoidsKnown) {
    std::set<std::string> names = {"LONG/LAT", "NON-UTM"};
    for (int zone = 1; zone <= 60; ++zone) names.insert("UTM-" + std::to_string(zone));
    const CGxEllipsoidList& ellipsoids = CGxCartSetup::Instance().GetEllipsoidList();
    std::vector<const char*> files(std::begin(kFiles), std::end(kFiles));
    files.insert(files.end(), std::begin(kCodeFiles), std::end(kCodeFiles));
    for (const char* fileName : files) {
        SCOPED_TRACE(fileName);
        const CatalogueFile file = Read(fileName);
        for (const auto& entry : file.entries) {
            EXPECT_FALSE(entry->GetName().empty());
            EXPECT_LT(entry->GetName().size(), 256u) << entry->GetName();
            EXPECT_TRUE(names.insert(entry->GetName()).second) << "twice: " << entry->GetName();
            EXPECT_FALSE(entry->GetBranchName().empty()) << entry->GetName();
            EXPECT_NE(ellipsoids.GetEllipsoid(entry->GetEllipsoidID()), nullptr)
                << entry->GetName() << ": " << entry->GetEllipsoidID();
            EXPECT_FALSE(entry->CanEdit());
        }
    }
}

// The curated file shows every projected type with a real grid.
TEST(CatalogueDataFiles, CuratedFileCoversEveryProjectedType) {
    const CatalogueFile file = Read("map_projection.zpf");
    std::set<int> types;
    for (const auto& entry : file.entries) types.insert(entry->GetProjectionType());
    for (int t = 1; t <= CGxMapProjData::GetNoOfProjections(); ++t) {
        if (t == CGxMapProjData::eGeographical) continue;  // "LONG/LAT" is built in
        EXPECT_EQ(types.count(t), 1u) << "type " << t;
    }
}

// State Plane zones sit on their datum's ellipsoid; the three NAD27 Michigan
// Lambert zones use Clarke 1866 enlarged by the state's factor.
TEST(CatalogueDataFiles, StatePlaneZonesUseTheirDatumEllipsoid) {
    for (const auto& entry : Read("state_plane_nad83.zpf").entries) {
        EXPECT_EQ(entry->GetEllipsoidID(), "RF") << entry->GetName();
        EXPECT_EQ(entry->GetName().rfind("NAD83 / ", 0), 0u) << entry->GetName();
    }
    int michigan = 0;
    for (const auto& entry : Read("state_plane_nad27.zpf").entries) {
        EXPECT_EQ(entry->GetName().rfind("NAD27 / ", 0), 0u) << entry->GetName();
        if (entry->GetEllipsoidID() == "CM") {
            ++michigan;
            EXPECT_EQ(entry->GetName().rfind("NAD27 / Michigan ", 0), 0u) << entry->GetName();
            EXPECT_EQ(entry->GetProjectionType(), CGxMapProjData::eLambert2SP);
        } else {
            EXPECT_EQ(entry->GetEllipsoidID(), "CC") << entry->GetName();
        }
    }
    EXPECT_EQ(michigan, 3);
}

// One point per system, each system standing for a type or a keyword form
// (_dms, _ft_us, Scale_Reduction, grads turned into degrees, the Michigan
// ellipsoid). Reference values from PROJ 9.1.1 with the EPSG dataset v10.076:
//
//   echo "<lat> <lon>" | cs2cs -d 4 <geographic> <projected>
//
// with, per row, the geographic and projected codes in the comment. cs2cs
// prints northing first for EPSG:3035, 3068 and 3388, and southing, westing
// for EPSG:5513; the table holds the library's x, y. US-foot rows are PROJ's
// feet; the library gives metres (x 1200/3937). The rotated-pole row:
//
//   echo "15 55" | cs2cs -f %.10f +proj=longlat +R=6371229 +to +proj=ob_tran
//       +o_proj=longlat +o_lon_p=0 +o_lat_p=39.25 +lon_0=18 +R=6371229
TEST(CatalogueDataFiles, SampleSystemsAgreeWithProj) {
    struct Case {
        const char* file;
        const char* name;
        double lon, lat, x, y;
        bool usFeet;
    };
    const Case cases[] = {
        // EPSG:4277 -> 27700: Transverse Mercator with a plain scale.
        {"map_projection.zpf", "OSGB 1936 / British National Grid", -1.5, 53, 433551.8376,
         344893.2595, false},
        // EPSG:4289 -> 28992: oblique stereographic, _dms origin.
        {"map_projection.zpf", "Amersfoort / RD New", 5, 52, 128383.4745, 445698.8043, false},
        // EPSG:4156 -> 5514 and 5513: Krovak turned to east/north, and its cone axes.
        {"map_projection.zpf", "S-JTSK / Krovak East North", 14.5, 50, -738632.3835, -1053490.7392,
         false},
        {"map_projection.zpf", "S-JTSK / Krovak", 14.5, 50, 1053490.7392, 738632.3835, false},
        // EPSG:4272 -> 27200: New Zealand map grid.
        {"map_projection.zpf", "NZGD49 / New Zealand Map Grid", 174.8, -41.3, 2660739.6332,
         5988279.9971, false},
        // EPSG:4742 -> 3375: rectified skew orthomorphic.
        {"map_projection.zpf", "GDM2000 / Peninsula RSO", 102, 3.5, 444955.6193, 387227.2585,
         false},
        // EPSG:4150 -> 2056: oblique Mercator with the false origin at the centre.
        {"map_projection.zpf", "CH1903+ / LV95", 7.44, 46.95, 2600031.7157, 1199732.6047, false},
        // EPSG:4269 -> 3078: Hotine oblique Mercator.
        {"map_projection.zpf", "NAD83 / Michigan Oblique Mercator", -85, 44, 580017.6590,
         383669.8373, false},
        // EPSG:4326 -> 3031 and 5041: polar stereographic by standard parallel and by scale.
        {"map_projection.zpf", "WGS 84 / Antarctic Polar Stereographic", 45, -75, 1158794.7408,
         1158794.7408, false},
        {"map_projection.zpf", "WGS 84 / UPS North (E,N)", 30, 85, 2277728.6957, 1518959.7883,
         false},
        // EPSG:7844 -> 9473: Albers.
        {"map_projection.zpf", "GDA2020 / Australian Albers", 135, -25, 299362.2208, -2706085.9795,
         false},
        // EPSG:4258 -> 3035: Lambert azimuthal equal area.
        {"map_projection.zpf", "ETRS89-extended / LAEA Europe", 5, 45, 3926417.9676, 2445248.8412,
         false},
        // EPSG:4314 -> 3068: Cassini-Soldner.
        {"map_projection.zpf", "DHDN / Soldner Berlin", 13.5, 52.5, 31362.6304, 19059.0668, false},
        // EPSG:4284 -> 3388 and EPSG:4257 -> 3002: Mercator by parallel and by scale.
        {"map_projection.zpf", "Pulkovo 1942 / Caspian Sea Mercator", 50, 42, -82852.1467,
         3819897.8520, false},
        {"map_projection.zpf", "Makassar / NEIEZ", 119.4, -5.1, 4943142.9883, 337063.1101, false},
        // EPSG:4269 -> ESRI:102005: equidistant conic.
        {"map_projection.zpf", "USA Contiguous Equidistant Conic", -100, 40, -339637.0339,
         118473.8917, false},
        // EPSG:4261 -> 26191: Lambert conic, one parallel, defined in grads.
        {"map_projection.zpf", "Merchich / Nord Maroc", -6, 34, 444584.1283, 377770.1810, false},
        // Rotated pole: rotated longitude and latitude in degrees.
        {"map_projection.zpf", "EURO-CORDEX rotated pole grid", 15, 55, -1.7250248942, 4.2849742919,
         false},
        // EPSG:4269 -> 32137 and 26931: Lambert conic and Hotine in metres.
        {"state_plane_nad83.zpf", "NAD83 / Texas North", -101, 35.5, 245360.5056, 1166519.8293,
         false},
        {"state_plane_nad83.zpf", "NAD83 / Alaska zone 1", -134, 57.5, 798693.3649, 630823.1234,
         false},
        // EPSG:4267 -> 26729, 6201 and 26731: feet, 1:N scales, the Michigan ellipsoid.
        {"state_plane_nad27.zpf", "NAD27 / Alabama East", -86, 32, 448331.5576, 545637.2167, true},
        {"state_plane_nad27.zpf", "NAD27 / Michigan Central", -85, 44, 1824553.1877, 249857.4769,
         true},
        {"state_plane_nad27.zpf", "NAD27 / Alaska zone 1", -134, 57.5, 2620078.2601, 2070027.1316,
         true},
    };
    const CatalogueFile files[] = {Read(kFiles[0]), Read(kFiles[1]), Read(kFiles[2])};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const CatalogueFile& file = files[std::string(c.file) == kFiles[0]   ? 0
                                          : std::string(c.file) == kFiles[1] ? 1
                                                                             : 2];
        const CGxMapProjData* definition = Find(file, c.name);
        CGxProjection* projection = definition ? definition->CreateProjection() : nullptr;
        if (!projection) {
            ADD_FAILURE() << (definition ? "no algorithm built" : "not in the file");
            continue;
        }
        const double unit = c.usFeet ? 1200.0 / 3937.0 : 1.0;
        const bool degrees = projection->IsGeographical();
        // 1 mm, or about 1 mm of arc for the rotated grid. The inverse allows
        // 2e-8 degree (2 mm): the equal-area inverses sum a truncated series
        // for the authalic latitude, good to about 1.5 mm.
        const double tolerance = degrees ? 1e-8 : 1e-3;
        double x = 0, y = 0, lon = 0, lat = 0;
        projection->Geo2Proj(c.lon, c.lat, &x, &y);
        EXPECT_NEAR(x, c.x * unit, tolerance);
        EXPECT_NEAR(y, c.y * unit, tolerance);
        projection->Proj2Geo(c.x * unit, c.y * unit, &lon, &lat);
        EXPECT_NEAR(lon, c.lon, 2e-8);
        EXPECT_NEAR(lat, c.lat, 2e-8);
        CGxProjection::Release(projection);
    }
}

// A code names one system: the same code twice would make one of them
// unreachable, and a code in another spelling would not be found by the
// look-up, which reads the canonical "EPSG:n" of every definition. Systems in
// feet carry none (the definitions give metres), nor does the rotated grid.
TEST(CatalogueDataFiles, CodesAreCanonicalUniqueAndOnlyOnMetreSystems) {
    std::set<std::string> codes;
    std::vector<const char*> files(std::begin(kFiles), std::end(kFiles));
    files.insert(files.end(), std::begin(kCodeFiles), std::end(kCodeFiles));
    int coded = 0;
    for (const char* fileName : files) {
        SCOPED_TRACE(fileName);
        for (const auto& entry : Read(fileName).entries) {
            const std::string& code = GxDefinitionCode(entry.get());
            if (code.empty()) continue;
            ++coded;
            GxCatalogueCode parsed;
            ASSERT_TRUE(GxParseCatalogueCode(code, parsed)) << entry->GetName();
            EXPECT_EQ(GxFormatCatalogueCode(parsed), code) << entry->GetName();
            EXPECT_TRUE(codes.insert(code).second) << "twice: " << code;
        }
    }
    // Every system of the two code files has one; the curated file all but
    // the rotated grid, the NAD83 zones all of theirs.
    EXPECT_EQ(coded, 93 + 124 + 221 + 4130);
    for (const auto& entry : Read("state_plane_nad27.zpf").entries)
        EXPECT_EQ(GxDefinitionCode(entry.get()), "") << entry->GetName();
    EXPECT_EQ(codes.count("EPSG:25832"), 1u);
    EXPECT_EQ(codes.count("ESRI:102031"), 1u);
    EXPECT_EQ(codes.count("EPSG:26729"), 0u);  // NAD27 / Alabama East, US feet
}
