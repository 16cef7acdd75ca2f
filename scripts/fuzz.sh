#!/usr/bin/env bash
# Fuzzes every export of the library with libFuzzer, AddressSanitizer and UndefinedBehaviorSanitizer.
#
#   scripts/fuzz.sh --smoke            about a minute (part of scripts/test.sh)
#   scripts/fuzz.sh --long SECONDS     a longer run, e.g. --long 3600 before a release
#   scripts/fuzz.sh --replay FILE...   re-run saved inputs (a crash file printed by a failing run), with the
#                                      decoded call printed in `orvel call` syntax
#
# Builds with clang in build-fuzz/ (the target orvel_fuzz only). The seeds are the committed fuzz/corpus/
# plus inputs written afresh from the sample calls (so an export added since the corpus was committed is
# seeded too); new interesting inputs collect in build-fuzz/corpus/. A call that does not return within a
# second, any sanitizer report or a crash fails the run; the input that caused it is saved in
# build-fuzz/findings/ and the script exits non-zero.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=${1:-}
case "$mode" in
  --smoke) seconds=60 ;;
  --long) seconds=${2:?"usage: scripts/fuzz.sh --long SECONDS"} ;;
  --replay) shift; [ $# -gt 0 ] || { echo "usage: scripts/fuzz.sh --replay FILE..."; exit 2; } ;;
  *) echo "usage: scripts/fuzz.sh --smoke | --long SECONDS | --replay FILE..."; exit 2 ;;
esac

if ! command -v clang++ >/dev/null; then
  echo "fuzz.sh: clang++ not found (apt-get install clang libclang-rt-14-dev); fuzzing skipped"
  exit 0
fi

build=build-fuzz
CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DORVEL_FUZZ=ON -DORVEL_WERROR=ON >/dev/null
cmake --build "$build" --target orvel_fuzz -j2
fuzzer=$build/fuzz/orvel_fuzz

export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export ASAN_OPTIONS=abort_on_error=1:detect_leaks=1

if [ "$mode" = --replay ]; then
  ORVEL_FUZZ_TRACE=1 "$fuzzer" -timeout=1 "$@"
  exit
fi

seeds=$build/seeds
rm -rf "$seeds"
python3 fuzz/make_corpus.py . "$seeds"
mkdir -p "$build/corpus" "$build/findings"

start=$(date +%s)
set +e
"$fuzzer" "$build/corpus" fuzz/corpus "$seeds" \
  -timeout=1 -rss_limit_mb=2048 -max_total_time="$seconds" -print_final_stats=1 \
  -artifact_prefix="$build/findings/" 2>&1 | tee "$build/fuzz.log" | grep -Ev '^#[0-9]+\s+(NEW|REDUCE|pulse)|NEW_FUNC|^"|dictionary'
status=${PIPESTATUS[0]}
set -e
runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$build/fuzz.log" | tail -1)
echo "fuzz.sh: ${runs:-?} executions in $(( $(date +%s) - start )) s, exit status $status"
if [ "$status" -ne 0 ]; then
  echo "fuzz.sh: FAILED; the input is in $build/findings/ (replay: scripts/fuzz.sh --replay FILE)"
fi
exit "$status"
