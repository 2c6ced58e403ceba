#include "definitions/Lambert2SPProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxAngleDms("First parallel:", IDs::Parallel1, IDs::Parallel1Dms, 5),
    GxAngleDms("Second parallel:", IDs::Parallel2, IDs::Parallel2Dms, 10),
    GxAngleDms("Longitude origin:", IDs::OriginLongitude, IDs::OriginLongitudeDms, 0),
    GxAngleDms("Latitude origin:", IDs::OriginLatitude, IDs::OriginLatitudeDms, 0),
    GxFalseEasting(500000),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eLambert2SP,
    "Lambert conformal conic with 2 standard parallels",
    CGxLambert2SPProjectionIDs::SectionName,
    nullptr,
    "Default Lambert 2SP",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxLambert2SPProjection::CGxLambert2SPProjection() : CGxTabledMapProjData(kLayout) {}

CGxLambert2SPProjection::CGxLambert2SPProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxLambert2SPProjection::CGxLambert2SPProjection(const std::string& name,
                                                 const std::string& branchName,
                                                 const std::string& ellipsoidID, double parallel1,
                                                 double parallel2, double originLongitude,
                                                 double originLatitude, double falseEasting,
                                                 double falseNorthing, bool canDelete, bool canEdit)
    : CGxTabledMapProjData(
          kLayout, name, branchName, ellipsoidID,
          {parallel1, parallel2, originLongitude, originLatitude, falseEasting, falseNorthing},
          canDelete, canEdit) {}
