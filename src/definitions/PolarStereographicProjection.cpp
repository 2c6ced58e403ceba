#include "definitions/PolarStereographicProjection.h"

#include <iterator>

#include "projections/PolarStereographic.h"

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
    CGxMapProjData::ePolarStereographic,
    "Polar stereographic",
    CGxPolarStereographicProjectionIDs::SectionName,
    nullptr,
    "Default Polar Stereographic",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
    "Polar_Stereographic",
    kWktParams,
};

}  // namespace

CGxPolarStereographicProjection::CGxPolarStereographicProjection()
    : CGxTabledMapProjData(kLayout) {}

CGxPolarStereographicProjection::CGxPolarStereographicProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxPolarStereographicProjection::CGxPolarStereographicProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double scale, double centre, double originLatitude, double falseEasting, double falseNorthing,
    bool canDelete, bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {scale, centre, originLatitude, falseEasting, falseNorthing}, canDelete,
                           canEdit) {}

CGxProjection* CGxPolarStereographicProjection::CreateProjection() const {
    return new CGxPolarStereographic(this);
}
