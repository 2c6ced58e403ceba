#include "definitions/NewZealandMapGridProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxAngleDms("Longitude origin:", IDs::OriginLongitude, IDs::OriginLongitudeDms, 173),
    GxAngleDms("Latitude origin:", IDs::OriginLatitude, IDs::OriginLatitudeDms, -41),
    GxFalseEasting(2510000),
    GxFalseNorthing(6023150),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eNewZealandMapGrid,
    "New Zealand map grid",
    CGxNewZealandMapGridProjectionIDs::SectionName,
    nullptr,
    "Default New Zealang Map Grid",
    "IN",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxNewZealandMapGridProjection::CGxNewZealandMapGridProjection() : CGxTabledMapProjData(kLayout) {}

CGxNewZealandMapGridProjection::CGxNewZealandMapGridProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxNewZealandMapGridProjection::CGxNewZealandMapGridProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double originLongitude, double originLatitude, double falseEasting, double falseNorthing,
    bool canDelete, bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {originLongitude, originLatitude, falseEasting, falseNorthing},
                           canDelete, canEdit) {}
