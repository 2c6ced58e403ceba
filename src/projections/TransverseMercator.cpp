#include "projections/TransverseMercator.h"

#include <cmath>
#include <limits>

#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/ClenshawSeries.h"
#include "projections/math/TransverseMercatorMath.h"

namespace {

constexpr int kTerms = 4;
// Northings are folded over the poles and mirrored at the equator about this
// value, a round quarter meridian.
constexpr double kFoldNorthing = 10000000.0;
constexpr double kLocalAreaSize = 10000.0;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

GxTransverseMercatorParameters GxTransverseMercatorValues(double k0, double lon0, double lat0,
                                                          double FE, double FN,
                                                          const CGxEllipsoid& ellipsoid) {
    return {k0,
            lon0,
            lat0,
            FE,
            FN,
            ellipsoid.GetMajor(),
            ellipsoid.GetMinor(),
            ellipsoid.GetFlatness(),
            ellipsoid.GetEccentricity()};
}

GxTransverseMercatorParameters GxTransverseMercatorValues(
    const CGxTransverseMercatorProjection* def) {
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        return GxTransverseMercatorValues(def->GetScale(), def->GetCentre(),
                                          def->GetOriginLatitude(), def->GetFalseEasting(),
                                          def->GetFalseNorthing(), *ellipsoid);
    }
    // No catalogue figure: an earth of no size, whose eccentricity (0/0) is
    // undefined.
    GxTransverseMercatorParameters p = {kNaN, kNaN, kNaN, kNaN, kNaN, 0.0, 0.0, 0.0, kNaN};
    if (def) {
        p.k0 = def->GetScale();
        p.lon0 = def->GetCentre();
        p.lat0 = def->GetOriginLatitude();
        p.FE = def->GetFalseEasting();
        p.FN = def->GetFalseNorthing();
    }
    return p;
}

CGxTransverseMercatorBase::CGxTransverseMercatorBase(const char* name_,
                                                     const GxTransverseMercatorParameters& p)
    : CGxAlgorithm(name_), b(p.b), k0(p.k0), FE(p.FE), FN(p.FN) {
    a = p.a;
    f = p.f;
}

void CGxTransverseMercatorBase::GetDefaultArea(double* x0, double* y0, double* x1,
                                               double* y1) const {
    if (_IsLocalGrid()) {
        *x0 = 0.0;
        *y0 = 0.0;
        *x1 = kLocalAreaSize;
        *y1 = kLocalAreaSize;
        return;
    }
    double lon, lat;
    GetOrigin(&lon, &lat);
    GxDefaultAreaAround(*this, lon, lat, kGxDefaultAreaHalfSide, x0, y0, x1, y1);
}

bool CGxTransverseMercatorBase::GetMapProjection(
    CGxTransverseMercatorProjection& definition) const {
    return _CatalogueDefinition(definition);
}

bool CGxTransverseMercatorBase::_CatalogueDefinition(
    CGxTransverseMercatorProjection& definition) const {
    CGxTransverseMercatorProjection found;
    if (!GxCatalogueDefinitionOf(GetName(), found)) return false;
    definition = _WrittenDefinition(found);
    return true;
}

CGxTransverseMercatorProjection CGxTransverseMercatorBase::_WrittenDefinition(
    const CGxTransverseMercatorProjection& found) const {
    return found;
}

CGxTransverseMercator::CGxTransverseMercator(const char* name_, double k0_, double lon0_,
                                             double lat0_, double FE_, double FN_,
                                             const CGxEllipsoid& ellipsoid)
    : CGxTransverseMercator(name_,
                            GxTransverseMercatorValues(k0_, lon0_, lat0_, FE_, FN_, ellipsoid)) {}

CGxTransverseMercator::CGxTransverseMercator(const CGxTransverseMercatorProjection* def)
    : CGxTransverseMercator(GxDefinitionName(def).c_str(), GxTransverseMercatorValues(def)) {}

