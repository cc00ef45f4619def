# The libraries of a build for Windows: what scripts/setup_windows.sh put into .deps/windows, under the names that
# find_package() gives elsewhere.
set(windows_deps ${PROJECT_SOURCE_DIR}/.deps/windows)
if(NOT EXISTS ${windows_deps}/lib/libduckdb.dll.a)
  message(FATAL_ERROR "${windows_deps} is not complete: run 'scripts/setup.sh windows'")
endif()
enable_language(RC)

# windows_headers(TARGET [FOLDER]): a library of headers alone.
function(windows_headers target)
  string(REPLACE ":" "_" name ${target})
  add_library(${name} INTERFACE)
  add_library(${target} ALIAS ${name})
  target_include_directories(${name} SYSTEM INTERFACE ${windows_deps}/include ${ARGN})
endfunction()

# windows_source(TARGET SOURCE ...): a small library from its sources, which are not ours to mend.
function(windows_source target)
  string(REPLACE ":" "_" name ${target})
  list(TRANSFORM ARGN PREPEND ${windows_deps}/source/)
  add_library(${name} STATIC ${ARGN})
  add_library(${target} ALIAS ${name})
  target_compile_options(${name} PRIVATE -w)
  list(GET ARGN 0 source)
  cmake_path(GET source PARENT_PATH folder)
  target_include_directories(${name} SYSTEM PUBLIC ${folder} ${windows_deps}/source)
endfunction()

windows_headers(Boost::headers)
windows_headers(Eigen3::Eigen ${windows_deps}/include/eigen3)
windows_headers(fmt::fmt-header-only)
target_compile_definitions(fmt__fmt-header-only INTERFACE FMT_HEADER_ONLY=1)
windows_headers(CLI11::CLI11)
windows_headers(tomlplusplus::tomlplusplus)
set(RAPIDJSON_INCLUDE_DIRS ${windows_deps}/include)

windows_source(pugixml::pugixml pugixml/pugixml.cpp)
windows_source(utf8proc::utf8proc utf8proc/utf8proc.c)
target_compile_definitions(utf8proc__utf8proc PUBLIC UTF8PROC_STATIC)
windows_source(minizip::minizip minizip/unzip.c minizip/ioapi.c)
target_compile_definitions(minizip__minizip PRIVATE NOUNCRYPT)
target_link_libraries(minizip__minizip PUBLIC -l:libz.a)

add_library(DuckDB::duckdb SHARED IMPORTED)
set_target_properties(DuckDB::duckdb PROPERTIES IMPORTED_LOCATION ${windows_deps}/bin/duckdb.dll
  IMPORTED_IMPLIB ${windows_deps}/lib/libduckdb.dll.a
  INTERFACE_INCLUDE_DIRECTORIES ${PROJECT_SOURCE_DIR}/.deps/duckdb/include)

# What the program needs beside it, so that it runs where it was built.
file(GLOB windows_runtime ${windows_deps}/bin/lib*.dll)
file(COPY ${windows_runtime} ${windows_deps}/bin/duckdb.dll DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
set(DuckDB_LIBRARY ${windows_deps}/bin/duckdb.dll)
