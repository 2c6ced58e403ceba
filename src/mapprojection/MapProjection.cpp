// The map projection facade: resolving a projection string to an algorithm,
// the axis rules around every conversion, geodesics and geocentric
// coordinates on the system's ellipsoid.

#include "mapprojection/MapProjection.h"

#include <cmath>
#include <stdexcept>
#include <utility>

#include "datum/DatumShift.h"
#include "datum/Vincenty.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Geocentric.h"
#include "foundation/GridNames.h"
#include "foundation/Projection.h"
#include "foundation/Text.h"
#include "foundation/Tolerance.h"
#include "mapprojection/CatalogueLookup.h"
#include "mapprojection/PointArrays.h"
#include "wkt/PRJParser.h"

namespace {

using EType = CGxMapProjData::EProjectionType;

// A zone name without zone number: a system cannot be chosen from it.
const char* const kGenericUtm = "UTM";

// The figure geodesics fall back to for a geographical system that names no
// ellipsoid (a bare "LONG/LAT").
constexpr double kWgs84Major = 6378137.0;
constexpr double kWgs84InverseFlattening = 298.257223563;

bool IsSpecialString(const std::string& trimmed) {
    return trimmed == kGxNonUtmString || trimmed == kGxLongLatString;
}

}  // namespace

// ------------------------------------------------------------- construction

CGxProjection* CGxMapProjection::AlgorithmCopies::Copy(const CGxProjection& algorithm) {
    return algorithm.Clone();
}

void CGxMapProjection::AlgorithmCopies::Release(CGxProjection* algorithm) {
    algorithm->free();
}

CGxMapProjection::CGxMapProjection() = default;

CGxMapProjection::CGxMapProjection(const char* projectionString_) {
    _Resolve(projectionString_, nullptr);
}

CGxMapProjection::CGxMapProjection(const std::string& projectionString_) {
    _Resolve(projectionString_.c_str(), nullptr);
}

// The algorithm is cloned first; the copy of the string comes last, as it
// always did.
CGxMapProjection::CGxMapProjection(const CGxMapProjection& other) = default;
CGxMapProjection& CGxMapProjection::operator=(const CGxMapProjection& other) = default;
CGxMapProjection::~CGxMapProjection() = default;

void CGxMapProjection::_Resolve(const char* s, EType* normalisedType) {
    const std::string input = s ? s : "";
    const std::string trimmed = GxTrimmed(input);
    EType wktType = CGxMapProjData::eInvalidProjection;
    projection.reset(_GetProjection(trimmed, &info, &wktType));
    if (normalisedType) *normalisedType = CGxMapProjData::eInvalidProjection;
    if (!projection) return;

    if (CGxPRJParser::IsPRJ(input)) {
        // The text is kept as given; its type is what the reader found in it.
        projectionString = input;
        if (normalisedType) *normalisedType = wktType;
        return;
    }
    if (IsSpecialString(trimmed)) {
        projectionString = input;
        return;
    }
    // A catalogue name: the system is kept as the WKT of its algorithm, so
    // that the string stands on its own, whatever the catalogue holds later.
    // A code is written from the definition that carries it, which is what
    // its algorithm would write, without looking that definition up again by
    // name (an earlier entry, a user's own system, may have the same name).
    if (CGxMapProjData* coded = GxCodedCatalogueSystem(trimmed))
        CGxPRJParser(coded).Format(projectionString);
    else
        CGxPRJParser(projection.get()).Format(projectionString);
    CGxPRJParser reader(projectionString);
    reader.Parse(true);
    info.SetProjectionInfo(reader);
    if (normalisedType) *normalisedType = reader.GetProjectionType();
}

CGxProjection* CGxMapProjection::GetProjection(const char* projectionString_,
                                               CGxProjectionInfo* info_) {
    return _GetProjection(GxTrimmed(projectionString_), info_, nullptr);
}

