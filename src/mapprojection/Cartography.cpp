// The local model grid over a coordinate system: a shift to the projected
// origin and one plane rotation by the grid's angle against projection north
// there.

#include "mapprojection/Cartography.h"

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>

#include "foundation/Tolerance.h"
#include "mapprojection/MapProjection.h"
#include "mapprojection/PointArrays.h"

namespace {

// The UTM zone name of a longitude, zone 1 starting at 180 degrees west and
// counted by truncation toward zero, so that 180 east gives zone 61 and
// longitudes just west of 180 west still give zone 1. Empty for a longitude
// that is not finite.
void ZoneName(double lon, char* buffer, std::size_t size) {
    buffer[0] = '\0';
    if (!std::isfinite(lon)) return;
    double zone = 1.0 - std::trunc((lon + 180.0) / -6.0);
    if (zone > INT_MAX) zone = INT_MAX;
    if (zone < INT_MIN) zone = INT_MIN;
    std::snprintf(buffer, size, "UTM-%d", static_cast<int>(zone));
}

}  // namespace

// A system rebuilt from a normalised projection string; null when that
// fails, for want of memory or otherwise.
CGxMapProjection* CGxCartography::RebuiltSystem::Copy(const CGxMapProjection& system) {
    try {
        return new (std::nothrow) CGxMapProjection(system.GetProjectionString());
    } catch (const std::exception&) {
        return nullptr;
    }
}

void CGxCartography::RebuiltSystem::Release(CGxMapProjection* system) {
    delete system;
}

CGxCartography::CGxCartography(const CGxMapProjection& mapProjection_, double lon_, double lat_,
                               double orientation_)
    : mapProjection(new CGxMapProjection(mapProjection_)) {
    _Initialise(lon_, lat_, orientation_);
}

CGxCartography::CGxCartography(const char* projectionString, double lon_, double lat_,
                               double orientation_) {
    char zone[32] = "";
    if (projectionString && std::strcmp(projectionString, "UTM") == 0)
        ZoneName(lon_, zone, sizeof zone);
    mapProjection.reset(new CGxMapProjection(zone[0] ? zone : projectionString));
    _Initialise(lon_, lat_, orientation_);
}

CGxCartography::CGxCartography(const CGxCartography& other) = default;
CGxCartography& CGxCartography::operator=(const CGxCartography& other) = default;
CGxCartography::~CGxCartography() = default;

void CGxCartography::_Initialise(double lon_, double lat_, double orientation_) {
    lon = lon_;
    lat = lat_;
    orientation = orientation_;
    // A system without algorithm leaves the origin where it starts.
    x0 = 0.0;
    y0 = 0.0;
    mapProjection->Geo2Proj(lon, lat, &x0, &y0);
    projectionNorth = orientation - mapProjection->GetConvergence(lon, lat);
    const double a = projectionNorth * kGxPi / 180.0;
    cosA = std::cos(a);
    sinA = std::sin(a);
}

void CGxCartography::Geo2Proj(double lon_, double lat_, double* x, double* y) const {
    if (mapProjection) mapProjection->Geo2Proj(lon_, lat_, x, y);
}

void CGxCartography::Proj2Geo(double x, double y, double* lon_, double* lat_) const {
    if (mapProjection) mapProjection->Proj2Geo(x, y, lon_, lat_);
}

void CGxCartography::Proj2Xy(double x, double y, double* X, double* Y) const {
    if (!X || !Y) return;
    const double dx = x - x0;
    const double dy = y - y0;
    *X = dx * cosA - dy * sinA;
    *Y = dy * cosA + dx * sinA;
}

void CGxCartography::Xy2Proj(double X, double Y, double* x, double* y) const {
    if (!x || !y) return;
    *x = X * cosA + Y * sinA + x0;
    *y = Y * cosA - X * sinA + y0;
}

// Without an algorithm there is nothing to convert through: like the map
// projection itself, these leave their outputs alone.
bool CGxCartography::_HasAlgorithm() const {
    return mapProjection && mapProjection->GetProjection();
}

