#pragma once

#include <cstddef>

#include "foundation/ClonePtr.h"
#include "foundation/Ellipsoid.h"
#include "foundation/GxExport.h"

class CGxMapProjection;

// Converts coordinates from one coordinate system (the source) to another
// (the target) that may sit on a different datum.
//
// Across datums a point travels as geodetic longitude/latitude/height on the
// source ellipsoid, Earth-centred X, Y, Z on that ellipsoid, the source's
// Helmert transformation to WGS 84, the target's transformation back from
// WGS 84, and geodetic coordinates on the target ellipsoid. Both
// transformations use the position-vector convention (the one of the WKT
// TOWGS84 clause and of PROJ's +towgs84). When both systems share the figure
// and the shift, the geocentric step is left out ("bypass") and heights pass
// unchanged.
//
// The web Mercator is the one system whose figure is not its datum's: it is
// the Mercator on a sphere of WGS 84's semi-major axis applied to WGS 84
// longitudes and latitudes as they are. Its geographical coordinates are
// therefore taken as WGS 84's: against WGS 84 (or any system on WGS 84's
// figure without shift) they pass unchanged, and towards other datums they
// leave through Earth-centred coordinates on WGS 84's ellipsoid, not on the
// sphere.
//
// Longitudes and latitudes are decimal degrees, heights and projected
// coordinates metres (also for a system that declares feet). A local
// grid on either side makes every conversion a no-operation; nothing is ever
// reported or thrown by a conversion.
class GXCART_API CGxDatumConverter {
public:
    // Which side of a conversion is projected and which geographical, seen
    // from the source: the first word names the source's coordinates, the
    // second the target's.
    enum ETypeOfConversion : int {
        eProjToProj = 0,
        eProjToGeo = 1,
        eGeoToProj = 2,
        eGeoToGeo = 3,
    };

    // Borrows both systems: they must outlive the converter and its copies.
    // A null pointer makes every conversion a no-operation.
    CGxDatumConverter(CGxMapProjection* source, CGxMapProjection* target);
    // Builds and owns both systems from projection strings. Throws
    // std::out_of_range("Can't use generic UTM") for the bare string "UTM".
    CGxDatumConverter(const char* source, const char* target);
    // An owning converter is copied with copies of its systems; a borrowing
    // one shares the same systems.
    CGxDatumConverter(const CGxDatumConverter& other);
    CGxDatumConverter& operator=(const CGxDatumConverter& other);
    virtual ~CGxDatumConverter();

    void SetConversionType(ETypeOfConversion type) { conversionType = type; }

    // Source to target, in place. With the height: the ellipsoidal height
    // above the source ellipsoid in, above the target ellipsoid out (unchanged
    // when the geocentric step is bypassed). Without it the height is 0.
    void Convert(double& x, double& y, double& z) const;
    void Convert(double& x, double& y) const;
    // Target to source, in place. The conversion type keeps the source's
    // point of view: for eProjToGeo the input is target longitude/latitude
    // and the output source easting/northing.
    void InvConvert(double& x, double& y, double& z) const;
    void InvConvert(double& x, double& y) const;
    // Both over count points in place: each point goes through the
    // three-value form with its height h[i], or, when h is null, through the
    // two-value form, and gets exactly the bits that call gives it. Null x or
    // y, or count 0, does nothing; nothing is allocated.
    void Convert(double* x, double* y, double* h, std::size_t count) const;
    void InvConvert(double* x, double* y, double* h, std::size_t count) const;

    // The geocentric step alone, Earth-centred coordinates in metres: source
    // frame to target frame, and back.
    void DatumShift(double& X, double& Y, double& Z) const;
    void InvDatumShift(double& X, double& Y, double& Z) const;

