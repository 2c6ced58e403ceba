#include "wkt/WktReadRules.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>

#include "foundation/NumberText.h"
#include "foundation/Text.h"

namespace {

using P = EGxWktParameter;
using D = CGxPRJParser::EDialect;

bool _IsPresent(double v) {
    return !GxIsUnset(v);
}

bool _AllPresent(const CGxPRJParser& record, std::initializer_list<P> slots) {
    return std::all_of(slots.begin(), slots.end(),
                       [&record](P s) { return _IsPresent(record.GetWktParameter(s)); });
}

// A value the text may leave out but, when it writes it, must give as the
// projection name implies.
bool _AbsentOr(const GxWktReading& reading, const char* name, double implied) {
    const double v = reading.Written(name);
    return GxIsUnset(v) || v == implied;
}

// Whether the rectified grid angle of an oblique Mercator text differs from
// its azimuth. Angles that cannot be compared (NaN, infinite) never make a
// difference: the text then keeps the type it names.
bool _AnglesDiffer(double a, double b) {
    return std::isfinite(a) && std::isfinite(b) && !GxIsNear(a, b);
}

bool _IsLayout(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
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
    for (char c : GxAsciiLowered(name)) {
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) key += c;
    }
    const std::string wgs1984 = "wgs1984";
    if (key.compare(0, wgs1984.size(), wgs1984) == 0) key = "wgs84" + key.substr(wgs1984.size());
    return key == "wgs84pseudomercator" || key == "wgs84webmercator";
}

// Semi-major axis of the web Mercator's sphere (WGS 84).
constexpr double kWebMercatorRadius = 6378137.0;

}  // namespace

bool GxWktReading::Complete() const {
    for (int i = 0; i < ruleCount; ++i) {
        if (rules[i].required && !_IsPresent(record.GetWktParameter(rules[i].slot))) return false;
    }
    return true;
}

double GxWktReading::Written(const char* name) const {
    return CGxPRJParser::GetParam(projectionText, name, kGxUnset);
}

bool GxLambertFormOfParameters(GxWktReading& reading) {
    if (!reading.Complete()) return false;
    CGxPRJParser& record = reading.record;
    if (_AllPresent(record, {P::eFalseNorthing, P::eCentralMeridian, P::eStandardParallel1,
                             P::eStandardParallel2, P::eLatitudeOfOrigin})) {
        return true;
    }
    if (_AllPresent(record, {P::eFalseNorthing, P::eCentralMeridian, P::eLatitudeOfOrigin,
                             P::eScaleFactor})) {
        record.SetProjectionType(CGxMapProjData::eLambert1SP);
        return true;
    }
    return false;
}

bool GxHotineGridOfAngle(GxWktReading& reading) {
    // Without a rectified grid angle the grid is aligned with the initial
    // line. A grid angle that differs from the azimuth turns the grid against
    // the initial line: the rectified skew orthomorphic form with its own
    // plane rotation, which counts from the natural origin. EPSG's name of
    // the centre form says that its grid counts from the centre, which that
    // form cannot do: such a text is refused. (ESRI's and GDAL's centre name
    // is read as the skew form all the same.)
    CGxPRJParser& record = reading.record;
    record.SetXYPlaneRotation(CGxPRJParser::GetParam(reading.projectionText, "Rectified_Grid_Angle",
                                                     record.GetAzimuth()));
    bool complete = reading.Complete();
    if (complete && _AnglesDiffer(record.GetAzimuth(), record.GetXYPlaneRotation())) {
        if (reading.dialect == D::kHotineCentre) {
            complete = false;
        } else {
            record.SetProjectionType(CGxMapProjData::eRectifiedSkewOrthomorphic);
        }
    }
    return complete;
}

bool GxMercatorParallelOfScale(GxWktReading& reading) {
    CGxPRJParser& record = reading.record;
    bool consistent = true;
    switch (reading.dialect) {
        case D::kEpsgWebMercator:
            // The method is true to scale on the equator; a text that gives
            // another scale or parallel is read differently by different
            // software and is refused rather than guessed.
            consistent = _AbsentOr(reading, "Standard_Parallel_1", 0.0) &&
                         _AbsentOr(reading, "Latitude_Of_Origin", 0.0) &&
                         _AbsentOr(reading, "Scale_Factor", 1.0);
            record.SetStandardParallel1(0.0);
            break;
        case D::kEsriWebMercator:
            // Auxiliary sphere type 0 is the sphere of the semi-major axis,
            // the only one PROJ and GDAL read; 1 to 3 (semi-minor axis,
            // authalic radius, authalic latitudes) are refused.
            consistent = record.GetStandardParallel1() == 0.0 &&
                         _AbsentOr(reading, "Auxiliary_Sphere_Type", 0.0);
            break;
        case D::kPlain:
            // The two-parallel Mercator names its scale by a standard
            // parallel. A text that gives instead a scale of exactly 1 states
            // the same grid (true to scale on the equator, parallel 0), as
            // some writers do under ESRI's plain "Mercator"; any other scale
            // is read differently by different software and stays a missing
            // parallel.
            if (!_IsPresent(record.GetStandardParallel1()) &&
                reading.Written("Scale_Factor") == 1.0) {
                record.SetStandardParallel1(0.0);
            }
            break;
        default:
            break;
    }
    return consistent && reading.Complete();
}

