# Read by CPack once for every kind of package.
set(CPACK_COMPONENTS_ALL program libraries)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)  # an archive unpacks into one folder
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_COMPONENTS_ALL program)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian_files.cmake)
endif()
