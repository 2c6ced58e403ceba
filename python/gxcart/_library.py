"""Finding libgxcart.so, declaring its flat functions, and the conventions
every call shares: text in (bytes without NUL) and text out (the buffer
length protocol)."""

import ctypes
import os
import threading
from ctypes import POINTER, byref, c_char_p, c_double, c_int, c_size_t, c_void_p

LIBRARY_NAME = "libgxcart.so"
ENVIRONMENT_VARIABLE = "GXCART_LIBRARY"

# Status values of the flat interface.
OK = 0
NULL_HANDLE = -1
GENERIC_UTM = -2


class LibraryNotFoundError(OSError):
    """libgxcart.so could not be loaded from any of the places searched."""


_D = c_double
_PD = POINTER(c_double)
_H = c_void_p
_PH = POINTER(c_void_p)
_PI = POINTER(c_int)
_S = c_char_p
# Arrays go by address (c_void_p): passing numpy's integer addresses is the
# cheapest way through ctypes, and chunks are addresses plus an offset.
_A = c_void_p
_TEXT = [ctypes.c_char_p, c_int, _PI]  # buffer, bufferLength, status

_PROTOTYPES = {
    # map projection
    "C_GXMP_CREATE": (None, [_S, _PH, _PI]),
    "C_GXMP_DESTROY": (None, [_PH, _PI]),
    "C_GXMP_GEO2PROJ": (None, [_H, _D, _D, _PD, _PD]),
    "C_GXMP_PROJ2GEO": (None, [_H, _D, _D, _PD, _PD]),
    "C_GXMP_GEO2PROJARRAY": (None, [_H, _A, _A, _A, _A, c_size_t]),
    "C_GXMP_PROJ2GEOARRAY": (None, [_H, _A, _A, _A, _A, c_size_t]),
    "C_GXMP_GEO2XYZ": (None, [_H, _D, _D, _D, _PD, _PD, _PD]),
    "C_GXMP_XYZ2GEO": (None, [_H, _D, _D, _D, _PD, _PD, _PD]),
    "C_GXMP_GETCONVERGENCE": (c_double, [_H, _D, _D]),
    "C_GXMP_GETDEFAULTAREA": (None, [_H, _PD, _PD, _PD, _PD]),
    "C_GXMP_GETORIGIN": (None, [_H, _PD, _PD]),
    "C_GXMP_GETNAME": (None, [_H] + _TEXT),
    "C_GXMP_GETPROJECTIONSTRING": (None, [_H] + _TEXT),
    "C_GXMP_GEO2XYZARRAY": (None, [_H, _A, _A, _A, _A, _A, _A, c_size_t]),
    "C_GXMP_XYZ2GEOARRAY": (None, [_H, _A, _A, _A, _A, _A, _A, c_size_t]),
    "C_GXMP_GETCONVERGENCEARRAY": (None, [_H, _A, _A, _A, c_size_t]),
    "C_GXMP_GETUNITFACTOR": (c_int, [_H, c_int, _PD]),
    "C_GXMP_GETUNITNAME": (None, [_H, c_int] + _TEXT),
    # local-grid cartography
    "C_GXC_CREATE": (None, [_S, _D, _D, _D, _PH, _PI]),
    "C_GXC_DESTROY": (None, [_PH, _PI]),
    "C_GXC_GETPROJNORTH": (c_double, [_H]),
    "C_GXC_GETTRUENORTH": (c_double, [_H, _D, _D]),
    "C_GXC_GETPROJECTION": (c_void_p, [_H]),
    "C_GXC_GETPROJECTIONNAME": (None, [_H] + _TEXT),
    "C_GXC_GETPROJECTIONSTRING": (None, [_H] + _TEXT),
    "C_GXC_CONVERT2PROJ4": (None, [_S, _PD, c_int] + _TEXT),
    # datum converter
    "C_GXDC_CREATE": (None, [_S, _S, _PH, _PI]),
    "C_GXDC_DESTROY": (None, [_PH, _PI]),
    "C_GXDC_CONVERTXY": (None, [_H, _PD, _PD]),
    "C_GXDC_CONVERTXYH": (None, [_H, _PD, _PD, _PD]),
    "C_GXDC_INVCONVERTXY": (None, [_H, _PD, _PD]),
    "C_GXDC_INVCONVERTXYH": (None, [_H, _PD, _PD, _PD]),
    "C_GXDC_CONVERTARRAY": (None, [_H, _A, _A, _A, c_size_t]),
    "C_GXDC_INVCONVERTARRAY": (None, [_H, _A, _A, _A, c_size_t]),
    "C_GXDC_DATUMSHIFT": (None, [_H, _PD, _PD, _PD]),
    "C_GXDC_INVDATUMSHIFT": (None, [_H, _PD, _PD, _PD]),
    "C_GXDC_INVERTORDER": (None, [_H]),
    "C_GXDC_SETCONVERSIONTYPE": (None, [_H, c_int]),
    "C_GXDC_SETDATUMSHIFT": (None, [_H, c_int, _PD, c_int]),
    "C_GXDC_BYPASSXYZ": (None, [_H]),
    "C_GXDC_RESETBYPASSXYZ": (None, [_H]),
    "C_GXDC_GETBYPASSXYZ": (c_int, [_H]),
    # projection-string queries
    "S_ISVALID": (c_int, [_S]),
    "S_ISLOCAL": (c_int, [_S]),
    "S_ISLONGLAT": (c_int, [_S]),
    "S_ISGEOGRAPHICAL": (c_int, [_S]),
    "S_ISGEOREFERENCED": (c_int, [_S]),
    "S_HASDATUM": (c_int, [_S]),
    "S_ISTYPE": (c_int, [_S, c_int]),
    "S_AREIDENTICAL": (c_int, [_S, _S]),
    "S_GETCOORDSYSTYPE": (c_int, [_S]),
    "S_PROJECTIONORIGIN": (None, [_S, _PD, _PD, _PI]),
    "S_PROJECTIONSHORTNAME": (None, [_S] + _TEXT),
    "S_LONGITUDETOUTMZONE": (None, [_D] + _TEXT),
    "S_GETGOOGLEMAPPROJECTIONSTRING": (None, _TEXT),
}
for _name in ("GEO2PROJ", "PROJ2GEO", "GEO2XY", "XY2GEO", "PROJ2XY", "XY2PROJ"):
    _PROTOTYPES["C_GXC_" + _name] = (None, [_H, _D, _D, _PD, _PD])
    _PROTOTYPES["C_GXC_" + _name + "ARRAY"] = (None, [_H, _A, _A, _A, _A, c_size_t])

