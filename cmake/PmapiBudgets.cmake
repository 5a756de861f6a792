# What the library takes of a gateway. The figures are the target's, so only its build is measured.
function(pmapi_check_budgets)
  if(NOT CMAKE_SYSTEM_PROCESSOR MATCHES "^arm")
    return()
  endif()
  separate_arguments(flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
  add_test(NAME budgets.checker
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tests/link/budgets_test.py
      ${PROJECT_SOURCE_DIR}/scripts/budgets.py ${CMAKE_CXX_COMPILER} ${flags})

  file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/library_objects.txt
    CONTENT "$<JOIN:$<TARGET_OBJECTS:pmapi>;$<TARGET_OBJECTS:frame>,\n>\n")
  add_test(NAME budgets.library
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/scripts/budgets.py ${PROJECT_BINARY_DIR})
endfunction()
