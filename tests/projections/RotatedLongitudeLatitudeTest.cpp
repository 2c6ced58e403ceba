#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/RotatedLongitudeLatitude.h"
#include "tests/support/ReferenceCheck.h"

// Rotated-pole grids against independent values from PROJ 9.1.1.
//
// On a sphere the rotation of the Cartesian coordinates is a plain rotation of
// longitude and latitude, which PROJ's ob_tran does directly. A south pole at
// (lonP, latP) puts the rotated north pole at (lonP + 180, -latP); ob_tran
// with o_lat_p = -latP, o_lon_p = 0 and lon_0 = lonP is the same grid.
//
// On an ellipsoid ob_tran is not comparable: it rotates geodetic latitudes as
// if they were spherical, while this grid rotates the Earth-centred position
// and reads the geodetic latitude of the rotated point, which lies off the
// ellipsoid. The same construction is spelled out in a PROJ pipeline instead:
// geodetic to Cartesian, the rotation about z by -lonP, the rotation about y by
// 90 + latP (exact Helmert rotations, position-vector convention, angles in
// arc-seconds), Cartesian to geodetic with the height dropped. The inverse is
// the same pipeline run backwards (cct -I) from height 0.

namespace {

struct Case {
    double inLon, inLat;    // degrees
    double outLon, outLat;  // degrees
};

// 1e-9 degrees is about 0.1 mm on the ground; cct printed 10 decimals.
constexpr double kAngleTolerance = 2e-9;

const CGxEllipsoid kSphere("Sphere", "SP", 6371229.0, 0.0);
const CGxEllipsoid kGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);
const CGxEllipsoid kClarke1866("Clarke 1866", "CC", 6378206.4, 294.9786982138982);

template <std::size_t N>
void ExpectForward(const CGxProjection& p, const Case (&table)[N]) {
    for (const Case& c : table) {
        SCOPED_TRACE(testing::Message() << c.inLon << " " << c.inLat);
        double x, y;
        p.Geo2Proj(c.inLon, c.inLat, &x, &y);
        GxExpectLongitudeLatitude(x, y, c.outLon, c.outLat, kAngleTolerance);
    }
}

template <std::size_t N>
void ExpectInverse(const CGxProjection& p, const Case (&table)[N]) {
    for (const Case& c : table) {
        SCOPED_TRACE(testing::Message() << c.inLon << " " << c.inLat);
        double lon, lat;
        p.Proj2Geo(c.inLon, c.inLat, &lon, &lat);
        GxExpectLongitudeLatitude(lon, lat, c.outLon, c.outLat, kAngleTolerance);
    }
}

// Geodetic to Cartesian, GRS80, height 0:
//   echo "lon lat 0 0" | cct -d 4 +proj=cart +ellps=GRS80
constexpr double kCartesian[][5] = {
    // lon, lat, X, Y, Z
    {0, 0, 6378137.0000, 0.0000, 0.0000},
    {18, 50.75, 3845697.8182, 1249542.9669, 4915995.1971},
    {-97, -42.5, -573962.7400, -4674551.3916, -4286714.7300},
    {123.4, 89.9, -6148.5353, 9324.7432, 6356742.5670},
    {-179.5, -0.5, -6377652.9151, -55656.9338, -55286.4503},
};

// Cartesian to geodetic, GRS80, for points up to 300 km off the surface, by
// GeographicLib's exact solution (the height column is not used):
//   echo "X Y Z" | CartConvert -r -e 6378137 1/298.257222101 -p 12
constexpr double kGeodetic[][5] = {
    // X, Y, Z, lon, lat
    {4000000, 1200000, 4800000, 16.699244233993621, 49.166488714618005},       // h -3.5 km
    {-2000000, -500000, -5900000, -165.963756532073518, -70.861386819754856},  // h -109 km
    {20000, -10000, 6370000, -26.565051177077990, 89.800218440462714},         // h +13 km
    {6390000, 0, 0, 0.0, 0.0},                                                 // h +12 km
    {3500000, 3500000, 3500000, 45.0, 35.455284754616351},                     // h -309 km
};

