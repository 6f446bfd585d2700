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

source scripts/pg-test-server.sh

# ---- Build and test ------------------------------------------------------------------------
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release
cmake --build build -j "$(nproc)"
ctest --test-dir build --output-on-failure -j "$(nproc)"
