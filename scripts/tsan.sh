#!/usr/bin/env bash
# Builds the library and the concurrency tests with ThreadSanitizer in its own
# folder (build-tsan, or $GXCART_TSAN_BUILD_DIR) and runs them. Any race
# report fails the run: halt_on_error stops the program at the first one and
# the exit code is checked as well as the output.
set -euo pipefail
cd "$(dirname "$0")/.."

build=${GXCART_TSAN_BUILD_DIR:-build-tsan}
targets=(test_concurrency_ThreadSafetyTest test_concurrency_DeferredCatalogueTest)
jobs=${GXCART_JOBS:-$(nproc)}

# -O1 with line tables only: a quicker build than the debug flavour, and
# reports still name the file and line of both accesses.
cmake -S . -B "$build" -G Ninja -DGXCART_TSAN=ON -DGXCART_SANITIZE=OFF \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -g1 -DNDEBUG" \
  -DCMAKE_C_FLAGS_RELWITHDEBINFO="-O1 -g1 -DNDEBUG" -DGXCART_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j"$jobs" --target gxcart "${targets[@]}"

# Each test program points HOME at the build tree's test home, as ctest does,
# so the library reads and writes no real user's files. Address-space
# randomisation of newer kernels can defeat TSan's memory layout; setarch
# turns it off when it is available.
for target in "${targets[@]}"; do
  log="$build/tsan-report-$target.txt"
  run=("$build/bin/$target")
  if command -v setarch >/dev/null 2>&1 && setarch "$(uname -m)" -R true 2>/dev/null; then
    run=(setarch "$(uname -m)" -R "${run[@]}")
  fi
  status=0
  HOME="$PWD/$build/test-home" XDG_DATA_HOME="$PWD/$build/test-home/data" \
    TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 ${TSAN_OPTIONS:-}" \
    "${run[@]}" >"$log" 2>&1 || status=$?
  cat "$log"
  if [ "$status" -ne 0 ] || grep -q 'WARNING: ThreadSanitizer' "$log"; then
    echo "tsan: FAILED in $target (exit status $status; report in $log)" >&2
    exit 1
  fi
done
echo "tsan: no data race reported"
