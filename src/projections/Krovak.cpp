#include "projections/Krovak.h"

#include <cmath>

#include "definitions/KrovakProjection.h"
#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/ConformalLatitude.h"

namespace {

// Half the side of the default square, ellipsoid units.
constexpr double kDefaultAreaHalfSide = 500000.0;

}  // namespace

CGxKrovak::CGxKrovak(const char* name_, double scaleAtPseudoParallel, double pseudoParallel,
                     double centreLongitude, double centreLatitude, double azimuth,
                     double xyPlaneRotation, double xScale_, double yScale_, double falseEasting_,
                     double falseNorthing_, const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _Setup(scaleAtPseudoParallel, pseudoParallel, centreLongitude, centreLatitude, azimuth,
           xyPlaneRotation, xScale_, yScale_, falseEasting_, falseNorthing_, ellipsoid);
}

CGxKrovak::CGxKrovak(const CGxKrovakProjection* def) : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScaleAtPseudoParallel(), def->GetPseudoParallel(), def->GetCenterLongitude(),
               def->GetCenterLatitude(), def->GetAzimuth(), def->GetXYPlaneRotation(),
               def->GetXScale(), def->GetYScale(), def->GetFalseEasting(), def->GetFalseNorthing(),
               *ellipsoid);
    }
}

void CGxKrovak::_Setup(double scaleAtPseudoParallel, double pseudoParallel, double centreLongitude,
                       double centreLatitude, double azimuth, double xyPlaneRotation,
                       double xScale_, double yScale_, double falseEasting_, double falseNorthing_,
                       const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    e = ellipsoid.GetEccentricity();
    e2 = e * e;
    GxComputeFourierCoefficients(EGxSeries::eConformalLatitude, false, e2, conformal);
    kp = scaleAtPseudoParallel;
    latP = pseudoParallel * kGxDegToRad;
    latC = centreLatitude * kGxDegToRad;
    lon0 = centreLongitude * kGxDegToRad;
    alphaC = azimuth * kGxDegToRad;
    rotation = xyPlaneRotation * kGxDegToRad;
    xScale = xScale_;
    yScale = yScale_;
    falseEasting = falseEasting_;
    falseNorthing = falseNorthing_;

    const double s = std::sin(latC);
    const double cosLat = std::cos(latC);
    const double es = e * s;
    A = a * std::sqrt(1 - e2) / (1 - e2 * s * s);
    B = std::sqrt(1 + e2 * cosLat * cosLat * cosLat * cosLat / (1 - e2));
    gamma0 = std::asin(s / B);
    // The Gaussian sphere maps latitude phi to U with
    // tan(pi/4 + U/2) = t0 / t(phi)^B; t0 sends the centre latitude to gamma0.
    t0 = std::tan(kGxQuarterPi + gamma0 / 2) * std::pow((1 + es) / (1 - es), e * B / 2) /
         std::pow(std::tan(kGxQuarterPi + latC / 2), B);
    n = std::sin(latP);
    r0 = kp * A / std::tan(latP);
    cosRot = std::cos(rotation);
    sinRot = std::sin(rotation);
    cosAlpha = std::cos(alphaC);
    sinAlpha = std::sin(alphaC);
    tanHalfP = std::tan(kGxQuarterPi + latP / 2);
}

void CGxKrovak::_Forward(double lon, double lat, double* x, double* y) const {
    // Latitude U and longitude V on the Gaussian sphere; t0 / t^B is
    // tan(pi/4 + U/2) written with the conformal term t(phi) = exp(-psi).
    const double t = GxConformalT(lat * kGxDegToRad, e);
    const double U = 2 * (std::atan(t0 / std::pow(t, B)) - kGxQuarterPi);
    const double V = B * (lon0 - lon * kGxDegToRad);
    const double sinU = std::sin(U), cosU = std::cos(U);
    const double cosV = std::cos(V), sinV = std::sin(V);
    // Latitude T and longitude D about the pseudo pole.
    const double T = std::asin(cosAlpha * sinU + sinAlpha * cosU * cosV);
    const double sinT = std::sin(T), cosT = std::cos(T);
    const double D = std::atan2(cosU * sinV / cosT, (cosAlpha * sinT - sinU) / (sinAlpha * cosT));
    const double theta = n * D;
    const double r = r0 * std::pow(tanHalfP / std::tan(kGxQuarterPi + T / 2), n);
    const double xp = r * std::cos(theta) * xScale;
    const double yp = r * std::sin(theta) * yScale;
    *x = xp * cosRot - yp * sinRot + falseEasting;
    *y = yp * cosRot + xp * sinRot + falseNorthing;
}

void CGxKrovak::_Inverse(double x, double y, double* lon, double* lat) const {
    const double dx = x - falseEasting;
    const double dy = y - falseNorthing;
    // Each plane coordinate is rounded through its false origin, so that it
    // carries no more digits than a grid value of that size.
    const double yp = ((cosRot * dy - sinRot * dx) / yScale + falseNorthing) - falseNorthing;
    const double xp = ((cosRot * dx + sinRot * dy) / xScale + falseEasting) - falseEasting;
    const double D = std::atan2(yp, xp) / n;
    const double r = std::sqrt(xp * xp + yp * yp);
    const double T = 2 * (std::atan(tanHalfP * std::pow(r0 / r, 1 / n)) - kGxQuarterPi);
    const double sinT = std::sin(T), cosT = std::cos(T);
    const double U = std::asin(cosAlpha * sinT - sinAlpha * cosT * std::cos(D));
    const double V = std::asin(cosT * std::sin(D) / std::cos(U));
    *lon = (lon0 - V / B) * kGxRadToDeg;
    // Back from the Gaussian sphere to t(phi) of the ellipsoid, then the
    // latitude by the usual fixed-point iteration.
    const double t = std::pow(t0 / std::tan(kGxQuarterPi + U / 2), 1 / B);
    *lat = GxLatitudeFromT(t, e, conformal) * kGxRadToDeg;
}

void CGxKrovak::GetOrigin(double* lon, double* lat) const {
    *lon = lon0 * kGxRadToDeg;
    *lat = latC * kGxRadToDeg;
}

void CGxKrovak::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxSquareAroundOrigin(*this, kDefaultAreaHalfSide, x0, y0, x1, y1);
}

template class CGxLocalGridOf<CGxKrovak>;
template class CGxAlgorithmOf<CGxKrovak, CGxKrovakProjection>;
