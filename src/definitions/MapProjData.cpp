#include "definitions/MapProjData.h"

#include "definitions/DmsAngle.h"

// The factories, the type classes and the series of a type are the
// projection-type table's (ProjectionTypes.cpp); this file holds what needs
// no type.

namespace {

constexpr int kNoOfProjections = 20;

}  // namespace

CGxMapProjData::~CGxMapProjData() = default;

CGxMapProjData::EProjectionType CGxMapProjData::Enum2ProjectionType(int index) {
    return static_cast<EProjectionType>(index + 1);
}

int CGxMapProjData::ProjectionType2Enum(EProjectionType type) {
    return type - 1;
}

int CGxMapProjData::GetNoOfProjections() {
    return kNoOfProjections;
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
