// The C_GXMP_ family: one coordinate system behind a handle.

#include "capi/FlatSupport.h"
#include "mapprojection/MapProjection.h"

void C_GXMP_CREATE(const char* projectionString, GxMapProjectionHandle* handle,
                   int* status) noexcept {
    GxCreateHandle(handle, status,
                   [&] { return new (std::nothrow) CGxMapProjection(projectionString); });
}

void C_GXMP_DESTROY(GxMapProjectionHandle* handle, int* status) noexcept {
    GxDestroyHandle(handle, status);
}

void C_GXMP_GEO2PROJ(GxMapProjectionHandle handle, double lon, double lat, double* x,
                     double* y) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double outX = GxLoad(x), outY = GxLoad(y);
        handle->Geo2Proj(lon, lat, &outX, &outY);
        GxStore(x, outX);
        GxStore(y, outY);
    });
}

void C_GXMP_PROJ2GEO(GxMapProjectionHandle handle, double x, double y, double* lon,
                     double* lat) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double outLon = GxLoad(lon), outLat = GxLoad(lat);
        handle->Proj2Geo(x, y, &outLon, &outLat);
        GxStore(lon, outLon);
        GxStore(lat, outLat);
    });
}

void C_GXMP_GEO2PROJARRAY(GxMapProjectionHandle handle, const double* lon, const double* lat,
                          double* x, double* y, size_t count) noexcept {
    if (!handle) return;
    GxGuarded([&] { handle->Geo2Proj(lon, lat, x, y, count); });
}

void C_GXMP_PROJ2GEOARRAY(GxMapProjectionHandle handle, const double* x, const double* y,
                          double* lon, double* lat, size_t count) noexcept {
    if (!handle) return;
    GxGuarded([&] { handle->Proj2Geo(x, y, lon, lat, count); });
}

void C_GXMP_GEO2XYZ(GxMapProjectionHandle handle, double lon, double lat, double h, double* X,
                    double* Y, double* Z) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double outX = GxLoad(X), outY = GxLoad(Y), outZ = GxLoad(Z);
        handle->Geo2XYZ(lon, lat, h, &outX, &outY, &outZ);
        GxStore(X, outX);
        GxStore(Y, outY);
        GxStore(Z, outZ);
    });
}

void C_GXMP_XYZ2GEO(GxMapProjectionHandle handle, double X, double Y, double Z, double* lon,
                    double* lat, double* h) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double outLon = GxLoad(lon), outLat = GxLoad(lat), outH = GxLoad(h);
        handle->XYZ2Geo(X, Y, Z, &outLon, &outLat, &outH);
        GxStore(lon, outLon);
        GxStore(lat, outLat);
        GxStore(h, outH);
    });
}

double C_GXMP_GETCONVERGENCE(GxMapProjectionHandle handle, double lon, double lat) noexcept {
    if (!handle) return 0.0;
    return GxGuardedResult(0.0, [&] { return handle->GetConvergence(lon, lat); });
}

void C_GXMP_GETDEFAULTAREA(GxMapProjectionHandle handle, double* x0, double* y0, double* x1,
                           double* y1) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double a = GxLoad(x0), b = GxLoad(y0), c = GxLoad(x1), d = GxLoad(y1);
        handle->GetDefaultArea(&a, &b, &c, &d);
        GxStore(x0, a);
        GxStore(y0, b);
        GxStore(x1, c);
        GxStore(y1, d);
    });
}

void C_GXMP_GETORIGIN(GxMapProjectionHandle handle, double* lon, double* lat) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double outLon = GxLoad(lon), outLat = GxLoad(lat);
        handle->GetOrigin(&outLon, &outLat);
        GxStore(lon, outLon);
        GxStore(lat, outLat);
    });
}

void C_GXMP_GETNAME(GxMapProjectionHandle handle, char* buffer, int bufferLength,
                    int* status) noexcept {
    if (!handle) return GxSetStatus(status, GXCART_NULL_HANDLE);
    GxCopyTextResult(GxGuardedResult<const char*>("", [&] { return handle->GetName(); }), buffer,
                     bufferLength, status);
}

void C_GXMP_GETPROJECTIONSTRING(GxMapProjectionHandle handle, char* buffer, int bufferLength,
                                int* status) noexcept {
    if (!handle) return GxSetStatus(status, GXCART_NULL_HANDLE);
    GxCopyTextResult(handle->GetProjectionString(), buffer, bufferLength, status);
}
