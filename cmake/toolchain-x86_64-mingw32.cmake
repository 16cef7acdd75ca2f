# Cross build of the orvel command for 64-bit Windows with Debian's MinGW-w64 compiler (g++-mingw-w64-x86-64),
# run under Wine to compare every sample call with the Linux build:
#   cmake -S . -B build-win64 -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-x86_64-mingw32.cmake -DORVEL_CLI_ONLY=ON
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ORVEL_MINGW_PREFIX x86_64-w64-mingw32)
# The posix flavour, when installed, is not needed: neither the library nor the command starts threads.
find_program(CMAKE_C_COMPILER NAMES ${ORVEL_MINGW_PREFIX}-gcc-win32 ${ORVEL_MINGW_PREFIX}-gcc REQUIRED)
find_program(CMAKE_CXX_COMPILER NAMES ${ORVEL_MINGW_PREFIX}-g++-win32 ${ORVEL_MINGW_PREFIX}-g++ REQUIRED)
find_program(CMAKE_RC_COMPILER NAMES ${ORVEL_MINGW_PREFIX}-windres)
find_program(CMAKE_AR NAMES ${ORVEL_MINGW_PREFIX}-ar REQUIRED)
find_program(CMAKE_RANLIB NAMES ${ORVEL_MINGW_PREFIX}-ranlib REQUIRED)
find_program(ORVEL_OBJDUMP NAMES ${ORVEL_MINGW_PREFIX}-objdump)

# SSE2 is the x86-64 baseline; no fused multiply-add (which baseline x86-64 does not have either). The C and C++
# runtimes linked in: the command runs without MinGW's DLLs beside it.
set(CMAKE_C_FLAGS_INIT "-ffp-contract=off")
set(CMAKE_CXX_FLAGS_INIT "-ffp-contract=off")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

set(CMAKE_FIND_ROOT_PATH /usr/${ORVEL_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
