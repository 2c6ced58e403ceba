"""Threads sharing one object: close() while others convert through it, and
changes of state while others convert. A converting thread either finishes
with the right numbers or is told the object is closed; nothing is freed
under it. Run under the sanitizer build too (tests/python/CMakeLists.txt),
where a use of freed memory is reported rather than left to chance."""

import threading
import time

import numpy as np
import pytest

import gxcart
from conftest import prj

THREADS = 4
ROUNDS = 12


def hammer(convert, expected, errors, started):
    """Convert until told the object is closed; any other outcome (a wrong
    number, another exception) is recorded."""
    started.release()
    try:
        while True:
            result = convert()
            if not all(np.array_equal(r, e) for r, e in zip(result, expected)):
                errors.append("a result changed while the object was in use")
                return
    except ValueError as error:
        if "closed" not in str(error):
            errors.append(repr(error))
    except Exception as error:  # noqa: BLE001 - every other outcome is a fault
        errors.append(repr(error))


def close_under_load(make, conversions):
    """make() -> (object to close, object converted through); conversions
    maps that object to functions returning a tuple of arrays or floats."""
    for _ in range(ROUNDS):
        closing, used = make()
        calls = conversions(used)
        expected = [call() for call in calls]
        errors, started = [], threading.Semaphore(0)
        workers = [threading.Thread(target=hammer, args=(calls[k % len(calls)],
                                                         expected[k % len(calls)], errors,
                                                         started))
                   for k in range(THREADS)]
        for w in workers:
            w.start()
        for _ in workers:
            started.acquire()
        time.sleep(0.002)
        closing.close()
        for w in workers:
            w.join(timeout=60)
        assert not any(w.is_alive() for w in workers), "a converting thread hangs"
        assert not errors, errors
        assert closing.closed and used.closed


LON = np.linspace(6.0, 12.0, 5000)
LAT = np.linspace(40.0, 60.0, 5000)


def test_close_waits_for_map_projection_calls():
    close_under_load(
        lambda: (lambda mp: (mp, mp))(gxcart.MapProjection("UTM-32")),
        lambda mp: [lambda: mp.geo2proj(LON, LAT),
                    lambda: mp.geo2proj(LON, LAT, threads=2),
                    lambda: mp.geo2proj(9.5, 48.25),
                    lambda: mp.xyz2geo(*mp.geo2xyz(LON, LAT)),
                    lambda: (mp.convergence(LON, LAT), mp.name)])


def test_close_waits_for_datum_converter_calls():
    def make():
        dc = gxcart.DatumConverter(prj("4326_esri.prj"), prj("ed50_utm32_towgs84_gdal.prj"))
        dc.set_conversion_type(gxcart.ConversionType.GEO_TO_PROJ)
        return dc, dc
    close_under_load(make, lambda dc: [lambda: dc.convert(LON, LAT, 100.0),
                                       lambda: dc.inv_convert(LON * 1e4, LAT * 1e5),
                                       lambda: dc.datum_shift(4e6, 7e5, 4.7e6)])


def test_closing_a_grid_waits_for_the_system_it_lent():
    def make():
        grid = gxcart.Cartography("UTM", 9.5, 48.25, 30.0)
        return grid, grid.projection
    close_under_load(make, lambda mp: [lambda: mp.geo2proj(LON, LAT),
                                       lambda: mp.proj2geo(LON * 1e5, LAT * 1e5)])
    grid = gxcart.Cartography("UTM", 9.5, 48.25, 30.0)
    close_under_load(lambda: (lambda mp: (mp, mp))(grid.projection),
                     lambda mp: [lambda: mp.geo2proj(LON, LAT)])
    assert not grid.closed  # closing what it lent leaves the grid open


def test_changes_of_state_never_meet_a_conversion_half_way():
    # One thread switches the converter between two conversion types while
    # others convert whole arrays: every array comes out entirely of one
    # type, never some points of each.
    dc = gxcart.DatumConverter(prj("4326_esri.prj"), prj("ed50_utm32_towgs84_gdal.prj"))
    kinds = (gxcart.ConversionType.GEO_TO_PROJ, gxcart.ConversionType.GEO_TO_GEO)
    outcomes = []
    for kind in kinds:
        dc.set_conversion_type(kind)
        outcomes.append(dc.convert(LON, LAT))
    stop, errors = threading.Event(), []

    def convert():
        while not stop.is_set():
            x, y = dc.convert(LON, LAT)
            if not any(np.array_equal(x, o[0]) and np.array_equal(y, o[1]) for o in outcomes):
                errors.append("a conversion mixed two conversion types")
                return

    workers = [threading.Thread(target=convert) for _ in range(THREADS - 1)]
    for w in workers:
        w.start()
    end, k = time.monotonic() + 0.3, 0
    while time.monotonic() < end:
        dc.set_conversion_type(kinds[k % 2])
        k += 1
    stop.set()
    for w in workers:
        w.join(timeout=60)
    assert not errors, errors
    dc.close()
    with pytest.raises(ValueError, match="closed"):
        dc.set_conversion_type(kinds[0])
