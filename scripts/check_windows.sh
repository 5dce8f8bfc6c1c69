#!/usr/bin/env bash
# Builds cdmaSorrelin.dll for 32- and 64-bit Windows with mingw-w64 (the windows-x86 and
# windows-x64 presets), inspects both statically, then runs a host program that loads the
# 64-bit DLL by name under wine64 and decodes the bundled examples: its output must equal, byte
# for byte, the same host's output on the Linux library (including the fallback text, which the
# DLL takes from its string table). Needs a Linux Release build in build/release-gcc.
set -euo pipefail
cd "$(dirname "$0")/.."
for p in windows-x86 windows-x64; do
  cmake --preset "$p" > /dev/null
  cmake --build --preset "$p" --target cdmaSorrelin > /dev/null
done
/usr/bin/python3 scripts/check_windows.py build/windows-x86/cdmaSorrelin.dll i386
/usr/bin/python3 scripts/check_windows.py build/windows-x64/cdmaSorrelin.dll amd64

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Every example, and messages whose names come from the fallback text.
cat examples/*.txt > "$work/input.txt"
printf 'paging 6 0 19000000000000\nrtc 9 0 ff00000000\nsync 5 0 02000000000000000000\n' >> "$work/input.txt"

x86_64-w64-mingw32-gcc-posix -O2 -static tests/windows/host.c -o "$work/host.exe"
cp build/windows-x64/cdmaSorrelin.dll "$work/"
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
export WINEPREFIX="$work/wine" WINEDEBUG=-all
(cd "$work" && "$wine" host.exe cdmaSorrelin.dll input.txt > windows.out 2> wine.err) ||
  { echo "host.exe failed under wine64:"; tail -5 "$work/wine.err"; exit 1; }

gcc -O2 tests/windows/host.c -o "$work/host" -ldl
"$work/host" "$(pwd)/build/release-gcc/libcdmaSorrelin.so" "$work/input.txt" > "$work/linux.out"
if ! cmp -s "$work/windows.out" "$work/linux.out"; then
  echo "the DLL's texts differ from the Linux library's:"
  diff <(tr -d '\r' < "$work/linux.out") <(tr -d '\r' < "$work/windows.out") | head -20
  exit 1
fi
echo "wine64: the 64-bit DLL, loaded by name, decodes $(grep -vc '^#\|^$' "$work/input.txt") messages byte for byte as the Linux library does"
