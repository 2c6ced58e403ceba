// Mercator, scale-factor and standard-parallel forms, against PROJ.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "foundation/Ellipsoid.h"
#include "projections/Mercator1SP.h"
#include "projections/Mercator2SP.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceFile.h"

namespace {

// The ellipsoids as PROJ defines them (+ellps=...).

const auto kIndonesia1SP = GxReadReferencePoints("mercator/indonesia_1sp.txt");
const auto kWorld = GxReadReferencePoints("mercator/world.txt");
const auto kCaspian2SP = GxReadReferencePoints("mercator/caspian_2sp.txt");
const auto kAmazon2SP = GxReadReferencePoints("mercator/amazon_2sp.txt");

CGxMercator1SP Indonesia() {
    return CGxMercator1SP("Indonesia", 0.997, 110, 3900000, 900000, kGxWgs84);
}

}  // namespace

TEST(Mercator1SP, AgreesWithProj) {
    GxExpectReferenceTable(Indonesia(), kIndonesia1SP, kGxMillimetreTable);
    GxExpectReferenceTable(CGxMercator1SP("World", 1, 0, 0, 0, kGxWgs84), kWorld,
                           kGxMillimetreTable);
}

TEST(Mercator2SP, AgreesWithProjInBothHemispheres) {
    GxExpectReferenceTable(CGxMercator2SP("Caspian", 42, 51, 500000, -200000, kGxKrassowsky),
                           kCaspian2SP, kGxMillimetreTable);
    GxExpectReferenceTable(
        CGxMercator2SP("Amazon", -12.5, -60, 1000000, 10000000, kGxInternational), kAmazon2SP,
        kGxMillimetreTable);
}

TEST(Mercator2SP, DerivedScaleIsTheRadiusOfTheStandardParallel) {
    // cct -d 9 +proj=merc +lat_ts=42 +lon_0=51 +x_0=0 +y_0=0 +ellps=krass
    //   52 0 -> 82852.146655253, one degree of equator, so k0 = x / (a pi / 180).
    // proj -V +proj=merc +lat_ts=-12.5 +lon_0=-60 +ellps=intl, at (-60, 0):
    //   "Parallel scale (k) : 0.97644978".
    double k0 = -1;
    CGxMercator2SP("Caspian", 42, 51, 0, 0, kGxKrassowsky).GetDerivedParameters(&k0);
    EXPECT_NEAR(k0, 82852.146655253 / (6378245.0 * 3.141592653589793 / 180), 1e-13);
    CGxMercator2SP("Amazon", -12.5, -60, 0, 0, kGxInternational).GetDerivedParameters(&k0);
    EXPECT_NEAR(k0, 0.97644978, 5e-9);

    // The one-parallel form has no derived parameter and says 0.
    Indonesia().GetDerivedParameters(&k0);
    EXPECT_EQ(k0, 0.0);
}

TEST(Mercator2SP, EquatorAsStandardParallelIsTheScaleOneCylinder) {
    const CGxMercator2SP p("World", 0, 0, 0, 0, kGxWgs84);
    double k0 = -1;
    p.GetDerivedParameters(&k0);
    EXPECT_EQ(k0, 1.0);
    GxExpectReferenceTable(p, kWorld, kGxMillimetreTable);
}

TEST(Mercator, PolesLieAtInfiniteNorthing) {
    // PROJ refuses the poles; here the isometric latitude is infinite there
    // and so is the northing, with the sign of the hemisphere, on both forms.
    const CGxMercator1SP p1 = Indonesia();
    const CGxMercator2SP p2("Caspian", 42, 51, 500000, -200000, kGxKrassowsky);
    for (const CGxProjection* p :
         {static_cast<const CGxProjection*>(&p1), static_cast<const CGxProjection*>(&p2)}) {
        double x, y;
        p->Geo2Proj(10, 90, &x, &y);
        EXPECT_TRUE(std::isinf(y) && y > 0);
        EXPECT_TRUE(std::isfinite(x));
        p->Geo2Proj(10, -90, &x, &y);
        EXPECT_TRUE(std::isinf(y) && y < 0);
    }
    // Close to the poles the northing is finite and matches PROJ:
    // cct -d 6 +proj=merc +k_0=0.997 +lon_0=110 +x_0=3900000 +y_0=900000 +ellps=WGS84
    //   110 89.999  -> 3900000  74934179.214972
    //   110 -89.999 -> 3900000 -73134179.214972
    const GxReferencePoint nearPoles[] = {{110, 89.999, 3900000, 74934179.214972},
                                          {110, -89.999, 3900000, -73134179.214972}};
    GxExpectReferenceTable(Indonesia(), nearPoles, kGxMillimetreTable);
}

