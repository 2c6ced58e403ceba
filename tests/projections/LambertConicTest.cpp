// Lambert conformal conic, one and two standard parallels, against PROJ.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "foundation/Ellipsoid.h"
#include "projections/Lambert1SP.h"
#include "projections/Lambert2SP.h"
#include "tests/support/ReferenceCheck.h"

namespace {

// The ellipsoids as PROJ defines them (+ellps=...); Clarke 1866 is given there
// by its axes a = 6378206.4, b = 6356583.8, so 1/f = a / (a - b).
const CGxEllipsoid kGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);
const CGxEllipsoid kClarke1866("Clarke 1866", "CC", 6378206.4, 294.9786982138982);
const CGxEllipsoid kInternational("International 1924", "IN", 6378388.0, 297.0);
const CGxEllipsoid kBessel("Bessel 1841", "BR", 6377397.155, 299.1528128);

// Lambert-93 geometry on GRS 80.
// cct -d 6 +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000 +y_0=6600000 +ellps=GRS80
const GxReferencePoint kFrance2SP[] = {
    {-5.5, 41.0, -16296.157784, 6027156.199039},   {-5.5, 44.5, 25531.324650, 6414219.032828},
    {-5.5, 46.5, 49395.307782, 6635051.375564},    {-5.5, 49.75, 88204.828365, 6994186.617290},
    {-5.5, 51.5, 109156.130243, 7188065.612740},   {-1.25, 41.0, 341332.531106, 5998220.308443},
    {-1.25, 44.5, 362276.601644, 6386972.828045},  {-1.25, 46.5, 374225.897106, 6608769.193270},
    {-1.25, 49.75, 393658.798379, 6969472.205574}, {-1.25, 51.5, 404149.641214, 7164197.561251},
    {3.0, 41.0, 700000.000000, 5988565.690944},    {3.0, 44.5, 700000.000000, 6377881.983421},
    {3.0, 46.5, 700000.000000, 6600000.000000},    {3.0, 49.75, 700000.000000, 6961226.107497},
    {3.0, 51.5, 700000.000000, 7156233.855874},    {7.125, 41.0, 1048128.169229, 5997660.868774},
    {7.125, 44.5, 1027799.531801, 6386446.056362}, {7.125, 46.5, 1016201.361591, 6608261.059770},
    {7.125, 49.75, 997339.488325, 6968994.382980}, {7.125, 51.5, 987156.914698, 7163736.101986},
    {10.0, 41.0, 1290257.913495, 6014745.935603},  {10.0, 44.5, 1255790.323184, 6402533.455781},
    {10.0, 46.5, 1236125.405624, 6623779.256434},  {10.0, 49.75, 1204144.741769, 6983586.896537},
    {10.0, 51.5, 1186879.995062, 7177828.885942},
};

// A Texas-like zone on Clarke 1866.
// cct -d 6 +proj=lcc +lat_1=30.5 +lat_2=35.25 +lat_0=29 +lon_0=-100.5 +x_0=700000 +y_0=3000000
// +ellps=clrk66
const GxReferencePoint kTexas2SP[] = {
    {-107.0, 25.5, 42177.799839, 2630895.069606},
    {-107.0, 29.0, 66146.986370, 3019528.089128},
    {-107.0, 32.75, 91737.445012, 3434448.186675},
    {-107.0, 36.5, 117339.833706, 3849561.716393},
    {-103.25, 25.5, 421546.054294, 2614257.058185},
    {-103.25, 29.0, 431692.131095, 3003496.319939},
    {-103.25, 32.75, 442524.486981, 3419063.665850},
    {-103.25, 36.5, 453361.892817, 3834824.745674},
    {-100.5, 25.5, 700000.000000, 2610628.524715},
    {-100.5, 29.0, 700000.000000, 3000000.000000},
    {-100.5, 32.75, 700000.000000, 3415708.502345},
    {-100.5, 36.5, 700000.000000, 3831610.804408},
    {-96.125, 25.5, 1142918.144998, 2619811.517201},
    {-96.125, 29.0, 1126779.456409, 3008848.390127},
    {-96.125, 32.75, 1109549.149392, 3424199.657661},
    {-96.125, 36.5, 1092310.809754, 3839744.558373},
    {-93.0, 25.5, 1458866.535142, 2637607.784065},
    {-93.0, 29.0, 1431215.577895, 3025996.211195},
    {-93.0, 32.75, 1401694.314128, 3440655.172159},
    {-93.0, 36.5, 1372159.287802, 3855507.443554},
};

