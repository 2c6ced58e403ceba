#pragma once

#include <cstring>
#include <string>

// White space at both ends of a projection string carries no meaning: a
// name pasted from a file or typed into a dialog often brings a blank or a
// line end with it. These are the C locale's space characters, whatever the
// process locale says.

inline bool GxIsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

// The text without blanks at either end; a null pointer is the empty text.
inline std::string GxTrimmed(const char* text) {
    if (!text) return std::string();
    const char* begin = text;
    const char* end = text + std::strlen(text);
    while (begin < end && GxIsBlank(*begin)) ++begin;
    while (end > begin && GxIsBlank(end[-1])) --end;
    return std::string(begin, end);
}

inline std::string GxTrimmed(const std::string& text) { return GxTrimmed(text.c_str()); }
