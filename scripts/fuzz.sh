#!/usr/bin/env bash
# Builds the libFuzzer programs of tests/fuzz with clang in build-fuzz and runs
# each of them for a while, two at a time, on a working copy of its seed corpus
# (the grown corpus stays in build-fuzz/corpus and is reused by the next run).
#
#   scripts/fuzz.sh [seconds-per-program] [program...]
#
# Default: 60 seconds for every program. Needs clang and its sanitiser and
# fuzzer runtimes (Debian: clang, libclang-rt-14-dev). Exits non-zero when a
# program finds a crash, a sanitiser report, a leak, a timeout or a memory
# blow-up, and prints the path of the input that reproduces it; run the program
# on that file to see the report again.
set -uo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
shift || true
build=${GXCART_FUZZ_BUILD_DIR:-build-fuzz}

if ! command -v clang++ >/dev/null; then
  echo "clang++ not found: install clang and libclang-rt-14-dev" >&2
  exit 2
fi

CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DGXCART_FUZZ=ON -DGXCART_BUILD_BENCH=OFF >"$build.configure.log" 2>&1 ||
  { cat "$build.configure.log"; exit 2; }
rm -f "$build.configure.log"
cmake --build "$build" -j2 --target fuzzers || exit 2

if [ $# -gt 0 ]; then
  programs=("$@")
else
  programs=()
  for source in tests/fuzz/*Fuzzer.cpp; do programs+=("$(basename "$source" .cpp)"); done
fi

# Longest input per program: a few times the largest real text of its kind.
max_len() {
  case "$1" in
    KeywordFileFuzzer) echo 8192 ;;
    *) echo 4096 ;;
  esac
}

# The library reads (and at unload may write) the user folder: keep it in the
# build tree, never in a real home.
export HOME="$PWD/$build/fuzz-home" XDG_DATA_HOME="$PWD/$build/fuzz-home/data"
mkdir -p "$HOME"
# Scratch files go to memory where there is a place for them: every keyword
# file written is flushed to the disk, which would slow each run to the disk's
# pace.
if [ -d /dev/shm ] && [ -w /dev/shm ]; then export TMPDIR=/dev/shm; fi
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=0}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}

results="$build/fuzz-results"
rm -rf "$results"
mkdir -p "$results"

run_one() {
  local name=$1
  local corpus="$build/corpus/$name" artifacts="$build/artifacts/$name/"
  mkdir -p "$corpus" "$artifacts"
  cp -n tests/fuzz/corpus/"$name"/* "$corpus"/ 2>/dev/null
  local dict=()
  [ -f "tests/fuzz/$name.dict" ] && dict=(-dict="tests/fuzz/$name.dict")
  "$build/bin/$name" "$corpus" "${dict[@]}" -max_total_time="$seconds" -max_len="$(max_len "$name")" \
    -timeout=10 -rss_limit_mb=2048 -artifact_prefix="$artifacts" -print_final_stats=1 \
    >"$results/$name.log" 2>&1
  echo $? >"$results/$name.status"
}

running=0
for name in "${programs[@]}"; do
  if [ ! -x "$build/bin/$name" ]; then
    echo "no fuzz program $name" >&2
    exit 2
  fi
  echo "fuzzing $name for ${seconds}s"
  run_one "$name" &
  running=$((running + 1))
  if [ "$running" -ge 2 ]; then
    wait -n
    running=$((running - 1))
  fi
done
wait

failed=0
for name in "${programs[@]}"; do
  log="$results/$name.log"
  status=$(cat "$results/$name.status" 2>/dev/null || echo 1)
  execs=$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*$')
  cov=$(grep -o 'cov: [0-9]*' "$log" | tail -1 | grep -o '[0-9]*$')
  if [ "$status" -eq 0 ]; then
    echo "ok     $name: ${execs:-?} runs, coverage ${cov:-?} edges"
  else
    failed=1
    echo "FAILED $name (exit $status), log $log"
    grep -E 'ERROR: |runtime error|SUMMARY' "$log" | head -5
    grep -o "Test unit written to .*" "$log" | sed 's/^Test unit written to /  reproducer: /'
  fi
done
exit "$failed"
