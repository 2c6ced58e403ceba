#include "definitions/StereographicSouthPoleProjection.h"

namespace {

constexpr auto kParams = GxParallelAndCentre(-60);

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eStereographicSouthPole,
    "Stereographic south pole",
    CGxStereographicSouthPoleProjectionIDs::SectionName,
    nullptr,
    "Default Stereographic South Pole",
    "WE",
    static_cast<int>(kParams.size()),
    kParams.data(),
};

}  // namespace

CGxStereographicSouthPoleProjection::CGxStereographicSouthPoleProjection()
    : CGxTabledMapProjData(kLayout) {}

CGxStereographicSouthPoleProjection::CGxStereographicSouthPoleProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxStereographicSouthPoleProjection::CGxStereographicSouthPoleProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double parallel1, double centre, double falseEasting, double falseNorthing, bool canDelete,
    bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {parallel1, centre, falseEasting, falseNorthing}, canDelete, canEdit) {}