CGxProjection* CGxMapProjection::_GetProjection(const std::string& trimmed,
                                                CGxProjectionInfo* info_, EType* wktType) {
    if (wktType) *wktType = CGxMapProjData::eInvalidProjection;
    // The reader takes only what looks like WKT; names and special strings
    // need no reader built for them.
    if (CGxPRJParser::IsPRJ(trimmed)) {
        CGxPRJParser parser(trimmed);
        parser.Parse(true);
        const EType type = parser.GetProjectionType();
        if (wktType) *wktType = type;
        if (type != CGxMapProjData::eInvalidProjection) {
            if (CGxProjection* algorithm = parser.CreateMapProjection()) {
                if (info_) info_->SetProjectionInfo(parser);
                return algorithm;
            }
        }
    }
    if (trimmed == kGenericUtm) throw std::out_of_range("Can't use generic UTM");
    return _FindMapProjection(trimmed.empty() ? std::string(kGxNonUtmString) : trimmed);
}

CGxProjection* CGxMapProjection::_FindMapProjection(const std::string& name) {
    const CGxMapProjData* definition = GxFindCatalogueSystem(name);
    if (!definition) return nullptr;
    return definition->CreateProjection();
}

// ---------------------------------------------------------------- instance

void CGxMapProjection::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (!x || !y) return;
    if (projection) projection->Geo2Proj(lon, lat, x, y);
    info.Convert(*x, *y);
}

void CGxMapProjection::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (!lon || !lat) return;
    info.InvConvert(x, y);
    if (projection) projection->Proj2Geo(x, y, lon, lat);
}

// The array forms make the single-point steps with what those fetch for every
// point (the algorithm, the axis signs and order) fetched once: the same
// products in the same order as CGxProjectionInfo::Convert and InvConvert, so
// that every point gets the bits of the single-point call.
namespace {

struct AxisRule {
    double first, second;  // signs of the two axes
    bool swap;             // first axis along a meridian: (northing, easting)

    explicit AxisRule(const CGxProjectionInfo& info)
        : first(info.GetAxis1().GetFactor()),
          second(info.GetAxis2().GetFactor()),
          swap(info.SwapsAxes()) {}

    void Convert(double& x, double& y) const {
        x *= first;
        y *= second;
        if (swap) std::swap(x, y);
    }
    void InvConvert(double& x, double& y) const {
        if (swap) std::swap(x, y);
        x *= first;
        y *= second;
    }
};

}  // namespace

void CGxMapProjection::Geo2Proj(const double* lon, const double* lat, double* x, double* y,
                                std::size_t count) const {
    const CGxProjection* const algorithm = projection.get();
    const AxisRule axes(info);
    GxConvertPointArrays(lon, lat, x, y, count, [&](double a, double b, double* px, double* py) {
        if (algorithm) algorithm->Geo2Proj(a, b, px, py);
        axes.Convert(*px, *py);
    });
}

void CGxMapProjection::Proj2Geo(const double* x, const double* y, double* lon, double* lat,
                                std::size_t count) const {
    const CGxProjection* const algorithm = projection.get();
    if (!algorithm) return;
    const AxisRule axes(info);
    GxConvertPointArrays(x, y, lon, lat, count, [&](double a, double b, double* pl, double* pb) {
        axes.InvConvert(a, b);
        algorithm->Proj2Geo(a, b, pl, pb);
    });
}

double CGxMapProjection::GetConvergence(double lon, double lat) const {
    return projection ? projection->GetConvergence(lon, lat) : 0.0;
}

void CGxMapProjection::GetConvergence(const double* lon, const double* lat, double* convergence,
                                      std::size_t count) const {
    if (!lon || !lat || !convergence) return;
    const CGxProjection* const algorithm = projection.get();
    for (std::size_t i = 0; i < count; ++i) {
        const double pointLon = lon[i];
        const double pointLat = lat[i];
        convergence[i] = algorithm ? algorithm->GetConvergence(pointLon, pointLat) : 0.0;
    }
}

void CGxMapProjection::GetOrigin(double* lon, double* lat) const {
    if (projection && lon && lat) projection->GetOrigin(lon, lat);
}

const char* CGxMapProjection::GetName() const {
    return projection ? projection->GetName() : "";
}

