#!/usr/bin/env bash
# Installs what the build needs from Debian's packages, configures, builds and
# runs every test. Run as root on a fresh machine; as another user it only
# says what to install.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake ninja-build g++ libgtest-dev libbenchmark-dev libboost-dev locales)
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

# The number tests run under a locale whose decimal separator is a comma.
if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
  if [ "$(id -u)" -eq 0 ]; then
    localedef -i de_DE -f UTF-8 de_DE.UTF-8 || echo "note: could not generate de_DE.UTF-8"
  fi
fi

build=${GXCART_BUILD_DIR:-build}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build"
ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
