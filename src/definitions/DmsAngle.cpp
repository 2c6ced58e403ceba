#include "definitions/DmsAngle.h"

#include <climits>
#include <cmath>

#include "zpf/zpf.h"

namespace {

constexpr double kMinutesPerDegree = 60.0;
constexpr double kSecondsPerMinute = 60.0;
constexpr double kSecondsPerDegree = 3600.0;

bool IsInt(double value) {
    return value >= INT_MIN && value <= INT_MAX && std::trunc(value) == value;
}

}  // namespace

bool GxReadDmsParts(void* section, const char* keyword, double parts[3]) {
    parts[0] = parts[1] = parts[2] = 0.0;
    void* found = (section && keyword) ? zpfKeywordByNameNum(section, keyword, 1) : nullptr;
    if (!found) return false;
    const int count = zpfGetNoParams(found);
    for (int i = 0; i < 3 && i < count; ++i)
        if (!zpfGetDouble(zpfParamByNum(found, i + 1), &parts[i])) parts[i] = 0.0;
    return true;
}

bool GxReadDmsDegrees(void* section, const char* keyword, double* degrees) {
    double parts[3];
    if (!GxReadDmsParts(section, keyword, parts)) return false;
    const double sign = parts[0] < 0 ? -1.0 : 1.0;
    *degrees = parts[0] + sign * parts[1] / kMinutesPerDegree + sign * parts[2] / kSecondsPerDegree;
    return true;
}

void GxSplitDms(const double parts[3], int* degrees, int* minutes, double* seconds) {
    const double d = parts[0];
    const double m = parts[1];
    const double s = parts[2];
    if (IsInt(d) && IsInt(m)) {
        *degrees = static_cast<int>(d);
        *minutes = static_cast<int>(m);
        *seconds = s;
        return;
    }
    if (!(std::fabs(d) < INT_MAX)) {
        // No whole-degree part fits: the whole angle goes to the seconds.
        const double sign = d < 0 ? -1.0 : 1.0;
        *degrees = 0;
        *minutes = 0;
        *seconds = (d + sign * m / kMinutesPerDegree) * kSecondsPerDegree + sign * s;
        return;
    }
    const double whole = std::trunc(d);
    // With whole degrees of 0 the sign must move to the minutes: -0.5, 0, 0
    // becomes 0, -30, 0. Otherwise the sign stays with the degrees.
    const bool signInMinutes = whole == 0.0 && d < 0;
    const double allMinutes =
        signInMinutes ? d * kMinutesPerDegree - m : std::fabs(d - whole) * kMinutesPerDegree + m;
    const double secondsLeft = signInMinutes ? -s : s;
    const double wholeMinutes = std::fabs(allMinutes) < INT_MAX ? std::trunc(allMinutes) : 0.0;
    *degrees = static_cast<int>(whole);
    *minutes = static_cast<int>(wholeMinutes);
    *seconds = (allMinutes - wholeMinutes) * kSecondsPerMinute + secondsLeft;
}
