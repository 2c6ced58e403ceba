"""Numbers through the package: reference values, arrays against the
single-point path, shapes, and threads."""

import numpy as np
import pytest

import gxcart
from conftest import prj

# UTM zone 32 on WGS 84:
#   printf '9.5 48.25 0 0\n6.0 40.0 0 0\n12.0 60.0 0 0\n3.0 -30.0 0 0\n' \
#     | cct -d 6 +proj=utm +zone=32 +ellps=WGS84
UTM32_FORWARD = [
    ((9.5, 48.25), (537117.141935, 5344208.122025)),
    ((6.0, 40.0), (243900.352030, 4432069.056899)),
    ((12.0, 60.0), (667294.821124, 6655205.483635)),
    ((3.0, -30.0), (-79218.653554, -3333984.371390)),
]
#   printf '500000 5000000 0 0\n700000 6000000 0 0\n' \
#     | cct -d 10 -I +proj=utm +zone=32 +ellps=WGS84
UTM32_INVERSE = [
    ((500000.0, 5000000.0), (9.0, 45.1534771834)),
    ((700000.0, 6000000.0), (12.0595936834, 54.1092064476)),
]
# Earth-centred coordinates on WGS 84:
#   printf '9.5 48.25 120 0\n-70.0 -33.5 2500 0\n' | cct -d 6 +proj=cart +ellps=WGS84
GEOCENTRIC = [
    ((9.5, 48.25, 120.0), (4196742.990069, 702293.921602, 4735521.347413)),
    ((-70.0, -33.5, 2500.0), (1821652.054036, -5004947.884567, -3501714.130486)),
]
# WGS 84 longitude/latitude/height to ED50 / UTM 32 (TOWGS84[-87,-98,-121]):
#   P="+proj=pipeline +step +proj=cart +ellps=WGS84
#      +step +proj=helmert +x=87 +y=98 +z=121
#      +step +inv +proj=cart +ellps=intl +step +proj=utm +zone=32 +ellps=intl"
#   printf '9.5 48.25 120 0\n11.582 48.1351 0 0\n' | cct -d 6 $P
ED50_UTM32 = [
    ((9.5, 48.25, 120.0), (537200.538294, 5344408.699843, 77.961820)),
    ((11.582, 48.1351, 0.0), (692179.577908, 5334741.192988, -40.279321)),
]

MILLIMETRE = 1e-3
# The references carry micrometres; what comes back from them is as good.
MICROMETRES = 1e-5
ANGLE = 1e-9  # degrees, 0.1 mm
HOSTILE = [np.nan, np.inf, -np.inf, 1e300, -1e300, 5e-324, 0.0, 90.0, -90.0, 180.0, -180.0]


def same_bits(array, values):
    expected = np.array(values, dtype=np.float64)
    return array.shape == expected.shape and array.tobytes() == expected.tobytes()


@pytest.fixture
def wgs84_to_ed50_utm32():
    with gxcart.DatumConverter(prj("4326_esri.prj"), prj("ed50_utm32_towgs84_gdal.prj")) as dc:
        dc.set_conversion_type(gxcart.ConversionType.GEO_TO_PROJ)
        yield dc


@pytest.fixture
def grid():
    with gxcart.Cartography("UTM", 9.5, 48.25, 30.0) as c:
        yield c


