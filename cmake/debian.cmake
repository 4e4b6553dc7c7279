# Run by CPack on the staged trees, one for each package: what Debian requires of a package besides the
# files that all installations have.

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(package IN LISTS CPACK_COMPONENTS_ALL)
  set(shared ${CPACK_TEMPORARY_DIRECTORY}/${package}/usr/share)
  set(documents ${shared}/doc/${package})
  if(EXISTS ${shared}/doc/tavo AND NOT package STREQUAL "tavo")
    file(RENAME ${shared}/doc/tavo ${documents})
  endif()
  if(EXISTS ${shared}/zsh)
    file(RENAME ${shared}/zsh/site-functions ${shared}/zsh/vendor-completions)
  endif()
  file(WRITE ${documents}/copyright
    "Copyright (C) the authors of tavo. The package brings no licence text of its own.\n")
  file(WRITE ${documents}/changelog
    "tavo (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * See CHANGELOG.md in the folder of the package tavo or libtavo-dev.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}
")
  file(GLOB compressed ${documents}/changelog ${shared}/man/man1/*.1)
  execute_process(COMMAND gzip -9n ${compressed} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
