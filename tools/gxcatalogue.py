"""Shared pieces of the catalogue tools.

Reads projected coordinate systems from PROJ's database (proj.db, the EPSG
dataset as shipped by Debian's proj-data), maps each onto one of the library's
definition types and writes it as a keyword-file section. The scripts that make
the catalogue files (make_map_projection.py, make_state_plane.py) and the
checker (check_catalogue.py) all use this module, so a system is read from the
database in exactly one way.

Only the Python standard library is used.
"""

import argparse
import math
import os
import re
import sqlite3
from decimal import Decimal

DEFAULT_DB = '/usr/share/proj/proj.db'
REPO_ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ELLIPSOID_FILE = os.path.join(REPO_ROOT, 'data', 'ellipsoid.zpf')

US_SURVEY_FOOT = 12.0 / 39.37  # metres; the library's own _ft_us factor

# EPSG units of measure that definitions may carry.
UOM_METRE = 9001
UOM_US_SURVEY_FOOT = 9003
UOM_DEGREE = (9102, 9122)
UOM_SEXAGESIMAL_DMS = 9110
UOM_GRAD = 9105
UOM_RADIAN = 9101
UOM_SCALE = (9201, 9203)

GREENWICH = 8901


class Skip(Exception):
    """A system that the library's definition types cannot express."""


# --------------------------------------------------------------------------
# Values with their source form


class Angle:
    """An angle in decimal degrees that remembers whether its source was a
    degrees-minutes-seconds value, and the exact parts when it was."""

    def __init__(self, degrees, dms=None):
        self.degrees = degrees
        self.dms = dms  # (int degrees, int minutes, Decimal seconds) or None


class Length:
    """A length in metres; us_feet keeps the source value when the system is
    defined in US survey feet."""

    def __init__(self, metres, us_feet=None, note=None):
        self.metres = metres
        self.us_feet = us_feet
        self.note = note


def sexagesimal(value):
    """Splits an EPSG sexagesimal DMS value (D.MMSSsss) into its parts, read
    from the shortest decimal text of the value so no binary rounding enters
    the minutes and seconds. Returns (sign, degrees, minutes, Decimal seconds)."""
    text = repr(float(value))
    if 'e' in text or 'E' in text:
        text = ('%.12f' % value).rstrip('0')
    sign = -1 if text.startswith('-') else 1
    whole, _, frac = text.lstrip('-').partition('.')
    frac = (frac + '0000')
    minutes = int(frac[0:2])
    seconds = Decimal(frac[2:4] + '.' + (frac[4:] or '0'))
    if minutes >= 60 or seconds >= 60:
        raise Skip('malformed sexagesimal angle %r' % value)
    return sign, int(whole), minutes, seconds


def make_angle(value, uom):
    uom = int(uom)
    if uom == UOM_SEXAGESIMAL_DMS:
        sign, d, m, s = sexagesimal(value)
        degrees = sign * float(Decimal(d) + Decimal(m) / 60 + s / 3600)
        return Angle(degrees, (sign, d, m, s))
    if uom in UOM_DEGREE:
        degrees = float(value)
        # A value that is a whole number of arc-seconds came from a
        # degrees-minutes-seconds definition; keep that form when it has
        # minutes or seconds at all.
        total = abs(degrees) * 3600.0
        if abs(total - round(total)) < 1e-6 and not float(degrees).is_integer():
            whole = int(round(total))
            sign = -1 if degrees < 0 else 1
            return Angle(degrees, (sign, whole // 3600, (whole // 60) % 60,
                                   Decimal(whole % 60)))
        return Angle(degrees)
    if uom == UOM_GRAD:
        # 0.9 degree per grad, taken in decimal so 37 grad is exactly 33.3.
        return Angle(float(Decimal(repr(float(value))) * Decimal('0.9')))
    if uom == UOM_RADIAN:
        return Angle(math.degrees(float(value)))
    raise Skip('angle unit EPSG:%s' % uom)


