#!/bin/bash
# A throwaway PostgreSQL server for the tests, on 127.0.0.1 and a free port,
# in a temporary folder of its own.
#   pg-server.sh start STATE   starts a server; STATE gets its URL on the
#                              first line and its folder on the second
#   pg-server.sh stop STATE    stops that server and removes its folder
# The server runs as an unprivileged user: as root, the "postgres" user that
# Debian's package makes. A server that cannot start is an error that says
# why, so the tests that need it fail rather than pass unseen.
set -eu
action=$1
state=$2

bindir=
for candidate in "$(pg_config --bindir 2>/dev/null || true)" /usr/lib/postgresql/*/bin; do
  if [ -x "$candidate/initdb" ] && [ -x "$candidate/pg_ctl" ]; then
    bindir=$candidate
    break
  fi
done
if [ -z "$bindir" ]; then
  echo "pg-server: PostgreSQL's initdb and pg_ctl are not installed (run scripts/setup)" >&2
  exit 1
fi

as_owner() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u postgres -- "$@"
  else
    "$@"
  fi
}

case "$action" in
  start)
    [ -f "$state" ] && "$0" stop "$state"
    dir=$(mktemp -d /tmp/orvel-pg.XXXXXX)
    chmod 755 "$dir"
    if [ "$(id -u)" -eq 0 ]; then chown postgres "$dir"; fi
    as_owner "$bindir/initdb" -D "$dir/data" -U orvel --auth=trust -E UTF8 --locale=C.UTF-8 \
      >"$dir/initdb.log" 2>&1 || {
      echo "pg-server: initdb failed:" >&2
      cat "$dir/initdb.log" >&2
      exit 1
    }
    # A free port: the first from a random start that nothing listens on.
    port=$((20000 + $$ % 20000))
    tries=0
    while (echo >"/dev/tcp/127.0.0.1/$port") 2>/dev/null || \
      [ -n "$(ss -ltnH "sport = :$port" 2>/dev/null)" ]; do
      port=$((port + 1))
      tries=$((tries + 1))
      if [ "$tries" -gt 200 ]; then echo "pg-server: no free port" >&2; exit 1; fi
    done
    as_owner "$bindir/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 \
      -o "-c listen_addresses=127.0.0.1 -p $port -k $dir -c fsync=off" start >/dev/null || {
      echo "pg-server: the server did not start:" >&2
      cat "$dir/server.log" >&2
      exit 1
    }
    as_owner "$bindir/createdb" -h 127.0.0.1 -p "$port" -U orvel orvel_tests
    printf 'postgresql://orvel@127.0.0.1:%s/orvel_tests\n%s\n' "$port" "$dir" >"$state"
    echo "pg-server: $(head -n 1 "$state")"
    ;;
  stop)
    [ -f "$state" ] || exit 0
    dir=$(sed -n 2p "$state")
    rm -f "$state"
    case "$dir" in /tmp/orvel-pg.*) ;; *) exit 0 ;; esac
    if [ -d "$dir/data" ]; then
      as_owner "$bindir/pg_ctl" -D "$dir/data" -m fast -w stop >/dev/null 2>&1 || true
    fi
    rm -rf "$dir"
    ;;
  *)
    echo "usage: pg-server.sh start|stop DIR" >&2
    exit 2
    ;;
esac
