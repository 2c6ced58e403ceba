#pragma once

#include <string>

#include "foundation/GxExport.h"

// One coordinate system found by an enumeration or a scan of .PRJ and setup
// files: its projection string, a WKT text or a special string.
class GXCART_API CGxMapProjectionInfo {
public:
    CGxMapProjectionInfo() = default;
    explicit CGxMapProjectionInfo(const std::string& projectionString);

    const std::string& GetMapProjection() const { return projectionString; }

private:
    std::string projectionString;
};

// Told about every system a scan takes, so that a host can show progress or
// keep a log: a folder scan passes the file's name (without folder), a setup
// file scan the system's PROJCS name.
class GXCART_API CGxProjReadNotifier {
public:
    virtual ~CGxProjReadNotifier();
    virtual void Notify(const std::string& name) = 0;
};
