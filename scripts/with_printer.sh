#!/usr/bin/env bash
# Runs a command with a printer of its own: a print server on a socket in a new folder, with one queue, "Paper", which is
# the default one. What is printed there becomes a PDF file, each time the same one, whose name stands in MORVL15_PRINTED.
# The server ends with the command.
#
#   scripts/wine.sh scripts/with_printer.sh wine build/windows/bin/print_tests.exe
set -euo pipefail

# As root the server gives root's rights up before it prints. Where root is the only user, as in a space that an ordinary
# user has made, it can't.
read -r _ _ users </proc/self/uid_map
if [ "$users" -eq 1 ]; then
  echo "with_printer.sh: no print server without another user than root; what prints will fail" >&2
  exec "$@"
fi

folder=$(mktemp -d)
server=
end() {
  if [ -n "$server" ]; then
    kill "$server" 2>/dev/null || true
    wait "$server" 2>/dev/null || true
  fi
  rm -rf "$folder"
}
trap end EXIT
mkdir "$folder"/{root,cache,spool,state,tmp,log,filter,out}
chmod 711 "$folder"
chmod 1777 "$folder"/{tmp,out}
export MORVL15_PRINTED=$folder/out/printed.pdf

configuration=$(dirname "$0")/../tests/support/print_server
for file in cupsd.conf cups-files.conf; do
  sed "s,@,$folder,g" "$configuration/$file" >"$folder/$file"
done

# The papers of the PDF printer that the system brings, but its file comes from a filter: its own way of making it is
# for root alone, and for one folder a user.
printf '#!/bin/sh\nexec gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pdfwrite -dCompatibilityLevel=1.4 -sOutputFile=- "${6:--}"\n' \
  >"$folder/filter/topdf"
chmod 755 "$folder/filter" "$folder/filter/topdf"
sed "s,^\*PCFileName.*,&\n*cupsFilter2: \"application/postscript application/pdf 0 $folder/filter/topdf\"," \
  /usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd >"$folder/paper.ppd"

PATH=$PATH:/usr/sbin
cupsd -f -c "$folder/cupsd.conf" -s "$folder/cups-files.conf" &
server=$!
export CUPS_SERVER=$folder/socket
for _ in $(seq 100); do
  [ -S "$CUPS_SERVER" ] && break
  sleep 0.05
done
lpadmin -p Paper -E -v "file://$MORVL15_PRINTED" -P "$folder/paper.ppd" 2>/dev/null
lpadmin -d Paper
result=0
"$@" || result=$?
[ $result -eq 0 ] || cat "$folder/log/error" 2>/dev/null >&2 || true
exit $result
