#pragma once

#include <list>
#include <string>

#include "foundation/GxExport.h"

class CGxEllipsoid;

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
    // missing or unreadable file adds nothing.
    void ReadEllipsoids(const std::string& path, bool custom);
    // Writes the custom ellipsoids; the old file survives a failed write.
    // Returns whether the file was written.
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

private:
    std::list<CGxEllipsoid*>& _List(EEllipsoidTypes type);

    std::list<CGxEllipsoid*> system;
    std::list<CGxEllipsoid*> custom;
    std::list<CGxEllipsoid*> complete;
};
