// The Hotine oblique Mercator family: natural-origin Hotine, centre-origin
// oblique Mercator and rectified skew orthomorphic, against PROJ's omerc (and
// somerc for the Swiss grid) on real national grids and on made-up southern
// and equatorial centres.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/HotineObliqueMercator.h"
#include "projections/ObliqueMercator.h"
#include "projections/RectifiedSkewOrthomorphic.h"
#include "tests/support/ReferenceCheck.h"

namespace {

using GridPoint = GxReferencePoint;

constexpr double kForwardTolerance = 1e-3;  // metres
constexpr double kInverseTolerance = 1e-9;  // degrees
// The one-arc-minute finite difference against PROJ's derivatives, degrees.
constexpr double kConvergenceTolerance = 2e-4;

const CGxEllipsoid kGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);
const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
const CGxEllipsoid kClarke1866("Clarke 1866", "CC", 6378206.4, 294.9786982);
const CGxEllipsoid kInternational("International 1924", "IN", 6378388.0, 297.0);
const CGxEllipsoid kBessel("Bessel 1841", "BR", 6377397.155, 299.1528128);
const CGxEllipsoid kEverestSabah("Everest (Sabah & Sarawak)", "EB", 6377298.556, 300.8017);
const CGxEllipsoid kEverest1969("Everest 1969", "ED", 6377295.664, 300.8017);

// Alaska state plane zone 1 (EPSG:26931), natural origin, grid rectified by
// the azimuth.
CGxHotineObliqueMercator AlaskaZone1(const CGxEllipsoid& ellipsoid) {
    return CGxHotineObliqueMercator("Alaska zone 1", 0.9999, -133.666666666667, 57,
                                    323.130102361111, 5000000, -5000000, ellipsoid);
}

// Timbalai 1948 / RSO Borneo (EPSG:29874).
CGxRectifiedSkewOrthomorphic BorneoRso(double rotation) {
    return CGxRectifiedSkewOrthomorphic("RSO Borneo", 0.99984, 115, 4, 53.3158204722222, rotation,
                                        2000000, 5000000, kEverestSabah);
}

// echo "lon lat 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=57 +lonc=-133.666666666667
//   +alpha=323.130102361111 +gamma=323.130102361111 +k=0.9999 +x_0=5000000 +y_0=-5000000
//   +ellps=GRS80
const GridPoint kAlaskaNad83[] = {
    {-141, 54.5, 343759.554286, 321826.473647},    {-141, 56.5, 367679.050373, 543756.727463},
    {-141, 58.5, 391908.345061, 765408.297683},    {-141, 60, 410210.149689, 931547.148646},
    {-137.5, 54.5, 570292.420337, 303514.737980},  {-137.5, 56.5, 582694.873219, 526046.650818},
    {-137.5, 58.5, 595294.642689, 748468.537163},  {-137.5, 60, 604797.371476, 915283.353157},
    {-134, 54.5, 797117.266763, 296792.674890},    {-134, 56.5, 798150.480682, 519474.847423},
    {-134, 58.5, 799232.121190, 742192.393751},    {-134, 60, 799996.947179, 909312.186618},
    {-130.5, 54.5, 1023810.052058, 301492.991544}, {-130.5, 56.5, 1013617.323575, 523916.919530},
    {-130.5, 58.5, 1003291.492770, 746492.722743}, {-130.5, 60, 995381.364138, 913570.795612},
};

// The same zone on Clarke 1866 in metres:
// echo "lon lat 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=57 +lonc=-133.666666666667
//   +alpha=323.130102361111 +gamma=323.130102361111 +k=0.9999 +x_0=5000000 +y_0=-5000000
//   +a=6378206.4 +rf=294.9786982
const GridPoint kAlaskaClarke[] = {
    {-140, 55, 413441.362444, 371087.678944},   {-140, 57.5, 439355.641573, 648657.441465},
    {-140, 60, 465613.127119, 925974.647388},   {-136, 55, 669254.592982, 355015.722124},
    {-136, 57.5, 678724.278229, 633297.107759}, {-136, 60, 688308.661386, 911595.035478},
    {-132, 55, 925258.231848, 353849.297982},   {-132, 57.5, 918501.032010, 632120.137376},
    {-132, 60, 911561.346902, 910624.610806},
};

