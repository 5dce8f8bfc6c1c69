#!/usr/bin/env bash
# Builds and runs every test, one stage at a time, printing one line per stage (the full output
# of each stage is kept in build/logs/): a debug build with assertions, Release builds with g++
# and with clang (a user's default kind of build), the Python module's tests (pytest), the
# library and tool built RelWithDebInfo with g++ and with no build type with clang, the whole
# suite under AddressSanitizer and UndefinedBehaviorSanitizer, an install into a scratch prefix
# used by two consumers, the Windows DLLs (built with mingw-w64, inspected, and the 64-bit one
# run under wine64), decoders on several threads under ThreadSanitizer, and a short fuzzing run
# of every fuzz target. Ends with one line: all stages passed, or which failed.
set -uo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh || exit 1
jobs=$(nproc)
mkdir -p build/logs
failed=()
passed_tests=0
failed_tests=0

# stage NAME COMMAND...: runs the command with its output in build/logs/NAME.log.
stage() {
  local name=$1
  shift
  local log=build/logs/$name.log start=$SECONDS
  printf '%-16s ' "$name"
  local ok=1
  "$@" > "$log" 2>&1 || ok=0
  # The line worth showing: ctest's count, or the stage's own last line.
  local line note
  line=$(grep -E 'tests passed, [0-9]+ tests failed' "$log" | tail -n 1)
  if [ -n "$line" ]; then
    local total fails
    total=$(echo "$line" | awk '{print $NF}')
    fails=$(echo "$line" | awk '{print $4}')
    passed_tests=$((passed_tests + total - fails))
    failed_tests=$((failed_tests + fails))
    note="$((total - fails)) of $total tests passed"
  else
    note=$(tail -n 1 "$log")
  fi
  if [ $ok = 1 ]; then
    printf 'ok   %4ds  %s\n' $((SECONDS - start)) "$note"
  else
    printf 'FAIL %4ds  %s (log: %s)\n' $((SECONDS - start)) "$note" "$log"
    tail -n 30 "$log" | sed 's/^/    /'
    failed+=("$name")
  fi
}

build_and_test() {   # DIR, then cmake options
  local dir=$1
  shift
  cmake -S . -B "$dir" -G Ninja -DSORRELIN_WERROR=ON "$@" &&
    cmake --build "$dir" -j "$jobs" &&
    (cd "$dir" && ctest --output-on-failure -j "$jobs")
}

stage debug build_and_test build/debug -DCMAKE_BUILD_TYPE=Debug -DSORRELIN_BENCH=ON
stage release-gcc build_and_test build/release-gcc -DCMAKE_BUILD_TYPE=Release
stage python env PYTHONPATH=build/release-gcc/python /usr/bin/python3 -m pytest -q -p no:cacheprovider python/tests
stage release-clang env CC=clang CXX=clang++ bash -c "$(declare -f build_and_test); jobs=$jobs; \
  build_and_test build/release-clang -DCMAKE_BUILD_TYPE=Release"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
stage sanitizers env CC=clang CXX=clang++ bash -c "$(declare -f build_and_test); jobs=$jobs; \
  build_and_test build/asan -DCMAKE_BUILD_TYPE=Debug -DSORRELIN_SANITIZE=ON -DSORRELIN_FUZZ=ON"
# Builds users make by default: RelWithDebInfo with g++, no build type with clang (the
# library and the tool, warnings as errors).
other_builds() {
  cmake -S . -B build/relwithdebinfo-gcc -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSORRELIN_TESTS=OFF \
    -DSORRELIN_PYTHON=OFF -DSORRELIN_WERROR=ON && cmake --build build/relwithdebinfo-gcc -j "$jobs" &&
    CC=clang CXX=clang++ cmake -S . -B build/default-clang -G Ninja -DSORRELIN_TESTS=OFF -DSORRELIN_PYTHON=OFF \
      -DSORRELIN_WERROR=ON && cmake --build build/default-clang -j "$jobs" && echo "both built"
}
stage other-builds other_builds
stage install tests/install/check.sh build/release-gcc
stage windows scripts/check_windows.sh

# ThreadSanitizer: decoders on several threads, started together, against a serial replay of
# the seed corpora.
tsan() {
  env CC=clang CXX=clang++ cmake -S . -B build/tsan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DSORRELIN_TSAN=ON \
    -DSORRELIN_THREAD_REPLAY=ON -DSORRELIN_TESTS=OFF -DSORRELIN_WERROR=ON &&
    cmake --build build/tsan -j "$jobs" --target sorrelin_thread_replay &&
    TSAN_OPTIONS=halt_on_error=1 build/tsan/sorrelin_thread_replay -t 4 -n "${TSAN_INPUTS:-4000}" fuzz/corpus
}
stage tsan tsan

# Fuzz every entry point briefly from its seed corpus (the sanitizer build's targets).
if [ -x build/asan/sorrelin_fuzz_details ]; then
  stage fuzz scripts/fuzz.sh --smoke -t "${FUZZ_SECONDS:-20}" -b build/asan
fi

if [ ${#failed[@]} -eq 0 ]; then
  echo "all stages passed ($passed_tests tests passed, $failed_tests failed)"
else
  echo "FAILED stages: ${failed[*]} ($passed_tests tests passed, $failed_tests failed)"
  exit 1
fi
