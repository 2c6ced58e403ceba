#pragma once

#include <string>

#include "foundation/GxExport.h"

class CGxEllipsoid;
class CGxMapProjData;

// The object host code holds for one coordinate system, and the static
// access to the catalogues of the setup.
class GXCART_API CGxMapProjection {
public:
    // The catalogue definition named name (not a copy), or null. Marks the
    // projection catalogue as modified: a caller may edit what it gets.
    static CGxMapProjData* MapProjection(const std::string& name);
    // The catalogue ellipsoid that the catalogue projection named name refers
    // to; null for an unknown projection or one without ellipsoid identifier.
    static CGxEllipsoid* Ellipsoid(const std::string& name);
    // Catalogue ellipsoid by identifier (null for an empty one) or by name.
    static CGxEllipsoid* EllipsoidFromID(const std::string& id);
    static CGxEllipsoid* EllipsoidFromName(const std::string& name);

    // Forwarded to the catalogues; Add takes ownership.
    static void AddEllipsoid(CGxEllipsoid* ellipsoid);
    static void EditEllipsoid(CGxEllipsoid* ellipsoid);
    static void DeleteEllipsoid(CGxEllipsoid* ellipsoid);
    static void AddMapProjection(CGxMapProjData* definition);
    static void DeleteMapProjection(CGxMapProjData* definition);
};
