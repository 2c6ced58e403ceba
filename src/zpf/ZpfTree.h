#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <vector>

// The in-memory tree behind the opaque handles of zpf.h.
//
// A program may hold two copies of this code (the static archive linked into
// a test or tool next to the hidden copy inside libgxcart.so), and handles made
// by one copy are used by the other. Handles are therefore checked by a tag
// stored as the first member of every node, never by a registry of live
// objects that each copy would keep for itself. A node overwrites its tag when
// it is destroyed, so a handle kept past zpfClose is usually recognised too.

namespace gxzpf {

enum class Kind : std::uint32_t {
    File = 0x4658505Au,     // "ZPXF" in memory
    Target = 0x5458505Au,   // "ZPXT"
    Section = 0x5358505Au,  // "ZPXS"
    Keyword = 0x4B58505Au,  // "ZPXK"
    Value = 0x5658505Au,    // "ZPXV"
    Dead = 0x4458505Au,     // "ZPXD": a released node
};

struct Value {
    Kind tag = Kind::Value;
    // A quoted text keeps its decoded characters; a number keeps the text it
    // was written with and its value.
    bool isText = false;
    std::string text;
    double number = 0.0;
    ~Value() { tag = Kind::Dead; }
};

struct Section;
struct Target;
struct File;

// A stretch [begin, end) of the text a file was read from.
struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
};

struct Keyword {
    Kind tag = Kind::Keyword;
    std::string name;
    Section* section = nullptr;
    std::size_t line = 0;  // in the file it was read from; 0 when built
    // Nearly every keyword holds one value: the first is kept in place, only
    // further ones go to a list.
    Value* firstValue = nullptr;
    std::vector<Value*> moreValues;
    ~Keyword() { tag = Kind::Dead; }

    std::size_t ValueCount() const { return firstValue ? 1 + moreValues.size() : 0; }
    // The index-th value (0-based), which must exist.
    Value* ValueAt(std::size_t index) const { return index == 0 ? firstValue : moreValues[index - 1]; }
};

struct Section {
    Kind tag = Kind::Section;
    std::string name;
    // Keywords may be added only while a section is open: from zpfAddSection
    // to zpfEndSection. Sections read from a file are closed.
    bool open = false;
    // The file whose storage holds the section's keywords and values, and
    // the block that lists it.
    File* file = nullptr;
    Target* target = nullptr;
    std::vector<Keyword*> keywords;
    // A section read from a file is written again as the user wrote it: the
    // comments and blank lines above it (leading), then its own lines from
    // the opening to the closing brace. Text of removed neighbours that
    // stood before it is carried along, so no comment is lost.
    bool fromText = false;
    std::size_t line = 0;
    Span leading;
    Span own;
    std::vector<Span> carried;
    ~Section() { tag = Kind::Dead; }
};

struct Target {
    Kind tag = Kind::Target;
    std::string name;
    File* file = nullptr;
    std::vector<Section*> sections;
    // Sections skipped because they were malformed: what could be read of
    // them, so a caller can tell which entry is missing. Their text stays in
    // the file's text, ahead of the element that follows them.
    std::vector<Section*> damaged;
    // A block read from a file keeps its opening line (with the text above
    // it) and its closing line (with the text above that); carried holds the
    // text of removed sections that stood last.
    bool fromText = false;
    bool closed = true;
    // Sections were added, replaced or removed since it was read.
    bool edited = false;
    std::size_t line = 0;
    Span opening;
    Span closing;
    std::vector<Span> carried;
    ~Target() { tag = Kind::Dead; }
};

// Storage for the nodes of one kind in one file. A catalogue file holds
// thousands of keywords and values; taking them from a few growing blocks
// instead of one allocation each makes loading and closing a file cheap.
// Nodes never move, so handles stay valid while the file grows, and all are
// destroyed together with the file.
template <class Node>
class NodePool {
public:
    NodePool() = default;
    NodePool(const NodePool&) = delete;
    NodePool& operator=(const NodePool&) = delete;
    ~NodePool() { Clear(); }

    Node* Make() {
        if (blocks_.empty() || blocks_.back().used == blocks_.back().capacity) _Grow();
        Block& block = blocks_.back();
        Node* node = ::new (static_cast<void*>(block.nodes + block.used)) Node();
        ++block.used;
        return node;
    }

    void Clear() {
        std::allocator<Node> allocator;
        for (Block& block : blocks_) {
            for (std::size_t i = 0; i < block.used; ++i) block.nodes[i].~Node();
            allocator.deallocate(block.nodes, block.capacity);
        }
        blocks_.clear();
    }

private:
    struct Block {
        Node* nodes;
        std::size_t capacity;
        std::size_t used;
    };
    // A small file (a user's custom file) stays small; a catalogue reaches the
    // largest blocks after a few steps.
    static constexpr std::size_t kFirstBlock = 8;
    static constexpr std::size_t kLargestBlock = 1024;

