"""What is not a coordinate is refused, at every entry that takes numbers:
TypeError (or ValueError for a shape or size that cannot be), never a
number. Masked arrays keep their mask."""

import datetime
import decimal

import numpy as np
import pytest

import gxcart
from conftest import prj

NOT_NUMBERS = [
    None, "9", b"9", True, np.bool_(False), 1 + 0j, np.complex128(2.0),
    datetime.date(2020, 1, 1), np.datetime64("2020-01-01"), decimal.Decimal("9.5"),
    ["9", "48"], [9.5, None], np.array([9.5, 48.0], dtype=object), np.array([True, False]),
    np.array(["2020-01-01"], dtype="datetime64[D]"), np.array([1 + 2j]),
    np.array([1], dtype="timedelta64[s]"), {"lon": 9.5}, object(),
]


def entries():
    """Every numeric entry of the package, as (name, call of one value put
    in the place of each argument in turn)."""
    utm = gxcart.MapProjection("UTM-32")
    grid = gxcart.Cartography("UTM", 9.5, 48.25, 30.0)
    dc = gxcart.DatumConverter(prj("4326_esri.prj"), prj("ed50_utm32_towgs84_gdal.prj"))
    good = (9.5, 48.25, 100.0)
    calls = {
        "geo2proj": (utm.geo2proj, 2), "proj2geo": (utm.proj2geo, 2),
        "geo2xyz": (utm.geo2xyz, 3), "xyz2geo": (utm.xyz2geo, 3),
        "convergence": (utm.convergence, 2), "grid.geo2xy": (grid.geo2xy, 2),
        "grid.xy2proj": (grid.xy2proj, 2), "grid.true_north": (grid.true_north, 2),
        "convert": (dc.convert, 2), "inv_convert": (dc.inv_convert, 2),
        # (None is the height that is not given.)
        "convert heights": (lambda h: dc.convert(9.5, 48.25, [h]), 1),
        "datum_shift": (dc.datum_shift, 3),
        "Cartography": (lambda *a: gxcart.Cartography("UTM-32", *a), 3),
        "longitude_to_utm_zone": (gxcart.longitude_to_utm_zone, 1),
    }
    for name, (function, count) in calls.items():
        for place in range(count):
            yield f"{name} argument {place}", (
                lambda value, f=function, p=place, n=count:
                    f(*(good[:p] + (value,) + good[p + 1:n])))


@pytest.mark.parametrize("value", NOT_NUMBERS, ids=repr)
def test_not_a_number_anywhere(value):
    for where, call in entries():
        with pytest.raises(TypeError):
            call(value)
            pytest.fail(f"{where} took {value!r}")


def test_settings_that_take_numbers():
    with gxcart.DatumConverter("LONG/LAT", "UTM-32") as dc:
        T = gxcart.DatumShiftType
        for params in (["1", "2", "3"], "123", b"123", [1.0, None, 3.0], [1.0, True, 3.0]):
            with pytest.raises(TypeError):
                dc.set_datum_shift(T.THREE_PARAMETER, params)
        for bad, error in ((True, TypeError), ("1", TypeError), (1.0, TypeError),
                           (None, TypeError), (7, ValueError)):
            with pytest.raises(error):
                dc.set_datum_shift(bad, [1.0, 2.0, 3.0])
            with pytest.raises(error):
                dc.set_conversion_type(bad)
        with pytest.raises(TypeError):
            dc.set_datum_shift(T.NONE, source="yes")
        with pytest.raises(TypeError):
            dc.convert(9.5, 48.25, native_units=1)
        # Still whole after all that (cct +proj=utm +zone=32 +ellps=WGS84).
        dc.set_conversion_type(gxcart.ConversionType.GEO_TO_PROJ)
        assert dc.convert(9.5, 48.25) == pytest.approx((537117.141935, 5344208.122025),
                                                       abs=1e-3)
    with pytest.raises(TypeError):
        gxcart.convert_to_proj4("UTM-32", ["1", "2", "3"])
    for mask in ("1", True, 1.0, None):
        with pytest.raises(TypeError):
            gxcart.is_type("UTM-32", mask)
    with pytest.raises(ValueError):  # a number, but none that a double holds
        gxcart.longitude_to_utm_zone(10 ** 400)
    # What is accepted: ints, numpy scalars of any real type, 0-d arrays.
    with gxcart.MapProjection("UTM-32") as utm:
        expected = utm.geo2proj(9.0, 48.0)
        for lon in (9, np.int16(9), np.uint8(9), np.float32(9.0), np.array(9.0), [9]):
            x, y = utm.geo2proj(lon, 48)
            assert (float(np.ravel(x)[0]), float(np.ravel(y)[0])) == expected


def test_masked_arrays_keep_their_mask():
    lon = np.ma.masked_array([9.5, 1e300, 10.0], mask=[False, True, False])
    lat = np.ma.masked_array([48.25, 48.25, 50.0], mask=[False, False, True])
    with gxcart.MapProjection("UTM-32") as utm:
        for result in (utm.geo2proj(lon, lat), utm.geo2xyz(lon, lat, 10.0),
                       (utm.convergence(lon, 48.0),)):
            for r in result:
                assert isinstance(r, np.ma.MaskedArray)
        x, y = utm.geo2proj(lon, lat)
        assert list(x.mask) == list(y.mask) == [False, True, True]
        assert (x[0], y[0]) == utm.geo2proj(9.5, 48.25)
        assert list(utm.convergence(lon, 48.0).mask) == [False, True, False]
        # Broadcast against a plain array, the mask spreads with the shape.
        x, _ = utm.geo2proj(lon[:, None], np.array([45.0, 50.0]))
        assert x.shape == (3, 2) and x.mask.tolist() == [[False] * 2, [True] * 2, [False] * 2]
    with gxcart.DatumConverter("LONG/LAT", "UTM-32") as dc:
        dc.set_conversion_type(gxcart.ConversionType.GEO_TO_PROJ)
        heights = np.ma.masked_array([0.0, 5.0, 0.0], mask=[True, False, False])
        for result in (dc.convert(lon, lat, heights), dc.inv_convert(lon, lat, heights)):
            assert all(r.mask.tolist() == [True, True, True] for r in result)
        assert dc.convert(lon[:1], lat[:1])[0].mask.tolist() == [False]