class TestReferenceValues:
    def test_utm32_scalars_and_arrays(self, utm32):
        geo = np.array([g for g, _ in UTM32_FORWARD])
        proj = np.array([p for _, p in UTM32_FORWARD])
        for (lon, lat), expected in UTM32_FORWARD:
            assert utm32.geo2proj(lon, lat) == pytest.approx(expected, abs=MILLIMETRE)
        x, y = utm32.geo2proj(geo[:, 0], geo[:, 1])
        np.testing.assert_allclose(np.column_stack([x, y]), proj, atol=MILLIMETRE, rtol=0)
        lon, lat = utm32.proj2geo(*np.array([p for p, _ in UTM32_INVERSE]).T)
        np.testing.assert_allclose(np.column_stack([lon, lat]),
                                   [g for _, g in UTM32_INVERSE], atol=1e-9, rtol=0)

    def test_geocentric(self, utm32):
        for (lon, lat, h), expected in GEOCENTRIC:
            assert utm32.geo2xyz(lon, lat, h) == pytest.approx(expected, abs=MILLIMETRE)
            back = utm32.xyz2geo(*expected)
            assert back[:2] == pytest.approx((lon, lat), abs=ANGLE)
            assert back[2] == pytest.approx(h, abs=MICROMETRES)

    def test_datum_conversion_with_and_without_heights(self, wgs84_to_ed50_utm32):
        geo = np.array([g for g, _ in ED50_UTM32])
        x, y, h = wgs84_to_ed50_utm32.convert(geo[:, 0], geo[:, 1], geo[:, 2])
        np.testing.assert_allclose(np.column_stack([x, y, h]), [p for _, p in ED50_UTM32],
                                   atol=MILLIMETRE, rtol=0)
        # The second point lies at height 0: without heights it is the same.
        (lon, lat, _), (ex, ey, _) = ED50_UTM32[1]
        assert wgs84_to_ed50_utm32.convert(lon, lat) == pytest.approx((ex, ey), abs=MILLIMETRE)
        back = np.column_stack(wgs84_to_ed50_utm32.inv_convert(x, y, h))
        np.testing.assert_allclose(back[:, :2], geo[:, :2], atol=ANGLE, rtol=0)
        np.testing.assert_allclose(back[:, 2], geo[:, 2], atol=MICROMETRES, rtol=0)


class TestArraysMatchPoints:
    """An array conversion gives every point the bits of the scalar call,
    hostile values included."""

    def points(self):
        lon, lat = np.meshgrid(HOSTILE + [9.5, 3.0], HOSTILE + [48.25, -30.0])
        return lon.ravel(), lat.ravel()

    def check(self, convert, a, b):
        out_a, out_b = convert(a, b)
        pairs = [convert(p, q) for p, q in zip(a.tolist(), b.tolist())]
        assert all(isinstance(v, float) for v in pairs[0])
        assert same_bits(out_a, [p[0] for p in pairs])
        assert same_bits(out_b, [p[1] for p in pairs])

    def test_map_projection(self, utm32):
        lon, lat = self.points()
        self.check(utm32.geo2proj, lon, lat)
        self.check(utm32.proj2geo, *utm32.geo2proj(lon, lat))

    def test_cartography(self, grid):
        lon, lat = self.points()
        for convert in (grid.geo2proj, grid.proj2geo, grid.geo2xy, grid.xy2geo, grid.proj2xy,
                        grid.xy2proj):
            self.check(convert, lon * 1000, lat * 1000)
            self.check(convert, lon, lat)

    def test_datum_converter(self, wgs84_to_ed50_utm32):
        lon, lat = self.points()
        h = np.resize([0.0, 120.0, np.nan, -1e300], lon.size)
        for convert in (wgs84_to_ed50_utm32.convert, wgs84_to_ed50_utm32.inv_convert):
            self.check(convert, lon, lat)
            out = convert(lon, lat, h)
            singles = [convert(*p) for p in zip(lon.tolist(), lat.tolist(), h.tolist())]
            for k in range(3):
                assert same_bits(out[k], [s[k] for s in singles])

    def test_operations_without_a_batch_form(self, utm32, grid):
        lon, lat = self.points()
        assert same_bits(utm32.convergence(lon, lat),
                         [utm32.convergence(p, q) for p, q in zip(lon, lat)])
        assert same_bits(grid.true_north(lon, lat),
                         [grid.true_north(p, q) for p, q in zip(lon, lat)])
        X, Y, Z = utm32.geo2xyz(lon, lat)
        assert same_bits(Z, [utm32.geo2xyz(p, q)[2] for p, q in zip(lon, lat)])


