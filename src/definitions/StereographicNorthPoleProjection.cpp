#include "definitions/StereographicNorthPoleProjection.h"

namespace {

constexpr auto kParams = GxParallelAndCentre(60);

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eStereographicNorthPole,
    "Stereographic north pole",
    CGxStereographicNorthPoleProjectionIDs::SectionName,
    nullptr,
    "Default Stereographic North Pole",
    "WE",
    static_cast<int>(kParams.size()),
    kParams.data(),
};

}  // namespace

CGxStereographicNorthPoleProjection::CGxStereographicNorthPoleProjection()
    : CGxTabledMapProjData(kLayout) {}

CGxStereographicNorthPoleProjection::CGxStereographicNorthPoleProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxStereographicNorthPoleProjection::CGxStereographicNorthPoleProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double parallel1, double centre, double falseEasting, double falseNorthing, bool canDelete,
    bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {parallel1, centre, falseEasting, falseNorthing}, canDelete, canEdit) {}
