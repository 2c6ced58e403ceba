#pragma once

#include <string>
#include <vector>

#include "foundation/GxExport.h"

class CGxPRJParser;
class CGxProjection;

// Keywords of the keyword-file form of a projection definition. They are
// compile-time constants rather than strings built at load, so that catalogue
// files read while the library is being loaded never depend on the order in
// which static objects are initialised.
//
// On reading, three alternative forms are tried before the decimal keyword:
// "<keyword>_dms" for an angle written as degrees, minutes, seconds;
// "Feast_ft_us"/"Fnorth_ft_us" for a length in US survey feet; and
// "Scale_Reduction" for a scale written as the denominator N of 1:N.
class GXCART_API CGxMapProjDataIDs {
public:
    // The three strings of every definition.
    static constexpr const char ProjectionName[] = "Projection_Name";
    static constexpr const char BranchName[] = "Branch_Name";
    static constexpr const char Ellipsoid[] = "Ellipsoid";
    // The system's number in a public register, "EPSG:25832" (optional;
    // readers that do not know it skip it).
    static constexpr const char Code[] = "Code";

    // False origin, metres, or US survey feet in the _ft_us forms.
    static constexpr const char Feast[] = "Feast";
    static constexpr const char FeastFtUs[] = "Feast_ft_us";
    static constexpr const char Fnorth[] = "Fnorth";
    static constexpr const char FnorthFtUs[] = "Fnorth_ft_us";

    // Scale factors.
    static constexpr const char Scale[] = "Scale";
    static constexpr const char ScaleReduction[] = "Scale_Reduction";
    static constexpr const char ScaleAtPseudoParallel[] = "Scale_At_Pseudo_Parallel";
    static constexpr const char XScale[] = "X_Scale";
    static constexpr const char YScale[] = "Y_Scale";

    // Angles, decimal degrees, with their degrees-minutes-seconds forms.
    static constexpr const char Parallel1[] = "Parallel_1";
    static constexpr const char Parallel1Dms[] = "Parallel_1_dms";
    static constexpr const char Parallel2[] = "Parallel_2";
    static constexpr const char Parallel2Dms[] = "Parallel_2_dms";
    static constexpr const char Centre[] = "Centre";
    static constexpr const char CentreDms[] = "Centre_dms";
    static constexpr const char CentralMeridian[] = "Central_Meridian";
    static constexpr const char CentralMeridianDms[] = "Central_Meridian_dms";
    static constexpr const char OriginLongitude[] = "Origin_Longitude";
    static constexpr const char OriginLongitudeDms[] = "Origin_Longitude_dms";
    static constexpr const char OriginLatitude[] = "Origin_Latitude";
    static constexpr const char OriginLatitudeDms[] = "Origin_Latitude_dms";
    static constexpr const char CenterLongitude[] = "Center_Longitude";
    static constexpr const char CenterLongitudeDms[] = "Center_Longitude_dms";
    static constexpr const char CenterLatitude[] = "Center_Latitude";
    static constexpr const char CenterLatitudeDms[] = "Center_Latitude_dms";
    static constexpr const char PseudoParallel[] = "Pseudo_Parallel";
    static constexpr const char PseudoParallelDms[] = "Pseudo_Parallel_dms";

    // Angles without an alternative form.
    static constexpr const char Azimuth[] = "Azimuth";
    static constexpr const char XYPlaneRotation[] = "XY_Plane_Rotation";
    static constexpr const char LongitudeOfSouthPole[] = "Longitude_of_South_Pole";
    static constexpr const char LatitudeOfSouthPole[] = "Latitude_of_South_Pole";
    static constexpr const char AngleOfRotation[] = "Angle_of_Rotation";
};

// A projection definition: the named, persistent parameter set of one
// coordinate system (name, catalogue branch, ellipsoid identifier and the
// numeric parameters of its type), with its keyword-file form and the factory
// of the matching algorithm. The virtual operations are declared in a fixed
// order that callers rely on.
class GXCART_API CGxMapProjData : public CGxMapProjDataIDs {
public:
    // Projection types. 1..20 have a definition class; 21 marks a plane system
    // on an ellipsoid the catalogue does not know, 22 a text that gives no
    // definition. The underlying type is fixed so that every int is a valid
    // value of the enumeration, whatever a caller passes.
    enum EProjectionType : int {
        eTransverseMercator = 1,
        eLambert2SP = 2,
        eLambert1SP = 3,
        eStereographic = 4,
        eNewZealandMapGrid = 5,
        eHotineObliqueMercator = 6,
        eObliqueMercator = 7,
        eRectifiedSkewOrthomorphic = 8,
        eRotatedLongitudeLatitude = 9,
        eMercator2SP = 10,
        eMercator1SP = 11,
        eStereographicNorthPole = 12,
        eStereographicSouthPole = 13,
        eGeographical = 14,
        eKrovak = 15,
        eAlbersEqualArea = 16,
        eLambertAzimuthalEqualArea = 17,
        eCassiniSoldner = 18,
        eEquidistantConic = 19,
        ePolarStereographic = 20,
        eNonProjected = 21,
        eInvalidProjection = 22,
        eCylindricalEqualArea = 23,
    };

