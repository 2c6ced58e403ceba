// Polar stereographic about the south pole defined by its standard parallel;
// lonOrigin points to grid north from the pole.

#include "projections/StereographicSouthPole.h"

#include "definitions/StereographicSouthPoleProjection.h"
#include "projections/AlgorithmTransfer.h"

namespace {
constexpr bool kSouth = true;
}  // namespace

CGxStereographicSouthPole::CGxStereographicSouthPole(const char* name, double standardParallel,
                                                     double centreLongitude, double falseEasting,
                                                     double falseNorthing,
                                                     const CGxEllipsoid& ellipsoid)
    : CGxStereographicPole(kSouth, name, standardParallel, centreLongitude, falseEasting,
                           falseNorthing, ellipsoid) {}

CGxStereographicSouthPole::CGxStereographicSouthPole(const CGxStereographicSouthPoleProjection* def)
    : CGxStereographicPole(kSouth, def) {}

CGxProjection* CGxStereographicSouthPole::Clone() const {
    return new CGxStereographicSouthPole(*this);
}

void CGxStereographicSouthPole::TransferParameters(CGxPRJParser& parser) const {
    GxTransferAlgorithm(*this, &CGxStereographicSouthPole::GetMapProjection, parser);
}

bool CGxStereographicSouthPole::GetMapProjection(
    CGxStereographicSouthPoleProjection& definition) const {
    return GxCatalogueDefinitionOf(GetName(), definition);
}
