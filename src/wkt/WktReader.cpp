// Reading a coordinate-system text into the record: the figure, the datum
// shift, the units, the projection and its parameters, the axes. What a
// projection type reads, and what it decides beyond its parameters, is the
// type's row of the projection-type table (definitions/ProjectionTypes.cpp).

#include <cmath>
#include <cstring>
#include <list>
#include <string>

#include "definitions/ProjectionTypes.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "wkt/PRJParser.h"
#include "wkt/WktReadRules.h"
#include "wkt/WktTokenizer.h"

namespace {

// Delimiter sets of the token cutter: a quoted name inside brackets, a value
// ending at the element's close or the next comma, and a comma-separated
// list.
constexpr const char kNameDelimiters[] = "[]\"";
constexpr const char kValueDelimiters[] = "],";
constexpr const char kListDelimiters[] = ",";

bool _IsLayout(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// The text without the blanks, tabs and line ends that stand outside quoted
// names. Writers that lay a text out over several lines or put a blank after
// a keyword or a comma ("UNIT ["Meter", 1.0]", "AXIS["Northing", NORTH]")
// then read as the one-line form: the token cutter takes a name after the
// bracket and a direction word after the comma as they stand, and a blank
// there would make the name empty and the direction unknown. Quoted names
// keep their blanks; a text without such layout is unchanged.
std::string _WithoutLayout(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    bool quoted = false;
    for (char c : text) {
        if (c == '"') quoted = !quoted;
        if (quoted || !_IsLayout(c)) out += c;
    }
    return out;
}

// The parameters of the rules; with methodDefaults an absent one takes the
// value a writer leaving out defaults means.
void ReadParameters(const GxWktReading& reading, bool methodDefaults) {
    for (int i = 0; i < reading.ruleCount; ++i) {
        const GxWktRule& rule = reading.rules[i];
        std::list<std::string> names{rule.name};
        if (rule.alias) names.emplace_back(rule.alias);
        double value = CGxPRJParser::GetParam(reading.projectionText, names, rule.fallback);
        if (methodDefaults && GxIsUnset(value)) value = rule.omitted;
        reading.record.SetWktParameter(rule.slot, value);
    }
}

}  // namespace

bool CGxPRJParser::Parse(bool sortParallels) {
    if (!IsPRJ(text)) return false;
    const std::string wkt = _WithoutLayout(text);

    projCSname = ShortName(wkt);
    geoCSname = GetName(wkt, "GEOGCS");
    datumName = GetName(wkt, "DATUM");
    if (projCSname.empty()) projCSname = geoCSname;

    std::size_t at = wkt.find("SPHEROID");
    const bool spheroidWritten = at != std::string::npos;
    if (spheroidWritten) {
        // A quoted name runs to its closing quote: some writers put brackets
        // in it ("WGS 84 [EPSG ID 7030]"), which would otherwise end the name
        // there and take its rest for the semi-major axis. The numbers follow
        // the quote; any other name is cut as every name is.
        const std::size_t open = at + std::strlen("SPHEROID");
        const std::size_t close =
            wkt.compare(open, 2, "[\"") == 0 ? wkt.find('"', open + 2) : std::string::npos;
        CGxWktTokenizer tokens(wkt, close == std::string::npos ? at : close + 1);
        if (close == std::string::npos) {
            tokens.Next(kNameDelimiters);
            spheroidName = tokens.Next(kNameDelimiters);
        } else {
            spheroidName = wkt.substr(open + 2, close - open - 2);
        }
        semiMajorAxis = GxParseNumber(tokens.Next(kListDelimiters));
        inverseFlattening = GxParseNumber(tokens.Next(kValueDelimiters));
    }

    // Always seven comma-separated fields, as the seven-parameter form has:
    // a three-value element lends its last places from the text after it.
    at = wkt.find("TOWGS84");
    if (at != std::string::npos) {
        CGxWktTokenizer tokens(wkt, at);
        tokens.Next(kNameDelimiters);
        double values[CGxDatumShift::kParameterCount];
        for (double& v : values) v = GxParseNumber(tokens.Next(kListDelimiters));
        datumShift.SetParameters(values);
    }

    GetNameParam(wkt, "PRIMEM", primeMeridianName, primeMeridian);

    // The first UNIT belongs to the geographic system; the linear unit of a
    // projected system is the next one after it.
    const std::string afterAngularUnit =
        GetNameParam(wkt, "UNIT", angularUnitName, angularUnitFactor);
    if (GxIsUnset(angularUnitFactor)) {
        projectionType = CGxMapProjData::eInvalidProjection;
        return false;
    }

    // A figure needs a size. A SPHEROID whose semi-major axis is not a
    // positive number (0, negative, NaN, infinite, or no number at all) has
    // none: every length on it, every Earth-centred coordinate and every grid
    // coordinate would be meaningless, so the text is refused. A text without
    // a SPHEROID keeps the reading it had, and so does one whose axis is the
    // marker of an absent value: the library's own writer states so a plane
    // grid whose ellipsoid it does not know ("Non_Projected").
    const auto figureUsable = [this, spheroidWritten] {
        return !spheroidWritten || GxIsUnset(semiMajorAxis) ||
               (std::isfinite(semiMajorAxis) && semiMajorAxis > 0.0);
    };

    at = wkt.find("PROJECTION");
    if (at == std::string::npos) {
        projectionType = CGxMapProjData::eGeographical;
        projectionTypeName = GxProjectionTypeOf(CGxMapProjData::eGeographical)->wktName;
        axis1Name = "Longitude";
        axis2Name = "Latitude";
        if (figureUsable()) return true;
        projectionType = CGxMapProjData::eInvalidProjection;
        return false;
    }

    const std::string projectionText = wkt.substr(at);
    CGxWktTokenizer tokens(projectionText);
    tokens.Next(kNameDelimiters);
    const std::string name = tokens.Next(kNameDelimiters);
    const GxWktName* entry = nullptr;
    const GxProjectionType* row = GxProjectionTypeNamed(name, &entry);
    if (!row) {
        projectionType = CGxMapProjData::eInvalidProjection;
        return false;
    }
    projectionType = row->type;
    projectionTypeName = name;

    // A missing parameter fails the text, but the units and axes are still
    // read so that a caller sees as much of the system as the text gives.
    // So does a text that contradicts what its names say.
    const GxRows<GxWktRule> rules = entry->rules.empty() ? row->rules : entry->rules;
    GxWktReading reading{*this, wkt, projectionText, entry->dialect, rules.first, rules.count};
    const bool methodDefaults = entry->methodDefaults || name.find(' ') != std::string::npos;
    ReadParameters(reading, methodDefaults);
    const bool read = row->afterParameters ? row->afterParameters(reading) : reading.Complete();
    if (!read) projectionType = CGxMapProjData::eInvalidProjection;

    // The type's rule may have changed the type (a Lambert conic with one
    // parallel, a skew Hotine grid, a south polar stereographic).
    row = GxProjectionTypeOf(projectionType);
    if (sortParallels && row && row->sortsParallels &&
        GetStandardParallel2() < GetStandardParallel1()) {
        const double first = GetStandardParallel1();
        SetStandardParallel1(GetStandardParallel2());
        SetStandardParallel2(first);
    }

    GetNameParam(afterAngularUnit, "UNIT", projUnitName, projUnitFactor);
    if (GxIsUnset(projUnitFactor)) {
        projectionType = CGxMapProjData::eInvalidProjection;
        return false;
    }
    if (row && row->afterUnits && !row->afterUnits(reading))
        projectionType = CGxMapProjData::eInvalidProjection;
    if (!figureUsable()) projectionType = CGxMapProjData::eInvalidProjection;

    const std::string afterAxis1 = GetNameParam(projectionText, "AXIS", axis1Name, axis1Direction);
    GetNameParam(afterAxis1, "AXIS", axis2Name, axis2Direction);
    row = GxProjectionTypeOf(projectionType);
    if (row && row->afterAxes && !row->afterAxes(reading))
        projectionType = CGxMapProjData::eInvalidProjection;

    // A trial build writes back what the algorithm derives (the scale of a
    // standard parallel, the parallel of a one-parallel Mercator), so that
    // the record describes both forms. A geographic system derives nothing.
    if (projectionType != CGxMapProjData::eInvalidProjection)
        CGxProjection::Release(CreateMapProjection());
    return projectionType != CGxMapProjData::eInvalidProjection;
}
