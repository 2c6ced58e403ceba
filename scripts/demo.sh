#!/usr/bin/env bash
# Installs what the build needs from Debian's packages, builds the library and
# the gxcart tool, and converts samples/points.txt from longitude/latitude to
# UTM zone 32 and back, printing each step. Run as root on a fresh machine; as
# another user it only says what to install.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake ninja-build g++ libboost-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" -ne 0 ]; then
    echo "Missing packages. Install them as root with:"
    echo "  apt-get install -y ${missing[*]}"
    exit 1
  fi
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}"
fi

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
