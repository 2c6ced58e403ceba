// The polar stereographic wrapper: chooses the inner algorithm from the
// origin latitude, owns it, and forwards to it.

#include "projections/PolarStereographic.h"

#include <limits>
#include <new>
#include <string>
#include <utility>

#include "definitions/PolarStereographicProjection.h"
#include "definitions/StereographicNorthPoleProjection.h"
#include "definitions/StereographicProjection.h"
#include "definitions/StereographicSouthPoleProjection.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/Stereographic.h"
#include "projections/StereographicNorthPole.h"
#include "projections/StereographicSouthPole.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

enum class EInnerForm { ePolarAspect, eSouthPole, eNorthPole };

// An origin at a pole (within the nearness test) keeps the given scale at the
// pole; any other origin latitude is a standard parallel, south of the
// equator for the south-pole form and on or north of it for the north-pole
// form. A latitude that is not a number falls to the north-pole form.
EInnerForm _InnerForm(double originLatitude) {
    if (GxIsNear(originLatitude, 90.0) || GxIsNear(originLatitude, -90.0)) {
        return EInnerForm::ePolarAspect;
    }
    if (originLatitude < 0 && !GxIsNear(originLatitude, 0.0)) return EInnerForm::eSouthPole;
    return EInnerForm::eNorthPole;
}

}  // namespace

CGxPolarStereographic::CGxPolarStereographic(const char* name, double scale, double centreLongitude,
                                             double originLatitude, double falseEasting,
                                             double falseNorthing, const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name) {
    switch (_InnerForm(originLatitude)) {
        case EInnerForm::ePolarAspect:
            inner.reset(new (std::nothrow)
                            CGxStereographic(name, scale, centreLongitude, originLatitude,
                                             falseEasting, falseNorthing, ellipsoid));
            break;
        case EInnerForm::eSouthPole:
            inner.reset(new (std::nothrow) CGxStereographicSouthPole(
                name, originLatitude, centreLongitude, falseEasting, falseNorthing, ellipsoid));
            break;
        case EInnerForm::eNorthPole:
            inner.reset(new (std::nothrow) CGxStereographicNorthPole(
                name, originLatitude, centreLongitude, falseEasting, falseNorthing, ellipsoid));
            break;
    }
}

// The definition is restated as a definition of the chosen inner form (same
// name, branch, ellipsoid identifier and numbers), and the inner grid is
// built from that: it then resolves the ellipsoid by the same catalogue rule
// as every grid built from a definition.
CGxPolarStereographic::CGxPolarStereographic(const CGxPolarStereographicProjection* def)
    : CGxAlgorithmOf(def) {
    if (!def) {
        inner.reset(new (std::nothrow) CGxStereographicNorthPole(
            static_cast<const CGxStereographicNorthPoleProjection*>(nullptr)));
        return;
    }
    const std::string name = def->GetName();
    const std::string branch = def->GetBranchName();
    const std::string ellipsoid = def->GetEllipsoidID();
    const double latitude = def->GetOriginLatitude();
    switch (_InnerForm(latitude)) {
        case EInnerForm::ePolarAspect: {
            const CGxStereographicProjection form(name, branch, ellipsoid, def->GetScale(),
                                                  def->GetCentre(), latitude,
                                                  def->GetFalseEasting(), def->GetFalseNorthing());
            inner.reset(new (std::nothrow) CGxStereographic(&form));
            break;
        }
        case EInnerForm::eSouthPole: {
            const CGxStereographicSouthPoleProjection form(name, branch, ellipsoid, latitude,
                                                           def->GetCentre(), def->GetFalseEasting(),
                                                           def->GetFalseNorthing());
            inner.reset(new (std::nothrow) CGxStereographicSouthPole(&form));
            break;
        }
        case EInnerForm::eNorthPole: {
            const CGxStereographicNorthPoleProjection form(name, branch, ellipsoid, latitude,
                                                           def->GetCentre(), def->GetFalseEasting(),
                                                           def->GetFalseNorthing());
            inner.reset(new (std::nothrow) CGxStereographicNorthPole(&form));
            break;
        }
    }
}

CGxPolarStereographic::CGxPolarStereographic(const CGxPolarStereographic& other) = default;

CGxPolarStereographic& CGxPolarStereographic::operator=(const CGxPolarStereographic& other) {
    // The inner grid is copied first: a failed copy leaves this object as it
    // was.
    InnerGrid copy(other.inner);
    CGxAlgorithmOf::operator=(other);
    inner.swap(copy);
    return *this;
}

CGxPolarStereographic::~CGxPolarStereographic() = default;

void CGxPolarStereographic::_Forward(double lon, double lat, double* x, double* y) const {
    if (inner) {
        inner->Geo2Proj(lon, lat, x, y);
    } else {
        *x = *y = kNaN;
    }
}

void CGxPolarStereographic::_Inverse(double x, double y, double* lon, double* lat) const {
    if (inner) {
        inner->Proj2Geo(x, y, lon, lat);
    } else {
        *lon = *lat = kNaN;
    }
}

void CGxPolarStereographic::GetOrigin(double* lon, double* lat) const {
    inner ? inner->GetOrigin(lon, lat) : CGxProjection::GetOrigin(lon, lat);
}

double CGxPolarStereographic::_Convergence(double lon, double lat) const {
    return inner ? inner->GetConvergence(lon, lat) : 0.0;
}

void CGxPolarStereographic::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    inner ? inner->GetDefaultArea(x0, y0, x1, y1) : CGxProjection::GetDefaultArea(x0, y0, x1, y1);
}

bool CGxPolarStereographic::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return inner && inner->GetAnonymousEllipsoid(out);
}

template class CGxLocalGridOf<CGxPolarStereographic>;
template class CGxAlgorithmOf<CGxPolarStereographic, CGxPolarStereographicProjection>;
