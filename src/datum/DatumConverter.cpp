#include "datum/DatumConverter.h"

#include <limits>
#include <utility>

#include "datum/DatumShift.h"
#include "foundation/Projection.h"
#include "mapprojection/MapProjection.h"
#include "projections/Mercator1SP.h"
#include "projections/Mercator2SP.h"

namespace {

using EShift = CGxCartDef::ETypeOfDatumShift;

// Slots of a stored shift: translations (m), rotations (radians), scale
// correction (fraction).
enum EShiftSlot : int { kDX, kDY, kDZ, kRX, kRY, kRZ, kScale };

// A datum's frame to WGS 84 by the Helmert transformation in the
// position-vector convention, linearised in the rotations (they are a few
// arc-seconds at most, so the second-order terms stay below a micrometre on
// the Earth's surface).
void _ToWgs84(EShift type, const double* p, double& X, double& Y, double& Z) {
    if (type == CGxCartDef::eThreeParameterShift) {
        X += p[kDX];
        Y += p[kDY];
        Z += p[kDZ];
    } else if (type == CGxCartDef::eSevenParameterShift) {
        const double s = 1.0 + p[kScale];
        const double x = X;
        const double y = Y;
        const double z = Z;
        X = (x - p[kRZ] * y + p[kRY] * z) * s + p[kDX];
        Y = (p[kRZ] * x + y - p[kRX] * z) * s + p[kDY];
        Z = (-p[kRY] * x + p[kRX] * y + z) * s + p[kDZ];
    }
}

// WGS 84 back to a datum's frame: the translation removed, then the
// transposed rotation divided by the scale. The transposed small-angle
// matrix inverts the forward one to first order only; the residual is of
// the size of the rotations squared times the Earth's radius (micrometres),
// and it is the same inverse other geodetic software applies to a TOWGS84
// shift, so both agree on the way back.
void _FromWgs84(EShift type, const double* p, double& X, double& Y, double& Z) {
    if (type == CGxCartDef::eThreeParameterShift) {
        X -= p[kDX];
        Y -= p[kDY];
        Z -= p[kDZ];
    } else if (type == CGxCartDef::eSevenParameterShift) {
        const double s = 1.0 + p[kScale];
        const double u = X - p[kDX];
        const double v = Y - p[kDY];
        const double w = Z - p[kDZ];
        X = (u + p[kRZ] * v - p[kRY] * w) / s;
        Y = (-p[kRZ] * u + v + p[kRX] * w) / s;
        Z = (p[kRY] * u - p[kRX] * v + w) / s;
    }
}

// A TOWGS84 record in the units the formulas use: rotations from
// arc-seconds to radians, the scale from parts per million to a fraction.
// Values the shift type does not use are cleared.
void _StoreShift(const CGxDatumShift& shift, EShift& type, double* out) {
    type = shift.GetType();
    for (int i = 0; i < CGxDatumShift::kParameterCount; ++i) out[i] = 0.0;
    if (type != CGxCartDef::eThreeParameterShift && type != CGxCartDef::eSevenParameterShift)
        return;
    out[kDX] = shift[kDX];
    out[kDY] = shift[kDY];
    out[kDZ] = shift[kDZ];
    if (type != CGxCartDef::eSevenParameterShift) return;
    out[kRX] = CGxCartDef::arcsec2rad(shift[kRX]);
    out[kRY] = CGxCartDef::arcsec2rad(shift[kRY]);
    out[kRZ] = CGxCartDef::arcsec2rad(shift[kRZ]);
    out[kScale] = CGxCartDef::ppm2dec(shift[kScale]);
}

// Semi-major axis of WGS 84, the radius of the web Mercator's sphere.
constexpr double kWgs84Major = 6378137.0;

// The WGS 84 geographical system, whose Earth-centred conversions stand in
// for the web Mercator's. Built once on first use and never destroyed, so
// that a converter used while the program ends still finds it.
const CGxMapProjection& _Wgs84System() {
    static const CGxMapProjection* const system =
        new CGxMapProjection(CGxMapProjection::IDtoProjectionString(CGxMapProjection::eWgs84));
    return *system;
}

// The system whose figure carries a side's geographical coordinates: WGS 84
// for the web Mercator, whose sphere is a device of the projection, and the
// system itself otherwise.
const CGxMapProjection& _FigureSystem(const CGxMapProjection& system, bool onWgs84) {
    return onWgs84 ? _Wgs84System() : system;
}

// The figure of a system's geographical coordinates, false when it has none
// (no algorithm, or an algorithm without ellipsoid such as the local grid).
bool _EllipsoidOf(const CGxMapProjection& system, bool onWgs84, CGxEllipsoid& ellipsoid) {
    const CGxProjection* algorithm = _FigureSystem(system, onWgs84).GetProjection();
    return algorithm && algorithm->GetAnonymousEllipsoid(ellipsoid);
}

// Whether the source and the target side of a conversion type are
// projected; false for a type outside the four.
bool _Sides(CGxDatumConverter::ETypeOfConversion type, bool& sourceProjected,
            bool& targetProjected) {
    switch (type) {
        case CGxDatumConverter::eProjToProj:
            sourceProjected = targetProjected = true;
            return true;
        case CGxDatumConverter::eProjToGeo:
            sourceProjected = true;
            targetProjected = false;
            return true;
        case CGxDatumConverter::eGeoToProj:
            sourceProjected = false;
            targetProjected = true;
            return true;
        case CGxDatumConverter::eGeoToGeo:
            sourceProjected = targetProjected = false;
            return true;
    }
    return false;
}

}  // namespace