def make_length(value, uom, factors):
    uom = int(uom)
    if uom == UOM_METRE:
        return Length(float(value))
    if uom == UOM_US_SURVEY_FOOT:
        return Length(float(value) * US_SURVEY_FOOT, us_feet=float(value))
    if uom in factors:
        metres = float(value) * factors[uom][1]
        return Length(metres, note='%s %s' % (format_number(float(value)), factors[uom][0]))
    raise Skip('length unit EPSG:%s' % uom)


def make_scale(value, uom):
    if int(uom) not in UOM_SCALE:
        raise Skip('scale unit EPSG:%s' % uom)
    return float(value)


# --------------------------------------------------------------------------
# Reading a projected system from proj.db


class System:
    """One projected coordinate system as read from the database."""

    def __init__(self):
        self.kind = 'projected'   # or 'geographic'
        self.auth = None
        self.code = None
        self.name = None
        self.deprecated = False
        self.conversion_name = ''
        self.method_code = None
        self.method_name = None
        self.params = {}          # EPSG parameter code -> (value, uom code)
        self.geodetic = None      # (auth, code) of the base geographic system
        self.geodetic_name = None
        self.ellipsoid_name = None
        self.a = None
        self.rf = None            # inverse flattening, 0 for a sphere
        self.prime_meridian = GREENWICH
        self.axes = []            # (name, orientation, uom code) in axis order
        self.area = None          # (south, north, west, east) degrees

    @property
    def tag(self):
        return '%s:%s' % (self.auth, self.code)


def connect(db_path=DEFAULT_DB):
    return sqlite3.connect('file:%s?mode=ro' % db_path, uri=True)


def dataset_version(db):
    row = db.execute("SELECT value FROM metadata WHERE key='EPSG.VERSION'").fetchone()
    return row[0] if row else 'unknown'


def length_factors(db):
    rows = db.execute("SELECT code, name, conv_factor FROM unit_of_measure "
                      "WHERE auth_name='EPSG' AND type='length'").fetchall()
    return {int(code): (name, factor) for code, name, factor in rows if factor}


def _ellipsoid(db, system, datum_auth, datum_code):
    row = db.execute(
        "SELECT e.name, e.semi_major_axis, e.inv_flattening, e.semi_minor_axis, "
        "u.conv_factor, d.prime_meridian_code, d.name "
        "FROM geodetic_datum d JOIN ellipsoid e ON e.auth_name=d.ellipsoid_auth_name "
        "AND e.code=d.ellipsoid_code JOIN unit_of_measure u ON u.auth_name=e.uom_auth_name "
        "AND u.code=e.uom_code WHERE d.auth_name=? AND d.code=?",
        (datum_auth, datum_code)).fetchone()
    if row is None:
        raise Skip('no datum %s:%s' % (datum_auth, datum_code))
    name, a, rf, b, factor, pm, _ = row
    system.ellipsoid_name = name
    system.a = a * factor
    if rf is None:
        rf = 0.0 if b == a else a / (a - b)
    system.rf = rf
    system.prime_meridian = int(pm)


def _geodetic(db, system):
    row = db.execute(
        "SELECT name, datum_auth_name, datum_code FROM geodetic_crs "
        "WHERE auth_name=? AND code=?", system.geodetic).fetchone()
    if row is None:
        raise Skip('no geodetic system %s:%s' % system.geodetic)
    system.geodetic_name = row[0]
    if row[1] is None:
        # A datum ensemble without members in the table: not expected for the
        # systems the tools read.
        raise Skip('geodetic system %s:%s has no datum' % system.geodetic)
    _ellipsoid(db, system, row[1], row[2])


def _area(db, auth, code, table='projected_crs'):
    rows = db.execute(
        "SELECT x.south_lat, x.north_lat, x.west_lon, x.east_lon FROM usage u "
        "JOIN extent x ON x.auth_name=u.extent_auth_name AND x.code=u.extent_code "
        "WHERE u.object_table_name=? AND u.object_auth_name=? "
        "AND u.object_code=?", (table, auth, str(code))).fetchall()
    return rows[0] if rows else None


