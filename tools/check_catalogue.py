#!/usr/bin/env python3
"""Checks every system of the catalogue files against PROJ.

For each section the comment above it names the reference: an EPSG or ESRI
code, or a PROJ string with an area. The test points are the four corners and
the centre of the system's area of use (from PROJ's database, or the area in
the comment), with longitudes taken within 180 degrees of the area's centre.
PROJ converts them with

    cs2cs -d 10 <base geographic system> <code>       (EPSG and ESRI codes)
    cs2cs -f %.12f +proj=longlat ... +to <string>     (PROJ strings)

and tools/check_catalogue (built with -DGXCART_BUILD_TOOLS=ON) converts them
through the library's own reading of the section. Reported per file: the
number of systems and points, the worst forward difference (our easting and
northing against PROJ's, metres) and the worst inverse difference (our
longitude and latitude of PROJ's easting and northing against the point,
converted to metres on the ellipsoid), and every system that could not be
checked, with the reason.

    python3 tools/check_catalogue.py --tool build-data/bin/check_catalogue [files...]
"""

import argparse
import math
import os
import subprocess
import sys
import tempfile
import threading
from concurrent.futures import ThreadPoolExecutor

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import gxcatalogue as gx  # noqa: E402

LIMIT = 0.001  # metres
FILES = ['map_projection.zpf', 'state_plane_nad83.zpf', 'state_plane_nad27.zpf',
         'epsg_common.zpf', 'epsg_other.zpf']


def test_points(area, meridian=None):
    """The corners and the centre of an area of use. Longitudes are written
    within 180 degrees of the system's central meridian (the area's centre
    when it has none), as a user of the system writes them: some formulas
    do not reduce a longitude that lies a turn away."""
    south, north, west, east = area
    if west > east:  # the area crosses the antimeridian
        east += 360.0
    centre = ((west + east) / 2.0 + 180.0) % 360.0 - 180.0
    reference = centre if meridian is None else meridian

    def near(lon):
        return reference + (lon - reference + 180.0) % 360.0 - 180.0

    return [(near(west), south), (near(west), north), (near(east), south),
            (near(east), north), (near(centre), (south + north) / 2.0)]


# EPSG parameters that hold a system's central meridian: longitude of natural
# origin, of false origin, of origin and of the projection centre.
MERIDIAN_PARAMETERS = (8802, 8822, 8833, 8812)


def central_meridian(system):
    for code in MERIDIAN_PARAMETERS:
        if code in system.params:
            return gx.make_angle(*system.params[code]).degrees
    return None


def geographic_lat_first(db, auth, code):
    row = db.execute(
        "SELECT a.orientation FROM geodetic_crs g JOIN axis a ON "
        "a.coordinate_system_auth_name=g.coordinate_system_auth_name AND "
        "a.coordinate_system_code=g.coordinate_system_code WHERE g.auth_name=? AND "
        "g.code=? AND a.coordinate_system_order=1", (auth, code)).fetchone()
    return row is None or row[0] == 'north'


def run(command, text):
    result = subprocess.run(command, input=text, capture_output=True, text=True, check=False)
    if result.returncode != 0:
        raise RuntimeError('%s failed: %s' % (' '.join(command), result.stderr.strip()))
    return result.stdout


def proj_reference(db, tag, detail, cache, geographic=False):
    """(points, reference coordinates in metres or degrees, radius data,
    command, system read from the database or None) for one section, or a
    reason string."""
    if tag == 'PROJ:':
        string, _, area_text = detail.partition('| area:')
        west, south, east, north = (float(v) for v in area_text.split(','))
        points = test_points((south, north, west, east))
        radius = float(string.split('+R=')[1].split()[0])
        command = ['cs2cs', '-f', '%.12f', '+proj=longlat', '+R=%r' % radius, '+to'] + string.split()
        out = run(command, ''.join('%r %r\n' % p for p in points))
        ref = [tuple(float(v) for v in line.split()[:2]) for line in out.splitlines()]
        return points, ref, ('sphere', radius), ' '.join(command), None
    auth, code = tag.split(':')
    system = cache.get(tag)
    if system is None:
        system = gx.load_geographic(db, auth, code) if geographic else gx.load(db, auth, code)
        cache[tag] = system
    if system.area is None:
        return 'no area of use in the database'
    points = test_points(system.area, None if geographic else central_meridian(system))
    shape = ('ellipsoid', system.a, system.rf)
    if geographic:
        # Longitude and latitude are the coordinates: nothing for PROJ to
        # convert. What the section decides is the figure, checked apart.
        return points, list(points), shape, 'ellipsoid of %s' % tag, system
    mapping = gx.axis_mapping(system, gx.length_factors(db))
    if mapping is None:
        return 'axes %s are not produced by the library' % [a[0] for a in system.axes]
    ix, iy, scale = mapping
    lat_first = geographic_lat_first(db, *system.geodetic)
    source = '%s:%s' % system.geodetic
    command = ['cs2cs', '-d', '10', source, tag]
    text = ''.join(('%r %r\n' % (lat, lon)) if lat_first else ('%r %r\n' % (lon, lat))
                   for lon, lat in points)
    out = run(command, text)
    ref = []
    for line in out.splitlines():
        values = [float(v) for v in line.split()[:2]]
        ref.append((values[ix] * scale[ix], values[iy] * scale[iy]))
    return points, ref, shape, ' '.join(command), system


