#include "wkt/PRJParser.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <utility>

#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "projections/ProjectionName.h"
#include "wkt/WktTokenizer.h"

namespace {

using EType = CGxMapProjData::EProjectionType;

// Delimiter sets of the token cutter: a quoted name inside brackets, a value
// ending at the element's close or the next comma, and a comma-separated
// list.
constexpr const char kNameDelimiters[] = "[]\"";
constexpr const char kValueDelimiters[] = "],";
constexpr const char kListDelimiters[] = ",";

// Axis scales and plane rotation (degrees) that turn the Krovak cone's
// southing and westing into easting and northing.
constexpr double kKrovakNorthXScale = -1.0;
constexpr double kKrovakNorthYScale = 1.0;
constexpr double kKrovakNorthRotation = 90.0;

// Deepest indentation of the readable form. Real texts nest a handful of
// levels; the cap keeps the output of a hostile, deeply nested text linear in
// its length instead of quadratic.
constexpr int kMaxIndentLevels = 16;

// The WKT projection names the reader accepts: the spellings that GIS
// software writes for the types the library has, each with where it comes
// from. Names are compared without regard to case and with blanks read as
// underscores, so "Transverse Mercator" (MapInfo-style writers, GeoTools)
// finds "Transverse_Mercator" and "Oblique Stereographic" (the EPSG name)
// finds "Oblique_Stereographic". docs/wkt-dialects.md lists this table.
//
// The south-orientated and "complex" Transverse Mercator names are read as
// the plain projection: the south orientation is a matter of axis signs,
// which the text's AXIS elements carry. Plain "Mercator" is the form with a
// standard parallel; plain "Lambert_Conformal_Conic" starts as the
// two-parallel form and becomes the one-parallel form when its parameters say
// so. A dialect other than plain fixes what the name implies beyond its type.
//
// The last column says how a parameter the text leaves out is read. The OGC,
// ESRI and GDAL names come from writers that state every parameter of the
// type, and a text without one is refused. EPSG's method names, and every
// name written with blanks (GeoTools, Apache SIS, MapInfo-style writers),
// come from writers that leave out a parameter whose value is the parameter's
// default: there an absent false easting, false northing or latitude of
// origin is 0 and an absent scale factor 1. Every other parameter stays
// required.
struct GxProjectionNameEntry {
    const char* name;
    EType type;
    CGxPRJParser::EDialect dialect;
    bool methodDefaults;
};
using M = CGxMapProjData;
using D = CGxPRJParser::EDialect;
constexpr bool kAllWritten = false;
constexpr bool kDefaults = true;
constexpr GxProjectionNameEntry kProjectionNames[] = {
    // Transverse Mercator: OGC 01-009, ESRI and GDAL; ESRI's "complex" form
    // and Gauss-Kruger; GDAL's south-orientated form (EPSG method 9808).
    {"Transverse_Mercator", M::eTransverseMercator, D::kPlain, kAllWritten},
    {"Transverse_Mercator_Complex", M::eTransverseMercator, D::kPlain, kAllWritten},
    {"Transverse_Mercator_South_Orientated", M::eTransverseMercator, D::kPlain, kAllWritten},
    {"Gauss_Kruger", M::eTransverseMercator, D::kPlain, kAllWritten},
    // Lambert conic: ESRI's one name for both forms, OGC/GDAL's and EPSG's
    // (methods 9802 and 9801) names of each.
    {"Lambert_Conformal_Conic", M::eLambert2SP, D::kPlain, kAllWritten},
    {"Lambert_Conformal_Conic_2SP", M::eLambert2SP, D::kPlain, kAllWritten},
    {"Lambert Conic Conformal (2SP)", M::eLambert2SP, D::kPlain, kDefaults},
    {"Lambert_Conformal_Conic_1SP", M::eLambert1SP, D::kPlain, kAllWritten},
    {"Lambert Conic Conformal (1SP)", M::eLambert1SP, D::kPlain, kDefaults},
    // Stereographic: ESRI's plain and double names; GDAL's oblique name,
    // which with blanks is EPSG's (method 9809).
    {"Stereographic", M::eStereographic, D::kPlain, kAllWritten},
    {"Double_Stereographic", M::eStereographic, D::kPlain, kAllWritten},
    {"Oblique_Stereographic", M::eStereographic, D::kPlain, kAllWritten},
    // OGC 01-009, ESRI and GDAL; with blanks EPSG's (method 9811).
    {"New_Zealand_Map_Grid", M::eNewZealandMapGrid, D::kPlain, kAllWritten},
    // Hotine, from the natural origin: ESRI, OGC/GDAL, EPSG method 9812;
    // from the centre: ESRI and GDAL, EPSG method 9815; the rectified skew
    // orthomorphic grid from the natural origin: ESRI.
    {"Hotine_Oblique_Mercator_Azimuth_Natural_Origin", M::eHotineObliqueMercator, D::kPlain,
     kAllWritten},
    {"Hotine_Oblique_Mercator", M::eHotineObliqueMercator, D::kPlain, kAllWritten},
    {"Hotine Oblique Mercator (variant A)", M::eHotineObliqueMercator, D::kPlain, kDefaults},
    {"Hotine_Oblique_Mercator_Azimuth_Center", M::eObliqueMercator, D::kPlain, kAllWritten},
    {"Hotine Oblique Mercator (variant B)", M::eObliqueMercator, D::kHotineCentre, kDefaults},
    {"Rectified_Skew_Orthomorphic_Natural_Origin", M::eRectifiedSkewOrthomorphic, D::kPlain,
     kAllWritten},
    // The library's own writer.
    {"Rotated_Longitude_Latitude", M::eRotatedLongitudeLatitude, D::kPlain, kAllWritten},
    // Mercator with a standard parallel: ESRI, OGC/GDAL, EPSG method 9805;
    // the web Mercator of ESRI and of EPSG (method 1024, as GeoTools writes
    // it). With a scale factor: OGC/GDAL, EPSG method 9804.
    {"Mercator", M::eMercator2SP, D::kPlain, kAllWritten},
    {"Mercator_2SP", M::eMercator2SP, D::kPlain, kAllWritten},
    {"Mercator (variant B)", M::eMercator2SP, D::kPlain, kDefaults},
    {"Mercator_Auxiliary_Sphere", M::eMercator2SP, D::kEsriWebMercator, kAllWritten},
    {"Popular Visualisation Pseudo Mercator", M::eMercator2SP, D::kEpsgWebMercator, kDefaults},
    {"Mercator_1SP", M::eMercator1SP, D::kPlain, kAllWritten},
    {"Mercator (variant A)", M::eMercator1SP, D::kPlain, kDefaults},
    // Polar stereographic with a standard parallel: ESRI; EPSG method 9829,
    // whose pole is the parallel's.
    {"Stereographic_North_Pole", M::eStereographicNorthPole, D::kPlain, kAllWritten},
    {"Stereographic_South_Pole", M::eStereographicSouthPole, D::kPlain, kAllWritten},
    {"Polar Stereographic (variant B)", M::eStereographicNorthPole, D::kPolarStereographicB,
     kDefaults},
    // The library's own writer.
    {"Geographical", M::eGeographical, D::kPlain, kAllWritten},
    // Krovak: ESRI and GDAL; the east-north form, EPSG method 1041.
    {"Krovak", M::eKrovak, D::kPlain, kAllWritten},
    {"Krovak (North Orientated)", M::eKrovak, D::kKrovakNorth, kDefaults},
    // Albers: ESRI, OGC/GDAL, EPSG method 9822 (also MapInfo-style writers).
    {"Albers", M::eAlbersEqualArea, D::kPlain, kAllWritten},
    {"Albers_Conic_Equal_Area", M::eAlbersEqualArea, D::kPlain, kAllWritten},
    {"Albers Equal Area", M::eAlbersEqualArea, D::kPlain, kDefaults},
    // ESRI and GDAL; with blanks EPSG's (method 9820).
    {"Lambert_Azimuthal_Equal_Area", M::eLambertAzimuthalEqualArea, D::kPlain, kAllWritten},
    // Cassini-Soldner: ESRI, OGC/GDAL, EPSG method 9806.
    {"Cassini", M::eCassiniSoldner, D::kPlain, kAllWritten},
    {"Cassini_Soldner", M::eCassiniSoldner, D::kPlain, kAllWritten},
    {"Cassini-Soldner", M::eCassiniSoldner, D::kPlain, kDefaults},
    // ESRI and GDAL; with blanks EPSG's (method 1028).
    {"Equidistant_Conic", M::eEquidistantConic, D::kPlain, kAllWritten},
    // Polar stereographic by its origin: GDAL; EPSG method 9810.
    {"Polar_Stereographic", M::ePolarStereographic, D::kPlain, kAllWritten},
    {"Polar Stereographic (variant A)", M::ePolarStereographic, D::kPlain, kDefaults},
    // The library's own writer.
    {"Non_Projected", M::eNonProjected, D::kPlain, kAllWritten},
};

// ASCII lower case, the same in every locale.
std::string _Lower(std::string s) {
    for (char& c : s) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return s;
}

// The key of a projection name in the name table: lower case, and blanks
// read as underscores, so that "Transverse Mercator" and "transverse_mercator"
// are one name. Other characters (hyphens, parentheses) are kept.
std::string _NameKey(const std::string& name) {
    std::string key = _Lower(name);
    std::replace(key.begin(), key.end(), ' ', '_');
    return key;
}

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

// Where the quoted, case-insensitive parameter name stands in text, or npos.
std::size_t _FindQuoted(const std::string& lowerText, const std::string& name) {
    return lowerText.find("\"" + _Lower(name) + "\"");
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

// The PROJ.4 string of an EXTENSION["PROJ4","..."] element (GDAL writes one
// where WKT cannot state the grid, such as the web Mercator); empty when the
// text has none. EXTENSION["PROJ4_GRIDS",...] is another element.
std::string _Proj4Extension(const std::string& wkt) {
    const std::string key = "EXTENSION[\"PROJ4\",\"";
    const std::size_t at = wkt.find(key);
    if (at == std::string::npos) return std::string();
    const std::size_t from = at + key.size();
    const std::size_t to = wkt.find('"', from);
    return to == std::string::npos ? std::string() : wkt.substr(from, to - from);
}

// The number of "+key=number" in a PROJ.4 string, or fallback when the key is
// not there. A key without a number reads as NaN, which agrees with nothing.
double _Proj4Number(const std::string& proj4, const std::string& key, double fallback) {
    const std::string wanted = "+" + key + "=";
    std::size_t at = 0;
    while ((at = proj4.find(wanted, at)) != std::string::npos) {
        if (at == 0 || _IsLayout(proj4[at - 1])) {
            std::size_t used = 0;
            const double v = GxParseNumber(proj4.c_str() + at + wanted.size(), &used);
            return used ? v : std::numeric_limits<double>::quiet_NaN();
        }
        at += wanted.size();
    }
    return fallback;
}

// Whether two values written in different texts state the same number (the
// texts round differently in the last digits).
bool _SameWritten(double a, double b) {
    return std::fabs(a - b) <= 1e-9 * std::max({1.0, std::fabs(a), std::fabs(b)});
}

// Whether a projected system's name says it is the web Mercator of EPSG
// ("WGS 84 / Pseudo-Mercator", "WGS_84_Pseudo_Mercator", "WGS_1984_Web_Mercator"
// and the like): compared as PROJ compares it, by its letters and digits
// without regard to case, "1984" and "84" alike.
bool _NamesWebMercator(const std::string& name) {
    std::string key;
    for (char c : _Lower(name)) {
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) key += c;
    }
    const std::string wgs1984 = "wgs1984";
    if (key.compare(0, wgs1984.size(), wgs1984) == 0) key = "wgs84" + key.substr(wgs1984.size());
    return key == "wgs84pseudomercator" || key == "wgs84webmercator";
}

// Semi-major axis of the web Mercator's sphere (WGS 84).
constexpr double kWebMercatorRadius = 6378137.0;

bool _IsPresent(double v) {
    return !GxIsUnset(v);
}

// Whether the rectified grid angle of an oblique Mercator text differs from
// its azimuth. Angles that cannot be compared (NaN, infinite) never make a
// difference: the text then keeps the type it names.
bool _AnglesDiffer(double a, double b) {
    return std::isfinite(a) && std::isfinite(b) && !GxIsNear(a, b);
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
    nameTable.clear();
    for (const GxProjectionNameEntry& e : kProjectionNames)
        nameTable.emplace(_NameKey(e.name), GxNameEntry{e.type, e.dialect, e.methodDefaults});
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
    std::fill(parameters, parameters + kParameterCount, kGxUnset);
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
    const std::size_t at = _FindQuoted(_Lower(text), name);
    return at == std::string::npos ? def : _ValueAt(text, at);
}

double CGxPRJParser::GetParam(const std::string& text, const std::list<std::string>& names,
                              double def) {
    const std::string lower = _Lower(text);
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

// ---------------------------------------------------------------- parsing

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
        projectionTypeName = "Geographical";
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
    const auto entry = nameTable.find(_NameKey(name));
    if (entry == nameTable.end()) {
        projectionType = CGxMapProjData::eInvalidProjection;
        return false;
    }
    projectionType = entry->second.type;
    projectionTypeName = name;

    // A missing parameter fails the text, but the units and axes are still
    // read so that a caller sees as much of the system as the text gives.
    // So does a text that contradicts what its names say.
    const EDialect dialect = entry->second.dialect;
    const bool methodDefaults = entry->second.methodDefaults || name.find(' ') != std::string::npos;
    if (!_ReadParameters(projectionText, dialect, methodDefaults))
        projectionType = CGxMapProjData::eInvalidProjection;

    const bool conic = projectionType == CGxMapProjData::eLambert2SP ||
                       projectionType == CGxMapProjData::eAlbersEqualArea ||
                       projectionType == CGxMapProjData::eEquidistantConic;
    if (sortParallels && conic && parameters[kStandardParallel2] < parameters[kStandardParallel1]) {
        std::swap(parameters[kStandardParallel1], parameters[kStandardParallel2]);
    }

    GetNameParam(afterAngularUnit, "UNIT", projUnitName, projUnitFactor);
    if (GxIsUnset(projUnitFactor)) {
        projectionType = CGxMapProjData::eInvalidProjection;
        return false;
    }
    if (!_ReadWebMercator(wkt, dialect)) projectionType = CGxMapProjData::eInvalidProjection;
    if (!figureUsable()) projectionType = CGxMapProjData::eInvalidProjection;

    const std::string afterAxis1 = GetNameParam(projectionText, "AXIS", axis1Name, axis1Direction);
    GetNameParam(afterAxis1, "AXIS", axis2Name, axis2Direction);
    if (projectionType == CGxMapProjData::eKrovak && dialect == EDialect::kPlain)
        _OrientKrovak(wkt, projectionText);

    // A trial build writes back what the algorithm derives (the scale of a
    // standard parallel, the parallel of a one-parallel Mercator), so that
    // the record describes both forms. A geographic system derives nothing.
    if (projectionType != CGxMapProjData::eInvalidProjection)
        CGxProjection::Release(CreateMapProjection());
    return projectionType != CGxMapProjData::eInvalidProjection;
}

bool CGxPRJParser::_ReadParameters(const std::string& projectionText, EDialect dialect,
                                   bool methodDefaults) {
    // One parameter of a type: its slot, the WKT name and an alternative name
    // tried after it, the value taken when neither is in the text, and
    // whether its absence fails the text.
    struct Rule {
        EParameterSlot slot;
        const char* name;
        const char* alias;
        double fallback;
        bool required;
    };
    constexpr double kNone = kGxUnset;
    // Transverse Mercator, Lambert 1SP, polar stereographic and the plane
    // system read with the Transverse Mercator set.
    static constexpr Rule kOriginScale[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Central_Meridian", nullptr, kNone, true},
        {kScaleFactor, "Scale_Factor", nullptr, kNone, true},
        {kLatitudeOfOrigin, "Latitude_Of_Origin", nullptr, kNone, true},
    };
    // Lambert conic as named by "Lambert_Conformal_Conic": which parameters
    // are there decides between the two forms below.
    static constexpr Rule kLambert[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, false},
        {kCentralMeridian, "Central_Meridian", nullptr, kNone, false},
        {kStandardParallel1, "Standard_Parallel_1", nullptr, kNone, false},
        {kStandardParallel2, "Standard_Parallel_2", nullptr, kNone, false},
        {kScaleFactor, "Scale_Factor", nullptr, kNone, false},
        {kLatitudeOfOrigin, "Latitude_Of_Origin", nullptr, kNone, false},
    };
    static constexpr Rule kStereographic[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Central_Meridian", "Longitude_Of_Origin", kNone, true},
        {kScaleFactor, "Scale_Factor", nullptr, kNone, true},
        {kLatitudeOfOrigin, "Latitude_Of_Origin", nullptr, kNone, true},
    };
    static constexpr Rule kNewZealand[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Longitude_Of_Origin", "Central_Meridian", kNone, true},
        {kLatitudeOfOrigin, "Latitude_Of_Origin", nullptr, kNone, true},
    };
    // The two Hotine forms; the rectified grid angle is read after these.
    static constexpr Rule kHotine[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kLongitudeOfCenter, "Longitude_Of_Center", nullptr, kNone, true},
        {kLatitudeOfCenter, "Latitude_Of_Center", nullptr, kNone, true},
        {kAzimuth, "Azimuth", nullptr, kNone, true},
        {kScaleFactor, "Scale_Factor", nullptr, kNone, true},
    };
    static constexpr Rule kSkewOrthomorphic[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kLongitudeOfCenter, "Longitude_Of_Center", nullptr, kNone, true},
        {kLatitudeOfCenter, "Latitude_Of_Center", nullptr, kNone, true},
        {kAzimuth, "Azimuth", nullptr, kNone, true},
        {kXYPlaneRotation, "XY_Plane_Rotation", nullptr, kNone, true},
        {kScaleFactor, "Scale_Factor", nullptr, kNone, true},
    };
    static constexpr Rule kRotatedPole[] = {
        {kLongitudeOfSouthPole, "Longitude_Of_South_Pole", nullptr, kNone, true},
        {kLatitudeOfSouthPole, "Latitude_Of_South_Pole", nullptr, kNone, true},
        {kAngleOfRotation, "Angle_Of_Rotation", nullptr, kNone, true},
    };
    // Mercator with a standard parallel and the two pole stereographics.
    static constexpr Rule kStandardParallel[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Central_Meridian", nullptr, kNone, true},
        {kStandardParallel1, "Standard_Parallel_1", nullptr, kNone, true},
    };
    static constexpr Rule kMercatorScale[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Central_Meridian", nullptr, kNone, true},
        {kScaleFactor, "Scale_Factor", nullptr, kNone, true},
    };
    // Krovak without axis scales or plane rotation is the classic south-west
    // oriented grid: unit scales, no rotation.
    static constexpr Rule kKrovak[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kLongitudeOfCenter, "Longitude_Of_Center", nullptr, kNone, true},
        {kLatitudeOfCenter, "Latitude_Of_Center", nullptr, kNone, true},
        {kAzimuth, "Azimuth", nullptr, kNone, true},
        {kXYPlaneRotation, "XY_Plane_Rotation", nullptr, 0.0, true},
        {kScaleFactor, "Scale_Factor", nullptr, kNone, true},
        {kPseudoParallel, "Pseudo_Standard_Parallel_1", nullptr, kNone, true},
        {kXScale, "X_Scale", nullptr, 1.0, true},
        {kYScale, "Y_Scale", nullptr, 1.0, true},
    };
    // The east-north Krovak: its name fixes the axis scales and the plane
    // rotation that turn the cone's southing and westing into easting and
    // northing.
    static constexpr Rule kKrovakNorth[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kLongitudeOfCenter, "Longitude_Of_Center", nullptr, kNone, true},
        {kLatitudeOfCenter, "Latitude_Of_Center", nullptr, kNone, true},
        {kAzimuth, "Azimuth", nullptr, kNone, true},
        {kXYPlaneRotation, "XY_Plane_Rotation", nullptr, kKrovakNorthRotation, true},
        {kScaleFactor, "Scale_Factor", nullptr, kNone, true},
        {kPseudoParallel, "Pseudo_Standard_Parallel_1", nullptr, kNone, true},
        {kXScale, "X_Scale", nullptr, kKrovakNorthXScale, true},
        {kYScale, "Y_Scale", nullptr, kKrovakNorthYScale, true},
    };
    // The web Mercator as EPSG defines it has no latitude of true scale and
    // no scale factor; they are checked below.
    static constexpr Rule kWebMercator[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Central_Meridian", nullptr, kNone, true},
    };
    // Albers and equidistant conic: ESRI names the origin by its meridian and
    // latitude of origin, other writers by the centre.
    static constexpr Rule kConic[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Central_Meridian", "Longitude_Of_Center", kNone, true},
        {kStandardParallel1, "Standard_Parallel_1", nullptr, kNone, true},
        {kStandardParallel2, "Standard_Parallel_2", nullptr, kNone, true},
        {kLatitudeOfOrigin, "Latitude_Of_Origin", "Latitude_Of_Center", kNone, true},
    };
    static constexpr Rule kAzimuthalEqualArea[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Central_Meridian", "Longitude_Of_Center", kNone, true},
        {kLatitudeOfOrigin, "Latitude_Of_Origin", "Latitude_Of_Center", kNone, true},
    };
    static constexpr Rule kCassini[] = {
        {kFalseEasting, "False_Easting", nullptr, kNone, true},
        {kFalseNorthing, "False_Northing", nullptr, kNone, true},
        {kCentralMeridian, "Central_Meridian", nullptr, kNone, true},
        {kLatitudeOfOrigin, "Latitude_Of_Origin", nullptr, kNone, true},
    };

    const Rule* begin = nullptr;
    const Rule* end = nullptr;
    auto use = [&](const auto& rules) {
        begin = std::begin(rules);
        end = std::end(rules);
    };
    switch (projectionType) {
        case CGxMapProjData::eTransverseMercator:
        case CGxMapProjData::eLambert1SP:
        case CGxMapProjData::ePolarStereographic:
        case CGxMapProjData::eNonProjected:
            use(kOriginScale);
            break;
        case CGxMapProjData::eLambert2SP:
            use(kLambert);
            break;
        case CGxMapProjData::eStereographic:
            use(kStereographic);
            break;
        case CGxMapProjData::eNewZealandMapGrid:
            use(kNewZealand);
            break;
        case CGxMapProjData::eHotineObliqueMercator:
        case CGxMapProjData::eObliqueMercator:
            use(kHotine);
            break;
        case CGxMapProjData::eRectifiedSkewOrthomorphic:
            use(kSkewOrthomorphic);
            break;
        case CGxMapProjData::eRotatedLongitudeLatitude:
            use(kRotatedPole);
            break;
        case CGxMapProjData::eMercator2SP:
            if (dialect == EDialect::kEpsgWebMercator) {
                use(kWebMercator);
            } else {
                use(kStandardParallel);
            }
            break;
        case CGxMapProjData::eStereographicNorthPole:
        case CGxMapProjData::eStereographicSouthPole:
            use(kStandardParallel);
            break;
        case CGxMapProjData::eMercator1SP:
            use(kMercatorScale);
            break;
        case CGxMapProjData::eKrovak:
            if (dialect == EDialect::kKrovakNorth) {
                use(kKrovakNorth);
            } else {
                use(kKrovak);
            }
            break;
        case CGxMapProjData::eAlbersEqualArea:
        case CGxMapProjData::eEquidistantConic:
            use(kConic);
            break;
        case CGxMapProjData::eLambertAzimuthalEqualArea:
            use(kAzimuthalEqualArea);
            break;
        case CGxMapProjData::eCassiniSoldner:
            use(kCassini);
            break;
        default:
            break;  // geographical: no parameters
    }

    // The value of a parameter that a writer leaving out defaults did not
    // write. The scale of a Lambert named for both forms is not filled in:
    // whether the text writes it decides between the two forms.
    const auto omitted = [this](EParameterSlot slot) {
        switch (slot) {
            case kFalseEasting:
            case kFalseNorthing:
            case kLatitudeOfOrigin:
                return 0.0;
            case kScaleFactor:
                return projectionType == CGxMapProjData::eLambert2SP ? kGxUnset : 1.0;
            default:
                return kGxUnset;
        }
    };
    for (const Rule* r = begin; r != end; ++r) {
        std::list<std::string> names{r->name};
        if (r->alias) names.emplace_back(r->alias);
        parameters[r->slot] = GetParam(projectionText, names, r->fallback);
        if (methodDefaults && !_IsPresent(parameters[r->slot]))
            parameters[r->slot] = omitted(r->slot);
    }

    // What the name or the dialect adds to the type's own rules; false when
    // the text contradicts its name.
    bool consistent = true;
    const auto written = [&projectionText](const char* name) {
        return GetParam(projectionText, name, kGxUnset);
    };
    // A value the text may leave out but, when it writes it, must give as
    // the name implies.
    const auto absentOr = [&written](const char* name, double implied) {
        const double v = written(name);
        return GxIsUnset(v) || v == implied;
    };
    switch (dialect) {
        case EDialect::kEpsgWebMercator:
            // The method is true to scale on the equator; a text that gives
            // another scale or parallel is read differently by different
            // software and is refused rather than guessed.
            consistent = absentOr("Standard_Parallel_1", 0.0) &&
                         absentOr("Latitude_Of_Origin", 0.0) && absentOr("Scale_Factor", 1.0);
            parameters[kStandardParallel1] = 0.0;
            break;
        case EDialect::kEsriWebMercator:
            // Auxiliary sphere type 0 is the sphere of the semi-major axis,
            // the only one PROJ and GDAL read; 1 to 3 (semi-minor axis,
            // authalic radius, authalic latitudes) are refused.
            consistent =
                parameters[kStandardParallel1] == 0.0 && absentOr("Auxiliary_Sphere_Type", 0.0);
            break;
        case EDialect::kKrovakNorth:
            consistent = parameters[kXScale] == kKrovakNorthXScale &&
                         parameters[kYScale] == kKrovakNorthYScale &&
                         parameters[kXYPlaneRotation] == kKrovakNorthRotation;
            break;
        case EDialect::kPolarStereographicB:
            // The standard parallel's hemisphere is the pole's.
            if (parameters[kStandardParallel1] < 0.0)
                projectionType = CGxMapProjData::eStereographicSouthPole;
            break;
        default:
            break;
    }
    // The two-parallel Mercator names its scale by a standard parallel. A
    // text that gives instead a scale of exactly 1 states the same grid
    // (true to scale on the equator, parallel 0), as some writers do under
    // ESRI's plain "Mercator"; any other scale is read differently by
    // different software and stays a missing parallel.
    if (projectionType == CGxMapProjData::eMercator2SP && dialect == EDialect::kPlain &&
        !_IsPresent(parameters[kStandardParallel1]) && written("Scale_Factor") == 1.0) {
        parameters[kStandardParallel1] = 0.0;
    }

    bool complete = consistent;
    for (const Rule* r = begin; r != end; ++r) {
        if (r->required && !_IsPresent(parameters[r->slot])) complete = false;
    }

    const auto present = [this](std::initializer_list<EParameterSlot> slots) {
        return std::all_of(slots.begin(), slots.end(),
                           [this](EParameterSlot s) { return _IsPresent(parameters[s]); });
    };
    switch (projectionType) {
        case CGxMapProjData::eLambert2SP:
            // Both parallels make the two-parallel form; a scale factor
            // instead of the second parallel makes the one-parallel form.
            if (!complete) break;
            if (present({kFalseNorthing, kCentralMeridian, kStandardParallel1, kStandardParallel2,
                         kLatitudeOfOrigin})) {
                break;
            }
            if (present({kFalseNorthing, kCentralMeridian, kLatitudeOfOrigin, kScaleFactor})) {
                projectionType = CGxMapProjData::eLambert1SP;
                break;
            }
            complete = false;
            break;
        case CGxMapProjData::eHotineObliqueMercator:
        case CGxMapProjData::eObliqueMercator:
            // Without a rectified grid angle the grid is aligned with the
            // initial line. A grid angle that differs from the azimuth turns
            // the grid against the initial line: the rectified skew
            // orthomorphic form with its own plane rotation, which counts
            // from the natural origin. EPSG's name of the centre form says
            // that its grid counts from the centre, which that form cannot
            // do: such a text is refused. (ESRI's and GDAL's centre name is
            // read as the skew form all the same.)
            parameters[kXYPlaneRotation] =
                GetParam(projectionText, "Rectified_Grid_Angle", parameters[kAzimuth]);
            if (complete && _AnglesDiffer(parameters[kAzimuth], parameters[kXYPlaneRotation])) {
                if (dialect == EDialect::kHotineCentre) {
                    complete = false;
                } else {
                    projectionType = CGxMapProjData::eRectifiedSkewOrthomorphic;
                }
            }
            break;
        default:
            break;
    }
    return complete;
}

