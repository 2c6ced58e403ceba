#include "definitions/CylindricalEqualAreaProjection.h"

namespace {

constexpr auto kParams = GxParallelAndCentre(0);

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eCylindricalEqualArea,
    "Cylindrical equal area",
    CGxCylindricalEqualAreaProjectionIDs::SectionName,
    nullptr,
    "Default cylindrical equal area",
    "WE",
    static_cast<int>(kParams.size()),
    kParams.data(),
};

}  // namespace

CGxCylindricalEqualAreaProjection::CGxCylindricalEqualAreaProjection()
    : CGxTabledMapProjData(kLayout) {}

CGxCylindricalEqualAreaProjection::CGxCylindricalEqualAreaProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxCylindricalEqualAreaProjection::CGxCylindricalEqualAreaProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double parallel1, double centre, double falseEasting, double falseNorthing, bool canDelete,
    bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {parallel1, centre, falseEasting, falseNorthing}, canDelete, canEdit) {}
