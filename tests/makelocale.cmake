# Makes a German locale in LOCALE_DIR, so that a test can run with a decimal comma wherever it is run and without
# changing the machine, in the BYTE_ORDER of the platform that the test is built for. Fails when the locale cannot be had.

set(locale "${LOCALE_DIR}/de_DE.UTF-8")

if(NOT EXISTS "${locale}/LC_NUMERIC")
    find_program(LOCALEDEF localedef REQUIRED)
    file(MAKE_DIRECTORY "${LOCALE_DIR}")
    set(byteOrder --little-endian)
    if(BYTE_ORDER STREQUAL "BIG_ENDIAN")
        set(byteOrder --big-endian)
    endif()
    execute_process(
        COMMAND "${LOCALEDEF}" ${byteOrder} -i de_DE -f UTF-8 "${locale}"
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "Cannot make the locale de_DE.UTF-8; is the package \"locales\" installed?\n${output}")
    endif()
endif()

# The machine's own programs cannot read that of another platform; the test looks at what it got anyway.
if(CROSSCOMPILING)
    return()
endif()

execute_process(
    COMMAND "${CMAKE_COMMAND}" -E env "LOCPATH=${LOCALE_DIR}" LC_ALL=de_DE.UTF-8 locale decimal_point
    OUTPUT_VARIABLE decimalPoint
    OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT decimalPoint STREQUAL ",")
    message(FATAL_ERROR "The locale de_DE.UTF-8 in ${LOCALE_DIR} has the decimal point '${decimalPoint}'")
endif()
