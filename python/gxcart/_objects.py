"""The three objects behind handles: a coordinate system, a local grid over
one, and a converter between two systems on different datums."""

import enum
import weakref
from ctypes import byref, c_double, c_int, c_void_p

from . import _library as L
from ._numbers import in_place, pointwise, two_to_two


class ConversionType(enum.IntEnum):
    """Which sides of a datum conversion are projected, source side first."""
    PROJ_TO_PROJ = 0
    PROJ_TO_GEO = 1
    GEO_TO_PROJ = 2
    GEO_TO_GEO = 3


class DatumShiftType(enum.IntEnum):
    NONE = 0
    THREE_PARAMETER = 1
    SEVEN_PARAMETER = 2


_SHIFT_VALUES = {DatumShiftType.NONE: 0, DatumShiftType.THREE_PARAMETER: 3,
                 DatumShiftType.SEVEN_PARAMETER: 7}


def _destroy(destroy_function, address):
    handle, status = c_void_p(address), c_int()
    destroy_function(byref(handle), byref(status))


_BARE_UTM = ('the bare "UTM" names no zone: give one such as "UTM-32", '
             "or use a Cartography, which takes the zone of its origin")


def _create(create_function, *args, generic_utm=_BARE_UTM):
    """The address of a new object, or the exception its creation deserves."""
    handle, status = c_void_p(), c_int(L.OK)
    create_function(*args, byref(handle), byref(status))
    if status.value == L.GENERIC_UTM:
        raise ValueError(generic_utm)
    if not handle.value:
        raise MemoryError(f"{create_function.__name__} could not make the object")
    return handle.value


def _require_valid(text, raw):
    if not L.lib().S_ISVALID(raw):
        raise ValueError(f"not a valid projection string: {_shorten(text)!r}")


def _shorten(text, limit=80):
    text = text if isinstance(text, str) else L.decode(bytes(text))
    return text if len(text) <= limit else text[:limit - 3] + "..."


class _Handle:
    """An object of the library, released once: by close(), at the end of a
    with block, or when it is garbage-collected. A borrowed handle (owner
    set) belongs to its owner and lives as long as the owner is open."""

    def __init__(self, address, destroy_function, owner=None):
        self._address = address
        self._owner = owner
        self._finalizer = (None if owner is not None else
                           weakref.finalize(self, _destroy, destroy_function, address))

    @property
    def _h(self):
        if self._address is None or (self._owner is not None and self._owner.closed):
            raise ValueError(f"operation on a closed {type(self).__name__}")
        return self._address

    @property
    def closed(self):
        return self._address is None or (self._owner is not None and self._owner.closed)

    def close(self):
        """Release the library object now; later calls raise ValueError."""
        if self._finalizer is not None:
            self._finalizer()
        self._address = None

    def __enter__(self):
        self._h
        return self

    def __exit__(self, *exc_info):
        self.close()

    # A copy would share the address and free it twice.
    def __reduce__(self):
        raise TypeError(f"a {type(self).__name__} cannot be copied or pickled")