_ESRI_PARAMETER = re.compile(r'PARAMETER\["([^"]+)",([-+0-9.eE]+)\]')
_ESRI_PROJECTION = re.compile(r'PROJECTION\["([^"]+)"\]')

# ESRI parameter names as EPSG parameter codes, all in degrees and metres.
_ESRI_PARAMS = {
    'False_Easting': (8826, UOM_METRE),
    'False_Northing': (8827, UOM_METRE),
    'Central_Meridian': (8822, 9102),
    'Standard_Parallel_1': (8823, 9102),
    'Standard_Parallel_2': (8824, 9102),
    'Latitude_Of_Origin': (8821, 9102),
}
# The EPSG method code each ESRI projection name is read as.
_ESRI_METHODS = {'Equidistant_Conic': 1119}


def load(db, auth, code):
    """Reads a projected system by authority and code."""
    row = db.execute(
        "SELECT name, coordinate_system_auth_name, coordinate_system_code, "
        "geodetic_crs_auth_name, geodetic_crs_code, conversion_auth_name, "
        "conversion_code, text_definition, deprecated FROM projected_crs "
        "WHERE auth_name=? AND code=?", (auth, str(code))).fetchone()
    if row is None:
        raise Skip('%s:%s is not in the database' % (auth, code))
    system = System()
    system.auth, system.code = auth, str(code)
    (system.name, cs_auth, cs_code, g_auth, g_code, c_auth, c_code, text,
     deprecated) = row
    system.deprecated = bool(deprecated)
    system.geodetic = (g_auth, g_code)
    system.area = _area(db, auth, code)
    _geodetic(db, system)
    if text is not None:
        _load_esri_text(system, text)
    else:
        _load_conversion(db, system, c_auth, c_code)
        system.axes = db.execute(
            "SELECT name, orientation, uom_code FROM axis WHERE coordinate_system_auth_name=? "
            "AND coordinate_system_code=? ORDER BY coordinate_system_order",
            (cs_auth, cs_code)).fetchall()
    return system


def load_geographic(db, auth, code):
    """Reads a geographic 2D system by authority and code: its datum's
    ellipsoid and prime meridian, its axes and area of use."""
    row = db.execute(
        "SELECT name, type, coordinate_system_auth_name, coordinate_system_code, "
        "deprecated FROM geodetic_crs WHERE auth_name=? AND code=?", (auth, str(code))).fetchone()
    if row is None:
        raise Skip('%s:%s is not in the database' % (auth, code))
    name, kind, cs_auth, cs_code, deprecated = row
    if kind != 'geographic 2D':
        raise Skip('%s:%s is a %s system' % (auth, code, kind))
    system = System()
    system.kind = 'geographic'
    system.auth, system.code = auth, str(code)
    system.name = name
    system.deprecated = bool(deprecated)
    system.geodetic = (auth, str(code))
    _geodetic(db, system)
    system.method_name = 'geographic'
    system.area = _area(db, auth, code, 'geodetic_crs')
    system.axes = db.execute(
        "SELECT name, orientation, uom_code FROM axis WHERE coordinate_system_auth_name=? "
        "AND coordinate_system_code=? ORDER BY coordinate_system_order",
        (cs_auth, cs_code)).fetchall()
    return system


def _load_conversion(db, system, c_auth, c_code):
    row = db.execute("SELECT * FROM conversion WHERE auth_name=? AND code=?",
                     (c_auth, c_code)).fetchone()
    columns = [d[0] for d in db.execute("SELECT * FROM conversion LIMIT 0").description]
    record = dict(zip(columns, row))
    system.conversion_name = record['name']
    system.method_code = int(record['method_code'])
    system.method_name = record['method_name']
    for i in range(1, 8):
        pcode = record.get('param%d_code' % i)
        if pcode is None:
            continue
        system.params[int(pcode)] = (record['param%d_value' % i],
                                     int(record['param%d_uom_code' % i]))


