#pragma once

#include <cstddef>
#include <string>

// The one way numbers cross a text boundary (keyword files, WKT, PROJ.4):
// independent of the process locale, always with a decimal point.

// "%.16g" of the C locale.
std::string GxFormatNumber(double value);

// Writes "%.16g" into buf (always terminated, truncated to size); returns the
// length the full text has.
std::size_t GxFormatNumber(double value, char* buf, std::size_t size);

// The shortest text that reads back as the same double bit for bit (C locale,
// "nan"/"inf" for the non-finite values). Keyword files use it so a value
// written and read again is unchanged.
std::string GxFormatNumberShortest(double value);

// strtod semantics in the C locale: skips leading white space, reads the
// longest leading number, answers 0 when there is none. *end (when given)
// receives the count of characters consumed, 0 when nothing was read.
double GxParseNumber(const char* text, std::size_t* end = nullptr);
double GxParseNumber(const std::string& text, std::size_t* end = nullptr);

// True when the whole text (blanks at both ends allowed) is one number.
bool GxParseWholeNumber(const std::string& text, double* value);
