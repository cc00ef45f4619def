# The workbench: our host, and the program.

if(NOT CMAKE_CROSSCOMPILING)
  find_package(fmt REQUIRED)
  find_package(CLI11 REQUIRED)
  find_package(tomlplusplus REQUIRED)
  find_package(Threads REQUIRED)
  find_package(DuckDB REQUIRED MODULE)
  find_package(utf8proc REQUIRED MODULE)
  find_package(minizip REQUIRED MODULE)
  find_package(pugixml REQUIRED)
endif()

# Lowest folder first. The edge is linked whole, since procedures ask for the host classes only when they are loaded.
varmodel_folder(workbench/base LINKS rapidjson tomlplusplus::tomlplusplus)
varmodel_folder(workbench/dataset LINKS workbench_base DuckDB::duckdb minizip::minizip pugixml::pugixml)
varmodel_folder(workbench/language LINKS workbench_dataset)
varmodel_folder(workbench/dates LINKS workbench_dataset)
varmodel_folder(workbench/document LINKS workbench_dataset)
varmodel_folder(workbench/charts LINKS workbench_base rapidjson fmt::fmt-header-only)
varmodel_folder(workbench/casefile LINKS workbench_dataset)
varmodel_folder(workbench/edge LINKS workbench_language workbench_dates workbench_document workbench_casefile)
varmodel_folder(workbench/render LINKS workbench_document workbench_charts fmt::fmt-header-only utf8proc::utf8proc)
include(workbench/report/assets.cmake)
varmodel_folder(workbench/report LINKS workbench_render)
varmodel_folder(workbench/plots LINKS workbench_render)
varmodel_folder(workbench/export LINKS workbench_plots)
varmodel_folder(workbench/commands/common LINKS workbench_edge workbench_render fmt::fmt-header-only CLI11::CLI11)
# One folder a command, beside what all of them share.
file(GLOB command_folders CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} workbench/commands/*/*_command.cpp)
foreach(source ${command_folders})
  cmake_path(GET source PARENT_PATH folder)
  varmodel_folder(${folder} LINKS workbench_commands_common)
  string(REPLACE "/" "_" name ${folder})
  list(APPEND command_libraries ${name})
endforeach()
target_link_libraries(workbench_commands_varmodel PUBLIC engine_dynamics)
varmodel_folder(workbench/commands/fit LINKS ${command_libraries})
varmodel_folder(workbench/commands LINKS workbench_commands_fit)
varmodel_folder(workbench/manual LINKS workbench_base fmt::fmt-header-only CLI11::CLI11)
varmodel_folder(workbench/cli
  LINKS workbench_commands workbench_report workbench_export workbench_manual engine_diagnostics
    tomlplusplus::tomlplusplus)

# The version stands in CMake's project alone; the commit is looked up by every build.
set(build_facts ${PROJECT_BINARY_DIR}/generated/build_facts.h)
add_custom_target(build_facts BYPRODUCTS ${build_facts} VERBATIM
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DOUTPUT=${build_facts}
    -DTEMPLATE=${PROJECT_SOURCE_DIR}/workbench/cli/build_facts.h.in -DVERSION=${PROJECT_VERSION}
    "-DCOMPILER=${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}" -DBUILD_TYPE=${CMAKE_BUILD_TYPE}
    "-DPLATFORM=${CMAKE_SYSTEM_NAME} ${CMAKE_SYSTEM_PROCESSOR}" -P ${PROJECT_SOURCE_DIR}/cmake/build_facts.cmake)
set_source_files_properties(workbench/cli/version.cpp PROPERTIES INCLUDE_DIRECTORIES ${PROJECT_BINARY_DIR})
add_dependencies(workbench_cli build_facts)
set(VARMODEL_HOST_PARTS workbench_edge)

add_executable(varmodel workbench/main.cpp)
target_link_libraries(varmodel PRIVATE varmodel_flags workbench_cli)
varmodel_link_host(varmodel)

if(WIN32)
  target_sources(varmodel PRIVATE cmake/windows/varmodel.rc)
else()
  # Who builds the program wants the procedures, too. On Windows they are linked against it and so come after it.
  get_property(procedures GLOBAL PROPERTY VARMODEL_PROCEDURES)
  add_dependencies(varmodel ${procedures})
endif()

# The dictionaries lie where the program looks for them, beside its bin/.
file(GLOB dictionaries CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/locale/*.json)
foreach(dictionary ${dictionaries})
  cmake_path(GET dictionary FILENAME file)
  configure_file(${dictionary} ${PROJECT_BINARY_DIR}/share/varmodel/locale/${file} COPYONLY)
endforeach()
foreach(text LICENSE THIRD_PARTY.md)
  configure_file(${PROJECT_SOURCE_DIR}/${text} ${PROJECT_BINARY_DIR}/share/varmodel/${text} COPYONLY)
endforeach()

# Man pages and completions come from the program itself, where this machine can run it.
if(NOT CMAKE_CROSSCOMPILING)
  set(manual_made ${PROJECT_BINARY_DIR}/generated/manual)
  add_custom_command(OUTPUT ${manual_made} DEPENDS varmodel VERBATIM
    COMMAND varmodel --manual ${PROJECT_BINARY_DIR}/share COMMAND ${CMAKE_COMMAND} -E touch ${manual_made})
  add_custom_target(manual ALL DEPENDS ${manual_made})
endif()
