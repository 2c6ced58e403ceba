#!/usr/bin/python3
"""Reads a folder of real-world .prj files with the library and with PROJ and
compares the two readings.

The folder holds prj/<id>.prj and manual/<id>.prj (a text found in both is
checked once). For each text:

- open: whether the library builds a coordinate system from it
  (S_ISVALID and C_GXMP_CREATE through the Python package in python/), and
  whether PROJ reads it (pyproj.CRS.from_wkt, then a transformer from the
  system's own geographic system);
- the test points: a 3 x 3 grid over PROJ's area of use of the system, or of
  the registered system PROJ identifies it with (confidence 70 or more);
  failing both, a box of 3 degrees around the projection's origin (PROJ's
  reading of it). Longitudes are written between -180 and 180, as users give
  them;
- forward: the library's easting/northing against PROJ's, in metres, both in
  the axis order the text declares (PROJ's values brought to metres by the
  axis unit, as the library answers lengths in metres);
- inverse: the library's longitude/latitude of PROJ's easting/northing
  against the point, in metres on the ground;
- geographic systems: the library's longitude/latitude (counted from the
  prime meridian, in degrees) against PROJ's, in metres on the ground.

PROJ converts with a pure conversion (no datum change):
    Transformer.from_crs(crs.geodetic_crs, crs)
the input longitude taken from Greenwich and moved to the system's prime
meridian and angular unit.

    /usr/bin/python3 tools/check_wild_prj.py /work/shared/wild-prj \\
        [--library build/lib/libgxcart.so] [--limit 0.001] [--quiet]

Needs python3-pyproj and python3-numpy (Debian). The library's catalogues
are read from a temporary HOME, so nothing of the user's is touched.
"""

import argparse
import math
import os
import sys
import tempfile
import warnings

LIMIT = 0.001  # metres
METRES_PER_DEGREE = 111319.49079327357  # on the equator of a 6378137 m sphere


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("folder", help="folder with prj/ and manual/")
    parser.add_argument("--library", help="libgxcart.so (default: as the package finds it)")
    parser.add_argument("--limit", type=float, default=LIMIT,
                        help="agreement limit in metres (default 0.001)")
    parser.add_argument("--quiet", action="store_true", help="print only what does not agree")
    return parser.parse_args()


def load_texts(folder):
    """(id, origin, text) of every distinct file, prj/ first."""
    seen = {}
    for sub in ("prj", "manual"):
        path = os.path.join(folder, sub)
        if not os.path.isdir(path):
            continue
        for name in sorted(os.listdir(path)):
            if not name.endswith(".prj") or name in seen:
                continue
            with open(os.path.join(path, name), "rb") as f:
                data = f.read()
            # A C caller that hands over the file's bytes gives the text up to
            # the first NUL; some writers pad the file with NULs.
            data = data.split(b"\0", 1)[0]
            seen[name] = (name[:-4], sub, data.decode("utf-8", "surrogateescape"))
    return list(seen.values())


def projection_name(text):
    at = text.find("PROJECTION")
    if at < 0:
        return "GEOGCS" if "GEOGCS" in text else "?"
    rest = text[at:].split('"')
    return rest[1] if len(rest) > 1 else "?"


# ------------------------------------------------------------------- PROJ side

def proj_reading(pyproj, text):
    """(crs, transformer, error) of PROJ's reading."""
    try:
        crs = pyproj.CRS.from_wkt(text)
    except Exception as error:  # pyproj.exceptions.CRSError
        return None, None, str(error).splitlines()[0][:70]
    # A TOWGS84 or grid clause makes a bound system: the datum shift is no
    # part of the projection, so the conversion is taken from the system it
    # is bound to.
    if crs.is_bound:
        crs = crs.source_crs
    if crs.is_projected:
        try:
            transformer = pyproj.Transformer.from_crs(crs.geodetic_crs, crs)
        except Exception as error:
            return None, None, str(error).splitlines()[0][:70]
        return crs, transformer, None
    if crs.is_geographic:
        return crs, None, None
    return None, None, f"not a projected or geographic system ({crs.type_name})"


