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
#include "foundation/Ellipsoid.h"
#include "foundation/Projection.h"
#include "foundation/Tolerance.h"
#include "projections/AlbersEqualArea.h"
#include "projections/CassiniSoldner.h"
#include "projections/EquidistantConic.h"
#include "projections/Geographical.h"
#include "projections/HotineObliqueMercator.h"
#include "projections/Krovak.h"
#include "projections/Lambert1SP.h"
#include "projections/Lambert2SP.h"
#include "projections/LambertAzimuthalEqualArea.h"
#include "projections/Mercator1SP.h"
#include "projections/Mercator2SP.h"
#include "projections/NewZealandMapGrid.h"
#include "projections/ObliqueMercator.h"
#include "projections/PolarStereographic.h"
#include "projections/RectifiedSkewOrthomorphic.h"
#include "projections/RotatedLongitudeLatitude.h"
#include "projections/Stereographic.h"
#include "projections/StereographicNorthPole.h"
#include "projections/StereographicSouthPole.h"
#include "projections/TransverseMercatorJHS.h"
#include "wkt/PRJParser.h"

namespace {

using EType = CGxMapProjData::EProjectionType;
using Getter = double (CGxPRJParser::*)() const;

// Radians per degree as WKT writes the degree unit's factor.
constexpr double kRadiansPerDegree = 0.017453292519943295;

// How a value of the text becomes a value of the algorithm.
enum class EConversion {
    kAsWritten,        // scale factors, and the rotated pole (taken in degrees)
    kLength,           // false origin: times the linear unit's metres
    kAngle,            // latitudes, parallels, azimuths, rotations: to degrees
    kCentreLongitude,  // to degrees, then moved by the prime meridian
};

struct GxWktValue {
    Getter get;
    EConversion conversion;
};

// Longest parameter list of a type (Krovak).
constexpr int kMaxValues = 10;

// The parameters of a type in the order of its definition's index, which is
// also the order in which the algorithm's constructor takes them.
struct GxWktLayout {
    int count;
    GxWktValue values[kMaxValues];
};

constexpr GxWktValue kScale{&CGxPRJParser::GetScaleFactor, EConversion::kAsWritten};
constexpr GxWktValue kCentralMeridian{&CGxPRJParser::GetCentralMeridian,
                                      EConversion::kCentreLongitude};
constexpr GxWktValue kLatitudeOfOrigin{&CGxPRJParser::GetLatitudeOfOrigin, EConversion::kAngle};
constexpr GxWktValue kParallel1{&CGxPRJParser::GetStandardParallel1, EConversion::kAngle};
constexpr GxWktValue kParallel2{&CGxPRJParser::GetStandardParallel2, EConversion::kAngle};
constexpr GxWktValue kCentreLongitude{&CGxPRJParser::GetLongitudeOfCenter,
                                      EConversion::kCentreLongitude};
constexpr GxWktValue kCentreLatitude{&CGxPRJParser::GetLatitudeOfCenter, EConversion::kAngle};
constexpr GxWktValue kAzimuth{&CGxPRJParser::GetAzimuth, EConversion::kAngle};
constexpr GxWktValue kPlaneRotation{&CGxPRJParser::GetXYPlaneRotation, EConversion::kAngle};
constexpr GxWktValue kPseudoParallel{&CGxPRJParser::GetPseudoParallel, EConversion::kAngle};
constexpr GxWktValue kXScale{&CGxPRJParser::GetXScale, EConversion::kAsWritten};
constexpr GxWktValue kYScale{&CGxPRJParser::GetYScale, EConversion::kAsWritten};
constexpr GxWktValue kSouthPoleLongitude{&CGxPRJParser::GetLongitudeOfSouthPole,
                                         EConversion::kAsWritten};
constexpr GxWktValue kSouthPoleLatitude{&CGxPRJParser::GetLatitudeOfSouthPole,
                                        EConversion::kAsWritten};
constexpr GxWktValue kRotationAngle{&CGxPRJParser::GetAngleOfRotation, EConversion::kAsWritten};
constexpr GxWktValue kFalseEasting{&CGxPRJParser::GetFalseEasting, EConversion::kLength};
constexpr GxWktValue kFalseNorthing{&CGxPRJParser::GetFalseNorthing, EConversion::kLength};

// Scale on the central meridian (or at the origin) with the origin.
constexpr GxWktLayout kOriginScaleLayout{
    5, {kScale, kCentralMeridian, kLatitudeOfOrigin, kFalseEasting, kFalseNorthing}};
// Two standard parallels with the origin: the conics.
constexpr GxWktLayout kTwoParallelLayout{
    6,
    {kParallel1, kParallel2, kCentralMeridian, kLatitudeOfOrigin, kFalseEasting, kFalseNorthing}};
constexpr GxWktLayout kOriginLayout{
    4, {kCentralMeridian, kLatitudeOfOrigin, kFalseEasting, kFalseNorthing}};
constexpr GxWktLayout kObliqueLayout{
    6, {kScale, kCentreLongitude, kCentreLatitude, kAzimuth, kFalseEasting, kFalseNorthing}};
constexpr GxWktLayout kSkewOrthomorphicLayout{7,
                                              {kScale, kCentreLongitude, kCentreLatitude, kAzimuth,
                                               kPlaneRotation, kFalseEasting, kFalseNorthing}};
constexpr GxWktLayout kRotatedPoleLayout{3,
                                         {kSouthPoleLongitude, kSouthPoleLatitude, kRotationAngle}};
constexpr GxWktLayout kParallelLayout{
    4, {kParallel1, kCentralMeridian, kFalseEasting, kFalseNorthing}};
constexpr GxWktLayout kCylinderScaleLayout{
    4, {kScale, kCentralMeridian, kFalseEasting, kFalseNorthing}};
constexpr GxWktLayout kKrovakLayout{
    10,
    {kScale, kPseudoParallel, kCentreLongitude, kCentreLatitude, kAzimuth, kPlaneRotation, kXScale,
     kYScale, kFalseEasting, kFalseNorthing}};
constexpr GxWktLayout kNoValues{0, {}};

// The layout of a type; null for a type that builds nothing.
const GxWktLayout* _LayoutOf(EType type) {
    switch (type) {
        case CGxMapProjData::eTransverseMercator:
        case CGxMapProjData::eNonProjected:
        case CGxMapProjData::eLambert1SP:
        case CGxMapProjData::eStereographic:
        case CGxMapProjData::ePolarStereographic:
            return &kOriginScaleLayout;
        case CGxMapProjData::eLambert2SP:
        case CGxMapProjData::eAlbersEqualArea:
        case CGxMapProjData::eEquidistantConic:
            return &kTwoParallelLayout;
        case CGxMapProjData::eNewZealandMapGrid:
        case CGxMapProjData::eLambertAzimuthalEqualArea:
        case CGxMapProjData::eCassiniSoldner:
            return &kOriginLayout;
        case CGxMapProjData::eHotineObliqueMercator:
        case CGxMapProjData::eObliqueMercator:
            return &kObliqueLayout;
        case CGxMapProjData::eRectifiedSkewOrthomorphic:
            return &kSkewOrthomorphicLayout;
        case CGxMapProjData::eRotatedLongitudeLatitude:
            return &kRotatedPoleLayout;
        case CGxMapProjData::eMercator2SP:
        case CGxMapProjData::eStereographicNorthPole:
        case CGxMapProjData::eStereographicSouthPole:
            return &kParallelLayout;
        case CGxMapProjData::eMercator1SP:
            return &kCylinderScaleLayout;
        case CGxMapProjData::eKrovak:
            return &kKrovakLayout;
        case CGxMapProjData::eGeographical:
            return &kNoValues;
        default:
            return nullptr;
    }
}

// The algorithm of a type from its values in layout order (degrees, metres).
CGxProjection* _NewAlgorithm(EType type, const char* name, const double* v, double primeMeridian,
                             const CGxEllipsoid& e) {
    switch (type) {
        case CGxMapProjData::eTransverseMercator:
        case CGxMapProjData::eNonProjected:
            // Every Transverse Mercator name, and the plane system read with
            // its parameters, gets the series form that holds to the
            // millimetre across a whole zone.
            return new CGxTransverseMercatorJHS(name, v[0], v[1], v[2], v[3], v[4], e);
        case CGxMapProjData::eLambert2SP:
            return new CGxLambert2SP(name, v[0], v[1], v[2], v[3], v[4], v[5], e);
        case CGxMapProjData::eLambert1SP:
            return new CGxLambert1SP(name, v[0], v[1], v[2], v[3], v[4], e);
        case CGxMapProjData::eStereographic:
            return new CGxStereographic(name, v[0], v[1], v[2], v[3], v[4], e);
        case CGxMapProjData::eNewZealandMapGrid:
            return new CGxNewZealandMapGrid(name, v[0], v[1], v[2], v[3], e);
        case CGxMapProjData::eHotineObliqueMercator:
            return new CGxHotineObliqueMercator(name, v[0], v[1], v[2], v[3], v[4], v[5], e);
        case CGxMapProjData::eObliqueMercator:
            return new CGxObliqueMercator(name, v[0], v[1], v[2], v[3], v[4], v[5], e);
        case CGxMapProjData::eRectifiedSkewOrthomorphic:
            return new CGxRectifiedSkewOrthomorphic(name, v[0], v[1], v[2], v[3], v[4], v[5], v[6],
                                                    e);
        case CGxMapProjData::eRotatedLongitudeLatitude:
            return new CGxRotatedLongitudeLatitude(name, v[0], v[1], v[2], e);
        case CGxMapProjData::eMercator2SP:
            return new CGxMercator2SP(name, v[0], v[1], v[2], v[3], e);
        case CGxMapProjData::eMercator1SP:
            return new CGxMercator1SP(name, v[0], v[1], v[2], v[3], e);
        case CGxMapProjData::eStereographicNorthPole:
            return new CGxStereographicNorthPole(name, v[0], v[1], v[2], v[3], e);
        case CGxMapProjData::eStereographicSouthPole:
            return new CGxStereographicSouthPole(name, v[0], v[1], v[2], v[3], e);
        case CGxMapProjData::eGeographical:
            return new CGxGeographical(name, primeMeridian, e);
        case CGxMapProjData::eKrovak:
            return new CGxKrovak(name, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9],
                                 e);
        case CGxMapProjData::eAlbersEqualArea:
            return new CGxAlbersEqualArea(name, v[0], v[1], v[2], v[3], v[4], v[5], e);
        case CGxMapProjData::eLambertAzimuthalEqualArea:
            return new CGxLambertAzimuthalEqualArea(name, v[0], v[1], v[2], v[3], e);
        case CGxMapProjData::eCassiniSoldner:
            return new CGxCassiniSoldner(name, v[0], v[1], v[2], v[3], e);
        case CGxMapProjData::eEquidistantConic:
            return new CGxEquidistantConic(name, v[0], v[1], v[2], v[3], v[4], v[5], e);
        case CGxMapProjData::ePolarStereographic:
            return new CGxPolarStereographic(name, v[0], v[1], v[2], v[3], v[4], e);
        default:
            return nullptr;
    }
}

