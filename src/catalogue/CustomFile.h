#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Custom catalogue files are shared by every process of the user: a process
// writes only its own changes, on top of what the file holds when it writes.
//
// Each custom entry is compared as a record: its name and the text of its
// section as the library writes it. The records taken when the file was read
// are kept; at writing, the records of the entries in memory are compared
// with them. What differs is this process's change: a new entry, an edited
// one (replaced where it stands in the file), a deleted one (removed from the
// file by name). Everything else in the file, including entries other
// processes wrote meanwhile, sections of types this version does not know,
// damaged sections and the user's comments, stays as it is.

class CGxEllipsoidList;
class CGxMapProjectionList;

struct GxCustomRecord {
    std::string key;   // the name by which edits and deletions find the entry on disk
    std::string text;  // the entry's section as the library writes it
    // The entry in memory; null for a section read from the file on disk.
    const void* entry = nullptr;
};

// How one catalogue meets its custom file.
class GxCustomFormat {
public:
    virtual ~GxCustomFormat() = default;
    // The block that holds the entries.
    virtual const char* BlockName() const = 0;
    // The records of the custom entries now in memory, in catalogue order;
    // scratch is a block of a file being built, to write sections into.
    virtual std::vector<GxCustomRecord> Records(void* scratch) const = 0;
    // The record of a section of the file on disk; false for a section that
    // is no entry of this catalogue or cannot be read, which stays as it is.
    virtual bool RecordOf(void* section, void* scratch, GxCustomRecord& record) const = 0;
    // Appends the section of an entry in memory to block.
    virtual void Write(const void* entry, void* block) const = 0;
    // The ellipsoid an entry, or a section on disk, refers to ("" for none).
    virtual std::string Reference(const void* /*entry*/) const { return std::string(); }
    virtual std::string ReferenceOf(void* /*section*/) const { return std::string(); }
};

std::unique_ptr<GxCustomFormat> GxEllipsoidCustomFormat(CGxEllipsoidList& list);
std::unique_ptr<GxCustomFormat> GxProjectionCustomFormat(CGxMapProjectionList& list);

// The text of the section that write(block) adds to scratch; "" when it
// adds none.
std::string GxSectionTextOf(void* scratch, const std::function<void(void*)>& write);

// This process's changes: from the records read to the records now.
struct GxCustomChanges {
    struct Put {
        const GxCustomRecord* now;
        const GxCustomRecord* before;  // the version it replaces; null for a new entry
    };
    std::vector<Put> puts;                         // new and edited entries
    std::vector<const GxCustomRecord*> deletions;  // entries read and gone since
    bool Empty() const { return puts.empty() && deletions.empty(); }
};
GxCustomChanges GxCustomDiff(const std::vector<GxCustomRecord>& loaded,
                             const std::vector<GxCustomRecord>& now);

// A custom file loaded for changing (a new empty one when it does not exist)
// with its block of entries.
class GxCustomFile {
public:
    GxCustomFile(const std::string& path, const GxCustomFormat& format);
    ~GxCustomFile();
    GxCustomFile(const GxCustomFile&) = delete;
    GxCustomFile& operator=(const GxCustomFile&) = delete;

    // False when the file exists but cannot be read: it must not be replaced.
    bool Usable() const { return file_ != nullptr; }
    const std::string& Path() const { return path_; }
    // Whether an entry of that name is in the file.
    bool Holds(const std::string& key) const;
    // The references of all sections of the block (for projections, the
    // ellipsoids they use).
    std::vector<std::string> References() const;
    // Applies puts; applies each deletion whose key deletable accepts and
    // lists the others in kept. Answers whether the file changed.
    bool Apply(const std::vector<GxCustomChanges::Put>& puts,
               const std::vector<const GxCustomRecord*>& deletions,
               const std::function<bool(const std::string&)>& deletable,
               std::vector<const GxCustomRecord*>* kept);
    // Writes the file back; failures and copies of a damaged file are
    // reported.
    bool Write();

private:
    struct OnDisk {
        void* section;
        GxCustomRecord record;
        // Read from the file and not yet replaced: only these are matched,
        // so that entries of the same name this process adds are all kept.
        bool matchable;
    };
    std::size_t _Find(const GxCustomRecord& wanted) const;
    std::size_t _FindKey(const std::string& key) const;

    std::string path_;
    const GxCustomFormat& format_;
    void* file_ = nullptr;
    void* block_ = nullptr;
    void* scratchFile_ = nullptr;
    void* scratch_ = nullptr;
    std::vector<OnDisk> entries_;
};
