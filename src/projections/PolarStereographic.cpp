// The polar stereographic wrapper: chooses the inner algorithm from the
// origin latitude, owns it, and forwards to it.

#include "projections/PolarStereographic.h"

#include <limits>
#include <new>
#include <utility>

#include "foundation/Tolerance.h"
#include "projections/Stereographic.h"
#include "projections/StereographicNorthPole.h"
#include "projections/StereographicSouthPole.h"

namespace {
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
}  // namespace

CGxPolarStereographic::CGxPolarStereographic(const char* name, double scale, double centreLongitude,
                                             double originLatitude, double falseEasting,
                                             double falseNorthing, const CGxEllipsoid& ellipsoid) {
    if (GxIsNear(originLatitude, 90.0) || GxIsNear(originLatitude, -90.0)) {
        inner = new (std::nothrow) CGxStereographic(name, scale, centreLongitude, originLatitude,
                                                    falseEasting, falseNorthing, ellipsoid);
    } else if (originLatitude < 0 && !GxIsNear(originLatitude, 0.0)) {
        inner = new (std::nothrow) CGxStereographicSouthPole(
            name, originLatitude, centreLongitude, falseEasting, falseNorthing, ellipsoid);
    } else {
        inner = new (std::nothrow) CGxStereographicNorthPole(
            name, originLatitude, centreLongitude, falseEasting, falseNorthing, ellipsoid);
    }
}

CGxPolarStereographic::CGxPolarStereographic(const CGxPolarStereographic& other)
    : CGxProjection(other), inner(other.inner ? other.inner->Clone() : nullptr) {}

CGxPolarStereographic& CGxPolarStereographic::operator=(const CGxPolarStereographic& other) {
    if (this != &other) {
        CGxPolarStereographic copy(other);
        std::swap(inner, copy.inner);
    }
    return *this;
}

CGxPolarStereographic::~CGxPolarStereographic() {
    delete inner;
}

const char* CGxPolarStereographic::GetName() const {
    return inner ? inner->GetName() : "";
}

void CGxPolarStereographic::Geo2Proj(double lon, double lat, double* x, double* y) const {
    if (inner) {
        inner->Geo2Proj(lon, lat, x, y);
    } else {
        *x = *y = kNaN;
    }
}

void CGxPolarStereographic::Proj2Geo(double x, double y, double* lon, double* lat) const {
    if (inner) {
        inner->Proj2Geo(x, y, lon, lat);
    } else {
        *lon = *lat = kNaN;
    }
}

void CGxPolarStereographic::GetOrigin(double* lon, double* lat) const {
    inner ? inner->GetOrigin(lon, lat) : CGxProjection::GetOrigin(lon, lat);
}

double CGxPolarStereographic::GetConvergence(double lon, double lat) const {
    return inner ? inner->GetConvergence(lon, lat) : 0.0;
}

void CGxPolarStereographic::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    inner ? inner->GetDefaultArea(x0, y0, x1, y1) : CGxProjection::GetDefaultArea(x0, y0, x1, y1);
}

bool CGxPolarStereographic::IsLocal() const {
    return inner && inner->IsLocal();
}

bool CGxPolarStereographic::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return inner && inner->GetAnonymousEllipsoid(out);
}

CGxProjection* CGxPolarStereographic::Clone() const {
    return new CGxPolarStereographic(*this);
}
