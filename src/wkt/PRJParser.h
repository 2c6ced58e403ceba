#pragma once

#include <list>
#include <string>

#include "datum/DatumShift.h"
#include "definitions/MapProjData.h"
#include "foundation/GxExport.h"

class CGxProjection;

// The projection parameters of a coordinate-system record. Every parameter of
// every projection type is one of these, whatever name a text or a keyword
// file gives it: a Lambert 2SP "origin longitude" and a Transverse Mercator
// "centre" are both the central meridian. The record keeps one value for
// each, and the definitions hand their parameters over by the same slots.
enum class EGxWktParameter : int {
    eFalseEasting,
    eFalseNorthing,
    eCentralMeridian,
    eStandardParallel1,
    eStandardParallel2,
    eLatitudeOfOrigin,
    eLongitudeOfCenter,
    eLatitudeOfCenter,
    eAzimuth,
    eXYPlaneRotation,
    eScaleFactor,
    eLongitudeOfSouthPole,
    eLatitudeOfSouthPole,
    eAngleOfRotation,
    ePseudoParallel,
    eXScale,
    eYScale,
};
constexpr int kGxWktParameterCount = static_cast<int>(EGxWktParameter::eYScale) + 1;

// One coordinate system in the flat form in which an OGC well-known text (the
// one-line content of a .prj file) states it: the names of the projected and
// geographic systems, datum, spheroid, prime meridian, units, datum shift,
// projection name and type, the projection's parameters and two axes.
//
// The reader is a keyword scanner, not a grammar: keywords are found by
// substring search in the whole text and tokens are cut at small sets of
// delimiter characters. That makes it tolerant of the many dialects GIS
// software writes (upper- or lower-case parameter names, AUTHORITY and
// EXTENSION clauses, compound systems) at the price of reading the first
// occurrence of each keyword wherever it stands.
//
// Numbers are stored as written: angles in the text's angular unit (degrees
// in practice), lengths in its linear unit. An absent number holds the unset
// marker -1e-35; a NaN read from the text counts as present.
class GXCART_API CGxPRJParser {
public:
    // How a projection name is read beyond its type: the names that fix some
    // of the type's parameters or its figure (the names of each type's row in
    // definitions/ProjectionTypes.cpp; docs/wkt-dialects.md).
    enum class EDialect : int {
        kPlain,
        kEsriWebMercator,      // Mercator on the sphere of the semi-major axis
        kEpsgWebMercator,      // the same, with the EPSG method's parameters
        kKrovakNorth,          // east-north Krovak: fixed axis scales and rotation
        kPolarStereographicB,  // pole chosen by the standard parallel's sign
        kHotineCentre,         // centre origin, grid along the initial line
    };

    // Selects one of the two AXIS entries.
    enum EAxisType : int {
        eFirstAxis = 1,
        eSecondAxis = 2,
    };

    // Store the text; Parse reads it. A null pointer stands for an empty text.
    explicit CGxPRJParser(const std::string& text);
    explicit CGxPRJParser(const char* text);
    // Filled for writing by the object itself (its TransferParameters).
    explicit CGxPRJParser(CGxMapProjData* definition);
    explicit CGxPRJParser(CGxProjection* projection);
    virtual ~CGxPRJParser();

    // Fills the members from the text (WktReader.cpp); true when a coordinate
    // system of a known projection type with all its parameters and units was
    // read. After a failure the type is eInvalidProjection and the members
    // keep whatever had been read. With sortParallels set, the two standard
    // parallels of the conic types (Lambert 2SP, Albers, equidistant conic)
    // are stored smaller first. Meant to run once on a fresh parser.
    bool Parse(bool sortParallels);

    // Non-zero when the text is taken for WKT: balanced square brackets, more
    // commas than opening brackets, and a PROJCS or GEOGCS keyword.
    static int IsPRJ(const std::string& text);

    // The display name of a coordinate-system text: the COMPD_CS name, else
    // the PROJCS name, else the GEOGCS name, else "Local Coordinates" for the
    // local-grid string, else the text itself.
    static std::string ShortName(const std::string& text);

    // The quoted name after the first occurrence of keyword (case-sensitive);
    // empty when the keyword is absent.
    static std::string GetName(const std::string& text, const std::string& keyword);

