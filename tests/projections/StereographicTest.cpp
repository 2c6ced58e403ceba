// Oblique stereographic on the ellipsoid and its polar aspect, against PROJ.
//
// The oblique aspect is the double projection through the Gauss conformal
// sphere; PROJ's "sterea" works on the same sphere (chi0 = asin(sin(lat0) / n),
// R = sqrt(rho0 nu0)), so the two agree to the micrometre, whereas PROJ's
// "stere" with an oblique origin is a different (single-step) projection. The
// polar aspect is compared with PROJ's "stere" at lat_0 = +-90 with k_0.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/Stereographic.h"
#include "tests/support/ReferenceCheck.h"

namespace {

// The ellipsoids as PROJ defines them (+ellps=...).
const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
const CGxEllipsoid kGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);
const CGxEllipsoid kBessel("Bessel 1841", "BR", 6377397.155, 299.1528128);
const CGxEllipsoid kKrassowsky("Krassowsky 1940", "KA", 6378245.0, 298.3);
const CGxEllipsoid kInternational("International 1924", "IN", 6378388.0, 297.0);

// The Dutch RD geometry on Bessel 1841.
// cct -d 6 +proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.9999079 +x_0=155000
// +y_0=463000 +ellps=bessel
const GxReferencePoint kDutch[] = {
    {1.5, 49.0, -129533.610613, 119354.700140},
    {1.5, 50.5, -120736.560697, 286076.948867},
    {1.5, 52.15616055555555, -110919.443898, 470126.963713},
    {1.5, 53.75, -101364.775078, 647290.822245},
    {1.5, 56.0, -87690.554448, 897588.953687},
    {3.25, 49.0, -1485.456983, 114148.173060},
    {3.25, 50.5, 3351.152710, 280978.980647},
    {3.25, 52.15616055555555, 8748.708647, 465154.696921},
    {3.25, 53.75, 14002.083791, 642445.425770},
    {3.25, 56.0, 21520.681542, 892932.740714},
    {5.38763888888889, 49.0, 155000.000000, 111892.029652},
    {5.38763888888889, 50.5, 155000.000000, 278769.847303},
    {5.38763888888889, 52.15616055555555, 155000.000000, 463000.000000},
    {5.38763888888889, 53.75, 155000.000000, 640345.674456},
    {5.38763888888889, 56.0, 155000.000000, 890914.926972},
    {7.125, 49.0, 282187.157400, 113382.332790},
    {7.125, 50.5, 278256.273201, 280229.099936},
    {7.125, 52.15616055555555, 273869.474418, 464423.296758},
    {7.125, 53.75, 269599.842985, 641732.678815},
    {7.125, 56.0, 263489.149315, 892247.809990},
    {9.5, 49.0, 455970.000932, 120242.464195},
    {9.5, 50.5, 446664.281645, 286946.192374},
    {9.5, 52.15616055555555, 436279.549973, 470974.763046},
    {9.5, 53.75, 426172.478758, 648116.978954},
    {9.5, 56.0, 411707.749439, 898382.839486},
};

// The Romanian Stereo 70 geometry on Krassowsky 1940.
// cct -d 6 +proj=sterea +lat_0=46 +lon_0=25 +k=0.99975 +x_0=500000 +y_0=500000 +ellps=krass
const GxReferencePoint kRomania[] = {
    {18.0, 41.5, -84918.065809, 24635.410558},    {18.0, 44.0, -61133.477104, 302037.702874},
    {18.0, 46.0, -41744.296780, 523835.011677},   {18.0, 48.25, -19531.664451, 773404.926878},
    {18.0, 51.0, 8217.247358, 1078771.816898},    {21.5, 41.5, 207421.703580, 6063.280049},
    {21.5, 44.0, 219302.170567, 283830.861766},   {21.5, 46.0, 228988.163662, 505956.251899},
    {21.5, 48.25, 240085.784179, 755934.346360},  {21.5, 51.0, 253951.107726, 1061858.003716},
    {25.0, 41.5, 500000.000000, -123.076568},     {25.0, 44.0, 500000.000000, 277765.702277},
    {25.0, 46.0, 500000.000000, 500000.000000},   {25.0, 48.25, 500000.000000, 750113.647474},
    {25.0, 51.0, 500000.000000, 1056222.282941},  {29.75, 41.5, 897025.199197, 11272.870443},
    {29.75, 44.0, 880897.201357, 288938.204686},  {29.75, 46.0, 867748.648377, 510971.736952},
    {29.75, 48.25, 852684.277007, 760835.521556}, {29.75, 51.0, 833863.569571, 1066603.220768},
    {33.0, 41.5, 1168366.171570, 32221.497470},   {33.0, 44.0, 1141172.763204, 309473.959116},
    {33.0, 46.0, 1119005.691931, 531136.770870},  {33.0, 48.25, 1093611.730115, 780539.426350},
    {33.0, 51.0, 1061890.190831, 1085678.273689},
};

