#include "foundation/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <system_error>

#include "foundation/Text.h"

namespace {

// Enough for any "%.16g" of a double: sign, 17 digits, point, exponent.
constexpr std::size_t kNumberBuffer = 32;

}  // namespace

std::size_t GxFormatNumber(double value, char* buf, std::size_t size) {
    char tmp[kNumberBuffer];
    // to_chars with general format and a precision is defined to give the text
    // printf's "%.16g" gives in the C locale, whatever the process locale.
    auto res = std::to_chars(tmp, tmp + sizeof tmp, value, std::chars_format::general, 16);
    std::size_t len = static_cast<std::size_t>(res.ptr - tmp);
    GxCopyField(buf, size, tmp, len);
    return len;
}

std::string GxFormatNumber(double value) {
    char tmp[kNumberBuffer];
    std::size_t len = GxFormatNumber(value, tmp, sizeof tmp);
    return std::string(tmp, len);
}

std::string GxFormatNumberShortest(double value) {
    char tmp[kNumberBuffer];
    // Without a precision, to_chars picks the fewest digits that still
    // identify the value uniquely, so from_chars gives the same bits back.
    auto res = std::to_chars(tmp, tmp + sizeof tmp, value);
    return std::string(tmp, static_cast<std::size_t>(res.ptr - tmp));
}

double GxParseNumber(const char* text, std::size_t* end) {
    if (end) *end = 0;
    if (!text) return 0.0;
    const char* p = text;
    while (*p && GxIsBlank(*p)) ++p;
    bool negative = false;
    if (*p == '+' || *p == '-') {
        negative = (*p == '-');
        ++p;
    }
    // from_chars would accept a second '-'; strtod takes one sign only.
    if (*p == '+' || *p == '-') return 0.0;
    double value = 0.0;
    const char* last = p + std::strlen(p);
    auto res = std::from_chars(p, last, value, std::chars_format::general);
    if (res.ec == std::errc::invalid_argument) return 0.0;
    if (res.ec == std::errc::result_out_of_range) {
        // strtod gives HUGE_VAL on overflow and a (possibly zero) tiny value on
        // underflow; decide which by the exponent sign of what was read.
        const char* e = p;
        while (e < res.ptr && *e != 'e' && *e != 'E') ++e;
        bool tiny = (e < res.ptr && e + 1 < res.ptr && e[1] == '-');
        value = tiny ? 0.0 : HUGE_VAL;
    }
    if (end) *end = static_cast<std::size_t>(res.ptr - text);
    return negative ? -value : value;
}

double GxParseNumber(const std::string& text, std::size_t* end) {
    return GxParseNumber(text.c_str(), end);
}

bool GxParseWholeNumber(const std::string& text, double* value) {
    std::size_t used = 0;
    double v = GxParseNumber(text.c_str(), &used);
    if (used == 0) return false;
    for (std::size_t i = used; i < text.size(); ++i)
        if (!GxIsBlank(text[i])) return false;
    if (value) *value = v;
    return true;
}
