# Three components: what a daemon is built against, what a gateway carries, and the command for developers.
include(CMakePackageConfigHelpers)

install(DIRECTORY include/pmapi DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
# For those who port the library: the functions and records that their platform supplies.
install(DIRECTORY include/platform DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

if(NOT TARGET pmapi)
  return()
endif()

install(TARGETS pmapi EXPORT pmapiTargets LIBRARY COMPONENT runtime)
install(EXPORT pmapiTargets NAMESPACE pmapi:: COMPONENT development
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/pmapi)
write_basic_package_version_file(pmapiConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES cmake/pmapiConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/pmapiConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/pmapi COMPONENT development)
configure_file(cmake/pmapi.pc.in pmapi.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/pmapi.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(TARGET pmapi_command)
  install(TARGETS pmapi_command RUNTIME COMPONENT command)
  # Beside the command only: on a gateway this name belongs to the platform's own client library.
  install(TARGETS mapd_interface_client LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/pmapi COMPONENT command)
  set_target_properties(pmapi_command PROPERTIES
    INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN/../${CMAKE_INSTALL_LIBDIR}/pmapi")
endif()
