#include "projections/RectifiedSkewOrthomorphic.h"

#include "definitions/RectifiedSkewOrthomorphicProjection.h"
#include "projections/AlgorithmCatalogue.h"

CGxRectifiedSkewOrthomorphic::CGxRectifiedSkewOrthomorphic(
    const char* name, double scale, double centreLongitude, double centreLatitude, double azimuth,
    double xyPlaneRotation, double falseEasting, double falseNorthing,
    const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name, scale, centreLongitude, centreLatitude, azimuth, xyPlaneRotation, false,
                     falseEasting, falseNorthing, ellipsoid) {}

CGxRectifiedSkewOrthomorphic::CGxRectifiedSkewOrthomorphic(
    const CGxRectifiedSkewOrthomorphicProjection* def)
    : CGxAlgorithmOf(def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetCenterLongitude(), def->GetCenterLatitude(),
               def->GetAzimuth(), def->GetXYPlaneRotation(), false, def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

template class CGxAlgorithmOf<CGxRectifiedSkewOrthomorphic, CGxRectifiedSkewOrthomorphicProjection,
                              CGxObliqueMercatorBase>;