    // Reads keyword["name",value] at the first occurrence of keyword and
    // answers the text after the value, so that a caller can look for the
    // next occurrence in the answer. When the keyword is absent the answer is
    // empty and both outputs are untouched. A value that is not a number
    // reads as 0.
    static std::string GetNameParam(const std::string& text, const std::string& keyword,
                                    std::string& name, double& value);
    static std::string GetNameParam(const std::string& text, const std::string& keyword,
                                    std::string& name, std::string& value);

    // The number after the first quoted occurrence of a parameter name,
    // matched without regard to case; def when the name is not there. The
    // quotes are part of the match, so "Factor" does not find
    // "Scale_Factor". The list form answers the first name that is present.
    static double GetParam(const std::string& text, const std::string& name, double def);
    static double GetParam(const std::string& text, const std::list<std::string>& names,
                           double def);

    // -1 when the square brackets balance; else the index of the first
    // closing bracket without an opening one, or the text length when some
    // stay open.
    static int _MatchBrackets(const std::string& text);
    // Non-zero when the text holds more commas than opening brackets.
    static int _MatchCommas(const std::string& text);
    // Opening minus closing brackets from the start; stops at the first
    // negative count.
    static int _GetBracketLevel(const std::string& text);

    // The indented, multi-line form of a WKT text ("\r\n" line ends, four
    // spaces per open bracket, at most sixteen levels deep): each element
    // starts a new line after the comma before its keyword.
    static void FormatAsReadableWKT(const std::string& in, std::string& out);

    // Writes the system as one line of WKT (a PROJCS); false for a type
    // outside 1..21, when out holds the text up to the PROJECTION element.
    bool Format(std::string& out) const;
    // The same into a caller's buffer; false, with the buffer untouched, when
    // the text and its terminator do not fit.
    bool Format(char* buffer, int size) const;
    // The DATUM name of a WKT text.
    static std::string DatumName(const std::string& text);

    // A new algorithm for the parsed system (angles in degrees, lengths in
    // metres), owned by the caller; null when the type gives none. Writes the
    // derived scale or parallel of the Mercator and polar types back.
    CGxProjection* CreateMapProjection();
    // The parameters of the definition the parsed system gives, with their
    // units; 0 parameters and the title "Non projection" when it gives none.
    int GetNoOfParameters() const;
    int GetParameter(int index, std::string& name, double& value, std::string& unitName,
                     double& unitFactor) const;
    std::string GetProjectionTypeTitle() const;

    std::string GetProjCSname() const { return projCSname; }
    void SetProjCSname(const std::string& name) { projCSname = name; }
    std::string GetGeoCSname() const { return geoCSname; }
    void SetGeoCSname(const std::string& name) { geoCSname = name; }
    std::string GetDatum() const { return datumName; }
    void SetDatum(const std::string& name) { datumName = name; }

    // Prime meridian longitude in the angular unit.
    void GetPrimeMeridian(std::string& name, double& value) const;
    void SetPrimeMeridian(const std::string& name, double value);
    // Radians per angular unit.
    void GetAngularUnit(std::string& name, double& factor) const;
    void SetAngularUnit(const std::string& name, double factor);
    // Semi-major axis in the linear unit of the spheroid, inverse flattening.
    void GetEllipsoid(std::string& name, double& major, double& invFlattening) const;
    void SetEllipsoid(const std::string& name, double major, double invFlattening);
    void GetDatumShift(CGxDatumShift& shift) const { shift = datumShift; }
    void SetDatumShift(const CGxDatumShift& shift) { datumShift = shift; }

    CGxMapProjData::EProjectionType GetProjectionType() const { return projectionType; }
    void SetProjectionType(CGxMapProjData::EProjectionType type) { projectionType = type; }
    // The PROJECTION name exactly as written in the text.
    std::string GetProjectionTypeName() const { return projectionTypeName; }
    void SetProjectionTypeName(const std::string& name) { projectionTypeName = name; }

    // Metres per linear unit of a projected system.
    void GetProjUnit(std::string& name, double& factor) const;
    void SetProjUnit(const std::string& name, double factor);

    // Name and direction word of an axis; a selector other than eFirstAxis or
    // eSecondAxis does nothing.
    void GetAxisInfo(EAxisType axis, std::string& name, std::string& direction) const;
    void SetAxisInfo(EAxisType axis, const std::string& name, const std::string& direction);