def _load_esri_text(system, text):
    # ESRI systems carry a WKT text instead of a conversion; their axes are
    # easting and northing in metres.
    match = _ESRI_PROJECTION.search(text)
    if not match or match.group(1) not in _ESRI_METHODS or 'UNIT["Meter",1.0]]' not in text:
        raise Skip('ESRI projection not read by the tools')
    system.method_code = _ESRI_METHODS[match.group(1)]
    system.method_name = match.group(1)
    system.conversion_name = system.name
    for name, value in _ESRI_PARAMETER.findall(text):
        if name not in _ESRI_PARAMS:
            raise Skip('ESRI parameter %s' % name)
        pcode, uom = _ESRI_PARAMS[name]
        system.params[pcode] = (float(value), uom)
    system.axes = [('Easting', 'east', UOM_METRE), ('Northing', 'north', UOM_METRE)]


# --------------------------------------------------------------------------
# Ellipsoids of the library's catalogue


def _strip_comment(line):
    quoted = False
    for i, c in enumerate(line):
        if c == '"' and (i == 0 or line[i - 1] != '\\'):
            quoted = not quoted
        elif c == '#' and not quoted:
            return line[:i]
    return line


def read_catalogue_ellipsoids(path=ELLIPSOID_FILE):
    """(ID_Code, name, semi-major axis, inverse flattening) of every
    REF_ELLIPSOID section, read with a small line parser of the keyword-file
    syntax (one keyword per line, quoted texts)."""
    result = []
    current = None
    with open(path, encoding='utf-8') as f:
        for line in f:
            text = _strip_comment(line).strip()
            if text.startswith('REF_ELLIPSOID') and text.endswith('{'):
                current = {}
            elif text == '}' and current is not None:
                result.append((current['ID_Code'], current['Ellipsoid_Name'],
                               float(current['Semi_Major_Axis']),
                               float(current['Inverse_Flatness'])))
                current = None
            elif current is not None and '=' in text:
                key, _, value = text.partition('=')
                value = value.strip()
                if value.startswith('"') and value.endswith('"'):
                    value = value[1:-1]
                current[key.strip()] = value
    return result


def match_ellipsoid(ellipsoids, a, rf):
    """The catalogue identifier of the ellipsoid (a, rf); None when there is
    none. The axes must agree to a tenth of a millimetre and the inverse
    flattenings to a part in 1e9, which keeps every coordinate of a system
    well below a millimetre."""
    for code, _, ca, crf in ellipsoids:
        if abs(ca - a) > 1e-4:
            continue
        if (crf == 0) != (rf == 0):
            continue
        if rf == 0 or abs(crf - rf) <= 1e-9 * rf:
            return code
    return None


# --------------------------------------------------------------------------
# Keyword-file sections


def format_number(value):
    if isinstance(value, Decimal):
        return format(value.normalize(), 'f')
    if isinstance(value, int):
        return str(value)
    value = float(value)
    if value.is_integer() and abs(value) < 1e15:
        return str(int(value))
    return repr(value)


def quote(text):
    return '"' + text.replace('\\', '\\\\').replace('"', '\\"') + '"'


