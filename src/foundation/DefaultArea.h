#pragma once

#include <algorithm>

// The default areas of the projections: a rectangle in projected coordinates
// (lower-left x, y, upper-right x, y) that shows the projection's natural
// area, found by projecting its corners. TProjection is anything with the
// forward conversion Geo2Proj(lon, lat, &x, &y) in degrees: a projection
// algorithm, or the inner formulas of a wrapper.

// Half the side of the box most projections show around their origin,
// degrees.
constexpr double kGxDefaultAreaHalfSide = 3.0;

// Half the side of the square the polar aspects show around the pole, metres.
constexpr double kGxPolarAreaHalfSide = 200000.0;

// The projected corners of (lon0 - half, max(lat0 - half, -90)) and
// (lon0 + half, min(lat0 + half, 90)): a box of degrees around a point, its
// latitudes clamped to the poles. Longitudes are not clamped.
template <class TProjection>
void GxDefaultAreaAround(const TProjection& p, double lon0, double lat0, double half, double* x0,
                         double* y0, double* x1, double* y1) {
    p.Geo2Proj(lon0 - half, std::max(lat0 - half, -90.0), x0, y0);
    p.Geo2Proj(lon0 + half, std::min(lat0 + half, 90.0), x1, y1);
}

// The inhabited world, all longitudes from the Southern Ocean (60 S) to the
// north of Greenland (81 N): the projected corners of (-180, -60) and
// (180, 81).
template <class TProjection>
void GxWorldArea(const TProjection& p, double* x0, double* y0, double* x1, double* y1) {
    p.Geo2Proj(-180.0, -60.0, x0, y0);
    p.Geo2Proj(180.0, 81.0, x1, y1);
}

// The normal-aspect cylinders (Mercator, cylindrical equal area): a map
// centred exactly on Greenwich shows the inhabited world all round, any other
// central meridian lon0 the box around (lon0, 0).
template <class TProjection>
void GxCylinderArea(const TProjection& p, double lon0, double* x0, double* y0, double* x1,
                    double* y1) {
    if (lon0 == 0.0) {
        GxWorldArea(p, x0, y0, x1, y1);
    } else {
        GxDefaultAreaAround(p, lon0, 0.0, kGxDefaultAreaHalfSide, x0, y0, x1, y1);
    }
}

// A square of side 2 half around the projected point (lon, lat), both ranges
// taken from its easting: x0 = y0 = x - half and x1 = y1 = x + half. The polar
// and the Krovak grids have always reported their area this way, so a false
// northing different from the false easting moves the square off the point.
template <class TProjection>
void GxSquareAroundEasting(const TProjection& p, double lon, double lat, double half, double* x0,
                           double* y0, double* x1, double* y1) {
    double x, y;
    p.Geo2Proj(lon, lat, &x, &y);
    *x0 = *y0 = x - half;
    *x1 = *y1 = x + half;
}

// The same square around the projection's own origin (GetOrigin).
template <class TProjection>
void GxSquareAroundOrigin(const TProjection& p, double half, double* x0, double* y0, double* x1,
                          double* y1) {
    double lon, lat;
    p.GetOrigin(&lon, &lat);
    GxSquareAroundEasting(p, lon, lat, half, x0, y0, x1, y1);
}
