#include "definitions/CylindricalEqualAreaProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxAngleDms("First parallel:", IDs::Parallel1, IDs::Parallel1Dms, 0),
    GxAngleDms("Central meridian:", IDs::Centre, IDs::CentreDms, 0),
    GxFalseEasting(0),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eCylindricalEqualArea,
    "Cylindrical equal area",
    CGxCylindricalEqualAreaProjectionIDs::SectionName,
    nullptr,
    "Default cylindrical equal area",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
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
