// Every projection type built from a catalogue definition. A grid made by a
// definition must be the grid made from the same numbers and the catalogue
// ellipsoid, bit for bit (a parameter read from the wrong getter, the azimuth
// standing in for the rotation, a wrapper choosing its inner form by another
// rule or the ellipsoidal formulas chosen for a catalogue sphere all show up
// here), and it must meet PROJ's values. A definition whose ellipsoid the
// catalogue does not know gives a grid without a figure, which guesses
// nothing; one without a name, or no definition at all, gives the local grid,
// which converts nothing.
//
// Every reference value is a row of the projection's own reference tests,
// from `echo "lon lat 0 0" | cct -d 6 <the row's PROJ definition>` (inverse
// points from `cct -I -d 12`), on the catalogue figures: WE WGS 84, RF GRS80,
// IN International 1924, BR Bessel 1841, CC Clarke 1866, KA Krassowsky, EB
// Everest (Sabah and Sarawak) and the sphere XY of radius 6371229 m.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "catalogue/CartSetup.h"
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
#include "definitions/MapProjData.h"
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
#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Ellipsoid.h"
#include "projections/AlbersEqualArea.h"
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
#include "projections/TransverseMercator.h"
#include "projections/TransverseMercatorJHS.h"
#include "tests/support/ReferenceCheck.h"

namespace {

using Type = CGxMapProjData::EProjectionType;
using Params = std::vector<double>;
using Points = std::vector<GxReferencePoint>;
using Definition = std::unique_ptr<CGxMapProjData>;
using Grid = std::unique_ptr<CGxProjection>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The system catalogue's ellipsoid with this identifier; a failure, and an
// empty ellipsoid, when the catalogue lacks it.
const CGxEllipsoid& SystemEllipsoid(const char* id) {
    const CGxEllipsoid* e = CGxCartSetup::Instance().GetEllipsoidList().GetEllipsoid(id);
    if (!e) {
        ADD_FAILURE() << "ellipsoid " << id << " missing from the system catalogue";
        static const CGxEllipsoid missing;
        return missing;
    }
    return *e;
}

// An editable definition of the type, parameters in the definition's index
// order.
Definition MakeDefinition(Type type, const std::string& name, const std::string& ellipsoid,
                          Params params) {
    return Definition(
        CGxMapProjData::CreateProjection(type, name, "Branch", ellipsoid, params.data()));
}

// The value constructors take the definition's numbers in its index order,
// then the ellipsoid.
template <class TAlgorithm, std::size_t... I>
Grid ByValues(const char* name, const Params& p, const CGxEllipsoid& e, std::index_sequence<I...>) {
    return std::make_unique<TAlgorithm>(name, p[I]..., e);
}
template <class TAlgorithm, std::size_t N>
Grid FromValues(const char* name, const Params& p, const CGxEllipsoid& e) {
    return ByValues<TAlgorithm>(name, p, e, std::make_index_sequence<N>{});
}
// The geographical definition has no parameters; its grid counts from
// Greenwich.
Grid GeographicalFromValues(const char* name, const Params&, const CGxEllipsoid& e) {
    return std::make_unique<CGxGeographical>(name, 0.0, e);
}

// The class's own constructor from a definition (null allowed).
template <class TAlgorithm, class TDefinition>
Grid OwnConstructor(const CGxMapProjData* d) {
    return std::make_unique<TAlgorithm>(static_cast<const TDefinition*>(d));
}

// The two ways a class is built: from N values, and from a definition of
// class TDefinition.
struct Makers {
    Grid (*fromValues)(const char*, const Params&, const CGxEllipsoid&);
    Grid (*ownConstructor)(const CGxMapProjData*);
};
template <class TAlgorithm, class TDefinition, std::size_t N>
constexpr Makers kBy = {FromValues<TAlgorithm, N>, OwnConstructor<TAlgorithm, TDefinition>};

// How a grid whose definition names no ellipsoid the catalogue knows behaves.
enum class NoFigure {
    // Nothing is guessed: conversions, convergence and the origin longitude
    // are NaN, so is the default area unless the type fixes it, and there is
    // no anonymous ellipsoid.
    eNaN,
    // A wrapper without formulas: conversions NaN, convergence 0, origin
    // (0, 0), a default area of zeros, no anonymous ellipsoid.
    eNoFormulas,
    // The Transverse Mercator keeps its numbers on a figure of no size: the
    // inverse and the convergence are NaN and the origin is the definition's
    // (as on a real figure);
    // the series form's forward is NaN (its eccentricity is undefined) ...
    eNoSizeSeries,
    // ... and the Gauss-Krueger form scales every point onto the false origin.
    eNoSizeOnFalseOrigin,
    // Longitude and latitude need no figure: the grid converts, counting from
    // Greenwich, and has no anonymous ellipsoid.
    eNotNeeded,
    // The rotated grid: conversions, origin, convergence and area NaN, and it
    // hands out its figure as it is, NaN.
    eNaNFigure,
};

struct Tolerance {
    double forward;  // projected units
    double inverse;  // degrees
};
// The fourth-order Transverse Mercator series meet PROJ's exact algorithm to
// about a micrometre within ten degrees of the central meridian.
constexpr Tolerance kConformal = {1e-3, 1e-9};
constexpr Tolerance kTransverseMercator = {1e-4, 1e-9};
// The equal-area inverses return through series in e^2 (under 2e-8 degrees);
// Cassini-Soldner and the equidistant conic sum the meridian arc as series;
// the spherical forms are closed, and the cylindrical equal-area inverse is
// exact.
constexpr Tolerance kAuthalicSeries = {1e-5, 2e-8};
constexpr Tolerance kArcSeries = {1e-3, 1e-8};
constexpr Tolerance kSpherical = {1e-5, 1e-10};
// Longitudes and latitudes as grid values, degrees: about 0.1 mm on the
// ground.
constexpr Tolerance kAngles = {2e-9, 2e-9};

struct Row {
    const char* name;  // the system name, different for every row
    Type type;
    const char* ellipsoid;
    Params params;
    // The grid of the same numbers and figure, and the grid the class's own
    // constructor builds from a definition.
    Makers by;
    // True when the definition's factory builds this class; the Gauss-Krueger
    // rows are built by their own constructor (the factory builds the series
    // form).
    bool byFactory;
    Points forward;  // reference points, longitude/latitude to the grid
    Points inverse;  // reference points, the grid back to longitude/latitude
    Tolerance tolerance;
    NoFigure noFigure;
    // Without a figure: the origin latitude where the type fixes it (NaN
    // elsewhere), and whether the default area is a fixed one.
    double originLatitude = kNaN;
    bool fixedArea = false;