def ground_distance(shape, lon, lat, lon2, lat2):
    """Metres between two nearby geographic points."""
    dlon = (lon2 - lon + 180.0) % 360.0 - 180.0
    dlat = lat2 - lat
    phi = math.radians(lat)
    if shape[0] == 'sphere':
        m = n = shape[1]
    else:
        a, rf = shape[1], shape[2]
        e2 = 0.0 if rf == 0 else (2.0 - 1.0 / rf) / rf
        w = 1.0 - e2 * math.sin(phi) ** 2
        m = a * (1.0 - e2) / w ** 1.5
        n = a / math.sqrt(w)
    return math.hypot(math.radians(dlat) * m, math.radians(dlon) * n * math.cos(phi))


def same_figure(a, rf, ref_a, ref_rf):
    """The library's ellipsoid against the dataset's: axes within a tenth of
    a millimetre, inverse flattenings within a part in 1e9 (0 for spheres)."""
    if not (math.isfinite(a) and math.isfinite(rf)):
        return False
    if abs(a - ref_a) > 1e-4 or (rf == 0) != (ref_rf == 0):
        return False
    return rf == 0 or abs(rf - ref_rf) <= 1e-9 * ref_rf


def check_file(db, tool, path, codes_seen, workers=2):
    name = os.path.basename(path)
    tags = gx.section_tags(path)
    codes = gx.section_codes(path)
    listing = [line.split('\t') for line in run([tool, 'list', path], '').splitlines()]
    if len(listing) != len(tags) or len(codes) != len(tags):
        raise RuntimeError('%s: %d sections but %d tag comments and %d code lists'
                           % (name, len(listing), len(tags), len(codes)))

    report = {'file': name, 'systems': 0, 'points': 0, 'unchecked': [], 'worst': {},
              'codes': 0}
    factors = gx.length_factors(db)
    todo = []
    for (k, ptype, built, code, a, rf, label), tag, keyword in zip(listing, tags, codes):
        if ptype == '0':
            report['unchecked'].append((label, 'no definition type reads the section'))
            continue
        if built != '1':
            report['unchecked'].append((label, 'no algorithm built from the definition'))
            continue
        if tag is None:
            report['unchecked'].append((label, 'no reference comment above the section'))
            continue
        if (code != '-') != (keyword is not None) or (keyword is not None and keyword != code):
            report['unchecked'].append((label, 'code keyword %r read as %r' % (keyword, code)))
            continue
        todo.append((k, label, tag, code, float(a), float(rf), ptype == str(14)))

    def reference(job):
        k, label, tag, code, a, rf, geographic = job
        try:
            return job, proj_reference(db_for_thread(), tag[0], tag[1], {}, geographic)
        except (RuntimeError, gx.Skip) as why:
            return job, str(why)

    with ThreadPoolExecutor(max_workers=workers) as pool:
        results = list(pool.map(reference, todo))

    lines, jobs = [], []
    for job, result in results:
        k, label, tag, code, a, rf, geographic = job
        if isinstance(result, str):
            report['unchecked'].append((label, result))
            continue
        points, ref, shape, _, system = result
        if system is not None:
            expected = gx.exact_code(system, factors)
            if code != '-' and code != tag[0]:
                report['unchecked'].append((label, 'code %s on the section of %s' % (code, tag[0])))
                continue
            if code == '-' and expected is not None:
                report['unchecked'].append((label, '%s converts exactly but carries no code'
                                            % tag[0]))
                continue
            if code != '-' and expected is None:
                report['unchecked'].append((label, 'code %s, but its axes or units differ'
                                            % code))
                continue
            if geographic and not same_figure(a, rf, system.a, system.rf):
                report['unchecked'].append((label, 'ellipsoid a=%r 1/f=%r, dataset a=%r 1/f=%r'
                                            % (a, rf, system.a, system.rf)))
                continue
        if code != '-':
            if code in codes_seen:
                report['unchecked'].append((label, 'code %s also on %s' % (code, codes_seen[code])))
                continue
            codes_seen[code] = '%s (%s)' % (label, name)
            report['codes'] += 1
        # Rotated and geographic grids give degrees.
        degrees = geographic or shape[0] == 'sphere'
        for (lon, lat), (x, y) in zip(points, ref):
            lines.append('%s %r %r %r %r\n' % (k, lon, lat, x, y))
            jobs.append((label, lon, lat, x, y, shape, degrees))
        report['systems'] += 1

    out = run([tool, 'convert', path], ''.join(lines)).splitlines()
    worst = report['worst']  # label -> [forward, point, inverse, point]
    for job, line in zip(jobs, out):
        label, lon, lat, x, y, shape, degrees = job
        _, ox, oy, olon, olat = line.split()
        ox, oy, olon, olat = float(ox), float(oy), float(olon), float(olat)
        if degrees:
            # Grids in degrees: compare on the figure.
            forward = ground_distance(shape, x, y, ox, oy)
        else:
            forward = math.hypot(ox - x, oy - y)
        inverse = ground_distance(shape, lon, lat, olon, olat)
        forward = forward if math.isfinite(forward) else math.inf
        inverse = inverse if math.isfinite(inverse) else math.inf
        report['points'] += 1
        w = worst.setdefault(label, [-1.0, None, -1.0, None])
        if forward > w[0]:
            w[0], w[1] = forward, (lon, lat)
        if inverse > w[2]:
            w[2], w[3] = inverse, (lon, lat)
    return report


