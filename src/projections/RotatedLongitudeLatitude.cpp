// Rotated-pole longitude/latitude. A point goes to Earth-centred Cartesian
// coordinates on the ellipsoid, is turned by the rotation that carries the
// chosen south pole to the geographic south pole (first about the polar axis
// by minus the pole's longitude, then about the new y axis by 90 degrees plus
// its latitude), and is read back as longitude and latitude by Bowring's
// closed form (Survey Review 28, 1985), whose error stays at a few micrometres
// from the surface out to hundreds of kilometres above or below it.
//
// The rotated point lies off the ellipsoid (up to about 21 km for a pole at
// mid-latitudes) and its height is dropped; the inverse starts again from the
// ellipsoid surface. On an ellipsoid forward and inverse therefore do not undo
// each other exactly: a round trip moves a point by up to a few tens of metres
// (on a sphere it closes to rounding). The grid is the one its users'
// coordinates were computed on, so this is kept.

#include "projections/RotatedLongitudeLatitude.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "catalogue/CartSetup.h"
#include "definitions/RotatedLongitudeLatitudeProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"

namespace {
// Half the side of the default box around the origin, degrees.
constexpr double kAreaHalfSide = 3.0;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
}  // namespace

CGxRotatedLongitudeLatitude::CGxRotatedLongitudeLatitude(const char* name_,
                                                         double southPoleLongitude_,
                                                         double southPoleLatitude_,
                                                         double rotationAngle_,
                                                         const CGxEllipsoid& ellipsoid)
    : name(name_),
      southPoleLongitude(southPoleLongitude_),
      southPoleLatitude(southPoleLatitude_),
      rotationAngle(rotationAngle_) {
    _SetFigure(ellipsoid);
    _BuildRotations();
}

// Without a known ellipsoid the grid has no figure: every point converts to
// NaN, and so do its origin and default area.
CGxRotatedLongitudeLatitude::CGxRotatedLongitudeLatitude(
    const CGxRotatedLongitudeLatitudeProjection* definition)
    : name(definition ? definition->GetName().c_str() : nullptr),
      a(kNaN),
      f(kNaN),
      e2(kNaN),
      b(kNaN),
      ep2(kNaN),
      southPoleLongitude(kNaN),
      southPoleLatitude(kNaN),
      rotationAngle(kNaN) {
    const std::string id = definition ? definition->GetEllipsoidID() : std::string();
    const CGxEllipsoid* ellipsoid =
        id.empty() ? nullptr : CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoid(id);
    if (ellipsoid) {
        _SetFigure(*ellipsoid);
        southPoleLongitude = definition->GetSouthPoleLongitude();
        southPoleLatitude = definition->GetSouthPoleLatitude();
        rotationAngle = definition->GetRotationAngle();
    }
    _BuildRotations();
}

void CGxRotatedLongitudeLatitude::_SetFigure(const CGxEllipsoid& ellipsoid) {
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
    e2 = ellipsoid.GetEccentricity() * ellipsoid.GetEccentricity();
    b = ellipsoid.GetMinor();
    ep2 = (a * a - b * b) / (b * b);
}

void CGxRotatedLongitudeLatitude::_BuildRotations() {
    // The rotation about the first axis stays at 0: the rotated grid's prime
    // meridian is fixed by the pole alone.
    const CMatrix spin(0.0, CMatrix::eRotationX);
    fromRotated = CMatrix(southPoleLongitude, CMatrix::eRotationZ) *
                  CMatrix(-90.0 - southPoleLatitude, CMatrix::eRotationY) * spin;
    toRotated = spin * CMatrix(90.0 + southPoleLatitude, CMatrix::eRotationY) *
                CMatrix(-southPoleLongitude, CMatrix::eRotationZ);
}

const char* CGxRotatedLongitudeLatitude::GetName() const { return name.name; }

