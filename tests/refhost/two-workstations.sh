#!/bin/sh
# Two bookkeepers' workstations, two orvel-host processes on one database
# file. Workstation A opens a record's card; B opens the same record, changes
# one field and writes; A then changes another field and writes. A's write
# must be refused with its reason and the database keep B's change. The
# bank, firm and goods cards read the record again at once (B's change
# shown, A's edit gone); the reference-book card keeps A's edit on the card
# until A cancels it, which reads the record again.
#   two-workstations.sh ORVEL-HOST            on a new SQLite file
#   two-workstations.sh ORVEL-HOST STATE      on a new database of the
#                                             PostgreSQL server that
#                                             tests/pg/pg-server.sh started
set -eu
host=$1
work=$(mktemp -d)
a=
server=
cleanup() {
  [ -n "$a" ] && kill "$a" 2>/dev/null
  [ -n "$server" ] && psql -q "$server" -c "DROP DATABASE IF EXISTS office_$$" 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT
db=$work/office.db
if [ $# -gt 1 ]; then
  server=$(head -n 1 "$2")
  psql -q "$server" -c "CREATE DATABASE office_$$"
  db=${server%/*}/office_$$
fi
: >"$work/none.txt"
"$host" --db "$db" --script "$work/none.txt" >/dev/null

mkfifo "$work/a.in"
"$host" --db "$db" --trace <"$work/a.in" >"$work/a.out" 2>&1 &
a=$!
exec 3>"$work/a.in"

# Sends commands to A and waits until A has answered them all: the host
# answers in order, so its answer to a closing "windows" comes last.
marks=0
tell_a() {
  for command in "$@" windows; do
    printf '%s\n' "$command" >&3
  done
  marks=$((marks + 1))
  tries=0
  while [ "$(grep -c '^> windows' "$work/a.out")" -lt "$marks" ]; do
    tries=$((tries + 1))
    if [ "$tries" -gt 300 ]; then
      echo "workstation A stopped answering"
      cat "$work/a.out"
      exit 1
    fi
    sleep 0.1
  done
  sleep 0.2
}

# OIDR, the field and text A writes, the field and text B writes, and what
# A does after the refusal ("" when the card reads the record again itself).
road() {
  tell_a "click $1 0 C"
  printf 'click %s 0 C\nset %s %s\npress cmdEnter\nquit\n' "$1" "$4" "$5" >"$work/b.txt"
  "$host" --db "$db" --trace --script "$work/b.txt" >"$work/b.out" 2>&1
  if grep -q "Klaida" "$work/b.out"; then
    echo "workstation B could not write $1:"
    cat "$work/b.out"
    exit 1
  fi
  lines=$(wc -l <"$work/a.out")
  tell_a "set $2 $3" "press cmdEnter" ${6:+"$6"} "show" "close"
  tail -n +"$lines" "$work/a.out" >"$work/road.out"
  for expected in "Įrašą pakeitė kitas vartotojas po to, kai jį perskaitėte: $1" \
    "($4): $5" "GetCall Orvel_ReadObject '$1'"; do
    if ! grep -qF -- "$expected" "$work/road.out"; then
      echo "$1: workstation A did not show: $expected"
      cat "$work/road.out"
      exit 1
    fi
  done
  if grep -qF -- "($2): $3" "$work/road.out"; then
    echo "$1: A's edit stayed on the card after the record was read again"
    cat "$work/road.out"
    exit 1
  fi
  echo "$1: A was told and read again; B's $4 kept"
}

road O00003001 Name "AB SEB bankas (A)" SWIFT CBVILT2XXXX
road O000010015 Address "Vilniaus g. 1 (A)" Phone "+370 5 2000000"
road O00002002 Name "Prekė (A)" BarCode 4770000000017
road O00016027 Name "Įstaiga (A)" Code VI-2 "press cmdCancel"
printf 'quit\n' >&3
wait "$a"
a=

# On a server the bookkeeper is the login: another name is refused.
if [ -n "$server" ]; then
  if "$host" --db "$db" --user admin --script "$work/none.txt" >"$work/claim.out" 2>&1 ||
    ! grep -q "naudotojo admin nurodyti negalima" "$work/claim.out"; then
    echo "a workstation claimed another bookkeeper than its login:"
    cat "$work/claim.out"
    exit 1
  fi
  echo "--user admin refused: the login is the bookkeeper"
fi
