#include "projections/ProjectionName.h"

#include <cstring>

bool GxIsLocalString(const char* s) {
    return s && std::strcmp(s, kGxNonUtmString) == 0;
}

GxProjectionName::GxProjectionName(const char* s) {
    const char* src = (s && *s) ? s : kGxNonUtmString;
    std::size_t n = std::strlen(src);
    if (n > kGxNameSize - 1) n = kGxNameSize - 1;
    std::memcpy(name, src, n);
    name[n] = '\0';
    isLocal = GxIsLocalString(name);
}
