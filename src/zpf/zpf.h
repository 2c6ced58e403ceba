#pragma once

#include <string>

// Keyword parameter files (.zpf): a file holds named top-level blocks
// ("targets"), a block holds named sections, a section holds keywords, and a
// keyword holds one or more values (quoted strings, integers, doubles). Order is
// kept everywhere; repeated names are allowed and counted. The text syntax is
// described in docs/keyword-files.md.
//
// Every object is reached through an opaque handle. A file handle owns all
// handles below it; they stay valid until zpfClose of the file. Counts and
// occurrence numbers are 1-based. Functions answering int return non-zero on
// success; handle-returning functions answer null on failure. A failure sets
// the library's global error, which zpfPeekErrorGlb reads and zpfGetErrorGlb
// reads and clears.

// Error codes of the global error.
enum EZpfError {
    eZpfOk = 0,
    eZpfNullHandle = 1,  // a handle argument was null or of the wrong kind
    eZpfNotFound = 2,    // a file, block, section, keyword or value is absent
    eZpfSyntax = 3,      // unused: a malformed file is read in part (zpfGetNoProblems)
    eZpfNotANumber = 4,  // a value read as a number is not one
    eZpfIo = 5,          // the file could not be read or written
    eZpfState = 6,       // e.g. a keyword put outside an open section
    eZpfValueCount = 7,  // a keyword holds more or fewer values than expected
};

// Loads and parses a file; null (and the error set) when it is missing or
// cannot be read. A malformed line or section is skipped and the rest is
// read: zpfGetNoProblems tells whether the file was read completely.
void* zpfLoadFile(const char* path);
// An empty file object to be built and written.
void* zpfCreate();
// Writes the file to path through a temporary file in the same folder, synced
// and renamed over the target, so a failed or interrupted write leaves the old
// file as it was. A file read from path keeps its comments and layout; only
// the sections added, replaced or removed are written anew. An existing file
// at path that cannot be read completely is first kept beside it as
// "<name>.unreadable-<UTC time>", named in keptAs (empty when none was needed).
int zpfWrite(void* file, const char* path, std::string* keptAs = nullptr);
// Releases a file handle and everything below it; null is allowed.
void zpfClose(void* file);

// The last error code; message (when given) receives its text.
int zpfPeekErrorGlb(std::string* message = nullptr);
// As zpfPeekErrorGlb, then clears the error.
int zpfGetErrorGlb(std::string* message = nullptr);

// The num-th top-level block called name.
void* zpfTargetByNameNum(void* file, const char* name, int num);
// Appends a top-level block.
void* zpfAddTarget(void* file, const char* name);

// The num-th section called name in a block.
void* zpfSectionByNameNum(void* target, const char* name, int num);
// The num-th section of a block, whatever its name.
void* zpfSectionByNum(void* target, int num);
// Number of sections in a block.
int zpfGetNoSections(void* target);
// Number of sections called name in a block.
int zpfGetNoInstances(void* target, const char* name);
// The name of a block, section or keyword; empty for a null handle.
std::string zpfGetName(void* handle);

// Opens a new section at the end of a block. Given a file handle, the last
// block of the file is used. Keywords are put into the open section until
// zpfEndSection.
void* zpfAddSection(void* targetOrFile, const char* name);
int zpfEndSection(void* section);

// Appends a keyword with one value to a section being built.
int zpfPutParam(void* section, const char* keyword, double value);
int zpfPutParam(void* section, const char* keyword, const std::string& value);
int zpfPutParam(void* section, const char* keyword, const char* value);

// The valueNum-th value of the occurrence-th keyword called keyword in a
// section; non-zero when found (and, for a double, when it is a number).
int zpfGetParam(void* section, const char* keyword, int occurrence, int valueNum, double* value);
int zpfGetParam(void* section, const char* keyword, int occurrence, int valueNum,
                std::string* value);

// Value-by-value access.
void* zpfKeywordByNameNum(void* section, const char* keyword, int occurrence);
int zpfGetNoParams(void* keyword);
void* zpfParamByNum(void* keyword, int num);
int zpfGetInt(void* param, int* value);
int zpfGetDouble(void* param, double* value);

// Further access for tools and tests that walk or build a whole file.

// Number of top-level blocks in a file, and the num-th of them.
int zpfGetNoTargets(void* file);
void* zpfTargetByNum(void* file, int num);
// Number of keywords in a section, and the num-th of them whatever its name.
int zpfGetNoKeywords(void* section);
void* zpfKeywordByNum(void* section, int num);
// Appends a keyword without values to an open section; zpfAddValue then
// appends its values in order, so one keyword can carry several.
void* zpfAddKeyword(void* section, const char* keyword);
int zpfAddValue(void* keyword, double value);
int zpfAddValue(void* keyword, const std::string& value);
// A value as text: a quoted text as it stands, a number as it is written in
// the file (so "6378137.000" stays "6378137.000").
int zpfGetString(void* param, std::string* value);
// Non-zero when a value is a quoted text, zero for a number (or a bad handle,
// which also sets the error).
int zpfIsText(void* param);

// Problems of a loaded file: the number of lines and sections that could not
// be read, and the message of the num-th ("<path>: line 12: unterminated
// string; section 'UTM_PROJECTION' of line 10 is skipped"). Only the first
// twenty messages are kept; the count is complete.
int zpfGetNoProblems(void* file);
std::string zpfGetProblem(void* file, int num);
// Sections of a block that were skipped because they were malformed, with the
// keywords that could still be read (for instance their names), so a caller
// can tell which entries are missing. zpfSectionByNum never shows them.
int zpfGetNoDamagedSections(void* target);
void* zpfDamagedSectionByNum(void* target, int num);
// The line of a block, section or keyword in the file it was read from; 0 for
// one that was built.
int zpfGetLine(void* handle);

// Edits of a block read from a file. zpfRemoveSection takes a section out of
// its block (the handle is invalid afterwards); zpfReplaceSection puts section,
// a section of the same block (usually one just added), in old's place and
// removes old. Comments that stood above a removed section stay in the file.
int zpfRemoveSection(void* section);
int zpfReplaceSection(void* old, void* section);

// The text zpfWrite would write; given a section, the text of that section
// alone as it is written when built.
int zpfFormat(void* fileOrSection, std::string* text);

// Checks the first occurrence of keyword in a section, when there is one: it
// must hold minValues to maxValues values, all numbers when numbersOnly is
// non-zero. Zero (and problem, when given, saying why with the line) when it
// does not; an absent keyword passes.
int zpfCheckParam(void* section, const char* keyword, int minValues, int maxValues, int numbersOnly,
                  std::string* problem);
// The same for several keywords in one pass over the section; the first
// keyword (in the section's order) that does not fit is reported.
struct ZpfParamShape {
    const char* keyword;
    int minValues;
    int maxValues;
    int numbersOnly;
};
int zpfCheckParams(void* section, const ZpfParamShape* shapes, int count, std::string* problem);
