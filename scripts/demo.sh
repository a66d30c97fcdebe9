#!/usr/bin/env bash
# Sets up, builds, and shows the main example on real input: a ledger, read in one country's convention and shown in
# three.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset release -DMORVL15_TESTS=OFF >/dev/null
cmake --build --preset release --target statement
echo
build/release/bin/statement "${1:-examples/statement/ledger.csv}"
