"""Scalars and arrays through the flat functions.

Scalars go through the single-point functions and come back as floats.
Arrays (numpy arrays or nested sequences) are broadcast against each other,
made C-contiguous float64 (no copy when they already are), and go through
the batch functions in one foreign call, or in contiguous chunks on a thread
pool: ctypes releases the GIL for the duration of a foreign call, and the
library's objects are immutable during conversions, so the chunks run in
parallel and every point gets the bits the single call gives it."""

import numbers
from concurrent.futures import ThreadPoolExecutor
from ctypes import byref, c_double

import numpy as np

# Below this many points per chunk a thread costs more than it converts
# (a point takes a fraction of a microsecond, a pool task tens of them).
MIN_POINTS_PER_THREAD = 1 << 16

_DOUBLE_BYTES = np.dtype(np.float64).itemsize


def _is_number(value):
    return isinstance(value, numbers.Real)


def _check_threads(threads):
    if threads is None:
        return 1
    if isinstance(threads, bool) or not isinstance(threads, numbers.Integral):
        raise TypeError(f"threads must be a positive int or None, not {threads!r}")
    if threads < 1:
        raise ValueError(f"threads must be a positive int or None, not {threads}")
    return int(threads)


def _arrays(*values, copy=False):
    """The values as C-contiguous float64 arrays of one broadcast shape; new
    arrays with copy, else the caller's own where they already fit."""
    make = np.array if copy else np.asarray
    arrays = [make(v, dtype=np.float64, order="C") for v in values]
    shape = np.broadcast_shapes(*(a.shape for a in arrays))
    return [a if a.shape == shape else np.array(np.broadcast_to(a, shape), order="C")
            for a in arrays]


def run_batch(function, handle, arrays, threads):
    """function(handle, *addresses, count) over the whole of the equally
    sized arrays (None passes a null pointer), in chunks when threads asks
    for it and the arrays are large enough to gain from it."""
    count = next(a.size for a in arrays if a is not None)
    addresses = [None if a is None else a.ctypes.data for a in arrays]
    chunks = min(_check_threads(threads), count // MIN_POINTS_PER_THREAD)
    if chunks <= 1:
        function(handle, *addresses, count)
        return
    bounds = [count * k // chunks for k in range(chunks + 1)]
    with ThreadPoolExecutor(max_workers=chunks) as pool:
        pending = [
            pool.submit(function, handle,
                        *(None if a is None else a + first * _DOUBLE_BYTES for a in addresses),
                        last - first)
            for first, last in zip(bounds, bounds[1:])
        ]
        for future in pending:
            future.result()


def two_to_two(point_function, array_function, handle, a, b, threads):
    """A conversion of two coordinates into two, for scalars or arrays."""
    if _is_number(a) and _is_number(b):
        return _point(point_function, handle, a, b)
    _check_threads(threads)
    a, b = _arrays(a, b)
    if a.ndim == 0:
        return _point(point_function, handle, a, b)
    # The library writes every point, so the outputs need no filling; zeroed
    # (calloc'd) outputs made a ten-million-point conversion up to half as
    # slow again.
    out_a, out_b = np.empty(a.shape), np.empty(a.shape)
    if a.size:
        run_batch(array_function, handle, (a, b, out_a, out_b), threads)
    return out_a, out_b


def _point(point_function, handle, a, b):
    out_a, out_b = c_double(), c_double()
    point_function(handle, float(a), float(b), byref(out_a), byref(out_b))
    return out_a.value, out_b.value


def in_place(point2, point3, array_function, handle, x, y, h, threads):
    """A conversion of (x, y) or (x, y, h) in place in the library, on new
    copies here: the caller's values are never modified."""
    with_height = h is not None
    values = (x, y, h) if with_height else (x, y)
    if all(_is_number(v) for v in values):
        return _point_in_place(point2, point3, handle, values)
    _check_threads(threads)
    arrays = _arrays(*values, copy=True)
    if arrays[0].ndim == 0:
        return _point_in_place(point2, point3, handle, values)
    if arrays[0].size:
        run_batch(array_function, handle, arrays if with_height else arrays + [None], threads)
    return tuple(arrays)


def _point_in_place(point2, point3, handle, values):
    cells = [c_double(float(v)) for v in values]
    (point3 if len(cells) == 3 else point2)(handle, *(byref(c) for c in cells))
    return tuple(c.value for c in cells)


def pointwise(function, *values):
    """function(*floats) -> float or tuple of floats, applied to scalars, or
    point by point to arrays (for the operations without a batch function)."""
    if all(_is_number(v) for v in values):
        return function(*(float(v) for v in values))
    arrays = _arrays(*values)
    if arrays[0].ndim == 0:
        return function(*(float(a) for a in arrays))
    results = [function(*point) for point in zip(*(a.ravel().tolist() for a in arrays))]
    shape = arrays[0].shape
    if results and isinstance(results[0], tuple):
        return tuple(np.array(column, dtype=np.float64).reshape(shape)
                     for column in zip(*results))
    if not results:
        probe = function(*(0.0 for _ in values))
        if isinstance(probe, tuple):
            return tuple(np.zeros(shape) for _ in probe)
    return np.array(results, dtype=np.float64).reshape(shape)
