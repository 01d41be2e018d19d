# The libraries behind PerchAppLibrary; read by the project's own build and by the installed package alike.
include(CMakeFindDependencyMacro)
find_dependency(simdjson 3.0)
find_dependency(Boost 1.81 COMPONENTS json url)
find_dependency(ICU 72 COMPONENTS uc)
find_dependency(libmd)
if(PERCH_WITH_FONTCONFIG)
  find_dependency(Fontconfig)
endif()
