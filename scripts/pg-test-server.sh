# Sourced by the test scripts: starts a throwaway PostgreSQL cluster under a temporary directory,
# as the postgres user, listening on 127.0.0.1 only, stops it when the calling script exits, and
# exports its address in QUILTA_PG_CONNINFO for the record-set tests. If the server cannot start,
# the address still points at it, so those tests fail rather than skip.
pg_bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
pg_dir=$(mktemp -d /tmp/quilta-pg-XXXXXX)
as_postgres=()
if [ "$(id -u)" = 0 ]; then
  chown postgres: "$pg_dir"
  as_postgres=(runuser -u postgres --)
fi
stop_server() {
  "${as_postgres[@]}" "$pg_bin/pg_ctl" -D "$pg_dir/data" -m immediate -w stop >/dev/null 2>&1 || true
  rm -rf "$pg_dir"
}
trap stop_server EXIT
pg_port=$((40000 + RANDOM % 20000))
if "${as_postgres[@]}" "$pg_bin/initdb" -D "$pg_dir/data" -A trust -U postgres >"$pg_dir/initdb.log" 2>&1 &&
   "${as_postgres[@]}" "$pg_bin/pg_ctl" -D "$pg_dir/data" -l "$pg_dir/server.log" -w -t 60 \
     -o "-c listen_addresses=127.0.0.1 -p $pg_port -k $pg_dir -c fsync=off" start >/dev/null; then
  echo "PostgreSQL test server on 127.0.0.1:$pg_port"
else
  echo "PostgreSQL test server did not start; its tests will fail:" >&2
  cat "$pg_dir"/*.log >&2 || true
fi
export QUILTA_PG_CONNINFO="host=127.0.0.1 port=$pg_port dbname=postgres user=postgres connect_timeout=10"

