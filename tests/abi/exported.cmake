# Compares the names that LIBRARY exports, by NM, with those in EXPORTS, both ways.

cmake_minimum_required(VERSION 3.22)

execute_process(
    COMMAND "${NM}" --dynamic --demangle --defined-only "${LIBRARY}"
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${errors}")
endif()

# A line is address, kind and name. Kind A is the version that the names bear.
string(REGEX REPLACE "[^\n]+ A [^\n]+\n" "" output "${output}")
string(REGEX REPLACE "(^|\n)[0-9a-f]+ [A-Za-z] " "\\1" output "${output}")
string(REGEX REPLACE "@[^\n]+" "" output "${output}")

# The arguments of templates, innermost first, then the parameters of functions.
set(before "")
while(NOT output STREQUAL before)
    set(before "${output}")
    string(REGEX REPLACE "<[^<>\n]*>" "{}" output "${output}")
endwhile()
string(REPLACE "{}" "<>" output "${output}")
string(REGEX REPLACE "\\([^\n]*" "" output "${output}")

string(REGEX REPLACE "\n$" "" output "${output}")
string(REPLACE "\n" ";" found "${output}")
set(what "exported")
include("${CMAKE_CURRENT_LIST_DIR}/comparenames.cmake")
