// Mercator, one standard parallel: the equator with a given scale factor
// (EPSG Guidance Note 7-2, method 9804, ellipsoidal form).

#include "projections/Mercator1SP.h"

#include "definitions/Mercator1SPProjection.h"
#include "projections/AlgorithmCatalogue.h"

CGxMercator1SP::CGxMercator1SP(const char* name_, double scale, double centreLongitude,
                               double falseEasting, double falseNorthing,
                               const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _Setup(scale, 0.0, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxMercator1SP::CGxMercator1SP(const CGxMercator1SPProjection* def) : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), 0.0, def->GetCentre(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

template class CGxAlgorithmOf<CGxMercator1SP, CGxMercator1SPProjection, CGxMercatorBase>;
