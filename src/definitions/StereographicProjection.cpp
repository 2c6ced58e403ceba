#include "definitions/StereographicProjection.h"

#include <iterator>

#include "projections/Stereographic.h"

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

// The WKT parameter each index is written as.
constexpr EGxWktParameter kWktParams[] = {
    EGxWktParameter::eScaleFactor,      EGxWktParameter::eCentralMeridian,
    EGxWktParameter::eLatitudeOfOrigin, EGxWktParameter::eFalseEasting,
    EGxWktParameter::eFalseNorthing,
};
static_assert(std::size(kWktParams) == std::size(kParams));

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eStereographic,
    "Stereographic",
    CGxStereographicProjectionIDs::SectionName,
    nullptr,
    "Default Stereographic",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
    "Stereographic",
    kWktParams,
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

CGxProjection* CGxStereographicProjection::CreateProjection() const {
    return new CGxStereographic(this);
}