// A unit factor, or the neutral one when the record carries none (a record
// filled by hand rather than read): the library's own degrees and metres.
double _FactorOr(double factor, double neutral) {
    return GxIsUnset(factor) ? neutral : factor;
}

}  // namespace

CGxProjection* CGxPRJParser::CreateMapProjection() {
    const GxWktLayout* layout = _LayoutOf(projectionType);
    if (!layout) return nullptr;

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
    for (int i = 0; i < layout->count; ++i) {
        const GxWktValue& value = layout->values[i];
        const double written = (this->*value.get)();
        switch (value.conversion) {
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
        algorithm = _NewAlgorithm(projectionType, projCSname.c_str(), v, pm, ellipsoid);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    if (!algorithm) return nullptr;

    // The value the other form of the type needs, so that a written text
    // carries both: the scale a standard parallel gives, and the parallel of
    // the one-parallel Mercator.
    double derived[kMaxValues];
    for (double& d : derived) d = kGxUnset;
    switch (projectionType) {
        case CGxMapProjData::eMercator2SP:
        case CGxMapProjData::eStereographicNorthPole:
        case CGxMapProjData::eStereographicSouthPole:
            algorithm->GetDerivedParameters(derived);
            SetScaleFactor(derived[0]);
            break;
        case CGxMapProjData::eMercator1SP:
            algorithm->GetDerivedParameters(derived);
            SetStandardParallel1(derived[0]);
            break;
        default:
            break;
    }
    return algorithm;
}

CGxMapProjData* CGxPRJParser::_CreateProjData() const {
    // The plane system read with Transverse Mercator parameters has an
    // algorithm but no definition.
    if (projectionType == CGxMapProjData::eNonProjected) return nullptr;
    const GxWktLayout* layout = _LayoutOf(projectionType);
    if (!layout) return nullptr;

    double values[kMaxValues] = {};
    for (int i = 0; i < layout->count; ++i) values[i] = (this->*layout->values[i].get)();
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
