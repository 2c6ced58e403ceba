// The definition family without files: the default definition of every type
// with its labels and kinds, the factory and its rejections, the list
// positions, the classes of IsEquivalent, section names, the editable flag and
// the wiring of the named accessors to the labelled parameters.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "definitions/AlbersEqualAreaProjection.h"
#include "definitions/CassiniSoldnerProjection.h"
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
#include "tests/support/DefinitionValues.h"

namespace {

using D = CGxMapProjData;
using Definition = std::unique_ptr<CGxMapProjData>;

constexpr D::EParamType S = D::eScale;
constexpr D::EParamType L = D::eLength;
constexpr D::EParamType A = D::eAngle;

struct ExpectedParam {
    const char* label;
    D::EParamType kind;
    double defaultValue;
};

struct ExpectedType {
    D::EProjectionType type;
    const char* defaultName;
    const char* defaultEllipsoid;
    const char* title;
    const char* section;
    std::vector<ExpectedParam> params;
};

// The published face of every type: default name and ellipsoid, title,
// section name, and each parameter's label, kind and default value. Written
// out by hand, letter for letter, so that a slip in the library's tables shows:
// the misspelt New Zealand name, the Mercator 1SP scale of 0, the equidistant
// conic false easting of 0 and the capital M of "Central Meridian:" in three
// types are all as users and catalogue files know them.
// clang-format off
const std::vector<ExpectedType> kTypes = {
    {D::eTransverseMercator, "Default Transverse Mercator", "WE",
     "Transverse mercator", "UTM_PROJECTION",
     {{"Scale:", S, 0.9996}, {"Central meridian:", A, 0}, {"Latitude origin:", A, 0},
      {"False easting:", L, 500000}, {"False northing:", L, 0}}},
    {D::eLambert2SP, "Default Lambert 2SP", "WE",
     "Lambert conformal conic with 2 standard parallels", "LAMBERT_CONIC_2SP_PROJECTION",
     {{"First parallel:", A, 5}, {"Second parallel:", A, 10}, {"Longitude origin:", A, 0},
      {"Latitude origin:", A, 0}, {"False easting:", L, 500000}, {"False northing:", L, 0}}},
    {D::eLambert1SP, "Default Lambert 1SP", "WE",
     "Lambert conformal conic with 1 standard parallel", "LAMBERT_CONIC_1SP_PROJECTION",
     {{"Scale:", S, 0.9996}, {"Central meridian:", A, 0}, {"Latitude origin:", A, 0},
      {"False easting:", L, 500000}, {"False northing:", L, 0}}},
    {D::eStereographic, "Default Stereographic", "WE", "Stereographic", "STEREOGRAPHIC_PROJECTION",
     {{"Scale:", S, 1}, {"Central meridian:", A, 0}, {"Latitude origin:", A, 0},
      {"False easting:", L, 500000}, {"False northing:", L, 0}}},
    {D::eNewZealandMapGrid, "Default New Zealang Map Grid", "IN",
     "New Zealand map grid", "NEW_ZEALAND_MAP_GRID_PROJECTION",
     {{"Longitude origin:", A, 173}, {"Latitude origin:", A, -41}, {"False easting:", L, 2510000},
      {"False northing:", L, 6023150}}},
    {D::eHotineObliqueMercator, "Default Hotine Oblique Mercator", "RF",
     "Hotine oblique mercator", "HOTINE_OBLIQUE_MERCATOR_PROJECTION",
     {{"Scale:", S, 0.9996}, {"Longitude of center:", A, 0}, {"Latitude of center:", A, 0},
      {"Azimuth:", A, 0}, {"False easting:", L, 500000}, {"False northing:", L, 0}}},
    {D::eObliqueMercator, "Default Oblique Mercator", "BR",
     "Oblique mercator", "OBLIQUE_MERCATOR_PROJECTION",
     {{"Scale:", S, 0.9996}, {"Longitude of center:", A, 0}, {"Latitude of center:", A, 0},
      {"Azimuth:", A, 0}, {"False easting:", L, 500000}, {"False northing:", L, 0}}},
    {D::eRectifiedSkewOrthomorphic, "Default Rectified Skew Orthomorphic", "EB",
     "Rectified skew orthomorphic", "RECTIFIED_SKEW_ORTHOMORPHIC_PROJECTION",
     {{"Scale:", S, 0.9996}, {"Longitude of center:", A, 0}, {"Latitude of center:", A, 0},
      {"Azimuth:", A, 0}, {"XY plane rotation:", A, 0}, {"False easting:", L, 500000},
      {"False northing:", L, 0}}},
    {D::eRotatedLongitudeLatitude, "Default Rotated Longitude/Latitude", "XY",
     "Rotated longitude/latitude", "ROTATED_LONGITUDE_LATITUDE_PROJECTION",
     {{"Longitude of south pole:", A, 0}, {"Latitude of south pole:", A, 0},
      {"Angle of rotation:", A, 0}}},
    {D::eMercator2SP, "Default Mercator 2SP", "WE",
     "Mercator with 2 standard parallels", "MERCATOR_2SP_PROJECTION",
     {{"First parallel:", A, 0}, {"Central meridian:", A, 0}, {"False easting:", L, 0},
      {"False northing:", L, 0}}},
    {D::eMercator1SP, "Default Mercator 1SP", "WE",
     "Mercator with 1 standard parallel", "MERCATOR_1SP_PROJECTION",
     {{"Scale:", S, 0}, {"Central meridian:", A, 0}, {"False easting:", L, 0},
      {"False northing:", L, 0}}},
    {D::eStereographicNorthPole, "Default Stereographic North Pole", "WE",
     "Stereographic north pole", "STEREOGRAPHIC_NORTH_POLE_PROJECTION",
     {{"First parallel:", A, 60}, {"Central meridian:", A, 0}, {"False easting:", L, 0},
      {"False northing:", L, 0}}},
    {D::eStereographicSouthPole, "Default Stereographic South Pole", "WE",
     "Stereographic south pole", "STEREOGRAPHIC_SOUTH_POLE_PROJECTION",
     {{"First parallel:", A, -60}, {"Central meridian:", A, 0}, {"False easting:", L, 0},
      {"False northing:", L, 0}}},
    {D::eGeographical, "Default Geographical", "WE", "Geographical", "GEOGRAPHICAL_PROJECTION", {}},
    {D::eKrovak, "Default Krovak Oblique Conformal Conic", "BR",
     "Krovak oblique conformal conic", "KROVAK_OBLIQUE_CONFORMAL_CONIC",
     {{"Scale at pseudo parallel:", S, 0.9999}, {"Pseudo parallel:", A, 0},
      {"Longitude of center:", A, 0}, {"Latitude of center:", A, 0}, {"Azimuth:", A, 0},
      {"XY plane rotation:", A, 0}, {"X scale:", S, 1}, {"Y scale:", S, 1},
      {"False easting:", L, 500000}, {"False northing:", L, 0}}},
    {D::eAlbersEqualArea, "Default Albers Equal Area", "WE",
     "Albers equal area", "ALBERS_EQUAL_AREA_PROJECTION",
     {{"First parallel:", A, 5}, {"Second parallel:", A, 10}, {"Central Meridian:", A, 0},
      {"Latitude origin:", A, 0}, {"False easting:", L, 500000}, {"False northing:", L, 0}}},
    {D::eLambertAzimuthalEqualArea, "Default Lambert Azimuthal Equal Area", "WE",
     "Lambert azimuthal equal area", "LAMBERT_AZIMUTHAL_EQUAL_AREA_PROJECTION",
     {{"Central meridian:", A, 0}, {"Latitude origin:", A, 0}, {"False easting:", L, 500000},
      {"False northing:", L, 0}}},
    {D::eCassiniSoldner, "Default Cassini-Soldner", "WE",
     "Cassini-Soldner", "CASSINI_SOLDNER_PROJECTION",
     {{"Central Meridian:", A, 0}, {"Latitude origin:", A, 0}, {"False easting:", L, 0},
      {"False northing:", L, 0}}},
    {D::eEquidistantConic, "Default Equidistant Conic", "WE",
     "Equidistant conic", "EQUIDISTANT_CONIC_PROJECTION",
     {{"First parallel:", A, 5}, {"Second parallel:", A, 10}, {"Central Meridian:", A, 0},
      {"Latitude origin:", A, 0}, {"False easting:", L, 0}, {"False northing:", L, 0}}},
    {D::ePolarStereographic, "Default Polar Stereographic", "WE",
     "Polar stereographic", "POLAR_STEREOGRAPHIC_PROJECTION",
     {{"Scale:", S, 1}, {"Central meridian:", A, 0}, {"Latitude origin:", A, 0},
      {"False easting:", L, 500000}, {"False northing:", L, 0}}},
};
// clang-format on

TEST(MapProjDataFactory, DefaultDefinitionOfEveryType) {
    ASSERT_EQ(kTypes.size(), 20u);
    for (const ExpectedType& t : kTypes) {
        SCOPED_TRACE(t.defaultName);
        Definition d(D::CreateDefaultParameterProjection(t.type));
        ASSERT_NE(d, nullptr);
        EXPECT_EQ(d->GetProjectionType(), t.type);
        EXPECT_EQ(d->GetName(), t.defaultName);
        EXPECT_EQ(d->GetEllipsoidID(), t.defaultEllipsoid);
        EXPECT_EQ(d->GetBranchName(), "");
        EXPECT_EQ(d->GetProjectionTypeTitle(), t.title);
        EXPECT_TRUE(d->IsSectionID(t.section));
        EXPECT_FALSE(d->CanEdit());
        EXPECT_FALSE(d->CanDelete());
        ASSERT_EQ(d->GetNoOfParameters(), static_cast<int>(t.params.size()));
        for (int i = 0; i < d->GetNoOfParameters(); ++i) {
            std::string label;
            double value = -1;
            D::EParamType kind = D::eScale;
            ASSERT_TRUE(d->GetParameter(i, label, value, kind)) << i;
            EXPECT_EQ(label, t.params[i].label) << i;
            EXPECT_EQ(kind, t.params[i].kind) << i;
            EXPECT_EQ(value, t.params[i].defaultValue) << i;
        }
    }
}

TEST(MapProjDataFactory, ParameterIndexOutOfRangeLeavesOutputsAlone) {
    Definition lambert(D::CreateDefaultParameterProjection(D::eLambert2SP));
    Definition geographical(D::CreateDefaultParameterProjection(D::eGeographical));
    for (auto [d, index] : {std::pair{lambert.get(), 6}, std::pair{lambert.get(), -1},
                            std::pair{geographical.get(), 0}, std::pair{lambert.get(), 1 << 30}}) {
        std::string label = "untouched";
        double value = 7.5;
        D::EParamType kind = D::eLength;
        EXPECT_FALSE(d->GetParameter(index, label, value, kind)) << index;
        EXPECT_EQ(label, "untouched");
        EXPECT_EQ(value, 7.5);
        EXPECT_EQ(kind, D::eLength);
    }
}

TEST(MapProjDataFactory, CreatesEditableDefinitionFromValues) {
    for (const ExpectedType& t : kTypes) {
        SCOPED_TRACE(t.defaultName);
        double values[10];
        for (int i = 0; i < 10; ++i) values[i] = 1.0 / 3.0 + i * 1000.25;
        // The geographical type reads no array at all, so null is fine there.
        double* params = t.type == D::eGeographical ? nullptr : values;
        Definition d(D::CreateProjection(t.type, "My system", "My branch", "RF", params));
        ASSERT_NE(d, nullptr);
        EXPECT_EQ(d->GetProjectionType(), t.type);
        EXPECT_EQ(d->GetName(), "My system");
        EXPECT_EQ(d->GetBranchName(), "My branch");
        EXPECT_EQ(d->GetEllipsoidID(), "RF");
        EXPECT_TRUE(d->CanEdit());
        EXPECT_TRUE(d->CanDelete());
        EXPECT_EQ(GxParameterValues(*d),
                  std::vector<double>(values, values + d->GetNoOfParameters()));
    }
    // A null array where values are expected stands for all zeros.
    Definition zeros(D::CreateProjection(D::eKrovak, "n", "b", "e", nullptr));
    ASSERT_NE(zeros, nullptr);
    EXPECT_EQ(GxParameterValues(*zeros), std::vector<double>(10, 0.0));
}

TEST(MapProjDataFactory, TypesWithoutClassGiveNull) {
    double params[10] = {};
    for (int type : {0, -1, 21, 22, 24, 1000, -2147483647 - 1}) {
        EXPECT_EQ(
            D::CreateProjection(static_cast<D::EProjectionType>(type), "n", "b", "WE", params),
            nullptr)
            << type;
        EXPECT_EQ(D::CreateDefaultParameterProjection(static_cast<D::EProjectionType>(type)),
                  nullptr)
            << type;
    }
}

TEST(MapProjDataFactory, ListPositionsAndTypes) {
    EXPECT_EQ(D::GetNoOfProjections(), 20);
    EXPECT_EQ(D::Enum2ProjectionType(0), D::eTransverseMercator);
    EXPECT_EQ(D::Enum2ProjectionType(19), D::ePolarStereographic);
    EXPECT_EQ(D::ProjectionType2Enum(D::ePolarStereographic), 19);
    EXPECT_EQ(D::ProjectionType2Enum(D::eTransverseMercator), 0);
    // No range check: positions outside the list map straight through.
    EXPECT_EQ(D::Enum2ProjectionType(20), D::eNonProjected);
    EXPECT_EQ(D::ProjectionType2Enum(D::eInvalidProjection), 21);
    // A selection list of types built by position holds every type once, in
    // enumeration order.
    for (int pos = 0; pos < D::GetNoOfProjections(); ++pos) {
        Definition d(D::CreateDefaultParameterProjection(D::Enum2ProjectionType(pos)));
        ASSERT_NE(d, nullptr) << pos;
        EXPECT_EQ(D::ProjectionType2Enum(d->GetProjectionType()), pos);
    }
}

TEST(MapProjDataFactory, IsEquivalentSplitsGeographicFromProjected) {
    EXPECT_FALSE(D::IsEquivalent(1, D::eGeographical));
    EXPECT_TRUE(D::IsEquivalent(2, D::eGeographical));
    EXPECT_TRUE(D::IsEquivalent(2, D::eRotatedLongitudeLatitude));
    EXPECT_FALSE(D::IsEquivalent(1, D::eRotatedLongitudeLatitude));
    EXPECT_TRUE(D::IsEquivalent(1, D::eLambert2SP));
    EXPECT_FALSE(D::IsEquivalent(2, D::eLambert2SP));
    EXPECT_TRUE(D::IsEquivalent(3, D::ePolarStereographic));
    EXPECT_FALSE(D::IsEquivalent(0, D::eTransverseMercator));
    // Neither a plane system without ellipsoid nor an unusable text is
    // offered, whatever the flags.
    EXPECT_FALSE(D::IsEquivalent(3, D::eNonProjected));
    EXPECT_FALSE(D::IsEquivalent(-1, D::eInvalidProjection));
    // Higher bits do not widen the choice.
    EXPECT_FALSE(D::IsEquivalent(4 | 8, D::eLambert2SP));
}

// Each type accepts its own section name and no other (the one exception is
// the old Mercator section name), compared exactly.
TEST(MapProjDataSections, EachTypeAcceptsOnlyItsOwnSection) {
    for (const ExpectedType& reader : kTypes) {
        Definition d(D::CreateDefaultParameterProjection(reader.type));
        for (const ExpectedType& other : kTypes)
            EXPECT_EQ(d->IsSectionID(other.section), reader.type == other.type)
                << reader.section << " asked about " << other.section;
        EXPECT_EQ(d->IsSectionID("MERCATOR_PROJECTION"), reader.type == D::eMercator2SP)
            << reader.section;
        std::string lower = reader.section;
        for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        EXPECT_FALSE(d->IsSectionID(lower));
        EXPECT_FALSE(d->IsSectionID(std::string(reader.section) + " "));
        EXPECT_FALSE(d->IsSectionID(""));
    }
}

TEST(MapProjDataEditing, NonEditableDefinitionIgnoresSettersButNotBranchOrParameters) {
    CGxLambert2SPProjection d("Fixed", "Branch", "WE", 1, 2, 3, 4, 5, 6);
    ASSERT_FALSE(d.CanEdit());
    d.SetName("Changed");
    d.SetEllipsoidID("RF");
    d.SetParallel1(40);
    d.SetFalseNorthing(99);
    EXPECT_EQ(d.GetName(), "Fixed");
    EXPECT_EQ(d.GetEllipsoidID(), "WE");
    EXPECT_EQ(d.GetParallel1(), 1);
    EXPECT_EQ(d.GetFalseNorthing(), 6);

    // The catalogue files its own fixed entries under a branch and fills them
    // with values, so these two always apply.
    d.SetBranchName("Other branch");
    double values[6] = {10, 20, 30, 40, 50, 60};
    d.SetParameters(values);
    EXPECT_EQ(d.GetBranchName(), "Other branch");
    EXPECT_EQ(d.GetParallel1(), 10);
    EXPECT_EQ(d.GetFalseNorthing(), 60);
    d.SetParameters(nullptr);
    EXPECT_EQ(d.GetParallel2(), 20);

    // SetName on a default definition leaves its name.
    Definition fixed(D::CreateDefaultParameterProjection(D::eTransverseMercator));
    fixed->SetName("Renamed");
    EXPECT_EQ(fixed->GetName(), "Default Transverse Mercator");

    CGxLambert2SPProjection editable("Mine", "Branch", "WE", 1, 2, 3, 4, 5, 6, false, true);
    editable.SetName("Renamed");
    editable.SetEllipsoidID("RF");
    editable.SetOriginLatitude(-33.5);
    EXPECT_EQ(editable.GetName(), "Renamed");
    EXPECT_EQ(editable.GetEllipsoidID(), "RF");
    EXPECT_EQ(editable.GetOriginLatitude(), -33.5);
    EXPECT_FALSE(editable.CanDelete());
}

TEST(MapProjDataEditing, ConstructorFormsAndCopiesKeepEveryField) {
    // The catalogue's plane placeholder: a name alone, everything else empty.
    CGxTransverseMercatorProjection placeholder("NON-UTM");
    EXPECT_EQ(placeholder.GetName(), "NON-UTM");
    EXPECT_EQ(placeholder.GetBranchName(), "");
    EXPECT_EQ(placeholder.GetEllipsoidID(), "");
    EXPECT_EQ(placeholder.GetScale(), 0);
    EXPECT_EQ(placeholder.GetFalseEasting(), 0);
    EXPECT_FALSE(placeholder.CanEdit());
    CGxGeographicalProjection empty;
    EXPECT_EQ(empty.GetName(), "");
    EXPECT_EQ(empty.GetProjectionType(), D::eGeographical);

    // Assignment takes the flags too: the formerly editable object is now
    // fixed and ignores a new name.
    CGxAlbersEqualAreaProjection source("Albers", "America", "RF", 29.5, 45.5, -96, 23, 1, 2, true,
                                        false);
    CGxAlbersEqualAreaProjection assigned("Other", "b", "WE", 0, 0, 0, 0, 0, 0, false, true);
    assigned = source;
    assigned.SetName("Try");
    for (const CGxAlbersEqualAreaProjection& d : {CGxAlbersEqualAreaProjection(source), assigned}) {
        EXPECT_EQ(d.GetName() + d.GetBranchName() + d.GetEllipsoidID(), "AlbersAmericaRF");
        EXPECT_EQ(GxParameterValues(d), (std::vector<double>{29.5, 45.5, -96, 23, 1, 2}));
        EXPECT_TRUE(d.CanDelete());
        EXPECT_FALSE(d.CanEdit());
    }
}

template <class T>
struct Accessor {
    double (T::*get)() const;
    void (T::*set)(double);
};

// definition was built editable with the values 1, 2, ..., n in constructor
// order. Each named getter must show its own constructor argument at its own
// index of the labelled access, and each named setter must write that index.
template <class T>
void ExpectAccessorsFollowIndexOrder(T definition, const std::vector<Accessor<T>>& accessors) {
    ASSERT_EQ(definition.GetNoOfParameters(), static_cast<int>(accessors.size()));
    for (std::size_t i = 0; i < accessors.size(); ++i)
        EXPECT_EQ((definition.*accessors[i].get)(), i + 1.0) << "getter " << i;
    for (std::size_t i = 0; i < accessors.size(); ++i) (definition.*accessors[i].set)(100.0 + i);
    const std::vector<double> values = GxParameterValues(definition);
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], 100.0 + i) << "setter " << i;
}

