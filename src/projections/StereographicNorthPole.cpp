// Polar stereographic about the north pole defined by its standard parallel;
// lonOrigin points to grid south from the pole.

#include "projections/StereographicNorthPole.h"

#include "definitions/StereographicNorthPoleProjection.h"
#include "projections/AlgorithmCatalogue.h"

namespace {
constexpr bool kSouth = false;
}  // namespace

CGxStereographicNorthPole::CGxStereographicNorthPole(const char* name, double standardParallel,
                                                     double centreLongitude, double falseEasting,
                                                     double falseNorthing,
                                                     const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(kSouth, name, standardParallel, centreLongitude, falseEasting, falseNorthing,
                     ellipsoid) {}

CGxStereographicNorthPole::CGxStereographicNorthPole(const CGxStereographicNorthPoleProjection* def)
    : CGxAlgorithmOf(kSouth, def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(kSouth, def->GetParallel1(), def->GetCentre(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

template class CGxAlgorithmOf<CGxStereographicNorthPole, CGxStereographicNorthPoleProjection,
                              CGxStereographicPole>;
