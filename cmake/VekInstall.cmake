# What `cmake --install` installs: the libraries, the public headers, the packages for find_package(vek) and pkg-config,
# and the programs with the examples. The programs are the component "program", all else is "development".
include(CMakePackageConfigHelpers)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/vek)
get_property(installed GLOBAL PROPERTY VEK_INSTALLED)
install(TARGETS ${installed} EXPORT vek ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT vek NAMESPACE vek:: FILE vekTargets.cmake DESTINATION ${package})
install(DIRECTORY include/vek DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
configure_package_config_file(cmake/vekConfig.cmake.in ${CMAKE_BINARY_DIR}/vekConfig.cmake
                              INSTALL_DESTINATION ${package})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/vekConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/vekConfig.cmake ${CMAKE_BINARY_DIR}/vekConfigVersion.cmake DESTINATION ${package})

# vek_pkg_config(name description requires flags libraries): all paths start at the file, so the folder may be moved.
function(vek_pkg_config name description requires flags libraries)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
             BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE up)
  configure_file(cmake/vek.pc.in ${CMAKE_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
set(flags "")
set(libraries " -lvek")
if(MINGW)
  set(toolkit "\${includedir}/vek-toolkit")
  set(flags " -I${toolkit} -I${toolkit}/seams -DVEK_SHARED -DUNICODE -D_UNICODE")
  set(libraries " -lVek_2018_20_64_Mfc -lvek_toolkit -lcomctl32")
endif()
vek_pkg_config(vek "${PROJECT_DESCRIPTION}" "" "${flags}" "${libraries}")
vek_pkg_config(vek-json "Data trees of VEK as JSON" "Requires: vek = ${PROJECT_VERSION}\n" "" " -lvek_json")

# Read by Visual Studio, and by Visual Studio Code also for gdb.
install(FILES src/module/vek.natvis DESTINATION ${CMAKE_INSTALL_DATADIR}/vek)

# On Windows the examples are beside the gallery, which expects them there.
set(examples ${CMAKE_INSTALL_DATADIR}/doc/vek/examples)
if(WIN32)
  set(examples ${CMAKE_INSTALL_BINDIR}/examples)
endif()
file(GLOB files CONFIGURE_DEPENDS examples/*.sl[bd] examples/*.json)
list(FILTER files EXCLUDE REGEX "/texts\\.json$")
install(FILES ${files} examples/first_picture.cpp DESTINATION ${examples} COMPONENT program)
install(DIRECTORY examples/patterns examples/pictures examples/sheets DESTINATION ${examples} COMPONENT program
        PATTERN "*.cpp" EXCLUDE)
install(FILES examples/texts.json DESTINATION ${CMAKE_INSTALL_DATADIR}/vek COMPONENT program)

vek_bill_of_materials(${CMAKE_BINARY_DIR}/vek.cdx.json)
vek_notices(${CMAKE_BINARY_DIR}/copyright)
foreach(part IN ITEMS program:vek development:libvek-dev)
  string(REGEX MATCH "(.*):(.*)" unused ${part})
  if(CMAKE_MATCH_1 STREQUAL program OR NOT WIN32) # one package on Windows, two on Debian
    install(FILES ${CMAKE_BINARY_DIR}/copyright ${CMAKE_BINARY_DIR}/vek.cdx.json
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CMAKE_MATCH_2} COMPONENT ${CMAKE_MATCH_1})
  endif()
endforeach()