CGxTransverseMercator::CGxTransverseMercator(const char* name_,
                                             const GxTransverseMercatorParameters& p)
    : CGxAlgorithmOf(name_, p),
      lon0(p.lon0),
      lat0(p.lat0),
      n(f / (2 - f)),
      X(n * n / 4 + n * n * n * n / 64),
      originNorthing(0.0) {
    GxGaussianLatitudeSeries(n, G1, G2);
    // Krueger's forward series and the inverse one with its own (negative) signs.
    GxComputeFourierCoefficients(EGxSeries::eKruegerTransverseMercator, true, n, U1);
    GxComputeFourierCoefficients(EGxSeries::eKruegerTransverseMercator, false, n, U2);
    for (double& u : U2) u = -u;
    // k0 a (1 + X)/(1 + n), arranged as a plus a small correction; the rounding
    // of this arrangement is part of the grid's established values.
    Qk = a + (k0 * X - n - (1 - k0)) * a / (n + 1);
    if (lat0 != 0.0) {
        double x0;
        _SeriesForward(lon0, lat0, FE, 0.0, &x0, &originNorthing);
    }
}

void CGxTransverseMercator::_SeriesForward(double lon, double lat, double fe, double fn, double* x,
                                           double* y) const {
    // Northern hemisphere only; the south is mirrored below. The Gaussian
    // latitude g = p + dg differs from p by a small angle, so its sine and
    // cosine follow from those of p.
    const double p = std::fabs(lat) * kGxDegToRad;
    const double sp = std::sin(p), cp = std::cos(p);
    const double dg = GxClenshawSine(G1, kTerms, 2 * sp * cp, (cp - sp) * (cp + sp));
    double sg, cg;
    if (std::fabs(dg) <= kGxTmSmall) {
        GxTmRotate(sp, cp, dg, &sg, &cg);
    } else {
        sg = std::sin(p + dg);
        cg = std::cos(p + dg);
    }
    const double dl = (lon - lon0) * kGxDegToRad;
    const double sdl = std::sin(dl), cdl = std::cos(dl);
    // Spherical transverse Mercator on the Gaussian sphere.
    const double u = cdl * cg;
    const double t = sdl * cg;
    const double gp = std::atan2(sg, u);
    const double ep = GxTmAtanh(t);
    // sin, cos of 2g' and sinh, cosh of 2e' without further transcendental
    // calls: tan g' = sg/u and tanh e' = t, and 1 - t^2 = sg^2 + u^2.
    const double inv = 1 / (sg * sg + u * u);
    double R, I;
    GxClenshawComplexSine(U1, kTerms, 2 * sg * u * inv, (u * u - sg * sg) * inv, 2 * t * inv,
                          (1 + t * t) * inv, &R, &I);
    double northing = (gp + R) * Qk;
    *x = (ep + I) * Qk + fe;
    if (lat > 90.0) {
        northing = 2 * kFoldNorthing - northing;
    } else if (lat >= -90.0 && lat < 0.0) {
        northing = -northing;
    } else if (lat < -90.0) {
        northing = northing - 2 * kFoldNorthing;
    }
    *y = northing + fn;
}

