#!/bin/sh
# Regenerates grid_points.txt: PROJ's coordinates, in metres, of a few points
# over the area of use of each grid whose .prj texts lie in this folder. Run
# from this folder with PROJ's cct and projinfo; the output of the PROJ
# version used (9.1.1) is committed, so the tests never run PROJ.
#
# Each block of grid_points.txt starts with the cct command that made it, then
# the .prj files it checks in square brackets, then one line per point:
# longitude latitude easting northing. The PROJ definitions are those of
# `projinfo EPSG:<code> -o PROJ -q` without the CRS-only parts (+type=crs,
# +towgs84, +nadgrids, +wktext, +no_defs), which cct does not take. Where a
# block departs from the EPSG definition, the comment says why.
set -e
out=grid_points.txt

crs() {  # EPSG code
    projinfo "EPSG:$1" -o PROJ -q |
        sed -E 's/ \+type=crs//; s/ \+towgs84=[^ ]*//; s/ \+nadgrids=[^ ]*//; s/ \+wktext//; s/ \+no_defs//'
}

block() {  # decimals, "files", PROJ definition; points "lon lat" on stdin
    decimals=$1
    files=$2
    shift 2
    echo "# cct -d $decimals $*"
    echo "[$files]"
    while read -r lon lat; do
        echo "$lon $lat 0 0" | cct -d "$decimals" "$@" | awk -v lon="$lon" -v lat="$lat" '{print lon, lat, $1, $2}'
    done
    echo
}

