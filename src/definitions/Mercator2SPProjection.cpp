#include "definitions/Mercator2SPProjection.h"

namespace {

constexpr auto kParams = GxParallelAndCentre(0);

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eMercator2SP,
    "Mercator with 2 standard parallels",
    CGxMercator2SPProjectionIDs::SectionName,
    CGxMercator2SPProjectionIDs::OldSectionName,
    "Default Mercator 2SP",
    "WE",
    static_cast<int>(kParams.size()),
    kParams.data(),
};

}  // namespace

CGxMercator2SPProjection::CGxMercator2SPProjection() : CGxTabledMapProjData(kLayout) {}

CGxMercator2SPProjection::CGxMercator2SPProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxMercator2SPProjection::CGxMercator2SPProjection(const std::string& name,
                                                   const std::string& branchName,
                                                   const std::string& ellipsoidID, double parallel1,
                                                   double centre, double falseEasting,
                                                   double falseNorthing, bool canDelete,
                                                   bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {parallel1, centre, falseEasting, falseNorthing}, canDelete, canEdit) {}
