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

#include "definitions/RotatedLongitudeLatitudeProjection.h"
#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Geocentric.h"
#include "projections/AlgorithmCatalogue.h"

namespace {
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
}  // namespace

CGxRotatedLongitudeLatitude::CGxRotatedLongitudeLatitude(const char* name_,
                                                         double southPoleLongitude_,
                                                         double southPoleLatitude_,
                                                         double rotationAngle_,
                                                         const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_),
      southPoleLongitude(southPoleLongitude_),
      southPoleLatitude(southPoleLatitude_),
      rotationAngle(rotationAngle_) {
    _SetAxes(ellipsoid);
    _BuildRotations();
}

// Without a known ellipsoid the grid has no figure: every point converts to
// NaN, and so do its origin and default area.
CGxRotatedLongitudeLatitude::CGxRotatedLongitudeLatitude(
    const CGxRotatedLongitudeLatitudeProjection* definition)
    : CGxAlgorithmOf(definition),
      southPoleLongitude(kNaN),
      southPoleLatitude(kNaN),
      rotationAngle(kNaN) {
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(definition)) {
        _SetAxes(*ellipsoid);
        southPoleLongitude = definition->GetSouthPoleLongitude();
        southPoleLatitude = definition->GetSouthPoleLatitude();
        rotationAngle = definition->GetRotationAngle();
    }
    _BuildRotations();
}

void CGxRotatedLongitudeLatitude::_SetAxes(const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    geocentric = GxGeocentric::Of(ellipsoid);
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

void CGxRotatedLongitudeLatitude::Geo2XYZ(double lon, double lat, double* X, double* Y,
                                          double* Z) const {
    geocentric.SurfaceToXYZ(lon, lat, X, Y, Z);
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
    *lat = geocentric.LatitudeOffAxis(p, Z, std::sqrt(p * p + Z * Z)) * kGxRadToDeg;
}

void CGxRotatedLongitudeLatitude::_rotate(const CMatrix& rotation, double lon, double lat,
                                          double* outLon, double* outLat) const {
    double v[3];
    Geo2XYZ(lon, lat, &v[0], &v[1], &v[2]);
    rotation.Transform(v, v);
    XYZ2Geo(v[0], v[1], v[2], outLon, outLat);
}

void CGxRotatedLongitudeLatitude::_Forward(double lon, double lat, double* x, double* y) const {
    _rotate(toRotated, lon, lat, x, y);
}

void CGxRotatedLongitudeLatitude::_Inverse(double x, double y, double* lon, double* lat) const {
    _rotate(fromRotated, x, y, lon, lat);
}

void CGxRotatedLongitudeLatitude::GetOrigin(double* lon, double* lat) const {
    *lon = southPoleLongitude;
    *lat = southPoleLatitude + 90.0;
}

void CGxRotatedLongitudeLatitude::GetDefaultArea(double* x0, double* y0, double* x1,
                                                 double* y1) const {
    // Unlike the shared box, this one is clamped in longitude as well: the
    // origin of a rotated grid may lie near the antimeridian.
    double lon, lat;
    GetOrigin(&lon, &lat);
    Geo2Proj(std::max(lon - kGxDefaultAreaHalfSide, -180.0),
             std::max(lat - kGxDefaultAreaHalfSide, -90.0), x0, y0);
    Geo2Proj(std::min(lon + kGxDefaultAreaHalfSide, 180.0),
             std::min(lat + kGxDefaultAreaHalfSide, 90.0), x1, y1);
}

bool CGxRotatedLongitudeLatitude::IsGeographical() const {
    return true;
}

bool CGxRotatedLongitudeLatitude::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    // Unlike the map projections this grid does not judge its figure: a
    // degenerate or missing ellipsoid is handed out as it is (NaN stays NaN).
    out.SetParams(a, f != 0.0 ? 1.0 / f : 0.0);
    return true;
}

template class CGxLocalGridOf<CGxRotatedLongitudeLatitude>;
template class CGxAlgorithmOf<CGxRotatedLongitudeLatitude, CGxRotatedLongitudeLatitudeProjection>;
