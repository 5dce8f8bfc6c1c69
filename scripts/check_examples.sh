#!/usr/bin/env bash
# The tool decodes every bundled example and the real captures without a bad line, and reports
# bad lines by number while decoding the rest.
set -euo pipefail
tool=$1 src=$2
# Each example file's decode is pinned by its .ok file.
for f in "$src"/examples/*.txt; do
  "$tool" "$f" | diff -u "${f%.txt}.ok" - > /dev/null || { echo "$f: decode differs from ${f%.txt}.ok"; "$tool" "$f" | diff -u "${f%.txt}.ok" - | head -20; exit 1; }
done
corpus="$src/../shared/corpus"
if [ -d "$corpus" ]; then "$tool" "$corpus"/*.txt > /dev/null; fi
tmp=$(mktemp)
trap 'rm -f "$tmp" "$tmp.err"' EXIT
printf 'sync 5 010501206200084e390167a5fbcd152529cc472806444445b2\nwat 5 00\n# comment\n\nsync 5 0g\nsync\nsync 5 1 010501206200084e390167a5fbcd152529cc472806444445b2\n' > "$tmp"
if "$tool" "$tmp" > "$tmp.out" 2> "$tmp.err"; then echo "bad lines must give a failing exit status"; exit 1; fi
grep -q ':2: unknown channel' "$tmp.err" || { echo "line 2 not reported"; cat "$tmp.err"; exit 1; }
grep -q ':5: ' "$tmp.err" || { echo "line 5 not reported"; exit 1; }
grep -q ':6: ' "$tmp.err" || { echo "line 6 not reported"; exit 1; }
[ "$(grep -c '^OVN_SCH_MSG_ID_SCHM$' "$tmp.out")" = 2 ] || { echo "good lines not decoded"; exit 1; }
if grep -q $'\r' "$tmp.out"; then echo "default output must use LF"; exit 1; fi
echo 'sync 5 010501206200084e390167a5fbcd152529cc472806444445b2' | "$tool" --crlf | grep -q $'\r' ||
  { echo "--crlf must keep CR LF"; exit 1; }
"$tool" sync 5 010501206200084e390167a5fbcd152529cc472806444445b2 | grep -q '   CDMA_FREQ = 25'
"$tool" --help | grep -q 'usage:'
rm -f "$tmp.out"
echo "examples decode; bad lines reported by number"
