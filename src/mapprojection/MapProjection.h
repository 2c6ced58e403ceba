#pragma once

#include <cstddef>
#include <list>
#include <string>

#include "catalogue/EllipsoidList.h"
#include "definitions/MapProjData.h"
#include "foundation/ClonePtr.h"
#include "foundation/GxExport.h"
#include "foundation/ProjectionInfo.h"

class CGxDatumShift;
class CGxEllipsoid;
class CGxMapProjectionInfo;
class CGxProjection;
class CGxProjReadNotifier;

// The object host code holds for one coordinate system, and the static
// access to the catalogues of the setup.
//
// A coordinate system is named by a projection string: an OGC well-known text
// (a PROJCS or GEOGCS), one of the special strings "LONG/LAT" (geographical
// longitude/latitude) and "NON-UTM" (a plane grid without georeference), or
// the name of a catalogue system such as "UTM-32". The object owns the
// algorithm the string resolves to, the axis and unit information of the
// system and a normalised copy of the string: the text itself for WKT and the
// special strings, the WKT written from the algorithm for a catalogue name.
//
// Angles are decimal degrees, longitude first; projected coordinates
// (easting/northing) are metres, in the axis order and signs the system
// states. A system that declares another linear unit (US survey feet, say)
// still converts in metres: the unit is converted to metres when the system
// is built, and GetUnit(eProjectedUnit, ...) gives the metres per unit for
// callers who want the system's own unit.
//
// Conversions never throw; a string that resolves to nothing gives an object
// without algorithm whose conversions leave their outputs alone. The one
// exception is the bare string "UTM", which names no zone: constructing from
// it throws std::out_of_range("Can't use generic UTM").
//
// The string-returning statics give a pointer into a per-thread buffer that
// stays valid until the same function is called again on the same thread.
class GXCART_API CGxMapProjection {
public:
    // The built-in projection strings of IDtoProjectionString.
    enum EMapProjectionString : int {
        eNonUtm = 1,      // "NON-UTM"
        eLongLat = 2,     // "LONG/LAT"
        eGoogleMaps = 3,  // spherical web Mercator WKT
        eWgs84 = 4,       // WGS 84 geographical WKT
    };

    // Bits of the type mask of IsType, _Exists and the enumerations.
    enum ETypeMask : int {
        eProjectedSystems = 1,
        eGeographicSystems = 2,
        eLongLatString = 4,
        eNonUtmString = 8,
        eGeoreferencedSystems = 3,  // projected or geographical
        eSpecialStrings = 12,       // "LONG/LAT" or "NON-UTM"
        eAllSystems = 15,
    };

    // First axis type + 4 x second axis type (axis types of
    // CGxProjectionInfo::CAxis: east 0, north 1, west 2, south 3).
    enum ECoordSysType : int {
        eNorthEast = 1,
        eSouthEast = 3,
        eEastNorth = 4,
        eWestNorth = 6,
        eNorthWest = 9,
        eSouthWest = 11,
        eEastSouth = 12,
        eWestSouth = 14,
    };

    // Which unit GetUnit reports.
    enum EMapProjectionInfo : int {
        eProjectedUnit = 1,  // linear unit, metres per unit
        eAngularUnit = 2,    // angular unit, radians per unit
    };

    // Which side of the sized default area the given size measures.
    enum ESizeParam : int {
        eWidth = 1,
        eHeight = 2,
    };

    // Resolves a projection string (see the class comment); a null pointer is
    // the empty string, which stands for "NON-UTM". Throws
    // std::out_of_range("Can't use generic UTM") for "UTM".
    explicit CGxMapProjection(const char* projectionString);
    explicit CGxMapProjection(const std::string& projectionString);
    // Copies clone the algorithm.
    CGxMapProjection(const CGxMapProjection& other);
    CGxMapProjection& operator=(const CGxMapProjection& other);
    virtual ~CGxMapProjection();

    // ---------------------------------------------------------- conversions

    // Longitude/latitude to projected coordinates in the system's axis order
    // and signs. Without algorithm only the axis rule is applied to what the
    // outputs hold.
    void Geo2Proj(double lon, double lat, double* x, double* y) const;
    // Projected coordinates in the system's axis order to longitude/latitude;
    // without algorithm the outputs are left alone.
    void Proj2Geo(double x, double y, double* lon, double* lat) const;
    // The same over count points: point i of the inputs goes to element i of
    // the outputs with exactly the bits the single-point call gives it. An
    // output array may be an input array (in-place conversion). A null array
    // or count 0 does nothing; nothing is allocated and no lock is taken.
    void Geo2Proj(const double* lon, const double* lat, double* x, double* y,
                  std::size_t count) const;
    void Proj2Geo(const double* x, const double* y, double* lon, double* lat,
                  std::size_t count) const;
    // Grid convergence in degrees; 0 without algorithm.
    double GetConvergence(double lon, double lat) const;
    // The same over count points into convergence[i] (which may be either
    // input array); the array rules of Geo2Proj above.
    void GetConvergence(const double* lon, const double* lat, double* convergence,
                        std::size_t count) const;
    // Longitude and latitude of the projection origin.
    void GetOrigin(double* lon, double* lat) const;