# Unit selectors of C_GXMP_GETUNITFACTOR and C_GXMP_GETUNITNAME.
LINEAR_UNIT = 1
ANGULAR_UNIT = 2

# Where `cmake --install` puts the library when no prefix is given. Debian's
# loader finds /usr/local/lib only after ldconfig has run, so the package
# looks there itself.
DEFAULT_PREFIX_LIBRARY = "/usr/local/lib/" + LIBRARY_NAME

# A catalogue name every complete library resolves. The UTM zones name their
# ellipsoid by identifier, which only the ellipsoid file the library reads
# at load defines: a library separated from its catalogue files knows none
# of them, and every catalogue name would be refused as unknown.
CATALOGUE_PROBE = b"UTM-32"

_lock = threading.Lock()
_lib = None
_lib_path = None


def _installed_library(package_folder):
    """The library that `cmake --install` installed together with this
    package (gxcart/_installed.py, written at installation, holds its path
    relative to the package folder), or None."""
    try:
        from . import _installed
    except ImportError:
        return None
    return os.path.normpath(os.path.join(package_folder, _installed.LIBRARY))


def _candidates(path):
    """Where to look, in order, with the reason each place is searched."""
    if path is not None:
        return [(os.fspath(path), "the path given to load_library")]
    from_environment = os.environ.get(ENVIRONMENT_VARIABLE)
    if from_environment:
        return [(from_environment, "$" + ENVIRONMENT_VARIABLE)]
    package_folder = os.path.dirname(os.path.abspath(__file__))
    places = []
    beside = os.path.join(package_folder, LIBRARY_NAME)
    if os.path.exists(beside):
        places.append((beside, "the gxcart package folder"))
    installed = _installed_library(package_folder)
    if installed is not None:
        places.append((installed, "the library installed with this package"))
    places.append((LIBRARY_NAME, "the dynamic loader's search path"))
    if os.path.exists(DEFAULT_PREFIX_LIBRARY):
        places.append((DEFAULT_PREFIX_LIBRARY, "the default prefix of cmake --install"))
    return places


