#include "catalogue/EllipsoidList.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "catalogue/CatalogueFile.h"
#include "catalogue/ListLimit.h"
#include "foundation/Ellipsoid.h"
#include "zpf/zpf.h"

namespace {
const char* const kBlock = "ELLIPSOID_DEFINITION";
const char* const kSection = "REF_ELLIPSOID";
const char* const kName = "Ellipsoid_Name";
const char* const kId = "ID_Code";
const char* const kMajor = "Semi_Major_Axis";
const char* const kInvFlattening = "Inverse_Flatness";

// The shape every value of a section must have; a section that breaks it is
// skipped as a whole rather than read with a guessed value.
std::string SectionProblem(void* section) {
    static const ZpfParamShape kShapes[] = {
        {kName, 1, 1, 0}, {kId, 1, 1, 0}, {kMajor, 1, 1, 1}, {kInvFlattening, 1, 1, 1}};
    std::string problem;
    zpfCheckParams(section, kShapes, 4, &problem);
    return problem;
}

double Number(void* section, const char* keyword) {
    double value = 0.0;
    if (!zpfGetParam(section, keyword, 1, 1, &value)) value = 0.0;
    return value;
}

void WriteSection(const CGxEllipsoid& e, void* block) {
    void* section = zpfAddSection(block, kSection);
    zpfPutParam(section, kName, e.GetName());
    zpfPutParam(section, kId, e.GetID());
    zpfPutParam(section, kMajor, e.GetMajor());
    zpfPutParam(section, kInvFlattening, e.GetInvFlatness());
    zpfEndSection(section);
}

GxCustomRecord RecordOf(const CGxEllipsoid& e, void* scratch) {
    return GxCustomRecord{
        e.GetID(), GxSectionTextOf(scratch, [&e](void* block) { WriteSection(e, block); }), &e};
}

class EllipsoidFormat : public GxCustomFormat {
public:
    explicit EllipsoidFormat(CGxEllipsoidList& list) : list_(list) {}
    const char* BlockName() const override { return kBlock; }
    std::vector<GxCustomRecord> Records(void* scratch) const override {
        std::vector<GxCustomRecord> records;
        for (auto it = list_.GetIteratorBegin(CGxEllipsoidList::eCustomEllipsoids);
             it != list_.GetIteratorEnd(CGxEllipsoidList::eCustomEllipsoids); ++it)
            records.push_back(::RecordOf(**it, scratch));
        return records;
    }
    bool RecordOf(void* section, void* scratch, GxCustomRecord& record) const override {
        if (zpfGetName(section) != kSection || !SectionProblem(section).empty()) return false;
        const CGxEllipsoid e(GxFirstText(section, kName), GxFirstText(section, kId),
                             Number(section, kMajor), Number(section, kInvFlattening));
        record = ::RecordOf(e, scratch);
        record.entry = nullptr;
        return true;
    }
    void Write(const void* entry, void* block) const override {
        WriteSection(*static_cast<const CGxEllipsoid*>(entry), block);
    }

private:
    CGxEllipsoidList& list_;
};

}  // namespace

std::unique_ptr<GxCustomFormat> GxEllipsoidCustomFormat(CGxEllipsoidList& list) {
    return std::make_unique<EllipsoidFormat>(list);
}

CGxEllipsoidList::CGxEllipsoidList() = default;

CGxEllipsoidList::~CGxEllipsoidList() {
    for (CGxEllipsoid* e : system) delete e;
    for (CGxEllipsoid* e : custom) delete e;
}

void CGxEllipsoidList::ReadEllipsoids(const std::string& path, bool toCustom) {
    ReadEllipsoids(GxCatalogueFile(path), toCustom);
}

