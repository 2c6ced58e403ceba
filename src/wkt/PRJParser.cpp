#include "wkt/PRJParser.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "foundation/NumberText.h"
#include "foundation/Text.h"
#include "foundation/Tolerance.h"
#include "projections/ProjectionName.h"
#include "wkt/WktTokenizer.h"

// The record itself: construction, the recogniser, the name and parameter
// readers, the readable form and the accessors. Reading a whole text is
// WktReader.cpp, writing one WktWriter.cpp, building objects from a record
// WktToProjection.cpp.

namespace {

// Delimiter sets of the token cutter: a quoted name inside brackets, and a
// value ending at the element's close or the next comma.
constexpr const char kNameDelimiters[] = "[]\"";
constexpr const char kValueDelimiters[] = "],";

// Deepest indentation of the readable form. Real texts nest a handful of
// levels; the cap keeps the output of a hostile, deeply nested text linear in
// its length instead of quadratic.
constexpr int kMaxIndentLevels = 16;

// Where the quoted, case-insensitive parameter name stands in text, or npos.
std::size_t _FindQuoted(const std::string& lowerText, const std::string& name) {
    return lowerText.find("\"" + GxAsciiLowered(name) + "\"");
}

// The value after a quoted parameter name found at pos.
double _ValueAt(const std::string& text, std::size_t pos) {
    CGxWktTokenizer tokens(text, pos);
    tokens.Next(kValueDelimiters);
    return GxParseNumber(tokens.Next(kValueDelimiters));
}

// The cut of GetNameParam: keyword["name",value], answering the rest.
std::string _NameValue(const std::string& text, const std::string& keyword, std::string& name,
                       std::string& value, bool& found) {
    const std::size_t at = text.find(keyword);
    found = at != std::string::npos;
    if (!found) return std::string();
    CGxWktTokenizer tokens(text, at);
    tokens.Next(kNameDelimiters);
    name = tokens.Next(kNameDelimiters);
    value = tokens.Next(kValueDelimiters);
    return tokens.Rest();
}

}  // namespace

CGxPRJParser::CGxPRJParser(const std::string& text_) : text(text_) {
    _initialize();
}

CGxPRJParser::CGxPRJParser(const char* text_) : text(text_ ? text_ : "") {
    _initialize();
}

CGxPRJParser::~CGxPRJParser() = default;

void CGxPRJParser::_initialize() {
    projCSname.clear();
    geoCSname.clear();
    datumName.clear();
    primeMeridianName.clear();
    primeMeridian = kGxUnset;
    angularUnitName.clear();
    angularUnitFactor = kGxUnset;
    spheroidName.clear();
    semiMajorAxis = kGxUnset;
    inverseFlattening = kGxUnset;
    datumShift.Reset();
    projectionType = CGxMapProjData::eInvalidProjection;
    projectionTypeName.clear();
    std::fill(parameters, parameters + kGxWktParameterCount, kGxUnset);
    projUnitName.clear();
    projUnitFactor = kGxUnset;
    axis1Name = "Easting";
    axis1Direction = "EAST";
    axis2Name = "Northing";
    axis2Direction = "NORTH";
}

// ---------------------------------------------------------------- recognising

int CGxPRJParser::_MatchBrackets(const std::string& text) {
    long count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '[') {
            ++count;
        } else if (text[i] == ']') {
            if (--count < 0) return static_cast<int>(i);
        }
    }
    return count != 0 ? static_cast<int>(text.size()) : -1;
}

int CGxPRJParser::_MatchCommas(const std::string& text) {
    const auto commas = std::count(text.begin(), text.end(), ',');
    const auto opening = std::count(text.begin(), text.end(), '[');
    return commas > opening ? 1 : 0;
}

int CGxPRJParser::_GetBracketLevel(const std::string& text) {
    int level = 0;
    for (char c : text) {
        if (c == '[') {
            ++level;
        } else if (c == ']') {
            if (--level < 0) break;
        }
    }
    return level;
}

int CGxPRJParser::IsPRJ(const std::string& text) {
    if (_MatchBrackets(text) != -1 || !_MatchCommas(text)) return 0;
    const bool named =
        text.find("PROJCS") != std::string::npos || text.find("GEOGCS") != std::string::npos;
    return named ? 1 : 0;
}

// ---------------------------------------------------------------- name readers

std::string CGxPRJParser::GetName(const std::string& text, const std::string& keyword) {
    const std::size_t at = text.find(keyword);
    if (at == std::string::npos) return std::string();
    CGxWktTokenizer tokens(text, at);
    tokens.Next(kNameDelimiters);
    return tokens.Next(kNameDelimiters);
}

std::string CGxPRJParser::GetNameParam(const std::string& text, const std::string& keyword,
                                       std::string& name, double& value) {
    std::string n, v;
    bool found = false;
    std::string rest = _NameValue(text, keyword, n, v, found);
    if (found) {
        name = std::move(n);
        value = GxParseNumber(v);
    }
    return rest;
}

