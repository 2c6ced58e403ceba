"""The three objects behind handles: a coordinate system, a local grid over
one, and a converter between two systems on different datums."""

import enum
import numbers
import threading
import weakref
from ctypes import byref, c_double, c_int, c_void_p
from functools import partial

import numpy as np

from . import _library as L
from ._numbers import flag, in_place, outputs_of, pointwise, real, result_of, transform


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


def _enum_value(enumeration, value, what):
    """A member of enumeration from itself or its int; TypeError for what is
    no integer (a bool included), ValueError for an int it does not hold."""
    if isinstance(value, (bool, np.bool_)) or not isinstance(value, numbers.Integral):
        raise TypeError(f"{what} must be a {enumeration.__name__} or int, not "
                        f"{type(value).__name__}")
    return enumeration(int(value))


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


def _linear_factor(address):
    """Metres per unit of the linear unit a map projection states, or None
    when it states none or its unit is the metre (nothing to scale)."""
    factor = c_double()
    if not L.lib().C_GXMP_GETUNITFACTOR(address, L.LINEAR_UNIT, byref(factor)):
        return None
    value = factor.value
    return value if np.isfinite(value) and value > 0.0 and value != 1.0 else None


class _Use:
    """with owner.use() as handle: the object is held for the block."""
    __slots__ = ("_owner",)

    def __init__(self, owner):
        self._owner = owner

    def __enter__(self):
        return self._owner._enter()

    def __exit__(self, *exc_info):
        self._owner._leave()


class _Handle:
    """An object of the library, released once: by close(), at the end of a
    with block, or when it is garbage-collected. A borrowed handle (owner
    set) belongs to its owner and lives as long as the owner is open.

    Threads may convert through one object at once. Every foreign call holds
    the object (use()); close() and the calls that change the object's state
    wait until the calls under way have ended and hold off new ones while
    they run, so no thread ever works on a freed or half-changed object.
    Calls made after close() raise ValueError."""

    def __init__(self, address, destroy_function, owner=None):
        self._address = address
        self._owner = owner
        self._guard = threading.Condition(threading.Lock())
        self._running = 0        # calls under way
        self._exclusive = False  # a close or a change of state runs or waits
        self._finalizer = None
        if owner is None:
            self._finalizer = weakref.finalize(self, _destroy, destroy_function, address)
            # At interpreter exit, daemon threads may still be inside the
            # library with this object: leave it to the end of the process.
            self._finalizer.atexit = False

    def _closed_error(self):
        return ValueError(f"operation on a closed {type(self).__name__}")

    def _enter(self):
        with self._guard:
            while self._exclusive and self._address is not None:
                self._guard.wait()
            if self._address is None:
                raise self._closed_error()
            if self._owner is not None:
                try:
                    self._owner._enter()
                except ValueError:
                    raise self._closed_error() from None
            self._running += 1
            return self._address

    def _leave(self):
        if self._owner is not None:
            self._owner._leave()
        with self._guard:
            self._running -= 1
            if not self._running:
                self._guard.notify_all()

    def use(self):
        return _Use(self)

    def _hold_alone(self):
        """Wait for the calls under way and keep new ones off; False when the
        object is closed already."""
        with self._guard:
            while self._exclusive:
                self._guard.wait()
            if self._address is None:
                return False
            self._exclusive = True
            try:
                while self._running:
                    self._guard.wait()
            except BaseException:  # interrupted while waiting: hold nothing
                self._exclusive = False
                self._guard.notify_all()
                raise
            return True

    def _let_go(self):
        with self._guard:
            self._exclusive = False
            self._guard.notify_all()

    def _alone(self, body):
        """body(handle) while no other call uses the object: for changes of
        its state, which a conversion must not see half made."""
        if not self._hold_alone():
            raise self._closed_error()
        try:
            return body(self._address)
        finally:
            self._let_go()

    @property
    def closed(self):
        return self._address is None or (self._owner is not None and self._owner.closed)

    def close(self):
        """Release the library object, once the calls under way in other
        threads have ended; later calls raise ValueError."""
        if not self._hold_alone():
            return
        with self._guard:
            self._address = None
            self._exclusive = False
            self._guard.notify_all()
        if self._finalizer is not None:
            self._finalizer()

    def __enter__(self):
        if self.closed:
            raise self._closed_error()
        return self

    def __exit__(self, *exc_info):
        self.close()

    def _check_picklable(self):
        if self.closed:
            raise ValueError(f"a closed {type(self).__name__} cannot be pickled or copied")


