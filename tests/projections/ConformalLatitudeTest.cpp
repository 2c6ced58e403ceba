// The latitude of the conformal inverses (Lambert conic, oblique
// stereographic; Krovak shares the same solution) on a strongly flattened
// figure. The latitude is
// found by an iteration started from the conformal-latitude series; on the
// Earth's figures the series alone is within 2e-12 rad (0.01 mm), so the
// reference tables there cannot tell whether the iteration still runs. With
// 1/f = 4 (e^2 = 0.44) the series is off by up to 20 km and only a finished
// iteration meets PROJ.

#include <gtest/gtest.h>

#include "foundation/Ellipsoid.h"
#include "projections/Lambert2SP.h"
#include "projections/Stereographic.h"
#include "tests/support/ReferenceCheck.h"

namespace {

const CGxEllipsoid kFlat("Flat", "FL", 6378137.0, 4.0);

// cct -d 6 +proj=lcc +lat_1=30 +lat_2=60 +lat_0=45 +lon_0=0 +a=6378137 +rf=4
const GxReferencePoint kLambert[] = {
    {5, 10, 599850.115316, -2606710.703786},
    {-20, 45, -1718766.901245, 218421.965969},
    {30, 80, 939117.552487, 4515062.540720},
    {0, -30, 0.000000, -6012656.312784},
};

// cct -d 6 +proj=sterea +lat_0=52 +lon_0=5 +k=1 +x_0=0 +y_0=0 +a=6378137 +rf=4
const GxReferencePoint kStereographic[] = {
    {5, 40, 0.000000, -1109514.545319},
    {-10, 60, -1016699.570591, 969785.460996},
    {15, 75, 383696.693937, 2808792.493495},
    {3, 20, -227018.943793, -2649809.197998},
};

}  // namespace

TEST(ConformalLatitude, InversesOnAFlatFigureFinishTheIteration) {
    GxExpectReferenceTable(CGxLambert2SP("Flat LCC", 30, 60, 0, 45, 0, 0, kFlat), kLambert,
                           kGxMillimetreTable);
    GxExpectReferenceTable(CGxStereographic("Flat stereographic", 1, 5, 52, 0, 0, kFlat),
                           kStereographic, kGxMillimetreTable);
}