// A southern origin on GRS 80.
// cct -d 6 +proj=sterea +lat_0=-33.5 +lon_0=-70.75 +k=1 +x_0=200000 +y_0=600000 +ellps=GRS80
const GxReferencePoint kChile[] = {
    {-80.0, -45.0, -536355.009133, -718913.273019}, {-80.0, -38.25, -611016.879243, 34171.683802},
    {-80.0, -33.5, -659697.467067, 561614.071461},  {-80.0, -27.0, -721530.563052, 1283723.579381},
    {-80.0, -20.0, -782301.741002, 2066732.809367}, {-74.5, -45.0, -98637.565091, -687245.575785},
    {-74.5, -38.25, -128809.085108, 66340.495523},  {-74.5, -33.5, -148470.622502, 593703.635178},
    {-74.5, -27.0, -173432.121662, 1315173.336794}, {-74.5, -20.0, -197951.655269, 2096852.099913},
    {-70.75, -45.0, 200000.000000, -681027.934340}, {-70.75, -38.25, 200000.000000, 72654.033668},
    {-70.75, -33.5, 200000.000000, 600000.000000},  {-70.75, -27.0, 200000.000000, 1321342.148437},
    {-70.75, -20.0, 200000.000000, 2102758.047221}, {-66.0, -45.0, 578257.019606, -691005.501296},
    {-66.0, -38.25, 616488.848560, 62522.182667},   {-66.0, -33.5, 641404.569084, 589895.450548},
    {-66.0, -27.0, 673038.400720, 1311441.978438},  {-66.0, -20.0, 704114.123250, 2093279.439851},
    {-60.0, -45.0, 1055623.648384, -732227.519837}, {-60.0, -38.25, 1142509.375468, 20640.410526},
    {-60.0, -33.5, 1199173.075717, 548112.008146},  {-60.0, -27.0, 1271160.943365, 1270485.586816},
    {-60.0, -20.0, 1341928.620463, 2054050.009003},
};

// North polar aspect with a given scale at the pole (the UPS geometry).
// cct -d 6 +proj=stere +lat_0=90 +k_0=0.994 +lon_0=0 +x_0=2000000 +y_0=2000000 +ellps=WGS84
const GxReferencePoint kNorthPolar[] = {
    {-170.0, 60.0, 1408575.020078, 5354137.736302}, {-170.0, 70.25, 1615574.965070, 4180182.711604},
    {-170.0, 84.0, 1884223.949255, 2656598.611736}, {-170.0, 89.5, 1990360.399663, 2054668.890137},
    {-90.0, 60.0, -1405880.717371, 2000000.000000}, {-90.0, 70.25, -213815.544136, 2000000.000000},
    {-90.0, 84.0, 1333272.296316, 2000000.000000},  {-90.0, 89.5, 1944487.754112, 2000000.000000},
    {0.0, 60.0, 2000000.000000, -1405880.717371},   {0.0, 70.25, 2000000.000000, -213815.544136},
    {0.0, 84.0, 2000000.000000, 1333272.296316},    {0.0, 89.5, 2000000.000000, 1944487.754112},
    {45.5, 60.0, 4429245.951431, -387213.347906},   {45.5, 70.25, 3579004.931199, 448316.175664},
    {45.5, 84.0, 2475543.834116, 1532684.375723},   {45.5, 89.5, 2039594.134313, 1961090.952575},
    {135.0, 60.0, 4408321.351166, 4408321.351166},  {135.0, 70.25, 3565403.983554, 3565403.983554},
    {135.0, 84.0, 2471447.680480, 2471447.680480},  {135.0, 89.5, 2039253.085506, 2039253.085506},
    {179.5, 60.0, 2029721.538983, 5405751.031870},  {179.5, 70.25, 2019318.939933, 4213731.248823},
    {179.5, 84.0, 2005818.222974, 2666702.316736},  {179.5, 89.5, 2000484.429584, 2055510.132151},
};