class Section:
    """One definition as a keyword-file section: its type's section name and
    keywords in the order a definition of that type writes them."""

    def __init__(self, section_name, name, branch, ellipsoid, code=None):
        self.section_name = section_name
        self.name = name
        self.branch = branch
        self.ellipsoid = ellipsoid
        self.code = code  # "EPSG:25832", or None for a system named only by its name
        self.lines = []  # (keyword, [values], comment)

    def angle(self, keyword, angle, dms=True):
        if dms and angle.dms is not None:
            sign, d, m, s = angle.dms
            # The sign of a degrees-minutes-seconds value lives in its degrees
            # alone, so an angle between -1 and 0 degrees has no such form.
            if not (sign < 0 and d == 0):
                self.lines.append((keyword + '_dms', [sign * d, m, s], None))
                return
        self.lines.append((keyword, [angle.degrees], None))

    def length(self, keyword, length):
        if length.us_feet is not None:
            self.lines.append((keyword + '_ft_us', [length.us_feet], None))
        else:
            self.lines.append((keyword, [length.metres], length.note))

    def scale(self, keyword, value, reducible=True):
        n = reduction_denominator(value) if reducible else None
        if n is not None:
            self.lines.append(('Scale_Reduction', [n], 'scale 1 - 1/%d' % n))
        else:
            self.lines.append((keyword, [value], None))

    def number(self, keyword, value):
        self.lines.append((keyword, [value], None))

    def text(self, comment=None, indent='    '):
        out = []
        if comment:
            out.append('%s# %s' % (indent, comment))
        out.append('%s%s {' % (indent, self.section_name))
        inner = indent + '    '
        out.append('%sProjection_Name = %s' % (inner, quote(self.name)))
        out.append('%sBranch_Name = %s' % (inner, quote(self.branch)))
        out.append('%sEllipsoid = %s' % (inner, quote(self.ellipsoid)))
        if self.code:
            out.append('%sCode = %s' % (inner, quote(self.code)))
        for keyword, values, note in self.lines:
            line = '%s%s = %s' % (inner, keyword, ', '.join(format_number(v) for v in values))
            if note:
                line = '%-48s # %s' % (line, note)
            out.append(line)
        out.append('%s}' % indent)
        return '\n'.join(out)


# Largest difference between a dataset's scale and the reduction 1:N written
# for it: 1 mm at 1000 km from the origin. A scale given to few digits
# (0.9996667) can round a reduction (1:3000) more coarsely than that, and PROJ
# converts with the dataset's digits.
REDUCTION_TOLERANCE = 1e-9


def reduction_denominator(scale):
    """N when the scale is the reduction 1:N of a survey definition (N a whole
    multiple of 100 and the scale that reduction rounded to the digits the
    dataset gives, within REDUCTION_TOLERANCE), else None."""
    if not 0.0 < scale < 1.0:
        return None
    n = round(1.0 / (1.0 - scale))
    if n < 1000 or n % 100:
        return None
    digits = len(repr(scale).split('.')[1]) if '.' in repr(scale) else 0
    allowed = min(0.5 * 10.0 ** -digits + 1e-15, REDUCTION_TOLERANCE)
    if abs((n - 1) / n - scale) <= allowed:
        return n
    return None


# --------------------------------------------------------------------------
# Axes, units and codes


def axis_mapping(system, factors):
    """(index of x, index of y, factor to metres of each axis) of the
    coordinates PROJ gives for a projected system, or None when the library
    does not produce its axes. A definition gives easting and northing, in
    that order, whatever order the dataset lists them in (the Krovak
    definition with its plain cone axes gives southing and westing, as
    EPSG:5513 does)."""
    names = [a[0] for a in system.axes]
    try:
        scale = [factors[int(a[2])][1] for a in system.axes]
    except KeyError:
        return None
    if 'Easting' in names and 'Northing' in names:
        return names.index('Easting'), names.index('Northing'), scale
    if system.method_code in (9819,) and names == ['Southing', 'Westing']:
        return 0, 1, scale
    return None


def exact_code(system, factors):
    """The code a section may carry ("EPSG:25832"): the system's own when
    the library gives its coordinates exactly as the dataset defines them,
    apart from the order of the axes (always easting before northing,
    longitude before latitude); None otherwise. Lengths must be metres, as
    definitions have no other unit: a system in feet keeps its code out of
    the catalogue rather than answer in metres under it."""
    if system.kind == 'geographic':
        orientations = sorted(a[1] for a in system.axes)
        units = {int(a[2]) for a in system.axes}
        if orientations == ['east', 'north'] and units <= set(UOM_DEGREE):
            return system.tag
        return None
    if axis_mapping(system, factors) is None:
        return None
    if any(int(a[2]) != UOM_METRE for a in system.axes):
        return None
    return system.tag


# --------------------------------------------------------------------------
# EPSG methods as definition types


def _need(system, *codes):
    missing = [c for c in codes if c not in system.params]
    if missing:
        raise Skip('%s without parameter(s) %s' % (system.method_name, missing))


