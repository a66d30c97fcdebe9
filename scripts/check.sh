#!/usr/bin/env bash
# Formatting and static analysis, kept at zero findings. With --fix the files are formatted instead.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files --cached --others --exclude-standard '*.cpp' '*.c' '*.h')
if [ "${1:-}" = --fix ]; then
  clang-format -i "${sources[@]}"
  exit 0
fi
clang-format --dry-run --Werror "${sources[@]}"

cmake --preset release >/dev/null
git ls-files --cached --others --exclude-standard 'src/*.cpp' | xargs -P "$(nproc)" -n 4 clang-tidy -p build/release --quiet
