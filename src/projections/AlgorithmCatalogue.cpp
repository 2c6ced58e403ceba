#include "projections/AlgorithmCatalogue.h"

#include "catalogue/CartSetup.h"
#include "definitions/MapProjData.h"
#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"

std::string GxDefinitionName(const CGxMapProjData* definition) {
    return definition ? definition->GetName() : std::string();
}

const CGxEllipsoid* GxCatalogueEllipsoid(const std::string& id) {
    if (id.empty()) return nullptr;
    return CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoid(id);
}

const CGxEllipsoid* GxDefinitionEllipsoid(const CGxMapProjData* definition) {
    return definition ? GxCatalogueEllipsoid(definition->GetEllipsoidID()) : nullptr;
}

bool GxCatalogueFigureOf(const char* name, CGxEllipsoid& out) {
    const CGxEllipsoid* found = CGxMapProjection::Ellipsoid(name ? name : "");
    if (!found) return false;
    out = *found;
    return true;
}

const CGxMapProjData* GxCatalogueDefinitionNamed(const char* name) {
    return CGxMapProjection::MapProjection(name ? name : "");
}

void GxTransferWithFigure(const CGxTabledMapProjData& definition, const CGxEllipsoid* figure,
                          CGxPRJParser& parser) {
    definition.TransferParameters(parser, figure);
    if (!figure) {
        const CGxEllipsoid placeholder;
        parser.SetEllipsoid(placeholder.GetName(), placeholder.GetMajor(),
                            placeholder.GetInvFlatness());
    }
}

// The members of the algorithm base that reach the catalogues.

CGxAlgorithm::CGxAlgorithm(const CGxMapProjData* definition)
    : CGxAlgorithm(GxDefinitionName(definition).c_str()) {}

bool CGxAlgorithm::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}
