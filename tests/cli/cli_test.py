"""The gxcart tool run as a process, the way a user runs it.

Run by CTest:
    python3 cli_test.py --gxcart PATH --libgxcart PATH [--library PATH] --data DIR \
        --samples DIR

--libgxcart is the library the tool runs with; --library (left out in the
sanitizer build, whose library cannot be loaded into Python) is the same
file, loaded through ctypes.

Conversions are held against reference values pasted from PROJ's cct and
cs2cs and GeographicLib's GeodSolve, and against the library's own conversions reached
through its flat interface (ctypes), so the tool adds nothing and loses
nothing on the way.
"""

import argparse
import ctypes
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ET

ARGS = None
SVG = "{http://www.w3.org/2000/svg}"

# UTM zone 32 on WGS 84 of the points of samples/points.txt:
#   grep -v '^#' samples/points.txt | sed 's/$/ 0 0/' \
#     | cct -d 6 +proj=utm +zone=32 +ellps=WGS84
SAMPLE_UTM32 = [
    (537117.141935, 5344208.122025),
    (356689.073689, 5644855.733678),
    (692095.145200, 5334540.636082),
    (566253.455809, 5933921.421020),
    (381849.181903, 5200555.481655),
    (477269.508394, 5551009.574939),
]

# WGS 84 longitude/latitude/height to ED50 / UTM 32 through the ED50 shift
# TOWGS84[-87,-98,-121] (WGS 84 to ED50 is the Helmert shift +87 +98 +121):
#   P="+proj=pipeline +step +proj=cart +ellps=WGS84
#      +step +proj=helmert +x=87 +y=98 +z=121
#      +step +inv +proj=cart +ellps=intl +step +proj=utm +zone=32 +ellps=intl"
#   echo 9.5 48.25 120 0 | cct -d 6 $P
#     537200.538294  5344408.699843  77.961820
#   echo 11.582 48.1351 0 0 | cct -d 6 $P
#     692179.577908  5334741.192988  -40.279321
ED50_CASES = [
    ((9.5, 48.25, 120.0), (537200.538294, 5344408.699843, 77.961820)),
    ((11.582, 48.1351, 0.0), (692179.577908, 5334741.192988, -40.279321)),
]

# Geodesics on WGS 84 (GeodSolve takes lat1 lon1 lat2 lon2, answers azi1
# azi2 s12):
#   printf '48.25 9.5 53.55 10.0\n48.25 9.5 -33.9 151.2\n' | GeodSolve -i -p 6
#     3.22103355673 3.60947387261 590648.998216
#     77.14479596781 128.48308212888 16475307.999355
GEODESICS = [
    ((9.5, 48.25, 10.0, 53.55), (590648.998216, 3.22103355673, 3.60947387261)),
    ((9.5, 48.25, 151.2, -33.9), (16475307.999355, 77.14479596781, 128.48308212888)),
]


# The same conversion in two dimensions, as cs2cs gives it (PROJ 9.1.1):
#   printf '9.5 48.25\n11.582 48.1351\n' | cs2cs -f %.6f \
#     +proj=longlat +datum=WGS84 +to +proj=utm +zone=32 +ellps=intl +towgs84=-87,-98,-121
#     537200.539827  5344408.701647 / 692179.577908  5334741.192988
ED50_2D = [((9.5, 48.25), (537200.539827, 5344408.701647)),
           ((11.582, 48.1351), (692179.577908, 5334741.192988))]

# NAD83 / New York Long Island in its own unit, the US survey foot:
#   printf -- '-73.5 40.75\n-74.0 40.6\n' | cs2cs -f %.4f \
#     +proj=longlat +datum=NAD83 +to EPSG:2263
#     1122785.6827  212917.2646 / 984250.0000  157872.5803
FEET_CASES = [((-73.5, 40.75), (1122785.6827, 212917.2646)),
              ((-74.0, 40.6), (984250.0000, 157872.5803))]
US_FOOT = 1200 / 3937


def gxcart(*args, stdin=None, env=None, **kwargs):
    return subprocess.run([ARGS.gxcart, *args], input=stdin, capture_output=True, text=True,
                          timeout=120, env=env, **kwargs)


def numbers(text):
    """The numbers of the output rows, comment and blank rows left out."""
    return [[float(v) for v in line.split()] for line in text.splitlines()
            if line.strip() and not line.startswith("#")]


def sample_points():
    with open(os.path.join(ARGS.samples, "points.txt")) as f:
        return [tuple(map(float, line.split())) for line in f
                if line.strip() and not line.startswith("#")]


def data(*parts):
    return os.path.join(ARGS.data, *parts)


class Library:
    """The flat interface of libgxcart.so, for the library's own answers."""

    def __init__(self, path):
        self.lib = ctypes.CDLL(path)
        self.lib.C_GXMP_CREATE.argtypes = [ctypes.c_char_p, ctypes.POINTER(ctypes.c_void_p),
                                           ctypes.POINTER(ctypes.c_int)]
        self.lib.C_GXMP_DESTROY.argtypes = [ctypes.POINTER(ctypes.c_void_p),
                                            ctypes.POINTER(ctypes.c_int)]
        for name in ("C_GXMP_GEO2PROJ", "C_GXMP_PROJ2GEO"):
            getattr(self.lib, name).argtypes = [
                ctypes.c_void_p, ctypes.c_double, ctypes.c_double,
                ctypes.POINTER(ctypes.c_double), ctypes.POINTER(ctypes.c_double)]

    def convert(self, system, function, a, b):
        handle, status = ctypes.c_void_p(), ctypes.c_int(-99)
        self.lib.C_GXMP_CREATE(system.encode(), ctypes.byref(handle), ctypes.byref(status))
        assert handle.value, system
        x, y = ctypes.c_double(), ctypes.c_double()
        getattr(self.lib, function)(handle, a, b, ctypes.byref(x), ctypes.byref(y))
        self.lib.C_GXMP_DESTROY(ctypes.byref(handle), ctypes.byref(status))
        return x.value, y.value


