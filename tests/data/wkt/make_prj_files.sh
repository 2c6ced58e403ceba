#!/bin/sh
# Regenerates the .prj texts of the WKT reader tests with PROJ's projinfo.
# Each file holds one line, as GIS software writes a .prj file: the ESRI
# flavour (<code>_esri.prj) and the GDAL flavour (<code>_gdal.prj) of a real
# national grid. Run from this folder; the output of the PROJ version used is
# committed, so the tests never run projinfo.
set -e

write() {  # file, projinfo arguments...
    out=$1
    shift
    projinfo "$@" --single-line -q | sed -n 1p > "$out"
}

for code in 25832 2154 31370 27572 31700 28992 27200 26931 29873 2056 3395 3994 \
            3031 3413 32661 5513 5514 5070 3577 3035 3068 2314 2263 2053 22275 \
            31300 3857 4326 4807; do
    write "${code}_esri.prj" "EPSG:$code" -o WKT1_ESRI
    write "${code}_gdal.prj" "EPSG:$code" -o WKT1_GDAL
done

# Compound system: RD New with NAP heights.
write 7415_gdal.prj EPSG:7415 -o WKT1_GDAL

# Equidistant conic has no EPSG grid; a PROJ definition stands for one.
EQDC="+proj=eqdc +lat_0=40 +lon_0=-96 +lat_1=20 +lat_2=60 +x_0=0 +y_0=0 +ellps=GRS80 +units=m +no_defs +type=crs"
write eqdc_esri.prj "$EQDC" -o WKT1_ESRI
write eqdc_gdal.prj "$EQDC" -o WKT1_GDAL

# Datum shifts to WGS 84 written as TOWGS84: seven and three parameters.
write rdnew_towgs84_gdal.prj "+proj=sterea +lat_0=52.15616055555555 +lon_0=5.38763888888889 +k=0.9999079 +x_0=155000 +y_0=463000 +ellps=bessel +towgs84=565.417,50.3319,465.552,-0.398957,0.343988,-1.8774,4.0725 +units=m +no_defs +type=crs" -o WKT1_GDAL
write ed50_utm32_towgs84_gdal.prj "+proj=utm +zone=32 +ellps=intl +towgs84=-87,-98,-121 +units=m +no_defs +type=crs" -o WKT1_GDAL
