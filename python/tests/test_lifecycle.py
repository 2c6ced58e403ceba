"""Handles: creation failures, release, use after release, copies, and
finding the library and its catalogue."""

import copy
import gc
import os
import pickle
import re
import shutil
import subprocess
import sys

import pytest

import gxcart
from conftest import PACKAGE_ROOT


def test_creation_failures():
    for text in ("UTM", " UTM ", "garbage", "", 'PROJCS["x",GEOGCS["y"]', "UTM-32\0x"):
        with pytest.raises(ValueError):
            gxcart.MapProjection(text)
        with pytest.raises(ValueError):
            gxcart.DatumConverter("LONG/LAT", text)
    with pytest.raises(ValueError, match="UTM-32"):  # says what to write instead
        gxcart.MapProjection("UTM")
    with pytest.raises(TypeError):
        gxcart.MapProjection(32)
    with pytest.raises(ValueError):
        gxcart.Cartography("garbage", 9.5, 48.25)
    # The grid takes the zone of its origin; zones are numbered for
    # longitudes in [-180, 180) and outside there is none.
    with gxcart.Cartography(b"UTM", -179.5, 48.25) as grid:
        assert grid.projection_name == "UTM-1"
    for lon in (180.0, 1e300, float("nan"), float("inf")):
        with pytest.raises(ValueError, match="zone"):
            gxcart.Cartography("UTM", lon, 48.25)
    with gxcart.DatumConverter("LONG/LAT", "UTM-32") as dc:
        with pytest.raises(ValueError):  # a three-parameter shift from two values
            dc.set_datum_shift(gxcart.DatumShiftType.THREE_PARAMETER, [1.0, 2.0])
        with pytest.raises(ValueError):
            dc.set_conversion_type(4)


def test_close_and_use_after_close():
    with gxcart.MapProjection("UTM-32") as mp:
        assert not mp.closed
    assert mp.closed
    for use in (lambda: mp.geo2proj(9.5, 48.25), lambda: mp.name, mp.__enter__):
        with pytest.raises(ValueError, match="closed"):
            use()
    mp.close()  # a second close does nothing
    dc = gxcart.DatumConverter("LONG/LAT", "UTM-32")
    dc.close()
    with pytest.raises(ValueError, match="closed"):
        dc.convert([1.0], [2.0])
    for closed in (mp, dc):
        with pytest.raises(ValueError, match="closed"):
            pickle.dumps(closed)


def test_copies_are_objects_of_their_own():
    # A copy is made again from the string, never a second owner of the
    # same library object (which would be freed twice).
    for original in (gxcart.MapProjection("UTM-32"), gxcart.Cartography("UTM", 9.5, 48.25),
                     gxcart.DatumConverter("LONG/LAT", "UTM-32")):
        for duplicate in (copy.copy(original), copy.deepcopy(original)):
            assert duplicate._address != original._address
            duplicate.close()
            assert not original.closed
        original.close()


def test_forgotten_objects_are_released():
    finalizers = []
    for _ in range(3):
        grid = gxcart.Cartography("UTM-32", 9.5, 48.25, 10.0)
        finalizers.append(grid._finalizer)
        del grid
    gc.collect()
    assert not any(f.alive for f in finalizers)


def test_grid_projection_lives_with_the_grid():
    grid = gxcart.Cartography("UTM", 9.5, 48.25, 30.0)
    borrowed = grid.projection
    # cct +proj=utm +zone=32 +ellps=WGS84 on 9.5 48.25 (test_conversions)
    assert borrowed.geo2proj(9.5, 48.25) == pytest.approx((537117.141935, 5344208.122025),
                                                           abs=1e-3)
    borrowed.close()  # only lets go of it
    again = grid.projection
    del borrowed
    gc.collect()
    assert again.name == grid.projection_name == "UTM-32"
    grid.close()
    with pytest.raises(ValueError, match="closed"):
        again.geo2proj(9.5, 48.25)


def run_python(code, **environment):
    env = {k: v for k, v in os.environ.items() if k != "GXCART_LIBRARY"}
    env.update(environment)
    return subprocess.run([sys.executable, "-c", code], cwd=PACKAGE_ROOT, env=env,
                          capture_output=True, text=True, timeout=120)


def test_finding_the_library():
    library = gxcart.load_library()
    assert gxcart.load_library(library) == library
    with pytest.raises(RuntimeError, match="before the first use"):
        gxcart.load_library("/nonexistent/libgxcart.so")
    probe = "import gxcart; print(gxcart.longitude_to_utm_zone(9.5))"
    missing = run_python(probe, GXCART_LIBRARY="/nonexistent/libgxcart.so")
    assert "LibraryNotFoundError" in missing.stderr and "/nonexistent" in missing.stderr
    found = run_python(probe, LD_LIBRARY_PATH=os.path.dirname(os.path.abspath(library)))
    assert found.stdout.strip() == "UTM-32", found.stderr


def test_a_library_without_its_catalogue_is_refused(tmp_path):
    # Copied alone, the library resolves no catalogue name ("UTM-32"): the
    # package says so instead of loading it. Its catalogue files beside it
    # make it whole.
    library = os.path.realpath(gxcart.load_library())
    alone = tmp_path / "alone"
    alone.mkdir()
    shutil.copy(library, alone / "libgxcart.so")
    probe = "import gxcart; print(gxcart.is_valid('UTM-32'))"
    refused = run_python(probe, GXCART_LIBRARY=str(alone / "libgxcart.so"))
    assert "LibraryNotFoundError" in refused.stderr and "catalogue files" in refused.stderr
    for data in os.listdir(os.path.dirname(library)):
        if data.endswith(".zpf"):
            shutil.copy(os.path.join(os.path.dirname(library), data), alone)
    whole = run_python(probe, GXCART_LIBRARY=str(alone / "libgxcart.so"))
    assert whole.stdout.strip() == "True", whole.stderr


def test_version_follows_the_library():
    with open(os.path.join(os.path.dirname(PACKAGE_ROOT), "CMakeLists.txt")) as f:
        project = re.search(r"project\(GxCart VERSION ([0-9.]+)", f.read())
    assert gxcart.__version__ == project.group(1)
