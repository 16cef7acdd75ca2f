#!/usr/bin/env bash
# Cross-builds ORVEL.dll for 32-bit Windows and checks its export table with the cross objdump: both names
# of every listed export at one address, nothing missing or extra, system DLLs only among the imports, and
# DllMain linked. Skips (exit 0, one line) when the MinGW compiler cannot be installed.
set -euo pipefail
source "$(dirname "$0")/common.sh"
build="$ORVEL_ROOT/build-win32"

if ! command -v i686-w64-mingw32-g++ >/dev/null 2>&1; then
    if ! orvel_apt g++-mingw-w64-i686 || ! command -v i686-w64-mingw32-g++ >/dev/null 2>&1; then
        echo "windows: the i686-w64-mingw32 cross compiler cannot be installed here; ORVEL.dll check skipped"
        exit 0
    fi
fi

cmake -S "$ORVEL_ROOT" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$ORVEL_ROOT/cmake/toolchain-i686-mingw32.cmake" \
      -DORVEL_LIBRARY_ONLY=ON -DORVEL_WERROR=ON >/dev/null
cmake --build "$build" -j2
python3 "$ORVEL_ROOT/tools/check_dll.py" i686-w64-mingw32-objdump "$build/ORVEL.dll" "$build/gen/orvel.def" \
        "$build/gen/export_names.txt"
