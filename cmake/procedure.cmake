# varmodel_procedure(NAME ENTRY FOLDER): the shared library NAME_procedure, which exports ENTRY and nothing else.
#
# FOLDER holds the code of the entry: a folder made by varmodel_folder() is linked whole, any other folder's sources are
# compiled. The host's classes stay undefined for the host that loads the library to resolve; where nothing may stay
# undefined (Windows) they come from the host's import library, VARMODEL_HOST_LIBRARY.
set(VARMODEL_HOST_LIBRARY "" CACHE FILEPATH "Import library of the host that loads the procedures (Windows)")

function(varmodel_procedure name entry folder)
  string(REPLACE "/" "_" code ${folder})
  set(module ${name}_procedure)
  if(TARGET ${code})
    add_library(${module} MODULE ${PROJECT_SOURCE_DIR}/cmake/module.cpp)
    target_link_libraries(${module} PRIVATE "$<LINK_LIBRARY:WHOLE_ARCHIVE,${code}>")
  else()
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
    add_library(${module} MODULE ${sources})
  endif()
  target_link_libraries(${module} PRIVATE varmodel::host)
  set_target_properties(${module} PROPERTIES PREFIX "" CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  if(WIN32 AND NOT VARMODEL_HOST_LIBRARY AND NOT VARMODEL_WORKBENCH)
    message(FATAL_ERROR "${module} needs the host's import library: -DVARMODEL_HOST_LIBRARY=FILE")
  elseif(NOT WIN32)
    set(exports ${CMAKE_CURRENT_BINARY_DIR}/${module}.map)
    file(CONFIGURE OUTPUT ${exports} CONTENT "{ global: ${entry}; local: *; };\n")
    target_link_options(${module} PRIVATE -Wl,--version-script=${exports} -Wl,--gc-sections)
    set_target_properties(${module} PROPERTIES LINK_DEPENDS ${exports})
  endif()
  set_property(GLOBAL APPEND PROPERTY VARMODEL_PROCEDURES ${module})
endfunction()
