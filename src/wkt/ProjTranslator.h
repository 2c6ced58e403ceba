#pragma once

#include <string>

#include "foundation/GxExport.h"

// Writes a coordinate system as a PROJ.4 parameter string, for hosts that
// hand coordinates to tools of that family. Only writing: PROJ.4 text is
// never read.
//
// The answer is built from the WKT the system stands for: "+proj=" and the
// projection's parameters (angles in degrees, the prime meridian added to the
// central longitudes, false easting and northing in metres), the figure as
// "+a" and "+b" (never an ellipsoid name), the datum shift as "+towgs84"
// (position-vector rotations in arc-seconds, scale in parts per million), the
// linear unit, and the closing "+no_defs  no_defs <>". Every item ends with a
// blank; numbers are written "%.16g" with a decimal point in every locale.
//
// Some systems cannot be said in full: the Hotine forms write their centre
// longitude as "+lon_0" and no origin choice, Krovak writes neither its
// pseudo standard parallel nor its axis scales and rotation, the plane system
// "Non_Projected" writes no "+proj" at all, and a rotated longitude/latitude
// grid, the strings "LONG/LAT" and "NON-UTM" and texts of no known
// projection answer "+proj=undef ".
class GXCART_API CGxProjTranslator {
public:
    // The PROJ.4 text of a projection string (WKT, "LONG/LAT", "NON-UTM" or
    // a catalogue name). towgs84 holds up to seven shift values in the order
    // of the "+towgs84" list, of which the first count are written and the
    // rest filled with 0; a null array or a count below 1 takes the shift of
    // the WKT. An input that resolves to no algorithm (and the bare "UTM",
    // which names no zone) gives "".
    static std::string Convert2Proj4(const std::string& projectionString, double* const towgs84,
                                     int count);
    // Convert2Proj4 of the first line of a .prj file (a carriage return
    // before the line feed is dropped); a file that cannot be read gives the
    // translation of an empty line.
    static std::string ConvertPRJFile2Proj4(const std::string& path, double* const towgs84,
                                            int count);
};
