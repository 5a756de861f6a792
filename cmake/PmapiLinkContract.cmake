# What the library promises to daemon and platform, and that the checkers notice when it is broken.
function(pmapi_check_link_contract)
  add_test(NAME link_contract.library
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/link-contract.py $<TARGET_FILE:pmapi>
      --generated ${PROJECT_BINARY_DIR}/generated
      --cjson ${PROJECT_SOURCE_DIR}/cmake/imports_cjson.txt
      --layouts ${PROJECT_SOURCE_DIR}/include/platform
      --sources ${PROJECT_SOURCE_DIR}/frame ${PROJECT_SOURCE_DIR}/objects
      --process $<TARGET_FILE:pmapi_tests> $<TARGET_FILE:mapd_interface_client>)
  pmapi_test_checker(link_contract.checker link-contract.py link_contract_test.py)
endfunction()

# Of everything that is built.
function(pmapi_check_search_paths)
  add_test(NAME link_contract.search_paths
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/search-paths.py ${PROJECT_BINARY_DIR})
  pmapi_test_checker(link_contract.search_paths_checker search-paths.py search_paths_test.py)
endfunction()

# A checker's own test, which builds with the compiler at hand what the checker must refuse.
function(pmapi_test_checker name checker test)
  separate_arguments(flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
  add_test(NAME ${name}
    COMMAND ${PROJECT_SOURCE_DIR}/tests/link/${test} ${PROJECT_SOURCE_DIR}/scripts/${checker}
      ${CMAKE_CXX_COMPILER} ${flags})
endfunction()

# A daemon in C, with all that the library needs.
function(pmapi_add_daemon name)
  add_executable(${name} link/${name}.c)
  target_link_libraries(${name} PRIVATE pmapi_headers pmapi mapd_interface_client cjson)
  target_link_options(${name} PRIVATE -Wl,--no-as-needed -Wl,--allow-shlib-undefined)
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  add_test(NAME link_contract.${name} COMMAND ${name})
endfunction()

# A daemon that is not position-independent, with the library as it is and with one that breaks the rule that
# its exported data may be copied: the second must be noticed.
function(pmapi_check_no_pie_daemon)
  pmapi_add_daemon(no_pie_daemon)
  target_compile_options(no_pie_daemon PRIVATE -fno-pie)
  target_link_options(no_pie_daemon PRIVATE -no-pie)

  add_library(pmapi_symbolic SHARED $<TARGET_OBJECTS:frame> $<TARGET_OBJECTS:pmapi>)
  set_target_properties(pmapi_symbolic PROPERTIES
    LINKER_LANGUAGE C
    OUTPUT_NAME pmapi
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/symbolic)
  target_link_options(pmapi_symbolic PRIVATE -static-libgcc -Wl,-Bsymbolic -Wl,-z,undefs)
  add_test(NAME link_contract.no_pie_daemon_notices COMMAND no_pie_daemon)
  set_tests_properties(link_contract.no_pie_daemon_notices PROPERTIES
    ENVIRONMENT LD_LIBRARY_PATH=${CMAKE_CURRENT_BINARY_DIR}/symbolic
    PASS_REGULAR_EXPRESSION "the library does not see the daemon's limit list")
endfunction()
