// Mercator, two standard parallels: true to scale along +-lat1 (EPSG Guidance
// Note 7-2, method 9805). The equator scale is the radius of the standard
// parallel in units of a, k0 = cos(lat1) / sqrt(1 - e^2 sin^2(lat1)); with the
// equator as standard parallel it is 1 and this form equals the one-parallel
// form with scale 1.

#include "projections/Mercator2SP.h"

#include "definitions/Mercator2SPProjection.h"
#include "foundation/Angles.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/math/ParallelRadius.h"

CGxMercator2SP::CGxMercator2SP(const char* name_, double parallel1, double centreLongitude,
                               double falseEasting, double falseNorthing,
                               const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _SetupFromParallel(parallel1, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxMercator2SP::CGxMercator2SP(const CGxMercator2SPProjection* def) : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _SetupFromParallel(def->GetParallel1(), def->GetCentre(), def->GetFalseEasting(),
                           def->GetFalseNorthing(), *ellipsoid);
    }
}

void CGxMercator2SP::_SetupFromParallel(double parallel1, double centreLongitude,
                                        double falseEasting, double falseNorthing,
                                        const CGxEllipsoid& ellipsoid) {
    const double e = ellipsoid.GetEccentricity();
    const double k0 = GxParallelRadius(parallel1 * kGxDegToRad, e * e);
    _Setup(k0, k0, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

template class CGxAlgorithmOf<CGxMercator2SP, CGxMercator2SPProjection, CGxMercatorBase>;
