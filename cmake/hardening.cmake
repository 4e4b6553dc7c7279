# Flags that turn what a fault of memory would do into the end of the process. All of them together
# cost 3 % more instructions and less than 2 % more time (docs/performance.md). The sanitizers see
# more, so a build has the ones or the others.
if(NOT TAVO_HARDENED OR TAVO_SANITIZE)
  return()
endif()

add_compile_definitions($<$<COMPILE_LANGUAGE:CXX>:_GLIBCXX_ASSERTIONS>)
add_compile_options(-fstack-protector-strong)
if(CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$"
    AND NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
  # Needs an optimising compiler; some bring a level of their own.
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  add_compile_options(-fstack-clash-protection)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
    add_compile_options(-fcf-protection)
  endif()
  add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
endif()
