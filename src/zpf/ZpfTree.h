#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>
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

// The name of a node or the text of a value. Read from a file, it is a view
// of the file's own text wherever the file holds it as it stands (a bare name,
// a number, a quoted text without escapes), so loading a catalogue copies
// nothing; otherwise the node keeps a copy of its own. Its characters are
// never null, not even for an empty text.
class NodeText {
public:
    NodeText() = default;
    NodeText(const NodeText&) = delete;
    NodeText& operator=(const NodeText&) = delete;
    ~NodeText() { delete[] own_; }

    // Text that lives as long as the node: the text of its file.
    void Refer(std::string_view text) {
        _Release();
        data_ = text.empty() ? "" : text.data();
        size_ = text.size();
    }
    void Keep(std::string_view text) {
        char* copy = text.empty() ? nullptr : new char[text.size()];
        if (copy) std::memcpy(copy, text.data(), text.size());
        _Release();
        own_ = copy;
        data_ = copy ? copy : "";
        size_ = text.size();
    }

    std::string_view View() const { return {data_, size_}; }
    operator std::string_view() const { return View(); }
    std::string Str() const { return std::string(data_, size_); }
    std::size_t size() const { return size_; }
    const char* data() const { return data_; }

private:
    void _Release() {
        delete[] own_;
        own_ = nullptr;
    }

    const char* data_ = "";
    std::size_t size_ = 0;
    char* own_ = nullptr;  // the node's own copy, when it has one
};

// A name as the keyword look-ups compare it: its first and last eight bytes
// (in a shorter name, its bytes zero-padded to eight). Two names of the same
// length and key are equal when they are at most 16 bytes long, which nearly
// every keyword is; only longer ones compare their middle too. Sections hold
// a handful of keywords, so a look-up is a short scan of such keys.
struct NameKey {
    std::uint64_t head;
    std::uint64_t tail;

    static NameKey Of(const char* data, std::size_t size) {
        NameKey key{0, 0};
        if (size >= 8) {
            std::memcpy(&key.head, data, 8);
            std::memcpy(&key.tail, data + size - 8, 8);
        } else if (size >= 4) {
            // The first and the last four bytes, overlapping where the name
            // is shorter than eight: together they hold every byte.
            std::uint32_t first = 0;
            std::uint32_t last = 0;
            std::memcpy(&first, data, 4);
            std::memcpy(&last, data + size - 4, 4);
            key.head = std::uint64_t{first} | std::uint64_t{last} << 32;
        } else {
            for (std::size_t i = 0; i < size; ++i)
                key.head |= std::uint64_t{static_cast<unsigned char>(data[i])} << (8 * i);
        }
        return key;
    }
    // Whether a name of this key is the name theirs of the same length, whose
    // key is other.
    bool Same(const NameKey& other, const char* mine, const char* theirs, std::size_t size) const {
        return head == other.head && tail == other.tail &&
               (size <= 16 || std::memcmp(mine + 8, theirs + 8, size - 16) == 0);
    }
};

struct Value {
    Kind tag = Kind::Value;
    // A quoted text keeps its decoded characters; a number keeps the text it
    // was written with and its value.
    bool isText = false;
    NodeText text;
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
    NodeText name;
    NameKey key{0, 0};
    Section* section = nullptr;
    std::size_t line = 0;  // in the file it was read from; 0 when built
    // Nearly every keyword holds one to three values (an angle in degrees,
    // minutes and seconds): they are kept in place, only further ones go to
    // a list.
    static constexpr std::size_t kInPlace = 3;
    std::size_t valueCount = 0;
    Value* values[kInPlace] = {};
    std::vector<Value*> moreValues;
    ~Keyword() { tag = Kind::Dead; }

    std::size_t ValueCount() const { return valueCount; }
    // The index-th value (0-based), which must exist.
    Value* ValueAt(std::size_t index) const {
        return index < kInPlace ? values[index] : moreValues[index - kInPlace];
    }
    // Whether the keyword is called name, whose key is key.
    bool Named(std::string_view wanted, const NameKey& wantedKey) const {
        return name.size() == wanted.size() &&
               key.Same(wantedKey, name.data(), wanted.data(), wanted.size());
    }
};

// Storage for the keyword lists of one file's sections, taken from a few
// growing blocks like the nodes themselves: a catalogue has hundreds of
// sections, and an allocation for each list would cost as much as reading
// them. Everything is released with the file.
class SlotArena {
public:
    // Room for count pointers (not initialised).
    Keyword** Take(std::size_t count) {
        if (count > left_) {
            const std::size_t size = std::max(count, kBlock);
            blocks_.push_back(std::unique_ptr<Keyword*[]>(new Keyword*[size]));
            next_ = blocks_.back().get();
            left_ = size;
        }
        Keyword** slots = next_;
        next_ += count;
        left_ -= count;
        return slots;
    }
    void Clear() {
        blocks_.clear();
        next_ = nullptr;
        left_ = 0;
    }

private:
    static constexpr std::size_t kBlock = 1024;
    std::vector<std::unique_ptr<Keyword*[]>> blocks_;
    Keyword** next_ = nullptr;
    std::size_t left_ = 0;
};

// The keywords of a section in order, in slots of its file's arena. A list
// that outgrows its slots moves to twice as many; the old ones stay unused
// until the file is released.
class KeywordList {
public:
    Keyword* const* begin() const { return items_; }
    Keyword* const* end() const { return items_ + size_; }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    Keyword* operator[](std::size_t index) const { return items_[index]; }

