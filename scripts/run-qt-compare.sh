#!/usr/bin/env bash
# Installs Qt 6 and the build tools if missing, builds the Quilta / Qt / plain C++ comparison in
# its own Release build directory and runs it. Arguments are row counts (default 100000 1000000).
# Then it paints a 1M-row QuiltaWidget beside a QTableView (offscreen without a display).
set -euo pipefail
cd "$(dirname "$0")/.."
packages=(cmake g++ libbenchmark-dev qt6-base-dev fonts-dejavu-core)
if ! dpkg -s "${packages[@]}" >/dev/null 2>&1; then
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${packages[@]}"
fi
# Two jobs at most: the machines are shared.
jobs=$(( $(nproc) < 2 ? $(nproc) : 2 ))
cmake -S . -B build-compare -DCMAKE_BUILD_TYPE=Release \
  -DQUILTA_BUILD_TESTS=OFF -DQUILTA_BUILD_EXAMPLES=OFF -DQUILTA_BUILD_BENCH=ON
cmake --build build-compare -j "$jobs" --target qt_compare qt_paint_compare
./build-compare/bench/qt_compare "$@"
./build-compare/bench/qt_paint_compare