void CGxCartography::Geo2Xy(double lon_, double lat_, double* X, double* Y) const {
    if (!_HasAlgorithm() || !X || !Y) return;
    double x, y;
    mapProjection->Geo2Proj(lon_, lat_, &x, &y);
    Proj2Xy(x, y, X, Y);
}

void CGxCartography::Xy2Geo(double X, double Y, double* lon_, double* lat_) const {
    if (!_HasAlgorithm() || !lon_ || !lat_) return;
    double x, y;
    Xy2Proj(X, Y, &x, &y);
    mapProjection->Proj2Geo(x, y, lon_, lat_);
}

// Array forms. Each point takes the single-point step above; what those
// steps test for every point (the system, its algorithm) is tested once here
// with the same outcome: nothing written.
void CGxCartography::Geo2Proj(const double* lon_, const double* lat_, double* x, double* y,
                              std::size_t count) const {
    if (mapProjection) mapProjection->Geo2Proj(lon_, lat_, x, y, count);
}

void CGxCartography::Proj2Geo(const double* x, const double* y, double* lon_, double* lat_,
                              std::size_t count) const {
    if (mapProjection) mapProjection->Proj2Geo(x, y, lon_, lat_, count);
}

void CGxCartography::Proj2Xy(const double* x, const double* y, double* X, double* Y,
                             std::size_t count) const {
    GxConvertPointArrays(x, y, X, Y, count, [this](double a, double b, double* pX, double* pY) {
        Proj2Xy(a, b, pX, pY);
    });
}

void CGxCartography::Xy2Proj(const double* X, const double* Y, double* x, double* y,
                             std::size_t count) const {
    GxConvertPointArrays(X, Y, x, y, count, [this](double a, double b, double* px, double* py) {
        Xy2Proj(a, b, px, py);
    });
}

// Through the system's arrays, then the grid step in place: per point the
// same two steps as the single-point call, with the system's array form
// fetching its algorithm and axis rule once.
void CGxCartography::Geo2Xy(const double* lon_, const double* lat_, double* X, double* Y,
                            std::size_t count) const {
    if (!_HasAlgorithm() || !lon_ || !lat_ || !X || !Y) return;
    mapProjection->Geo2Proj(lon_, lat_, X, Y, count);
    Proj2Xy(X, Y, X, Y, count);
}

void CGxCartography::Xy2Geo(const double* X, const double* Y, double* lon_, double* lat_,
                            std::size_t count) const {
    if (!_HasAlgorithm() || !X || !Y || !lon_ || !lat_) return;
    Xy2Proj(X, Y, lon_, lat_, count);
    mapProjection->Proj2Geo(lon_, lat_, lon_, lat_, count);
}

double CGxCartography::GetTrueNorth(double X, double Y) const {
    if (!_HasAlgorithm()) return projectionNorth;
    double lonAt, latAt;
    Xy2Geo(X, Y, &lonAt, &latAt);
    return mapProjection->GetConvergence(lonAt, latAt) + projectionNorth;
}

void CGxCartography::ConvertFrom(const CGxCartography& other, double xIn, double yIn, double* xOut,
                                 double* yOut) const {
    if (!_HasAlgorithm() || !other._HasAlgorithm() || !xOut || !yOut) return;
    double lonAt, latAt;
    other.mapProjection->Proj2Geo(xIn, yIn, &lonAt, &latAt);
    mapProjection->Geo2Proj(lonAt, latAt, xOut, yOut);
}

const char* CGxCartography::GetProjectionName() const {
    return mapProjection ? mapProjection->GetName() : "";
}

const char* CGxCartography::GetProjectionString() const {
    return mapProjection ? mapProjection->GetProjectionString() : "";
}

void CGxCartography::_csysrot(double x, double y, double angle, double* xOut, double* yOut) {
    if (!xOut || !yOut) return;
    const double a = angle * 0.017453292519943295;
    *xOut = x * std::cos(a) + y * std::sin(a);
    *yOut = y * std::cos(a) - x * std::sin(a);
}
