#include "projections/CylindricalEqualArea.h"

#include <cmath>
#include <limits>

#include "definitions/CylindricalEqualAreaProjection.h"
#include "foundation/Angles.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/FourierCoefficients.h"

CGxCylindricalEqualArea::CGxCylindricalEqualArea(const char* name_, double parallel1,
                                                 double centreLongitude, double falseEasting,
                                                 double falseNorthing,
                                                 const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_) {
    _Setup(parallel1, centreLongitude, falseEasting, falseNorthing, ellipsoid);
}

CGxCylindricalEqualArea::CGxCylindricalEqualArea(const CGxCylindricalEqualAreaProjection* def)
    : CGxAlgorithmOf(def) {
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(def->GetParallel1(), def->GetCentre(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

void CGxCylindricalEqualArea::_Setup(double parallel1, double centreLongitude, double falseEasting,
                                     double falseNorthing, const CGxEllipsoid& ellipsoid) {
    _SetFigure(ellipsoid);
    const double e = ellipsoid.GetEccentricity();
    double series[4] = {0, 0, 0, 0};
    GxComputeFourierCoefficients(EGxSeries::eAuthalicLatitude, false, e * e, series);
    cylinder.Set(a, e, parallel1 * kGxDegToRad, centreLongitude * kGxDegToRad, falseEasting,
                 falseNorthing, series);
}

void CGxCylindricalEqualArea::GetOrigin(double* lon, double* lat) const {
    *lon = cylinder.lon0 * kGxRadToDeg;
    *lat = 0.0;
}

void CGxCylindricalEqualArea::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxCylinderArea(*this, cylinder.lon0 * kGxRadToDeg, x0, y0, x1, y1);
}

void CGxCylindricalEqualArea::GetDerivedParameters(double* out) const {
    if (out) out[0] = cylinder.k0;
}

double CGxCylindricalEqualArea::_Convergence(double lon, double lat) const {
    if (std::isnan(lon) || !(std::fabs(lat) <= 90.0) || std::isnan(cylinder.k0))
        return std::numeric_limits<double>::quiet_NaN();
    return 0.0;
}

template class CGxLocalGridOf<CGxCylindricalEqualArea>;
template class CGxAlgorithmOf<CGxCylindricalEqualArea, CGxCylindricalEqualAreaProjection>;
