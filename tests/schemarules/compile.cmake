# Compiles schema.cpp with what is WRONG: the compiler has to say MESSAGE and nothing else, or nothing when that is
# empty.

cmake_minimum_required(VERSION 3.22)

list(TRANSFORM QT_INCLUDE_DIRS PREPEND -isystem)
execute_process(
    COMMAND "${COMPILER}" -std=c++17 -fPIC -fsyntax-only "-DWRONG=${WRONG}" "-I${INCLUDE_DIR}" ${QT_INCLUDE_DIRS}
        "${CMAKE_CURRENT_LIST_DIR}/schema.cpp"
    RESULT_VARIABLE result
    ERROR_VARIABLE errors)

string(REGEX MATCHALL "error: [^\n]*" found "${errors}")
list(LENGTH found count)
if(MESSAGE STREQUAL "")
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "a good schema doesn't compile\n${errors}")
    endif()
elseif(result EQUAL 0 OR NOT count EQUAL 1 OR NOT found MATCHES "${MESSAGE}")
    message(FATAL_ERROR "expected: ${MESSAGE}\n${errors}")
endif()
