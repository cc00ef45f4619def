# Run by every build: writes OUTPUT from TEMPLATE, and leaves it alone where nothing has changed. A source tree without
# its history has no commit.
execute_process(COMMAND git log -1 --format=%h\ %cs WORKING_DIRECTORY ${SOURCE}
  OUTPUT_VARIABLE COMMIT OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
if(failed)
  set(COMMIT unknown)
else()
  execute_process(COMMAND git diff --quiet HEAD WORKING_DIRECTORY ${SOURCE} ERROR_QUIET RESULT_VARIABLE changed)
  if(changed)
    string(APPEND COMMIT ", with changes")
  endif()
endif()
configure_file(${TEMPLATE} ${OUTPUT} @ONLY)
