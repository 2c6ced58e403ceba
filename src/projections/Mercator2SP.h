#pragma once

#include "foundation/GxExport.h"
#include "projections/MercatorBase.h"

class CGxEllipsoid;
class CGxMercator2SPProjection;

// Normal-aspect Mercator on the ellipsoid, true to scale along a standard
// parallel and its mirror; the equator scale k0 is derived from it.
class GXCART_API CGxMercator2SP
    : public CGxAlgorithmOf<CGxMercator2SP, CGxMercator2SPProjection, CGxMercatorBase> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); parallel1: the
    // standard parallel, degrees; centreLongitude in degrees; false easting
    // and northing in the ellipsoid's unit. GetDerivedParameters writes the
    // derived equator scale k0.
    CGxMercator2SP(const char* name, double parallel1, double centreLongitude, double falseEasting,
                   double falseNorthing, const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxMercator2SP(const CGxMercator2SPProjection* definition);

private:
    // Derives k0 from the standard parallel (degrees) and fills the cylinder.
    void _SetupFromParallel(double parallel1, double centreLongitude, double falseEasting,
                            double falseNorthing, const CGxEllipsoid& ellipsoid);
};
