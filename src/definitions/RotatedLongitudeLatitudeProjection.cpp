#include "definitions/RotatedLongitudeLatitudeProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxAngle("Longitude of south pole:", IDs::LongitudeOfSouthPole, 0),
    GxAngle("Latitude of south pole:", IDs::LatitudeOfSouthPole, 0),
    GxAngle("Angle of rotation:", IDs::AngleOfRotation, 0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eRotatedLongitudeLatitude,
    "Rotated longitude/latitude",
    CGxRotatedLongitudeLatitudeProjectionIDs::SectionName,
    nullptr,
    "Default Rotated Longitude/Latitude",
    "XY",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxRotatedLongitudeLatitudeProjection::CGxRotatedLongitudeLatitudeProjection()
    : CGxTabledMapProjData(kLayout) {}

CGxRotatedLongitudeLatitudeProjection::CGxRotatedLongitudeLatitudeProjection(
    const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxRotatedLongitudeLatitudeProjection::CGxRotatedLongitudeLatitudeProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double southPoleLongitude, double southPoleLatitude, double rotationAngle, bool canDelete,
    bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {southPoleLongitude, southPoleLatitude, rotationAngle}, canDelete,
                           canEdit) {}
