// The facade's static access to the catalogues of the setup.

#include "catalogue/CartSetup.h"
#include "catalogue/CatalogueCode.h"
#include "definitions/MapProjData.h"
#include "mapprojection/CatalogueLookup.h"
#include "mapprojection/MapProjection.h"

CGxMapProjData* GxCodedCatalogueSystem(const std::string& text) {
    // Most texts are names: they need no second search of the names.
    GxCatalogueCode code;
    if (!GxParseCatalogueCode(text, code)) return nullptr;
    const CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    if (list.GetMapProjection(text)) return nullptr;
    return list.GetMapProjectionByCode(text);
}

CGxMapProjData* GxFindCatalogueSystem(const std::string& text) {
    const CGxMapProjectionList& list = CGxCartSetup::Instance().GetMapProjectionList();
    if (CGxMapProjData* named = list.GetMapProjection(text)) return named;
    if (CGxMapProjData* coded = list.GetMapProjectionByCode(text)) return coded;
    return list.GetDeferredMapProjection(text);
}

CGxMapProjData* CGxMapProjection::MapProjection(const std::string& name) {
    CGxCartSetup& setup = CGxCartSetup::Instance();
    setup.SetMapProjectionListModified();
    return GxFindCatalogueSystem(name);
}

CGxEllipsoid* CGxMapProjection::Ellipsoid(const std::string& name) {
    const CGxMapProjData* definition = GxFindCatalogueSystem(name);
    if (!definition) return nullptr;
    return EllipsoidFromID(definition->GetEllipsoidID());
}

CGxEllipsoid* CGxMapProjection::EllipsoidFromID(const std::string& id) {
    if (id.empty()) return nullptr;
    return CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoid(id);
}

CGxEllipsoid* CGxMapProjection::EllipsoidFromName(const std::string& name) {
    return CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoidFromName(name);
}

void CGxMapProjection::AddEllipsoid(CGxEllipsoid* ellipsoid) {
    CGxCartSetup::Instance().GetEllipsoidList().AddEllipsoid(ellipsoid);
}

void CGxMapProjection::EditEllipsoid(CGxEllipsoid* ellipsoid) {
    CGxCartSetup::Instance().GetEllipsoidList().EditEllipsoid(ellipsoid);
}

void CGxMapProjection::DeleteEllipsoid(CGxEllipsoid* ellipsoid) {
    CGxCartSetup::Instance().GetEllipsoidList().DeleteEllipsoid(ellipsoid);
}

void CGxMapProjection::AddMapProjection(CGxMapProjData* definition) {
    CGxCartSetup::Instance().GetMapProjectionList().AddMapProjection(definition);
}

void CGxMapProjection::DeleteMapProjection(CGxMapProjData* definition) {
    CGxCartSetup::Instance().GetMapProjectionList().DeleteMapProjection(definition);
}