    void Append(Keyword* keyword, SlotArena& arena) {
        if (size_ == capacity_) _Grow(arena);
        items_[size_++] = keyword;
    }

private:
    [[gnu::noinline]] void _Grow(SlotArena& arena) {
        // Catalogue sections hold a handful of keywords: the first slots
        // usually suffice.
        const std::size_t capacity = capacity_ == 0 ? kFirstSlots : 2 * capacity_;
        Keyword** items = arena.Take(capacity);
        std::copy(items_, items_ + size_, items);
        items_ = items;
        capacity_ = capacity;
    }

    static constexpr std::size_t kFirstSlots = 10;
    Keyword** items_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

struct Section {
    Kind tag = Kind::Section;
    NodeText name;
    // Keywords may be added only while a section is open: from zpfAddSection
    // to zpfEndSection. Sections read from a file are closed.
    bool open = false;
    // The file whose storage holds the section's keywords and values, and
    // the block that lists it.
    File* file = nullptr;
    Target* target = nullptr;
    KeywordList keywords;
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
    NodeText name;
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
        if (next_ == end_) _Grow();
        Node* node = ::new (static_cast<void*>(next_)) Node();
        ++next_;
        return node;
    }

    void Clear() {
        std::allocator<Node> allocator;
        for (std::size_t b = 0; b < blocks_.size(); ++b) {
            // Every block but the last is full.
            const Block& block = blocks_[b];
            const std::size_t used = b + 1 == blocks_.size()
                                         ? static_cast<std::size_t>(next_ - block.nodes)
                                         : block.capacity;
            for (std::size_t i = 0; i < used; ++i) block.nodes[i].~Node();
            allocator.deallocate(block.nodes, block.capacity);
        }
        blocks_.clear();
        next_ = end_ = nullptr;
    }

private:
    struct Block {
        Node* nodes;
        std::size_t capacity;
    };
    // A small file (a user's custom file) stays small; a catalogue reaches the
    // largest blocks after a few steps. Those stay below the size from which
    // the allocator maps fresh pages from the system for each block (and
    // unmaps them when the file is closed).
    static constexpr std::size_t kFirstBlock = 8;
    static constexpr std::size_t kLargestBlock =
        std::max<std::size_t>(kFirstBlock, 64 * 1024 / sizeof(Node));

    // Out of line: making a node is on the reader's path for every keyword
    // and value, a new block rarely.
    [[gnu::noinline]] void _Grow() {
        const std::size_t capacity =
            blocks_.empty() ? kFirstBlock : std::min(2 * blocks_.back().capacity, kLargestBlock);
        blocks_.reserve(blocks_.size() + 1);
        blocks_.push_back(Block{std::allocator<Node>().allocate(capacity), capacity});
        next_ = blocks_.back().nodes;
        end_ = next_ + capacity;
    }

    // The free part of the last block.
    Node* next_ = nullptr;
    Node* end_ = nullptr;
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

    // Names are views of the file's text when the reader found them there
    // as they stand, else copies.
    enum class Take { View, Copy };

    Target* AddTarget(std::string_view name, Take take = Take::Copy) {
        Target* target = targetPool.Make();
        _Name(target->name, name, take);
        target->file = this;
        targets.push_back(target);
        return target;
    }
    // A section of target that is not yet listed in it.
    Section* NewSection(Target& target, std::string_view name, Take take = Take::Copy) {
        Section* section = sectionPool.Make();
        _Name(section->name, name, take);
        section->file = this;
        section->target = &target;
        return section;
    }
    Section* AddSection(Target& target, std::string_view name) {
        Section* section = NewSection(target, name);
        target.sections.push_back(section);
        return section;
    }
    Keyword* AddKeyword(Section& section, std::string_view name, Take take = Take::Copy) {
        Keyword* keyword = keywordPool.Make();
        _Name(keyword->name, name, take);
        keyword->key = NameKey::Of(keyword->name.data(), keyword->name.size());
        keyword->section = &section;
        section.keywords.Append(keyword, slots);
        return keyword;
    }
    Value* AddValue(Keyword& keyword) {
        Value* value = valuePool.Make();
        if (keyword.valueCount < Keyword::kInPlace)
            keyword.values[keyword.valueCount] = value;
        else
            _AddFurther(keyword, value);
        ++keyword.valueCount;
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
        slots.Clear();
        sectionPool.Clear();
        targetPool.Clear();
    }

    // A binary file has a problem on nearly every line; the count says how
    // many there were, the messages stop here.
    static constexpr std::size_t kKeptProblems = 20;
    // The storage of the nodes the lists point to (public like every member,
    // so the file keeps the layout that puts its tag first).
    NodePool<Target> targetPool;
    NodePool<Section> sectionPool;
    NodePool<Keyword> keywordPool;
    NodePool<Value> valuePool;
    SlotArena slots;

private:
    [[gnu::noinline]] static void _AddFurther(Keyword& keyword, Value* value) {
        keyword.moreValues.push_back(value);
    }
    static void _Name(NodeText& node, std::string_view name, Take take) {
        if (take == Take::View)
            node.Refer(name);
        else
            node.Keep(name);
    }
};

// The tag must sit at the start of every node for the check below to work.
static_assert(std::is_standard_layout<Value>::value && std::is_standard_layout<Keyword>::value &&
                  std::is_standard_layout<Section>::value &&
                  std::is_standard_layout<Target>::value && std::is_standard_layout<File>::value,
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
bool IsBareName(std::string_view name);

}  // namespace gxzpf
