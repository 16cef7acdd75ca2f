#!/usr/bin/env bash
# Everything on a fresh machine: installs what is missing, builds with warnings as errors, runs every test,
# then the Windows module check, the sample calls under Wine against Linux and, when present, the sanitized
# tests and a short fuzzing run.
# Exits non-zero if any step failed.
set -uo pipefail
source "$(dirname "$0")/common.sh"
failed=()
step() {
    local name=$1
    shift
    local start=$SECONDS
    echo "==== $name"
    if "$@"; then echo "==== $name: passed ($((SECONDS - start)) s)"
    else echo "==== $name: FAILED ($((SECONDS - start)) s)"; failed+=("$name"); fi
}

orvel_build_deps || exit 1
step build orvel_build
if [[ " ${failed[*]} " != *" build "* ]]; then
    step tests ctest --test-dir "$ORVEL_ROOT/build" -j2 --output-on-failure
fi
step windows "$ORVEL_ROOT/scripts/windows.sh"
step wine "$ORVEL_ROOT/scripts/wine.sh"
[ -x "$ORVEL_ROOT/scripts/sanitize.sh" ] && step sanitize "$ORVEL_ROOT/scripts/sanitize.sh"
if [ -x "$ORVEL_ROOT/scripts/fuzz.sh" ]; then
    orvel_apt clang libclang-rt-14-dev || echo "could not install clang and libclang-rt-14-dev for fuzzing"
    step fuzz "$ORVEL_ROOT/scripts/fuzz.sh" --smoke
fi

if [ ${#failed[@]} -gt 0 ]; then
    echo "FAILED: ${failed[*]}"
    exit 1
fi
echo "all passed"