    // How a parameter value is shown or converted.
    enum EParamType : int {
        eScale = 0,   // a plain factor
        eLength = 1,  // metres
        eAngle = 2,   // decimal degrees
    };

    virtual ~CGxMapProjData();

    virtual std::string GetName() const = 0;
    // Ignored unless the definition is editable.
    virtual void SetName(const std::string& name) = 0;
    virtual std::string GetBranchName() const = 0;
    // Always applied: the catalogue files its own entries under a branch.
    virtual void SetBranchName(const std::string& branchName) = 0;
    virtual std::string GetEllipsoidID() const = 0;
    // Ignored unless the definition is editable.
    virtual void SetEllipsoidID(const std::string& ellipsoidID) = 0;

    // Replaces every field from one keyword-file section; both flags become
    // editable. A null section changes nothing.
    virtual void ReadFromHandle(void* section, bool editable) = 0;
    // Appends the definition as one section to the last block of a keyword
    // file being built; writes nothing unless the definition is editable.
    virtual void WriteToHandle(void* file) = 0;
    // True for the section name (exact, case-sensitive) the type reads.
    virtual bool IsSectionID(const std::string& text) const = 0;

    virtual bool CanDelete() const = 0;
    virtual bool CanEdit() const = 0;

    // A new algorithm built from this definition, owned by the caller; null
    // when none can be built.
    virtual CGxProjection* CreateProjection() const = 0;
    // Fills a WKT parser for writing: the name, the fixed geographic-system
    // data, the figure the catalogue holds for the ellipsoid identifier and
    // the type's parameters. With an identifier the catalogue does not know
    // the system can only be a plane grid: it is handed over as
    // "Non_Projected" with a placeholder spheroid.
    virtual void TransferParameters(CGxPRJParser& parser) const = 0;

    virtual std::string GetProjectionTypeTitle() const = 0;
    virtual EProjectionType GetProjectionType() const = 0;
    virtual int GetNoOfParameters() const = 0;
    // Label, value and kind of the index-th parameter; false, with the outputs
    // untouched, for an index outside 0..GetNoOfParameters()-1.
    virtual bool GetParameter(int index, std::string& label, double& value,
                              EParamType& kind) const = 0;
    // Copies GetNoOfParameters() values in index order, whatever the editable
    // flag; a null array changes nothing.
    virtual void SetParameters(double* const values) = 0;

    // A new definition of the type with both flags set, owned by the caller;
    // params holds the type's parameters in index order (not read for the
    // geographical type; null stands for all zeros). Null for a type without
    // a definition class (21, 22, values outside the enumeration) or when
    // memory runs out.
    static CGxMapProjData* CreateProjection(EProjectionType type, const std::string& name,
                                            const std::string& branchName,
                                            const std::string& ellipsoidID, double* const params);
    // The type's default definition: neither editable nor deletable, empty
    // branch. Null for a type without a definition class.
    static CGxMapProjData* CreateDefaultParameterProjection(EProjectionType type);

    // Zero-based list position to type and back; no range check. The list
    // holds the types 1 to 20; GxDefinitionTypes names every type that has a
    // definition class.
    static EProjectionType Enum2ProjectionType(int index);
    static int ProjectionType2Enum(EProjectionType type);
    // Number of types in the list (20).
    static int GetNoOfProjections();

    // Whether a type belongs to the classes asked for: flag 2 geographic
    // systems (geographical and rotated longitude/latitude), flag 1 every
    // other definable type; never for 21 and 22.
    static bool IsEquivalent(int flags, EProjectionType type);

    // The series coefficients of the type (see projections/FourierCoefficients.h):
    // Krueger's for the Transverse Mercator, the authalic-latitude series for
    // Albers and the Lambert azimuthal, the meridian arc for Cassini-Soldner
    // and the equidistant conic, the conformal-latitude series for every other
    // value. out receives four values; a null out changes nothing.
    static void ComputeFourierCoefficients(EProjectionType type, bool forward, double x,
                                           double* const out);

    // Reads an angle kept as up to three values (degrees, minutes, seconds)
    // under the first occurrence of keyword. Fractions of the degrees or
    // minutes move down to the minutes and seconds (45.5, 0, 0 gives 45, 30,
    // 0), so the outputs always state the angle the file gives. The outputs
    // start at 0; false when the keyword is absent.
    static bool zpfGetParamDMS(void* section, const char* keyword, int* degrees, int* minutes,
                               double* seconds);
};

// Every type with a definition class, in the order of the types: the list's
// twenty and those added after eInvalidProjection. Readers of keyword files
// ask each of them whether it reads a section.
GXCART_API std::vector<CGxMapProjData::EProjectionType> GxDefinitionTypes();