_local = threading.local()


def db_for_thread():
    # sqlite connections stay in the thread that opened them.
    if not hasattr(_local, 'db'):
        _local.db = gx.connect(_DB_PATH[0])
    return _local.db


_DB_PATH = [gx.DEFAULT_DB]


def print_report(r, verbose=False):
    worst = r['worst']
    print('%s: %d systems, %d points, %d codes' % (r['file'], r['systems'], r['points'],
                                                   r['codes']))
    if verbose:
        for label, w in worst.items():
            print('  %-60s forward %9.3g mm  inverse %9.3g mm' % (label, w[0] * 1000, w[2] * 1000))
    if worst:
        f = max(worst, key=lambda k: worst[k][0])
        i = max(worst, key=lambda k: worst[k][2])
        print('  worst forward %.3g mm (%s); worst inverse %.3g mm (%s)'
              % (worst[f][0] * 1000, f, worst[i][2] * 1000, i))
    failed = False
    for label, w in worst.items():
        if w[0] > LIMIT:
            print('  FORWARD OVER %g mm: %s: %.6g m at (%.6f, %.6f)'
                  % (LIMIT * 1000, label, w[0], w[1][0], w[1][1]))
            failed = True
    for label, w in worst.items():
        if w[2] > LIMIT:
            print('  inverse over %g mm: %s: %.6g m at (%.6f, %.6f)'
                  % (LIMIT * 1000, label, w[2], w[3][0], w[3][1]))
    for label, why in r['unchecked']:
        print('  not checked: %s: %s' % (label, why))
        failed = True
    return failed


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--tool', default=os.path.join(gx.REPO_ROOT, 'build-data', 'bin',
                                                       'check_catalogue'))
    parser.add_argument('--db', default=gx.DEFAULT_DB)
    parser.add_argument('-v', '--verbose', action='store_true',
                        help='list the worst differences of every system')
    parser.add_argument('files', nargs='*',
                        default=[os.path.join(gx.REPO_ROOT, 'data', f) for f in FILES])
    args = parser.parse_args()

    _DB_PATH[0] = args.db
    db = gx.connect(args.db)
    failed = False
    codes_seen = {}
    with tempfile.TemporaryDirectory() as home:
        # The library reads (and may write) the user's catalogue folder: point
        # it at an empty one.
        os.environ['HOME'] = home
        os.environ['XDG_DATA_HOME'] = os.path.join(home, 'data')
        proj = db.execute("SELECT value FROM metadata WHERE key='PROJ.VERSION'").fetchone()
        print('Reference: PROJ %s, EPSG dataset %s; limit %g m'
              % (proj[0] if proj else '?', gx.dataset_version(db), LIMIT))
        for path in args.files:
            failed |= print_report(check_file(db, args.tool, path, codes_seen), args.verbose)
    sys.exit(1 if failed else 0)


if __name__ == '__main__':
    main()
