#pragma once

#include <cstddef>
#include <string>

#include "foundation/GxExport.h"

// The one token cutter of the coordinate-system text readers. It walks a copy
// of a text from a start position; each call skips the delimiter characters it
// is given, answers the characters up to the next delimiter (or the end of the
// text) and moves past that delimiter. The delimiter set may change from call
// to call, which is how a reader takes a quoted name with one set and the
// number after it with another.
class GXCART_API CGxWktTokenizer {
public:
    // A start beyond the end of the text gives an exhausted tokenizer.
    explicit CGxWktTokenizer(const std::string& text, std::size_t start = 0);

    // The next token. When only delimiters (or nothing) are left, the answer
    // is empty and the tokenizer is exhausted for good. A null or empty
    // delimiter set makes the whole remaining text one token.
    std::string Next(const char* delimiters);

    // True once a call found no token.
    bool Exhausted() const { return exhausted; }

    // The text after the delimiter that ended the last token; empty when the
    // last token ran to the end of the text or the tokenizer is exhausted.
    std::string Rest() const;

private:
    std::string text;
    std::size_t position;
    bool exhausted;
};
