#include "definitions/Lambert2SPProjection.h"

#include <iterator>

#include "projections/Lambert2SP.h"

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

// The WKT parameter each index is written as.
constexpr EGxWktParameter kWktParams[] = {
    EGxWktParameter::eStandardParallel1, EGxWktParameter::eStandardParallel2,
    EGxWktParameter::eCentralMeridian,   EGxWktParameter::eLatitudeOfOrigin,
    EGxWktParameter::eFalseEasting,      EGxWktParameter::eFalseNorthing,
};
static_assert(std::size(kWktParams) == std::size(kParams));

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eLambert2SP,
    "Lambert conformal conic with 2 standard parallels",
    CGxLambert2SPProjectionIDs::SectionName,
    nullptr,
    "Default Lambert 2SP",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
    "Lambert_Conformal_Conic_2SP",
    kWktParams,
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

CGxProjection* CGxLambert2SPProjection::CreateProjection() const {
    return new CGxLambert2SP(this);
}
