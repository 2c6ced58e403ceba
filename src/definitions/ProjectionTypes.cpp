// The projection-type table (one row for each type) and what ties a type's
// definition class to its algorithm class and to the WKT writer.

#include "definitions/ProjectionTypes.h"

#include <cstddef>
#include <iterator>
#include <new>
#include <utility>
#include <vector>

#include "definitions/AlbersEqualAreaProjection.h"
#include "definitions/CassiniSoldnerProjection.h"
#include "definitions/CylindricalEqualAreaProjection.h"
#include "definitions/EquidistantConicProjection.h"
#include "definitions/GeographicalProjection.h"
#include "definitions/HotineObliqueMercatorProjection.h"
#include "definitions/KrovakProjection.h"
#include "definitions/Lambert1SPProjection.h"
#include "definitions/Lambert2SPProjection.h"
#include "definitions/LambertAzimuthalEqualAreaProjection.h"
#include "definitions/Mercator1SPProjection.h"
#include "definitions/Mercator2SPProjection.h"
#include "definitions/NewZealandMapGridProjection.h"
#include "definitions/ObliqueMercatorProjection.h"
#include "definitions/PolarStereographicProjection.h"
#include "definitions/RectifiedSkewOrthomorphicProjection.h"
#include "definitions/RotatedLongitudeLatitudeProjection.h"
#include "definitions/StereographicNorthPoleProjection.h"
#include "definitions/StereographicProjection.h"
#include "definitions/StereographicSouthPoleProjection.h"
#include "definitions/TabledMapProjData.h"
#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Text.h"
#include "foundation/Tolerance.h"
#include "projections/AlbersEqualArea.h"
#include "projections/AlgorithmCatalogue.h"
#include "projections/CassiniSoldner.h"
#include "projections/CylindricalEqualArea.h"
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

