#include "definitions/AlbersEqualAreaProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxAngleDms("First parallel:", IDs::Parallel1, IDs::Parallel1Dms, 5),
    GxAngleDms("Second parallel:", IDs::Parallel2, IDs::Parallel2Dms, 10),
    GxAngleDms("Central Meridian:", IDs::CentralMeridian, IDs::CentralMeridianDms, 0),
    GxAngleDms("Latitude origin:", IDs::OriginLatitude, IDs::OriginLatitudeDms, 0),
    GxFalseEasting(500000),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eAlbersEqualArea,
    "Albers equal area",
    CGxAlbersEqualAreaProjectionIDs::SectionName,
    nullptr,
    "Default Albers Equal Area",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxAlbersEqualAreaProjection::CGxAlbersEqualAreaProjection() : CGxTabledMapProjData(kLayout) {}

CGxAlbersEqualAreaProjection::CGxAlbersEqualAreaProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxAlbersEqualAreaProjection::CGxAlbersEqualAreaProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double parallel1, double parallel2, double centralMeridian, double originLatitude,
    double falseEasting, double falseNorthing, bool canDelete, bool canEdit)
    : CGxTabledMapProjData(
          kLayout, name, branchName, ellipsoidID,
          {parallel1, parallel2, centralMeridian, originLatitude, falseEasting, falseNorthing},
          canDelete, canEdit) {}
