#pragma once

#include <atomic>
#include <mutex>
#include <string>

#include "catalogue/EllipsoidList.h"
#include "catalogue/MapProjectionList.h"
#include "foundation/GxExport.h"

// The process-wide setup: owns the catalogues, filled once when the library
// is loaded; at unload it writes the user's custom files back when they were
// marked modified and their entries really changed.
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

    // Writes this process's changes to the custom entries of the marked lists
    // into the user's custom files; the unload does this too. A list whose
    // entries are as they were read is not written at all, so a process that
    // only looks systems up never touches the files. Other processes may
    // share the files: under a lock, each file is read again and only this
    // process's additions, edits and deletions are applied to what it holds
    // then. Ellipsoids are written before the projections that use them and
    // deleted only after, so no reader ever finds a projection without its
    // ellipsoid. Creates the user folder when a file must go there. False
    // when something could not be written (the files on disk are then as
    // they were, and the report says why).
    bool WriteModified();

    // What the catalogues have to tell about their files, one message a
    // line, each naming its file: sections that could not be read and were
    // skipped, damaged files kept aside, files that could not be written.
    // GetReport also clears the messages. Empty when all is well.
    static std::string PeekReport();
    static std::string GetReport();

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
    std::mutex writing;
};
