#!/usr/bin/env bash
# Tries the packages as somebody else would: small programs are built against the installed library by CMake and by
# pkg-config, and against the .deb, which is then installed into a Debian that has nothing but what the package asks
# for. That Debian is made once, below ~/.cache/morvl15, as root.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh package
scripts/package.sh debian

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config LC_ALL=C  # nobody's profile, nobody's language
package=$(ls -t out/libmorvl15-dev_*.deb | head -n 1)
cache=${XDG_CACHE_HOME:-$HOME/.cache}/morvl15

# try_prefix NAME PREFIX: builds and runs the programs against what stands below a prefix.
try_prefix() {
  local configuration
  configuration=$(dirname "$(find "$2" -name morvl15.pc)")
  echo "$1: CMake"
  cmake -S tests/install -B "$work/$1" -DCMAKE_PREFIX_PATH="$2" >/dev/null
  cmake --build "$work/$1" >/dev/null
  "$work/$1/tiny"
  "$work/$1/tiny_static"
  echo "$1: pkg-config"
  local flags
  flags=$(PKG_CONFIG_PATH=$configuration PKG_CONFIG_ALLOW_SYSTEM_LIBS=1 PKG_CONFIG_ALLOW_SYSTEM_CFLAGS=1 \
    pkg-config --cflags --libs morvl15)
  # shellcheck disable=SC2086 # several words
  cc -std=c11 -Wall -Wextra -Werror tests/install/tiny.c -o "$work/$1/tiny_c" $flags
  LD_LIBRARY_PATH=$(dirname "$configuration") "$work/$1/tiny_c"
}

cmake --install build/package --prefix "$work/prefix" >/dev/null
try_prefix installed "$work/prefix"

dpkg-deb -x "$package" "$work/unpacked"
try_prefix package "$work/unpacked/usr"

# Names without versions; of alternatives the first.
needed=$(dpkg-deb -f "$package" Depends | sed 's/ *([^)]*)//g; s/ *|[^,]*//g; s/, */,/g')
clean=$cache/clean-$(printf %s "$needed" | sha256sum | cut -c 1-16)
if [ ! -d "$clean" ]; then
  [ "$(id -u)" -eq 0 ] || { echo "package_test.sh: a clean Debian is made as root" >&2; exit 1; }
  echo "making a Debian with $needed in $clean (once)"
  mkdir -p "$cache"
  rm -rf "$cache"/clean-*
  debootstrap --variant=minbase --include="$needed" bookworm "$clean.making" "$(scripts/package_source.sh)" \
    >"$cache/clean.log" 2>&1 || { tail -n 20 "$cache/clean.log" >&2; exit 1; }
  rm -f "$clean.making"/var/cache/apt/archives/*.deb
  mv "$clean.making" "$clean"
fi
echo "clean machine: install, use, remove"
cp -a "$clean" "$work/clean"
cp "$package" "$work/package/tiny_c" "$work/clean/tmp/"
chroot "$work/clean" /bin/sh -ec '
  dpkg -i /tmp/*.deb >/dev/null
  /tmp/tiny_c
  dpkg -r libmorvl15-dev >/dev/null
  ! /tmp/tiny_c 2>/dev/null'
echo "the packages serve"
