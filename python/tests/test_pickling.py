"""Objects that travel: a pickled copy converts every point to the bits of
the original, in this process and in worker processes."""

import multiprocessing
import pickle
import random

import numpy as np

import gxcart
from conftest import prj

COUNT = 100_000


def points(count=COUNT, seed=20):
    rng = np.random.default_rng(seed)
    lon = rng.uniform(3.0, 15.0, count)
    lat = rng.uniform(35.0, 70.0, count)
    return lon, lat


def same_bits(a, b):
    a = a if isinstance(a, tuple) else (a,)
    b = b if isinstance(b, tuple) else (b,)
    return len(a) == len(b) and all(np.asarray(u).tobytes() == np.asarray(v).tobytes()
                                    for u, v in zip(a, b))


def round_trip(obj):
    return pickle.loads(pickle.dumps(obj))


class TestRoundTrip:
    def test_map_projections(self):
        # "UTM-32" is a catalogue name: made again from the WKT the library
        # writes for it, its origin would be 9.000000000000002 and most
        # points would move in the last bits. The copy is made from the name.
        lon, lat = points()
        for text in ("UTM-32", b"UTM-33", prj("ed50_utm32_towgs84_gdal.prj"),
                     prj("2263_gdal.prj"), "LONG/LAT"):
            mp = gxcart.MapProjection(text)
            copy = round_trip(mp)
            x, y = mp.geo2proj(lon, lat)
            assert same_bits(copy.geo2proj(lon, lat), (x, y))
            assert same_bits(copy.proj2geo(x, y), mp.proj2geo(x, y))
            assert same_bits(copy.geo2xyz(lon, lat), mp.geo2xyz(lon, lat))
            assert same_bits(copy.convergence(lon, lat), mp.convergence(lon, lat))

    def test_grids_and_the_system_they_lend(self):
        lon, lat = points()
        for grid in (gxcart.Cartography("UTM", 9.5, 48.25, 30.0),
                     gxcart.Cartography(prj("2263_esri.prj"), -73.0, 40.8, -12.5)):
            copy = round_trip(grid)
            assert same_bits(copy.geo2xy(lon, lat), grid.geo2xy(lon, lat))
            assert same_bits(copy.xy2geo(lon * 1e4, lat * 1e4), grid.xy2geo(lon * 1e4, lat * 1e4))
            assert copy.projection_north == grid.projection_north
            lent = round_trip(grid.projection)
            assert same_bits(lent.geo2proj(lon, lat), grid.geo2proj(lon, lat))

    def test_datum_converter_with_its_changes(self):
        lon, lat = points()
        h = np.linspace(-100.0, 3000.0, COUNT)
        dc = gxcart.DatumConverter(prj("4326_esri.prj"), prj("ed50_utm32_towgs84_gdal.prj"))
        dc.set_conversion_type(gxcart.ConversionType.GEO_TO_PROJ)
        dc.set_datum_shift(gxcart.DatumShiftType.SEVEN_PARAMETER,
                           [-87.0, -98.0, -121.0, 1e-6, -2e-6, 3e-6, 4e-6], source=False)
        copy = round_trip(dc)
        assert same_bits(copy.convert(lon, lat, h), dc.convert(lon, lat, h))
        x, y = dc.convert(lon, lat)
        assert same_bits(copy.inv_convert(x, y), dc.inv_convert(x, y))

    def test_any_sequence_of_changes_is_made_again(self):
        # Every change a converter offers, in random orders: the copy must
        # end in the state of the original, shifts kept with their systems
        # through inversions and the bypass as the last change left it.
        lon, lat = points(200)
        h = np.full(200, 250.0)
        rng = random.Random(23)
        T = gxcart.DatumShiftType
        changes = [
            lambda dc: dc.invert_order(),
            lambda dc: dc.set_conversion_type(rng.randrange(4)),
            lambda dc: dc.set_datum_shift(T.THREE_PARAMETER, [rng.uniform(-200, 200)
                                                              for _ in range(3)],
                                          source=rng.random() < 0.5),
            lambda dc: dc.set_datum_shift(T.SEVEN_PARAMETER, [rng.uniform(-5, 5) * 1e-6
                                                              for _ in range(7)],
                                          source=rng.random() < 0.5),
            lambda dc: dc.set_datum_shift(rng.choice(list(T)), source=rng.random() < 0.5),
            lambda dc: dc.bypass_xyz(),
            lambda dc: dc.reset_bypass_xyz(),
            # Shifts that agree, so that the bypass worked out differs from
            # the one made at creation.
            lambda dc: (dc.set_datum_shift(T.NONE), dc.set_datum_shift(T.NONE, source=False)),
        ]
        # Across ellipsoids, and on one ellipsoid where the bypass depends
        # on whether the two shifts agree (ED50 with and without its shift).
        ed50 = prj("ed50_utm32_towgs84_gdal.prj")
        pairs = [(prj("4326_esri.prj"), ed50),
                 (ed50, ed50.replace("TOWGS84[-87,-98,-121,0,0,0,0]", "").replace(",]", "]"))]
        for round in range(150):
            dc = gxcart.DatumConverter(*pairs[round % 2])
            for _ in range(rng.randrange(1, 8)):
                rng.choice(changes)(dc)
            copy = round_trip(dc)
            assert copy.bypassed == dc.bypassed
            for kind in gxcart.ConversionType:
                for converter in (dc, copy):
                    converter.set_conversion_type(kind)
                scale = 1.0 if kind in (2, 3) else 1e5
                for direction in ("convert", "inv_convert"):
                    a = getattr(dc, direction)(lon * scale, lat * scale, h)
                    b = getattr(copy, direction)(lon * scale, lat * scale, h)
                    assert same_bits(a, b), (kind, direction)


def geo2proj_chunk(job):
    projection, lon, lat = job
    return projection.geo2proj(lon, lat)


def test_pool_of_processes_gives_the_single_process_results():
    # Fresh interpreters ("spawn") that know nothing of this one: each
    # task carries its pickled projection.
    lon, lat = points()
    with gxcart.MapProjection("UTM-32") as utm:
        expected = utm.geo2proj(lon, lat)
        jobs = [(utm, a, b) for a, b in zip(np.array_split(lon, 4), np.array_split(lat, 4))]
        with multiprocessing.get_context("spawn").Pool(2) as pool:
            parts = pool.map(geo2proj_chunk, jobs)
    assert same_bits(tuple(np.concatenate(c) for c in zip(*parts)), expected)
