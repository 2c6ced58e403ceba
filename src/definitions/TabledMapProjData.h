#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>

#include "definitions/MapProjData.h"
#include "foundation/GxExport.h"

class CGxEllipsoid;

// The twenty definition types differ only in their parameter lists, keywords
// and names. Each type describes its keyword-file form once in a constant
// table; one implementation of reading, writing, labelled access and copying
// serves all. What a type is in WKT, in PROJ.4 and as an algorithm is its row
// of the projection-type table (definitions/ProjectionTypes.h).

// Alternative keyword tried before the decimal one when a parameter is read.
enum class EGxAlternativeForm : int {
    eNone,            // only the decimal keyword
    eDms,             // degrees, minutes, seconds under "<keyword>_dms"
    eFeetUs,          // US survey feet under "<keyword>_ft_us"
    eScaleReduction,  // the denominator N of a reduction 1:N
};

// One numeric parameter of a type.
struct GxParamRow {
    const char* label;  // shown by GetParameter, e.g. "First parallel:"
    CGxMapProjData::EParamType kind;
    const char* keyword;  // written and read
    EGxAlternativeForm alternative;
    const char* alternativeKeyword;  // null when alternative is eNone
    double defaultValue;             // value in the type's default definition
};

// An angle with a degrees-minutes-seconds form.
constexpr GxParamRow GxAngleDms(const char* label, const char* keyword, const char* dmsKeyword,
                                double defaultValue) {
    return {label,       CGxMapProjData::eAngle, keyword, EGxAlternativeForm::eDms, dmsKeyword,
            defaultValue};
}

// An angle read and written only in decimal degrees.
constexpr GxParamRow GxAngle(const char* label, const char* keyword, double defaultValue) {
    return {label,       CGxMapProjData::eAngle, keyword, EGxAlternativeForm::eNone, nullptr,
            defaultValue};
}

// The scale factor "Scale", which may also be written as a reduction 1:N.
constexpr GxParamRow GxScaleWithReduction(double defaultValue) {
    return {"Scale:",
            CGxMapProjData::eScale,
            CGxMapProjDataIDs::Scale,
            EGxAlternativeForm::eScaleReduction,
            CGxMapProjDataIDs::ScaleReduction,
            defaultValue};
}

// A scale factor read and written only as a plain factor.
constexpr GxParamRow GxScale(const char* label, const char* keyword, double defaultValue) {
    return {label,       CGxMapProjData::eScale, keyword, EGxAlternativeForm::eNone, nullptr,
            defaultValue};
}

// False easting and northing, metres, or US survey feet in the _ft_us forms.
constexpr GxParamRow GxFalseEasting(double defaultValue) {
    return {"False easting:",
            CGxMapProjData::eLength,
            CGxMapProjDataIDs::Feast,
            EGxAlternativeForm::eFeetUs,
            CGxMapProjDataIDs::FeastFtUs,
            defaultValue};
}
constexpr GxParamRow GxFalseNorthing(double defaultValue) {
    return {"False northing:",           CGxMapProjData::eLength,       CGxMapProjDataIDs::Fnorth,
            EGxAlternativeForm::eFeetUs, CGxMapProjDataIDs::FnorthFtUs, defaultValue};
}

// The parameters of the types set by one standard parallel and a central
// meridian (the two-parallel Mercator, the pole stereographics, the
// cylindrical equal area), in index order; parallel1 is the default of the
// parallel.
constexpr std::array<GxParamRow, 4> GxParallelAndCentre(double parallel1) {
    return {
        GxAngleDms("First parallel:", CGxMapProjDataIDs::Parallel1, CGxMapProjDataIDs::Parallel1Dms,
                   parallel1),
        GxAngleDms("Central meridian:", CGxMapProjDataIDs::Centre, CGxMapProjDataIDs::CentreDms, 0),
        GxFalseEasting(0), GxFalseNorthing(0)};
}

// Largest parameter count of any type (Krovak).
constexpr std::size_t kGxMaxProjParams = 10;

// Everything that tells one definition type from another.
struct GxProjDataLayout {
    CGxMapProjData::EProjectionType type;
    const char* title;             // GetProjectionTypeTitle
    const char* sectionName;       // written, and accepted on reading
    const char* oldSectionName;    // also accepted on reading, or null
    const char* defaultName;       // name of the default definition
    const char* defaultEllipsoid;  // ellipsoid identifier of the default definition
    int count;                     // number of parameters, at most kGxMaxProjParams
    const GxParamRow* params;      // count entries in index order
};

