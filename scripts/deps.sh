#!/usr/bin/env bash
# Installs what a task needs when it is missing, from Debian 12's packages, with apt-get (as
# root, or through sudo when it is there), showing apt's progress. Profiles:
#   scripts/deps.sh example   the library and the tool: CMake, Ninja, g++
#   scripts/deps.sh python    that, and the Python module's: python3, pybind11, pytest
#   scripts/deps.sh test      everything scripts/test.sh uses (the default)
set -euo pipefail
profile=${1:-test}
case "$profile" in example | python | test) ;; *) echo "deps: unknown profile '$profile' (example, python, test)" >&2; exit 2 ;; esac
need=()
command -v cmake >/dev/null || need+=(cmake)
command -v ninja >/dev/null || need+=(ninja-build)
command -v g++ >/dev/null || need+=(g++)
if [ "$profile" != example ]; then
  # Debian's interpreter, whatever else is first on the PATH: the module is built for it.
  [ -x /usr/bin/python3 ] || need+=(python3)
  [ -f /usr/lib/cmake/pybind11/pybind11Config.cmake ] || need+=(pybind11-dev)
  /usr/bin/python3 -c 'import sysconfig, os; assert os.path.exists(sysconfig.get_paths()["include"] + "/Python.h")' \
    2>/dev/null || need+=(python3-dev)
  /usr/bin/python3 -c 'import pytest' 2>/dev/null || need+=(python3-pytest)
fi
if [ "$profile" = test ]; then
  command -v pkg-config >/dev/null || need+=(pkg-config)
  command -v clang++ >/dev/null || need+=(clang)
  [ -f /usr/include/gtest/gtest.h ] || need+=(libgtest-dev)
  [ -f /usr/include/benchmark/benchmark.h ] || need+=(libbenchmark-dev)
  ls /usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-x86_64.a >/dev/null 2>&1 || need+=(libclang-rt-dev)
  # The Windows DLLs: cross compilers, a 64-bit Windows runtime and a PE reader.
  command -v i686-w64-mingw32-g++-posix >/dev/null || need+=(g++-mingw-w64-i686-posix)
  command -v x86_64-w64-mingw32-g++-posix >/dev/null || need+=(g++-mingw-w64-x86-64-posix)
  command -v wine64 >/dev/null || [ -x /usr/lib/wine/wine64 ] || need+=(wine64)
  /usr/bin/python3 -c 'import pefile' 2>/dev/null || need+=(python3-pefile)
fi
if [ ${#need[@]} -gt 0 ]; then
  echo "installing: ${need[*]}"
  SUDO=""
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "deps: need root or sudo to install ${need[*]}" >&2; exit 1; }
    SUDO=sudo
  fi
  $SUDO apt-get update
  $SUDO env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${need[@]}"
fi
