/*
 * GxCart flat interface: plain functions over opaque handles for callers that
 * cannot use the C++ classes (C programs, scripting hosts, other languages).
 * The header compiles as C (C99 and later) and as C++.
 *
 * Three kinds of object are reached through handles:
 *   GxMapProjectionHandle   one coordinate system        (CGxMapProjection)
 *   GxCartographyHandle     a local grid over a system   (CGxCartography)
 *   GxDatumConverterHandle  two systems, across datums   (CGxDatumConverter)
 * A handle is the address of the object. In C it is an opaque pointer; in C++
 * it is a pointer to the class itself, so C++ code may use either interface
 * on the same object.
 *
 * Units: angles are decimal degrees, longitude before latitude. Projected
 * coordinates (easting/northing, and the X/Y of a local grid) are metres
 * whatever linear unit the system's WKT declares: a US-foot state plane
 * system takes and gives metres too. For the system's own unit divide by
 * (or, on input, multiply by) the metres per unit of its PROJCS UNIT clause,
 * 0.3048006096012192 for the US survey foot. Heights and Earth-centred
 * coordinates are metres.
 *
 * Lifetime. A *_CREATE function writes the new handle through its handle
 * argument and sets *status to GXCART_OK. When the object could not be made
 * the handle is null: with status GXCART_GENERIC_UTM when a projection string
 * was the bare "UTM" (which names no zone), otherwise (memory exhausted) with
 * status GXCART_OK, so a caller tests the handle, not only the status. A
 * *_DESTROY function deletes the object, sets the handle variable to null and
 * *status to GXCART_OK; given a pointer to a null handle it does nothing
 * else and sets *status to GXCART_NULL_HANDLE. Destroying a handle twice
 * through copies of it, or using a destroyed handle, is the caller's error
 * and is not detected.
 *
 * Null handles. Every other function given a null handle does nothing: the
 * outputs keep their values and a function with a result answers 0. The text
 * functions set *status to GXCART_NULL_HANDLE in that case. Null output
 * pointers are skipped; a null status pointer receives nothing.
 *
 * Text results (functions with char* buffer, int bufferLength, int* status):
 * with L the length of the result without its terminator, L greater than
 * bufferLength copies nothing and sets *status to L, the length the caller
 * must provide; otherwise the result and its terminator are copied and
 * *status is GXCART_OK. A result of exactly bufferLength characters is
 * therefore written as bufferLength + 1 bytes: allocate bufferLength + 1. A
 * null buffer receives nothing and *status is L.
 *
 * Errors. No function lets a C++ exception out; whatever the classes would
 * throw ends as the outcome described above (status, null handle, untouched
 * outputs, result 0). Conversions report nothing: impossible input gives NaN
 * or infinity, as in the classes.
 *
 * Threads. Objects may be used from several threads for conversions; a
 * handle must not be destroyed while another thread uses it.
 *
 * Arrays (the *ARRAY functions). A whole set of points is converted in one
 * call: point i of the input arrays goes to element i of the output arrays,
 * and each point gets exactly the bits the single-point function gives it
 * (NaN and infinities included). An output array may be the same array as an
 * input array, so a mesh can be converted in place. A null handle, a null
 * array (other than an optional height array) or a count of 0 does nothing.
 * The calls start no threads, take no locks and allocate nothing; to use
 * several cores, give each thread its own slice of the arrays.
 */
#ifndef GXCART_H
#define GXCART_H

#include <stddef.h>

#if defined(GXCART_BUILDING)
#define GXCART_C_API __attribute__((visibility("default")))
#else
#define GXCART_C_API
#endif

