#pragma once

#include "projections/ObliqueMercatorBase.h"

class CGxEllipsoid;
class CGxHotineObliqueMercatorProjection;

// Hotine oblique Mercator with its grid origin at the natural origin, where
// the central line crosses the aposphere's equator, and the grid rectified by
// the azimuth of the central line (EPSG variant A with gamma = alpha). The
// Alaska state-plane zone 1 is of this kind.
class GXCART_API CGxHotineObliqueMercator
    : public CGxAlgorithmOf<CGxHotineObliqueMercator, CGxHotineObliqueMercatorProjection,
                            CGxObliqueMercatorBase> {
public:
    // scale on the central line; centre longitude and latitude and the
    // central line's azimuth at the centre in degrees; false easting and
    // northing in the ellipsoid unit.
    CGxHotineObliqueMercator(const char* name, double scale, double centreLongitude,
                             double centreLatitude, double azimuth, double falseEasting,
                             double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue
    // ellipsoid of its identifier. With a null definition, an empty or an
    // unknown identifier the grid keeps only the name and its numbers stay
    // NaN.
    explicit CGxHotineObliqueMercator(const CGxHotineObliqueMercatorProjection* definition);
};
