#include "projections/RectifiedSkewOrthomorphic.h"

#include "definitions/RectifiedSkewOrthomorphicProjection.h"
#include "projections/AlgorithmTransfer.h"

CGxRectifiedSkewOrthomorphic::CGxRectifiedSkewOrthomorphic(
    const char* name, double scale, double centreLongitude, double centreLatitude, double azimuth,
    double xyPlaneRotation, double falseEasting, double falseNorthing,
    const CGxEllipsoid& ellipsoid)
    : CGxObliqueMercatorBase(name, scale, centreLongitude, centreLatitude, azimuth, xyPlaneRotation,
                             false, falseEasting, falseNorthing, ellipsoid) {}

CGxRectifiedSkewOrthomorphic::CGxRectifiedSkewOrthomorphic(
    const CGxRectifiedSkewOrthomorphicProjection* def)
    : CGxObliqueMercatorBase(GxDefinitionName(def)) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetCenterLongitude(), def->GetCenterLatitude(),
               def->GetAzimuth(), def->GetXYPlaneRotation(), false, def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

CGxProjection* CGxRectifiedSkewOrthomorphic::Clone() const {
    return new CGxRectifiedSkewOrthomorphic(*this);
}

void CGxRectifiedSkewOrthomorphic::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxRectifiedSkewOrthomorphic::GetMapProjection, parser);
}

bool CGxRectifiedSkewOrthomorphic::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxRectifiedSkewOrthomorphic::GetMapProjection(
    CGxRectifiedSkewOrthomorphicProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
