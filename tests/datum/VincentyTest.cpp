#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <fstream>
#include <future>
#include <limits>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "datum/Vincenty.h"
#include "foundation/Ellipsoid.h"
#include "tests/support/Figures.h"

namespace {

const double kPi = 3.141592653589793;
const double kNaN = std::numeric_limits<double>::quiet_NaN();

// One line of a table made by tests/data/datum/make_geodesic_cases.py.
std::vector<std::vector<std::string>> ReadTable(const std::string& name) {
    std::ifstream in(std::string(GXCART_TEST_DATA) + "/datum/" + name);
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        rows.emplace_back();
        for (std::string w; words >> w;) rows.back().push_back(w);
    }
    return rows;
}

double Num(const std::string& s) {
    return std::stod(s);
}

// Difference of two directions or longitudes in degrees, in [-180, 180].
double AngleDiff(double a, double b) {
    return std::remainder(a - b, 360.0);
}

struct Inverse {
    double distance = 0, azimuth1 = 0, azimuth2 = 0;
};

Inverse Solve(const CGxVincenty& v, double lon1, double lat1, double lon2, double lat2) {
    Inverse r;
    v.GetDistance(lon1, lat1, lon2, lat2, r.distance, r.azimuth1, r.azimuth2);
    return r;
}

// One row of an inverse table (category, lat1 lon1 lat2 lon2, azi1 azi2, s12,
// as GeodSolve wrote it): the distance within 0.1 mm and both azimuths within
// 1e-8 degrees. A latitude in double precision is known to about 1e-16
// radians, which on a line of millimetres is already 1e-6 radians of azimuth,
// whoever computes it; below a metre the azimuth is held to the sideways
// offset it gives the end point instead, two nanometres. Gives the solution.
Inverse ExpectInverseRow(const CGxVincenty& v, const std::vector<std::string>& row) {
    const Inverse r = Solve(v, Num(row[2]), Num(row[1]), Num(row[4]), Num(row[3]));
    const double s12 = Num(row[7]);
    EXPECT_NEAR(r.distance, s12, 1e-4);
    const double tolerance = s12 < 1.0 ? 2e-9 / s12 * 180.0 / kPi : 1e-8;
    EXPECT_NEAR(AngleDiff(r.azimuth1, Num(row[5])), 0.0, tolerance);
    EXPECT_NEAR(AngleDiff(r.azimuth2, Num(row[6])), 0.0, tolerance);
    return r;
}

// Runs an inverse problem on its own thread and gives up after one second, so
// that a root search that never ends fails this test instead of hanging the
// suite. A thread left running is abandoned and ends with the process.
enum class Outcome { kResult, kThrew, kTimedOut };
Outcome SolveWithin1s(const CGxVincenty& v, double lon1, double lat1, double lon2, double lat2,
                      Inverse& out) {
    auto done = std::make_shared<std::promise<Inverse>>();
    std::future<Inverse> result = done->get_future();
    std::thread([v, lon1, lat1, lon2, lat2, done] {
        try {
            done->set_value(Solve(v, lon1, lat1, lon2, lat2));
        } catch (...) {
            done->set_exception(std::current_exception());
        }
    }).detach();
    if (result.wait_for(std::chrono::seconds(1)) != std::future_status::ready)
        return Outcome::kTimedOut;
    try {
        out = result.get();
        return Outcome::kResult;
    } catch (const std::runtime_error&) {
        return Outcome::kThrew;
    }
}

}  // namespace

// Every pair of the tables against GeographicLib, on two ellipsoids: short lines
// (1 mm to 1 m), medium and long lines (over 10 000 km, not nearly antipodal),
// along the equator, along meridians and over a pole, across the antimeridian
// and from a pole. GeodSolve's azi2 is, like ours, the forward azimuth at the
// second point, so both azimuths compare directly. The direct problem, fed our
// azimuth and distance, must come back to the second point.
TEST(Vincenty, InverseAgreesWithGeodSolveAndDirectReturns) {
    for (const auto& [file, ellipsoid] :
         {std::make_pair("geodesic_inverse_wgs84.txt", kGxWgs84),
          std::make_pair("geodesic_inverse_intl1924.txt", kGxInternational)}) {
        const auto rows = ReadTable(file);
        ASSERT_GE(rows.size(), 100u) << file;
        CGxVincenty v(ellipsoid);
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(file) + ": " + row[0] + " " + row[1] + " " + row[2] + " " +
                         row[3] + " " + row[4]);
            const Inverse r = ExpectInverseRow(v, row);
            const double lon1 = Num(row[2]), lat1 = Num(row[1]), lon2 = Num(row[4]),
                         lat2 = Num(row[3]);
            double lon = 0, lat = 0, azimuth = 0;
            v.GetPoint(lon1, lat1, r.azimuth1, r.distance, lon, lat, azimuth);
            EXPECT_NEAR(lat, lat2, 1e-9);
            // At a pole every longitude names the same point.
            if (std::fabs(lat2) != 90.0) {
                EXPECT_NEAR(AngleDiff(lon, lon2), 0.0, 1e-9);
            }
        }
    }
}

