# Installs the build, moves the installed tree and looks at what is in it.

include("${SETTINGS}")

file(REMOVE_RECURSE "${SCRATCH}/prefix" "${PREFIX}")
run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${SCRATCH}/prefix")
file(RENAME "${SCRATCH}/prefix" "${PREFIX}")

# --- The headers are the public ones, all of them and no other

set(expected "")
foreach(header IN LISTS PUBLIC_HEADERS)
    file(RELATIVE_PATH name "${SOURCE_DIR}/framework" "${header}")
    list(APPEND expected "${name}")
endforeach()
list(SORT expected)

file(GLOB_RECURSE installed RELATIVE "${PREFIX}/${INCLUDE_DIR}" "${PREFIX}/${INCLUDE_DIR}/*")
list(SORT installed)

if(NOT installed STREQUAL expected)
    message(FATAL_ERROR "installed headers: ${installed}\nexpected: ${expected}")
endif()

file(GLOB_RECURSE internal "${PREFIX}/*_p.h")
if(internal)
    message(FATAL_ERROR "internal headers are installed: ${internal}")
endif()

# --- The other files

include("${SOURCE_DIR}/tests/install/libraryfiles.cmake")
if(BUILD_TOOLS AND NOT EXISTS "${PREFIX}/${BIN_DIR}/reporttool${SUFFIX}${EXE}")
    message(FATAL_ERROR "not installed: ${BIN_DIR}/reporttool${SUFFIX}${EXE}")
endif()

# --- The pages: all of them, with what they lead to

file(GLOB pages RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/docs/*")
if(NOT pages)
    message(FATAL_ERROR "no pages")
endif()
list(APPEND pages README.md CHANGELOG.md)
foreach(page IN LISTS pages)
    set(installedPage "${PREFIX}/${DOC_DIR}/${page}")
    if(NOT EXISTS "${installedPage}")
        message(FATAL_ERROR "not installed: ${DOC_DIR}/${page}")
    endif()
    if(NOT page MATCHES "\\.md$")
        continue()
    endif()
    file(READ "${installedPage}" text)
    cmake_path(GET installedPage PARENT_PATH folder)
    # Programs have brackets of their own.
    string(REGEX REPLACE "```[^`]*```" "" text "${text}")
    # A bracket would keep the links from being a list.
    string(REPLACE "](" "\n@(" text "${text}")
    string(REGEX MATCHALL "\n@\\([^()#:\n]+[)#]" links "${text}")
    foreach(link IN LISTS links)
        string(REGEX REPLACE "^...(.*).$" "\\1" link "${link}")
        if(NOT EXISTS "${folder}/${link}")
            message(FATAL_ERROR "${page} leads to ${link}, which is not installed")
        endif()
    endforeach()
endforeach()

# --- No description knows where the tree was built or installed

file(GLOB_RECURSE descriptions "${PREFIX}/*.cmake" "${PREFIX}/*.pc")
foreach(description IN LISTS descriptions)
    file(READ "${description}" text)
    foreach(place IN ITEMS "${SOURCE_DIR}" "${BUILD_DIR}")
        string(FIND "${text}" "${place}" position)
        if(NOT position EQUAL -1)
            message(FATAL_ERROR "${description} names ${place}")
        endif()
    endforeach()
endforeach()

# --- The program finds its library in the moved tree

if(BUILD_TOOLS)
    find_dlls()
    run_program("${PREFIX}/${BIN_DIR}/reporttool${SUFFIX}" --help)
endif()
