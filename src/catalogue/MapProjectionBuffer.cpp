// The buffer file of recently used coordinate systems. It lives in the
// user's folder and holds one projection string a line, the latest first; the
// facade's XEnumMapProjectionsBuffer keeps it up to date.

#include "catalogue/MapProjectionBuffer.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "catalogue/CartSetup.h"
#include "catalogue/ListLimit.h"
#include "catalogue/PlatformFolders.h"
#include "definitions/MapProjData.h"
#include "mapprojection/MapProjection.h"
#include "mapprojection/TextTrim.h"
#include "wkt/PRJParser.h"

namespace fs = std::filesystem;

namespace {

// A file never lists more projected systems than an enumeration shows.
constexpr int kProjectedLines = 10;

// Writes the lines under the rule of WriteFile into a temporary file beside
// the target and renames it over the target, so that a failed write leaves
// the old file. False when nothing could be written.
template <class Lines>
bool WriteLines(const std::string& path, const Lines& lines) {
    const fs::path target(path);
    if (target.has_parent_path()) GxEnsureFolder(target.parent_path().string());
    const std::string temporary = path + ".tmp";
    {
        std::ofstream out(temporary, std::ios::trunc);
        if (!out) return false;
        int projected = 0;
        for (const std::string& line : lines) {
            out << line << '\n';
            if (CGxMapProjection::IsType(CGxMapProjection::eProjectedSystems, line.c_str()) &&
                ++projected == kProjectedLines)
                break;
        }
        out.flush();
        if (!out) {
            std::error_code ec;
            fs::remove(temporary, ec);
            return false;
        }
    }
    std::error_code ec;
    fs::rename(temporary, target, ec);
    if (ec) fs::remove(temporary, ec);
    return !ec;
}

}  // namespace

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

bool CGxMapProjectionBuffer::CreateFile(const std::string& path) {
    std::list<std::string> lines;
    CGxMapProjectionList& catalogue = CGxCartSetup::Instance().GetMapProjectionList();
    int projected = 0;
    for (auto it = catalogue.GetIteratorBegin(); it != catalogue.GetIteratorEnd(); ++it) {
        lines.push_back(GxCatalogueEntryText(*it));
        // The rest of the catalogue would not be written: no need to format
        // it.
        if (CGxMapProjection::IsType(CGxMapProjection::eProjectedSystems, lines.back().c_str()) &&
            ++projected == kProjectedLines)
            break;
    }
    return WriteLines(path, lines);
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
    if (lines) WriteLines(path, *lines);
    return true;
}
