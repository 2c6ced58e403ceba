// Lambert azimuthal equal area: ellipsoidal and spherical formulas after
// Snyder, Map Projections: A Working Manual (USGS Professional Paper 1395),
// chapter 24. The ellipsoid maps the authalic latitude onto a sphere of equal
// area (radius Rq) and corrects the scale of the two axes at the centre (D),
// so that the centre keeps its true scale in every direction.
//
// The two forms differ at the very centre of the oblique aspect: the
// ellipsoidal inverse recognises a zero distance and returns the centre, the
// spherical one divides 0 by 0 and returns a NaN latitude.
//
// The ellipsoidal inverse returns from the authalic latitude exactly (series
// start and a Newton step, math/AuthalicLatitude.h). Near a pole the cosine of the
// authalic latitude, the radius of the polar aspects and the centre's scale
// D are taken from the distance of q to its polar value, so that an oblique
// centre next to a pole and points next to it keep full precision.

#include "projections/LambertAzimuthalEqualArea.h"

#include <cmath>
#include <tuple>

#include "definitions/LambertAzimuthalEqualAreaProjection.h"
#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/FourierCoefficients.h"
#include "projections/math/AuthalicLatitude.h"
#include "projections/math/ParallelRadius.h"

namespace {

constexpr int kOblique = 1;
constexpr int kNorthPolar = 2;
constexpr int kSouthPolar = 3;
// Beyond this |sin(beta)| (beta above 81.9 degrees) cos(beta) is taken from
// the distance of q to its polar value: sqrt(1 - sin^2) would lose digits in
// proportion to 1/cos^2(beta), metres at a centre 1e-3 degrees from a pole.
constexpr double kNearPoleSine = 0.99;

// cos of the authalic latitude of phi (radians) whose q is given; near a pole
// from qP -/+ q, which GxAuthalicQFromPole gives without cancellation.
double AuthalicCosine(double phi, double q, double qP, double e, double e2) {
    const double sinBeta = q / qP;
    if (std::fabs(sinBeta) <= kNearPoleSine) return std::sqrt(1 - sinBeta * sinBeta);
    const double sinPhi = std::sin(phi), cosPhi = std::cos(phi);
    const double fromPole = GxAuthalicQFromPole(std::fabs(sinPhi), cosPhi, e, e2);
    return std::sqrt(fromPole * (2 * qP - fromPole)) / qP;
}

int AspectOf(double originLatitude) {
    if (GxIsNear(originLatitude, 90.0)) return kNorthPolar;
    if (GxIsNear(originLatitude, -90.0)) return kSouthPolar;
    return kOblique;
}

// Default area of both forms: a box of degrees around the centre in the
// oblique aspect; around a pole, a square whose both ranges come from the
// easting of the pole. An unknown aspect leaves the corners alone.
void AzimuthalDefaultArea(const CGxProjInterface& p, int aspect, double lon0, double lat0,
                          double* x0, double* y0, double* x1, double* y1) {
    if (aspect == kOblique) {
        GxDefaultAreaAround(p, lon0, lat0, kGxDefaultAreaHalfSide, x0, y0, x1, y1);
    } else if (aspect == kNorthPolar || aspect == kSouthPolar) {
        GxSquareAroundEasting(p, lon0, lat0, kGxPolarAreaHalfSide, x0, y0, x1, y1);
    }
}

}  // namespace

// ---------------------------------------------------------------- ellipsoid

CGxLambertAzimuthalEqualAreaEllipsoid::CGxLambertAzimuthalEqualAreaEllipsoid(
    double centreLongitude, double originLatitude, double falseEasting, double falseNorthing,
    const CGxEllipsoid& ellipsoid)
    : CGxInnerFormOf(ellipsoid, eGxInnerEllipsoid, centreLongitude, originLatitude, falseEasting,
                     falseNorthing),
      lonOrigin(lon0),
      aspect(AspectOf(originLatitude)),
      qP(GxAuthalicQ(1.0, e, e2)),
      beta0(0.0),
      sinBeta0(0.0),
      cosBeta0(1.0),
      Rq(0.0),
      D(0.0) {
    GxComputeFourierCoefficients(EGxSeries::eAuthalicLatitude, false, e2, c);
    if (aspect == kOblique) {
        const double q0 = GxAuthalicQ(std::sin(lat0), e, e2);
        beta0 = std::asin(q0 / qP);
        sinBeta0 = std::sin(beta0);
        cosBeta0 = std::cos(beta0);
        if (std::fabs(sinBeta0) > kNearPoleSine) {
            // A centre close to a pole: cos(beta0) and the scale D, a ratio
            // of two small numbers, both from quantities kept exact.
            sinBeta0 = q0 / qP;
            cosBeta0 = AuthalicCosine(lat0, q0, qP, e, e2);
            beta0 = std::atan2(sinBeta0, cosBeta0);
        }
        Rq = a * std::sqrt(qP / 2);
        D = a * GxParallelRadius(lat0, e2) / (Rq * cosBeta0);
    }
}

