#include "definitions/StereographicProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxScaleWithReduction(1),
    GxAngleDms("Central meridian:", IDs::Centre, IDs::CentreDms, 0),
    GxAngleDms("Latitude origin:", IDs::OriginLatitude, IDs::OriginLatitudeDms, 0),
    GxFalseEasting(500000),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eStereographic,
    "Stereographic",
    CGxStereographicProjectionIDs::SectionName,
    nullptr,
    "Default Stereographic",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxStereographicProjection::CGxStereographicProjection() : CGxTabledMapProjData(kLayout) {}

CGxStereographicProjection::CGxStereographicProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxStereographicProjection::CGxStereographicProjection(const std::string& name,
                                                       const std::string& branchName,
                                                       const std::string& ellipsoidID, double scale,
                                                       double centre, double originLatitude,
                                                       double falseEasting, double falseNorthing,
                                                       bool canDelete, bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {scale, centre, originLatitude, falseEasting, falseNorthing}, canDelete,
                           canEdit) {}
