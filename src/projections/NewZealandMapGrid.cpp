#include "projections/NewZealandMapGrid.h"

#include <cmath>

#include "definitions/NewZealandMapGridProjection.h"
#include "foundation/Angles.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"

namespace {

using Complex = CGxNewZealandMapGridConstants::Complex;

// Latitude difference in degrees per unit of the series variable (1e5
// arc-seconds).
constexpr double kSeriesUnitDegrees = 100000.0 / 3600.0;
// Newton-Raphson stops when a pass moves zeta by less than this (radians).
constexpr double kConvergence = 1e-12;
constexpr int kMaxPasses = 100;
// The grid's working area, metres.
constexpr double kAreaX0 = 2000000.0, kAreaY0 = 5300000.0;
constexpr double kAreaX1 = 3000000.0, kAreaY1 = 6800000.0;

Complex Add(Complex p, Complex q) {
    return {p.re + q.re, p.im + q.im};
}
Complex Sub(Complex p, Complex q) {
    return {p.re - q.re, p.im - q.im};
}
Complex Mul(Complex p, Complex q) {
    return {p.re * q.re - p.im * q.im, p.re * q.im + p.im * q.re};
}
Complex Scale(double k, Complex p) {
    return {k * p.re, k * p.im};
}

// Smith's division, scaled by the larger part of the denominator; a zero or
// NaN denominator gives NaN parts.
Complex Div(Complex p, Complex q) {
    if (std::fabs(q.re) >= std::fabs(q.im)) {
        const double r = q.im / q.re;
        const double d = q.re + q.im * r;
        return {(p.re + p.im * r) / d, (p.im - p.re * r) / d};
    }
    const double r = q.re / q.im;
    const double d = q.im + q.re * r;
    return {(p.re * r + p.im) / d, (p.im * r - p.re) / d};
}

// sum k[n] w^n for n = 0..6 by Horner's rule.
Complex Polynomial(const Complex* k, Complex w) {
    Complex s = k[6];
    for (int i = 5; i >= 0; --i) s = Add(Mul(s, w), k[i]);
    return s;
}

// sum k[n-1] w^n for n = 1..count by Horner's rule (no constant term).
double Series(const double* k, int count, double w) {
    double s = k[count - 1];
    for (int i = count - 2; i >= 0; --i) s = s * w + k[i];
    return s * w;
}

}  // namespace

CGxNewZealandMapGrid::CGxNewZealandMapGrid(const char* name_, double originLongitude,
                                           double originLatitude, double falseEasting_,
                                           double falseNorthing_, const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _Setup(originLongitude, originLatitude, falseEasting_, falseNorthing_, ellipsoid);
}

CGxNewZealandMapGrid::CGxNewZealandMapGrid(const CGxNewZealandMapGridProjection* def)
    : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetOriginLongitude(), def->GetOriginLatitude(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

void CGxNewZealandMapGrid::_Setup(double originLongitude, double originLatitude,
                                  double falseEasting_, double falseNorthing_,
                                  const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    e = ellipsoid.GetEccentricity();
    e2 = e * e;
    lon0 = originLongitude;
    lat0 = originLatitude;
    falseEasting = falseEasting_;
    falseNorthing = falseNorthing_;
}

void CGxNewZealandMapGrid::_Forward(double lon, double lat, double* x, double* y) const {
    const double u = (lat - lat0) * 3600 * 1e-5;
    const Complex zeta = {Series(kIsometricSeries, 10, u), (lon - lon0) * kGxPi / 180};
    const Complex z = Polynomial(kForwardPolynomial, zeta);
    *y = falseNorthing + a * z.re;
    *x = falseEasting + a * z.im;
}

void CGxNewZealandMapGrid::_Inverse(double x, double y, double* lon, double* lat) const {
    const Complex z = {(y - falseNorthing) / a, (x - falseEasting) / a};
    Complex zeta = Polynomial(kInversePolynomial, z);
    const Complex* b = kForwardPolynomial;
    for (int pass = 0; pass < kMaxPasses; ++pass) {
        // Newton's step for P(zeta) = z, written as one quotient:
        // (z + sum (n-1) B[n] zeta^n) / (sum n B[n] zeta^(n-1)).
        Complex num = Scale(5, b[6]);
        for (int n = 5; n >= 2; --n) num = Add(Mul(num, zeta), Scale(n - 1, b[n]));
        num = Add(Mul(Mul(num, zeta), zeta), z);
        Complex den = Scale(6, b[6]);
        for (int n = 5; n >= 1; --n) den = Add(Mul(den, zeta), Scale(n, b[n]));
        const Complex next = Div(num, den);
        const Complex step = Sub(next, zeta);
        zeta = next;
        if (std::hypot(step.re, step.im) < kConvergence) break;
    }
    *lat = lat0 + Series(kLatitudeSeries, 9, zeta.re) * kSeriesUnitDegrees;
    *lon = lon0 + zeta.im * 180 / kGxPi;
}

void CGxNewZealandMapGrid::GetOrigin(double* lon, double* lat) const {
    *lon = lon0;
    *lat = lat0;
}

void CGxNewZealandMapGrid::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    *x0 = kAreaX0;
    *y0 = kAreaY0;
    *x1 = kAreaX1;
    *y1 = kAreaY1;
}

template class CGxLocalGridOf<CGxNewZealandMapGrid>;
template class CGxAlgorithmOf<CGxNewZealandMapGrid, CGxNewZealandMapGridProjection>;