    Grid Build(const CGxMapProjData& d) const {
        return byFactory ? Grid(d.CreateProjection()) : by.ownConstructor(&d);
    }
};

// Real grids, parameters in the definitions' index order; every pair that a
// wiring slip could exchange holds two different values.
const Params kInternational49 = {0.9996012717, -2, 49, 400000, -100000};
const Params kUtm33 = {0.9996, 15, 0, 500000, 0};
const Params kLambert93 = {49, 44, 3, 46.5, 700000, 6600000};
const Params kFrance1SP = {0.99987742, 2.337229167, 46.8, 600000, 2200000};
const Params kIndonesia = {0.997, 110, 3900000, 900000};
const Params kCaspian = {42, 51, 500000, -200000};
const Params kDutchRD = {0.9999079, 5.38763888888889, 52.15616055555555, 155000, 463000};
const Params kArctic60 = {60, 10, 300000, -400000};
const Params kAntarctic60 = {-60, 140, 1000000, 2000000};
// The polar wrapper: an origin at a pole keeps the scale at the pole; any
// other origin latitude is a standard parallel and the scale (here 0.9,
// which no reference uses) is not read.
const Params kPolarAtPole = {0.97, -30, -90, 1500000, 2500000};
const Params kPolarSouth60 = {0.9, 140, -60, 1000000, 2000000};
const Params kPolarNorth60 = {0.9, 10, 60, 300000, -400000};
// Within the nearness test of the pole.
const Params kPolarNearPole = {0.994, 0, 89.9999999999999, 2000000, 2000000};
// Alaska zone 1 (EPSG:26931), the Swiss LV95 (centre origin, east-west central
// line) and RSO Borneo (EPSG:29874), whose rectification differs from its
// azimuth.
const Params kAlaska = {0.9999, -133.666666666667, 57, 323.130102361111, 5000000, -5000000};
const Params kSwiss = {1, 7.43958333333333, 46.9524055555556, 90, 2600000, 1200000};
const Params kBorneo = {0.99984, 115, 4, 53.3158204722222, 53.1301023611111, 2000000, 5000000};
// S-JTSK easting/northing with a false origin: its axis scales have opposite
// signs and the rotation is a quarter turn, so exchanged scales or a rotation
// left at 0 turn the grid.
const Params kSjtsk = {0.9999, 78.5, 24.8333333333333, 49.5, 30.2881397527778, 90, -1, 1,
                       1000,   -2000};
const Params kNzmg = {173, -41, 2510000, 6023150};
const Params kConus = {29.5, 45.5, -96, 23, 500000, 100000};
const Params kAustralia = {-18, -36, 132, 0, 1000000, 2000000};
const Params kEurope = {10, 52, 4321000, 3210000};
const Params kAntarctic = {0, -90, 3000000, 3000000};
const Params kSoldnerBerlin = {13.62720366666667, 52.41864827777778, 40000, 10000};
const Params kRotatedEurope = {18, -39.25, 0};

// +proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +ellps=intl
const Points kIntl49Forward = {{8, 55, 1038594.064494, 613204.405410}};
const Points kIntl49Inverse = {{6.188133556922, 60.430587916063, 850000, 1200000}};
// +proj=utm +zone=33 +ellps=WGS84: across the zone, north and south of the
// equator, and six degrees from the central meridian.
const Points kUtm33Forward = {
    {15, 0, 500000.000000, 0.000000},          {12, 45, 263553.973899, 4987329.504699},
    {18.5, 60, 695161.172731, 6656575.859116}, {16.25, -33.5, 616110.346907, -3707418.352831},
    {9, 52, 88279.436585, 5778053.301337},     {21, 78, 639026.396365, 8665496.995777},
};
const Points kUtm33Inverse = {
    {15.000000000000, 0.000000000000, 500000, 0},
    {11.821978081013, 45.109238235011, 250000, 5000000},
    {19.650623510093, 59.905283822636, 760000, 6650000},
    {16.290873235966, -33.432676233280, 620000, -3700000},
};
// +proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000 +y_0=6600000 +ellps=GRS80
const Points kLambert93Point = {{-1.25, 44.5, 362276.601644, 6386972.828045}};
// +proj=lcc +lat_1=46.8 +lat_0=46.8 +k_0=0.99987742 +lon_0=2.337229167 +x_0=600000
//   +y_0=2200000 +ellps=GRS80
const Points kFrance1SPPoint = {{0.25, 45.0, 435388.020629, 2002108.950783}};
// +proj=merc +k_0=0.997 +lon_0=110 +x_0=3900000 +y_0=900000 +ellps=WGS84
const Points kIndonesiaPoint = {{117.25, 6.5, 4704645.109326, 1618139.232733}};
// +proj=merc +lat_ts=42 +lon_0=51 +x_0=500000 +y_0=-200000 +ellps=krass
const Points kCaspianPoint = {{46.75, 68.5, 147878.376715, 7657601.396043}};
// +proj=cea +lat_ts=30 +lon_0=-20 +x_0=1000000 +y_0=-2000000 +ellps=WGS84
const Points kEaseShiftedPoint = {{-35.5, 62.25, -495537.343889, 4491456.269440}};
const Params kEaseShifted = {30, -20, 1000000, -2000000};
// +proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.9999079
//   +x_0=155000 +y_0=463000 +ellps=bessel
const Points kDutchRDPoint = {{7.125, 53.75, 269599.842985, 641732.678815}};
// +proj=stere +lat_0=90 +lat_ts=60 +lon_0=10 +x_0=300000 +y_0=-400000 +ellps=intl
const Points kArctic60Point = {{95.25, 75.5, 1813818.418972, -525788.610442}};
// +proj=stere +lat_0=-90 +lat_ts=-60 +lon_0=140 +x_0=1000000 +y_0=2000000 +ellps=clrk66
const Points kAntarctic60Point = {{60.0, -77.25, -313865.336794, 2231669.907894}};
// +proj=stere +lat_0=-90 +k_0=0.97 +lon_0=-30 +x_0=1500000 +y_0=2500000 +ellps=intl
const Points kSouthPolarPoint = {{-90.0, -80.0, 559377.928804, 3043068.406011}};
// +proj=stere +lat_0=90 +k_0=0.994 +lon_0=0 +x_0=2000000 +y_0=2000000 +ellps=WGS84
const Points kUpsNorthPoint = {{45.5, 84.0, 2475543.834116, 1532684.375723}};
// +proj=stere +lat_0=90 +lat_ts=0 +lon_0=0 +x_0=0 +y_0=0 +ellps=WGS84
const Points kEquatorPoint = {{30.0, 45.0, 1327230.200191, -2298830.140070}};
// +proj=omerc +no_uoff +lat_0=57 +lonc=-133.666666666667 +alpha=323.130102361111
//   +gamma=323.130102361111 +k=0.9999 +x_0=5000000 +y_0=-5000000 +ellps=GRS80
const Points kAlaskaPoint = {{-137.5, 58.5, 595294.642689, 748468.537163}};
// +proj=somerc +lat_0=46.9524055555556 +lon_0=7.43958333333333 +k_0=1 +x_0=2600000
//   +y_0=1200000 +ellps=bessel
const Points kSwissPoint = {{8.5, 47.7, 2679586.351919, 1283646.747503}};
// +proj=omerc +no_uoff +lat_0=4 +lonc=115 +alpha=53.3158204722222 +gamma=53.1301023611111
//   +k=0.99984 +x_0=2000000 +y_0=5000000 +ellps=evrstSS
const Points kBorneoPoint = {{117.5, 6, 2866520.023490, 5665353.706004}};
// +proj=krovak +lat_0=49.5 +lon_0=24.8333333333333 +alpha=30.2881397527778 +k=0.9999
//   +x_0=1000 +y_0=-2000 +ellps=bessel
const Points kSjtskPoint = {{14.42, 50.1, -741797.848009, -1043695.269559}};
// +proj=nzmg +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150 +ellps=intl
const Points kNzmgPoint = {{174.5, -38, 2641937.091394, 6355051.264384}};
// +proj=aea +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=500000 +y_0=100000, on
// +a=6378137 +rf=298.257223563 and on +R=6371229
const Points kConusAlbers = {{-110, 42, -647566.110001, 2295593.550795}};
const Points kConusAlbersSphere = {{-110, 42, -644572.001858, 2301054.150252}};
// +proj=aea +lat_1=-18 +lat_2=-36 +lat_0=0 +lon_0=132 +x_0=1000000 +y_0=2000000
//   +a=6378388 +rf=297: a southern cone
const Points kAustraliaAlbers = {{120, -34, -101289.745344, -1762559.062785}};
// +proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000, on +a=6378137
//   +rf=298.257222101 and on +R=6371229
const Points kEuropeLaea = {{20, 35, 5240847.335380, 1387399.933390}};
const Points kEuropeLaeaSphere = {{20, 35, 5239135.588936, 1386143.804371}};
// +proj=laea +lat_0=-90 +lon_0=0 +x_0=3000000 +y_0=3000000 +a=6378388 +rf=297
const Points kAntarcticLaea = {{100, -60, 6259698.704964, 2425227.169334}};
// +proj=cass +lat_0=52.41864827777778 +lon_0=13.62720366666667 +x_0=40000 +y_0=10000,
// on +a=6377397.155 +rf=299.1528128 and on +R=6371229
const Points kSoldnerBerlinPoint = {{13.1, 49.5, 1816.145214, -314521.567019}};
const Points kSoldnerSphere = {{9.5, 45, -284379.563865, -806673.803226}};
// +proj=eqdc +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +x_0=500000 +y_0=100000, on
// +a=6378137 +rf=298.257223563 and on +R=6371229
const Points kConusEqdc = {{-110, 42, -647658.255099, 2292341.631356}};
const Points kConusEqdcSphere = {{-110, 42, -644664.818590, 2297792.561128}};
// Longitudes from the central meridian 0 of a catalogue geographical system,
// never wrapped (cct -d 10 with +proj=longlat +ellps=WGS84 +over between unit
// conversions from and to degrees).
const Points kGeographicalWgs84 = {
    {359, 10, 359.0000000000, 10.0000000000},
    {-175, 50, -175.0000000000, 50.0000000000},
    {123.456789, -45.678901, 123.4567890000, -45.6789010000},
};
// South pole (18, -39.25), cct -d 10 between unit conversions: on the sphere
// +proj=ob_tran +o_proj=longlat +o_lon_p=0 +o_lat_p=39.25 +lon_0=18 +R=6371229;
// on GRS80 the Cartesian rotation spelled out, +proj=cart +ellps=GRS80, then
// +proj=helmert +rz=-64800 and +proj=helmert +ry=182700 (both +exact
// +convention=position_vector), then +inv +proj=cart +ellps=GRS80.
const Points kRotatedSphere = {
    {-12, 26.75, -28.0530883045, -18.3059483885},
    {33, 62.75, 6.9776783804, 12.7086520069},
    {18, 50.75, 0.0000000000, 0.0000000000},
    {-150, 80, -3.1541689125, 48.9927406136},
};
const Points kRotatedGrs80 = {
    {-12, 26.75, -28.1194570809, -18.5627563646},
    {60, 74.75, 11.4907022016, 27.4039206989},
    {18, 50.75, 0.0000000000, -0.1899608431},
    {-150, 80, -3.1788901112, 49.2474021971},
};

using CGxTM = CGxTransverseMercatorProjection;
using CGxPolarDefinition = CGxPolarStereographicProjection;

// clang-format off
const Row kRows[] = {
    {"International 49N", CGxMapProjData::eTransverseMercator, "IN", kInternational49,
     kBy<CGxTransverseMercatorJHS, CGxTM, 5>, true,
     kIntl49Forward, kIntl49Inverse, kTransverseMercator, NoFigure::eNoSizeSeries},
    {"International 49N Gauss-Krueger", CGxMapProjData::eTransverseMercator, "IN", kInternational49,
     kBy<CGxTransverseMercator, CGxTM, 5>, false,
     kIntl49Forward, kIntl49Inverse, kTransverseMercator, NoFigure::eNoSizeOnFalseOrigin},
    // The catalogue's zone definitions are plain Transverse Mercator
    // definitions on WGS 84; both forms meet PROJ's UTM.
    {"UTM-33", CGxMapProjData::eTransverseMercator, "WE", kUtm33,
     kBy<CGxTransverseMercatorJHS, CGxTM, 5>, true,
     kUtm33Forward, kUtm33Inverse, kTransverseMercator, NoFigure::eNoSizeSeries},
    {"UTM-33 Gauss-Krueger", CGxMapProjData::eTransverseMercator, "WE", kUtm33,
     kBy<CGxTransverseMercator, CGxTM, 5>, false,
     kUtm33Forward, kUtm33Inverse, kTransverseMercator, NoFigure::eNoSizeOnFalseOrigin},
    {"RGF93 / Lambert-93", CGxMapProjData::eLambert2SP, "RF", kLambert93,
     kBy<CGxLambert2SP, CGxLambert2SPProjection, 6>, true,
     kLambert93Point, kLambert93Point, kConformal, NoFigure::eNaN},
    {"France 1SP", CGxMapProjData::eLambert1SP, "RF", kFrance1SP,
     kBy<CGxLambert1SP, CGxLambert1SPProjection, 5>, true,
     kFrance1SPPoint, kFrance1SPPoint, kConformal, NoFigure::eNaN},
    // The equator scale derives from the first parallel, not the centre.
    {"Indonesia", CGxMapProjData::eMercator1SP, "WE", kIndonesia,
     kBy<CGxMercator1SP, CGxMercator1SPProjection, 4>, true,
     kIndonesiaPoint, kIndonesiaPoint, kConformal, NoFigure::eNaN, 0.0},
    {"Caspian", CGxMapProjData::eMercator2SP, "KA", kCaspian,
     kBy<CGxMercator2SP, CGxMercator2SPProjection, 4>, true,
     kCaspianPoint, kCaspianPoint, kConformal, NoFigure::eNaN, 0.0},
    // Same parameter list as the two-parallel Mercator, other formulas.
    {"EASE-Grid 2.0 shifted", CGxMapProjData::eCylindricalEqualArea, "WE", kEaseShifted,
     kBy<CGxCylindricalEqualArea, CGxCylindricalEqualAreaProjection, 4>, true,
     kEaseShiftedPoint, kEaseShiftedPoint, kSpherical, NoFigure::eNaN, 0.0},
    {"Amersfoort / RD New", CGxMapProjData::eStereographic, "BR", kDutchRD,
     kBy<CGxStereographic, CGxStereographicProjection, 5>, true,
     kDutchRDPoint, kDutchRDPoint, kConformal, NoFigure::eNaN},
    // The pole forms derive their scale from the standard parallel.
    {"Arctic 60", CGxMapProjData::eStereographicNorthPole, "IN", kArctic60,
     kBy<CGxStereographicNorthPole, CGxStereographicNorthPoleProjection, 4>, true,
     kArctic60Point, kArctic60Point, kConformal, NoFigure::eNaN, 90.0},
    {"Antarctic 60", CGxMapProjData::eStereographicSouthPole, "CC", kAntarctic60,
     kBy<CGxStereographicSouthPole, CGxStereographicSouthPoleProjection, 4>, true,
     kAntarctic60Point, kAntarctic60Point, kConformal, NoFigure::eNaN, -90.0},
    // The polar wrapper chooses its inner form from the origin latitude: the
    // polar aspect with the given scale at a pole, else the south- or
    // north-pole form with that latitude as standard parallel. A wrong choice
    // misses the reference by kilometres.
    {"Polar at the pole", CGxMapProjData::ePolarStereographic, "IN", kPolarAtPole,
     kBy<CGxPolarStereographic, CGxPolarDefinition, 5>, true,
     kSouthPolarPoint, kSouthPolarPoint, kConformal, NoFigure::eNaN},
    {"Polar south 60", CGxMapProjData::ePolarStereographic, "CC", kPolarSouth60,
     kBy<CGxPolarStereographic, CGxPolarDefinition, 5>, true,
     kAntarctic60Point, kAntarctic60Point, kConformal, NoFigure::eNaN, -90.0},
    {"Polar north 60", CGxMapProjData::ePolarStereographic, "IN", kPolarNorth60,
     kBy<CGxPolarStereographic, CGxPolarDefinition, 5>, true,
     kArctic60Point, kArctic60Point, kConformal, NoFigure::eNaN, 90.0},
    // Within the nearness test of the pole: the polar aspect with scale
    // 0.994, not a standard parallel (which would give scale 1).
    {"Polar near the pole", CGxMapProjData::ePolarStereographic, "WE", kPolarNearPole,
     kBy<CGxPolarStereographic, CGxPolarDefinition, 5>, true,
     kUpsNorthPoint, kUpsNorthPoint, kConformal, NoFigure::eNaN},
    // The equator is the standard parallel of a north-pole form.
    {"Polar equator", CGxMapProjData::ePolarStereographic, "WE", {0.9, 0, 0, 0, 0},
     kBy<CGxPolarStereographic, CGxPolarDefinition, 5>, true,
     kEquatorPoint, kEquatorPoint, kConformal, NoFigure::eNaN, 90.0},
    // The centre-origin form would miss by the centre's offset if the
    // definition built the natural-origin grid.
    {"NAD83 / Alaska zone 1", CGxMapProjData::eHotineObliqueMercator, "RF", kAlaska,
     kBy<CGxHotineObliqueMercator, CGxHotineObliqueMercatorProjection, 6>, true,
     kAlaskaPoint, kAlaskaPoint, kConformal, NoFigure::eNaN},
    {"CH1903+ / LV95", CGxMapProjData::eObliqueMercator, "BR", kSwiss,
     kBy<CGxObliqueMercator, CGxObliqueMercatorProjection, 6>, true,
     kSwissPoint, kSwissPoint, kConformal, NoFigure::eNaN},
    {"Timbalai 1948 / RSO Borneo", CGxMapProjData::eRectifiedSkewOrthomorphic, "EB", kBorneo,
     kBy<CGxRectifiedSkewOrthomorphic, CGxRectifiedSkewOrthomorphicProjection, 7>, true,
     kBorneoPoint, kBorneoPoint, kConformal, NoFigure::eNaN},
    {"S-JTSK / Krovak East North", CGxMapProjData::eKrovak, "BR", kSjtsk,
     kBy<CGxKrovak, CGxKrovakProjection, 10>, true,
     kSjtskPoint, kSjtskPoint, kConformal, NoFigure::eNaN},
    {"NZGD49 / New Zealand Map Grid", CGxMapProjData::eNewZealandMapGrid, "IN", kNzmg,
     kBy<CGxNewZealandMapGrid, CGxNewZealandMapGridProjection, 4>, true,
     kNzmgPoint, kNzmgPoint, kConformal, NoFigure::eNaN, kNaN, true},
    {"Albers CONUS", CGxMapProjData::eAlbersEqualArea, "WE", kConus,
     kBy<CGxAlbersEqualArea, CGxAlbersEqualAreaProjection, 6>, true,
     kConusAlbers, kConusAlbers, kAuthalicSeries, NoFigure::eNoFormulas},
    {"Albers Australia", CGxMapProjData::eAlbersEqualArea, "IN", kAustralia,
     kBy<CGxAlbersEqualArea, CGxAlbersEqualAreaProjection, 6>, true,
     kAustraliaAlbers, kAustraliaAlbers, kAuthalicSeries, NoFigure::eNoFormulas},
    {"Albers sphere", CGxMapProjData::eAlbersEqualArea, "XY", kConus,
     kBy<CGxAlbersEqualArea, CGxAlbersEqualAreaProjection, 6>, true,
     kConusAlbersSphere, kConusAlbersSphere, kSpherical, NoFigure::eNoFormulas},
    {"ETRS89 LAEA", CGxMapProjData::eLambertAzimuthalEqualArea, "RF", kEurope,
     kBy<CGxLambertAzimuthalEqualArea, CGxLambertAzimuthalEqualAreaProjection, 4>, true,
     kEuropeLaea, kEuropeLaea, kAuthalicSeries, NoFigure::eNoFormulas},
    {"Antarctic LAEA", CGxMapProjData::eLambertAzimuthalEqualArea, "IN", kAntarctic,
     kBy<CGxLambertAzimuthalEqualArea, CGxLambertAzimuthalEqualAreaProjection, 4>, true,
     kAntarcticLaea, kAntarcticLaea, kAuthalicSeries, NoFigure::eNoFormulas},
    {"LAEA sphere", CGxMapProjData::eLambertAzimuthalEqualArea, "XY", kEurope,
     kBy<CGxLambertAzimuthalEqualArea, CGxLambertAzimuthalEqualAreaProjection, 4>, true,
     kEuropeLaeaSphere, kEuropeLaeaSphere, kSpherical, NoFigure::eNoFormulas},
    {"Soldner Berlin", CGxMapProjData::eCassiniSoldner, "BR", kSoldnerBerlin,
     kBy<CGxCassiniSoldner, CGxCassiniSoldnerProjection, 4>, true,
     kSoldnerBerlinPoint, kSoldnerBerlinPoint, kArcSeries, NoFigure::eNoFormulas},
    {"Soldner sphere", CGxMapProjData::eCassiniSoldner, "XY", kSoldnerBerlin,
     kBy<CGxCassiniSoldner, CGxCassiniSoldnerProjection, 4>, true,
     kSoldnerSphere, kSoldnerSphere, kSpherical, NoFigure::eNoFormulas},
    {"Equidistant CONUS", CGxMapProjData::eEquidistantConic, "WE", kConus,
     kBy<CGxEquidistantConic, CGxEquidistantConicProjection, 6>, true,
     kConusEqdc, kConusEqdc, kArcSeries, NoFigure::eNoFormulas},
    {"Equidistant sphere", CGxMapProjData::eEquidistantConic, "XY", kConus,
     kBy<CGxEquidistantConic, CGxEquidistantConicProjection, 6>, true,
     kConusEqdcSphere, kConusEqdcSphere, kSpherical, NoFigure::eNoFormulas},
    // The WGS 84 figure, not the GRS80 one next to it in the catalogue.
    {"World WGS 84", CGxMapProjData::eGeographical, "WE", {},
     {GeographicalFromValues, OwnConstructor<CGxGeographical, CGxGeographicalProjection>}, true,
     kGeographicalWgs84, {}, kAngles, NoFigure::eNotNeeded},
    // The sphere of the regional climate grids, and the same pole on GRS80: a
    // flattened figure must reach the Cartesian rotation, which moves the
    // origin off the rotated equator. (On an ellipsoid the inverse of a
    // rotated point is not the point: its height is dropped on the way.)
    {"Europe rotated", CGxMapProjData::eRotatedLongitudeLatitude, "XY", kRotatedEurope,
     kBy<CGxRotatedLongitudeLatitude, CGxRotatedLongitudeLatitudeProjection, 3>, true,
     kRotatedSphere, {}, kAngles, NoFigure::eNaNFigure},
    {"Europe rotated GRS80", CGxMapProjData::eRotatedLongitudeLatitude, "RF", kRotatedEurope,
     kBy<CGxRotatedLongitudeLatitude, CGxRotatedLongitudeLatitudeProjection, 3>, true,
     kRotatedGrs80, {}, kAngles, NoFigure::eNaNFigure},
};
// clang-format on

// Both grids take (lon, lat) to the same easting/northing, take that image
// back to the same longitude/latitude and give the same convergence there.
void ExpectSameConversionAt(const CGxProjection& grid, const CGxProjection& fromValues, double lon,
                            double lat) {
    SCOPED_TRACE(testing::Message() << "lon " << lon << " lat " << lat);
    double x1, y1, x2, y2;
    grid.Geo2Proj(lon, lat, &x1, &y1);
    fromValues.Geo2Proj(lon, lat, &x2, &y2);
    EXPECT_EQ(x1, x2);
    EXPECT_EQ(y1, y2);
    double lon1, lat1, lon2, lat2;
    grid.Proj2Geo(x2, y2, &lon1, &lat1);
    fromValues.Proj2Geo(x2, y2, &lon2, &lat2);
    EXPECT_EQ(lon1, lon2);
    EXPECT_EQ(lat1, lat2);
    EXPECT_EQ(grid.GetConvergence(lon, lat), fromValues.GetConvergence(lon, lat));
}

// a equals b, or both are NaN.
bool Same(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

void ExpectLocalGrid(const CGxProjection& grid) {
    EXPECT_STREQ(grid.GetName(), "NON-UTM");
    EXPECT_TRUE(grid.IsLocal());
    GxExpectIdentity(grid, 1234.5, -987.25);
    EXPECT_EQ(grid.GetConvergence(10, 50), 0.0);
}

// What a grid without a figure gives, by the row's kind.
void ExpectNoFigure(const Row& row, const CGxProjection& grid) {
    const GxReferencePoint& ref = row.forward.front();
    double x, y, lon, lat;
    grid.Geo2Proj(ref.lon, ref.lat, &x, &y);
    double lon0, lat0;
    grid.GetOrigin(&lon0, &lat0);
    double area[4];
    grid.GetDefaultArea(&area[0], &area[1], &area[2], &area[3]);
    CGxEllipsoid out("Kept", "KP", 1, 2);
    const bool handedOut = grid.GetAnonymousEllipsoid(out);
    switch (row.noFigure) {
        case NoFigure::eNaN:
            EXPECT_TRUE(std::isnan(x) && std::isnan(y));
            EXPECT_TRUE(std::isnan(lon0));
            EXPECT_TRUE(Same(lat0, row.originLatitude)) << lat0;
            EXPECT_TRUE(std::isnan(grid.GetConvergence(ref.lon, ref.lat)));
            if (row.fixedArea) {
                double fixed[4];
                row.by.fromValues("Fixed", row.params, SystemEllipsoid(row.ellipsoid))
                    ->GetDefaultArea(&fixed[0], &fixed[1], &fixed[2], &fixed[3]);
                for (int i = 0; i < 4; ++i) EXPECT_EQ(area[i], fixed[i]);
            } else {
                for (double v : area) EXPECT_TRUE(std::isnan(v));
            }
            break;
        case NoFigure::eNoFormulas:
            EXPECT_TRUE(std::isnan(x) && std::isnan(y));
            EXPECT_EQ(lon0, 0.0);
            EXPECT_EQ(lat0, 0.0);
            EXPECT_EQ(grid.GetConvergence(ref.lon, ref.lat), 0.0);
            for (double v : area) EXPECT_EQ(v, 0.0);
            break;
        case NoFigure::eNoSizeSeries:
        case NoFigure::eNoSizeOnFalseOrigin:
            if (row.noFigure == NoFigure::eNoSizeSeries) {
                EXPECT_TRUE(std::isnan(x) && std::isnan(y)) << x << ", " << y;
            } else {
                EXPECT_EQ(x, row.params[3]);
                EXPECT_EQ(y, row.params[4]);
            }
            // The origin of the same numbers on a real figure.
            {
                double lon1, lat1;
                row.by.fromValues("Figure", row.params, SystemEllipsoid(row.ellipsoid))
                    ->GetOrigin(&lon1, &lat1);
                EXPECT_EQ(lon0, lon1);
                EXPECT_EQ(lat0, lat1);
            }
            EXPECT_TRUE(std::isnan(grid.GetConvergence(ref.lon, ref.lat)));
            break;
        case NoFigure::eNotNeeded:
            EXPECT_EQ(x, ref.lon);
            EXPECT_EQ(y, ref.lat);
            grid.Proj2Geo(ref.lon, ref.lat, &lon, &lat);
            EXPECT_EQ(lon, ref.lon);
            EXPECT_EQ(lat, ref.lat);
            break;
        case NoFigure::eNaNFigure:
            EXPECT_TRUE(std::isnan(x) && std::isnan(y));
            EXPECT_TRUE(std::isnan(lon0) && std::isnan(lat0));
            EXPECT_TRUE(std::isnan(grid.GetConvergence(ref.lon, ref.lat)));
            for (double v : area) EXPECT_TRUE(std::isnan(v));
            ASSERT_TRUE(handedOut);
            EXPECT_TRUE(std::isnan(out.GetMajor()) && std::isnan(out.GetInvFlatness()));
            return;
    }
    if (row.noFigure != NoFigure::eNotNeeded) {
        grid.Proj2Geo(1000, 2000, &lon, &lat);
        EXPECT_TRUE(std::isnan(lon) && std::isnan(lat)) << lon << ", " << lat;
    }
    EXPECT_FALSE(handedOut);
    EXPECT_EQ(out.GetMajor(), 1.0);
    EXPECT_EQ(out.GetInvFlatness(), 2.0);
}

}  // namespace

// The definition's grid is the value-built one: same class, name and kind,
// the same bits forward, inverse and in convergence around the reference
// point, the same origin, default area, derived scale and figure; and it
// meets the reference.
TEST(FromDefinition, EveryTypeIsBuiltAsFromValues) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const CGxEllipsoid& figure = SystemEllipsoid(row.ellipsoid);
        const Grid fromValues = row.by.fromValues(row.name, row.params, figure);
        Definition def = MakeDefinition(row.type, row.name, row.ellipsoid, row.params);
        ASSERT_TRUE(def);
        const Grid grid = row.Build(*def);
        ASSERT_TRUE(grid);
        // The grid keeps nothing of its definition.
        def.reset();

