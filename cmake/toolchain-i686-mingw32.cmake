# Cross build of ORVEL.dll for 32-bit Windows with Debian's MinGW-w64 compiler (g++-mingw-w64-i686).
#   cmake -S . -B build-win32 -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-i686-mingw32.cmake -DORVEL_LIBRARY_ONLY=ON
set(CMAKE_SYSTEM_PROCESSOR i686)
set(ORVEL_MINGW_PREFIX i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)

# SSE2 arithmetic as on x86-64, not the x87 unit: x87 keeps intermediates in 80 bits, so that
# d_trunc_rnd(1.3065, 3, 1) would give 1.306 here and 1.307 everywhere else. No fused multiply-add either.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse -ffp-contract=off")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -ffp-contract=off")
