# Which compilers can build the project, and what a parent project's options mean for it.

# velmo_compiler(ID VERSION): refuses older versions of a compiler.
function(velmo_compiler id version)
  if(CMAKE_CXX_COMPILER_ID STREQUAL id AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS version)
    message(FATAL_ERROR "${id} ${version} or later is required, found ${CMAKE_CXX_COMPILER_VERSION}")
  endif()
endfunction()

velmo_compiler(GNU 12)
velmo_compiler(Clang 14)
velmo_compiler(AppleClang 15)

# A parent project may ask for warnings that these sources are not written for, and make them errors.
if(NOT PROJECT_IS_TOP_LEVEL AND CMAKE_CXX_COMPILER_ID MATCHES GNU|Clang)
  add_compile_options(-w)
endif()
