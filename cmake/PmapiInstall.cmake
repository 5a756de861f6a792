# Three components: what a daemon is built against, what a gateway carries, and the command for developers.
include(CMakePackageConfigHelpers)

install(DIRECTORY include/pmapi DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
# For those who port the library: the functions and records that their platform supplies.
install(DIRECTORY include/platform DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

install(TARGETS pmapi LIBRARY COMPONENT runtime)
set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/pmapi)
configure_package_config_file(cmake/pmapiConfig.cmake.in pmapiConfig.cmake
  INSTALL_DESTINATION ${package_directory}
  PATH_VARS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(pmapiConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/pmapiConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/pmapiConfigVersion.cmake
  DESTINATION ${package_directory} COMPONENT development)
file(RELATIVE_PATH PMAPI_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/pmapi.pc.in pmapi.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/pmapi.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(TARGET pmapi_command)
  install(TARGETS pmapi_command RUNTIME COMPONENT command)
  install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/pmapi/examples COMPONENT command
    FILES_MATCHING PATTERN "*.json" PATTERN "*.jsonl")
  if(NOT PMAPI_MULTIAP_CLIENT)
    # Beside the command only: on a gateway this name belongs to the platform's own client library.
    install(TARGETS mapd_interface_client
      LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/pmapi COMPONENT command)
  endif()
  # One path for the build tree and for what is installed: one that is to be replaced gets empty entries as room
  # for the other, and these name whatever directory the command is started in.
  set(command_libraries
    $ORIGIN/../lib $ORIGIN/../${CMAKE_INSTALL_LIBDIR} $ORIGIN/../${CMAKE_INSTALL_LIBDIR}/pmapi)
  list(REMOVE_DUPLICATES command_libraries)
  set_target_properties(pmapi_command PROPERTIES
    BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "${command_libraries}")
endif()
