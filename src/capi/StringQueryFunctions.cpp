// The S_ queries on projection strings, which need no handle, and the
// factory of bare projection algorithms.

#include <string>

#include "capi/FlatSupport.h"
#include "catalogue/CartSetup.h"
#include "foundation/Projection.h"
#include "mapprojection/MapProjection.h"

namespace {

// A predicate's answer as the interface's 0 or 1; 0 when it throws.
template <class Predicate>
int Answer(Predicate&& predicate) noexcept {
    return GxGuardedResult(0, [&] { return predicate() ? 1 : 0; });
}

}  // namespace

int S_ISVALID(const char* s) noexcept {
    return Answer([&] { return CGxMapProjection::IsValid(s); });
}

int S_ISLOCAL(const char* s) noexcept {
    return Answer([&] { return CGxMapProjection::IsLocal(s); });
}

int S_ISLONGLAT(const char* s) noexcept {
    return Answer([&] { return CGxMapProjection::IsLongLat(s); });
}

int S_ISGEOGRAPHICAL(const char* s) noexcept {
    return Answer([&] { return CGxMapProjection::IsGeographical(s); });
}

int S_ISGEOREFERENCED(const char* s) noexcept {
    return Answer([&] { return CGxMapProjection::IsGeoreferenced(s); });
}

int S_HASDATUM(const char* s) noexcept {
    return Answer([&] { return CGxMapProjection::HasDatum(s); });
}

// The string comes first here, unlike the class operation, which takes the
// mask first; hosts were written against this order.
int S_ISTYPE(const char* s, int mask) noexcept {
    return Answer([&] { return CGxMapProjection::IsType(mask, s); });
}

int S_AREIDENTICAL(const char* s1, const char* s2) noexcept {
    return Answer([&] { return CGxMapProjection::AreIdentical(s1, s2); });
}

int S_GETCOORDSYSTYPE(const char* s) noexcept {
    return GxGuardedResult(0,
                           [&] { return static_cast<int>(CGxMapProjection::GetCoordSysType(s)); });
}

void S_PROJECTIONORIGIN(const char* s, double* lon, double* lat, int* status) noexcept {
    try {
        const CGxMapProjection system(s);
        double outLon = GxLoad(lon), outLat = GxLoad(lat);
        system.GetOrigin(&outLon, &outLat);
        GxStore(lon, outLon);
        GxStore(lat, outLat);
        GxSetStatus(status, GXCART_OK);
    } catch (...) {
        GxSetStatus(status, GxStatusOfCurrentException());
    }
}

void S_PROJECTIONSHORTNAME(const char* s, char* buffer, int bufferLength, int* status) noexcept {
    GxCopyTextResult(
        GxGuardedResult<const char*>("", [&] { return CGxMapProjection::ShortName(s); }), buffer,
        bufferLength, status);
}

void S_LONGITUDETOUTMZONE(double lon, char* buffer, int bufferLength, int* status) noexcept {
    GxCopyTextResult(
        GxGuardedResult<const char*>("", [&] { return CGxMapProjection::LongitudeToUTMZone(lon); }),
        buffer, bufferLength, status);
}

void S_GETGOOGLEMAPPROJECTIONSTRING(char* buffer, int bufferLength, int* status) noexcept {
    GxCopyTextResult(CGxMapProjection::IDtoProjectionString(CGxMapProjection::eGoogleMaps), buffer,
                     bufferLength, status);
}

void S_CATALOGUEREPORT(char* buffer, int bufferLength, int* status) noexcept {
    std::string report;
    GxGuarded([&] { report = CGxCartSetup::PeekReport(); });
    int copied = GXCART_OK;
    GxCopyTextResult(report.c_str(), buffer, bufferLength, &copied);
    // Cleared only once the caller has the text.
    if (copied == GXCART_OK && buffer) GxGuarded([] { CGxCartSetup::GetReport(); });
    GxSetStatus(status, copied);
}

GxProjection* NewGxProjection(const char* s) noexcept {
    return GxGuardedResult<GxProjection*>(
        nullptr, [&] { return CGxMapProjection::GetProjection(s, nullptr); });
}