class Scratch(unittest.TestCase):
    """A test with a temporary folder for the files it writes."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def write(self, name, content, mode="w"):
        path = os.path.join(self.folder.name, name)
        with open(path, mode) as f:
            f.write(content)
        return path


class Convert(unittest.TestCase):
    def setUp(self):
        self.samples = os.path.join(ARGS.samples, "points.txt")

    def test_sample_file_matches_cct_and_the_library(self):
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", self.samples)
        self.assertEqual(run.returncode, 0, run.stderr)
        got = numbers(run.stdout)
        self.assertEqual(len(got), len(SAMPLE_UTM32))
        for (x, y), (ex, ey) in zip(got, SAMPLE_UTM32):
            self.assertAlmostEqual(x, ex, delta=1e-3)
            self.assertAlmostEqual(y, ey, delta=1e-3)
        if not ARGS.library:
            self.skipTest("no library given to compare with")
        library = Library(ARGS.library)
        rows = [line for line in run.stdout.splitlines() if not line.startswith("#")]
        for line, (lon, lat) in zip(rows, sample_points()):
            x, y = library.convert("UTM-32", "C_GXMP_GEO2PROJ", lon, lat)
            self.assertEqual(line, "%.4f %.4f" % (x, y))

    def test_inverse_returns_the_sample_points(self):
        forward = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--precision", "6",
                         self.samples)
        back = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--inverse",
                      stdin=forward.stdout)
        self.assertEqual(back.returncode, 0, back.stderr)
        for (lon, lat), (elon, elat) in zip(numbers(back.stdout), sample_points()):
            self.assertAlmostEqual(lon, elon, delta=1e-8)
            self.assertAlmostEqual(lat, elat, delta=1e-8)
        # Degrees are written with nine decimals unless asked otherwise.
        self.assertIn("\n9.500000000 48.250000000\n", back.stdout)

    def test_datums_differ_through_prj_files(self):
        wgs84 = data("wkt", "4326_esri.prj")
        ed50 = data("wkt", "ed50_utm32_towgs84_gdal.prj")
        text = "".join("%r %r %r\n" % source for source, _ in ED50_CASES)
        run = gxcart("convert", "--from", wgs84, "--to", ed50, stdin=text)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stderr, "")
        for got, (_, expected) in zip(numbers(run.stdout), ED50_CASES):
            for g, e in zip(got, expected):
                self.assertAlmostEqual(g, e, delta=1e-3)
        back = gxcart("convert", "--from", wgs84, "--to", ed50, "--inverse", stdin=run.stdout)
        for got, (source, _) in zip(numbers(back.stdout), ED50_CASES):
            self.assertAlmostEqual(got[0], source[0], delta=1e-8)
            self.assertAlmostEqual(got[1], source[1], delta=1e-8)
            self.assertAlmostEqual(got[2], source[2], delta=1e-3)

    def test_rows_stay_in_place(self):
        # One bad line in a million must not shift every later ID onto the
        # wrong point: each input line gives exactly one output row, bad rows
        # carry the error marker, comments and blank lines come back as they
        # were, and whatever follows the coordinates is passed through.
        lines = ["# id lon lat",
                 "9.5 48.25 P1",
                 "9.5",
                 "",
                 "9.5,,48.25",
                 "east north",
                 "   ",
                 "nan 48",
                 "9.5 91 P7",
                 "12.5 48.25\tP8 \"Munich, east\"",
                 "9.5 48.25 120 4711 x"]
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32",
                     stdin="\n".join(lines) + "\n")
        self.assertEqual(run.returncode, 1)
        rows = run.stdout.split("\n")
        self.assertEqual(rows.pop(), "")
        self.assertEqual(len(rows), len(lines))
        self.assertEqual([rows[i] for i in (0, 3, 6)], [lines[i] for i in (0, 3, 6)])
        self.assertEqual(rows[1], "537117.1419 5344208.1220 P1")
        for i in (2, 5, 7):
            self.assertEqual(rows[i], "* *", lines[i])
        self.assertEqual(rows[4], "*,*")
        self.assertEqual(rows[8], "* * P7")
        self.assertRegex(rows[9], r"^7\d{5}\.\d{4} 53\d{5}\.\d{4}\tP8 \"Munich, east\"$")
        self.assertRegex(rows[10], r"^537117\.1419 5344208\.1220 120\.0000 4711 x$")
        reported = [int(n) for n in re.findall(r"standard input:(\d+):", run.stderr)]
        self.assertEqual(reported, [3, 5, 6, 8, 9])
        self.assertIn("latitude 91 lies outside -90..90", run.stderr)
        self.assertIn("5 of 11 lines could not be converted", run.stderr)
        # The marker is the caller's choice; NaN reads back into numpy.
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--error-marker", "nan",
                     stdin="9.5 91 P7\n9.5,95\n")
        self.assertEqual(run.stdout, "nan nan P7\nnan,nan\n")

    def test_separators(self):
        good = {"9.5 48.25": "537117.14 5344208.12",
                "9.5,48.25": "537117.14,5344208.12",
                "9.5\t48.25": "537117.14\t5344208.12",
                "  9.5 , 48.25  ": "537117.14,5344208.12  ",
                "9.5, 48.25, 0, id": "537117.14,5344208.12,0.00, id",
                "9.5 48.25 Berlin, Germany": "537117.14 5344208.12 Berlin, Germany",
                "9.5,48.25,Berlin Mitte": "537117.14,5344208.12,Berlin Mitte"}
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--precision", "2",
                     stdin="".join(line + "\n" for line in good))
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stdout.split("\n")[:-1], list(good.values()))
        # Windows line ends stay what they were, on every kind of row.
        run = subprocess.run([ARGS.gxcart, "convert", "--from", "LONG/LAT", "--to", "UTM-32",
                              "--precision", "2"], input=b"9.5 48.25 id\r\n# c\r\n\r\nx\r\n",
                             capture_output=True, timeout=60)
        self.assertEqual(run.stdout, b"537117.14 5344208.12 id\r\n# c\r\n\r\n* *\r\n")
        # A decimal comma makes a line that reads two ways; it is refused,
        # not read as 9 5 48 or as 9.5 48. A number after the coordinates
        # counts too.
        ambiguous = ["9,5 48", "537117 5344208,12", "9.5 48.25 120,5", "9.5,48.25 7"]
        run = gxcart("convert", "--from", "UTM-32", "--to", "UTM-32",
                     stdin="".join(line + "\n" for line in ambiguous))
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout, "* *\n" * len(ambiguous))
        self.assertEqual(run.stderr.count("reads two ways"), len(ambiguous))
        # --2d leaves a third column alone: an ID, not a height.
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--2d", "--precision",
                     "1", stdin="9.5 48.25 17 x\n")
        self.assertEqual(run.stdout, "537117.1 5344208.1 17 x\n")

    def test_latitudes_and_longitudes_out_of_range(self):
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32",
                     stdin="9 90\n9 -90\n9 90.000001\n9 -91\n721 48\n")
        self.assertEqual(run.returncode, 1)
        rows = run.stdout.splitlines()
        self.assertNotIn("*", rows[0] + rows[1])
        self.assertEqual(rows[2:], ["* *"] * 3)
        self.assertEqual(run.stderr.count("outside -90..90"), 2)
        self.assertIn("standard input:5: longitude 721 lies outside -720..720", run.stderr)
        # On the inverse the geographical input is the target's side.
        run = gxcart("convert", "--from", "UTM-32", "--to", "LONG/LAT", "--inverse",
                     stdin="9 95\n")
        self.assertEqual((run.returncode, run.stdout), (1, "* *\n"))

    def test_a_point_without_image_fails_in_place(self):
        # The Mercator projection has no image for the pole.
        mercator = gxcart("convert", "--from", "LONG/LAT", "--to", data("wkt", "3395_esri.prj"),
                          stdin="9 90\n9 48\n")
        self.assertEqual(mercator.returncode, 1)
        self.assertEqual(mercator.stdout.splitlines()[0], "* *")
        self.assertEqual(len(numbers(mercator.stdout.split("\n", 1)[1])), 1)
        self.assertIn("standard input:1: the point has no image", mercator.stderr)

    def test_numbers_are_written_in_full(self):
        # A plane grid converts to itself: 1e100 comes back with all of its
        # 101 digits, not cut at a fixed buffer.
        run = gxcart("convert", "--from", "NON-UTM", "--to", "NON-UTM", stdin="1e100 5\n")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stdout, "%.4f 5.0000\n" % 1e100)
        self.assertEqual(len(run.stdout.split()[0]), 106)
        # As a longitude it is no number of degrees and fails clearly.
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", stdin="1e100 5\n")
        self.assertEqual((run.returncode, run.stdout), (1, "* *\n"))
        self.assertIn("longitude 1e+100 lies outside", run.stderr)

    def test_bad_lines_are_shown_safely(self):
        # A terminal must not receive the escape sequences of a hostile
        # file, and a NUL must not hide the rest of the line.
        run = subprocess.run([ARGS.gxcart, "convert", "--from", "LONG/LAT", "--to", "UTM-32"],
                             input=b"bad\x1b]0;owned\x07\x1b[31m\x00tail \xc3\xa9 \xff\n",
                             capture_output=True, timeout=60)
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout, b"* *\n")
        self.assertIn(b"bad\\x1B]0;owned\\x07\\x1B[31m\\x00tail \xc3\xa9 \\xFF\n", run.stderr)
        for byte in (b"\x1b", b"\x07", b"\x00", b"\xff"):
            self.assertNotIn(byte, run.stderr)

    def test_file_lines_are_named_with_the_file(self):
        with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as f:
            f.write("9.5 48.25\nbroken\n")
        try:
            run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", f.name)
        finally:
            os.unlink(f.name)
        self.assertEqual(run.returncode, 1)
        self.assertIn("%s:2:" % f.name, run.stderr)

    def test_native_units_against_cs2cs(self):
        # The library gives metres whatever unit the system declares; the
        # option gives the system's own unit (US survey feet here), both ways.
        text = "".join("%r %r\n" % lonlat for lonlat, _ in FEET_CASES)
        feet = data("wkt", "2263_esri.prj")
        metres = gxcart("convert", "--from", "LONG/LAT", "--to", feet, stdin=text)
        native = gxcart("convert", "--from", "LONG/LAT", "--to", feet, "--native-units",
                        stdin=text)
        self.assertEqual(native.returncode, 0, native.stderr)
        for m, n, (_, expected) in zip(numbers(metres.stdout), numbers(native.stdout),
                                       FEET_CASES):
            for i in range(2):
                self.assertAlmostEqual(n[i], expected[i], delta=1e-3)
                self.assertAlmostEqual(m[i], expected[i] * US_FOOT, delta=1e-3)
        back = gxcart("convert", "--from", "LONG/LAT", "--to", feet, "--native-units",
                      "--inverse", stdin=native.stdout)
        for got, (lonlat, _) in zip(numbers(back.stdout), FEET_CASES):
            self.assertAlmostEqual(got[0], lonlat[0], delta=1e-8)
            self.assertAlmostEqual(got[1], lonlat[1], delta=1e-8)
        # A metre system and degrees are unchanged by the option.
        plain = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", stdin=text)
        same = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--native-units",
                      stdin=text)
        self.assertEqual(plain.stdout, same.stdout)

    def test_command_line_mistakes(self):
        cases = [
            ("convert", "--from", "LONG/LAT"),
            ("convert", "--from", "LONG/LAT", "--to", "no such system"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--precision", "x"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--precision", "18"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--bogus"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "/no/such/file.txt"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--error-marker"),
            ("info",),
            ("info", "UTM"),
            ("list", "nothing"),
            ("distance", "1", "2", "3"),
            ("distance", "0", "91", "0", "0"),
            ("graticule",),
            ("graticule", "UTM-32", "--step", "1e-9"),
            ("frobnicate",),
            (),
        ]
        for args in cases:
            with self.subTest(args=args):
                run = gxcart(*args)
                self.assertEqual(run.returncode, 2, run.stdout)
                self.assertTrue(run.stderr.strip())
        self.assertIn("UTM-32", gxcart("info", "UTM").stderr)


class SystemFiles(Scratch):
    """Coordinate systems named by .prj files."""

    def test_pretty_printed_prj_converts_like_its_one_line_form(self):
        # Its first line alone names no system (once it fell back to a
        # catalogue name and lost the TOWGS84: 82 m off).
        wgs84 = data("wkt", "4326_esri.prj")
        text = "".join("%r %r\n" % lonlat for lonlat, _ in ED50_2D)
        one_line = gxcart("convert", "--from", wgs84, "--to",
                          data("wkt", "ed50_utm32_towgs84_gdal.prj"), "--precision", "6",
                          stdin=text)
        pretty = data("cli", "ed50_utm32_towgs84_pretty.prj")
        with open(pretty, newline="") as f:
            crlf = self.write("windows.prj", f.read().replace("\n", "\r\n"), mode="w")
        for path in (pretty, crlf):
            with self.subTest(path=path):
                run = gxcart("convert", "--from", wgs84, "--to", path, "--precision", "6",
                             stdin=text)
                self.assertEqual(run.returncode, 0, run.stderr)
                self.assertEqual(run.stdout, one_line.stdout)
                for got, (_, expected) in zip(numbers(run.stdout), ED50_2D):
                    self.assertAlmostEqual(got[0], expected[0], delta=1e-3)
                    self.assertAlmostEqual(got[1], expected[1], delta=1e-3)

    def test_files_that_cannot_be_read_are_named(self):
        missing = os.path.join(self.folder.name, "ed50.prj")
        run = gxcart("convert", "--from", "LONG/LAT", "--to", missing, stdin="9 48\n")
        self.assertEqual(run.returncode, 2)
        self.assertIn("cannot read %s: No such file or directory" % missing, run.stderr)
        self.assertNotIn("unknown coordinate system", run.stderr)
        folder = os.path.join(self.folder.name, "folder.prj")
        os.mkdir(folder)
        run = gxcart("info", folder)
        self.assertEqual(run.returncode, 2)
        self.assertIn("directory", run.stderr)
        junk = self.write("junk.prj", "PROJCS[\"nothing\"")
        run = gxcart("info", junk)
        self.assertEqual(run.returncode, 2)
        self.assertIn("holds no coordinate system", run.stderr)
        # A WKT file under another name is read when no system has that name.
        with open(data("wkt", "ed50_utm32_towgs84_gdal.prj")) as f:
            wkt = self.write("ed50.wkt", f.read())
        self.assertEqual(gxcart("info", wkt).returncode, 0)


class DatumWarning(Scratch):
    def test_missing_shift_is_named_once(self):
        # Without its TOWGS84 an ED50 system is taken as lying on WGS 84:
        # about 125 m off at Stuttgart (cs2cs EPSG:4230 EPSG:4326 and
        # GeodSolve). The tool converts as the library defines, and warns.
        with open(data("wkt", "ed50_utm32_towgs84_gdal.prj")) as f:
            ed50 = self.write("ed50_noshift.prj",
                              f.read().replace(",TOWGS84[-87,-98,-121,0,0,0,0]", ""))
        run = gxcart("convert", "--from", "UTM-32", "--to", ed50,
                     stdin="537117 5344208\n" * 3)
        self.assertEqual(run.returncode, 0)
        self.assertEqual(len(run.stdout.splitlines()), 3)
        warnings = run.stderr.splitlines()
        self.assertEqual(len(warnings), 1, run.stderr)
        self.assertIn("warning: %s has no datum shift to WGS 84 (no TOWGS84" % ed50, warnings[0])
        self.assertIn("tens to hundreds of metres", warnings[0])
        # A GRS 1980 datum is within a metre or two of WGS 84.
        run = gxcart("convert", "--from", data("wkt", "4326_esri.prj"), "--to",
                     data("wkt", "25832_esri.prj"), stdin="9 48\n")
        self.assertIn("25832_esri.prj has no datum shift", run.stderr)
        self.assertIn("up to about 2 m", run.stderr)

    # The library's own web Mercator names its datum after its sphere, but its
    # longitudes and latitudes are WGS 84's: no warning against WGS 84, and
    # the conversion is PROJ's:
    #   echo "50 10" | cs2cs -f %.4f EPSG:4326 EPSG:3857   -> 1113194.9079 6446275.8410
    GOOGLE = ('PROJCS["Google Maps - Mercator",GEOGCS["GCS_Google_Maps",DATUM["D_Google_Maps",'
              'SPHEROID["Google Maps (Sphere)",6378137,0]],PRIMEM["Greenwich",0],'
              'UNIT["Degree",0.0174532925199433]],PROJECTION["Mercator"],'
              'PARAMETER["False_Easting",0],PARAMETER["False_Northing",0],'
              'PARAMETER["Central_Meridian",0],PARAMETER["Standard_Parallel_1",0],'
              'UNIT["Meter",1]]')

    def test_web_mercator_lies_on_wgs84(self):
        google = self.write("google.prj", self.GOOGLE)
        for wgs84 in (data("wkt", "4326_esri.prj"), data("wkt", "4326_gdal.prj"), "EPSG:4326"):
            with self.subTest(wgs84=wgs84):
                run = gxcart("convert", "--from", wgs84, "--to", google, stdin="10 50\n")
                self.assertEqual(run.returncode, 0, run.stderr)
                self.assertNotIn("warning", run.stderr)
                self.assertEqual(numbers(run.stdout), [[1113194.9079, 6446275.8410]])
        # A datum without shift is still named, the web Mercator is not.
        with open(data("wkt", "ed50_utm32_towgs84_gdal.prj")) as f:
            ed50 = self.write("ed50_noshift.prj",
                              f.read().replace(",TOWGS84[-87,-98,-121,0,0,0,0]", ""))
        run = gxcart("convert", "--from", ed50, "--to", google, stdin="500000 5300000\n")
        self.assertIn("warning: %s has no datum shift" % ed50, run.stderr)
        self.assertNotIn("google.prj has", run.stderr)

    def test_no_warning_where_nothing_is_missing(self):
        cases = [
            # Both shifts given.
            (data("wkt", "4326_esri.prj"), data("wkt", "ed50_utm32_towgs84_gdal.prj")),
            # A WGS 84 system needs no shift.
            ("UTM-32", data("wkt", "ed50_utm32_towgs84_gdal.prj")),
            # One datum on both sides.
            ("UTM-32", "UTM-33"),
            (data("wkt", "2263_esri.prj"), data("wkt", "26931_esri.prj")),
            # LONG/LAT names no datum; plane grids convert nothing.
            ("LONG/LAT", data("wkt", "25832_esri.prj")),
            ("NON-UTM", data("wkt", "25832_esri.prj")),
        ]
        for source, target in cases:
            with self.subTest(source=source, target=target):
                run = gxcart("convert", "--from", source, "--to", target, stdin="1 2\n")
                self.assertNotIn("warning", run.stderr)


class Output(Scratch):
    """Output that cannot be written and input that cannot be read."""

    def run_to(self, stdout, *args, stdin=None):
        return subprocess.run([ARGS.gxcart, *args], stdout=stdout, stdin=stdin,
                              stderr=subprocess.PIPE, text=True, timeout=120)

    def test_full_device(self):
        if not os.path.exists("/dev/full"):
            self.skipTest("no /dev/full")
        points = self.write("points.txt", "9.5 48.25\n" * 20000)
        commands = [
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", points),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", self.write("one.txt", "9 48\n")),
            ("info", "UTM-32"),
            ("list",),
            ("graticule", "UTM-32"),
            ("distance", "0", "0", "1", "1"),
            ("--version",),
        ]
        with open("/dev/full", "w") as full:
            for args in commands:
                with self.subTest(args=args):
                    run = self.run_to(full, *args)
                    self.assertEqual(run.returncode, 3)
                    self.assertIn("No space left on device", run.stderr)
        run = gxcart("graticule", "UTM-32", "-o", "/dev/full")
        self.assertEqual(run.returncode, 3)
        self.assertIn("cannot write /dev/full", run.stderr)

    def test_picture_replaces_the_file_whole(self):
        # Written beside the old file and renamed over it: no temporary file
        # stays, the mode is kept, and a link still points at the picture.
        old = self.write("map.svg", "<svg/>")
        os.chmod(old, 0o640)
        link = os.path.join(self.folder.name, "link.svg")
        os.symlink("map.svg", link)
        run = gxcart("graticule", "UTM-32", "-o", link)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertTrue(os.path.islink(link))
        self.assertEqual(sorted(os.listdir(self.folder.name)), ["link.svg", "map.svg"])
        self.assertEqual(os.stat(old).st_mode & 0o777, 0o640)
        with open(old) as f:
            self.assertTrue(f.read().startswith("<?xml"))

    def test_failed_picture_keeps_the_old_file(self):
        # Writing into a folder the tool cannot create files in fails without
        # touching the picture already there.
        old = self.write("old.svg", "<svg/>")
        os.chmod(self.folder.name, 0o500)
        try:
            if os.access(self.folder.name, os.W_OK):
                self.skipTest("running as a user who may write anywhere")
            run = gxcart("graticule", "UTM-32", "-o", old)
        finally:
            os.chmod(self.folder.name, 0o700)
        self.assertEqual(run.returncode, 3)
        with open(old) as f:
            self.assertEqual(f.read(), "<svg/>")
        self.assertEqual(os.listdir(self.folder.name), ["old.svg"])

    def test_directory_as_input(self):
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", self.folder.name)
        self.assertEqual(run.returncode, 2)
        self.assertIn("it is a directory", run.stderr)
        fd = os.open(self.folder.name, os.O_RDONLY)
        try:
            run = self.run_to(subprocess.PIPE, "convert", "--from", "LONG/LAT", "--to", "UTM-32",
                              stdin=fd)
        finally:
            os.close(fd)
        self.assertEqual(run.returncode, 3)
        self.assertIn("cannot read standard input: Is a directory", run.stderr)


class Catalogue(Scratch):
    def test_version(self):
        run = gxcart("--version")
        self.assertEqual(run.returncode, 0)
        self.assertRegex(run.stdout, r"^gxcart \d+\.\d+\.\d+\n$")

    def test_paths_name_the_folders_and_files(self):
        xdg = os.path.join(self.folder.name, "data")
        os.makedirs(os.path.join(xdg, "gxcart", "OpenGISProjections"))
        env = dict(os.environ, HOME=self.folder.name, XDG_DATA_HOME=xdg)
        run = gxcart("info", "--paths", env=env)
        self.assertEqual(run.returncode, 0, run.stderr)
        data_folder = os.path.dirname(os.path.realpath(ARGS.libgxcart)) + "/"
        self.assertIn("Data folder:  %s\n" % data_folder, run.stdout)
        self.assertRegex(run.stdout, r"\n  ellipsoid\.zpf +found\n")
        self.assertRegex(run.stdout, r"\n  map_projection\.zpf +found\n")
        user = run.stdout[run.stdout.index("User folder:"):]
        self.assertTrue(user.startswith("User folder:  %s/gxcart/\n" % xdg), user)
        self.assertRegex(user, r"\n  OpenGISProjections/ +found\n")
        self.assertRegex(user, r"\n  custom_projection\.zpf +not there\n")
        self.assertRegex(run.stdout, r"Catalogue: +\d+ ellipsoids, \d+ coordinate systems\n")
        self.assertEqual(run.stderr, "")

    def test_library_without_its_catalogue_files_says_so(self):
        # The library copied alone knows hardly a system; the tool says why.
        library = os.path.realpath(ARGS.libgxcart)
        shutil.copy(library, os.path.join(self.folder.name, "libgxcart.so.0"))
        env = dict(os.environ, LD_LIBRARY_PATH=self.folder.name)
        run = gxcart("info", "--paths", env=env)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("Data folder:  %s/\n" % os.path.realpath(self.folder.name), run.stdout)
        self.assertRegex(run.stdout, r"\n  ellipsoid\.zpf +MISSING\n")
        self.assertIn("warning: the library's system catalogue files are missing "
                      "(ellipsoid.zpf, map_projection.zpf, state_plane_nad83.zpf, "
                      "state_plane_nad27.zpf, epsg_common.zpf, epsg_other.zpf)", run.stderr)
        # Without its ellipsoid UTM-32 converts nothing.
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", stdin="9 48\n", env=env)
        self.assertEqual((run.returncode, run.stdout), (1, "* *\n"))
        self.assertIn("catalogue files are missing", run.stderr)
        self.assertEqual(gxcart("info", "UTM-32").stderr, "")


class Help(unittest.TestCase):
    def test_every_command_has_help(self):
        for command in ("convert", "info", "list", "distance", "graticule"):
            with self.subTest(command=command):
                run = gxcart(command, "--help")
                self.assertEqual(run.returncode, 0)
                self.assertTrue(run.stdout.startswith("usage: gxcart " + command))
        run = gxcart("--help")
        self.assertEqual(run.returncode, 0)
        for command in ("convert", "info", "list", "distance", "graticule"):
            self.assertIn(command, run.stdout)


class Info(unittest.TestCase):
    def fields(self, system):
        run = gxcart("info", system)
        self.assertEqual(run.returncode, 0, run.stderr)
        return run.stdout

    def test_catalogue_system(self):
        out = self.fields("UTM-32")
        self.assertRegex(out, r"Short name: +UTM-32\n")
        self.assertRegex(out, r"Kind: +projected\n")
        self.assertRegex(out, r"Type: +1 Transverse")
        self.assertRegex(out, r"Central meridian:? +9 Degree")
        self.assertRegex(out, r"False easting:? +500000 Meter")
        self.assertRegex(out, r"Ellipsoid: +WGS 84, a = 6378137 m, 1/f = 298.257223563")
        self.assertRegex(out, r"Origin: +longitude 9, latitude 0")
        self.assertRegex(out, r"PROJ.4: +\+proj=tmerc ")
        self.assertIn('\n    PROJECTION["Transverse_Mercator"],\n', out)

    def test_prj_file_with_shift_and_feet(self):
        out = self.fields(data("wkt", "ed50_utm32_towgs84_gdal.prj"))
        self.assertRegex(out, r"Datum shift: +3 parameters to WGS 84: -87 -98 -121 m")
        self.assertIn("+towgs84=-87,-98,-121,0,0,0,0 ", out)
        feet = self.fields(data("wkt", "2263_esri.prj"))
        self.assertRegex(feet, r"Short name: +NAD_1983_StatePlane_New_York_Long_Island_FIPS_3104_Feet")
        self.assertRegex(feet, r"False easting:? +984250 US survey foot")
        self.assertRegex(feet, r"Linear unit: +US survey foot \(0.3048006096012")

    def test_short_forms(self):
        out = self.fields("LONG/LAT")
        self.assertRegex(out, r"Kind: +geographical")
        self.assertNotIn("WKT:", out)
        self.assertRegex(self.fields("NON-UTM"), r"Kind: +local plane grid")


class List(unittest.TestCase):
    def branches(self, *args):
        run = gxcart("list", *args)
        self.assertEqual(run.returncode, 0, run.stderr)
        result, branch = {}, None
        for line in run.stdout.splitlines():
            if line.startswith("  "):
                result[branch].append(line.strip())
            else:
                branch = line
                result[branch] = []
        return result

    def test_projected_geographical_and_all(self):
        projected = self.branches("projected")
        self.assertEqual(projected["UTM Projections"],
                         ["UTM-%d" % zone for zone in range(1, 61)])
        names = {n for members in projected.values() for n in members}
        self.assertNotIn("LONG/LAT", names)
        self.assertNotIn("EURO-CORDEX rotated pole grid", names)
        geographical = {n for members in self.branches("geographical").values() for n in members}
        self.assertIn("EURO-CORDEX rotated pole grid", geographical)
        self.assertNotIn("UTM-32", geographical)
        everything = self.branches()
        self.assertEqual(everything, self.branches("all"))
        self.assertIn("LONG/LAT", everything["Non UTM Projections"])
        self.assertIn("NON-UTM", everything["Non UTM Projections"])
        self.assertEqual(sum(map(len, everything.values())),
                         len(names) + len(geographical) + 2)

    def test_ellipsoids(self):
        run = gxcart("list", "ellipsoids")
        self.assertEqual(run.returncode, 0)
        self.assertRegex(run.stdout, r"WGS 84 +a = 6378137 m, 1/f = 298.257223563\n")
        self.assertRegex(run.stdout, r"GRS 1980 +a = 6378137 m, 1/f = 298.257222101\n")


class Codes(unittest.TestCase):
    """Systems named by EPSG code on the command line."""

    # WGS 84 longitude/latitude to ETRS89 / UTM zone 32N:
    #   printf '48.25 9.5\n53.55 10\n' | cs2cs -d 4 EPSG:4326 EPSG:25832
    #     537117.1419  5344208.1219
    #     566253.4558  5933921.4209
    # (PROJ takes the two datums as one; the library's geocentric step
    # between WGS 84 and GRS 1980 moves a point by far less than 1 mm.)
    WGS84_TO_25832 = [((9.5, 48.25), (537117.1419, 5344208.1219)),
                      ((10.0, 53.55), (566253.4558, 5933921.4209))]

    def test_convert_between_codes_matches_cs2cs(self):
        text = "".join("%r %r\n" % p for p, _ in self.WGS84_TO_25832)
        run = gxcart("convert", "--from", "EPSG:4326", "--to", "EPSG:25832", "--precision", "6",
                     stdin=text)
        self.assertEqual(run.returncode, 0, run.stderr)
        for got, (_, (ex, ey)) in zip(numbers(run.stdout), self.WGS84_TO_25832):
            self.assertAlmostEqual(got[0], ex, delta=1e-3)
            self.assertAlmostEqual(got[1], ey, delta=1e-3)

    def test_info_and_list_show_codes(self):
        run = gxcart("info", "urn:ogc:def:crs:EPSG::32733")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertRegex(run.stdout, r"Short name: +WGS 84 / UTM zone 33S\n")
        self.assertRegex(run.stdout, r"Code: +EPSG:32733\n")
        self.assertRegex(run.stdout, r"False northing:? +10000000 Meter")
        # A catalogue name shows its code; WKT names no catalogue system.
        self.assertRegex(gxcart("info", "ETRS89 / UTM zone 32N").stdout, r"Code: +EPSG:25832\n")
        self.assertNotIn("Code:", gxcart("info", "UTM-32").stdout)
        self.assertNotIn("Code:", gxcart("info", data("wkt", "25832_gdal.prj")).stdout)
        listed = gxcart("list", "all").stdout
        self.assertIn("\n  ETRS89 / UTM zone 32N [EPSG:25832]\n", listed)
        self.assertIn("\n  WGS 84 [EPSG:4326]\n", gxcart("list", "geographical").stdout)

    def test_unknown_code_is_a_usage_error(self):
        run = gxcart("info", "EPSG:2263")
        self.assertEqual(run.returncode, 2)
        self.assertIn("unknown coordinate system: EPSG:2263", run.stderr)


class Distance(unittest.TestCase):
    def test_against_geodsolve(self):
        for (lon1, lat1, lon2, lat2), (s12, azi1, azi2) in GEODESICS:
            with self.subTest(points=(lon1, lat1, lon2, lat2)):
                run = gxcart("distance", str(lon1), str(lat1), str(lon2), str(lat2))
                self.assertEqual(run.returncode, 0, run.stderr)
                values = {line.split()[0]: float(line.split()[1])
                          for line in run.stdout.splitlines()}
                self.assertAlmostEqual(values["distance"], s12, delta=1e-3)
                self.assertAlmostEqual(values["azimuth1"], azi1, delta=1e-8)
                self.assertAlmostEqual(values["azimuth2"], azi2, delta=1e-8)

    def test_antipodal_points(self):
        # Where Vincenty's iteration alone settled on the equatorial line:
        # echo "0 0 0 180" | GeodSolve -i -p 10 -> 0 180 20003931.4586254470
        run = gxcart("distance", "0", "0", "180", "0")
        self.assertEqual(run.returncode, 0, run.stderr)
        values = {line.split()[0]: float(line.split()[1]) for line in run.stdout.splitlines()}
        self.assertAlmostEqual(values["distance"], 20003931.4586, delta=1e-3)
        self.assertAlmostEqual(values["azimuth1"], 0.0, delta=1e-8)
        self.assertAlmostEqual(values["azimuth2"], 180.0, delta=1e-8)


class Graticule(unittest.TestCase):
    def picture(self, *args):
        run = gxcart("graticule", *args)
        self.assertEqual(run.returncode, 0, run.stderr)
        return ET.fromstring(run.stdout), run.stdout

    def lines(self, root, kind):
        return [float(p.get("data-degrees")) for p in root.iter(SVG + "path")
                if p.get("class") == kind]

    def check_inside_frame(self, root):
        frame = next(r for r in root.iter(SVG + "rect") if r.get("class") == "frame")
        x0, y0 = float(frame.get("x")), float(frame.get("y"))
        x1, y1 = x0 + float(frame.get("width")), y0 + float(frame.get("height"))
        for path in root.iter(SVG + "path"):
            tokens = path.get("d").replace("M", " ").replace("L", " ").split()
            self.assertTrue(tokens)
            for x, y in zip(tokens[0::2], tokens[1::2]):
                self.assertTrue(x0 - 0.01 <= float(x) <= x1 + 0.01, (x, path.get("class")))
                self.assertTrue(y0 - 0.01 <= float(y) <= y1 + 0.01, (y, path.get("class")))

    def test_geographical_grid(self):
        # LONG/LAT covers longitudes -180..180 and latitudes -60..81.
        root, _ = self.picture("LONG/LAT", "--step", "30")
        self.assertEqual(self.lines(root, "meridian"), list(range(-180, 181, 30)))
        self.assertEqual(self.lines(root, "parallel"), list(range(-60, 61, 30)))
        self.check_inside_frame(root)

    def test_utm_zone(self):
        # The zone's default area is the box around the corners of its 6 by 6
        # degree cell; the meridians 6 and 12 only touch its corners, the
        # parallels -3 and 3 lie inside at the central meridian:
        #   printf '6 0\n6 3\n12 3\n9 3\n9 -3\n' | sed 's/$/ 0 0/' \
        #     | cct -d 3 +proj=utm +zone=32 +ellps=WGS84
        #     166021.443 0.000 / 166476.933 332050.475 / 833523.067 332050.475
        #     500000.000 331593.180 / 500000.000 -331593.180
        root, text = self.picture("UTM-32", "--step", "1")
        self.assertEqual(self.lines(root, "meridian"), [7, 8, 9, 10, 11])
        self.assertEqual(self.lines(root, "parallel"), [-3, -2, -1, 0, 1, 2, 3])
        self.check_inside_frame(root)
        self.assertEqual([c.get("class") for c in root.iter(SVG + "circle")], ["origin"])
        labels = [t.text for t in root.iter(SVG + "text") if t.get("class") == "axis-label"]
        self.assertEqual(labels, ["Easting (Meter)", "Northing (Meter)"])
        ticks = [t.text for t in root.iter(SVG + "text") if t.get("class") == "tick-label"]
        self.assertEqual(ticks, ["200000", "400000", "600000", "800000", "-200000", "0", "200000"])
        # The same picture goes to a file with -o.
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "utm32.svg")
            run = gxcart("graticule", "UTM-32", "--step", "1", "-o", path)
            self.assertEqual(run.returncode, 0, run.stderr)
            self.assertEqual(run.stdout, "")
            with open(path) as f:
                self.assertEqual(f.read(), text)

    def test_axes_in_the_declared_unit(self):
        root, _ = self.picture(data("wkt", "2263_esri.prj"))
        labels = [t.text for t in root.iter(SVG + "text") if t.get("class") == "axis-label"]
        self.assertEqual(labels, ["Easting (US survey foot)", "Northing (US survey foot)"])
        self.assertTrue(self.lines(root, "meridian"))
        self.assertTrue(self.lines(root, "parallel"))

    def test_polar_meridians_drawn_once(self):
        root, _ = self.picture(data("wkt", "3031_esri.prj"), "--step", "30")
        self.assertEqual(self.lines(root, "meridian"), list(range(-180, 180, 30)))

    def test_absurd_longitudes_end_at_once(self):
        # A prime meridian of 1e308 puts the whole area at longitudes no step
        # can count: the graticule once ran for ever on these. It must end
        # with a message (in a few milliseconds; the timeout only catches a
        # hang).
        for name in ("3031_esri", "27200_esri", "5514_esri"):
            with open(data("wkt", name + ".prj")) as f:
                wkt = re.sub(r'PRIMEM\["([^"]*)",[^],]*', r'PRIMEM["\1",1e308', f.read())
            with self.subTest(system=name):
                run = subprocess.run([ARGS.gxcart, "graticule", wkt], capture_output=True,
                                     text=True, timeout=20)
                self.assertEqual(run.returncode, 1)
                self.assertEqual(run.stdout, "")
                self.assertIn("reaches longitude 1e+308", run.stderr)

    def test_lines_are_bounded(self):
        # --step 1e-9 once ran ten minutes and 2.7 GB.
        run = gxcart("graticule", "LONG/LAT", "--step", "0.000001")
        self.assertEqual(run.returncode, 2)
        self.assertIn("more than 1000 meridians over 360 degrees", run.stderr)
        self.assertEqual(run.stdout, "")
        root, _ = self.picture("UTM-32", "--step", "0.01")
        self.assertEqual(len(self.lines(root, "parallel")), 601)

    def test_local_grid_has_no_graticule(self):
        run = gxcart("graticule", "NON-UTM")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout, "")


def main():
    global ARGS
    parser = argparse.ArgumentParser()
    parser.add_argument("--gxcart", required=True)
    parser.add_argument("--library")
    parser.add_argument("--libgxcart", required=True)
    parser.add_argument("--data", required=True)
    parser.add_argument("--samples", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0]] + rest, verbosity=2)


if __name__ == "__main__":
    main()
