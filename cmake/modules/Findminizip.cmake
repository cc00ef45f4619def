# minizip: reading zip files.
find_path(minizip_INCLUDE_DIR minizip/unzip.h)
find_library(minizip_LIBRARY NAMES minizip)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(minizip REQUIRED_VARS minizip_LIBRARY minizip_INCLUDE_DIR)
if(minizip_FOUND AND NOT TARGET minizip::minizip)
  add_library(minizip::minizip UNKNOWN IMPORTED)
  set_target_properties(minizip::minizip PROPERTIES
    IMPORTED_LOCATION ${minizip_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${minizip_INCLUDE_DIR})
endif()
