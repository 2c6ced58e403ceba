#include "definitions/Lambert1SPProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxScaleWithReduction(0.9996),
    GxAngleDms("Central meridian:", IDs::OriginLongitude, IDs::OriginLongitudeDms, 0),
    GxAngleDms("Latitude origin:", IDs::OriginLatitude, IDs::OriginLatitudeDms, 0),
    GxFalseEasting(500000),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eLambert1SP,
    "Lambert conformal conic with 1 standard parallel",
    CGxLambert1SPProjectionIDs::SectionName,
    nullptr,
    "Default Lambert 1SP",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxLambert1SPProjection::CGxLambert1SPProjection() : CGxTabledMapProjData(kLayout) {}

CGxLambert1SPProjection::CGxLambert1SPProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxLambert1SPProjection::CGxLambert1SPProjection(const std::string& name,
                                                 const std::string& branchName,
                                                 const std::string& ellipsoidID, double scale,
                                                 double originLongitude, double originLatitude,
                                                 double falseEasting, double falseNorthing,
                                                 bool canDelete, bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {scale, originLongitude, originLatitude, falseEasting, falseNorthing},
                           canDelete, canEdit) {}
