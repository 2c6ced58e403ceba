#include <gtest/gtest.h>

#include "foundation/Ellipsoid.h"
#include "projections/ObliqueMercator.h"

// An east-west central line (azimuth 90) is where the origin longitude's
// arcsine sits at its argument of 1: evaluated naively, one rounding unit there
// cost the Hungarian EOV grid 4 cm everywhere. The centre-based oblique
// Mercator at azimuth 90 is PROJ's Swiss oblique Mercator.
//
// printf "19.0485717777778 47.1443937222222 0 0\n16.5 46.0 0 0\n22.5 48.5 0 0\n
//         18.0 47.9 0 0\n21.0 46.3 0 0\n" | cct -d 6 +proj=somerc
//   +lat_0=47.1443937222222 +lon_0=19.0485717777778 +k_0=0.99993 +x_0=650000
//   +y_0=200000 +ellps=GRS67
TEST(ObliqueMercator, HungarianEovAtAzimuthNinetyAgreesWithPROJ) {
    const CGxEllipsoid grs67("GRS 1967", "RG", 6378160.0, 298.247167427);
    CGxObliqueMercator eov("HD72 / EOV", 0.99993, 19.0485717777778, 47.1443937222222, 90.0,
                           650000.0, 200000.0, grs67);
    const struct {
        double lon, lat, x, y;
    } rows[] = {
        {19.0485717777778, 47.1443937222222, 650000.000000, 200000.000000},
        {16.5, 46.0, 452588.713514, 76005.582214},
        {22.5, 48.5, 905038.551541, 356362.544298},
        {18.0, 47.9, 571599.585475, 284531.877671},
        {21.0, 46.3, 800335.490795, 108012.430413},
    };
    for (const auto& r : rows) {
        double x = 0, y = 0, lon = 0, lat = 0;
        eov.Geo2Proj(r.lon, r.lat, &x, &y);
        EXPECT_NEAR(x, r.x, 1e-3) << r.lon << " " << r.lat;
        EXPECT_NEAR(y, r.y, 1e-3) << r.lon << " " << r.lat;
        eov.Proj2Geo(r.x, r.y, &lon, &lat);
        EXPECT_NEAR(lon, r.lon, 1e-8);
        EXPECT_NEAR(lat, r.lat, 1e-8);
    }
}
