# Debian packages, made by cpack: the shared libraries, what a developer needs, the command.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR VelmoCloudEntity)
set(CPACK_PACKAGE_CONTACT "VelmoCloudEntity developers <maintainers@example.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "data entities of a font-cloud client")
set(CPACK_COMPONENTS_ALL runtime development command)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/PerchAppLibrary
                                                ${PROJECT_BINARY_DIR}/VelmoCloudEntity)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://example.invalid/velmocloudentity")

# package(COMPONENT NAME SECTION DESCRIPTION): each package has the files that Debian asks of all.
function(package component name section description)
  string(TOUPPER ${component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${description}" PARENT_SCOPE)
  set(folder ${PROJECT_BINARY_DIR}/packaging/${name})
  set(package_name ${name})
  configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/debian/copyright ${folder}/copyright COPYONLY)
  configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/debian/changelog.in ${folder}/changelog @ONLY)
  execute_process(COMMAND gzip -9nkf ${folder}/changelog)
  install(FILES ${folder}/copyright ${folder}/changelog.gz DESTINATION share/doc/${name}
          COMPONENT ${component})
endfunction()

if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux" OR NOT BUILD_SHARED_LIBS)
  return()
endif()
set(runtime_name libvelmocloudentity${abi_version})
package(runtime ${runtime_name} libs
"Shared libraries that read the replies of a font-cloud service into a tree of
fonts, search and filter it, compute titles and locations, and export JSON.")
package(development libvelmocloudentity-dev libdevel
"Headers, a CMake package and files for pkg-config of the C++20 library.")
package(command velmo utils
"A command that reads replies of a font-cloud service and shows, searches,
filters and exports their fonts.")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_COMMAND_DEPENDS runtime)

# Debian 12 has two versions of Boost; the headers need the one of this build.
string(REPLACE "." ";" boost ${Boost_VERSION})
list(SUBLIST boost 0 2 boost)
list(JOIN boost "." boost)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libboost-json${boost}-dev, libboost-url${boost}-dev")
file(WRITE ${PROJECT_BINARY_DIR}/packaging/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/packaging/triggers)
include(CPack)