// A southern cone (n < 0) on International 1924.
// cct -d 6 +proj=lcc +lat_1=-20 +lat_2=-40 +lat_0=-30 +lon_0=25 +x_0=1000000 +y_0=2000000
// +ellps=intl
const GxReferencePoint kSouthernCone2SP[] = {
    {12.0, -12.0, -459777.463899, 3911976.642866},  {12.0, -24.5, -301138.017842, 2526954.298301},
    {12.0, -33.0, -195426.711080, 1604027.967057},  {12.0, -45.25, -40729.516232, 253423.960096},
    {20.5, -12.0, 493726.961032, 3985310.993405},   {20.5, -24.5, 548745.535056, 2592319.132230},
    {20.5, -33.0, 585407.824926, 1664082.217546},   {20.5, -45.25, 639059.166238, 305706.739525},
    {25.0, -12.0, 1000000.000000, 3995305.153014},  {25.0, -24.5, 1000000.000000, 2601227.189345},
    {25.0, -33.0, 1000000.000000, 1672266.537175},  {25.0, -45.25, 1000000.000000, 312831.946725},
    {31.75, -12.0, 1759163.006873, 3972821.944045}, {31.75, -24.5, 1676661.939515, 2581187.314312},
    {31.75, -33.0, 1621686.358998, 1653854.807156}, {31.75, -45.25, 1541235.474874, 296802.832854},
    {38.0, -12.0, 2459777.463899, 3911976.642866},  {38.0, -24.5, 2301138.017842, 2526954.298301},
    {38.0, -33.0, 2195426.711080, 1604027.967057},  {38.0, -45.25, 2040729.516232, 253423.960096},
};

// One parallel with a reduced scale on GRS 80.
// cct -d 6 +proj=lcc +lat_1=46.8 +lat_0=46.8 +k_0=0.99987742 +lon_0=2.337229167 +x_0=600000
// +y_0=2200000 +ellps=GRS80
const GxReferencePoint kFrance1SP[] = {
    {-4.5, 42.25, 34805.577536, 1718533.458626},
    {-4.5, 45.0, 61389.746459, 2023364.612009},
    {-4.5, 46.8, 78772.370856, 2222684.946569},
    {-4.5, 48.5, 95194.087930, 2410986.900657},
    {-4.5, 51.0, 119383.561852, 2688358.943266},
    {0.25, 42.25, 427263.272469, 1696228.682414},
    {0.25, 45.0, 435388.020629, 2002108.950783},
    {0.25, 46.8, 440700.560058, 2202115.271495},
    {0.25, 48.5, 445719.423577, 2391065.290585},
    {0.25, 51.0, 453112.296542, 2669391.944176},
    {2.337229167, 42.25, 600000.000000, 1693934.982725},
    {2.337229167, 45.0, 600000.000000, 1999923.136270},
    {2.337229167, 46.8, 600000.000000, 2200000.000000},
    {2.337229167, 48.5, 600000.000000, 2389016.662507},
    {2.337229167, 51.0, 600000.000000, 2667441.483005},
    {5.5, 42.25, 861707.466501, 1699201.198572},
    {5.5, 45.0, 849397.940396, 2004941.653332},
    {5.5, 46.8, 841349.094881, 2204856.553942},
    {5.5, 48.5, 833745.187623, 2393720.206611},
    {5.5, 51.0, 822544.500418, 2671919.640966},
    {9.75, 42.25, 1212635.498465, 1722845.843388},
    {9.75, 45.0, 1183819.917609, 2027474.161852},
    {9.75, 46.8, 1164978.237050, 2226661.868485},
    {9.75, 48.5, 1147178.120090, 2414838.526286},
    {9.75, 51.0, 1120958.239240, 2692026.005292},
};

