// The flat interface seen from C++: what the library exports, how it meets
// the classes behind the handles, and the per-thread text buffers. The C
// program capi_test.c checks the values themselves.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include "datum/DatumConverter.h"
#include "foundation/Projection.h"
#include "gxcart.h"
#include "mapprojection/Cartography.h"
#include "mapprojection/MapProjection.h"

namespace {

// Every function of the interface, by the name a C caller links against.
const char* const kExportedNames[] = {
    "C_GXC_CREATE",
    "C_GXC_DESTROY",
    "C_GXC_GEO2PROJ",
    "C_GXC_PROJ2GEO",
    "C_GXC_GEO2XY",
    "C_GXC_XY2GEO",
    "C_GXC_PROJ2XY",
    "C_GXC_XY2PROJ",
    "C_GXC_GEO2PROJARRAY",
    "C_GXC_PROJ2GEOARRAY",
    "C_GXC_GEO2XYARRAY",
    "C_GXC_XY2GEOARRAY",
    "C_GXC_PROJ2XYARRAY",
    "C_GXC_XY2PROJARRAY",
    "C_GXC_GETPROJNORTH",
    "C_GXC_GETTRUENORTH",
    "C_GXC_GETPROJECTION",
    "C_GXC_GETPROJECTIONNAME",
    "C_GXC_GETPROJECTIONSTRING",
    "C_GXC_CONVERT2PROJ4",
    "C_GXMP_CREATE",
    "C_GXMP_DESTROY",
    "C_GXMP_GEO2PROJ",
    "C_GXMP_PROJ2GEO",
    "C_GXMP_GEO2PROJARRAY",
    "C_GXMP_PROJ2GEOARRAY",
    "C_GXMP_GEO2XYZ",
    "C_GXMP_XYZ2GEO",
    "C_GXMP_GETCONVERGENCE",
    "C_GXMP_GETDEFAULTAREA",
    "C_GXMP_GETORIGIN",
    "C_GXMP_GETNAME",
    "C_GXMP_GETPROJECTIONSTRING",
    "C_GXMP_GEO2XYZARRAY",
    "C_GXMP_XYZ2GEOARRAY",
    "C_GXMP_GETCONVERGENCEARRAY",
    "C_GXMP_GETUNITFACTOR",
    "C_GXMP_GETUNITNAME",
    "C_GXDC_CREATE",
    "C_GXDC_DESTROY",
    "C_GXDC_CONVERTXY",
    "C_GXDC_CONVERTXYH",
    "C_GXDC_INVCONVERTXY",
    "C_GXDC_INVCONVERTXYH",
    "C_GXDC_CONVERTARRAY",
    "C_GXDC_INVCONVERTARRAY",
    "C_GXDC_DATUMSHIFT",
    "C_GXDC_INVDATUMSHIFT",
    "C_GXDC_INVERTORDER",
    "C_GXDC_SETCONVERSIONTYPE",
    "C_GXDC_SETDATUMSHIFT",
    "C_GXDC_BYPASSXYZ",
    "C_GXDC_RESETBYPASSXYZ",
    "C_GXDC_GETBYPASSXYZ",
    "S_ISVALID",
    "S_ISLOCAL",
    "S_ISLONGLAT",
    "S_ISGEOGRAPHICAL",
    "S_ISGEOREFERENCED",
    "S_HASDATUM",
    "S_ISTYPE",
    "S_AREIDENTICAL",
    "S_GETCOORDSYSTYPE",
    "S_PROJECTIONORIGIN",
    "S_PROJECTIONSHORTNAME",
    "S_LONGITUDETOUTMZONE",
    "S_GETGOOGLEMAPPROJECTIONSTRING",
    "S_CATALOGUEREPORT",
    "NewGxProjection",
    "CARTSETUPLINUX",
};

std::string ReadFirstLine(const std::string& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

// Equal as the same double, NaN included: the flat function must hand on
// exactly what the class gives.
bool Same(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

}  // namespace

TEST(FlatInterface, ExportsEveryFunctionUnmangled) {
    for (const char* name : kExportedNames) EXPECT_NE(dlsym(RTLD_DEFAULT, name), nullptr) << name;
    // The boundary's own helpers stay inside the library.
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "_Z16GxCopyTextResultPKcPciPi"), nullptr);
}

