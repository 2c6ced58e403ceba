#pragma once

#include "projections/ObliqueMercatorBase.h"

class CGxEllipsoid;
class CGxRectifiedSkewOrthomorphicProjection;

// Rectified skew orthomorphic: Hotine oblique Mercator with its grid origin at
// the natural origin and the skew grid turned by its own rectification angle,
// usually chosen so that grid north is close to true north at the centre
// (EPSG variant A; the Malaysian and Bornean RSO grids).
class GXCART_API CGxRectifiedSkewOrthomorphic
    : public CGxAlgorithmOf<CGxRectifiedSkewOrthomorphic, CGxRectifiedSkewOrthomorphicProjection,
                            CGxObliqueMercatorBase> {
public:
    // scale on the central line; centre longitude and latitude, the central
    // line's azimuth at the centre and the rotation from the skew to the
    // rectified grid (xyPlaneRotation) in degrees; false easting and northing
    // in the ellipsoid unit.
    CGxRectifiedSkewOrthomorphic(const char* name, double scale, double centreLongitude,
                                 double centreLatitude, double azimuth, double xyPlaneRotation,
                                 double falseEasting, double falseNorthing,
                                 const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue
    // ellipsoid of its identifier. With a null definition, an empty or an
    // unknown identifier the grid keeps only the name and its numbers stay
    // NaN.
    explicit CGxRectifiedSkewOrthomorphic(const CGxRectifiedSkewOrthomorphicProjection* definition);
};
