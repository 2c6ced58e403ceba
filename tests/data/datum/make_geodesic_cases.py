#!/usr/bin/env python3
"""Writes the geodesic reference tables of tests/datum from GeographicLib.

The point pairs are drawn with a fixed seed, so running this again gives the
same files. Every expected value comes from GeodSolve (GeographicLib); nothing
in these files is computed by GxCart.

    python3 make_geodesic_cases.py      # run in this folder, GeodSolve on PATH
"""
import math
import random
import subprocess

ELLIPSOIDS = [
    # tag, GeodSolve -e arguments
    ("wgs84", ["6378137", "1/298.257223563"]),
    ("intl1924", ["6378388", "1/297"]),
]


def fmt(x):
    return repr(round(x, 12))


def fmt_plain(x):
    """Like fmt, but without exponents (GeodSolve would read the e of 1e-09
    as east) and without negative zeros."""
    text = f"{round(x, 12) + 0.0:.12f}".rstrip("0")
    return text + "0" if text.endswith(".") else text


def central_angle(lat1, lon1, lat2, lon2):
    p1, p2, dl = math.radians(lat1), math.radians(lat2), math.radians(lon2 - lon1)
    c = math.sin(p1) * math.sin(p2) + math.cos(p1) * math.cos(p2) * math.cos(dl)
    return math.degrees(math.acos(max(-1.0, min(1.0, c))))


def inverse_pairs(rng):
    """(category, lat1, lon1, lat2, lon2) for every kind of line we check."""
    pairs = []
    # Short lines, 1 mm to about 1 m, anywhere including close to a pole.
    for i in range(20):
        lat = rng.uniform(-89.9, 89.9) if i < 16 else rng.choice([-1, 1]) * rng.uniform(89.99, 89.9999)
        lon = rng.uniform(-180, 180)
        d = 10 ** rng.uniform(-8, -5.1)
        az = rng.uniform(0, 2 * math.pi)
        pairs.append(("short", lat, lon, lat + d * math.cos(az), lon + d * math.sin(az)))
    # Medium lines, about 1 km to 2000 km.
    for _ in range(30):
        lat = rng.uniform(-75, 75)
        lon = rng.uniform(-180, 180)
        pairs.append(("medium", lat, lon, lat + rng.uniform(-15, 15), lon + rng.uniform(-15, 15)))
    # Long lines over 10 000 km, but well away from antipodal pairs.
    while sum(1 for p in pairs if p[0] == "long") < 22:
        lat1, lat2 = rng.uniform(-85, 85), rng.uniform(-85, 85)
        lon1 = rng.uniform(-180, 180)
        lon2 = lon1 + rng.uniform(-179, 179)
        if 95 < central_angle(lat1, lon1, lat2, lon2) < 165:
            pairs.append(("long", lat1, lon1, lat2, lon2))
    # Along the equator, eastward and westward, up to 170 degrees apart.
    for dl in [1e-7, 1e-4, 0.01, 1, 10, 45, 90, 120, 150, 170]:
        lon1 = rng.uniform(-180, 180)
        sign = rng.choice([-1, 1])
        pairs.append(("equator", 0.0, lon1, 0.0, lon1 + sign * dl))
    # Along a meridian, within one half meridian and across a pole.
    for lat1, lat2 in [(0, 90), (-90, 90), (-45, 45), (10, 10.00001), (60, -30), (-89, 89),
                       (33, 34), (-12.5, -80)]:
        pairs.append(("meridian", float(lat1), rng.uniform(-180, 180), float(lat2), None))
    for lat1, lat2 in [(80, 70), (-85, -10), (45, 60), (89.5, 89.5)]:
        lon = rng.uniform(-180, 0)
        pairs.append(("overpole", float(lat1), lon, float(lat2), lon + 180.0))
    # Across the antimeridian, with longitudes written on either side.
    for _ in range(6):
        lat1, lat2 = rng.uniform(-60, 60), rng.uniform(-60, 60)
        pairs.append(("antimeridian", lat1, rng.uniform(170, 180), lat2, rng.uniform(-180, -170)))
    # A pole as one end point.
    for lat1, lat2, lon2 in [(90, 20, 30), (-90, -45, -100), (51, 90, 7), (-3, -90, 120)]:
        pairs.append(("pole", float(lat1), rng.uniform(-180, 180), float(lat2), float(lon2)))
    return [(c, a, b, cc, b if d is None else d) for c, a, b, cc, d in pairs]