TEST(MapProjDataAccessors, NamedAccessorsFollowIndexOrder) {
    // clang-format off
    using TM = CGxTransverseMercatorProjection;
    ExpectAccessorsFollowIndexOrder<TM>(TM("n", "b", "e", 1, 2, 3, 4, 5, false, true), {
        {&TM::GetScale, &TM::SetScale}, {&TM::GetCentre, &TM::SetCentre},
        {&TM::GetOriginLatitude, &TM::SetOriginLatitude},
        {&TM::GetFalseEasting, &TM::SetFalseEasting},
        {&TM::GetFalseNorthing, &TM::SetFalseNorthing}});
    using L2 = CGxLambert2SPProjection;
    ExpectAccessorsFollowIndexOrder<L2>(L2("n", "b", "e", 1, 2, 3, 4, 5, 6, false, true), {
        {&L2::GetParallel1, &L2::SetParallel1}, {&L2::GetParallel2, &L2::SetParallel2},
        {&L2::GetOriginLongitude, &L2::SetOriginLongitude},
        {&L2::GetOriginLatitude, &L2::SetOriginLatitude},
        {&L2::GetFalseEasting, &L2::SetFalseEasting},
        {&L2::GetFalseNorthing, &L2::SetFalseNorthing}});
    using L1 = CGxLambert1SPProjection;
    ExpectAccessorsFollowIndexOrder<L1>(L1("n", "b", "e", 1, 2, 3, 4, 5, false, true), {
        {&L1::GetScale, &L1::SetScale}, {&L1::GetOriginLongitude, &L1::SetOriginLongitude},
        {&L1::GetOriginLatitude, &L1::SetOriginLatitude},
        {&L1::GetFalseEasting, &L1::SetFalseEasting},
        {&L1::GetFalseNorthing, &L1::SetFalseNorthing}});
    using ST = CGxStereographicProjection;
    ExpectAccessorsFollowIndexOrder<ST>(ST("n", "b", "e", 1, 2, 3, 4, 5, false, true), {
        {&ST::GetScale, &ST::SetScale}, {&ST::GetCentre, &ST::SetCentre},
        {&ST::GetOriginLatitude, &ST::SetOriginLatitude},
        {&ST::GetFalseEasting, &ST::SetFalseEasting},
        {&ST::GetFalseNorthing, &ST::SetFalseNorthing}});
    using NZ = CGxNewZealandMapGridProjection;
    ExpectAccessorsFollowIndexOrder<NZ>(NZ("n", "b", "e", 1, 2, 3, 4, false, true), {
        {&NZ::GetOriginLongitude, &NZ::SetOriginLongitude},
        {&NZ::GetOriginLatitude, &NZ::SetOriginLatitude},
        {&NZ::GetFalseEasting, &NZ::SetFalseEasting},
        {&NZ::GetFalseNorthing, &NZ::SetFalseNorthing}});
    using HO = CGxHotineObliqueMercatorProjection;
    ExpectAccessorsFollowIndexOrder<HO>(HO("n", "b", "e", 1, 2, 3, 4, 5, 6, false, true), {
        {&HO::GetScale, &HO::SetScale}, {&HO::GetCenterLongitude, &HO::SetCenterLongitude},
        {&HO::GetCenterLatitude, &HO::SetCenterLatitude}, {&HO::GetAzimuth, &HO::SetAzimuth},
        {&HO::GetFalseEasting, &HO::SetFalseEasting},
        {&HO::GetFalseNorthing, &HO::SetFalseNorthing}});
    using OM = CGxObliqueMercatorProjection;
    ExpectAccessorsFollowIndexOrder<OM>(OM("n", "b", "e", 1, 2, 3, 4, 5, 6, false, true), {
        {&OM::GetScale, &OM::SetScale}, {&OM::GetCenterLongitude, &OM::SetCenterLongitude},
        {&OM::GetCenterLatitude, &OM::SetCenterLatitude}, {&OM::GetAzimuth, &OM::SetAzimuth},
        {&OM::GetFalseEasting, &OM::SetFalseEasting},
        {&OM::GetFalseNorthing, &OM::SetFalseNorthing}});
    using RS = CGxRectifiedSkewOrthomorphicProjection;
    ExpectAccessorsFollowIndexOrder<RS>(RS("n", "b", "e", 1, 2, 3, 4, 5, 6, 7, false, true), {
        {&RS::GetScale, &RS::SetScale}, {&RS::GetCenterLongitude, &RS::SetCenterLongitude},
        {&RS::GetCenterLatitude, &RS::SetCenterLatitude}, {&RS::GetAzimuth, &RS::SetAzimuth},
        {&RS::GetXYPlaneRotation, &RS::SetXYPlaneRotation},
        {&RS::GetFalseEasting, &RS::SetFalseEasting},
        {&RS::GetFalseNorthing, &RS::SetFalseNorthing}});
    using RL = CGxRotatedLongitudeLatitudeProjection;
    ExpectAccessorsFollowIndexOrder<RL>(RL("n", "b", "e", 1, 2, 3, false, true), {
        {&RL::GetSouthPoleLongitude, &RL::SetSouthPoleLongitude},
        {&RL::GetSouthPoleLatitude, &RL::SetSouthPoleLatitude},
        {&RL::GetRotationAngle, &RL::SetRotationAngle}});
    using M2 = CGxMercator2SPProjection;
    ExpectAccessorsFollowIndexOrder<M2>(M2("n", "b", "e", 1, 2, 3, 4, false, true), {
        {&M2::GetParallel1, &M2::SetParallel1}, {&M2::GetCentre, &M2::SetCentre},
        {&M2::GetFalseEasting, &M2::SetFalseEasting},
        {&M2::GetFalseNorthing, &M2::SetFalseNorthing}});
    using M1 = CGxMercator1SPProjection;
    ExpectAccessorsFollowIndexOrder<M1>(M1("n", "b", "e", 1, 2, 3, 4, false, true), {
        {&M1::GetScale, &M1::SetScale}, {&M1::GetCentre, &M1::SetCentre},
        {&M1::GetFalseEasting, &M1::SetFalseEasting},
        {&M1::GetFalseNorthing, &M1::SetFalseNorthing}});
    using SN = CGxStereographicNorthPoleProjection;
    ExpectAccessorsFollowIndexOrder<SN>(SN("n", "b", "e", 1, 2, 3, 4, false, true), {
        {&SN::GetParallel1, &SN::SetParallel1}, {&SN::GetCentre, &SN::SetCentre},
        {&SN::GetFalseEasting, &SN::SetFalseEasting},
        {&SN::GetFalseNorthing, &SN::SetFalseNorthing}});
    using SS = CGxStereographicSouthPoleProjection;
    ExpectAccessorsFollowIndexOrder<SS>(SS("n", "b", "e", 1, 2, 3, 4, false, true), {
        {&SS::GetParallel1, &SS::SetParallel1}, {&SS::GetCentre, &SS::SetCentre},
        {&SS::GetFalseEasting, &SS::SetFalseEasting},
        {&SS::GetFalseNorthing, &SS::SetFalseNorthing}});
    using KR = CGxKrovakProjection;
    ExpectAccessorsFollowIndexOrder<KR>(KR("n", "b", "e", 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, false, true), {
        {&KR::GetScaleAtPseudoParallel, &KR::SetScaleAtPseudoParallel},
        {&KR::GetPseudoParallel, &KR::SetPseudoParallel},
        {&KR::GetCenterLongitude, &KR::SetCenterLongitude},
        {&KR::GetCenterLatitude, &KR::SetCenterLatitude}, {&KR::GetAzimuth, &KR::SetAzimuth},
        {&KR::GetXYPlaneRotation, &KR::SetXYPlaneRotation}, {&KR::GetXScale, &KR::SetXScale},
        {&KR::GetYScale, &KR::SetYScale}, {&KR::GetFalseEasting, &KR::SetFalseEasting},
        {&KR::GetFalseNorthing, &KR::SetFalseNorthing}});
    using AL = CGxAlbersEqualAreaProjection;
    ExpectAccessorsFollowIndexOrder<AL>(AL("n", "b", "e", 1, 2, 3, 4, 5, 6, false, true), {
        {&AL::GetParallel1, &AL::SetParallel1}, {&AL::GetParallel2, &AL::SetParallel2},
        {&AL::GetCentralMeridian, &AL::SetCentralMeridian},
        {&AL::GetOriginLatitude, &AL::SetOriginLatitude},
        {&AL::GetFalseEasting, &AL::SetFalseEasting},
        {&AL::GetFalseNorthing, &AL::SetFalseNorthing}});
    using LA = CGxLambertAzimuthalEqualAreaProjection;
    ExpectAccessorsFollowIndexOrder<LA>(LA("n", "b", "e", 1, 2, 3, 4, false, true), {
        {&LA::GetCentre, &LA::SetCentre}, {&LA::GetOriginLatitude, &LA::SetOriginLatitude},
        {&LA::GetFalseEasting, &LA::SetFalseEasting},
        {&LA::GetFalseNorthing, &LA::SetFalseNorthing}});
    using CS = CGxCassiniSoldnerProjection;
    ExpectAccessorsFollowIndexOrder<CS>(CS("n", "b", "e", 1, 2, 3, 4, false, true), {
        {&CS::GetCentralMeridian, &CS::SetCentralMeridian},
        {&CS::GetOriginLatitude, &CS::SetOriginLatitude},
        {&CS::GetFalseEasting, &CS::SetFalseEasting},
        {&CS::GetFalseNorthing, &CS::SetFalseNorthing}});
    using EC = CGxEquidistantConicProjection;
    ExpectAccessorsFollowIndexOrder<EC>(EC("n", "b", "e", 1, 2, 3, 4, 5, 6, false, true), {
        {&EC::GetParallel1, &EC::SetParallel1}, {&EC::GetParallel2, &EC::SetParallel2},
        {&EC::GetCentralMeridian, &EC::SetCentralMeridian},
        {&EC::GetOriginLatitude, &EC::SetOriginLatitude},
        {&EC::GetFalseEasting, &EC::SetFalseEasting},
        {&EC::GetFalseNorthing, &EC::SetFalseNorthing}});
    using PS = CGxPolarStereographicProjection;
    ExpectAccessorsFollowIndexOrder<PS>(PS("n", "b", "e", 1, 2, 3, 4, 5, false, true), {
        {&PS::GetScale, &PS::SetScale}, {&PS::GetCentre, &PS::SetCentre},
        {&PS::GetOriginLatitude, &PS::SetOriginLatitude},
        {&PS::GetFalseEasting, &PS::SetFalseEasting},
        {&PS::GetFalseNorthing, &PS::SetFalseNorthing}});
    // clang-format on
    CGxGeographicalProjection geographical("LONG/LAT", "Non UTM Projections", "WE", true, true);
    EXPECT_EQ(geographical.GetNoOfParameters(), 0);
    EXPECT_TRUE(geographical.CanDelete());
}