// One parallel, scale 1, on Clarke 1866.
// cct -d 6 +proj=lcc +lat_1=18 +lat_0=18 +k_0=1 +lon_0=-77 +x_0=250000 +y_0=150000 +ellps=clrk66
const GxReferencePoint kJamaica1SP[] = {
    {-81.5, 15.0, -234592.425004, -176243.472502}, {-81.5, 17.5, -227875.406161, 100462.821146},
    {-81.5, 18.0, -226532.513163, 155783.038797},  {-81.5, 19.25, -223174.747926, 294105.529077},
    {-81.5, 22.0, -215778.108964, 598808.642252},  {-78.25, 15.0, 115378.796914, -181670.533749},
    {-78.25, 17.5, 117244.804535, 95110.985328},   {-78.25, 18.0, 117617.864165, 150446.242343},
    {-78.25, 19.25, 118550.661239, 288806.337003}, {-78.25, 22.0, 120605.469330, 593592.286827},
    {-77.0, 15.0, 250000.000000, -182124.323686},  {-77.0, 17.5, 250000.000000, 94663.485450},
    {-77.0, 18.0, 250000.000000, 150000.000000},   {-77.0, 19.25, 250000.000000, 288363.238993},
    {-77.0, 22.0, 250000.000000, 593156.115298},   {-75.5, 15.0, 411544.905264, -181470.867266},
    {-75.5, 17.5, 409305.703583, 95307.884200},    {-75.5, 18.0, 408858.033518, 150642.587904},
    {-75.5, 19.25, 407738.680761, 289001.299065},  {-75.5, 22.0, 405272.919270, 593784.201253},
    {-72.0, 15.0, 788423.628117, -174864.097179},  {-72.0, 17.5, 780960.445720, 101823.076711},
    {-72.0, 18.0, 779468.376751, 157139.471864},   {-72.0, 19.25, 775737.612405, 295452.404383},
    {-72.0, 22.0, 767519.313933, 600134.463285},
};

// A southern one-parallel cone on Bessel 1841.
// cct -d 6 +proj=lcc +lat_1=-35 +lat_0=-35 +k_0=0.9999 +lon_0=145 +x_0=400000 +y_0=800000
// +ellps=bessel
const GxReferencePoint kSouthern1SP[] = {
    {139.0, -30.0, -180599.041366, 1337615.169984}, {139.0, -34.5, -150608.722309, 838916.227522},
    {139.0, -38.75, -122285.469075, 367938.362696}, {139.0, -43.0, -93799.744919, -105741.176537},
    {143.5, -30.0, 254768.382980, 1353966.758502},  {143.5, -34.5, 262270.190977, 854423.189505},
    {143.5, -38.75, 269354.997484, 382647.648229},  {143.5, -43.0, 276480.444628, -91834.143173},
    {147.25, -30.0, 617837.191859, 1352603.774002}, {147.25, -34.5, 606585.008475, 853130.608737},
    {147.25, -38.75, 595958.297941, 381421.557676}, {147.25, -43.0, 585270.629316, -92993.362102},
    {151.0, -30.0, 980599.041366, 1337615.169984},  {151.0, -34.5, 950608.722309, 838916.227522},
    {151.0, -38.75, 922285.469075, 367938.362696},  {151.0, -43.0, 893799.744919, -105741.176537},
};

CGxLambert2SP France2SP() {
    return CGxLambert2SP("Lambert-93", 49, 44, 3, 46.5, 700000, 6600000, kGrs80);
}

CGxLambert2SP SouthernCone() {
    return CGxLambert2SP("South", -20, -40, 25, -30, 1000000, 2000000, kInternational);
}

}  // namespace

TEST(LambertConformalConic2SP, AgreesWithProjOnTwoEllipsoidsAndASouthernCone) {
    GxExpectReferenceTable(France2SP(), kFrance2SP, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxLambert2SP("Texas", 30.5, 35.25, -100.5, 29, 700000, 3000000, kClarke1866), kTexas2SP,
        kGxMillimetreTable);
    GxExpectReferenceTable(SouthernCone(), kSouthernCone2SP, kGxMillimetreTable);
}

TEST(LambertConformalConic1SP, AgreesWithProjOnThreeEllipsoidsAndASouthernCone) {
    GxExpectReferenceTable(
        CGxLambert1SP("France", 0.99987742, 2.337229167, 46.8, 600000, 2200000, kGrs80), kFrance1SP,
        kGxMillimetreTable);
    GxExpectReferenceTable(CGxLambert1SP("Jamaica", 1, -77, 18, 250000, 150000, kClarke1866),
                           kJamaica1SP, kGxMillimetreTable);
    GxExpectReferenceTable(CGxLambert1SP("South", 0.9999, 145, -35, 400000, 800000, kBessel),
                           kSouthern1SP, kGxMillimetreTable);
}

