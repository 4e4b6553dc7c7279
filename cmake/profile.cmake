# Builds the release by a profile: the sources are compiled twice, first so that they count how often
# each branch is taken while the examples are converted, then by these counts. That takes up to a tenth
# off the time of a conversion (docs/performance.md). GCC drops the counts of a function that has changed
# since, so the profile is made by the build and not kept in the repository.

# Compiles `target`, the object library of the folder that calls this, by the profile, which is made
# before.
function(build_by_profile target)
  get_target_property(sources ${target} SOURCES)
  set(counting ${target}_counting)
  add_library(${counting} OBJECT ${sources})
  target_include_directories(${counting} PUBLIC $<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>)
  target_compile_definitions(${counting} PRIVATE $<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>)
  target_compile_options(${counting} PRIVATE -fprofile-generate)

  # A host of each library.
  set(host ${PROJECT_SOURCE_DIR}/tools/host/main.c)
  set(objects $<TARGET_OBJECTS:${counting}>)
  add_executable(${counting}_strict ${host} ${objects})
  add_executable(${counting}_wide ${host} conversion/wide.cpp
    $<FILTER:${objects},EXCLUDE,/conversion/strict>)
  foreach(trained ${counting}_strict ${counting}_wide)
    target_include_directories(${trained}
      PRIVATE $<TARGET_PROPERTY:${target},INTERFACE_INCLUDE_DIRECTORIES>)
    target_link_options(${trained} PRIVATE -fprofile-generate)
    set_target_properties(${trained} PROPERTIES LINKER_LANGUAGE CXX RUNTIME_OUTPUT_DIRECTORY training)
  endforeach()

  set(training ${PROJECT_SOURCE_DIR}/cmake/train.cmake)
  set(descriptions ${PROJECT_SOURCE_DIR}/examples/engine.a2l ${PROJECT_SOURCE_DIR}/examples/modern.a2l)
  add_custom_command(OUTPUT ${target}.profile
    COMMAND ${CMAKE_COMMAND}
      -D STRICT=$<TARGET_FILE:${counting}_strict> -D WIDE=$<TARGET_FILE:${counting}_wide>
      -D "DESCRIPTIONS=${descriptions}"
      -D COUNTING=${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${counting}.dir
      -D TARGET=${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}.dir
      -D STAMP=${CMAKE_CURRENT_BINARY_DIR}/${target}.profile
      -P ${training}
    DEPENDS ${counting}_strict ${counting}_wide ${training} ${descriptions}
    COMMENT "Counting what conversions of the examples run"
    VERBATIM)
  add_custom_target(${target}_profile DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/${target}.profile)
  add_dependencies(${target} ${target}_profile)
  # What the examples don't run is built as without a profile. Counts that don't fit together, as those
  # of a function that was inlined here and there, are corrected rather than warned of.
  # By the counts, GCC 12 sinks the store of a reference count into the rarer branch on the way out of an
  # exception, and a block is lost; hence no sinking.
  target_compile_options(${target} PRIVATE
    -fprofile-use -fprofile-partial-training -fprofile-correction -Wno-missing-profile -fno-tree-sink)
endfunction()
