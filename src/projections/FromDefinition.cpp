#include "projections/FromDefinition.h"

#include "definitions/MapProjData.h"
#include "projections/ProjectionSupport.h"

std::string GxDefinitionName(const CGxMapProjData* definition) {
    return definition ? definition->GetName() : std::string();
}

const CGxEllipsoid* GxDefinitionEllipsoid(const CGxMapProjData* definition) {
    return definition ? GxCatalogueEllipsoid(definition->GetEllipsoidID()) : nullptr;
}
