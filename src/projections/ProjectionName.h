#pragma once

#include <cstddef>

#include "foundation/GridNames.h"

// The coordinate-system name every algorithm keeps, and the one name that
// makes an algorithm the local plane grid.

// Size of the name buffer, terminator included.
constexpr std::size_t kGxNameSize = 256;

// The string test of a local grid: exactly "NON-UTM".
bool GxIsLocalString(const char* s);

// The coordinate-system string an algorithm was built from, truncated safely to
// 255 characters; an empty or null string becomes "NON-UTM". isLocal is decided
// once, here.
struct GxProjectionName {
    char name[kGxNameSize];
    bool isLocal;

    explicit GxProjectionName(const char* s);
};
