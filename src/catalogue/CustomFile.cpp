#include "catalogue/CustomFile.h"

#include <string_view>
#include <unordered_map>

#include "catalogue/CatalogueFile.h"
#include "catalogue/CatalogueReport.h"
#include "zpf/zpf.h"

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

}  // namespace

std::string GxSectionTextOf(void* scratch, const std::function<void(void*)>& write) {
    const int before = zpfGetNoSections(scratch);
    write(scratch);
    const int after = zpfGetNoSections(scratch);
    std::string text;
    if (after > before) zpfFormat(zpfSectionByNum(scratch, after), &text);
    return text;
}

GxCustomChanges GxCustomDiff(const std::vector<GxCustomRecord>& loaded,
                             const std::vector<GxCustomRecord>& now) {
    std::vector<bool> loadedMatched(loaded.size(), false);
    std::vector<bool> nowMatched(now.size(), false);
    // Unchanged entries have the same text, which holds the name too.
    std::unordered_multimap<std::string_view, std::size_t> unchanged;
    for (std::size_t i = 0; i < loaded.size(); ++i) unchanged.emplace(loaded[i].text, i);
    for (std::size_t j = 0; j < now.size(); ++j) {
        auto it = unchanged.find(now[j].text);
        if (it == unchanged.end()) continue;
        loadedMatched[it->second] = nowMatched[j] = true;
        unchanged.erase(it);
    }

    GxCustomChanges changes;
    // An edited entry is the same object in memory (perhaps renamed), or
    // failing that an entry of the same name.
    auto pair = [&](auto same) {
        for (std::size_t j = 0; j < now.size(); ++j) {
            if (nowMatched[j]) continue;
            for (std::size_t i = 0; i < loaded.size(); ++i) {
                if (loadedMatched[i] || !same(loaded[i], now[j])) continue;
                loadedMatched[i] = nowMatched[j] = true;
                changes.puts.push_back({&now[j], &loaded[i]});
                break;
            }
        }
    };
    pair([](const GxCustomRecord& a, const GxCustomRecord& b) {
        return a.entry && a.entry == b.entry;
    });
    pair([](const GxCustomRecord& a, const GxCustomRecord& b) { return a.key == b.key; });
    for (std::size_t j = 0; j < now.size(); ++j)
        if (!nowMatched[j]) changes.puts.push_back({&now[j], nullptr});
    for (std::size_t i = 0; i < loaded.size(); ++i)
        if (!loadedMatched[i]) changes.deletions.push_back(&loaded[i]);
    return changes;
}

GxCustomFile::GxCustomFile(const std::string& path, const GxCustomFormat& format)
    : path_(path), format_(format) {
    file_ = zpfLoadFile(path.c_str());
    if (!file_) {
        std::string message;
        if (zpfGetErrorGlb(&message) != eZpfNotFound) {
            // Unreadable (no permission, not a regular file): it cannot be
            // judged, so it is not replaced.
            GxReportCatalogue(message + "; custom entries not saved");
            return;
        }
        file_ = zpfCreate();
    }
    block_ = zpfTargetByNameNum(file_, format_.BlockName(), 1);
    if (!block_) block_ = zpfAddTarget(file_, format_.BlockName());
    scratchFile_ = zpfCreate();
    scratch_ = zpfAddTarget(scratchFile_, format_.BlockName());
    const int n = zpfGetNoSections(block_);
    for (int i = 1; i <= n; ++i) {
        void* section = zpfSectionByNum(block_, i);
        GxCustomRecord record;
        if (format_.RecordOf(section, scratch_, record))
            entries_.push_back(OnDisk{section, std::move(record), true});
    }
    zpfGetErrorGlb();
}

GxCustomFile::~GxCustomFile() {
    zpfClose(scratchFile_);
    zpfClose(file_);
}

std::size_t GxCustomFile::_Find(const GxCustomRecord& wanted) const {
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (entries_[i].matchable && entries_[i].record.key == wanted.key &&
            entries_[i].record.text == wanted.text)
            return i;
    return kNone;
}

std::size_t GxCustomFile::_FindKey(const std::string& key) const {
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (entries_[i].matchable && entries_[i].record.key == key) return i;
    return kNone;
}

bool GxCustomFile::Holds(const std::string& key) const {
    for (const OnDisk& entry : entries_)
        if (entry.record.key == key) return true;
    return false;
}

std::vector<std::string> GxCustomFile::References() const {
    std::vector<std::string> references;
    if (!block_) return references;
    const int n = zpfGetNoSections(block_);
    for (int i = 1; i <= n; ++i) {
        std::string reference = format_.ReferenceOf(zpfSectionByNum(block_, i));
        if (!reference.empty()) references.push_back(std::move(reference));
    }
    zpfGetErrorGlb();
    return references;
}

bool GxCustomFile::Apply(const std::vector<GxCustomChanges::Put>& puts,
                         const std::vector<const GxCustomRecord*>& deletions,
                         const std::function<bool(const std::string&)>& deletable,
                         std::vector<const GxCustomRecord*>* kept) {
    if (!file_) return false;
    bool changed = false;
    for (const GxCustomChanges::Put& put : puts) {
        // An edit replaces the version this process read where it stands;
        // if that is gone, an entry of the same name takes its place.
        std::size_t at = put.before ? _Find(*put.before) : kNone;
        if (at == kNone) at = _FindKey(put.now->key);
        if (at != kNone && entries_[at].record.text == put.now->text) {
            entries_[at].matchable = false;  // already as this process has it
            continue;
        }
        const int before = zpfGetNoSections(block_);
        format_.Write(put.now->entry, block_);
        if (zpfGetNoSections(block_) == before) continue;
        void* section = zpfSectionByNum(block_, before + 1);
        if (at != kNone) {
            zpfReplaceSection(entries_[at].section, section);
            entries_[at] = OnDisk{section, *put.now, false};
        } else {
            entries_.push_back(OnDisk{section, *put.now, false});
        }
        changed = true;
    }
    for (const GxCustomRecord* deletion : deletions) {
        if (deletable && !deletable(deletion->key)) {
            if (kept) kept->push_back(deletion);
            continue;
        }
        std::size_t at = _Find(*deletion);
        if (at == kNone) at = _FindKey(deletion->key);
        if (at == kNone) continue;  // another process deleted it already
        zpfRemoveSection(entries_[at].section);
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(at));
        changed = true;
    }
    zpfGetErrorGlb();
    return changed;
}

bool GxCustomFile::Write() {
    return file_ && GxWriteKeywordFile(file_, path_);
}