        EXPECT_EQ(typeid(*grid), typeid(*fromValues));
        EXPECT_STREQ(grid->GetName(), row.name);
        EXPECT_FALSE(grid->IsLocal());
        EXPECT_EQ(grid->IsGeographical(), fromValues->IsGeographical());
        const GxReferencePoint& around = row.forward.front();
        for (double dLon : {-4.0, -1.0, 0.0, 1.5, 2.5}) {
            for (double dLat : {-6.0, -1.0, 0.0, 0.5, 3.0})
                ExpectSameConversionAt(*grid, *fromValues, around.lon + dLon, around.lat + dLat);
        }
        double a[4], b[4];
        grid->GetOrigin(&a[0], &a[1]);
        fromValues->GetOrigin(&b[0], &b[1]);
        EXPECT_EQ(a[0], b[0]) << "origin longitude";
        EXPECT_EQ(a[1], b[1]) << "origin latitude";
        grid->GetDefaultArea(&a[0], &a[1], &a[2], &a[3]);
        fromValues->GetDefaultArea(&b[0], &b[1], &b[2], &b[3]);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(a[i], b[i]) << "default area " << i;
        a[0] = b[0] = -1;
        grid->GetDerivedParameters(&a[0]);
        fromValues->GetDerivedParameters(&b[0]);
        EXPECT_EQ(a[0], b[0]) << "derived parameter";

