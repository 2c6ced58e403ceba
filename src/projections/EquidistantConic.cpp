// Equidistant conic: ellipsoidal and spherical formulas after Snyder, Map
// Projections: A Working Manual (USGS Professional Paper 1395), chapter 16.
// The radius of a parallel falls by the meridian arc, so northing differences
// along the central meridian are true lengths; the arc and its inverse are the
// series in the third flattening to sixth order (math/MeridianArc.h), exact to well
// below a nanometre. Southern cones (n < 0) keep positive radii in the inverse
// by turning both coordinate differences round. Longitudes are taken the
// shorter way round from the central meridian (math/ConeLongitude.h).

#include "projections/EquidistantConic.h"

#include <cmath>
#include <tuple>

#include "definitions/EquidistantConicProjection.h"
#include "foundation/Angles.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/math/ConeApexOffsets.h"
#include "projections/math/ConeLongitude.h"
#include "projections/math/MeridianArc.h"
#include "projections/math/ParallelRadius.h"

namespace {

// The polar angle theta and the signed radius rho of (x, y): the radii of a
// southern cone are negative.
void ConeRadiusAndAngle(double x, double y, double falseEasting, double falseNorthing, double rho0,
                        double n, double* rho, double* theta) {
    double dx, dy;
    GxConeApexOffsets(x, y, falseEasting, falseNorthing, rho0, n, &dx, &dy);
    *theta = std::atan2(dx, dy);
    *rho = std::sqrt(dx * dx + dy * dy);
    if (n < 0) *rho = -*rho;
}

}  // namespace

// ---------------------------------------------------------------- ellipsoid

CGxEquidistantConicEllipsoid::CGxEquidistantConicEllipsoid(
    double parallel1, double parallel2, double centralMeridian, double originLatitude,
    double falseEasting, double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxInnerFormOf(ellipsoid, eGxInnerEllipsoid, centralMeridian, originLatitude, falseEasting,
                     falseNorthing),
      lat1(parallel1 * kGxDegToRad),
      lat2(parallel2 * kGxDegToRad),
      meridian(GxMeridianSeries(e2)) {
    const double m1 = GxParallelRadius(lat1, e2);
    const double Mt1 = GxMeridianArc(lat1, meridian);
    // The tangent cone is the limit of the secant formula: -dm/dM = sin phi.
    if (lat1 == lat2)
        n = std::sin(lat1);
    else
        n = (m1 - GxParallelRadius(lat2, e2)) * a / (a * GxMeridianArc(lat2, meridian) - a * Mt1);
    G = m1 / n + Mt1;
    rho0 = a * G - a * GxMeridianArc(lat0, meridian);
}

void CGxEquidistantConicEllipsoid::Geo2Proj(double lon, double lat, double* x, double* y) const {
    const double rho = a * G - a * GxMeridianArc(lat * kGxDegToRad, meridian);
    const double theta = n * GxConeLongitudeDifference(lon * kGxDegToRad, lon0);
    *x = falseEasting + rho * std::sin(theta);
    *y = falseNorthing + rho0 - rho * std::cos(theta);
}

void CGxEquidistantConicEllipsoid::Proj2Geo(double x, double y, double* lon, double* lat) const {
    double rho, theta;
    ConeRadiusAndAngle(x, y, falseEasting, falseNorthing, rho0, n, &rho, &theta);
    const double mu = (a * G - rho) / (a * meridian.scale);
    *lat = GxFootpointLatitude(mu, meridian) * kGxRadToDeg;
    *lon = (theta / n + lon0) * kGxRadToDeg;
}

// ------------------------------------------------------------------- sphere

CGxEquidistantConicSphere::CGxEquidistantConicSphere(double parallel1, double parallel2,
                                                     double centralMeridian, double originLatitude,
                                                     double falseEasting, double falseNorthing,
                                                     const CGxEllipsoid& ellipsoid)
    : CGxInnerFormOf(ellipsoid, eGxInnerSphere, centralMeridian, originLatitude, falseEasting,
                     falseNorthing),
      lat1(parallel1 * kGxDegToRad),
      lat2(parallel2 * kGxDegToRad) {
    if (lat1 != lat2)
        n = (std::cos(lat1) - std::cos(lat2)) / (lat2 - lat1);
    else
        n = std::sin(lat1);
    G = std::cos(lat1) / n + lat1;
    rho0 = a * (G - lat0);
}

void CGxEquidistantConicSphere::Geo2Proj(double lon, double lat, double* x, double* y) const {
    const double rho = a * (G - lat * kGxDegToRad);
    const double theta = n * GxConeLongitudeDifference(lon * kGxDegToRad, lon0);
    *x = falseEasting + rho * std::sin(theta);
    *y = falseNorthing + rho0 - rho * std::cos(theta);
}

void CGxEquidistantConicSphere::Proj2Geo(double x, double y, double* lon, double* lat) const {
    double rho, theta;
    ConeRadiusAndAngle(x, y, falseEasting, falseNorthing, rho0, n, &rho, &theta);
    *lon = (theta / n + lon0) * kGxRadToDeg;
    *lat = (G - rho / a) * kGxRadToDeg;
}

// ------------------------------------------------------------------ wrapper

CGxEquidistantConic::CGxEquidistantConic(const char* name, double parallel1, double parallel2,
                                         double centralMeridian, double originLatitude,
                                         double falseEasting, double falseNorthing,
                                         const CGxEllipsoid& ellipsoid)
    : CGxProjWrapperOf(name, ellipsoid, parallel1, parallel2, centralMeridian, originLatitude,
                       falseEasting, falseNorthing) {}

CGxEquidistantConic::CGxEquidistantConic(const CGxEquidistantConicProjection* definition)
    : CGxProjWrapperOf(definition, [](const CGxEquidistantConicProjection& d) {
          return std::make_tuple(d.GetParallel1(), d.GetParallel2(), d.GetCentralMeridian(),
                                 d.GetOriginLatitude(), d.GetFalseEasting(), d.GetFalseNorthing());
      }) {}

template class CGxAlgorithmOf<CGxEquidistantConic, CGxEquidistantConicProjection, CGxProjWrapper>;
template class CGxProjWrapperOf<CGxEquidistantConic, CGxEquidistantConicEllipsoid,
                                CGxEquidistantConicSphere, CGxEquidistantConicProjection>;
