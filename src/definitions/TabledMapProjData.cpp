#include "definitions/TabledMapProjData.h"

#include <algorithm>

#include "definitions/DmsAngle.h"
#include "foundation/Ellipsoid.h"
#include "foundation/Tolerance.h"
#include "projections/AlgorithmCatalogue.h"
#include "wkt/PRJParser.h"
#include "zpf/zpf.h"

namespace {

// Inches per metre of the US survey foot: 1 ft = 12 / 39.37 m.
constexpr double kInchesPerFoot = 12.0;
constexpr double kUsInchesPerMetre = 39.37;

std::string ReadText(void* section, const char* keyword) {
    std::string value;
    if (!zpfGetParam(section, keyword, 1, 1, &value)) value.clear();
    return value;
}

// The decimal keyword; 0 when it is absent or not a number.
double ReadDecimal(void* section, const char* keyword) {
    double value = 0.0;
    if (!zpfGetParam(section, keyword, 1, 1, &value)) value = 0.0;
    return value;
}

// The parameter from its alternative form when that is present, else from its
// decimal keyword.
double ReadParameter(void* section, const GxParamRow& row) {
    switch (row.alternative) {
        case EGxAlternativeForm::eDms: {
            double degrees = 0.0;
            if (GxReadDmsDegrees(section, row.alternativeKeyword, &degrees)) return degrees;
            break;
        }
        case EGxAlternativeForm::eFeetUs: {
            double feet = 0.0;
            if (zpfGetParam(section, row.alternativeKeyword, 1, 1, &feet))
                return feet * kInchesPerFoot / kUsInchesPerMetre;
            break;
        }
        case EGxAlternativeForm::eScaleReduction: {
            // A reduction of 1:N lowers the scale by 1/N: (N - 1) / N;
            // N = 0 gives the infinity the division gives.
            double n = 0.0;
            if (zpfGetParam(section, row.alternativeKeyword, 1, 1, &n)) return (n - 1.0) / n;
            break;
        }
        case EGxAlternativeForm::eNone:
            break;
    }
    return ReadDecimal(section, row.keyword);
}

// What every written system shares: the geographic system is only the
// carrier of the spheroid, on Greenwich, in degrees.
constexpr const char* kGeoCSName = "Unused";
constexpr const char* kPrimeMeridianName = "Greenwich";
constexpr const char* kAngularUnitName = "Degree";
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr const char* kMetreName = "Meter";
constexpr const char* kNonProjectedName = "Non_Projected";
// The spheroid name written when the ellipsoid is not known.
constexpr const char* kUnknownSpheroidName = " ";

void SetWktParameter(CGxPRJParser& parser, EGxWktParameter which, double value) {
    switch (which) {
        case EGxWktParameter::eFalseEasting:
            parser.SetFalseEasting(value);
            break;
        case EGxWktParameter::eFalseNorthing:
            parser.SetFalseNorthing(value);
            break;
        case EGxWktParameter::eCentralMeridian:
            parser.SetCentralMeridian(value);
            break;
        case EGxWktParameter::eStandardParallel1:
            parser.SetStandardParallel1(value);
            break;
        case EGxWktParameter::eStandardParallel2:
            parser.SetStandardParallel2(value);
            break;
        case EGxWktParameter::eLatitudeOfOrigin:
            parser.SetLatitudeOfOrigin(value);
            break;
        case EGxWktParameter::eLongitudeOfCenter:
            parser.SetLongitudeOfCenter(value);
            break;
        case EGxWktParameter::eLatitudeOfCenter:
            parser.SetLatitudeOfCenter(value);
            break;
        case EGxWktParameter::eAzimuth:
            parser.SetAzimuth(value);
            break;
        case EGxWktParameter::eXYPlaneRotation:
            parser.SetXYPlaneRotation(value);
            break;
        case EGxWktParameter::eScaleFactor:
            parser.SetScaleFactor(value);
            break;
        case EGxWktParameter::eLongitudeOfSouthPole:
            parser.SetLongitudeOfSouthPole(value);
            break;
        case EGxWktParameter::eLatitudeOfSouthPole:
            parser.SetLatitudeOfSouthPole(value);
            break;
        case EGxWktParameter::eAngleOfRotation:
            parser.SetAngleOfRotation(value);
            break;
        case EGxWktParameter::ePseudoParallel:
            parser.SetPseudoParallel(value);
            break;
        case EGxWktParameter::eXScale:
            parser.SetXScale(value);
            break;
        case EGxWktParameter::eYScale:
            parser.SetYScale(value);
            break;
    }
}

}  // namespace

