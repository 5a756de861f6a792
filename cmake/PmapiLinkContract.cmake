set(PMAPI_TEXT_BUDGET 81920 CACHE STRING "Bytes of flash that the library may take")

function(pmapi_check_link_contract)
  separate_arguments(flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
  add_test(NAME link_contract.checker
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tests/link/link_contract_test.py
      ${PROJECT_SOURCE_DIR}/scripts/link-contract.py ${CMAKE_READELF} ${CMAKE_CXX_COMPILER} ${flags})

  if(NOT TARGET pmapi OR NOT EXISTS ${PROJECT_SOURCE_DIR}/cmake/exports.txt)
    return()
  endif()
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^arm")
    set(budget --text-budget ${PMAPI_TEXT_BUDGET})
  endif()
  add_test(NAME link_contract.library
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/scripts/link-contract.py $<TARGET_FILE:pmapi>
      --exports ${PROJECT_SOURCE_DIR}/cmake/exports.txt
      --missing ${PROJECT_SOURCE_DIR}/cmake/exports_missing.txt
      --platform-headers ${PROJECT_SOURCE_DIR}/include/platform
      --cjson ${PROJECT_SOURCE_DIR}/cmake/imports_cjson.txt
      --sources ${PROJECT_SOURCE_DIR}/frame ${PROJECT_SOURCE_DIR}/objects
      ${budget}
      --readelf ${CMAKE_READELF})
endfunction()
