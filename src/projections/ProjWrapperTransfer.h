#pragma once

// How a wrapper algorithm is written as WKT: through the catalogue definition
// of its name. Included only by the wrappers' source files, each of which
// instantiates its CGxProjWrapperOf explicitly.

#include "projections/AlgorithmTransfer.h"
#include "projections/ProjInterface.h"

template <class TAlgorithm, class TEllipsoidForm, class TSphereForm, class TDefinition>
void CGxProjWrapperOf<TAlgorithm, TEllipsoidForm, TSphereForm, TDefinition>::TransferParameters(
    CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxProjWrapperOf::GetMapProjection, parser);
}

template <class TAlgorithm, class TEllipsoidForm, class TSphereForm, class TDefinition>
bool CGxProjWrapperOf<TAlgorithm, TEllipsoidForm, TSphereForm, TDefinition>::GetMapProjection(
    TDefinition& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