def to_section(system, branch, ellipsoids, factors, name=None):
    """The keyword-file section of a system, or Skip with the reason."""
    if system.prime_meridian != GREENWICH:
        raise Skip('prime meridian is not Greenwich; definitions hold Greenwich longitudes')
    if system.method_code == 1051:
        ellipsoid_id = _michigan_ellipsoid(system, ellipsoids)
    elif system.method_code == 1024:
        # The pseudo Mercator applies the spherical formulas to ellipsoidal
        # latitudes: a Mercator on the sphere of the ellipsoid's semi-major
        # axis.
        ellipsoid_id = match_ellipsoid(ellipsoids, system.a, 0.0)
    else:
        ellipsoid_id = match_ellipsoid(ellipsoids, system.a, system.rf)
    if ellipsoid_id is None:
        raise Skip('ellipsoid %s (a=%r, 1/f=%r) is not in the catalogue'
                   % (system.ellipsoid_name, system.a, system.rf))
    p = system.params

    def ang(code):
        return make_angle(*p[code])

    def length(code):
        return make_length(p[code][0], p[code][1], factors)

    def scale(code):
        return make_scale(*p[code])

    label = name or system.name
    m = system.method_code

    def new(section_name):
        return Section(section_name, label, branch, ellipsoid_id, exact_code(system, factors))

    if system.kind == 'geographic':
        if not system.axes or exact_code(system, factors) is None:
            raise Skip('geographic axes %s' % [(a[1], a[2]) for a in system.axes])
        return new('GEOGRAPHICAL_PROJECTION')
    if m == 9807:  # Transverse Mercator
        _need(system, 8801, 8802, 8805, 8806, 8807)
        s = new('UTM_PROJECTION')
        s.scale('Scale', scale(8805))
        s.angle('Centre', ang(8802))
        s.angle('Origin_Latitude', ang(8801))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m == 9801:  # Lambert conic conformal, one standard parallel
        _need(system, 8801, 8802, 8805, 8806, 8807)
        s = new('LAMBERT_CONIC_1SP_PROJECTION')
        s.scale('Scale', scale(8805))
        s.angle('Origin_Longitude', ang(8802))
        s.angle('Origin_Latitude', ang(8801))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m in (9802, 1051):  # Lambert conic conformal, two standard parallels
        _need(system, 8821, 8822, 8823, 8824, 8826, 8827)
        s = new('LAMBERT_CONIC_2SP_PROJECTION')
        s.angle('Parallel_1', ang(8823))
        s.angle('Parallel_2', ang(8824))
        s.angle('Origin_Longitude', ang(8822))
        s.angle('Origin_Latitude', ang(8821))
        s.length('Feast', length(8826))
        s.length('Fnorth', length(8827))
    elif m == 9809:  # Oblique stereographic
        _need(system, 8801, 8802, 8805, 8806, 8807)
        s = new('STEREOGRAPHIC_PROJECTION')
        s.scale('Scale', scale(8805))
        s.angle('Centre', ang(8802))
        s.angle('Origin_Latitude', ang(8801))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m == 9810:  # Polar stereographic with a scale at the pole
        _need(system, 8801, 8802, 8805, 8806, 8807)
        if abs(abs(ang(8801).degrees) - 90.0) > 1e-12:
            raise Skip('polar stereographic (variant A) whose origin is not a pole')
        s = new('POLAR_STEREOGRAPHIC_PROJECTION')
        s.scale('Scale', scale(8805))
        s.angle('Centre', ang(8802))
        s.angle('Origin_Latitude', ang(8801))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m == 9829:  # Polar stereographic with a standard parallel
        _need(system, 8832, 8833, 8806, 8807)
        parallel = ang(8832)
        if parallel.degrees == 0.0:
            raise Skip('polar stereographic with the equator as standard parallel')
        s = new('STEREOGRAPHIC_NORTH_POLE_PROJECTION' if parallel.degrees > 0
                else 'STEREOGRAPHIC_SOUTH_POLE_PROJECTION')
        s.angle('Parallel_1', parallel)
        s.angle('Centre', ang(8833))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m == 9811:  # New Zealand map grid
        _need(system, 8801, 8802, 8806, 8807)
        s = new('NEW_ZEALAND_MAP_GRID_PROJECTION')
        s.angle('Origin_Longitude', ang(8802))
        s.angle('Origin_Latitude', ang(8801))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m in (9812, 9815):  # Hotine oblique Mercator, natural origin or centre
        _need(system, 8811, 8812, 8813, 8814, 8815)
        azimuth, rectified = ang(8813), ang(8814)
        same = abs(azimuth.degrees - rectified.degrees) < 1e-12
        if m == 9812:
            _need(system, 8806, 8807)
            s = new('HOTINE_OBLIQUE_MERCATOR_PROJECTION' if same
                    else 'RECTIFIED_SKEW_ORTHOMORPHIC_PROJECTION')
            fe, fn = 8806, 8807
        else:
            _need(system, 8816, 8817)
            if not same:
                raise Skip('oblique Mercator with its false origin at the centre and '
                           'a rectification angle other than the azimuth')
            s = new('OBLIQUE_MERCATOR_PROJECTION')
            fe, fn = 8816, 8817
        s.scale('Scale', scale(8815))
        s.angle('Center_Longitude', ang(8812))
        s.angle('Center_Latitude', ang(8811))
        s.angle('Azimuth', azimuth, dms=False)
        if not same:
            s.angle('XY_Plane_Rotation', rectified, dms=False)
        s.length('Feast', length(fe))
        s.length('Fnorth', length(fn))
    elif m == 1024:  # Popular visualisation pseudo Mercator, on its sphere
        _need(system, 8801, 8802, 8806, 8807)
        if ang(8801).degrees != 0.0:
            raise Skip('pseudo Mercator with a latitude of origin off the equator')
        s = new('MERCATOR_2SP_PROJECTION')
        s.angle('Parallel_1', ang(8801))
        s.angle('Centre', ang(8802))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m in (9804, 9805):  # Mercator
        _need(system, 8802, 8806, 8807)
        if 8801 in p and ang(8801).degrees != 0.0:
            raise Skip('Mercator with a latitude of origin off the equator')
        if m == 9804:
            _need(system, 8805)
            s = new('MERCATOR_1SP_PROJECTION')
            s.scale('Scale', scale(8805), reducible=False)
        else:
            _need(system, 8823)
            s = new('MERCATOR_2SP_PROJECTION')
            s.angle('Parallel_1', ang(8823))
        s.angle('Centre', ang(8802))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m in (9819, 1041):  # Krovak, southing/westing or easting/northing
        _need(system, 8811, 8833, 1036, 8818, 8819, 8806, 8807)
        s = new('KROVAK_OBLIQUE_CONFORMAL_CONIC')
        s.number('Scale_At_Pseudo_Parallel', scale(8819))
        s.angle('Pseudo_Parallel', ang(8818))
        s.angle('Center_Longitude', ang(8833))
        s.angle('Center_Latitude', ang(8811))
        s.angle('Azimuth', ang(1036), dms=False)
        if m == 9819:
            # The cone's own axes: x southing, y westing.
            s.number('XY_Plane_Rotation', 0)
            s.number('X_Scale', 1)
            s.number('Y_Scale', 1)
        else:
            # Easting = -westing and northing = -southing: a quarter turn of
            # the plane with the southing axis reversed.
            s.number('XY_Plane_Rotation', 90)
            s.number('X_Scale', -1)
            s.number('Y_Scale', 1)
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m in (9822, 1119):  # Albers equal-area and equidistant conic
        _need(system, 8821, 8822, 8823, 8824, 8826, 8827)
        s = new('ALBERS_EQUAL_AREA_PROJECTION' if m == 9822 else 'EQUIDISTANT_CONIC_PROJECTION')
        s.angle('Parallel_1', ang(8823))
        s.angle('Parallel_2', ang(8824))
        s.angle('Central_Meridian', ang(8822))
        s.angle('Origin_Latitude', ang(8821))
        s.length('Feast', length(8826))
        s.length('Fnorth', length(8827))
    elif m == 9820:  # Lambert azimuthal equal area
        _need(system, 8801, 8802, 8806, 8807)
        s = new('LAMBERT_AZIMUTHAL_EQUAL_AREA_PROJECTION')
        s.angle('Centre', ang(8802))
        s.angle('Origin_Latitude', ang(8801))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    elif m == 9806:  # Cassini-Soldner
        _need(system, 8801, 8802, 8806, 8807)
        s = new('CASSINI_SOLDNER_PROJECTION')
        s.angle('Central_Meridian', ang(8802))
        s.angle('Origin_Latitude', ang(8801))
        s.length('Feast', length(8806))
        s.length('Fnorth', length(8807))
    else:
        raise Skip('method "%s" (EPSG:%s) has no definition type'
                   % (system.method_name, system.method_code))
    return s


