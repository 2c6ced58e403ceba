// Mercator, one standard parallel: the equator with a given scale factor
// (EPSG Guidance Note 7-2, method 9804, ellipsoidal form).

#include "projections/Mercator1SP.h"

#include "definitions/Mercator1SPProjection.h"
#include "projections/AlgorithmCatalogue.h"

namespace {
// Projection type number of this form; it selects the conformal series.
constexpr int kMercator1SPType = 11;
}  // namespace

CGxMercator1SP::CGxMercator1SP(const char* name_, double scale, double centreLongitude,
                               double falseEasting, double falseNorthing,
                               const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _Setup(kMercator1SPType, scale, 0.0, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxMercator1SP::CGxMercator1SP(const CGxMercator1SPProjection* def) : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(kMercator1SPType, def->GetScale(), 0.0, def->GetCentre(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

template class CGxAlgorithmOf<CGxMercator1SP, CGxMercator1SPProjection, CGxMercatorBase>;
