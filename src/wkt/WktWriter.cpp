// The WKT writer: a filled parser record back to one line of well-known text,
// and the parsers filled for writing by a definition or an algorithm.
//
// The text is always a PROJCS, also for a geographical or a "Non_Projected"
// system, so that every system the library writes reads back through the one
// PROJCS path of the reader. Datum shifts and axes are not written: the
// library's own systems carry neither, and a text that was read keeps them in
// its original form. Numbers are "%.16g" with a decimal point whatever the
// process locale, produced without touching the locale, so formatting is safe
// on several threads at once.

#include <cstddef>
#include <cstring>

#include "definitions/MapProjData.h"
#include "definitions/ProjectionTypes.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "wkt/PRJParser.h"

namespace {

// Names go in as C strings, as a printf "%s" would take them.
void AppendName(std::string& out, const std::string& name) {
    out += '"';
    out += name.c_str();
    out += '"';
}

// keyword["name",
void AppendOpening(std::string& out, const char* keyword, const std::string& name) {
    out += keyword;
    out += '[';
    AppendName(out, name);
    out += ',';
}

// keyword["name",value followed by the closing text.
void AppendNamedValue(std::string& out, const char* keyword, const std::string& name, double value,
                      const char* closing) {
    out += keyword;
    out += '[';
    AppendName(out, name);
    out += ',';
    out += GxFormatNumber(value);
    out += closing;
}

}  // namespace

CGxPRJParser::CGxPRJParser(CGxMapProjData* definition) {
    _initialize();
    if (definition) definition->TransferParameters(*this);
}

CGxPRJParser::CGxPRJParser(CGxProjection* projection) {
    _initialize();
    if (projection) projection->TransferParameters(*this);
}

bool CGxPRJParser::Format(std::string& out) const {
    out.clear();
    AppendOpening(out, "PROJCS", projCSname);
    AppendOpening(out, "GEOGCS", geoCSname);
    AppendOpening(out, "DATUM", datumName);
    // The spheroid closes the DATUM element, the angular unit GEOGCS.
    out += "SPHEROID[";
    AppendName(out, spheroidName);
    out += ',';
    out += GxFormatNumber(semiMajorAxis);
    out += ',';
    out += GxFormatNumber(inverseFlattening);
    out += "]],";
    AppendNamedValue(out, "PRIMEM", primeMeridianName, primeMeridian, "],");
    AppendNamedValue(out, "UNIT", angularUnitName, angularUnitFactor, "]],");
    out += "PROJECTION[";
    AppendName(out, projectionTypeName);
    out += "],";

    // The PARAMETER elements of the type, in its row's order; a geographical
    // system has none, a value without a row gives no complete text.
    const GxProjectionType* row = GxProjectionTypeOf(projectionType);
    if (!row) return false;
    for (const GxWktWritten& written : row->written)
        AppendNamedValue(out, "PARAMETER", written.name, GetWktParameter(written.slot), "],");
    // The linear unit closes PROJCS.
    AppendNamedValue(out, "UNIT", projUnitName, projUnitFactor, "]]");
    return true;
}

bool CGxPRJParser::Format(char* buffer, int size) const {
    std::string text;
    Format(text);
    if (!buffer || size <= 0 || text.size() >= static_cast<std::size_t>(size)) return false;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return true;
}

std::string CGxPRJParser::DatumName(const std::string& text) {
    return GetName(text, "DATUM");
}
