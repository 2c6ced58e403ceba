#!/usr/bin/env bash
# Checks that every tracked C and C++ file is formatted by the project's
# .clang-format; prints the files that are not and fails. Format a file with
# `clang-format -i FILE`.
set -euo pipefail
cd "$(dirname "$0")/.."
formatter=${CLANG_FORMAT:-clang-format}
command -v "$formatter" >/dev/null || { echo "format check: $formatter not found"; exit 1; }
status=0
report=$(git ls-files -z '*.cpp' '*.h' '*.c' |
  xargs -0 "$formatter" --style=file --dry-run --Werror 2>&1) || status=$?
mapfile -t unformatted < <(printf '%s\n' "$report" |
  sed -n 's/^\(.*\):[0-9]*:[0-9]*: error: code should be clang-formatted.*/\1/p' | sort -u)
if [ ${#unformatted[@]} -eq 0 ] && [ "$status" -ne 0 ]; then
  printf '%s\n' "$report"
  echo "format check: $formatter failed"
  exit 1
fi
if [ ${#unformatted[@]} -ne 0 ]; then
  printf 'not formatted: %s\n' "${unformatted[@]}"
  echo "format check: ${#unformatted[@]} file(s) not formatted (clang-format -i FILE)"
  exit 1
fi
echo "format check: every C and C++ file formatted"