void CGxTransverseMercator::_SeriesInverse(double x, double y, double* lon, double* lat) const {
    const double dN = y - FN;
    const double ce = (x - FE) / Qk;
    const double cn = std::fabs(dN / Qk);
    // One sine/cosine pair of cn and one exponential of ce serve the series
    // (through the doubled arguments) and, by the addition theorems, the
    // corrected cn' = cn + R and ce' = ce + I, R and I being small on any
    // sensible grid.
    const double sc = std::sin(cn), cc = std::cos(cn);
    const double E = std::exp(ce), iE = 1 / E;
    const double sh = (E - iE) / 2, ch = (E + iE) / 2;
    double R, I;
    GxClenshawComplexSine(U2, kTerms, 2 * sc * cc, (cc - sc) * (cc + sc), 2 * sh * ch,
                          ch * ch + sh * sh, &R, &I);
    double scn, ccn, shce;
    if (std::fabs(R) <= kGxTmSmall && std::fabs(I) <= kGxTmSmall) {
        GxTmRotate(sc, cc, R, &scn, &ccn);
        double shI, chI;
        GxTmSinhCosh(I, &shI, &chI);
        shce = sh * chI + ch * shI;
    } else {
        scn = std::sin(cn + R);
        ccn = std::cos(cn + R);
        shce = std::sinh(ce + I);
    }
    const double lam = std::atan2(shce, ccn);
    // cos(atan2(shce, ccn)) without the cosine call.
    const double r = std::sqrt(shce * shce + ccn * ccn);
    const double coslam = r > 0 ? ccn / r : 1.0;
    const double gy = scn * coslam;
    const double g = std::atan2(gy, ccn);
    // Gaussian back to geodetic latitude; sin 2g and cos 2g from tan g = gy/ccn.
    const double inv = 1 / (gy * gy + ccn * ccn);
    double phi = (g + GxClenshawSine(G2, kTerms, 2 * gy * ccn * inv, (ccn * ccn - gy * gy) * inv)) *
                 kGxRadToDeg;
    if (dN >= kFoldNorthing) {
        phi = phi + 180.0;
    } else if (dN > -kFoldNorthing && dN < 0.0) {
        phi = -phi;
    } else if (dN <= -kFoldNorthing) {
        phi = -180.0 - phi;
    }
    *lat = phi;
    *lon = lam * kGxRadToDeg + lon0;
}

void CGxTransverseMercator::_Forward(double lon, double lat, double* x, double* y) const {
    _SeriesForward(lon, lat, FE, FN, x, y);
    *y -= originNorthing;
}

void CGxTransverseMercator::_Inverse(double x, double y, double* lon, double* lat) const {
    _SeriesInverse(x, y + originNorthing, lon, lat);
}

void CGxTransverseMercator::GetOrigin(double* lon, double* lat) const {
    *lon = lon0;
    *lat = lat0;
}

double CGxTransverseMercator::_Convergence(double lon, double lat) const {
    return GxTransverseMercatorConvergence((lon - lon0) * kGxDegToRad, lat * kGxDegToRad, a, b, k0);
}

double CGxTransverseMercator::GetScaleFactor(double lon, double lat) const {
    const double phi = lat * kGxDegToRad;
    const double dl = (lon - lon0) * kGxDegToRad;
    const double c = std::cos(phi), t = std::tan(phi);
    const double eta2 = GxTmSecondEccentricityTerm(std::sin(phi), a, b, k0);
    const double te = std::tan(eta2 * phi);
    const double c2 = c * c, dl2 = dl * dl;
    return k0 * (1 + c2 * (1 + eta2) * dl2 / 2 +
                 c2 * c2 * dl2 * dl2 * (5 - 4 * t * t + 14 * eta2 - 28 * te * te));
}

CGxTransverseMercatorProjection CGxTransverseMercator::_WrittenDefinition(
    const CGxTransverseMercatorProjection& found) const {
    // This grid may have been built on another central meridian than the
    // catalogue's (a zone widened or shifted by the caller); it is its own
    // that the written system must carry.
    return CGxTransverseMercatorProjection(
        found.GetName(), found.GetBranchName(), found.GetEllipsoidID(), found.GetScale(), lon0,
        found.GetOriginLatitude(), found.GetFalseEasting(), found.GetFalseNorthing(),
        found.CanDelete(), found.CanEdit());
}

template class CGxLocalGridOf<CGxTransverseMercator, CGxTransverseMercatorBase>;
template class CGxAlgorithmOf<CGxTransverseMercator, CGxTransverseMercatorProjection,
                              CGxLocalGridOf<CGxTransverseMercator, CGxTransverseMercatorBase>>;
