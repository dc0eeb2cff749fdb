# Runs PROGRAM, whose comparisons all fail, and looks for the lines of EXPECTED in what it prints, in their order.

cmake_minimum_required(VERSION 3.22)

execute_process(
    COMMAND "${PROGRAM}"
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
if(NOT result EQUAL 5)
    message(FATAL_ERROR "not all comparisons failed: ${result}\n${output}")
endif()

# Lists know brackets.
file(READ "${EXPECTED}" rest)
set(printed "${output}")
while(NOT rest STREQUAL "")
    string(FIND "${rest}" "\n" end)
    string(SUBSTRING "${rest}" 0 ${end} line)
    math(EXPR end "${end} + 1")
    string(SUBSTRING "${rest}" ${end} -1 rest)
    string(FIND "${printed}" "${line}" position)
    if(position EQUAL -1)
        message(FATAL_ERROR "not told: ${line}\n${output}")
    endif()
    string(LENGTH "${line}" length)
    math(EXPR position "${position} + ${length}")
    string(SUBSTRING "${printed}" ${position} -1 printed)
endwhile()