// The register code of a definition of the family ("EPSG:25832"); empty for
// any other definition and for null.
GXCART_API const std::string& GxDefinitionCode(const CGxMapProjData* definition);

// The common implementation of the definition family. It holds the fields of
// every definition (name, branch, ellipsoid identifier, the parameters in
// index order, the two flags) and follows the type's layout table; a concrete
// class adds its constructors and named accessors. The transfer to WKT and
// every class's CreateProjection stand with the projection-type table
// (ProjectionTypes.cpp), the one place that ties a definition to the writer
// and to its algorithm.
class GXCART_API CGxTabledMapProjData : public CGxMapProjData {
public:
    ~CGxTabledMapProjData() override;

    std::string GetName() const override;
    // The name without a copy, for look-ups over a whole catalogue.
    const std::string& Name() const { return name; }
    void SetName(const std::string& name) override;
    std::string GetBranchName() const override;
    void SetBranchName(const std::string& branchName) override;
    std::string GetEllipsoidID() const override;
    void SetEllipsoidID(const std::string& ellipsoidID) override;
    // The system's number in a public register ("EPSG:25832", "ESRI:102031")
    // under which the catalogue also finds it; empty when it has none. Kept
    // in the keyword "Code"; SetCode is ignored unless the definition is
    // editable.
    const std::string& GetCode() const { return code; }
    void SetCode(const std::string& code);
    void ReadFromHandle(void* section, bool editable) override;
    // Why a keyword-file section cannot be read as this type, with the line:
    // a keyword the type reads that holds a list where one value belongs
    // ("Scale = 0,9996" is the two values 0 and 9996), a text where a number
    // belongs, or no value at all. Empty when the section can be read.
    std::string SectionProblem(void* section) const;
    void WriteToHandle(void* file) override;
    bool IsSectionID(const std::string& text) const override;
    bool CanDelete() const override;
    bool CanEdit() const override;
    // The figure is looked up in the setup's ellipsoid catalogue. The WKT
    // name and parameters are the type's row of the projection-type table.
    void TransferParameters(CGxPRJParser& parser) const override;
    // The same with a figure found elsewhere (an algorithm asks the catalogue
    // by its coordinate-system name); null stands for none: the system is
    // then handed over as "Non_Projected" on the spheroid " " whose two
    // numbers are unset (-1e-35).
    void TransferParameters(CGxPRJParser& parser, const CGxEllipsoid* ellipsoid) const;
    std::string GetProjectionTypeTitle() const override;
    EProjectionType GetProjectionType() const override;
    int GetNoOfParameters() const override;
    bool GetParameter(int index, std::string& label, double& value,
                      EParamType& kind) const override;
    void SetParameters(double* const values) override;

protected:
    // Empty strings, parameters 0, neither deletable nor editable.
    explicit CGxTabledMapProjData(const GxProjDataLayout& layout);
    CGxTabledMapProjData(const GxProjDataLayout& layout, const std::string& name);
    // values in index order; missing trailing values are 0.
    CGxTabledMapProjData(const GxProjDataLayout& layout, const std::string& name,
                         const std::string& branchName, const std::string& ellipsoidID,
                         std::initializer_list<double> values, bool canDelete, bool canEdit);
    CGxTabledMapProjData(const CGxTabledMapProjData& other);
    CGxTabledMapProjData& operator=(const CGxTabledMapProjData& other);

    double _Param(int index) const { return params[index]; }
    // The named setters: applied only to an editable definition.
    void _SetParam(int index, double value) {
        if (canEdit) params[index] = value;
    }

private:
    // The factories of CGxMapProjData fill new objects through these.
    friend class CGxMapProjData;
    void _Assign(const std::string& name, const std::string& branchName,
                 const std::string& ellipsoidID, const double* values, bool canDelete,
                 bool canEdit);
    void _AssignDefaults();

    std::string name;
    std::string branchName;
    std::string ellipsoidID;
    std::string code;
    double params[kGxMaxProjParams];
    bool canDelete;
    bool canEdit;
    const GxProjDataLayout* layout;
};
