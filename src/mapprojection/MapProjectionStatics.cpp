// The facade's statics on projection strings: classification, comparison,
// the built-in strings, zone names and the enumerations of the catalogues.

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>

#include "catalogue/CartSetup.h"
#include "catalogue/CatalogueLock.h"
#include "catalogue/MapProjectionBuffer.h"
#include "catalogue/PlatformFolders.h"
#include "catalogue/ProjectionScan.h"
#include "datum/DatumShift.h"
#include "foundation/Ellipsoid.h"
#include "foundation/GridNames.h"
#include "foundation/Projection.h"
#include "foundation/Text.h"
#include "foundation/Tolerance.h"
#include "mapprojection/CatalogueLookup.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"

namespace {

using EType = CGxMapProjData::EProjectionType;

const char* const kGenericUtm = "UTM";

// The enumerations answer at most this many recently used systems.
constexpr std::size_t kBufferedSystems = 10;

const char* const kGoogleMapsWkt =
    "PROJCS[\"Google Maps - Mercator\",GEOGCS[\"GCS_Google_Maps\",DATUM[\"D_Google_Maps\","
    "SPHEROID[\"Google Maps (Sphere)\",6378137,0]],PRIMEM[\"Greenwich\",0],"
    "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Mercator\"],"
    "PARAMETER[\"False_Easting\",0],PARAMETER[\"False_Northing\",0],"
    "PARAMETER[\"Central_Meridian\",0],PARAMETER[\"Standard_Parallel_1\",0],"
    "UNIT[\"Meter\",1]]";
const char* const kWgs84Wkt =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137,"
    "298.257223563]],PRIMEM[\"Greenwich\",0],UNIT[\"Degree\",0.017453292519943295]]";

// The type the WKT reader finds in a text; eInvalidProjection when it finds
// none.
EType ParsedType(const std::string& text) {
    if (!CGxPRJParser::IsPRJ(text)) return CGxMapProjData::eInvalidProjection;
    CGxPRJParser parser(text);
    parser.Parse(true);
    return parser.GetProjectionType();
}

bool FindsProjection(const std::string& text) {
    return ParsedType(text) != CGxMapProjData::eInvalidProjection;
}

bool FileExists(const std::string& path) {
    std::error_code ec;
    return std::filesystem::exists(path, ec);
}

}  // namespace

// ---------------------------------------------------------------- predicates

bool CGxMapProjection::IsLongLat(const char* s) {
    return GxTrimmed(s) == kGxLongLatString;
}

bool CGxMapProjection::IsLocal(const char* s) {
    return GxTrimmed(s) == kGxNonUtmString;
}

bool CGxMapProjection::IsValid(const char* s) {
    const std::string t = GxTrimmed(s);
    if (t.empty()) return false;
    if (FindsProjection(t)) return true;
    // A WKT text the reader cannot use is not taken for a catalogue name.
    if (t == kGenericUtm || CGxPRJParser::IsPRJ(t)) return false;
    if (t == kGxNonUtmString || t == kGxLongLatString) return true;
    return _Exists(t.c_str(), eAllSystems);
}

bool CGxMapProjection::IsGeoreferenced(const char* s) {
    return !IsLocal(s) && IsValid(s);
}

bool CGxMapProjection::IsGeographical(const char* s) {
    if (IsLongLat(s)) return true;
    const EType type = _NormalisedType(s);
    return type == CGxMapProjData::eRotatedLongitudeLatitude ||
           type == CGxMapProjData::eGeographical;
}

bool CGxMapProjection::HasDatum(const char* s) {
    const std::string t = GxTrimmed(s);
    if (FindsProjection(t)) return true;
    if (t == kGenericUtm || t == kGxNonUtmString || t == kGxLongLatString) return false;
    return _Exists(t.c_str(), eGeoreferencedSystems);
}

bool CGxMapProjection::IsType(int mask, const char* s) {
    const std::string t = GxTrimmed(s);
    if ((mask & eNonUtmString) && t == kGxNonUtmString) return true;
    if ((mask & eLongLatString) && t == kGxLongLatString) return true;
    if ((mask & eGeoreferencedSystems) == 0) return false;
    return CGxMapProjData::IsEquivalent(mask, _NormalisedType(t.c_str()));
}

bool CGxMapProjection::IsProjectionOfType(const char* s, CGxMapProjData::EProjectionType type) {
    return ParsedType(GxTrimmed(s)) == type;
}

