#!/usr/bin/env bash
# Builds the HTML reference with Doxygen from the public headers: a page a subsystem (one a header), every
# export with its documentation block, and a page of every error number with its meaning.
# Output: build-reference/html/index.html (or the folder given as $1). Not part of the test run.
set -euo pipefail
source "$(dirname "$0")/common.sh"
orvel_apt doxygen || { echo "reference: doxygen cannot be installed here"; exit 1; }
export ORVEL_ROOT
export ORVEL_REFERENCE_OUT=${1:-$ORVEL_ROOT/build-reference}
mkdir -p "$ORVEL_REFERENCE_OUT"
doxygen "$ORVEL_ROOT/docs/Doxyfile"
echo "reference: $ORVEL_REFERENCE_OUT/html/index.html"
