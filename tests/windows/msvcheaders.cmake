# Has COMPILER, a Clang, read each of HEADERS by the language rules and the ABI of MSVC, alone and twice, with a user's
# strict warnings. What Qt and C++ bring comes from the libraries for GCC, in GCC_INCLUDE_DIRS.

cmake_minimum_required(VERSION 3.22)

list(TRANSFORM GCC_INCLUDE_DIRS PREPEND -isystem OUTPUT_VARIABLE foreign)
set(failed "")
foreach(header IN LISTS HEADERS)
    file(WRITE "${SCRATCH}/msvcheader.cpp" "#include \"${header}\"\n#include \"${header}\"\n#ifndef _MSC_VER\n#error not MSVC\n#endif\n")
    execute_process(
        COMMAND "${COMPILER}" --target=x86_64-pc-windows-msvc -std=c++17 -fsyntax-only -nostdinc++ -fgnuc-version=12.2.0
            ${foreign} -include "${CMAKE_CURRENT_LIST_DIR}/msvclibraries.h" "-I${INCLUDE_DIR}"
            -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Werror
            # A destructor that is not virtual on purpose, seen in the library's own std::unique_ptr.
            -Wno-delete-non-abstract-non-virtual-dtor
            "${SCRATCH}/msvcheader.cpp"
        RESULT_VARIABLE result
        ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        string(APPEND failed "${errors}\n")
    endif()
endforeach()
if(failed)
    message(FATAL_ERROR "${failed}")
endif()