// Sphere of radius 6371229 m, south pole (18, -39.25) (the European regional
// climate grids):
//   echo "lon lat 0 0" | cct -d 10 +proj=pipeline
//     +step +proj=unitconvert +xy_in=deg +xy_out=rad
//     +step +proj=ob_tran +o_proj=longlat +o_lon_p=0 +o_lat_p=39.25 +lon_0=18 +R=6371229
//     +step +proj=unitconvert +xy_in=rad +xy_out=deg
// and the inverse table from the same command with cct -I.
constexpr Case kSphereEuropeForward[] = {
    {-12, 26.75, -28.0530883045, -18.3059483885},
    {-12, 38.75, -23.1491152642, -7.2962391392},
    {-12, 50.75, -18.4837961023, 3.7637449480},
    {-12, 62.75, -13.6972193650, 14.7982142721},
    {-12, 74.75, -8.3941720845, 25.7233235944},
    {3, 26.75, -14.4903825474, -22.5304139646},
    {3, 38.75, -11.8579974218, -10.7971843911},
    {3, 50.75, -9.4263123291, 0.9566010504},
    {3, 62.75, -6.9776783804, 12.7086520069},
    {3, 74.75, -4.2883298606, 24.4360405726},
    {18, 26.75, 0.0000000000, -24.0000000000},
    {18, 38.75, 0.0000000000, -12.0000000000},
    {18, 50.75, 0.0000000000, -0.0000000000},
    {18, 62.75, 0.0000000000, 12.0000000000},
    {18, 74.75, 0.0000000000, 24.0000000000},
    {33, 26.75, 14.4903825474, -22.5304139646},
    {33, 38.75, 11.8579974218, -10.7971843911},
    {33, 50.75, 9.4263123291, 0.9566010504},
    {33, 62.75, 6.9776783804, 12.7086520069},
    {33, 74.75, 4.2883298606, 24.4360405726},
    {48, 26.75, 28.0530883045, -18.3059483885},
    {48, 38.75, 23.1491152642, -7.2962391392},
    {48, 50.75, 18.4837961023, 3.7637449480},
    {48, 62.75, 13.6972193650, 14.7982142721},
    {48, 74.75, 8.3941720845, 25.7233235944},
    {60, 26.75, 37.8683057914, -13.2450971229},
    {60, 38.75, 31.5050129586, -3.0259014470},
    {60, 50.75, 25.2618301567, 7.2298082020},
    {60, 62.75, 18.7272650291, 17.3967045192},
    {60, 74.75, 11.4264449192, 27.3261664021},
    {18, 89.5, 0.0000000000, 38.7500000000},
    {-150, 80, -3.1541689125, 48.9927406136},
};

constexpr Case kSphereEuropeInverse[] = {
    {-39.5, -29.75, -16.3470530809, 11.8192573730},
    {-39.5, -14.75, -24.5850775827, 24.6302646712},
    {-39.5, 0.25, -34.6845971823, 36.8910572044},
    {-39.5, 15.25, -48.4611769569, 47.9808085376},
    {-39.5, 30.25, -68.7069574950, 56.6072064588},
    {-27.5, -29.75, -6.7020616632, 16.4036343779},
    {-27.5, -14.75, -13.1116698351, 30.2099935711},
    {-27.5, 0.25, -21.6161719933, 43.6023159372},
    {-27.5, 15.25, -34.8309884618, 56.0093193331},
    {-27.5, 30.25, -58.6469769671, 65.7978144731},
    {-13.5, -29.75, 5.5551952687, 19.8641720765},
    {-13.5, -14.75, 2.0924049006, 34.5478169128},
    {-13.5, 0.25, -2.8840287484, 49.0909143740},
    {-13.5, 15.25, -12.0146877322, 63.2402524089},
    {-13.5, 30.25, -36.9751419963, 75.7440304024},
    {0.5, -29.75, 18.4649777148, 20.9984288740},
    {0.5, -14.75, 18.5976552074, 35.9979805656},
    {0.5, 0.25, 18.7944697114, 50.9973155375},
    {0.5, 15.25, 19.1858931940, 65.9959929014},
    {0.5, 30.25, 20.7592113693, 80.9906755894},
    {14.5, -29.75, 31.3489569639, 19.6913278159},
    {14.5, -14.75, 35.0494990599, 34.3281514181},
    {14.5, 0.25, 40.3434515965, 48.8056590424},
    {14.5, 15.25, 49.9527195592, 62.8415712253},
    {14.5, 30.25, 75.2678252488, 75.1010458545},
    {28.5, -29.75, 43.5390022210, 16.0748832335},
    {28.5, -14.75, 50.1252248709, 29.8040057399},
    {28.5, 0.25, 58.8072001384, 43.1023497919},
    {28.5, 15.25, 72.1391574189, 55.3869275156},
    {28.5, 30.25, 95.6561744722, 65.0428104500},
    {170, -60, 31.5923645700, -68.3186424326},
    {-120, 75, -146.8855857812, 30.7259720750},
};