TEST(LambertConformalConic2SP, PoleOfTheConeMapsToTheApexAndBack) {
    // The pole on the cone's side is the apex: x = FE, y = FN + rF.
    // cct -d 6 +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000
    //   +y_0=6600000 +ellps=GRS80  <<< "3 90 0 0"     -> 700000 12655612.049876
    // cct -d 6 +proj=lcc +lat_1=-20 +lat_2=-40 +lat_0=-30 +lon_0=25 +x_0=1000000
    //   +y_0=2000000 +ellps=intl   <<< "25 -90 0 0"   -> 1000000 -8832800.623143
    struct {
        CGxLambert2SP p;
        double lat, x, y;
    } cases[] = {{France2SP(), 90, 700000, 12655612.049876},
                 {SouthernCone(), -90, 1000000, -8832800.623143}};
    for (const auto& c : cases) {
        double x, y, lon, lat;
        double lon0, lat0;
        c.p.GetOrigin(&lon0, &lat0);
        // Every meridian meets at the apex.
        for (double lon : {lon0 - 100, lon0, lon0 + 45}) {
            c.p.Geo2Proj(lon, c.lat, &x, &y);
            EXPECT_NEAR(x, c.x, 1e-3);
            EXPECT_NEAR(y, c.y, 1e-3);
        }
        // Back from the apex: the pole (its longitude is any).
        c.p.Proj2Geo(c.x, c.y, &lon, &lat);
        EXPECT_NEAR(lat, c.lat, 1e-9);
    }
}

TEST(LambertConformalConic2SP, BeyondTheApexPoleClampsToTheApex) {
    // Past 90 degrees the isometric term turns negative; it is held at 0, so
    // the point lands on the apex rather than on a mirrored cone.
    const CGxLambert2SP p = France2SP();
    double x, y;
    p.Geo2Proj(3, 95, &x, &y);
    EXPECT_NEAR(x, 700000, 1e-3);
    EXPECT_NEAR(y, 12655612.049876, 1e-3);
}

TEST(LambertConformalConic2SP, LongitudeIsNotWrapped) {
    // lon0 + 362 is not lon0 + 2: the angle on the cone grows by 360 n degrees.
    // PROJ wraps longitudes unless told +over, which then matches us:
    // cct -d 6 +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000
    //   +y_0=6600000 +ellps=GRS80 +over
    //   365 47  -> -5251047.326878 13421124.946364
    //   -355 47 ->  6604651.393470 13721476.113922
    //   5 47    ->   851956.742604  6657455.380548
    const CGxLambert2SP p = France2SP();
    const GxReferencePoint unwrapped[] = {{365, 47, -5251047.326878, 13421124.946364},
                                          {-355, 47, 6604651.393470, 13721476.113922},
                                          {5, 47, 851956.742604, 6657455.380548}};
    for (const GxReferencePoint& r : unwrapped) {
        SCOPED_TRACE(r.lon);
        GxExpectForward(p, r, 1e-3);
    }
}

TEST(LambertConformalConic2SP, EqualParallelsAreTheTangentCone) {
    // With both parallels equal the ratio of logarithms is 0/0; the tangent
    // cone takes n = sin(lat1) and then is the one-parallel form with scale 1.
    // cct -d 6 +proj=lcc +lat_1=46.8 +lat_2=46.8 +lat_0=46.8 +lon_0=2.337229167
    //   +x_0=600000 +y_0=2200000 +ellps=GRS80
    //   10 50 -> 1149390.118155 2582823.266650
    //   -3 40 ->  141493.983042 1458368.645636
    const CGxLambert2SP twoSP("T", 46.8, 46.8, 2.337229167, 46.8, 600000, 2200000, kGrs80);
    const CGxLambert1SP oneSP("T", 1, 2.337229167, 46.8, 600000, 2200000, kGrs80);
    const GxReferencePoint table[] = {{10, 50, 1149390.118155, 2582823.266650},
                                      {-3, 40, 141493.983042, 1458368.645636}};
    GxExpectReferenceTable(twoSP, table, kGxMillimetreTable);
    GxExpectReferenceTable(oneSP, table, kGxMillimetreTable);
    EXPECT_DOUBLE_EQ(twoSP.GetConvergence(10, 50), oneSP.GetConvergence(10, 50));
}

