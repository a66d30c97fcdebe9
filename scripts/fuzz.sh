#!/usr/bin/env bash
# Runs a fuzzer, from its seeds and what earlier runs have found, and says how many inputs it has tried.
#   FUZZ_SECONDS=60 scripts/fuzz.sh build/fuzz/bin/date_text_fuzz
# A fresh clone tries the same inputs at every run; FUZZ_SEED=0 makes it try others.
set -euo pipefail
cd "$(dirname "$0")/.."

program=$1
name=$(basename "$program")
corpus=(build/fuzz/corpus/"$name")
mkdir -p "${corpus[0]}"
[ -d "fuzz/corpus/$name" ] && corpus+=("fuzz/corpus/$name")
if ! "$program" -seed="${FUZZ_SEED:-1}" -max_total_time="${FUZZ_SECONDS:-20}" -timeout=10 \
  -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="build/fuzz/$name-" "${corpus[@]}" >"build/fuzz/$name.log" 2>&1; then
  echo "$name: FAILED"
  tail -n 60 "build/fuzz/$name.log"
  exit 1
fi
echo "$name: $(sed -n 's/^stat::number_of_executed_units: */runs /p' "build/fuzz/$name.log")"
