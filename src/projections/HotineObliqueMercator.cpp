#include "projections/HotineObliqueMercator.h"

#include "definitions/HotineObliqueMercatorProjection.h"
#include "projections/AlgorithmCatalogue.h"

CGxHotineObliqueMercator::CGxHotineObliqueMercator(const char* name, double scale,
                                                   double centreLongitude, double centreLatitude,
                                                   double azimuth, double falseEasting,
                                                   double falseNorthing,
                                                   const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name, scale, centreLongitude, centreLatitude, azimuth, azimuth, false,
                     falseEasting, falseNorthing, ellipsoid) {}

CGxHotineObliqueMercator::CGxHotineObliqueMercator(const CGxHotineObliqueMercatorProjection* def)
    : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetCenterLongitude(), def->GetCenterLatitude(),
               def->GetAzimuth(), def->GetAzimuth(), false, def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

template class CGxAlgorithmOf<CGxHotineObliqueMercator, CGxHotineObliqueMercatorProjection,
                              CGxObliqueMercatorBase>;
