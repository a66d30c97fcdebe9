# 32-bit Windows, built on Linux. Of the compiler's two thread models it is the one with std::thread, which GoogleTest and
# the tests need; the library itself has no use for either.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
find_program(MORVL15_MINGW_C NAMES i686-w64-mingw32-gcc-posix i686-w64-mingw32-gcc REQUIRED)
find_program(MORVL15_MINGW_CXX NAMES i686-w64-mingw32-g++-posix i686-w64-mingw32-g++ REQUIRED)
set(CMAKE_C_COMPILER ${MORVL15_MINGW_C})
set(CMAKE_CXX_COMPILER ${MORVL15_MINGW_CXX})
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
