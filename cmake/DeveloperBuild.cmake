# Settings for the development of the project. They do not affect users of its targets.

# developer_target(NAME): enables warnings for a target. Only presets make them errors, so that
# users can build the library with a compiler that has other warnings.
function(developer_target name)
  if(VELMO_DEVELOPER)
    # -Wno-restrict: GCC 12 has false warnings for concatenated strings (its bug 105651).
    target_compile_definitions(${name} PRIVATE PERCH_DEVELOPER)
    target_compile_options(${name} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                           $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
                                           $<$<BOOL:${VELMO_FUZZERS}>:-fsanitize=fuzzer-no-link>)
  endif()
endfunction()

if(VELMO_DEVELOPER)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
  set(CMAKE_CXX_EXTENSIONS OFF)
  find_program(CCACHE ccache)
  if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
  endif()
endif()
