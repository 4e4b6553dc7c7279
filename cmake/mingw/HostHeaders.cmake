# An imported target for a library of headers that is installed on the machine that builds. Its folder
# alone becomes visible, by a link in the build folder: all of /usr/include would hide the headers of
# the target system.
function(add_host_headers target folder)
  if(NOT EXISTS /usr/include/${folder})
    message(FATAL_ERROR "/usr/include/${folder} is missing")
  endif()
  set(headers ${CMAKE_BINARY_DIR}/host-headers/${folder})
  file(MAKE_DIRECTORY ${headers})
  file(CREATE_LINK /usr/include/${folder} ${headers}/${folder} SYMBOLIC)
  if(NOT TARGET ${target})
    add_library(${target} INTERFACE IMPORTED)
    target_include_directories(${target} INTERFACE ${headers})
  endif()
endfunction()
