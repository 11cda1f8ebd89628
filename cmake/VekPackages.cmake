# Header-only libraries that only some targets use. Debian keeps them in /usr/include, which a compiler for Windows must
# never search as a whole, so each gets its own include folder with a link to it.
function(vek_header_library name header)
  find_path(VEK_${name}_DIR ${header} NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  cmake_path(GET header PARENT_PATH folder)
  set(include ${CMAKE_BINARY_DIR}/headers/${name})
  file(MAKE_DIRECTORY ${include})
  file(CREATE_LINK ${VEK_${name}_DIR}/${folder} ${include}/${folder} COPY_ON_ERROR SYMBOLIC)
  add_library(vek_${name} INTERFACE)
  target_include_directories(vek_${name} SYSTEM INTERFACE $<BUILD_INTERFACE:${include}>)
endfunction()

vek_header_library(nlohmann nlohmann/json.hpp)
vek_header_library(cli11 CLI/CLI.hpp)
vek_header_library(stb stb/stb_image.h)
