// The buffer file made afresh from the catalogue. This is the one part of the
// buffer file that needs the set-up's catalogue; it stands apart from the
// reading and writing of the file so that the set-up, which clears the
// file's stale temporaries at start-up, and the buffer file do not include
// each other.

#include <list>
#include <string>

#include "catalogue/CartSetup.h"
#include "catalogue/MapProjectionBuffer.h"
#include "mapprojection/MapProjection.h"

bool CGxMapProjectionBuffer::CreateFile(const std::string& path) {
    std::list<std::string> lines;
    CGxMapProjectionList& catalogue = CGxCartSetup::Instance().GetMapProjectionList();
    int projected = 0;
    for (auto it = catalogue.GetIteratorBegin(); it != catalogue.GetIteratorEnd(); ++it) {
        lines.push_back(GxCatalogueEntryText(*it));
        // The rest of the catalogue would not be written: no need to format
        // it.
        if (CGxMapProjection::IsType(CGxMapProjection::eProjectedSystems, lines.back().c_str()) &&
            ++projected == kGxBufferProjectedLines)
            break;
    }
    return GxWriteBufferLines(path, lines);
}
