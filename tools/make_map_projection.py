#!/usr/bin/env python3
"""Makes data/map_projection.zpf, the catalogue of widely used national and
regional grids, from a curated list of EPSG (and a few ESRI) codes.

The parameters come from PROJ's database, so every number is the dataset's
own; the list below only chooses the systems, their catalogue branch and,
where the usual name differs from the dataset's, the name shown to users.
Run from anywhere:

    python3 tools/make_map_projection.py [--db /usr/share/proj/proj.db] [--check-only]
"""

import argparse
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import gxcatalogue as gx  # noqa: E402

# (branch, [(authority, code, name or None), ...]) in catalogue order.
CURATED = [
    ('Europe / ETRS89', [
        ('EPSG', 3035, None),   # Lambert azimuthal equal area
        ('EPSG', 3034, None),   # Lambert conic, two parallels
        ('EPSG', 25831, None),
        ('EPSG', 25832, None),
        ('EPSG', 25833, None),
        ('EPSG', 3067, None),
        ('EPSG', 3006, None),
        ('EPSG', 3763, None),
        ('EPSG', 3812, None),
        ('EPSG', 2180, None),
        ('EPSG', 3059, None),
        ('EPSG', 3346, None),
        ('EPSG', 3301, None),
        ('EPSG', 3794, None),
        ('EPSG', 3765, None),
        ('EPSG', 7801, None),
        ('EPSG', 2100, None),
        ('EPSG', 5325, None),
    ]),
    ('Europe / ED50', [
        ('EPSG', 23031, None),
        ('EPSG', 23032, None),
        ('ESRI', 102031, 'Europe Equidistant Conic'),  # equidistant conic
    ]),
    ('France', [
        ('EPSG', 2154, None),
        ('EPSG', 3946, None),
    ]),
    ('Germany', [
        ('EPSG', 31466, None),
        ('EPSG', 31467, None),
        ('EPSG', 31468, None),
        ('EPSG', 3068, None),   # Cassini-Soldner
    ]),
    ('United Kingdom', [
        ('EPSG', 27700, 'OSGB 1936 / British National Grid'),
    ]),
    ('Ireland', [
        ('EPSG', 29903, None),
        ('EPSG', 2157, None),
    ]),
    ('Netherlands and Belgium', [
        ('EPSG', 28992, None),  # oblique stereographic
        ('EPSG', 31370, None),
    ]),
    ('Switzerland', [
        ('EPSG', 2056, None),   # oblique Mercator, false origin at the centre
        ('EPSG', 21781, None),
    ]),
    ('Italy', [
        ('EPSG', 3003, None),
        ('EPSG', 3004, None),
        ('EPSG', 6875, None),
    ]),
    ('Central and Eastern Europe', [
        ('EPSG', 5514, None),   # Krovak, easting/northing
        ('EPSG', 5513, None),   # Krovak, southing/westing
        ('EPSG', 23700, None),
        ('EPSG', 31287, None),
        ('EPSG', 31256, None),
        ('EPSG', 3844, None),
        ('EPSG', 3388, None),   # Mercator, standard parallel
    ]),
    ('Australia / GDA2020', [
        ('EPSG', 7855, None),
        ('EPSG', 7856, None),
        ('EPSG', 9473, None),   # Albers
        ('EPSG', 7845, None),
    ]),
    ('Australia / GDA94', [
        ('EPSG', 28355, None),
        ('EPSG', 28356, None),
        ('EPSG', 3577, None),
        ('EPSG', 3112, None),
    ]),
    ('Australia / AGD66', [
        ('EPSG', 20255, None),
    ]),
    ('New Zealand', [
        ('EPSG', 2193, None),
        ('EPSG', 27200, None),  # New Zealand map grid
    ]),
    ('North America', [
        ('EPSG', 5070, None),
        ('EPSG', 3338, None),
        ('EPSG', 3005, None),
        ('EPSG', 3347, None),
        ('EPSG', 32198, None),
        ('EPSG', 2953, None),
        ('EPSG', 2954, None),
        ('EPSG', 3078, None),   # Hotine oblique Mercator, natural origin
        ('ESRI', 102005, 'USA Contiguous Equidistant Conic'),
    ]),
    ('South America', [
        ('EPSG', 5641, None),
        ('EPSG', 3116, None),
    ]),
    ('Southeast Asia', [
        ('EPSG', 3375, None),   # rectified skew orthomorphic
        ('EPSG', 3376, None),
        ('EPSG', 3168, None),
        ('EPSG', 3380, None),   # Cassini-Soldner
        ('EPSG', 3414, None),
        ('EPSG', 3002, None),   # Mercator, scale factor
    ]),
    ('East Asia', [
        ('EPSG', 4547, None),
        ('EPSG', 2326, None),
        ('EPSG', 3826, None),
        ('EPSG', 6677, None),
        ('EPSG', 5186, None),
    ]),
    ('South Asia', [
        ('EPSG', 24375, None),  # Lambert conic, one parallel
    ]),
    ('Middle East', [
        ('EPSG', 2039, None),
    ]),
    ('Africa', [
        ('EPSG', 26191, None),
        ('EPSG', 30491, None),
        ('EPSG', 22391, None),
        ('EPSG', 22992, None),
        ('EPSG', 21037, None),
        ('EPSG', 26331, None),
    ]),
    ('World and polar regions', [
        ('EPSG', 3395, None),
        ('EPSG', 3994, None),
        ('EPSG', 5041, None),   # polar stereographic, scale at the pole
        ('EPSG', 5042, None),
        ('EPSG', 3995, None),   # polar stereographic, standard parallel
        ('EPSG', 3413, None),
        ('EPSG', 3031, None),
        ('EPSG', 3976, None),
    ]),
]

