#include "definitions/LambertAzimuthalEqualAreaProjection.h"

#include <iterator>

namespace {

using IDs = CGxMapProjDataIDs;

// Label, kind, keywords and default value of each parameter, in index order.
constexpr GxParamRow kParams[] = {
    GxAngleDms("Central meridian:", IDs::Centre, IDs::CentreDms, 0),
    GxAngleDms("Latitude origin:", IDs::OriginLatitude, IDs::OriginLatitudeDms, 0),
    GxFalseEasting(500000),
    GxFalseNorthing(0),
};

constexpr GxProjDataLayout kLayout = {
    CGxMapProjData::eLambertAzimuthalEqualArea,
    "Lambert azimuthal equal area",
    CGxLambertAzimuthalEqualAreaProjectionIDs::SectionName,
    nullptr,
    "Default Lambert Azimuthal Equal Area",
    "WE",
    static_cast<int>(std::size(kParams)),
    kParams,
};

}  // namespace

CGxLambertAzimuthalEqualAreaProjection::CGxLambertAzimuthalEqualAreaProjection()
    : CGxTabledMapProjData(kLayout) {}

CGxLambertAzimuthalEqualAreaProjection::CGxLambertAzimuthalEqualAreaProjection(
    const std::string& name)
    : CGxTabledMapProjData(kLayout, name) {}

CGxLambertAzimuthalEqualAreaProjection::CGxLambertAzimuthalEqualAreaProjection(
    const std::string& name, const std::string& branchName, const std::string& ellipsoidID,
    double centre, double originLatitude, double falseEasting, double falseNorthing, bool canDelete,
    bool canEdit)
    : CGxTabledMapProjData(kLayout, name, branchName, ellipsoidID,
                           {centre, originLatitude, falseEasting, falseNorthing}, canDelete,
                           canEdit) {}