class MapProjection(_Handle):
    """One coordinate system, from a projection string: WKT, "LONG/LAT",
    "NON-UTM" or a catalogue name such as "UTM-32".

    Angles are decimal degrees, longitude first. Projected coordinates are
    metres whatever linear unit the system states (a US-foot system gives
    metres too); native_units=True gives and takes them in that unit
    instead (see linear_unit). Conversions take scalars (answering floats)
    or arrays (answering new float64 arrays of the broadcast shape; masked
    arrays keep their mask); impossible points give NaN or infinity, never
    an exception. Anything that is not a real number raises TypeError.

    A MapProjection pickles as the projection string it was made from, and
    the copy converts every point to the same bits: it can go to
    multiprocessing or Dask worker processes."""

    def __init__(self, projection_string):
        raw = L.encode(projection_string)
        lib = L.lib()
        address = _create(lib.C_GXMP_CREATE, raw)
        super().__init__(address, lib.C_GXMP_DESTROY)
        if not lib.S_ISVALID(raw):
            self.close()
            _require_valid(projection_string, raw)
        self._source = projection_string
        self._factor = _linear_factor(address)

    @classmethod
    def _borrowed(cls, address, owner, source):
        self = cls.__new__(cls)
        _Handle.__init__(self, address, None, owner)
        self._source = source
        self._factor = _linear_factor(address)
        return self

    def __reduce__(self):
        self._check_picklable()
        return MapProjection, (self._source,)

    def __repr__(self):
        return f"<gxcart.MapProjection {'closed' if self.closed else repr(self.name)}>"

    def _native(self, native_units):
        return self._factor if flag(native_units, "native_units") else None

    def geo2proj(self, lon, lat, threads=None, native_units=False):
        """(x, y) of geographical (lon, lat): metres, or with
        native_units=True the system's own linear unit. threads > 1 splits
        large arrays over that many threads; the result is the same."""
        lib, f = L.lib(), self._native(native_units)
        return transform(outputs_of(lib.C_GXMP_GEO2PROJ, 2), lib.C_GXMP_GEO2PROJARRAY, self,
                         (lon, lat), ("lon", "lat"), 2, threads, scale_out=f and (f, f))

    def proj2geo(self, x, y, threads=None, native_units=False):
        """(lon, lat) of projected (x, y), given in metres or with
        native_units=True in the system's own linear unit."""
        lib, f = L.lib(), self._native(native_units)
        return transform(outputs_of(lib.C_GXMP_PROJ2GEO, 2), lib.C_GXMP_PROJ2GEOARRAY, self,
                         (x, y), ("x", "y"), 2, threads, scale_in=f and (f, f))

    def geo2xyz(self, lon, lat, h=0.0, threads=None):
        """Earth-centred (X, Y, Z) in metres of (lon, lat, ellipsoidal
        height in metres)."""
        lib = L.lib()
        if type(h) is float and h == 0.0:
            # No height array to allocate: the library puts every point at
            # height 0 (and N + 0.0 and N - 0.0 are the same sum).
            point3 = outputs_of(lib.C_GXMP_GEO2XYZ, 3)
            return transform(lambda handle, a, b: point3(handle, a, b, 0.0),
                             partial(_without_heights, lib.C_GXMP_GEO2XYZARRAY), self,
                             (lon, lat), ("lon", "lat"), 3, threads)
        return transform(outputs_of(lib.C_GXMP_GEO2XYZ, 3), lib.C_GXMP_GEO2XYZARRAY, self,
                         (lon, lat, h), ("lon", "lat", "h"), 3, threads)

    def xyz2geo(self, X, Y, Z, threads=None):
        """(lon, lat, ellipsoidal height in metres) of Earth-centred (X, Y, Z)."""
        lib = L.lib()
        return transform(outputs_of(lib.C_GXMP_XYZ2GEO, 3), lib.C_GXMP_XYZ2GEOARRAY, self,
                         (X, Y, Z), ("X", "Y", "Z"), 3, threads)

    def convergence(self, lon, lat, threads=None):
        """Grid convergence at (lon, lat): the angle from true north to grid
        north, degrees."""
        lib = L.lib()
        return transform(result_of(lib.C_GXMP_GETCONVERGENCE), lib.C_GXMP_GETCONVERGENCEARRAY,
                         self, (lon, lat), ("lon", "lat"), 1, threads)[0]

    @property
    def linear_unit(self):
        """(name, metres per unit) of the linear unit the system states, such
        as ("US survey foot", 0.304800609601219); None when it states none
        ("LONG/LAT", "NON-UTM"). Conversions give metres unless asked for
        native_units."""
        lib = L.lib()
        with self.use() as handle:
            factor = c_double()
            if not lib.C_GXMP_GETUNITFACTOR(handle, L.LINEAR_UNIT, byref(factor)):
                return None
            name = L.read_text(partial(lib.C_GXMP_GETUNITNAME, handle, L.LINEAR_UNIT))
        return name, factor.value

    @property
    def default_area(self):
        """The system's natural area, (x0, y0, x1, y1): lower-left and
        upper-right corner, metres."""
        corners = [c_double() for _ in range(4)]
        with self.use() as handle:
            L.lib().C_GXMP_GETDEFAULTAREA(handle, *(byref(c) for c in corners))
        return tuple(c.value for c in corners)

    @property
    def origin(self):
        """(lon, lat) of the projection's origin."""
        lon, lat = c_double(), c_double()
        with self.use() as handle:
            L.lib().C_GXMP_GETORIGIN(handle, byref(lon), byref(lat))
        return lon.value, lat.value

    @property
    def name(self):
        with self.use() as handle:
            return L.read_text(L.lib().C_GXMP_GETNAME, handle)

    @property
    def projection_string(self):
        """The system as one-line WKT (or the special string it was made from)."""
        with self.use() as handle:
            return L.read_text(L.lib().C_GXMP_GETPROJECTIONSTRING, handle)


