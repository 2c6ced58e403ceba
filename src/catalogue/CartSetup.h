#pragma once

#include <atomic>
#include <string>

#include "catalogue/EllipsoidList.h"
#include "catalogue/MapProjectionList.h"
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
    // (both ending in '/'; an empty folder is skipped).
    void ReadData(const std::string& dataPath, const std::string& userPath);

    CGxEllipsoidList& GetEllipsoidList() { return ellipsoids; }
    CGxMapProjectionList& GetMapProjectionList() { return projections; }
    std::string GetUserPath() const { return userPath; }
    // The folder the system files were read from (as given to ReadData).
    std::string GetDataPath() const { return dataPath; }
    // Callers that add, edit or delete custom entries mark the list, so the
    // unload writes it back.
    void SetEllipsoidListModified() { ellipsoidListModified = true; }
    void SetMapProjectionListModified() { projectionListModified = true; }

    // Writes the custom files whose lists were marked modified; the unload
    // does this too. Creates the user folder when a file must go there.
    void WriteModified();

    CGxCartSetup(const CGxCartSetup&) = delete;
    CGxCartSetup& operator=(const CGxCartSetup&) = delete;
    virtual ~CGxCartSetup();

private:
    CGxCartSetup();

    CGxEllipsoidList ellipsoids;
    CGxMapProjectionList projections;
    // Set from any thread that builds a map projection by catalogue name.
    std::atomic<bool> ellipsoidListModified{false};
    std::atomic<bool> projectionListModified{false};
    std::string userPath;
    std::string dataPath;
};
