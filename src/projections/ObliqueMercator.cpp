#include "projections/ObliqueMercator.h"

#include "definitions/ObliqueMercatorProjection.h"
#include "projections/AlgorithmCatalogue.h"

CGxObliqueMercator::CGxObliqueMercator(const char* name, double scale, double centreLongitude,
                                       double centreLatitude, double azimuth, double falseEasting,
                                       double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name, scale, centreLongitude, centreLatitude, azimuth, azimuth, true,
                     falseEasting, falseNorthing, ellipsoid) {}

CGxObliqueMercator::CGxObliqueMercator(const CGxObliqueMercatorProjection* def)
    : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetCenterLongitude(), def->GetCenterLatitude(),
               def->GetAzimuth(), def->GetAzimuth(), true, def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

template class CGxAlgorithmOf<CGxObliqueMercator, CGxObliqueMercatorProjection,
                              CGxObliqueMercatorBase>;
