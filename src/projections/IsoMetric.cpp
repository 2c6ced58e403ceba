// An affine grid fixed by three reference points. A grid offset from P1 is
// measured along the direction towards P2 for longitude and along the
// direction towards P3 for latitude (each by its dot product with the unit
// vector, so the two directions need not be at right angles), and scaled by
// the degrees per grid unit found between the reference points.

#include "projections/IsoMetric.h"

#include <cmath>

CGxIsoMetric::CGxIsoMetric(double x1, double y1, double x2, double y2, double x3, double y3,
                           double lon1, double lat1, double lon2, double lat3)
    : originX(x1), originY(y1), originLon(lon1), originLat(lat1) {
    const double length12 = std::hypot(x2 - x1, y2 - y1);
    const double length13 = std::hypot(x3 - x1, y3 - y1);
    u1x = (x2 - x1) / length12;
    u1y = (y2 - y1) / length12;
    u2x = (x3 - x1) / length13;
    u2y = (y3 - y1) / length13;
    lonPerLength = (lon2 - lon1) / length12;
    latPerLength = (lat3 - lat1) / length13;
}

const char* CGxIsoMetric::GetName() const {
    return "Isometric";
}

void CGxIsoMetric::Geo2Proj(double, double, double*, double*) const {}

void CGxIsoMetric::Proj2Geo(double x, double y, double* lon, double* lat) const {
    const double dx = x - originX, dy = y - originY;
    *lon = originLon + (dx * u1x + dy * u1y) * lonPerLength;
    *lat = originLat + (dx * u2x + dy * u2y) * latPerLength;
}

CGxProjection* CGxIsoMetric::Clone() const {
    return new CGxIsoMetric(*this);
}

void CGxIsoMetric::TransferParameters(CGxPRJParser&) const {}
