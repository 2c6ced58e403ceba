#include "projections/HotineObliqueMercator.h"

#include "definitions/HotineObliqueMercatorProjection.h"
#include "projections/AlgorithmTransfer.h"

CGxHotineObliqueMercator::CGxHotineObliqueMercator(const char* name, double scale,
                                                   double centreLongitude, double centreLatitude,
                                                   double azimuth, double falseEasting,
                                                   double falseNorthing,
                                                   const CGxEllipsoid& ellipsoid)
    : CGxObliqueMercatorBase(name, scale, centreLongitude, centreLatitude, azimuth, azimuth, false,
                             falseEasting, falseNorthing, ellipsoid) {}

CGxHotineObliqueMercator::CGxHotineObliqueMercator(const CGxHotineObliqueMercatorProjection* def)
    : CGxObliqueMercatorBase(GxDefinitionName(def)) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetCenterLongitude(), def->GetCenterLatitude(),
               def->GetAzimuth(), def->GetAzimuth(), false, def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

CGxProjection* CGxHotineObliqueMercator::Clone() const {
    return new CGxHotineObliqueMercator(*this);
}

void CGxHotineObliqueMercator::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxHotineObliqueMercator::GetMapProjection, parser);
}

bool CGxHotineObliqueMercator::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxHotineObliqueMercator::GetMapProjection(
    CGxHotineObliqueMercatorProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
