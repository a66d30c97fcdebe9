#!/usr/bin/env bash
# Times Number and picture operations in the native build and in the 32-bit Windows build, in turns, and prints the best
# times in nanoseconds with their ratio.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh windows
for preset in release windows; do
  cmake --preset $preset -DMORVL15_BENCHMARKS=OFF >/dev/null
  cmake --build build/$preset --target host_timing >/dev/null
done

for _ in 1 2 3; do
  build/release/bin/host_timing | sed 's/^/native /'
  scripts/wine.sh wine build/windows/bin/host_timing.exe | tr -d '\r' | sed 's/^/windows /'
done | awk '
  !($2 in names) { names[$2]; order[++count] = $2 }
  !(($1, $2) in best) || $3 < best[$1, $2] { best[$1, $2] = $3 }
  END {
    printf "%-22s %8s %8s %6s\n", "operation", "native", "windows", "ratio"
    for (i = 1; i <= count; ++i) {
      name = order[i]
      printf "%-22s %8.1f %8.1f %6.2f\n", name, best["native", name], best["windows", name],
        best["windows", name] / best["native", name]
    }
  }'