// A southern centre: the aposphere's equator lies north of the centre.
// echo "lon lat 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=-38 +lonc=146 +alpha=40 +gamma=40
//   +k=0.9996 +x_0=400000 +y_0=2000000 +ellps=intl
const GridPoint kSouthernHotine[] = {
    {143, -41, -3104601.171136, -2212926.161529}, {143, -38, -3115603.213791, -1880108.039194},
    {143, -35, -3126206.585933, -1547084.969647}, {146, -41, -2852277.518241, -2208838.397861},
    {146, -38, -2852202.841334, -1875824.420005}, {146, -35, -2852128.279308, -1542981.298333},
    {149, -41, -2599698.873003, -2213209.450837}, {149, -38, -2588798.894313, -1880034.186755},
    {149, -35, -2578354.741321, -1547360.713768},
};

TEST(HotineObliqueMercator, AlaskaZone1OnTwoEllipsoids) {
    GxExpectReferenceTable(AlaskaZone1(kGrs80), kAlaskaNad83, kGxMillimetreTable);
    GxExpectReferenceTable(AlaskaZone1(kClarke1866), kAlaskaClarke, kGxMillimetreTable);
}

TEST(HotineObliqueMercator, SouthernCentre) {
    GxExpectReferenceTable(
        CGxHotineObliqueMercator("south", 0.9996, 146, -38, 40, 400000, 2000000, kInternational),
        kSouthernHotine, kGxMillimetreTable);
}

// The Swiss oblique cylindrical projection is the centre-origin Hotine with an
// east-west central line; PROJ's own Swiss implementation gives the reference:
// echo "lon lat 0 0" | cct -d 6 +proj=somerc +lat_0=46.9524055555556 +lon_0=7.43958333333333
//   +k_0=1 +x_0=2600000 +y_0=1200000 +ellps=bessel
const GridPoint kSwiss[] = {
    {6, 45.9, 2488285.545398, 1084047.270979},
    {6, 46.9524055555556, 2490433.318412, 1201005.900407},
    {6, 47.7, 2491959.189172, 1284100.465875},
    {7.4395833333333, 45.9, 2600000.000000, 1083021.482014},
    {7.4395833333333, 46.9524055555556, 2600000.000000, 1200000.000000},
    {7.4395833333333, 47.7, 2600000.000000, 1283108.488514},
    {8.5, 45.9, 2682292.539351, 1083578.088857},
    {8.5, 46.9524055555556, 2680710.382186, 1200545.814309},
    {8.5, 47.7, 2679586.351919, 1283646.747503},
    {10.4, 45.9, 2829691.667151, 1087358.708801},
    {10.4, 46.9524055555556, 2825276.443430, 1204253.174722},
    {10.4, 47.7, 2822139.627467, 1287302.820860},
};

// Rassadiran / Nakhl e Taqi (EPSG:2057), an almost north-south central line:
// echo "lon lat 0 0" | cct -d 6 +proj=omerc +lat_0=27.5188288055556 +lonc=52.6035391666667
//   +alpha=0.571661194444444 +gamma=0.571661194444444 +k=0.999895934 +x_0=658377.437
//   +y_0=3044969.194 +ellps=intl
const GridPoint kRassadiran[] = {
    {51.5, 26.5, 548368.309441, 2932561.602438},
    {51.5, 27.5188288055556, 549355.769669, 3045454.275485},
    {51.5, 28.5, 550339.287244, 3154189.691964},
    {52.6035391666667, 26.5, 658377.377975, 2932088.737772},
    {52.6035391666667, 27.5188288055556, 658377.437000, 3044969.194000},
    {52.6035391666667, 28.5, 658377.489742, 3153693.096739},
    {53.5, 26.5, 747742.432956, 2932400.588082},
    {53.5, 27.5188288055556, 746940.191018, 3045289.356921},
    {53.5, 28.5, 746141.158559, 3154020.622824},
};

// A southern centre: the centre offset is taken southwards.
// echo "lon lat 0 0" | cct -d 6 +proj=omerc +lat_0=-30 +lonc=25 +alpha=50 +gamma=50 +k=0.9996
//   +x_0=500000 +y_0=1000000 +ellps=GRS80
const GridPoint kSouthernCentre[] = {
    {22, -33, 219607.042280, 663747.125572},  {22, -30, 210650.765071, 996162.710963},
    {22, -27, 201999.140905, 1328826.071023}, {25, -33, 499925.469955, 667409.683306},
    {25, -30, 500000.000000, 1000000.000000}, {25, -27, 500074.428203, 1332438.760083},
    {28, -33, 780560.389887, 663450.731501},  {28, -30, 789353.089656, 996260.810464},
    {28, -27, 797790.184701, 1328542.015598},
};