// Near the antipode of the first point, where Vincenty's iteration fails or
// loses its accuracy: opposite and nearly opposite latitudes with longitude
// differences of 179 to 180 degrees, the equator beyond (1 - f) 180 degrees,
// meridians over a pole, the poles themselves and random pairs within two
// degrees of the antipode. Of two equally short lines (exact antipodes,
// equatorial points) GeodSolve's choice must be ours too.
TEST(Vincenty, NearAntipodeAgreesWithGeodSolve) {
    for (const auto& [file, ellipsoid] :
         {std::make_pair("geodesic_antipodal_wgs84.txt", kGxWgs84),
          std::make_pair("geodesic_antipodal_intl1924.txt", kGxInternational)}) {
        const auto rows = ReadTable(file);
        ASSERT_GE(rows.size(), 700u) << file;
        CGxVincenty v(ellipsoid);
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(file) + ": " + row[0] + " " + row[1] + " " + row[2] + " " +
                         row[3] + " " + row[4]);
            // Every line here is thousands of kilometres long: azimuths to 1e-8.
            ExpectInverseRow(v, row);
        }
    }
}

// The end point within 0.1 mm on the ground, for short lines and for lines up
// to once round the Earth in east-west directions, where the longitude
// integral weighs most.
TEST(Vincenty, DirectAgreesWithGeodSolve) {
    for (const auto& [file, ellipsoid] :
         {std::make_pair("geodesic_direct_wgs84.txt", kGxWgs84),
          std::make_pair("geodesic_direct_intl1924.txt", kGxInternational),
          std::make_pair("geodesic_direct_long_wgs84.txt", kGxWgs84),
          std::make_pair("geodesic_direct_long_intl1924.txt", kGxInternational)}) {
        const auto rows = ReadTable(file);
        ASSERT_GE(rows.size(), 20u) << file;
        CGxVincenty v(ellipsoid);
        const double metresPerDegree = ellipsoid.GetMajor() * kPi / 180.0;
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(file) + ": " + row[0] + " " + row[1] + " " + row[2] + " " +
                         row[3]);
            double lon2 = 0, lat2 = 0, azimuth2 = 0;
            v.GetPoint(Num(row[1]), Num(row[0]), Num(row[2]), Num(row[3]), lon2, lat2, azimuth2);
            const double expectedLat = Num(row[4]);
            const double north = (lat2 - expectedLat) * metresPerDegree;
            const double east = AngleDiff(lon2, Num(row[5])) * metresPerDegree *
                                std::cos(expectedLat * kPi / 180.0);
            EXPECT_LE(std::hypot(north, east), 1e-4);
            EXPECT_NEAR(AngleDiff(azimuth2, Num(row[6])), 0.0, 1e-8);
        }
    }
}

// echo "0 0 0 1" | GeodSolve -i -p 10          -> 90 90 111319.4907932736
// echo "0 0 0 10001965.73" | GeodSolve -p 10   -> lat2 89.999999993736...
TEST(Vincenty, EquatorDegreeQuarterMeridianAndDueSouth) {
    CGxVincenty v(kGxWgs84);
    const Inverse r = Solve(v, 0, 0, 1, 0);
    EXPECT_NEAR(r.distance, 111319.4907932736, 1e-6);
    EXPECT_EQ(r.azimuth1, 90.0);
    EXPECT_EQ(r.azimuth2, 90.0);

    double lon = 0, lat = 0, azimuth = 0;
    v.GetPoint(0, 0, 0, 10001965.73, lon, lat, azimuth);
    // One millimetre of meridian at the pole is about 9e-9 degrees.
    EXPECT_NEAR(lat, 90.0, 9e-9);

    // Southward along a meridian with a negative zero longitude difference:
    // the azimuth range is (-180, 180], so due south is +180.
    const Inverse south = Solve(v, 0.0, 10.0, -0.0, 5.0);
    EXPECT_EQ(south.azimuth1, 180.0);
    EXPECT_EQ(south.azimuth2, 180.0);
}

