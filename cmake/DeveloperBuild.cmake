# What is set for the project's own development and never reaches a user of its targets.

# developer_target(NAME): warnings for one of the project's targets. Presets make them errors, so that
# a compiler with warnings of its own still builds the library for its users.
function(developer_target name)
  if(VELMO_DEVELOPER)
    # GCC 12 warns falsely of strings that are put together with + (its bug 105651).
    target_compile_definitions(${name} PRIVATE PERCH_DEVELOPER)
    target_compile_options(${name} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                           $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
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