bool CGxMapProjection::IsGeographical() const {
    return projection ? projection->IsGeographical() : false;
}

bool CGxMapProjection::IsLocal() const {
    return projection ? projection->IsLocal() : false;
}

void CGxMapProjection::GetDatumShift(CGxDatumShift& shift) const {
    info.GetDatumShift(shift);
}

CGxMapProjection::ECoordSysType CGxMapProjection::GetCoordSysType() const {
    CGxProjectionInfo::CAxis::EType first, second;
    info.GetAxisTypes(first, second);
    return static_cast<ECoordSysType>(first + 4 * second);
}

bool CGxMapProjection::GetUnit(EMapProjectionInfo which, double* factor, char* name) const {
    switch (which) {
        case eProjectedUnit:
            return info.GetProjUnit(factor, name);
        case eAngularUnit:
            return info.GetAngularUnit(factor, name);
    }
    return false;
}

void CGxMapProjection::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    if (projection && x0 && y0 && x1 && y1) projection->GetDefaultArea(x0, y0, x1, y1);
}

void CGxMapProjection::GetDefaultArea(int width, int height, ESizeParam which, double size,
                                      double* x0, double* y0, double* x1, double* y1) const {
    if (!projection || !x0 || !y0 || !x1 || !y1) return;
    if (width < 1 || height < 1) {
        projection->GetDefaultArea(x0, y0, x1, y1);
        return;
    }
    double halfWidth, halfHeight;
    switch (which) {
        case eWidth:
            halfWidth = size / 2;
            halfHeight = (height * size / width) / 2;
            break;
        case eHeight:
            halfWidth = (width * size / height) / 2;
            halfHeight = size / 2;
            break;
        default:
            return;
    }
    // Centred on the origin as the algorithm projects it, before the axis
    // rule: the area is in the algorithm's easting/northing.
    double lon0, lat0, cx, cy;
    projection->GetOrigin(&lon0, &lat0);
    projection->Geo2Proj(lon0, lat0, &cx, &cy);
    *x0 = cx - halfWidth;
    *y0 = cy - halfHeight;
    *x1 = cx + halfWidth;
    *y1 = cy + halfHeight;
}

// The geocentric conversions work on the algorithm's figure; an algorithm
// without one leaves the default ellipsoid (a = 1, f = 1), so the results are
// then meaningless but defined. The figure is read once per call, and the
// single-point and array forms share the per-point steps, so that every point
// of an array gets the bits of the single-point call.
namespace {

struct GeocentricFigure {
    GxGeocentric figure;

    explicit GeocentricFigure(const CGxProjection& algorithm) {
        CGxEllipsoid ellipsoid;
        algorithm.GetAnonymousEllipsoid(ellipsoid);
        figure = GxGeocentric::Of(ellipsoid);
    }

    void ToXYZ(double lon, double lat, double h, double* X, double* Y, double* Z) const {
        figure.ToXYZ(lon, lat, h, X, Y, Z);
    }

    void ToGeo(double X, double Y, double Z, double* lon, double* lat, double* h) const {
        const double p = std::sqrt(X * X + Y * Y);
        *lon = std::atan2(Y, X) * kGxRadToDeg;
        if (p == 0.0) {
            // On the polar axis the closed form divides by p; the point lies
            // above or below a pole.
            *lat = Z < 0.0 ? -90.0 : 90.0;
            *h = std::fabs(Z) - figure.b;
            return;
        }
        const double phi = figure.LatitudeOffAxis(p, Z, std::sqrt(Z * Z + p * p));
        const double sinPhi = std::sin(phi);
        *lat = phi * kGxRadToDeg;
        *h = p / std::cos(phi) - figure.PrimeVerticalRadius(sinPhi);
    }
};

}  // namespace

void CGxMapProjection::Geo2XYZ(double lon, double lat, double h, double* X, double* Y,
                               double* Z) const {
    if (!projection || !X || !Y || !Z) return;
    GeocentricFigure(*projection).ToXYZ(lon, lat, h, X, Y, Z);
}