def _without_heights(function, handle, lon, lat, X, Y, Z, count):
    function(handle, lon, lat, None, X, Y, Z, count)


class Cartography(_Handle):
    """A local model grid over a coordinate system: grid origin (lon, lat)
    and axes turned orientation degrees clockwise from true north. The
    projection string "UTM" means the UTM zone of the origin longitude.

    (x, y) are projected coordinates, (X, Y) grid coordinates, both metres
    unless native_units=True asks for the linear unit of the system (all
    four then are in that unit); otherwise numbers, pickling and threads as
    in MapProjection."""

    def __init__(self, projection_string, lon, lat, orientation=0.0):
        raw = L.encode(projection_string)
        lon, lat = real(lon, "lon"), real(lat, "lat")
        orientation = real(orientation, "orientation")
        lib = L.lib()
        zone_of_origin = raw == b"UTM"  # exactly: " UTM " is no zone marker
        if not zone_of_origin:
            _require_valid(projection_string, raw)
        no_zone = f"no UTM zone holds the origin longitude {lon!r}"
        address = _create(lib.C_GXC_CREATE, raw, lon, lat, orientation, generic_utm=no_zone)
        super().__init__(address, lib.C_GXC_DESTROY)
        self._source = projection_string
        self._grid = (lon, lat, orientation)
        # Longitudes outside [-180, 180) name zones past UTM-60 that do not exist.
        if zone_of_origin and not lib.S_ISVALID(L.encode(self.projection_string)):
            self.close()
            raise ValueError(no_zone)
        # The string the grid's own system was made from: the zone's name for
        # "UTM".
        self._system_source = self.projection_name if zone_of_origin else projection_string
        self._factor = _linear_factor(lib.C_GXC_GETPROJECTION(address))

    def __reduce__(self):
        self._check_picklable()
        return Cartography, (self._source,) + self._grid

    def __repr__(self):
        return ("<gxcart.Cartography closed>" if self.closed else
                f"<gxcart.Cartography on {self.projection_name!r}>")

    def _convert(self, name, a, b, names, threads, native_units, scale_in, scale_out):
        lib = L.lib()
        f = self._factor if flag(native_units, "native_units") else None
        return transform(outputs_of(getattr(lib, name), 2), getattr(lib, name + "ARRAY"), self,
                         (a, b), names, 2, threads,
                         scale_in=f and scale_in and (f, f), scale_out=f and scale_out and (f, f))

    def geo2proj(self, lon, lat, threads=None, native_units=False):
        return self._convert("C_GXC_GEO2PROJ", lon, lat, ("lon", "lat"), threads, native_units,
                             False, True)

    def proj2geo(self, x, y, threads=None, native_units=False):
        return self._convert("C_GXC_PROJ2GEO", x, y, ("x", "y"), threads, native_units,
                             True, False)

    def geo2xy(self, lon, lat, threads=None, native_units=False):
        return self._convert("C_GXC_GEO2XY", lon, lat, ("lon", "lat"), threads, native_units,
                             False, True)

    def xy2geo(self, X, Y, threads=None, native_units=False):
        return self._convert("C_GXC_XY2GEO", X, Y, ("X", "Y"), threads, native_units,
                             True, False)

    def proj2xy(self, x, y, threads=None, native_units=False):
        return self._convert("C_GXC_PROJ2XY", x, y, ("x", "y"), threads, native_units,
                             True, True)

    def xy2proj(self, X, Y, threads=None, native_units=False):
        return self._convert("C_GXC_XY2PROJ", X, Y, ("X", "Y"), threads, native_units,
                             True, True)

    @property
    def projection_north(self):
        """The grid's angle against projection north, degrees."""
        with self.use() as handle:
            return L.lib().C_GXC_GETPROJNORTH(handle)

    def true_north(self, X, Y, native_units=False):
        """The grid's angle against true north at grid point (X, Y), degrees."""
        f = self._factor if flag(native_units, "native_units") else None
        function = L.lib().C_GXC_GETTRUENORTH
        if f:
            point = lambda handle, a, b: (function(handle, a * f, b * f),)  # noqa: E731
        else:
            point = result_of(function)
        return pointwise(point, self, (X, Y), ("X", "Y"), 1)[0]

    @property
    def projection(self):
        """The grid's coordinate system, a MapProjection owned by the grid:
        usable while the grid is open, and closing it does not close the grid."""
        with self.use() as handle:
            return MapProjection._borrowed(L.lib().C_GXC_GETPROJECTION(handle), self,
                                           self._system_source)

    @property
    def projection_name(self):
        with self.use() as handle:
            return L.read_text(L.lib().C_GXC_GETPROJECTIONNAME, handle)

    @property
    def projection_string(self):
        with self.use() as handle:
            return L.read_text(L.lib().C_GXC_GETPROJECTIONSTRING, handle)


