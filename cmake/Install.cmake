# Installs the libraries, their public headers, and what finds them: a CMake package and files for
# pkg-config. The components are those of the Debian packages.
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/VelmoCloudEntity)
foreach(library PerchAppLibrary VelmoCloudEntity)
  set_target_properties(${library} PROPERTIES VERSION ${PROJECT_VERSION}
                                              SOVERSION ${PROJECT_VERSION_MAJOR})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${library} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          FILES_MATCHING PATTERN *.hpp PATTERN detail EXCLUDE
          PATTERN internal EXCLUDE)
endforeach()
install(FILES ${version_header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/VelmoCloudEntity)

install(TARGETS PerchAppLibrary VelmoCloudEntity EXPORT VelmoCloudEntityTargets
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT development)
install(EXPORT VelmoCloudEntityTargets NAMESPACE VelmoCloudEntity::
        FILE VelmoCloudEntityTargets.cmake DESTINATION ${package_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VelmoCloudEntityConfig.cmake.in
  ${PROJECT_BINARY_DIR}/VelmoCloudEntityConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VelmoCloudEntityConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VelmoCloudEntityConfig.cmake
              ${PROJECT_BINARY_DIR}/VelmoCloudEntityConfigVersion.cmake
              ${CMAKE_CURRENT_LIST_DIR}/Dependencies.cmake ${CMAKE_CURRENT_LIST_DIR}/Findlibmd.cmake
        DESTINATION ${package_dir})

# pkg_config_file(LIBRARY DESCRIPTION REQUIRES LIBS CFLAGS): the prefix is relative to the file, so
# an installed tree can be moved.
function(pkg_config_file library description requires libs cflags)
  file(RELATIVE_PATH prefix_from_pc /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
  configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/library.pc.in ${library}.pc.in @ONLY)
  file(GENERATE OUTPUT ${library}.pc INPUT ${CMAKE_CURRENT_BINARY_DIR}/${library}.pc.in)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${library}.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

# A static library does not contain what it uses, so its users link that as well.
set(requires "simdjson, icu-uc, libmd")
if(PERCH_WITH_FONTCONFIG)
  string(APPEND requires ", fontconfig")
endif()
if(BUILD_SHARED_LIBS)
  string(PREPEND requires "Requires.private: ")
else()
  string(PREPEND requires "Requires: ")
endif()
# Boost has no files for pkg-config. Its directories are left out where the compiler looks anyway.
pkg_config_file(PerchAppLibrary "Records, JSON and Unicode text for clients of a service"
  "${requires}" "-L$<TARGET_LINKER_FILE_DIR:Boost::url> -lboost_url -lboost_json"
  "-I$<JOIN:$<TARGET_PROPERTY:Boost::headers,INTERFACE_INCLUDE_DIRECTORIES>, -I>")
pkg_config_file(VelmoCloudEntity "${PROJECT_DESCRIPTION}"
                "Requires: PerchAppLibrary = ${PROJECT_VERSION}" "" "")
