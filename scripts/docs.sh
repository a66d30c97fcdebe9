#!/usr/bin/env bash
# Makes the reference from the headers and the guides, in build/docs/html. A warning is a failure.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh docs
rm -rf build/docs
mkdir -p build/docs
if ! doxygen docs/doxygen/Doxyfile; then
  cat build/docs/warnings.txt >&2
  exit 1
fi
echo "build/docs/html/index.html"
