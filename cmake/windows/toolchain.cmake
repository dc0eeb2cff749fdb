# Builds for 64-bit Windows with MinGW-w64, whose threads are those of POSIX, as std::thread needs them. Qt Core and
# GoogleTest for Windows stand where ./dev builds them, or where REPORTGENERATOR_WINDOWS_PARTS tells.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

cmake_path(SET windowsParts NORMALIZE "${CMAKE_CURRENT_LIST_DIR}/../../build/windows-parts")
set(REPORTGENERATOR_WINDOWS_PARTS "${windowsParts}" CACHE PATH "Qt Core and GoogleTest, built for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES REPORTGENERATOR_WINDOWS_PARTS)

# A package of this machine's own would be taken for one of Windows.
set(CMAKE_FIND_ROOT_PATH
    "${REPORTGENERATOR_WINDOWS_PARTS}/qt" "${REPORTGENERATOR_WINDOWS_PARTS}/googletest" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
list(APPEND CMAKE_PREFIX_PATH "${REPORTGENERATOR_WINDOWS_PARTS}/qt" "${REPORTGENERATOR_WINDOWS_PARTS}/googletest")

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/wine.sh")
