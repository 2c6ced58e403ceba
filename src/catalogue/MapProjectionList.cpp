#include "catalogue/MapProjectionList.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "catalogue/CatalogueCode.h"
#include "catalogue/CatalogueFile.h"
#include "catalogue/CatalogueReport.h"
#include "catalogue/ListLimit.h"
#include "definitions/GeographicalProjection.h"
#include "definitions/MapProjData.h"
#include "definitions/TabledMapProjData.h"
#include "definitions/TransverseMercatorProjection.h"
#include "foundation/GridNames.h"
#include "wkt/PRJParser.h"
#include "zpf/zpf.h"

namespace {

const char* const kBlock = "MAP_PROJECTION_DEFINITION";
const char* const kNonUtmBranch = "Non UTM Projections";
const char* const kUtmBranch = "UTM Projections";
const char* const kUtmEllipsoid = "WE";
constexpr int kUtmZones = 60;
constexpr double kUtmScale = 0.9996;
constexpr double kUtmFalseEasting = 500000.0;
// The EPSG systems users name most (read at start-up, after the custom file so
// that a user's own system keeps its name), and every other EPSG system the
// definitions express exactly (read on first need).
const char* const kCommonEpsgFile = "epsg_common.zpf";
const char* const kDeferredEpsgFile = "epsg_other.zpf";

// The definition types in enumeration order, each asked whether it reads a
// section name. One default definition of every type is made per file rather
// than per section.
class SectionReaders {
public:
    SectionReaders() {
        for (CGxMapProjData::EProjectionType type : GxDefinitionTypes())
            types.emplace_back(CGxMapProjData::CreateDefaultParameterProjection(type));
    }

    // A new default definition of the first type that accepts the section
    // name, so "MERCATOR_PROJECTION" reads as Mercator 2SP; null for none.
    CGxMapProjData* NewDefinition(const std::string& section) const {
        if (const CGxMapProjData* type = Type(section))
            return CGxMapProjData::CreateDefaultParameterProjection(type->GetProjectionType());
        return nullptr;
    }

    // The default definition of the type that reads a section name.
    const CGxMapProjData* Type(const std::string& section) const {
        for (const auto& type : types)
            if (type && type->IsSectionID(section)) return type.get();
        return nullptr;
    }

private:
    std::vector<std::unique_ptr<CGxMapProjData>> types;
};

// Why a section cannot be read by a definition; empty when it can.
std::string SectionProblem(const CGxMapProjData& definition, void* section) {
    const auto* tabled = dynamic_cast<const CGxTabledMapProjData*>(&definition);
    return tabled ? tabled->SectionProblem(section) : std::string();
}

GxCustomRecord RecordOf(CGxMapProjData& definition, void* scratch) {
    return GxCustomRecord{
        definition.GetName(),
        GxSectionTextOf(scratch, [&definition](void* block) { definition.WriteToHandle(block); }),
        &definition};
}

class ProjectionFormat : public GxCustomFormat {
public:
    explicit ProjectionFormat(CGxMapProjectionList& list) : list_(list) {}
    const char* BlockName() const override { return kBlock; }
    std::vector<GxCustomRecord> Records(void* scratch) const override {
        std::vector<GxCustomRecord> records;
        for (auto it = list_.GetIteratorBegin(); it != list_.GetIteratorEnd(); ++it) {
            // Only editable definitions write a section.
            GxCustomRecord record = ::RecordOf(**it, scratch);
            if (!record.text.empty()) records.push_back(std::move(record));
        }
        return records;
    }
    bool RecordOf(void* section, void* scratch, GxCustomRecord& record) const override {
        std::unique_ptr<CGxMapProjData> definition(readers_.NewDefinition(zpfGetName(section)));
        if (!definition || !SectionProblem(*definition, section).empty()) return false;
        definition->ReadFromHandle(section, true);
        record = ::RecordOf(*definition, scratch);
        record.entry = nullptr;
        return true;
    }
    void Write(const void* entry, void* block) const override {
        const_cast<CGxMapProjData*>(static_cast<const CGxMapProjData*>(entry))
            ->WriteToHandle(block);
    }
    std::string Reference(const void* entry) const override {
        return static_cast<const CGxMapProjData*>(entry)->GetEllipsoidID();
    }
    std::string ReferenceOf(void* section) const override {
        return GxFirstText(section, CGxMapProjDataIDs::Ellipsoid);
    }

private:
    CGxMapProjectionList& list_;
    const SectionReaders readers_;
};

}  // namespace

