# What a user of the machine gets besides the library, and the Debian packages of all of it.

# The program with its manual.
if(TAVO_PROGRAM)
  install(TARGETS tavo-program COMPONENT tavo)
  install(FILES tools/tavo/tavo.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tavo)
  install(FILES tools/tavo/completion/tavo.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME tavo
    COMPONENT tavo)
  install(FILES tools/tavo/completion/_tavo
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT tavo)
endif()

# The pages for users, once for those of the program and once for those of the library. What the
# README has for developers of tavo leads to pages that stay in the sources.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS README.md)
file(READ README.md readme)
string(REGEX REPLACE "\n## For developers\n.*" "" readme "${readme}")
file(WRITE ${PROJECT_BINARY_DIR}/installed/README.md "${readme}")
foreach(component IN ITEMS tavo libtavo-dev)
  install(FILES ${PROJECT_BINARY_DIR}/installed/README.md CHANGELOG.md SECURITY.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT ${component})
  install(
    FILES docs/dialect-strict.md docs/dialect-wide.md docs/output-format.md docs/embedding.md
      docs/csharp.md docs/many-files.md docs/page.md docs/performance.md docs/reliability.md
      docs/listing.schema.json docs/differences.schema.json docs/check.schema.json
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT ${component})
  install(FILES python/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/python COMPONENT ${component})
  install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT ${component})
endforeach()

# script/package makes the packages: one for each component, of the same name.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL libtavo-dev)
set(CPACK_PACKAGE_NAME tavo)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian.cmake)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # Each package has its own.
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The tavo maintainers <maintainers@tavo.invalid>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(synopsis "data-acquisition configurations from ECU descriptions")
set(about
"the description of an electronic control unit (.a2l) and write what can be
measured with it: the measuring interfaces, their sampling sources and all
quantities.")

# CPack calls ldconfig in maintainer scripts, but Debian wants it to be triggered.
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
get_property(libraries GLOBAL PROPERTY TAVO_HOST_LIBRARIES)
foreach(library IN LISTS libraries)
  set(package lib${library}${PROJECT_VERSION_MAJOR})
  list(APPEND CPACK_COMPONENTS_ALL ${package})
  list(APPEND CPACK_COMPONENT_LIBTAVO-DEV_DEPENDS ${package})
  string(TOUPPER ${package} component)
  set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${component}_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_${component}_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
  set(CPACK_DEBIAN_${component}_DESCRIPTION
    "${synopsis} (library)\nFunctions with a C interface that read\n${about}")
endforeach()

set(CPACK_DEBIAN_LIBTAVO-DEV_PACKAGE_NAME libtavo-dev)
set(CPACK_DEBIAN_LIBTAVO-DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_LIBTAVO-DEV_DESCRIPTION
  "${synopsis} (headers)\nWhat it takes to build programs with functions that read\n${about}")

if(TAVO_PROGRAM)
  list(APPEND CPACK_COMPONENTS_ALL tavo)
  set(CPACK_DEBIAN_TAVO_PACKAGE_NAME tavo)
  set(CPACK_DEBIAN_TAVO_PACKAGE_SECTION science)
  set(CPACK_DEBIAN_TAVO_DESCRIPTION
    "${synopsis}\nCommands that read\n${about}")
endif()
include(CPack)