// GRS80, south pole (18, -39.25):
//   echo "lon lat 0 0" | cct -d 10 +proj=pipeline +step +proj=cart +ellps=GRS80
//     +step +proj=helmert +rz=-64800 +exact +convention=position_vector
//     +step +proj=helmert +ry=182700 +exact +convention=position_vector
//     +step +inv +proj=cart +ellps=GRS80
// and the inverse table from the same command with cct -I (input height 0).
constexpr Case kGrs80EuropeForward[] = {
    {-12, 26.75, -28.1194570809, -18.5627563646},
    {-12, 38.75, -23.2230222647, -7.5188915989},
    {-12, 50.75, -18.5571566166, 3.6140180188},
    {-12, 62.75, -13.7621926212, 14.7490835424},
    {-12, 74.75, -8.4408639522, 25.7856807636},
    {3, 26.75, -14.5266872632, -22.8183736852},
    {3, 38.75, -11.8970152427, -11.0532339196},
    {3, 50.75, -9.4641389678, 0.7769550756},
    {3, 62.75, -7.0107177770, 12.6371488469},
    {3, 74.75, -4.3119960303, 24.4857074563},
    {18, 26.75, -0.0000000000, -24.2984005852},
    {18, 38.75, 0.0000000000, -12.2674781512},
    {18, 50.75, 0.0000000000, -0.1899608431},
    {18, 62.75, -0.0000000000, 11.9207747757},
    {18, 74.75, 0.0000000000, 24.0453034267},
    {33, 26.75, 14.5266872632, -22.8183736852},
    {33, 38.75, 11.8970152427, -11.0532339196},
    {33, 50.75, 9.4641389678, 0.7769550756},
    {33, 62.75, 7.0107177770, 12.6371488469},
    {33, 74.75, 4.3119960303, 24.4857074563},
    {48, 26.75, 28.1194570809, -18.5627563646},
    {48, 38.75, 23.2230222647, -7.5188915989},
    {48, 50.75, 18.5571566166, 3.6140180188},
    {48, 62.75, 13.7621926212, 14.7490835424},
    {48, 74.75, 8.4408639522, 25.7856807636},
    {60, 26.75, 37.9527742284, -13.4626832326},
    {60, 38.75, 31.6025732070, -3.2078300114},
    {60, 50.75, 25.3611401880, 7.1161422676},
    {60, 62.75, 18.8165175744, 17.3745141955},
    {60, 74.75, 11.4907022016, 27.4039206989},
    {18, 89.5, 0.0000000000, 38.9350087321},
    {-150, 80, -3.1788901112, 49.2474021971},
};

constexpr Case kGrs80EuropeInverse[] = {
    {-39.5, -29.75, -16.4321965865, 12.0406017507},
    {-39.5, -14.75, -24.6414328891, 24.8560678618},
    {-39.5, 0.25, -34.6833084288, 37.0744512565},
    {-39.5, 15.25, -48.3542603571, 48.1058727093},
    {-39.5, 30.25, -68.4356065366, 56.7088668657},
    {-27.5, -29.75, -6.7664258098, 16.6626899582},
    {-27.5, -14.75, -13.1569451318, 30.4637942864},
    {-27.5, 0.25, -21.6150308206, 43.7927785087},
    {-27.5, 15.25, -34.7197935717, 56.1123962706},
    {-27.5, 30.25, -58.2923725022, 65.8592950117},
    {-13.5, -29.75, 5.5213332386, 20.1507945658},
    {-13.5, -14.75, 2.0672009109, 34.8200225750},
    {-13.5, 0.25, -2.8833232768, 49.2793160848},
    {-13.5, 15.25, -11.9281167180, 63.3054305784},
    {-13.5, 30.25, -36.4805666269, 75.7220248085},
    {0.5, -29.75, 18.4662624455, 21.2938851059},
    {0.5, -14.75, 18.5986318067, 36.2756649725},
    {0.5, 0.25, 18.7944411593, 51.1833542018},
    {0.5, 15.25, 19.1819317006, 66.0413928326},
    {0.5, 30.25, 20.7139663324, 80.8838780336},
    {14.5, -29.75, 31.3851962567, 19.9765949836},
    {14.5, -14.75, 35.0763892947, 34.5994977026},
    {14.5, 0.25, 40.3427035501, 48.9943417932},
    {14.5, 15.25, 49.8623667200, 62.9093433163},
    {14.5, 30.25, 74.7809517550, 75.0864879007},
    {28.5, -29.75, 43.6052911004, 16.3312756530},
    {28.5, -14.75, 50.1716289036, 30.0559303894},
    {28.5, 0.25, 58.8060401508, 43.2926481156},
    {28.5, 15.25, 72.0278458648, 55.4924263092},
    {28.5, 30.25, 95.3102024633, 65.1086593142},
    {170, -60, 31.7579514688, -68.6050215428},
    {-120, 75, -146.7980672646, 30.8350684009},
};

