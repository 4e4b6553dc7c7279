# Converts DESCRIPTIONS with the hosts STRICT and WIDE, which count what they run, and puts the counts
# from COUNTING, the folder of the counting objects, to TARGET, where the compiler looks for them.

file(GLOB_RECURSE old ${COUNTING}/*.gcda ${TARGET}/*.gcda)
if(old)
  file(REMOVE ${old}) # GCC would add to them.
endif()
foreach(description IN LISTS DESCRIPTIONS)
  foreach(host ${STRICT} ${WIDE})
    execute_process(COMMAND ${host} ${description} ${STAMP}.ini RESULT_VARIABLE result OUTPUT_QUIET)
    # 3: the strict dialect refuses a description, after it has read as far as it can.
    if(NOT result MATCHES "^[03]$")
      message(FATAL_ERROR "${host} ${description} has ended with ${result}")
    endif()
  endforeach()
endforeach()
file(REMOVE ${STAMP}.ini)
file(GLOB_RECURSE counts RELATIVE ${COUNTING} ${COUNTING}/*.gcda)
if(NOT counts)
  message(FATAL_ERROR "The conversions have counted nothing")
endif()
foreach(count IN LISTS counts)
  get_filename_component(folder ${TARGET}/${count} DIRECTORY)
  file(COPY ${COUNTING}/${count} DESTINATION ${folder})
endforeach()
file(TOUCH ${STAMP})