void CGxLambertAzimuthalEqualAreaEllipsoid::Geo2Proj(double lon, double lat, double* x,
                                                     double* y) const {
    const double phi = lat * kGxDegToRad;
    const double q = GxAuthalicQ(std::sin(phi), e, e2);
    const double dlon = lon * kGxDegToRad - lonOrigin;
    const double sinDlon = std::sin(dlon), cosDlon = std::cos(dlon);
    switch (aspect) {
        case kOblique: {
            const double sinBeta = q / qP;
            const double cosBeta = AuthalicCosine(phi, q, qP, e, e2);
            const double B =
                Rq * std::sqrt(2 / (1 + sinBeta0 * sinBeta + cosBeta0 * cosBeta * cosDlon));
            *x = falseEasting + B * D * cosBeta * sinDlon;
            *y = falseNorthing + (B / D) * (cosBeta0 * sinBeta - sinBeta0 * cosBeta * cosDlon);
            break;
        }
        case kNorthPolar: {
            const double rho = a * std::sqrt(PolarDistance(phi, qP - q));
            *x = falseEasting + rho * sinDlon;
            *y = falseNorthing - rho * cosDlon;
            break;
        }
        case kSouthPolar: {
            const double rho = a * std::sqrt(PolarDistance(-phi, qP + q));
            *x = falseEasting + rho * sinDlon;
            *y = falseNorthing + rho * cosDlon;
            break;
        }
        default:
            break;
    }
}

double CGxLambertAzimuthalEqualAreaEllipsoid::PolarDistance(double phiFromPole,
                                                            double difference) const {
    // difference is qP -/+ q as computed; within kNearPoleSine of the pole
    // it is replaced by its cancellation-free form, so that the radius near
    // the pole keeps full relative precision.
    if (difference > (1 - kNearPoleSine) * qP) return difference;
    return GxAuthalicQFromPole(std::sin(phiFromPole), std::cos(phiFromPole), e, e2);
}

void CGxLambertAzimuthalEqualAreaEllipsoid::Proj2Geo(double x, double y, double* lon,
                                                     double* lat) const {
    const double dx = x - falseEasting;
    const double dy = y - falseNorthing;
    // The authalic latitude as sine and cosine, each computed where it is
    // well conditioned, so that the latitude is exact up to the poles.
    double sinBeta, cosBeta, lambda;
    switch (aspect) {
        case kOblique: {
            const double rho = std::sqrt((dx / D) * (dx / D) + (D * dy) * (D * dy));
            if (rho == 0) {
                // The centre itself.
                *lon = lonOrigin * kGxRadToDeg;
                *lat = lat0 * kGxRadToDeg;
                return;
            }
            const double C = 2 * std::asin(rho / (2 * Rq));
            const double sinC = std::sin(C), cosC = std::cos(C);
            // Direction from the centre on the sphere of equal area: cos and
            // sin of the azimuth are D dy / rho and dx / (D rho).
            const double T = D * dy * sinC * cosBeta0 / rho;
            const double east = dx * sinC / (D * rho);
            const double north = cosC * cosBeta0 - D * dy * sinC * sinBeta0 / rho;
            sinBeta = cosC * sinBeta0 + T;
            cosBeta = std::hypot(east, north);
            lambda = lonOrigin + std::atan2(dx * sinC, D * rho * cosBeta0 * cosC -
                                                           D * D * dy * sinBeta0 * sinC);
            break;
        }
        case kNorthPolar:
        case kSouthPolar: {
            // 1 - sin(beta) = rho^2 / (a^2 qP), small and exact near the pole.
            const double t = (dx * dx + dy * dy) / (a * a * qP);
            sinBeta = lat0 < 0 ? t - 1 : 1 - t;
            cosBeta = std::sqrt(t * (2 - t));
            lambda = lonOrigin + (aspect == kNorthPolar ? std::atan2(dx, -dy) : std::atan2(dx, dy));
            break;
        }
        default:
            return;
    }
    *lon = lambda * kGxRadToDeg;
    *lat = GxLatitudeFromAuthalic(sinBeta, cosBeta, c, e, e2, qP) * kGxRadToDeg;
}

void CGxLambertAzimuthalEqualAreaEllipsoid::GetDefaultArea(double* x0, double* y0, double* x1,
                                                           double* y1) const {
    AzimuthalDefaultArea(*this, aspect, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg, x0, y0, x1, y1);
}

