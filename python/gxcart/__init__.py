"""GxCart cartographic projections for Python, over libgxcart.so.

    import gxcart
    with gxcart.MapProjection("UTM-32") as utm:
        x, y = utm.geo2proj(9.5, 48.25)              # floats
        xs, ys = utm.geo2proj(lons, lats)            # numpy arrays, any shape
        xs, ys = utm.geo2proj(lons, lats, threads=4) # the same, on four threads

A projection string is one-line WKT, "LONG/LAT", "NON-UTM" or a catalogue
name such as "UTM-32". Angles are decimal degrees, longitude first;
projected coordinates are metres unless native_units=True asks for the
system's own linear unit. Objects pickle, so they go to multiprocessing and
Dask worker processes; threads may share one object, and close() waits for
the calls under way.

The library is found through load_library(path) called before first use,
else $GXCART_LIBRARY, else libgxcart.so beside this package, else the one
installed together with this package by `cmake --install`, else the dynamic
loader's search path, else /usr/local/lib.
"""

import enum
import numbers
from ctypes import byref, c_double, c_int

from . import _library as L
from ._library import LibraryNotFoundError, load_library
from ._numbers import real
from ._objects import Cartography, ConversionType, DatumConverter, DatumShiftType, MapProjection
from ._version import __version__

__all__ = [
    "__version__", "Cartography", "ConversionType", "DatumConverter", "DatumShiftType",
    "LibraryNotFoundError", "MapProjection", "TypeMask", "are_identical", "convert_to_proj4", "coord_sys_type",
    "google_map_projection_string", "has_datum", "is_geographical", "is_georeferenced",
    "is_local", "is_longlat", "is_type", "is_valid", "load_library", "longitude_to_utm_zone",
    "projection_origin", "projection_short_name",
]


class TypeMask(enum.IntFlag):
    """Kinds of projection string for is_type."""
    PROJECTED = 1
    GEOGRAPHICAL = 2
    LONGLAT_STRING = 4
    NONUTM_STRING = 8


def is_valid(s):
    """True when s names a coordinate system the library can build."""
    return bool(L.lib().S_ISVALID(L.encode(s)))


def is_local(s):
    """True for "NON-UTM", the local plane grid without georeference."""
    return bool(L.lib().S_ISLOCAL(L.encode(s)))


def is_longlat(s):
    return bool(L.lib().S_ISLONGLAT(L.encode(s)))


def is_geographical(s):
    """True for longitude/latitude systems, rotated grids included."""
    return bool(L.lib().S_ISGEOGRAPHICAL(L.encode(s)))


def is_georeferenced(s):
    """True for a valid system other than "NON-UTM"."""
    return bool(L.lib().S_ISGEOREFERENCED(L.encode(s)))


def has_datum(s):
    return bool(L.lib().S_HASDATUM(L.encode(s)))


def is_type(s, mask):
    """True when s is of one of the kinds in mask (TypeMask bits)."""
    if isinstance(mask, bool) or not isinstance(mask, numbers.Integral):
        raise TypeError(f"mask must be TypeMask bits or an int, not {type(mask).__name__}")
    # Only the four TypeMask bits mean anything to the library; keeping to
    # them lets any int through ctypes's C int.
    return bool(L.lib().S_ISTYPE(L.encode(s), int(mask) & 0xF))


def are_identical(s1, s2):
    """True when two projection strings give the same projection with the
    same parameters, whatever their names or units."""
    return bool(L.lib().S_AREIDENTICAL(L.encode(s1), L.encode(s2)))


def coord_sys_type(s):
    """First axis type + 4 x second axis type (east 0, north 1, west 2,
    south 3): 4 for east/north."""
    return L.lib().S_GETCOORDSYSTYPE(L.encode(s))


def projection_origin(s):
    """(lon, lat) of the origin of the system s; ValueError when s gives no
    system."""
    raw = L.encode(s)
    lib = L.lib()
    lon, lat, status = c_double(), c_double(), c_int(L.OK)
    lib.S_PROJECTIONORIGIN(raw, byref(lon), byref(lat), byref(status))
    if status.value == L.GENERIC_UTM or not lib.S_ISVALID(raw):
        raise ValueError(f"no coordinate system in {s!r}")
    return lon.value, lat.value


def projection_short_name(s):
    return L.read_text(L.lib().S_PROJECTIONSHORTNAME, L.encode(s))


def longitude_to_utm_zone(lon):
    """"UTM-%d" of the zone holding longitude lon (degrees)."""
    return L.read_text(L.lib().S_LONGITUDETOUTMZONE, real(lon, "lon"))


def google_map_projection_string():
    """WKT of the spherical web Mercator system."""
    return L.read_text(L.lib().S_GETGOOGLEMAPPROJECTIONSTRING)


def convert_to_proj4(s, towgs84=None):
    """PROJ.4 parameters of the projection string s. towgs84, up to seven
    shift values, replaces the shift of the WKT."""
    values, count = None, 0
    if towgs84 is not None:
        if isinstance(towgs84, (str, bytes)):
            raise TypeError(f"towgs84 must be real numbers, not {type(towgs84).__name__}")
        towgs84 = [real(v, "a towgs84 value") for v in towgs84]
        if len(towgs84) > 7:
            raise ValueError(f"towgs84 holds at most 7 values, not {len(towgs84)}")
        count = len(towgs84)
        values = (c_double * 7)(*towgs84)
    return L.read_text(L.lib().C_GXC_CONVERT2PROJ4, L.encode(s), values, count)
