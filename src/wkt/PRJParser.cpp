#include "wkt/PRJParser.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "projections/ProjectionSupport.h"
#include "wkt/WktTokenizer.h"

namespace {

using EType = CGxMapProjData::EProjectionType;

// Delimiter sets of the token cutter: a quoted name inside brackets, a value
// ending at the element's close or the next comma, and a comma-separated
// list.
constexpr const char kNameDelimiters[] = "[]\"";
constexpr const char kValueDelimiters[] = "],";
constexpr const char kListDelimiters[] = ",";

// Deepest indentation of the readable form. Real texts nest a handful of
// levels; the cap keeps the output of a hostile, deeply nested text linear in
// its length instead of quadratic.
constexpr int kMaxIndentLevels = 16;

// WKT projection names that GIS software writes for the types the library
// has, lower-case. The south-orientated and "complex" Transverse Mercator
// names are read as the plain projection: the south orientation is a matter
// of axis signs, which the text's AXIS elements carry. Plain "Mercator" is
// the form with a standard parallel; plain "Lambert_Conformal_Conic" starts
// as the two-parallel form and becomes the one-parallel form when its
// parameters say so.
struct GxProjectionNameEntry {
    const char* name;
    EType type;
};
constexpr GxProjectionNameEntry kProjectionNames[] = {
    {"transverse_mercator", CGxMapProjData::eTransverseMercator},
    {"transverse_mercator_complex", CGxMapProjData::eTransverseMercator},
    {"transverse_mercator_south_orientated", CGxMapProjData::eTransverseMercator},
    {"gauss_kruger", CGxMapProjData::eTransverseMercator},
    {"lambert_conformal_conic", CGxMapProjData::eLambert2SP},
    {"lambert_conformal_conic_2sp", CGxMapProjData::eLambert2SP},
    {"lambert_conformal_conic_1sp", CGxMapProjData::eLambert1SP},
    {"stereographic", CGxMapProjData::eStereographic},
    {"double_stereographic", CGxMapProjData::eStereographic},
    {"oblique_stereographic", CGxMapProjData::eStereographic},
    {"new_zealand_map_grid", CGxMapProjData::eNewZealandMapGrid},
    {"hotine_oblique_mercator_azimuth_natural_origin", CGxMapProjData::eHotineObliqueMercator},
    {"hotine_oblique_mercator", CGxMapProjData::eHotineObliqueMercator},
    {"hotine_oblique_mercator_azimuth_center", CGxMapProjData::eObliqueMercator},
    {"rectified_skew_orthomorphic_natural_origin", CGxMapProjData::eRectifiedSkewOrthomorphic},
    {"rotated_longitude_latitude", CGxMapProjData::eRotatedLongitudeLatitude},
    {"mercator", CGxMapProjData::eMercator2SP},
    {"mercator_2sp", CGxMapProjData::eMercator2SP},
    {"mercator_1sp", CGxMapProjData::eMercator1SP},
    {"stereographic_north_pole", CGxMapProjData::eStereographicNorthPole},
    {"stereographic_south_pole", CGxMapProjData::eStereographicSouthPole},
    {"geographical", CGxMapProjData::eGeographical},
    {"krovak", CGxMapProjData::eKrovak},
    {"albers", CGxMapProjData::eAlbersEqualArea},
    {"albers_conic_equal_area", CGxMapProjData::eAlbersEqualArea},
    {"lambert_azimuthal_equal_area", CGxMapProjData::eLambertAzimuthalEqualArea},
    {"cassini", CGxMapProjData::eCassiniSoldner},
    {"cassini_soldner", CGxMapProjData::eCassiniSoldner},
    {"equidistant_conic", CGxMapProjData::eEquidistantConic},
    {"polar_stereographic", CGxMapProjData::ePolarStereographic},
    {"non_projected", CGxMapProjData::eNonProjected},
};

// ASCII lower case, the same in every locale.
std::string _Lower(std::string s) {
    for (char& c : s) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return s;
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
    for (const GxProjectionNameEntry& e : kProjectionNames) nameTable.emplace(e.name, e.type);
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

    projCSname = ShortName(text);
    geoCSname = GetName(text, "GEOGCS");
    datumName = GetName(text, "DATUM");
    if (projCSname.empty()) projCSname = geoCSname;

    std::size_t at = text.find("SPHEROID");
    if (at != std::string::npos) {
        CGxWktTokenizer tokens(text, at);
        tokens.Next(kNameDelimiters);
        spheroidName = tokens.Next(kNameDelimiters);
        semiMajorAxis = GxParseNumber(tokens.Next(kListDelimiters));
        inverseFlattening = GxParseNumber(tokens.Next(kValueDelimiters));
    }

    // Always seven comma-separated fields, as the seven-parameter form has:
    // a three-value element lends its last places from the text after it.
    at = text.find("TOWGS84");
    if (at != std::string::npos) {
        CGxWktTokenizer tokens(text, at);
        tokens.Next(kNameDelimiters);
        double values[CGxDatumShift::kParameterCount];
        for (double& v : values) v = GxParseNumber(tokens.Next(kListDelimiters));
        datumShift.SetParameters(values);
    }

    GetNameParam(text, "PRIMEM", primeMeridianName, primeMeridian);

    // The first UNIT belongs to the geographic system; the linear unit of a
    // projected system is the next one after it.
    const std::string afterAngularUnit =
        GetNameParam(text, "UNIT", angularUnitName, angularUnitFactor);
    if (GxIsUnset(angularUnitFactor)) {
        projectionType = CGxMapProjData::eInvalidProjection;
        return false;
    }

    at = text.find("PROJECTION");
    if (at == std::string::npos) {
        projectionType = CGxMapProjData::eGeographical;
        projectionTypeName = "Geographical";
        axis1Name = "Longitude";
        axis2Name = "Latitude";
        return true;
    }

    const std::string projectionText = text.substr(at);
    CGxWktTokenizer tokens(projectionText);
    tokens.Next(kNameDelimiters);
    const std::string name = tokens.Next(kNameDelimiters);
    const auto entry = nameTable.find(_Lower(name));
    if (entry == nameTable.end()) {
        projectionType = CGxMapProjData::eInvalidProjection;
        return false;
    }
    projectionType = entry->second;
    projectionTypeName = name;

    // A missing parameter fails the text, but the units and axes are still
    // read so that a caller sees as much of the system as the text gives.
    if (!_ReadParameters(projectionText)) projectionType = CGxMapProjData::eInvalidProjection;

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

    const std::string afterAxis1 = GetNameParam(projectionText, "AXIS", axis1Name, axis1Direction);
    GetNameParam(afterAxis1, "AXIS", axis2Name, axis2Direction);

    // A trial build writes back what the algorithm derives (the scale of a
    // standard parallel, the parallel of a one-parallel Mercator), so that
    // the record describes both forms. A geographic system derives nothing.
    if (projectionType != CGxMapProjData::eInvalidProjection)
        CGxProjection::Release(CreateMapProjection());
    return projectionType != CGxMapProjData::eInvalidProjection;
}

bool CGxPRJParser::_ReadParameters(const std::string& projectionText) {
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
        case CGxMapProjData::eStereographicNorthPole:
        case CGxMapProjData::eStereographicSouthPole:
            use(kStandardParallel);
            break;
        case CGxMapProjData::eMercator1SP:
            use(kMercatorScale);
            break;
        case CGxMapProjData::eKrovak:
            use(kKrovak);
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

    bool complete = true;
    for (const Rule* r = begin; r != end; ++r) {
        std::list<std::string> names{r->name};
        if (r->alias) names.emplace_back(r->alias);
        parameters[r->slot] = GetParam(projectionText, names, r->fallback);
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
            // orthomorphic form with its own plane rotation.
            parameters[kXYPlaneRotation] =
                GetParam(projectionText, "Rectified_Grid_Angle", parameters[kAzimuth]);
            if (complete && _AnglesDiffer(parameters[kAzimuth], parameters[kXYPlaneRotation])) {
                projectionType = CGxMapProjData::eRectifiedSkewOrthomorphic;
            }
            break;
        default:
            break;
    }
    return complete;
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
