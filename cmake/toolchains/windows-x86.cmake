set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
# Numbers come out as on the other systems only where no calculation passes through the 80 bits of the x87.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
# Callers on Windows align the stack to 4 bytes only, where this compiler expects 16.
string(APPEND CMAKE_C_FLAGS_INIT " -mstackrealign")
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_C_FLAGS_INIT}")
