include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS vexpanel EXPORT VexPanelTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vexpanel)
install(DIRECTORY src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vexpanel
  FILES_MATCHING PATTERN "*.h" PATTERN "win32" EXCLUDE)
install(EXPORT VexPanelTargets NAMESPACE VexPanel:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VexPanel)
configure_package_config_file(cmake/VexPanelConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/VexPanelConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VexPanel)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VexPanelConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VexPanelConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/VexPanelConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VexPanel)
