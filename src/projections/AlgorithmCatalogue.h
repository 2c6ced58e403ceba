#pragma once

// The one seam between the projection algorithms and the definitions and
// catalogues, included only by the algorithms' source files.
//
// The design needs it both ways. A definition builds its algorithm, so an
// algorithm is made from a definition: it takes the definition's name and the
// figure that the definition names by a catalogue identifier. And an
// algorithm keeps only the numbers of its formulas, so to be written as WKT
// it finds its definition again in the projection catalogue under its
// coordinate-system name, with its figure; what it hands to the writer is
// then exactly what that definition would hand over.

#include <string>
#include <tuple>

#include "definitions/TabledMapProjData.h"
#include "foundation/Ellipsoid.h"
#include "projections/Algorithm.h"
#include "projections/ProjInterface.h"

class CGxMapProjData;
class CGxPRJParser;

// ------------------------------------------------------- building from a definition

// The definition's name; empty for a null definition, which the name buffer
// turns into the local grid "NON-UTM".
std::string GxDefinitionName(const CGxMapProjData* definition);

// The catalogue ellipsoid with this identifier; null for an empty or unknown
// identifier (the look-up is exact, case included). The catalogue keeps the
// ellipsoid for the life of the process.
const CGxEllipsoid* GxCatalogueEllipsoid(const std::string& id);

// The catalogue ellipsoid whose identifier the definition holds; null for a
// null definition, an empty identifier or one the catalogue does not know.
const CGxEllipsoid* GxDefinitionEllipsoid(const CGxMapProjData* definition);

// ---------------------------------------------------------- writing as WKT

// The catalogue figure of the coordinate system named name: the ellipsoid
// its catalogue definition names. False, with out untouched, when the
// catalogue has no such system or no such ellipsoid.
bool GxCatalogueFigureOf(const char* name, CGxEllipsoid& out);

// The catalogue definition named name (null when there is none).
const CGxMapProjData* GxCatalogueDefinitionNamed(const char* name);

// Copies the catalogue definition named name into out when it is of out's
// class; false, with out untouched, otherwise.
template <class TDefinition>
bool GxCatalogueDefinitionOf(const char* name, TDefinition& out) {
    const auto* found = dynamic_cast<const TDefinition*>(GxCatalogueDefinitionNamed(name));
    if (!found) return false;
    out = *found;
    return true;
}

// Hands over the definition with the figure when there is one. Without a
// figure the system is "Non_Projected" and the spheroid written is that of a
// default ellipsoid.
void GxTransferWithFigure(const CGxTabledMapProjData& definition, const CGxEllipsoid* figure,
                          CGxPRJParser& parser);

// ------------------------------------- the template members that need the seam

template <class TDefinition>
bool CGxAlgorithm::_CatalogueDefinition(TDefinition& out) const {
    return GxCatalogueDefinitionOf(GetName(), out);
}

template <class TAlgorithm, class TDefinition, class TBase>
bool CGxAlgorithmOf<TAlgorithm, TDefinition, TBase>::GetMapProjection(
    TDefinition& definition) const {
    return this->_CatalogueDefinition(definition);
}

// The definition (a default, empty one when the catalogue has none of this
// type under the grid's name) and the figure of the catalogue.
template <class TAlgorithm, class TDefinition, class TBase>
void CGxAlgorithmOf<TAlgorithm, TDefinition, TBase>::TransferParameters(
    CGxPRJParser& parser) const {
    TDefinition definition;
    GetMapProjection(definition);
    CGxEllipsoid figure;
    const bool found = this->GetEllipsoid(figure);
    GxTransferWithFigure(definition, found ? &figure : nullptr, parser);
}

// A wrapper from a catalogue definition: its name, and the inner form for the
// ellipsoid its identifier names in the catalogue, built from the tuple of
// numbers that numbersOf reads from the definition.
template <class TAlgorithm, class TEllipsoidForm, class TSphereForm, class TDefinition>
template <class TNumbersOf>
CGxProjWrapperOf<TAlgorithm, TEllipsoidForm, TSphereForm, TDefinition>::CGxProjWrapperOf(
    const TDefinition* definition, TNumbersOf numbersOf)
    : CGxAlgorithmOf<TAlgorithm, TDefinition, CGxProjWrapper>(definition) {
    // Without a known ellipsoid the grid has no figure: every point converts
    // to NaN.
    if (const CGxEllipsoid* ellipsoid = GxDefinitionEllipsoid(definition)) {
        std::apply(
            [&](auto... numbers) {
                this->template _BuildInner<TEllipsoidForm, TSphereForm>(*ellipsoid, numbers...);
            },
            numbersOf(*definition));
    }
}
