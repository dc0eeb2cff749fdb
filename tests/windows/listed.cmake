# Compares what is tested here with what is tested on Linux. What runs only there stands in LIST, a line each with its
# reason: "<suite>.<test>: <reason>" for a test of the test program, "<suite>.*: <reason>" for all in a
# suite, "tests/<folder>: <reason>" for all in a folder, "<entry>: <reason>" for an entry of ctest. A name that is listed and runs here, or is no longer to be found, is as wrong as
# one that is missing.
#
# RESULTS is what the last whole runs of the test programs say, a file each, since a test may skip itself.

cmake_minimum_required(VERSION 3.22)

function(run variable)
    execute_process(
        COMMAND ${ARGN}
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}${errors}")
    endif()
    set(${variable} "${output}" PARENT_SCOPE)
endfunction()

# --- The tests in the sources, whatever the platform

set(elsewhere "")
file(GLOB sources "${SOURCE_DIR}/tests/*/*.cpp")
foreach(source IN LISTS sources)
    file(READ "${source}" text)
    file(RELATIVE_PATH folder "${SOURCE_DIR}" "${source}")
    get_filename_component(folder "${folder}" DIRECTORY)
    string(REGEX MATCHALL "\n(TYPED_)?TEST(_F|_P)?\\([A-Za-z0-9_]+,[ \n]+[A-Za-z0-9_]+\\)" tests "${text}")
    foreach(test IN LISTS tests)
        string(REGEX REPLACE "^[^(]+\\(([A-Za-z0-9_]+),[ \n]+([A-Za-z0-9_]+)\\)$" "\\1.\\2" test "${test}")
        list(APPEND elsewhere "${test}")
        list(APPEND in_${folder} "${test}")
    endforeach()
endforeach()

# --- Those that ran here

set(text "")
foreach(results IN LISTS RESULTS)
    if(NOT EXISTS "${results}")
        message(FATAL_ERROR "no results in ${results}")
    endif()
    file(READ "${results}" result)
    string(APPEND text "${result}")
endforeach()
# What would keep the matches from being a list.
string(REGEX REPLACE "[][;]" "," text "${text}")
string(REGEX MATCHALL "<testcase [^>]*>" cases "${text}")
set(here "")
foreach(case IN LISTS cases)
    string(REGEX REPLACE "^.* name=\"([A-Za-z0-9_]+)[\"/].* result=\"([a-z]+)\".* classname=\"([A-Za-z0-9_/]+)\".*$" "\\1;\\2;\\3" found
        "${case}")
    list(LENGTH found count)
    if(NOT count EQUAL 3)
        message(FATAL_ERROR "not understood: ${case}")
    endif()
    list(GET found 0 name)
    list(GET found 1 result)
    list(GET found 2 suite)
    if(result STREQUAL "completed")
        # "Rows/Suite" and "Suite/Type" belong to "Suite".
        string(REPLACE "/" ";" suites "${suite}")
        foreach(suite IN LISTS suites)
            list(APPEND here "${suite}.${name}")
        endforeach()
    endif()
endforeach()

# --- The entries of ctest, there and here

# ctest_entries(<variable> <build folder>)
function(ctest_entries variable build)
    run(output "${CTEST}" -N --test-dir "${build}")
    string(REGEX MATCHALL "Test +#[0-9]+: [^\n]+" entries "${output}")
    list(TRANSFORM entries REPLACE "^Test +#[0-9]+: " "")
    set(${variable} "${entries}" PARENT_SCOPE)
endfunction()

run(output "${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${SCRATCH}/elsewhere" -G Ninja -DCMAKE_BUILD_TYPE=Debug)
ctest_entries(entriesElsewhere "${SCRATCH}/elsewhere")
# The suites of a program that isn't built.
list(FILTER entriesElsewhere EXCLUDE REGEX "_NOT_BUILT$")
ctest_entries(entriesHere "${BUILD_DIR}")
if(NOT entriesElsewhere OR NOT entriesHere OR NOT elsewhere OR NOT here)
    message(FATAL_ERROR "no tests")
endif()
list(APPEND elsewhere ${entriesElsewhere})
list(APPEND here ${entriesHere})
list(REMOVE_DUPLICATES elsewhere)
list(REMOVE_DUPLICATES here)

# --- The list

file(STRINGS "${LIST}" lines REGEX "^[^#]")
set(listed "")
set(wrong "")
foreach(line IN LISTS lines)
    if(NOT line MATCHES "^([A-Za-z0-9_./*]+): [^ ].*$")
        string(APPEND wrong "\n    no name and reason: ${line}")
        continue()
    endif()
    set(names "${CMAKE_MATCH_1}")
    if(line MATCHES "^(tests/[a-z]+):")
        set(names ${in_${CMAKE_MATCH_1}})
        if(NOT names)
            string(APPEND wrong "\n    listed, but has no tests: ${CMAKE_MATCH_1}")
        endif()
    elseif(line MATCHES "^([A-Za-z0-9_]+)\\.\\*:")
        set(names ${elsewhere})
        list(FILTER names INCLUDE REGEX "^${CMAKE_MATCH_1}\\.")
        if(NOT names)
            string(APPEND wrong "\n    listed, but has no tests: ${CMAKE_MATCH_1}")
        endif()
    endif()
    list(APPEND listed ${names})
    foreach(name IN LISTS names)
        if(name IN_LIST here)
            string(APPEND wrong "\n    listed, but runs here: ${name}")
        elseif(NOT name IN_LIST elsewhere)
            string(APPEND wrong "\n    listed, but there is none: ${name}")
        endif()
    endforeach()
endforeach()

set(missing ${elsewhere})
list(REMOVE_ITEM missing ${here} ${listed})
foreach(name IN LISTS missing)
    string(APPEND wrong "\n    doesn't run here and isn't listed: ${name}")
endforeach()
if(wrong)
    message(FATAL_ERROR "${LIST}:${wrong}\n")
endif()
list(LENGTH here count)
list(LENGTH listed listedCount)
message(STATUS "${count} names here, ${listedCount} only elsewhere")
