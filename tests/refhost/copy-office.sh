#!/bin/sh
# An office moved from a file to a server and back: every record comes
# through with its ID, so the catalogues read the same on the copy as on the
# original; a copy into a database that holds an office is refused.
#   copy-office.sh ORVEL-HOST STATE    (STATE: tests/pg/pg-server.sh's file)
set -eu
host=$1
server=$(head -n 1 "$2")
work=$(mktemp -d)
cleanup() {
  psql -q "$server" -c "DROP DATABASE IF EXISTS moved_$$" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT
psql -q "$server" -c "CREATE DATABASE moved_$$"
url=${server%/*}/moved_$$
printf 'list O0000100\nlist O00001001\nlist O0000200\nlist O00002001\nlist O0001605\nclick O000010020 0 C\nshow\nclick O00002002 0 C\nshow\nquit\n' >"$work/look.txt"
look() { "$host" --db "$1" --script "$work/look.txt" | tail -n +2; }

: >"$work/none.txt"
"$host" --db "$work/office.db" --script "$work/none.txt" >/dev/null
"$host" --copy-db "$work/office.db" "$url" | grep "^Nukopijuota įrašų: [0-9]"
"$host" --copy-db "$url" "$work/back.db" | grep "^Nukopijuota įrašų: [0-9]"
look "$work/office.db" >"$work/office.out"
for copy in "$url" "$work/back.db"; do
  look "$copy" >"$work/copy.out"
  if ! cmp -s "$work/office.out" "$work/copy.out"; then
    echo "the copy in $copy reads otherwise than the office:"
    diff "$work/office.out" "$work/copy.out" | head -20
    exit 1
  fi
done
for target in "$url" "$work/back.db"; do
  if "$host" --copy-db "$work/office.db" "$target" >"$work/again.out" 2>&1; then
    echo "a copy over the office in $target was not refused"
    exit 1
  fi
  grep -q "jau yra" "$work/again.out"
done
echo "the office reads the same on the server and back on a file"
