#!/usr/bin/env bash
# Builds and runs every test: the debug build (assertions on), then the whole suite again under
# AddressSanitizer and UndefinedBehaviorSanitizer (clang), with a short fuzzing run.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
jobs=$(nproc)

cmake -S . -B build/debug -G Ninja -DCMAKE_BUILD_TYPE=Debug -DSORRELIN_BENCH=ON > /dev/null
cmake --build build/debug -j "$jobs"
summary=$(mktemp)
trap 'rm -f "$summary"' EXIT
(cd build/debug && ctest --output-on-failure -j "$jobs") | tee -a "$summary"

CC=clang CXX=clang++ cmake -S . -B build/asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DSORRELIN_SANITIZE=ON \
  -DSORRELIN_FUZZ=ON > /dev/null
cmake --build build/asan -j "$jobs"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
(cd build/asan && ctest --output-on-failure -j "$jobs") | tee -a "$summary"

# Fuzz the entry points briefly, seeded with the example captures.
seeds=$(mktemp -d)
trap 'rm -rf "$seeds" "$summary"' EXIT
python3 scripts/fuzz_seeds.py examples/*.txt "$seeds"
build/asan/sorrelin_fuzz -max_total_time="${FUZZ_SECONDS:-60}" -max_len=400 -print_final_stats=0 "$seeds" 2>&1 |
  tail -n 3

# One closing line over both runs of the suite.
awk '/tests passed, [0-9]+ tests failed out of/ { total += $NF; failed += $4 }
     END { printf "%d passed, %d failed\n", total - failed, failed }' "$summary"
