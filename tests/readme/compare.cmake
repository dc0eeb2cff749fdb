# Runs PROGRAM, taken out of PAGE, and compares what it prints with the file EXPECTED_OUTPUT.

cmake_minimum_required(VERSION 3.22)

execute_process(
    COMMAND ${EMULATOR} "${PROGRAM}"
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "a program of ${PAGE} ended with ${result}\n${output}${errors}")
endif()
if(NOT errors STREQUAL "")
    message(FATAL_ERROR "a program of ${PAGE} complains\n${errors}")
endif()

file(READ "${EXPECTED_OUTPUT}" expected)
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "${PAGE} shows\n${expected}\nbut its program prints\n${output}")
endif()
