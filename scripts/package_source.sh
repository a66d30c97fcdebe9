#!/usr/bin/env bash
# Prints where this machine gets its own Debian packages from.
set -euo pipefail

first_source() {
  local fields='$(RELEASE) $(LABEL) $(REPO_URI)' found
  found=$(apt-get indextargets --format "$fields" 'Created-By: Packages' |
    awk -v suite=bookworm '$1 == suite { print $NF; exit } $2 == "Debian" { other = other ? other : $NF } END { print other }' |
    head -n 1)
  case $found in
    mirror+file:*) found=$(awk 'NR == 1 { print $1 }' "${found#mirror+file:}") ;;
  esac
  echo "$found"
}

source=$(first_source)
[ -n "$source" ] || { apt-get update -qq; source=$(first_source); }
[ -n "$source" ] || { echo "apt names no source of Debian packages" >&2; exit 1; }
echo "$source"