// echo "0 0 0 180" | GeodSolve -i -p 10 -e 6371000 0       -> 0 180 20015086.7960205711
// echo "10 20 -35 150" | GeodSolve -i -p 10 -e 6371000 0   ->
// 127.033141751150652 73.683316805404175 14253029.7899879105
TEST(Vincenty, SphereFollowsTheGreatCircle) {
    CGxVincenty v(CGxEllipsoid("Sphere", "SP", 6371000.0, 0.0));
    // Antipodes on a sphere: every meridian is a shortest line and the
    // longitude equation is solved at once; only the length is defined.
    EXPECT_NEAR(Solve(v, 0, 0, 180, 0).distance, 20015086.7960205711, 1e-6);

    const Inverse r = Solve(v, 20, 10, 150, -35);
    EXPECT_NEAR(r.distance, 14253029.7899879105, 1e-6);
    EXPECT_NEAR(r.azimuth1, 127.033141751150652, 1e-10);
    EXPECT_NEAR(r.azimuth2, 73.683316805404175, 1e-10);
}

// Regressions of the root search on Vincenty's longitude equation: with
// opposite latitudes near the antipode it settled on the equatorial line
// (azimuth +-90, up to 33.6 km short) and reported success; along the equator
// beyond (1 - f) 180 degrees it gave the length of half the equator's
// auxiliary circle, 19970326.37 m; nearly antipodal pairs that converged were
// millimetres and 1e-6 degrees off.
//   echo "lat1 lon1 lat2 lon2" | GeodSolve -i -p 10   -> azi1 azi2 s12
TEST(VincentyLimits, NearlyAntipodalPairsGiveTheGeodesic) {
    CGxVincenty v(kGxWgs84);
    struct Case {
        double lat1, lon1, lat2, lon2, azi1, azi2, s12;
    };
    const Case cases[] = {
        {0, 0, 0, 180, 0.0, 180.0, 20003931.4586254470},
        {10, 0, -10, 180, 0.0, 180.0, 20003931.4586254470},
        {45, 0, -45, 179.9, 13.540434665111311, 166.459565334888680, 20003008.4215094112},
        {80, 0, -80, 179.9, 72.155810254435949, 107.844189745564051, 20003008.4215094112},
        {-30, 20, 30, -160.5, 107.037869600527927, 72.962130399472073, 19980861.9088909626},
        {0, 0, 0, 179.5, 55.966495140158635, 124.033504859841372, 19980861.9088909626},
        {0, 0, 0.001, 180, 0.0, 180.0, 20003820.8843496218},
        {0, 0, 0.5, 179.5, 25.671872868291882, 154.327085469941608, 19936288.5789653137},
        {10, 0, -9.999, 179.5, 57.013321171015320, 122.986948707707242, 19980801.9115322046},
        {45, 0, -44.999, 179.999, 0.133709448710154, 179.866292877065774, 20003820.2348566316},
        {80, 0, -79.5, 178, 35.569060012732969, 146.338913334056912, 19935759.2127850279}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.lat1 << " " << c.lon1 << " " << c.lat2 << " " << c.lon2);
        const Inverse r = Solve(v, c.lon1, c.lat1, c.lon2, c.lat2);
        EXPECT_NEAR(r.distance, c.s12, 1e-4);
        EXPECT_NEAR(AngleDiff(r.azimuth1, c.azi1), 0.0, 1e-8);
        EXPECT_NEAR(AngleDiff(r.azimuth2, c.azi2), 0.0, 1e-8);
    }
}

TEST(VincentyLimits, CoincidentPointsHaveNoLengthAndNoDirection) {
    CGxVincenty v(kGxWgs84);
    // The same point, also with its longitude written whole turns on or as
    // -180 and 180: length 0, azimuths undefined.
    for (const auto& [lon1, lat1, lon2, lat2] : {std::array<double, 4>{20, 30, 20, 30},
                                                 {0, 0, 0, 0},
                                                 {0, -90, 0, -90},
                                                 {-180, 30, 180, 30},
                                                 {10, 45, 370, 45},
                                                 {10, -1, -710, -1}}) {
        SCOPED_TRACE(testing::Message() << lon1 << " " << lat1 << " " << lon2 << " " << lat2);
        const Inverse r = Solve(v, lon1, lat1, lon2, lat2);
        EXPECT_EQ(r.distance, 0.0);
        EXPECT_TRUE(std::isnan(r.azimuth1) && std::isnan(r.azimuth2));
    }
    // A pole under two longitudes: the rounding residue of cos(90 degrees).
    EXPECT_LT(Solve(v, 0, 90, 100, 90).distance, 1e-8);
}