        // The catalogue figure itself, a sphere keeping inverse flattening 0.
        CGxEllipsoid out;
        ASSERT_TRUE(grid->GetAnonymousEllipsoid(out));
        EXPECT_EQ(out.GetMajor(), figure.GetMajor());
        EXPECT_DOUBLE_EQ(out.GetInvFlatness(), figure.GetInvFlatness());

        for (const GxReferencePoint& p : row.forward)
            GxExpectForward(*grid, p, row.tolerance.forward);
        for (const GxReferencePoint& p : row.inverse)
            GxExpectInverse(*grid, p, row.tolerance.inverse);
    }
}

// Without a known ellipsoid nothing is guessed (the look-up is exact: "we" is
// not WGS 84). The copy of such a grid must not reach for formulas it lacks.
TEST(FromDefinition, UnknownOrEmptyEllipsoidHasNoFigure) {
    for (const Row& row : kRows) {
        for (const char* id : {"NOT-IN-CATALOGUE", "", "we"}) {
            SCOPED_TRACE(testing::Message() << row.name << ", ellipsoid '" << id << "'");
            const Definition def = MakeDefinition(row.type, "Somewhere", id, row.params);
            ASSERT_TRUE(def);
            const Grid grid = row.Build(*def);
            ASSERT_TRUE(grid);
            const Grid clone(grid->Clone());
            for (const Grid* g : {&grid, &clone}) {
                EXPECT_STREQ((*g)->GetName(), "Somewhere");
                EXPECT_FALSE((*g)->IsLocal());
                ExpectNoFigure(row, **g);
            }
        }
    }
}

