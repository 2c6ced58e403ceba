// Converts points through every definition of a catalogue file, the way the
// library's projection catalogue reads it: for each section of the block
// MAP_PROJECTION_DEFINITION the first definition type whose IsSectionID
// accepts the name reads the section, and its CreateProjection builds the
// algorithm. tools/check_catalogue.py drives this program and compares its
// output with PROJ.
//
//   check_catalogue list FILE
//       one line per section, tab-separated: number, type (0 when no type
//       accepts the name), 1 or 0 for an algorithm built or not, the code
//       keyword ("-" when there is none), the semi-major axis and inverse
//       flattening of the algorithm's ellipsoid ("nan" without one), the
//       name.
//   check_catalogue convert FILE
//       reads lines "section lon lat x y" from standard input and writes
//       "section x' y' lon' lat'": (x', y') the forward conversion of
//       (lon, lat), (lon', lat') the inverse conversion of (x, y).

#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "definitions/MapProjData.h"
#include "definitions/TabledMapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "zpf/zpf.h"

namespace {

struct Entry {
    std::string sectionName;
    std::unique_ptr<CGxMapProjData> definition;  // null when no type accepts the name
    CGxProjection* projection = nullptr;         // null when none could be built
};

std::unique_ptr<CGxMapProjData> _DefinitionFor(const std::string& sectionName) {
    for (CGxMapProjData::EProjectionType type : GxDefinitionTypes()) {
        std::unique_ptr<CGxMapProjData> candidate(
            CGxMapProjData::CreateDefaultParameterProjection(type));
        if (candidate && candidate->IsSectionID(sectionName)) return candidate;
    }
    return nullptr;
}

bool _Load(const char* path, std::vector<Entry>& entries) {
    void* file = zpfLoadFile(path);
    if (!file) {
        std::string message;
        zpfGetErrorGlb(&message);
        std::cerr << "cannot load " << path << ": " << message << '\n';
        return false;
    }
    // A data file must read completely; the library would skip what does not.
    if (const int problems = zpfGetNoProblems(file)) {
        for (int i = 1; i <= problems; ++i) {
            const std::string problem = zpfGetProblem(file, i);
            if (!problem.empty()) std::cerr << problem << '\n';
        }
        zpfClose(file);
        return false;
    }
    void* block = zpfTargetByNameNum(file, "MAP_PROJECTION_DEFINITION", 1);
    if (!block) {
        std::cerr << path << ": no block MAP_PROJECTION_DEFINITION\n";
        zpfClose(file);
        return false;
    }
    const int count = zpfGetNoSections(block);
    for (int i = 1; i <= count; ++i) {
        void* section = zpfSectionByNum(block, i);
        Entry entry;
        entry.sectionName = zpfGetName(section);
        entry.definition = _DefinitionFor(entry.sectionName);
        if (entry.definition) {
            entry.definition->ReadFromHandle(section, false);
            entry.projection = entry.definition->CreateProjection();
        }
        entries.push_back(std::move(entry));
    }
    zpfClose(file);
    return true;
}

void _List(const std::vector<Entry>& entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry& e = entries[i];
        const std::string& code = GxDefinitionCode(e.definition.get());
        double a = NAN, invFlattening = NAN;
        CGxEllipsoid figure;
        if (e.projection && e.projection->GetAnonymousEllipsoid(figure)) {
            a = figure.GetMajor();
            invFlattening = figure.GetInvFlatness();
        }
        std::printf("%zu\t%d\t%d\t%s\t%.17g\t%.17g\t%s\n", i + 1,
                    e.definition ? static_cast<int>(e.definition->GetProjectionType()) : 0,
                    e.projection ? 1 : 0, code.empty() ? "-" : code.c_str(), a, invFlattening,
                    e.definition ? e.definition->GetName().c_str() : e.sectionName.c_str());
    }
}

void _Convert(const std::vector<Entry>& entries) {
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream in(line);
        std::size_t k = 0;
        double lon = 0, lat = 0, x = 0, y = 0;
        if (!(in >> k >> lon >> lat >> x >> y)) continue;
        double outX = NAN, outY = NAN, outLon = NAN, outLat = NAN;
        if (k >= 1 && k <= entries.size() && entries[k - 1].projection) {
            const CGxProjection& p = *entries[k - 1].projection;
            p.Geo2Proj(lon, lat, &outX, &outY);
            p.Proj2Geo(x, y, &outLon, &outLat);
        }
        std::printf("%zu %.17g %.17g %.17g %.17g\n", k, outX, outY, outLon, outLat);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3 || (std::string(argv[1]) != "list" && std::string(argv[1]) != "convert")) {
        std::cerr << "usage: check_catalogue list|convert FILE\n";
        return 2;
    }
    std::vector<Entry> entries;
    if (!_Load(argv[2], entries)) return 1;
    if (std::string(argv[1]) == "list")
        _List(entries);
    else
        _Convert(entries);
    for (Entry& e : entries) CGxProjection::Release(e.projection);
    return 0;
}