struct CGxMapProjectionList::DeferredSystems {
    std::string path;  // empty: there are none
    std::once_flag read;
    std::vector<std::unique_ptr<CGxMapProjData>> systems;
    // The first system of each code and of each short name, in file order.
    std::unordered_map<std::uint64_t, CGxMapProjData*> byCode;
    std::unordered_map<std::string, CGxMapProjData*> byShortName;
    // Set once the read is over, for a count that does not wait for it.
    std::atomic<std::size_t> count{0};

    void Read() {
        const GxCatalogueFile file(path);
        file.ReportProblems();
        if (void* block = file.Block(kBlock)) {
            const int n = zpfGetNoSections(block);
            const SectionReaders readers;
            systems.reserve(static_cast<std::size_t>(n > 0 ? n : 0));
            for (int i = 1; i <= n; ++i) {
                void* section = zpfSectionByNum(block, i);
                std::unique_ptr<CGxMapProjData> definition(
                    readers.NewDefinition(zpfGetName(section)));
                if (!definition) continue;
                const std::string problem = SectionProblem(*definition, section);
                if (!problem.empty()) {
                    GxReportSkippedSection(file.Path(), section, problem);
                    continue;
                }
                definition->ReadFromHandle(section, false);
                CGxMapProjData* system = definition.get();
                systems.push_back(std::move(definition));
                GxCatalogueCode code;
                if (GxParseCatalogueCode(GxDefinitionCode(system), code))
                    byCode.emplace(code.Key(), system);
                byShortName.emplace(CGxPRJParser::ShortName(system->GetName()), system);
            }
        }
        count = systems.size();
    }
};

std::unique_ptr<GxCustomFormat> GxProjectionCustomFormat(CGxMapProjectionList& list) {
    return std::make_unique<ProjectionFormat>(list);
}

CGxMapProjectionList::CGxMapProjectionList() : deferred(new DeferredSystems) {}

CGxMapProjectionList::~CGxMapProjectionList() {
    for (CGxMapProjData* d : entries) delete d;
}

void CGxMapProjectionList::_Append(CGxMapProjData* definition) {
    GxCheckListRoom(entries);
    std::string name = definition->GetName();
    std::string shortName = CGxPRJParser::ShortName(name);
    names.push_back(NameKey{definition, dynamic_cast<const CGxTabledMapProjData*>(definition),
                            std::move(name), std::move(shortName), nextSerial});
    // The list and its names change together or not at all.
    try {
        entries.push_back(definition);
    } catch (...) {
        names.pop_back();
        throw;
    }
    ++nextSerial;
}

void CGxMapProjectionList::_MarkUnavailable(const std::string& name, std::size_t fromSerial) {
    if (!name.empty())
        unavailable.push_back(Unavailable{CGxPRJParser::ShortName(name), fromSerial});
}

void CGxMapProjectionList::InitMapProjections(const std::string& dataPath,
                                              const std::string& userPath) {
    InitMapProjections(dataPath, userPath.empty()
                                     ? GxCatalogueFile()
                                     : GxCatalogueFile(userPath + "custom_projection.zpf"));
}

void CGxMapProjectionList::InitMapProjections(const std::string& dataPath,
                                              const GxCatalogueFile& customFile) {
    auto* geographic = new CGxGeographicalProjection(kGxLongLatString);
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
    ReadMapProjections(customFile, true);
    if (!dataPath.empty()) {
        ReadMapProjections(dataPath + kCommonEpsgFile, false);
        deferred->path = dataPath + kDeferredEpsgFile;
    }

    auto* local = new CGxTransverseMercatorProjection(kGxNonUtmString);
    local->SetBranchName(kNonUtmBranch);
    _Append(local);
}

void CGxMapProjectionList::ReadMapProjections(const std::string& path, bool editable) {
    ReadMapProjections(GxCatalogueFile(path), editable);
}