namespace {

using M = CGxMapProjData;
using P = EGxWktParameter;
using D = CGxPRJParser::EDialect;
using K = EGxProj4Value;

// ------------------------------------------------------------------ classes

template <class TDefinition>
CGxTabledMapProjData* NewDefinition() {
    return new TDefinition();
}

template <class TAlgorithm, std::size_t... I>
CGxProjection* NewFromValues(const GxAlgorithmInput& in, std::index_sequence<I...>) {
    return new TAlgorithm(in.name, in.values[I]..., in.figure);
}

// The algorithm from the type's values, one constructor argument each.
template <class TAlgorithm, std::size_t N>
CGxProjection* NewAlgorithm(const GxAlgorithmInput& in) {
    return NewFromValues<TAlgorithm>(in, std::make_index_sequence<N>());
}

// The geographical grid's one parameter is the prime meridian.
CGxProjection* NewGeographical(const GxAlgorithmInput& in) {
    return new CGxGeographical(in.name, in.primeMeridian, in.figure);
}

// The classes of a type and the values its algorithm takes.
struct GxClasses {
    GxRows<EGxWktParameter> values;
    GxNewDefinition newDefinition;
    GxNewAlgorithm newAlgorithm;
};

template <class TDefinition, class TAlgorithm, std::size_t N>
constexpr GxClasses Classes(const EGxWktParameter (&values)[N]) {
    return {GxRowsOf(values), &NewDefinition<TDefinition>, &NewAlgorithm<TAlgorithm, N>};
}

// An algorithm without a definition class.
template <class TAlgorithm, std::size_t N>
constexpr GxClasses AlgorithmOnly(const EGxWktParameter (&values)[N]) {
    return {GxRowsOf(values), nullptr, &NewAlgorithm<TAlgorithm, N>};
}

// ------------------------------------------------------------------ parts

// The parameters of a type in the definition's index order.
constexpr EGxWktParameter kOriginScaleValues[] = {P::eScaleFactor, P::eCentralMeridian,
                                                  P::eLatitudeOfOrigin, P::eFalseEasting,
                                                  P::eFalseNorthing};
constexpr EGxWktParameter kTwoParallelValues[] = {P::eStandardParallel1, P::eStandardParallel2,
                                                  P::eCentralMeridian,   P::eLatitudeOfOrigin,
                                                  P::eFalseEasting,      P::eFalseNorthing};
constexpr EGxWktParameter kOriginValues[] = {P::eCentralMeridian, P::eLatitudeOfOrigin,
                                             P::eFalseEasting, P::eFalseNorthing};
constexpr EGxWktParameter kObliqueValues[] = {P::eScaleFactor,      P::eLongitudeOfCenter,
                                              P::eLatitudeOfCenter, P::eAzimuth,
                                              P::eFalseEasting,     P::eFalseNorthing};
constexpr EGxWktParameter kSkewValues[] = {
    P::eScaleFactor,     P::eLongitudeOfCenter, P::eLatitudeOfCenter, P::eAzimuth,
    P::eXYPlaneRotation, P::eFalseEasting,      P::eFalseNorthing};
constexpr EGxWktParameter kRotatedPoleValues[] = {P::eLongitudeOfSouthPole, P::eLatitudeOfSouthPole,
                                                  P::eAngleOfRotation};
constexpr EGxWktParameter kParallelValues[] = {P::eStandardParallel1, P::eCentralMeridian,
                                               P::eFalseEasting, P::eFalseNorthing};
constexpr EGxWktParameter kCylinderScaleValues[] = {P::eScaleFactor, P::eCentralMeridian,
                                                    P::eFalseEasting, P::eFalseNorthing};
constexpr EGxWktParameter kKrovakValues[] = {
    P::eScaleFactor,      P::ePseudoParallel, P::eLongitudeOfCenter,
    P::eLatitudeOfCenter, P::eAzimuth,        P::eXYPlaneRotation,
    P::eXScale,           P::eYScale,         P::eFalseEasting,
    P::eFalseNorthing};

// The PARAMETER elements most types write.
constexpr GxWktWritten kWriteFalseEasting = {P::eFalseEasting, "False_Easting"};
constexpr GxWktWritten kWriteFalseNorthing = {P::eFalseNorthing, "False_Northing"};
constexpr GxWktWritten kWriteCentralMeridian = {P::eCentralMeridian, "Central_Meridian"};
constexpr GxWktWritten kWriteScaleFactor = {P::eScaleFactor, "Scale_Factor"};
constexpr GxWktWritten kWriteLatitudeOfOrigin = {P::eLatitudeOfOrigin, "Latitude_Of_Origin"};
constexpr GxWktWritten kWriteParallel1 = {P::eStandardParallel1, "Standard_Parallel_1"};
constexpr GxWktWritten kWriteParallel2 = {P::eStandardParallel2, "Standard_Parallel_2"};
constexpr GxWktWritten kWriteAzimuth = {P::eAzimuth, "Azimuth"};
constexpr GxWktWritten kWriteLongitudeOfCenter = {P::eLongitudeOfCenter, "Longitude_Of_Center"};
constexpr GxWktWritten kWriteLatitudeOfCenter = {P::eLatitudeOfCenter, "Latitude_Of_Center"};
constexpr GxWktWritten kWritePlaneRotation = {P::eXYPlaneRotation, "XY_Plane_Rotation"};

constexpr GxWktWritten kWriteOriginScale[] = {kWriteFalseEasting, kWriteFalseNorthing,
                                              kWriteCentralMeridian, kWriteScaleFactor,
                                              kWriteLatitudeOfOrigin};
constexpr GxWktWritten kWriteTwoParallels[] = {kWriteFalseEasting,    kWriteFalseNorthing,
                                               kWriteCentralMeridian, kWriteParallel1,
                                               kWriteParallel2,       kWriteLatitudeOfOrigin};
constexpr GxWktWritten kWriteOrigin[] = {kWriteFalseEasting, kWriteFalseNorthing,
                                         kWriteCentralMeridian, kWriteLatitudeOfOrigin};
constexpr GxWktWritten kWriteOblique[] = {kWriteFalseEasting,      kWriteFalseNorthing,
                                          kWriteScaleFactor,       kWriteAzimuth,
                                          kWriteLongitudeOfCenter, kWriteLatitudeOfCenter};
constexpr GxWktWritten kWriteParallel[] = {kWriteFalseEasting, kWriteFalseNorthing,
                                           kWriteCentralMeridian, kWriteParallel1};
constexpr GxWktWritten kWriteCylinderScale[] = {kWriteFalseEasting, kWriteFalseNorthing,
                                                kWriteCentralMeridian, kWriteScaleFactor};

// The parameter rules most types read under.
constexpr GxWktRule kReadFalseEasting = GxRequired(P::eFalseEasting, "False_Easting");
constexpr GxWktRule kReadFalseNorthing = GxRequired(P::eFalseNorthing, "False_Northing");
constexpr GxWktRule kReadCentralMeridian = GxRequired(P::eCentralMeridian, "Central_Meridian");
constexpr GxWktRule kReadScaleFactor = GxRequired(P::eScaleFactor, "Scale_Factor");
constexpr GxWktRule kReadLatitudeOfOrigin = GxRequired(P::eLatitudeOfOrigin, "Latitude_Of_Origin");
constexpr GxWktRule kReadParallel1 = GxRequired(P::eStandardParallel1, "Standard_Parallel_1");
constexpr GxWktRule kReadParallel2 = GxRequired(P::eStandardParallel2, "Standard_Parallel_2");
constexpr GxWktRule kReadLongitudeOfCenter =
    GxRequired(P::eLongitudeOfCenter, "Longitude_Of_Center");
constexpr GxWktRule kReadLatitudeOfCenter = GxRequired(P::eLatitudeOfCenter, "Latitude_Of_Center");
constexpr GxWktRule kReadAzimuth = GxRequired(P::eAzimuth, "Azimuth");

constexpr GxWktRule kReadOriginScale[] = {kReadFalseEasting, kReadFalseNorthing,
                                          kReadCentralMeridian, kReadScaleFactor,
                                          kReadLatitudeOfOrigin};
constexpr GxWktRule kReadParallel[] = {kReadFalseEasting, kReadFalseNorthing, kReadCentralMeridian,
                                       kReadParallel1};
// The two Hotine forms; the rectified grid angle is read by their rule.
constexpr GxWktRule kReadOblique[] = {kReadFalseEasting,      kReadFalseNorthing,
                                      kReadLongitudeOfCenter, kReadLatitudeOfCenter,
                                      kReadAzimuth,           kReadScaleFactor};
// Albers and equidistant conic: ESRI names the origin by its meridian and
// latitude of origin, other writers by the centre.
constexpr GxWktRule kReadConic[] = {
    kReadFalseEasting,
    kReadFalseNorthing,
    GxRequired(P::eCentralMeridian, "Central_Meridian", "Longitude_Of_Center"),
    kReadParallel1,
    kReadParallel2,
    GxRequired(P::eLatitudeOfOrigin, "Latitude_Of_Origin", "Latitude_Of_Center"),
};

// The PROJ.4 items most types write.
constexpr GxProj4Item kProj4LatOrigin = {"+lat_0=", P::eLatitudeOfOrigin, K::eAngle, 0};
constexpr GxProj4Item kProj4CentralMeridian = {"+lon_0=", P::eCentralMeridian, K::eLongitude, 0};
constexpr GxProj4Item kProj4Scale = {"+k=", P::eScaleFactor, K::eScale, 0};
constexpr GxProj4Item kProj4FalseEasting = {"+x_0=", P::eFalseEasting, K::eLength, 0};
constexpr GxProj4Item kProj4FalseNorthing = {"+y_0=", P::eFalseNorthing, K::eLength, 0};
constexpr GxProj4Item kProj4Parallel1 = {"+lat_1=", P::eStandardParallel1, K::eAngle, 0};
constexpr GxProj4Item kProj4Parallel2 = {"+lat_2=", P::eStandardParallel2, K::eAngle, 0};
constexpr GxProj4Item kProj4TrueScaleParallel = {"+lat_ts=", P::eStandardParallel1, K::eAngle, 0};
constexpr GxProj4Item kProj4LatCentre = {"+lat_0=", P::eLatitudeOfCenter, K::eAngle, 0};
constexpr GxProj4Item kProj4LonCentre = {"+lon_0=", P::eLongitudeOfCenter, K::eLongitude, 0};
constexpr GxProj4Item kProj4Azimuth = {"+alpha=", P::eAzimuth, K::eAngle, 0};

// Origin latitude, central meridian, scale, false origin: Transverse
// Mercator and the stereographics.
constexpr GxProj4Item kProj4OriginScale[] = {kProj4LatOrigin, kProj4CentralMeridian, kProj4Scale,
                                             kProj4FalseEasting, kProj4FalseNorthing};
// Two standard parallels: Lambert, Albers, equidistant conic.
constexpr GxProj4Item kProj4TwoParallels[] = {kProj4Parallel1,    kProj4Parallel2,
                                              kProj4LatOrigin,    kProj4CentralMeridian,
                                              kProj4FalseEasting, kProj4FalseNorthing};
// Origin without scale: New Zealand map grid, Lambert azimuthal, Cassini.
constexpr GxProj4Item kProj4Origin[] = {kProj4LatOrigin, kProj4CentralMeridian, kProj4FalseEasting,
                                        kProj4FalseNorthing};
// The Hotine forms and Krovak: centre, azimuth of the central line, scale.
constexpr GxProj4Item kProj4CentreAzimuth[] = {kProj4LatCentre,    kProj4LonCentre,
                                               kProj4Azimuth,      kProj4Scale,
                                               kProj4FalseEasting, kProj4FalseNorthing};

template <std::size_t N>
constexpr GxProj4Form Proj4(const char* proj, const GxProj4Item (&items)[N]) {
    return {proj, GxRowsOf(items), nullptr, nullptr, GxNoRows<const char*>()};
}

// ------------------------------------------------------------------ types
//
// The WKT projection names each type is read from: the spellings that GIS
// software writes, each with where it comes from. Names are compared without
// regard to case and with blanks read as underscores, so "Transverse
// Mercator" (MapInfo-style writers, GeoTools) finds "Transverse_Mercator" and
// "Oblique Stereographic" (the EPSG name) finds "Oblique_Stereographic".
// docs/wkt-dialects.md lists these names.
//
// The methodDefaults column says how a parameter the text leaves out is read.
// The OGC, ESRI and GDAL names come from writers that state every parameter
// of the type, and a text without one is refused. EPSG's method names, and
// every name written with blanks (GeoTools, Apache SIS, MapInfo-style
// writers), come from writers that leave out a parameter whose value is the
// parameter's default: there an absent false easting, false northing or
// latitude of origin is 0 and an absent scale factor 1. Every other
// parameter stays required.

constexpr bool kAllWritten = false;
constexpr bool kDefaults = true;
constexpr GxRows<GxWktRule> kTypeRules = GxNoRows<GxWktRule>();

// 1: Transverse Mercator.
//
// The south-orientated and "complex" names are read as the plain projection:
// the south orientation is a matter of axis signs, which the text's AXIS
// elements carry.
constexpr GxWktName kTransverseMercatorNames[] = {
    // OGC 01-009, ESRI and GDAL; ESRI's "complex" form and Gauss-Kruger;
    // GDAL's south-orientated form (EPSG method 9808).
    {"Transverse_Mercator", D::kPlain, kAllWritten, kTypeRules},
    {"Transverse_Mercator_Complex", D::kPlain, kAllWritten, kTypeRules},
    {"Transverse_Mercator_South_Orientated", D::kPlain, kAllWritten, kTypeRules},
    {"Gauss_Kruger", D::kPlain, kAllWritten, kTypeRules},
};

// 2 and 3: Lambert conformal conic. ESRI's one name for both forms starts as
// the two-parallel form and becomes the one-parallel form when its
// parameters say so.
constexpr GxWktName kLambert2SPNames[] = {
    // ESRI; OGC and GDAL; EPSG method 9802.
    {"Lambert_Conformal_Conic", D::kPlain, kAllWritten, kTypeRules},
    {"Lambert_Conformal_Conic_2SP", D::kPlain, kAllWritten, kTypeRules},
    {"Lambert Conic Conformal (2SP)", D::kPlain, kDefaults, kTypeRules},
};
// Which parameters are there decides between the two forms, so only the
// false easting is required here, and a scale that a writer left out is not
// taken for 1: whether the text writes one tells the forms apart.
constexpr GxWktRule kReadLambert[] = {
    kReadFalseEasting,
    GxOptional(P::eFalseNorthing, "False_Northing"),
    GxOptional(P::eCentralMeridian, "Central_Meridian"),
    GxOptional(P::eStandardParallel1, "Standard_Parallel_1"),
    GxOptional(P::eStandardParallel2, "Standard_Parallel_2"),
    {P::eScaleFactor, "Scale_Factor", nullptr, kGxUnset, kGxUnset, false},
    GxOptional(P::eLatitudeOfOrigin, "Latitude_Of_Origin"),
};
constexpr GxWktName kLambert1SPNames[] = {
    // OGC and GDAL; EPSG method 9801.
    {"Lambert_Conformal_Conic_1SP", D::kPlain, kAllWritten, kTypeRules},
    {"Lambert Conic Conformal (1SP)", D::kPlain, kDefaults, kTypeRules},
};
// The one-parallel cone: its parallel is the latitude of origin, which is
// written twice.
constexpr GxProj4Item kProj4OneParallelCone[] = {{"+lat_1=", P::eLatitudeOfOrigin, K::eAngle, 0},
                                                 kProj4LatOrigin,
                                                 kProj4CentralMeridian,
                                                 kProj4Scale,
                                                 kProj4FalseEasting,
                                                 kProj4FalseNorthing};

// 4: oblique stereographic. ESRI's plain and double names; GDAL's oblique
// name, which with blanks is EPSG's (method 9809). Only the PROJ.4
// translator tells them apart, by the name as written.
constexpr GxWktName kStereographicNames[] = {
    {"Stereographic", D::kPlain, kAllWritten, kTypeRules},
    {"Double_Stereographic", D::kPlain, kAllWritten, kTypeRules},
    {"Oblique_Stereographic", D::kPlain, kAllWritten, kTypeRules},
};
constexpr GxWktRule kReadStereographic[] = {
    kReadFalseEasting,
    kReadFalseNorthing,
    GxRequired(P::eCentralMeridian, "Central_Meridian", "Longitude_Of_Origin"),
    kReadScaleFactor,
    kReadLatitudeOfOrigin,
};
// PROJ's sterea is the double (oblique) stereographic of these names.
constexpr const char* kObliqueStereographicNames[] = {
    "Double_Stereographic", "Oblique_Stereographic", "Oblique Stereographic"};

// 5: New Zealand map grid. OGC 01-009, ESRI and GDAL; with blanks EPSG's
// (method 9811). Its central meridian is written as the natural origin's
// longitude.
constexpr GxWktName kNewZealandNames[] = {
    {"New_Zealand_Map_Grid", D::kPlain, kAllWritten, kTypeRules},
};
constexpr GxWktRule kReadNewZealand[] = {
    kReadFalseEasting,
    kReadFalseNorthing,
    GxRequired(P::eCentralMeridian, "Longitude_Of_Origin", "Central_Meridian"),
    kReadLatitudeOfOrigin,
};
constexpr GxWktWritten kWriteNewZealand[] = {
    kWriteFalseEasting,
    kWriteFalseNorthing,
    {P::eCentralMeridian, "Longitude_Of_Origin"},
    kWriteLatitudeOfOrigin,
};

// 6 to 8: Hotine oblique Mercator. From the natural origin: ESRI, OGC and
// GDAL, EPSG method 9812; from the centre: ESRI and GDAL, EPSG method 9815;
// the rectified skew orthomorphic grid from the natural origin: ESRI.
constexpr GxWktName kHotineNames[] = {
    {"Hotine_Oblique_Mercator_Azimuth_Natural_Origin", D::kPlain, kAllWritten, kTypeRules},
    {"Hotine_Oblique_Mercator", D::kPlain, kAllWritten, kTypeRules},
    {"Hotine Oblique Mercator (variant A)", D::kPlain, kDefaults, kTypeRules},
};
constexpr GxWktName kObliqueMercatorNames[] = {
    {"Hotine_Oblique_Mercator_Azimuth_Center", D::kPlain, kAllWritten, kTypeRules},
    {"Hotine Oblique Mercator (variant B)", D::kHotineCentre, kDefaults, kTypeRules},
};
constexpr GxWktName kSkewOrthomorphicNames[] = {
    {"Rectified_Skew_Orthomorphic_Natural_Origin", D::kPlain, kAllWritten, kTypeRules},
};
constexpr GxWktRule kReadSkewOrthomorphic[] = {
    kReadFalseEasting,     kReadFalseNorthing, kReadLongitudeOfCenter,
    kReadLatitudeOfCenter, kReadAzimuth,       GxRequired(P::eXYPlaneRotation, "XY_Plane_Rotation"),
    kReadScaleFactor,
};
constexpr GxWktWritten kWriteSkewOrthomorphic[] = {
    kWriteFalseEasting,      kWriteFalseNorthing,    kWriteScaleFactor,   kWriteAzimuth,
    kWriteLongitudeOfCenter, kWriteLatitudeOfCenter, kWritePlaneRotation,
};
constexpr GxProj4Item kProj4SkewOrthomorphic[] = {
    kProj4LatCentre,    kProj4LonCentre,
    kProj4Azimuth,      {"+gamma=", P::eXYPlaneRotation, K::eAngle, 0},
    kProj4Scale,        kProj4FalseEasting,
    kProj4FalseNorthing};

// 9: rotated longitude/latitude, the library's own writer.
constexpr GxWktName kRotatedNames[] = {
    {"Rotated_Longitude_Latitude", D::kPlain, kAllWritten, kTypeRules},
};
constexpr GxWktRule kReadRotatedPole[] = {
    GxRequired(P::eLongitudeOfSouthPole, "Longitude_Of_South_Pole"),
    GxRequired(P::eLatitudeOfSouthPole, "Latitude_Of_South_Pole"),
    GxRequired(P::eAngleOfRotation, "Angle_Of_Rotation"),
};
constexpr GxWktWritten kWriteRotatedPole[] = {
    {P::eLongitudeOfSouthPole, "Longitude_Of_South_Pole"},
    {P::eLatitudeOfSouthPole, "Latitude_Of_South_Pole"},
    {P::eAngleOfRotation, "Angle_Of_Rotation"},
};

// 10 and 11: Mercator. Plain "Mercator" is the form with a standard
// parallel.
//
// The web Mercator as EPSG defines it has no latitude of true scale and no
// scale factor; its rule checks them.
constexpr GxWktRule kReadWebMercator[] = {kReadFalseEasting, kReadFalseNorthing,
                                          kReadCentralMeridian};
constexpr GxWktName kMercator2SPNames[] = {
    // With a standard parallel: ESRI, OGC and GDAL, EPSG method 9805; the web
    // Mercator of ESRI and of EPSG (method 1024, as GeoTools writes it).
    {"Mercator", D::kPlain, kAllWritten, kTypeRules},
    {"Mercator_2SP", D::kPlain, kAllWritten, kTypeRules},
    {"Mercator (variant B)", D::kPlain, kDefaults, kTypeRules},
    {"Mercator_Auxiliary_Sphere", D::kEsriWebMercator, kAllWritten, kTypeRules},
    {"Popular Visualisation Pseudo Mercator", D::kEpsgWebMercator, kDefaults,
     GxRowsOf(kReadWebMercator)},
};
constexpr GxWktName kMercator1SPNames[] = {
    // With a scale factor: OGC and GDAL, EPSG method 9804.
    {"Mercator_1SP", D::kPlain, kAllWritten, kTypeRules},
    {"Mercator (variant A)", D::kPlain, kDefaults, kTypeRules},
};
constexpr GxWktRule kReadCylinderScale[] = {kReadFalseEasting, kReadFalseNorthing,
                                            kReadCentralMeridian, kReadScaleFactor};
constexpr GxProj4Item kProj4Cylinder[] = {kProj4TrueScaleParallel, kProj4CentralMeridian,
                                          kProj4Scale, kProj4FalseEasting, kProj4FalseNorthing};

// 12 and 13: polar stereographic by a standard parallel. ESRI; EPSG method
// 9829, whose pole is the parallel's.
constexpr GxWktName kNorthPoleNames[] = {
    {"Stereographic_North_Pole", D::kPlain, kAllWritten, kTypeRules},
    {"Polar Stereographic (variant B)", D::kPolarStereographicB, kDefaults, kTypeRules},
};
constexpr GxWktName kSouthPoleNames[] = {
    {"Stereographic_South_Pole", D::kPlain, kAllWritten, kTypeRules},
};
constexpr GxProj4Item kProj4NorthPole[] = {{"+lat_0=", P::eLatitudeOfOrigin, K::eFixed, 90.0},
                                           kProj4TrueScaleParallel,
                                           kProj4CentralMeridian,
                                           kProj4Scale,
                                           kProj4FalseEasting,
                                           kProj4FalseNorthing};
constexpr GxProj4Item kProj4SouthPole[] = {{"+lat_0=", P::eLatitudeOfOrigin, K::eFixed, -90.0},
                                           kProj4TrueScaleParallel,
                                           kProj4CentralMeridian,
                                           kProj4Scale,
                                           kProj4FalseEasting,
                                           kProj4FalseNorthing};

// 14: geographical longitude/latitude, the library's own writer.
constexpr GxWktName kGeographicalNames[] = {
    {"Geographical", D::kPlain, kAllWritten, kTypeRules},
};

// 15: Krovak. ESRI and GDAL; the east-north form, EPSG method 1041.
//
// Without axis scales or plane rotation the text is the classic south-west
// oriented grid: unit scales, no rotation.
constexpr GxWktRule kReadKrovak[] = {
    kReadFalseEasting,
    kReadFalseNorthing,
    kReadLongitudeOfCenter,
    kReadLatitudeOfCenter,
    kReadAzimuth,
    GxDefaulted(P::eXYPlaneRotation, "XY_Plane_Rotation", 0.0),
    kReadScaleFactor,
    GxRequired(P::ePseudoParallel, "Pseudo_Standard_Parallel_1"),
    GxDefaulted(P::eXScale, "X_Scale", 1.0),
    GxDefaulted(P::eYScale, "Y_Scale", 1.0),
};
// The east-north Krovak: its name fixes the axis scales and the plane
// rotation that turn the cone's southing and westing into easting and
// northing.
constexpr GxWktRule kReadKrovakNorth[] = {
    kReadFalseEasting,
    kReadFalseNorthing,
    kReadLongitudeOfCenter,
    kReadLatitudeOfCenter,
    kReadAzimuth,
    GxDefaulted(P::eXYPlaneRotation, "XY_Plane_Rotation", kGxKrovakNorthRotation),
    kReadScaleFactor,
    GxRequired(P::ePseudoParallel, "Pseudo_Standard_Parallel_1"),
    GxDefaulted(P::eXScale, "X_Scale", kGxKrovakNorthXScale),
    GxDefaulted(P::eYScale, "Y_Scale", kGxKrovakNorthYScale),
};
constexpr GxWktName kKrovakNames[] = {
    {"Krovak", D::kPlain, kAllWritten, kTypeRules},
    {"Krovak (North Orientated)", D::kKrovakNorth, kDefaults, GxRowsOf(kReadKrovakNorth)},
};
constexpr GxWktWritten kWriteKrovak[] = {
    kWriteFalseEasting,
    kWriteFalseNorthing,
    {P::ePseudoParallel, "Pseudo_Standard_Parallel_1"},
    kWriteScaleFactor,
    kWriteAzimuth,
    kWriteLongitudeOfCenter,
    kWriteLatitudeOfCenter,
    {P::eXScale, "X_Scale"},
    {P::eYScale, "Y_Scale"},
    kWritePlaneRotation,
};

// 16: Albers. ESRI, OGC and GDAL, EPSG method 9822 (also MapInfo-style
// writers).
constexpr GxWktName kAlbersNames[] = {
    {"Albers", D::kPlain, kAllWritten, kTypeRules},
    {"Albers_Conic_Equal_Area", D::kPlain, kAllWritten, kTypeRules},
    {"Albers Equal Area", D::kPlain, kDefaults, kTypeRules},
};

// 17: Lambert azimuthal equal area. ESRI and GDAL; with blanks EPSG's
// (method 9820).
constexpr GxWktName kAzimuthalEqualAreaNames[] = {
    {"Lambert_Azimuthal_Equal_Area", D::kPlain, kAllWritten, kTypeRules},
};
constexpr GxWktRule kReadAzimuthalEqualArea[] = {
    kReadFalseEasting,
    kReadFalseNorthing,
    GxRequired(P::eCentralMeridian, "Central_Meridian", "Longitude_Of_Center"),
    GxRequired(P::eLatitudeOfOrigin, "Latitude_Of_Origin", "Latitude_Of_Center"),
};

// 18: Cassini-Soldner. ESRI, OGC and GDAL, EPSG method 9806.
constexpr GxWktName kCassiniNames[] = {
    {"Cassini", D::kPlain, kAllWritten, kTypeRules},
    {"Cassini_Soldner", D::kPlain, kAllWritten, kTypeRules},
    {"Cassini-Soldner", D::kPlain, kDefaults, kTypeRules},
};
constexpr GxWktRule kReadOrigin[] = {kReadFalseEasting, kReadFalseNorthing, kReadCentralMeridian,
                                     kReadLatitudeOfOrigin};

// 19: equidistant conic. ESRI and GDAL; with blanks EPSG's (method 1028).
constexpr GxWktName kEquidistantConicNames[] = {
    {"Equidistant_Conic", D::kPlain, kAllWritten, kTypeRules},
};

// 20: polar stereographic by its origin. GDAL; EPSG method 9810. The
// latitude of origin is both the pole's side and the parallel of true
// scale.
constexpr GxWktName kPolarStereographicNames[] = {
    {"Polar_Stereographic", D::kPlain, kAllWritten, kTypeRules},
    {"Polar Stereographic (variant A)", D::kPlain, kDefaults, kTypeRules},
};
constexpr GxProj4Item kProj4Polar[] = {{"+lat_0=", P::eLatitudeOfOrigin, K::ePoleOfOrigin, 0},
                                       {"+lat_ts=", P::eLatitudeOfOrigin, K::eAngle, 0},
                                       kProj4CentralMeridian,
                                       kProj4Scale,
                                       kProj4FalseEasting,
                                       kProj4FalseNorthing};

// 21: a plane grid on a figure the catalogue does not know, as the library's
// own writer states it; it is read with the Transverse Mercator parameters.
constexpr GxWktName kNonProjectedNames[] = {
    {"Non_Projected", D::kPlain, kAllWritten, kTypeRules},
};

// ------------------------------------------------------------------ rows

// 23: Lambert cylindrical equal area, normal aspect. ESRI and GDAL write
// "Cylindrical_Equal_Area"; EPSG method 9835 is the ellipsoidal form (its
// spherical variant 9834 works on the authalic sphere and is not read).
constexpr GxWktName kCylindricalEqualAreaNames[] = {
    {"Cylindrical_Equal_Area", D::kPlain, kAllWritten, kTypeRules},
    {"Lambert Cylindrical Equal Area", D::kPlain, kDefaults, kTypeRules},
};
constexpr GxProj4Item kProj4TrueScale[] = {kProj4TrueScaleParallel, kProj4CentralMeridian,
                                           kProj4FalseEasting, kProj4FalseNorthing};

constexpr bool kSortsParallels = true;
constexpr bool kKeepsParallels = false;
constexpr bool kGeographic = true;
constexpr bool kProjected = false;
constexpr bool kDerives = true;

struct GxRowParts {
    GxRows<GxWktName> names;
    GxRows<GxWktRule> rules;
    GxWktTypeRule afterParameters;
    GxWktTypeRule afterUnits;
    GxWktTypeRule afterAxes;
    bool sortsParallels;
};

// How a type is read.
template <std::size_t N, std::size_t R>
constexpr GxRowParts Read(const GxWktName (&names)[N], const GxWktRule (&rules)[R],
                          GxWktTypeRule afterParameters = nullptr,
                          GxWktTypeRule afterUnits = nullptr, GxWktTypeRule afterAxes = nullptr,
                          bool sortsParallels = kKeepsParallels) {
    return {GxRowsOf(names), GxRowsOf(rules), afterParameters,
            afterUnits,      afterAxes,       sortsParallels};
}

struct GxWriteParts {
    const char* wktName;
    GxRows<GxWktWritten> written;
};

template <std::size_t N>
constexpr GxWriteParts Write(const char* wktName, const GxWktWritten (&written)[N]) {
    return {wktName, GxRowsOf(written)};
}

struct GxBuildParts {
    GxClasses classes;
    bool derives;
    EGxWktParameter derivedInto;
    EGxSeries series;
    bool geographic;
};

constexpr GxBuildParts Build(GxClasses classes, EGxSeries series, bool geographic = kProjected) {
    return {classes, !kDerives, P::eFalseEasting, series, geographic};
}

constexpr GxBuildParts BuildDeriving(GxClasses classes, EGxWktParameter derivedInto,
                                     EGxSeries series) {
    return {classes, kDerives, derivedInto, series, kProjected};
}

constexpr GxProjectionType Row(CGxMapProjData::EProjectionType type, GxRowParts read,
                               GxWriteParts write, GxBuildParts build, GxProj4Form proj4) {
    return {type,
            read.names,
            read.rules,
            read.afterParameters,
            read.afterUnits,
            read.afterAxes,
            read.sortsParallels,
            write.wktName,
            write.written,
            build.classes.values,
            build.classes.newDefinition,
            build.classes.newAlgorithm,
            build.derives,
            build.derivedInto,
            build.series,
            build.geographic,
            proj4};
}

constexpr EGxSeries kConformal = EGxSeries::eConformalLatitude;
constexpr GxProj4Form kNoProj4 = {nullptr, GxNoRows<GxProj4Item>(), nullptr, nullptr,
                                  GxNoRows<const char*>()};
constexpr const char* kUndefinedProj4 = "+proj=undef ";

constexpr GxProjectionType kTypes[] = {
    Row(M::eTransverseMercator, Read(kTransverseMercatorNames, kReadOriginScale),
        Write("Transverse_Mercator", kWriteOriginScale),
        // The series form that holds to the millimetre across a whole zone.
        Build(
            Classes<CGxTransverseMercatorProjection, CGxTransverseMercatorJHS>(kOriginScaleValues),
            EGxSeries::eKruegerTransverseMercator),
        Proj4("+proj=tmerc ", kProj4OriginScale)),
    Row(M::eLambert2SP,
        Read(kLambert2SPNames, kReadLambert, &GxLambertFormOfParameters, nullptr, nullptr,
             kSortsParallels),
        Write("Lambert_Conformal_Conic_2SP", kWriteTwoParallels),
        Build(Classes<CGxLambert2SPProjection, CGxLambert2SP>(kTwoParallelValues), kConformal),
        Proj4("+proj=lcc ", kProj4TwoParallels)),
    Row(M::eLambert1SP, Read(kLambert1SPNames, kReadOriginScale),
        Write("Lambert_Conformal_Conic_1SP", kWriteOriginScale),
        Build(Classes<CGxLambert1SPProjection, CGxLambert1SP>(kOriginScaleValues), kConformal),
        Proj4("+proj=lcc ", kProj4OneParallelCone)),
    Row(M::eStereographic, Read(kStereographicNames, kReadStereographic),
        Write("Stereographic", kWriteOriginScale),
        Build(Classes<CGxStereographicProjection, CGxStereographic>(kOriginScaleValues),
              kConformal),
        {"+proj=stere ", GxRowsOf(kProj4OriginScale), nullptr, "+proj=sterea ",
         GxRowsOf(kObliqueStereographicNames)}),
    Row(M::eNewZealandMapGrid, Read(kNewZealandNames, kReadNewZealand),
        Write("New_Zealand_Map_Grid", kWriteNewZealand),
        Build(Classes<CGxNewZealandMapGridProjection, CGxNewZealandMapGrid>(kOriginValues),
              kConformal),
        Proj4("+proj=nzmg ", kProj4Origin)),
    Row(M::eHotineObliqueMercator, Read(kHotineNames, kReadOblique, &GxHotineGridOfAngle),
        Write("Hotine_Oblique_Mercator_Azimuth_Natural_Origin", kWriteOblique),
        Build(Classes<CGxHotineObliqueMercatorProjection, CGxHotineObliqueMercator>(kObliqueValues),
              kConformal),
        Proj4("+proj=omerc ", kProj4CentreAzimuth)),
    Row(M::eObliqueMercator, Read(kObliqueMercatorNames, kReadOblique, &GxHotineGridOfAngle),
        Write("Hotine_Oblique_Mercator_Azimuth_Center", kWriteOblique),
        Build(Classes<CGxObliqueMercatorProjection, CGxObliqueMercator>(kObliqueValues),
              kConformal),
        Proj4("+proj=omerc ", kProj4CentreAzimuth)),
    Row(M::eRectifiedSkewOrthomorphic, Read(kSkewOrthomorphicNames, kReadSkewOrthomorphic),
        Write("Rectified_Skew_Orthomorphic_Natural_Origin", kWriteSkewOrthomorphic),
        Build(Classes<CGxRectifiedSkewOrthomorphicProjection, CGxRectifiedSkewOrthomorphic>(
                  kSkewValues),
              kConformal),
        Proj4("+proj=omerc ", kProj4SkewOrthomorphic)),
    Row(M::eRotatedLongitudeLatitude, Read(kRotatedNames, kReadRotatedPole),
        Write("Rotated_Longitude_Latitude", kWriteRotatedPole),
        Build(Classes<CGxRotatedLongitudeLatitudeProjection, CGxRotatedLongitudeLatitude>(
                  kRotatedPoleValues),
              kConformal, kGeographic),
        // PROJ.4 has no rotated pole of this kind.
        {nullptr, GxNoRows<GxProj4Item>(), kUndefinedProj4, nullptr, GxNoRows<const char*>()}),
    Row(M::eMercator2SP,
        Read(kMercator2SPNames, kReadParallel, &GxMercatorParallelOfScale, &GxWebMercatorSphere),
        Write("Mercator_2SP", kWriteParallel),
        BuildDeriving(Classes<CGxMercator2SPProjection, CGxMercator2SP>(kParallelValues),
                      P::eScaleFactor, kConformal),
        Proj4("+proj=merc ", kProj4Cylinder)),
    Row(M::eMercator1SP, Read(kMercator1SPNames, kReadCylinderScale, nullptr, &GxWebMercatorSphere),
        Write("Mercator_1SP", kWriteCylinderScale),
        BuildDeriving(Classes<CGxMercator1SPProjection, CGxMercator1SP>(kCylinderScaleValues),
                      P::eStandardParallel1, kConformal),
        Proj4("+proj=merc ", kProj4Cylinder)),
    Row(M::eStereographicNorthPole,
        Read(kNorthPoleNames, kReadParallel, &GxStereographicPoleOfParallel),
        Write("Stereographic_North_Pole", kWriteParallel),
        BuildDeriving(Classes<CGxStereographicNorthPoleProjection, CGxStereographicNorthPole>(
                          kParallelValues),
                      P::eScaleFactor, kConformal),
        Proj4("+proj=stere ", kProj4NorthPole)),
    Row(M::eStereographicSouthPole, Read(kSouthPoleNames, kReadParallel),
        Write("Stereographic_South_Pole", kWriteParallel),
        BuildDeriving(Classes<CGxStereographicSouthPoleProjection, CGxStereographicSouthPole>(
                          kParallelValues),
                      P::eScaleFactor, kConformal),
        Proj4("+proj=stere ", kProj4SouthPole)),
    Row(M::eGeographical,
        {GxRowsOf(kGeographicalNames), GxNoRows<GxWktRule>(), nullptr, nullptr, nullptr,
         kKeepsParallels},
        {"Geographical", GxNoRows<GxWktWritten>()},
        Build({GxNoRows<EGxWktParameter>(), &NewDefinition<CGxGeographicalProjection>,
               &NewGeographical},
              kConformal, kGeographic),
        {"+proj=longlat ", GxNoRows<GxProj4Item>(), nullptr, nullptr, GxNoRows<const char*>()}),
    Row(M::eKrovak,
        Read(kKrovakNames, kReadKrovak, &GxKrovakNorthFixed, nullptr, &GxKrovakOrientationOfAxes),
        Write("Krovak", kWriteKrovak),
        Build(Classes<CGxKrovakProjection, CGxKrovak>(kKrovakValues), kConformal),
        // The pseudo standard parallel, the axis scales and the plane rotation
        // have no PROJ.4 items.
        Proj4("+proj=krovak ", kProj4CentreAzimuth)),
    Row(M::eAlbersEqualArea,
        Read(kAlbersNames, kReadConic, nullptr, nullptr, nullptr, kSortsParallels),
        Write("Albers_Conic_Equal_Area", kWriteTwoParallels),
        Build(Classes<CGxAlbersEqualAreaProjection, CGxAlbersEqualArea>(kTwoParallelValues),
              EGxSeries::eAuthalicLatitude),
        Proj4("+proj=aea ", kProj4TwoParallels)),
    Row(M::eLambertAzimuthalEqualArea, Read(kAzimuthalEqualAreaNames, kReadAzimuthalEqualArea),
        Write("Lambert_Azimuthal_Equal_Area", kWriteOrigin),
        Build(Classes<CGxLambertAzimuthalEqualAreaProjection, CGxLambertAzimuthalEqualArea>(
                  kOriginValues),
              EGxSeries::eAuthalicLatitude),
        Proj4("+proj=laea ", kProj4Origin)),
    Row(M::eCassiniSoldner, Read(kCassiniNames, kReadOrigin),
        Write("Cassini_Soldner", kWriteOrigin),
        Build(Classes<CGxCassiniSoldnerProjection, CGxCassiniSoldner>(kOriginValues),
              EGxSeries::eMeridianArc),
        Proj4("+proj=cass ", kProj4Origin)),
    Row(M::eEquidistantConic,
        Read(kEquidistantConicNames, kReadConic, nullptr, nullptr, nullptr, kSortsParallels),
        Write("Equidistant_Conic", kWriteTwoParallels),
        Build(Classes<CGxEquidistantConicProjection, CGxEquidistantConic>(kTwoParallelValues),
              EGxSeries::eMeridianArc),
        Proj4("+proj=eqdc ", kProj4TwoParallels)),
    Row(M::ePolarStereographic, Read(kPolarStereographicNames, kReadOriginScale),
        Write("Polar_Stereographic", kWriteOriginScale),
        Build(Classes<CGxPolarStereographicProjection, CGxPolarStereographic>(kOriginScaleValues),
              kConformal),
        Proj4("+proj=stere ", kProj4Polar)),
    // No definition class; the conformal series is what the type number has
    // always selected, the Transverse Mercator asks for its own.
    Row(M::eNonProjected, Read(kNonProjectedNames, kReadOriginScale),
        Write("Non_Projected", kWriteOriginScale),
        Build(AlgorithmOnly<CGxTransverseMercatorJHS>(kOriginScaleValues), kConformal), kNoProj4),
    Row(M::eCylindricalEqualArea, Read(kCylindricalEqualAreaNames, kReadParallel),
        Write("Cylindrical_Equal_Area", kWriteParallel),
        Build(Classes<CGxCylindricalEqualAreaProjection, CGxCylindricalEqualArea>(kParallelValues),
              EGxSeries::eAuthalicLatitude),
        Proj4("+proj=cea ", kProj4TrueScale)),
};

// One row for each type, in the order of the types.
constexpr bool RowsInTypeOrder() {
    for (std::size_t i = 1; i < std::size(kTypes); ++i) {
        if (kTypes[i].type <= kTypes[i - 1].type) return false;
    }
    return true;
}
static_assert(RowsInTypeOrder(), "one row for each type, in the order of the types");

// The name key: ASCII lower case, blanks read as underscores. Other
// characters (hyphens, parentheses) are kept.
char KeyChar(char c) {
    return c == ' ' ? '_' : GxAsciiLower(c);
}

bool SameKey(const char* tableName, const std::string& key) {
    std::size_t i = 0;
    for (; tableName[i] != '\0'; ++i) {
        if (i >= key.size() || KeyChar(tableName[i]) != key[i]) return false;
    }
    return i == key.size();
}

}  // namespace