def area_of_use(pyproj, crs):
    area = crs.area_of_use
    if area is None:
        try:
            matches = crs.list_authority(min_confidence=70)
        except Exception:
            matches = []
        for match in matches:
            try:
                area = pyproj.CRS.from_authority(match.auth_name, match.code).area_of_use
            except Exception:
                area = None
            if area is not None:
                break
    if area is None:
        return None
    return area.west, area.south, area.east, area.north


def origin_of(crs):
    """PROJ's longitude and latitude of the projection's origin, degrees."""
    lon, lat = 0.0, 0.0
    operation = crs.coordinate_operation
    for p in operation.params if operation else []:
        name = p.name.lower()
        degrees = p.value * p.unit_conversion_factor * 180.0 / math.pi \
            if p.unit_category == "angular" else p.value
        if name.startswith("longitude of") and "pole" not in name:
            lon = degrees
        elif name.startswith("latitude of") and "pole" not in name and "pseudo" not in name:
            lat = degrees
    return lon, lat


def wrap(lon):
    return (lon + 180.0) % 360.0 - 180.0 if abs(lon) > 180.0 else lon


def grid_points(box):
    west, south, east, north = box
    if east < west:  # across the antimeridian
        east += 360.0
    points = []
    for lat in (south, (south + north) / 2.0, north):
        for lon in (west, (west + east) / 2.0, east):
            points.append((wrap(lon), lat))
    return points


def test_points(pyproj, crs):
    box = area_of_use(pyproj, crs)
    if box is None:
        if crs.is_geographic:
            box = (-179.0, -80.0, 179.0, 80.0)
        else:
            lon, lat = origin_of(crs)
            box = (lon - 3.0, max(lat - 3.0, -89.0), lon + 3.0, min(lat + 3.0, 89.0))
        source = "origin"
    else:
        source = "area"
    return grid_points(box), source


def geographic_input(geodetic):
    """How a Greenwich longitude/latitude in degrees becomes the input of the
    geodetic system: its order, prime meridian and angular unit."""
    axes = geodetic.axis_info
    radians = axes[0].unit_conversion_factor or math.pi / 180.0
    per_degree = (math.pi / 180.0) / radians
    pm = geodetic.prime_meridian
    pm_degrees = pm.longitude * pm.unit_conversion_factor * 180.0 / math.pi
    lat_first = axes[0].direction.lower() == "north"

    def convert(lon, lat):
        a, b = (lon - pm_degrees) * per_degree, lat * per_degree
        return (b, a) if lat_first else (a, b)
    return convert, pm_degrees


def finite(*values):
    return all(v is not None and math.isfinite(v) for v in values)


def ground_metres(lon1, lat1, lon2, lat2):
    dlon = (lon1 - lon2 + 180.0) % 360.0 - 180.0
    return math.hypot(dlon * math.cos(math.radians(lat2)), lat1 - lat2) * METRES_PER_DEGREE


# --------------------------------------------------------------- comparison

def compare_projected(mp, crs, transformer, points):
    to_input, _ = geographic_input(crs.geodetic_crs)
    metres = [a.unit_conversion_factor or 1.0 for a in crs.axis_info[:2]]
    forward = inverse = 0.0
    used = 0
    for lon, lat in points:
        a, b = to_input(lon, lat)
        try:
            px, py = transformer.transform(a, b, errcheck=True)
        except Exception:
            continue
        if not finite(px, py) or abs(px) > 1e9 or abs(py) > 1e9:
            continue
        px, py = px * metres[0], py * metres[1]
        x, y = mp.geo2proj(lon, lat)
        d = math.hypot(x - px, y - py) if finite(x, y) else math.inf
        forward = max(forward, d)
        glon, glat = mp.proj2geo(px, py)
        d = ground_metres(glon, glat, lon, lat) if finite(glon, glat) else math.inf
        if abs(lat) > 89.999999:  # longitude is arbitrary at a pole
            d = abs(glat - lat) * METRES_PER_DEGREE if finite(glat) else math.inf
        inverse = max(inverse, d)
        used += 1
    return forward, inverse, used


