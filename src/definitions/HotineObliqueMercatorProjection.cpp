#include "definitions/HotineObliqueMercatorProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxScaleWithReduction(0.9996),
    GxAngleDms("Longitude of center:", IDs::CenterLongitude, IDs::CenterLongitudeDms, 0),
    GxAngleDms("Latitude of center:", IDs::CenterLatitude, IDs::CenterLatitudeDms, 0),
    GxAngle("Azimuth:", IDs::Azimuth, 0),
    GxFalseEasting(500000),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eHotineObliqueMercator,
    "Hotine oblique mercator",
    CGxHotineObliqueMercatorProjectionIDs::SectionName,
    nullptr,
    "Default Hotine Oblique Mercator",
    "RF",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxHotineObliqueMercatorProjection::CGxHotineObliqueMercatorProjection()
    : CGxTabledMapProjData(kLayout) {}

CGxHotineObliqueMercatorProjection::CGxHotineObliqueMercatorProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxHotineObliqueMercatorProjection::CGxHotineObliqueMercatorProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double scale, double centerLongitude, double centerLatitude, double azimuth,
    double falseEasting, double falseNorthing, bool canDelete, bool canEdit)
    : CGxTabledMapProjData(
          kLayout, name, branchName, ellipsoidID,
          {scale, centerLongitude, centerLatitude, azimuth, falseEasting, falseNorthing}, canDelete,
          canEdit) {}
