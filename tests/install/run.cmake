# Packs the build, unpacks it into a folder whose name has blanks and umlauts, builds and runs the programs beside this
# file against that, and looks at the rest of the package.
# BUILD: the build folder; CONFIG: its configuration; COMPILER, PYTHON: programs.
set(work ${BUILD}/install_test)
set(prefix "${work}/Fassade für Größe")
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${prefix})
load_cache(${BUILD} READ_WITH_PREFIX "" CMAKE_GENERATOR CMAKE_MAKE_PROGRAM CMAKE_CXX_COMPILER CMAKE_CXX_FLAGS
           CMAKE_TOOLCHAIN_FILE)
function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${prefix} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# With sanitizers the files are large: the libraries are only installed, and the programs' dependencies not searched.
run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -B ${work} -C ${CONFIG} -D CPACK_COMPONENTS_ALL=program
    -D CPACK_DEBIAN_COMPRESSION_TYPE=zstd -D CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS=OFF)
file(GLOB package ${work}/*.deb ${work}/*.zip)
if(package MATCHES "deb$")
  run(dpkg-deb --extract ${package} ${work}/unpacked)
  run(${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --component development --prefix ${work}/unpacked/usr)
else()
  run(${CMAKE_COMMAND} -E tar xf ${package})
endif()
file(GLOB top ${work}/unpacked/usr ${prefix}/*)
file(RENAME ${top} ${prefix}/vek)

set(options -G ${CMAKE_GENERATOR} -DCMAKE_MAKE_PROGRAM=${CMAKE_MAKE_PROGRAM} -DCMAKE_BUILD_TYPE=${CONFIG}
    -DCMAKE_PREFIX_PATH=${prefix}/vek)
if(CMAKE_TOOLCHAIN_FILE)
  list(APPEND options -DCMAKE_TOOLCHAIN_FILE=${CMAKE_TOOLCHAIN_FILE})
else()
  list(APPEND options -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER} "-DCMAKE_CXX_FLAGS=${CMAKE_CXX_FLAGS}")
endif()
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${work}/build ${options})
run(${CMAKE_COMMAND} --build ${work}/build --config ${CONFIG})
run(${CMAKE_CTEST_COMMAND} --test-dir ${work}/build -C ${CONFIG} --output-on-failure --no-tests=error)
separate_arguments(flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
run(${PYTHON} -B ${CMAKE_CURRENT_LIST_DIR}/package_test.py ${prefix}/vek ${COMPILER} ${flags})