// South polar aspect with a given scale at the pole.
// cct -d 6 +proj=stere +lat_0=-90 +k_0=0.97 +lon_0=-30 +x_0=1500000 +y_0=2500000 +ellps=intl
const GxReferencePoint kSouthPolar[] = {
    {-179.0, -55.0, -513761.671975, -851462.233012},
    {-179.0, -66.5, 170657.043202, 287601.791993},
    {-179.0, -80.0, 940598.187248, 1568999.040647},
    {-179.0, -89.75, 1486049.017950, 2476781.666816},
    {-90.0, -55.0, -1886096.776248, 4454963.885269},
    {-90.0, -66.5, -735261.482620, 3790528.818700},
    {-90.0, -80.0, 559377.928804, 3043068.406011},
    {-90.0, -89.75, 1476541.724872, 2513543.641460},
    {-30.0, -55.0, 1500000.000000, 6409927.770537},
    {-30.0, -66.5, 1500000.000000, 5081057.637400},
    {-30.0, -80.0, 1500000.000000, 3586136.812021},
    {-30.0, -89.75, 1500000.000000, 2527087.282920},
    {0.0, -55.0, 3454963.885269, 5886096.776248},
    {0.0, -66.5, 2790528.818700, 4735261.482620},
    {0.0, -80.0, 2043068.406011, 3440622.071196},
    {0.0, -89.75, 1513543.641460, 2523458.275128},
    {77.5, -55.0, 5228964.390963, 1324262.043757},
    {77.5, -66.5, 3961598.419646, 1723860.999579},
    {77.5, -80.0, 2535867.088456, 2173392.361570},
    {77.5, -89.75, 1525833.600870, 2491854.696933},
    {151.0, -55.0, 1431762.351408, -1409332.269600},
    {151.0, -66.5, 1454954.333074, -80664.529820},
    {151.0, -80.0, 1481044.298910, 1414028.611876},
    {151.0, -89.75, 1499527.261729, 2472916.842605},
};

CGxStereographic Dutch() {
    return CGxStereographic("RD", 0.9999079, 5.38763888888889, 52.15616055555555, 155000, 463000,
                            kBessel);
}

CGxStereographic NorthPolar(double lat0 = 90) {
    return CGxStereographic("UPS North", 0.994, 0, lat0, 2000000, 2000000, kWgs84);
}

CGxStereographic SouthPolar(double lat0 = -90) {
    return CGxStereographic("South", 0.97, -30, lat0, 1500000, 2500000, kInternational);
}

}  // namespace

TEST(Stereographic, ObliqueAspectAgreesWithProjOnThreeEllipsoids) {
    GxExpectReferenceTable(Dutch(), kDutch, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxStereographic("Stereo 70", 0.99975, 25, 46, 500000, 500000, kKrassowsky), kRomania,
        kGxMillimetreTable);
    GxExpectReferenceTable(CGxStereographic("Chile", 1, -70.75, -33.5, 200000, 600000, kGrs80),
                           kChile, kGxMillimetreTable);
}

TEST(Stereographic, PolarAspectAgreesWithProj) {
    GxExpectReferenceTable(NorthPolar(), kNorthPolar, kGxMillimetreTable);
    GxExpectReferenceTable(SouthPolar(), kSouthPolar, kGxMillimetreTable);
}

