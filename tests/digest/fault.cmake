# A digest that did not see a wrong bit would agree on every platform: a bit that is changed in what one object gives in
# one form has to change the digest of that form, that of everything, and no other.

cmake_minimum_required(VERSION 3.22)

function(run variable)
    execute_process(
        COMMAND ${EMULATOR} "${PROGRAM}" --count 20 ${ARGN}
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${PROGRAM} ${ARGN} ended with ${result}\n${errors}")
    endif()
    string(REGEX REPLACE "\r?\n$" "" output "${output}")
    string(REGEX REPLACE "\r?\n" ";" lines "${output}")
    set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

run(good)
list(LENGTH good count)
if(NOT count EQUAL 14)
    message(FATAL_ERROR "There should be 14 lines, not ${count}:\n${good}")
endif()

# Objects 0 and 1 are made of a vector of an area, the last ones are generated.
foreach(form IN ITEMS xml-string raw reading-bytes log-lines)
    run(bad --fault ${form} 1)
    foreach(goodLine badLine IN ZIP_LISTS good bad)
        set(isMeant FALSE)
        if(goodLine MATCHES "^(${form}|everything) ")
            set(isMeant TRUE)
        endif()
        set(differs FALSE)
        if(NOT goodLine STREQUAL badLine)
            set(differs TRUE)
        endif()
        if(NOT differs STREQUAL isMeant)
            message(FATAL_ERROR "A wrong bit in ${form}:\n${goodLine}\nbecame\n${badLine}")
        endif()
    endforeach()
endforeach()
