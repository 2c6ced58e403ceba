// Coordinate systems outside the catalogue: folders of .PRJ files (one WKT
// text each, as GIS software writes them beside a data set) and setup files
// (one projection string a line), read only when a caller enumerates.

#include "catalogue/ProjectionScan.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/ListLimit.h"
#include "catalogue/MapProjectionList.h"
#include "catalogue/PlatformFolders.h"
#include "foundation/Text.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"

namespace fs = std::filesystem;

namespace {

const char* const kPrjFolder = "OpenGISProjections/";
const char* const kPrjPattern = "*.PRJ";
const char* const kSystemSetupFile = "SystemDefinedProjection.setup";
const char* const kUserSetupFile = "UserDefinedProjection.setup";

// Wildcard match of a file name, '*' for any run of characters and '?' for
// one, letter case ignored as the file systems these folders come from do.
bool MatchesPattern(const std::string& name, const std::string& pattern) {
    std::size_t n = 0, p = 0;
    std::size_t starAt = std::string::npos, resumeAt = 0;
    while (n < name.size()) {
        if (p < pattern.size() &&
            (pattern[p] == '?' || GxAsciiLower(pattern[p]) == GxAsciiLower(name[n]))) {
            ++n;
            ++p;
        } else if (p < pattern.size() && pattern[p] == '*') {
            starAt = p++;
            resumeAt = n;
        } else if (starAt != std::string::npos) {
            p = starAt + 1;
            n = ++resumeAt;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

// A line as a text file holds it, without the carriage return of a file
// written on Windows.
bool ReadLine(std::istream& in, std::string& line) {
    if (!std::getline(in, line)) return false;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
}

// The reader's verdict on one projection string; the parser is kept for the
// caller's questions.
bool GivesSystem(CGxPRJParser& parser) {
    parser.Parse(true);
    return parser.GetProjectionType() != CGxMapProjData::eInvalidProjection;
}

void Append(std::list<CGxMapProjectionInfo>& out, const std::string& projectionString) {
    GxCheckListRoom(out);
    out.emplace_back(projectionString);
}

void AppendOfType(int typeFlags, const std::list<CGxMapProjectionInfo>& found,
                  std::list<CGxMapProjectionInfo>& out) {
    for (const CGxMapProjectionInfo& system : found) {
        if (CGxMapProjection::IsType(typeFlags, system.GetMapProjection().c_str())) {
            GxCheckListRoom(out);
            out.push_back(system);
        }
    }
}

}  // namespace

CGxMapProjectionInfo::CGxMapProjectionInfo(const std::string& projectionString_)
    : projectionString(projectionString_) {}

CGxProjReadNotifier::~CGxProjReadNotifier() = default;

void CGxMapProjectionList::AddPRJfiles(int typeFlags, std::list<CGxMapProjectionInfo>* out,
                                       CGxProjReadNotifier* notifier) {
    if (!out) return;
    std::list<CGxMapProjectionInfo> found;
    for (const std::string& folder : {GxDataFolder(), CGxCartSetup::Instance().GetUserPath()}) {
        if (!folder.empty()) ScanPRJfiles(&found, folder + kPrjFolder, kPrjPattern, notifier);
    }
    AppendOfType(typeFlags, found, *out);
}

void CGxMapProjectionList::AddProjections(int typeFlags, std::list<CGxMapProjectionInfo>* out,
                                          CGxProjReadNotifier* notifier) {
    if (!out) return;
    std::list<CGxMapProjectionInfo> found;
    ScanProjectionSetup(&found, GetSystemDefinedSetupName(), notifier);
    ScanProjectionSetup(&found, GetUserDefinedSetupName(), notifier);
    AppendOfType(typeFlags, found, *out);
}

void CGxMapProjectionList::ScanPRJfiles(std::list<CGxMapProjectionInfo>* out,
                                        const std::string& folder, const std::string& pattern,
                                        CGxProjReadNotifier* notifier) {
    if (!out || folder.empty()) return;
    std::vector<fs::path> files;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        if (it->is_regular_file(ec) && MatchesPattern(it->path().filename().string(), pattern))
            files.push_back(it->path());
    }
    // The order a directory lists its files in is the file system's; name
    // order gives every host the same list.
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        std::ifstream in(file);
        std::string line;
        // The WKT stands on the first line; anything after it is not read.
        if (!ReadLine(in, line)) continue;
        CGxPRJParser parser(line);
        if (!GivesSystem(parser)) continue;
        Append(*out, line);
        if (notifier) notifier->Notify(file.filename().string());
    }
}

void CGxMapProjectionList::ScanProjectionSetup(std::list<CGxMapProjectionInfo>* out,
                                               const std::string& path,
                                               CGxProjReadNotifier* notifier) {
    if (!out || path.empty()) return;
    std::ifstream in(path);
    std::string line;
    while (ReadLine(in, line)) {
        CGxPRJParser parser(line);
        if (!GivesSystem(parser)) continue;
        Append(*out, line);
        if (notifier) notifier->Notify(parser.GetProjCSname());
    }
}

std::string CGxMapProjectionList::GetSystemDefinedSetupName() {
    const std::string folder = GxDataFolder();
    return folder.empty() ? folder : folder + kSystemSetupFile;
}

std::string CGxMapProjectionList::GetUserDefinedSetupName() {
    const std::string folder = CGxCartSetup::Instance().GetUserPath();
    return folder.empty() ? folder : folder + kUserSetupFile;
}