// A C++ caller keeps the classes' exception; a C caller, who could do
// nothing with it, gets a null handle and its own status instead (capi_test.c
// checks those for every constructor).
TEST(FlatInterface, GenericUtmThrowsInClasses) {
    EXPECT_THROW(CGxMapProjection("UTM"), std::out_of_range);
    EXPECT_THROW(CGxDatumConverter("UTM", "LONG/LAT"), std::out_of_range);
    EXPECT_EQ(NewGxProjection(" UTM "), nullptr);
}

// A handle is the object's address, so C++ code can mix both interfaces.
TEST(FlatInterface, HandlesAreTheObjects) {
    GxCartographyHandle grid = nullptr;
    int status = -99;
    C_GXC_CREATE("UTM-32", 9.5, 48.25, 10.0, &grid, &status);
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(C_GXC_GETPROJECTION(grid), grid->GetProjection());
    EXPECT_DOUBLE_EQ(grid->GetProjectionNorth(), C_GXC_GETPROJNORTH(grid));
    C_GXC_DESTROY(&grid, &status);
    EXPECT_EQ(grid, nullptr);

    // Without a place to put the handle the new object is not kept.
    status = -99;
    C_GXMP_CREATE("UTM-32", nullptr, &status);
    EXPECT_EQ(status, GXCART_OK);
}

// Each flat function hands its arguments to the right member in the right
// order, over systems whose axes are swapped or reversed, geographical,
// rotated and local.
TEST(FlatInterface, MapProjectionFunctionsMatchTheClass) {
    const std::string systems[] = {
        "UTM-32",
        ReadFirstLine(std::string(GXCART_TEST_DATA) + "/mapprojection/lo29_west_south.prj"),
        ReadFirstLine(std::string(GXCART_TEST_DATA) + "/mapprojection/gk3_north_east.prj"),
        "LONG/LAT",
        "EURO-CORDEX rotated pole grid",
        "NON-UTM",
    };
    const double lon = 29.7, lat = -25.9, east = 51234.5, north = 2864321.25;
    for (const std::string& s : systems) {
        SCOPED_TRACE(s.substr(0, 60));
        const CGxMapProjection object(s);
        GxMapProjectionHandle handle = nullptr;
        int status = -99;
        C_GXMP_CREATE(s.c_str(), &handle, &status);
        ASSERT_NE(handle, nullptr);

        double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        object.Geo2Proj(lon, lat, &x1, &y1);
        C_GXMP_GEO2PROJ(handle, lon, lat, &x2, &y2);
        EXPECT_TRUE(Same(x1, x2) && Same(y1, y2));
        object.Proj2Geo(east, north, &x1, &y1);
        C_GXMP_PROJ2GEO(handle, east, north, &x2, &y2);
        EXPECT_TRUE(Same(x1, x2) && Same(y1, y2));

        double z1 = 0, z2 = 0;
        object.Geo2XYZ(lon, lat, 250.0, &x1, &y1, &z1);
        C_GXMP_GEO2XYZ(handle, lon, lat, 250.0, &x2, &y2, &z2);
        EXPECT_TRUE(Same(x1, x2) && Same(y1, y2) && Same(z1, z2));
        object.XYZ2Geo(5.0e6, 2.8e6, -2.7e6, &x1, &y1, &z1);
        C_GXMP_XYZ2GEO(handle, 5.0e6, 2.8e6, -2.7e6, &x2, &y2, &z2);
        EXPECT_TRUE(Same(x1, x2) && Same(y1, y2) && Same(z1, z2));

        EXPECT_TRUE(Same(object.GetConvergence(lon, lat), C_GXMP_GETCONVERGENCE(handle, lon, lat)));
        double a1[4] = {0, 0, 0, 0}, a2[4] = {0, 0, 0, 0};
        object.GetDefaultArea(&a1[0], &a1[1], &a1[2], &a1[3]);
        C_GXMP_GETDEFAULTAREA(handle, &a2[0], &a2[1], &a2[2], &a2[3]);
        for (int i = 0; i < 4; ++i) EXPECT_TRUE(Same(a1[i], a2[i])) << i;
        object.GetOrigin(&x1, &y1);
        C_GXMP_GETORIGIN(handle, &x2, &y2);
        EXPECT_TRUE(Same(x1, x2) && Same(y1, y2));

        char name[256];
        C_GXMP_GETNAME(handle, name, 255, &status);
        EXPECT_STREQ(name, object.GetName());
        C_GXMP_DESTROY(&handle, &status);
    }
}

