"""Cost of the Python layer over the library's batch conversions.

    GXCART_LIBRARY=build/lib/libgxcart.so python3 python/bench_gxcart.py [points] [rounds]

For each conversion it times the bare batch call into preallocated arrays
(one foreign call: the library's own loop, plus a microsecond of ctypes) and
the package call that does everything a user gets (input check, new output
arrays), alternating the two so that drift on a shared machine hits both.
The best round of each is compared; the Python layer should add at most a
fifth. The threaded call is shown for information, and so are the
Earth-centred conversions and convergence against the loop over single-point
calls that the package made for them before they had array functions (on a
tenth of the points: the loop is slow).
"""

import ctypes
import os
import sys
import time

import numpy as np

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import gxcart  # noqa: E402
from gxcart import _library  # noqa: E402

ALLOWED_RATIO = 1.2


def timed(function):
    start = time.perf_counter()
    function()
    return time.perf_counter() - start


def best(function, rounds):
    return min(timed(function) for _ in range(rounds))


def compare(label, bare, wrapped, rounds, points):
    bare_times, wrapped_times = [], []
    for _ in range(rounds):
        bare_times.append(timed(bare))
        wrapped_times.append(timed(wrapped))
    b, w = min(bare_times), min(wrapped_times)
    print(f"{label:<28} batch {b:7.3f} s ({b / points * 1e9:6.1f} ns/pt)   "
          f"package {w:7.3f} s   ratio {w / b:5.3f}")
    return w / b


def point_loop(function, handle, outputs, *arrays):
    """One foreign call a point, as the package once converted arrays without
    an array function."""
    def point(*values):
        cells = [ctypes.c_double() for _ in range(outputs)]
        function(handle, *values, *(ctypes.byref(c) for c in cells))
        return tuple(c.value for c in cells)
    results = [point(*p) for p in zip(*(v.tolist() for v in arrays))]
    return tuple(np.array(c) for c in zip(*results))


def main():
    points = int(sys.argv[1]) if len(sys.argv) > 1 else 10_000_000
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    lib = _library.lib()
    print(f"library {gxcart.load_library()}; {points} points, best of {rounds} rounds")

    rng = np.random.default_rng(32)
    lon = rng.uniform(6.0, 12.0, points)
    lat = rng.uniform(40.0, 60.0, points)
    a, b, c = np.empty(points), np.empty(points), np.empty(points)

    def addresses(*arrays):
        return [v.ctypes.data for v in arrays]

    ratios = []
    with gxcart.MapProjection("UTM-32") as utm:
        h = utm._address  # the bare calls go straight to the library object
        x, y = utm.geo2proj(lon, lat)
        ratios.append(compare(
            "UTM-32 geo2proj",
            lambda: lib.C_GXMP_GEO2PROJARRAY(h, *addresses(lon, lat, a, b), points),
            lambda: utm.geo2proj(lon, lat), rounds, points))
        ratios.append(compare(
            "UTM-32 proj2geo",
            lambda: lib.C_GXMP_PROJ2GEOARRAY(h, *addresses(x, y, a, b), points),
            lambda: utm.proj2geo(x, y), rounds, points))
        for threads in (2, 4):
            t = best(lambda: utm.geo2proj(lon, lat, threads=threads), rounds)
            print(f"UTM-32 geo2proj threads={threads:<11} package {t:7.3f} s "
                  f"on {os.cpu_count()} cores")

        loop_points = max(points // 10, 1)
        lo, la, hh = lon[:loop_points], lat[:loop_points], np.full(loop_points, 250.0)
        X, Y, Z = utm.geo2xyz(lo, la, hh)
        # For information: on small arrays the fresh output arrays (first
        # touch of their pages) weigh more than the checks of the layer.
        compare("UTM-32 geo2xyz",
                lambda: lib.C_GXMP_GEO2XYZARRAY(h, *addresses(lo, la, hh, a, b, c), loop_points),
                lambda: utm.geo2xyz(lo, la, hh), rounds, loop_points)
        for label, array, loop in (
                ("geo2xyz", lambda: utm.geo2xyz(lo, la, hh),
                 lambda: point_loop(lib.C_GXMP_GEO2XYZ, h, 3, lo, la, hh)),
                ("xyz2geo", lambda: utm.xyz2geo(X, Y, Z),
                 lambda: point_loop(lib.C_GXMP_XYZ2GEO, h, 3, X, Y, Z)),
                ("convergence", lambda: utm.convergence(lo, la),
                 lambda: [lib.C_GXMP_GETCONVERGENCE(h, p, q)
                          for p, q in zip(lo.tolist(), la.tolist())])):
            t_array, t_loop = best(array, rounds), best(loop, max(rounds // 2, 1))
            print(f"UTM-32 {label:<21} array {t_array:7.3f} s   point loop {t_loop:7.3f} s   "
                  f"{t_loop / t_array:5.1f} times faster ({loop_points} points)")

    worst = max(ratios)
    print(f"worst ratio {worst:.3f} (allowed {ALLOWED_RATIO})")
    return 0 if worst <= ALLOWED_RATIO else 1


if __name__ == "__main__":
    sys.exit(main())
