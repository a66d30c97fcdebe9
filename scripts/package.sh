#!/usr/bin/env bash
# Makes what people install, in out/. Names choose: debian, a .deb with libraries, headers and guides; windows, a .zip
# with the DLL and all it takes to use it. Without names: both.
set -euo pipefail
cd "$(dirname "$0")/.."

package_debian() {
  scripts/setup.sh package
  cmake --preset package >/dev/null
  cmake --build --preset package
  (cd build/package && cpack -G DEB -B "$OLDPWD/out")
  rm -rf out/_CPack_Packages
}

package_windows() {
  scripts/setup.sh windows
  cmake --preset windows >/dev/null
  cmake --build --preset windows --target morvl15
  (cd build/windows && cpack -G ZIP -B "$OLDPWD/out")
  rm -rf out/_CPack_Packages
}

[ $# -gt 0 ] || set -- debian windows
for name in "$@"; do
  case $name in
    debian) package_debian ;;
    windows) package_windows ;;
    *) echo "package.sh: no package named $name (debian, windows)" >&2; exit 2 ;;
  esac
done
