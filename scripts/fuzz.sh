#!/usr/bin/env bash
# A fuzzing campaign over the fuzz targets (fuzz/fuzz_*.cpp), niced, on every core:
#
#     scripts/fuzz.sh [-t SECONDS] [-j JOBS] [-b BUILD_DIR] [--seed] [--smoke] [TARGET...]
#
# Each target (all of them when none is named: details blocks bounded decoder) runs for
# SECONDS (default 600) as JOBS fuzzing processes (default: every core), from
# its seed corpus fuzz/corpus/TARGET, with fuzz/sorrelin.dict and inputs up to 8,192 octets.
# What it finds goes into a working corpus, which is then merged back into the seed corpus,
# minimized (the smallest set of inputs with the same coverage and text-size features). A
# crash, leak or timeout stops the target, is kept in build/fuzz-findings/TARGET/ and makes the
# script exit 1. One line per target: executions, coverage (edges, features), corpus size
# before and after the merge.
#
# --seed first adds seeds made from the examples, the golden cases and the shared capture
# corpus ($SHARED_CORPUS, default ../shared/corpus) to each seed corpus (scripts/fuzz_seeds.py,
# which loads the shared library of a build without sanitizers: $SEED_LIB, default
# build/debug/libcdmaSorrelin.so).
# --smoke is the short run of CI: it leaves the seed corpora alone and runs a single worker.
#
# BUILD_DIR (default build/fuzz) is configured when missing: clang, optimised, assertions on,
# AddressSanitizer and UndefinedBehaviorSanitizer, the libFuzzer targets only.
set -uo pipefail
cd "$(dirname "$0")/.."

seconds=600 jobs=$(nproc) build=build/fuzz seed=0 smoke=0 targets=()
while [ $# -gt 0 ]; do
  case $1 in
    -t) seconds=$2; shift 2 ;;
    -j) jobs=$2; shift 2 ;;
    -b) build=$2; shift 2 ;;
    --seed) seed=1; shift ;;
    --smoke) smoke=1; shift ;;
    -h|--help) sed -n '2,23p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
    *) targets+=("$1"); shift ;;
  esac
done
[ ${#targets[@]} -gt 0 ] || targets=(details blocks bounded decoder)

if [ ! -f "$build/build.ninja" ]; then
  # Optimised, but with the library's assertions (a Debug build at -O2).
  CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG="-O2 -gline-tables-only" -DSORRELIN_FUZZ=ON -DSORRELIN_SANITIZE=ON \
    -DSORRELIN_TESTS=OFF > /dev/null || exit 1
fi
bins=() && for t in "${targets[@]}"; do bins+=("sorrelin_fuzz_$t"); done
nice -n 19 cmake --build "$build" -j "$jobs" --target "${bins[@]}" > /dev/null || exit 1

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
for t in "${targets[@]}"; do
  seeds=fuzz/corpus/$t bin=$build/sorrelin_fuzz_$t findings=build/fuzz-findings/$t
  mkdir -p "$seeds" "$findings" "$work/$t"
  if [ $seed = 1 ]; then
    python3 scripts/fuzz_seeds.py --lib "${SEED_LIB:-build/debug/libcdmaSorrelin.so}" --target "$t" "$work/$t" \
      tests/golden/*.ok examples/*.txt $(ls "${SHARED_CORPUS:-../shared/corpus}"/*.txt 2> /dev/null) > /dev/null || exit 1
  fi
  before=$(find "$seeds" -type f | wc -l)
  # The entropic schedule is off: with this many features its bookkeeping took two thirds of
  # each execution (3.9 K against 12.7 K executions/s on one core, with more features found).
  # libFuzzer times an input by the wall clock: a niced campaign on a busy machine may wait
  # seconds for a core, so a campaign allows 60 s (the slowest input decodes in milliseconds).
  timeout=10 && [ $smoke = 0 ] && timeout=60
  args=(-max_len=8192 -dict=fuzz/sorrelin.dict -max_total_time="$seconds" -timeout="$timeout" -rss_limit_mb=4096
        -entropic=0 -print_final_stats=1 -artifact_prefix="$findings/")
  # A campaign runs JOBS plain fuzzing processes side by side on one working corpus, which
  # each reloads as the others add to it (libFuzzer's fork mode restarts a job every few
  # seconds and reads the corpus again: a third of the executions per core here).
  n=1 && [ $smoke = 0 ] && n=$jobs
  pids=()
  for i in $(seq 1 "$n"); do
    if [ $smoke = 1 ]; then
      "$bin" "${args[@]}" "$work/$t" "$seeds" > "$work/$t.$i.log" 2>&1 &
    else
      nice -n 19 "$bin" "${args[@]}" "$work/$t" "$seeds" > "$work/$t.$i.log" 2>&1 &
    fi
    pids+=($!)
  done
  rc=0
  for p in "${pids[@]}"; do wait "$p" || rc=$?; done
  # Figures: executions summed over the processes, coverage and features of the first one's
  # last status line.
  execs=$(cat "$work/$t".*.log | sed -nE 's/^stat::number_of_executed_units: *([0-9]+).*/\1/p' | awk '{ s += $1 } END { print s + 0 }')
  line=$(grep -hE '^#[0-9]+' "$work/$t.1.log" | tail -n 1)
  cov=$(echo "$line" | sed -nE 's/.*cov: ([0-9]+).*/\1/p') ft=$(echo "$line" | sed -nE 's/.*ft: ([0-9]+).*/\1/p')
  after=$before
  if [ $smoke = 0 ] && [ $rc = 0 ]; then
    rm -rf "$work/$t.min" && mkdir "$work/$t.min"
    nice -n 19 "$bin" -merge=1 -max_len=8192 "$work/$t.min" "$seeds" "$work/$t" > "$work/$t.merge.log" 2>&1 || rc=$?
    if [ $rc = 0 ]; then
      rm -rf "$seeds" && mv "$work/$t.min" "$seeds"
      after=$(find "$seeds" -type f | wc -l)
    fi
  fi
  printf '%-8s executions %10s  cov %5s  ft %6s  corpus %5s -> %5s  %s\n' "$t" "${execs:-?}" "${cov:-?}" "${ft:-?}" \
    "$before" "$after" "$([ $rc = 0 ] && echo 'no finding' || echo "FINDING (exit $rc): see $findings/ and below")"
  if [ $rc != 0 ]; then
    grep -hE 'ERROR|SUMMARY|fuzz check failed|Test unit written' "$work/$t".*.log | head -n 10 | sed 's/^/    /'
    status=1
  fi
done
exit $status
