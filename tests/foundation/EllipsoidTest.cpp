#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"

TEST(Ellipsoid, DefaultIsUnitWithFlatteningOne) {
    // The odd default (a = 1, 1/f = 1) must stay: code that checks for a
    // positive major axis treats a default ellipsoid as valid.
    CGxEllipsoid e;
    EXPECT_EQ(e.GetMajor(), 1.0);
    EXPECT_EQ(e.GetInvFlatness(), 1.0);
    EXPECT_EQ(e.GetFlatness(), 1.0);
    EXPECT_EQ(e.GetMinor(), 0.0);
    EXPECT_EQ(e.GetEccentricity(), 1.0);
    EXPECT_EQ(e.GetName(), "");
    EXPECT_EQ(e.GetID(), "");
}

TEST(Ellipsoid, SphereAndNegativeInverseFlattening) {
    for (double invf : {0.0, -5.0}) {
        CGxEllipsoid s("Sphere", "XY", 6371229.0, invf);
        EXPECT_EQ(s.GetFlatness(), 0.0);
        EXPECT_EQ(s.GetMinor(), 6371229.0);
        EXPECT_EQ(s.GetEccentricity(), 0.0);
        EXPECT_EQ(s.GetInvFlatness(), invf);
    }
}

TEST(Ellipsoid, Wgs84DerivedValues) {
    // WGS 84: b = 6356752.314245179 m, e = 0.0818191908426215 (published values).
    CGxEllipsoid w("WGS 84", "WE", 6378137.0, 298.257223563);
    EXPECT_NEAR(w.GetMinor(), 6356752.314245179, 1e-6);
    EXPECT_NEAR(w.GetEccentricity(), 0.0818191908426215, 1e-15);
}

TEST(Ellipsoid, EqualityUsesNamesAndRelativeTolerance) {
    CGxEllipsoid a("International 1924", "IN", 6378388.0, 297.0);
    CGxEllipsoid renamed("Hayford", "HA", 6378388.0 * (1 + 1e-13), 297.0);
    EXPECT_TRUE(a.IsEquivalent(renamed));
    EXPECT_FALSE(a == renamed);

    CGxEllipsoid near("International 1924", "IN", 6378388.0 * (1 + 1e-13), 297.0);
    EXPECT_TRUE(a == near);
    CGxEllipsoid far("International 1924", "IN", 6378388.0 * (1 + 1e-9), 297.0);
    EXPECT_FALSE(a == far);
    EXPECT_FALSE(a.IsEquivalent(far));

    // Names compare byte for byte: a trailing blank is a different name.
    CGxEllipsoid blank("International 1924 ", "IN", 6378388.0, 297.0);
    EXPECT_FALSE(a == blank);

    a = a;
    EXPECT_EQ(a.GetName(), "International 1924");
}

TEST(Ellipsoid, SetParamsKeepsNames) {
    CGxEllipsoid e("Bessel 1841", "BR", 1, 1);
    e.SetParams(6377397.155, 299.1528128);
    EXPECT_EQ(e.GetName(), "Bessel 1841");
    EXPECT_EQ(e.GetID(), "BR");
    EXPECT_EQ(e.GetMajor(), 6377397.155);
}

TEST(Nearness, RelativeToleranceAndNaN) {
    EXPECT_TRUE(GxIsNear(0.0, 0.0));
    EXPECT_FALSE(GxIsNear(0.0, 1e-300));  // against zero only an exact zero agrees
    EXPECT_TRUE(GxIsNear(100.0, 100.0 * (1 + 0.9e-12)));
    EXPECT_FALSE(GxIsNear(100.0, 100.0 * (1 + 2e-12)));
    EXPECT_FALSE(GxIsNear(NAN, NAN));
    EXPECT_TRUE(GxIsNear(INFINITY, INFINITY));
    EXPECT_TRUE(GxIsUnset(-1e-35));
    EXPECT_FALSE(GxIsUnset(-1.0000000000000001e-35 * 1.5));
}

TEST(CartDef, UnitConversions) {
    EXPECT_DOUBLE_EQ(CGxCartDef::arcsec2rad(3600.0 * 180.0), kGxPi);
    EXPECT_EQ(CGxCartDef::ppm2dec(1.0), 1e-6);
}
