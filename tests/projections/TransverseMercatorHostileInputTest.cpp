#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Ellipsoid.h"
#include "projections/TransverseMercatorJHS.h"

// Origins no real grid has, reached from hostile WKT texts: every call must
// return, with the answer the geometry still defines.

namespace {
const CGxEllipsoid kWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
}  // namespace

// Found by fuzzing: a WKT whose angular unit factor read 5.017 instead of
// 0.01745 gave a central meridian near 2.9e19 degrees, and the default area
// never came back. Its corners are taken around the origin longitude, which
// returns from radians a few units in the last place off; the forward
// conversion then brought that longitude next to the origin by adding whole
// turns, but at that size a turn is below half a unit in the last place and
// left the value unchanged for ever.
TEST(TransverseMercatorHostileInput, HugeCentralMeridianEndsConversion) {
    const double kFromFuzzInput = 99999999999999999.0 * (5.0174532925199433 / 0.017453292519943295);
    for (double lon0 = 1e14; lon0 < 1e21; lon0 *= 1.7) {
        for (double sign : {1.0, -1.0}) {
            const CGxTransverseMercatorJHS tm("far", 0.9996, sign * lon0, 0.0, 500000.0, 0.0, kWgs84);
            double x0, y0, x1, y1;
            tm.GetDefaultArea(&x0, &y0, &x1, &y1);
        }
    }
    const CGxTransverseMercatorJHS tm("far", 0.9996, kFromFuzzInput, 0.0, 500000.0, 0.0, kWgs84);
    double x0, y0, x1, y1;
    tm.GetDefaultArea(&x0, &y0, &x1, &y1);
}

// A point exactly on such a meridian is still on the central meridian: false
// easting and the meridian arc.
TEST(TransverseMercatorHostileInput, PointOnHugeCentralMeridian) {
    // echo "9 9 0 0" | cct -d 6 +proj=tmerc +lon_0=9 +k=0.9996 +x_0=500000 +ellps=WGS84
    const double kNorthingAt9 = 994852.177285;
    for (double lon0 : {2.875e19, -1e17, 1e300}) {
        SCOPED_TRACE(lon0);
        const CGxTransverseMercatorJHS tm("far", 0.9996, lon0, 0.0, 500000.0, 0.0, kWgs84);
        double x = 0, y = 0;
        tm.Geo2Proj(lon0, 9.0, &x, &y);
        EXPECT_DOUBLE_EQ(x, 500000.0);
        EXPECT_NEAR(y, kNorthingAt9, 1e-3);
    }
}
