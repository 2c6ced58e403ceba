#include "definitions/StereographicNorthPoleProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxAngleDms("First parallel:", IDs::Parallel1, IDs::Parallel1Dms, 60),
    GxAngleDms("Central meridian:", IDs::Centre, IDs::CentreDms, 0),
    GxFalseEasting(0),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eStereographicNorthPole,
    "Stereographic north pole",
    CGxStereographicNorthPoleProjectionIDs::SectionName,
    nullptr,
    "Default Stereographic North Pole",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
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
