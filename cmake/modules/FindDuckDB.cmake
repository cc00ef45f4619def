# DuckDB's C library: an installed one, else the copy that the set-up script fetched into .deps/duckdb.
find_path(DuckDB_INCLUDE_DIR duckdb.h HINTS ${PROJECT_SOURCE_DIR}/.deps/duckdb/include)
find_library(DuckDB_LIBRARY duckdb HINTS ${PROJECT_SOURCE_DIR}/.deps/duckdb/lib)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(DuckDB REQUIRED_VARS DuckDB_LIBRARY DuckDB_INCLUDE_DIR)
if(DuckDB_FOUND AND NOT TARGET DuckDB::duckdb)
  add_library(DuckDB::duckdb SHARED IMPORTED)
  set_target_properties(DuckDB::duckdb PROPERTIES
    IMPORTED_LOCATION ${DuckDB_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${DuckDB_INCLUDE_DIR} IMPORTED_NO_SONAME OFF)
endif()
