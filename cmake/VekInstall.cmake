# What `cmake --install` installs: the libraries, the public headers, and the package for find_package(vek).
include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/vek)
get_property(installed GLOBAL PROPERTY VEK_INSTALLED)
install(TARGETS ${installed} EXPORT vek ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT vek NAMESPACE vek:: FILE vekTargets.cmake DESTINATION ${package})
if(WIN32) # beside the gallery, which expects them there
  file(GLOB slides CONFIGURE_DEPENDS examples/*.sl[bd])
  install(FILES ${slides} examples/materials.json DESTINATION ${CMAKE_INSTALL_BINDIR}/examples)
  install(DIRECTORY examples/patterns examples/pictures examples/sheets DESTINATION ${CMAKE_INSTALL_BINDIR}/examples
          PATTERN "*.cpp" EXCLUDE)
endif()
install(FILES examples/texts.json DESTINATION ${CMAKE_INSTALL_DATADIR}/vek)
install(DIRECTORY include/vek DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
configure_package_config_file(cmake/vekConfig.cmake.in ${CMAKE_BINARY_DIR}/vekConfig.cmake
                              INSTALL_DESTINATION ${package})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/vekConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/vekConfig.cmake ${CMAKE_BINARY_DIR}/vekConfigVersion.cmake DESTINATION ${package})
