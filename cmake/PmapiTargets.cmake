# Sources found by pattern, so that a new file needs no edit here and two authors never meet in a list.
function(pmapi_sources out)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE patterns)
  file(GLOB found CONFIGURE_DEPENDS ${patterns})
  set(${out} ${found} PARENT_SCOPE)
endfunction()

# A process that stands in for the daemon. Its functions are exported, so that libpmapi.so finds a platform in
# the executable as it would in the daemon.
function(pmapi_add_process name)
  add_executable(${name} ${ARGN})
  target_compile_options(${name} PRIVATE ${PMAPI_PROGRAM_FLAGS})
  target_compile_definitions(${name} PRIVATE PMAPI_EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples")
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE pmapi_headers records mapd_interface_client pmapi cjson own_runtime)
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  target_link_options(${name} PRIVATE
    # What only libpmapi.so uses, cJSON and the multi-AP client, is the process's to load.
    -Wl,--no-as-needed
    # A process may lack platform calls that it never reaches; binding is lazy.
    -Wl,--allow-shlib-undefined)
endfunction()

# The process with the virtual gateway inside.
function(pmapi_add_program name)
  pmapi_add_process(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE gateway boundary)
endfunction()

# The process for a device: the command's calls on the platform that these libraries supply.
function(pmapi_add_probe)
  pmapi_add_process(pmapi_probe
    ${PROJECT_SOURCE_DIR}/tools/probe/cjson_check.cpp ${PROJECT_SOURCE_DIR}/tools/probe/main.cpp)
  target_link_libraries(pmapi_probe PRIVATE catalogue command ${ARGN})
  set_target_properties(pmapi_probe PROPERTIES OUTPUT_NAME pmapi-probe)
endfunction()

add_library(pmapi_headers INTERFACE)
target_include_directories(pmapi_headers INTERFACE ${PROJECT_SOURCE_DIR}/include)

# For what is not the product: the cross toolchain's libstdc++.so is not on the loader's path.
add_library(own_runtime INTERFACE)
target_link_options(own_runtime INTERFACE
  -static-libstdc++ -static-libgcc -Wl,--exclude-libs,libstdc++.a:libgcc.a:libgcc_eh.a)

# How the product's own code is compiled. It must not need the C++ runtime, which gateways do not carry.
function(pmapi_library_flags name)
  target_compile_options(${name} PRIVATE
    ${PMAPI_LIBRARY_FLAGS}
    -ffunction-sections -fdata-sections
    $<$<CXX_COMPILER_ID:GNU>:-fstack-usage>
    $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions;-fno-rtti;-fno-threadsafe-statics>)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE pmapi_headers)
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    C_VISIBILITY_PRESET hidden
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# A folder with all of its sources, for developers' machines. Objects, not an archive: what announces itself at
# start-up, and every function of a platform, must be in the process, asked for or not.
function(pmapi_add_room name)
  pmapi_sources(sources *.cpp objects/*.cpp)
  add_library(${name} OBJECT ${sources})
  target_compile_options(${name} PRIVATE ${PMAPI_PROGRAM_FLAGS})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
  target_link_libraries(${name} PUBLIC pmapi_headers)
  add_dependencies(${name} generated_headers)
endfunction()
