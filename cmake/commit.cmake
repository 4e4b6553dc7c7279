# add_commit_header(TARGET): TARGET may include "commit.h", where TAVO_COMMIT is the commit that is
# built, as in " (1a2b3c4)", with a + if files differ from it. It is "" where git knows of none. Each
# build looks anew.

if(NOT CMAKE_SCRIPT_MODE_FILE)
  function(add_commit_header target)
    find_package(Git QUIET)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/commit)
    set(command ${CMAKE_COMMAND} -DGIT=${GIT_EXECUTABLE} -DSOURCES=${PROJECT_SOURCE_DIR}
      -DHEADER=${folder}/commit.h -P ${CMAKE_CURRENT_FUNCTION_LIST_FILE})
    execute_process(COMMAND ${command}) # For tools that read the sources before the first build.
    add_custom_target(${target}-commit COMMAND ${command} BYPRODUCTS ${folder}/commit.h
      COMMENT "Naming the commit" VERBATIM)
    add_dependencies(${target} ${target}-commit)
    target_include_directories(${target} PRIVATE ${folder})
  endfunction()
  return()
endif()

cmake_minimum_required(VERSION 3.25) # for the policies of a script

# Calls git in SOURCES, and sets `output` to what it prints, or `failed`.
macro(git)
  execute_process(COMMAND ${GIT} -C ${SOURCES} ${ARGN}
    OUTPUT_VARIABLE output OUTPUT_STRIP_TRAILING_WHITESPACE
    RESULT_VARIABLE failed
    ERROR_QUIET)
endmacro()

# A hook of git that builds has these set, and a build needs no lock.
foreach(variable GIT_DIR GIT_WORK_TREE GIT_INDEX_FILE)
  unset(ENV{${variable}})
endforeach()
set(ENV{GIT_OPTIONAL_LOCKS} 0)

set(commit "")
# Sources without a repository of their own may be within that of somebody else.
git(rev-parse --show-cdup)
if(NOT failed AND output STREQUAL "")
  git(rev-parse --short=7 HEAD)
  if(NOT failed)
    set(commit ${output})
    git(status --porcelain --untracked-files=no)
    if(NOT output STREQUAL "")
      string(APPEND commit "+")
    endif()
    set(commit " (${commit})")
  endif()
endif()
# A header that stays the same keeps its time.
file(CONFIGURE OUTPUT ${HEADER} CONTENT "#define TAVO_COMMIT \"${commit}\"\n")
