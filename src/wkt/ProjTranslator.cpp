#include "wkt/ProjTranslator.h"

#include <fstream>
#include <memory>
#include <stdexcept>

#include "datum/DatumShift.h"
#include "definitions/MapProjData.h"
#include "foundation/Ellipsoid.h"
#include "foundation/NumberText.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"

namespace {

using EType = CGxMapProjData::EProjectionType;
using Getter = double (CGxPRJParser::*)() const;

// How a parameter of the parsed text becomes a PROJ.4 value.
enum class EKind {
    kAngle,         // in the text's angular unit, written in degrees
    kLongitude,     // an angle, then the prime meridian added
    kScale,         // as written
    kLength,        // in the text's linear unit, written in metres
    kPoleOfOrigin,  // 90 or -90 by the sign of the value (the pole the grid is on)
    kFixed,         // the item's fixed value
};

struct GxProj4Item {
    const char* key;
    Getter get;
    EKind kind;
    double fixed;
};

// The items of one projection type, after its "+proj=".
struct GxProj4Layout {
    const char* proj;
    const GxProj4Item* items;
    int count;
};

constexpr GxProj4Item kLatOrigin = {"+lat_0=", &CGxPRJParser::GetLatitudeOfOrigin, EKind::kAngle,
                                    0};
constexpr GxProj4Item kCentralMeridian = {"+lon_0=", &CGxPRJParser::GetCentralMeridian,
                                          EKind::kLongitude, 0};
constexpr GxProj4Item kScale = {"+k=", &CGxPRJParser::GetScaleFactor, EKind::kScale, 0};
constexpr GxProj4Item kFalseEasting = {"+x_0=", &CGxPRJParser::GetFalseEasting, EKind::kLength, 0};
constexpr GxProj4Item kFalseNorthing = {"+y_0=", &CGxPRJParser::GetFalseNorthing, EKind::kLength,
                                        0};
constexpr GxProj4Item kParallel1 = {"+lat_1=", &CGxPRJParser::GetStandardParallel1, EKind::kAngle,
                                    0};
constexpr GxProj4Item kParallel2 = {"+lat_2=", &CGxPRJParser::GetStandardParallel2, EKind::kAngle,
                                    0};
constexpr GxProj4Item kTrueScaleParallel = {"+lat_ts=", &CGxPRJParser::GetStandardParallel1,
                                            EKind::kAngle, 0};
constexpr GxProj4Item kLatCentre = {"+lat_0=", &CGxPRJParser::GetLatitudeOfCenter, EKind::kAngle,
                                    0};
constexpr GxProj4Item kLonCentre = {"+lon_0=", &CGxPRJParser::GetLongitudeOfCenter,
                                    EKind::kLongitude, 0};
constexpr GxProj4Item kAzimuth = {"+alpha=", &CGxPRJParser::GetAzimuth, EKind::kAngle, 0};
constexpr GxProj4Item kGridAngle = {"+gamma=", &CGxPRJParser::GetXYPlaneRotation, EKind::kAngle, 0};

// Origin latitude, central meridian, scale, false origin: Transverse
// Mercator and the stereographics.
constexpr GxProj4Item kOriginScale[] = {kLatOrigin, kCentralMeridian, kScale, kFalseEasting,
                                        kFalseNorthing};
// The one-parallel Lambert cone: its parallel is the latitude of origin,
// which is written twice.
constexpr GxProj4Item kOneParallelCone[] = {
    {"+lat_1=", &CGxPRJParser::GetLatitudeOfOrigin, EKind::kAngle, 0},
    kLatOrigin,
    kCentralMeridian,
    kScale,
    kFalseEasting,
    kFalseNorthing};
// Two standard parallels: Lambert, Albers, equidistant conic.
constexpr GxProj4Item kTwoParallels[] = {kParallel1,       kParallel2,    kLatOrigin,
                                         kCentralMeridian, kFalseEasting, kFalseNorthing};
// Origin without scale: New Zealand map grid, Lambert azimuthal, Cassini.
constexpr GxProj4Item kOrigin[] = {kLatOrigin, kCentralMeridian, kFalseEasting, kFalseNorthing};
// The Hotine forms and Krovak: centre, azimuth of the central line, scale.
constexpr GxProj4Item kCentreAzimuth[] = {kLatCentre, kLonCentre,    kAzimuth,
                                          kScale,     kFalseEasting, kFalseNorthing};
constexpr GxProj4Item kCentreAzimuthGrid[] = {kLatCentre, kLonCentre,    kAzimuth,      kGridAngle,
                                              kScale,     kFalseEasting, kFalseNorthing};
constexpr GxProj4Item kCylinder[] = {kTrueScaleParallel, kCentralMeridian, kScale, kFalseEasting,
                                     kFalseNorthing};
constexpr GxProj4Item kNorthPole[] = {{"+lat_0=", nullptr, EKind::kFixed, 90.0},
                                      kTrueScaleParallel,
                                      kCentralMeridian,
                                      kScale,
                                      kFalseEasting,
                                      kFalseNorthing};
constexpr GxProj4Item kSouthPole[] = {{"+lat_0=", nullptr, EKind::kFixed, -90.0},
                                      kTrueScaleParallel,
                                      kCentralMeridian,
                                      kScale,
                                      kFalseEasting,
                                      kFalseNorthing};
// The polar stereographic named by its latitude of origin, which is both the
// pole's side and the parallel of true scale.
constexpr GxProj4Item kPolar[] = {
    {"+lat_0=", &CGxPRJParser::GetLatitudeOfOrigin, EKind::kPoleOfOrigin, 0},
    {"+lat_ts=", &CGxPRJParser::GetLatitudeOfOrigin, EKind::kAngle, 0},
    kCentralMeridian,
    kScale,
    kFalseEasting,
    kFalseNorthing};

template <int N>
constexpr GxProj4Layout _Layout(const char* proj, const GxProj4Item (&items)[N]) {
    return {proj, items, N};
}

// The layout of a type; null for the types without projection items (the
// plane system and anything unknown). The stereographic's name is chosen by
// the caller.
const GxProj4Layout* _LayoutOf(EType type) {
    static constexpr GxProj4Layout kTransverseMercator = _Layout("+proj=tmerc ", kOriginScale);
    static constexpr GxProj4Layout kLambert2 = _Layout("+proj=lcc ", kTwoParallels);
    static constexpr GxProj4Layout kLambert1 = _Layout("+proj=lcc ", kOneParallelCone);
    static constexpr GxProj4Layout kStereographic = _Layout("+proj=stere ", kOriginScale);
    static constexpr GxProj4Layout kNewZealand = _Layout("+proj=nzmg ", kOrigin);
    static constexpr GxProj4Layout kHotine = _Layout("+proj=omerc ", kCentreAzimuth);
    static constexpr GxProj4Layout kSkew = _Layout("+proj=omerc ", kCentreAzimuthGrid);
    static constexpr GxProj4Layout kMercator = _Layout("+proj=merc ", kCylinder);
    static constexpr GxProj4Layout kNorth = _Layout("+proj=stere ", kNorthPole);
    static constexpr GxProj4Layout kSouth = _Layout("+proj=stere ", kSouthPole);
    static constexpr GxProj4Layout kLongLat = {"+proj=longlat ", nullptr, 0};
    static constexpr GxProj4Layout kKrovak = _Layout("+proj=krovak ", kCentreAzimuth);
    static constexpr GxProj4Layout kAlbers = _Layout("+proj=aea ", kTwoParallels);
    static constexpr GxProj4Layout kAzimuthal = _Layout("+proj=laea ", kOrigin);
    static constexpr GxProj4Layout kCassini = _Layout("+proj=cass ", kOrigin);
    static constexpr GxProj4Layout kEquidistant = _Layout("+proj=eqdc ", kTwoParallels);
    static constexpr GxProj4Layout kPolarStereographic = _Layout("+proj=stere ", kPolar);
    switch (type) {
        case CGxMapProjData::eTransverseMercator:
            return &kTransverseMercator;
        case CGxMapProjData::eLambert2SP:
            return &kLambert2;
        case CGxMapProjData::eLambert1SP:
            return &kLambert1;
        case CGxMapProjData::eStereographic:
            return &kStereographic;
        case CGxMapProjData::eNewZealandMapGrid:
            return &kNewZealand;
        case CGxMapProjData::eHotineObliqueMercator:
        case CGxMapProjData::eObliqueMercator:
            return &kHotine;
        case CGxMapProjData::eRectifiedSkewOrthomorphic:
            return &kSkew;
        case CGxMapProjData::eMercator2SP:
        case CGxMapProjData::eMercator1SP:
            return &kMercator;
        case CGxMapProjData::eStereographicNorthPole:
            return &kNorth;
        case CGxMapProjData::eStereographicSouthPole:
            return &kSouth;
        case CGxMapProjData::eGeographical:
            return &kLongLat;
        case CGxMapProjData::eKrovak:
            return &kKrovak;
        case CGxMapProjData::eAlbersEqualArea:
            return &kAlbers;
        case CGxMapProjData::eLambertAzimuthalEqualArea:
            return &kAzimuthal;
        case CGxMapProjData::eCassiniSoldner:
            return &kCassini;
        case CGxMapProjData::eEquidistantConic:
            return &kEquidistant;
        case CGxMapProjData::ePolarStereographic:
            return &kPolarStereographic;
        default:
            return nullptr;
    }
}

void _AppendItem(std::string& out, const char* key, double value) {
    out += key;
    out += GxFormatNumber(value);
    out += ' ';
}

const char* const kUndefined = "+proj=undef ";

}  // namespace