void CGxPRJParser::_OrientKrovak(const std::string& wkt, const std::string& projectionText) {
    // The Krovak cone's own axes point south and west. A text that gives the
    // axis scales or the plane rotation says how its grid turns them; one
    // that gives none of the three leaves the orientation to what else it
    // writes. GDAL writes the east-north grid (EPSG:5514) with
    // AXIS[...,EAST],AXIS[...,NORTH] and the classic grid (EPSG:5513) with
    // AXIS[...,SOUTH],AXIS[...,WEST]: the AXIS elements state the grid's
    // directions. As for every projection, the library's Krovak then hands
    // out easting and northing and the axes order and sign them, so the
    // east-north grid is built and both texts land where their axes say.
    // Without AXIS elements the text means the classic southing-westing grid
    // (the cone's own axes, taken as they come), unless the system carries
    // ESRI's name of the east-north grid ("S-JTSK_Krovak_East_North"): some
    // writers drop the axis scales of such a system but keep its name.
    for (const char* name : {"X_Scale", "Y_Scale", "XY_Plane_Rotation"}) {
        if (_IsPresent(GetParam(projectionText, name, kGxUnset))) return;
    }
    const std::string direction = _Lower(axis1Direction);
    const bool axesWritten = projectionText.find("AXIS") != std::string::npos &&
                             (direction == "east" || direction == "north" || direction == "west" ||
                              direction == "south");
    const bool namedEastNorth = GetName(wkt, "PROJCS").find("_East_North") != std::string::npos;
    if (!axesWritten && !namedEastNorth) return;
    parameters[kXScale] = kKrovakNorthXScale;
    parameters[kYScale] = kKrovakNorthYScale;
    parameters[kXYPlaneRotation] = kKrovakNorthRotation;
}

