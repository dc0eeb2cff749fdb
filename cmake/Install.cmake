# Installed files besides the libraries: the programs that were built, the descriptions by which CMake and pkg-config
# find all of it, and the pages. No file holds the prefix, so an installed tree can be moved.

set(packageDir "${CMAKE_INSTALL_LIBDIR}/cmake/${REPORTGENERATOR_PACKAGE}")
set(pkgConfigDir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# --- Programs

foreach(program IN ITEMS reporttool reportpicture reportviewer)
    if(TARGET ${program})
        file(RELATIVE_PATH binToLib "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
        set_target_properties(${program} PROPERTIES
            OUTPUT_NAME ${program}${REPORTGENERATOR_FILE_SUFFIX}
            INSTALL_RPATH "$ORIGIN/${binToLib}")
    endif()
endforeach()

if(NOT REPORTGENERATOR_INSTALL)
    return()
endif()

# reporttool looks for reportpicture beside itself. Who needs no window gets by without the libraries of windows.
set(componentOf_reporttool tools)
set(componentOf_reportpicture tools)
set(componentOf_reportviewer viewer)
foreach(program IN ITEMS reporttool reportpicture reportviewer)
    if(TARGET ${program})
        install(TARGETS ${program}
            RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
            COMPONENT ${componentOf_${program}})
    endif()
endforeach()

# --- The driver for GDAL, in a folder of plug-ins beside the libraries. It has one name, so the build for Qt 5 brings it.

if(TARGET ogr_REPORTS AND REPORTGENERATOR_QT_MAJOR STREQUAL "5")
    set_target_properties(ogr_REPORTS PROPERTIES INSTALL_RPATH "$ORIGIN/..")
    install(TARGETS ogr_REPORTS
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/gdalplugins"
        COMPONENT gdal)
endif()

# --- Manual pages and completion for shells, each where those look who read them

if(TARGET pages_reporttool${REPORTGENERATOR_FILE_SUFFIX})
    install(DIRECTORY "${REPORTGENERATOR_PAGES_FOLDER}/man/"
        DESTINATION "${CMAKE_INSTALL_MANDIR}"
        COMPONENT tools
        PATTERN "reportviewer*" EXCLUDE)
    if(TARGET reportviewer)
        install(DIRECTORY "${REPORTGENERATOR_PAGES_FOLDER}/man/"
            DESTINATION "${CMAKE_INSTALL_MANDIR}"
            COMPONENT viewer
            FILES_MATCHING PATTERN "reportviewer*")
    endif()
    install(DIRECTORY "${REPORTGENERATOR_PAGES_FOLDER}/bash-completion" "${REPORTGENERATOR_PAGES_FOLDER}/fish"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}"
        COMPONENT tools)
    # Debian's zsh has a folder of its own for what packages bring.
    set(zshFolder site-functions)
    if(REPORTGENERATOR_DEBIAN_PACKAGES)
        set(zshFolder vendor-completions)
    endif()
    install(DIRECTORY "${REPORTGENERATOR_PAGES_FOLDER}/zsh/site-functions/"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/zsh/${zshFolder}"
        COMPONENT tools)
endif()

# --- How desktops and file(1) know reports

# The same files for every Qt.
if(TARGET reporttool AND NOT WIN32)
    install(FILES "${PROJECT_SOURCE_DIR}/tools/mime/reportgenerator.xml"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/mime/packages"
        COMPONENT types)
    install(FILES "${PROJECT_SOURCE_DIR}/tools/mime/magic"
        DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/file/magic"
        RENAME reportgenerator
        COMPONENT types)
endif()

# --- Schemas of the forms and of what reporttool writes as JSON, the same for every Qt

install(DIRECTORY "${PROJECT_SOURCE_DIR}/schemas"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/reportgenerator"
    COMPONENT types)

# By which desktops offer the window for reports.
if(TARGET reportviewer AND UNIX AND NOT APPLE)
    set(viewerName "reportviewer${REPORTGENERATOR_FILE_SUFFIX}")
    configure_file("${PROJECT_SOURCE_DIR}/tools/reportviewer/reportviewer.desktop.in"
        "${PROJECT_BINARY_DIR}/${viewerName}.desktop" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${viewerName}.desktop"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/applications"
        COMPONENT viewer)
endif()

# --- CMake package

# What a program may ask for besides the library. The programs may be installed or not, which the package sees itself.
set(REPORTGENERATOR_COMPONENTS reportbase qt)
if(TARGET reportmodels)
    list(APPEND REPORTGENERATOR_COMPONENTS models)
endif()
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/ReportGeneratorConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/${REPORTGENERATOR_PACKAGE}Config.cmake"
    INSTALL_DESTINATION "${packageDir}"
    PATH_VARS CMAKE_INSTALL_BINDIR
    NO_SET_AND_CHECK_MACRO
    NO_CHECK_REQUIRED_COMPONENTS_MACRO)

