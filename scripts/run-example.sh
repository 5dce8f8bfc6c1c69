#!/usr/bin/env bash
# Builds the library and the command-line tool, then decodes the bundled example captures.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh example
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DSORRELIN_TESTS=OFF > /dev/null
cmake --build build/release
build/release/sorrelin examples/*.txt
