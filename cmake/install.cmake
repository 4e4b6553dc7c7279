# What is needed to build with an installed library. The components are the packages of Debian.

include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY TAVO_HOST_LIBRARIES)
foreach(library IN LISTS libraries)
  install(TARGETS ${library} EXPORT tavoTargets
    RUNTIME COMPONENT lib${library}${PROJECT_VERSION_MAJOR}
    LIBRARY COMPONENT lib${library}${PROJECT_VERSION_MAJOR} NAMELINK_COMPONENT libtavo-dev
    ARCHIVE COMPONENT libtavo-dev)
endforeach()
install(FILES include/tavo/tavo.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tavo COMPONENT libtavo-dev)

set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/tavo)
install(EXPORT tavoTargets NAMESPACE tavo::
  DESTINATION ${config_folder} COMPONENT libtavo-dev)
configure_package_config_file(cmake/tavoConfig.cmake.in tavoConfig.cmake
  INSTALL_DESTINATION ${config_folder}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tavoConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(
  FILES ${PROJECT_BINARY_DIR}/tavoConfig.cmake ${PROJECT_BINARY_DIR}/tavoConfigVersion.cmake
  DESTINATION ${config_folder} COMPONENT libtavo-dev)

# The paths in tavo.pc are relative to the file, so that the installed tree can be moved.
set(pc_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH tavo_pc_prefix ${CMAKE_INSTALL_PREFIX}/${pc_folder} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" tavo_pc_prefix ${tavo_pc_prefix})
foreach(library IN LISTS libraries)
  configure_file(cmake/tavo.pc.in ${library}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${library}.pc
    DESTINATION ${pc_folder} COMPONENT libtavo-dev)
endforeach()
