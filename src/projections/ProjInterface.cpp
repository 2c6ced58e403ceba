#include "projections/ProjInterface.h"

#include <algorithm>
#include <limits>

#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmTransfer.h"

namespace {

// Half the side of the default box of the inner forms, degrees.
constexpr double kDefaultAreaHalfWidth = 5.0;

}  // namespace

CGxProjInterface::~CGxProjInterface() = default;

EGxInnerKind GxInnerKindFor(const CGxEllipsoid& ellipsoid) {
    return ellipsoid.GetInvFlatness() == 0.0 ? eGxInnerSphere : eGxInnerEllipsoid;
}

void GxInnerDefaultArea(const CGxProjInterface& inner, double lon0, double lat0, double half,
                        double* x0, double* y0, double* x1, double* y1) {
    inner.Geo2Proj(lon0 - half, std::max(lat0 - half, -90.0), x0, y0);
    inner.Geo2Proj(lon0 + half, std::min(lat0 + half, 90.0), x1, y1);
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
    GxInnerDefaultArea(*this, lon0 * kGxRadToDeg, lat0 * kGxRadToDeg, kDefaultAreaHalfWidth, x0, y0,
                       x1, y1);
}

bool CGxInnerForm::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, invFlattening > 0 ? 1 / invFlattening : 0.0, out);
}

CGxProjWrapper::CGxProjWrapper(const char* name, int kind, CGxProjInterface* inner)
    : name(name), inner(inner), kind(kind) {}

CGxProjWrapper::CGxProjWrapper(const CGxMapProjData* definition)
    : name(GxDefinitionName(definition).c_str()), inner(nullptr), kind(eGxInnerNone) {}

CGxProjWrapper::CGxProjWrapper(const CGxProjWrapper& other)
    : CGxProjection(other),
      name(other.name),
      inner(other.inner ? other.inner->Clone() : nullptr),
      kind(other.kind) {}

CGxProjWrapper& CGxProjWrapper::operator=(const CGxProjWrapper& other) {
    if (this != &other) {
        // Clone first: if the copy throws, this object is left as it was.
        CGxProjInterface* copy = other.inner ? other.inner->Clone() : nullptr;
        delete inner;
        inner = copy;
        name = other.name;
        kind = other.kind;
    }
    return *this;
}

CGxProjWrapper::~CGxProjWrapper() {
    delete inner;
}

const char* CGxProjWrapper::GetName() const {
    return name.name;
}

void CGxProjWrapper::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (name.isLocal) {
        *x = lon;
        *y = lat;
    } else if (inner) {
        inner->Geo2Proj(lon, lat, x, y);
    } else {
        *x = *y = std::numeric_limits<double>::quiet_NaN();
    }
}

void CGxProjWrapper::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (name.isLocal) {
        *lon = x;
        *lat = y;
    } else if (inner) {
        inner->Proj2Geo(x, y, lon, lat);
    } else {
        *lon = *lat = std::numeric_limits<double>::quiet_NaN();
    }
}

void CGxProjWrapper::GetOrigin(double* lon, double* lat) const {
    if (inner)
        inner->GetOrigin(lon, lat);
    else
        CGxProjection::GetOrigin(lon, lat);
}

double CGxProjWrapper::GetConvergence(double lon, double lat) const {
    if (!inner || name.isLocal) return 0.0;
    return GxNumericalConvergence(*this, lon, lat);
}

void CGxProjWrapper::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    if (inner)
        inner->GetDefaultArea(x0, y0, x1, y1);
    else
        CGxProjection::GetDefaultArea(x0, y0, x1, y1);
}

bool CGxProjWrapper::IsLocal() const {
    return name.isLocal;
}

bool CGxProjWrapper::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return inner && inner->GetAnonymousEllipsoid(out);
}

bool CGxProjWrapper::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}
