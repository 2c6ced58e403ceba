#pragma once

#include <string>
#include <utility>
#include <vector>

#include "zpf/zpf.h"

// Closes a keyword file when it goes out of scope, also when a catalogue
// throws part way (a full list).
struct GxZpfFileCloser {
    void* file;
    ~GxZpfFileCloser() { zpfClose(file); }
};

// The catalogue files share one layout: a keyword file whose first block of a
// given name holds one section per entry. These helpers own opening, problem
// reporting and closing, so a catalogue only reads or writes its entries.

// A catalogue file loaded for reading. A missing or unreadable file gives no
// handle and is not an error: the catalogue then has no entries from it. A
// file read in part gives the part that could be read.
class GxCatalogueFile {
public:
    GxCatalogueFile() = default;
    explicit GxCatalogueFile(const std::string& path);
    ~GxCatalogueFile() { zpfClose(file_); }
    GxCatalogueFile(GxCatalogueFile&& other) noexcept;
    GxCatalogueFile& operator=(GxCatalogueFile&& other) noexcept;
    GxCatalogueFile(const GxCatalogueFile&) = delete;
    GxCatalogueFile& operator=(const GxCatalogueFile&) = delete;

    const std::string& Path() const { return path_; }
    void* Handle() const { return file_; }
    // The first block called name; null when there is none.
    void* Block(const char* name) const;
    // Reports the lines and sections that could not be read.
    void ReportProblems() const;

private:
    std::string path_;
    void* file_ = nullptr;
};

// Reports a section of file that a catalogue skips: "<path>: <problem>;
// section 'NAME' of line N is skipped".
void GxReportSkippedSection(const std::string& path, void* section, const std::string& problem);

// The entries one file gave, by name and line. A section of the file that is
// skipped only hides entries of its name when no entry of that name stands
// before it: a look-up would have found the earlier one anyway.
class GxEntriesRead {
public:
    void Add(std::string name, int line) { entries_.emplace_back(std::move(name), line); }
    bool AnyBefore(const std::string& name, int line) const {
        for (const auto& entry : entries_)
            if (entry.first == name && entry.second < line) return true;
        return false;
    }

private:
    std::vector<std::pair<std::string, int>> entries_;
};

// The first value of a section's keyword as text; "" when absent.
std::string GxFirstText(void* section, const char* keyword);

// Tells whether a file was replaced: the file's identity (device, inode, size,
// modification time) or its absence.
struct GxFileIdentity {
    bool exists = false;
    unsigned long long device = 0, inode = 0, size = 0;
    long long modified = 0;
    static GxFileIdentity Of(const std::string& path);
    bool operator==(const GxFileIdentity& other) const;
};

// Writes a new file with one block of the given name, whose entries
// writeEntries(void* file) adds; true when the file was written (a failed
// write keeps the old file). Failures, and a damaged old file kept aside, are
// reported.
template <class WriteEntries>
bool GxWriteCatalogueFile(const std::string& path, const char* blockName,
                          WriteEntries writeEntries);

// Writes a built or edited keyword file to path, reporting as above.
bool GxWriteKeywordFile(void* file, const std::string& path);

template <class WriteEntries>
bool GxWriteCatalogueFile(const std::string& path, const char* blockName,
                          WriteEntries writeEntries) {
    void* file = zpfCreate();
    if (!file) return false;
    const GxZpfFileCloser closer{file};
    zpfAddTarget(file, blockName);
    writeEntries(file);
    return GxWriteKeywordFile(file, path);
}
