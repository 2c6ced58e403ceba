#pragma once

#include "projections/StereographicPole.h"

class CGxEllipsoid;
class CGxStereographicNorthPoleProjection;

// Polar stereographic about the north pole, true to scale along a
// standard parallel in the northern hemisphere (or the equator); the scale at the
// pole is derived from it. Its origin is the central meridian and latitude
// 90.0.
class GXCART_API CGxStereographicNorthPole
    : public CGxAlgorithmOf<CGxStereographicNorthPole, CGxStereographicNorthPoleProjection,
                            CGxStereographicPole> {
public:
    // name: coordinate-system string (empty means "NON-UTM"); standardParallel
    // and centreLongitude in degrees; false easting and northing (the
    // coordinates of the pole) in the ellipsoid's unit.
    CGxStereographicNorthPole(const char* name, double standardParallel, double centreLongitude,
                              double falseEasting, double falseNorthing,
                              const CGxEllipsoid& ellipsoid);
    // From a definition: its name, its parameters and the catalogue ellipsoid
    // of its identifier. With a null definition, an empty or an unknown
    // identifier the grid keeps only the name and its numbers stay NaN.
    explicit CGxStereographicNorthPole(const CGxStereographicNorthPoleProjection* definition);
};
