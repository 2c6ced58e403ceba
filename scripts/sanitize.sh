#!/usr/bin/env bash
# Builds the whole test suite with AddressSanitizer and
# UndefinedBehaviorSanitizer (float-cast-overflow included, which GCC leaves
# out of "undefined") in its own folder and runs it. Any report stops
# the test that made it (the first error aborts the program), so the run fails.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
gxcart_require_packages cmake ninja-build g++ libgtest-dev libboost-dev

build=${GXCART_ASAN_BUILD_DIR:-build-asan}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DGXCART_SANITIZE=ON \
  -DGXCART_BUILD_BENCH=OFF >/dev/null
cmake --build "$build"
# Leak checking stays on; the first report aborts the test program.
export ASAN_OPTIONS=${ASAN_OPTIONS:-abort_on_error=1:detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