    // Replaces one side's shift: for a three-parameter shift params[0..2]
    // (metres), for a seven-parameter shift params[0..6] with the rotations
    // already in radians and the scale correction as a plain fraction (not
    // arc-seconds and parts per million as in a TOWGS84 clause); values the
    // type does not use stay as they were. Bypass is then recomputed from the
    // new shifts; the value ResetBypassXYZ restores is not changed. A null
    // params changes only the type.
    void SetDatumShift(CGxCartDef::ETypeOfDatumShift type, double* const params, bool source);

    // Forces the geocentric step off, for callers that know both datums
    // agree; ResetBypassXYZ restores the choice made at construction.
    void BypassXYZ() { bypassXYZ = true; }
    void ResetBypassXYZ() { bypassXYZ = defaultBypassXYZ; }
    bool GetBypassXYZ() const { return bypassXYZ; }

    // Swaps the roles of source and target, their shifts included; a
    // projected-to-geographical conversion becomes geographical-to-projected
    // and the reverse.
    void InvertOrder();

    // The source (true) or target (false) system; null when built from null.
    CGxMapProjection* GetMapProjection(bool source) const { return source ? _Source() : _Target(); }

    // Whether a system is the web Mercator: a Mercator (either form, any
    // parameters) on a sphere whose radius is WGS 84's semi-major axis,
    // 6378137 m, without datum shift. Its longitudes and latitudes are
    // WGS 84's, and the converter treats them so.
    static bool IsWebMercator(const CGxMapProjection& system);

private:
    static constexpr int kShiftValues = 7;

    // Reads both systems' figures and shifts and sets every derived member.
    void _initialize();
    // One conversion from the system `from` to the system `to`: the inverse
    // projection when the input is projected, the geocentric step (forward
    // or inverse datum shift) unless bypassed, the projection when the output
    // is projected.
    // fromWgs84 and toWgs84 say that a side's geographical coordinates are
    // WGS 84's (the web Mercator): its Earth-centred coordinates are then
    // taken on WGS 84's ellipsoid.
    void _Run(const CGxMapProjection& from, const CGxMapProjection& to, bool inverseShift,
              bool fromWgs84, bool toWgs84, bool inputProjected, bool outputProjected, double& x,
              double& y, double& z) const;
    // Convert (inverse false) or InvConvert over arrays: the conversion type
    // and the two systems are looked up once for all points.
    void _RunArrays(bool inverse, double* x, double* y, double* h, std::size_t count) const;
    // The bypass the two stored shifts give.
    bool _ShiftsAgree() const;

    // The systems converted between: the owned ones of a converter built from
    // strings, else the caller's.
    CGxMapProjection* _Source() const { return owned ? owned->source.get() : callerSource; }
    CGxMapProjection* _Target() const { return owned ? owned->target.get() : callerTarget; }

    using OwnedSystem = GxClonePtr<CGxMapProjection, GxCopyConstructed<CGxMapProjection>>;
    struct COwnedSystems {
        OwnedSystem source;
        OwnedSystem target;
    };

    // A converter copies and assigns member by member. The systems a
    // converter built from strings owns are copied with it; the caller's
    // systems are shared by the copies and stay the caller's. owned comes
    // first and is the only member whose copy can fail, so a failed
    // assignment leaves the object as it was.
    GxClonePtr<COwnedSystems, GxCopyConstructed<COwnedSystems>> owned;
    // The systems of a converter built from pointers (either may be null);
    // null when owned.
    CGxMapProjection* callerSource = nullptr;
    CGxMapProjection* callerTarget = nullptr;
    ETypeOfConversion conversionType;
    bool sameEllipsoid;
    bool bypassXYZ;
    bool defaultBypassXYZ;
    bool local;
    // The side is the web Mercator: its longitudes and latitudes are WGS 84's.
    bool sourceOnWgs84;
    bool targetOnWgs84;
    CGxCartDef::ETypeOfDatumShift sourceShiftType;
    CGxCartDef::ETypeOfDatumShift targetShiftType;
    // dX, dY, dZ (m), rX, rY, rZ (radians), scale correction (fraction).
    double sourceShift[kShiftValues];
    double targetShift[kShiftValues];
};