CGxDatumConverter::CGxDatumConverter(CGxMapProjection* source_, CGxMapProjection* target_)
    : callerSource(source_), callerTarget(target_) {
    _initialize();
}

CGxDatumConverter::CGxDatumConverter(const char* source_, const char* target_) {
    // A failure on the second system (the "UTM" exception, memory) releases
    // the first with the member.
    owned.reset(new COwnedSystems);
    owned->source.reset(new CGxMapProjection(source_));
    owned->target.reset(new CGxMapProjection(target_));
    _initialize();
}

CGxDatumConverter::CGxDatumConverter(const CGxDatumConverter& other) = default;
CGxDatumConverter& CGxDatumConverter::operator=(const CGxDatumConverter& other) = default;
CGxDatumConverter::~CGxDatumConverter() = default;

bool CGxDatumConverter::IsWebMercator(const CGxMapProjection& system) {
    const CGxProjection* algorithm = system.GetProjection();
    if (!dynamic_cast<const CGxMercator1SP*>(algorithm) &&
        !dynamic_cast<const CGxMercator2SP*>(algorithm))
        return false;
    CGxEllipsoid figure;
    CGxDatumShift shift;
    system.GetDatumShift(shift);
    return algorithm->GetAnonymousEllipsoid(figure) && figure.GetMajor() == kWgs84Major &&
           !(figure.GetInvFlatness() > 0.0) && shift.GetType() == CGxCartDef::eNoDatumShift;
}

void CGxDatumConverter::_initialize() {
    const CGxMapProjection* const source = _Source();
    const CGxMapProjection* const target = _Target();
    conversionType = eProjToProj;
    sourceOnWgs84 = source && IsWebMercator(*source);
    targetOnWgs84 = target && IsWebMercator(*target);
    CGxDatumShift sourceRecord;
    CGxDatumShift targetRecord;
    if (!source || !target) {
        // Nothing to convert between: treated like a local grid.
        local = true;
        sameEllipsoid = true;
        bypassXYZ = true;
    } else {
        local = CGxMapProjection::IsLocal(source->GetName()) ||
                CGxMapProjection::IsLocal(target->GetName());
        source->GetDatumShift(sourceRecord);
        target->GetDatumShift(targetRecord);
        CGxEllipsoid sourceEllipsoid;
        CGxEllipsoid targetEllipsoid;
        if (_EllipsoidOf(*source, sourceOnWgs84, sourceEllipsoid) &&
            _EllipsoidOf(*target, targetOnWgs84, targetEllipsoid)) {
            sameEllipsoid = sourceEllipsoid.IsEquivalent(targetEllipsoid);
            bypassXYZ = sameEllipsoid && sourceRecord == targetRecord;
        } else {
            // Without both figures there is no geocentric step to make.
            sameEllipsoid = true;
            bypassXYZ = true;
        }
    }
    defaultBypassXYZ = bypassXYZ;
    _StoreShift(sourceRecord, sourceShiftType, sourceShift);
    _StoreShift(targetRecord, targetShiftType, targetShift);
}

bool CGxDatumConverter::_ShiftsAgree() const {
    const double* s = sourceShift;
    const double* t = targetShift;
    const CGxDatumShift sourceRecord(sourceShiftType, s[0], s[1], s[2], s[3], s[4], s[5], s[6]);
    const CGxDatumShift targetRecord(targetShiftType, t[0], t[1], t[2], t[3], t[4], t[5], t[6]);
    return sourceRecord == targetRecord;
}

void CGxDatumConverter::SetDatumShift(CGxCartDef::ETypeOfDatumShift type, double* const params,
                                      bool toSource) {
    double* stored = toSource ? sourceShift : targetShift;
    (toSource ? sourceShiftType : targetShiftType) = type;
    int count = 0;
    if (type == CGxCartDef::eThreeParameterShift) count = 3;
    if (type == CGxCartDef::eSevenParameterShift) count = kShiftValues;
    if (params) {
        for (int i = 0; i < count; ++i) stored[i] = params[i];
    }
    bypassXYZ = sameEllipsoid && _ShiftsAgree();
}

