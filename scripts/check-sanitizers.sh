#!/usr/bin/env bash
# Builds the library and every test with AddressSanitizer and UndefinedBehaviorSanitizer (in
# build-asan/) and runs the whole test suite there. Any sanitizer report fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
if ! dpkg -s cmake g++ libgtest-dev libsqlite3-dev libpq-dev postgresql >/dev/null 2>&1; then
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq cmake g++ libgtest-dev libsqlite3-dev libpq-dev postgresql
fi
source scripts/pg-test-server.sh
cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DQUILTA_SANITIZE=ON \
  -DQUILTA_BUILD_BENCH=OFF -DQUILTA_BUILD_EXAMPLES=OFF >/dev/null
cmake --build build-asan -j "$(nproc)"
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:strict_string_checks=1:detect_stack_use_after_return=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
ctest --test-dir build-asan --output-on-failure -j "$(nproc)"
echo "sanitizers: clean"