TEST(Stereographic, PolarAspectSwitchUsesTheRelativeTolerance) {
    // 89.9999999999999 differs from 90 by about 1e-15 relative: it is the pole
    // and selects the polar formulas, and so does -89.9999999999999.
    GxExpectReferenceTable(NorthPolar(89.9999999999999), kNorthPolar, kGxMillimetreTable);
    GxExpectReferenceTable(SouthPolar(-89.9999999999999), kSouthPolar, kGxMillimetreTable);

    // 1e-8 degrees (about a millimetre) short of the pole is no longer near
    // it: the oblique formulas take over, and they must still give the polar
    // map to within the millimetre the origin moved.
    const CGxStereographic oblique = NorthPolar(90 - 1e-8);
    for (const GxReferencePoint& r : kNorthPolar) {
        SCOPED_TRACE(testing::Message() << r.lon << " " << r.lat);
        GxExpectForward(oblique, r, 3e-3);
    }
    // The default area tells the aspects apart: the polar one is the +-200 km
    // square around the pole, the oblique one the +-3 degree box around its
    // origin, from (-3, 87 - 1e-8) to (3, 90):
    // cct -d 6 +proj=stere +lat_0=90 +k_0=0.994 +lon_0=0 +x_0=2000000
    //   +y_0=2000000 +ellps=WGS84 <<< "-3 87 0 0" -> 1982564.564787 1667312.077493
    double x0, y0, x1, y1;
    NorthPolar(89.9999999999999).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1800000);
    EXPECT_DOUBLE_EQ(y1, 2200000);
    oblique.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 1982564.564787, 5e-3);
    EXPECT_NEAR(y0, 1667312.077493, 5e-3);
    EXPECT_NEAR(x1, 2000000, 5e-3);
    EXPECT_NEAR(y1, 2000000, 5e-3);
}

TEST(Stereographic, ObliqueAspectStaysAccurateAsTheOriginNearsThePole) {
    // Between 1e-12 and a hundredth of a degree from a pole the oblique
    // formulas are still in charge; the map must tend smoothly to the polar
    // one, differing by about the distance the origin moved (111 km per
    // degree; allow 1.2 times that, plus a millimetre), not break down.
    // Polar values from kNorthPolar and kSouthPolar.
    struct {
        CGxStereographic (*make)(double);
        double pole, lon, lat, x, y;
    } cases[] = {{NorthPolar, 90, 45.5, 70.25, 3579004.931199, 448316.175664},
                 {SouthPolar, -90, -179, -66.5, 170657.043202, 287601.791993}};
    for (const auto& c : cases) {
        for (double offset : {1e-2, 1e-4, 1e-6, 1e-8, 1e-10}) {
            SCOPED_TRACE(testing::Message() << "origin " << c.pole << " offset " << offset);
            const CGxStereographic p = c.make(c.pole - std::copysign(offset, c.pole));
            double x, y, lon, lat;
            p.Geo2Proj(c.lon, c.lat, &x, &y);
            const double tolerance = 111000 * offset * 1.2 + 1e-3;
            EXPECT_NEAR(x, c.x, tolerance);
            EXPECT_NEAR(y, c.y, tolerance);
            p.Proj2Geo(x, y, &lon, &lat);
            EXPECT_NEAR(lon, c.lon, 1e-9);
            EXPECT_NEAR(lat, c.lat, 1e-9);
        }
    }
}

TEST(Stereographic, PolesAreOrdinaryPointsOfTheObliqueAspect) {
    // cct -d 6 +proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889
    //   +k=0.9999079 +x_0=155000 +y_0=463000 +ellps=bessel
    //   5.38763888888889 90  -> 155000   4842954.188318
    //   5.38763888888889 -90 -> 155000 -36734327.960018
    const GxReferencePoint poles[] = {{5.38763888888889, 90, 155000, 4842954.188318},
                                      {5.38763888888889, -90, 155000, -36734327.960018}};
    const CGxStereographic p = Dutch();
    for (const GxReferencePoint& r : poles) {
        GxExpectForward(p, r, 1e-3);
        double lon, lat;
        p.Proj2Geo(r.x, r.y, &lon, &lat);
        EXPECT_NEAR(lat, r.lat, 1e-9);
    }
}

