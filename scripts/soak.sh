#!/usr/bin/env bash
# Runs the model-based random tester under AddressSanitizer and UndefinedBehaviorSanitizer for as
# long as asked, over consecutive seeds, and prints how many seeds and calls it ran. On a
# divergence it prints the seed and a shortened sequence of calls that reproduces it, and fails.
#   bash scripts/soak.sh [minutes (default 30)] [first seed (default: from the clock)] [calls per seed (400)]
set -euo pipefail
cd "$(dirname "$0")/.."
minutes="${1:-30}"
seed="${2:-$(date +%s)}"
steps="${3:-400}"
cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DQUILTA_SANITIZE=ON \
  -DQUILTA_BUILD_BENCH=OFF -DQUILTA_BUILD_EXAMPLES=OFF >/dev/null
cmake --build build-asan -j "$(nproc)" --target quilta_soak
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:detect_stack_use_after_return=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
echo "soak: ${minutes} min under ASan/UBSan from seed ${seed}, ${steps} calls per seed"
./build-asan/testkit/quilta_soak --seconds "$((minutes * 60))" --seed "${seed}" --steps "${steps}"
