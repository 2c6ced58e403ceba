#pragma once

// Checks of algorithms built from catalogue definitions: the figure comes
// from the system ellipsoid catalogue, and the grid a definition builds must
// be the grid built from the same numbers and that figure, bit for bit (a
// getter read into the wrong slot shows up as a difference).

#include <gtest/gtest.h>

#include <initializer_list>

#include "catalogue/CartSetup.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"

// The system catalogue's ellipsoid with this identifier; a failure, and an
// empty ellipsoid, when the catalogue lacks it.
inline const CGxEllipsoid& GxSystemEllipsoid(const char* id) {
    const CGxEllipsoid* e = CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoid(id);
    if (!e) {
        ADD_FAILURE() << "ellipsoid " << id << " missing from the system catalogue";
        static const CGxEllipsoid missing;
        return missing;
    }
    return *e;
}

// Both grids take (lon, lat) to the same easting/northing, take the
// value-built image back to the same longitude/latitude and give the same
// convergence there.
inline void GxExpectSameConversionAt(const CGxProjection& grid, const CGxProjection& fromValues,
                                     double lon, double lat) {
    SCOPED_TRACE(testing::Message() << "lon " << lon << " lat " << lat);
    double x1, y1, x2, y2;
    grid.Geo2Proj(lon, lat, &x1, &y1);
    fromValues.Geo2Proj(lon, lat, &x2, &y2);
    EXPECT_EQ(x1, x2);
    EXPECT_EQ(y1, y2);
    double lon1, lat1, lon2, lat2;
    grid.Proj2Geo(x2, y2, &lon1, &lat1);
    fromValues.Proj2Geo(x2, y2, &lon2, &lat2);
    EXPECT_EQ(lon1, lon2);
    EXPECT_EQ(lat1, lat2);
    EXPECT_EQ(grid.GetConvergence(lon, lat), fromValues.GetConvergence(lon, lat));
}

// The same conversions at every (lon + dLon, lat + dLat).
inline void GxExpectSameConversionsAround(const CGxProjection& grid,
                                          const CGxProjection& fromValues, double lon, double lat,
                                          std::initializer_list<double> dLons,
                                          std::initializer_list<double> dLats) {
    for (double dLon : dLons) {
        for (double dLat : dLats)
            GxExpectSameConversionAt(grid, fromValues, lon + dLon, lat + dLat);
    }
}

inline void GxExpectSameOrigin(const CGxProjection& grid, const CGxProjection& fromValues) {
    double lon1, lat1, lon2, lat2;
    grid.GetOrigin(&lon1, &lat1);
    fromValues.GetOrigin(&lon2, &lat2);
    EXPECT_EQ(lon1, lon2) << "origin longitude";
    EXPECT_EQ(lat1, lat2) << "origin latitude";
}

inline void GxExpectSameDefaultArea(const CGxProjection& grid, const CGxProjection& fromValues) {
    double a[4], b[4];
    grid.GetDefaultArea(&a[0], &a[1], &a[2], &a[3]);
    fromValues.GetDefaultArea(&b[0], &b[1], &b[2], &b[3]);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(a[i], b[i]) << "default area " << i;
}