void CGxMapProjectionList::ReadMapProjections(const GxCatalogueFile& file, bool editable) {
    file.ReportProblems();
    void* block = file.Block(kBlock);
    if (!block) return;
    const std::size_t firstOfFile = nextSerial;
    const SectionReaders readers;
    void* scratchFile = editable ? zpfCreate() : nullptr;
    const GxZpfFileCloser closer{scratchFile};
    void* scratch = scratchFile ? zpfAddTarget(scratchFile, kBlock) : nullptr;
    GxEntriesRead read;
    std::vector<void*> skipped;
    const int n = zpfGetNoSections(block);
    for (int i = 1; i <= n; ++i) {
        void* section = zpfSectionByNum(block, i);
        std::unique_ptr<CGxMapProjData> definition(readers.NewDefinition(zpfGetName(section)));
        if (!definition) continue;
        const std::string problem = SectionProblem(*definition, section);
        if (!problem.empty()) {
            GxReportSkippedSection(file.Path(), section, problem);
            skipped.push_back(section);
            continue;
        }
        definition->ReadFromHandle(section, editable);
        const std::string id = definition->GetEllipsoidID();
        if (std::find(unavailableEllipsoids.begin(), unavailableEllipsoids.end(), id) !=
            unavailableEllipsoids.end()) {
            GxReportCatalogue(file.Path() + ": line " + std::to_string(zpfGetLine(section)) +
                              ": '" + definition->GetName() + "' uses the ellipsoid '" + id +
                              "', whose section was skipped; '" + definition->GetName() +
                              "' is not available");
            _MarkUnavailable(definition->GetName(), nextSerial);
        }
        CGxMapProjData& added = *definition;
        _Append(definition.get());
        definition.release();
        read.Add(names.back().shortName, zpfGetLine(section));
        if (scratch) loadedCustom.push_back(RecordOf(added, scratch));
    }
    // With the sections the reader could not parse at all, of a known type,
    // the names of the skipped sections, as far as they can be read: from
    // the file's first entry on, such a name finds nothing, unless an entry
    // of the file before the skipped section has it.
    const int damaged = zpfGetNoDamagedSections(block);
    for (int i = 1; i <= damaged; ++i) {
        void* section = zpfDamagedSectionByNum(block, i);
        if (readers.Type(zpfGetName(section))) skipped.push_back(section);
    }
    for (void* section : skipped) {
        const std::string name =
            CGxPRJParser::ShortName(GxFirstText(section, CGxMapProjDataIDs::ProjectionName));
        if (!read.AnyBefore(name, zpfGetLine(section))) _MarkUnavailable(name, firstOfFile);
    }
    zpfGetErrorGlb();
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
        const bool matches = key.tabled ? _Matches(key, key.tabled->Name(), wanted)
                                        : _Matches(key, key.definition->GetName(), wanted);
        if (!matches) continue;
        // A skipped section of this name before it would have been found
        // first: the name finds nothing rather than another system.
        for (const Unavailable& skipped : unavailable)
            if (skipped.fromSerial <= key.serial && skipped.shortName == wanted) return nullptr;
        return key.definition;
    }
    return nullptr;
}

CGxMapProjectionList::DeferredSystems& CGxMapProjectionList::_Deferred() const {
    DeferredSystems& d = *deferred;
    // Several threads may look up at once: one reads, the others wait for it.
    // Without a file nothing is read, so a catalogue filled later still can.
    if (!d.path.empty()) std::call_once(d.read, [&d] { d.Read(); });
    return d;
}

CGxMapProjData* CGxMapProjectionList::GetMapProjectionByCode(const std::string& text) const {
    GxCatalogueCode wanted;
    if (!GxParseCatalogueCode(text, wanted)) return nullptr;
    for (const NameKey& key : names) {
        GxCatalogueCode carried;
        if (key.tabled && GxParseCatalogueCode(key.tabled->GetCode(), carried) && carried == wanted)
            return key.definition;
    }
    const DeferredSystems& d = _Deferred();
    const auto found = d.byCode.find(wanted.Key());
    return found == d.byCode.end() ? nullptr : found->second;
}

CGxMapProjData* CGxMapProjectionList::GetDeferredMapProjection(const std::string& name) const {
    const DeferredSystems& d = _Deferred();
    if (d.byShortName.empty()) return nullptr;
    const auto found = d.byShortName.find(CGxPRJParser::ShortName(name));
    return found == d.byShortName.end() ? nullptr : found->second;
}

std::size_t CGxMapProjectionList::GetNoOfDeferredMapProjections() const {
    // Only a finished read is counted: this neither reads nor waits.
    return deferred->count.load();
}
