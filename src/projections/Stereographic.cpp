// Oblique stereographic on the ellipsoid, the "double" projection of EPSG
// Guidance Note 7-2, method 9809: the ellipsoid is mapped conformally onto the
// Gauss sphere of radius R = sqrt(rho0 nu0) (latitude chi, longitude scaled by
// n), and that sphere is projected stereographically from the antipode of the
// origin. An origin at a pole selects the polar aspect (methods 9810/9829 with
// the given scale at the pole), see math/PolarStereographicMath.h.

#include "projections/Stereographic.h"

#include <cmath>

#include "definitions/StereographicProjection.h"
#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/ConformalLatitude.h"

namespace {}  // namespace

CGxStereographic::CGxStereographic(const char* name_, double scale, double centreLongitude,
                                   double originLatitude, double falseEasting_,
                                   double falseNorthing_, const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _Setup(scale, centreLongitude, originLatitude, falseEasting_, falseNorthing_, ellipsoid);
}

CGxStereographic::CGxStereographic(const CGxStereographicProjection* def) : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetCentre(), def->GetOriginLatitude(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

void CGxStereographic::_Setup(double scale, double centreLongitude, double originLatitude,
                              double falseEasting_, double falseNorthing_,
                              const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    e = ellipsoid.GetEccentricity();
    lon0 = centreLongitude * kGxDegToRad;
    lat0 = originLatitude * kGxDegToRad;
    falseEasting = falseEasting_;
    falseNorthing = falseNorthing_;
    k0 = scale;
    const bool northPole = GxIsNear(originLatitude, 90.0);
    if (northPole || GxIsNear(originLatitude, -90.0)) {
        aspect = northPole ? eNorthPolar : eSouthPolar;
        R = n = c = chi0 = 0;
        sqrtC = sinChi0 = twoRk = g = h = 0;
        cosChi0 = 1;
        polar = GxPolarStereographicMath(a, e, k0, !northPole, lon0, falseEasting, falseNorthing);
        return;
    }
    aspect = eOblique;
    // The Gauss sphere, arranged so that the constants stay accurate as the
    // origin approaches a pole. The textbook chain w1 = ((1 + s)/(1 - s)
    // ((1 - es)/(1 + es))^e)^n, c = (n + s)/((n - s) w1), chi0 = asin(s / n)
    // loses every digit there (1 - s and n - s cancel, and s rounds to 1
    // within 1e-6 degrees of the pole), long before the polar aspect takes
    // over at 1e-12. With k = 1 + e^2 cos^2 / (1 - e^2) the differences have
    // closed forms, n^2 - s^2 = k cos^2 and 1 - s^2 = cos^2; near the north
    // pole c is written without n - s and 1 - s, near the south pole without
    // n + s and 1 + s.
    const double e2 = e * e;
    GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e2, conformal);
    const double s = std::sin(lat0);
    const double cos2 = std::cos(lat0) * std::cos(lat0);
    const double es = e * s;
    const double nu0 = a / std::sqrt(1 - es * es);
    R = std::sqrt((1 - e2) * nu0 * nu0 / (1 - es * es));
    const double k = 1 + e2 * cos2 / (1 - e2);
    n = std::sqrt(1 + e2 * cos2 * cos2 / (1 - e2));
    const double q = std::pow((1 - es) / (1 + es), e * n);
    if (s >= 0) {
        c = (n + s) * (n + s) / k * std::pow(cos2, n - 1) / (std::pow(1 + s, 2 * n) * q);
    } else {
        c = k * std::pow(1 - s, 2 * n) / ((n - s) * (n - s) * std::pow(cos2, n - 1) * q);
    }
    chi0 = std::atan2(s, std::sqrt(cos2 * k));
    sqrtC = std::sqrt(c);
    sinChi0 = std::sin(chi0);
    cosChi0 = std::cos(chi0);
    twoRk = 2 * R * k0;
    g = twoRk * std::tan(kGxQuarterPi - chi0 / 2);
    // 4 R k0 tan(chi0) + g, which is 2 R k0 tan(pi/4 + chi0/2): the sum of two
    // huge terms of opposite sign for an origin near the south pole.
    h = twoRk * std::tan(kGxQuarterPi + chi0 / 2);
}

void CGxStereographic::_ObliqueForward(double lon, double lat, double* x, double* y) const {
    // Conformal latitude on the Gauss sphere: w = (1 + sin chi)/(1 - sin chi)
    // = c t^(-2n), t the isometric term of the latitude; with u = sqrt(w) the
    // sine and cosine follow without cancellation, and the poles (u infinite
    // or 0) give chi = +-90 degrees.
    const double u = sqrtC * std::pow(GxConformalT(lat * kGxDegToRad, e), -n);
    const double sinChi = 1 - 2 / (u * u + 1);
    const double cosChi = 2 / (u + 1 / u);
    const double lambda = n * (lon * kGxDegToRad - lon0);
    const double cosLambda = std::cos(lambda);
    const double b = 1 + sinChi * sinChi0 + cosChi * cosChi0 * cosLambda;
    *x = falseEasting + twoRk * cosChi * std::sin(lambda) / b;
    *y = falseNorthing + twoRk * (sinChi * cosChi0 - cosChi * sinChi0 * cosLambda) / b;
}

void CGxStereographic::_ObliqueInverse(double x, double y, double* lon, double* lat) const {
    const double dx = x - falseEasting;
    const double dy = y - falseNorthing;
    const double i = std::atan2(dx, h + dy);
    const double j = std::atan2(dx, g - dy) - i;
    const double chi = chi0 + 2 * std::atan((dy - dx * std::tan(j / 2)) / twoRk);
    // Back from the sphere: the isometric term of the latitude is
    // (sqrt(c) tan(pi/4 - chi/2))^(1/n), and the latitude follows from it. At
    // a pole chi may overshoot 90 degrees by a rounding error; the absolute
    // value takes the mirror point, which is where the overshoot belongs.
    const double t = std::pow(sqrtC * std::fabs(std::tan(kGxQuarterPi - chi / 2)), 1 / n);
    *lon = ((j + 2 * i) / n + lon0) * kGxRadToDeg;
    *lat = GxLatitudeFromT(t, e, conformal) * kGxRadToDeg;
}

void CGxStereographic::_Forward(double lon, double lat, double* x, double* y) const {
    switch (aspect) {
        case eOblique:
            _ObliqueForward(lon, lat, x, y);
            break;
        case eNorthPolar:
        case eSouthPolar:
            polar.Forward(lon, lat, x, y);
            break;
    }
}

void CGxStereographic::_Inverse(double x, double y, double* lon, double* lat) const {
    switch (aspect) {
        case eOblique:
            _ObliqueInverse(x, y, lon, lat);
            break;
        case eNorthPolar:
        case eSouthPolar:
            polar.Inverse(x, y, lon, lat);
            break;
    }
}

void CGxStereographic::GetOrigin(double* lon, double* lat) const {
    *lon = lon0 * kGxRadToDeg;
    *lat = lat0 * kGxRadToDeg;
}

void CGxStereographic::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    switch (aspect) {
        case eOblique:
            GxDefaultAreaAround(*this, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg,
                                kGxDefaultAreaHalfSide, x0, y0, x1, y1);
            break;
        case eNorthPolar:
        case eSouthPolar:
            GxSquareAroundOrigin(*this, kGxPolarAreaHalfSide, x0, y0, x1, y1);
            break;
    }
}

template class CGxLocalGridOf<CGxStereographic>;
template class CGxAlgorithmOf<CGxStereographic, CGxStereographicProjection>;
