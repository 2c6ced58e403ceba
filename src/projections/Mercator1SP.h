#pragma once

#include "foundation/GxExport.h"
#include "projections/MercatorBase.h"

class CGxEllipsoid;
class CGxMercator1SPProjection;

// Normal-aspect Mercator on the ellipsoid with a given scale factor on the
// equator.
class GXCART_API CGxMercator1SP
    : public CGxAlgorithmOf<CGxMercator1SP, CGxMercator1SPProjection, CGxMercatorBase> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); scale: k0 on the
    // equator; centreLongitude in degrees; false easting and northing in the
    // ellipsoid's unit. GetDerivedParameters writes 0: this form has no
    // derived parameter.
    CGxMercator1SP(const char* name, double scale, double centreLongitude, double falseEasting,
                   double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxMercator1SP(const CGxMercator1SPProjection* definition);
};
