#!/usr/bin/env bash
# Builds the library and the command-line tool, installing only what that needs (CMake, Ninja,
# g++) when it is missing, then decodes the bundled examples, each under a header: real
# messages first (a Sprint network's sync, paging and access channels, then an excerpt of a
# phone's log), then the hand-made captures of the other channels and data bursts.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh example
echo "building the tool in build/release ..."
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DSORRELIN_TESTS=OFF -DSORRELIN_PYTHON=OFF > /dev/null
cmake --build build/release --target sorrelin
tool=build/release/sorrelin
header() { printf '\n======== %s ========\n\n' "$*"; }
for f in sync paging access; do
  header "examples/$f.txt: sorrelin examples/$f.txt"
  "$tool" "examples/$f.txt"
done
header "examples/sprint_excerpt.qmdl, a phone's log: sorrelin --diag --band-class 1 examples/sprint_excerpt.qmdl"
"$tool" --diag --band-class 1 examples/sprint_excerpt.qmdl
for f in forward_traffic reverse_traffic bursts otasp_sms; do
  header "examples/$f.txt: sorrelin examples/$f.txt"
  "$tool" "examples/$f.txt"
done
header "done: the tool is build/release/sorrelin (sorrelin --help; man docs/sorrelin.1)"
