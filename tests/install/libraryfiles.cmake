# The files of the libraries for QT_MAJOR are in the prefix.

set(needed
    "${LIB_DIR}/cmake/${PACKAGE}/${PACKAGE}Config.cmake"
    "${LIB_DIR}/cmake/${PACKAGE}/${PACKAGE}ConfigVersion.cmake"
    "${LIB_DIR}/pkgconfig/${PC_NAME}.pc")
set(libraries reportbase wendbase)
if(BUILD_MODELS)
    list(APPEND libraries reportmodels)
    list(APPEND needed "${LIB_DIR}/pkgconfig/${MODELS_PC_NAME}.pc")
endif()
if(UNIX AND NOT APPLE AND NOT WINDOWS)
    foreach(library IN LISTS libraries)
        list(APPEND needed "${LIB_DIR}/lib${library}${SUFFIX}.so" "${LIB_DIR}/lib${library}${SUFFIX}.so.${VERSION}"
            "${LIB_DIR}/lib${library}${SUFFIX}.so.${INTERFACE_VERSION}")
    endforeach()
elseif(WINDOWS)
    foreach(library IN LISTS libraries)
        list(APPEND needed "${BIN_DIR}/${library}${SUFFIX}.dll" "${LIB_DIR}/lib${library}${SUFFIX}.dll.a")
    endforeach()
endif()
foreach(file IN LISTS needed)
    if(NOT EXISTS "${PREFIX}/${file}")
        message(FATAL_ERROR "not installed: ${file}")
    endif()
endforeach()
