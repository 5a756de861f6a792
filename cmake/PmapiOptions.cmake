option(PMAPI_BUILD_COMMAND "Build the pmapi command" ON)
option(PMAPI_BUILD_TESTS "Build the tests" ON)
option(PMAPI_BUILD_FUZZERS "Build the fuzz targets (clang only)" OFF)
option(PMAPI_BUILD_BENCH "Build the instruction counts" OFF)
set(PMAPI_MULTIAP_CLIENT "" CACHE FILEPATH
  "The platform's libmapd_interface_client.so; empty: the stand-in of gateway/multiap")
set(PMAPI_PLATFORM "" CACHE STRING
  "Libraries that together supply a platform: pmapi-probe is built, to call the library on it")
set(PMAPI_LIBRARY_FLAGS "-Os;-g;-D_FORTIFY_SOURCE=2;-fstack-protector-strong" CACHE STRING
  "Optimisation and hardening of libpmapi.so")
# What is built around the library runs on developers' machines only: there the time to compile counts.
set(PMAPI_PROGRAM_FLAGS "-O1;-g1" CACHE STRING "Optimisation of gateway, command and tests")
set(PMAPI_INSTRUMENTATION "" CACHE STRING "Compiler and linker flags of every target, for instrumented builds")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

add_compile_options(-Wall -Wextra -Wconversion -Wshadow -Wformat=2 -Werror)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^arm" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Notes about how GCC 6 passed arguments: there is no code of that age to call.
  add_compile_options(-Wno-psabi)
endif()
add_compile_options(${PMAPI_INSTRUMENTATION})
add_link_options(${PMAPI_INSTRUMENTATION})
