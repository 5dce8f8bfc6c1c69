#!/usr/bin/env bash
# Line and region coverage of src/ from the test suite and the fuzz seed corpora:
#
#     scripts/coverage.sh [BUILD_DIR]        (default build/coverage)
#
# Builds with clang's source-based coverage, runs the whole test suite (ctest) and every fuzz
# target over its seed corpus (fuzz/corpus/TARGET, through the plain replay programs), merges
# the profiles and prints llvm-cov's report of the files of src/, then every line of src/ that
# nothing ran, as FILE:LINE and its text. The list is also kept in BUILD_DIR/uncovered.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
dir=${1:-build/coverage}
jobs=$(nproc)

CC=clang CXX=clang++ cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DSORRELIN_COVERAGE=ON \
  -DSORRELIN_FUZZ_REPLAY=ON > /dev/null
cmake --build "$dir" -j "$jobs" > "$dir/build.log" 2>&1 || { tail -n 30 "$dir/build.log"; exit 1; }

rm -rf "$dir/profiles" && mkdir -p "$dir/profiles"
export LLVM_PROFILE_FILE=$(pwd)/$dir/profiles/%p-%m.profraw
(cd "$dir" && ctest -j "$jobs" > ctest.log 2>&1) || { tail -n 30 "$dir/ctest.log"; exit 1; }
grep -E 'tests passed' "$dir/ctest.log"
objects=("$dir/sorrelin_tests" "$dir/sorrelin")
for replay in "$dir"/sorrelin_replay_*; do
  t=${replay##*/sorrelin_replay_}
  printf '%-8s ' "$t" && "$replay" "fuzz/corpus/$t"
  objects+=("$replay")
done
llvm-profdata merge -sparse "$dir"/profiles/*.profraw -o "$dir/all.profdata"

sources=$(find src -name '*.cpp' -o -name '*.h' | sort)
args=(-instr-profile "$dir/all.profdata" "${objects[0]}")
for o in "${objects[@]:1}"; do args+=(-object "$o"); done
llvm-cov report "${args[@]}" $sources | sed -E 's|^'"$(pwd)"'/||'

# Uncovered lines: those with a count of 0 in the lcov export.
llvm-cov export -format=lcov "${args[@]}" $sources | awk -v root="$(pwd)/" '
  /^SF:/ { file = substr($0, 4); sub(root, "", file) }
  /^DA:/ { split(substr($0, 4), f, ","); if (f[2] == 0) print file ":" f[1] }' |
  sort -t: -k1,1 -k2,2n | while IFS=: read -r file line; do
    printf '%s:%s\t%s\n' "$file" "$line" "$(sed -n "${line}p" "$file" | sed 's/^ *//')"
  done > "$dir/uncovered.txt"
echo "uncovered lines of src/ ($(wc -l < "$dir/uncovered.txt")):"
cat "$dir/uncovered.txt"
