# What both Windows toolchains share: Debian's MinGW-w64 tools for ORVEL_MINGW_PREFIX (set by the including
# toolchain file) and a find root that keeps the host's libraries out. The posix flavour of the compiler,
# when installed, is not needed: neither the library nor the command starts threads.
set(CMAKE_SYSTEM_NAME Windows)
find_program(CMAKE_C_COMPILER NAMES ${ORVEL_MINGW_PREFIX}-gcc-win32 ${ORVEL_MINGW_PREFIX}-gcc REQUIRED)
find_program(CMAKE_CXX_COMPILER NAMES ${ORVEL_MINGW_PREFIX}-g++-win32 ${ORVEL_MINGW_PREFIX}-g++ REQUIRED)
find_program(CMAKE_RC_COMPILER NAMES ${ORVEL_MINGW_PREFIX}-windres)
find_program(CMAKE_AR NAMES ${ORVEL_MINGW_PREFIX}-ar REQUIRED)
find_program(CMAKE_RANLIB NAMES ${ORVEL_MINGW_PREFIX}-ranlib REQUIRED)
find_program(ORVEL_OBJDUMP NAMES ${ORVEL_MINGW_PREFIX}-objdump)

set(CMAKE_FIND_ROOT_PATH /usr/${ORVEL_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