// A definition without a name gives the local grid "NON-UTM", which needs
// neither parameters nor a figure; so does no definition at all.
TEST(FromDefinition, NoNameOrNoDefinitionIsTheLocalGrid) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        for (const char* id : {row.ellipsoid, "", "NOT-IN-CATALOGUE"}) {
            SCOPED_TRACE(testing::Message() << "ellipsoid '" << id << "'");
            const Definition def = MakeDefinition(row.type, "", id, row.params);
            ASSERT_TRUE(def);
            const Grid grid = row.Build(*def);
            ASSERT_TRUE(grid);
            ExpectLocalGrid(*grid);
        }
        ExpectLocalGrid(*row.by.ownConstructor(nullptr));
    }
}

// A name longer than the grid's name buffer is cut to 255 characters, also
// when the polar wrapper hands it on to its inner grid, which still converts.
TEST(FromDefinition, LongNameIsTruncated) {
    const std::string longName(300, 'P');
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const Definition def = MakeDefinition(row.type, longName, row.ellipsoid, row.params);
        ASSERT_TRUE(def);
        const Grid grid = row.Build(*def);
        ASSERT_TRUE(grid);
        EXPECT_EQ(std::string(grid->GetName()), longName.substr(0, 255));
        EXPECT_FALSE(grid->IsLocal());
        GxExpectForward(*grid, row.forward.front(), row.tolerance.forward);
    }
}