    void _Grow() {
        const std::size_t capacity =
            blocks_.empty() ? kFirstBlock : std::min(2 * blocks_.back().capacity, kLargestBlock);
        blocks_.reserve(blocks_.size() + 1);
        blocks_.push_back(Block{std::allocator<Node>().allocate(capacity), capacity, 0});
    }

    std::vector<Block> blocks_;
};

struct File {
    Kind tag = Kind::File;
    std::vector<Target*> targets;
    // For a file that was read: its path, its whole text (the spans of the
    // nodes point into it), the text after the last block, and the problems
    // of the lines and sections that could not be read.
    std::string path;
    std::string text;
    Span trailing;
    std::vector<std::string> problems;  // the first kKeptProblems of them
    std::size_t problemCount = 0;
    // The text that could not be read: damaged sections and bad lines.
    std::vector<Span> unread;

    File() = default;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { tag = Kind::Dead; }

    Target* AddTarget(std::string name) {
        Target* target = targetPool.Make();
        target->name = std::move(name);
        target->file = this;
        targets.push_back(target);
        return target;
    }
    // A section of target that is not yet listed in it.
    Section* NewSection(Target& target, std::string name) {
        Section* section = sectionPool.Make();
        section->name = std::move(name);
        section->file = this;
        section->target = &target;
        return section;
    }
    Section* AddSection(Target& target, std::string name) {
        Section* section = NewSection(target, std::move(name));
        target.sections.push_back(section);
        return section;
    }
    Keyword* AddKeyword(Section& section, std::string name) {
        Keyword* keyword = keywordPool.Make();
        keyword->name = std::move(name);
        keyword->section = &section;
        // Catalogue sections hold a handful of keywords: one allocation
        // instead of a series of regrowths.
        if (section.keywords.empty()) section.keywords.reserve(kUsualKeywords);
        section.keywords.push_back(keyword);
        return keyword;
    }
    Value* AddValue(Keyword& keyword) {
        Value* value = valuePool.Make();
        if (keyword.firstValue)
            keyword.moreValues.push_back(value);
        else
            keyword.firstValue = value;
        return value;
    }
    // Removes every block, section, keyword and value.
    void Clear() {
        targets.clear();
        path.clear();
        text.clear();
        trailing = Span();
        problems.clear();
        problemCount = 0;
        unread.clear();
        valuePool.Clear();
        keywordPool.Clear();
        sectionPool.Clear();
        targetPool.Clear();
    }

    static constexpr std::size_t kUsualKeywords = 8;
    // A binary file has a problem on nearly every line; the count says how
    // many there were, the messages stop here.
    static constexpr std::size_t kKeptProblems = 20;
    // The storage of the nodes the lists point to (public like every member,
    // so the file keeps the layout that puts its tag first).
    NodePool<Target> targetPool;
    NodePool<Section> sectionPool;
    NodePool<Keyword> keywordPool;
    NodePool<Value> valuePool;
};

// The tag must sit at the start of every node for the check below to work.
static_assert(std::is_standard_layout<Value>::value && std::is_standard_layout<Keyword>::value &&
                      std::is_standard_layout<Section>::value && std::is_standard_layout<Target>::value &&
                      std::is_standard_layout<File>::value,
              "handle nodes must keep their tag first");

// The node behind a handle when it carries the expected tag, else null.
template <class Node>
Node* As(void* handle, Kind kind) {
    if (!handle) return nullptr;
    Kind tag;
    std::memcpy(&tag, handle, sizeof tag);
    return tag == kind ? static_cast<Node*>(handle) : nullptr;
}

// Text form of a tree (the syntax of docs/keyword-files.md).
std::string Format(const File& file);
// Text of one section as it is written when built, whatever its origin.
std::string FormatSection(const Section& section);

// Parses text into file, which keeps the text. A malformed line or section
// is skipped and the rest is read; the problems are listed in file. Answers
// whether the whole text was read; when not, message holds the first problem
// ("line 12: unterminated string").
bool Parse(std::string text, File& file, std::string& message);

// Moves section, which must belong to the same block as old, into old's
// place; old is no longer listed. Text above old stays above section.
void ReplaceSection(Section& old, Section& section);
// Removes section from its block; the text above it stays in the file.
void RemoveSection(Section& section);

// True when name can be written without quotes.
bool IsBareName(const std::string& name);

}  // namespace gxzpf
