#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
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

struct Keyword {
    Kind tag = Kind::Keyword;
    std::string name;
    Section* section = nullptr;
    std::vector<std::unique_ptr<Value>> values;
    ~Keyword() { tag = Kind::Dead; }
};

struct Section {
    Kind tag = Kind::Section;
    std::string name;
    // Keywords may be added only while a section is open: from zpfAddSection
    // to zpfEndSection. Sections read from a file are closed.
    bool open = false;
    std::vector<std::unique_ptr<Keyword>> keywords;
    ~Section() { tag = Kind::Dead; }
};

struct Target {
    Kind tag = Kind::Target;
    std::string name;
    std::vector<std::unique_ptr<Section>> sections;
    ~Target() { tag = Kind::Dead; }
};

struct File {
    Kind tag = Kind::File;
    std::vector<std::unique_ptr<Target>> targets;
    ~File() { tag = Kind::Dead; }
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

// Parses text into file. On failure answers false with message naming the
// line ("line 12: unterminated string"); file is then left empty.
bool Parse(const std::string& text, File& file, std::string& message);

// Writes text to path through a temporary file in the same folder renamed over
// the target. On failure answers false with message, and the old file (if
// any) is unchanged.
bool WriteReplacing(const std::string& path, const std::string& text, std::string& message);

// True when name can be written without quotes.
bool IsBareName(const std::string& name);

}  // namespace gxzpf