class MapProjection(_Handle):
    """One coordinate system, from a projection string: WKT, "LONG/LAT",
    "NON-UTM" or a catalogue name such as "UTM-32".

    Angles are decimal degrees, longitude first; projected coordinates are
    in the system's unit (normally metres). Conversions take scalars
    (answering floats) or arrays (answering new float64 arrays of the
    broadcast shape); impossible points give NaN or infinity, never an
    exception."""

    def __init__(self, projection_string):
        raw = L.encode(projection_string)
        lib = L.lib()
        address = _create(lib.C_GXMP_CREATE, raw)
        super().__init__(address, lib.C_GXMP_DESTROY)
        if not lib.S_ISVALID(raw):
            self.close()
            _require_valid(projection_string, raw)

    @classmethod
    def _borrowed(cls, address, owner):
        self = cls.__new__(cls)
        _Handle.__init__(self, address, None, owner)
        return self

    def __repr__(self):
        return f"<gxcart.MapProjection {'closed' if self.closed else repr(self.name)}>"

    def geo2proj(self, lon, lat, threads=None):
        """(x, y) of geographical (lon, lat). threads > 1 splits large
        arrays over that many threads; the result is the same."""
        lib = L.lib()
        return two_to_two(lib.C_GXMP_GEO2PROJ, lib.C_GXMP_GEO2PROJARRAY, self._h, lon, lat,
                          threads)

    def proj2geo(self, x, y, threads=None):
        """(lon, lat) of projected (x, y)."""
        lib = L.lib()
        return two_to_two(lib.C_GXMP_PROJ2GEO, lib.C_GXMP_PROJ2GEOARRAY, self._h, x, y, threads)

    def geo2xyz(self, lon, lat, h=0.0):
        """Earth-centred (X, Y, Z) in metres of (lon, lat, ellipsoidal height)."""
        return pointwise(self._point3(L.lib().C_GXMP_GEO2XYZ), lon, lat, h)

    def xyz2geo(self, X, Y, Z):
        """(lon, lat, ellipsoidal height) of Earth-centred (X, Y, Z)."""
        return pointwise(self._point3(L.lib().C_GXMP_XYZ2GEO), X, Y, Z)

    def _point3(self, function):
        handle = self._h

        def point(a, b, c):
            out = (c_double(), c_double(), c_double())
            function(handle, a, b, c, *(byref(v) for v in out))
            return tuple(v.value for v in out)
        return point

    def convergence(self, lon, lat):
        """Grid convergence at (lon, lat): the angle from true north to grid
        north, degrees."""
        handle, function = self._h, L.lib().C_GXMP_GETCONVERGENCE
        return pointwise(lambda a, b: function(handle, a, b), lon, lat)

    @property
    def default_area(self):
        """The system's natural area, (x0, y0, x1, y1): lower-left and
        upper-right corner."""
        corners = [c_double() for _ in range(4)]
        L.lib().C_GXMP_GETDEFAULTAREA(self._h, *(byref(c) for c in corners))
        return tuple(c.value for c in corners)

    @property
    def origin(self):
        """(lon, lat) of the projection's origin."""
        lon, lat = c_double(), c_double()
        L.lib().C_GXMP_GETORIGIN(self._h, byref(lon), byref(lat))
        return lon.value, lat.value

    @property
    def name(self):
        return L.read_text(L.lib().C_GXMP_GETNAME, self._h)

    @property
    def projection_string(self):
        """The system as one-line WKT (or the special string it was made from)."""
        return L.read_text(L.lib().C_GXMP_GETPROJECTIONSTRING, self._h)


class Cartography(_Handle):
    """A local model grid over a coordinate system: grid origin (lon, lat)
    and axes turned orientation degrees clockwise from true north. The
    projection string "UTM" means the UTM zone of the origin longitude.

    (x, y) are projected coordinates, (X, Y) grid coordinates; numbers as in
    MapProjection."""

    def __init__(self, projection_string, lon, lat, orientation=0.0):
        raw = L.encode(projection_string)
        lib = L.lib()
        zone_of_origin = raw == b"UTM"  # exactly: " UTM " is no zone marker
        if not zone_of_origin:
            _require_valid(projection_string, raw)
        no_zone = f"no UTM zone holds the origin longitude {lon!r}"
        address = _create(lib.C_GXC_CREATE, raw, float(lon), float(lat), float(orientation),
                          generic_utm=no_zone)
        super().__init__(address, lib.C_GXC_DESTROY)
        # Longitudes outside [-180, 180) name zones past UTM-60 that do not exist.
        if zone_of_origin and not lib.S_ISVALID(L.encode(self.projection_string)):
            self.close()
            raise ValueError(no_zone)

    def __repr__(self):
        return ("<gxcart.Cartography closed>" if self.closed else
                f"<gxcart.Cartography on {self.projection_name!r}>")

    def _convert(self, name, a, b, threads):
        lib = L.lib()
        return two_to_two(getattr(lib, name), getattr(lib, name + "ARRAY"), self._h, a, b,
                          threads)

    def geo2proj(self, lon, lat, threads=None):
        return self._convert("C_GXC_GEO2PROJ", lon, lat, threads)

    def proj2geo(self, x, y, threads=None):
        return self._convert("C_GXC_PROJ2GEO", x, y, threads)

    def geo2xy(self, lon, lat, threads=None):
        return self._convert("C_GXC_GEO2XY", lon, lat, threads)

    def xy2geo(self, X, Y, threads=None):
        return self._convert("C_GXC_XY2GEO", X, Y, threads)

    def proj2xy(self, x, y, threads=None):
        return self._convert("C_GXC_PROJ2XY", x, y, threads)

    def xy2proj(self, X, Y, threads=None):
        return self._convert("C_GXC_XY2PROJ", X, Y, threads)

    @property
    def projection_north(self):
        """The grid's angle against projection north, degrees."""
        return L.lib().C_GXC_GETPROJNORTH(self._h)

    def true_north(self, X, Y):
        """The grid's angle against true north at grid point (X, Y), degrees."""
        handle, function = self._h, L.lib().C_GXC_GETTRUENORTH
        return pointwise(lambda a, b: function(handle, a, b), X, Y)

    @property
    def projection(self):
        """The grid's coordinate system, a MapProjection owned by the grid:
        usable while the grid is open, and closing it does not close the grid."""
        return MapProjection._borrowed(L.lib().C_GXC_GETPROJECTION(self._h), self)

    @property
    def projection_name(self):
        return L.read_text(L.lib().C_GXC_GETPROJECTIONNAME, self._h)

    @property
    def projection_string(self):
        return L.read_text(L.lib().C_GXC_GETPROJECTIONSTRING, self._h)


