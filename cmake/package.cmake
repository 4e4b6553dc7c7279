# What a user installs, and the Debian package of it. Included at the end of the top CMakeLists.txt.

include(CMakePackageConfigHelpers)

if(WIN32)
  set_target_properties(tavo PROPERTIES PREFIX "") # tavo.dll
endif()

# For hosts.
set(tavo_config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/tavo)
install(TARGETS tavo EXPORT tavoTargets)
install(FILES include/tavo/tavo.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tavo)
install(EXPORT tavoTargets NAMESPACE tavo:: DESTINATION ${tavo_config_folder})
configure_package_config_file(cmake/tavoConfig.cmake.in tavoConfig.cmake
  INSTALL_DESTINATION ${tavo_config_folder}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tavoConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(
  FILES ${PROJECT_BINARY_DIR}/tavoConfig.cmake ${PROJECT_BINARY_DIR}/tavoConfigVersion.cmake
  DESTINATION ${tavo_config_folder})

# The paths in tavo.pc are relative to the file, so that the installed tree can be moved.
set(tavo_pc_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH tavo_pc_prefix
  ${CMAKE_INSTALL_PREFIX}/${tavo_pc_folder} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" tavo_pc_prefix ${tavo_pc_prefix})
configure_file(cmake/tavo.pc.in tavo.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tavo.pc DESTINATION ${tavo_pc_folder})

# For people.
if(TAVO_PROGRAM)
  install(TARGETS tavo-program)
  install(FILES tools/tavo/tavo.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES tools/tavo/completion/tavo.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME tavo)
  install(FILES tools/tavo/completion/_tavo
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES docs/embedding.md docs/output-format.md docs/dialect.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})

# One package with all of it; script/package makes it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tavo)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A program, and a library with a C interface, that read the description of an
electronic control unit (.a2l) and write what can be measured with it: the
measuring interfaces, their sampling sources and all quantities.")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The tavo maintainers <maintainers@tavo.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# CPack calls ldconfig in maintainer scripts, but Debian wants it to be triggered.
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
