#!/bin/sh
# Compiles the generated P/Invoke class with the test under Mono and runs it against liborvel.so.
# usage: run.sh SOURCE_DIR BUILD_DIR
set -e
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
mcs -nologo -warnaserror -out:"$out/orvel_test.exe" "$2/bindings/dotnet/Orvel.cs" "$1/tests/dotnet/OrvelTest.cs"
LD_LIBRARY_PATH="$2" mono "$out/orvel_test.exe"