#ifdef __cplusplus
#define GXCART_NOEXCEPT noexcept
class CGxMapProjection;
class CGxCartography;
class CGxDatumConverter;
class CGxProjection;
typedef CGxMapProjection* GxMapProjectionHandle;
typedef CGxCartography* GxCartographyHandle;
typedef CGxDatumConverter* GxDatumConverterHandle;
typedef CGxProjection GxProjection;
extern "C" {
#else
#define GXCART_NOEXCEPT
typedef struct CGxMapProjection* GxMapProjectionHandle;
typedef struct CGxCartography* GxCartographyHandle;
typedef struct CGxDatumConverter* GxDatumConverterHandle;
typedef struct CGxProjection GxProjection;
#endif

/* Status values. A text function's positive status is the length it needs. */
enum GxCartStatus { GXCART_OK = 0, GXCART_NULL_HANDLE = -1, GXCART_GENERIC_UTM = -2 };

/* Bits of the type mask of S_ISTYPE. */
enum GxCartTypeMask {
    GXCART_PROJECTED = 1,
    GXCART_GEOGRAPHICAL = 2,
    GXCART_LONGLAT_STRING = 4,
    GXCART_NONUTM_STRING = 8
};

/* Conversion types of C_GXDC_SETCONVERSIONTYPE, named source side first. */
enum GxCartConversionType {
    GXCART_PROJ_TO_PROJ = 0,
    GXCART_PROJ_TO_GEO = 1,
    GXCART_GEO_TO_PROJ = 2,
    GXCART_GEO_TO_GEO = 3
};

/* Datum-shift types of C_GXDC_SETDATUMSHIFT. */
enum GxCartDatumShiftType {
    GXCART_NO_SHIFT = 0,
    GXCART_THREE_PARAMETER_SHIFT = 1,
    GXCART_SEVEN_PARAMETER_SHIFT = 2
};

/* ------------------------------------------------------ local-grid cartography
 * A local model grid: origin (lon, lat) and axes turned by orientation degrees
 * clockwise from true north. The string "UTM" (exactly) means the UTM zone of
 * the origin longitude. (x, y) are projected coordinates, (X, Y) grid
 * coordinates. */
GXCART_C_API void C_GXC_CREATE(const char* projectionString, double lon, double lat,
                               double orientation, GxCartographyHandle* handle,
                               int* status) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_DESTROY(GxCartographyHandle* handle, int* status) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_GEO2PROJ(GxCartographyHandle handle, double lon, double lat, double* x,
                                 double* y) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_PROJ2GEO(GxCartographyHandle handle, double x, double y, double* lon,
                                 double* lat) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_GEO2XY(GxCartographyHandle handle, double lon, double lat, double* X,
                               double* Y) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_XY2GEO(GxCartographyHandle handle, double X, double Y, double* lon,
                               double* lat) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_PROJ2XY(GxCartographyHandle handle, double x, double y, double* X,
                                double* Y) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_XY2PROJ(GxCartographyHandle handle, double X, double Y, double* x,
                                double* y) GXCART_NOEXCEPT;
/* The same six conversions over count points (see Arrays above). */
GXCART_C_API void C_GXC_GEO2PROJARRAY(GxCartographyHandle handle, const double* lon,
                                      const double* lat, double* x, double* y,
                                      size_t count) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_PROJ2GEOARRAY(GxCartographyHandle handle, const double* x, const double* y,
                                      double* lon, double* lat, size_t count) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_GEO2XYARRAY(GxCartographyHandle handle, const double* lon,
                                    const double* lat, double* X, double* Y,
                                    size_t count) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_XY2GEOARRAY(GxCartographyHandle handle, const double* X, const double* Y,
                                    double* lon, double* lat, size_t count) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_PROJ2XYARRAY(GxCartographyHandle handle, const double* x, const double* y,
                                     double* X, double* Y, size_t count) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_XY2PROJARRAY(GxCartographyHandle handle, const double* X, const double* Y,
                                     double* x, double* y, size_t count) GXCART_NOEXCEPT;
/* The grid's angle against projection north, degrees. */
GXCART_C_API double C_GXC_GETPROJNORTH(GxCartographyHandle handle) GXCART_NOEXCEPT;
/* The grid's angle against true north at grid point (X, Y), degrees. */
GXCART_C_API double C_GXC_GETTRUENORTH(GxCartographyHandle handle, double X,
                                       double Y) GXCART_NOEXCEPT;
/* The grid's coordinate system, owned by the grid: usable with the C_GXMP_
 * functions while the grid lives, never to be destroyed. */
GXCART_C_API GxMapProjectionHandle C_GXC_GETPROJECTION(GxCartographyHandle handle) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_GETPROJECTIONNAME(GxCartographyHandle handle, char* buffer,
                                          int bufferLength, int* status) GXCART_NOEXCEPT;
GXCART_C_API void C_GXC_GETPROJECTIONSTRING(GxCartographyHandle handle, char* buffer,
                                            int bufferLength, int* status) GXCART_NOEXCEPT;
/* PROJ.4 text of a projection string. towgs84 (may be null) holds up to seven
 * shift values of which the first count are written; a null array or a count
 * below 1 takes the shift of the WKT. */
GXCART_C_API void C_GXC_CONVERT2PROJ4(const char* projectionString, double* towgs84, int count,
                                      char* buffer, int bufferLength, int* status) GXCART_NOEXCEPT;

/* ------------------------------------------------------------ map projection */
GXCART_C_API void C_GXMP_CREATE(const char* projectionString, GxMapProjectionHandle* handle,
                                int* status) GXCART_NOEXCEPT;
GXCART_C_API void C_GXMP_DESTROY(GxMapProjectionHandle* handle, int* status) GXCART_NOEXCEPT;
GXCART_C_API void C_GXMP_GEO2PROJ(GxMapProjectionHandle handle, double lon, double lat, double* x,
                                  double* y) GXCART_NOEXCEPT;
GXCART_C_API void C_GXMP_PROJ2GEO(GxMapProjectionHandle handle, double x, double y, double* lon,
                                  double* lat) GXCART_NOEXCEPT;
/* Both conversions over count points (see Arrays above). */
GXCART_C_API void C_GXMP_GEO2PROJARRAY(GxMapProjectionHandle handle, const double* lon,
                                       const double* lat, double* x, double* y,
                                       size_t count) GXCART_NOEXCEPT;
GXCART_C_API void C_GXMP_PROJ2GEOARRAY(GxMapProjectionHandle handle, const double* x,
                                       const double* y, double* lon, double* lat,
                                       size_t count) GXCART_NOEXCEPT;
/* Geodetic longitude, latitude, height to Earth-centred X, Y, Z and back. */
GXCART_C_API void C_GXMP_GEO2XYZ(GxMapProjectionHandle handle, double lon, double lat, double h,
                                 double* X, double* Y, double* Z) GXCART_NOEXCEPT;
GXCART_C_API void C_GXMP_XYZ2GEO(GxMapProjectionHandle handle, double X, double Y, double Z,
                                 double* lon, double* lat, double* h) GXCART_NOEXCEPT;
/* Grid convergence at (lon, lat), degrees. */
GXCART_C_API double C_GXMP_GETCONVERGENCE(GxMapProjectionHandle handle, double lon,
                                          double lat) GXCART_NOEXCEPT;
/* The system's natural area, lower-left and upper-right corner. */
GXCART_C_API void C_GXMP_GETDEFAULTAREA(GxMapProjectionHandle handle, double* x0, double* y0,
                                        double* x1, double* y1) GXCART_NOEXCEPT;
GXCART_C_API void C_GXMP_GETORIGIN(GxMapProjectionHandle handle, double* lon,
                                   double* lat) GXCART_NOEXCEPT;
GXCART_C_API void C_GXMP_GETNAME(GxMapProjectionHandle handle, char* buffer, int bufferLength,
                                 int* status) GXCART_NOEXCEPT;
GXCART_C_API void C_GXMP_GETPROJECTIONSTRING(GxMapProjectionHandle handle, char* buffer,
                                             int bufferLength, int* status) GXCART_NOEXCEPT;

/* ----------------------------------------------------------- datum converter
 * Coordinates in place, source to target (CONVERT) or back (INVCONVERT); the
 * conversion type says which side is projected. */
GXCART_C_API void C_GXDC_CREATE(const char* sourceProjectionString,
                                const char* targetProjectionString, GxDatumConverterHandle* handle,
                                int* status) GXCART_NOEXCEPT;
GXCART_C_API void C_GXDC_DESTROY(GxDatumConverterHandle* handle, int* status) GXCART_NOEXCEPT;
GXCART_C_API void C_GXDC_CONVERTXY(GxDatumConverterHandle handle, double* x,
                                   double* y) GXCART_NOEXCEPT;
GXCART_C_API void C_GXDC_CONVERTXYH(GxDatumConverterHandle handle, double* x, double* y,
                                    double* h) GXCART_NOEXCEPT;
GXCART_C_API void C_GXDC_INVCONVERTXY(GxDatumConverterHandle handle, double* x,
                                      double* y) GXCART_NOEXCEPT;
GXCART_C_API void C_GXDC_INVCONVERTXYH(GxDatumConverterHandle handle, double* x, double* y,
                                       double* h) GXCART_NOEXCEPT;
/* CONVERTXY(H) and INVCONVERTXY(H) over count points in place (see Arrays
 * above): with a null h each point goes through the two-value form (height 0
 * in, height dropped), otherwise through the three-value form. */
GXCART_C_API void C_GXDC_CONVERTARRAY(GxDatumConverterHandle handle, double* x, double* y,
                                      double* h, size_t count) GXCART_NOEXCEPT;
GXCART_C_API void C_GXDC_INVCONVERTARRAY(GxDatumConverterHandle handle, double* x, double* y,
                                         double* h, size_t count) GXCART_NOEXCEPT;
/* The geocentric step alone, Earth-centred metres in place. */
GXCART_C_API void C_GXDC_DATUMSHIFT(GxDatumConverterHandle handle, double* X, double* Y,
                                    double* Z) GXCART_NOEXCEPT;
GXCART_C_API void C_GXDC_INVDATUMSHIFT(GxDatumConverterHandle handle, double* X, double* Y,
                                       double* Z) GXCART_NOEXCEPT;
/* Swaps source and target. */
GXCART_C_API void C_GXDC_INVERTORDER(GxDatumConverterHandle handle) GXCART_NOEXCEPT;
/* A GxCartConversionType; another value is ignored. */
GXCART_C_API void C_GXDC_SETCONVERSIONTYPE(GxDatumConverterHandle handle,
                                           int conversionType) GXCART_NOEXCEPT;
/* Replaces the source (flag not 0) or target shift: a GxCartDatumShiftType
 * and its three or seven values, rotations in radians and the scale as a
 * fraction. Another type is ignored; a null params changes only the type. */
GXCART_C_API void C_GXDC_SETDATUMSHIFT(GxDatumConverterHandle handle, int datumShiftType,
                                       double* params, int flag) GXCART_NOEXCEPT;
/* Forces the geocentric step off, restores the choice made at creation, and
 * tells it (1 when bypassed). */
GXCART_C_API void C_GXDC_BYPASSXYZ(GxDatumConverterHandle handle) GXCART_NOEXCEPT;
GXCART_C_API void C_GXDC_RESETBYPASSXYZ(GxDatumConverterHandle handle) GXCART_NOEXCEPT;
GXCART_C_API int C_GXDC_GETBYPASSXYZ(GxDatumConverterHandle handle) GXCART_NOEXCEPT;

/* ---------------------------------------------------- projection-string queries
 * Each answers 1 or 0; blanks at both ends of a string are ignored and a null
 * string is the empty one. */
GXCART_C_API int S_ISVALID(const char* s) GXCART_NOEXCEPT;
GXCART_C_API int S_ISLOCAL(const char* s) GXCART_NOEXCEPT;
GXCART_C_API int S_ISLONGLAT(const char* s) GXCART_NOEXCEPT;
GXCART_C_API int S_ISGEOGRAPHICAL(const char* s) GXCART_NOEXCEPT;
GXCART_C_API int S_ISGEOREFERENCED(const char* s) GXCART_NOEXCEPT;
GXCART_C_API int S_HASDATUM(const char* s) GXCART_NOEXCEPT;
/* Note the order: the string first, then the GxCartTypeMask bits. */
GXCART_C_API int S_ISTYPE(const char* s, int mask) GXCART_NOEXCEPT;
GXCART_C_API int S_AREIDENTICAL(const char* s1, const char* s2) GXCART_NOEXCEPT;
/* First axis type + 4 x second axis type (east 0, north 1, west 2, south 3):
 * 4 for east/north. */
GXCART_C_API int S_GETCOORDSYSTYPE(const char* s) GXCART_NOEXCEPT;
/* Origin of the system s; outputs untouched when s gives no system. */
GXCART_C_API void S_PROJECTIONORIGIN(const char* s, double* lon, double* lat,
                                     int* status) GXCART_NOEXCEPT;
GXCART_C_API void S_PROJECTIONSHORTNAME(const char* s, char* buffer, int bufferLength,
                                        int* status) GXCART_NOEXCEPT;
/* "UTM-%d" of the zone holding longitude lon. */
GXCART_C_API void S_LONGITUDETOUTMZONE(double lon, char* buffer, int bufferLength,
                                       int* status) GXCART_NOEXCEPT;
/* The WKT of the spherical web Mercator system. */
GXCART_C_API void S_GETGOOGLEMAPPROJECTIONSTRING(char* buffer, int bufferLength,
                                                 int* status) GXCART_NOEXCEPT;

/* ------------------------------------ map projection: more arrays, and units
 * Earth-centred coordinates and convergence over count points (see Arrays
 * above), and the units a system states. */
/* GEO2XYZ over count points; a null h puts every point at height 0. */
GXCART_C_API void C_GXMP_GEO2XYZARRAY(GxMapProjectionHandle handle, const double* lon,
                                      const double* lat, const double* h, double* X, double* Y,
                                      double* Z, size_t count) GXCART_NOEXCEPT;
/* XYZ2GEO over count points; a null h leaves the heights out. */
GXCART_C_API void C_GXMP_XYZ2GEOARRAY(GxMapProjectionHandle handle, const double* X,
                                      const double* Y, const double* Z, double* lon, double* lat,
                                      double* h, size_t count) GXCART_NOEXCEPT;
/* GETCONVERGENCE over count points into convergence[i]. */
GXCART_C_API void C_GXMP_GETCONVERGENCEARRAY(GxMapProjectionHandle handle, const double* lon,
                                             const double* lat, double* convergence,
                                             size_t count) GXCART_NOEXCEPT;

/* Units of C_GXMP_GETUNITFACTOR and C_GXMP_GETUNITNAME. */
enum GxCartUnit {
    GXCART_LINEAR_UNIT = 1, /* metres per unit of the projected axes */
    GXCART_ANGULAR_UNIT = 2 /* radians per unit of the geographical axes */
};
/* The unit a system states in its WKT (a catalogue name's WKT included):
 * writes its factor and answers 1; answers 0 and leaves *factor alone when
 * the system states none ("LONG/LAT", "NON-UTM") or unit is neither value.
 * Conversions give metres whatever the linear unit is; divide them by the
 * linear factor for coordinates in the system's own unit. */
GXCART_C_API int C_GXMP_GETUNITFACTOR(GxMapProjectionHandle handle, int unit,
                                      double* factor) GXCART_NOEXCEPT;
/* The name of that unit as a text result; "" when the system states none. */
GXCART_C_API void C_GXMP_GETUNITNAME(GxMapProjectionHandle handle, int unit, char* buffer,
                                     int bufferLength, int* status) GXCART_NOEXCEPT;

/* What the catalogues have to tell about the user's files, one message a line
 * (a section skipped as unreadable, a damaged file kept aside, a file that
 * could not be written); empty when all is well. Copied as the text results
 * above, then cleared; a buffer too small receives nothing and clears
 * nothing. */
GXCART_C_API void S_CATALOGUEREPORT(char* buffer, int bufferLength, int* status) GXCART_NOEXCEPT;

/* ------------------------------------------------------------------- others */
/* A new projection algorithm for s, owned by the caller (C++ deletes it);
 * null when s gives none. */
GXCART_C_API GxProjection* NewGxProjection(const char* s) GXCART_NOEXCEPT;
/* Does nothing: start-up runs when the library is loaded. */
GXCART_C_API void CARTSETUPLINUX(void) GXCART_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GXCART_H */
