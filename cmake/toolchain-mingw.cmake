# GCC for Windows (MinGW-w64), with two parameters from the preset:
#
#   ZENITHOR_MINGW_MACHINE   i686 or x86_64: the width. Charting hosts are 32-bit programs and load a
#                            32-bit DLL; newer ones are 64-bit.
#   ZENITHOR_MINGW_THREADS   win32 or posix: what GCC's run-time library builds its threads on. The DLL
#                            takes win32: it keeps what a thread keeps in the system's own slots, and so
#                            nothing of a thread library comes with it. Unit tests take posix:
#                            GoogleTest and they use std::thread, which only that model has.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${ZENITHOR_MINGW_MACHINE})
# The compiler is tried in projects of their own, which read this file too.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZENITHOR_MINGW_MACHINE ZENITHOR_MINGW_THREADS)

set(prefix ${ZENITHOR_MINGW_MACHINE}-w64-mingw32)
set(CMAKE_C_COMPILER ${prefix}-gcc-${ZENITHOR_MINGW_THREADS})
set(CMAKE_CXX_COMPILER ${prefix}-g++-${ZENITHOR_MINGW_THREADS})
set(CMAKE_RC_COMPILER ${prefix}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${prefix})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
