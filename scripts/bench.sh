#!/usr/bin/env bash
# Benchmarks in a Release build beside the development tree, with QuantLib as the opponent of the bond
# engine: installs libquantlib0-dev (and Google Benchmark) when missing, builds build-release/, runs
# orvel_bench. Extra arguments go to the benchmark (e.g. --benchmark_filter=Bond).
set -euo pipefail
source "$(dirname "$0")/common.sh"
orvel_build_deps || exit 1
orvel_apt libquantlib0-dev || echo "QuantLib could not be installed: the comparison is left out"
cmake -S "$ORVEL_ROOT" -B "$ORVEL_ROOT/build-release" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$ORVEL_ROOT/build-release" -j2 --target orvel_bench
exec "$ORVEL_ROOT/build-release/orvel_bench" "$@"
