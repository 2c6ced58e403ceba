// The buffer file of recently used coordinate systems. It lives in the
// user's folder and holds one projection string a line, the latest first; the
// facade's XEnumMapProjectionsBuffer keeps it up to date.

#include "catalogue/MapProjectionBuffer.h"

#include <filesystem>
#include <fstream>

#include "catalogue/CatalogueLock.h"
#include "catalogue/CatalogueReport.h"
#include "catalogue/ListLimit.h"
#include "catalogue/PlatformFolders.h"
#include "definitions/MapProjData.h"
#include "foundation/Text.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"
#include "zpf/FileReplace.h"

namespace fs = std::filesystem;

// Processes of the same user take turns (the catalogue lock of the folder),
// and each writes a file of its own beside the target that replaces it
// whole, so readers never see a part of a list.
bool GxWriteBufferLines(const std::string& path, const std::list<std::string>& lines) {
    std::string text;
    int projected = 0;
    for (const std::string& line : lines) {
        text += line;
        text += '\n';
        if (CGxMapProjection::IsType(CGxMapProjection::eProjectedSystems, line.c_str()) &&
            ++projected == kGxBufferProjectedLines)
            break;
    }
    const fs::path target(path);
    const std::string folder =
        target.has_parent_path() ? target.parent_path().string() + "/" : std::string("./");
    GxEnsureFolder(folder);
    // Without the lock (a process stuck holding it) the list is still
    // written whole; at worst another process's latest choice is missing.
    const GxCatalogueLock lock(folder);
    gxzpf::RemoveStaleTemporaries(path);
    std::string message;
    if (gxzpf::WriteReplacing(path, text, message)) return true;
    GxReportCatalogue(message);
    return false;
}

std::string GxCatalogueEntryText(CGxMapProjData* definition) {
    const std::string name = definition->GetName();
    if (CGxMapProjection::IsType(CGxMapProjection::eSpecialStrings, name.c_str())) return name;
    std::string wkt;
    CGxPRJParser(definition).Format(wkt);
    return GxTrimmed(wkt);
}

CGxBufferList::iterator CGxBufferList::FindMapProjection(const std::string& text) {
    const std::string wanted = CGxPRJParser::ShortName(text);
    for (auto it = begin(); it != end(); ++it) {
        if (CGxPRJParser::ShortName(*it) == wanted) return it;
    }
    return end();
}

void CGxBufferList::TruncateToSize(int mask, std::size_t size) {
    std::size_t matching = 0;
    for (auto it = begin(); it != end(); ++it) {
        if (CGxMapProjection::IsType(mask, it->c_str()) && ++matching == size) {
            erase(std::next(it), end());
            return;
        }
    }
}

bool CGxMapProjectionBuffer::ReadFile(const std::string& path, std::list<std::string>* lines) {
    if (!lines) return true;
    std::ifstream in(path);
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        GxCheckListRoom(*lines);
        lines->push_back(line);
    }
    return true;
}

bool CGxMapProjectionBuffer::WriteFile(const std::string& path, std::list<std::string>* lines) {
    if (lines) GxWriteBufferLines(path, *lines);
    return true;
}
