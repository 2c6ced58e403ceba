#include "catalogue/EllipsoidList.h"

#include <algorithm>
#include <stdexcept>

#include "catalogue/CatalogueFile.h"
#include "catalogue/ListLimit.h"
#include "foundation/Ellipsoid.h"
#include "zpf/zpf.h"

namespace {
const char* const kBlock = "ELLIPSOID_DEFINITION";
const char* const kSection = "REF_ELLIPSOID";
const char* const kName = "Ellipsoid_Name";
const char* const kId = "ID_Code";
const char* const kMajor = "Semi_Major_Axis";
const char* const kInvFlattening = "Inverse_Flatness";
}  // namespace

CGxEllipsoidList::CGxEllipsoidList() = default;

CGxEllipsoidList::~CGxEllipsoidList() {
    for (CGxEllipsoid* e : system) delete e;
    for (CGxEllipsoid* e : custom) delete e;
}

void CGxEllipsoidList::ReadEllipsoids(const std::string& path, bool toCustom) {
    GxReadCatalogueFile(path, kBlock, [&](void* block) {
        const int n = zpfGetNoInstances(block, kSection);
        for (int i = 1; i <= n; ++i) {
            void* section = zpfSectionByNameNum(block, kSection, i);
            std::string name, id;
            double major = 0.0, invFlattening = 0.0;
            zpfGetParam(section, kName, 1, 1, &name);
            zpfGetParam(section, kId, 1, 1, &id);
            zpfGetParam(section, kMajor, 1, 1, &major);
            zpfGetParam(section, kInvFlattening, 1, 1, &invFlattening);
            std::list<CGxEllipsoid*>& target = toCustom ? custom : system;
            GxCheckListRoom(target);
            target.push_back(new CGxEllipsoid(name, id, major, invFlattening));
        }
    });
}

bool CGxEllipsoidList::WriteCustomEllipsoids(const std::string& path) {
    return GxWriteCatalogueFile(path, kBlock, [this](void* file) {
        for (const CGxEllipsoid* e : custom) {
            void* section = zpfAddSection(file, kSection);
            zpfPutParam(section, kName, e->GetName());
            zpfPutParam(section, kId, e->GetID());
            zpfPutParam(section, kMajor, e->GetMajor());
            zpfPutParam(section, kInvFlattening, e->GetInvFlatness());
            zpfEndSection(section);
        }
    });
}

void CGxEllipsoidList::AddEllipsoid(CGxEllipsoid* ellipsoid) {
    if (!ellipsoid) return;
    GxCheckListRoom(custom);
    custom.push_back(ellipsoid);
    GenerateCompleteList();
}

void CGxEllipsoidList::EditEllipsoid(CGxEllipsoid* ellipsoid) {
    if (std::find(custom.begin(), custom.end(), ellipsoid) != custom.end()) GenerateCompleteList();
}

void CGxEllipsoidList::DeleteEllipsoid(CGxEllipsoid* ellipsoid) {
    auto it = std::find(custom.begin(), custom.end(), ellipsoid);
    if (it == custom.end()) return;
    custom.erase(it);
    delete ellipsoid;
    GenerateCompleteList();
}

void CGxEllipsoidList::GenerateCompleteList() {
    complete.clear();
    complete.insert(complete.end(), system.begin(), system.end());
    complete.insert(complete.end(), custom.begin(), custom.end());
}

CGxEllipsoid* CGxEllipsoidList::GetEllipsoid(const std::string& id) const {
    for (CGxEllipsoid* e : complete)
        if (e->GetID() == id) return e;
    return nullptr;
}

CGxEllipsoid* CGxEllipsoidList::GetEllipsoidFromName(const std::string& name) const {
    for (CGxEllipsoid* e : complete)
        if (e->GetName() == name) return e;
    return nullptr;
}

std::list<CGxEllipsoid*>& CGxEllipsoidList::_List(EEllipsoidTypes type) {
    switch (type) {
        case eSystemEllipsoids:
            return system;
        case eCustomEllipsoids:
            return custom;
        default:
            return complete;
    }
}

CGxEllipsoidList::Iterator CGxEllipsoidList::GetIteratorBegin(EEllipsoidTypes type) {
    return _List(type).begin();
}

CGxEllipsoidList::Iterator CGxEllipsoidList::GetIteratorEnd(EEllipsoidTypes type) {
    return _List(type).end();
}
