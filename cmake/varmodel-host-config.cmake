# find_package(varmodel-host): the target varmodel::host, which is what a procedure sees of a host, and the function
# varmodel_procedure(), which makes a procedure's library. A host uses the target too.
include(CMakeFindDependencyMacro)
find_dependency(RapidJSON)
include(${CMAKE_CURRENT_LIST_DIR}/procedure.cmake)
if(NOT TARGET varmodel::host)
  add_library(varmodel::host INTERFACE IMPORTED)
  target_compile_features(varmodel::host INTERFACE cxx_std_20)
  target_include_directories(varmodel::host INTERFACE ${CMAKE_CURRENT_LIST_DIR}/../../../include/varmodel
    ${RAPIDJSON_INCLUDE_DIRS})
  target_link_libraries(varmodel::host INTERFACE ${VARMODEL_HOST_LIBRARY})
endif()