def _michigan_ellipsoid(system, ellipsoids):
    # The Michigan form of the two-parallel Lambert conic scales the ellipsoid
    # by a factor (the surface lies at an average height); with the scaled
    # semi-major axis and the same flattening the ordinary formulas apply.
    if 1038 not in system.params:
        raise Skip('Michigan Lambert conic without its ellipsoid scaling factor')
    k = make_scale(*system.params[1038])
    return match_ellipsoid(ellipsoids, system.a * k, system.rf)


# --------------------------------------------------------------------------
# Files


def file_text(header_lines, entries):
    """A catalogue file: the header comment, then one block holding each
    (comment, Section) in order."""
    out = ['# ' + line if line else '#' for line in header_lines]
    out.append('MAP_PROJECTION_DEFINITION {')
    previous_branch = None
    for comment, section in entries:
        if previous_branch is not None and section.branch != previous_branch:
            out.append('')
        previous_branch = section.branch
        out.append(section.text(comment))
    out.append('}')
    return '\n'.join(out) + '\n'


_CODE = re.compile(r'^\s*Code\s*=\s*"([^"]*)"\s*(#.*)?$')


def section_codes(path):
    """The value of the keyword Code of every section of a catalogue file,
    in order, or None where a section has none."""
    codes = []
    depth = 0
    with open(path, encoding='utf-8') as f:
        for line in f:
            if _SECTION.match(_strip_comment(line)):
                depth += 1
                if depth == 2:
                    codes.append(None)
                continue
            if line.strip() == '}':
                depth -= 1
                continue
            match = _CODE.match(line)
            if match and depth == 2 and codes[-1] is None:
                codes[-1] = match.group(1)
    return codes


