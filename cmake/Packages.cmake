# Debian packages: what cpack makes of the components of a build below /usr for one version of Qt. `./dev package deb`
# runs it for both. Headers, types of files and pages are the same files for every Qt, so that the build for Qt 5 brings them alone.
#
# Maintainer and date are those of the one who packs, and the libraries' version is the project's.

set(REPORTGENERATOR_PACKAGE_MAINTAINER "" CACHE STRING "Who maintains the packages: Name <address>")
set(REPORTGENERATOR_PACKAGE_DATE "" CACHE STRING "Date of the packages' changelog, as mails have it")
set(REPORTGENERATOR_REFERENCE "" CACHE PATH "Folder with the reference, as reference/make.py makes it")
set(REPORTGENERATOR_BILL_OF_MATERIALS "${PROJECT_BINARY_DIR}/reportgenerator.spdx.json" CACHE FILEPATH
    "What the packages consist of, taken into the documentation if it is there")
if(NOT TARGET reportmodels)
    message(FATAL_ERROR "Debian packages need REPORTGENERATOR_BUILD_MODELS")
endif()
if(NOT REPORTGENERATOR_PACKAGE_MAINTAINER OR NOT REPORTGENERATOR_PACKAGE_DATE)
    message(FATAL_ERROR "Debian packages need REPORTGENERATOR_PACKAGE_MAINTAINER and REPORTGENERATOR_PACKAGE_DATE")
endif()

# --- Names

# The name of a library's package ends in the version of its interface, as its file name does, with a hyphen between
# digits.
function(name_library_package variable target)
    get_target_property(interfaceVersion ${target} SOVERSION)
    set(name "lib${target}${REPORTGENERATOR_FILE_SUFFIX}")
    if(name MATCHES "[0-9]$")
        string(APPEND name "-")
    endif()
    set(${variable} "${name}${interfaceVersion}" PARENT_SCOPE)
endfunction()

name_library_package(packageOf_runtime reportbase)
name_library_package(packageOf_models reportmodels)
set(packageOf_development "libreportbase${REPORTGENERATOR_FILE_SUFFIX}-dev")
set(packageOf_tools "reporttool${REPORTGENERATOR_FILE_SUFFIX}")
set(packageOf_types "reporttool-types")
set(packageOf_viewer "reportviewer${REPORTGENERATOR_FILE_SUFFIX}")
set(packageOf_headers "libreportbase-headers")
set(packageOf_documentation "libreportbase-doc")
set(packageOf_reference "reportgenerator-doc")
set(packageOf_python "python3-reportgenerator")
set(packageOf_gdal "libgdal-reports")

set(components runtime models development tools)
if(TARGET reportviewer)
    list(APPEND components viewer)
endif()
if(TARGET _reportgenerator)
    list(APPEND components python)
endif()
if(TARGET ogr_REPORTS AND REPORTGENERATOR_QT_MAJOR STREQUAL "5")
    list(APPEND components gdal)
endif()
set(qtPackage qt6-base-dev)
if(REPORTGENERATOR_QT_MAJOR STREQUAL "5")
    list(APPEND components types headers documentation reference)
    set(qtPackage qtbase5-dev)
endif()

# --- What only packages hold

set(changelog "${PROJECT_BINARY_DIR}/debian/changelog")
file(CONFIGURE OUTPUT "${changelog}" @ONLY CONTENT
[[reportgenerator (@PROJECT_VERSION@) unstable; urgency=medium

  * Version @PROJECT_VERSION@; CHANGELOG.md in libreportbase-doc tells what changed.

 -- @REPORTGENERATOR_PACKAGE_MAINTAINER@  @REPORTGENERATOR_PACKAGE_DATE@
]])
find_program(GZIP_PROGRAM gzip REQUIRED)
mark_as_advanced(GZIP_PROGRAM)
execute_process(COMMAND "${GZIP_PROGRAM}" --best --no-name --force --keep "${changelog}" COMMAND_ERROR_IS_FATAL ANY)
foreach(component IN LISTS components)
    install(FILES "${changelog}.gz"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${packageOf_${component}}"
        COMPONENT ${component})
endforeach()

if(documentation IN_LIST components)
    install(FILES "${REPORTGENERATOR_BILL_OF_MATERIALS}"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}"
        COMPONENT documentation
        OPTIONAL)
endif()

# The site and the file for Qt's help, which reference/make.py has made.
if(reference IN_LIST components)
    if(NOT EXISTS "${REPORTGENERATOR_REFERENCE}/html/index.html")
        message(FATAL_ERROR "Debian packages need REPORTGENERATOR_REFERENCE, a folder with html and reportgenerator.qch")
    endif()
    install(DIRECTORY "${REPORTGENERATOR_REFERENCE}/html"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${packageOf_reference}"
        COMPONENT reference)
    install(FILES "${REPORTGENERATOR_REFERENCE}/reportgenerator.qch"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/qt5/doc"
        COMPONENT reference)
endif()

# --- The packages

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME reportgenerator)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "${REPORTGENERATOR_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
# Debug information goes into packages of its own.
set(CPACK_STRIP_FILES OFF)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SOURCE reportgenerator)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Each description has a first line of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

