#include "definitions/RectifiedSkewOrthomorphicProjection.h"

#include <iterator>

#include "projections/RectifiedSkewOrthomorphic.h"

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxScaleWithReduction(0.9996),
    GxAngleDms("Longitude of center:", IDs::CenterLongitude, IDs::CenterLongitudeDms, 0),
    GxAngleDms("Latitude of center:", IDs::CenterLatitude, IDs::CenterLatitudeDms, 0),
    GxAngle("Azimuth:", IDs::Azimuth, 0),
    GxAngle("XY plane rotation:", IDs::XYPlaneRotation, 0),
    GxFalseEasting(500000),
    GxFalseNorthing(0),
};

// The WKT parameter each index is written as.
constexpr EGxWktParameter kWktParams[] = {
    EGxWktParameter::eScaleFactor,      EGxWktParameter::eLongitudeOfCenter,
    EGxWktParameter::eLatitudeOfCenter, EGxWktParameter::eAzimuth,
    EGxWktParameter::eXYPlaneRotation,  EGxWktParameter::eFalseEasting,
    EGxWktParameter::eFalseNorthing,
};
static_assert(std::size(kWktParams) == std::size(kParams));

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eRectifiedSkewOrthomorphic,
    "Rectified skew orthomorphic",
    CGxRectifiedSkewOrthomorphicProjectionIDs::SectionName,
    nullptr,
    "Default Rectified Skew Orthomorphic",
    "EB",
    static_cast<int>(std::size(kParams)),
    kParams,
    "Rectified_Skew_Orthomorphic_Natural_Origin",
    kWktParams,
};

}  // namespace

CGxRectifiedSkewOrthomorphicProjection::CGxRectifiedSkewOrthomorphicProjection()
    : CGxTabledMapProjData(kLayout) {}

CGxRectifiedSkewOrthomorphicProjection::CGxRectifiedSkewOrthomorphicProjection(
    const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxRectifiedSkewOrthomorphicProjection::CGxRectifiedSkewOrthomorphicProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double scale, double centerLongitude, double centerLatitude, double azimuth,
    double xyPlaneRotation, double falseEasting, double falseNorthing, bool canDelete, bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {scale, centerLongitude, centerLatitude, azimuth, xyPlaneRotation,
                            falseEasting, falseNorthing},
                           canDelete, canEdit) {}

CGxProjection* CGxRectifiedSkewOrthomorphicProjection::CreateProjection() const {
    return new CGxRectifiedSkewOrthomorphic(this);
}
