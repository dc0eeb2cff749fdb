# Compiles for s390x against the system root that makesysroot.sh makes, and runs what was built by user-mode emulation.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)
set(CMAKE_LIBRARY_ARCHITECTURE s390x-linux-gnu)

get_filename_component(CMAKE_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot-s390x" ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH "${CMAKE_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The machine need not know programs of that architecture.
find_program(REPORTGENERATOR_QEMU NAMES qemu-s390x qemu-s390x-static REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR "${REPORTGENERATOR_QEMU};-L;${CMAKE_SYSROOT}")
