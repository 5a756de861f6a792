include(${CMAKE_CURRENT_LIST_DIR}/pmapiTargets.cmake)
