#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/TransverseMercator.h"
#include "projections/TransverseMercatorJHS.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceCheck.h"
#include "tests/support/ReferenceFile.h"

namespace {

struct Grid {
    double k0, lon0, lat0, fe, fn;
    const CGxEllipsoid* ellipsoid;
};

// The grids of the reference tables and the PROJ definitions that produced them.
enum GridId { kUtm32N, kUtm32S, kWide, kIntl49, kIntlS35 };
const Grid kGrids[] = {
    {0.9996, 9, 0, 500000, 0, &kGxWgs84},         // +proj=utm +zone=32 +ellps=WGS84
    {0.9996, 9, 0, 500000, 10000000, &kGxWgs84},  // +proj=utm +zone=32 +south +ellps=WGS84
    {0.9996, 9, 0, 500000, 0,
     &kGxWgs84},  // +proj=tmerc +lon_0=9 +k=0.9996 +x_0=500000 +ellps=WGS84
    // +proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +ellps=intl
    {0.9996012717, -2, 49, 400000, -100000, &kGxInternational},
    // +proj=tmerc +lat_0=-35 +lon_0=147 +k=0.99994 +x_0=300000 +y_0=5000000 +ellps=intl
    {0.99994, 147, -35, 300000, 5000000, &kGxInternational},
};

// The reference tables of each grid, from the commands in their headers:
// tests/data/reference/transverse_mercator/<stem>_forward.txt (longitude,
// latitude to easting, northing) and <stem>_inverse.txt (easting, northing
// back to longitude, latitude).
struct Tables {
    GridId grid;
    std::vector<GxReferencePoint> forward, inverse;
};

Tables Read(GridId grid, const std::string& stem) {
    const std::string path = "transverse_mercator/" + stem;
    return {grid, GxReadReferencePoints(path + "_forward.txt"),
            GxReadReferencePoints(path + "_inverse.txt")};
}

const Tables kTables[] = {
    Read(kUtm32N, "utm32n_wgs84"),  Read(kUtm32S, "utm32s_wgs84"),    Read(kWide, "wide_wgs84"),
    Read(kIntl49, "origin49_intl"), Read(kIntlS35, "origin35s_intl"),
};

// A single reference value of a test below: input and expected output.
struct Case {
    GridId grid;
    double in1, in2, out1, out2;
};

// Ground distance in metres of a (longitude, latitude) error in degrees, so that
// inverse results are judged in the same unit as forward ones.
double GroundMetres(double dlon, double dlat, double lat) {
    constexpr double kMetresPerDegree = 111320.0;
    return std::hypot(dlon * std::cos(lat * kGxDegToRad), dlat) * kMetresPerDegree;
}

template <class P>
P Make(GridId id, const char* name = "TM test grid") {
    const Grid& g = kGrids[id];
    return P(name, g.k0, g.lon0, g.lat0, g.fe, g.fn, *g.ellipsoid);
}

template <class P>
class TransverseMercatorBoth : public ::testing::Test {};

struct ClassNames {
    template <class P>
    static std::string GetName(int) {
        return std::is_same<P, CGxTransverseMercatorJHS>::value ? "JHS" : "GaussKrueger";
    }
};
using BothClasses = ::testing::Types<CGxTransverseMercatorJHS, CGxTransverseMercator>;
TYPED_TEST_SUITE(TransverseMercatorBoth, BothClasses, ClassNames);

// Our fourth-order series agree with PROJ's exact algorithm to about 1
// micrometre within 10 degrees of the central meridian (worst seen: 1.3e-6 m);
// 0.1 mm leaves room while still catching any wrong coefficient or sign.
constexpr double kAgreement = 1e-4;

TYPED_TEST(TransverseMercatorBoth, ForwardAgreesWithProj) {
    for (const Tables& t : kTables) {
        const TypeParam p = Make<TypeParam>(t.grid);
        for (const GxReferencePoint& r : t.forward) {
            SCOPED_TRACE(::testing::Message()
                         << "grid " << t.grid << " at " << r.lon << ", " << r.lat);
            GxExpectForward(p, r, kAgreement);
        }
    }
}

TYPED_TEST(TransverseMercatorBoth, InverseAgreesWithProj) {
    for (const Tables& t : kTables) {
        const TypeParam p = Make<TypeParam>(t.grid);
        for (const GxReferencePoint& r : t.inverse) {
            double lon, lat;
            p.Proj2Geo(r.x, r.y, &lon, &lat);
            SCOPED_TRACE(::testing::Message() << "grid " << t.grid << " at " << r.x << ", " << r.y);
            EXPECT_LT(GroundMetres(lon - r.lon, lat - r.lat, r.lat), kAgreement)
                << lon << ", " << lat;
        }
    }
}

TYPED_TEST(TransverseMercatorBoth, InverseAfterForwardReturnsTheInput) {
    for (const Tables& t : kTables) {
        const TypeParam p = Make<TypeParam>(t.grid);
        for (const GxReferencePoint& r : t.forward) {
            SCOPED_TRACE(::testing::Message()
                         << "grid " << t.grid << " at " << r.lon << ", " << r.lat);
            GxExpectRoundTrip(p, r.lon, r.lat, kGxRoundTripTolerance);
        }
    }
}

TYPED_TEST(TransverseMercatorBoth, PointsBeyondNinetyDegreesCrossThePole) {
    // A fault in the fold would put these on the near side of the pole.
    // printf "129 40 0 0\n-111 40 0 0\n-100 -70 0 0\n" | cct -d 6 +proj=tmerc +lon_0=9
    //   +k=0.9996 +x_0=500000 +ellps=WGS84
    const Case forward[] = {{kWide, 129, 40, 5599725.502464, 13425047.205587},
                            {kWide, -111, 40, -4599725.502464, 13425047.205587},
                            {kWide, -100, -70, -1644840.251332, -10752147.371678}};
    // The same grid, cct -I -d 10; PROJ writes 189 degrees as -171.
    const Case inverse[] = {{kWide, 3000000, 12000000, 136.5282502699, 62.0005137230},
                            {kWide, -2000000, -14000000, -136.6065393724, -48.7380645608},
                            {kWide, 500000, 10100000, 189.0, 89.0861103236},
                            {kWide, 500000, -10100000, 189.0, -89.0861103236}};
    const TypeParam p = Make<TypeParam>(kWide);
    for (const Case& c : forward) {
        SCOPED_TRACE(::testing::Message() << c.in1 << ", " << c.in2);
        GxExpectForward(p, {c.in1, c.in2, c.out1, c.out2}, 1e-3);
    }
    for (const Case& c : inverse) {
        double lon, lat;
        p.Proj2Geo(c.in1, c.in2, &lon, &lat);
        EXPECT_LT(GroundMetres(lon - c.out1, lat - c.out2, c.out2), 1e-3) << lon << ", " << lat;
    }
}

TYPED_TEST(TransverseMercatorBoth, FarEastingsAndFlattenedFiguresLeaveTheSmallAngleForms) {
    // An easting of two Earth radii (eta' near 2) makes the inverse's
    // series corrections too large for their Taylor forms, and on a figure of
    // flattening 1/30 neither the latitude correction e atanh(e sin phi) nor
    // the Gaussian latitude step is small: these take the exact functions,
    // which a wrong sign or argument there would put degrees or kilometres
    // off. The fourth-order series themselves drift from PROJ by some metres
    // 78 degrees out and by centimetres on the flat figure.
    // printf "13198448.527762 4598981.407897 0 0\n" | cct -I -d 10 +proj=tmerc +lon_0=9
    //   +k=0.9996 +x_0=500000 +ellps=WGS84   (the image of 87 E, 10 N)
    const TypeParam utm = Make<TypeParam>(kWide);
    double lon, lat;
    utm.Proj2Geo(13198448.527762, 4598981.407897, &lon, &lat);
    EXPECT_NEAR(lon, 87.0000003994, 1e-4);
    EXPECT_NEAR(lat, 9.9999999384, 1e-4);
    // printf "12 30 0 0\n6 -60 0 0\n" | cct -d 6 +proj=tmerc +lon_0=9 +k=0.9996
    //   +x_0=500000 +a=6378137 +rf=30, and back with cct -I -d 10
    const CGxEllipsoid flat("flat", "FL", 6378137.0, 30.0);
    const TypeParam p("flat", 0.9996, 9, 0, 500000, 0, flat);
    const Case rows[] = {{kWide, 12, 30, 791571.218315, 3150097.593056},
                         {kWide, 6, -60, 328865.297485, -6430083.358009}};
    for (const Case& c : rows) {
        SCOPED_TRACE(::testing::Message() << c.in1 << ", " << c.in2);
        GxExpectForward(p, {c.in1, c.in2, c.out1, c.out2}, 0.1);
        p.Proj2Geo(c.out1, c.out2, &lon, &lat);
        EXPECT_LT(GroundMetres(lon - c.in1, lat - c.in2, c.in2), 0.5) << lon << ", " << lat;
    }
}

TYPED_TEST(TransverseMercatorBoth, PolarLatitudeOfOrigin) {
    // The origin's meridian arc is taken exactly at the poles.
    // echo "14 80 0 0" | cct -d 6 +proj=tmerc +lat_0=90 +lon_0=9 +k=0.9996 +x_0=500000
    //   +ellps=WGS84, and the same with +lat_0=-90 for "14 -80 0 0".
    const TypeParam north("N", 0.9996, 9, 90, 500000, 0, kGxWgs84);
    const TypeParam south("S", 0.9996, 9, -90, 500000, 0, kGxWgs84);
    double x, y;
    north.Geo2Proj(14, 80, &x, &y);
    EXPECT_NEAR(x, 596813.054774, 1e-4);
    EXPECT_NEAR(y, -1112216.235287, 1e-4);
    south.Geo2Proj(14, -80, &x, &y);
    EXPECT_NEAR(x, 596813.054774, 1e-4);
    EXPECT_NEAR(y, 1112216.235287, 1e-4);
}

TYPED_TEST(TransverseMercatorBoth, EveryMeridianMeetsAtThePole) {
    // echo "100 90 0 0" | cct -d 6 +proj=utm +zone=32 +ellps=WGS84 gives
    // 500000 9997964.943021.
    const TypeParam p = Make<TypeParam>(kUtm32N);
    double x, y;
    for (double l : {9.0, 100.0, -170.0}) {
        p.Geo2Proj(l, 90, &x, &y);
        EXPECT_NEAR(x, 500000.0, 1e-6);
        EXPECT_NEAR(y, 9997964.943021, 1e-4);
        p.Geo2Proj(l, -90, &x, &y);
        EXPECT_NEAR(y, -9997964.943021, 1e-4);
    }
}

TYPED_TEST(TransverseMercatorBoth, DefaultAreaAndOrigin) {
    // Projected corners of the +-3 degree box, from cct -d 6 on each grid:
    // UTM 32 at (6, -3) and (12, 3); the lat_0 = 49 grid at (-5, 46) and (1, 52);
    // +proj=tmerc +lat_0=88 +lon_0=20 +k=1 +ellps=intl at (17, 85) and (23, 90),
    // where the upper edge is clamped to the pole.
    struct AreaCase {
        TypeParam p;
        double lon0, lat0, x0, y0, x1, y1;
    };
    const AreaCase cases[] = {
        {Make<TypeParam>(kUtm32N), 9, 0, 166476.932992, -332050.474748, 833523.067008,
         332050.474748},
        {Make<TypeParam>(kIntl49), -2, 49, 167695.497563, -429043.259070, 605939.101712,
         237845.196472},
        {TypeParam("P", 1, 20, 88, 0, 0, kGxInternational), 20, 88, -29191.989406, -334324.934391,
         0.0, 223399.010523},
    };
    for (const AreaCase& c : cases) {
        double lon, lat, x0, y0, x1, y1;
        c.p.GetOrigin(&lon, &lat);
        EXPECT_NEAR(lon, c.lon0, 1e-12);
        EXPECT_NEAR(lat, c.lat0, 1e-12);
        c.p.GetDefaultArea(&x0, &y0, &x1, &y1);
        EXPECT_NEAR(x0, c.x0, 1e-4);
        EXPECT_NEAR(y0, c.y0, 1e-4);
        EXPECT_NEAR(x1, c.x1, 1e-4);
        EXPECT_NEAR(y1, c.y1, 1e-4);
    }
}

TYPED_TEST(TransverseMercatorBoth, LocalGridIsTheIdentity) {
    // An empty name stands for the local grid, and the local grid ignores every
    // parameter, the latitude of origin included.
    for (const char* name : {"", "NON-UTM"}) {
        const TypeParam p(name, 0.9996, 9, 49, 500000, 1000000, kGxWgs84);
        EXPECT_STREQ(p.GetName(), "NON-UTM");
        EXPECT_TRUE(p.IsLocal());
        GxExpectIdentity(p, 1234.5, -678.25);
        EXPECT_EQ(p.GetConvergence(12, 50), 0.0);
        double x0, y0, x1, y1;
        p.GetDefaultArea(&x0, &y0, &x1, &y1);
        EXPECT_EQ(x0, 0.0);
        EXPECT_EQ(y0, 0.0);
        EXPECT_EQ(x1, 10000.0);
        EXPECT_EQ(y1, 10000.0);
    }
}

TYPED_TEST(TransverseMercatorBoth, ConvergenceAgreesWithGeographicLib) {
    // gamma from: printf "<lat> <lon>\n" | TransverseMercatorProj -l 9 -k 0.9996 -p 12
    // Our fifth-order series drifts from the exact value far from the
    // central meridian, hence the wider tolerance 10 degrees out.
    struct {
        double lon, lat, gamma, tolerance;
    } const cases[] = {{12, 50, 2.2990084351375288, 1e-7},
                       {6, -30, 1.5010444526225555, 1e-7},
                       {9.5, 1, 0.0087264291670837, 1e-9},
                       {4, 75, -4.8304504955846950, 1e-7},
                       {19, 60, 8.6823134346472113, 5e-6}};
    const TypeParam p = Make<TypeParam>(kUtm32N);
    for (const auto& c : cases) {
        EXPECT_NEAR(p.GetConvergence(c.lon, c.lat), c.gamma, c.tolerance) << c.lon << ", " << c.lat;
    }
}

TEST(TransverseMercatorJHS, LongitudesWrapAroundTheCentralMeridian) {
    // lon0 + 359 is lon0 - 1, and 189.5 east is 170.5 west.
    // printf "8 50 0 0\n-170.5 -20 0 0\n" | cct -d 6 +proj=utm +zone=32 +ellps=WGS84
    const auto p = Make<CGxTransverseMercatorJHS>(kUtm32N);
    double x, y;
    for (double lon : {8.0, 368.0, -352.0, 728.0}) {
        p.Geo2Proj(lon, 50, &x, &y);
        EXPECT_NEAR(x, 428333.552497, 1e-4) << lon;
        EXPECT_NEAR(y, 5539109.815299, 1e-4) << lon;
    }
    p.Geo2Proj(189.5, -20, &x, &y);
    EXPECT_NEAR(x, 447696.874234, 1e-3);
    EXPECT_NEAR(y, -17784370.522707, 1e-3);
}

TEST(TransverseMercator, EquatorBeyondNinetyDegrees) {
    // On the equator more than 90 degrees from the central meridian the JHS
    // class folds over the south pole and the Gauss-Krueger class over the
    // north pole. echo "140 0 0 0" | cct -d 6 +proj=tmerc +lon_0=9 +k=0.9996
    // +x_0=500000 +ellps=WGS84 gives 6780665.243178 19995929.886042.
    const auto jhs = Make<CGxTransverseMercatorJHS>(kWide);
    const auto gk = Make<CGxTransverseMercator>(kWide);
    double x, y, lon, lat;
    jhs.Geo2Proj(140, 0, &x, &y);
    EXPECT_NEAR(x, 6780665.243178, 1e-3);
    EXPECT_NEAR(y, -19995929.886042, 1e-3);
    // 131 degrees out the series round trip is good to about 1e-9 degrees.
    jhs.Proj2Geo(x, y, &lon, &lat);
    EXPECT_NEAR(lon, 140, 1e-8);
    EXPECT_NEAR(lat, 0, 1e-8);
    gk.Geo2Proj(140, 0, &x, &y);
    EXPECT_NEAR(x, 6780665.243178, 1e-3);
    EXPECT_NEAR(y, 19995929.886042, 1e-3);
}

TEST(TransverseMercator, NorthingsFoldBeyondThePoles) {
    // Latitude 95 is projected as 85 on the far side, k0 B pi (the northing of
    // the antipodal equator point, 19995929.886042 above) less its northing, and
    // then folded to 20000 km less that: y(85) + 20000000 - 19995929.886042,
    // with y(85) = 9439732.736610 from echo "9 85 0 0" | cct -d 6 +proj=utm
    // +zone=32 +ellps=WGS84. Below -90 the same value is negated.
    const auto p = Make<CGxTransverseMercator>(kUtm32N);
    const double folded = 9439732.736610 + 20000000 - 19995929.886042;
    double x, y;
    p.Geo2Proj(9, 95, &x, &y);
    EXPECT_NEAR(x, 500000, 1e-6);
    EXPECT_NEAR(y, folded, 1e-3);
    p.Geo2Proj(9, -95, &x, &y);
    EXPECT_NEAR(y, -folded, 1e-3);
}

TEST(TransverseMercator, ScaleFactorKeepsItsFourthOrderTerm) {
    // WGS 84, k0 0.9996, lon0 9, at (17, 30): dl = 8 deg = 0.13962634015954636,
    // dl^2 = 0.019495514866349350, dl^4 = 3.8007509990404853e-4;
    // e^2 = f (2 - f) = 0.0066943799901413170,
    // eta^2 = (1 - e^2 sin^2 phi)/(1 - e^2) - 1 = 0.0050546225567073262;
    // cos^2 phi = 0.75, tan^2 phi = 1/3; eta^2 phi = 0.0026465941818034990,
    // tan^2 of that = 7.0044934715996803e-6.
    // second-order term: 0.75 (1 + eta^2) dl^2 / 2 = 0.0073477715008302835
    // bracket: 5 - 4/3 + 14 eta^2 - 28 tan^2(eta^2 phi) = 3.7372352566433644
    // fourth-order term: 0.5625 dl^4 bracket = 7.9899191073768329e-4
    // k = 0.9996 (1 + 0.0073477715008302835 + 7.9899191073768329e-4)
    //   = 1.0077435047062033
    const auto p = Make<CGxTransverseMercator>(kUtm32N);
    EXPECT_NEAR(p.GetScaleFactor(17, 30), 1.0077435047062033, 1e-13);
    EXPECT_EQ(p.GetScaleFactor(9, 30), 0.9996);
}

}  // namespace