class TestShapes:
    def test_shape_kept_and_broadcast(self, utm32):
        lon = np.linspace(6.0, 12.0, 12).reshape(3, 4)
        x, y = utm32.geo2proj(lon, 48.25)
        assert x.shape == y.shape == (3, 4) and x.dtype == np.float64
        assert x[1, 2] == utm32.geo2proj(lon[1, 2], 48.25)[0]
        x, _ = utm32.geo2proj(lon[:, :1], [40.0, 50.0, 60.0, 70.0])
        assert x.shape == (3, 4)

    def test_any_layout_or_type_of_input(self, utm32):
        lon = np.linspace(6.0, 12.0, 20).reshape(4, 5)
        lat = np.linspace(40.0, 60.0, 20).reshape(4, 5)
        x, y = utm32.geo2proj(lon, lat)
        for a, b in ((np.asfortranarray(lon), np.asfortranarray(lat)),  # column-major
                     (lon.T.copy().T, lat.T.copy().T),
                     (lon.tolist(), lat.tolist())):
            xa, ya = utm32.geo2proj(a, b)
            assert np.array_equal(xa, x) and np.array_equal(ya, y)
        stride = np.linspace(6.0, 12.0, 40)[::2]
        assert np.array_equal(utm32.geo2proj(stride, 48.0)[0],
                              utm32.geo2proj(stride.copy(), 48.0)[0])
        assert utm32.geo2proj(np.arange(6, 13), 45)[0].dtype == np.float64

    def test_scalars_zero_d_and_empty(self, utm32):
        x, y = utm32.geo2proj(np.float64(9.5), np.array(48.25))
        assert type(x) is float and type(y) is float
        x, y = utm32.geo2proj(np.empty((0, 3)), 48.0)
        assert x.shape == (0, 3)

    def test_shapes_that_do_not_broadcast(self, utm32):
        with pytest.raises(ValueError):
            utm32.geo2proj(np.zeros(3), np.zeros(4))
        with pytest.raises(ValueError):
            utm32.geo2proj(["a"], [1.0])

    def test_datum_converter_leaves_the_callers_arrays(self, wgs84_to_ed50_utm32):
        lon, lat, h = np.array([9.5, 11.582]), np.array([48.25, 48.1351]), np.zeros(2)
        kept = lon.copy(), lat.copy(), h.copy()
        x, _, _ = wgs84_to_ed50_utm32.convert(lon, lat, h)
        assert x is not lon
        for a, b in zip((lon, lat, h), kept):
            assert np.array_equal(a, b)


class TestThreads:
    # Odd and more than a few chunks' worth, so that chunk bounds are uneven.
    COUNT = 3 * gxcart._numbers.MIN_POINTS_PER_THREAD + 17

    def inputs(self):
        rng = np.random.default_rng(7)
        lon = rng.uniform(0.0, 18.0, self.COUNT)
        lat = rng.uniform(-80.0, 80.0, self.COUNT)
        lon[::997] = np.nan
        return lon, lat

    def test_threads_give_the_single_call_results(self, utm32, wgs84_to_ed50_utm32):
        lon, lat = self.inputs()
        for convert in (utm32.geo2proj, utm32.proj2geo):
            single = convert(lon, lat)
            for threads in (2, 3, 16):
                threaded = convert(lon, lat, threads=threads)
                assert all(a.tobytes() == b.tobytes() for a, b in zip(single, threaded))
        h = np.full(self.COUNT, 50.0)
        single = wgs84_to_ed50_utm32.convert(lon, lat, h)
        threaded = wgs84_to_ed50_utm32.convert(lon, lat, h, threads=4)
        assert all(a.tobytes() == b.tobytes() for a, b in zip(single, threaded))
        single = wgs84_to_ed50_utm32.inv_convert(lon, lat)
        threaded = wgs84_to_ed50_utm32.inv_convert(lon, lat, threads=4)
        assert all(a.tobytes() == b.tobytes() for a, b in zip(single, threaded))

    def test_bad_thread_counts(self, utm32):
        for threads, error in ((0, ValueError), (-2, ValueError), (2.5, TypeError),
                               (True, TypeError)):
            with pytest.raises(error):
                utm32.geo2proj([9.5], [48.25], threads=threads)
