#include "foundation/Projection.h"

void CGxProjection::GetOrigin(double* lon, double* lat) const {
    *lon = 0.0;
    *lat = 0.0;
}

double CGxProjection::GetConvergence(double, double) const {
    return 0.0;
}

void CGxProjection::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    *x0 = 0.0;
    *y0 = 0.0;
    *x1 = 0.0;
    *y1 = 0.0;
}

bool CGxProjection::IsLocal() const {
    return false;
}

bool CGxProjection::IsGeographical() const {
    return false;
}

void CGxProjection::free() {
    delete this;
}

void CGxProjection::GetDerivedParameters(double*) const {}

bool CGxProjection::GetAnonymousEllipsoid(CGxEllipsoid&) const {
    return false;
}

CGxProjection::~CGxProjection() = default;

void CGxProjection::Release(CGxProjection* projection) {
    if (projection) projection->free();
}