// A centre on the equator counts as northern.
// echo "lon lat 0 0" | cct -d 6 +proj=omerc +lat_0=0 +lonc=110 +alpha=30 +gamma=30 +k=1
//   +x_0=0 +y_0=0 +ellps=WGS84
const GridPoint kEquatorialCentre[] = {
    {107, -3, -333599.458803, -331975.977740},
    {107, 0, -334073.721237, -66.594102},
    {107, 3, -333864.955556, 332237.685870},
    {110, -3, -65.213127, -331763.489404},
    {110, 0, 0.000000, 0.000000},
    {110, 3, 65.213127, 331763.489404},
    {113, -3, 333864.955556, -332237.685870},
    {113, 0, 334073.721237, 66.594102},
    {113, 3, 333599.458803, 331975.977740},
};

// Azimuth 90 takes the east-west form of the centre offset, and the
// longitude of the natural origin sits exactly a quarter turn from the centre
// on the aposphere, where rounding once pushed asin past 1 and every result
// came out NaN.
TEST(ObliqueMercator, SwissGridAtAzimuth90) {
    GxExpectReferenceTable(CGxObliqueMercator("CH1903+ / LV95", 1, 7.43958333333333,
                                              46.9524055555556, 90, 2600000, 1200000, kBessel),
                           kSwiss, kGxMillimetreTable);
}

TEST(ObliqueMercator, CentreOriginGrids) {
    GxExpectReferenceTable(
        CGxObliqueMercator("Nakhl e Taqi", 0.999895934, 52.6035391666667, 27.5188288055556,
                           0.571661194444444, 658377.437, 3044969.194, kInternational),
        kRassadiran, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxObliqueMercator("south", 0.9996, 25, -30, 50, 500000, 1000000, kGrs80), kSouthernCentre,
        kGxMillimetreTable);
    GxExpectReferenceTable(CGxObliqueMercator("equator", 1, 110, 0, 30, 0, 0, kWgs84),
                           kEquatorialCentre, kGxMillimetreTable);
}

// echo "lon lat 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=4 +lonc=115 +alpha=53.3158204722222
//   +gamma=53.1301023611111 +k=0.99984 +x_0=2000000 +y_0=5000000 +ellps=evrstSS
const GridPoint kBorneo[] = {
    {109.7, 1, 2001614.002117, 5110570.924705},   {109.7, 3.5, 2001725.225002, 5387094.598154},
    {109.7, 6, 2002188.448631, 5664100.056177},   {112.5, 1, 2313181.943866, 5110657.466950},
    {112.5, 3.5, 2312941.104617, 5387047.286857}, {112.5, 6, 2312838.451779, 5663636.413145},
    {115, 1, 2591480.019323, 5111110.284187},     {115, 3.5, 2590655.715510, 5387580.968744},
    {115, 6, 2589781.447642, 5663998.880563},     {117.5, 1, 2870081.327832, 5112185.148378},
    {117.5, 3.5, 2868417.928575, 5388922.600745}, {117.5, 6, 2866520.023490, 5665353.706004},
    {119.2, 1, 3059798.864476, 5113404.144824},   {119.2, 3.5, 3057417.255712, 5390427.156298},
    {119.2, 6, 3054678.230620, 5666969.764456},
};

// Kertau (RSO) / RSO Malaya (EPSG:3168):
// echo "lon lat 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=4 +lonc=102.25 +alpha=323.0257905
//   +gamma=323.130102361111 +k=0.99984 +x_0=804670.24 +y_0=0 +ellps=evrst69
const GridPoint kMalaya[] = {
    {100.2, 1.4, 244103.645122, 155447.069519}, {100.2, 4, 245238.639043, 443142.575276},
    {100.2, 6.6, 246669.252455, 730630.424690}, {102.25, 1.4, 472378.455192, 154953.254266},
    {102.25, 4, 472854.713337, 442420.702329},  {102.25, 6.6, 473330.995492, 729906.216127},
    {104.2, 1.4, 689350.346290, 154795.373316}, {104.2, 4, 689365.893593, 442263.447405},
    {104.2, 6.6, 689097.705679, 729961.923404},
};

