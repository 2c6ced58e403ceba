#include "definitions/GeographicalProjection.h"

namespace {

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eGeographical,
    "Geographical",
    CGxGeographicalProjectionIDs::SectionName,
    nullptr,
    "Default Geographical",
    "WE",
    0,
    nullptr,
};

}  // namespace

CGxGeographicalProjection::CGxGeographicalProjection() : CGxTabledMapProjData(kLayout) {}

CGxGeographicalProjection::CGxGeographicalProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxGeographicalProjection::CGxGeographicalProjection(const std::string& name,
                                                     const std::string& branchName,
                                                     const std::string& ellipsoidID, bool canDelete,
                                                     bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID, {}, canDelete, canEdit) {}
