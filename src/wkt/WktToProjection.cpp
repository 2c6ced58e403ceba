// Turning a parsed coordinate-system text into objects: the projection
// algorithm, with every value brought to degrees and metres, and the
// projection definition, with the values as the text writes them. The
// definition also answers the parser's questions about its parameters.
//
// A WKT spheroid is always taken by its numbers, never looked up in the
// ellipsoid catalogue: two texts naming "GRS 1980" and "GRS_1980" give the
// same figure, and a text with a figure the catalogue lacks still works.

#include <memory>
#include <new>

#include "definitions/MapProjData.h"
#include "definitions/ProjectionTypes.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "wkt/PRJParser.h"

namespace {

using P = EGxWktParameter;

// Radians per degree as WKT writes the degree unit's factor.
constexpr double kRadiansPerDegree = 0.017453292519943295;

// Longest parameter list of a type (Krovak).
constexpr int kMaxValues = 10;

// How a value of the text becomes a value of the algorithm.
enum class EConversion {
    kAsWritten,        // scale factors, and the rotated pole (taken in degrees)
    kLength,           // false origin: times the linear unit's metres
    kAngle,            // latitudes, parallels, azimuths, rotations: to degrees
    kCentreLongitude,  // to degrees, then moved by the prime meridian
};

EConversion _ConversionOf(EGxWktParameter slot) {
    switch (slot) {
        case P::eFalseEasting:
        case P::eFalseNorthing:
            return EConversion::kLength;
        case P::eCentralMeridian:
        case P::eLongitudeOfCenter:
            return EConversion::kCentreLongitude;
        case P::eStandardParallel1:
        case P::eStandardParallel2:
        case P::eLatitudeOfOrigin:
        case P::eLatitudeOfCenter:
        case P::eAzimuth:
        case P::eXYPlaneRotation:
        case P::ePseudoParallel:
            return EConversion::kAngle;
        case P::eScaleFactor:
        case P::eXScale:
        case P::eYScale:
        case P::eLongitudeOfSouthPole:
        case P::eLatitudeOfSouthPole:
        case P::eAngleOfRotation:
            return EConversion::kAsWritten;
    }
    return EConversion::kAsWritten;
}

// A unit factor, or the neutral one when the record carries none (a record
// filled by hand rather than read): the library's own degrees and metres.
double _FactorOr(double factor, double neutral) {
    return GxIsUnset(factor) ? neutral : factor;
}

}  // namespace

CGxProjection* CGxPRJParser::CreateMapProjection() {
    const GxProjectionType* row = GxProjectionTypeOf(projectionType);
    if (!row || !row->newAlgorithm) return nullptr;

    const CGxEllipsoid ellipsoid(spheroidName, "", semiMajorAxis, inverseFlattening);

    // Angles go to degrees by the angular unit's radians. The prime meridian
    // is added to the centre longitudes as the text writes it, not through
    // the angular unit: GIS software writes the Paris meridian as 2.33722917
    // (degrees) even in a text whose unit is the grad, and that is the value
    // that places the grid correctly. A text that really gives the prime
    // meridian in grads is shifted by the difference.
    const double r = _FactorOr(angularUnitFactor, kRadiansPerDegree) / kRadiansPerDegree;
    const double u = _FactorOr(projUnitFactor, 1.0);
    const double pm = GxIsUnset(primeMeridian) ? 0.0 : primeMeridian;

    double v[kMaxValues] = {};
    for (int i = 0; i < row->values.count; ++i) {
        const EGxWktParameter slot = row->values[i];
        const double written = GetWktParameter(slot);
        switch (_ConversionOf(slot)) {
            case EConversion::kAsWritten:
                v[i] = written;
                break;
            case EConversion::kLength:
                v[i] = written * u;
                break;
            case EConversion::kAngle:
                v[i] = written * r;
                break;
            case EConversion::kCentreLongitude:
                v[i] = written * r + pm;
                break;
        }
    }

    CGxProjection* algorithm = nullptr;
    try {
        algorithm = row->newAlgorithm({projCSname.c_str(), v, pm, ellipsoid});
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    if (!algorithm) return nullptr;

    // The value the other form of the type needs, so that a written text
    // carries both: the scale a standard parallel gives, and the parallel of
    // the one-parallel Mercator.
    if (row->derives) {
        double derived[kMaxValues];
        for (double& d : derived) d = kGxUnset;
        algorithm->GetDerivedParameters(derived);
        SetWktParameter(row->derivedInto, derived[0]);
    }
    return algorithm;
}

CGxMapProjData* CGxPRJParser::_CreateProjData() const {
    // The plane system read with Transverse Mercator parameters has an
    // algorithm but no definition.
    const GxProjectionType* row = GxProjectionTypeOf(projectionType);
    if (!row || !row->newDefinition) return nullptr;

    double values[kMaxValues] = {};
    for (int i = 0; i < row->values.count; ++i) values[i] = GetWktParameter(row->values[i]);
    return CGxMapProjData::CreateProjection(projectionType, projCSname, datumName, spheroidName,
                                            values);
}

int CGxPRJParser::GetNoOfParameters() const {
    const std::unique_ptr<const CGxMapProjData> definition(_CreateProjData());
    return definition ? definition->GetNoOfParameters() : 0;
}

int CGxPRJParser::GetParameter(int index, std::string& name, double& value, std::string& unitName,
                               double& unitFactor) const {
    const std::unique_ptr<const CGxMapProjData> definition(_CreateProjData());
    std::string label;
    double number = 0.0;
    CGxMapProjData::EParamType kind = CGxMapProjData::eScale;
    if (!definition || !definition->GetParameter(index, label, number, kind)) return 0;

    // The definition holds the values as written, so each is in the text's
    // own unit for its kind.
    switch (kind) {
        case CGxMapProjData::eLength:
            unitName = projUnitName;
            unitFactor = projUnitFactor;
            break;
        case CGxMapProjData::eAngle:
            unitName = angularUnitName;
            unitFactor = angularUnitFactor;
            break;
        default:
            unitName.clear();
            unitFactor = 1.0;
            break;
    }
    name = label;
    value = number;
    return 1;
}

std::string CGxPRJParser::GetProjectionTypeTitle() const {
    const std::unique_ptr<const CGxMapProjData> definition(_CreateProjData());
    return definition ? definition->GetProjectionTypeTitle() : "Non projection";
}
