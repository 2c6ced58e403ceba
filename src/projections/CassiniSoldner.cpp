// Cassini-Soldner: ellipsoidal and spherical formulas after Snyder, Map
// Projections: A Working Manual (USGS Professional Paper 1395), chapter 13.
// Northings measure the meridian arc from the origin latitude; the inverse
// starts from the footpoint latitude of that arc. Arc and footpoint are the
// series in the third flattening to sixth order (math/MeridianArc.h); the series
// in the longitude difference are Snyder's.

#include "projections/CassiniSoldner.h"

#include <cmath>
#include <tuple>

#include "definitions/CassiniSoldnerProjection.h"
#include "foundation/Angles.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/math/MeridianArc.h"

// ---------------------------------------------------------------- ellipsoid

CGxCassiniSoldnerEllipsoid::CGxCassiniSoldnerEllipsoid(double centralMeridian,
                                                       double originLatitude, double falseEasting,
                                                       double falseNorthing,
                                                       const CGxEllipsoid& ellipsoid)
    : CGxInnerFormOf(ellipsoid, eGxInnerEllipsoid, centralMeridian, originLatitude, falseEasting,
                     falseNorthing),
      meridian(GxMeridianSeries(e2)),
      M0(a * GxMeridianArc(lat0, meridian)) {}

void CGxCassiniSoldnerEllipsoid::Geo2Proj(double lon, double lat, double* x, double* y) const {
    const double phi = lat * kGxDegToRad;
    const double sinPhi = std::sin(phi), cosPhi = std::cos(phi);
    const double tanPhi = sinPhi / cosPhi;
    const double nu = a / std::sqrt(1 - e2 * sinPhi * sinPhi);
    const double T = tanPhi * tanPhi;
    const double C = e2 * cosPhi * cosPhi / (1 - e2);
    const double A = (lon * kGxDegToRad - lon0) * cosPhi;
    const double A2 = A * A;
    *x = falseEasting + nu * A * (1 - T * A2 / 6 - (8 - T + 8 * C) * T * A2 * A2 / 120);
    *y = falseNorthing + a * GxMeridianArc(phi, meridian) - M0 +
         nu * tanPhi * A2 * (0.5 + (5 - T + 6 * C) * A2 / 24);
}

void CGxCassiniSoldnerEllipsoid::Proj2Geo(double x, double y, double* lon, double* lat) const {
    const double mu = (M0 + (y - falseNorthing)) / (a * meridian.scale);
    const double phi1 = GxFootpointLatitude(mu, meridian);
    const double sinPhi1 = std::sin(phi1), cosPhi1 = std::cos(phi1);
    const double tanPhi1 = sinPhi1 / cosPhi1;
    const double w = 1 - e2 * sinPhi1 * sinPhi1;
    const double nu1 = a / std::sqrt(w);
    const double rho1 = a * (1 - e2) / (w * std::sqrt(w));
    const double T1 = tanPhi1 * tanPhi1;
    const double D = (x - falseEasting) / nu1;
    const double D2 = D * D;
    *lat = (phi1 - (nu1 * tanPhi1 / rho1) * D2 * (0.5 - (1 + 3 * T1) * D2 / 24)) * kGxRadToDeg;
    *lon =
        (lon0 + D * (1 - T1 * D2 / 3 + (1 + 3 * T1) * T1 * D2 * D2 / 15) / cosPhi1) * kGxRadToDeg;
}

// ------------------------------------------------------------------- sphere

CGxCassiniSoldnerSphere::CGxCassiniSoldnerSphere(double centralMeridian, double originLatitude,
                                                 double falseEasting, double falseNorthing,
                                                 const CGxEllipsoid& ellipsoid)
    : CGxInnerFormOf(ellipsoid, eGxInnerSphere, centralMeridian, originLatitude, falseEasting,
                     falseNorthing) {}

void CGxCassiniSoldnerSphere::Geo2Proj(double lon, double lat, double* x, double* y) const {
    const double phi = lat * kGxDegToRad;
    const double dlon = lon * kGxDegToRad - lon0;
    *x = falseEasting + a * std::asin(std::cos(phi) * std::sin(dlon));
    *y = falseNorthing + a * (std::atan2(std::tan(phi), std::cos(dlon)) - lat0);
}

void CGxCassiniSoldnerSphere::Proj2Geo(double x, double y, double* lon, double* lat) const {
    const double D = (x - falseEasting) / a;
    const double Dd = (y - falseNorthing) / a + lat0;
    *lon = (lon0 + std::atan2(std::tan(D), std::cos(Dd))) * kGxRadToDeg;
    *lat = std::asin(std::sin(Dd) * std::cos(D)) * kGxRadToDeg;
}

// ------------------------------------------------------------------ wrapper

CGxCassiniSoldner::CGxCassiniSoldner(const char* name, double centralMeridian,
                                     double originLatitude, double falseEasting,
                                     double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxProjWrapperOf(name, ellipsoid, centralMeridian, originLatitude, falseEasting,
                       falseNorthing) {}

CGxCassiniSoldner::CGxCassiniSoldner(const CGxCassiniSoldnerProjection* definition)
    : CGxProjWrapperOf(definition, [](const CGxCassiniSoldnerProjection& d) {
          return std::make_tuple(d.GetCentralMeridian(), d.GetOriginLatitude(), d.GetFalseEasting(),
                                 d.GetFalseNorthing());
      }) {}

template class CGxAlgorithmOf<CGxCassiniSoldner, CGxCassiniSoldnerProjection, CGxProjWrapper>;
template class CGxProjWrapperOf<CGxCassiniSoldner, CGxCassiniSoldnerEllipsoid,
                                CGxCassiniSoldnerSphere, CGxCassiniSoldnerProjection>;
