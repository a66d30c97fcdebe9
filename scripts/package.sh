#!/usr/bin/env bash
# Makes what people install, in out/. Names choose: windows, a .zip with the DLL and all it takes to use it.
set -euo pipefail
cd "$(dirname "$0")/.."

package_windows() {
  scripts/setup.sh windows
  cmake --preset windows >/dev/null
  cmake --build --preset windows --target morvl15
  (cd build/windows && cpack -G ZIP -B "$OLDPWD/out")
  rm -rf out/_CPack_Packages
}

[ $# -gt 0 ] || set -- windows
for name in "$@"; do
  case $name in
    windows) package_windows ;;
    *) echo "package.sh: no package named $name (windows)" >&2; exit 2 ;;
  esac
done
