#!/usr/bin/env bash
# Installs the build dependencies, builds everything and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
if ! dpkg -s cmake g++ libgtest-dev libbenchmark-dev >/dev/null 2>&1; then
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq cmake g++ libgtest-dev libbenchmark-dev
fi
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release
cmake --build build -j "$(nproc)"
ctest --test-dir build --output-on-failure -j "$(nproc)"