std::string CGxProjTranslator::Convert2Proj4(const std::string& projectionString,
                                             double* const towgs84, int count) {
    // The bare "UTM" names no zone: no system, so no text.
    std::unique_ptr<CGxMapProjection> system;
    try {
        system.reset(new CGxMapProjection(projectionString));
    } catch (const std::out_of_range&) {
        return std::string();
    }

    // The normalised string is WKT for every georeferenced system (a
    // catalogue name has been written out); parsing it also completes the
    // parameter a Mercator or polar text may leave to the other form (the
    // parallel of a scale, or the scale of a parallel).
    CGxPRJParser parser(system->GetProjectionString());
    parser.Parse(false);
    const EType type = parser.GetProjectionType();

    std::string linearUnit;
    double u = kGxUnset;
    parser.GetProjUnit(linearUnit, u);
    std::string angularUnit;
    double angularFactor = kGxUnset;
    parser.GetAngularUnit(angularUnit, angularFactor);
    std::string primeMeridian;
    double pm = kGxUnset;
    parser.GetPrimeMeridian(primeMeridian, pm);
    // A text without PRIMEM lies on Greenwich, as when its grid is built.
    if (GxIsUnset(pm)) pm = 0.0;
    // Degrees per angular unit.
    const double r = angularFactor * 180.0 / 3.141592653589793;

    const CGxProjection* algorithm = system->GetProjection();
    if (!algorithm) return std::string();
    // An algorithm without figure leaves the default one (a = 1, b = 0) to
    // be written.
    CGxEllipsoid ellipsoid;
    algorithm->GetAnonymousEllipsoid(ellipsoid);

    if (type == CGxMapProjData::eRotatedLongitudeLatitude ||
        type == CGxMapProjData::eInvalidProjection)
        return kUndefined;

    std::string out;
    out.reserve(256);
    if (const GxProj4Layout* layout = _LayoutOf(type)) {
        const std::string name = parser.GetProjectionTypeName();
        // The double (oblique) stereographic by its ESRI, GDAL and EPSG
        // names; PROJ's sterea is that projection.
        const bool oblique = name == "Double_Stereographic" || name == "Oblique_Stereographic" ||
                             name == "Oblique Stereographic";
        out += type == CGxMapProjData::eStereographic && oblique ? "+proj=sterea " : layout->proj;
        for (int i = 0; i < layout->count; ++i) {
            const GxProj4Item& item = layout->items[i];
            const double written = item.get ? (parser.*item.get)() : item.fixed;
            double value = written;
            switch (item.kind) {
                case EKind::kAngle:
                    value = written * r;
                    break;
                case EKind::kLongitude:
                    value = written * r + pm;
                    break;
                case EKind::kLength:
                    value = written * u;
                    break;
                case EKind::kPoleOfOrigin:
                    value = written < 0.0 ? -90.0 : 90.0;
                    break;
                case EKind::kScale:
                case EKind::kFixed:
                    break;
            }
            _AppendItem(out, item.key, value);
        }
    }

    _AppendItem(out, "+a=", ellipsoid.GetMajor());
    _AppendItem(out, "+b=", ellipsoid.GetMinor());

    constexpr int kShiftValues = CGxDatumShift::kParameterCount;
    if (towgs84 && count >= 1) {
        out += "+towgs84=";
        out += GxFormatNumber(towgs84[0]);
        for (int i = 1; i < kShiftValues; ++i) {
            out += ',';
            out += GxFormatNumber(i < count ? towgs84[i] : 0.0);
        }
        out += ' ';
    } else {
        CGxDatumShift shift;
        parser.GetDatumShift(shift);
        if (shift.GetType() != CGxCartDef::eNoDatumShift) {
            out += "+towgs84=";
            out += GxFormatNumber(shift[0]);
            for (int i = 1; i < kShiftValues; ++i) {
                out += ',';
                out += GxFormatNumber(shift[i]);
            }
            out += ' ';
        }
    }

    if (!GxIsUnset(u)) {
        if (u == 1.0)
            out += "+units=m ";
        else
            _AppendItem(out, "+to_meter=", u);
    }
    out += "+no_defs  no_defs <>";
    return out;
}

std::string CGxProjTranslator::ConvertPRJFile2Proj4(const std::string& path, double* const towgs84,
                                                    int count) {
    std::string line;
    std::ifstream file(path);
    if (file && std::getline(file, line)) {
        // A file written with DOS line ends keeps its carriage return here,
        // which a text-mode read would have dropped.
        if (!line.empty() && line.back() == '\r') line.pop_back();
    } else {
        line.clear();
    }
    return Convert2Proj4(line, towgs84, count);
}
