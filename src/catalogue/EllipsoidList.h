#pragma once

#include <list>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/CustomFile.h"
#include "foundation/GxExport.h"

class CGxEllipsoid;
class GxCatalogueFile;

// The ellipsoid catalogue: system ellipsoids (from the library's own file, not
// editable), custom ones (from the user's file or added at run time) and the
// complete list, system entries first. The catalogue owns every ellipsoid.
class GXCART_API CGxEllipsoidList {
public:
    enum EEllipsoidTypes {
        eAllEllipsoids = 0,
        eSystemEllipsoids = 1,
        eCustomEllipsoids = 2,
    };
    using Iterator = std::list<CGxEllipsoid*>::iterator;

    CGxEllipsoidList();
    CGxEllipsoidList(const CGxEllipsoidList&) = delete;
    CGxEllipsoidList& operator=(const CGxEllipsoidList&) = delete;
    virtual ~CGxEllipsoidList();

    // Appends the ellipsoids of a keyword file to the custom or system list. A
    // missing or unreadable file adds nothing. A malformed section (a number
    // that is none, a list of values where one belongs) is skipped and
    // reported (CGxCartSetup::GetReport), and its identifier then resolves to
    // no ellipsoid of that file rather than to another one.
    void ReadEllipsoids(const std::string& path, bool custom);
    void ReadEllipsoids(const GxCatalogueFile& file, bool custom);
    // Writes all custom ellipsoids to path; the old file survives a failed
    // write. Returns whether the file was written. (The setup writes the
    // user's shared file differently: see CGxCartSetup::WriteModified.)
    bool WriteCustomEllipsoids(const std::string& path);

    // Takes ownership and appends to the custom list.
    void AddEllipsoid(CGxEllipsoid* ellipsoid);
    // Call after changing a custom ellipsoid in place.
    void EditEllipsoid(CGxEllipsoid* ellipsoid);
    // Removes a custom ellipsoid and deletes it; others are left alone.
    void DeleteEllipsoid(CGxEllipsoid* ellipsoid);
    void GenerateCompleteList();

    // First ellipsoid of the complete list whose identifier (or display name)
    // equals the text exactly, case included; null when none.
    CGxEllipsoid* GetEllipsoid(const std::string& id) const;
    CGxEllipsoid* GetEllipsoidFromName(const std::string& name) const;

    Iterator GetIteratorBegin(EEllipsoidTypes type);
    Iterator GetIteratorEnd(EEllipsoidTypes type);

    // Whether a system ellipsoid has this identifier.
    bool IsSystemIdentifier(const std::string& id) const;
    // Identifiers of skipped sections that now resolve to no ellipsoid.
    std::vector<std::string> UnavailableIdentifiers() const;
    // The custom entries as the files read held them (see CustomFile.h); the
    // setup writes only what changed since, and then records the new state.
    const std::vector<GxCustomRecord>& LoadedCustomRecords() const { return loadedCustom; }
    void SetLoadedCustomRecords(std::vector<GxCustomRecord> records) {
        loadedCustom = std::move(records);
    }

private:
    std::list<CGxEllipsoid*>& _List(EEllipsoidTypes type);
    bool _Unavailable(const std::string& id, bool systemEntry) const;

    std::list<CGxEllipsoid*> system;
    std::list<CGxEllipsoid*> custom;
    std::list<CGxEllipsoid*> complete;
    std::vector<GxCustomRecord> loadedCustom;
    // Identifiers of skipped sections, and whether they were in a system
    // file: such an identifier resolves to no entry of its file or a later
    // one, so a damaged entry never makes it resolve to another ellipsoid.
    std::vector<std::pair<std::string, bool>> unreadable;
};
