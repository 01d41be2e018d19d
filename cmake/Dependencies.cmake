# Finds the libraries that PerchAppLibrary uses. The project's build and the installed package
# include this file.
include(CMakeFindDependencyMacro)
find_dependency(simdjson)
# The version file of simdjson accepts only an equal minor version, so the version is compared here.
if(simdjson_VERSION VERSION_LESS 3.0)
  set(${CMAKE_FIND_PACKAGE_NAME}_NOT_FOUND_MESSAGE
      "simdjson 3.0 or later is required, found ${simdjson_VERSION}")
  set(${CMAKE_FIND_PACKAGE_NAME}_FOUND FALSE)
  return()
endif()
find_dependency(Boost 1.81 CONFIG COMPONENTS json url)
find_dependency(ICU 72 COMPONENTS uc)
find_dependency(libmd)
if(PERCH_WITH_FONTCONFIG)
  find_dependency(Fontconfig)
endif()
