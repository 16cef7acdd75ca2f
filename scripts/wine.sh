#!/usr/bin/env bash
# Cross-builds the orvel command for 64-bit Windows (build-win64/orvel.exe) and runs every call of
# tests/calls under Wine and on Linux (build/orvel): the rows written with `=> expected output` must give it
# on both, and the two `batch --exact` outputs (17 significant digits) must be the same to the last byte.
# Skips (exit 0, one line) when the MinGW compiler or Wine cannot be installed.
set -euo pipefail
source "$(dirname "$0")/common.sh"
build="$ORVEL_ROOT/build-win64"
calls="$ORVEL_ROOT/tests/calls"
wine=/usr/lib/wine/wine64

if ! command -v x86_64-w64-mingw32-g++ >/dev/null 2>&1; then
    if ! orvel_apt g++-mingw-w64-x86-64 || ! command -v x86_64-w64-mingw32-g++ >/dev/null 2>&1; then
        echo "wine: the x86_64-w64-mingw32 cross compiler cannot be installed here; the Windows run of the calls skipped"
        exit 0
    fi
fi
if [ ! -x "$wine" ]; then
    if ! orvel_apt wine64 || [ ! -x "$wine" ]; then
        echo "wine: wine64 cannot be installed here; the Windows run of the calls skipped"
        exit 0
    fi
fi
echo "wine: 64-bit only (wine32 does not install from the Debian archive here): ORVEL.dll keeps its export-table check alone"

cmake -S "$ORVEL_ROOT" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$ORVEL_ROOT/cmake/toolchain-x86_64-mingw32.cmake" \
      -DORVEL_CLI_ONLY=ON -DORVEL_WERROR=ON >/dev/null
cmake --build "$build" -j2 --target orvel_cli orvel
python3 "$ORVEL_ROOT/tools/check_dll.py" x86_64-w64-mingw32-objdump "$build/ORVEL64.dll" "$build/gen/orvel64.def" \
        "$build/gen/export_names.txt"
[ -f "$ORVEL_ROOT/build/build.ninja" ] || cmake -S "$ORVEL_ROOT" -B "$ORVEL_ROOT/build" -G Ninja -DORVEL_WERROR=ON >/dev/null
cmake --build "$ORVEL_ROOT/build" -j2 --target orvel_cli

# A prefix of our own under the build tree, made without asking anything (no Mono or Gecko, no display).
# One Wine server is kept up for the runs below, and its service processes are started here with their
# output to /dev/null: started by a run, they would keep that run's output pipe open after it ends.
export WINEPREFIX="$build/wineprefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" WINEARCH=win64
unset DISPLAY WAYLAND_DISPLAY
start=$SECONDS
made=$([ -f "$WINEPREFIX/system.reg" ] && echo "started" || echo "made")
mkdir -p "$WINEPREFIX"
/usr/lib/wine/wineserver -p
trap '/usr/lib/wine/wineserver -k 2>/dev/null || true' EXIT
"$wine" wineboot --init </dev/null >/dev/null 2>&1
echo "wine: prefix $WINEPREFIX $made in $((SECONDS - start)) s"

status=0
out="$build/calls"
mkdir -p "$out"
check() {  # check LABEL [OPTION...] -- COMMAND...
    local label=$1 options=()
    shift
    while [ "$1" != "--" ]; do options+=("$1"); shift; done
    shift
    echo "wine: $label"
    python3 "$ORVEL_ROOT/tools/check_calls.py" "${options[@]}" "$calls" "$@" </dev/null | sed 's/^/    /' || status=1
}
# The rows' expectations on both; then the 17-digit outputs (more digits than the expectations are written
# with, so only parsed) compared byte for byte.
check "Linux, batch" -- "$ORVEL_ROOT/build/orvel" batch
check "Windows, batch" -- "$wine" "$build/orvel.exe" batch
check "Linux, batch --exact" --parse-only --dump "$out/linux-exact.txt" -- "$ORVEL_ROOT/build/orvel" batch --exact
check "Windows, batch --exact, against Linux" --parse-only --against "$out/linux-exact.txt" -- \
      "$wine" "$build/orvel.exe" batch --exact
exit $status