std::string CGxPRJParser::GetNameParam(const std::string& text, const std::string& keyword,
                                       std::string& name, std::string& value) {
    std::string n, v;
    bool found = false;
    std::string rest = _NameValue(text, keyword, n, v, found);
    if (found) {
        name = std::move(n);
        value = std::move(v);
    }
    return rest;
}

double CGxPRJParser::GetParam(const std::string& text, const std::string& name, double def) {
    const std::size_t at = _FindQuoted(GxAsciiLowered(text), name);
    return at == std::string::npos ? def : _ValueAt(text, at);
}

double CGxPRJParser::GetParam(const std::string& text, const std::list<std::string>& names,
                              double def) {
    const std::string lower = GxAsciiLowered(text);
    for (const std::string& name : names) {
        const std::size_t at = _FindQuoted(lower, name);
        if (at != std::string::npos) return _ValueAt(text, at);
    }
    return def;
}

std::string CGxPRJParser::ShortName(const std::string& text) {
    for (const char* keyword : {"COMPD_CS", "PROJCS", "GEOGCS"}) {
        std::string name = GetName(text, keyword);
        if (!name.empty()) return name;
    }
    if (GxIsLocalString(text.c_str())) return "Local Coordinates";
    return text;
}

// ---------------------------------------------------------------- readable form

void CGxPRJParser::FormatAsReadableWKT(const std::string& in, std::string& out) {
    // The bracket level of the output is kept as it grows, with the rule of
    // _GetBracketLevel (the count stops once it goes below zero), so that a
    // long text is formatted in one pass.
    int level = 0;
    bool stopped = false;
    out.clear();
    auto append = [&](const std::string& s) {
        out += s;
        for (char c : s) {
            if (stopped) break;
            if (c == '[') {
                ++level;
            } else if (c == ']' && --level < 0) {
                stopped = true;
            }
        }
    };

    CGxWktTokenizer pieces(in);
    append(pieces.Next("["));
    append("[");
    std::string piece = pieces.Next("[");
    while (!piece.empty()) {
        std::string next = pieces.Next("[");
        if (next.empty()) {
            append(piece);
            break;
        }
        // The keyword of the next element follows the piece's last comma.
        const std::size_t comma = piece.rfind(',');
        const std::size_t cut = comma == std::string::npos ? 0 : comma + 1;
        append(piece.substr(0, cut));
        append("\r\n");
        out.append(4 * static_cast<std::size_t>(std::clamp(level, 0, kMaxIndentLevels)), ' ');
        append(piece.substr(cut));
        append("[");
        piece = std::move(next);
    }
}

// ---------------------------------------------------------------- accessors

double CGxPRJParser::GetWktParameter(EGxWktParameter which) const {
    const int slot = static_cast<int>(which);
    return slot >= 0 && slot < kGxWktParameterCount ? parameters[slot] : kGxUnset;
}

void CGxPRJParser::SetWktParameter(EGxWktParameter which, double v) {
    const int slot = static_cast<int>(which);
    if (slot >= 0 && slot < kGxWktParameterCount) parameters[slot] = v;
}

void CGxPRJParser::GetPrimeMeridian(std::string& name, double& value) const {
    name = primeMeridianName;
    value = primeMeridian;
}

void CGxPRJParser::SetPrimeMeridian(const std::string& name, double value) {
    primeMeridianName = name;
    primeMeridian = value;
}

void CGxPRJParser::GetAngularUnit(std::string& name, double& factor) const {
    name = angularUnitName;
    factor = angularUnitFactor;
}

void CGxPRJParser::SetAngularUnit(const std::string& name, double factor) {
    angularUnitName = name;
    angularUnitFactor = factor;
}

void CGxPRJParser::GetEllipsoid(std::string& name, double& major, double& invFlattening) const {
    name = spheroidName;
    major = semiMajorAxis;
    invFlattening = inverseFlattening;
}

void CGxPRJParser::SetEllipsoid(const std::string& name, double major, double invFlattening) {
    spheroidName = name;
    semiMajorAxis = major;
    inverseFlattening = invFlattening;
}

void CGxPRJParser::GetProjUnit(std::string& name, double& factor) const {
    name = projUnitName;
    factor = projUnitFactor;
}

void CGxPRJParser::SetProjUnit(const std::string& name, double factor) {
    projUnitName = name;
    projUnitFactor = factor;
}

void CGxPRJParser::GetAxisInfo(EAxisType axis, std::string& name, std::string& direction) const {
    if (axis == eFirstAxis) {
        name = axis1Name;
        direction = axis1Direction;
    } else if (axis == eSecondAxis) {
        name = axis2Name;
        direction = axis2Direction;
    }
}

void CGxPRJParser::SetAxisInfo(EAxisType axis, const std::string& name,
                               const std::string& direction) {
    if (axis == eFirstAxis) {
        axis1Name = name;
        axis1Direction = direction;
    } else if (axis == eSecondAxis) {
        axis2Name = name;
        axis2Direction = direction;
    }
}
