# Builds the library for the other version of Qt and installs it beside the first, of which no file may change.

include("${SETTINGS}")

# files_with_sums(<variable>): the installed files, each behind the sum of its contents.
function(files_with_sums variable)
    file(GLOB_RECURSE files LIST_DIRECTORIES FALSE "${PREFIX}/*")
    set(lines "")
    foreach(file IN LISTS files)
        file(SHA256 "${file}" sum)
        list(APPEND lines "${sum} ${file}")
    endforeach()
    set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

files_with_sums(before)

set(build "${SCRATCH}/beside")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${build}" ${CONFIGURE_ARGUMENTS} ${QUICK_BUILD_ARGUMENTS}
    "-DREPORTGENERATOR_QT_MAJOR=${QT_MAJOR}" -DREPORTGENERATOR_BUILD_TESTS=OFF -DREPORTGENERATOR_BUILD_TOOLS=OFF
    -DREPORTGENERATOR_BUILD_EXAMPLES=OFF "-DREPORTGENERATOR_BUILD_MODELS=${BUILD_MODELS}" "-DCMAKE_INSTALL_INCLUDEDIR=${INCLUDE_DIR}" "-DCMAKE_INSTALL_LIBDIR=${LIB_DIR}"
    "-DCMAKE_INSTALL_DOCDIR=${DOC_DIR}")
run("${CMAKE_COMMAND}" --build "${build}" --parallel 2)
run("${CMAKE_COMMAND}" --install "${build}" --prefix "${PREFIX}")

files_with_sums(after)
set(changed ${before})
list(REMOVE_ITEM changed ${after})
if(changed)
    list(JOIN changed "\n" changed)
    message(FATAL_ERROR "changed or removed:\n${changed}")
endif()

include("${SOURCE_DIR}/tests/install/libraryfiles.cmake")
