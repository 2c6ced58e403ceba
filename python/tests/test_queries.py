"""Questions about projection strings, and text answers of any length."""

import pytest

import gxcart
from conftest import prj

P, G = gxcart.TypeMask.PROJECTED, gxcart.TypeMask.GEOGRAPHICAL


@pytest.mark.parametrize("text, valid, local, longlat, geographical, georeferenced, mask", [
    ("UTM-32", True, False, False, False, True, P),
    ("LONG/LAT", True, False, True, True, True, gxcart.TypeMask.LONGLAT_STRING),
    ("NON-UTM", True, True, False, False, False, gxcart.TypeMask.NONUTM_STRING),
    ("UTM", False, False, False, False, False, 0),
    ("garbage", False, False, False, False, False, 0),
])
def test_predicates(text, valid, local, longlat, geographical, georeferenced, mask):
    assert gxcart.is_valid(text) is valid
    assert gxcart.is_local(text) is local
    assert gxcart.is_longlat(text) is longlat
    assert gxcart.is_geographical(text) is geographical
    assert gxcart.is_georeferenced(text) is georeferenced
    for bit in gxcart.TypeMask:
        assert gxcart.is_type(text, bit) is bool(mask & bit)


def test_wkt_files():
    ed50 = prj("ed50_utm32_towgs84_gdal.prj")
    assert gxcart.has_datum(ed50) and gxcart.is_type(ed50, P)
    wgs84 = prj("4326_esri.prj")
    assert gxcart.is_geographical(wgs84)
    assert gxcart.is_type(wgs84, G) and not gxcart.is_type(wgs84, P)
    assert gxcart.coord_sys_type(ed50) == 4  # east, north
    # The same grid on another ellipsoid is another system; a catalogue name
    # and the WKT it stands for are the same one.
    assert not gxcart.are_identical(ed50, "UTM-32")
    with gxcart.MapProjection("UTM-32") as mp:
        assert gxcart.are_identical(mp.projection_string, "UTM-32")
    assert not gxcart.are_identical("UTM-32", "UTM-33")


def test_origin_and_zone():
    assert gxcart.projection_origin("UTM-33") == pytest.approx((15.0, 0.0), abs=1e-12)
    with pytest.raises(ValueError):
        gxcart.projection_origin("UTM")
    with pytest.raises(ValueError):
        gxcart.projection_origin("garbage")
    assert [gxcart.longitude_to_utm_zone(lon) for lon in (-180.0, 9.5, 179.99)] == \
        ["UTM-1", "UTM-32", "UTM-60"]


def test_text_answers_of_any_length():
    # Longer than the first buffer the package offers, so the library is
    # asked again with the length it reported.
    google = gxcart.google_map_projection_string()
    assert len(google) > 255 and google.startswith("PROJCS[") and google.endswith("]")
    with gxcart.MapProjection(google) as mp:
        assert gxcart.are_identical(mp.projection_string, google)
    ed50 = prj("ed50_utm32_towgs84_gdal.prj")
    assert "+towgs84=-87,-98,-121" in gxcart.convert_to_proj4(ed50)
    assert "+towgs84=1,2,3,0,0,0,0" in gxcart.convert_to_proj4(ed50, [1, 2, 3])
    with pytest.raises(ValueError):
        gxcart.convert_to_proj4(ed50, [0.0] * 8)


@pytest.mark.parametrize("code", ["EPSG:25832", "epsg:25832", "urn:ogc:def:crs:EPSG::25832"])
def test_epsg_codes_are_the_named_system(code):
    assert gxcart.is_valid(code) and gxcart.is_type(code, P)
    assert gxcart.are_identical(code, "ETRS89 / UTM zone 32N")
    with gxcart.MapProjection(code) as coded, \
            gxcart.MapProjection("ETRS89 / UTM zone 32N") as named:
        assert coded.projection_string == named.projection_string
        # The same bits, not only the same metres.
        assert coded.geo2proj(9.5, 48.25) == named.geo2proj(9.5, 48.25)
    assert gxcart.is_geographical("EPSG:4326")
    assert not gxcart.is_valid("EPSG:2263")  # US feet: deliberately not in the catalogue
