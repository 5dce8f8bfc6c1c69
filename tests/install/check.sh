#!/usr/bin/env bash
# Installs a Release build (the one in the given build directory, or a fresh one) into a
# scratch prefix, then builds and runs two consumers against it: one through find_package (C
# and C++), one through pkg-config (C), as a new user would.
set -euo pipefail
src=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
build=${1:-}
if [ -z "$build" ]; then
  build=$work/build
  cmake -S "$src" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DSORRELIN_TESTS=OFF > /dev/null
  cmake --build "$build" > /dev/null
fi
cmake --install "$build" --prefix "$work/prefix" > /dev/null
"$work/prefix/bin/sorrelin" --version
man -l "$work/prefix/share/man/man1/sorrelin.1" > /dev/null 2>&1 || test -s "$work/prefix/share/man/man1/sorrelin.1"
cmake -S "$src/tests/install" -B "$work/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" > /dev/null
cmake --build "$work/consumer" > /dev/null
LD_LIBRARY_PATH="$work/prefix/lib" "$work/consumer/consumer_c"
"$work/consumer/consumer_cpp"
export PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig"
cc $(pkg-config --cflags cdmaSorrelin) "$src/tests/install/consumer.c" $(pkg-config --libs cdmaSorrelin) \
  -Wl,-rpath,"$work/prefix/lib" -o "$work/consumer_pc"
"$work/consumer_pc"
echo "install: headers, libraries, tool, CMake package and pkg-config file work"
