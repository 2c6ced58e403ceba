#include "projections/ObliqueMercator.h"

#include "definitions/ObliqueMercatorProjection.h"
#include "projections/AlgorithmTransfer.h"

CGxObliqueMercator::CGxObliqueMercator(const char* name, double scale, double centreLongitude,
                                       double centreLatitude, double azimuth, double falseEasting,
                                       double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxObliqueMercatorBase(name, scale, centreLongitude, centreLatitude, azimuth, azimuth, true,
                             falseEasting, falseNorthing, ellipsoid) {}

CGxObliqueMercator::CGxObliqueMercator(const CGxObliqueMercatorProjection* def)
    : CGxObliqueMercatorBase(GxDefinitionName(def)) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetScale(), def->GetCenterLongitude(), def->GetCenterLatitude(),
               def->GetAzimuth(), def->GetAzimuth(), true, def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

CGxProjection* CGxObliqueMercator::Clone() const {
    return new CGxObliqueMercator(*this);
}

void CGxObliqueMercator::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxObliqueMercator::GetMapProjection, parser);
}

bool CGxObliqueMercator::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxObliqueMercator::GetMapProjection(CGxObliqueMercatorProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
