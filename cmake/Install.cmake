# Installs the libraries, their public headers and a CMake package, which finds its dependencies.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/VelmoCloudEntity)
foreach(library PerchAppLibrary VelmoCloudEntity)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${library} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          FILES_MATCHING PATTERN *.hpp PATTERN detail EXCLUDE)
endforeach()

install(TARGETS PerchAppLibrary VelmoCloudEntity EXPORT VelmoCloudEntityTargets)
install(EXPORT VelmoCloudEntityTargets NAMESPACE VelmoCloudEntity::
        FILE VelmoCloudEntityTargets.cmake DESTINATION ${package_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VelmoCloudEntityConfig.cmake.in
  ${PROJECT_BINARY_DIR}/VelmoCloudEntityConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VelmoCloudEntityConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VelmoCloudEntityConfig.cmake
              ${PROJECT_BINARY_DIR}/VelmoCloudEntityConfigVersion.cmake
              ${CMAKE_CURRENT_LIST_DIR}/Dependencies.cmake ${CMAKE_CURRENT_LIST_DIR}/Findlibmd.cmake
        DESTINATION ${package_dir})
