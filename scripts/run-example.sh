#!/usr/bin/env bash
# Installs the build tools, builds the example host and runs it on the shipped order book.
set -euo pipefail
cd "$(dirname "$0")/.."
if ! dpkg -s cmake g++ >/dev/null 2>&1; then
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq cmake g++
fi
cmake -S . -B build-example -DCMAKE_BUILD_TYPE=Release -DQUILTA_BUILD_TESTS=OFF -DQUILTA_BUILD_BENCH=OFF
cmake --build build-example -j "$(nproc)" --target orders_report
./build-example/examples/orders_report "$@"