def load_library(path=None):
    """Load libgxcart.so and return the path it was loaded from.

    With *path* that file is loaded; otherwise $GXCART_LIBRARY when it is
    set, else libgxcart.so beside this package, else the library installed
    together with this package by `cmake --install`, else the one the
    dynamic loader finds, else /usr/local/lib/libgxcart.so. A library that
    loads but finds none of its catalogue files (they belong beside it or in
    ../share/gxcart/) is passed over: without them no catalogue name such as
    "UTM-32" would resolve.

    Call it before the first use of the package to choose the library;
    afterwards it only tells which one is in use, and asking for a different
    file raises RuntimeError (a process holds one library: its catalogues
    are process-wide)."""
    global _lib, _lib_path
    with _lock:
        if _lib is not None:
            if path is not None and not _same_file(path, _lib_path):
                raise RuntimeError(
                    f"gxcart already uses {_lib_path}; load_library({os.fspath(path)!r}) "
                    "must come before the first use")
            return _lib_path
        failures = []
        for candidate, reason in _candidates(path):
            try:
                lib = ctypes.CDLL(candidate)
                _declare(lib)
            except OSError as error:
                failures.append(f"  {candidate} ({reason}): {error}")
                continue
            if not lib.S_ISVALID(CATALOGUE_PROBE):
                failures.append(
                    f"  {candidate} ({reason}): loaded, but it found no catalogue files "
                    "(ellipsoid.zpf and the other .zpf files of the build's lib/ folder belong "
                    "beside the library or in ../share/gxcart/ from its folder)")
                continue
            _lib, _lib_path = lib, candidate
            return candidate
        raise LibraryNotFoundError(
            "cannot load the GxCart library; tried:\n" + "\n".join(failures) +
            f"\nPass its path to gxcart.load_library() or set ${ENVIRONMENT_VARIABLE}.")


def _same_file(a, b):
    try:
        return os.path.samefile(a, b)
    except OSError:
        return os.fspath(a) == os.fspath(b)


def _declare(lib):
    for name, (restype, argtypes) in _PROTOTYPES.items():
        try:
            function = getattr(lib, name)
        except AttributeError:
            raise LibraryNotFoundError(
                f"{lib._name} is not a GxCart library of this version: {name} is missing"
            ) from None
        function.restype = restype
        function.argtypes = argtypes


def lib():
    """The loaded library, loading it on first use."""
    if _lib is None:
        load_library()
    return _lib


def encode(text, what="projection string"):
    """A str or bytes argument as the NUL-terminated bytes C receives."""
    if isinstance(text, str):
        data = text.encode("utf-8", "surrogateescape")
    elif isinstance(text, (bytes, bytearray)):
        data = bytes(text)
    else:
        raise TypeError(f"{what} must be str or bytes, not {type(text).__name__}")
    # C would silently read only up to the first NUL.
    if b"\0" in data:
        raise ValueError(f"{what} contains a NUL character")
    return data


def decode(data):
    return data.decode("utf-8", "surrogateescape")


def read_text(function, *args):
    """Call a text function, growing the buffer to the length it asks for.

    The library answers a too-short bufferLength with the length it needs and
    copies nothing; a result of bufferLength characters takes one byte more
    for its terminator."""
    length = 255
    while True:
        buffer = ctypes.create_string_buffer(length + 1)
        status = c_int(OK)
        function(*args, buffer, length, byref(status))
        if status.value == OK:
            return decode(buffer.value)
        if status.value <= length:
            raise RuntimeError(f"{function.__name__} answered status {status.value}")
        length = status.value
