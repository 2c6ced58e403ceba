#include "definitions/Mercator1SPProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxScaleWithReduction(0),
    GxAngleDms("Central meridian:", IDs::Centre, IDs::CentreDms, 0),
    GxFalseEasting(0),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eMercator1SP,
    "Mercator with 1 standard parallel",
    CGxMercator1SPProjectionIDs::SectionName,
    nullptr,
    "Default Mercator 1SP",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxMercator1SPProjection::CGxMercator1SPProjection() : CGxTabledMapProjData(kLayout) {}

CGxMercator1SPProjection::CGxMercator1SPProjection(const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxMercator1SPProjection::CGxMercator1SPProjection(const std::string& name,
                                                   const std::string& branchName,
                                                   const std::string& ellipsoidID, double scale,
                                                   double centre, double falseEasting,
                                                   double falseNorthing, bool canDelete,
                                                   bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {scale, centre, falseEasting, falseNorthing}, canDelete, canEdit) {}