// Clarke 1866, south pole (-97, -42.5): as for GRS80 with +ellps=clrk66,
// +rz=349200 and +ry=171000.
constexpr Case kClarke1866NorthAmericaForward[] = {
    {-127, 23.5, -28.9606761788, -18.6789852019},
    {-127, 35.5, -24.2992966749, -7.5460763957},
    {-127, 47.5, -19.8603197731, 3.6709860531},
    {-127, 59.5, -15.2955118210, 14.8930874663},
    {-127, 71.5, -10.2188277150, 26.0277593172},
    {-112, 23.5, -14.9254518993, -22.8407240937},
    {-112, 35.5, -12.4232276400, -11.0579076944},
    {-112, 47.5, -10.1087272467, 0.7875057763},
    {-112, 59.5, -7.7743090062, 12.6639418764},
    {-112, 71.5, -5.2050919623, 24.5331515095},
    {-97, 23.5, 0.0000000000, -24.2875255516},
    {-97, 35.5, 0.0000000000, -12.2643668762},
    {-97, 47.5, 0.0000000000, -0.1952062074},
    {-97, 59.5, 0.0000000000, 11.9080573440},
    {-97, 71.5, 0.0000000000, 24.0273362162},
    {-82, 23.5, 14.9254518993, -22.8407240937},
    {-82, 35.5, 12.4232276400, -11.0579076944},
    {-82, 47.5, 10.1087272467, 0.7875057763},
    {-82, 59.5, 7.7743090062, 12.6639418764},
    {-82, 71.5, 5.2050919623, 24.5331515095},
    {-67, 23.5, 28.9606761788, -18.6789852019},
    {-67, 35.5, 24.2992966749, -7.5460763957},
    {-67, 47.5, 19.8603197731, 3.6709860531},
    {-67, 59.5, 15.2955118210, 14.8930874663},
    {-67, 71.5, 10.2188277150, 26.0277593172},
    {-55, 23.5, 39.1988501637, -13.6894390296},
    {-55, 35.5, 33.1523641059, -3.2623716337},
    {-55, 47.5, 27.2138718526, 7.2308158341},
    {-55, 59.5, 20.9770064218, 17.6661953985},
    {-55, 71.5, 13.9655040500, 27.8919366563},
    {-97, 89.5, 0.0000000000, 42.1905218384},
    {60, 75, 10.4861316411, 56.1805086857},
};