    // The algorithm's coordinate-system name; "" without algorithm.
    const char* GetName() const;
    // The normalised projection string; "" when the string resolved to
    // nothing.
    const char* GetProjectionString() const { return projectionString.c_str(); }
    // The algorithm, still owned by this object; null when there is none.
    CGxProjection* GetProjection() const { return projection.get(); }
    bool IsGeographical() const;
    bool IsLocal() const;

    void GetDatumShift(CGxDatumShift& shift) const;
    ECoordSysType GetCoordSysType() const;
    // Factor and name of the linear (metres per unit) or angular (radians per
    // unit) unit; name must hold CGxProjectionInfo::kUnitNameSize characters
    // and either pointer may be null. False when the unit is not set or the
    // selector is neither.
    bool GetUnit(EMapProjectionInfo which, double* factor, char* name) const;
    const CGxProjectionInfo& GetProjectionInfo() const { return info; }

    // The algorithm's natural area (lower-left and upper-right corner, in
    // the algorithm's easting/northing); nothing without algorithm.
    void GetDefaultArea(double* x0, double* y0, double* x1, double* y1) const;
    // An area of a window's proportions (width x height pixels) centred on
    // the projected origin, size being its width (eWidth) or height
    // (eHeight) in metres. A window smaller than one pixel gives
    // the natural area; another selector writes nothing.
    void GetDefaultArea(int width, int height, ESizeParam which, double size, double* x0,
                        double* y0, double* x1, double* y1) const;

    // Geodetic longitude, latitude (degrees) and ellipsoidal height (metres)
    // to Earth-centred X, Y, Z (metres) on the algorithm's ellipsoid, and
    // back. Nothing is written without algorithm.
    void Geo2XYZ(double lon, double lat, double h, double* X, double* Y, double* Z) const;
    void XYZ2Geo(double X, double Y, double Z, double* lon, double* lat, double* h) const;
    // The same over count points, with the array rules of Geo2Proj above.
    // A null h puts every point at height 0 going to X, Y, Z and leaves the
    // heights out coming back; a null array otherwise does nothing.
    void Geo2XYZ(const double* lon, const double* lat, const double* h, double* X, double* Y,
                 double* Z, std::size_t count) const;
    void XYZ2Geo(const double* X, const double* Y, const double* Z, double* lon, double* lat,
                 double* h, std::size_t count) const;

    // Ellipsoidal distance (metres) and the forward azimuths at both ends
    // (degrees clockwise from north). Identical points give 0 at once, even
    // without algorithm. A geographical system without ellipsoid measures on
    // WGS 84; otherwise false without algorithm or ellipsoid. Also false,
    // with the outputs untouched, when there is no line to measure (a
    // latitude beyond +-90, a non-finite number). The same point under
    // another name (longitudes whole turns apart) gives 0 and NaN azimuths.
    bool GetDistance(double lon1, double lat1, double lon2, double lat2, double& distance,
                     double& azimuth1, double& azimuth2) const;
    bool GetDistance(double lon1, double lat1, double lon2, double lat2, double& distance) const;
    // The point reached from (lon, lat) along azimuth over distance metres,
    // with the forward azimuth there; the ellipsoid rule of GetDistance, and
    // false with the outputs untouched when no point results (a start
    // latitude beyond +-90, non-finite numbers).
    bool GetPoint(double lon, double lat, double azimuth, double distance, double& lon2,
                  double& lat2, double& azimuth2) const;

    // ------------------------------------------------------------- statics

    // A new algorithm for a projection string, owned by the caller, or null.
    // When info is given it receives the units, datum shift and axes of a
    // WKT string. Throws std::out_of_range("Can't use generic UTM") for
    // "UTM".
    static CGxProjection* GetProjection(const char* projectionString, CGxProjectionInfo* info);

