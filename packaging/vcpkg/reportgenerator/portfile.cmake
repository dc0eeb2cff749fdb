# An overlay port: it stands in the tree that it builds.
vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY)

get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS
        -DREPORTGENERATOR_QT_MAJOR=5
        -DREPORTGENERATOR_BUILD_TESTS=OFF
        -DREPORTGENERATOR_BUILD_EXAMPLES=OFF
        -DREPORTGENERATOR_BUILD_TOOLS=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME ReportGenerator CONFIG_PATH lib/cmake/ReportGenerator)
vcpkg_fixup_pkgconfig()

file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")

file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")

# The project states no licence.
set(VCPKG_POLICY_SKIP_COPYRIGHT_CHECK enabled)
