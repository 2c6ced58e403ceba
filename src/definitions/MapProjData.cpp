#include "definitions/MapProjData.h"

#include <new>

#include "definitions/AlbersEqualAreaProjection.h"
#include "definitions/CassiniSoldnerProjection.h"
#include "definitions/DmsAngle.h"
#include "definitions/EquidistantConicProjection.h"
#include "definitions/GeographicalProjection.h"
#include "definitions/HotineObliqueMercatorProjection.h"
#include "definitions/KrovakProjection.h"
#include "definitions/Lambert1SPProjection.h"
#include "definitions/Lambert2SPProjection.h"
#include "definitions/LambertAzimuthalEqualAreaProjection.h"
#include "definitions/Mercator1SPProjection.h"
#include "definitions/Mercator2SPProjection.h"
#include "definitions/NewZealandMapGridProjection.h"
#include "definitions/ObliqueMercatorProjection.h"
#include "definitions/PolarStereographicProjection.h"
#include "definitions/RectifiedSkewOrthomorphicProjection.h"
#include "definitions/RotatedLongitudeLatitudeProjection.h"
#include "definitions/StereographicNorthPoleProjection.h"
#include "definitions/StereographicProjection.h"
#include "definitions/StereographicSouthPoleProjection.h"
#include "definitions/TabledMapProjData.h"
#include "definitions/TransverseMercatorProjection.h"
#include "projections/FourierCoefficients.h"
#include "zpf/zpf.h"

namespace {

constexpr int kNoOfProjections = 20;

// Bits of the flags of IsEquivalent.
constexpr int kProjectedSystems = 1;
constexpr int kGeographicSystems = 2;

template <class T>
CGxTabledMapProjData* MakeEmpty() {
    return new T();
}

// An empty definition of each type, indexed by type - 1.
constexpr CGxTabledMapProjData* (*kMakers[kNoOfProjections])() = {
    &MakeEmpty<CGxTransverseMercatorProjection>,
    &MakeEmpty<CGxLambert2SPProjection>,
    &MakeEmpty<CGxLambert1SPProjection>,
    &MakeEmpty<CGxStereographicProjection>,
    &MakeEmpty<CGxNewZealandMapGridProjection>,
    &MakeEmpty<CGxHotineObliqueMercatorProjection>,
    &MakeEmpty<CGxObliqueMercatorProjection>,
    &MakeEmpty<CGxRectifiedSkewOrthomorphicProjection>,
    &MakeEmpty<CGxRotatedLongitudeLatitudeProjection>,
    &MakeEmpty<CGxMercator2SPProjection>,
    &MakeEmpty<CGxMercator1SPProjection>,
    &MakeEmpty<CGxStereographicNorthPoleProjection>,
    &MakeEmpty<CGxStereographicSouthPoleProjection>,
    &MakeEmpty<CGxGeographicalProjection>,
    &MakeEmpty<CGxKrovakProjection>,
    &MakeEmpty<CGxAlbersEqualAreaProjection>,
    &MakeEmpty<CGxLambertAzimuthalEqualAreaProjection>,
    &MakeEmpty<CGxCassiniSoldnerProjection>,
    &MakeEmpty<CGxEquidistantConicProjection>,
    &MakeEmpty<CGxPolarStereographicProjection>,
};

// An empty definition of the type, or null for a type without a class or
// when memory runs out.
CGxTabledMapProjData* MakeEmpty(CGxMapProjData::EProjectionType type) {
    if (type < 1 || type > kNoOfProjections) return nullptr;
    try {
        return kMakers[type - 1]();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace

CGxMapProjData::~CGxMapProjData() = default;

CGxMapProjData* CGxMapProjData::CreateProjection(EProjectionType type, const std::string& name,
                                                 const std::string& branchName,
                                                 const std::string& ellipsoidID,
                                                 double* const params) {
    CGxTabledMapProjData* definition = MakeEmpty(type);
    if (!definition) return nullptr;
    try {
        definition->_Assign(name, branchName, ellipsoidID, params, true, true);
    } catch (const std::bad_alloc&) {
        delete definition;
        return nullptr;
    }
    return definition;
}

CGxMapProjData* CGxMapProjData::CreateDefaultParameterProjection(EProjectionType type) {
    CGxTabledMapProjData* definition = MakeEmpty(type);
    if (!definition) return nullptr;
    try {
        definition->_AssignDefaults();
    } catch (const std::bad_alloc&) {
        delete definition;
        return nullptr;
    }
    return definition;
}

CGxMapProjData::EProjectionType CGxMapProjData::Enum2ProjectionType(int index) {
    return static_cast<EProjectionType>(index + 1);
}

int CGxMapProjData::ProjectionType2Enum(EProjectionType type) {
    return type - 1;
}

int CGxMapProjData::GetNoOfProjections() {
    return kNoOfProjections;
}

bool CGxMapProjData::IsEquivalent(int flags, EProjectionType type) {
    // A rotated grid is still longitude/latitude, so it counts as geographic.
    if (type == eRotatedLongitudeLatitude || type == eGeographical)
        return (flags & kGeographicSystems) != 0;
    if (type == eNonProjected || type == eInvalidProjection) return false;
    return (flags & kProjectedSystems) != 0;
}

void CGxMapProjData::ComputeFourierCoefficients(EProjectionType type, bool forward, double x,
                                                double* const out) {
    if (!out) return;
    EGxSeries series = EGxSeries::eConformalLatitude;
    switch (type) {
        case eTransverseMercator:
            series = EGxSeries::eKruegerTransverseMercator;
            break;
        case eAlbersEqualArea:
        case eLambertAzimuthalEqualArea:
            series = EGxSeries::eAuthalicLatitude;
            break;
        case eCassiniSoldner:
        case eEquidistantConic:
            series = EGxSeries::eMeridianArc;
            break;
        default:
            break;
    }
    GxComputeFourierCoefficients(series, forward, x, out);
}

bool CGxMapProjData::zpfGetParamDMS(void* section, const char* keyword, int* degrees, int* minutes,
                                    double* seconds) {
    if (degrees) *degrees = 0;
    if (minutes) *minutes = 0;
    if (seconds) *seconds = 0.0;
    double parts[3];
    if (!GxReadDmsParts(section, keyword, parts)) return false;
    int d = 0;
    int m = 0;
    double s = 0.0;
    GxSplitDms(parts, &d, &m, &s);
    if (degrees) *degrees = d;
    if (minutes) *minutes = m;
    if (seconds) *seconds = s;
    return true;
}
