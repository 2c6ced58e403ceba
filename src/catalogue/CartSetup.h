#pragma once

#include <string>

#include "catalogue/EllipsoidList.h"
#include "foundation/GxExport.h"

// The process-wide setup: owns the catalogues, filled once when the library
// is loaded; at unload it writes the user's custom files back when they were
// marked modified.
class GXCART_API CGxCartSetup {
public:
    // The one object, created on first use (thread-safe) and destroyed at
    // unload.
    static CGxCartSetup& Instance();

    // Reads the system files from dataPath and the custom files from userPath
    // (both ending in '/'; an empty userPath skips the user's files).
    void ReadData(const std::string& dataPath, const std::string& userPath);

    CGxEllipsoidList& GetEllipsoidList() { return ellipsoids; }
    std::string GetUserPath() const { return userPath; }
    void SetEllipsoidListModified() { ellipsoidListModified = true; }

    // Writes the custom files whose lists were marked modified; the unload
    // does this too. Creates the user folder when a file must go there.
    void WriteModified();

    CGxCartSetup(const CGxCartSetup&) = delete;
    CGxCartSetup& operator=(const CGxCartSetup&) = delete;
    virtual ~CGxCartSetup();

private:
    CGxCartSetup();

    CGxEllipsoidList ellipsoids;
    bool ellipsoidListModified = false;
    std::string userPath;
};