void CGxRotatedLongitudeLatitude::Geo2XYZ(double lon, double lat, double* X, double* Y,
                                          double* Z) const {
    const double phi = lat * kGxDegToRad, lam = lon * kGxDegToRad;
    const double sphi = std::sin(phi), cphi = std::cos(phi);
    const double N = a / std::sqrt(1 - e2 * sphi * sphi);
    *X = N * cphi * std::cos(lam);
    *Y = N * cphi * std::sin(lam);
    *Z = (1 - e2) * N * sphi;
}

void CGxRotatedLongitudeLatitude::XYZ2Geo(double X, double Y, double Z, double* lon,
                                          double* lat) const {
    *lon = std::atan2(Y, X) * kGxRadToDeg;
    const double p = std::sqrt(X * X + Y * Y);
    if (p == 0) {
        // On the polar axis the parametric latitude is exactly +-90 degrees,
        // where the closed form's denominator turns negative by rounding and
        // would put the point on the opposite pole. At the centre (Z = 0 too)
        // there is no latitude: NaN.
        *lat = Z > 0 ? 90.0 : Z < 0 ? -90.0 : std::nan("");
        return;
    }
    const double r = std::sqrt(p * p + Z * Z);
    const double u = std::atan(((1 - f) + e2 * a / r) * Z / p);
    const double su = std::sin(u), cu = std::cos(u);
    *lat = std::atan((Z + ep2 * b * su * su * su) / (p - e2 * a * cu * cu * cu)) * kGxRadToDeg;
}

void CGxRotatedLongitudeLatitude::_rotate(const CMatrix& rotation, double lon, double lat,
                                          double* outLon, double* outLat) const {
    double v[3];
    Geo2XYZ(lon, lat, &v[0], &v[1], &v[2]);
    rotation.Transform(v, v);
    XYZ2Geo(v[0], v[1], v[2], outLon, outLat);
}

void CGxRotatedLongitudeLatitude::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    _rotate(toRotated, lon, lat, x, y);
}

void CGxRotatedLongitudeLatitude::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    _rotate(fromRotated, x, y, lon, lat);
}

void CGxRotatedLongitudeLatitude::GetOrigin(double* lon, double* lat) const {
    *lon = southPoleLongitude;
    *lat = southPoleLatitude + 90.0;
}

double CGxRotatedLongitudeLatitude::GetConvergence(double lon, double lat) const {
    if (name.isLocal) return 0.0;
    return GxNumericalConvergence(*this, lon, lat);
}

void CGxRotatedLongitudeLatitude::GetDefaultArea(double* x0, double* y0, double* x1,
                                                 double* y1) const {
    // Unlike the shared box, this one is clamped in longitude as well: the
    // origin of a rotated grid may lie near the antimeridian.
    double lon, lat;
    GetOrigin(&lon, &lat);
    Geo2Proj(std::max(lon - kAreaHalfSide, -180.0), std::max(lat - kAreaHalfSide, -90.0), x0, y0);
    Geo2Proj(std::min(lon + kAreaHalfSide, 180.0), std::min(lat + kAreaHalfSide, 90.0), x1, y1);
}

bool CGxRotatedLongitudeLatitude::IsLocal() const { return name.isLocal; }

bool CGxRotatedLongitudeLatitude::IsGeographical() const { return true; }

bool CGxRotatedLongitudeLatitude::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    // Unlike the map projections this grid does not judge its figure: a
    // degenerate or missing ellipsoid is handed out as it is (NaN stays NaN).
    out.SetParams(a, f != 0.0 ? 1.0 / f : 0.0);
    return true;
}

CGxProjection* CGxRotatedLongitudeLatitude::Clone() const {
    return new CGxRotatedLongitudeLatitude(*this);
}

void CGxRotatedLongitudeLatitude::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxRotatedLongitudeLatitude::GetMapProjection, parser);
}

bool CGxRotatedLongitudeLatitude::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxRotatedLongitudeLatitude::GetMapProjection(
    CGxRotatedLongitudeLatitudeProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
