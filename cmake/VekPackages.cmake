# Header-only libraries that only some targets use. Debian keeps them in /usr/include, which a compiler for Windows must
# never search as a whole, so each gets its own include folder with a link to it.
include(cmake/VekContents.cmake)
function(vek_header_library name header)
  find_path(VEK_${name}_DIR ${header} NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  cmake_path(GET header PARENT_PATH folder)
  set(include ${CMAKE_BINARY_DIR}/headers/${name})
  file(MAKE_DIRECTORY ${include})
  file(CREATE_LINK ${VEK_${name}_DIR}/${folder} ${include}/${folder} COPY_ON_ERROR SYMBOLIC)
  add_library(vek_${name} INTERFACE)
  target_include_directories(vek_${name} SYSTEM INTERFACE $<BUILD_INTERFACE:${include}>)
endfunction()

# The versions are those of the headers that are compiled in.
vek_header_library(nlohmann nlohmann/json.hpp)
vek_contains(nlohmann-json LICENSE MIT PACKAGE nlohmann-json3-dev SITE https://github.com/nlohmann/json
             PURPOSE "JSON files: vek::json and the programs"
             HEADER ${VEK_nlohmann_DIR}/nlohmann/json.hpp "version ([0-9.]+)")
vek_header_library(cli11 CLI/CLI.hpp)
vek_contains(CLI11 LICENSE BSD-3-Clause PACKAGE libcli11-dev SITE https://github.com/CLIUtils/CLI11
             PURPOSE "Command lines of the programs"
             HEADER ${VEK_cli11_DIR}/CLI/Version.hpp "CLI11_VERSION \"([0-9.]+)\"")
vek_header_library(stb stb/stb_image.h)
foreach(part IN ITEMS stb_image stb_image_write)
  vek_contains(${part} LICENSE "MIT OR Unlicense" PACKAGE libstb-dev SITE https://github.com/nothings/stb
               PURPOSE "PNG files: the library"
               HEADER ${VEK_stb_DIR}/stb/${part}.h "${part} - v([0-9.]+)")
endforeach()
if(MINGW) # linked statically
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -v ERROR_VARIABLE about COMMAND_ERROR_IS_FATAL ANY)
  foreach(part IN ITEMS libstdc++ libgcc)
    vek_contains(${part} LICENSE "GPL-3.0-or-later WITH GCC-exception-3.1" PACKAGE gcc-mingw-w64-base
                 SITE https://gcc.gnu.org PURPOSE "The compiler's runtime: DLLs and programs"
                 TEXT "${about}" "gcc version ([0-9.]+)")
  endforeach()
  find_path(VEK_mingw_DIR _mingw_mac.h PATHS ${CMAKE_FIND_ROOT_PATH}/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  foreach(part "mingw-w64-crt|ZPL-2.1" "winpthreads|MIT AND BSD-3-Clause")
    string(REGEX MATCH "(.*)\\|(.*)" unused ${part})
    vek_contains(${CMAKE_MATCH_1} LICENSE ${CMAKE_MATCH_2} PACKAGE mingw-w64-common SITE https://www.mingw-w64.org
                 PURPOSE "The compiler's runtime: DLLs and programs"
                 HEADER ${VEK_mingw_DIR}/_mingw_mac.h "VERSION_MAJOR ([0-9]+).*VERSION_MINOR ([0-9]+)")
  endforeach()
endif()
