// The C_GXC_ family: a local model grid over a coordinate system, and the
// PROJ.4 text of a projection string.

#include <string>

#include "capi/FlatSupport.h"
#include "mapprojection/Cartography.h"
#include "wkt/ProjTranslator.h"

void C_GXC_CREATE(const char* projectionString, double lon, double lat, double orientation,
                  GxCartographyHandle* handle, int* status) noexcept {
    GxCreateHandle(handle, status, [&] {
        return new (std::nothrow) CGxCartography(projectionString, lon, lat, orientation);
    });
}

void C_GXC_DESTROY(GxCartographyHandle* handle, int* status) noexcept {
    GxDestroyHandle(handle, status);
}

namespace {

// The six point conversions of a grid differ only in the member they call.
using PointMember = void (CGxCartography::*)(double, double, double*, double*) const;

void ConvertPoint(GxCartographyHandle handle, PointMember member, double a, double b, double* outA,
                  double* outB) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double first = GxLoad(outA), second = GxLoad(outB);
        (handle->*member)(a, b, &first, &second);
        GxStore(outA, first);
        GxStore(outB, second);
    });
}

// And so do their array forms.
using ArrayMember = void (CGxCartography::*)(const double*, const double*, double*, double*,
                                             std::size_t) const;

void ConvertArrays(GxCartographyHandle handle, ArrayMember member, const double* a, const double* b,
                   double* outA, double* outB, size_t count) noexcept {
    if (!handle) return;
    GxGuarded([&] { (handle->*member)(a, b, outA, outB, count); });
}

}  // namespace

void C_GXC_GEO2PROJ(GxCartographyHandle handle, double lon, double lat, double* x,
                    double* y) noexcept {
    ConvertPoint(handle, &CGxCartography::Geo2Proj, lon, lat, x, y);
}

void C_GXC_PROJ2GEO(GxCartographyHandle handle, double x, double y, double* lon,
                    double* lat) noexcept {
    ConvertPoint(handle, &CGxCartography::Proj2Geo, x, y, lon, lat);
}

void C_GXC_GEO2XY(GxCartographyHandle handle, double lon, double lat, double* X,
                  double* Y) noexcept {
    ConvertPoint(handle, &CGxCartography::Geo2Xy, lon, lat, X, Y);
}

void C_GXC_XY2GEO(GxCartographyHandle handle, double X, double Y, double* lon,
                  double* lat) noexcept {
    ConvertPoint(handle, &CGxCartography::Xy2Geo, X, Y, lon, lat);
}

void C_GXC_PROJ2XY(GxCartographyHandle handle, double x, double y, double* X, double* Y) noexcept {
    ConvertPoint(handle, &CGxCartography::Proj2Xy, x, y, X, Y);
}

void C_GXC_XY2PROJ(GxCartographyHandle handle, double X, double Y, double* x, double* y) noexcept {
    ConvertPoint(handle, &CGxCartography::Xy2Proj, X, Y, x, y);
}

void C_GXC_GEO2PROJARRAY(GxCartographyHandle handle, const double* lon, const double* lat,
                         double* x, double* y, size_t count) noexcept {
    ConvertArrays(handle, &CGxCartography::Geo2Proj, lon, lat, x, y, count);
}

void C_GXC_PROJ2GEOARRAY(GxCartographyHandle handle, const double* x, const double* y, double* lon,
                         double* lat, size_t count) noexcept {
    ConvertArrays(handle, &CGxCartography::Proj2Geo, x, y, lon, lat, count);
}

void C_GXC_GEO2XYARRAY(GxCartographyHandle handle, const double* lon, const double* lat, double* X,
                       double* Y, size_t count) noexcept {
    ConvertArrays(handle, &CGxCartography::Geo2Xy, lon, lat, X, Y, count);
}

void C_GXC_XY2GEOARRAY(GxCartographyHandle handle, const double* X, const double* Y, double* lon,
                       double* lat, size_t count) noexcept {
    ConvertArrays(handle, &CGxCartography::Xy2Geo, X, Y, lon, lat, count);
}

void C_GXC_PROJ2XYARRAY(GxCartographyHandle handle, const double* x, const double* y, double* X,
                        double* Y, size_t count) noexcept {
    ConvertArrays(handle, &CGxCartography::Proj2Xy, x, y, X, Y, count);
}

void C_GXC_XY2PROJARRAY(GxCartographyHandle handle, const double* X, const double* Y, double* x,
                        double* y, size_t count) noexcept {
    ConvertArrays(handle, &CGxCartography::Xy2Proj, X, Y, x, y, count);
}

double C_GXC_GETPROJNORTH(GxCartographyHandle handle) noexcept {
    return handle ? handle->GetProjectionNorth() : 0.0;
}

double C_GXC_GETTRUENORTH(GxCartographyHandle handle, double X, double Y) noexcept {
    if (!handle) return 0.0;
    return GxGuardedResult(0.0, [&] { return handle->GetTrueNorth(X, Y); });
}

GxMapProjectionHandle C_GXC_GETPROJECTION(GxCartographyHandle handle) noexcept {
    return handle ? handle->GetProjection() : nullptr;
}

void C_GXC_GETPROJECTIONNAME(GxCartographyHandle handle, char* buffer, int bufferLength,
                             int* status) noexcept {
    if (!handle) return GxSetStatus(status, GXCART_NULL_HANDLE);
    GxCopyTextResult(GxGuardedResult<const char*>("", [&] { return handle->GetProjectionName(); }),
                     buffer, bufferLength, status);
}

void C_GXC_GETPROJECTIONSTRING(GxCartographyHandle handle, char* buffer, int bufferLength,
                               int* status) noexcept {
    if (!handle) return GxSetStatus(status, GXCART_NULL_HANDLE);
    GxCopyTextResult(
        GxGuardedResult<const char*>("", [&] { return handle->GetProjectionString(); }), buffer,
        bufferLength, status);
}

void C_GXC_CONVERT2PROJ4(const char* projectionString, double* towgs84, int count, char* buffer,
                         int bufferLength, int* status) noexcept {
    std::string text;
    GxGuarded([&] {
        text = CGxProjTranslator::Convert2Proj4(projectionString ? projectionString : "", towgs84,
                                                count);
    });
    GxCopyTextResult(text.c_str(), buffer, bufferLength, status);
}
