#!/usr/bin/env bash
# Takes the pictures of the dialogs in docs/printing.md: of the Windows library, under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh windows
cmake --preset windows >/dev/null
cmake --build build/windows --target dialog_pictures
folder=build/windows/pictures
mkdir -p $folder
scripts/wine.sh scripts/with_printer.sh wine build/windows/bin/dialog_pictures.exe $folder
for picture in "$folder"/*.ppm; do
  scripts/join_sheets.py 1 0 "docs/$(basename "$picture" .ppm).png" "$picture"
done