TEST(LambertConformalConic, ConvergenceIsConeConstantTimesLongitudeDifference) {
    // proj -V (PROJ's "Convergence" line), same parameters as the tables:
    //   France 2SP  7.125 49.75 ->  2.99313203;  -5.5 41 -> -6.16766600;
    //               10 51.5     ->  5.07925436
    //   South cone  38 -45.25   -> -6.53414162;  12 -12  ->  6.53414162
    const CGxLambert2SP france = France2SP();
    EXPECT_NEAR(france.GetConvergence(7.125, 49.75), 2.99313203, 1e-8);
    EXPECT_NEAR(france.GetConvergence(-5.5, 41), -6.16766600, 1e-8);
    EXPECT_NEAR(france.GetConvergence(10, 51.5), 5.07925436, 1e-8);
    // On a cone the convergence does not depend on the latitude.
    EXPECT_EQ(france.GetConvergence(10, 51.5), france.GetConvergence(10, -20));
    const CGxLambert2SP south = SouthernCone();
    EXPECT_NEAR(south.GetConvergence(38, -45.25), -6.53414162, 1e-8);
    EXPECT_NEAR(south.GetConvergence(12, -12), 6.53414162, 1e-8);
}

TEST(LambertConformalConic, OriginAndDefaultArea) {
    double lon, lat;
    France2SP().GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 3, 1e-12);
    EXPECT_NEAR(lat, 46.5, 1e-12);
    CGxLambert1SP("J", 1, -77, 18, 250000, 150000, kClarke1866).GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, -77, 1e-12);
    EXPECT_NEAR(lat, 18, 1e-12);

    // The +-3 degree box around the false origin:
    // cct -d 6 +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000
    //   +y_0=6600000 +ellps=GRS80
    //   0 43.5 -> 457328.754419 6271378.818746;  6 49.5 -> 917349.973458 6937534.821519
    double x0, y0, x1, y1;
    France2SP().GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 457328.754419, 1e-3);
    EXPECT_NEAR(y0, 6271378.818746, 1e-3);
    EXPECT_NEAR(x1, 917349.973458, 1e-3);
    EXPECT_NEAR(y1, 6937534.821519, 1e-3);
}

TEST(LambertConformalConic2SP, DefaultAreaAtAPolarFalseOriginCentresOnTheMeanParallel) {
    // A box around the apex would be empty; the box is centred on latitude 70,
    // midway between the standard parallels 60 and 80:
    // cct -d 6 +proj=lcc +lat_1=60 +lat_2=80 +lat_0=90 +lon_0=-40 +x_0=2000000
    //   +y_0=1000000 +ellps=WGS84
    //   -43 67 -> 1870958.097548 -1606160.743342
    //   -37 73 -> 2096438.416409  -947693.037830
    const CGxEllipsoid wgs84("WGS 84", "WE", 6378137.0, 298.257223563);
    for (double latF : {90.0, 89.9999999999999}) {
        const CGxLambert2SP p("Arctic", 60, 80, -40, latF, 2000000, 1000000, wgs84);
        double x0, y0, x1, y1;
        p.GetDefaultArea(&x0, &y0, &x1, &y1);
        EXPECT_NEAR(x0, 1870958.097548, 1e-3) << latF;
        EXPECT_NEAR(y0, -1606160.743342, 1e-3) << latF;
        EXPECT_NEAR(x1, 2096438.416409, 1e-3) << latF;
        EXPECT_NEAR(y1, -947693.037830, 1e-3) << latF;
    }
}

TEST(LambertConformalConic, LocalGridIsTheIdentity) {
    // "NON-UTM" (also what an empty name becomes) is a plane grid without
    // georeference: coordinates pass through untouched, false origin unused.
    for (const char* name : {"NON-UTM", ""}) {
        const CGxLambert2SP p(name, 49, 44, 3, 46.5, 700000, 6600000, kGrs80);
        const CGxLambert1SP q(name, 1, -77, 18, 250000, 150000, kClarke1866);
        for (const CGxProjection* c :
             {static_cast<const CGxProjection*>(&p), static_cast<const CGxProjection*>(&q)}) {
            EXPECT_STREQ(c->GetName(), "NON-UTM");
            EXPECT_TRUE(c->IsLocal());
            GxExpectIdentity(*c, 1234.5, -678.25);
            EXPECT_EQ(c->GetConvergence(50, 50), 0.0);
        }
    }
    EXPECT_FALSE(France2SP().IsLocal());
}

