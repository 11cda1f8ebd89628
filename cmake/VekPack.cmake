# What cpack makes: two Debian packages, the programs and what a developer needs, or one archive for Windows that runs
# where it is unpacked.
set(VEK_MAINTAINER "VEK developers <vek@example.org>" CACHE STRING "Maintainer that the Debian packages name")

set(CPACK_PACKAGE_VENDOR "VEK developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each Debian package has its own, the first line of its description
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME vek-${PROJECT_VERSION}-win64)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_GROUPING IGNORE)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${VEK_MAINTAINER}")
  set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME vek)
  set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION graphics)
  set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
  set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "draw slides, projects and hatches of facade and metal CAD
The program vek draws slides, slide libraries, facade projects, display
descriptions and hatch patterns as SVG, EMF or PNG files, lists what such
files contain, and sets texts in the library's stroke font.")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvek-dev)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS vek)
  set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "display library for facade and metal CAD, development files
Static libraries and headers of VEK: a display model with hatches, line types,
picking and output to files, slides, pictures of facade elements, geometry on
true arcs, and a tree of data. With packages for CMake and pkg-config.")
endif()
include(CPack)