# Rotated-pole grids have no EPSG code: the definition is written here and
# checked against PROJ's general oblique transformation with the same pole.
# EURO-CORDEX: grid north pole at 162 W, 39.25 N, so its south pole lies at
# 18 E, 39.25 S; the model sphere has a radius of 6371229 m.
ROTATED = [
    ('Climate model grids', 'EURO-CORDEX rotated pole grid', 18.0, -39.25, 0.0,
     'PROJ: +proj=ob_tran +o_proj=longlat +o_lon_p=0 +o_lat_p=39.25 +lon_0=18 '
     '+R=6371229 | area: -10,30,40,70'),
]

HEADER = """\
Widely used national and regional grids, grouped by region or datum.

Generated by tools/make_map_projection.py from the EPSG dataset {version}
in PROJ's database (and two ESRI equidistant conics from the same database);
do not edit by hand, change the list in the script and run it again. Angles
that a definition gives in degrees, minutes and seconds keep that form (_dms);
scales that are a reduction 1:N are written as Scale_Reduction. The comment
above each section names the system it was made from; tools/check_catalogue.py
compares every section with PROJ through that reference.
"""


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--db', default=gx.DEFAULT_DB)
    parser.add_argument('--out', default=os.path.join(gx.REPO_ROOT, 'data', 'map_projection.zpf'))
    parser.add_argument('--check-only', action='store_true',
                        help='report only; leave the data file as it is')
    args = parser.parse_args()

    db = gx.connect(args.db)
    ellipsoids = gx.read_catalogue_ellipsoids()
    factors = gx.length_factors(db)
    entries, skipped, names = [], [], set()
    for branch, systems in CURATED:
        for auth, code, name in systems:
            try:
                system = gx.load(db, auth, code)
                if system.deprecated:
                    raise gx.Skip('deprecated in the dataset')
                section = gx.to_section(system, branch, ellipsoids, factors, name)
            except gx.Skip as why:
                skipped.append(('%s:%s' % (auth, code), str(why)))
                continue
            entries.append(('%s %s' % (system.tag, system.name), section))
    for branch, name, lon, lat, rotation, tag in ROTATED:
        section = gx.Section('ROTATED_LONGITUDE_LATITUDE_PROJECTION', name, branch, 'XY')
        section.number('Longitude_of_South_Pole', lon)
        section.number('Latitude_of_South_Pole', lat)
        section.number('Angle_of_Rotation', rotation)
        entries.append((tag, section))

    for _, section in entries:
        if section.name in names:
            sys.exit('duplicate name %s' % section.name)
        names.add(section.name)

    text = gx.file_text(HEADER.format(version=gx.dataset_version(db)).splitlines(), entries)
    if not args.check_only:
        with open(args.out, 'w', encoding='utf-8') as f:
            f.write(text)
    kinds = {}
    for _, section in entries:
        kinds[section.section_name] = kinds.get(section.section_name, 0) + 1
    print('map_projection.zpf: %d systems written, %d skipped' % (len(entries), len(skipped)))
    for kind in sorted(kinds):
        print('  %-42s %d' % (kind, kinds[kind]))
    for tag, why in skipped:
        print('  skipped %s: %s' % (tag, why))


if __name__ == '__main__':
    main()