TEST(Stereographic, OriginConvergenceAndDefaultArea) {
    double lon, lat;
    Dutch().GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 5.38763888888889, 1e-12);
    EXPECT_NEAR(lat, 52.15616055555555, 1e-12);
    NorthPolar(89.9999999999999).GetOrigin(&lon, &lat);
    EXPECT_NEAR(lat, 89.9999999999999, 1e-12);

    // proj -V, PROJ's "Convergence" line, same parameters as the tables:
    //   RD     9.5 56 -> 3.33265534;  1.5 49 -> -3.00478751;  7.125 50.5 -> 1.35660618
    //   Chile  -60 -20 -> -4.88484889; -80 -45 -> 5.89052211
    //   UPS N  45.5 70.25 -> 45.5;  -90 60 -> -90
    // The convergence is taken along a one-arc-minute chord of the meridian,
    // which on this map is a curve: the chord leans off the tangent by up to
    // 7e-4 degrees at these points.
    const CGxStereographic dutch = Dutch();
    EXPECT_NEAR(dutch.GetConvergence(9.5, 56), 3.33265534, 1e-3);
    EXPECT_NEAR(dutch.GetConvergence(1.5, 49), -3.00478751, 1e-3);
    EXPECT_NEAR(dutch.GetConvergence(7.125, 50.5), 1.35660618, 1e-3);
    const CGxStereographic chile("Chile", 1, -70.75, -33.5, 200000, 600000, kGrs80);
    EXPECT_NEAR(chile.GetConvergence(-60, -20), -4.88484889, 1e-3);
    EXPECT_NEAR(chile.GetConvergence(-80, -45), 5.89052211, 1e-3);
    EXPECT_NEAR(NorthPolar().GetConvergence(45.5, 70.25), 45.5, 1e-9);
    EXPECT_NEAR(NorthPolar().GetConvergence(-90, 60), -90, 1e-9);

    // Oblique: the +-3 degree box around the origin.
    // cct -d 6 (RD parameters as above)
    //   2.38763888888889 49.15616055555555 ->  -63891.378696 133702.100427
    //   8.38763888888889 55.15616055555555 ->  346284.338539 800938.347499
    double x0, y0, x1, y1;
    dutch.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, -63891.378696, 1e-3);
    EXPECT_NEAR(y0, 133702.100427, 1e-3);
    EXPECT_NEAR(x1, 346284.338539, 1e-3);
    EXPECT_NEAR(y1, 800938.347499, 1e-3);

    // Polar: +-200 km around the easting of the pole, in both axes (the
    // northing limits come from the easting too).
    CGxStereographic("P", 0.994, 0, 90, 2000000, 0, kWgs84).GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1800000);
    EXPECT_DOUBLE_EQ(y0, 1800000);
    EXPECT_DOUBLE_EQ(x1, 2200000);
    EXPECT_DOUBLE_EQ(y1, 2200000);
    SouthPolar().GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_DOUBLE_EQ(x0, 1300000);
    EXPECT_DOUBLE_EQ(y0, 1300000);
    EXPECT_DOUBLE_EQ(x1, 1700000);
    EXPECT_DOUBLE_EQ(y1, 1700000);
}

TEST(Stereographic, LocalGridIsTheIdentity) {
    for (double lat0 : {52.0, 90.0}) {
        const CGxStereographic p("", 1, 5, lat0, 155000, 463000, kBessel);
        EXPECT_STREQ(p.GetName(), "NON-UTM");
        EXPECT_TRUE(p.IsLocal());
        GxExpectIdentity(p, 1234.5, -678.25);
        EXPECT_EQ(p.GetConvergence(5, 52), 0.0);
    }
    EXPECT_FALSE(Dutch().IsLocal());
}

TEST(Stereographic, AnonymousEllipsoidCloneAndNoDerivedParameter) {
    CGxEllipsoid out;
    ASSERT_TRUE(Dutch().GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6377397.155);
    EXPECT_NEAR(out.GetInvFlatness(), 299.1528128, 1e-10);
    EXPECT_FALSE(CGxStereographic("N", 1, 0, 45, 0, 0, CGxEllipsoid("N", "N", 0, 0))
                     .GetAnonymousEllipsoid(out));

    // The scale factor is given, not derived: nothing is written.
    double derived = -7;
    Dutch().GetDerivedParameters(&derived);
    EXPECT_EQ(derived, -7);

    std::unique_ptr<CGxProjection> oblique(Dutch().Clone());
    GxExpectReferenceTable(*oblique, kDutch, kGxMillimetreTable);
    std::unique_ptr<CGxProjection> polar(NorthPolar().Clone());
    GxExpectReferenceTable(*polar, kNorthPolar, kGxMillimetreTable);
}

TEST(Stereographic, NotANumberStaysNotANumber) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const CGxStereographic& p : {Dutch(), NorthPolar(), SouthPolar()}) {
        double x, y;
        p.Geo2Proj(nan, 50, &x, &y);
        EXPECT_TRUE(std::isnan(x));
        EXPECT_TRUE(std::isnan(y));
        p.Proj2Geo(nan, nan, &x, &y);
        EXPECT_TRUE(std::isnan(y));
    }
}