void CGxDatumConverter::DatumShift(double& X, double& Y, double& Z) const {
    _ToWgs84(sourceShiftType, sourceShift, X, Y, Z);
    _FromWgs84(targetShiftType, targetShift, X, Y, Z);
}

void CGxDatumConverter::InvDatumShift(double& X, double& Y, double& Z) const {
    _ToWgs84(targetShiftType, targetShift, X, Y, Z);
    _FromWgs84(sourceShiftType, sourceShift, X, Y, Z);
}

void CGxDatumConverter::_Run(const CGxMapProjection& from, const CGxMapProjection& to,
                             bool inverseShift, bool fromWgs84, bool toWgs84, bool inputProjected,
                             bool outputProjected, double& x, double& y, double& z) const {
    double lon = x;
    double lat = y;
    if (inputProjected) from.Proj2Geo(x, y, &lon, &lat);
    if (!bypassXYZ) {
        // A system without algorithm writes no geocentric coordinates; NaN
        // then says that the point could not be placed.
        double X = std::numeric_limits<double>::quiet_NaN();
        double Y = X;
        double Z = X;
        _FigureSystem(from, fromWgs84).Geo2XYZ(lon, lat, z, &X, &Y, &Z);
        if (inverseShift)
            InvDatumShift(X, Y, Z);
        else
            DatumShift(X, Y, Z);
        _FigureSystem(to, toWgs84).XYZ2Geo(X, Y, Z, &lon, &lat, &z);
    }
    if (outputProjected) {
        to.Geo2Proj(lon, lat, &x, &y);
    } else {
        x = lon;
        y = lat;
    }
}

void CGxDatumConverter::Convert(double& x, double& y, double& z) const {
    bool sourceProjected;
    bool targetProjected;
    if (local || !_Sides(conversionType, sourceProjected, targetProjected)) return;
    _Run(*_Source(), *_Target(), false, sourceOnWgs84, targetOnWgs84, sourceProjected,
         targetProjected, x, y, z);
}

void CGxDatumConverter::Convert(double& x, double& y) const {
    double z = 0.0;
    Convert(x, y, z);
}

void CGxDatumConverter::InvConvert(double& x, double& y, double& z) const {
    bool sourceProjected;
    bool targetProjected;
    if (local || !_Sides(conversionType, sourceProjected, targetProjected)) return;
    _Run(*_Target(), *_Source(), true, targetOnWgs84, sourceOnWgs84, targetProjected,
         sourceProjected, x, y, z);
}

void CGxDatumConverter::InvConvert(double& x, double& y) const {
    double z = 0.0;
    InvConvert(x, y, z);
}

void CGxDatumConverter::Convert(double* x, double* y, double* h, std::size_t count) const {
    _RunArrays(false, x, y, h, count);
}

void CGxDatumConverter::InvConvert(double* x, double* y, double* h, std::size_t count) const {
    _RunArrays(true, x, y, h, count);
}

// The per-point path of Convert and InvConvert with its tests made once: a
// local grid or an unknown conversion type leaves every point alone, and
// neither can change during a const call. Without heights each point starts
// at height 0 and its resulting height is dropped, as in the two-value form.
void CGxDatumConverter::_RunArrays(bool inverse, double* x, double* y, double* h,
                                   std::size_t count) const {
    bool sourceProjected;
    bool targetProjected;
    if (!x || !y || local || !_Sides(conversionType, sourceProjected, targetProjected)) return;
    const CGxMapProjection& from = inverse ? *_Target() : *_Source();
    const CGxMapProjection& to = inverse ? *_Source() : *_Target();
    const bool inputProjected = inverse ? targetProjected : sourceProjected;
    const bool outputProjected = inverse ? sourceProjected : targetProjected;
    const bool fromWgs84 = inverse ? targetOnWgs84 : sourceOnWgs84;
    const bool toWgs84 = inverse ? sourceOnWgs84 : targetOnWgs84;
    for (std::size_t i = 0; i < count; ++i) {
        double z = 0.0;
        _Run(from, to, inverse, fromWgs84, toWgs84, inputProjected, outputProjected, x[i], y[i],
             h ? h[i] : z);
    }
}

void CGxDatumConverter::InvertOrder() {
    if (owned) owned->source.swap(owned->target);
    std::swap(callerSource, callerTarget);
    std::swap(sourceOnWgs84, targetOnWgs84);
    if (conversionType == eProjToGeo)
        conversionType = eGeoToProj;
    else if (conversionType == eGeoToProj)
        conversionType = eProjToGeo;
    std::swap(sourceShiftType, targetShiftType);
    for (int i = 0; i < kShiftValues; ++i) std::swap(sourceShift[i], targetShift[i]);
}