{
echo "# PROJ's coordinates of points over each grid's area of use; see"
echo "# make_grid_points.sh for how they were made. Eastings and northings in"
echo "# metres (geographic systems: degrees)."
echo

block 6 "25832_esri.prj 25832_gdal.prj" $(crs 25832) <<EOF
9 50
6.5 47.5
11.5 55
7 62
10 70
EOF

block 6 "ed50_utm32_towgs84_gdal.prj" +proj=utm +zone=32 +ellps=intl +units=m <<EOF
9 50
6.5 47.5
11.5 55
7 62
EOF

echo "# South-orientated Transverse Mercator texts are read as the plain"
echo "# projection, so these references drop PROJ's +axis=wsu."
block 6 "2053_esri.prj 2053_gdal.prj" $(crs 2053 | sed 's/ +axis=wsu//') <<EOF
28.5 -25
29.5 -30
29 -33
30 -22.5
EOF

block 6 "22275_esri.prj 22275_gdal.prj" $(crs 22275 | sed 's/ +axis=wsu//') <<EOF
14.5 -22.9
14.4 -22.7
14.58 -23.1
EOF

block 6 "2154_esri.prj 2154_gdal.prj" $(crs 2154) <<EOF
2.35 48.85
-4.5 48.4
7.7 48.6
9.2 42.5
5.4 43.3
EOF

block 6 "31370_esri.prj 31370_gdal.prj" $(crs 31370) <<EOF
4.35 50.85
2.6 51.1
5.9 49.6
6.3 50.7
EOF

echo "# New York Long Island in US survey feet: the algorithm works in metres,"
echo "# so the reference is PROJ's definition with +units=m for +units=us-ft."
block 6 "2263_esri.prj 2263_gdal.prj" $(crs 2263 | sed 's/+units=us-ft/+units=m/') <<EOF
-74 40.7
-73 40.8
-72 41.1
-74.2 40.5
EOF

echo "# NTF (Paris) Lambert zone II: the texts give the Paris meridian as"
echo "# 2.33722917 degrees (EPSG's 2.5969213 grads), which PROJ's named +pm=paris"
echo "# rounds differently, so the reference names the meridian by that number."
block 6 "27572_esri.prj 27572_gdal.prj" $(crs 27572 | sed 's/+pm=paris/+pm=2.33722917/') <<EOF
2.35 48.85
-4.5 48.4
7.7 48.6
5.4 43.3
-1.5 43.5
EOF

block 6 "28992_esri.prj 28992_gdal.prj 7415_gdal.prj rdnew_towgs84_gdal.prj" $(crs 28992) <<EOF
4.9 52.37
3.5 51.4
6.9 53.2
5.7 50.8
EOF

block 6 "31700_esri.prj 31700_gdal.prj" $(crs 31700) <<EOF
26.1 44.43
21.2 45.75
28.6 44.2
23.6 47.7
EOF

block 6 "27200_esri.prj 27200_gdal.prj" $(crs 27200) <<EOF
174.76 -36.85
172.6 -43.5
168.3 -46.4
178 -38.7
EOF

block 6 "26931_esri.prj 26931_gdal.prj" $(crs 26931) <<EOF
-134.4 58.3
-131.6 55.3
-135.3 59.5
-139.7 59.5
EOF

block 6 "2056_esri.prj 2056_gdal.prj" $(crs 2056) <<EOF
7.44 46.95
6.15 46.2
8.54 47.37
9.85 46.5
8.95 46
EOF

echo "# RSO Borneo: GDAL writes EPSG's centre-based form (variant B) with a grid"
echo "# angle apart from the azimuth, which the reader takes for the rectified"
echo "# skew orthomorphic grid with its origin at the natural origin (variant A)."
echo "# The false origin is then counted from the natural origin, as PROJ's"
echo "# +no_uoff does: the grid lies (590476.875, 442857.656) m from EPSG's,"
echo "# that is one false origin more, the offset of the centre from the"
echo "# natural origin being the false origin itself on this grid."
block 6 "29873_gdal.prj" $(crs 29873 | sed 's/+proj=omerc/+proj=omerc +no_uoff/') <<EOF
116.07 5.98
110.35 1.55
118.1 5.85
114.95 4.9
EOF

block 6 "3395_esri.prj 3395_gdal.prj" $(crs 3395) <<EOF
0 0
-120 -60
45 30
170 80
EOF

echo "# The web Mercator, on the sphere of WGS 84's semi-major axis: ESRI's"
echo "# Mercator_Auxiliary_Sphere, GDAL's Mercator_1SP with the sphere in its PROJ4"
echo "# extension, GeoTools' EPSG method name, and an ellipsoidal Mercator whose"
echo "# system is named the pseudo-Mercator (read as PROJ reads it)."
block 6 "3857_esri.prj 3857_gdal.prj dialects/web_mercator_geotools.prj dialects/web_mercator_named.prj dialects/web_mercator_named_1sp.prj" $(crs 3857) <<EOF
0 0
-120 -60
45 30
170 80
EOF

block 6 "3994_esri.prj 3994_gdal.prj" $(crs 3994) <<EOF
160 -35
175 -41
179.5 -55
156 -28
EOF

block 6 "3031_esri.prj" $(crs 3031) <<EOF
0 -90
45 -70
-120 -80
170 -65
EOF

block 6 "3413_esri.prj" $(crs 3413) <<EOF
-45 90
-40 75
100 80
-150 65
EOF

block 6 "32661_esri.prj 32661_gdal.prj" $(crs 32661) <<EOF
0 90
-40 75
100 80
150 62
EOF

echo "# The east-north Krovak: ESRI's text by its axis scales (-1, 1) and plane"
echo "# rotation of 90 degrees, GDAL's by its AXIS elements (EAST, NORTH)."
block 6 "5514_esri.prj 5514_gdal.prj" $(crs 5514) <<EOF
14.42 50.09
17.1 48.15
21.26 48.72
12.5 50.2
EOF

echo "# The classic southing-westing Krovak, PROJ's +axis=swu: ESRI's text by"
echo "# its neutral axis scales and rotation, GDAL's by having no AXIS elements."
block 6 "5513_esri.prj 5513_gdal.prj" $(crs 5513) <<EOF
14.42 50.09
17.1 48.15
21.26 48.72
12.5 50.2
EOF

block 6 "5070_esri.prj 5070_gdal.prj" $(crs 5070) <<EOF
-96 23
-122.4 37.8
-74 40.7
-80.2 25.8
-104.9 39.7
EOF

block 6 "3577_esri.prj 3577_gdal.prj" $(crs 3577) <<EOF
151.2 -33.9
115.9 -31.95
130.8 -12.5
147.3 -42.9
EOF

block 6 "eqdc_esri.prj eqdc_gdal.prj" +proj=eqdc +lat_0=40 +lon_0=-96 +lat_1=20 +lat_2=60 +ellps=GRS80 +units=m <<EOF
-96 40
-122.4 37.8
-74 40.7
-150 61.2
-80.2 25.8
EOF

block 6 "3035_esri.prj 3035_gdal.prj" $(crs 3035) <<EOF
10 52
2.35 48.85
-9.1 38.7
24.9 60.2
-21.9 64.1
EOF

block 6 "3068_esri.prj 3068_gdal.prj" $(crs 3068) <<EOF
13.4 52.52
13.1 52.35
13.75 52.64
EOF

echo "# Trinidad grid in Clarke's feet: reference in metres (+units=m for"
echo "# +to_meter=0.3047972654)."
block 6 "2314_esri.prj 2314_gdal.prj" $(crs 2314 | sed 's/+to_meter=0.3047972654/+units=m/') <<EOF
-61.5 10.65
-61 10.2
-61.9 10.05
-60.9 10.8
EOF

echo "# Geographic systems: the grid is longitude east of the prime meridian and"
echo "# latitude, in degrees, whatever the angular unit of the text."
block 9 "4326_esri.prj 4326_gdal.prj" +proj=longlat +ellps=WGS84 <<EOF
10 50
-120 -30
EOF

block 9 "4807_esri.prj 4807_gdal.prj" +proj=longlat +ellps=clrk80ign +pm=2.33722917 <<EOF
2.33722917 48.8
-4.5 48.4
7.7 43.3
EOF

echo "# Dialects: texts written by hand in the spellings other writers use (see"
echo "# dialects/README.md); the references are the PROJ definitions they state."
block 6 "dialects/tm_blanks.prj" +proj=tmerc +lat_0=0 +lon_0=15 +k=1 +x_0=150000 +y_0=0 +ellps=GRS80 +units=m <<EOF
15 60
13.5 56
16.7 67
EOF

block 6 "dialects/albers_blanks.prj" +proj=aea +lat_0=0 +lon_0=132 +lat_1=-18 +lat_2=-36 +x_0=0 +y_0=0 +ellps=GRS80 +units=m <<EOF
132 -25
115 -32
150 -12
EOF

block 6 "dialects/lcc_blanks.prj" +proj=lcc +lat_0=46.5 +lon_0=3 +lat_1=49 +lat_2=44 +x_0=700000 +y_0=6600000 +ellps=GRS80 +units=m <<EOF
2.35 48.85
-4.5 48.4
7.7 43.7
EOF

block 6 "dialects/lcc_epsg_2sp.prj" +proj=lcc +lat_0=50.797815 +lon_0=4.35921583333333 +lat_1=49.8333333333333 +lat_2=51.1666666666667 +x_0=649328 +y_0=665262 +ellps=GRS80 +units=m <<EOF
4.35 50.85
2.6 51.1
6.3 49.6
EOF

block 6 "dialects/lcc_epsg_1sp.prj" +proj=lcc +lat_1=18 +lat_0=18 +lon_0=-77 +k_0=1 +x_0=750000 +y_0=650000 +ellps=WGS84 +units=m <<EOF
-76.8 18
-78.3 18.4
-76.2 17.7
EOF

block 6 "dialects/oblique_stereographic_epsg.prj" +proj=sterea +lat_0=52.1561605555556 +lon_0=5.38763888888889 +k=0.9999079 +x_0=155000 +y_0=463000 +ellps=bessel +units=m <<EOF
4.9 52.37
3.5 51.4
7 53.4
EOF

block 6 "dialects/polar_stereographic_a.prj" +proj=stere +lat_0=90 +lon_0=0 +k=0.994 +x_0=2000000 +y_0=2000000 +ellps=WGS84 +units=m <<EOF
0 90
-150 85
45 70
EOF

block 6 "dialects/polar_stereographic_b_south.prj" +proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=0 +x_0=0 +y_0=0 +ellps=WGS84 +units=m <<EOF
0 -90
120 -75
-60 -65
EOF

block 6 "dialects/polar_stereographic_b_north.prj" +proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +x_0=0 +y_0=0 +ellps=WGS84 +units=m <<EOF
-45 80
100 65
-170 75
EOF

block 6 "dialects/hotine_variant_a.prj" +proj=omerc +no_uoff +lat_0=4 +lonc=115 +alpha=53.3158204722222 +gamma=53.1301023611111 +k=0.99984 +x_0=0 +y_0=0 +ellps=GRS80 +units=m <<EOF
116.07 5.98
110.35 1.55
118.1 5.85
EOF

block 6 "dialects/hotine_variant_b.prj" +proj=omerc +lat_0=45.3091666666667 +lonc=-86 +alpha=337.25556 +gamma=337.25556 +k=0.9996 +x_0=2546731.496 +y_0=-4354009.816 +ellps=GRS80 +units=m <<EOF
-84.5 42.7
-88 47
-83 45
EOF

block 6 "dialects/laea_blanks.prj" +proj=laea +lat_0=52 +lon_0=10 +x_0=4321000 +y_0=3210000 +ellps=GRS80 +units=m <<EOF
10 52
-9 38.7
25 65
EOF

block 6 "dialects/cassini_epsg.prj" +proj=cass +lat_0=52.4186482777778 +lon_0=13.6272036666667 +x_0=40000 +y_0=10000 +ellps=bessel +units=m <<EOF
13.4 52.52
13.1 52.35
13.75 52.64
EOF

block 6 "dialects/equidistant_conic_blanks.prj" +proj=eqdc +lat_0=40 +lon_0=-96 +lat_1=20 +lat_2=60 +x_0=0 +y_0=0 +ellps=GRS80 +units=m <<EOF
-96 40
-120 35
-75 45
EOF

echo "# PROJ's Krovak is the east-north form; this text gives EPSG's azimuth."
block 6 "dialects/krovak_north.prj" +proj=krovak +lat_0=49.5 +lon_0=24.8333333333333 +alpha=30.2881397527778 +k=0.9999 +x_0=0 +y_0=0 +ellps=bessel +units=m <<EOF
14.42 50.09
17.1 48.15
21.26 48.72
EOF

block 6 "dialects/mercator_variant_a.prj" +proj=merc +lon_0=110 +k=0.997 +x_0=3900000 +y_0=900000 +ellps=bessel +units=m <<EOF
110 0
118 -4
127 2
EOF

block 6 "dialects/mercator_variant_b.prj" +proj=merc +lat_ts=-41 +lon_0=100 +x_0=0 +y_0=0 +ellps=WGS84 +units=m <<EOF
160 -35
175 -41
156 -28
EOF

echo "# A plain Mercator with a scale of 1 on the equator instead of a parallel."
block 6 "dialects/mercator_scale_one.prj" +proj=merc +lat_ts=0 +lon_0=0 +x_0=0 +y_0=0 +ellps=WGS84 +units=m <<EOF
0 0
-120 -60
45 30
EOF

echo "# Writers of blank-spelled and EPSG names leave out the parameters that"
echo "# equal their defaults: false easting, false northing and latitude of"
echo "# origin 0, scale factor 1."
block 6 "dialects/tm_blanks_defaults.prj" +proj=tmerc +lat_0=0 +lon_0=-73.5 +k=0.9999 +x_0=304800 +y_0=0 +ellps=GRS80 +units=m <<EOF
-73.5 45.5
-75 47
-72 61
EOF

block 6 "dialects/lcc_epsg_defaults.prj" +proj=lcc +lat_0=0 +lon_0=10.5 +lat_1=48 +lat_2=54 +x_0=0 +y_0=0 +ellps=WGS84 +units=m <<EOF
10.5 51
6 47.5
15 55
EOF

block 6 "dialects/mercator_variant_a_defaults.prj" +proj=merc +lon_0=0 +k=1 +x_0=0 +y_0=0 +ellps=WGS84 +units=m <<EOF
0 0
-120 -60
45 30
EOF
} > "$out"