// ------------------------------------------------------------------- sphere

CGxLambertAzimuthalEqualAreaSphere::CGxLambertAzimuthalEqualAreaSphere(
    double centreLongitude, double originLatitude, double falseEasting, double falseNorthing,
    const CGxEllipsoid& ellipsoid)
    : CGxInnerFormOf(ellipsoid, eGxInnerSphere, centreLongitude, originLatitude, falseEasting,
                     falseNorthing),
      aspect(AspectOf(originLatitude)),
      sinLat0(std::sin(lat0)),
      cosLat0(std::cos(lat0)) {}

void CGxLambertAzimuthalEqualAreaSphere::Geo2Proj(double lon, double lat, double* x,
                                                  double* y) const {
    const double phi = lat * kGxDegToRad;
    const double dlon = lon * kGxDegToRad - lon0;
    const double sinDlon = std::sin(dlon), cosDlon = std::cos(dlon);
    switch (aspect) {
        case kOblique: {
            const double sinPhi = std::sin(phi), cosPhi = std::cos(phi);
            const double k = std::sqrt(2 / (1 + sinLat0 * sinPhi + cosLat0 * cosPhi * cosDlon));
            *x = falseEasting + a * k * cosPhi * sinDlon;
            *y = falseNorthing + a * k * (cosLat0 * sinPhi - sinLat0 * cosPhi * cosDlon);
            break;
        }
        case kNorthPolar: {
            const double rho = 2 * a * std::sin(kGxQuarterPi - phi / 2);
            *x = falseEasting + rho * sinDlon;
            *y = falseNorthing - rho * cosDlon;
            break;
        }
        case kSouthPolar: {
            const double rho = 2 * a * std::cos(kGxQuarterPi - phi / 2);
            *x = falseEasting + rho * sinDlon;
            *y = falseNorthing + rho * cosDlon;
            break;
        }
        default:
            break;
    }
}

void CGxLambertAzimuthalEqualAreaSphere::Proj2Geo(double x, double y, double* lon,
                                                  double* lat) const {
    const double dx = x - falseEasting;
    const double dy = y - falseNorthing;
    const double rho = std::sqrt(dx * dx + dy * dy);
    const double c = 2 * std::asin(rho / (2 * a));
    const double sinC = std::sin(c), cosC = std::cos(c);
    switch (aspect) {
        case kOblique:
            *lon = (lon0 + std::atan2(dx * sinC, rho * cosLat0 * cosC - dy * sinLat0 * sinC)) *
                   kGxRadToDeg;
            *lat = std::asin(cosC * sinLat0 + dy * sinC * cosLat0 / rho) * kGxRadToDeg;
            break;
        case kNorthPolar:
        case kSouthPolar:
            *lon = (lon0 + (aspect == kNorthPolar ? std::atan2(dx, -dy) : std::atan2(dx, dy))) *
                   kGxRadToDeg;
            *lat = (rho == 0 ? lat0 : std::asin(cosC * sinLat0 + dy * sinC * cosLat0 / rho)) *
                   kGxRadToDeg;
            break;
        default:
            break;
    }
}

void CGxLambertAzimuthalEqualAreaSphere::GetDefaultArea(double* x0, double* y0, double* x1,
                                                        double* y1) const {
    AzimuthalDefaultArea(*this, aspect, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg, x0, y0, x1, y1);
}

// ------------------------------------------------------------------ wrapper

CGxLambertAzimuthalEqualArea::CGxLambertAzimuthalEqualArea(const char* name, double centreLongitude,
                                                           double originLatitude,
                                                           double falseEasting,
                                                           double falseNorthing,
                                                           const CGxEllipsoid& ellipsoid)
    : CGxProjWrapperOf(name, ellipsoid, centreLongitude, originLatitude, falseEasting,
                       falseNorthing) {}

CGxLambertAzimuthalEqualArea::CGxLambertAzimuthalEqualArea(
    const CGxLambertAzimuthalEqualAreaProjection* definition)
    : CGxProjWrapperOf(definition, [](const CGxLambertAzimuthalEqualAreaProjection& d) {
          return std::make_tuple(d.GetCentre(), d.GetOriginLatitude(), d.GetFalseEasting(),
                                 d.GetFalseNorthing());
      }) {}

template class CGxAlgorithmOf<CGxLambertAzimuthalEqualArea, CGxLambertAzimuthalEqualAreaProjection,
                              CGxProjWrapper>;
template class CGxProjWrapperOf<CGxLambertAzimuthalEqualArea, CGxLambertAzimuthalEqualAreaEllipsoid,
                                CGxLambertAzimuthalEqualAreaSphere,
                                CGxLambertAzimuthalEqualAreaProjection>;
