#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "foundation/Ellipsoid.h"
#include "projections/AlbersEqualArea.h"
#include "projections/CassiniSoldner.h"
#include "projections/EquidistantConic.h"
#include "projections/LambertAzimuthalEqualArea.h"
#include "projections/ProjInterface.h"
#include "tests/support/Figures.h"
#include "tests/support/ReferenceCheck.h"

namespace {

// echo "-110 42 0 0" | cct -d 6 +proj=aea +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96
//   +x_0=500000 +y_0=100000 +a=6378137 +rf=298.257223563   (and +R=6371000)
constexpr double kConusX = -647566.110001, kConusY = 2295593.550795;
constexpr double kConusSphereX = -644530.862701, kConusSphereY = 2300975.038137;

std::unique_ptr<CGxAlbersEqualArea> Conus(const char* name, const CGxEllipsoid& e) {
    return std::make_unique<CGxAlbersEqualArea>(name, 29.5, 45.5, -96, 23, 500000, 100000, e);
}

// A wrapper that was never given an inner object.
class CEmptyWrapper : public CGxProjWrapper {
public:
    CEmptyWrapper() : CGxProjWrapper("Empty", eGxInnerEllipsoid, nullptr) {}
    CGxProjection* Clone() const override { return new CEmptyWrapper(*this); }
    void TransferParameters(CGxPRJParser&) const override {}
};

}  // namespace

TEST(ProjWrapper, CloneOwnsItsOwnInnerObject) {
    // A clone that shared the inner object would convert through freed memory
    // once the original is gone.
    auto original = Conus("Conus", kGxWgs84);
    std::unique_ptr<CGxProjection> clone(original->Clone());
    original.reset();
    double x, y;
    clone->Geo2Proj(-110, 42, &x, &y);
    EXPECT_NEAR(x, kConusX, 1e-5);
    EXPECT_NEAR(y, kConusY, 1e-5);
    EXPECT_STREQ(clone->GetName(), "Conus");

    // Released through the base the facade uses.
    CGxProjection::Release(clone.release());
}

TEST(ProjWrapper, AssignmentReplacesTheInnerForm) {
    CGxAlbersEqualArea target("Sphere", 29.5, 45.5, -96, 23, 500000, 100000, kGxSphere);
    {
        auto source = Conus("Ellipsoid", kGxWgs84);
        target = *source;
    }
    double x, y;
    target.Geo2Proj(-110, 42, &x, &y);
    EXPECT_NEAR(x, kConusX, 1e-5);
    EXPECT_NEAR(y, kConusY, 1e-5);
    EXPECT_STREQ(target.GetName(), "Ellipsoid");

    CGxAlbersEqualArea& alias = target;
    target = alias;
    target.Geo2Proj(-110, 42, &x, &y);
    EXPECT_NEAR(x, kConusX, 1e-5);
}

TEST(ProjWrapper, InnerFormChosenByExactZeroInverseFlattening) {
    EXPECT_EQ(GxInnerKindFor(kGxSphere), eGxInnerSphere);
    EXPECT_EQ(GxInnerKindFor(kGxWgs84), eGxInnerEllipsoid);
    EXPECT_EQ(GxInnerKindFor(CGxEllipsoid("S", "S", 6371000, -1)), eGxInnerEllipsoid);
    EXPECT_EQ(GxInnerKindFor(CGxEllipsoid("S", "S", 6371000, 1e30)), eGxInnerEllipsoid);

    double x, y;
    Conus("Conus", kGxSphere)->Geo2Proj(-110, 42, &x, &y);
    EXPECT_NEAR(x, kConusSphereX, 1e-5);
    EXPECT_NEAR(y, kConusSphereY, 1e-5);
}

TEST(ProjWrapper, WithoutInnerObjectBehavesAsEmptyAlgorithm) {
    CEmptyWrapper p;
    double x = 1, y = 1, lon = 1, lat = 1, x1 = 1, y1 = 1;
    p.Geo2Proj(10, 50, &x, &y);
    EXPECT_TRUE(std::isnan(x) && std::isnan(y));
    p.Proj2Geo(1000, 2000, &lon, &lat);
    EXPECT_TRUE(std::isnan(lon) && std::isnan(lat));
    EXPECT_EQ(p.GetConvergence(10, 50), 0.0);
    p.GetOrigin(&lon, &lat);
    EXPECT_EQ(lon, 0.0);
    EXPECT_EQ(lat, 0.0);
    p.GetDefaultArea(&x, &y, &x1, &y1);
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(y1, 0.0);
    CGxEllipsoid out("Kept", "KE", 7, 7);
    EXPECT_FALSE(p.GetAnonymousEllipsoid(out));
    EXPECT_EQ(out.GetMajor(), 7.0);
    std::unique_ptr<CGxProjection> clone(p.Clone());
    EXPECT_EQ(clone->GetConvergence(10, 50), 0.0);
}

TEST(ProjWrapper, OriginInDegreesMapsToFalseOrigin) {
    constexpr double lon0 = 13.627, lat0 = 52.418, fe = 40000, fn = -10000;
    for (const CGxEllipsoid& e : {kGxBessel, kGxSphere}) {
        const std::unique_ptr<CGxProjection> all[] = {
            std::make_unique<CGxAlbersEqualArea>("Albers", 48, 56, lon0, lat0, fe, fn, e),
            std::make_unique<CGxLambertAzimuthalEqualArea>("LAEA", lon0, lat0, fe, fn, e),
            std::make_unique<CGxCassiniSoldner>("Cassini", lon0, lat0, fe, fn, e),
            std::make_unique<CGxEquidistantConic>("Eqdc", 48, 56, lon0, lat0, fe, fn, e),
        };
        for (const auto& p : all) {
            SCOPED_TRACE(testing::Message() << p->GetName() << " on " << e.GetName());
            double lon, lat, x, y;
            p->GetOrigin(&lon, &lat);
            EXPECT_NEAR(lon, lon0, 1e-12);
            EXPECT_NEAR(lat, lat0, 1e-12);
            p->Geo2Proj(lon0, lat0, &x, &y);
            EXPECT_NEAR(x, fe, 1e-6);
            EXPECT_NEAR(y, fn, 1e-6);
        }
    }
}
