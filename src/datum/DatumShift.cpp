#include "datum/DatumShift.h"

#include <algorithm>
#include <cmath>

#include "foundation/Tolerance.h"

namespace {

// Translations occupy the first three places; rotations and scale follow.
constexpr int kTranslationCount = 3;

// A parameter raises the type when its magnitude, relative to itself, exceeds
// the library tolerance. Every finite non-zero value passes; zero, NaN and an
// infinity give 0/0, NaN or inf/inf and fail, so an unreadable value never
// turns a record into a shift.
bool _IsNonZero(double v) {
    const double m = std::fabs(v);
    return m / std::max(m, 0.0) > kGxRelativeTolerance;
}

}  // namespace

CGxDatumShift::CGxDatumShift() {
    Reset();
}

CGxDatumShift::CGxDatumShift(double* const values) {
    SetParameters(values);
}

CGxDatumShift::CGxDatumShift(CGxCartDef::ETypeOfDatumShift type_, double dX, double dY, double dZ,
                             double rX, double rY, double rZ, double scale)
    : type(type_), parameters{dX, dY, dZ, rX, rY, rZ, scale} {}

CGxDatumShift::~CGxDatumShift() = default;

void CGxDatumShift::Reset() {
    type = CGxCartDef::eNoDatumShift;
    std::fill(parameters, parameters + kParameterCount, 0.0);
}

void CGxDatumShift::SetParameters(double* const values) {
    if (values == nullptr) {
        Reset();
        return;
    }
    std::copy(values, values + kParameterCount, parameters);
    type = CGxCartDef::eNoDatumShift;
    for (int i = 0; i < kTranslationCount; ++i) {
        if (_IsNonZero(parameters[i])) type = CGxCartDef::eThreeParameterShift;
    }
    for (int i = kTranslationCount; i < kParameterCount; ++i) {
        if (_IsNonZero(parameters[i])) type = CGxCartDef::eSevenParameterShift;
    }
}

double& CGxDatumShift::operator[](long i) {
    if (i >= 0 && i < kParameterCount) return parameters[i];
    thread_local double scratch;
    scratch = std::nan("");
    return scratch;
}

double CGxDatumShift::operator[](long i) const {
    return i >= 0 && i < kParameterCount ? parameters[i] : std::nan("");
}

const char* CGxDatumShift::GetTypeAsText() const {
    switch (type) {
        case CGxCartDef::eNoDatumShift:
            return "None";
        case CGxCartDef::eThreeParameterShift:
            return "3 parameter";
        case CGxCartDef::eSevenParameterShift:
            return "7 parameter";
    }
    return "";
}

bool CGxDatumShift::operator==(const CGxDatumShift& other) const {
    if (this == &other) return true;
    if (type != other.type) return false;
    if (type == CGxCartDef::eNoDatumShift) return true;
    // A translation compares its three values; a similarity transformation,
    // and a record of a type we do not know, all seven.
    const int n = type == CGxCartDef::eThreeParameterShift ? kTranslationCount : kParameterCount;
    for (int i = 0; i < n; ++i) {
        if (!GxIsNear(parameters[i], other.parameters[i])) return false;
    }
    return true;
}
