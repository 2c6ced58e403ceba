#pragma once

#include <cstddef>
#include <string>

#include "definitions/MapProjData.h"
#include "foundation/GxExport.h"
#include "projections/FourierCoefficients.h"
#include "wkt/PRJParser.h"
#include "wkt/WktReadRules.h"

class CGxEllipsoid;
class CGxProjection;
class CGxTabledMapProjData;

// The projection-type table: one constant row for each projection type, with
// everything the coordinate-system strings and the factories know of the
// type. The WKT reader takes its projection names and parameter rules from
// the row, the writer its PROJECTION name and PARAMETER elements, WKT to
// projection and the definition factory their classes, the PROJ.4 translator
// its items, and the definition base the type's series. What a type is in a
// keyword file is its definition class's own (TabledMapProjData.h).
//
// The rows live in ProjectionTypes.cpp, which also holds what ties the
// subsystems together for each type: every definition class's
// CreateProjection, the definition factory and the transfer of a definition
// to WKT. That file is the one place that sees every definition and every
// algorithm class; only the WKT reader, writer, builder and PROJ.4 translator
// include this header, so no header of the definitions or the algorithms
// depends on the table.

// A list of constant rows: an array and its length.
template <class T>
struct GxRows {
    const T* first;
    int count;

    const T* begin() const { return first; }
    const T* end() const { return first + count; }
    bool empty() const { return count == 0; }
    const T& operator[](int i) const { return first[i]; }
};

template <class T, std::size_t N>
constexpr GxRows<T> GxRowsOf(const T (&rows)[N]) {
    return {rows, static_cast<int>(N)};
}

template <class T>
constexpr GxRows<T> GxNoRows() {
    return {nullptr, 0};
}

// A PROJECTION name read as the type, with the writers it comes from (in a
// comment beside it). Names are compared without regard to case and with
// blanks read as underscores.
struct GxWktName {
    const char* name;
    CGxPRJParser::EDialect dialect;  // what the name fixes beyond the type
    // Writers of this name leave out a parameter that has its default value
    // (GxWktRule::omitted); a name written with blanks always counts so.
    bool methodDefaults;
    GxRows<GxWktRule> rules;  // the parameters read under this name; empty: the type's
};

// A PARAMETER element the writer gives.
struct GxWktWritten {
    EGxWktParameter slot;
    const char* name;
};

// How a record value becomes a PROJ.4 value.
enum class EGxProj4Value : int {
    eAngle,         // in the text's angular unit, written in degrees
    eLongitude,     // an angle, then the prime meridian added
    eScale,         // as written
    eLength,        // in the text's linear unit, written in metres
    ePoleOfOrigin,  // 90 or -90 by the sign of the value (the pole the grid is on)
    eFixed,         // the item's fixed value
};

// One "+key=value " item.
struct GxProj4Item {
    const char* key;  // "+lat_0=" and the like
    EGxWktParameter slot;
    EGxProj4Value kind;
    double fixed;  // the value of an eFixed item
};

// The projection part of a PROJ.4 string.
struct GxProj4Form {
    const char* proj;  // "+proj=... ", or null: no projection items
    GxRows<GxProj4Item> items;
    // The whole answer in place of projection, figure, datum and units, or
    // null.
    const char* whole;
    // The proj written instead for the projection names below, compared as
    // written; null when there is none.
    const char* otherProj;
    GxRows<const char*> otherProjNames;
};

// What an algorithm of the type is built from: the type's values in the
// definition's index order, in degrees and metres, the prime meridian in
// degrees (the geographical grid's own parameter) and the figure.
struct GxAlgorithmInput {
    const char* name;
    const double* values;
    double primeMeridian;
    const CGxEllipsoid& figure;
};

using GxNewDefinition = CGxTabledMapProjData* (*)();
using GxNewAlgorithm = CGxProjection* (*)(const GxAlgorithmInput& input);

struct GxProjectionType {
    CGxMapProjData::EProjectionType type;

    // Reading WKT: the names, the parameters and the type's own rules at the
    // three stages of reading (null: none). Without a rule after the
    // parameters the type needs its required ones.
    GxRows<GxWktName> names;
    GxRows<GxWktRule> rules;
    GxWktTypeRule afterParameters;
    GxWktTypeRule afterUnits;
    GxWktTypeRule afterAxes;
    bool sortsParallels;  // the standard parallels are put smaller first on request

    // Writing WKT.
    const char* wktName;  // the PROJECTION name written
    GxRows<GxWktWritten> written;

    // The definition's parameters in index order, which is also the order in
    // which the algorithm's constructor takes them.
    GxRows<EGxWktParameter> values;
    GxNewDefinition newDefinition;  // an empty definition; null: the type has no class
    GxNewAlgorithm newAlgorithm;
    // Where a built algorithm's derived parameter is kept, so that a written
    // text carries both forms of the type (the scale of a standard parallel,
    // the parallel of a scale).
    bool derives;
    EGxWktParameter derivedInto;
    EGxSeries series;  // the series ComputeFourierCoefficients gives for the type
    // The grid's coordinates are longitude and latitude in degrees: counted
    // among the geographic systems, written with the unit "Degree".
    bool geographic;

    GxProj4Form proj4;
};

// The row of a type; null for a value without one (eInvalidProjection and
// values outside the enumeration).
GXCART_API const GxProjectionType* GxProjectionTypeOf(CGxMapProjData::EProjectionType type);

// The row whose names hold a PROJECTION name, and that name's entry; null
// (entry untouched) when no type reads it.
GXCART_API const GxProjectionType* GxProjectionTypeNamed(const std::string& name,
                                                         const GxWktName** entry);

// Every row, in the order of the types.
GXCART_API GxRows<GxProjectionType> GxProjectionTypes();
