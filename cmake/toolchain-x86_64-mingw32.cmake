# Cross build of the orvel command for 64-bit Windows with Debian's MinGW-w64 compiler (g++-mingw-w64-x86-64),
# run under Wine to compare every sample call with the Linux build:
#   cmake -S . -B build-win64 -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-x86_64-mingw32.cmake -DORVEL_CLI_ONLY=ON
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(ORVEL_MINGW_PREFIX x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)

# SSE2 is the x86-64 baseline; no fused multiply-add (which baseline x86-64 does not have either). The C and C++
# runtimes linked in: the command runs without MinGW's DLLs beside it.
set(CMAKE_C_FLAGS_INIT "-ffp-contract=off")
set(CMAKE_CXX_FLAGS_INIT "-ffp-contract=off")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
