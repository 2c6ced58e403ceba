#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

// Small text helpers for the names, keywords and file patterns the library
// reads and stores. They work on ASCII and answer the same in every process
// locale: the C library's isspace and tolower follow setlocale, and a host
// program's locale (a Turkish one folds 'I' to a dotless i) must not change
// which names match.

// The C locale's space characters.
inline bool GxIsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

// White space at both ends of a projection string carries no meaning: a name
// pasted from a file or typed into a dialog often brings a blank or a line end
// with it. The text without blanks at either end; null is the empty text.
inline std::string GxTrimmed(const char* text) {
    if (!text) return std::string();
    const char* begin = text;
    const char* end = text + std::strlen(text);
    while (begin < end && GxIsBlank(*begin)) ++begin;
    while (end > begin && GxIsBlank(end[-1])) --end;
    return std::string(begin, end);
}

inline std::string GxTrimmed(const std::string& text) {
    return GxTrimmed(text.c_str());
}

// ASCII letters change case; every other byte stays as it is.
inline char GxAsciiLower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

inline char GxAsciiUpper(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string GxAsciiLowered(std::string text) {
    for (char& c : text) c = GxAsciiLower(c);
    return text;
}

// Equal texts apart from the case of ASCII letters.
inline bool GxEqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (GxAsciiLower(a[i]) != GxAsciiLower(b[i])) return false;
    }
    return true;
}

// Whether text starts with word, apart from the case of ASCII letters.
inline bool GxStartsWithIgnoringCase(std::string_view text, std::string_view word) {
    return text.size() >= word.size() && GxEqualsIgnoringCase(text.substr(0, word.size()), word);
}

// Copies length bytes of text into a fixed field of size bytes, cut so that
// the terminator always fits; the text may overlap the field. A field of size
// 0 is left alone. Returns the number of bytes copied.
inline std::size_t GxCopyField(char* field, std::size_t size, const char* text,
                               std::size_t length) {
    if (size == 0) return 0;
    const std::size_t n = length < size - 1 ? length : size - 1;
    if (n > 0) std::memmove(field, text, n);
    field[n] = '\0';
    return n;
}

// The same for a terminated text; null copies as the empty text.
inline std::size_t GxCopyField(char* field, std::size_t size, const char* text) {
    return GxCopyField(field, size, text, text ? std::strlen(text) : 0);
}
