# The target "reference": the reference of the public headers, in reference/html of the build folder.
find_package(Doxygen)
if(DOXYGEN_FOUND)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  configure_file(cmake/Doxyfile.in ${CMAKE_BINARY_DIR}/Doxyfile @ONLY)
  set(VEK_WRITE_REFERENCE ${Python3_EXECUTABLE} -B ${CMAKE_SOURCE_DIR}/cmake/reference.py
      ${CMAKE_SOURCE_DIR}/include ${CMAKE_BINARY_DIR} ${DOXYGEN_EXECUTABLE})
  add_custom_target(reference COMMAND ${VEK_WRITE_REFERENCE} VERBATIM)
endif()