_TAG = re.compile(r'^\s*#\s*((?:EPSG|ESRI):\d+|PROJ:)\s*(.*)$')
_SECTION = re.compile(r'^\s*([A-Z_0-9]+)\s*\{\s*$')


def section_tags(path):
    """The reference of every section of a catalogue file, in order: the tag
    comment right above the section ("EPSG:27700 ...", "PROJ: <string> |
    area: w,s,e,n"), or None."""
    tags = []
    pending = None
    depth = 0
    with open(path, encoding='utf-8') as f:
        for line in f:
            tag = _TAG.match(line)
            if tag:
                pending = (tag.group(1), tag.group(2))
                continue
            if _SECTION.match(line):
                depth += 1
                if depth == 2:
                    tags.append(pending)
                pending = None
            elif line.strip() == '}':
                depth -= 1
    return tags


def generator_arguments(doc):
    """The command line of the data-file generators: --db, --out, --check-only."""
    parser = argparse.ArgumentParser(description=doc.split('\n')[0])
    parser.add_argument('--db', default=DEFAULT_DB)
    parser.add_argument('--out', default=os.path.join(REPO_ROOT, 'data'))
    parser.add_argument('--check-only', action='store_true',
                        help='report only; leave the data files as they are')
    return parser.parse_args()


def open_dataset(db_path):
    """The EPSG dataset with its version, the catalogue's ellipsoids and the
    dataset's length units: what every generator starts from."""
    db = connect(db_path)
    return db, dataset_version(db), read_catalogue_ellipsoids(), length_factors(db)
