# Installs the libraries, their public headers, and what finds them: a CMake package and files for
# pkg-config. The components are those of the Debian packages.
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/VelmoCloudEntity)
# Headers compile parts of a record's layout into a program, so each minor version is a library of
# its own for the loader.
set(abi_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
foreach(library PerchAppLibrary VelmoCloudEntity)
  set_target_properties(${library} PROPERTIES VERSION ${PROJECT_VERSION}
                                              SOVERSION ${abi_version})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${library} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          FILES_MATCHING PATTERN *.hpp PATTERN detail EXCLUDE
          PATTERN internal EXCLUDE)
endforeach()
install(FILES ${version_header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/VelmoCloudEntity)

install(TARGETS PerchAppLibrary VelmoCloudEntity EXPORT VelmoCloudEntityTargets
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT development)
# run_path(TARGET FOLDER): a target that is installed into FOLDER finds the shared libraries from
# there, so an installed tree can be moved. CMAKE_SKIP_INSTALL_RPATH leaves the run path out.
function(run_path target folder)
  file(RELATIVE_PATH path /prefix/${folder} /prefix/${CMAKE_INSTALL_LIBDIR})
  set_property(TARGET ${target} APPEND PROPERTY
               INSTALL_RPATH "$<IF:$<PLATFORM_ID:Darwin>,@loader_path,$ORIGIN>/${path}")
endfunction()
if(BUILD_SHARED_LIBS)
  run_path(VelmoCloudEntity ${CMAKE_INSTALL_LIBDIR})
  if(VELMO_TOOL)
    run_path(velmo ${CMAKE_INSTALL_BINDIR})
  endif()
endif()
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
