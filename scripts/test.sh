#!/usr/bin/env bash
# Installs the build dependencies, builds everything and runs every test. The PostgreSQL tests
# run against a throwaway cluster started here under a temporary directory, as the postgres
# user, listening on 127.0.0.1 only, and stopped at the end; if it cannot start, they fail.
set -euo pipefail
cd "$(dirname "$0")/.."

# qt6-base-dev builds the widget host; fonts-dejavu-core lets its offscreen tests render text.
packages=(cmake g++ libgtest-dev libbenchmark-dev libsqlite3-dev libpq-dev postgresql qt6-base-dev
  fonts-dejavu-core)
missing=()
for p in "${packages[@]}"; do dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p"); done
if ((${#missing[@]})); then
  apt-get update -qq </dev/null
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
fi

# ---- The throwaway PostgreSQL cluster ------------------------------------------------------
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

# ---- Build and test ------------------------------------------------------------------------
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release
cmake --build build -j "$(nproc)"
ctest --test-dir build --output-on-failure -j "$(nproc)"
