# Run by CPack on the staged tree: what Debian wants beside the files that all installations have.

set(shared ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(documents ${shared}/doc/tavo)

file(RENAME ${shared}/zsh/site-functions ${shared}/zsh/vendor-completions)
file(WRITE ${documents}/copyright
  "Copyright (C) the authors of tavo. The package brings no licence text of its own.\n")

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${documents}/changelog
  "tavo (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * See CHANGELOG.md in this folder.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}
")
execute_process(
  COMMAND gzip -9n ${documents}/changelog ${shared}/man/man1/tavo.1
  COMMAND_ERROR_IS_FATAL ANY)
