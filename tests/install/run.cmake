# Installs the build into a folder of its own, builds the program beside this file against it and runs that.
# BUILD: the build folder; CONFIG: its configuration.
set(work ${BUILD}/install_test)
file(REMOVE_RECURSE ${work})
load_cache(${BUILD} READ_WITH_PREFIX "" CMAKE_GENERATOR CMAKE_MAKE_PROGRAM CMAKE_CXX_COMPILER CMAKE_CXX_FLAGS
           CMAKE_TOOLCHAIN_FILE)
set(options -G ${CMAKE_GENERATOR} -DCMAKE_MAKE_PROGRAM=${CMAKE_MAKE_PROGRAM} -DCMAKE_BUILD_TYPE=${CONFIG}
    -DCMAKE_PREFIX_PATH=${work}/prefix)
if(CMAKE_TOOLCHAIN_FILE)
  list(APPEND options -DCMAKE_TOOLCHAIN_FILE=${CMAKE_TOOLCHAIN_FILE})
else()
  list(APPEND options -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER} "-DCMAKE_CXX_FLAGS=${CMAKE_CXX_FLAGS}")
endif()
foreach(step IN ITEMS
        "--install;${BUILD};--config;${CONFIG};--prefix;${work}/prefix"
        "-S;${CMAKE_CURRENT_LIST_DIR};-B;${work}/build;${options}"
        "--build;${work}/build;--config;${CONFIG}")
  execute_process(COMMAND ${CMAKE_COMMAND} ${step} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${work}/build -C ${CONFIG} --output-on-failure
                --no-tests=error COMMAND_ERROR_IS_FATAL ANY)
