"""Numbers through the package: reference values, arrays against the
single-point path, shapes, and threads."""

import numpy as np
import pytest

import gxcart
from conftest import prj

# UTM zone 32 on WGS 84:
#   printf '9.5 48.25 0 0\n6.0 40.0 0 0\n12.0 60.0 0 0\n3.0 -30.0 0 0\n' \
#     | cct -d 6 +proj=utm +zone=32 +ellps=WGS84
UTM32_GEO = [(9.5, 48.25), (6.0, 40.0), (12.0, 60.0), (3.0, -30.0)]
UTM32_PROJ = [(537117.141935, 5344208.122025), (243900.352030, 4432069.056899),
              (667294.821124, 6655205.483635), (-79218.653554, -3333984.371390)]
#   printf '500000 5000000 0 0\n700000 6000000 0 0\n' \
#     | cct -d 10 -I +proj=utm +zone=32 +ellps=WGS84
UTM32_INVERSE = [((500000.0, 5000000.0), (9.0, 45.1534771834)),
                 ((700000.0, 6000000.0), (12.0595936834, 54.1092064476))]
# Earth-centred on WGS 84: echo -70 -33.5 2500 0 | cct -d 6 +proj=cart +ellps=WGS84
GEOCENTRIC = ((-70.0, -33.5, 2500.0), (1821652.054036, -5004947.884567, -3501714.130486))
# WGS 84 longitude/latitude/height to ED50 / UTM 32 (TOWGS84[-87,-98,-121]):
#   P="+proj=pipeline +step +proj=cart +ellps=WGS84
#      +step +proj=helmert +x=87 +y=98 +z=121
#      +step +inv +proj=cart +ellps=intl +step +proj=utm +zone=32 +ellps=intl"
#   printf '9.5 48.25 120 0\n11.582 48.1351 0 0\n' | cct -d 6 $P
ED50_GEO = [(9.5, 48.25, 120.0), (11.582, 48.1351, 0.0)]
ED50_UTM32 = [(537200.538294, 5344408.699843, 77.961820),
              (692179.577908, 5334741.192988, -40.279321)]

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
    def test_utm32(self, utm32):
        xy = np.column_stack(utm32.geo2proj(*np.transpose(UTM32_GEO)))
        np.testing.assert_allclose(xy, UTM32_PROJ, atol=MILLIMETRE, rtol=0)
        for (x, y), geo in UTM32_INVERSE:
            assert utm32.proj2geo(x, y) == pytest.approx(geo, abs=ANGLE)

    def test_geocentric(self, utm32):
        (lon, lat, h), xyz = GEOCENTRIC
        assert utm32.geo2xyz(lon, lat, h) == pytest.approx(xyz, abs=MILLIMETRE)
        back = utm32.xyz2geo(*xyz)
        assert back[:2] == pytest.approx((lon, lat), abs=ANGLE)
        assert back[2] == pytest.approx(h, abs=MICROMETRES)

    def test_datum_conversion_with_and_without_heights(self, wgs84_to_ed50_utm32):
        out = np.column_stack(wgs84_to_ed50_utm32.convert(*np.transpose(ED50_GEO)))
        np.testing.assert_allclose(out, ED50_UTM32, atol=MILLIMETRE, rtol=0)
        # The second point lies at height 0: without heights it is the same.
        assert wgs84_to_ed50_utm32.convert(*ED50_GEO[1][:2]) == \
            pytest.approx(ED50_UTM32[1][:2], abs=MILLIMETRE)
        back = np.column_stack(wgs84_to_ed50_utm32.inv_convert(*out.T))
        np.testing.assert_allclose(back[:, :2], np.array(ED50_GEO)[:, :2], atol=ANGLE, rtol=0)
        np.testing.assert_allclose(back[:, 2], np.array(ED50_GEO)[:, 2], atol=MICROMETRES,
                                   rtol=0)