class DatumConverter(_Handle):
    """Conversion between two coordinate systems on different datums,
    through Earth-centred coordinates and WGS 84.

    Which side is projected and which geographical is set with
    set_conversion_type (PROJ_TO_PROJ at first). convert and inv_convert
    answer new values and never modify the caller's arrays. Projected
    coordinates are metres, or with native_units=True each side's own
    linear unit; heights are metres.

    A converter pickles as its two projection strings and the changes made
    to it since (conversion type, order, datum shifts, bypass), which the
    copy makes again: it converts every point to the same bits."""

    def __init__(self, source, target):
        raw_source, raw_target = L.encode(source), L.encode(target)
        lib = L.lib()
        address = _create(lib.C_GXDC_CREATE, raw_source, raw_target)
        super().__init__(address, lib.C_GXDC_DESTROY)
        for text, raw in ((source, raw_source), (target, raw_target)):
            if not lib.S_ISVALID(raw):
                self.close()
                _require_valid(text, raw)
        self._sources = (source, target)
        self._factors = tuple(_factor_of_string(raw) for raw in (raw_source, raw_target))
        # What was changed since creation, to make it again in a copy: the
        # shifts belong to the two systems (index 0 the first source) and
        # travel with them when the order is inverted; the bypass is the one
        # made at creation ("default"), forced on ("forced"), or the one the
        # last set_datum_shift worked out ("recomputed").
        self._swapped = False
        self._conversion_type = ConversionType.PROJ_TO_PROJ
        self._shifts = [{"type": None, "values": [None] * 7} for _ in range(2)]
        self._bypass = "default"

    def __reduce__(self):
        self._check_picklable()
        with self._guard:
            state = {"swapped": self._swapped, "conversion_type": int(self._conversion_type),
                     "shifts": [{"type": s["type"], "values": list(s["values"])}
                                for s in self._shifts],
                     "bypass": self._bypass}
        return DatumConverter, self._sources, state

    def __setstate__(self, state):
        if state["swapped"]:
            self.invert_order()
        for index, shift in enumerate(state["shifts"]):
            source = index == (1 if self._swapped else 0)
            values = shift["values"]
            if values[3] is not None:  # a seven-value shift set them all
                self.set_datum_shift(DatumShiftType.SEVEN_PARAMETER, values, source=source)
            elif values[0] is not None:
                self.set_datum_shift(DatumShiftType.THREE_PARAMETER, values[:3], source=source)
            if shift["type"] is not None:
                self.set_datum_shift(shift["type"], source=source)
        self.set_conversion_type(state["conversion_type"])
        if state["bypass"] == "forced":
            self.bypass_xyz()
        elif state["bypass"] == "default":
            self.reset_bypass_xyz()

    def __repr__(self):
        return f"<gxcart.DatumConverter {'closed' if self.closed else 'open'}>"

    def _unit_scales(self, native_units, inverse):
        """None for metres, else a function answering (factor into the call,
        factor out of it) for the state the converter is in when it runs."""
        if not flag(native_units, "native_units"):
            return None
        return partial(self._scales_now, inverse)

    def _scales_now(self, inverse):
        source, target = self._factors[::-1] if self._swapped else self._factors
        projected_source = self._conversion_type in (ConversionType.PROJ_TO_PROJ,
                                                     ConversionType.PROJ_TO_GEO)
        projected_target = self._conversion_type in (ConversionType.PROJ_TO_PROJ,
                                                     ConversionType.GEO_TO_PROJ)
        into = source if projected_source else None
        out = target if projected_target else None
        if inverse:
            into, out = (target if projected_target else None,
                         source if projected_source else None)
        return into, out

    def convert(self, x, y, h=None, threads=None, native_units=False):
        """Source (x, y) or (x, y, h) to target: a tuple of the same size.
        Without h the points are converted at height 0."""
        lib = L.lib()
        values, names = ((x, y), ("x", "y")) if h is None else ((x, y, h), ("x", "y", "h"))
        return in_place(lib.C_GXDC_CONVERTXY, lib.C_GXDC_CONVERTXYH, lib.C_GXDC_CONVERTARRAY,
                        self, values, names, threads, self._unit_scales(native_units, False))

    def inv_convert(self, x, y, h=None, threads=None, native_units=False):
        """Target coordinates back to source."""
        lib = L.lib()
        values, names = ((x, y), ("x", "y")) if h is None else ((x, y, h), ("x", "y", "h"))
        return in_place(lib.C_GXDC_INVCONVERTXY, lib.C_GXDC_INVCONVERTXYH,
                        lib.C_GXDC_INVCONVERTARRAY, self, values, names, threads,
                        self._unit_scales(native_units, True))

    def datum_shift(self, X, Y, Z):
        """The geocentric step alone: source Earth-centred (X, Y, Z) in metres
        to target."""
        return pointwise(self._shift(L.lib().C_GXDC_DATUMSHIFT), self, (X, Y, Z),
                         ("X", "Y", "Z"), 3)

    def inv_datum_shift(self, X, Y, Z):
        return pointwise(self._shift(L.lib().C_GXDC_INVDATUMSHIFT), self, (X, Y, Z),
                         ("X", "Y", "Z"), 3)

    @staticmethod
    def _shift(function):
        def point(handle, a, b, c):
            cells = (c_double(a), c_double(b), c_double(c))
            function(handle, *(byref(v) for v in cells))
            return tuple(v.value for v in cells)
        return point

    def invert_order(self):
        """Swap source and target."""
        def body(handle):
            L.lib().C_GXDC_INVERTORDER(handle)
            self._swapped = not self._swapped
            self._conversion_type = {
                ConversionType.PROJ_TO_GEO: ConversionType.GEO_TO_PROJ,
                ConversionType.GEO_TO_PROJ: ConversionType.PROJ_TO_GEO,
            }.get(self._conversion_type, self._conversion_type)
        self._alone(body)

    def set_conversion_type(self, conversion_type):
        """A ConversionType (or its int); ValueError for another value."""
        conversion_type = _enum_value(ConversionType, conversion_type, "conversion_type")

        def body(handle):
            L.lib().C_GXDC_SETCONVERSIONTYPE(handle, conversion_type)
            self._conversion_type = conversion_type
        self._alone(body)

    def set_datum_shift(self, shift_type, params=None, *, source=True):
        """Replace the source (or, with source=False, the target) shift to
        WGS 84: a DatumShiftType and its 3 or 7 values (dX, dY, dZ in metres,
        then rotations in radians and the scale as a fraction). Without params
        only the type changes."""
        shift_type = _enum_value(DatumShiftType, shift_type, "shift_type")
        source = flag(source, "source")
        values = None
        if params is not None:
            if isinstance(params, (str, bytes)):
                raise TypeError(f"params must be real numbers, not {type(params).__name__}")
            params = [real(p, "a datum shift value") for p in params]
            if len(params) != _SHIFT_VALUES[shift_type]:
                raise ValueError(f"{shift_type.name} takes {_SHIFT_VALUES[shift_type]} "
                                 f"values, not {len(params)}")
            values = (c_double * max(len(params), 1))(*params)

        def body(handle):
            L.lib().C_GXDC_SETDATUMSHIFT(handle, shift_type, values, 1 if source else 0)
            shift = self._shifts[(0 if source else 1) ^ self._swapped]
            shift["type"] = int(shift_type)
            if params is not None:
                shift["values"][:len(params)] = params
            self._bypass = "recomputed"
        self._alone(body)

    def bypass_xyz(self):
        """Leave the geocentric step out of every conversion."""
        def body(handle):
            L.lib().C_GXDC_BYPASSXYZ(handle)
            self._bypass = "forced"
        self._alone(body)

    def reset_bypass_xyz(self):
        """Restore the choice made at creation (bypassed when both systems
        share ellipsoid and datum shift)."""
        def body(handle):
            L.lib().C_GXDC_RESETBYPASSXYZ(handle)
            self._bypass = "default"
        self._alone(body)

    @property
    def bypassed(self):
        with self.use() as handle:
            return bool(L.lib().C_GXDC_GETBYPASSXYZ(handle))


def _factor_of_string(raw):
    """The linear factor of the system a projection string names (None for
    metres or none)."""
    lib = L.lib()
    address = _create(lib.C_GXMP_CREATE, raw)
    try:
        return _linear_factor(address)
    finally:
        _destroy(lib.C_GXMP_DESTROY, address)
