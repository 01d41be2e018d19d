# Decides whether lists are read straight from their text. TokenSource does so through an internal
# interface of simdjson, which may differ in another version: a program checks the installed one.
# Otherwise lists are read through a document.

set(PERCH_DIRECT_READING AUTO CACHE STRING
    "Read lists without a document: AUTO (if the installed simdjson suits), ON or OFF")
set_property(CACHE PERCH_DIRECT_READING PROPERTY STRINGS AUTO ON OFF)

set(direct_reading ${PERCH_DIRECT_READING})
if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
  if(direct_reading STREQUAL "AUTO")
    message(WARNING "Without CMAKE_CROSSCOMPILING_EMULATOR, cmake/checks/stages.cpp cannot check "
                    "simdjson. Lists are read through a document, which takes more time. Set "
                    "PERCH_DIRECT_READING to ON if the program ends with 0, else to OFF.")
    set(direct_reading OFF)
  endif()
elseif(direct_reading) # ON or AUTO
  # The result stays in the cache until another version is installed.
  string(MAKE_C_IDENTIFIER "VELMO_STAGES_OF_SIMDJSON_${simdjson_VERSION}" status)
  if(NOT DEFINED ${status}_COMPILED)
    try_run(${status} ${status}_COMPILED SOURCES ${CMAKE_CURRENT_LIST_DIR}/checks/stages.cpp
            LINK_LIBRARIES simdjson::simdjson CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON)
  endif()
  if(${status}_COMPILED AND "${${status}}" STREQUAL "0")
    set(direct_reading ON)
  elseif(direct_reading STREQUAL "AUTO")
    message(STATUS "simdjson ${simdjson_VERSION} fails cmake/checks/stages.cpp: lists are read "
                   "through a document, which takes more time")
    set(direct_reading OFF)
  else()
    message(FATAL_ERROR "PERCH_DIRECT_READING is ON, but simdjson ${simdjson_VERSION} fails "
                        "cmake/checks/stages.cpp. Set it to OFF.")
  endif()
endif()

if(direct_reading)
  add_compile_definitions(PERCH_DIRECT_READING)
endif()
