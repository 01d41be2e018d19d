# Protections that compiler and linker add to a program that handles files from elsewhere.

# harden(NAME): protects a target, with VELMO_HARDENED. Users of the target get none of the options.
function(harden name)
  if(VELMO_HARDENED)
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_compile_options(${name} PRIVATE ${hardening_flags})
    target_link_options(${name} PRIVATE -Wl,-z,relro,-z,now)
  endif()
endfunction()

if(NOT VELMO_HARDENED)
  return()
endif()
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# -fno-semantic-interposition makes position independent code as fast as other code. The two
# protections of jumps are for x86-64 and arm64.
foreach(flag -fno-semantic-interposition -fstack-protector-strong -fstack-clash-protection
             -fcf-protection=full -mbranch-protection=standard)
  string(MAKE_C_IDENTIFIER "VELMO_HAS${flag}" is_accepted)
  check_cxx_compiler_flag(${flag} ${is_accepted})
  if(${is_accepted})
    list(APPEND hardening_flags ${flag})
  endif()
endforeach()

# The C library warns of a level that the compiler lacks, and where nothing is optimised.
set(fortify -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
list(JOIN fortify " " CMAKE_REQUIRED_FLAGS)
string(APPEND CMAKE_REQUIRED_FLAGS " -O2 -Werror")
check_cxx_source_compiles("#include <cstring>\nint main() {}" VELMO_HAS_FORTIFY_SOURCE_3)
unset(CMAKE_REQUIRED_FLAGS)
if(VELMO_HAS_FORTIFY_SOURCE_3)
  list(APPEND hardening_flags "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:${fortify}>")
endif()