const GxProjectionType* GxProjectionTypeOf(CGxMapProjData::EProjectionType type) {
    for (const GxProjectionType& row : kTypes) {
        if (row.type == type) return &row;
    }
    return nullptr;
}

const GxProjectionType* GxProjectionTypeNamed(const std::string& name, const GxWktName** entry) {
    std::string key = name;
    for (char& c : key) c = KeyChar(c);
    for (const GxProjectionType& row : kTypes) {
        for (const GxWktName& candidate : row.names) {
            if (!SameKey(candidate.name, key)) continue;
            if (entry) *entry = &candidate;
            return &row;
        }
    }
    return nullptr;
}

GxRows<GxProjectionType> GxProjectionTypes() {
    return GxRowsOf(kTypes);
}

// ------------------------------------------------------------------ factories

namespace {

// An empty definition of the type, or null for a type without a class or
// when memory runs out.
CGxTabledMapProjData* NewEmpty(CGxMapProjData::EProjectionType type) {
    const GxProjectionType* row = GxProjectionTypeOf(type);
    if (!row || !row->newDefinition) return nullptr;
    try {
        return row->newDefinition();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

// Bits of the flags of IsEquivalent.
constexpr int kProjectedSystems = 1;
constexpr int kGeographicSystems = 2;

}  // namespace

CGxMapProjData* CGxMapProjData::CreateProjection(EProjectionType type, const std::string& name,
                                                 const std::string& branchName,
                                                 const std::string& ellipsoidID,
                                                 double* const params) {
    CGxTabledMapProjData* definition = NewEmpty(type);
    if (!definition) return nullptr;
    try {
        definition->_Assign(name, branchName, ellipsoidID, params, true, true);
    } catch (const std::bad_alloc&) {
        delete definition;
        return nullptr;
    }
    return definition;
}

CGxMapProjData* CGxMapProjData::CreateDefaultParameterProjection(EProjectionType type) {
    CGxTabledMapProjData* definition = NewEmpty(type);
    if (!definition) return nullptr;
    try {
        definition->_AssignDefaults();
    } catch (const std::bad_alloc&) {
        delete definition;
        return nullptr;
    }
    return definition;
}

std::vector<CGxMapProjData::EProjectionType> GxDefinitionTypes() {
    std::vector<CGxMapProjData::EProjectionType> types;
    for (const GxProjectionType& row : kTypes) {
        if (row.newDefinition) types.push_back(row.type);
    }
    return types;
}

bool CGxMapProjData::IsEquivalent(int flags, EProjectionType type) {
    if (type == eNonProjected || type == eInvalidProjection) return false;
    // A rotated grid is still longitude/latitude, so it counts as geographic.
    const GxProjectionType* row = GxProjectionTypeOf(type);
    if (row && row->geographic) return (flags & kGeographicSystems) != 0;
    return (flags & kProjectedSystems) != 0;
}

void CGxMapProjData::ComputeFourierCoefficients(EProjectionType type, bool forward, double x,
                                                double* const out) {
    if (!out) return;
    // A value without a row has always been given the conformal series.
    const GxProjectionType* row = GxProjectionTypeOf(type);
    GxComputeFourierCoefficients(row ? row->series : EGxSeries::eConformalLatitude, forward, x,
                                 out);
}

// ------------------------------------------------------------------ definition to WKT

namespace {

// What every written system shares: the geographic system is only the
// carrier of the spheroid, on Greenwich, in degrees.
constexpr const char* kGeoCSName = "Unused";
constexpr const char* kPrimeMeridianName = "Greenwich";
constexpr const char* kAngularUnitName = "Degree";
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr const char* kMetreName = "Meter";
// The spheroid name written when the ellipsoid is not known.
constexpr const char* kUnknownSpheroidName = " ";

}  // namespace

void CGxTabledMapProjData::TransferParameters(CGxPRJParser& parser) const {
    TransferParameters(parser, GxCatalogueEllipsoid(ellipsoidID));
}

void CGxTabledMapProjData::TransferParameters(CGxPRJParser& parser,
                                              const CGxEllipsoid* ellipsoid) const {
    const GxProjectionType& row = *GxProjectionTypeOf(layout->type);
    parser.SetProjCSname(name);
    parser.SetGeoCSname(kGeoCSName);
    parser.SetDatum(branchName);
    parser.SetPrimeMeridian(kPrimeMeridianName, 0.0);
    parser.SetAngularUnit(kAngularUnitName, kRadiansPerDegree);
    if (ellipsoid) {
        parser.SetEllipsoid(ellipsoid->GetName(), ellipsoid->GetMajor(),
                            ellipsoid->GetInvFlatness());
        parser.SetProjectionType(layout->type);
        parser.SetProjectionTypeName(row.wktName);
    } else {
        parser.SetEllipsoid(kUnknownSpheroidName, kGxUnset, kGxUnset);
        parser.SetProjectionType(eNonProjected);
        parser.SetProjectionTypeName(GxProjectionTypeOf(eNonProjected)->wktName);
    }
    for (int i = 0; i < row.values.count; ++i) parser.SetWktParameter(row.values[i], params[i]);
    // The geographical and rotated-pole grids give their coordinates in
    // degrees, every other type in metres.
    parser.SetProjUnit(row.geographic ? kAngularUnitName : kMetreName, 1.0);
}

// ------------------------------------------------------------------ definition to algorithm

// The library's own Transverse Mercator grids all use the series form.
CGxProjection* CGxTransverseMercatorProjection::CreateProjection() const {
    return new CGxTransverseMercatorJHS(this);
}
CGxProjection* CGxLambert2SPProjection::CreateProjection() const {
    return new CGxLambert2SP(this);
}
CGxProjection* CGxLambert1SPProjection::CreateProjection() const {
    return new CGxLambert1SP(this);
}
CGxProjection* CGxStereographicProjection::CreateProjection() const {
    return new CGxStereographic(this);
}
CGxProjection* CGxNewZealandMapGridProjection::CreateProjection() const {
    return new CGxNewZealandMapGrid(this);
}
CGxProjection* CGxHotineObliqueMercatorProjection::CreateProjection() const {
    return new CGxHotineObliqueMercator(this);
}
CGxProjection* CGxObliqueMercatorProjection::CreateProjection() const {
    return new CGxObliqueMercator(this);
}
CGxProjection* CGxRectifiedSkewOrthomorphicProjection::CreateProjection() const {
    return new CGxRectifiedSkewOrthomorphic(this);
}
CGxProjection* CGxRotatedLongitudeLatitudeProjection::CreateProjection() const {
    return new (std::nothrow) CGxRotatedLongitudeLatitude(this);
}
CGxProjection* CGxMercator2SPProjection::CreateProjection() const {
    return new CGxMercator2SP(this);
}
CGxProjection* CGxMercator1SPProjection::CreateProjection() const {
    return new CGxMercator1SP(this);
}
CGxProjection* CGxStereographicNorthPoleProjection::CreateProjection() const {
    return new CGxStereographicNorthPole(this);
}
CGxProjection* CGxStereographicSouthPoleProjection::CreateProjection() const {
    return new CGxStereographicSouthPole(this);
}
CGxProjection* CGxGeographicalProjection::CreateProjection() const {
    return new (std::nothrow) CGxGeographical(this);
}
CGxProjection* CGxKrovakProjection::CreateProjection() const {
    return new CGxKrovak(this);
}
CGxProjection* CGxAlbersEqualAreaProjection::CreateProjection() const {
    return new CGxAlbersEqualArea(this);
}
CGxProjection* CGxLambertAzimuthalEqualAreaProjection::CreateProjection() const {
    return new CGxLambertAzimuthalEqualArea(this);
}
CGxProjection* CGxCylindricalEqualAreaProjection::CreateProjection() const {
    return new CGxCylindricalEqualArea(this);
}
CGxProjection* CGxCassiniSoldnerProjection::CreateProjection() const {
    return new CGxCassiniSoldner(this);
}
CGxProjection* CGxEquidistantConicProjection::CreateProjection() const {
    return new CGxEquidistantConic(this);
}
CGxProjection* CGxPolarStereographicProjection::CreateProjection() const {
    return new CGxPolarStereographic(this);
}
