# What is installed. The program looks for its parts from its own place, so they lie alike under every prefix.
#
# Components: `program` is all that a run needs; `libraries` the shared libraries beside it that a system may lack, for
# archives that must run anywhere; `host` what others need to write a procedure or a host.
set(VARMODEL_PARTS_FOLDER lib/varmodel)

get_property(procedures GLOBAL PROPERTY VARMODEL_PROCEDURES)
install(TARGETS ${procedures} LIBRARY DESTINATION ${VARMODEL_PARTS_FOLDER} COMPONENT program)
install(DIRECTORY host DESTINATION include/varmodel COMPONENT host EXCLUDE_FROM_ALL FILES_MATCHING PATTERN *.h)
install(FILES cmake/varmodel-host-config.cmake cmake/procedure.cmake
  DESTINATION lib/cmake/varmodel-host COMPONENT host EXCLUDE_FROM_ALL)
if(NOT VARMODEL_WORKBENCH)
  return()
endif()

if(UNIX)
  # An RPATH of the old kind holds for the libraries' own libraries and for the procedures too.
  set_target_properties(varmodel PROPERTIES INSTALL_RPATH "$ORIGIN/../${VARMODEL_PARTS_FOLDER}")
  target_link_options(varmodel PRIVATE -Wl,--disable-new-dtags)
endif()
if(NOT CMAKE_CROSSCOMPILING)  # CMake looks for needed libraries on the machine that it runs on
  set(collect RUNTIME_DEPENDENCY_SET needed_libraries)
endif()
install(TARGETS varmodel ${collect} RUNTIME DESTINATION bin COMPONENT program)
install(IMPORTED_RUNTIME_ARTIFACTS DuckDB::duckdb COMPONENT program
  LIBRARY DESTINATION ${VARMODEL_PARTS_FOLDER} RUNTIME DESTINATION bin)
if(NOT CMAKE_CROSSCOMPILING)
  # The C and C++ run-time libraries belong to the system.
  install(RUNTIME_DEPENDENCY_SET needed_libraries
    PRE_EXCLUDE_REGEXES "duckdb" "^lib(c|m|dl|rt|pthread|stdc[+][+]|gcc_s)[.]so" "^ld-linux" "^api-ms-" "^ext-ms-"
    POST_EXCLUDE_REGEXES "[Ss]ystem32"
    LIBRARY DESTINATION ${VARMODEL_PARTS_FOLDER} COMPONENT libraries EXCLUDE_FROM_ALL
    RUNTIME DESTINATION bin COMPONENT libraries EXCLUDE_FROM_ALL)
endif()

if(MINGW)
  install(FILES ${windows_runtime} DESTINATION bin COMPONENT program)
endif()

install(DIRECTORY locale DESTINATION share/varmodel COMPONENT program FILES_MATCHING PATTERN *.json)
install(FILES LICENSE THIRD_PARTY.md DESTINATION share/varmodel COMPONENT program)
if(NOT CMAKE_CROSSCOMPILING)
  foreach(folder man bash-completion zsh fish)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/share/${folder} DESTINATION share COMPONENT program)
  endforeach()
endif()
install(FILES README.md CHANGELOG.md DESTINATION share/doc/varmodel COMPONENT program)
install(DIRECTORY docs DESTINATION share/doc/varmodel COMPONENT program)
install(DIRECTORY examples DESTINATION share/doc/varmodel COMPONENT program
  FILES_MATCHING PATTERN *.csv PATTERN *.toml PATTERN *.md PATTERN *_results.* EXCLUDE)
