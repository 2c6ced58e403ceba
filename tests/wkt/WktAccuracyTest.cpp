#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/Projection.h"
#include "tests/support/TestFiles.h"
#include "wkt/PRJParser.h"

// The algorithm built from each real .prj text of tests/data/wkt against
// PROJ at points over the grid's area of use. The reference coordinates are
// in tests/data/wkt/grid_points.txt, each block under the cct command that
// made it (tests/data/wkt/make_grid_points.sh regenerates them). Eastings and
// northings are in metres whatever the text's linear unit: the algorithm
// works in metres, so grids in feet are checked against PROJ's definition
// with +units=m.

namespace {

struct Deleter {
    void operator()(CGxProjection* p) const { CGxProjection::Release(p); }
};
using Algorithm = std::unique_ptr<CGxProjection, Deleter>;

struct GridPoint {
    double lon, lat, x, y;
};

struct Block {
    std::string command;
    std::vector<std::string> files;
    std::vector<GridPoint> points;
};

std::vector<Block> ReadGridPoints() {
    std::ifstream in(std::string(GXCART_TEST_DATA) + "/wkt/grid_points.txt");
    std::vector<Block> blocks;
    std::string command;
    for (std::string line; std::getline(in, line);) {
        if (line.empty()) continue;
        if (line.rfind("# cct", 0) == 0) {
            command = line.substr(2);
        } else if (line[0] == '[') {
            Block b;
            b.command = command;
            std::istringstream names(line.substr(1, line.find(']') - 1));
            for (std::string f; names >> f;) b.files.push_back(f);
            blocks.push_back(b);
        } else if (line[0] != '#' && !blocks.empty()) {
            GridPoint p{};
            std::istringstream(line) >> p.lon >> p.lat >> p.x >> p.y;
            blocks.back().points.push_back(p);
        }
    }
    return blocks;
}

Algorithm Build(const std::string& text, CGxMapProjData::EProjectionType& type) {
    CGxPRJParser parser(text);
    type = parser.GetProjectionType();
    if (!parser.Parse(false)) return nullptr;
    type = parser.GetProjectionType();
    return Algorithm(parser.CreateMapProjection());
}

// One millimetre on the grid, and about as much on the ground for the
// inverse (1e-8 degrees of latitude is 1.1 mm). The Albers inverse reaches
// the latitude through a third-order series of the authalic latitude, good to
// 1.5e-8 degrees (under 2 mm).
constexpr double kGridTolerance = 1e-3;
constexpr double kAngleTolerance = 1e-8;
constexpr double kAlbersAngleTolerance = 1.5e-8;
// Geographic grids are in degrees: a millimetre there is about 1e-8.
constexpr double kGeographicTolerance = 1e-9;

}  // namespace

// Each text forward and inverse at every point of its block: the wiring of
// the projection's parameters, the unit and prime-meridian conversions and
// the figure taken from SPHEROID must all be right for a grid to agree with
// PROJ to the millimetre.
TEST(WktAccuracy, RealTextsAgreeWithProj) {
    const std::vector<Block> blocks = ReadGridPoints();
    ASSERT_GE(blocks.size(), 25u);
    for (const Block& block : blocks) {
        ASSERT_FALSE(block.points.empty()) << block.command;
        for (const std::string& file : block.files) {
            SCOPED_TRACE(file + " against " + block.command);
            const std::string text = GxReadPrj(file);
            ASSERT_FALSE(text.empty()) << "missing test file";
            CGxMapProjData::EProjectionType type = CGxMapProjData::eInvalidProjection;
            const Algorithm algorithm = Build(text, type);
            ASSERT_TRUE(algorithm);
            const bool geographic = algorithm->IsGeographical();
            const double tolerance = geographic ? kGeographicTolerance : kGridTolerance;
            const double angleTolerance =
                type == CGxMapProjData::eAlbersEqualArea ? kAlbersAngleTolerance : kAngleTolerance;
            for (const GridPoint& p : block.points) {
                SCOPED_TRACE(testing::Message() << "point " << p.lon << " " << p.lat);
                double x = 0, y = 0, lon = 0, lat = 0;
                algorithm->Geo2Proj(p.lon, p.lat, &x, &y);
                EXPECT_NEAR(x, p.x, tolerance);
                EXPECT_NEAR(y, p.y, tolerance);
                algorithm->Proj2Geo(p.x, p.y, &lon, &lat);
                // At the pole every longitude is the same point.
                if (std::fabs(p.lat) < 90) {
                    EXPECT_NEAR(lon, p.lon, angleTolerance);
                }
                EXPECT_NEAR(lat, p.lat, angleTolerance);
            }
        }
    }
}

// Every text the reader accepts has reference points, so a new .prj file
// cannot slip in unchecked.
TEST(WktAccuracy, EveryAcceptedTextHasReferencePoints) {
    std::set<std::string> covered;
    for (const Block& block : ReadGridPoints())
        covered.insert(block.files.begin(), block.files.end());

    int accepted = 0;
    for (const std::vector<std::string>& row : GxExpectedParameterRows()) {
        if (row[1] != "true") continue;
        ++accepted;
        EXPECT_EQ(covered.count(row[0]), 1u) << row[0];
    }
    EXPECT_EQ(accepted, 82);
}

// A south-orientated Transverse Mercator text is read as the plain
// projection: its algorithm gives plain Transverse Mercator coordinates (the
// block of 2053 in grid_points.txt), not PROJ's south-orientated ones, which
// point west and south and so are their negatives here (no false origin).
//   printf "28.5 -25 0 0\n29.5 -30 0 0\n30 -22.5 0 0\n" | cct -d 6 +proj=tmerc
//       +axis=wsu +lat_0=0 +lon_0=29 +k=1 +x_0=0 +y_0=0 +ellps=WGS84
//   -> 50475.459858 2766147.248485, -48243.448606 3320218.650506,
//      -102899.969330 2489510.973945
TEST(WktAccuracy, SouthOrientatedTextGivesPlainTransverseMercator) {
    struct Case {
        double lon, lat, westing, southing;
    };
    const Case cases[] = {
        {28.5, -25, 50475.459858, 2766147.248485},
        {29.5, -30, -48243.448606, 3320218.650506},
        {30, -22.5, -102899.969330, 2489510.973945},
    };
    for (const char* file : {"2053_esri.prj", "2053_gdal.prj"}) {
        SCOPED_TRACE(file);
        CGxMapProjData::EProjectionType type = CGxMapProjData::eInvalidProjection;
        const Algorithm algorithm = Build(GxReadPrj(file), type);
        ASSERT_TRUE(algorithm);
        EXPECT_EQ(type, CGxMapProjData::eTransverseMercator);
        for (const Case& c : cases) {
            double x = 0, y = 0;
            algorithm->Geo2Proj(c.lon, c.lat, &x, &y);
            EXPECT_NEAR(x, -c.westing, kGridTolerance);
            EXPECT_NEAR(y, -c.southing, kGridTolerance);
        }
    }
}
