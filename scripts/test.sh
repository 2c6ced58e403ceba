#!/usr/bin/env bash
# Installs what the build needs from Debian's packages, configures, builds and
# runs every test:
#   1. the test suite (RelWithDebInfo, folder build), with the C, tool,
#      Python and installed-package tests, then the include-cycle guard
#      (tools/include_cycles.py) and the format check (scripts/format-check.sh);
#   2. the same suite under AddressSanitizer and UndefinedBehaviorSanitizer
#      (scripts/sanitize.sh, folder build-asan);
#   3. the concurrency test under ThreadSanitizer (scripts/tsan.sh);
#   4. every fuzz target for a bounded time (scripts/fuzz.sh).
# Run as root on a fresh machine; as another user it only says what to
# install. GXCART_QUICK=1 runs step 1 only.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

# One install for every step: g++ and GoogleTest for the suites, clang with
# its runtime for the fuzzers, Debian's Python with pytest and numpy for the
# Python package, a locale whose decimal separator is a comma, clang-format for
# the format check.
gxcart_require_packages cmake ninja-build g++ libgtest-dev libbenchmark-dev libboost-dev \
  locales clang clang-format libclang-rt-14-dev python3 python3-pytest python3-numpy

if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
  if [ "$(id -u)" -eq 0 ]; then
    localedef -i de_DE -f UTF-8 de_DE.UTF-8 || echo "note: could not generate de_DE.UTF-8"
  fi
fi

step() { printf '\n=== %s (%s)\n' "$1" "$(date +%T)"; }

step "test suite"
build=${GXCART_BUILD_DIR:-build}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build"
ctest --test-dir "$build" --output-on-failure -j"$(nproc)"

step "include cycles and format"
python3 tools/include_cycles.py src
./scripts/format-check.sh

[ "${GXCART_QUICK:-0}" = 1 ] && exit 0

step "address and undefined-behaviour sanitizers"
./scripts/sanitize.sh
step "thread sanitizer"
./scripts/tsan.sh
step "fuzzing"
./scripts/fuzz.sh "${GXCART_FUZZ_SECONDS:-60}"
step "done"