# reportgenerator_package(<component> <section> <first line of the description> <what the package holds>)
macro(reportgenerator_package component section summary contents)
    string(TOUPPER "${component}" name)
    set(CPACK_DEBIAN_${name}_PACKAGE_NAME "${packageOf_${component}}")
    set(CPACK_DEBIAN_${name}_PACKAGE_SECTION "${section}")
    set(CPACK_COMPONENT_${name}_DESCRIPTION "${summary}
Reports and tasks of a radio-monitoring system consist of objects with
checked fields, which are written to and read from XML, tagged binary data
and compressed binary data.
.
${contents}")
endmacro()

set(qt "Qt ${REPORTGENERATOR_QT_MAJOR}")

reportgenerator_package(runtime libs "report data model of radio monitoring (${qt})"
    "This package holds the shared libraries for programs that use ${qt}.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

reportgenerator_package(models libs "report data model of radio monitoring - models for views (${qt})"
    "This package holds the shared library by which programs that use ${qt} show and\nedit reports in its views.")
# As the program, it is compiled with private headers of the library, so that both are of one version.
set(CPACK_DEBIAN_MODELS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_MODELS_PACKAGE_DEPENDS "${packageOf_runtime} (= ${PROJECT_VERSION})")

reportgenerator_package(tools utils "show, convert and check reports of radio monitoring (${qt})"
    "This package holds the command-line program, which takes and writes reports\nin every form.")
# The program is compiled with private headers of the library, so that both are of one version.
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    "${PROJECT_BINARY_DIR}/framework/reportgenerator/reportbase" "${PROJECT_BINARY_DIR}/framework/wendbase"
    "${PROJECT_BINARY_DIR}/framework/reportgenerator/models")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${packageOf_runtime} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "${packageOf_types}")

if(viewer IN_LIST components)
    reportgenerator_package(viewer science "window on reports of radio monitoring (${qt})"
        "This package holds the program that shows reports in every form: their fields,\nthe area on a map, problems and bytes.")
    set(CPACK_DEBIAN_VIEWER_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_VIEWER_PACKAGE_RECOMMENDS "${packageOf_types}")
    string(CONCAT CPACK_DEBIAN_VIEWER_PACKAGE_DEPENDS
        "${packageOf_runtime} (= ${PROJECT_VERSION}), ${packageOf_models} (= ${PROJECT_VERSION})")
endif()

if(python IN_LIST components)
    reportgenerator_package(python python "report data model of radio monitoring - Python"
        "This package holds the classes of the library for Python, with its forms\nand checks.")
    # The modules are compiled with private headers of the library, for one version of Python.
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS ON)
    math(EXPR nextPython "${Python_VERSION_MINOR} + 1")
    string(CONCAT CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
        "${packageOf_runtime} (= ${PROJECT_VERSION}), python3 (>= 3.${Python_VERSION_MINOR}), python3 (<< 3.${nextPython}), "
        "python3-numpy")
endif()

if(gdal IN_LIST components)
    reportgenerator_package(gdal libs "report data model of radio monitoring - driver for GDAL"
        "This package has GDAL, and what reads maps through it, open files and folders\nof reports.")
    # The driver is compiled with private headers of the library.
    set(CPACK_DEBIAN_GDAL_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_GDAL_PACKAGE_DEPENDS "${packageOf_runtime} (= ${PROJECT_VERSION})")
    set(CPACK_DEBIAN_GDAL_PACKAGE_SUGGESTS "gdal-bin")
endif()

reportgenerator_package(development libdevel "report data model of radio monitoring - development (${qt})"
    "This package holds what a program needs to be built with ${qt} by CMake or\npkg-config.")
string(CONCAT CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${packageOf_runtime} (= ${PROJECT_VERSION}), ${packageOf_models} (= ${PROJECT_VERSION}), "
    "${packageOf_headers} (= ${PROJECT_VERSION}), "
    "${qtPackage} (>= ${REPORTGENERATOR_QT_MINIMUM})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "${packageOf_documentation}, ${packageOf_reference}")

if(headers IN_LIST components)
    reportgenerator_package(types utils "types of files and schemas for reports of radio monitoring"
        "This package has desktops and the program file know reports by their content,\nand holds schemas for programs that read reports without the library.")
    set(CPACK_DEBIAN_TYPES_PACKAGE_ARCHITECTURE all)

    reportgenerator_package(headers libdevel "report data model of radio monitoring - headers"
        "This package holds the headers, which are the same for every version of Qt.")
    set(CPACK_DEBIAN_HEADERS_PACKAGE_ARCHITECTURE all)

    reportgenerator_package(documentation doc "report data model of radio monitoring - documentation"
        "This package holds the pages on library, forms and program, the examples, and\nthe bill of materials.")
    set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)

    reportgenerator_package(reference doc "report data model of radio monitoring - reference"
        "This package holds the reference of classes and pages as a site to be read\noffline, and as a file for Qt Assistant and Qt Creator.")
    set(CPACK_DEBIAN_REFERENCE_PACKAGE_ARCHITECTURE all)
endif()

include(CPack)
