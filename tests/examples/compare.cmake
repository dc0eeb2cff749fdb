# Runs PROGRAM with the ARGUMENTS, a list, and compares exit code and standard output with EXPECTED_RESULT and
# the file EXPECTED_OUTPUT. Nothing is expected on standard error.

cmake_minimum_required(VERSION 3.22)

execute_process(
    COMMAND ${EMULATOR} "${PROGRAM}" ${ARGUMENTS}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors)
if(NOT result STREQUAL EXPECTED_RESULT)
    message(FATAL_ERROR "${PROGRAM} ended with ${result} instead of ${EXPECTED_RESULT}\n${output}${errors}")
endif()

file(READ "${EXPECTED_OUTPUT}" expected)
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "${PROGRAM} should print\n${expected}\nbut prints\n${output}")
endif()
if(NOT errors STREQUAL "")
    message(FATAL_ERROR "${PROGRAM} should print nothing on standard error, but prints\n${errors}")
endif()