bool GxStereographicPoleOfParallel(GxWktReading& reading) {
    // EPSG's variant B names no pole: the standard parallel's hemisphere is
    // the pole's.
    if (reading.dialect == D::kPolarStereographicB && reading.record.GetStandardParallel1() < 0.0)
        reading.record.SetProjectionType(CGxMapProjData::eStereographicSouthPole);
    return reading.Complete();
}

bool GxKrovakNorthFixed(GxWktReading& reading) {
    const CGxPRJParser& record = reading.record;
    const bool consistent =
        reading.dialect != D::kKrovakNorth ||
        (record.GetXScale() == kGxKrovakNorthXScale && record.GetYScale() == kGxKrovakNorthYScale &&
         record.GetXYPlaneRotation() == kGxKrovakNorthRotation);
    return consistent && reading.Complete();
}

bool GxWebMercatorSphere(GxWktReading& reading) {
    CGxPRJParser& record = reading.record;
    const bool oneParallel = record.GetProjectionType() == CGxMapProjData::eMercator1SP;

    // The web Mercator is the spherical Mercator on a sphere of the datum's
    // semi-major axis, while longitudes and latitudes stay those of the
    // datum's ellipsoid. The projection works on the sphere alone, so the
    // sphere takes the spheroid's place in the record.
    std::string spheroidName;
    double semiMajorAxis = kGxUnset;
    double inverseFlattening = kGxUnset;
    record.GetEllipsoid(spheroidName, semiMajorAxis, inverseFlattening);
    double radius = semiMajorAxis;
    if (reading.dialect == D::kPlain) {
        std::string unitName;
        double angularUnitFactor = kGxUnset;
        double projUnitFactor = kGxUnset;
        record.GetAngularUnit(unitName, angularUnitFactor);
        record.GetProjUnit(unitName, projUnitFactor);
        const double centralMeridian = record.GetCentralMeridian();
        const double falseEasting = record.GetFalseEasting();
        const double falseNorthing = record.GetFalseNorthing();
        const double scaleFactor = record.GetScaleFactor();
        const double standardParallel1 = record.GetStandardParallel1();

        // Values as PROJ.4 strings state them: degrees, metres.
        const double r =
            (GxIsUnset(angularUnitFactor) ? kGxDegToRad : angularUnitFactor) / kGxDegToRad;
        const double u = GxIsUnset(projUnitFactor) ? 1.0 : projUnitFactor;
        const std::string proj4 = _Proj4Extension(reading.wkt);
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
                _SameWritten(centralMeridian * r, _Proj4Number(proj4, "lon_0", 0.0)) &&
                _SameWritten(falseEasting * u, _Proj4Number(proj4, "x_0", 0.0)) &&
                _SameWritten(falseNorthing * u, _Proj4Number(proj4, "y_0", 0.0)) &&
                (oneParallel
                     ? _SameWritten(scaleFactor, k)
                     : _SameWritten(standardParallel1 * r, _Proj4Number(proj4, "lat_ts", 0.0)) &&
                           _SameWritten(k, 1.0));
            if (!agrees) return false;
        } else if (_NamesWebMercator(CGxPRJParser::GetName(reading.wkt, "PROJCS"))) {
            // PROJ reads a system so named as the web Mercator whatever its
            // figure and parameters say. Only a text whose numbers are the
            // web Mercator's is read so; any other contradicts its name.
            const bool standard = falseEasting == 0.0 && falseNorthing == 0.0 &&
                                  centralMeridian == 0.0 &&
                                  (oneParallel ? scaleFactor == 1.0 : standardParallel1 == 0.0) &&
                                  semiMajorAxis == kWebMercatorRadius;
            if (!standard) return false;
        } else {
            return true;
        }
    }
    record.SetEllipsoid(spheroidName, radius, 0.0);
    return true;
}

bool GxKrovakOrientationOfAxes(GxWktReading& reading) {
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
    // writers drop the axis scales of such a system but keep its name. The
    // east-north name of EPSG fixes the three values itself.
    if (reading.dialect != D::kPlain) return true;
    for (const char* name : {"X_Scale", "Y_Scale", "XY_Plane_Rotation"}) {
        if (_IsPresent(reading.Written(name))) return true;
    }
    CGxPRJParser& record = reading.record;
    std::string axisName;
    std::string axisDirection;
    record.GetAxisInfo(CGxPRJParser::eFirstAxis, axisName, axisDirection);
    const std::string direction = GxAsciiLowered(axisDirection);
    const bool axesWritten = reading.projectionText.find("AXIS") != std::string::npos &&
                             (direction == "east" || direction == "north" || direction == "west" ||
                              direction == "south");
    const bool namedEastNorth =
        CGxPRJParser::GetName(reading.wkt, "PROJCS").find("_East_North") != std::string::npos;
    if (!axesWritten && !namedEastNorth) return true;
    record.SetXScale(kGxKrovakNorthXScale);
    record.SetYScale(kGxKrovakNorthYScale);
    record.SetXYPlaneRotation(kGxKrovakNorthRotation);
    return true;
}
