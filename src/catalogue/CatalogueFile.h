#pragma once

#include <string>

#include "zpf/zpf.h"

// Closes a keyword file when it goes out of scope, also when a catalogue
// throws part way (a full list).
struct GxZpfFileCloser {
    void* file;
    ~GxZpfFileCloser() { zpfClose(file); }
};

// The catalogue files share one layout: a keyword file whose first block of a
// given name holds one section per entry. These two helpers own opening,
// error handling and closing, so a catalogue only reads or writes its
// entries.

// Hands the block to readBlock(void* block). A missing or unreadable file
// leaves the catalogue as it was and is not an error; keywords absent from a
// section are not errors of the catalogue either, so the global error is
// cleared afterwards.
template <class ReadBlock>
void GxReadCatalogueFile(const std::string& path, const char* blockName, ReadBlock readBlock) {
    void* file = zpfLoadFile(path.c_str());
    if (!file) {
        zpfGetErrorGlb();
        return;
    }
    const GxZpfFileCloser closer{file};
    if (zpfPeekErrorGlb() != eZpfOk) return;
    void* block = zpfTargetByNameNum(file, blockName, 1);
    if (block) readBlock(block);
    zpfGetErrorGlb();
}

// Writes a new file with one block of the given name, whose entries
// writeEntries(void* file) adds; true when the file was written (a failed
// write keeps the old file).
template <class WriteEntries>
bool GxWriteCatalogueFile(const std::string& path, const char* blockName,
                          WriteEntries writeEntries) {
    void* file = zpfCreate();
    if (!file) return false;
    const GxZpfFileCloser closer{file};
    zpfAddTarget(file, blockName);
    writeEntries(file);
    return zpfWrite(file, path.c_str()) != 0;
}
