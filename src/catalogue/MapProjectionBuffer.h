#pragma once

#include <cstddef>
#include <list>
#include <string>

#include "foundation/GxExport.h"

class CGxMapProjData;

// The lines of the recently-used buffer file, one projection string each, in
// the order the user last chose them.
class GXCART_API CGxBufferList : public std::list<std::string> {
public:
    // The first line naming the same system as text, compared on the display
    // names (CGxPRJParser::ShortName), so that an edited WKT of a system
    // replaces its older text; end() when there is none.
    iterator FindMapProjection(const std::string& text);
    // Keeps the lines up to and including the size-th line that passes
    // CGxMapProjection::IsType(mask, line) and removes the rest; fewer
    // matching lines keep the whole list.
    void TruncateToSize(int mask, std::size_t size);
};

// The buffer file of recently used projection strings: a text file in the
// user's folder with one projection string per line.
class GXCART_API CGxMapProjectionBuffer {
public:
    // Name of the file in the user's folder.
    static constexpr const char kFileName[] = ".MapProjectionBuffer.txt";

    // Writes the file afresh from the catalogue: the special strings as they
    // are, every other system as its WKT, under the rule of WriteFile. False
    // when the file could not be written.
    static bool CreateFile(const std::string& path);
    // Appends every line of the file to lines (a missing file adds none);
    // returns true.
    static bool ReadFile(const std::string& path, std::list<std::string>* lines);
    // Writes the lines, one per line, up to and including the tenth line that
    // is a projected system (CGxMapProjection::IsType with mask 1). The old
    // file survives a failed write; the user's folder is created when
    // missing. Returns true.
    static bool WriteFile(const std::string& path, std::list<std::string>* lines);
};

// The text an enumeration shows for a catalogue system: its name when that is
// a special string ("LONG/LAT", "NON-UTM"), else the WKT the writer makes of
// the definition, blanks trimmed. Internal to the library.
std::string GxCatalogueEntryText(CGxMapProjData* definition);

// A buffer file lists at most this many projected systems, as many as an
// enumeration shows. Internal to the library.
constexpr int kGxBufferProjectedLines = 10;

// Writes the lines to the buffer file at path under the rule of
// CGxMapProjectionBuffer::WriteFile. False when nothing could be written.
// Internal to the library.
bool GxWriteBufferLines(const std::string& path, const std::list<std::string>& lines);
