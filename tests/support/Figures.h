#pragma once

// The figures of the earth the tests build grids on, as the system catalogue
// names them.

#include "foundation/Ellipsoid.h"

inline const CGxEllipsoid kGxWgs84("WGS 84", "WE", 6378137.0, 298.257223563);
inline const CGxEllipsoid kGxGrs80("GRS 1980", "RF", 6378137.0, 298.257222101);
inline const CGxEllipsoid kGxInternational("International 1924", "IN", 6378388.0, 297.0);
inline const CGxEllipsoid kGxBessel("Bessel 1841", "BR", 6377397.155, 299.1528128);
inline const CGxEllipsoid kGxKrassowsky("Krassowsky 1940", "KA", 6378245.0, 298.3);
inline const CGxEllipsoid kGxClarke1866("Clarke 1866", "CC", 6378206.4, 294.9786982138982);
// A sphere of the mean radius.
inline const CGxEllipsoid kGxSphere("Sphere", "SP", 6371000.0, 0.0);
