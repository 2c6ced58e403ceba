// Geographical longitude and latitude used as grid coordinates. The only
// change is the shift of longitudes to a central meridian; the ellipsoid plays
// no part in the conversion and is carried for the datum code.

#include "projections/Geographical.h"
#include "projections/ProjectionSupport.h"

#include <limits>
#include <string>

#include "definitions/GeographicalProjection.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlgorithmTransfer.h"

namespace {
// The default view: all longitudes, and latitudes from the Southern Ocean to
// the north of Greenland, leaving out Antarctica and the Arctic Ocean.
constexpr double kAreaWest = -180.0;
constexpr double kAreaSouth = -60.0;
constexpr double kAreaEast = 180.0;
constexpr double kAreaNorth = 81.0;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
}  // namespace

CGxGeographical::CGxGeographical(const char* name_, double centralMeridian_,
                                 const CGxEllipsoid& ellipsoid)
    : name(name_),
      a(ellipsoid.GetMajor()),
      f(ellipsoid.GetFlatness()),
      centralMeridian(centralMeridian_) {}

// A geographical definition holds no parameters: its grid counts longitudes
// from Greenwich. Longitude and latitude need no figure to be converted, so
// without a known ellipsoid ("LONG/LAT" names none) the grid still converts
// and only reports no ellipsoid.
CGxGeographical::CGxGeographical(const CGxGeographicalProjection* definition)
    : name(definition ? definition->GetName().c_str() : nullptr),
      a(kNaN),
      f(kNaN),
      centralMeridian(0.0) {
    const CGxEllipsoid* ellipsoid =
        GxCatalogueEllipsoid(definition ? definition->GetEllipsoidID() : std::string());
    if (!ellipsoid) return;
    a = ellipsoid->GetMajor();
    f = ellipsoid->GetFlatness();
}

const char* CGxGeographical::GetName() const { return name.name; }

void CGxGeographical::Geo2Proj(double lon, double lat, double* x, double* y) const {
    *x = name.isLocal ? lon : lon - centralMeridian;
    *y = lat;
}

void CGxGeographical::Proj2Geo(double x, double y, double* lon, double* lat) const {
    *lon = name.isLocal ? x : x + centralMeridian;
    *lat = y;
}

void CGxGeographical::GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const {
    Geo2Proj(kAreaWest, kAreaSouth, x0, y0);
    Geo2Proj(kAreaEast, kAreaNorth, x1, y1);
}

bool CGxGeographical::IsLocal() const { return name.isLocal; }

bool CGxGeographical::IsGeographical() const { return true; }

bool CGxGeographical::GetAnonymousEllipsoid(CGxEllipsoid& out) const {
    return GxAnonymousEllipsoid(a, f, out);
}

CGxProjection* CGxGeographical::Clone() const { return new CGxGeographical(*this); }

void CGxGeographical::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxGeographical::GetMapProjection, parser);
}

bool CGxGeographical::GetEllipsoid(CGxEllipsoid& ellipsoid) const {
    return GxCatalogueFigureOf(GetName(), ellipsoid);
}

bool CGxGeographical::GetMapProjection(CGxGeographicalProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