bool CGxPRJParser::_ReadWebMercator(const std::string& wkt, EDialect dialect) {
    const bool oneParallel = projectionType == CGxMapProjData::eMercator1SP;
    if (projectionType != CGxMapProjData::eMercator2SP && !oneParallel) return true;

    // The web Mercator is the spherical Mercator on a sphere of the datum's
    // semi-major axis, while longitudes and latitudes stay those of the
    // datum's ellipsoid. The projection works on the sphere alone, so the
    // sphere takes the spheroid's place in the record.
    double radius = semiMajorAxis;
    if (dialect == EDialect::kPlain) {
        // Values as PROJ.4 strings state them: degrees, metres.
        const double r =
            (GxIsUnset(angularUnitFactor) ? kGxDegToRad : angularUnitFactor) / kGxDegToRad;
        const double u = GxIsUnset(projUnitFactor) ? 1.0 : projUnitFactor;
        const std::string proj4 = _Proj4Extension(wkt);
        if (!proj4.empty()) {
            // GDAL writes the PROJ.4 form next to a WKT that cannot say it,
            // and PROJ and GDAL read the grid from it. It is taken here for
            // its sphere only, and must agree with the WKT on everything else.
            if (proj4.find("+proj=merc") == std::string::npos) return false;
            const double a = _Proj4Number(proj4, "a", kGxUnset);
            const double b = _Proj4Number(proj4, "b", kGxUnset);
            radius = _Proj4Number(proj4, "R", kGxUnset);
            if (GxIsUnset(radius) && !GxIsUnset(a) && a == b) radius = a;
            if (GxIsUnset(radius)) return true;  // an ellipsoid: the WKT says it
            const double k = _Proj4Number(proj4, "k", _Proj4Number(proj4, "k_0", 1.0));
            const bool agrees =
                _SameWritten(parameters[kCentralMeridian] * r, _Proj4Number(proj4, "lon_0", 0.0)) &&
                _SameWritten(parameters[kFalseEasting] * u, _Proj4Number(proj4, "x_0", 0.0)) &&
                _SameWritten(parameters[kFalseNorthing] * u, _Proj4Number(proj4, "y_0", 0.0)) &&
                (oneParallel ? _SameWritten(parameters[kScaleFactor], k)
                             : _SameWritten(parameters[kStandardParallel1] * r,
                                            _Proj4Number(proj4, "lat_ts", 0.0)) &&
                                   _SameWritten(k, 1.0));
            if (!agrees) return false;
        } else if (_NamesWebMercator(GetName(wkt, "PROJCS"))) {
            // PROJ reads a system so named as the web Mercator whatever its
            // figure and parameters say. Only a text whose numbers are the
            // web Mercator's is read so; any other contradicts its name.
            const bool standard = parameters[kFalseEasting] == 0.0 &&
                                  parameters[kFalseNorthing] == 0.0 &&
                                  parameters[kCentralMeridian] == 0.0 &&
                                  (oneParallel ? parameters[kScaleFactor] == 1.0
                                               : parameters[kStandardParallel1] == 0.0) &&
                                  semiMajorAxis == kWebMercatorRadius;
            if (!standard) return false;
        } else {
            return true;
        }
    }
    semiMajorAxis = radius;
    inverseFlattening = 0.0;
    return true;
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
