"""The gxcart tool run as a process, the way a user runs it.

Run by CTest:
    python3 cli_test.py --gxcart PATH [--library PATH] --data DIR --samples DIR

Conversions are held against reference values pasted from PROJ's cct and
GeographicLib's GeodSolve, and against the library's own conversions reached
through its flat interface (ctypes), so the tool adds nothing and loses
nothing on the way.
"""

import argparse
import ctypes
import os
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


def gxcart(*args, stdin=None):
    return subprocess.run([ARGS.gxcart, *args], input=stdin, capture_output=True, text=True,
                          timeout=120)


def numbers(text):
    return [[float(v) for v in line.split()] for line in text.splitlines() if line.strip()]


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
        for line, (lon, lat) in zip(run.stdout.splitlines(), sample_points()):
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
        self.assertRegex(back.stdout.splitlines()[0], r"^9\.500000000 48\.250000000$")

    def test_datums_differ_through_prj_files(self):
        wgs84 = data("wkt", "4326_esri.prj")
        ed50 = data("wkt", "ed50_utm32_towgs84_gdal.prj")
        text = "".join("%r %r %r\n" % source for source, _ in ED50_CASES)
        run = gxcart("convert", "--from", wgs84, "--to", ed50, stdin=text)
        self.assertEqual(run.returncode, 0, run.stderr)
        for got, (_, expected) in zip(numbers(run.stdout), ED50_CASES):
            for g, e in zip(got, expected):
                self.assertAlmostEqual(g, e, delta=1e-3)
        back = gxcart("convert", "--from", wgs84, "--to", ed50, "--inverse", stdin=run.stdout)
        for got, (source, _) in zip(numbers(back.stdout), ED50_CASES):
            self.assertAlmostEqual(got[0], source[0], delta=1e-8)
            self.assertAlmostEqual(got[1], source[1], delta=1e-8)
            self.assertAlmostEqual(got[2], source[2], delta=1e-3)

    def test_separators_and_precision(self):
        text = "9.5 48.25\n9.5,48.25\n9.5\t48.25\n  9.5 , 48.25  \r\n9.5,48.25,0\n"
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--precision", "2",
                     stdin=text)
        self.assertEqual(run.returncode, 0, run.stderr)
        lines = run.stdout.splitlines()
        self.assertEqual(lines[:4], ["537117.14 5344208.12"] * 4)
        self.assertEqual(lines[4], "537117.14 5344208.12 0.00")

    def test_bad_lines_are_reported_by_number_and_left_out(self):
        text = ("# header\n"
                "9.5 48.25\n"
                "9.5\n"
                "\n"
                "9.5,,48.25\n"
                "east north\n"
                "1 2 3 4\n"
                "nan 48\n"
                "9.5 48.25,\n"
                "12.5 48.25\n")
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", stdin=text)
        self.assertEqual(run.returncode, 1)
        self.assertEqual(len(numbers(run.stdout)), 2)
        # The good lines keep their order: the second is east of the first.
        first, second = numbers(run.stdout)
        self.assertGreater(second[0], first[0])
        for number in (3, 5, 6, 7, 8, 9):
            self.assertIn("standard input:%d:" % number, run.stderr)
        for number in (1, 2, 4, 10):
            self.assertNotIn("standard input:%d:" % number, run.stderr)
        self.assertIn("6 of 10 lines left out", run.stderr)

    def test_file_lines_are_named_with_the_file(self):
        with tempfile.NamedTemporaryFile("w", suffix=".txt", delete=False) as f:
            f.write("9.5 48.25\nbroken\n")
        try:
            run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", f.name)
        finally:
            os.unlink(f.name)
        self.assertEqual(run.returncode, 1)
        self.assertIn("%s:2:" % f.name, run.stderr)

    def test_a_point_without_image_is_left_out(self):
        # The Mercator projection has no image for the pole.
        run = gxcart("convert", "--from", "LONG/LAT", "--to", "UTM-32", stdin="9 90\n9 48\n")
        mercator = gxcart("convert", "--from", "LONG/LAT", "--to", data("wkt", "3395_esri.prj"),
                          stdin="9 90\n9 48\n")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(mercator.returncode, 1)
        self.assertEqual(len(numbers(mercator.stdout)), 1)
        self.assertIn(":1:", mercator.stderr)

    def test_command_line_mistakes(self):
        cases = [
            ("convert", "--from", "LONG/LAT"),
            ("convert", "--from", "LONG/LAT", "--to", "no such system"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--precision", "x"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--precision", "18"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "--bogus"),
            ("convert", "--from", "LONG/LAT", "--to", "UTM-32", "/no/such/file.txt"),
            ("info",),
            ("info", "UTM"),
            ("list", "nothing"),
            ("distance", "1", "2", "3"),
            ("distance", "0", "91", "0", "0"),
            ("graticule",),
            ("frobnicate",),
            (),
        ]
        for args in cases:
            with self.subTest(args=args):
                run = gxcart(*args)
                self.assertEqual(run.returncode, 2, run.stdout)
                self.assertTrue(run.stderr.strip())
        self.assertIn("UTM-32", gxcart("info", "UTM").stderr)


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

    def test_local_grid_has_no_graticule(self):
        run = gxcart("graticule", "NON-UTM")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout, "")


def main():
    global ARGS
    parser = argparse.ArgumentParser()
    parser.add_argument("--gxcart", required=True)
    parser.add_argument("--library")
    parser.add_argument("--data", required=True)
    parser.add_argument("--samples", required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0]] + rest, verbosity=2)


if __name__ == "__main__":
    main()