constexpr Case kClarke1866NorthAmericaInverse[] = {
    {-39.5, -29.75, -131.0899548962, 9.3397357025},
    {-39.5, -14.75, -138.6928842656, 22.4382273912},
    {-39.5, 0.25, -147.8360427333, 35.0600619282},
    {-39.5, 15.25, -160.1747842906, 46.7215672282},
    {-39.5, 30.25, -178.5720552546, 56.3709105826},
    {-27.5, -29.75, -121.4026865494, 13.6926763500},
    {-27.5, -14.75, -127.2412642486, 27.6617449404},
    {-27.5, 0.25, -134.7637701767, 41.2560108638},
    {-27.5, 15.25, -146.1260771373, 54.0682556250},
    {-27.5, 30.25, -166.5481373052, 64.9076643825},
    {-13.5, -29.75, -109.2469520169, 16.9620626466},
    {-13.5, -14.75, -112.3620031955, 31.6848974148},
    {-13.5, 0.25, -116.6515656149, 46.2343055933},
    {-13.5, 15.25, -124.0447393203, 60.4592551897},
    {-13.5, 30.25, -142.4425783073, 73.6362753535},
    {0.5, -29.75, -96.5430192741, 18.0301580251},
    {0.5, -14.75, -96.4242283358, 33.0210932430},
    {0.5, 0.25, -96.2564121931, 47.9391650910},
    {0.5, 15.25, -95.9495346292, 62.8062616663},
    {0.5, 30.25, -94.9888390171, 77.6557955501},
    {14.5, -29.75, -83.8606631285, 16.7991412115},
    {14.5, -14.75, -80.5294352359, 31.4820869054},
    {14.5, 0.25, -75.9591806852, 45.9780179421},
    {14.5, 15.25, -68.1461180211, 60.1148679278},
    {14.5, 30.25, -49.1978912875, 73.1033589053},
    {28.5, -29.75, -71.7616925535, 13.3813031306},
    {28.5, -14.75, -65.7558805371, 27.2833825342},
    {28.5, 0.25, -58.0609346012, 40.7981029450},
    {28.5, 15.25, -46.5526205936, 53.5063727250},
    {28.5, 30.25, -26.2534038344, 64.2171548010},
    {170, -60, -80.9357897719, -71.7330854344},
    {-120, 75, 98.7498401997, 33.9776493732},
};

}  // namespace

TEST(RotatedLongitudeLatitude, CartesianConversionsMatchProj) {
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kGrs80);
    for (const auto& c : kCartesian) {
        double X, Y, Z;
        grid.Geo2XYZ(c[0], c[1], &X, &Y, &Z);
        EXPECT_NEAR(X, c[2], 1e-4) << c[0] << " " << c[1];
        EXPECT_NEAR(Y, c[3], 1e-4) << c[0] << " " << c[1];
        EXPECT_NEAR(Z, c[4], 1e-4) << c[0] << " " << c[1];
    }
    // Bowring's closed form stays within 1e-10 degrees (10 micrometres) even
    // hundreds of kilometres off the surface; rotated points of a grid are
    // never more than about 21 km off.
    for (const auto& c : kGeodetic) {
        double lon, lat;
        grid.XYZ2Geo(c[0], c[1], c[2], &lon, &lat);
        EXPECT_NEAR(lon, c[3], 1e-10) << c[0] << " " << c[1] << " " << c[2];
        EXPECT_NEAR(lat, c[4], 1e-10) << c[0] << " " << c[1] << " " << c[2];
    }
}

TEST(RotatedLongitudeLatitude, PolarAxisKeepsItsHemisphere) {
    // Straight above a pole the closed form's denominator rounds to a tiny
    // negative number; a plain evaluation put the north pole on the south one.
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kGrs80);
    double lon, lat;
    grid.XYZ2Geo(0, 0, 6356752.3, &lon, &lat);
    EXPECT_EQ(lat, 90.0);
    grid.XYZ2Geo(0, 0, -6356752.3, &lon, &lat);
    EXPECT_EQ(lat, -90.0);
    grid.XYZ2Geo(0, 0, 0, &lon, &lat);
    EXPECT_TRUE(std::isnan(lat));
}

TEST(RotatedLongitudeLatitude, SphereMatchesObliqueTransformation) {
    CGxRotatedLongitudeLatitude europe("Rotated EU", 18, -39.25, 0, kSphere);
    ExpectForward(europe, kSphereEuropeForward);
    ExpectInverse(europe, kSphereEuropeInverse);
}

TEST(RotatedLongitudeLatitude, EllipsoidMatchesCartesianRotationPipeline) {
    CGxRotatedLongitudeLatitude europe("Rotated EU", 18, -39.25, 0, kGrs80);
    ExpectForward(europe, kGrs80EuropeForward);
    ExpectInverse(europe, kGrs80EuropeInverse);
    CGxRotatedLongitudeLatitude america("Rotated NA", -97, -42.5, 0, kClarke1866);
    ExpectForward(america, kClarke1866NorthAmericaForward);
    ExpectInverse(america, kClarke1866NorthAmericaInverse);
}

