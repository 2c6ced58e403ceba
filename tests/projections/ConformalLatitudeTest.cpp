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
#include "tests/support/ReferenceFile.h"

namespace {

const CGxEllipsoid kFlat("Flat", "FL", 6378137.0, 4.0);

const auto kLambert = GxReadReferencePoints("conformal_latitude/lambert.txt");
const auto kStereographic = GxReadReferencePoints("conformal_latitude/stereographic.txt");

}  // namespace

TEST(ConformalLatitude, InversesOnAFlatFigureFinishTheIteration) {
    GxExpectReferenceTable(CGxLambert2SP("Flat LCC", 30, 60, 0, 45, 0, 0, kFlat), kLambert,
                           kGxMillimetreTable);
    GxExpectReferenceTable(CGxStereographic("Flat stereographic", 1, 5, 52, 0, 0, kFlat),
                           kStereographic, kGxMillimetreTable);
}