// What the algorithm base gives every type built from values: the local grid
// for "NON-UTM" and an empty name; a name cut to 255 characters; a copy that outlives its original
// and converts, derives and names as the original did; the figure handed out into an ellipsoid
// whose names are kept, a sphere (inverse flattening 0, or a negative one) as inverse flattening 0;
// and no figure for a major axis not above 0 (the rotated grid hands out whatever it was given).
TEST(FromDefinition, EveryTypeHasTheBaseMembers) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const CGxEllipsoid& figure = SystemEllipsoid(row.ellipsoid);
        const Grid reference = row.by.fromValues(row.name, row.params, figure);
        for (const char* name : {"NON-UTM", ""}) {
            const Grid local = row.by.fromValues(name, row.params, figure);
            ExpectLocalGrid(*local);
            EXPECT_EQ(local->IsGeographical(), reference->IsGeographical());
        }
        const std::string longName(300, 'V');
        EXPECT_EQ(row.by.fromValues(longName.c_str(), row.params, figure)->GetName(),
                  longName.substr(0, 255));

        Grid original = row.by.fromValues(row.name, row.params, figure);
        const Grid clone(original->Clone());
        original.reset();
        EXPECT_EQ(typeid(*clone), typeid(*reference));
        EXPECT_STREQ(clone->GetName(), row.name);
        EXPECT_FALSE(clone->IsLocal());
        const GxReferencePoint& around = row.forward.front();
        for (double d : {-1.0, 0.0, 2.5})
            ExpectSameConversionAt(*clone, *reference, around.lon + d, around.lat + d);
        double derived[2] = {-7, -7};
        clone->GetDerivedParameters(&derived[0]);
        reference->GetDerivedParameters(&derived[1]);
        EXPECT_EQ(derived[0], derived[1]);

        CGxEllipsoid out("Kept", "KP", 1, 2);
        ASSERT_TRUE(clone->GetAnonymousEllipsoid(out));
        EXPECT_EQ(out.GetName(), "Kept");
        EXPECT_EQ(out.GetID(), "KP");
        EXPECT_EQ(out.GetMajor(), figure.GetMajor());
        EXPECT_DOUBLE_EQ(out.GetInvFlatness(), figure.GetInvFlatness());
        for (double inverseFlattening : {0.0, -1.0}) {
            const CGxEllipsoid sphere("Sphere", "SP", 6371000.0, inverseFlattening);
            ASSERT_TRUE(row.by.fromValues("S", row.params, sphere)->GetAnonymousEllipsoid(out));
            EXPECT_EQ(out.GetMajor(), 6371000.0);
            EXPECT_EQ(out.GetInvFlatness(), 0.0) << inverseFlattening;
        }
        if (row.noFigure == NoFigure::eNaNFigure) continue;
        for (double major : {0.0, -1.0}) {
            const CGxEllipsoid none("None", "NO", major, 300.0);
            out.SetParams(1, 2);
            EXPECT_FALSE(row.by.fromValues("N", row.params, none)->GetAnonymousEllipsoid(out));
            EXPECT_EQ(out.GetMajor(), 1.0);
            EXPECT_EQ(out.GetInvFlatness(), 2.0);
        }
    }
}

