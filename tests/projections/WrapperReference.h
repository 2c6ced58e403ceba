#pragma once

// Reference-table checks shared by the tests of the wrapper projections
// (Albers, Lambert azimuthal equal area, Cassini-Soldner, equidistant conic).

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

// One row of a reference table: longitude/latitude in degrees and the
// easting/northing that an independent tool computed for them.
struct GxReferencePoint {
    double lon, lat, x, y;
};

// Longitude difference folded into [-180, 180) and scaled by cos(lat), so that
// a tolerance in degrees means a distance on the ground at every latitude
// (and any longitude passes at a pole).
inline double GroundLongitudeError(double lon, double expected, double lat) {
    const double d = std::remainder(lon - expected, 360.0);
    return std::fabs(d * std::cos(lat * 3.141592653589793 / 180));
}

// Forward to the reference easting/northing within xyTolerance; inverse of the
// reference easting/northing, and inverse after our own forward, back to the
// reference longitude/latitude within degTolerance.
template <class TProjection, std::size_t N>
void ExpectMatchesReference(const TProjection& p, const GxReferencePoint (&table)[N],
                            double xyTolerance, double degTolerance) {
    for (const GxReferencePoint& r : table) {
        SCOPED_TRACE(testing::Message() << "at lon " << r.lon << ", lat " << r.lat);
        double x, y, lon, lat;
        p.Geo2Proj(r.lon, r.lat, &x, &y);
        EXPECT_NEAR(x, r.x, xyTolerance);
        EXPECT_NEAR(y, r.y, xyTolerance);

        p.Proj2Geo(r.x, r.y, &lon, &lat);
        EXPECT_LE(GroundLongitudeError(lon, r.lon, r.lat), degTolerance) << "inverse lon " << lon;
        EXPECT_NEAR(lat, r.lat, degTolerance);

        p.Proj2Geo(x, y, &lon, &lat);
        EXPECT_LE(GroundLongitudeError(lon, r.lon, r.lat), degTolerance)
            << "round trip lon " << lon;
        EXPECT_NEAR(lat, r.lat, degTolerance);
    }
}

// Default area against the reference projections of its lower-left and
// upper-right corners.
template <class TProjection>
void ExpectDefaultArea(const TProjection& p, const GxReferencePoint (&corners)[2],
                       double xyTolerance) {
    double x0, y0, x1, y1;
    p.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, corners[0].x, xyTolerance);
    EXPECT_NEAR(y0, corners[0].y, xyTolerance);
    EXPECT_NEAR(x1, corners[1].x, xyTolerance);
    EXPECT_NEAR(y1, corners[1].y, xyTolerance);
}
