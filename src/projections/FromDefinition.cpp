#include "projections/FromDefinition.h"

#include "catalogue/CartSetup.h"
#include "catalogue/EllipsoidList.h"
#include "definitions/MapProjData.h"

std::string GxDefinitionName(const CGxMapProjData* definition) {
    return definition ? definition->GetName() : std::string();
}

const CGxEllipsoid* GxDefinitionEllipsoid(const CGxMapProjData* definition) {
    if (!definition) return nullptr;
    const std::string id = definition->GetEllipsoidID();
    if (id.empty()) return nullptr;
    return CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoid(id);
}