void CGxEllipsoidList::ReadEllipsoids(const GxCatalogueFile& file, bool toCustom) {
    file.ReportProblems();
    void* block = file.Block(kBlock);
    if (!block) return;
    std::list<CGxEllipsoid*>& target = toCustom ? custom : system;
    void* scratchFile = toCustom ? zpfCreate() : nullptr;
    const GxZpfFileCloser closer{scratchFile};
    void* scratch = scratchFile ? zpfAddTarget(scratchFile, kBlock) : nullptr;
    GxEntriesRead read;
    std::vector<void*> skipped;
    const int n = zpfGetNoInstances(block, kSection);
    for (int i = 1; i <= n; ++i) {
        void* section = zpfSectionByNameNum(block, kSection, i);
        const std::string problem = SectionProblem(section);
        if (!problem.empty()) {
            GxReportSkippedSection(file.Path(), section, problem);
            skipped.push_back(section);
            continue;
        }
        GxCheckListRoom(target);
        auto ellipsoid = std::make_unique<CGxEllipsoid>(
            GxFirstText(section, kName), GxFirstText(section, kId), Number(section, kMajor),
            Number(section, kInvFlattening));
        target.push_back(ellipsoid.get());
        const CGxEllipsoid& added = *ellipsoid.release();
        read.Add(added.GetID(), zpfGetLine(section));
        if (toCustom) loadedCustom.push_back(::RecordOf(added, scratch));
    }
    // With the sections the reader could not parse at all, the identifiers of
    // the skipped sections, as far as they can be read.
    const int damaged = zpfGetNoDamagedSections(block);
    for (int i = 1; i <= damaged; ++i) {
        void* section = zpfDamagedSectionByNum(block, i);
        if (zpfGetName(section) == kSection) skipped.push_back(section);
    }
    for (void* section : skipped) {
        const std::string id = GxFirstText(section, kId);
        if (!id.empty() && !read.AnyBefore(id, zpfGetLine(section)))
            unreadable.emplace_back(id, !toCustom);
    }
    zpfGetErrorGlb();
}

bool CGxEllipsoidList::WriteCustomEllipsoids(const std::string& path) {
    return GxWriteCatalogueFile(path, kBlock, [this](void* file) {
        for (const CGxEllipsoid* e : custom) WriteSection(*e, file);
    });
}

void CGxEllipsoidList::AddEllipsoid(CGxEllipsoid* ellipsoid) {
    if (!ellipsoid) return;
    GxCheckListRoom(custom);
    custom.push_back(ellipsoid);
    GenerateCompleteList();
}

void CGxEllipsoidList::EditEllipsoid(CGxEllipsoid* ellipsoid) {
    if (std::find(custom.begin(), custom.end(), ellipsoid) != custom.end()) GenerateCompleteList();
}

void CGxEllipsoidList::DeleteEllipsoid(CGxEllipsoid* ellipsoid) {
    auto it = std::find(custom.begin(), custom.end(), ellipsoid);
    if (it == custom.end()) return;
    custom.erase(it);
    delete ellipsoid;
    GenerateCompleteList();
}

void CGxEllipsoidList::GenerateCompleteList() {
    complete.clear();
    complete.insert(complete.end(), system.begin(), system.end());
    complete.insert(complete.end(), custom.begin(), custom.end());
}

CGxEllipsoid* CGxEllipsoidList::GetEllipsoid(const std::string& id) const {
    std::size_t index = 0;
    for (CGxEllipsoid* e : complete) {
        if (e->GetID() == id)
            return unreadable.empty() || !_Unavailable(id, index < system.size()) ? e : nullptr;
        ++index;
    }
    return nullptr;
}

bool CGxEllipsoidList::_Unavailable(const std::string& id, bool systemEntry) const {
    // A damaged system section hides every entry of its identifier; a
    // damaged custom one only the custom entries, which come after the
    // system ones anyway.
    for (const auto& skipped : unreadable)
        if (skipped.first == id && (skipped.second || !systemEntry)) return true;
    return false;
}

bool CGxEllipsoidList::IsSystemIdentifier(const std::string& id) const {
    return std::any_of(system.begin(), system.end(),
                       [&id](const CGxEllipsoid* e) { return e->GetID() == id; });
}

std::vector<std::string> CGxEllipsoidList::UnavailableIdentifiers() const {
    std::vector<std::string> ids;
    for (const auto& skipped : unreadable)
        if (!skipped.first.empty() && !GetEllipsoid(skipped.first)) ids.push_back(skipped.first);
    return ids;
}

CGxEllipsoid* CGxEllipsoidList::GetEllipsoidFromName(const std::string& name) const {
    for (CGxEllipsoid* e : complete)
        if (e->GetName() == name) return e;
    return nullptr;
}

std::list<CGxEllipsoid*>& CGxEllipsoidList::_List(EEllipsoidTypes type) {
    switch (type) {
        case eSystemEllipsoids:
            return system;
        case eCustomEllipsoids:
            return custom;
        default:
            return complete;
    }
}

CGxEllipsoidList::Iterator CGxEllipsoidList::GetIteratorBegin(EEllipsoidTypes type) {
    return _List(type).begin();
}

CGxEllipsoidList::Iterator CGxEllipsoidList::GetIteratorEnd(EEllipsoidTypes type) {
    return _List(type).end();
}