    // Predicates on projection strings. Each ignores blanks at both ends;
    // the special strings are compared exactly, case included. None throws:
    // the bare "UTM" names no system and answers false.
    static bool IsLongLat(const char* s);
    static bool IsLocal(const char* s);
    static bool IsValid(const char* s);
    static bool IsGeoreferenced(const char* s);
    static bool IsGeographical(const char* s);
    static bool HasDatum(const char* s);
    static bool IsType(int mask, const char* s);
    // The type the WKT reader finds in s itself (a catalogue name is no WKT
    // and gives eInvalidProjection).
    static bool IsProjectionOfType(const char* s, CGxMapProjData::EProjectionType type);
    // s names a catalogue system and passes IsType(mask, s).
    static bool _Exists(const char* s, int mask);
    // Both strings name the same system: same projection type, parameters
    // (compared in the same unit when the texts use different ones), prime
    // meridian, ellipsoid figure, datum shift and axis directions.
    static bool AreIdentical(const char* s1, const char* s2);
    static ECoordSysType GetCoordSysType(const char* s);

    // The built-in strings; "" for any other identifier.
    static const char* IDtoProjectionString(int id);
    // "UTM-%d" with the zone floor(lon / 6) + 31 (so 180 gives 61); "" for a
    // longitude that is not finite.
    static const char* LongitudeToUTMZone(double lon);
    // The WKT reader's display name of a projection string.
    static const char* ShortName(const char* s);
    // The names of the catalogue ellipsoids of one list, blanks trimmed, each
    // followed by ';'; count (may be null) receives their number.
    static const char* EnumEllipsoids(CGxEllipsoidList::EEllipsoidTypes type, long* count);
    // The catalogue systems passing IsType(mask, name), as their special
    // string or their WKT, each followed by ';'.
    static const char* EnumMapProjections(int mask, long* count);
    // The same into a list, followed by the systems of the two setup files.
    static void XEnumMapProjections(int mask, std::list<CGxMapProjectionInfo>* list,
                                    CGxProjReadNotifier* notifier);
    // The recently used systems kept in the user's buffer file: s (a WKT, a
    // special string or a catalogue name, whose WKT is kept) is recorded
    // first unless it is already among the first ten lines passing the mask;
    // the answer is those first ten lines, each followed by ';'.
    static const char* XEnumMapProjectionsBuffer(int mask, const char* s, long* count);

    // Catalogue access.
    // The catalogue definition named name (not a copy), or null. Marks the
    // projection catalogue as modified: a caller may edit what it gets.
    static CGxMapProjData* MapProjection(const std::string& name);
    // The catalogue ellipsoid that the catalogue projection named name refers
    // to; null for an unknown projection or one without ellipsoid identifier.
    static CGxEllipsoid* Ellipsoid(const std::string& name);
    // Catalogue ellipsoid by identifier (null for an empty one) or by name.
    static CGxEllipsoid* EllipsoidFromID(const std::string& id);
    static CGxEllipsoid* EllipsoidFromName(const std::string& name);

    // Forwarded to the catalogues; Add takes ownership.
    static void AddEllipsoid(CGxEllipsoid* ellipsoid);
    static void EditEllipsoid(CGxEllipsoid* ellipsoid);
    static void DeleteEllipsoid(CGxEllipsoid* ellipsoid);
    static void AddMapProjection(CGxMapProjData* definition);
    static void DeleteMapProjection(CGxMapProjData* definition);

private:
    // An object without algorithm, for the statics that build one step by
    // step.
    CGxMapProjection();
    // Construction: resolves s and fills the three members. When
    // normalisedType is given it receives the projection type the WKT
    // reader finds in the normalised string, so a caller needs no second
    // parse of it.
    void _Resolve(const char* s, CGxMapProjData::EProjectionType* normalisedType);
    // GetProjection on a trimmed string; wktType (may be null) receives the
    // type the WKT reader found in it.
    static CGxProjection* _GetProjection(const std::string& trimmed, CGxProjectionInfo* info,
                                         CGxMapProjData::EProjectionType* wktType);
    // The algorithm of a catalogue name, or null.
    static CGxProjection* _FindMapProjection(const std::string& name);
    // The type the WKT reader finds in the normalised string of s; "UTM"
    // gives eInvalidProjection instead of throwing.
    static CGxMapProjData::EProjectionType _NormalisedType(const char* s);

    // Algorithms are copied through Clone and given back through
    // CGxProjection::free, which only the facade may call.
    struct AlgorithmCopies {
        static CGxProjection* Copy(const CGxProjection& algorithm);
        static void Release(CGxProjection* algorithm);
    };

    GxClonePtr<CGxProjection, AlgorithmCopies> projection;
    CGxProjectionInfo info;
    std::string projectionString;
};
