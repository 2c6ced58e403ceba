#pragma once

#include "definitions/TabledMapProjData.h"
#include "foundation/Ellipsoid.h"

class CGxPRJParser;

// How an algorithm is written as WKT. An algorithm keeps only the numbers of
// its formulas, not the definition it was made from, so it finds that
// definition again in the projection catalogue under its coordinate-system
// name, and its figure through the same catalogue entry. What it hands to
// the writer is then exactly what the definition would hand over.

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

// The whole transfer of an algorithm: its definition (a default, empty one
// when the catalogue has none of the algorithm's type under its name) through
// the algorithm's own GetMapProjection, its figure through its GetEllipsoid.
template <class TAlgorithm, class TDefinition>
void GxTransferAlgorithm(const TAlgorithm& algorithm,
                         bool (TAlgorithm::*getMapProjection)(TDefinition&) const,
                         CGxPRJParser& parser) {
    TDefinition definition;
    (algorithm.*getMapProjection)(definition);
    CGxEllipsoid figure;
    const bool found = algorithm.GetEllipsoid(figure);
    GxTransferWithFigure(definition, found ? &figure : nullptr, parser);
}
