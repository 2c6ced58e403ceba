"""Handles: creation failures, release, use after release, and finding the
library."""

import copy
import gc
import os
import pickle
import subprocess
import sys

import pytest

import gxcart
from conftest import PACKAGE_ROOT, prj


class TestCreation:
    def test_strings_that_give_no_system(self):
        for text in ("UTM", " UTM ", "garbage", "", 'PROJCS["x",GEOGCS["y"]'):
            with pytest.raises(ValueError):
                gxcart.MapProjection(text)
            with pytest.raises(ValueError):
                gxcart.DatumConverter("LONG/LAT", text)
        with pytest.raises(ValueError, match="UTM-32"):
            gxcart.MapProjection("UTM")
        with pytest.raises(ValueError):
            gxcart.Cartography("garbage", 9.5, 48.25)

    def test_text_arguments(self):
        with pytest.raises(ValueError, match="NUL"):
            gxcart.MapProjection("UTM-32\0trailing")
        with pytest.raises(TypeError):
            gxcart.MapProjection(32)
        with gxcart.MapProjection(b"  UTM-32 ") as mp:
            assert mp.name == "UTM-32"

    def test_grid_on_the_zone_of_its_origin(self):
        with gxcart.Cartography("UTM", -179.5, 48.25) as grid:
            assert grid.projection_name == "UTM-1"
            assert grid.geo2xy(-179.5, 48.25) == pytest.approx((0.0, 0.0), abs=1e-6)
        # Zones are numbered for longitudes in [-180, 180); outside there is none.
        for lon in (180.0, 1e300, float("nan"), float("inf")):
            with pytest.raises(ValueError, match="zone"):
                gxcart.Cartography("UTM", lon, 48.25)

    def test_datum_shift_arguments(self):
        with gxcart.DatumConverter(prj("4326_esri.prj"), "UTM-32") as dc:
            with pytest.raises(ValueError):
                dc.set_datum_shift(gxcart.DatumShiftType.THREE_PARAMETER, [1.0, 2.0])
            with pytest.raises(ValueError):
                dc.set_datum_shift(5, [1.0] * 7)
            with pytest.raises(ValueError):
                dc.set_conversion_type(4)
            dc.set_datum_shift(gxcart.DatumShiftType.SEVEN_PARAMETER, [1.0] * 7, source=False)
            assert not dc.bypassed


class TestRelease:
    def test_with_block_and_close(self):
        with gxcart.MapProjection("UTM-32") as mp:
            assert not mp.closed
        assert mp.closed
        with pytest.raises(ValueError, match="closed"):
            mp.geo2proj(9.5, 48.25)
        with pytest.raises(ValueError, match="closed"):
            mp.name
        mp.close()  # a second close does nothing
        with pytest.raises(ValueError):
            with mp:
                pass
        dc = gxcart.DatumConverter("LONG/LAT", "UTM-32")
        dc.close()
        with pytest.raises(ValueError, match="closed"):
            dc.convert([1.0], [2.0])

    def test_forgotten_objects_are_released(self):
        finalizers = []
        for _ in range(3):
            grid = gxcart.Cartography("UTM-32", 9.5, 48.25, 10.0)
            finalizers.append(grid._finalizer)
            del grid
        gc.collect()
        assert not any(f.alive for f in finalizers)

    def test_grid_projection_lives_with_the_grid(self):
        grid = gxcart.Cartography("UTM", 9.5, 48.25, 30.0)
        borrowed = grid.projection
        assert borrowed.name == "UTM-32"
        assert borrowed.geo2proj(9.5, 48.25) == pytest.approx((537117.141935, 5344208.122025),
                                                               abs=1e-3)
        borrowed.close()  # only lets go
        assert grid.projection.name == "UTM-32"
        again = grid.projection
        del borrowed
        gc.collect()
        assert grid.projection_name == "UTM-32"
        grid.close()
        with pytest.raises(ValueError, match="closed"):
            again.geo2proj(9.5, 48.25)

    def test_no_copies(self):
        with gxcart.MapProjection("UTM-32") as mp:
            for make_copy in (copy.copy, copy.deepcopy, pickle.dumps):
                with pytest.raises(TypeError):
                    make_copy(mp)


def run_python(code, **environment):
    env = {k: v for k, v in os.environ.items() if k != "GXCART_LIBRARY"}
    env.update(environment)
    return subprocess.run([sys.executable, "-c", code], cwd=PACKAGE_ROOT, env=env,
                          capture_output=True, text=True, timeout=120)


class TestFindingTheLibrary:
    def test_given_path_and_a_later_different_one(self):
        path = gxcart.load_library()
        assert gxcart.load_library(path) == path
        with pytest.raises(RuntimeError, match="before the first use"):
            gxcart.load_library("/nonexistent/libgxcart.so")

    def test_environment_then_loader_path(self):
        library = gxcart.load_library()
        probe = "import gxcart; print(gxcart.longitude_to_utm_zone(9.5))"
        missing = run_python(probe, GXCART_LIBRARY="/nonexistent/libgxcart.so")
        assert missing.returncode != 0
        assert "LibraryNotFoundError" in missing.stderr and "/nonexistent" in missing.stderr
        found = run_python(probe, LD_LIBRARY_PATH=os.path.dirname(os.path.abspath(library)))
        assert found.stdout.strip() == "UTM-32", found.stderr
