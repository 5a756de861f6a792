function(pmapi_check_link_contract)
  separate_arguments(flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
  add_test(NAME link_contract.checker
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tests/link/link_contract_test.py
      ${PROJECT_SOURCE_DIR}/scripts/link-contract.py ${CMAKE_READELF} ${CMAKE_CXX_COMPILER} ${flags})

  add_test(NAME link_contract.library
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/scripts/link-contract.py $<TARGET_FILE:pmapi>
      --exports ${PROJECT_SOURCE_DIR}/cmake/exports.txt
      --platform-headers ${PROJECT_SOURCE_DIR}/include/platform
      --cjson ${PROJECT_SOURCE_DIR}/cmake/imports_cjson.txt
      --sources ${PROJECT_SOURCE_DIR}/frame ${PROJECT_SOURCE_DIR}/objects
      --process $<TARGET_FILE:pmapi_tests> $<TARGET_FILE:mapd_interface_client>
      --readelf ${CMAKE_READELF})
endfunction()

# A daemon that is not position-independent, with the library as it is and with one that breaks the rule that
# its exported data may be copied: the second must be noticed.
function(pmapi_check_no_pie_daemon)
  add_executable(no_pie_daemon link/no_pie_daemon.c)
  target_compile_options(no_pie_daemon PRIVATE -fno-pie)
  target_link_libraries(no_pie_daemon PRIVATE pmapi_headers pmapi mapd_interface_client cjson)
  target_link_options(no_pie_daemon PRIVATE -no-pie -Wl,--no-as-needed -Wl,--allow-shlib-undefined)
  set_target_properties(no_pie_daemon PROPERTIES ENABLE_EXPORTS ON)

  add_library(pmapi_symbolic SHARED $<TARGET_OBJECTS:frame> $<TARGET_OBJECTS:pmapi>)
  set_target_properties(pmapi_symbolic PROPERTIES
    LINKER_LANGUAGE C
    OUTPUT_NAME pmapi
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/symbolic)
  target_link_options(pmapi_symbolic PRIVATE -static-libgcc -Wl,-Bsymbolic -Wl,-z,undefs)

  add_test(NAME link_contract.no_pie_daemon COMMAND no_pie_daemon)
  add_test(NAME link_contract.no_pie_daemon_notices
    COMMAND no_pie_daemon)
  set_tests_properties(link_contract.no_pie_daemon_notices PROPERTIES
    ENVIRONMENT LD_LIBRARY_PATH=${CMAKE_CURRENT_BINARY_DIR}/symbolic
    PASS_REGULAR_EXPRESSION "the library does not see the daemon's limit list")
endfunction()

# A daemon with functions of its own that bear the names of the library's helpers.
function(pmapi_check_namesakes)
  add_executable(namesake_daemon link/namesake_daemon.c)
  target_link_libraries(namesake_daemon PRIVATE pmapi_headers pmapi mapd_interface_client cjson)
  target_link_options(namesake_daemon PRIVATE -Wl,--no-as-needed -Wl,--allow-shlib-undefined)
  set_target_properties(namesake_daemon PROPERTIES ENABLE_EXPORTS ON)
  add_test(NAME link_contract.namesakes COMMAND namesake_daemon)
endfunction()

# Of everything that is built.
function(pmapi_check_search_paths)
  add_test(NAME link_contract.search_paths
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/scripts/search-paths.py ${PROJECT_BINARY_DIR}
      --readelf ${CMAKE_READELF})
  separate_arguments(flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
  add_test(NAME link_contract.search_paths_checker
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tests/link/search_paths_test.py
      ${PROJECT_SOURCE_DIR}/scripts/search-paths.py ${CMAKE_READELF} ${CMAKE_CXX_COMPILER} ${flags})
endfunction()