void CGxMapProjection::XYZ2Geo(double X, double Y, double Z, double* lon, double* lat,
                               double* h) const {
    if (!projection || !lon || !lat || !h) return;
    GeocentricFigure(*projection).ToGeo(X, Y, Z, lon, lat, h);
}

// The three inputs of a point are read before its outputs are written, so
// that outputs may be the input arrays.
void CGxMapProjection::Geo2XYZ(const double* lon, const double* lat, const double* h, double* X,
                               double* Y, double* Z, std::size_t count) const {
    if (!projection || !lon || !lat || !X || !Y || !Z) return;
    const GeocentricFigure figure(*projection);
    for (std::size_t i = 0; i < count; ++i) {
        const double pointLon = lon[i];
        const double pointLat = lat[i];
        const double pointH = h ? h[i] : 0.0;
        figure.ToXYZ(pointLon, pointLat, pointH, X + i, Y + i, Z + i);
    }
}

void CGxMapProjection::XYZ2Geo(const double* X, const double* Y, const double* Z, double* lon,
                               double* lat, double* h, std::size_t count) const {
    if (!projection || !X || !Y || !Z || !lon || !lat) return;
    const GeocentricFigure figure(*projection);
    double unusedHeight;
    for (std::size_t i = 0; i < count; ++i) {
        const double pointX = X[i];
        const double pointY = Y[i];
        const double pointZ = Z[i];
        figure.ToGeo(pointX, pointY, pointZ, lon + i, lat + i, h ? h + i : &unusedHeight);
    }
}

namespace {

// The figure geodesics of a system run on: the algorithm's own, or WGS 84 for
// a geographical system without one. False when neither applies.
bool GeodesicEllipsoid(const CGxProjection* projection, CGxEllipsoid& ellipsoid) {
    if (!projection) return false;
    if (projection->GetAnonymousEllipsoid(ellipsoid)) return true;
    if (!projection->IsGeographical()) return false;
    ellipsoid.SetParams(kWgs84Major, kWgs84InverseFlattening);
    return true;
}

}  // namespace

bool CGxMapProjection::GetDistance(double lon1, double lat1, double lon2, double lat2,
                                   double& distance, double& azimuth1, double& azimuth2) const {
    // A point's distance to itself needs no system (and would be 0/0 in the
    // geodesic's azimuth).
    if (lon1 == lon2 && lat1 == lat2) {
        distance = 0.0;
        return true;
    }
    CGxEllipsoid ellipsoid;
    if (!GeodesicEllipsoid(projection.get(), ellipsoid)) return false;
    // The geodesic routine answers every pair of points on the ellipsoid; a
    // NaN length means there was no line to measure (a latitude beyond a
    // pole, a non-finite number), and then the caller hears so.
    double s = 0.0, az1 = 0.0, az2 = 0.0;
    CGxVincenty(ellipsoid).GetDistance(lon1, lat1, lon2, lat2, s, az1, az2);
    if (std::isnan(s)) return false;
    distance = s;
    azimuth1 = az1;
    azimuth2 = az2;
    return true;
}

bool CGxMapProjection::GetDistance(double lon1, double lat1, double lon2, double lat2,
                                   double& distance) const {
    double azimuth1 = 0.0, azimuth2 = 0.0;
    return GetDistance(lon1, lat1, lon2, lat2, distance, azimuth1, azimuth2);
}

bool CGxMapProjection::GetPoint(double lonStart, double latStart, double azimuth, double distance,
                                double& lon2, double& lat2, double& azimuth2) const {
    CGxEllipsoid ellipsoid;
    if (!GeodesicEllipsoid(projection.get(), ellipsoid)) return false;
    double lon = 0.0, lat = 0.0, az = 0.0;
    CGxVincenty(ellipsoid).GetPoint(lonStart, latStart, azimuth, distance, lon, lat, az);
    // No point for a start beyond a pole or non-finite numbers.
    if (std::isnan(lon) || std::isnan(lat)) return false;
    lon2 = lon;
    lat2 = lat;
    azimuth2 = az;
    return true;
}
