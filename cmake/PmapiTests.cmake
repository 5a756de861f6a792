include(GoogleTest)

# Natively every test is a process of its own, so that none leans on what another left in the library.
# Under the emulator that would cost more than the tests do: there they share a few processes.
function(pmapi_register_gtest name)
  if(NOT CMAKE_CROSSCOMPILING)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST)
    return()
  endif()
  set(shards 4)
  math(EXPR last "${shards} - 1")
  foreach(index RANGE ${last})
    add_test(NAME ${name}.${index} COMMAND ${name})
    set_tests_properties(${name}.${index} PROPERTIES
      ENVIRONMENT "GTEST_TOTAL_SHARDS=${shards};GTEST_SHARD_INDEX=${index}")
  endforeach()
endfunction()
