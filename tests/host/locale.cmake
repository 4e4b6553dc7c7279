# Builds a locale with decimal commas and runs the host `LOCALE_HOST` under it: on a good description,
# whose configuration must be `EXPECTED`, and on one that ends at a floating-point number, of which the
# message must be `FAILURE`, with a point in the number if it shows one.

set(folder ${FOLDER}/locale)
file(REMOVE_RECURSE ${folder})
file(MAKE_DIRECTORY ${folder})
execute_process(
  COMMAND localedef -i de_DE -f UTF-8 ${folder}/de_DE.UTF-8
  RESULT_VARIABLE status ERROR_VARIABLE messages)
if(NOT EXISTS ${folder}/de_DE.UTF-8)
  message(FATAL_ERROR "localedef: ${status} ${messages}")
endif()
set(ENV{LOCPATH} ${folder})

execute_process(
  COMMAND ${LOCALE_HOST} de_DE.UTF-8 ${DESCRIPTION} ${folder}/configuration.ini
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${CMAKE_COMMAND} -E compare_files ${folder}/configuration.ini ${EXPECTED}
  COMMAND_ERROR_IS_FATAL ANY)

file(WRITE ${folder}/bad.a2l "ASAP2_VERSION 1 60 0.5")
execute_process(
  COMMAND ${LOCALE_HOST} de_DE.UTF-8 ${folder}/bad.a2l ${folder}/bad.ini
  RESULT_VARIABLE status OUTPUT_VARIABLE report)
if(NOT status EQUAL 3 OR NOT report MATCHES "${FAILURE}\n")
  message(FATAL_ERROR "status ${status}:\n${report}")
endif()