// GDM2000 / Peninsula RSO (EPSG:3375):
// echo "lon lat 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=4 +lonc=102.25
//   +alpha=323.025796466667 +gamma=323.130102361111 +k=0.99984 +x_0=804671 +y_0=0 +ellps=GRS80
const GridPoint kPeninsula[] = {
    {100.5, 2, 277677.865756, 221772.786549},
    {100.5, 5.5, 279231.115388, 608898.625458},
    {103.5, 2, 611504.208757, 221172.846398},
    {103.5, 5.5, 611657.096444, 608202.853652},
};

TEST(RectifiedSkewOrthomorphic, MalaysianAndBorneanGrids) {
    GxExpectReferenceTable(BorneoRso(53.1301023611111), kBorneo, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxRectifiedSkewOrthomorphic("RSO Malaya", 0.99984, 102.25, 4, 323.0257905,
                                     323.130102361111, 804670.24, 0, kEverest1969),
        kMalaya, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxRectifiedSkewOrthomorphic("Peninsula RSO", 0.99984, 102.25, 4, 323.025796466667,
                                     323.130102361111, 804671, 0, kGrs80),
        kPeninsula, kGxMillimetreTable);
}

// The plane rotation alone turns the skew grid about the natural origin:
// rotation 0 leaves the skew (v, u) axes, a negative one turns the other way.
// echo "lon lat 0 0" | cct -d 6 +proj=omerc +no_uoff +lat_0=4 +lonc=115 +alpha=53.3158204722222
//   +gamma=<0 | -30> +k=0.99984 +x_0=2000000 +y_0=5000000 +ellps=evrstSS
const GridPoint kBorneoSkew[] = {
    {112.5, 3.5, 1878126.833226, 5482581.255793},
    {117.5, 1, 2432300.677904, 5763376.151344},
    {119.2, 6, 2099231.126656, 6243924.443182},
};
const GridPoint kBorneoMinus30[] = {
    {112.5, 3.5, 1653164.113638, 5356991.043520},
    {117.5, 1, 1992695.293466, 5877253.478659},
    {119.2, 6, 1463974.454939, 6126885.731512},
};

TEST(RectifiedSkewOrthomorphic, PlaneRotation) {
    GxExpectReferenceTable(BorneoRso(0), kBorneoSkew, kGxMillimetreTable);
    GxExpectReferenceTable(BorneoRso(-30), kBorneoMinus30, kGxMillimetreTable);
}

TEST(RectifiedSkewOrthomorphic, RotationEqualToAzimuthIsHotine) {
    const CGxHotineObliqueMercator hotine = AlaskaZone1(kClarke1866);
    const CGxRectifiedSkewOrthomorphic rso("rso", 0.9999, -133.666666666667, 57, 323.130102361111,
                                           323.130102361111, 5000000, -5000000, kClarke1866);
    for (const GridPoint& r : kAlaskaClarke) {
        double xh, yh, xr, yr;
        hotine.Geo2Proj(r.lon, r.lat, &xh, &yh);
        rso.Geo2Proj(r.lon, r.lat, &xr, &yr);
        EXPECT_DOUBLE_EQ(xh, xr);
        EXPECT_DOUBLE_EQ(yh, yr);
    }
}

// Convergence from proj -V (its "Convergence" line) at the given point.
TEST(ObliqueMercatorFamily, Convergence) {
    // echo "-137.5 58.5" | proj -V <Alaska zone 1 NAD83 as above>: -3.25689196
    EXPECT_NEAR(AlaskaZone1(kGrs80).GetConvergence(-137.5, 58.5), -3.25689196,
                kConvergenceTolerance);
    // echo "117.5 6" | proj -V <RSO Borneo as above>: 0.40056649
    EXPECT_NEAR(BorneoRso(53.1301023611111).GetConvergence(117.5, 6), 0.40056649,
                kConvergenceTolerance);
    // echo "10.4 47.7" | proj -V <somerc as above>: 2.16318632
    const CGxObliqueMercator swiss("CH", 1, 7.43958333333333, 46.9524055555556, 90, 2600000,
                                   1200000, kBessel);
    EXPECT_NEAR(swiss.GetConvergence(10.4, 47.7), 2.16318632, kConvergenceTolerance);
}

