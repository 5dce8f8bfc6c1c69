#!/usr/bin/env bash
# The tool decodes every bundled example as its .ok file pins it, in text and as JSON Lines,
# and reports bad lines by their place while decoding the rest.
#   scripts/check_examples.sh TOOL SOURCE_DIR [CORPUS_DIR]
# With CORPUS_DIR (a directory OUTSIDE this repository, e.g. ../shared/corpus) it also decodes
# the real captures there without a bad line; without it, nothing outside the repository is read.
set -euo pipefail
tool=$(realpath "$1") src=$2 corpus=${3:-}
cd "$src"
# Debian's interpreter checks the JSON lines; without any python3 they are only produced.
py=$(command -v /usr/bin/python3 || command -v python3 || true)
[ -n "$py" ] || echo "no python3: the JSON lines are not parsed"
# Each example file's decode is pinned by its .ok file (name lines start with FILE:LINE).
for f in examples/*.txt; do
  "$tool" "$f" | diff -u "${f%.txt}.ok" - > /dev/null || { echo "$f: decode differs from ${f%.txt}.ok"; "$tool" "$f" | diff -u "${f%.txt}.ok" - | head -20; exit 1; }
  [ -z "$py" ] || "$tool" --json "$f" | "$py" -c '
import json, sys
for n, line in enumerate(sys.stdin, 1):
    json.loads(line)
' || { echo "$f: --json gives a line that is no JSON"; exit 1; }
done
# A phone log: an excerpt of a real DIAG log of a phone on a PCS (band class 1) network.
for f in examples/*.qmdl; do
  "$tool" --diag --band-class 1 "$f" 2> /dev/null | diff -u "${f%.qmdl}.ok" - > /dev/null ||
    { echo "$f: decode differs from ${f%.qmdl}.ok"; "$tool" --diag --band-class 1 "$f" | diff -u "${f%.qmdl}.ok" - | head -20; exit 1; }
done
if [ -n "$corpus" ]; then
  echo "also decoding the captures in $corpus (outside the repository)"
  "$tool" "$corpus"/*.txt > /dev/null
fi
tmp=$(mktemp)
trap 'rm -f "$tmp" "$tmp.err" "$tmp.out"' EXIT
printf 'sync 5 010501206200084e390167a5fbcd152529cc472806444445b2\nwat 5 00\n# comment\n\nsync 5 0g\nsync\nsync 5 1 010501206200084e390167a5fbcd152529cc472806444445b2\n' > "$tmp"
if "$tool" "$tmp" > "$tmp.out" 2> "$tmp.err"; then echo "bad lines must give a failing exit status"; exit 1; fi
grep -q ':2: unknown channel' "$tmp.err" || { echo "line 2 not reported"; cat "$tmp.err"; exit 1; }
grep -q ':5: ' "$tmp.err" || { echo "line 5 not reported"; exit 1; }
grep -q ':6: ' "$tmp.err" || { echo "line 6 not reported"; exit 1; }
[ "$(grep -c ': OVN_SCH_MSG_ID_SCHM$' "$tmp.out")" = 2 ] || { echo "good lines not decoded"; exit 1; }
"$tool" sync 5 010501206200084e390167a5fbcd152529cc472806444445b2 | grep -q '   CDMA_FREQ = 25'
"$tool" --help | grep -q 'usage:'
echo "examples decode (text and JSON); bad lines reported by their place"
