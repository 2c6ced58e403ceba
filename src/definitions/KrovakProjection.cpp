#include "definitions/KrovakProjection.h"

#include <iterator>

#include "projections/Krovak.h"

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxScale("Scale at pseudo parallel:", IDs::ScaleAtPseudoParallel, 0.9999),
    GxAngleDms("Pseudo parallel:", IDs::PseudoParallel, IDs::PseudoParallelDms, 0),
    GxAngleDms("Longitude of center:", IDs::CenterLongitude, IDs::CenterLongitudeDms, 0),
    GxAngleDms("Latitude of center:", IDs::CenterLatitude, IDs::CenterLatitudeDms, 0),
    GxAngle("Azimuth:", IDs::Azimuth, 0),
    GxAngle("XY plane rotation:", IDs::XYPlaneRotation, 0),
    GxScale("X scale:", IDs::XScale, 1),
    GxScale("Y scale:", IDs::YScale, 1),
    GxFalseEasting(500000),
    GxFalseNorthing(0),
};

// The WKT parameter each index is written as.
constexpr EGxWktParameter kWktParams[] = {
    EGxWktParameter::eScaleFactor,
    EGxWktParameter::ePseudoParallel,
    EGxWktParameter::eLongitudeOfCenter,
    EGxWktParameter::eLatitudeOfCenter,
    EGxWktParameter::eAzimuth,
    EGxWktParameter::eXYPlaneRotation,
    EGxWktParameter::eXScale,
    EGxWktParameter::eYScale,
    EGxWktParameter::eFalseEasting,
    EGxWktParameter::eFalseNorthing,
};
static_assert(std::size(kWktParams) == std::size(kParams));

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eKrovak,
    "Krovak oblique conformal conic",
    CGxKrovakProjectionIDs::SectionName,
    nullptr,
    "Default Krovak Oblique Conformal Conic",
    "BR",
    static_cast<int>(std::size(kParams)),
    kParams,
    "Krovak",
    kWktParams,
};

}  // namespace

CGxKrovakProjection::CGxKrovakProjection() : CGxTabledMapProjData(kLayout) {}

CGxKrovakProjection::CGxKrovakProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxKrovakProjection::CGxKrovakProjection(const std::string& name, const std::string& branchName,
                                         const std::string& ellipsoidID,
                                         double scaleAtPseudoParallel, double pseudoParallel,
                                         double centerLongitude, double centerLatitude,
                                         double azimuth, double xyPlaneRotation, double xScale,
                                         double yScale, double falseEasting, double falseNorthing,
                                         bool canDelete, bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {scaleAtPseudoParallel, pseudoParallel, centerLongitude, centerLatitude,
                            azimuth, xyPlaneRotation, xScale, yScale, falseEasting, falseNorthing},
                           canDelete, canEdit) {}

CGxProjection* CGxKrovakProjection::CreateProjection() const {
    return new CGxKrovak(this);
}