TEST(RotatedLongitudeLatitude, RoundTrip) {
    // On a sphere forward and inverse undo each other to rounding. On an
    // ellipsoid the rotated point's height is dropped between the two, so a
    // round trip lands a few tens of metres away at most (41 m in this box).
    CGxRotatedLongitudeLatitude sphere("Rotated", 18, -39.25, 0, kSphere);
    CGxRotatedLongitudeLatitude ellipsoid("Rotated", 18, -39.25, 0, kGrs80);
    constexpr double kMetresPerDegree = 111320.0;
    for (double lon = -20; lon <= 40; lon += 5) {
        for (double lat = 20; lat <= 80; lat += 5) {
            double x, y, lon2, lat2;
            sphere.Geo2Proj(lon, lat, &x, &y);
            sphere.Proj2Geo(x, y, &lon2, &lat2);
            EXPECT_NEAR(lon2, lon, 1e-9);
            EXPECT_NEAR(lat2, lat, 1e-9);

            ellipsoid.Geo2Proj(lon, lat, &x, &y);
            ellipsoid.Proj2Geo(x, y, &lon2, &lat2);
            const double east = (lon2 - lon) * std::cos(lat * 0.017453292519943295);
            EXPECT_LT(std::hypot(east, lat2 - lat) * kMetresPerDegree, 45.0) << lon << " " << lat;
        }
    }
}

TEST(RotatedLongitudeLatitude, SouthPoleAtGeographicSouthPoleIsIdentity) {
    // The rotation is the unit matrix; what is left is the Cartesian round
    // trip, whose closed form is good to about 1e-11 degrees on the surface.
    CGxRotatedLongitudeLatitude grid("Unrotated", 0, -90, 0, kGrs80);
    const double points[][2] = {{0, 0}, {13.5, 52.25}, {-179.25, -33}, {120, 89.75},
                                {-45, -89.75}, {179.999, 1e-7}};
    for (const auto& p : points) {
        double x, y, lon, lat;
        grid.Geo2Proj(p[0], p[1], &x, &y);
        EXPECT_NEAR(x, p[0], 1e-10);
        EXPECT_NEAR(y, p[1], 1e-10);
        grid.Proj2Geo(p[0], p[1], &lon, &lat);
        EXPECT_NEAR(lon, p[0], 1e-10);
        EXPECT_NEAR(lat, p[1], 1e-10);
    }
    // Longitudes come back in (-180, 180].
    double x, y;
    grid.Geo2Proj(200, 10, &x, &y);
    EXPECT_NEAR(x, -160, 1e-11);
    // Meridians of the two systems coincide: no convergence.
    EXPECT_NEAR(grid.GetConvergence(75, 40), 0.0, 1e-9);
}

TEST(RotatedLongitudeLatitude, RotationAngleTakesNoPart) {
    CGxRotatedLongitudeLatitude plain("Rotated", 18, -39.25, 0, kGrs80);
    for (double angle : {37.0, -123.5, 180.0}) {
        CGxRotatedLongitudeLatitude turned("Rotated", 18, -39.25, angle, kGrs80);
        EXPECT_EQ(turned.GetRotationAngle(), angle);
        for (const Case& c : kGrs80EuropeForward) {
            double x1, y1, x2, y2;
            plain.Geo2Proj(c.inLon, c.inLat, &x1, &y1);
            turned.Geo2Proj(c.inLon, c.inLat, &x2, &y2);
            EXPECT_EQ(x1, x2);
            EXPECT_EQ(y1, y2);
            plain.Proj2Geo(c.inLon, c.inLat, &x1, &y1);
            turned.Proj2Geo(c.inLon, c.inLat, &x2, &y2);
            EXPECT_EQ(x1, x2);
            EXPECT_EQ(y1, y2);
        }
    }
}

TEST(RotatedLongitudeLatitude, ConvergencePointsAtTheRotatedPole) {
    // On the rotated equator of a spherical grid, grid north is the direction
    // of the great circle towards the rotated north pole (-162, 39.25).
    // Points: cct -I with the ob_tran pipeline above at rotated (x, 0);
    // azimuths: echo "lat lon 39.25 -162" | GeodSolve -i -e 6371229 0 -p 12
    const double cases[][3] = {
        // lon, lat, azimuth
        {-11.910107358338, 46.693174544422, -22.714758309342724},
        {33.572481934531, 49.696416881067, 11.998804526371691},
        {54.390439487896, 44.574660357106, 27.350668528105210},
    };
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kSphere);
    for (const auto& c : cases) EXPECT_NEAR(grid.GetConvergence(c[0], c[1]), c[2], 1e-3);
}

