# Compiles every installed header alone, the C ones as C99 and as C++20: a daemon of either language may
# include any one of them first. Each is included twice, so that its guard is tried too.
function(pmapi_check_headers)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/include
    ${PROJECT_SOURCE_DIR}/include/*.h ${PROJECT_SOURCE_DIR}/include/*.hpp)
  set(units)
  foreach(header IN LISTS headers)
    set(languages cpp)
    if(header MATCHES "\\.h$")
      list(APPEND languages c)
    endif()
    foreach(language IN LISTS languages)
      set(unit ${CMAKE_CURRENT_BINARY_DIR}/headers/${header}.${language})
      file(CONFIGURE OUTPUT ${unit} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
      list(APPEND units ${unit})
    endforeach()
  endforeach()
  add_library(header_check OBJECT ${units})
  target_link_libraries(header_check PRIVATE pmapi_headers)
  # Not for C++, which lacks the flexible arrays that open tails are.
  target_compile_options(header_check PRIVATE $<$<COMPILE_LANGUAGE:C>:-pedantic>)
endfunction()

# What the headers declare, as tables for boundary, catalogue and checks: read once in each build.
function(pmapi_generate_from_headers)
  file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/platform/*.h ${PROJECT_SOURCE_DIR}/include/pmapi/*.h)
  set(stamp ${PROJECT_BINARY_DIR}/generated/headers.stamp)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/scripts/headers.py ${PROJECT_BINARY_DIR}/generated
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${headers} ${PROJECT_SOURCE_DIR}/scripts/headers.py
    COMMENT "Reading the headers")
  add_custom_target(generated_headers DEPENDS ${stamp})
endfunction()
