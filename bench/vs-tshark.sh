#!/usr/bin/env bash
# Whole-process throughput of the sorrelin tool against tshark -V on the same messages: a mix
# of paging, access and traffic channel messages (with data bursts) that both decode, built by
# the tshark peer's corpus generator; then the paging + forward traffic subset alone. Each
# tool runs RUNS times, alternating, after one warm-up; the medians and their ratio are
# printed. Needs tshark (apt-get install tshark) and the peer scripts in ../shared/peers/tshark
# (or PEER=dir).
#   bench/vs-tshark.sh [N_MESSAGES] [RUNS]
set -euo pipefail
cd "$(dirname "$0")/.."
n=${1:-100000}
runs=${2:-5}
peer=${PEER:-../shared/peers/tshark}
tool=${TOOL:-build/release/sorrelin}
[ -x "$tool" ] || { cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DSORRELIN_TESTS=OFF > /dev/null;
                    cmake --build build/release --target sorrelin > /dev/null; }
command -v tshark > /dev/null || { echo "tshark is not installed (apt-get install tshark)"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

python3 "$peer/gen_corpus.py" mix "$n" 1 > "$work/mix.txt"
grep -E '^(paging|ftc|2|4) ' "$work/mix.txt" > "$work/fwd.txt" || true
"$peer/decode.sh" -w "$work/mix.pcap" "$work/mix.txt" > /dev/null
"$peer/decode.sh" -w "$work/fwd.pcap" "$work/fwd.txt" > /dev/null

# Median wall time of a command over $runs runs (seconds).
median() { sort -n | awk '{ a[NR] = $1 } END { print (NR % 2) ? a[(NR + 1) / 2] : (a[NR / 2] + a[NR / 2 + 1]) / 2 }'; }
clock() { local s e; s=$(date +%s%N); "$@" > /dev/null; e=$(date +%s%N); awk -v d=$((e - s)) 'BEGIN { printf "%.4f\n", d / 1e9 }'; }

compare() {   # NAME TEXT PCAP
  local name=$1 text=$2 pcap=$3 ours=() theirs=() i msgs
  msgs=$(grep -cvE '^\s*(#|$)' "$text")
  "$tool" "$text" > /dev/null; tshark -n -r "$pcap" -V > /dev/null   # warm-up
  for ((i = 0; i < runs; i++)); do
    ours+=("$(clock "$tool" "$text")")
    theirs+=("$(clock tshark -n -r "$pcap" -V)")
  done
  local a b
  a=$(printf '%s\n' "${ours[@]}" | median)
  b=$(printf '%s\n' "${theirs[@]}" | median)
  awk -v name="$name" -v m="$msgs" -v a="$a" -v b="$b" 'BEGIN {
    printf "%-18s %7d messages  sorrelin %7.3f s (%9.0f msg/s)  tshark -V %7.3f s (%7.0f msg/s)  ratio %5.1fx\n",
           name, m, a, m / a, b, m / b, b / a }'
}
echo "$(nproc) cores; medians of $runs runs, alternating"
compare "full mix" "$work/mix.txt" "$work/mix.pcap"
compare "paging + forward" "$work/fwd.txt" "$work/fwd.pcap"