// Longitude differences beyond a full turn are reduced by whole turns (the
// root search used to report that it found no root); within a full turn
// either way they are used as given, which is the same line.
TEST(VincentyLimits, LongitudeDifferenceBeyondAFullTurnIsReduced) {
    CGxVincenty v(kGxWgs84);
    for (const auto& [lat1, lat2, dLon, reduced] : {std::array<double, 4>{0, 0, 400, 40},
                                                    {10, 20, -400, -40},
                                                    {-30, 29.9, 540.05, 180.05},
                                                    {45, -10, 1e6, -80},
                                                    {30, 40, 360 + 190, 190},
                                                    {30, 40, 190, -170}}) {
        SCOPED_TRACE(testing::Message() << lat1 << " " << lat2 << " " << dLon);
        const Inverse far = Solve(v, 0, lat1, dLon, lat2);
        const Inverse near = Solve(v, 0, lat1, reduced, lat2);
        EXPECT_NEAR(far.distance, near.distance, 1e-6);
        EXPECT_NEAR(AngleDiff(far.azimuth1, near.azimuth1), 0.0, 1e-9);
        EXPECT_NEAR(AngleDiff(far.azimuth2, near.azimuth2), 0.0, 1e-9);
    }
}

TEST(VincentyLimits, BadInputGivesNaN) {
    CGxVincenty v(kGxWgs84);
    const double inf = std::numeric_limits<double>::infinity();
    for (const auto& [lon1, lon2, lat2] : {std::array<double, 3>{0, kNaN, 10.0},
                                           {0, 10.0, inf},
                                           {0, -inf, 0.0},
                                           {0, 10.0, 90.5},
                                           {0, 10.0, -1e300},
                                           {1.5e308, -1.5e308, 0.0}}) {
        const Inverse r = Solve(v, lon1, 0, lon2, lat2);
        EXPECT_TRUE(std::isnan(r.distance) && std::isnan(r.azimuth1) && std::isnan(r.azimuth2));
    }
    double lon = 0, lat = 0, azimuth = 0;
    v.GetPoint(0, 0, 45, inf, lon, lat, azimuth);
    EXPECT_TRUE(std::isnan(lat) && std::isnan(lon));
    v.GetPoint(0, kNaN, 45, 1000, lon, lat, azimuth);
    EXPECT_TRUE(std::isnan(lat) && std::isnan(lon));
    v.GetPoint(0, 91, 45, 1000, lon, lat, azimuth);
    EXPECT_TRUE(std::isnan(lat) && std::isnan(lon));
}

// A grid over the weak spots of the inverse, on the Earth and on a strongly
// flattened figure: every cell ends (well within a second; the slowest
// measured 30 microseconds) with a finite line no longer than the longest
// geodesic and no shorter than the triangle inequality allows, and its
// length is that of the way back.
//   echo "0 0 0 180" | GeodSolve -i -p 10   -> s12 20003931.4586254470, the
//   half meridian and the longest geodesic on the ellipsoid.
TEST(VincentyLimits, GridNearAntipodesEnds) {
    const double lats[] = {-90, -89.5, -80, -60, -45, -30, -10,  -1, 0,
                           1,   10,    30,  45,  60,  80,  89.5, 90};
    for (const CGxEllipsoid& e : {kGxWgs84, CGxEllipsoid("Flat", "FL", 6378137.0, 10.0)}) {
        CGxVincenty v(e);
        Inverse r, back;
        // The half meridian, over a pole between antipodes on the equator.
        ASSERT_EQ(SolveWithin1s(v, 0, 0, 180, 0, r), Outcome::kResult);
        const double halfMeridian = r.distance;
        for (double lat : lats) {
            for (double dLat : {0.0, 1e-9, 1e-6, 1e-3, 0.1, 0.5, -0.5}) {
                const double lat2 = std::max(-90.0, std::min(90.0, -lat + dLat));
                for (double dLon : {179.0, 179.5, 179.9, 179.99, 179.999, 180.0, 180.001, 180.5,
                                    181.0, -180.0, -179.5, 0.0}) {
                    SCOPED_TRACE(testing::Message() << e.GetInvFlatness() << ": " << lat << " "
                                                    << dLat << " " << dLon);
                    if (dLon == 0.0 && lat2 == lat) continue;  // the same point
                    ASSERT_EQ(SolveWithin1s(v, 0, lat, dLon, lat2, r), Outcome::kResult);
                    ASSERT_EQ(SolveWithin1s(v, dLon, lat2, 0, lat, back), Outcome::kResult);
                    EXPECT_LE(r.distance, halfMeridian * (1 + 1e-12));
                    EXPECT_NEAR(r.distance, back.distance, 1e-6);
                    if (dLon != 0.0) {
                        EXPECT_GT(r.distance, halfMeridian * 0.98);
                    }
                    EXPECT_TRUE(std::isfinite(r.azimuth1) && std::isfinite(r.azimuth2));
                }
            }
        }
    }
}
