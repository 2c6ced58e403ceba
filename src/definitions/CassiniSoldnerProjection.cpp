#include "definitions/CassiniSoldnerProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxAngleDms("Central Meridian:", IDs::CentralMeridian, IDs::CentralMeridianDms, 0),
    GxAngleDms("Latitude origin:", IDs::OriginLatitude, IDs::OriginLatitudeDms, 0),
    GxFalseEasting(0),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eCassiniSoldner,
    "Cassini-Soldner",
    CGxCassiniSoldnerProjectionIDs::SectionName,
    nullptr,
    "Default Cassini-Soldner",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxCassiniSoldnerProjection::CGxCassiniSoldnerProjection() : CGxTabledMapProjData(kLayout) {}

CGxCassiniSoldnerProjection::CGxCassiniSoldnerProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxCassiniSoldnerProjection::CGxCassiniSoldnerProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double centralMeridian, double originLatitude, double falseEasting, double falseNorthing,
    bool canDelete, bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {centralMeridian, originLatitude, falseEasting, falseNorthing},
                           canDelete, canEdit) {}