class TestArraysMatchPoints:
    """An array conversion gives every point the bits of the scalar call,
    hostile values included; so do the operations without a batch form."""

    def points(self):
        lon, lat = np.meshgrid(HOSTILE + [9.5, 3.0], HOSTILE + [48.25, -30.0])
        return lon.ravel(), lat.ravel()

    def check(self, convert, *arrays):
        out = convert(*arrays)
        singles = [convert(*point) for point in zip(*(a.tolist() for a in arrays))]
        if isinstance(out, tuple):
            assert all(type(v) is float for v in singles[0])
            assert all(same_bits(o, [s[k] for s in singles]) for k, o in enumerate(out))
        else:
            assert same_bits(out, singles)

    def test_map_projection_and_grid(self, utm32, grid):
        lon, lat = self.points()
        for convert in (utm32.geo2proj, utm32.proj2geo, utm32.convergence, utm32.geo2xyz,
                        grid.geo2proj, grid.proj2geo, grid.geo2xy, grid.xy2geo, grid.proj2xy,
                        grid.xy2proj, grid.true_north):
            self.check(convert, lon, lat)
            self.check(convert, lon * 1e5, lat * 1e5)

    def test_geocentric_with_heights_and_back(self, utm32):
        lon, lat = self.points()
        h = np.resize(HOSTILE, lon.size)
        self.check(utm32.geo2xyz, lon, lat, h)
        # Real points and the polar axis (X = Y = 0) among the hostile ones.
        X, Y, Z = utm32.geo2xyz(lon, lat, h)
        self.check(utm32.xyz2geo, X, Y, Z)
        self.check(utm32.xyz2geo, lon * 1e5, lat * 1e5, h)

    def test_datum_converter(self, wgs84_to_ed50_utm32):
        lon, lat = self.points()
        h = np.resize([0.0, 120.0, np.nan, -1e300], lon.size)
        for convert in (wgs84_to_ed50_utm32.convert, wgs84_to_ed50_utm32.inv_convert):
            self.check(convert, lon, lat)
            self.check(convert, lon, lat, h)


class TestShapes:
    def test_shape_kept_and_broadcast_from_any_layout(self, utm32):
        lon = np.linspace(6.0, 12.0, 12).reshape(3, 4)
        x, y = utm32.geo2proj(lon, 48.25)
        assert x.shape == y.shape == (3, 4) and x.dtype == np.float64
        assert x[1, 2] == utm32.geo2proj(lon[1, 2], 48.25)[0]
        assert utm32.geo2proj(lon[:, :1], [40.0, 50.0, 60.0, 70.0])[0].shape == (3, 4)
        for other in (np.asfortranarray(lon), lon.tolist(), np.repeat(lon, 2, axis=1)[:, ::2]):
            assert np.array_equal(utm32.geo2proj(other, 48.25)[0], x)
        assert utm32.geo2proj(np.arange(6, 13), 45)[0].dtype == np.float64

    def test_scalars_zero_d_empty_and_mismatched(self, utm32):
        x, y = utm32.geo2proj(np.float64(9.5), np.array(48.25))
        assert type(x) is float and type(y) is float
        assert utm32.geo2proj(np.empty((0, 3)), 48.0)[0].shape == (0, 3)
        with pytest.raises(ValueError):
            utm32.geo2proj(np.zeros(3), np.zeros(4))

    def test_datum_converter_leaves_the_callers_arrays(self, wgs84_to_ed50_utm32):
        lon, lat, h = np.array([9.5, 11.582]), np.array([48.25, 48.1351]), np.zeros(2)
        kept = lon.copy(), lat.copy(), h.copy()
        wgs84_to_ed50_utm32.convert(lon, lat, h)
        assert all(np.array_equal(a, b) for a, b in zip((lon, lat, h), kept))


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
        h = np.full(self.COUNT, 50.0)
        dc = wgs84_to_ed50_utm32
        for convert, args, threads in ((utm32.geo2proj, (lon, lat), 2),
                                       (utm32.proj2geo, (lon, lat), 3),
                                       (utm32.geo2proj, (lon, lat), 16),
                                       (utm32.geo2xyz, (lon, lat), 2),
                                       (utm32.geo2xyz, (lon, lat, h), 3),
                                       (utm32.xyz2geo, (lon * 1e5, lat * 1e5, h), 2),
                                       (utm32.convergence, (lon, lat), 3),
                                       (dc.convert, (lon, lat, h), 4),
                                       (dc.inv_convert, (lon, lat), 4)):
            single, threaded = convert(*args), convert(*args, threads=threads)
            if isinstance(single, np.ndarray):
                single, threaded = (single,), (threaded,)
            assert all(a.tobytes() == b.tobytes() for a, b in zip(single, threaded))

    def test_bad_thread_counts(self, utm32):
        for threads, error in ((0, ValueError), (-2, ValueError), (2.5, TypeError),
                               (True, TypeError)):
            with pytest.raises(error):
                utm32.geo2proj([9.5], [48.25], threads=threads)