TEST(RotatedLongitudeLatitude, OriginAndDefaultArea) {
    // Corners of the +-3 degree box around the origin through the GRS80
    // pipeline above:
    //   (15, 47.75) -> (-2.0270760465, -3.1717298376)
    //   (21, 53.75) -> (1.7833599168, 2.8716880015)
    // The origin itself is at (0, -0.19) rather than (0, 0): the rotation acts
    // on the geocentric direction, not the geodetic one.
    CGxRotatedLongitudeLatitude europe("Rotated", 18, -39.25, 0, kGrs80);
    double lon, lat, x0, y0, x1, y1;
    europe.GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 18.0);
    EXPECT_EQ(lat, 50.75);
    europe.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, -2.0270760465, kAngleTolerance);
    EXPECT_NEAR(y0, -3.1717298376, kAngleTolerance);
    EXPECT_NEAR(x1, 1.7833599168, kAngleTolerance);
    EXPECT_NEAR(y1, 2.8716880015, kAngleTolerance);

    // An origin at (179, 88) clamps the box's east side to 180 and its north
    // side to the pole. Pipeline with +rz=-644400 +ry=316800:
    //   (176, 85) -> (-0.2634640445, -3.0470579842)
    //   (180, 90) -> (0, 2.0135134934)
    CGxRotatedLongitudeLatitude nearPole("Rotated", 179, -2, 0, kGrs80);
    nearPole.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, -0.2634640445, kAngleTolerance);
    EXPECT_NEAR(y0, -3.0470579842, kAngleTolerance);
    EXPECT_NEAR(x1, 0.0, kAngleTolerance);
    EXPECT_NEAR(y1, 2.0135134934, kAngleTolerance);
}

TEST(RotatedLongitudeLatitude, LocalNameIsIdentity) {
    CGxRotatedLongitudeLatitude grid("", 18, -39.25, 0, kGrs80);
    EXPECT_STREQ(grid.GetName(), "NON-UTM");
    EXPECT_TRUE(grid.IsLocal());
    EXPECT_TRUE(grid.IsGeographical());
    GxExpectIdentity(grid, 1234.5, -987.25);
    EXPECT_EQ(grid.GetConvergence(30, 60), 0.0);
}

TEST(RotatedLongitudeLatitude, CloneOutlivesOriginal) {
    // The clone carries its own rotation matrices: converting through it after
    // the original is gone must neither read freed storage nor free it twice.
    auto original = std::make_unique<CGxRotatedLongitudeLatitude>("Rotated", -97, -42.5, 0, kClarke1866);
    std::unique_ptr<CGxProjection> clone(original->Clone());
    original.reset();
    EXPECT_STREQ(clone->GetName(), "Rotated");
    EXPECT_FALSE(clone->IsLocal());
    EXPECT_TRUE(clone->IsGeographical());
    ExpectForward(*clone, kClarke1866NorthAmericaForward);
    ExpectInverse(*clone, kClarke1866NorthAmericaInverse);
}

TEST(RotatedLongitudeLatitude, AnonymousEllipsoidKeepsNames) {
    CGxEllipsoid out("Kept", "KP", 1, 1);
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kGrs80);
    ASSERT_TRUE(grid.GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 6378137.0);
    EXPECT_DOUBLE_EQ(out.GetInvFlatness(), 298.257222101);
    EXPECT_EQ(out.GetName(), "Kept");
    CGxRotatedLongitudeLatitude sphere("Rotated", 18, -39.25, 0, kSphere);
    ASSERT_TRUE(sphere.GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetInvFlatness(), 0.0);
}

TEST(RotatedLongitudeLatitude, HostileInputGivesNaNNotACrash) {
    CGxRotatedLongitudeLatitude grid("Rotated", 18, -39.25, 0, kGrs80);
    const double nan = std::nan("");
    const double inf = HUGE_VAL;
    const double inputs[][2] = {{nan, 45}, {10, nan}, {inf, 45}, {10, -inf}};
    for (const auto& in : inputs) {
        double x, y;
        grid.Geo2Proj(in[0], in[1], &x, &y);
        EXPECT_TRUE(std::isnan(x) || std::isnan(y));
        grid.Proj2Geo(in[0], in[1], &x, &y);
        EXPECT_TRUE(std::isnan(x) || std::isnan(y));
    }
}
