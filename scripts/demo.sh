#!/usr/bin/env bash
# Installs what the build needs from Debian's packages, builds the library and
# the gxcart tool, and converts samples/points.txt from longitude/latitude to
# UTM zone 32 and back, printing each step. Run as root on a fresh machine; as
# another user it only says what to install.
set -euo pipefail
cd "$(dirname "$0")/.."

source scripts/packages.sh
gxcart_require_packages cmake ninja-build g++ libboost-dev

# A build of its own without tests and benchmarks, so it needs neither
# GoogleTest nor Google Benchmark and leaves the test build alone.
build=${GXCART_DEMO_BUILD_DIR:-build-demo}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DGXCART_BUILD_TESTS=OFF -DGXCART_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" --target gxcart_cli
gxcart="$build/bin/gxcart"

echo
echo "== samples/points.txt: longitude latitude (degrees, WGS 84)"
grep -v '^#' samples/points.txt
echo
echo "== gxcart convert --from LONG/LAT --to UTM-32 samples/points.txt"
"$gxcart" convert --from LONG/LAT --to UTM-32 samples/points.txt | tee "$build/points-utm32.txt"
echo
echo "== and back: gxcart convert --from LONG/LAT --to UTM-32 --inverse"
"$gxcart" convert --from LONG/LAT --to UTM-32 --inverse "$build/points-utm32.txt"
