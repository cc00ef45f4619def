# The workbench: our host, and the program.

find_package(fmt REQUIRED)
find_package(CLI11 REQUIRED)
find_package(tomlplusplus REQUIRED)
find_package(Threads REQUIRED)
find_package(DuckDB REQUIRED MODULE)
find_package(utf8proc REQUIRED MODULE)

# Lowest folder first. The edge is linked whole, since procedures ask for the host classes only when they are loaded.
varmodel_folder(workbench/base LINKS rapidjson)
varmodel_folder(workbench/dataset LINKS workbench_base DuckDB::duckdb)
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
varmodel_folder(workbench/commands/common LINKS workbench_edge workbench_render fmt::fmt-header-only CLI11::CLI11)
# One folder a command, beside what all of them share.
file(GLOB command_folders CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} workbench/commands/*/*_command.cpp)
foreach(source ${command_folders})
  cmake_path(GET source PARENT_PATH folder)
  varmodel_folder(${folder} LINKS workbench_commands_common)
  string(REPLACE "/" "_" name ${folder})
  list(APPEND command_libraries ${name})
endforeach()
varmodel_folder(workbench/commands LINKS ${command_libraries})
varmodel_folder(workbench/cli LINKS workbench_commands workbench_report workbench_plots tomlplusplus::tomlplusplus)
target_compile_definitions(workbench_cli PRIVATE VARMODEL_VERSION="varmodel ${PROJECT_VERSION}")
set(VARMODEL_HOST_PARTS workbench_edge)

add_executable(varmodel workbench/main.cpp)
target_link_libraries(varmodel PRIVATE varmodel_flags workbench_cli)
varmodel_link_host(varmodel)

get_property(procedures GLOBAL PROPERTY VARMODEL_PROCEDURES)
add_dependencies(varmodel ${procedures})

# The dictionaries lie where the program looks for them, beside its bin/.
file(GLOB dictionaries CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/locale/*.json)
foreach(dictionary ${dictionaries})
  cmake_path(GET dictionary FILENAME file)
  configure_file(${dictionary} ${PROJECT_BINARY_DIR}/share/varmodel/locale/${file} COPYONLY)
endforeach()