bool CGxMapProjection::_Exists(const char* s, int mask) {
    const std::string t = GxTrimmed(s);
    return GxFindCatalogueSystem(t) != nullptr && IsType(mask, t.c_str());
}

EType CGxMapProjection::_NormalisedType(const char* s) {
    const std::string t = GxTrimmed(s);
    // The bare zone name resolves to nothing here: a predicate answers, it
    // does not throw.
    if (t == kGenericUtm) return CGxMapProjData::eInvalidProjection;
    // A WKT text is its own normalised string, and a special string is no
    // WKT: neither needs an object built.
    if (CGxPRJParser::IsPRJ(t)) return ParsedType(t);
    if (t == kGxNonUtmString || t == kGxLongLatString) return CGxMapProjData::eInvalidProjection;
    CGxMapProjection built;
    EType type = CGxMapProjData::eInvalidProjection;
    built._Resolve(t.c_str(), &type);
    return type;
}

CGxMapProjection::ECoordSysType CGxMapProjection::GetCoordSysType(const char* s) {
    if (GxTrimmed(s) == kGenericUtm) return CGxMapProjection().GetCoordSysType();
    return CGxMapProjection(s).GetCoordSysType();
}

bool CGxMapProjection::AreIdentical(const char* s1, const char* s2) {
    if (!IsValid(s1) || !IsValid(s2)) return false;
    const CGxMapProjection m1(s1), m2(s2);
    CGxPRJParser p1(m1.projectionString), p2(m2.projectionString);
    p1.Parse(true);
    p2.Parse(true);
    if (p1.GetProjectionType() != p2.GetProjectionType()) return false;

    bool identical = true;
    const int n = p1.GetNoOfParameters();
    for (int i = 0; i < n; ++i) {
        std::string name1, name2, unit1, unit2;
        double v1 = 0, v2 = 0, factor1 = 1, factor2 = 1;
        p1.GetParameter(i, name1, v1, unit1, factor1);
        p2.GetParameter(i, name2, v2, unit2, factor2);
        // Texts in different units are compared in the base unit (metres,
        // radians); in the same unit, as written.
        if (unit1 != unit2) {
            v1 *= factor1;
            v2 *= factor2;
        }
        if (name1 != name2 || !GxIsNear(v1, v2)) identical = false;
    }

    std::string meridianName;
    double meridian1 = kGxUnset, meridian2 = kGxUnset;
    p1.GetPrimeMeridian(meridianName, meridian1);
    p2.GetPrimeMeridian(meridianName, meridian2);
    if (!GxIsNear(meridian1, meridian2)) identical = false;

    // The figure by its numbers; an algorithm without one compares as the
    // default ellipsoid.
    CGxEllipsoid e1, e2;
    if (m1.projection) m1.projection->GetAnonymousEllipsoid(e1);
    if (m2.projection) m2.projection->GetAnonymousEllipsoid(e2);
    if (!e1.IsEquivalent(e2)) identical = false;

    CGxDatumShift shift1, shift2;
    p1.GetDatumShift(shift1);
    p2.GetDatumShift(shift2);
    if (shift1 != shift2) identical = false;

    for (CGxPRJParser::EAxisType axis : {CGxPRJParser::eFirstAxis, CGxPRJParser::eSecondAxis}) {
        std::string name1, name2, direction1, direction2;
        p1.GetAxisInfo(axis, name1, direction1);
        p2.GetAxisInfo(axis, name2, direction2);
        if (!GxEqualsIgnoringCase(direction1, direction2)) identical = false;
    }
    return identical;
}

// ------------------------------------------------------------- text results

const char* CGxMapProjection::IDtoProjectionString(int id) {
    switch (id) {
        case eNonUtm:
            return kGxNonUtmString;
        case eLongLat:
            return kGxLongLatString;
        case eGoogleMaps:
            return kGoogleMapsWkt;
        case eWgs84:
            return kWgs84Wkt;
        default:
            return "";
    }
}

const char* CGxMapProjection::LongitudeToUTMZone(double lon) {
    thread_local char buffer[32];
    buffer[0] = '\0';
    if (!std::isfinite(lon)) return buffer;
    // Zones are six degrees wide, zone 1 starting at 180 degrees west. A
    // longitude far outside the range still gets a number, just none that
    // names a catalogue system.
    double zone = std::floor(lon / 6.0) + 31.0;
    if (zone > INT_MAX) zone = INT_MAX;
    if (zone < INT_MIN) zone = INT_MIN;
    std::snprintf(buffer, sizeof buffer, "UTM-%d", static_cast<int>(zone));
    return buffer;
}