// The type's default definition builds its grid on its default ellipsoid,
// not editable as it is: the national New Zealand grid, and the Transverse
// Mercator of the Greenwich meridian on WGS 84
// (cct -d 6 +proj=tmerc +lon_0=0 +k=0.9996 +x_0=500000 +ellps=WGS84).
TEST(FromDefinition, DefaultDefinitionsBuildTheirGrids) {
    const struct {
        Type type;
        const char* name;
        GxReferencePoint point;
        double tolerance;
    } cases[] = {
        {CGxMapProjData::eNewZealandMapGrid, "Default New Zealang Map Grid", kNzmgPoint.front(),
         kConformal.forward},
        {CGxMapProjData::eTransverseMercator,
         "Default Transverse Mercator",
         {3, 50, 714984.236735, 5542944.018649},
         kTransverseMercator.forward},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Definition def(CGxMapProjData::CreateDefaultParameterProjection(c.type));
        ASSERT_TRUE(def);
        const Grid grid(def->CreateProjection());
        ASSERT_TRUE(grid);
        EXPECT_STREQ(grid->GetName(), c.name);
        GxExpectForward(*grid, c.point, c.tolerance);
    }
}

// Degrees become radians as (deg pi) / 180 and come back as (rad 180) / pi in
// the Lambert grids. For this origin the round trip gives back the
// definition's very numbers, and the convergence on the central meridian is
// exactly 0; the rounded factor pi / 180 would move both origin values by a
// unit in the last place and leave a convergence of the order of 1e-14
// degrees.
TEST(FromDefinition, LambertOriginReadsBackExactly) {
    const Definition two = MakeDefinition(CGxMapProjData::eLambert2SP, "Texas", "CC",
                                          {30.5, 35.25, -100.5, 29, 700000, 3000000});
    const Definition one = MakeDefinition(CGxMapProjData::eLambert1SP, "Texas 1SP", "CC",
                                          {0.9999, -100.5, 29, 700000, 3000000});
    for (const Definition* def : {&two, &one}) {
        ASSERT_TRUE(*def);
        SCOPED_TRACE((*def)->GetName());
        const Grid grid((*def)->CreateProjection());
        ASSERT_TRUE(grid);
        double lon, lat;
        grid->GetOrigin(&lon, &lat);
        EXPECT_EQ(lon, -100.5);
        EXPECT_EQ(lat, 29.0);
        EXPECT_EQ(grid->GetConvergence(-100.5, 35), 0.0);
    }
}

// The rotated grid carries the definition's rotation angle but does not apply
// it: the grid still meets the reference of angle 0.
TEST(FromDefinition, RotationAngleIsCarriedButNotApplied) {
    const Definition def =
        MakeDefinition(CGxMapProjData::eRotatedLongitudeLatitude, "Turned", "XY", {18, -39.25, 30});
    ASSERT_TRUE(def);
    const Grid turned(def->CreateProjection());
    ASSERT_TRUE(turned);
    EXPECT_EQ(static_cast<CGxRotatedLongitudeLatitude&>(*turned).GetRotationAngle(), 30.0);
    for (const GxReferencePoint& p : kRotatedSphere) GxExpectForward(*turned, p, kAngles.forward);
}
