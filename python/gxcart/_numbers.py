"""Scalars and arrays through the flat functions.

Every argument is checked first: real numbers (Python's and numpy's ints and
floats) and arrays of them pass; anything else (None, bool, str, bytes,
complex, datetime64, object arrays) raises TypeError, because numpy would
turn most of it into a number without complaint. A masked array keeps its
mask: the results carry the union of the masks of the inputs.

Scalars go through the single-point functions and come back as floats.
Arrays (numpy arrays or nested sequences) are broadcast against each other,
made C-contiguous float64 (no copy when they already are), and go through
the array functions in one foreign call, or in contiguous chunks on a thread
pool: ctypes releases the GIL for the duration of a foreign call, and the
library's objects are immutable during conversions, so the chunks run in
parallel and every point gets the bits the single call gives it.

The object behind the handle is held for the foreign calls only (the owner's
use()), after the arguments have been read: reading them may run code of the
caller's (an __array__ method) that must not find the object held."""

import numbers
from concurrent.futures import ThreadPoolExecutor
from ctypes import byref, c_double

import numpy as np

# Below this many points per chunk a thread costs more than it converts
# (a point takes a fraction of a microsecond, a pool task tens of them).
MIN_POINTS_PER_THREAD = 1 << 16

_DOUBLE_BYTES = np.dtype(np.float64).itemsize
# numpy kinds that hold real numbers: floating, signed and unsigned integer.
_REAL_KINDS = "fiu"


def is_real(value):
    """A real number, and not a bool (True is no coordinate)."""
    return isinstance(value, numbers.Real) and not isinstance(value, (bool, np.bool_))


def _describe(value):
    if isinstance(value, np.ndarray):
        return f"an array of {value.dtype}"
    return type(value).__name__


def real(value, what):
    """value as a float: TypeError for what is not a real number, ValueError
    for an integer too large for a double."""
    if not is_real(value):
        if (isinstance(value, np.ndarray) and value.ndim == 0 and
                not np.ma.isMaskedArray(value) and value.dtype.kind in _REAL_KINDS):
            return float(value)
        raise TypeError(f"{what} must be a real number, not {_describe(value)}")
    try:
        return float(value)
    except OverflowError:
        raise ValueError(f"{what} is too large for a double: {value!r}") from None


def flag(value, what):
    """A bool argument: True or False (numpy's too), nothing else."""
    if isinstance(value, (bool, np.bool_)):
        return bool(value)
    raise TypeError(f"{what} must be True or False, not {_describe(value)}")


def check_threads(threads):
    if threads is None:
        return 1
    if isinstance(threads, bool) or not isinstance(threads, numbers.Integral):
        raise TypeError(f"threads must be a positive int or None, not {threads!r}")
    if threads < 1:
        raise ValueError(f"threads must be a positive int or None, not {threads}")
    return int(threads)


def _array(value, what):
    """(numbers, mask) of one argument: its values as an array of a real
    dtype, and the mask of a masked array (else None)."""
    if isinstance(value, (bool, np.bool_)):
        raise TypeError(f"{what} must be real numbers, not bool")
    mask = None
    if np.ma.isMaskedArray(value):
        mask = np.ma.getmaskarray(value)
        value = np.ma.getdata(value)
    array = np.asarray(value)
    if array.dtype.kind not in _REAL_KINDS:
        raise TypeError(f"{what} must be real numbers, not {array.dtype} values")
    return array, mask


def read(values, names, copy=False):
    """The arguments of a conversion: (floats, None, None) for scalars, else
    (None, arrays, mask) with C-contiguous float64 arrays of one broadcast
    shape (new ones with copy, else the caller's own where they already fit)
    and the union of the input masks or None."""
    if all(is_real(v) for v in values):
        return tuple(real(v, n) for v, n in zip(values, names)), None, None
    pairs = [_array(v, n) for v, n in zip(values, names)]
    shape = np.broadcast_shapes(*(a.shape for a, _ in pairs))
    masks = [m for _, m in pairs if m is not None]
    if not masks and shape == ():
        return tuple(float(a) for a, _ in pairs), None, None
    make = np.array if copy else np.asarray
    arrays = []
    for a, _ in pairs:
        a = make(a, dtype=np.float64, order="C")
        arrays.append(a if a.shape == shape else np.array(np.broadcast_to(a, shape), order="C"))
    mask = None
    if masks:
        mask = np.zeros(shape, dtype=bool)
        for m in masks:
            mask |= m
    return None, arrays, mask