def compare_geographic(mp, crs, points):
    _, pm_degrees = geographic_input(crs)
    worst = 0.0
    used = 0
    for lon, lat in points:
        # PROJ's coordinates of the point are the point itself; the library
        # answers degrees from the prime meridian, longitude first.
        x, y = mp.geo2proj(lon, lat)
        if not finite(x, y):
            worst = math.inf
            continue
        worst = max(worst, ground_metres(x + pm_degrees, y, lon, lat))
        glon, glat = mp.proj2geo(x, y)
        worst = max(worst, ground_metres(glon, glat, lon, lat) if finite(glon, glat) else math.inf)
        used += 1
    return worst, worst, used


def main():
    args = parse_arguments()
    warnings.simplefilter("ignore")
    home = tempfile.mkdtemp(prefix="gxcart-wild-")
    os.environ["HOME"] = home
    os.environ["XDG_DATA_HOME"] = os.path.join(home, ".local", "share")
    here = os.path.dirname(os.path.abspath(__file__))
    sys.path.insert(0, os.path.join(here, "..", "python"))
    import pyproj
    import gxcart as gx
    if args.library:
        gx.load_library(args.library)

    texts = load_texts(args.folder)
    if not texts:
        sys.exit(f"no .prj files under {args.folder}/prj or {args.folder}/manual")

    counts = {"files": len(texts), "proj": 0, "open": 0, "agree": 0,
              "proj_fails_ours_fails": 0, "proj_fails_ours_opens": 0}
    rest = []
    for ident, origin, text in texts:
        name = projection_name(text)
        ours = gx.is_valid(text)
        crs, transformer, error = proj_reading(pyproj, text)
        if crs is None:
            key = "proj_fails_ours_opens" if ours else "proj_fails_ours_fails"
            counts[key] += 1
            line = f"{ident} {origin:6s} {name[:36]:36s} PROJ fails ({error}); " \
                   f"library {'OPENS' if ours else 'fails'}"
            if ours:
                rest.append(line)
            if not args.quiet or ours:
                print(line)
            continue
        counts["proj"] += 1
        if not ours:
            line = f"{ident} {origin:6s} {name[:36]:36s} library does not open it"
            rest.append(line)
            print(line)
            continue
        counts["open"] += 1
        points, source = test_points(pyproj, crs)
        with gx.MapProjection(text) as mp:
            if crs.is_projected:
                forward, inverse, used = compare_projected(mp, crs, transformer, points)
            else:
                forward, inverse, used = compare_geographic(mp, crs, points)
        agree = used > 0 and forward <= args.limit and inverse <= args.limit
        counts["agree"] += agree
        line = (f"{ident} {origin:6s} {name[:36]:36s} fwd {forward:10.3g} m  inv {inverse:10.3g} m"
                f"  {used} points ({source})  {'ok' if agree else 'DIFFERS'}")
        if not agree:
            rest.append(line)
        if not args.quiet or not agree:
            print(line)

    print()
    print(f"{counts['files']} distinct files; PROJ reads {counts['proj']}; the library opens "
          f"{counts['open']} of them; {counts['agree']} agree within {args.limit * 1000:g} mm "
          f"forward and inverse.")
    print(f"Of the {counts['files'] - counts['proj']} that PROJ cannot read the library refuses "
          f"{counts['proj_fails_ours_fails']} and opens {counts['proj_fails_ours_opens']}.")
    if rest:
        print("Not agreeing:")
        for line in rest:
            print("  " + line)


if __name__ == "__main__":
    main()
