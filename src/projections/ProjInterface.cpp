#include "projections/ProjInterface.h"

#include <limits>

#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "projections/math/Convergence.h"

namespace {

// Half the side of the default box of the inner forms, degrees.
constexpr double kDefaultAreaHalfWidth = 5.0;

}  // namespace

CGxProjInterface::~CGxProjInterface() = default;

EGxInnerKind GxInnerKindFor(const CGxEllipsoid& ellipsoid) {
    return ellipsoid.GetInvFlatness() == 0.0 ? eGxInnerSphere : eGxInnerEllipsoid;
}

CGxInnerForm::CGxInnerForm(const CGxEllipsoid& ellipsoid, EGxInnerKind form, double centralMeridian,
                           double originLatitude, double falseEasting, double falseNorthing)
    : a(ellipsoid.GetMajor()),
      invFlattening(form == eGxInnerSphere ? 0.0 : ellipsoid.GetInvFlatness()),
      e(form == eGxInnerSphere ? 0.0 : ellipsoid.GetEccentricity()),
      e2(e * e),
      lon0(centralMeridian * kGxDegToRad),
      lat0(originLatitude * kGxDegToRad),
      falseEasting(falseEasting),
      falseNorthing(falseNorthing) {}

void CGxInnerForm::GetOrigin(double* lon, double* lat) const {
    *lon = lon0 * kGxRadToDeg;
    *lat = lat0 * kGxRadToDeg;
}

void CGxInnerForm::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxDefaultAreaAround(*this, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg, kDefaultAreaHalfWidth, x0,
                        y0, x1, y1);
}

bool CGxInnerForm::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, invFlattening > 0 ? 1 / invFlattening : 0.0, out);
}

CGxProjWrapper::CGxProjWrapper(const char* name, int kind, CGxProjInterface* inner)
    : CGxLocalGridOf(name), inner(inner), kind(kind) {}

CGxProjWrapper::CGxProjWrapper(const CGxMapProjData* definition)
    : CGxLocalGridOf(definition), inner(nullptr), kind(eGxInnerNone) {}

CGxProjWrapper::CGxProjWrapper(const CGxProjWrapper& other) = default;

CGxProjWrapper& CGxProjWrapper::operator=(const CGxProjWrapper& other) {
    // Clone first: if the copy throws, this object is left as it was.
    InnerForm copy(other.inner);
    CGxLocalGridOf::operator=(other);
    inner.swap(copy);
    kind = other.kind;
    return *this;
}

CGxProjWrapper::~CGxProjWrapper() = default;

void CGxProjWrapper::_Forward(double lon, double lat, double* x, double* y) const {
    if (inner) {
        inner->Geo2Proj(lon, lat, x, y);
    } else {
        *x = *y = std::numeric_limits<double>::quiet_NaN();
    }
}

void CGxProjWrapper::_Inverse(double x, double y, double* lon, double* lat) const {
    if (inner) {
        inner->Proj2Geo(x, y, lon, lat);
    } else {
        *lon = *lat = std::numeric_limits<double>::quiet_NaN();
    }
}

double CGxProjWrapper::_Convergence(double lon, double lat) const {
    return inner ? GxNumericalConvergence(*this, lon, lat) : 0.0;
}

void CGxProjWrapper::GetOrigin(double* lon, double* lat) const {
    if (inner)
        inner->GetOrigin(lon, lat);
    else
        CGxProjection::GetOrigin(lon, lat);
}

void CGxProjWrapper::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    if (inner)
        inner->GetDefaultArea(x0, y0, x1, y1);
    else
        CGxProjection::GetDefaultArea(x0, y0, x1, y1);
}

bool CGxProjWrapper::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return inner && inner->GetAnonymousEllipsoid(out);
}

template class CGxLocalGridOf<CGxProjWrapper>;
