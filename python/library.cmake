# Where the package is a project of its own: the library, and what programs have in common that look at report files. The
# latter looks into private headers of the library and is built of sources in any case, of the same version.

set(sources "${CMAKE_CURRENT_SOURCE_DIR}/library")
if(NOT EXISTS "${sources}/CMakeLists.txt")
    get_filename_component(sources "${CMAKE_CURRENT_SOURCE_DIR}" DIRECTORY)
endif()
file(STRINGS "${sources}/CMakeLists.txt" version REGEX "^ *VERSION [0-9.]+$" LIMIT_COUNT 1)
string(REGEX REPLACE "^ *VERSION " "" version "${version}")

option(REPORTGENERATOR_PYTHON_OWN_LIBRARY "Build a library for the package, be one installed or not" OFF)
if(NOT REPORTGENERATOR_PYTHON_OWN_LIBRARY)
    find_package(ReportGenerator ${version} EXACT CONFIG QUIET)
endif()

if(ReportGenerator_FOUND)
    message(STATUS "The report library that is installed: ${ReportGenerator_DIR}")
    set(REPORTGENERATOR_WERROR OFF)
    include("${sources}/cmake/TargetDefaults.cmake")
    set(REPORTGENERATOR_BUILD_PYTHON ON)
    add_subdirectory("${sources}/framework/reportgenerator/reflection" reflection EXCLUDE_FROM_ALL)
    add_subdirectory("${sources}/tools/reportcore" reportcore EXCLUDE_FROM_ALL)
    return()
endif()

message(STATUS "A report library of the package's own, of ${sources}")
set(REPORTGENERATOR_BUILD_PYTHON PARTS)
set(REPORTGENERATOR_BUILD_MODELS OFF)
add_subdirectory("${sources}" library EXCLUDE_FROM_ALL)
foreach(library IN ITEMS reportbase wendbase)
    # Without links: an archive of Python has none.
    set_target_properties(${library} PROPERTIES INSTALL_RPATH "$ORIGIN" BUILD_WITH_INSTALL_RPATH ON)
    install(FILES "$<TARGET_FILE:${library}>"
        RENAME "$<TARGET_SONAME_FILE_NAME:${library}>"
        DESTINATION reportgenerator
        COMPONENT python)
endforeach()