// Each array function reaches the array member of its own name (the members
// themselves are held to the single-point calls in BatchConversionTest, the
// datum converter's arrays to reference values in capi_test.c): the same
// points give the same bits. A null handle leaves the arrays alone.
TEST(FlatInterface, ArrayFunctionsReachTheirMembers) {
    const double a[4] = {9.5, 12.5, 537117.141935, -1.0};
    const double b[4] = {48.25, 48.25, 5344208.122025, 95.0};
    auto same = [](const double* u, const double* v) {
        return std::memcmp(u, v, 4 * sizeof *u) == 0;
    };

    using CArray =
        void (*)(GxCartographyHandle, const double*, const double*, double*, double*, size_t);
    using Member =
        void (CGxCartography::*)(const double*, const double*, double*, double*, std::size_t) const;
    const std::pair<CArray, Member> grid[] = {
        {C_GXC_GEO2PROJARRAY, &CGxCartography::Geo2Proj},
        {C_GXC_PROJ2GEOARRAY, &CGxCartography::Proj2Geo},
        {C_GXC_GEO2XYARRAY, &CGxCartography::Geo2Xy},
        {C_GXC_XY2GEOARRAY, &CGxCartography::Xy2Geo},
        {C_GXC_PROJ2XYARRAY, &CGxCartography::Proj2Xy},
        {C_GXC_XY2PROJARRAY, &CGxCartography::Xy2Proj},
    };
    GxCartographyHandle cart = nullptr;
    int status = 0;
    C_GXC_CREATE("UTM-32", 9.5, 48.25, 10.0, &cart, &status);
    ASSERT_NE(cart, nullptr);
    int row = 0;
    for (const auto& [flat, member] : grid) {
        double x1[4] = {}, y1[4] = {}, x2[4] = {}, y2[4] = {};
        flat(cart, a, b, x1, y1, 4);
        (cart->*member)(a, b, x2, y2, 4);
        EXPECT_TRUE(same(x1, x2) && same(y1, y2)) << "row " << row++;
        flat(nullptr, a, b, x1, y1, 4);
        EXPECT_TRUE(same(x1, x2) && same(y1, y2));
    }
    C_GXC_DESTROY(&cart, &status);

    GxMapProjectionHandle mp = nullptr;
    C_GXMP_CREATE(
        ReadFirstLine(std::string(GXCART_TEST_DATA) + "/mapprojection/gk3_north_east.prj").c_str(),
        &mp, &status);
    ASSERT_NE(mp, nullptr);
    double x1[4] = {}, y1[4] = {}, x2[4] = {}, y2[4] = {};
    C_GXMP_GEO2PROJARRAY(mp, a, b, x1, y1, 4);
    mp->Geo2Proj(a, b, x2, y2, 4);
    EXPECT_TRUE(same(x1, x2) && same(y1, y2));
    C_GXMP_PROJ2GEOARRAY(mp, b, a, x1, y1, 4);
    mp->Proj2Geo(b, a, x2, y2, 4);
    EXPECT_TRUE(same(x1, x2) && same(y1, y2));
    double z1[4] = {}, z2[4] = {};
    C_GXMP_GEO2XYZARRAY(mp, a, b, nullptr, x1, y1, z1, 4);
    mp->Geo2XYZ(a, b, nullptr, x2, y2, z2, 4);
    EXPECT_TRUE(same(x1, x2) && same(y1, y2) && same(z1, z2));
    C_GXMP_XYZ2GEOARRAY(mp, x2, y2, b, x1, y1, z1, 4);
    mp->XYZ2Geo(x2, y2, b, x2, y2, z2, 4);
    EXPECT_TRUE(same(x1, x2) && same(y1, y2) && same(z1, z2));
    C_GXMP_GETCONVERGENCEARRAY(mp, a, b, x1, 4);
    mp->GetConvergence(a, b, x2, 4);
    EXPECT_TRUE(same(x1, x2));
    C_GXMP_GETCONVERGENCEARRAY(nullptr, b, a, x1, 4);
    C_GXMP_GEO2XYZARRAY(nullptr, b, a, a, x1, y1, z1, 4);
    EXPECT_TRUE(same(x1, x2) && same(y1, y2) && same(z1, z2));
    C_GXMP_DESTROY(&mp, &status);
}

