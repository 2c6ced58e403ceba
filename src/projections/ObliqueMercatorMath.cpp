#include "projections/ObliqueMercatorMath.h"

#include <algorithm>
#include <cmath>

#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/ConformalLatitude.h"
#include "projections/FourierCoefficients.h"

namespace {

constexpr double kHalfPi = 1.5707963267948966;
// Half the side of the default box around the centre, degrees.
constexpr double kDefaultAreaHalfSide = 3.0;
constexpr double kEastWestAzimuth = 90.0;

// +1 on and north of the equator, -1 south of it.
double HemisphereSign(double lat) {
    return lat >= 0 ? 1.0 : -1.0;
}

}  // namespace

CGxObliqueMercatorBase::CGxObliqueMercatorBase(const char* name_, double scale,
                                               double centreLongitude, double centreLatitude,
                                               double azimuth, double gridAngle,
                                               bool originAtCentre, double falseEasting_,
                                               double falseNorthing_, const CGxEllipsoid& ellipsoid)
    : name(name_) {
    _Setup(scale, centreLongitude, centreLatitude, azimuth, gridAngle, originAtCentre,
           falseEasting_, falseNorthing_, ellipsoid);
}

CGxObliqueMercatorBase::CGxObliqueMercatorBase(const std::string& name_) : name(name_.c_str()) {}

void CGxObliqueMercatorBase::_Setup(double scale, double centreLongitude, double centreLatitude,
                                    double azimuth, double gridAngle, bool originAtCentre,
                                    double falseEasting_, double falseNorthing_,
                                    const CGxEllipsoid& ellipsoid) {
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
    e = ellipsoid.GetEccentricity();
    e2 = e * e;
    kc = scale;
    latC = centreLatitude * kGxDegToRad;
    lonC = centreLongitude * kGxDegToRad;
    alphaC = azimuth * kGxDegToRad;
    gammaC = gridAngle * kGxDegToRad;
    falseEasting = falseEasting_;
    falseNorthing = falseNorthing_;

    GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e2, c);

    const double s = std::sin(latC);
    const double cosLat = std::cos(latC);
    const double es = e * s;
    const double sign = HemisphereSign(latC);

    B = std::sqrt(1 + e2 * cosLat * cosLat * cosLat * cosLat / (1 - e2));
    A = a * B * kc * std::sqrt(1 - e2) / (1 - e2 * s * s);
    const double t0 = GxConformalT(latC, e);
    const double D = B * std::sqrt(1 - e2) / (cosLat * std::sqrt(1 - es * es));
    // D is at least 1 on every ellipsoid; at the equator rounding can put it
    // a hair below, where the aposphere's equator is the ellipsoid's own.
    const double Q = D >= 1 ? std::sqrt(D * D - 1) : 0.0;
    const double F = D + Q * sign;
    H = F * std::pow(t0, B);
    const double G = (F - 1 / F) / 2;
    gamma0 = std::asin(std::sin(alphaC) / D);
    // lon0 = lonC - asin(G tan gamma0) / B, evaluated as the equivalent
    // atan2(G sin alphaC, D |cos alphaC|): near an east-west central line the
    // sine's argument approaches 1, where asin turns one rounding unit into
    // centimetres on the ground (the Hungarian EOV grid at azimuth 90).
    lon0 = lonC - std::atan2(G * std::sin(alphaC), D * std::fabs(std::cos(alphaC))) / B;

    uC = 0.0;
    if (originAtCentre) {
        uC = GxIsNear(azimuth, kEastWestAzimuth) ? A * (lonC - lon0)
                                                 : (A / B) * std::atan2(Q, std::cos(alphaC)) * sign;
    }
    uShift = std::fabs(uC) * sign;

    cosGamma0 = std::cos(gamma0);
    sinGamma0 = std::sin(gamma0);
    cosGammaC = std::cos(gammaC);
    sinGammaC = std::sin(gammaC);
    aOverB = A / B;
    bOverA = B / A;
}

const char* CGxObliqueMercatorBase::GetName() const {
    return name.name;
}

void CGxObliqueMercatorBase::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
        return;
    }
    const double t = GxConformalT(lat * kGxDegToRad, e);
    const double Q = H / std::pow(t, B);
    const double S = (Q - 1 / Q) / 2;
    const double T = (Q + 1 / Q) / 2;
    const double dLon = B * (lon * kGxDegToRad - lon0);
    const double V = std::sin(dLon);
    const double U = (-V * cosGamma0 + S * sinGamma0) / T;
    const double v = aOverB * std::log((1 - U) / (1 + U)) / 2;
    const double u = aOverB * std::atan2(S * cosGamma0 + V * sinGamma0, std::cos(dLon)) - uShift;
    *x = v * cosGammaC + u * sinGammaC + falseEasting;
    *y = u * cosGammaC - v * sinGammaC + falseNorthing;
}

void CGxObliqueMercatorBase::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
        return;
    }
    const double dx = x - falseEasting;
    const double dy = y - falseNorthing;
    const double v = dx * cosGammaC - dy * sinGammaC;
    const double u = dy * cosGammaC + dx * sinGammaC + uShift;
    const double Q = std::exp(-bOverA * v);
    const double S = (Q - 1 / Q) / 2;
    const double T = (Q + 1 / Q) / 2;
    const double bu = bOverA * u;
    const double V = std::sin(bu);
    const double U = (V * cosGamma0 + S * sinGamma0) / T;
    const double t = std::pow(H / std::sqrt((1 + U) / (1 - U)), 1 / B);
    const double chi = kHalfPi - 2 * std::atan(t);
    *lat = GxLatitudeFromConformal(chi, c) * kGxRadToDeg;
    *lon = (lon0 - std::atan2(S * cosGamma0 - V * sinGamma0, std::cos(bu)) / B) * kGxRadToDeg;
}

void CGxObliqueMercatorBase::GetOrigin(double* lon, double* lat) const {
    *lon = lonC * kGxRadToDeg;
    *lat = latC * kGxRadToDeg;
}

double CGxObliqueMercatorBase::GetConvergence(double lon, double lat) const {
    if (name.isLocal) return 0.0;
    return GxNumericalConvergence(*this, lon, lat);
}

void CGxObliqueMercatorBase::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxDefaultAreaAround(*this, lonC * kGxRadToDeg, latC * kGxRadToDeg, kDefaultAreaHalfSide, x0, y0,
                        x1, y1);
}

bool CGxObliqueMercatorBase::IsLocal() const {
    return name.isLocal;
}

bool CGxObliqueMercatorBase::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}