def _masked(outputs, mask):
    if mask is None:
        return tuple(outputs)
    return tuple(np.ma.masked_array(o, mask=mask.copy()) for o in outputs)


def run_batch(function, handle, arrays, threads):
    """function(handle, *addresses, count) over the whole of the equally
    sized arrays (None passes a null pointer), in chunks when threads asks
    for it and the arrays are large enough to gain from it."""
    count = next(a.size for a in arrays if a is not None)
    addresses = [None if a is None else a.ctypes.data for a in arrays]
    chunks = min(check_threads(threads), count // MIN_POINTS_PER_THREAD)
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


def outputs_of(function, count):
    """The single-point call of a flat function that writes count doubles
    through pointers after its inputs: point(handle, *inputs) -> tuple."""
    def point(handle, *inputs):
        cells = [c_double() for _ in range(count)]
        function(handle, *inputs, *(byref(c) for c in cells))
        return tuple(c.value for c in cells)
    return point


def result_of(function):
    """The single-point call of a flat function that returns its one double."""
    def point(handle, *inputs):
        return (function(handle, *inputs),)
    return point


def _scaled(values, factors, scalar):
    """values multiplied by their factors (None: left as they are)."""
    if not factors:
        return values
    if scalar:
        return tuple(v if f is None else v * f for v, f in zip(values, factors))
    return [v if f is None else v * f for v, f in zip(values, factors)]


def _divided(values, factors, scalar):
    if not factors:
        return values
    if scalar:
        return tuple(v if f is None else v / f for v, f in zip(values, factors))
    for v, f in zip(values, factors):
        if f is not None:
            v /= f
    return values


def transform(point, array_function, owner, values, names, outputs, threads=None,
              scale_in=None, scale_out=None):
    """A conversion of len(values) coordinates into outputs coordinates, for
    scalars (a tuple of floats) or arrays (a tuple of new arrays).

    point(handle, *floats) is the single-point call; array_function(handle,
    *input addresses, *output addresses, count) its array form. scale_in
    holds a factor per input that multiplies it before the call, scale_out a
    divisor per output (None for one left alone)."""
    check_threads(threads)
    scalars, arrays, mask = read(values, names)
    if scalars is not None:
        with owner.use() as handle:
            result = point(handle, *_scaled(scalars, scale_in, True))
        return _divided(result, scale_out, True)
    arrays = _scaled(arrays, scale_in, False)
    shape = arrays[0].shape
    # The library writes every point, so the outputs need no filling; zeroed
    # (calloc'd) outputs made a ten-million-point conversion up to half as
    # slow again.
    results = [np.empty(shape) for _ in range(outputs)]
    if arrays[0].size:
        with owner.use() as handle:
            run_batch(array_function, handle, list(arrays) + results, threads)
    return _masked(_divided(results, scale_out, False), mask)


def in_place(point2, point3, array_function, owner, values, names, threads=None, units=None):
    """A conversion of (x, y) or (x, y, h) in place in the library, on new
    copies here: the caller's values are never modified. units, when given,
    is called with the object held and answers a factor that multiplies x
    and y before the call and one that divides them after (each may be
    None); heights stay as they are."""
    check_threads(threads)
    with_height = len(values) == 3
    scalars, arrays, mask = read(values, names, copy=True)
    if scalars is not None:
        with owner.use() as handle:
            into, out = units() if units else (None, None)
            cells = [c_double(v) for v in
                     _scaled(scalars[:2], into and (into, into), True) + scalars[2:]]
            (point3 if with_height else point2)(handle, *(byref(c) for c in cells))
        result = tuple(c.value for c in cells)
        return _divided(result[:2], out and (out, out), True) + result[2:]
    with owner.use() as handle:
        into, out = units() if units else (None, None)
        if into:
            for a in arrays[:2]:
                a *= into
        if arrays[0].size:
            run_batch(array_function, handle, arrays if with_height else arrays + [None],
                      threads)
    if out:
        for a in arrays[:2]:
            a /= out
    return _masked(arrays, mask)


def pointwise(point, owner, values, names, outputs):
    """point(handle, *floats) -> tuple of outputs floats, applied to scalars,
    or point by point to arrays (for the operations without an array form)."""
    scalars, arrays, mask = read(values, names)
    if scalars is not None:
        with owner.use() as handle:
            return point(handle, *scalars)
    shape = arrays[0].shape
    with owner.use() as handle:
        results = [point(handle, *p) for p in zip(*(a.ravel().tolist() for a in arrays))]
    columns = zip(*results) if results else [()] * outputs
    return _masked([np.array(c, dtype=np.float64).reshape(shape) for c in columns], mask)
