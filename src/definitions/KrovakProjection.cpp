#include "definitions/KrovakProjection.h"

#include <iterator>

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

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eKrovak,
    "Krovak oblique conformal conic",
    CGxKrovakProjectionIDs::SectionName,
    nullptr,
    "Default Krovak Oblique Conformal Conic",
    "BR",
    static_cast<int>(std::size(kParams)),
    kParams,
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