// The units a system states, as the class reports them: the linear unit of
// a US-foot system and its angular unit, metres for a catalogue zone (whose
// WKT the library writes), none for the special strings; an unknown selector
// or a null handle answers nothing.
TEST(FlatInterface, UnitsOfASystem) {
    const std::string feet = ReadFirstLine(std::string(GXCART_TEST_DATA) + "/wkt/2263_gdal.prj");
    struct Case {
        std::string system;
        int unit;
        int answer;
        double factor;
        const char* name;
    };
    const Case cases[] = {
        {feet, GXCART_LINEAR_UNIT, 1, 0.304800609601219, "US survey foot"},
        {feet, GXCART_ANGULAR_UNIT, 1, 0.0174532925199433, "degree"},
        {"UTM-32", GXCART_LINEAR_UNIT, 1, 1.0, nullptr},
        {"LONG/LAT", GXCART_LINEAR_UNIT, 0, -5.0, ""},
        {"NON-UTM", GXCART_LINEAR_UNIT, 0, -5.0, ""},
        {feet, 0, 0, -5.0, ""},
        {feet, 3, 0, -5.0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.system.substr(0, 40) + " unit " + std::to_string(c.unit));
        GxMapProjectionHandle mp = nullptr;
        int status = 99;
        C_GXMP_CREATE(c.system.c_str(), &mp, &status);
        ASSERT_NE(mp, nullptr);
        double factor = -5.0;
        EXPECT_EQ(C_GXMP_GETUNITFACTOR(mp, c.unit, &factor), c.answer);
        EXPECT_EQ(factor, c.factor);
        EXPECT_EQ(C_GXMP_GETUNITFACTOR(mp, c.unit, nullptr), c.answer);
        char name[64];
        std::memset(name, '#', sizeof name);
        C_GXMP_GETUNITNAME(mp, c.unit, name, static_cast<int>(sizeof name) - 1, &status);
        EXPECT_EQ(status, GXCART_OK);
        if (c.name) {
            EXPECT_STREQ(name, c.name);
        }
        C_GXMP_DESTROY(&mp, &status);
    }
    double factor = -5.0;
    int status = 99;
    EXPECT_EQ(C_GXMP_GETUNITFACTOR(nullptr, GXCART_LINEAR_UNIT, &factor), 0);
    EXPECT_EQ(factor, -5.0);
    C_GXMP_GETUNITNAME(nullptr, GXCART_LINEAR_UNIT, nullptr, 0, &status);
    EXPECT_EQ(status, GXCART_NULL_HANDLE);
}

// The caller owns the algorithm: it converts on its own and is deleted here.
// UTM zone 32 on WGS 84:
//   echo 9.5 48.25 0 0 | cct -d 6 +proj=utm +zone=32 +ellps=WGS84
//   537117.141935  5344208.122025
TEST(FlatInterface, NewGxProjectionBelongsToTheCaller) {
    GxProjection* projection = NewGxProjection("UTM-32");
    ASSERT_NE(projection, nullptr);
    double x = 0, y = 0;
    projection->Geo2Proj(9.5, 48.25, &x, &y);
    EXPECT_NEAR(x, 537117.141935, 1e-3);
    EXPECT_NEAR(y, 5344208.122025, 1e-3);
    delete projection;
    EXPECT_EQ(NewGxProjection("no such system"), nullptr);
}

// Text results come from per-thread buffers: two threads asking at once
// each read their own answer.
TEST(FlatInterface, TextResultsDoNotCrossThreads) {
    auto ask = [](double lon, const char* expected, bool* ok) {
        char buffer[16];
        int status = 0;
        *ok = true;
        for (int i = 0; i < 20000 && *ok; ++i) {
            S_LONGITUDETOUTMZONE(lon, buffer, 15, &status);
            *ok = status == GXCART_OK && std::strcmp(buffer, expected) == 0;
        }
    };
    bool westOk = false, eastOk = false;
    std::thread west(ask, -75.0, "UTM-18", &westOk);
    std::thread east(ask, 139.0, "UTM-54", &eastOk);
    west.join();
    east.join();
    EXPECT_TRUE(westOk);
    EXPECT_TRUE(eastOk);
}