TEST(LambertConformalConic, LongNameIsTruncatedSafely) {
    const std::string longName(400, 'L');
    const CGxLambert1SP p(longName.c_str(), 1, 0, 45, 0, 0, kGrs80);
    EXPECT_EQ(std::string(p.GetName()), longName.substr(0, 255));
}

TEST(LambertConformalConic, AnonymousEllipsoid) {
    CGxEllipsoid out("keep", "K", 1, 1);
    ASSERT_TRUE(France2SP().GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6378137.0);
    EXPECT_NEAR(out.GetInvFlatness(), 298.257222101, 1e-9);
    EXPECT_EQ(out.GetName(), "keep");
    EXPECT_EQ(out.GetID(), "K");

    const CGxEllipsoid sphere("Sphere", "SP", 6371000.0, 0.0);
    ASSERT_TRUE(CGxLambert1SP("S", 1, 0, 45, 0, 0, sphere).GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6371000.0);
    EXPECT_EQ(out.GetInvFlatness(), 0.0);

    // A major axis of 0 is no ellipsoid: out is left alone.
    const CGxEllipsoid none("None", "NO", 0.0, 300.0);
    EXPECT_FALSE(CGxLambert2SP("N", 49, 44, 3, 46.5, 0, 0, none).GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6371000.0);
}

TEST(LambertConformalConic, SphereAgreesWithProj) {
    // The sphere is the ellipsoid with e = 0, through the same formulas.
    // cct -d 6 +proj=lcc +lat_1=33 +lat_2=45 +lat_0=23 +lon_0=-96 +x_0=0 +y_0=0 +R=6371000
    //   -120 50 -> -1719152.591966 3244428.145268
    //   -75 28  ->  2069047.833749  808217.874079
    const CGxEllipsoid sphere("Sphere", "SP", 6371000.0, 0.0);
    const GxReferencePoint table[] = {{-120, 50, -1719152.591966, 3244428.145268},
                                      {-75, 28, 2069047.833749, 808217.874079}};
    GxExpectReferenceTable(CGxLambert2SP("Conus", 33, 45, -96, 23, 0, 0, sphere), table,
                           kGxMillimetreTable);
}

TEST(LambertConformalConic, CloneIsAnIndependentCopy) {
    auto original = std::make_unique<CGxLambert2SP>(France2SP());
    std::unique_ptr<CGxProjection> clone(original->Clone());
    original.reset();
    EXPECT_STREQ(clone->GetName(), "Lambert-93");
    GxExpectReferenceTable(*clone, kFrance2SP, kGxMillimetreTable);

    const CGxLambert1SP one("Jamaica", 1, -77, 18, 250000, 150000, kClarke1866);
    std::unique_ptr<CGxProjection> clone1(one.Clone());
    GxExpectReferenceTable(*clone1, kJamaica1SP, kGxMillimetreTable);
}

TEST(LambertConformalConic, NotANumberStaysNotANumber) {
    // NaN must not be mistaken for a latitude beyond the pole and sent to the
    // apex by the clamp of the isometric term.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const CGxLambert2SP p = France2SP();
    double x, y;
    p.Geo2Proj(3, nan, &x, &y);
    EXPECT_TRUE(std::isnan(x) || std::isnan(y));
    p.Geo2Proj(nan, 45, &x, &y);
    EXPECT_TRUE(std::isnan(x));
    EXPECT_TRUE(std::isnan(y));
    p.Proj2Geo(nan, 6600000, &x, &y);
    EXPECT_TRUE(std::isnan(x));
    EXPECT_TRUE(std::isnan(y));
}

TEST(LambertConformalConic, FlatConeGivesNotANumber) {
    // A cone constant of 0 (the one-parallel origin on the equator, or two
    // parallels mirrored about it) is a cylinder, which no cone can draw:
    // every point comes out as NaN rather than somewhere plausible.
    const CGxLambert1SP equator("E", 1, 0, 0, 500000, 0, kGrs80);
    const CGxLambert2SP mirrored("M", 30, -30, 0, 0, 500000, 0, kGrs80);
    for (const CGxProjection* p : {static_cast<const CGxProjection*>(&equator),
                                   static_cast<const CGxProjection*>(&mirrored)}) {
        double x, y, lon, lat;
        p->Geo2Proj(10, 20, &x, &y);
        EXPECT_TRUE(std::isnan(x) || std::isnan(y));
        p->Proj2Geo(600000, 100000, &lon, &lat);
        EXPECT_TRUE(std::isnan(lon) || std::isnan(lat));
    }
}
