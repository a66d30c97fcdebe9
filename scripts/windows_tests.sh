#!/usr/bin/env bash
# Runs test programs under Wine, all of them, and says at the end which failed. Started by scripts/wine.sh.
#   windows_tests.sh FILTER PROGRAM...
set -euo pipefail

filter=$1
shift
failed=()
for program in "$@"; do
  name=$(basename "$program" .exe)
  echo "$name"
  log=${program%.exe}.log
  if ! wine "$program" --gtest_brief=1 --gtest_filter="$filter" | tr -d '\r' | tee "$log" ||
    ! grep -q '^\[  PASSED  \] [1-9]' "$log"; then
    failed+=("$name")
  fi
done
[ ${#failed[@]} -eq 0 ] || { echo "failed: ${failed[*]}" >&2; exit 1; }
