#include "projections/Algorithm.h"

#include "foundation/Ellipsoid.h"
#include "projections/math/Convergence.h"

bool GxAnonymousEllipsoid(double a, double f, CGxEllipsoid& out) {
    if (!(a > 0)) return false;
    out.SetParams(a, f != 0.0 ? 1.0 / f : 0.0);
    return true;
}

CGxAlgorithm::CGxAlgorithm(const char* name_) : name(name_) {}

const char* CGxAlgorithm::GetName() const {
    return name.name;
}

bool CGxAlgorithm::IsLocal() const {
    return name.isLocal;
}

bool CGxAlgorithm::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

void CGxAlgorithm::_SetFigure(const CGxEllipsoid& ellipsoid) {
    a = ellipsoid.GetMajor();
    f = ellipsoid.GetFlatness();
}

double CGxAlgorithm::_Convergence(double lon, double lat) const {
    return GxNumericalConvergence(*this, lon, lat);
}