# Before 1.0 a new minor version may change the interface.
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/${REPORTGENERATOR_PACKAGE}ConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)

install(EXPORT ${REPORTGENERATOR_PACKAGE}Targets
    NAMESPACE ReportGenerator::
    DESTINATION "${packageDir}"
    COMPONENT development)
install(FILES
    "${PROJECT_BINARY_DIR}/${REPORTGENERATOR_PACKAGE}Config.cmake"
    "${PROJECT_BINARY_DIR}/${REPORTGENERATOR_PACKAGE}ConfigVersion.cmake"
    DESTINATION "${packageDir}"
    COMPONENT development)

# --- pkg-config

# Where a folder stands below the prefix it is found from the place of the .pc file itself.
file(RELATIVE_PATH REPORTGENERATOR_PC_TO_PREFIX
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" REPORTGENERATOR_PC_TO_PREFIX "${REPORTGENERATOR_PC_TO_PREFIX}")
foreach(dir IN ITEMS INCLUDEDIR LIBDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
        set(REPORTGENERATOR_PC_${dir} "${CMAKE_INSTALL_${dir}}")
    else()
        set(REPORTGENERATOR_PC_${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
    endif()
endforeach()

# Qt's headers refuse to be compiled without this where Qt was built with reduced relocations; Qt's own .pc files
# leave it to the user.
set(REPORTGENERATOR_PC_CFLAGS "-DREPORTGENERATOR_QT_MAJOR=${REPORTGENERATOR_QT_MAJOR}")
if(UNIX)
    string(APPEND REPORTGENERATOR_PC_CFLAGS " -fPIC")
endif()

# Users set the sink of traces and the switches in the base library, which the full system has of its own.
set(REPORTGENERATOR_PC_LIBS "-lreportbase${REPORTGENERATOR_FILE_SUFFIX}")
if(TARGET wendbase)
    string(APPEND REPORTGENERATOR_PC_LIBS " -lwendbase${REPORTGENERATOR_FILE_SUFFIX}")
endif()

set(pcFile "${PROJECT_BINARY_DIR}/reportgenerator${REPORTGENERATOR_FILE_SUFFIX}.pc")
configure_file("${PROJECT_SOURCE_DIR}/cmake/reportgenerator.pc.in" "${pcFile}" @ONLY)
set(pcFiles "${pcFile}")
if(TARGET reportmodels)
    set(pcFile "${PROJECT_BINARY_DIR}/reportgenerator-models${REPORTGENERATOR_FILE_SUFFIX}.pc")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/reportgenerator-models.pc.in" "${pcFile}" @ONLY)
    list(APPEND pcFiles "${pcFile}")
endif()
install(FILES ${pcFiles}
    DESTINATION "${pkgConfigDir}"
    COMPONENT development)

# --- Pages, with the folders that they name

# A project that takes this one in has pages of its own.
if(PROJECT_IS_TOP_LEVEL)
    install(FILES "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}"
        COMPONENT documentation)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" "${PROJECT_SOURCE_DIR}/examples"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}"
        COMPONENT documentation
        PATTERN "examples/CMakeLists.txt" EXCLUDE)
endif()