const std::string& GxDefinitionCode(const CGxMapProjData* definition) {
    static const std::string none;
    const auto* tabled = dynamic_cast<const CGxTabledMapProjData*>(definition);
    return tabled ? tabled->GetCode() : none;
}

CGxTabledMapProjData::CGxTabledMapProjData(const GxProjDataLayout& layout_)
    : params{}, canDelete(false), canEdit(false), layout(&layout_) {}

CGxTabledMapProjData::CGxTabledMapProjData(const GxProjDataLayout& layout_,
                                           const std::string& name_)
    : name(name_), params{}, canDelete(false), canEdit(false), layout(&layout_) {}

CGxTabledMapProjData::CGxTabledMapProjData(const GxProjDataLayout& layout_,
                                           const std::string& name_, const std::string& branchName_,
                                           const std::string& ellipsoidID_,
                                           std::initializer_list<double> values, bool canDelete_,
                                           bool canEdit_)
    : name(name_),
      branchName(branchName_),
      ellipsoidID(ellipsoidID_),
      params{},
      canDelete(canDelete_),
      canEdit(canEdit_),
      layout(&layout_) {
    const std::size_t n =
        std::min({values.size(), static_cast<std::size_t>(layout->count), kGxMaxProjParams});
    std::copy_n(values.begin(), n, params);
}

CGxTabledMapProjData::CGxTabledMapProjData(const CGxTabledMapProjData& other) = default;
CGxTabledMapProjData& CGxTabledMapProjData::operator=(const CGxTabledMapProjData& other) = default;
CGxTabledMapProjData::~CGxTabledMapProjData() = default;

std::string CGxTabledMapProjData::GetName() const {
    return name;
}

void CGxTabledMapProjData::SetName(const std::string& name_) {
    if (canEdit) name = name_;
}

std::string CGxTabledMapProjData::GetBranchName() const {
    return branchName;
}

void CGxTabledMapProjData::SetBranchName(const std::string& branchName_) {
    branchName = branchName_;
}

std::string CGxTabledMapProjData::GetEllipsoidID() const {
    return ellipsoidID;
}

void CGxTabledMapProjData::SetEllipsoidID(const std::string& ellipsoidID_) {
    if (canEdit) ellipsoidID = ellipsoidID_;
}

void CGxTabledMapProjData::SetCode(const std::string& code_) {
    if (canEdit) code = code_;
}

void CGxTabledMapProjData::ReadFromHandle(void* section, bool editable) {
    if (!section) return;
    double values[kGxMaxProjParams] = {};
    for (int i = 0; i < layout->count; ++i) values[i] = ReadParameter(section, layout->params[i]);
    std::string readCode = ReadText(section, Code);
    _Assign(ReadText(section, ProjectionName), ReadText(section, BranchName),
            ReadText(section, Ellipsoid), values, editable, editable);
    code = std::move(readCode);
}

std::string CGxTabledMapProjData::SectionProblem(void* section) const {
    // The shared texts, then each parameter's keyword and its alternative
    // form: degrees, minutes and seconds are one to three numbers.
    ZpfParamShape shapes[4 + 2 * kGxMaxProjParams] = {
        {ProjectionName, 1, 1, 0}, {BranchName, 1, 1, 0}, {Ellipsoid, 1, 1, 0}, {Code, 1, 1, 0}};
    int count = 4;
    for (int i = 0; i < layout->count; ++i) {
        const GxParamRow& row = layout->params[i];
        shapes[count++] = {row.keyword, 1, 1, 1};
        if (row.alternative != EGxAlternativeForm::eNone)
            shapes[count++] = {row.alternativeKeyword, 1,
                               row.alternative == EGxAlternativeForm::eDms ? 3 : 1, 1};
    }
    std::string problem;
    zpfCheckParams(section, shapes, count, &problem);
    return problem;
}

