#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Ellipsoid.h"
#include "projections/EquidistantConic.h"
#include "tests/support/ReferenceCheck.h"

namespace {

const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
const CGxEllipsoid kIntl("International 1924", "IN", 6378388.0, 297.0);
const CGxEllipsoid kClarke66("Clarke 1866", "CC", 6378206.4, 294.978698213898);

CGxEllipsoid Sphere(double radius) {
    return CGxEllipsoid("Sphere", "SP", radius, 0.0);
}

// The meridian arc here is a series in e^2 to third order against PROJ's
// fourth: the forward stays within 0.5 mm of PROJ over these tables.
constexpr double kEllipsoidForwardTolerance = 1e-3;  // metres
constexpr double kSphereForwardTolerance = 1e-5;     // metres
// The footpoint series inverts the exact arc, the forward uses the third-order
// one: inverse and round trip measured within 3.3e-9 degrees (0.4 mm) up to
// 52 degrees of latitude and 7.4e-9 degrees (0.8 mm) from 60 to 80; the
// spherical inverse is closed.
constexpr double kEllipsoidInverseTolerance = 1e-8;  // degrees
constexpr double kSphereInverseTolerance = 1e-10;    // degrees

// Each row: echo "lon lat 0 0" | <command>.
// cct -d 6 +proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=500000 +y_0=100000
// +a=6378137 +rf=298.257223563
const GxReferencePoint kConusWgs84[] = {
    {-125, 22, -2519227.472106, 456615.813620},  {-110, 22, -975310.321318, 98841.590647},
    {-85, 22, 1660800.844444, 56958.427224},     {-70, 22, 3215304.646348, 365504.198528},
    {-125, 32, -2184218.851767, 1512811.042987}, {-110, 32, -811612.262830, 1194734.871896},
    {-85, 32, 1532000.251253, 1157498.996868},   {-70, 32, 2914018.813539, 1431809.026045},
    {-125, 42, -1848686.430451, 2570657.680883}, {-110, 42, -647658.255099, 2292341.631356},
    {-85, 42, 1402998.272568, 2259760.310966},   {-70, 42, 2612261.906841, 2499781.068902},
    {-125, 52, -1512572.843258, 3630336.583950}, {-110, 52, -483420.267434, 3391849.523328},
    {-85, 52, 1273772.853335, 3363930.819595},   {-70, 52, 2309982.335845, 3569602.914847},
};

// cct -d 6 +proj=eqdc +lat_1=-18 +lat_2=-36 +lat_0=0 +lon_0=132 +x_0=1000000 +y_0=2000000
// +a=6378388 +rf=297
const GxReferencePoint kSouthernIntl[] = {
    {105, -10, -2025147.413943, 570597.566896},   {120, -10, -352714.725152, 830030.067163},
    {145, -10, 2465060.438856, 818910.906005},    {160, -10, 4135393.593789, 546287.590302},
    {105, -22, -1744311.866570, -727332.021076},  {120, -22, -227137.247993, -491983.592839},
    {145, -22, 2329053.496389, -502070.521421},   {160, -22, 3844323.488549, -749385.213240},
    {105, -34, -1463069.550187, -2027141.561702}, {120, -34, -101377.881374, -1815912.089449},
    {145, -34, 2192849.558173, -1824965.290342},  {160, -34, 3552831.790318, -2046934.700654},
    {105, -46, -1181282.795933, -3329467.315208}, {120, -46, 24624.934250, -3142403.489185},
    {145, -46, 2056381.952017, -3150420.961268},  {160, -46, 3260775.813135, -3346996.025866},
};

// cct -d 6 +proj=eqdc +lat_1=60 +lat_2=60 +lat_0=50 +lon_0=10 +x_0=300000 +y_0=-400000 +a=6378206.4
// +rf=294.978698213898
const GxReferencePoint kTangentClarke[] = {
    {-20, 45, -2048481.395674, -414126.544718}, {0, 45, -507230.074875, -894778.124625},
    {20, 45, 1107230.074875, -894778.124625},   {40, 45, 2648481.395674, -414126.544718},
    {-20, 60, -1317282.745466, 1086331.311269}, {0, 60, -255899.345901, 755330.389484},
    {20, 60, 855899.345901, 755330.389484},     {40, 60, 1917282.745466, 1086331.311269},
    {-20, 70, -828862.126420, 2088595.955311},  {0, 70, -88017.320687, 1857557.563626},
    {20, 70, 688017.320687, 1857557.563626},    {40, 70, 1428862.126420, 2088595.955311},
    {-20, 80, -339887.242689, 3091997.979460},  {0, 80, 80055.218756, 2961035.556370},
    {20, 80, 519944.781244, 2961035.556370},    {40, 80, 939887.242689, 3091997.979460},
};

// cct -d 6 +proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=500000 +y_0=100000
// +R=6371000
const GxReferencePoint kConusSphere[] = {
    {-125, 22, -2514801.439516, 455434.108334},  {-110, 22, -973144.664405, 98213.931136},
    {-85, 22, 1659096.600011, 56395.673794},     {-70, 22, 3211322.765611, 364463.520333},
    {-125, 32, -2178641.124649, 1515352.696650}, {-110, 32, -808884.170251, 1197963.748690},
    {-85, 32, 1529853.501970, 1160808.365118},   {-70, 32, 2909001.324919, 1434525.629580},
    {-125, 42, -1842480.809782, 2575271.284966}, {-110, 42, -644623.676097, 2297713.566244},
    {-85, 42, 1400610.403930, 2265221.056442},   {-70, 42, 2606679.884228, 2504587.738828},
    {-125, 52, -1506320.494916, 3635189.873282}, {-110, 52, -480363.181943, 3397463.383797},
    {-85, 52, 1271367.305889, 3369633.747766},   {-70, 52, 2304358.443536, 3574649.848075},
};

// cct -d 6 +proj=eqdc +lat_1=-18 +lat_2=-36 +lat_0=0 +lon_0=132 +x_0=1000000 +y_0=2000000
// +R=6370997
const GxReferencePoint kSouthernSphere[] = {
    {105, -10, -2021865.049223, 564909.733673},   {120, -10, -351244.842580, 824026.685071},
    {145, -10, 2463468.578887, 812921.056645},    {160, -10, 4131992.079144, 540629.304222},
    {105, -22, -1739717.850344, -739257.497873},  {120, -22, -225081.052628, -504333.924018},
    {145, -22, 2326826.619880, -514402.635871},   {160, -22, 3839562.477673, -761270.898505},
    {105, -34, -1457570.651465, -2043424.729420}, {120, -34, -98917.262676, -1832694.533107},
    {145, -34, 2190184.660873, -1841726.328387},  {160, -34, 3547132.876203, -2063171.101231},
    {105, -46, -1175423.452586, -3347591.960966}, {120, -46, 27246.527276, -3161055.142196},
    {145, -46, 2053542.701866, -3169050.020902},  {160, -46, 3254703.274733, -3365071.303957},
};

// cct -d 6 +proj=eqdc +lat_1=60 +lat_2=60 +lat_0=50 +lon_0=10 +x_0=300000 +y_0=-400000 +R=6371000
const GxReferencePoint kTangentSphere[] = {
    {-20, 45, -2042016.141176, -415691.726664},
    {40, 45, 2642016.141176, -415691.726664},
    {-20, 80, -337128.060691, 3082827.742997},
    {40, 80, 937128.060691, 3082827.742997},
};

// cct -d 6 +proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=500000 +y_0=100000
// +a=6378137 +rf=298.257223563
const GxReferencePoint kConusCorners[] = {
    {-101, 18, -52024.208639, -438935.636111},
    {-91, 28, 993404.597886, 666971.673548},
};

}  // namespace

