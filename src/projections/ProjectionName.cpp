#include "projections/ProjectionName.h"

#include <cstring>

#include "foundation/Text.h"

bool GxIsLocalString(const char* s) {
    return s && std::strcmp(s, kGxNonUtmString) == 0;
}

GxProjectionName::GxProjectionName(const char* s) {
    const char* src = (s && *s) ? s : kGxNonUtmString;
    GxCopyField(name, kGxNameSize, src);
    isLocal = GxIsLocalString(name);
}
