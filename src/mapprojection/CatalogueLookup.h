#pragma once

#include <string>

#include "foundation/GxExport.h"

class CGxMapProjData;

// How a projection string that is neither WKT nor a special string finds its
// catalogue system: by name in the catalogue; else by register code
// ("EPSG:25832", "epsg:25832", "urn:ogc:def:crs:EPSG::25832", "ESRI:102031"),
// in the catalogue and then among the deferred EPSG systems; else by name
// among the deferred systems. A name therefore wins over a code, and an entry
// of the catalogue over a deferred system. Null when nothing matches.
GXCART_API CGxMapProjData* GxFindCatalogueSystem(const std::string& text);

// The system that text reaches through its code alone (no catalogue entry has
// text as its name); null otherwise.
CGxMapProjData* GxCodedCatalogueSystem(const std::string& text);
