#!/usr/bin/env bash
# Sets up, builds and runs the tests. Without names: the release build. Names choose more: release, asan, tsan, fuzz,
# windows, bench (each benchmark once, for its own checks), package (what people install), docs (the reference), check
# (formatting, static analysis), or all of them.
set -euo pipefail
cd "$(dirname "$0")/.."

say() { printf '\n== %s\n' "$*"; }

build() {
  cmake --preset "$1" >/dev/null
  cmake --build --preset "$1"
}

run_tests() {
  say "tests, $1"
  build "$1"
  ctest --test-dir "build/$1" --output-on-failure -j "$(nproc)"
}

run_fuzzers() {
  say "fuzzers, ${FUZZ_SECONDS:=20} seconds each"
  build fuzz
  export FUZZ_SECONDS
  printf '%s\n' build/fuzz/bin/*_fuzz | xargs -P "$(nproc)" -n 1 scripts/fuzz.sh
}

# Suites named after a language run under it, all others under English.
languages=(Japanese=ja_JP Chinese=zh_CN ChineseTraditional=zh_TW Korean=ko_KR
  Arabic=ar_SA Hebrew=he_IL Farsi=fa_IR German=de_DE)

run_windows() {
  say "32-bit Windows: build"
  build windows
  ctest --test-dir build/windows --output-on-failure

  say "32-bit Windows: tests"
  local rest="-" pair programs
  for pair in "${languages[@]}"; do rest+="*${pair%=*}.*:"; done
  scripts/wine.sh scripts/with_printer.sh scripts/windows_tests.sh "$rest" build/windows/bin/*_tests.exe
  scripts/wine.sh wine build/windows/bin/c_header_test.exe
  for pair in "${languages[@]}"; do
    mapfile -t programs < <(grep -lE "^TEST(_F|_P)?\(\w+${pair%=*}, " tests/*/*_test.cpp |
      sed 's,^tests/\([^/]*\)/.*,build/windows/bin/\1_tests.exe,' | sort -u)
    [ ${#programs[@]} -eq 0 ] && continue
    say "32-bit Windows: tests, ${pair%=*}"
    scripts/wine.sh --language "${pair#*=}" scripts/windows_tests.sh "*${pair%=*}.*" "${programs[@]}"
  done
}

run_benchmarks() {
  say "benchmarks, one short run each"
  scripts/bench.sh --benchmark_min_time=0.001 >/dev/null
}

run_check() {
  say "format and static analysis"
  scripts/check.sh
}

names=("$@")
[ ${#names[@]} -eq 0 ] && names=(release)
[ "${names[*]}" = all ] && names=(check docs release bench asan tsan fuzz windows package)

for name in "${names[@]}"; do
  case $name in
    release) scripts/setup.sh; run_tests release ;;
    bench) run_benchmarks ;;
    asan | tsan) scripts/setup.sh; run_tests "$name" ;;
    fuzz) scripts/setup.sh fuzz; run_fuzzers ;;
    windows) scripts/setup.sh windows; run_windows ;;
    docs) say "reference"; scripts/docs.sh ;;
    package) say "packages"; scripts/package_test.sh ;;
    check) scripts/setup.sh check; run_check ;;
    *) echo "test.sh: no tests named $name (release, bench, asan, tsan, fuzz, windows, package, docs, check, all)" >&2; exit 2 ;;
  esac
done
say "all passed: ${names[*]}"
