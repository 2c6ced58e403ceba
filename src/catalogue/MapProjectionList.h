#pragma once

#include <list>
#include <string>

#include "foundation/GxExport.h"

class CGxMapProjData;

// The catalogue of predefined coordinate systems offered for selection, in the
// order users see it: "LONG/LAT", the sixty UTM zones, the system files, the
// user's custom file and "NON-UTM". It owns its definitions.
class GXCART_API CGxMapProjectionList {
public:
    using Iterator = std::list<CGxMapProjData*>::iterator;

    CGxMapProjectionList();
    CGxMapProjectionList(const CGxMapProjectionList&) = delete;
    CGxMapProjectionList& operator=(const CGxMapProjectionList&) = delete;
    virtual ~CGxMapProjectionList();

    // Fills the catalogue from the library's folder and the user's folder
    // (both ending in '/'; an empty user folder skips the custom file).
    void InitMapProjections(const std::string& dataPath, const std::string& userPath);
    // Appends every section of a keyword file whose name a definition type
    // accepts; the first type in enumeration order wins. Missing files and
    // unknown sections are skipped.
    void ReadMapProjections(const std::string& path, bool editable);
    // Writes the editable entries; the old file survives a failed write.
    // Returns whether the file was written.
    bool WriteCustomMapProjections(const std::string& path);

    // Takes ownership and appends.
    void AddMapProjection(CGxMapProjData* definition);
    // Removes the entry and deletes it; an unknown pointer is left alone.
    void DeleteMapProjection(CGxMapProjData* definition);
    // First entry whose name, in short form, equals the short form of name
    // exactly (case included); null when none.
    CGxMapProjData* GetMapProjection(const std::string& name) const;

    Iterator GetIteratorBegin() { return entries.begin(); }
    Iterator GetIteratorEnd() { return entries.end(); }

private:
    void _Append(CGxMapProjData* definition);

    std::list<CGxMapProjData*> entries;
};