class TestNativeUnits:
    """Metres by default, the system's own linear unit when asked: New York
    Long Island in US survey feet. The references are PROJ's in feet
    (+x_0 is metres in PROJ; 984250 US ft is 300000 m):
      P="+proj=lcc +lat_0=40.1666666666667 +lon_0=-74 +lat_1=41.0333333333333
         +lat_2=40.6666666666667 +x_0=300000 +y_0=0 +ellps=GRS80"
      printf -- '-74 40.7 0 0\\n-73 40.8 0 0\\n-72 41.1 0 0\\n' | cct -d 6 $P +units=us-ft
    and the metres of the same (tests/data/wkt/grid_points.txt)."""
    GEO = [(-74.0, 40.7), (-73.0, 40.8), (-72.0, 41.1)]
    FEET = [(984250.000000, 194305.338941), (1261108.896732, 232318.876987),
            (1535436.335060, 346334.709654)]
    METRES = [(300000.000000, 59224.385758), (384386.760497, 70810.935327),
              (468001.930930, 105563.030629)]

    @pytest.fixture
    def feet(self):
        with gxcart.MapProjection(prj("2263_gdal.prj")) as mp:
            yield mp

    def test_map_projection(self, feet):
        lon, lat = np.transpose(self.GEO)
        assert feet.linear_unit == ("US survey foot", 0.304800609601219)
        np.testing.assert_allclose(np.column_stack(feet.geo2proj(lon, lat)), self.METRES,
                                   atol=MILLIMETRE, rtol=0)
        native = np.column_stack(feet.geo2proj(lon, lat, native_units=True))
        np.testing.assert_allclose(native, self.FEET, atol=MILLIMETRE, rtol=0)
        assert feet.geo2proj(*self.GEO[1], native_units=True) == tuple(native[1])
        back = np.column_stack(feet.proj2geo(*native.T, native_units=True))
        np.testing.assert_allclose(back, self.GEO, atol=ANGLE, rtol=0)
        # A metre system, and one that states no linear unit, are left alone.
        for mp in (gxcart.MapProjection("UTM-32"), gxcart.MapProjection("LONG/LAT")):
            assert mp.geo2proj(9.5, 48.25, native_units=True) == mp.geo2proj(9.5, 48.25)
        assert gxcart.MapProjection("LONG/LAT").linear_unit is None
        with pytest.raises(TypeError):
            feet.geo2proj(-73.0, 40.8, native_units="yes")

    def test_grid_lengths_all_in_the_unit(self):
        with gxcart.Cartography(prj("2263_gdal.prj"), -73.0, 40.8, 20.0) as grid:
            f = grid.projection.linear_unit[1]
            assert grid.geo2proj(-72.0, 41.1, native_units=True) == \
                pytest.approx(self.FEET[2], abs=MILLIMETRE)
            X, Y = grid.geo2xy(-72.0, 41.1)
            Xf, Yf = grid.geo2xy(-72.0, 41.1, native_units=True)
            assert (Xf, Yf) == pytest.approx((X / f, Y / f), rel=1e-14)
            assert grid.proj2xy(*self.FEET[2], native_units=True) == \
                pytest.approx((Xf, Yf), abs=MILLIMETRE)
            assert grid.xy2proj(Xf, Yf, native_units=True) == \
                pytest.approx(self.FEET[2], abs=MILLIMETRE)
            assert grid.xy2geo(Xf, Yf, native_units=True) == pytest.approx(self.GEO[2],
                                                                            abs=ANGLE)
            assert grid.true_north(Xf, Yf, native_units=True) == \
                pytest.approx(grid.true_north(X, Y), abs=1e-12)

    def test_datum_converter_sides(self):
        # The same grid in metres on one side and in feet on the other: each
        # projected side in its own unit, in both directions and after the
        # order is inverted; geographical sides and heights as they are.
        feet_wkt = prj("2263_gdal.prj")
        metres_wkt = feet_wkt.replace('"false_easting",984250', '"false_easting",300000').replace(
            'UNIT["US survey foot",0.304800609601219,AUTHORITY["EPSG","9003"]]', 'UNIT["metre",1]')
        assert "foot" not in metres_wkt and "300000" in metres_wkt
        metres, feet, geo = (np.transpose(v) for v in (self.METRES, self.FEET, self.GEO))

        def near(values, expected, tolerance=MILLIMETRE):
            np.testing.assert_allclose(np.column_stack(values[:2]), np.transpose(expected),
                                       atol=tolerance, rtol=0)

        with gxcart.DatumConverter(metres_wkt, feet_wkt) as dc:
            near(dc.convert(*metres), metres)
            near(dc.convert(*metres, native_units=True), feet)
            near(dc.inv_convert(*feet, native_units=True), metres)
            dc.set_conversion_type(gxcart.ConversionType.GEO_TO_PROJ)
            x, y, h = dc.convert(*geo, 100.0, native_units=True)
            near((x, y), feet)
            assert np.all(h == 100.0)
            near(dc.inv_convert(x, y, native_units=True), geo, ANGLE)
            dc.invert_order()  # feet to geographical now
            near(dc.convert(*feet, native_units=True), geo, ANGLE)
            dc.set_conversion_type(gxcart.ConversionType.PROJ_TO_PROJ)
            near(dc.convert(*feet, native_units=True), metres)
            assert dc.convert(*self.FEET[1], native_units=True) == \
                pytest.approx(self.METRES[1], abs=MILLIMETRE)
