#!/usr/bin/env bash
# Builds the examples that show something, and writes what they show into docs: the gallery with the poster's sheets, and
# the pictures of the front page. To be run, and looked at, when one of them has changed.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release --target gallery poster statement

programs=$PWD/build/release/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C LANG=C XDG_CONFIG_HOME=$work # nothing of this machine's settings

across=3
"$programs/poster" --pdf "$work/poster.pdf" >/dev/null
"$programs/statement" --pdf "$work/statement.pdf" examples/statement/ledger.csv

# Pages of a PDF in the work folder as pictures of a width, NAME-1.ppm and so on there.
draw() {
  pdftoppm -scale-to-x "$3" -scale-to-y -1 "$work/$1.pdf" "$work/$2"
}

rm -rf docs/sheets
mkdir docs/sheets
draw poster sheet 440 # twice as fine as they are shown
for sheet in "$work"/sheet-*.ppm; do
  scripts/join_sheets.py 1 0 "docs/sheets/$(basename "$sheet" .ppm).png" "$sheet"
done
(cd docs && "$programs/gallery" --across $across sheets/*.png >gallery.html)

draw poster small 260
scripts/join_sheets.py $across 6 docs/poster.png "$work"/small-*.ppm
draw statement page 780
scripts/join_sheets.py 1 0 docs/statement.png "$work/page-1.ppm"
ls -l docs/gallery.html docs/sheets docs/poster.png docs/statement.png