TEST(EquidistantConic, EllipsoidMatchesReference) {
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kWgs84);
    GxExpectReferenceTable(conus, kConusWgs84,
                           GxOnGround(kEllipsoidForwardTolerance, kEllipsoidInverseTolerance));
    // Both parallels south: n < 0, negative radii, and the inverse turns both
    // coordinate differences round.
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kIntl);
    GxExpectReferenceTable(south, kSouthernIntl,
                           GxOnGround(kEllipsoidForwardTolerance, kEllipsoidInverseTolerance));
}

TEST(EquidistantConic, SphereMatchesReference) {
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, Sphere(6371000));
    GxExpectReferenceTable(conus, kConusSphere,
                           GxOnGround(kSphereForwardTolerance, kSphereInverseTolerance));
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, Sphere(6370997));
    GxExpectReferenceTable(south, kSouthernSphere,
                           GxOnGround(kSphereForwardTolerance, kSphereInverseTolerance));
}

TEST(EquidistantConic, EqualParallelsGiveTangentCone) {
    // The secant formula would be 0/0; the tangent cone at 60 degrees north
    // has n = sin 60 on the ellipsoid and on the sphere alike.
    CGxEquidistantConic ellipsoid("Tangent", 60, 60, 10, 50, 300000, -400000, kClarke66);
    GxExpectReferenceTable(ellipsoid, kTangentClarke,
                           GxOnGround(kEllipsoidForwardTolerance, kEllipsoidInverseTolerance));
    CGxEquidistantConic sphere("Tangent", 60, 60, 10, 50, 300000, -400000, Sphere(6371000));
    GxExpectReferenceTable(sphere, kTangentSphere,
                           GxOnGround(kSphereForwardTolerance, kSphereInverseTolerance));
}

TEST(EquidistantConic, CentralMeridianNorthingIsMeridianArc) {
    // echo "10 -96 70 -96" | GeodSolve -i -p 6 -e 6378137 1/298.257223563
    //   ->  s12 = 6663125.894536
    // echo "-10 132 -60 132" | GeodSolve -i -p 6 -e 6378388 1/297
    //   ->  s12 = 5548361.067221
    double x, y1, y2;
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kWgs84);
    conus.Geo2Proj(-96, 10, &x, &y1);
    conus.Geo2Proj(-96, 70, &x, &y2);
    EXPECT_NEAR(y2 - y1, 6663125.894536, 1e-3);

    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kIntl);
    south.Geo2Proj(132, -10, &x, &y1);
    south.Geo2Proj(132, -60, &x, &y2);
    EXPECT_NEAR(y1 - y2, 5548361.067221, 1e-3);
}

TEST(EquidistantConic, DefaultAreaIsTenDegreeBox) {
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kWgs84);
    GxExpectDefaultArea(conus, kConusCorners, kEllipsoidForwardTolerance);
}

TEST(EquidistantConic, ConvergenceMatchesReference) {
    // echo "lon lat" | proj -V <parameters of the tables above>: "Convergence".
    // Meridians are straight, so the one-arc-minute chord is exact: n (lon - lon0).
    CGxEquidistantConic conus("Conus", 29.5, 45.5, -96, 23, 500000, 100000, kWgs84);
    EXPECT_NEAR(conus.GetConvergence(-70, 25), 15.77770883, 1e-7);
    CGxEquidistantConic south("South", -18, -36, 132, 0, 1000000, 2000000, kIntl);
    EXPECT_NEAR(south.GetConvergence(150, -40), -8.13932831, 1e-7);
    CGxEquidistantConic tangent("Tangent", 60, 60, 10, 50, 300000, -400000, Sphere(6371000));
    EXPECT_NEAR(tangent.GetConvergence(-20, 70), -25.98076211, 1e-7);
}
