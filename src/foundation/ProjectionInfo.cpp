#include "foundation/ProjectionInfo.h"

#include <cstring>
#include <string>
#include <utility>

#include "foundation/Text.h"
#include "foundation/Tolerance.h"
#include "wkt/PRJParser.h"

namespace {

bool _GetUnit(double unitFactor, const char* unitName, double* factor, char* name) {
    if (factor) *factor = unitFactor;
    if (name) GxCopyField(name, CGxProjectionInfo::kUnitNameSize, unitName);
    return !GxIsUnset(unitFactor);
}

}  // namespace

// ---------------------------------------------------------------- CAxis

CGxProjectionInfo::CAxis::CAxis() : type(eEast), factor(1.0), name{} {
    SetProperties(eEast, "");
}

CGxProjectionInfo::CAxis::CAxis(EType type_, const char* name_) : type(eEast), factor(1.0), name{} {
    SetProperties(type_, name_);
}

CGxProjectionInfo::CAxis::CAxis(const CAxis& other) = default;
CGxProjectionInfo::CAxis& CGxProjectionInfo::CAxis::operator=(const CAxis& other) = default;
CGxProjectionInfo::CAxis::~CAxis() = default;

void CGxProjectionInfo::CAxis::SetProperties(EType type_, const char* name_) {
    type = type_;
    switch (type_) {
        case eEast:
        case eNorth:
            factor = 1.0;
            break;
        case eWest:
        case eSouth:
            factor = -1.0;
            break;
        default:
            break;
    }
    GxCopyField(name, kNameSize, name_);
}

CGxProjectionInfo::CAxis::EType CGxProjectionInfo::CAxis::StringToType(const char* direction) {
    if (!direction) return eEast;
    const std::pair<const char*, EType> words[] = {
        {"EAST", eEast}, {"NORTH", eNorth}, {"WEST", eWest}, {"SOUTH", eSouth}};
    for (const auto& w : words) {
        if (GxEqualsIgnoringCase(direction, w.first)) return w.second;
    }
    return eEast;
}

// ---------------------------------------------------------------- CGxProjectionInfo

CGxProjectionInfo::CGxProjectionInfo()
    : projUnitFactor(kGxUnset),
      angularUnitFactor(kGxUnset),
      projUnitName{},
      angularUnitName{},
      axis1(CAxis::eEast, "Easting"),
      axis2(CAxis::eNorth, "Northing") {}

CGxProjectionInfo::CGxProjectionInfo(const CGxProjectionInfo& other) = default;
CGxProjectionInfo& CGxProjectionInfo::operator=(const CGxProjectionInfo& other) = default;
CGxProjectionInfo::~CGxProjectionInfo() = default;

void CGxProjectionInfo::SetProjectionInfo(const CGxPRJParser& parser) {
    std::string name;
    double factor = kGxUnset;
    parser.GetProjUnit(name, factor);
    projUnitFactor = factor;
    GxCopyField(projUnitName, kUnitNameSize, name.c_str());
    parser.GetAngularUnit(name, factor);
    angularUnitFactor = factor;
    GxCopyField(angularUnitName, kUnitNameSize, name.c_str());
    parser.GetDatumShift(datumShift);

    std::string direction;
    parser.GetAxisInfo(CGxPRJParser::eFirstAxis, name, direction);
    axis1.SetProperties(CAxis::StringToType(direction.c_str()), name.c_str());
    parser.GetAxisInfo(CGxPRJParser::eSecondAxis, name, direction);
    axis2.SetProperties(CAxis::StringToType(direction.c_str()), name.c_str());
}

bool CGxProjectionInfo::GetProjUnit(double* factor, char* name) const {
    return _GetUnit(projUnitFactor, projUnitName, factor, name);
}

bool CGxProjectionInfo::GetAngularUnit(double* factor, char* name) const {
    return _GetUnit(angularUnitFactor, angularUnitName, factor, name);
}

void CGxProjectionInfo::GetDatumShift(CGxDatumShift& shift) const {
    shift = datumShift;
}

void CGxProjectionInfo::SetDatumShift(const CGxDatumShift& shift) {
    datumShift = shift;
}

void CGxProjectionInfo::GetAxisTypes(CAxis::EType& first, CAxis::EType& second) const {
    first = axis1.GetType();
    second = axis2.GetType();
}

void CGxProjectionInfo::Convert(double& x, double& y) const {
    x *= axis1.GetFactor();
    y *= axis2.GetFactor();
    if (SwapsAxes()) std::swap(x, y);
}

void CGxProjectionInfo::InvConvert(double& x, double& y) const {
    if (SwapsAxes()) std::swap(x, y);
    x *= axis1.GetFactor();
    y *= axis2.GetFactor();
}