def antipodal_pairs(rng):
    """(category, lat1, lon1, lat2, lon2) near the antipode of the first point,
    where the inverse problem is hardest: opposite latitudes, the equator, the
    meridians through both poles, and random pairs close to the antipode."""
    pairs = []
    # Opposite latitudes, longitude differences 179 to 180 degrees (both signs
    # of the latitudes and of the longitude difference).
    for lat in [0, 0.5, 1, 2, 5, 10, 15, 20, 25, 30, 35, 40, 45, 50, 55, 60]:
        for k in range(21):
            dl = 179 + 0.05 * k
            sign = 1 if k % 2 else -1
            pairs.append(("opposite", sign * lat, 0.0, -sign * lat, dl if k % 3 else -dl))
        for dl in [179.99, 179.999, 179.9999]:
            pairs.append(("opposite", float(lat), 10.0, -float(lat), 10.0 + dl))
    # Nearly opposite latitudes.
    for lat in [0, 1, 10, 30, 45, 60, 80]:
        for d in [1e-9, 1e-6, 1e-3, 0.05, -0.2]:
            for dl in [179.2, 179.6, 179.9, 179.99, 180]:
                pairs.append(("nearly", float(lat), 0.0, -lat + d, dl))
    # Along and just off the equator beyond (1 - f) 180 degrees.
    for k in range(61):
        dl = 179.4 + 0.01 * k
        pairs.append(("equator", 0.0, -20.0, 0.0, -20.0 + dl if k % 2 else -20.0 - dl))
    for d in [1e-9, 1e-6, 1e-3]:
        for dl in [179.4, 179.5, 179.7, 179.9, 179.99]:
            pairs.append(("offequator", d, 0.0, -d, dl))
            pairs.append(("offequator", 0.0, 0.0, d, dl))
    # Meridians: exact antipodes (over a pole) and along one meridian.
    for lat1, lat2, dl in [(0, 0, 180), (10, -10, 180), (-30, 30, 180), (45, -44, 180),
                           (-60, 70, 180), (89, -89, 180), (30, -60, 0), (-45, 45, 0),
                           (1, -1, 180), (-0.5, 0.5, 180)]:
        pairs.append(("meridian", float(lat1), 5.0, float(lat2), 5.0 + dl))
    # Poles: as end points and close to them, near the antipode.
    for lat1, lat2, dl in [(90, -90, 0), (-90, 90, 30), (90, -90, 120), (90, -89.5, 100),
                           (-90, 89.99, -75), (89.9, -89.9, 179.5), (-89.99, 89.99, 170),
                           (89.5, -89.7, 90), (-89.9, 89.95, -179.9), (88, -88.1, 179.99)]:
        pairs.append(("pole", float(lat1), -40.0, float(lat2), -40.0 + dl))
    # Random pairs within two degrees of the antipode.
    for _ in range(120):
        lat1 = rng.uniform(-85, 85)
        r, t = 2 * rng.random() ** 2, rng.uniform(0, 2 * math.pi)
        lon1 = rng.uniform(-180, 180)
        pairs.append(("random", lat1, lon1, -lat1 + r * math.sin(t),
                      lon1 + 180 + r * math.cos(t) / math.cos(math.radians(lat1))))
    return pairs


def long_direct_cases(rng):
    """Long lines, where the longitude integral matters most: up to once round
    the Earth, from low and middle latitudes, in east-west directions."""
    cases = []
    for _ in range(80):
        lat1 = rng.uniform(-40, 40)
        az = rng.choice([-1, 1]) * rng.uniform(45, 135)
        cases.append((lat1, rng.uniform(-180, 180), az, rng.uniform(1.5e7, 4.0e7)))
    for _ in range(20):
        cases.append((rng.uniform(-89, 89), rng.uniform(-180, 180), rng.uniform(-180, 180),
                      rng.uniform(1e6, 4.0e7)))
    return cases


