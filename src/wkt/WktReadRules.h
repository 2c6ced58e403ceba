#pragma once

#include <string>

#include "foundation/Tolerance.h"
#include "wkt/PRJParser.h"

// How the WKT reader takes a projection type's parameters from the text after
// PROJECTION: a list of parameter rules for each type (its row of the
// projection-type table, definitions/ProjectionTypes.cpp), and the few
// decisions a type makes beyond its list, as named rules the row refers to.

// Axis scales and plane rotation (degrees) that turn the Krovak cone's
// southing and westing into easting and northing.
constexpr double kGxKrovakNorthXScale = -1.0;
constexpr double kGxKrovakNorthYScale = 1.0;
constexpr double kGxKrovakNorthRotation = 90.0;

// One parameter a type reads.
struct GxWktRule {
    EGxWktParameter slot;
    const char* name;   // the WKT parameter name, matched without regard to case
    const char* alias;  // a second name tried after it, or null
    double fallback;    // taken when neither name is written; unset: none
    // Taken instead of an absent value under a projection name whose writers
    // leave out a parameter that has its default value; unset: none.
    double omitted;
    bool required;  // the text fails without it
};

// The value a writer leaving out defaults means: a false origin and a
// latitude of origin of 0, a scale of 1. Every other parameter stays absent.
constexpr double GxOmittedValue(EGxWktParameter slot) {
    switch (slot) {
        case EGxWktParameter::eFalseEasting:
        case EGxWktParameter::eFalseNorthing:
        case EGxWktParameter::eLatitudeOfOrigin:
            return 0.0;
        case EGxWktParameter::eScaleFactor:
            return 1.0;
        default:
            return kGxUnset;
    }
}

// A parameter the text must give, under its name or the alias.
constexpr GxWktRule GxRequired(EGxWktParameter slot, const char* name,
                               const char* alias = nullptr) {
    return {slot, name, alias, kGxUnset, GxOmittedValue(slot), true};
}

// A parameter that takes the fallback when the text does not give it.
constexpr GxWktRule GxDefaulted(EGxWktParameter slot, const char* name, double fallback) {
    return {slot, name, nullptr, fallback, GxOmittedValue(slot), true};
}

// A parameter whose absence a type's own rule judges.
constexpr GxWktRule GxOptional(EGxWktParameter slot, const char* name) {
    return {slot, name, nullptr, kGxUnset, GxOmittedValue(slot), false};
}

// What a type's rule works on: the record being filled, the text, the dialect
// of the projection name and the parameter rules the text was read with.
struct GxWktReading {
    CGxPRJParser& record;
    const std::string& wkt;             // the whole text, layout removed
    const std::string& projectionText;  // from PROJECTION to the end
    CGxPRJParser::EDialect dialect;
    const GxWktRule* rules;
    int ruleCount;

    // Every required parameter is present.
    bool Complete() const;
    // The value written under a parameter name, or unset.
    double Written(const char* name) const;
};

// A type's own rule at one stage of reading; false when the text contradicts
// its name or lacks what the rule needs.
using GxWktTypeRule = bool (*)(GxWktReading& reading);

// Once the parameters are read. Without a rule the type needs its required
// parameters.
//
// Lambert conic named for both forms: both parallels make the two-parallel
// form, a scale factor instead of the second parallel the one-parallel form.
bool GxLambertFormOfParameters(GxWktReading& reading);
// Hotine oblique Mercator: a rectified grid angle that differs from the
// azimuth makes the rectified skew orthomorphic grid.
bool GxHotineGridOfAngle(GxWktReading& reading);
// Mercator with a standard parallel: the web Mercator names' fixed
// parameters, and a scale of exactly 1 written instead of the parallel.
bool GxMercatorParallelOfScale(GxWktReading& reading);
// Polar stereographic by a standard parallel: the pole is the parallel's.
bool GxStereographicPoleOfParallel(GxWktReading& reading);
// Krovak: the east-north name fixes the axis scales and the plane rotation.
bool GxKrovakNorthFixed(GxWktReading& reading);

// Once the units are read: the web Mercator's sphere in place of the spheroid.
bool GxWebMercatorSphere(GxWktReading& reading);

// Once the axes are read: a Krovak grid's orientation from its AXIS elements
// or its name.
bool GxKrovakOrientationOfAxes(GxWktReading& reading);
