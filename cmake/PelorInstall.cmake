# What `cmake --install` lays down: the library, its headers with their folders, and the files by which
# find_package(Pelor) and pkg-config find it. Everything can be moved as a whole after the installation.
include(CMakePackageConfigHelpers)

set(pelor_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Pelor)
set(pelor_pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS pelor EXPORT PelorTargets FILE_SET HEADERS FILE_SET generated_headers)
install(EXPORT PelorTargets NAMESPACE Pelor:: DESTINATION ${pelor_cmake_dir})

configure_package_config_file(cmake/PelorConfig.cmake.in ${PROJECT_BINARY_DIR}/PelorConfig.cmake
  INSTALL_DESTINATION ${pelor_cmake_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/PelorConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PelorConfig.cmake ${PROJECT_BINARY_DIR}/PelorConfigVersion.cmake
  DESTINATION ${pelor_cmake_dir})

# The folders as pelor.pc sees them: relative to the installation's prefix, which lies where the .pc file says.
GNUInstallDirs_get_absolute_install_dir(pelor_full_pc_dir pelor_pc_dir LIBDIR)
file(RELATIVE_PATH pelor_pc_to_prefix ${pelor_full_pc_dir} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pelor_pc_to_prefix ${pelor_pc_to_prefix})
file(RELATIVE_PATH pelor_prefix_to_lib ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH pelor_prefix_to_include ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
if(BUILD_SHARED_LIBS)
  set(pelor_pc_defines "")
else()
  set(pelor_pc_defines " -DPELOR_STATIC")
endif()
configure_file(cmake/pelor.pc.in ${PROJECT_BINARY_DIR}/pelor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/pelor.pc DESTINATION ${pelor_pc_dir})