// The shared series reach the projections through the definition base with
// the type as the key. Meridian arc: the quarter meridian of WGS 84 from
//   echo "0 0 90 0" | GeodSolve -i -p 6   ->  s12 = 10001965.729313 m
// equals a * M1 * pi / 2; the third-order series in e^2 is good to a few
// tenths of a millimetre here.
TEST(MapProjDataSeries, MeridianArcCoefficientMatchesGeodesicQuarterMeridian) {
    const double a = 6378137.0;
    const double f = 1 / 298.257223563;
    const double e2 = f * (2 - f);
    double m[4] = {};
    D::ComputeFourierCoefficients(D::eCassiniSoldner, true, e2, m);
    EXPECT_NEAR(a * m[0] * 3.141592653589793 / 2, 10001965.729313, 1e-3);
    // The same type without the forward flag gives the footpoint series,
    // whose first term is 3n/2 with n the third flattening.
    double fp[4] = {};
    D::ComputeFourierCoefficients(D::eCassiniSoldner, false, e2, fp);
    const double n = f / (2 - f);
    EXPECT_NEAR(fp[0], 1.5 * n, 1e-8);
    // A null output is refused rather than written through.
    D::ComputeFourierCoefficients(D::eCassiniSoldner, true, e2, nullptr);
}

}  // namespace
