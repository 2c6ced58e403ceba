#include "projections/ProjectionSupport.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "catalogue/CartSetup.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"

namespace {
// One arc minute in degrees.
constexpr double kArcMinute = 0.016666666666666666;
}  // namespace

bool GxIsLocalString(const char* s) { return s && std::strcmp(s, kGxLocalGridName) == 0; }

GxProjectionName::GxProjectionName(const char* s) {
    const char* src = (s && *s) ? s : kGxLocalGridName;
    std::size_t n = std::strlen(src);
    if (n > kGxNameSize - 1) n = kGxNameSize - 1;
    std::memcpy(name, src, n);
    name[n] = '\0';
    isLocal = GxIsLocalString(name);
}

bool GxAnonymousEllipsoid(double a, double f, CGxEllipsoid& out) {
    if (!(a > 0)) return false;
    out.SetParams(a, f != 0.0 ? 1.0 / f : 0.0);
    return true;
}

double GxNumericalConvergence(const CGxProjection& p, double lon, double lat) {
    double x1, y1, x2, y2;
    p.Geo2Proj(lon, lat, &x1, &y1);
    p.Geo2Proj(lon, lat + kArcMinute, &x2, &y2);
    return std::atan2(x1 - x2, y2 - y1) * kGxRadToDeg;
}

void GxDefaultAreaAround(const CGxProjection& p, double lon0, double lat0, double half, double* x0,
                         double* y0, double* x1, double* y1) {
    p.Geo2Proj(lon0 - half, std::max(lat0 - half, -90.0), x0, y0);
    p.Geo2Proj(lon0 + half, std::min(lat0 + half, 90.0), x1, y1);
}

const CGxEllipsoid* GxCatalogueEllipsoid(const std::string& id) {
    if (id.empty()) return nullptr;
    return CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoid(id);
}