const char* CGxMapProjection::ShortName(const char* s) {
    thread_local std::string buffer;
    buffer = CGxPRJParser::ShortName(s ? s : "");
    return buffer.c_str();
}

const char* CGxMapProjection::EnumEllipsoids(CGxEllipsoidList::EEllipsoidTypes type, long* count) {
    thread_local std::string buffer;
    buffer.clear();
    long n = 0;
    CGxEllipsoidList& list = CGxCartSetup::Instance().GetEllipsoidList();
    for (auto it = list.GetIteratorBegin(type); it != list.GetIteratorEnd(type); ++it) {
        buffer += GxTrimmed((*it)->GetName());
        buffer += ';';
        ++n;
    }
    if (count) *count = n;
    return buffer.c_str();
}

const char* CGxMapProjection::EnumMapProjections(int mask, long* count) {
    thread_local std::string buffer;
    buffer.clear();
    long n = 0;
    CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    for (auto it = list.GetIteratorBegin(); it != list.GetIteratorEnd(); ++it) {
        if (!IsType(mask, (*it)->GetName().c_str())) continue;
        buffer += GxCatalogueEntryText(*it);
        buffer += ';';
        ++n;
    }
    if (count) *count = n;
    return buffer.c_str();
}

void CGxMapProjection::XEnumMapProjections(int mask, std::list<CGxMapProjectionInfo>* list,
                                           CGxProjReadNotifier* notifier) {
    if (!list) return;
    list->clear();
    CGxMapProjectionList& catalogue = CGxCartSetup::Instance().GetMapProjectionList();
    for (auto it = catalogue.GetIteratorBegin(); it != catalogue.GetIteratorEnd(); ++it) {
        if (!IsType(mask, (*it)->GetName().c_str())) continue;
        list->emplace_back(GxCatalogueEntryText(*it));
    }
    catalogue.AddProjections(mask, list, notifier);
}

const char* CGxMapProjection::XEnumMapProjectionsBuffer(int mask, const char* s, long* count) {
    thread_local std::string buffer;
    buffer.clear();

    const std::string userFolder = CGxCartSetup::Instance().GetUserPath();
    // Without a user folder there is no file to keep: the list lives for
    // this call only.
    const std::string path =
        userFolder.empty() ? std::string() : userFolder + CGxMapProjectionBuffer::kFileName;
    // Processes of the same user take turns with the list, so that none
    // writes back a list it read before another process's change.
    std::optional<GxCatalogueLock> turn;
    if (!path.empty() && GxEnsureFolder(userFolder)) turn.emplace(userFolder);
    if (!path.empty() && !FileExists(path)) CGxMapProjectionBuffer::CreateFile(path);

    std::string entry = s ? s : "";
    if (entry == kGenericUtm) entry.clear();
    if (!entry.empty() && !IsType(eSpecialStrings, entry.c_str()) &&
        CGxPRJParser::ShortName(entry) == entry) {
        // A catalogue name: the buffer keeps the system's WKT.
        CGxMapProjData* definition = MapProjection(entry);
        entry = definition ? GxCatalogueEntryText(definition) : std::string();
    }

    CGxBufferList lines;
    if (!path.empty()) CGxMapProjectionBuffer::ReadFile(path, &lines);

    if (!entry.empty() && IsType(mask, entry.c_str())) {
        bool changed = false;
        if (std::find(lines.begin(), lines.end(), entry) == lines.end()) {
            // An edited text of a system already listed takes its place.
            auto same = lines.FindMapProjection(entry);
            if (same != lines.end()) {
                *same = entry;
                changed = true;
            }
        }
        CGxBufferList shown = lines;
        shown.TruncateToSize(mask, kBufferedSystems);
        if (std::find(shown.begin(), shown.end(), entry) == shown.end()) {
            lines.push_front(entry);
            changed = true;
        }
        if (changed && !path.empty()) CGxMapProjectionBuffer::WriteFile(path, &lines);
    }

    long n = 0;
    for (const std::string& line : lines) {
        if (static_cast<std::size_t>(n) >= kBufferedSystems) break;
        if (!IsType(mask, line.c_str())) continue;
        buffer += line;
        buffer += ';';
        ++n;
    }
    if (count) *count = n;
    return buffer.c_str();
}