TEST(ObliqueMercatorFamily, OriginAndDefaultAreaAroundCentre) {
    const CGxHotineObliqueMercator alaska = AlaskaZone1(kGrs80);
    double lon, lat;
    alaska.GetOrigin(&lon, &lat);
    EXPECT_DOUBLE_EQ(lon, -133.666666666667);
    EXPECT_DOUBLE_EQ(lat, 57);
    // The corners of the +-3 degree box around the centre:
    // echo "-136.666666666667 54 0 0" (and "-130.666666666667 60 0 0") | cct -d 6 <Alaska zone 1
    // NAD83 as above>
    double x0, y0, x1, y1;
    alaska.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 621908.814319, kForwardTolerance);
    EXPECT_NEAR(y0, 245193.057583, kForwardTolerance);
    EXPECT_NEAR(x1, 986079.180168, kForwardTolerance);
    EXPECT_NEAR(y1, 913136.981889, kForwardTolerance);
}

TEST(ObliqueMercatorFamily, CloneAndAnonymousEllipsoid) {
    const CGxRectifiedSkewOrthomorphic borneo = BorneoRso(53.1301023611111);
    std::unique_ptr<CGxProjection> copy(borneo.Clone());
    ASSERT_NE(dynamic_cast<CGxRectifiedSkewOrthomorphic*>(copy.get()), nullptr);
    EXPECT_STREQ(copy->GetName(), "RSO Borneo");
    GxExpectReferenceTable(*copy, kBorneo, kGxMillimetreTable);

    CGxEllipsoid out("kept", "K", 1, 1);
    ASSERT_TRUE(copy->GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetName(), "kept");
    EXPECT_EQ(out.GetMajor(), 6377298.556);
    EXPECT_DOUBLE_EQ(out.GetInvFlatness(), 300.8017);

    const CGxEllipsoid sphere("sphere", "S", 6371000, 0);
    const CGxHotineObliqueMercator onSphere("s", 1, 0, 45, 30, 0, 0, sphere);
    ASSERT_TRUE(onSphere.GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetInvFlatness(), 0.0);

    const CGxEllipsoid noAxis("none", "N", 0, 0);
    EXPECT_FALSE(CGxObliqueMercator("x", 1, 0, 45, 30, 0, 0, noAxis).GetAnonymousEllipsoid(out));
}

// A grid without georeference converts as the identity, whichever member of
// the family carries it.
TEST(ObliqueMercatorFamily, LocalGridIsIdentity) {
    const CGxObliqueMercator unnamed("", 0.9996, 25, -30, 50, 500000, 1000000, kGrs80);
    const CGxHotineObliqueMercator local("NON-UTM", 0.9996, 25, -30, 50, 500000, 1000000, kGrs80);
    for (const CGxProjection* p :
         {static_cast<const CGxProjection*>(&unnamed), static_cast<const CGxProjection*>(&local)}) {
        EXPECT_STREQ(p->GetName(), "NON-UTM");
        EXPECT_TRUE(p->IsLocal());
        double x, y;
        p->Geo2Proj(123.5, -7.25, &x, &y);
        EXPECT_EQ(x, 123.5);
        EXPECT_EQ(y, -7.25);
        p->Proj2Geo(1000, 2000, &x, &y);
        EXPECT_EQ(x, 1000);
        EXPECT_EQ(y, 2000);
        EXPECT_EQ(p->GetConvergence(40, 10), 0.0);
    }
    EXPECT_FALSE(AlaskaZone1(kGrs80).IsLocal());
}

// At a geographic pole t(phi) is 0 and the forward formulas have no value:
// we return NaN there (PROJ takes the limit, a finite point). NaN input goes
// through as NaN.
TEST(ObliqueMercatorFamily, UnprojectablePointsGiveNaN) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const CGxObliqueMercator p("south", 0.9996, 25, -30, 50, 500000, 1000000, kGrs80);
    double x, y;
    p.Geo2Proj(25, 90, &x, &y);
    EXPECT_TRUE(std::isnan(x) || std::isnan(y));
    p.Geo2Proj(nan, -30, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
    p.Proj2Geo(nan, 1000000, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
}

}  // namespace
