#pragma once

#include "projections/ObliqueMercatorBase.h"

class CGxEllipsoid;
class CGxObliqueMercatorProjection;

// Hotine oblique Mercator with its grid origin at the projection centre and
// the grid rectified by the azimuth of the central line (EPSG variant B with
// gamma = alpha). With an azimuth of 90 degrees the central line runs east-west
// through the centre and the projection is the Swiss oblique cylindrical one.
class GXCART_API CGxObliqueMercator
    : public CGxAlgorithmOf<CGxObliqueMercator, CGxObliqueMercatorProjection,
                            CGxObliqueMercatorBase> {
public:
    // scale on the central line; centre longitude and latitude and the
    // central line's azimuth at the centre in degrees; false easting and
    // northing (the grid values of the centre) in the ellipsoid unit.
    CGxObliqueMercator(const char* name, double scale, double centreLongitude,
                       double centreLatitude, double azimuth, double falseEasting,
                       double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue
    // ellipsoid of its identifier. With a null definition, an empty or an
    // unknown identifier the grid keeps only the name and its numbers stay
    // NaN.
    explicit CGxObliqueMercator(const CGxObliqueMercatorProjection* definition);
};
