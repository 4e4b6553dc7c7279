# The dynamic symbols of the shared library `LIBRARY` are the three functions and nothing else.

execute_process(
  COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE listing
  COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${listing}")
set(names "")
foreach(line IN LISTS lines)
  string(REGEX REPLACE " .*" "" name "${line}")
  list(APPEND names ${name})
endforeach()
list(SORT names)
if(NOT names STREQUAL "tavoConvert;tavoDeinitialize;tavoInitialize")
  message(FATAL_ERROR "exported: ${names}")
endif()
