#include "catalogue/MapProjectionList.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "catalogue/CatalogueFile.h"
#include "catalogue/ListLimit.h"
#include "definitions/GeographicalProjection.h"
#include "definitions/MapProjData.h"
#include "definitions/TabledMapProjData.h"
#include "definitions/TransverseMercatorProjection.h"
#include "wkt/PRJParser.h"
#include "zpf/zpf.h"

namespace {

const char* const kBlock = "MAP_PROJECTION_DEFINITION";
const char* const kGeographicName = "LONG/LAT";
const char* const kLocalName = "NON-UTM";
const char* const kNonUtmBranch = "Non UTM Projections";
const char* const kUtmBranch = "UTM Projections";
const char* const kUtmEllipsoid = "WE";
constexpr int kUtmZones = 60;
constexpr double kUtmScale = 0.9996;
constexpr double kUtmFalseEasting = 500000.0;

// The definition types in enumeration order, each asked whether it reads a
// section name. One default definition of every type is made per file rather
// than per section.
class SectionReaders {
public:
    SectionReaders() {
        for (int i = 0; i < CGxMapProjData::GetNoOfProjections(); ++i)
            types.emplace_back(CGxMapProjData::CreateDefaultParameterProjection(
                CGxMapProjData::Enum2ProjectionType(i)));
    }

    // A new default definition of the first type that accepts the section
    // name, so "MERCATOR_PROJECTION" reads as Mercator 2SP; null for none.
    CGxMapProjData* NewDefinition(const std::string& section) const {
        for (const auto& type : types)
            if (type && type->IsSectionID(section))
                return CGxMapProjData::CreateDefaultParameterProjection(type->GetProjectionType());
        return nullptr;
    }

private:
    std::vector<std::unique_ptr<CGxMapProjData>> types;
};

}  // namespace

CGxMapProjectionList::CGxMapProjectionList() = default;

CGxMapProjectionList::~CGxMapProjectionList() {
    for (CGxMapProjData* d : entries) delete d;
}

void CGxMapProjectionList::_Append(CGxMapProjData* definition) {
    GxCheckListRoom(entries);
    std::string name = definition->GetName();
    std::string shortName = CGxPRJParser::ShortName(name);
    names.push_back(NameKey{definition, dynamic_cast<const CGxTabledMapProjData*>(definition),
                            std::move(name), std::move(shortName)});
    // The list and its names change together or not at all.
    try {
        entries.push_back(definition);
    } catch (...) {
        names.pop_back();
        throw;
    }
}

void CGxMapProjectionList::InitMapProjections(const std::string& dataPath,
                                              const std::string& userPath) {
    auto* geographic = new CGxGeographicalProjection(kGeographicName);
    geographic->SetBranchName(kNonUtmBranch);
    _Append(geographic);

    for (int zone = 1; zone <= kUtmZones; ++zone) {
        char name[16];
        std::snprintf(name, sizeof name, "UTM-%d", zone);
        const double centralMeridian = (zone - 30) * 6.0 - 3.0;
        _Append(new CGxTransverseMercatorProjection(name, kUtmBranch, kUtmEllipsoid, kUtmScale,
                                                    centralMeridian, 0.0, kUtmFalseEasting, 0.0));
    }

    if (!dataPath.empty()) {
        ReadMapProjections(dataPath + "map_projection.zpf", false);
        ReadMapProjections(dataPath + "state_plane_nad83.zpf", false);
        ReadMapProjections(dataPath + "state_plane_nad27.zpf", false);
    }
    if (!userPath.empty()) ReadMapProjections(userPath + "custom_projection.zpf", true);

    auto* local = new CGxTransverseMercatorProjection(kLocalName);
    local->SetBranchName(kNonUtmBranch);
    _Append(local);
}

void CGxMapProjectionList::ReadMapProjections(const std::string& path, bool editable) {
    GxReadCatalogueFile(path, kBlock, [&](void* block) {
        const int n = zpfGetNoSections(block);
        const SectionReaders readers;
        for (int i = 1; i <= n; ++i) {
            void* section = zpfSectionByNum(block, i);
            CGxMapProjData* definition = readers.NewDefinition(zpfGetName(section));
            if (!definition) continue;
            definition->ReadFromHandle(section, editable);
            _Append(definition);
        }
    });
}

bool CGxMapProjectionList::WriteCustomMapProjections(const std::string& path) {
    return GxWriteCatalogueFile(path, kBlock, [this](void* file) {
        for (CGxMapProjData* d : entries) d->WriteToHandle(file);
    });
}

void CGxMapProjectionList::AddMapProjection(CGxMapProjData* definition) {
    if (definition) _Append(definition);
}

void CGxMapProjectionList::DeleteMapProjection(CGxMapProjData* definition) {
    auto it = std::find(entries.begin(), entries.end(), definition);
    if (it == entries.end()) return;
    entries.erase(it);
    auto key = std::find_if(names.begin(), names.end(),
                            [definition](const NameKey& k) { return k.definition == definition; });
    if (key != names.end()) names.erase(key);
    delete definition;
}

bool CGxMapProjectionList::_Matches(const NameKey& key, const std::string& currentName,
                                    const std::string& wantedShortName) {
    if (currentName == key.name) return key.shortName == wantedShortName;
    return CGxPRJParser::ShortName(currentName) == wantedShortName;
}

CGxMapProjData* CGxMapProjectionList::GetMapProjection(const std::string& name) const {
    const std::string wanted = CGxPRJParser::ShortName(name);
    for (const NameKey& key : names) {
        // A definition may have been renamed since it joined; its short form
        // is then worked out afresh (and the stored one left alone, so that
        // look-ups from several threads only read).
        const bool matches =
            key.tabled ? _Matches(key, key.tabled->Name(), wanted) : _Matches(key, key.definition->GetName(), wanted);
        if (matches) return key.definition;
    }
    return nullptr;
}
