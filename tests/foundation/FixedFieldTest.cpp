// Texts stored in fixed fields, reached through a coordinate-system text: the
// algorithm's name (256 bytes with the terminator), unit names (64) and axis
// names (32). At each field's size minus one, at its size, one past it and
// ten times past it the stored text is the longest prefix that leaves room
// for the terminator, and nothing beyond the field is written. Folders are
// not fixed fields: a user folder longer than the classic 260-character path
// buffer is used whole, never cut to a different folder.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

#include "catalogue/CartSetup.h"
#include "foundation/Projection.h"
#include "foundation/ProjectionInfo.h"
#include "mapprojection/MapProjection.h"

namespace {

constexpr std::size_t kAlgorithmName = 256;
constexpr std::size_t kUnitName = CGxProjectionInfo::kUnitNameSize;
constexpr std::size_t kAxisName = CGxProjectionInfo::CAxis::kNameSize;

// UTM zone 32 with the given system name, linear unit name and axis name.
std::string Wkt(const std::string& name, const std::string& unit, const std::string& axis) {
    return "PROJCS[\"" + name +
           "\",GEOGCS[\"ETRS89\",DATUM[\"ETRS89\",SPHEROID[\"GRS 1980\",6378137,298.257222101]],"
           "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],"
           "PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],"
           "PARAMETER[\"central_meridian\",9],PARAMETER[\"scale_factor\",0.9996],"
           "PARAMETER[\"false_easting\",500000],PARAMETER[\"false_northing\",0],UNIT[\"" +
           unit + "\",1],AXIS[\"" + axis + "\",EAST],AXIS[\"N\",NORTH]]";
}

std::string Text(std::size_t length, char first) {
    std::string s(length, 'x');
    for (std::size_t i = 0; i < length; ++i) s[i] = static_cast<char>(first + i % 26);
    return s;
}

}  // namespace

TEST(FixedFields, NamesFromATextKeepTheLongestPrefixThatFits) {
    for (std::size_t field : {kAlgorithmName, kUnitName, kAxisName}) {
        for (std::size_t length : {field - 1, field, field + 1, 10 * field}) {
            SCOPED_TRACE(testing::Message() << "field " << field << " length " << length);
            const std::string text = Text(length, 'a');
            const std::string name = field == kAlgorithmName ? text : "Zone";
            const std::string unit = field == kUnitName ? text : "metre";
            const std::string axis = field == kAxisName ? text : "E";
            CGxProjectionInfo info;
            const std::unique_ptr<CGxProjection> p(
                CGxMapProjection::GetProjection(Wkt(name, unit, axis).c_str(), &info));
            ASSERT_NE(p, nullptr);
            const std::string kept = text.substr(0, field - 1);
            if (field == kAlgorithmName) {
                EXPECT_EQ(p->GetName(), kept);
            } else if (field == kAxisName) {
                EXPECT_EQ(info.GetAxis1().GetName(), kept);
            } else {
                // The caller's buffer is as large as the field; the bytes
                // after it must stay as they were.
                char out[kUnitName + 4];
                std::memset(out, '#', sizeof out);
                double factor = 0;
                EXPECT_TRUE(info.GetProjUnit(&factor, out));
                EXPECT_EQ(std::string(out), kept);
                EXPECT_EQ(std::string(out + kUnitName, 4), "####");
            }
            // The cut names do not change the grid.
            double x = 0, y = 0;
            p->Geo2Proj(9, 0, &x, &y);
            EXPECT_NEAR(x, 500000, 1e-6);
        }
    }
}

// Run in a child process whose user folder is a path of the given length:
// the recently-used buffer file and a custom ellipsoid file are written into
// exactly that folder.
TEST(FixedFields, UserFolderLongerThanAClassicPathBufferIsUsedWhole) {
    namespace fs = std::filesystem;
    const fs::path base = fs::temp_directory_path() / ("gxcart-fixed-" + std::to_string(getpid()));
    for (std::size_t length : {259u, 260u, 261u, 2600u}) {
        SCOPED_TRACE(length);
        // Components of at most 200 characters, so that no single name
        // exceeds the file system's limit; the folder ends with '/'.
        std::string folder = base.string() + "/";
        while (folder.size() < length) {
            const std::size_t room = length - folder.size();
            std::size_t k = room - 1 < 200 ? room - 1 : 200;
            if (room - (k + 1) == 1) --k;  // never leave room for a bare '/'
            folder += std::string(k, 'd') + "/";
        }
        ASSERT_EQ(folder.size(), length);
        ASSERT_EQ(folder.back(), '/');
        const pid_t pid = fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            CGxCartSetup& setup = CGxCartSetup::Instance();
            setup.ReadData("", folder);
            long count = 0;
            CGxMapProjection::XEnumMapProjectionsBuffer(1, "UTM-32", &count);
            CGxMapProjection::AddEllipsoid(new CGxEllipsoid("Long folder", "LF", 6378000, 300));
            setup.SetEllipsoidListModified();
            setup.WriteModified();
            // No unload: the child must not touch the shared test home.
            _exit(count > 0 ? 0 : 3);
        }
        int status = -1;
        waitpid(pid, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
        EXPECT_TRUE(fs::exists(folder + ".MapProjectionBuffer.txt"));
        EXPECT_TRUE(fs::exists(folder + "custom_ellipsoid.zpf"));
        std::error_code ec;
        fs::remove_all(base, ec);
    }
}
