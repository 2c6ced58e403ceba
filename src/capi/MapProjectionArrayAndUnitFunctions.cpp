// The C_GXMP_ functions over whole arrays of Earth-centred coordinates and
// convergences, and the units a system states.

#include "capi/FlatSupport.h"
#include "foundation/ProjectionInfo.h"
#include "mapprojection/MapProjection.h"

void C_GXMP_GEO2XYZARRAY(GxMapProjectionHandle handle, const double* lon, const double* lat,
                         const double* h, double* X, double* Y, double* Z, size_t count) noexcept {
    if (!handle) return;
    GxGuarded([&] { handle->Geo2XYZ(lon, lat, h, X, Y, Z, count); });
}

void C_GXMP_XYZ2GEOARRAY(GxMapProjectionHandle handle, const double* X, const double* Y,
                         const double* Z, double* lon, double* lat, double* h,
                         size_t count) noexcept {
    if (!handle) return;
    GxGuarded([&] { handle->XYZ2Geo(X, Y, Z, lon, lat, h, count); });
}

void C_GXMP_GETCONVERGENCEARRAY(GxMapProjectionHandle handle, const double* lon, const double* lat,
                                double* convergence, size_t count) noexcept {
    if (!handle) return;
    GxGuarded([&] { handle->GetConvergence(lon, lat, convergence, count); });
}

namespace {

// The selector of the class for a flat unit value; false for any other value.
bool UnitSelector(int unit, CGxMapProjection::EMapProjectionInfo& which) {
    switch (unit) {
        case GXCART_LINEAR_UNIT:
            which = CGxMapProjection::eProjectedUnit;
            return true;
        case GXCART_ANGULAR_UNIT:
            which = CGxMapProjection::eAngularUnit;
            return true;
    }
    return false;
}

}  // namespace

int C_GXMP_GETUNITFACTOR(GxMapProjectionHandle handle, int unit, double* factor) noexcept {
    CGxMapProjection::EMapProjectionInfo which;
    if (!handle || !UnitSelector(unit, which)) return 0;
    double value = 0.0;
    if (!handle->GetUnit(which, &value, nullptr)) return 0;
    GxStore(factor, value);
    return 1;
}

void C_GXMP_GETUNITNAME(GxMapProjectionHandle handle, int unit, char* buffer, int bufferLength,
                        int* status) noexcept {
    if (!handle) return GxSetStatus(status, GXCART_NULL_HANDLE);
    char name[CGxProjectionInfo::kUnitNameSize] = "";
    CGxMapProjection::EMapProjectionInfo which;
    if (!UnitSelector(unit, which) || !handle->GetUnit(which, nullptr, name)) name[0] = '\0';
    GxCopyTextResult(name, buffer, bufferLength, status);
}
