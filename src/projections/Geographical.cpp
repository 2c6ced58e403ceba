// Geographical longitude and latitude used as grid coordinates. The only
// change is the shift of longitudes to a central meridian; the ellipsoid plays
// no part in the conversion and is carried for the datum code.

#include "projections/Geographical.h"

#include "definitions/GeographicalProjection.h"
#include "foundation/DefaultArea.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmCatalogue.h"

CGxGeographical::CGxGeographical(const char* name_, double centralMeridian_,
                                 const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(name_), centralMeridian(centralMeridian_) {
    _SetFigure(ellipsoid);
}

// A geographical definition holds no parameters: its grid counts longitudes
// from Greenwich. Longitude and latitude need no figure to be converted, so
// without a known ellipsoid ("LONG/LAT" names none) the grid still converts
// and only reports no ellipsoid.
CGxGeographical::CGxGeographical(const CGxGeographicalProjection* definition)
    : CGxAlgorithmOf(definition), centralMeridian(0.0) {
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(definition)) _SetFigure(*ellipsoid);
}

// The default view: all longitudes, and latitudes from the Southern Ocean to
// the north of Greenland, leaving out Antarctica and the Arctic Ocean.
void CGxGeographical::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    GxWorldArea(*this, x0, y0, x1, y1);
}

bool CGxGeographical::IsGeographical() const {
    return true;
}

template class CGxLocalGridOf<CGxGeographical>;
template class CGxAlgorithmOf<CGxGeographical, CGxGeographicalProjection>;
