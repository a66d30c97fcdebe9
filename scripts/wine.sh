#!/usr/bin/env bash
# Runs a command where 32-bit Windows programs run: with Wine, a display that nobody sees, a language.
#
#   scripts/wine.sh [--language ja_JP] wine build/windows/bin/number_tests.exe --gtest_filter='NumRound*'
#   scripts/wine.sh --make        only sees to it that there is such a place
#
# The command starts in the top folder of the tree; name files from there. Without a language it is en_US.
# The machine's own Wine serves if it runs 32-bit programs. Otherwise a small 32-bit Debian is made once, which takes a
# minute and root's rights, and kept in the user's cache folder. Commands run inside it, in a space of mounts and
# processes of their own, so that nothing stays mounted or running however they end.
set -euo pipefail
cd "$(dirname "$0")/.."
PATH=$PATH:/usr/sbin # the print server's place

suite=bookworm
packages=wine32,wine,xvfb,xauth,cups,printer-driver-cups-pdf,cups-client,locales
cache=${XDG_CACHE_HOME:-$HOME/.cache}/morvl15
tree=$cache/wine-$suite-i386
state=$cache/wine-state # prefix and locales
inside=/mnt             # where the top folder and the state stand inside the tree

fail() {
  printf 'wine.sh: %s\n' "$@" >&2
  exit 1
}

# ---- inside: the machine itself or the 32-bit tree -------------------------------------------------------------------

# Locales are made where they are used, beside the prefix.
make_locale() {
  export LOCPATH=$1/locales
  [ -d "$LOCPATH/$2.UTF-8" ] && return
  mkdir -p "$LOCPATH"
  localedef --no-archive --inputfile "$2" --charmap UTF-8 "$LOCPATH/$2.UTF-8" || [ -d "$LOCPATH/$2.UTF-8" ]
}

make_prefix() {
  export WINEARCH=win32 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES='mscoree,mshtml='
  if [ ! -d "$1/prefix" ]; then
    rm -rf "$1/prefix.making"
    WINEPREFIX=$1/prefix.making wine wineboot --init && WINEPREFIX=$1/prefix.making wineserver --wait || return
    mv "$1/prefix.making" "$1/prefix"
  fi
  export WINEPREFIX=$1/prefix
  # No window manager is there: Wine would wait two seconds for it at each window that is hidden.
  grep -q 'X11 Driver' "$WINEPREFIX/user.reg" ||
    { wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f && wineserver --wait; }
}

run_inside() {
  local state=$1 language=$2
  shift 2
  make_locale "$state" "$language"
  exec env LC_ALL="$language.UTF-8" \
    xvfb-run --auto-servernum --server-args='-screen 0 1024x768x24 -nolisten local' \
    scripts/wine.sh --on-display "$state" "$@"
}

# The Wine server ends with the command: the next one may speak another language.
run_on_display() {
  local state=$1 result=0
  shift
  make_prefix "$state" >/dev/null 2>&1 || fail "no Wine prefix can be made"
  "$@" || result=$?
  wineserver --kill 2>/dev/null || true
  return $result
}

# ---- the 32-bit tree -------------------------------------------------------------------------------------------------

# Runs a command in a space of mounts and processes of its own, which ends with this script. A user who is not root has
# the right to mount in a space that has users of its own, too.
apart() {
  local space=(--mount --pid --fork --kill-child) result=0
  [ "$(id -u)" -eq 0 ] || space+=(--user --map-root-user)
  unshare "${space[@]}" -- "$@" 9>&- &
  local child=$!
  trap "kill -KILL $child" EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM
  wait $child || result=$?
  trap - EXIT INT TERM
  return $result
}

run_enter_tree() {
  mount -t proc proc "$tree/proc"
  mount --rbind /dev "$tree/dev"
  mount -t tmpfs tmpfs "$tree/tmp"
  mount -t tmpfs tmpfs "$tree$inside"
  mkdir "$tree$inside/work" "$tree$inside/state" "$tree$inside/home"
  mount --bind . "$tree$inside/work"
  mount --bind "$state" "$tree$inside/state"
  export HOME=$inside/home
  unset DISPLAY XAUTHORITY TMPDIR
  # The first process of the space must not be the one that starts the display: it would get no signal from it.
  chroot "$tree" /bin/bash -c "cd $inside/work && scripts/wine.sh --inside $inside/state \"\$@\"" wine.sh "$@"
}

make_tree() {
  [ -d "$tree" ] && return
  [ "$(id -u)" -eq 0 ] || fail "32-bit Wine is missing. One command makes a place for it:" \
    "  sudo XDG_CACHE_HOME='$(dirname "$cache")' $PWD/scripts/wine.sh --make"
  command -v debootstrap >/dev/null || scripts/setup.sh windows
  local source
  source=$(scripts/package_source.sh)
  echo "making a 32-bit Debian with Wine in $tree (once)"
  rm -rf "$tree.making"
  if ! apart debootstrap --arch=i386 --variant=minbase --include="$packages" "$suite" "$tree.making" "$source" \
    >"$cache/debootstrap.log" 2>&1; then
    tail -n 20 "$cache/debootstrap.log" >&2
    fail "debootstrap failed; the whole log is $cache/debootstrap.log"
  fi
  rm -f "$tree.making"/var/cache/apt/archives/*.deb
  mv "$tree.making" "$tree"
}

# ---- which of the two ------------------------------------------------------------------------------------------------

own_wine_runs() {
  command -v wine wineserver xvfb-run localedef cupsd lpadmin gs >/dev/null &&
    [ -f /usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd ] && (make_prefix "$cache/wine-own-state") >/dev/null 2>&1
}

# The steps of a run start this script again, each inside the one before.
language=en_US
case ${1:-} in
  --enter-tree | --inside | --on-display)
    step=${1#--}
    shift
    "run_${step//-/_}" "$@"
    exit
    ;;
  --language)
    language=$2
    shift 2
    ;;
esac
[ $# -gt 0 ] || fail "a command to run, or --make"

mkdir -p "$cache"
exec 9>"$cache/lock"
flock 9 # one at a time: a prefix has one profile
if own_wine_runs; then
  [ "$1" = --make ] || scripts/wine.sh --inside "$cache/wine-own-state" "$language" "$@" 9>&-
else
  make_tree
  mkdir -p "$state"
  [ "$1" = --make ] || apart scripts/wine.sh --enter-tree "$language" "$@"
fi
