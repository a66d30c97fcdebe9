#!/usr/bin/env bash
# Builds the benchmarks and runs them all, or one: bench.sh [ROOM] [options of Google Benchmark]. Figures are only worth
# something on an idle machine; bench/README.md holds the table of ratios.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh bench
cmake --preset release -DMORVL15_BENCHMARKS=ON >/dev/null
cmake --build --preset release

programs=(build/release/bin/*_bench)
if [ $# -gt 0 ] && [ -x "build/release/bin/$1_bench" ]; then
  programs=("build/release/bin/$1_bench")
  shift
fi
for program in "${programs[@]}"; do "$program" "$@"; done
