#include "catalogue/CatalogueCode.h"

#include <cstddef>
#include <string_view>

#include "foundation/Text.h"

namespace {

constexpr const char kUrnPrefix[] = "urn:ogc:def:crs:";
constexpr std::size_t kUrnPrefixLength = sizeof kUrnPrefix - 1;
// Nine digits: every code of both registers, and no overflow of 32 bits.
constexpr std::size_t kMaxDigits = 9;

struct Register {
    const char* name;
    GxCatalogueCode::EAuthority authority;
};
constexpr Register kRegisters[] = {
    {"EPSG", GxCatalogueCode::eEpsg},
    {"ESRI", GxCatalogueCode::eEsri},
};

// Whether text[at..] starts with word, ignoring the case of ASCII letters.
bool StartsWithIgnoringCase(const std::string& text, std::size_t at, const char* word) {
    return at <= text.size() && GxStartsWithIgnoringCase(std::string_view(text).substr(at), word);
}

// The register named at text[at..], with at moved past its name.
GxCatalogueCode::EAuthority ReadRegister(const std::string& text, std::size_t& at) {
    for (const Register& r : kRegisters) {
        if (StartsWithIgnoringCase(text, at, r.name)) {
            at += std::char_traits<char>::length(r.name);
            return r.authority;
        }
    }
    return GxCatalogueCode::eNone;
}

// The number text[at..] ends with; false unless the rest is only digits.
bool ReadNumber(const std::string& text, std::size_t at, std::uint32_t& number) {
    const std::size_t digits = text.size() - at;
    if (digits == 0 || digits > kMaxDigits || text[at] == '0') return false;
    std::uint32_t value = 0;
    for (std::size_t i = at; i < text.size(); ++i) {
        if (text[i] < '0' || text[i] > '9') return false;
        value = value * 10 + static_cast<std::uint32_t>(text[i] - '0');
    }
    number = value;
    return true;
}

}  // namespace

bool GxParseCatalogueCode(const std::string& text, GxCatalogueCode& out) {
    std::size_t at = 0;
    const bool urn = StartsWithIgnoringCase(text, 0, kUrnPrefix);
    if (urn) at = kUrnPrefixLength;
    const GxCatalogueCode::EAuthority authority = ReadRegister(text, at);
    if (authority == GxCatalogueCode::eNone || at >= text.size() || text[at] != ':') return false;
    ++at;
    if (urn) {
        // The dataset version, which may be empty: letters, digits and dots.
        while (at < text.size() && text[at] != ':') {
            const char c = text[at];
            const bool versionChar = (c >= '0' && c <= '9') || c == '.' ||
                                     (GxAsciiUpper(c) >= 'A' && GxAsciiUpper(c) <= 'Z');
            if (!versionChar) return false;
            ++at;
        }
        if (at >= text.size()) return false;
        ++at;
    }
    std::uint32_t number = 0;
    if (!ReadNumber(text, at, number)) return false;
    out.authority = authority;
    out.number = number;
    return true;
}

std::string GxFormatCatalogueCode(const GxCatalogueCode& code) {
    for (const Register& r : kRegisters)
        if (r.authority == code.authority)
            return std::string(r.name) + ':' + std::to_string(code.number);
    return std::string();
}
