#include "projections/AlgorithmTransfer.h"

#include "mapprojection/MapProjection.h"
#include "wkt/PRJParser.h"

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
