#include "definitions/RectifiedSkewOrthomorphicProjection.h"

#include <iterator>

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

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eRectifiedSkewOrthomorphic,
    "Rectified skew orthomorphic",
    CGxRectifiedSkewOrthomorphicProjectionIDs::SectionName,
    nullptr,
    "Default Rectified Skew Orthomorphic",
    "EB",
    static_cast<int>(std::size(kParams)),
    kParams,
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