class DatumConverter(_Handle):
    """Conversion between two coordinate systems on different datums,
    through Earth-centred coordinates and WGS 84.

    Which side is projected and which geographical is set with
    set_conversion_type (PROJ_TO_PROJ at first). convert and inv_convert
    answer new values and never modify the caller's arrays."""

    def __init__(self, source, target):
        raw_source, raw_target = L.encode(source), L.encode(target)
        lib = L.lib()
        address = _create(lib.C_GXDC_CREATE, raw_source, raw_target)
        super().__init__(address, lib.C_GXDC_DESTROY)
        for text, raw in ((source, raw_source), (target, raw_target)):
            if not lib.S_ISVALID(raw):
                self.close()
                _require_valid(text, raw)

    def __repr__(self):
        return f"<gxcart.DatumConverter {'closed' if self.closed else 'open'}>"

    def convert(self, x, y, h=None, threads=None):
        """Source (x, y) or (x, y, h) to target: a tuple of the same size.
        Without h the points are converted at height 0."""
        lib = L.lib()
        return in_place(lib.C_GXDC_CONVERTXY, lib.C_GXDC_CONVERTXYH, lib.C_GXDC_CONVERTARRAY,
                        self._h, x, y, h, threads)

    def inv_convert(self, x, y, h=None, threads=None):
        """Target coordinates back to source."""
        lib = L.lib()
        return in_place(lib.C_GXDC_INVCONVERTXY, lib.C_GXDC_INVCONVERTXYH,
                        lib.C_GXDC_INVCONVERTARRAY, self._h, x, y, h, threads)

    def datum_shift(self, X, Y, Z):
        """The geocentric step alone: source Earth-centred (X, Y, Z) in metres
        to target."""
        return pointwise(self._shift(L.lib().C_GXDC_DATUMSHIFT), X, Y, Z)

    def inv_datum_shift(self, X, Y, Z):
        return pointwise(self._shift(L.lib().C_GXDC_INVDATUMSHIFT), X, Y, Z)

    def _shift(self, function):
        handle = self._h

        def point(a, b, c):
            cells = (c_double(a), c_double(b), c_double(c))
            function(handle, *(byref(v) for v in cells))
            return tuple(v.value for v in cells)
        return point

    def invert_order(self):
        """Swap source and target."""
        L.lib().C_GXDC_INVERTORDER(self._h)

    def set_conversion_type(self, conversion_type):
        """A ConversionType (or its int); ValueError for another value."""
        L.lib().C_GXDC_SETCONVERSIONTYPE(self._h, ConversionType(conversion_type))

    def set_datum_shift(self, shift_type, params=None, *, source=True):
        """Replace the source (or, with source=False, the target) shift to
        WGS 84: a DatumShiftType and its 3 or 7 values (dX, dY, dZ in metres,
        then rotations in radians and the scale as a fraction). Without params
        only the type changes."""
        shift_type = DatumShiftType(shift_type)
        values = None
        if params is not None:
            params = [float(p) for p in params]
            if len(params) != _SHIFT_VALUES[shift_type]:
                raise ValueError(f"{shift_type.name} takes {_SHIFT_VALUES[shift_type]} "
                                 f"values, not {len(params)}")
            values = (c_double * max(len(params), 1))(*params)
        L.lib().C_GXDC_SETDATUMSHIFT(self._h, shift_type, values, 1 if source else 0)

    def bypass_xyz(self):
        """Leave the geocentric step out of every conversion."""
        L.lib().C_GXDC_BYPASSXYZ(self._h)

    def reset_bypass_xyz(self):
        """Restore the choice made at creation (bypassed when both systems
        share ellipsoid and datum shift)."""
        L.lib().C_GXDC_RESETBYPASSXYZ(self._h)

    @property
    def bypassed(self):
        return bool(L.lib().C_GXDC_GETBYPASSXYZ(self._h))
