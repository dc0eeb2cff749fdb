# reportgenerator_target_defaults(<target>)
#
# What every target of this project is compiled with: language level, warnings, Qt's stricter dialect and the
# instrumentation that the options ask for. Nothing of it reaches the targets of other projects.

add_library(reportgenerator_defaults INTERFACE)

target_compile_features(reportgenerator_defaults INTERFACE cxx_std_17)

# --- Warnings

if(MSVC)
    target_compile_options(reportgenerator_defaults INTERFACE /W4 /permissive- /utf-8 /Zc:__cplusplus
        $<$<BOOL:${REPORTGENERATOR_WERROR}>:/WX>)
else()
    target_compile_options(reportgenerator_defaults INTERFACE
        -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow
        # Only Clang minds that GoogleTest's macros leave a variadic argument empty, and minds in the standard
        # library's own header that a std::unique_ptr<IXmlConverter> deletes through a destructor that is not
        # virtual. GCC keeps watching for the latter in our code.
        $<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wno-gnu-zero-variadic-macro-arguments>
        $<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wno-delete-non-abstract-non-virtual-dtor>
        $<$<BOOL:${REPORTGENERATOR_WERROR}>:-Werror>)
endif()

# --- Qt's stricter dialect: no silent conversion between bytes and text, no macros named emit, slots or foreach,
#     nothing that was deprecated before Qt 5.15.

target_compile_definitions(reportgenerator_defaults INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_KEYWORDS
    QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x050F00)

# --- Instrumentation

# What links with an instrumented library must be instrumented alike: a test that builds another project needs it.
set(REPORTGENERATOR_SANITIZE_FLAGS "")
if(REPORTGENERATOR_SANITIZE)
    list(JOIN REPORTGENERATOR_SANITIZE "," sanitizers)
    set(REPORTGENERATOR_SANITIZE_FLAGS
        -fsanitize=${sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=all)
endif()
target_compile_options(reportgenerator_defaults INTERFACE ${REPORTGENERATOR_SANITIZE_FLAGS})
target_link_options(reportgenerator_defaults INTERFACE ${REPORTGENERATOR_SANITIZE_FLAGS})

function(reportgenerator_target_defaults target)
    # BUILD_INTERFACE keeps the name out of what an installed target says about its dependencies.
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:reportgenerator_defaults>)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    if(REPORTGENERATOR_COVERAGE)
        # By regions of the source: what a compiler adds, such as edges for exceptions, isn't counted.
        target_compile_options(${target} PRIVATE -fprofile-instr-generate -fcoverage-mapping
            -fprofile-update=atomic)
        target_link_options(${target} PRIVATE -fprofile-instr-generate)
    endif()
endfunction()

# reportgenerator_add_library(<target> [EXPORT_NAME <name>] [COMPONENT <component>])
#
# A shared library of SOURCES and PUBLIC_HEADERS in the current folder, which is its place below framework/ and below
# the installed include folder too. Users link ReportGenerator::<name>, in the tree and after installation; the name is
# that of the target if it isn't given. The component is that of the file which programs load, "runtime" if it isn't
# given.
function(reportgenerator_add_library target)
    cmake_parse_arguments(PARSE_ARGV 1 library "" "EXPORT_NAME;COMPONENT" "")
    if(NOT library_EXPORT_NAME)
        set(library_EXPORT_NAME ${target})
    endif()
    if(NOT library_COMPONENT)
        set(library_COMPONENT runtime)
    endif()
    add_library(${target} SHARED ${PUBLIC_HEADERS} ${SOURCES})
    add_library(ReportGenerator::${library_EXPORT_NAME} ALIAS ${target})
    reportgenerator_target_defaults(${target})
    # Before 1.0 a new minor version may change the interface.
    set(interfaceVersion ${PROJECT_VERSION_MAJOR})
    if(PROJECT_VERSION_MAJOR EQUAL 0)
        set(interfaceVersion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
    endif()

    list(TRANSFORM PUBLIC_HEADERS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE publicHeaderPaths)
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME ${target}${REPORTGENERATOR_FILE_SUFFIX}
        EXPORT_NAME ${library_EXPORT_NAME}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${interfaceVersion}
        # The libraries are installed side by side and find one another there.
        INSTALL_RPATH "$ORIGIN"
        PUBLIC_HEADER "${publicHeaderPaths}")
    if(WIN32)
        set_target_properties(${target} PROPERTIES PREFIX "")
    endif()

    target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/framework>")
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_link_libraries(${target} PUBLIC ${REPORTGENERATOR_QT}::Core)

    # A symbol that nobody defines is an error of the library, not of the program that loads it. The sanitizers' own
    # symbols come from the program, so this does not go together with them.
    if(UNIX AND NOT APPLE AND NOT REPORTGENERATOR_SANITIZE)
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    if(MINGW)
        # As elsewhere, inline functions aren't exported: programs have their own.
        target_compile_options(${target} PRIVATE -fno-keep-inline-dllexport)
    elseif(UNIX AND NOT APPLE)
        reportgenerator_version_exports(${target} ${interfaceVersion})
    endif()

    if(NOT REPORTGENERATOR_INSTALL)
        return()
    endif()
    file(RELATIVE_PATH headerDir "${PROJECT_SOURCE_DIR}/framework" "${CMAKE_CURRENT_SOURCE_DIR}")
    install(TARGETS ${target}
        EXPORT ${REPORTGENERATOR_PACKAGE}Targets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT ${library_COMPONENT}
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${library_COMPONENT}
            NAMELINK_COMPONENT development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
        PUBLIC_HEADER DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${headerDir}" COMPONENT headers
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
endfunction()

# reportgenerator_version_exports(<target> <interface version>)
#
# Gives the names that are exported a version that tells Qt and interface, so that a process into which two builds of
# the library get, say by a plug-in, calls each by its own functions. On Windows names bear no version: there a function
# is called by the name of its library too.
function(reportgenerator_version_exports target interfaceVersion)
    string(TOUPPER "${target}_QT${REPORTGENERATOR_QT_MAJOR}_${interfaceVersion}" version)
    set(script "${CMAKE_CURRENT_BINARY_DIR}/exports.map")
    # What is taken in of the standard library and of Qt is marked by their headers, and what instruments the code by the
    # compiler.
    file(CONFIGURE OUTPUT "${script}" @ONLY CONTENT [[
@version@ {
global:
    *;
local:
    _ZSt*; _ZNSt*; _ZNKSt*; _ZT?St*; _ZT?NSt*;
    _ZN[0-9]Q*; _ZN[0-9][0-9]Q*; _ZNK[0-9]Q*; _ZNK[0-9][0-9]Q*; _ZT?[0-9]Q*; _ZT?[0-9][0-9]Q*;
    __*;
};
]])
    target_link_options(${target} PRIVATE "-Wl,--version-script=${script}")
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${script}")
endfunction()
