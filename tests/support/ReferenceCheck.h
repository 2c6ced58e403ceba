#pragma once

// Checks of a projection against reference tables computed by an independent
// tool (cct, GeodSolve): forward to the reference easting/northing, inverse of
// the reference easting/northing back to the longitude/latitude, and inverse
// after our own forward back to the input. Failures name the row.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <iomanip>

#include "foundation/Projection.h"

// One row of a reference table: longitude/latitude in degrees and the
// easting/northing that the independent tool computed for them.
struct GxReferencePoint {
    double lon, lat, x, y;
};

// The round trip through our own forward and inverse returns to the input to
// about 0.1 mm on the ground.
constexpr double kGxRoundTripTolerance = 1e-9;  // degrees

// How closely a projection meets a table (or one row).
struct GxReferenceTolerance {
    double forward;                            // easting and northing, projected units
    double inverse;                            // degrees, inverse of the reference easting/northing
    double roundTrip = kGxRoundTripTolerance;  // degrees
    // Longitude errors times cos(reference latitude), so that a tolerance in
    // degrees means one distance on the ground at every latitude and any
    // longitude passes at a pole; otherwise longitudes are compared as they
    // are, modulo 360.
    bool longitudeOnGround = false;
};

// The table of a projection whose formulas are closed, or converge to full
// precision: forward to 1 mm, inverse and round trip to 1e-9 degrees (about
// 0.1 mm on the ground).
constexpr GxReferenceTolerance kGxMillimetreTable = {1e-3, 1e-9, kGxRoundTripTolerance};

// A table whose inverse and round trip share one tolerance in degrees on the
// ground.
constexpr GxReferenceTolerance GxOnGround(double forward, double degrees) {
    return {forward, degrees, degrees, true};
}

// Longitude difference folded into [-180, 180], so that 180 and -180 agree.
inline double GxLongitudeDifference(double lon, double expected) {
    return std::remainder(lon - expected, 360.0);
}

// A longitude/latitude result against the expected one: longitudes modulo 360
// (times cos(expectedLat) when onGround), latitudes as they are.
inline void GxExpectLongitudeLatitude(double lon, double lat, double expectedLon,
                                      double expectedLat, double tolerance, bool onGround = false) {
    double lonError = std::fabs(GxLongitudeDifference(lon, expectedLon));
    if (onGround) lonError *= std::cos(expectedLat * 3.141592653589793 / 180);
    EXPECT_LE(lonError, tolerance) << "longitude " << lon << ", expected " << expectedLon;
    EXPECT_NEAR(lat, expectedLat, tolerance) << "latitude";
}

// Forward of the row's longitude/latitude to its easting/northing.
inline void GxExpectForward(const CGxProjection& p, const GxReferencePoint& r, double tolerance) {
    double x, y;
    p.Geo2Proj(r.lon, r.lat, &x, &y);
    EXPECT_NEAR(x, r.x, tolerance) << "forward easting";
    EXPECT_NEAR(y, r.y, tolerance) << "forward northing";
}

// Inverse of the row's easting/northing to its longitude/latitude.
inline void GxExpectInverse(const CGxProjection& p, const GxReferencePoint& r, double tolerance,
                            bool onGround = false) {
    double lon, lat;
    p.Proj2Geo(r.x, r.y, &lon, &lat);
    SCOPED_TRACE("inverse");
    GxExpectLongitudeLatitude(lon, lat, r.lon, r.lat, tolerance, onGround);
}

// Inverse after our own forward back to (lon, lat).
inline void GxExpectRoundTrip(const CGxProjection& p, double lon, double lat, double tolerance,
                              bool onGround = false) {
    double x, y, backLon, backLat;
    p.Geo2Proj(lon, lat, &x, &y);
    p.Proj2Geo(x, y, &backLon, &backLat);
    SCOPED_TRACE("round trip");
    GxExpectLongitudeLatitude(backLon, backLat, lon, lat, tolerance, onGround);
}

// Forward, inverse and round trip of one row.
inline void GxExpectReferencePoint(const CGxProjection& p, const GxReferencePoint& r,
                                   const GxReferenceTolerance& tolerance) {
    SCOPED_TRACE(testing::Message()
                 << std::setprecision(12) << "row lon " << r.lon << ", lat " << r.lat);
    GxExpectForward(p, r, tolerance.forward);
    GxExpectInverse(p, r, tolerance.inverse, tolerance.longitudeOnGround);
    GxExpectRoundTrip(p, r.lon, r.lat, tolerance.roundTrip, tolerance.longitudeOnGround);
}

// Every row of a table, all to the table's tolerance.
template <std::size_t N>
void GxExpectReferenceTable(const CGxProjection& p, const GxReferencePoint (&rows)[N],
                            const GxReferenceTolerance& tolerance) {
    for (std::size_t i = 0; i < N; ++i) {
        SCOPED_TRACE(testing::Message() << "table row " << i);
        GxExpectReferencePoint(p, rows[i], tolerance);
    }
}

// Default area against the reference projections of its lower-left and
// upper-right corners.
inline void GxExpectDefaultArea(const CGxProjection& p, const GxReferencePoint (&corners)[2],
                                double tolerance) {
    double x0, y0, x1, y1;
    p.GetDefaultArea(&x0, &y0, &x1, &y1);
    EXPECT_NEAR(x0, corners[0].x, tolerance);
    EXPECT_NEAR(y0, corners[0].y, tolerance);
    EXPECT_NEAR(x1, corners[1].x, tolerance);
    EXPECT_NEAR(y1, corners[1].y, tolerance);
}

// A cone centred on -154 that reaches the western Aleutians: 172 E lies 34
// degrees west of the central meridian (also written as -188), not 326 east.
inline void GxExpectAleutiansWestOfCentre(const CGxProjection& alaska) {
    double x1, y1, x2, y2;
    alaska.Geo2Proj(172, 52, &x1, &y1);
    alaska.Geo2Proj(-188, 52, &x2, &y2);
    EXPECT_NEAR(x1, x2, 1e-8);
    EXPECT_NEAR(y1, y2, 1e-8);
    EXPECT_LT(x1, -2000000);
}

// A local grid hands (a, b) through unchanged in both directions.
inline void GxExpectIdentity(const CGxProjection& p, double a, double b) {
    double x, y;
    p.Geo2Proj(a, b, &x, &y);
    EXPECT_EQ(x, a);
    EXPECT_EQ(y, b);
    p.Proj2Geo(a, b, &x, &y);
    EXPECT_EQ(x, a);
    EXPECT_EQ(y, b);
}