TEST(Mercator, EquatorInvertsToLatitudeExactlyZero) {
    double lon, lat;
    Indonesia().Proj2Geo(4000000, 900000, &lon, &lat);
    EXPECT_EQ(lat, 0.0);
    CGxMercator2SP("Amazon", -12.5, -60, 1000000, 10000000, kGxInternational)
        .Proj2Geo(-5e6, 10000000, &lon, &lat);
    EXPECT_EQ(lat, 0.0);
}

TEST(Mercator, LongitudeIsNotWrapped) {
    // 360 degrees east of the centre the easting has grown by 2 pi a k0.
    // PROJ wraps unless told +over:
    // cct -d 6 +proj=merc +k_0=0.997 +lon_0=110 +x_0=3900000 +y_0=900000 +ellps=WGS84 +over
    //   470 10 -> 43854791.635522 2008140.677544
    double x, y;
    Indonesia().Geo2Proj(470, 10, &x, &y);
    EXPECT_NEAR(x, 43854791.635522, 1e-3);
    EXPECT_NEAR(y, 2008140.677544, 1e-3);
}

TEST(Mercator, OriginConvergenceAndDefaultArea) {
    double lon, lat;
    CGxMercator2SP("Caspian", 42, 51, 500000, -200000, kGxKrassowsky).GetOrigin(&lon, &lat);
    EXPECT_NEAR(lon, 51, 1e-12);
    EXPECT_EQ(lat, 0.0);

    // Meridians are parallel to grid north.
    EXPECT_NEAR(Indonesia().GetConvergence(125, 23.75), 0.0, 1e-9);
    EXPECT_NEAR(Indonesia().GetConvergence(95, -10), 0.0, 1e-9);

    // Centred on Greenwich: the world from 60 S to 81 N, on both forms.
    // cct -d 6 +proj=merc +k_0=1 +lon_0=0 +x_0=0 +y_0=0 +ellps=WGS84
    //   -180 -60 -> -20037508.342789 -8362698.548501
    //   180 81   ->  20037508.342789 16171536.910482
    double x0, y0, x1, y1;
    const CGxMercator1SP world1("W", 1, 0, 0, 0, kGxWgs84);
    const CGxMercator2SP world2("W", 0, 0, 0, 0, kGxWgs84);
    for (const CGxProjection* p :
         {static_cast<const CGxProjection*>(&world1), static_cast<const CGxProjection*>(&world2)}) {
        p->GetDefaultArea(&x0, &y0, &x1, &y1);
        EXPECT_NEAR(x0, -20037508.342789, 1e-3);
        EXPECT_NEAR(y0, -8362698.548501, 1e-3);
        EXPECT_NEAR(x1, 20037508.342789, 1e-3);
        EXPECT_NEAR(y1, 16171536.910482, 1e-3);
    }
    // Centred anywhere else: the 6 by 6 degree box around (centre, 0).
    // cct -d 6 +proj=merc +k_0=0.997 +lon_0=110 +x_0=3900000 +y_0=900000 +ellps=WGS84
    //   107 -3 -> 3567043.403037 569119.095390
    //   113 3  -> 4232956.596963 1230880.904610
    Indonesia().GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, 3567043.403037, 1e-3);
    EXPECT_NEAR(y0, 569119.095390, 1e-3);
    EXPECT_NEAR(x1, 4232956.596963, 1e-3);
    EXPECT_NEAR(y1, 1230880.904610, 1e-3);
}
