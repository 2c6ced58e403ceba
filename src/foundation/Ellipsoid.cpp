#include "foundation/Ellipsoid.h"

#include <cmath>

#include "foundation/Tolerance.h"

CGxEllipsoid::CGxEllipsoid() : major(1.0), invFlattening(1.0) {}

CGxEllipsoid::CGxEllipsoid(const std::string& name_, const std::string& id, double major_,
                           double invFlattening_)
    : name(name_), ID(id), major(major_), invFlattening(invFlattening_) {}

CGxEllipsoid::CGxEllipsoid(const CGxEllipsoid& other) = default;

CGxEllipsoid& CGxEllipsoid::operator=(const CGxEllipsoid& other) = default;

CGxEllipsoid::~CGxEllipsoid() = default;

void CGxEllipsoid::SetParams(double major_, double invFlattening_) {
    major = major_;
    invFlattening = invFlattening_;
}

bool CGxEllipsoid::operator==(const CGxEllipsoid& other) const {
    if (this == &other) return true;
    return name == other.name && ID == other.ID && GxIsNear(major, other.major) &&
           GxIsNear(invFlattening, other.invFlattening);
}

bool CGxEllipsoid::IsEquivalent(const CGxEllipsoid& other) const {
    if (this == &other) return true;
    return GxIsNear(major, other.major) && GxIsNear(invFlattening, other.invFlattening);
}

double CGxEllipsoid::GetFlatness() const {
    return invFlattening > 0 ? 1.0 / invFlattening : 0.0;
}

double CGxEllipsoid::GetMinor() const {
    return invFlattening > 0 ? major * (invFlattening - 1.0) / invFlattening : major;
}

double CGxEllipsoid::GetEccentricity() const {
    const double a = GetMajor();
    const double b = GetMinor();
    return std::sqrt((a * a - b * b) / (a * a));
}

double CGxCartDef::arcsec2rad(double s) {
    return s * kGxPi / 3600.0 / 180.0;
}

double CGxCartDef::ppm2dec(double s) {
    return s / 1000000.0;
}
