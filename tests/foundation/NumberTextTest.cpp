#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "foundation/Ellipsoid.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "tests/support/CommaLocale.h"

TEST(NumberText, FormatsLikePercent16g) {
    EXPECT_EQ(GxFormatNumber(0.017453292519943295), "0.0174532925199433");
    EXPECT_EQ(GxFormatNumber(-1e-35), "-1e-35");
    EXPECT_EQ(GxFormatNumber(6378137.0), "6378137");
    EXPECT_EQ(GxFormatNumber(298.257223563), "298.257223563");
    EXPECT_EQ(GxFormatNumber(0.1), "0.1");
    EXPECT_EQ(GxFormatNumber(1e16), "1e+16");
    EXPECT_EQ(GxFormatNumber(123456789012345678.0), "1.234567890123457e+17");
    EXPECT_EQ(GxFormatNumber(0.0001), "0.0001");
    EXPECT_EQ(GxFormatNumber(0.00001), "1e-05");
    char small[4];
    EXPECT_EQ(GxFormatNumber(6378137.0, small, sizeof small), 7u);
    EXPECT_STREQ(small, "637");
}

TEST(NumberText, ReadsLikeStrtodInCLocale) {
    std::size_t used = 0;
    EXPECT_EQ(GxParseNumber("  42.5abc", &used), 42.5);
    EXPECT_EQ(used, 6u);
    EXPECT_EQ(GxParseNumber("abc", &used), 0.0);
    EXPECT_EQ(used, 0u);
    EXPECT_EQ(GxParseNumber("+1e3"), 1000.0);
    EXPECT_EQ(GxParseNumber("-0.5"), -0.5);
    EXPECT_EQ(GxParseNumber("+-5", &used), 0.0);
    EXPECT_EQ(used, 0u);
    EXPECT_EQ(GxParseNumber("1e999"), HUGE_VAL);
    EXPECT_EQ(GxParseNumber("-1e999"), -HUGE_VAL);
    EXPECT_EQ(GxParseNumber(nullptr), 0.0);
    double v = 0;
    EXPECT_TRUE(GxParseWholeNumber(" 12.25 ", &v));
    EXPECT_EQ(v, 12.25);
    EXPECT_FALSE(GxParseWholeNumber("12,25", &v));
    EXPECT_FALSE(GxParseWholeNumber("", &v));
}

TEST(NumberText, RoundTripOfCatalogueValues) {
    // "%.16g" keeps 16 significant digits, enough for the values catalogues
    // and WKT texts carry.
    for (double d : {0.1, 1e-35, 6378137.0, 298.257223563, 0.9996, 500000.0}) {
        EXPECT_EQ(GxParseNumber(GxFormatNumber(d)), d) << GxFormatNumber(d);
    }
}

TEST(NumberText, IndependentOfCommaLocale) {
    gxtest::CommaLocale comma;
    if (!comma.active()) GTEST_SKIP() << comma.reason();
    char c[32];
    std::snprintf(c, sizeof c, "%.1f", 0.5);
    ASSERT_STREQ(c, "0,5") << "the comma locale is not in effect";
    EXPECT_EQ(GxFormatNumber(0.5), "0.5");
    EXPECT_EQ(GxParseNumber("0.5"), 0.5);
    std::size_t used = 0;
    EXPECT_EQ(GxParseNumber("0,5", &used), 0.0);
    EXPECT_EQ(used, 1u);
}

namespace {
// Overrides only the pure operations, so every other slot shows the base.
class BareProjection : public CGxProjection {
public:
    const char* GetName() const override { return "bare"; }
    void Geo2Proj(double lon, double lat, double* x, double* y) const override {
        *x = lon;
        *y = lat;
    }
    void Proj2Geo(double x, double y, double* lon, double* lat) const override {
        *lon = x;
        *lat = y;
    }
    CGxProjection* Clone() const override { return new BareProjection(*this); }
    void TransferParameters(CGxPRJParser&) const override {}
};
}  // namespace

TEST(ProjectionInterface, BaseBehaviour) {
    BareProjection p;
    double lon = 9, lat = 9;
    p.GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 0.0);
    EXPECT_EQ(lat, 0.0);
    EXPECT_EQ(p.GetConvergence(10, 50), 0.0);
    double a[4] = {1, 2, 3, 4};
    p.GetDefaultArea(&a[0], &a[1], &a[2], &a[3]);
    for (double v : a) EXPECT_EQ(v, 0.0);
    EXPECT_FALSE(p.IsLocal());
    EXPECT_FALSE(p.IsGeographical());
    CGxEllipsoid e("keep", "K", 7, 8);
    EXPECT_FALSE(p.GetAnonymousEllipsoid(e));
    EXPECT_EQ(e.GetMajor(), 7.0);
    CGxProjection* c = p.Clone();
    EXPECT_STREQ(c->GetName(), "bare");
    CGxProjection::Release(c);
    CGxProjection::Release(nullptr);
}
