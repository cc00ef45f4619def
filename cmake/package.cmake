# `make package`: an archive that runs wherever it is unpacked and, where Debian's tools are, a Debian package.
set(CPACK_PACKAGE_VENDOR "The varmodel maintainers")
set(CPACK_PACKAGE_CONTACT "The varmodel maintainers <maintainers@varmodel.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "vector autoregression from a data file to a finished report")
set(CPACK_PACKAGE_DESCRIPTION "varmodel fits vector autoregressions to time series by least squares, chooses the lag, \
tests the residuals, tells what follows a shock, forecasts with dates and limits, and writes tables, charts and saved \
values, in the terminal and as one self-contained page.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
string(TOLOWER "${PROJECT_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}"
  CPACK_PACKAGE_FILE_NAME)

# One package of each kind; package_kind.cmake tells of which components.
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/package_kind.cmake)

find_program(SHLIBDEPS dpkg-shlibdeps)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
elseif(SHLIBDEPS)
  set(CPACK_GENERATOR TGZ DEB)
else()
  set(CPACK_GENERATOR TGZ)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS gnuplot-nox)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# DuckDB's library is not in Debian: the package brings it, and depends on nobody for it.
get_target_property(duckdb DuckDB::duckdb IMPORTED_LOCATION)
cmake_path(GET duckdb PARENT_PATH CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS)
include(CPack)
