// Polar stereographic about the north pole defined by its standard parallel;
// lonOrigin points to grid south from the pole.

#include "projections/StereographicNorthPole.h"

#include "definitions/StereographicNorthPoleProjection.h"
#include "projections/AlgorithmTransfer.h"

namespace {
constexpr bool kSouth = false;
}  // namespace

CGxStereographicNorthPole::CGxStereographicNorthPole(const char* name, double standardParallel,
                                                     double centreLongitude, double falseEasting,
                                                     double falseNorthing,
                                                     const CGxEllipsoid& ellipsoid)
    : CGxStereographicPole(kSouth, name, standardParallel, centreLongitude, falseEasting,
                           falseNorthing, ellipsoid) {}

CGxStereographicNorthPole::CGxStereographicNorthPole(const CGxStereographicNorthPoleProjection* def)
    : CGxStereographicPole(kSouth, def) {}

CGxProjection* CGxStereographicNorthPole::Clone() const {
    return new CGxStereographicNorthPole(*this);
}

void CGxStereographicNorthPole::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxStereographicNorthPole::GetMapProjection, parser);
}

bool CGxStereographicNorthPole::GetMapProjection(
    CGxStereographicNorthPoleProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