    // Projection parameters: lengths in the linear unit, angles in the
    // angular unit, scales as plain factors; -1e-35 when absent. By slot, a
    // value outside the enumeration reads as absent and stores nothing.
    double GetWktParameter(EGxWktParameter which) const;
    void SetWktParameter(EGxWktParameter which, double v);
    double GetFalseEasting() const { return _At(P::eFalseEasting); }
    void SetFalseEasting(double v) { _At(P::eFalseEasting) = v; }
    double GetFalseNorthing() const { return _At(P::eFalseNorthing); }
    void SetFalseNorthing(double v) { _At(P::eFalseNorthing) = v; }
    double GetCentralMeridian() const { return _At(P::eCentralMeridian); }
    void SetCentralMeridian(double v) { _At(P::eCentralMeridian) = v; }
    double GetStandardParallel1() const { return _At(P::eStandardParallel1); }
    void SetStandardParallel1(double v) { _At(P::eStandardParallel1) = v; }
    double GetStandardParallel2() const { return _At(P::eStandardParallel2); }
    void SetStandardParallel2(double v) { _At(P::eStandardParallel2) = v; }
    double GetLatitudeOfOrigin() const { return _At(P::eLatitudeOfOrigin); }
    void SetLatitudeOfOrigin(double v) { _At(P::eLatitudeOfOrigin) = v; }
    double GetLongitudeOfCenter() const { return _At(P::eLongitudeOfCenter); }
    void SetLongitudeOfCenter(double v) { _At(P::eLongitudeOfCenter) = v; }
    double GetLatitudeOfCenter() const { return _At(P::eLatitudeOfCenter); }
    void SetLatitudeOfCenter(double v) { _At(P::eLatitudeOfCenter) = v; }
    double GetAzimuth() const { return _At(P::eAzimuth); }
    void SetAzimuth(double v) { _At(P::eAzimuth) = v; }
    double GetXYPlaneRotation() const { return _At(P::eXYPlaneRotation); }
    void SetXYPlaneRotation(double v) { _At(P::eXYPlaneRotation) = v; }
    double GetScaleFactor() const { return _At(P::eScaleFactor); }
    void SetScaleFactor(double v) { _At(P::eScaleFactor) = v; }
    double GetLongitudeOfSouthPole() const { return _At(P::eLongitudeOfSouthPole); }
    void SetLongitudeOfSouthPole(double v) { _At(P::eLongitudeOfSouthPole) = v; }
    double GetLatitudeOfSouthPole() const { return _At(P::eLatitudeOfSouthPole); }
    void SetLatitudeOfSouthPole(double v) { _At(P::eLatitudeOfSouthPole) = v; }
    double GetAngleOfRotation() const { return _At(P::eAngleOfRotation); }
    void SetAngleOfRotation(double v) { _At(P::eAngleOfRotation) = v; }
    double GetPseudoParallel() const { return _At(P::ePseudoParallel); }
    void SetPseudoParallel(double v) { _At(P::ePseudoParallel) = v; }
    double GetXScale() const { return _At(P::eXScale); }
    void SetXScale(double v) { _At(P::eXScale) = v; }
    double GetYScale() const { return _At(P::eYScale); }
    void SetYScale(double v) { _At(P::eYScale) = v; }

protected:
    // A new definition with the values as written, owned by the caller; null
    // for the types 21 and 22.
    CGxMapProjData* _CreateProjData() const;

private:
    using P = EGxWktParameter;

    // Gives every member its initial value.
    void _initialize();
    double& _At(P which) { return parameters[static_cast<int>(which)]; }
    double _At(P which) const { return parameters[static_cast<int>(which)]; }

    std::string text;
    std::string projCSname;
    std::string geoCSname;
    std::string datumName;
    std::string primeMeridianName;
    double primeMeridian;
    std::string angularUnitName;
    double angularUnitFactor;
    std::string spheroidName;
    double semiMajorAxis;
    double inverseFlattening;
    CGxDatumShift datumShift;
    CGxMapProjData::EProjectionType projectionType;
    std::string projectionTypeName;
    double parameters[kGxWktParameterCount];
    std::string projUnitName;
    double projUnitFactor;
    std::string axis1Name;
    std::string axis1Direction;
    std::string axis2Name;
    std::string axis2Direction;
};
