# Install rules and the CMake package: find_package(Quillon CONFIG) gives
# Quillon::plinthcore and Quillon::quillon.
include_guard(GLOBAL)
include(CMakePackageConfigHelpers)

set(QLN_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Quillon)

install(EXPORT QuillonTargets NAMESPACE Quillon:: DESTINATION ${QLN_CMAKE_DIR})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QuillonConfig.cmake.in
    ${PROJECT_BINARY_DIR}/QuillonConfig.cmake INSTALL_DESTINATION ${QLN_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuillonConfigVersion.cmake
    VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QuillonConfig.cmake
              ${PROJECT_BINARY_DIR}/QuillonConfigVersion.cmake
        DESTINATION ${QLN_CMAKE_DIR})
