# Cross-builds for Windows with mingw-w64; a toolchain file names the processor and includes this one.
# Of Debian's two variants it takes the one with POSIX threads, as the other lacks parts of the standard library.
set(CMAKE_SYSTEM_NAME Windows)
set(TABVEX_MINGW ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${TABVEX_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TABVEX_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${TABVEX_MINGW}-windres)

# Headers and libraries of the building system are none of Windows.
set(CMAKE_FIND_ROOT_PATH /usr/${TABVEX_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
