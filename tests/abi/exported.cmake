# Compares the names that LIBRARY exports, by NM, with those in EXPORTS, both ways. Of a DLL it is OBJDUMP and CXXFILT that
# tell.

cmake_minimum_required(VERSION 3.22)

# read(<command> <argument>...): runs a command and leaves what it prints in output.
macro(read)
    execute_process(
        COMMAND ${ARGV}
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${errors}")
    endif()
endmacro()

if(OBJDUMP)
    # The table of names ends by an empty line. Its names are as they are mangled.
    read("${OBJDUMP}" --private-headers "${LIBRARY}")
    string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table\n(([^\n]+\n)+)" table "${output}")
    string(REGEX REPLACE "[ \t]*\\[ *[0-9]+\\] " "" names "${CMAKE_MATCH_1}")
    cmake_path(GET LIBRARY FILENAME library)
    file(WRITE "${SCRATCH}/${library}.txt" "${names}")
    execute_process(
        COMMAND "${CXXFILT}"
        INPUT_FILE "${SCRATCH}/${library}.txt"
        OUTPUT_VARIABLE output
        COMMAND_ERROR_IS_FATAL ANY)
else()
    read("${NM}" --dynamic --demangle --defined-only "${LIBRARY}")

    # A line is address, kind and name. Kind A is the version that the names bear.
    string(REGEX REPLACE "[^\n]+ A [^\n]+\n" "" output "${output}")
    string(REGEX REPLACE "(^|\n)[0-9a-f]+ [A-Za-z] " "\\1" output "${output}")
    string(REGEX REPLACE "@[^\n]+" "" output "${output}")
endif()

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