def direct_cases(rng):
    cases = []
    for _ in range(12):
        cases.append((rng.uniform(-85, 85), rng.uniform(-180, 180), rng.uniform(-180, 180),
                      10 ** rng.uniform(0, 7.2)))
    cases += [(0.0, 0.0, 0.0, 10001965.7293), (0.0, 10.0, 90.0, 1000000.0),
              (45.0, -120.0, 180.0, 5000000.0), (-30.0, 60.0, -90.0, 15000000.0),
              # From a pole, backwards, and on past the antipode.
              (90.0, 0.0, 180.0, 1000000.0), (-90.0, 30.0, 0.0, 5000000.0),
              (10.0, 20.0, 45.0, -2500000.0), (10.0, 20.0, 45.0, 30000000.0),
              (0.0, -170.0, -90.0, 2000000.0), (0.0, 170.0, 90.0, 2000000.0)]
    return cases


def geodsolve(args, lines):
    out = subprocess.run(["GeodSolve"] + args, input="\n".join(lines) + "\n",
                         capture_output=True, text=True, check=True).stdout
    return out.strip().split("\n")


def write_inverse(path, title, ell, pairs, number):
    """Inverse problems of (category, lat1, lon1, lat2, lon2) through GeodSolve."""
    cmd = ["-i", "-p", "10", "-e"] + ell
    lines = [" ".join(number(v) for v in p[1:]) for p in pairs]
    results = geodsolve(cmd, lines)
    with open(path, "w") as f:
        f.write(f"# {title}\n")
        f.write("# Made by make_geodesic_cases.py: each line's four inputs piped through\n")
        f.write(f"#   echo \"lat1 lon1 lat2 lon2\" | GeodSolve {' '.join(cmd)}\n")
        f.write("# (GeographicLib 2.1.2). azi2 is the forward azimuth at the second point.\n")
        f.write("# category lat1 lon1 lat2 lon2 azi1 azi2 s12\n")
        for p, line, r in zip(pairs, lines, results):
            f.write(f"{p[0]} {line} {r}\n")


def write_direct(path, title, ell, cases, number):
    """Direct problems of (lat1, lon1, azi1, s12) through GeodSolve."""
    cmd = ["-p", "10", "-e"] + ell
    lines = [" ".join(number(v) for v in c) for c in cases]
    results = geodsolve(cmd, lines)
    with open(path, "w") as f:
        f.write(f"# {title}\n")
        f.write("# Made by make_geodesic_cases.py: each line's four inputs piped through\n")
        f.write(f"#   echo \"lat1 lon1 azi1 s12\" | GeodSolve {' '.join(cmd)}\n")
        f.write("# (GeographicLib 2.1.2). lon2 is reduced to [-180, 180].\n")
        f.write("# lat1 lon1 azi1 s12 lat2 lon2 azi2\n")
        for line, r in zip(lines, results):
            f.write(f"{line} {r}\n")


def main():
    rng = random.Random(20240611)
    pairs = inverse_pairs(rng)
    direct = direct_cases(rng)
    for tag, ell in ELLIPSOIDS:
        figure = f"a = {ell[0]}, f = {ell[1]}"
        write_inverse(f"geodesic_inverse_{tag}.txt", f"Inverse geodesic problem on {figure}.",
                      ell, pairs, fmt)
        write_direct(f"geodesic_direct_{tag}.txt", f"Direct geodesic problem on {figure}.",
                     ell, direct, fmt)
    # Separate draws, so that the tables above stay as they are.
    rng = random.Random(20250301)
    antipodal = antipodal_pairs(rng)
    long_direct = long_direct_cases(rng)
    for tag, ell in ELLIPSOIDS:
        figure = f"a = {ell[0]}, f = {ell[1]}"
        write_inverse(f"geodesic_antipodal_{tag}.txt",
                      f"Inverse geodesic problem near the antipode, {figure}.", ell, antipodal,
                      fmt_plain)
        write_direct(f"geodesic_direct_long_{tag}.txt",
                     f"Direct geodesic problem, long lines, {figure}.", ell, long_direct,
                     fmt_plain)


if __name__ == "__main__":
    main()
