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
#include <iterator>

#include "definitions/MapProjData.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "wkt/PRJParser.h"

namespace {

using EType = CGxMapProjData::EProjectionType;
using Getter = double (CGxPRJParser::*)() const;

// One PARAMETER element: its WKT name and the record member it shows.
struct GxWktParameterEntry {
    const char* name;
    Getter value;
};

constexpr GxWktParameterEntry kFalseEasting = {"False_Easting", &CGxPRJParser::GetFalseEasting};
constexpr GxWktParameterEntry kFalseNorthing = {"False_Northing", &CGxPRJParser::GetFalseNorthing};
constexpr GxWktParameterEntry kCentralMeridian = {"Central_Meridian",
                                                  &CGxPRJParser::GetCentralMeridian};
constexpr GxWktParameterEntry kScaleFactor = {"Scale_Factor", &CGxPRJParser::GetScaleFactor};
constexpr GxWktParameterEntry kLatitudeOfOrigin = {"Latitude_Of_Origin",
                                                   &CGxPRJParser::GetLatitudeOfOrigin};
constexpr GxWktParameterEntry kStandardParallel1 = {"Standard_Parallel_1",
                                                    &CGxPRJParser::GetStandardParallel1};
constexpr GxWktParameterEntry kStandardParallel2 = {"Standard_Parallel_2",
                                                    &CGxPRJParser::GetStandardParallel2};
constexpr GxWktParameterEntry kAzimuth = {"Azimuth", &CGxPRJParser::GetAzimuth};
constexpr GxWktParameterEntry kLongitudeOfCenter = {"Longitude_Of_Center",
                                                    &CGxPRJParser::GetLongitudeOfCenter};
constexpr GxWktParameterEntry kLatitudeOfCenter = {"Latitude_Of_Center",
                                                   &CGxPRJParser::GetLatitudeOfCenter};
constexpr GxWktParameterEntry kXYPlaneRotation = {"XY_Plane_Rotation",
                                                  &CGxPRJParser::GetXYPlaneRotation};

// The parameter lists by type, in the order they are written.
constexpr GxWktParameterEntry kTransverseLike[] = {kFalseEasting, kFalseNorthing, kCentralMeridian,
                                                   kScaleFactor, kLatitudeOfOrigin};
constexpr GxWktParameterEntry kTwoParallelCone[] = {kFalseEasting,      kFalseNorthing,
                                                    kCentralMeridian,   kStandardParallel1,
                                                    kStandardParallel2, kLatitudeOfOrigin};
// New Zealand map grid writes its central meridian under the name of the
// natural origin's longitude.
constexpr GxWktParameterEntry kNewZealand[] = {
    kFalseEasting,
    kFalseNorthing,
    {"Longitude_Of_Origin", &CGxPRJParser::GetCentralMeridian},
    kLatitudeOfOrigin,
};
constexpr GxWktParameterEntry kHotine[] = {kFalseEasting, kFalseNorthing,     kScaleFactor,
                                           kAzimuth,      kLongitudeOfCenter, kLatitudeOfCenter};
constexpr GxWktParameterEntry kSkewOrthomorphic[] = {
    kFalseEasting,      kFalseNorthing,    kScaleFactor,     kAzimuth,
    kLongitudeOfCenter, kLatitudeOfCenter, kXYPlaneRotation,
};
constexpr GxWktParameterEntry kRotatedPole[] = {
    {"Longitude_Of_South_Pole", &CGxPRJParser::GetLongitudeOfSouthPole},
    {"Latitude_Of_South_Pole", &CGxPRJParser::GetLatitudeOfSouthPole},
    {"Angle_Of_Rotation", &CGxPRJParser::GetAngleOfRotation},
};
constexpr GxWktParameterEntry kOneParallel[] = {kFalseEasting, kFalseNorthing, kCentralMeridian,
                                                kStandardParallel1};
constexpr GxWktParameterEntry kMercatorScale[] = {kFalseEasting, kFalseNorthing, kCentralMeridian,
                                                  kScaleFactor};
constexpr GxWktParameterEntry kKrovak[] = {
    kFalseEasting,
    kFalseNorthing,
    {"Pseudo_Standard_Parallel_1", &CGxPRJParser::GetPseudoParallel},
    kScaleFactor,
    kAzimuth,
    kLongitudeOfCenter,
    kLatitudeOfCenter,
    {"X_Scale", &CGxPRJParser::GetXScale},
    {"Y_Scale", &CGxPRJParser::GetYScale},
    kXYPlaneRotation,
};
constexpr GxWktParameterEntry kOriginOnly[] = {kFalseEasting, kFalseNorthing, kCentralMeridian,
                                               kLatitudeOfOrigin};

struct GxWktParameterList {
    const GxWktParameterEntry* entries;
    std::size_t count;
};

template <std::size_t N>
constexpr GxWktParameterList List(const GxWktParameterEntry (&entries)[N]) {
    return {entries, N};
}

// The PARAMETER elements of a type; false for a type the writer has no
// element list for. A geographical system has no parameters at all.
bool ParametersOf(EType type, GxWktParameterList& list) {
    switch (type) {
        case CGxMapProjData::eTransverseMercator:
        case CGxMapProjData::eLambert1SP:
        case CGxMapProjData::eStereographic:
        case CGxMapProjData::ePolarStereographic:
        case CGxMapProjData::eNonProjected:
            list = List(kTransverseLike);
            return true;
        case CGxMapProjData::eLambert2SP:
        case CGxMapProjData::eAlbersEqualArea:
        case CGxMapProjData::eEquidistantConic:
            list = List(kTwoParallelCone);
            return true;
        case CGxMapProjData::eNewZealandMapGrid:
            list = List(kNewZealand);
            return true;
        case CGxMapProjData::eHotineObliqueMercator:
        case CGxMapProjData::eObliqueMercator:
            list = List(kHotine);
            return true;
        case CGxMapProjData::eRectifiedSkewOrthomorphic:
            list = List(kSkewOrthomorphic);
            return true;
        case CGxMapProjData::eRotatedLongitudeLatitude:
            list = List(kRotatedPole);
            return true;
        case CGxMapProjData::eMercator2SP:
        case CGxMapProjData::eStereographicNorthPole:
        case CGxMapProjData::eStereographicSouthPole:
            list = List(kOneParallel);
            return true;
        case CGxMapProjData::eMercator1SP:
            list = List(kMercatorScale);
            return true;
        case CGxMapProjData::eGeographical:
            list = {nullptr, 0};
            return true;
        case CGxMapProjData::eKrovak:
            list = List(kKrovak);
            return true;
        case CGxMapProjData::eLambertAzimuthalEqualArea:
        case CGxMapProjData::eCassiniSoldner:
            list = List(kOriginOnly);
            return true;
        case CGxMapProjData::eInvalidProjection:
            break;
    }
    return false;
}

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

    GxWktParameterList list;
    if (!ParametersOf(projectionType, list)) return false;
    for (std::size_t i = 0; i < list.count; ++i) {
        const GxWktParameterEntry& entry = list.entries[i];
        AppendNamedValue(out, "PARAMETER", entry.name, (this->*entry.value)(), "],");
    }
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
