#!/usr/bin/env bash
# Installs the Debian packages that a build needs and the machine lacks. Without names: what the native build, its tests
# and examples need. Names add more: fuzz, windows, bench, check, package, docs.
set -euo pipefail

packages=(cmake ninja-build g++ pkg-config libgtest-dev locales libcairo2-dev libfontconfig-dev libfreetype-dev
  fonts-dejavu-core libcups2-dev cups-daemon poppler-utils python3)
for group in "$@"; do
  case $group in
    bench) packages+=(libbenchmark-dev libicu-dev libboost-dev) ;;
    fuzz) packages+=(clang libclang-rt-14-dev) ;;
    windows) packages+=(g++-mingw-w64-i686 googletest debootstrap) ;;
    package) packages+=(dpkg-dev debootstrap) ;;
    docs) packages+=(doxygen) ;;
    check) packages+=(clang-format clang-tidy) ;;
    *) echo "setup.sh: no group $group (bench, fuzz, windows, check, package, docs)" >&2; exit 2 ;;
  esac
done

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

install="apt-get install -y --no-install-recommends ${missing[*]}"
if [ "$(id -u)" -eq 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  $install
elif sudo -n true 2>/dev/null; then
  sudo apt-get update -qq
  sudo DEBIAN_FRONTEND=noninteractive $install
else
  echo "Some packages are missing. Install them, then start again:" >&2
  echo "  sudo $install" >&2
  exit 1
fi