void CGxTabledMapProjData::WriteToHandle(void* file) {
    // System definitions never go into a file.
    if (!canEdit || !file) return;
    void* section = zpfAddSection(file, layout->sectionName);
    if (!section) return;
    zpfPutParam(section, ProjectionName, name);
    zpfPutParam(section, BranchName, branchName);
    zpfPutParam(section, Ellipsoid, ellipsoidID);
    if (!code.empty()) zpfPutParam(section, Code, code);
    for (int i = 0; i < layout->count; ++i)
        zpfPutParam(section, layout->params[i].keyword, params[i]);
    zpfEndSection(section);
}

bool CGxTabledMapProjData::IsSectionID(const std::string& text) const {
    return text == layout->sectionName ||
           (layout->oldSectionName && text == layout->oldSectionName);
}

bool CGxTabledMapProjData::CanDelete() const {
    return canDelete;
}

bool CGxTabledMapProjData::CanEdit() const {
    return canEdit;
}

void CGxTabledMapProjData::TransferParameters(CGxPRJParser& parser) const {
    TransferParameters(parser, GxCatalogueEllipsoid(ellipsoidID));
}

void CGxTabledMapProjData::TransferParameters(CGxPRJParser& parser,
                                              const CGxEllipsoid* ellipsoid) const {
    parser.SetProjCSname(name);
    parser.SetGeoCSname(kGeoCSName);
    parser.SetDatum(branchName);
    parser.SetPrimeMeridian(kPrimeMeridianName, 0.0);
    parser.SetAngularUnit(kAngularUnitName, kRadiansPerDegree);
    if (ellipsoid) {
        parser.SetEllipsoid(ellipsoid->GetName(), ellipsoid->GetMajor(),
                            ellipsoid->GetInvFlatness());
        parser.SetProjectionType(layout->type);
        parser.SetProjectionTypeName(layout->wktName);
    } else {
        parser.SetEllipsoid(kUnknownSpheroidName, kGxUnset, kGxUnset);
        parser.SetProjectionType(eNonProjected);
        parser.SetProjectionTypeName(kNonProjectedName);
    }
    for (int i = 0; i < layout->count; ++i)
        SetWktParameter(parser, layout->wktParams[i], params[i]);
    // The geographical and rotated-pole grids give their coordinates in
    // degrees, every other type in metres.
    if (layout->type == eGeographical || layout->type == eRotatedLongitudeLatitude)
        parser.SetProjUnit(kAngularUnitName, 1.0);
    else
        parser.SetProjUnit(kMetreName, 1.0);
}

std::string CGxTabledMapProjData::GetProjectionTypeTitle() const {
    return layout->title;
}

CGxMapProjData::EProjectionType CGxTabledMapProjData::GetProjectionType() const {
    return layout->type;
}

int CGxTabledMapProjData::GetNoOfParameters() const {
    return layout->count;
}

bool CGxTabledMapProjData::GetParameter(int index, std::string& label, double& value,
                                        EParamType& kind) const {
    if (index < 0 || index >= layout->count) return false;
    label = layout->params[index].label;
    value = params[index];
    kind = layout->params[index].kind;
    return true;
}

void CGxTabledMapProjData::SetParameters(double* const values) {
    if (!values) return;
    std::copy_n(values, layout->count, params);
}

void CGxTabledMapProjData::_Assign(const std::string& name_, const std::string& branchName_,
                                   const std::string& ellipsoidID_, const double* values,
                                   bool canDelete_, bool canEdit_) {
    name = name_;
    branchName = branchName_;
    ellipsoidID = ellipsoidID_;
    std::fill(std::begin(params), std::end(params), 0.0);
    if (values) std::copy_n(values, layout->count, params);
    canDelete = canDelete_;
    canEdit = canEdit_;
}

void CGxTabledMapProjData::_AssignDefaults() {
    double values[kGxMaxProjParams] = {};
    for (int i = 0; i < layout->count; ++i) values[i] = layout->params[i].defaultValue;
    _Assign(layout->defaultName, std::string(), layout->defaultEllipsoid, values, false, false);
}
