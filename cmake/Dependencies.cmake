# Finds the libraries that PerchAppLibrary uses. The project's build includes this file, and a
# function of the installed package.

# velmo_missing(REASON): ends the configuration. In an installed package, the find_package call that
# reads it fails instead, if the package is required.
macro(velmo_missing reason)
  if(NOT DEFINED CMAKE_FIND_PACKAGE_NAME)
    message(FATAL_ERROR "${reason}")
  endif()
  set(${CMAKE_FIND_PACKAGE_NAME}_NOT_FOUND_MESSAGE "${reason}" PARENT_SCOPE)
  set(${CMAKE_FIND_PACKAGE_NAME}_FOUND FALSE PARENT_SCOPE)
  return()
endmacro()

# velmo_need(DEBIAN HOMEBREW NAME [VERSION] [ARGUMENTS...]): finds a library, or names the packages
# of Debian and Homebrew that have it.
macro(velmo_need debian homebrew name)
  find_package(${name} ${ARGN} QUIET)
  if(NOT ${name}_FOUND)
    velmo_missing("${name} is missing: install ${debian} (Debian) or ${homebrew} (Homebrew)")
  endif()
endmacro()

velmo_need("libboost-json-dev and libboost-url-dev of 1.81 or later" boost Boost 1.81 CONFIG
           COMPONENTS json url)
if(velmo_is_shared) # then the library itself links the others
  return()
endif()
velmo_need(libsimdjson-dev simdjson simdjson)
# The version file of simdjson accepts only an equal minor version, so the version is compared here.
if(simdjson_VERSION VERSION_LESS 3.0)
  velmo_missing("simdjson 3.0 or later is required, found ${simdjson_VERSION}")
endif()
velmo_need("libicu-dev of 72 or later" icu4c ICU 72 COMPONENTS uc)
velmo_need(libmd-dev libmd libmd)
if(PERCH_WITH_FONTCONFIG)
  velmo_need(libfontconfig-dev fontconfig Fontconfig)
endif()
