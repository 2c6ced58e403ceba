// Polar stereographic about the south pole defined by its standard parallel;
// lonOrigin points to grid north from the pole.

#include "projections/StereographicSouthPole.h"

#include "definitions/StereographicSouthPoleProjection.h"
#include "projections/AlgorithmCatalogue.h"

namespace {
constexpr bool kSouth = true;
}  // namespace

CGxStereographicSouthPole::CGxStereographicSouthPole(const char* name, double standardParallel,
                                                     double centreLongitude, double falseEasting,
                                                     double falseNorthing,
                                                     const CGxEllipsoid& ellipsoid)
    : CGxAlgorithmOf(kSouth, name, standardParallel, centreLongitude, falseEasting, falseNorthing,
                     ellipsoid) {}

CGxStereographicSouthPole::CGxStereographicSouthPole(const CGxStereographicSouthPoleProjection* def)
    : CGxAlgorithmOf(kSouth, def) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(def)) {
        _Setup(kSouth, def->GetParallel1(), def->GetCentre(), def->GetFalseEasting(),
               def->GetFalseNorthing(), *ellipsoid);
    }
}

template class CGxAlgorithmOf<CGxStereographicSouthPole, CGxStereographicSouthPoleProjection,
                              CGxStereographicPole>;
