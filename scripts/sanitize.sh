#!/usr/bin/env bash
# Builds the whole test suite with AddressSanitizer and UndefinedBehaviorSanitizer (-DORVEL_SANITIZE=ON,
# float-to-int overflow included, every report aborts) in build-sanitize/ and runs it with ctest.
#
#   scripts/sanitize.sh            build and run every test
#   scripts/sanitize.sh -R REGEX   only the tests that match (passed on to ctest)
set -euo pipefail
cd "$(dirname "$0")/.."

build=build-sanitize
cmake -S . -B "$build" -G Ninja -DORVEL_SANITIZE=ON -DORVEL_WERROR=ON \
  -DCMAKE_CXX_FLAGS="-fsanitize=float-cast-overflow" -DCMAKE_C_FLAGS="-fsanitize=float-cast-overflow" >/dev/null
# Only what ctest runs: the benchmarks would add minutes of sanitized compiling and run nothing.
cmake --build "$build" -j2 --target orvel_tests orvel_c_header_test orvel_cli

export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export ASAN_OPTIONS=abort_on_error=1:detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1
start=$(date +%s)
# (the install and binding tests load the library into other programs, which the sanitizers cannot run in)
ctest --test-dir "$build" -j2 --output-on-failure -E '^(Install|Bindings)\.' "$@"
echo "sanitize.sh: sanitized tests passed in $(( $(date +%s) - start )) s"
