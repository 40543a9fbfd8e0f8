include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# The installed library: every layer and the headless host, not the test doubles
# (vexpanel_testing) nor the image-file helpers of the tools (vexpanel_image_files, libpng).
set(vex_installed_modules base platform png model gradient render control pages headless)
if(WIN32)
  list(APPEND vex_installed_modules platform_win32)
else()
  list(APPEND vex_installed_modules platform_soft)
endif()
list(TRANSFORM vex_installed_modules PREPEND vexpanel_ OUTPUT_VARIABLE vex_installed_targets)
install(TARGETS vexpanel ${vex_installed_targets} EXPORT VexPanelTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

# Public headers: the entry headers below and every header they include, transitively, under
# include/vexpanel/ with the same "layer/header.h" paths as inside the repository. Headers that no
# public header reaches stay internal.
set(vex_public_entry_headers
  control/vex_panel.h control/vxp_format.h control/memory_property_bag.h
  headless/headless_surface.h headless/headless_host.h
  pages/property_page.h png/load_png.h gradient/vex_gradiente.h
  base/numeric.h base/runtime_error.h base/ole_color.h
  platform/device_context.h platform/picture.h platform/dib.h)
set(vex_header_paths)
foreach(module IN LISTS vex_installed_modules)
  get_property(prefix GLOBAL PROPERTY VEX_MODULE_PREFIX_${module})
  file(GLOB links LIST_DIRECTORIES false RELATIVE ${PROJECT_BINARY_DIR}/include/${module}/${prefix}
    ${PROJECT_BINARY_DIR}/include/${module}/${prefix}/*.h)
  foreach(link IN LISTS links)
    file(REAL_PATH ${PROJECT_BINARY_DIR}/include/${module}/${prefix}/${link} source)
    set(vex_header_source_${prefix}/${link} ${source})
    list(APPEND vex_header_paths ${prefix}/${link})
  endforeach()
endforeach()
set(vex_public_headers)
set(pending ${vex_public_entry_headers})
while(pending)
  list(POP_FRONT pending header)
  if(header IN_LIST vex_public_headers)
    continue()
  endif()
  if(NOT DEFINED vex_header_source_${header})
    message(FATAL_ERROR "public header ${header} is not a header of an installed layer")
  endif()
  list(APPEND vex_public_headers ${header})
  file(STRINGS ${vex_header_source_${header}} includes REGEX "^#include \"[a-z_0-9/]+\\.h\"")
  foreach(line IN LISTS includes)
    string(REGEX REPLACE "^#include \"([a-z_0-9/]+\\.h)\".*" "\\1" included ${line})
    list(APPEND pending ${included})
  endforeach()
endwhile()
foreach(header IN LISTS vex_public_headers)
  get_filename_component(directory ${header} DIRECTORY)
  install(FILES ${vex_header_source_${header}} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vexpanel/${directory})
endforeach()
install(FILES include/vexpanel/vex_panel.h ${PROJECT_BINARY_DIR}/generated/vexpanel/version.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vexpanel)

# CMake: find_package(VexPanel) and VexPanel::vexpanel.
install(EXPORT VexPanelTargets NAMESPACE VexPanel:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VexPanel)
configure_package_config_file(cmake/VexPanelConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/VexPanelConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VexPanel)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VexPanelConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VexPanelConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/VexPanelConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VexPanel)

# The Qt widget, a component of its own: find_package(VexPanel COMPONENTS Qt) and VexPanel::Qt.
if(TARGET vexpanel_qt)
  install(TARGETS vexpanel_qt EXPORT VexPanelQtTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(FILES hosts/qt/vex_panel_widget.h hosts/qt/pages_dialog.h ${PROJECT_BINARY_DIR}/generated/qt/vex_panel_properties.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vexpanel/qt)
  install(EXPORT VexPanelQtTargets NAMESPACE VexPanel:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VexPanel)
endif()

# pkg-config: the static libraries from the top layer down.
if(NOT WIN32)
  set(vex_pkg_libs)
  foreach(module headless pages control render gradient model png platform_soft platform base)
    if(TARGET vexpanel_${module})
      get_target_property(type vexpanel_${module} TYPE)
      if(type STREQUAL "STATIC_LIBRARY")
        string(APPEND vex_pkg_libs " -lvexpanel_${module}")
      endif()
    endif()
  endforeach()
  file(RELATIVE_PATH vex_pkg_prefix /root/${CMAKE_INSTALL_LIBDIR}/pkgconfig /root)
  configure_file(cmake/vexpanel.pc.in ${PROJECT_BINARY_DIR}/vexpanel.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/vexpanel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()
