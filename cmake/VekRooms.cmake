# A room is a folder of sources with its own static library vek_<room>, so that a test of a room builds and links only
# that room and the rooms below it. vek_library() combines all rooms into the one library that is installed.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# Compile options for everything here: rooms, tests, programs, benchmarks, fuzz targets. Warnings are errors, and
# products and sums are never fused into one operation, so that every build gives the same coordinates.
add_library(vek_options INTERFACE)
target_compile_features(vek_options INTERFACE cxx_std_20)
if(MSVC)
  target_compile_options(vek_options INTERFACE /W4 /WX /permissive- /utf-8 /Zc:__cplusplus /fp:precise /bigobj)
else()
  target_compile_options(vek_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror -ffp-contract=off)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(vek_options INTERFACE -Wno-restrict) # reports false overlaps in the standard strings
  endif()
endif()
if(WIN32)
  target_compile_definitions(vek_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()

# One row per room: name, folder, main headers, rooms that it may use. check_rooms.py reads the table from rooms.txt in
# the build folder.
set_property(GLOBAL PROPERTY VEK_ROOM_TABLE "")
set_property(GLOBAL PROPERTY VEK_ROOMS "")

# vek_room(name folder [DEPENDS room...] [USES package...] [HEADERS header...] [OUTSIDE]): a room may use only rooms that
# are declared before it. USES names header libraries that only its sources see. HEADERS names its main headers if that
# is not just <vek/name.h>. OUTSIDE keeps the room out of the combined library: it is installed as a separate library,
# vek::<name>, that uses vek::vek.
function(vek_room name folder)
  cmake_parse_arguments(ARG "OUTSIDE" "" "DEPENDS;USES;HEADERS" ${ARGN})
  if(NOT ARG_HEADERS)
    set(ARG_HEADERS ${name})
  endif()
  foreach(lower IN LISTS ARG_DEPENDS)
    if(NOT TARGET vek_${lower})
      message(FATAL_ERROR "Room ${name} leans on ${lower}, which does not stand below it.")
    endif()
  endforeach()
  list(JOIN ARG_HEADERS "," headers)
  list(JOIN ARG_DEPENDS "," depends)
  set_property(GLOBAL APPEND PROPERTY VEK_ROOM_TABLE "${name}|${folder}|${headers}|${depends}")

  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp ${CMAKE_SOURCE_DIR}/${folder}/*.h)
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_win\\.cpp$|/window/")
  endif()
  set(compiled ${sources})
  list(FILTER compiled INCLUDE REGEX "\\.cpp$")
  list(TRANSFORM ARG_DEPENDS REPLACE "(.+)" "$<BUILD_INTERFACE:vek_\\1>")
  list(TRANSFORM ARG_USES REPLACE "(.+)" "$<BUILD_INTERFACE:vek_\\1>")
  if(NOT compiled) # a room without sources yet only passes on its dependencies
    add_library(vek_${name} INTERFACE)
    target_include_directories(vek_${name} INTERFACE ${CMAKE_SOURCE_DIR}/include)
    target_link_libraries(vek_${name} INTERFACE ${ARG_DEPENDS})
    return()
  endif()
  add_library(vek_${name} STATIC ${sources})
  target_compile_features(vek_${name} PUBLIC cxx_std_20)
  target_include_directories(vek_${name} PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include>
                                         PRIVATE ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(vek_${name} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_USES} $<BUILD_INTERFACE:vek_options>)
  if(WIN32) # the library is a DLL there; code that links the room itself must not import the names
    target_compile_definitions(vek_${name} PRIVATE VEK_SHARED VEK_BUILDING)
  endif()
  if(WIN32 AND "${sources}" MATCHES "/window/")
    target_link_libraries(vek_${name} PUBLIC vek_window)
  endif()
  if(ARG_OUTSIDE)
    if(WIN32) # names that the DLL does not export
      target_sources(vek_${name} PRIVATE $<TARGET_OBJECTS:vek_platform>)
    endif()
    target_link_libraries(vek_${name} PUBLIC $<INSTALL_INTERFACE:vek::vek>)
    target_include_directories(vek_${name} PUBLIC $<INSTALL_INTERFACE:include>)
    set_target_properties(vek_${name} PROPERTIES EXPORT_NAME ${name})
    add_library(vek::${name} ALIAS vek_${name})
    set_property(GLOBAL APPEND PROPERTY VEK_INSTALLED vek_${name})
  else()
    set_property(GLOBAL APPEND PROPERTY VEK_ROOMS vek_${name})
  endif()
endfunction()

# Compiles the resources of a target in this folder again when a dialog or an icon changes: the resource compiler does
# not tell what it has included.
function(vek_follow_dialogs)
  file(GLOB dialogs CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/dialogs/res/*
       ${CMAKE_SOURCE_DIR}/src/module/res/icons/*)
  set_property(SOURCE ${CMAKE_SOURCE_DIR}/src/module/vek.rc PROPERTY OBJECT_DEPENDS ${dialogs})
endfunction()

# The installed library: static, on Windows a DLL with the module's resources and entry point. Its name is the one that
# VEK::appFileName gives for the family "Vek" and the module "Mfc".
function(vek_library)
  get_property(rooms GLOBAL PROPERTY VEK_ROOMS)
  list(TRANSFORM rooms REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  set_property(GLOBAL APPEND PROPERTY VEK_ROOM_TABLE "module|src/module|module|pictures,dialogframe")
  if(WIN32)
    enable_language(RC)
    vek_follow_dialogs()
    add_library(vek SHARED ${objects} src/module/window/dial_app.cpp src/module/vek.rc)
    set_target_properties(vek PROPERTIES PREFIX "" OUTPUT_NAME Vek_2018_20_64_Mfc RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
    target_include_directories(vek PRIVATE src)
    target_compile_definitions(vek PRIVATE VEK_BUILDING INTERFACE VEK_SHARED)
    target_link_libraries(vek PUBLIC vek_window PRIVATE $<BUILD_INTERFACE:vek_window_dll> $<BUILD_INTERFACE:vek_options>)
    if(NOT MSVC)
      target_link_options(vek PRIVATE -static) # like the programs: no runtime DLLs
    endif()
  else()
    add_library(vek STATIC ${objects})
  endif()
  add_library(vek::vek ALIAS vek)
  set_target_properties(vek PROPERTIES LINKER_LANGUAGE CXX)
  target_compile_features(vek PUBLIC cxx_std_20)
  target_include_directories(vek PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include> $<INSTALL_INTERFACE:include>)
  set_property(GLOBAL APPEND PROPERTY VEK_INSTALLED vek)
endfunction()

function(vek_room_table)
  get_property(table GLOBAL PROPERTY VEK_ROOM_TABLE)
  list(JOIN table "\n" text)
  file(WRITE ${CMAKE_BINARY_DIR}/rooms.txt "${text}\n")
endfunction()

# vek_programs(): a folder apps/<name> is a program, target <name>_program, that is installed under its folder's name.
# Sources of apps/shared and the text of the patterns belong to all of them. A program whose main.cpp is in
# apps/<name>/window is a GUI program: it is built for Windows only, and uses the library as an outside program does, as
# a DLL.
function(vek_programs)
  file(GLOB mains CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/apps/*/main.cpp)
  get_property(rooms GLOBAL PROPERTY VEK_ROOMS)
  vek_shared_sources(plain_programs shared vek_json ${rooms})
  foreach(main IN LISTS mains)
    vek_program(${main} plain_programs)
    target_link_libraries(${program} PRIVATE vek_json ${rooms})
  endforeach()
  if(WIN32)
    vek_shared_sources(window_programs "shared;shared/window" vek)
    file(GLOB mains CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/apps/*/window/main.cpp)
    foreach(main IN LISTS mains)
      cmake_path(GET main PARENT_PATH folder)
      vek_program(${folder} window_programs)
      file(GLOB windowed CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h ${folder}/*.rc)
      target_sources(${program} PRIVATE ${windowed})
      set_target_properties(${program} PROPERTIES WIN32_EXECUTABLE ON)
      target_sources(${program} PRIVATE $<TARGET_OBJECTS:vek_json>) # the library beside the DLL, without its rooms
      target_link_libraries(${program} PRIVATE vek vek_platform vek_window_program)
    endforeach()
  endif()
endfunction()

# vek_shared_sources(name folders target...): the sources of these folders of apps/, compiled once for the programs that
# use the library by these targets.
function(vek_shared_sources name folders)
  list(TRANSFORM folders REPLACE "(.+)" "${CMAKE_SOURCE_DIR}/apps/\\1/*.cpp")
  file(GLOB sources CONFIGURE_DEPENDS ${folders})
  add_library(${name} OBJECT ${sources} ${CMAKE_BINARY_DIR}/own_patterns.cpp)
  vek_program_settings(${name})
  target_link_libraries(${name} PRIVATE ${ARGN})
endfunction()

function(vek_program_settings target)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/apps)
  target_link_libraries(${target} PRIVATE vek_cli11 vek_nlohmann vek_options)
  if(NOT MSVC) # the templates of the two header libraries take long to optimise, and no program code is time-critical
    target_compile_options(${target} PRIVATE $<IF:$<CONFIG:Debug>,-O0,-O1>)
  endif()
endfunction()

# Common settings of a program, found by the path of something in its folder; `program` receives the target.
function(vek_program path shared)
  cmake_path(GET path PARENT_PATH folder)
  cmake_path(GET folder FILENAME name)
  set(program ${name}_program)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)
  add_executable(${program} ${sources} $<TARGET_OBJECTS:${shared}>)
  set_target_properties(${program} PROPERTIES OUTPUT_NAME ${name} RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
  target_compile_definitions(${program} PRIVATE VEK_VERSION="${PROJECT_VERSION}")
  vek_program_settings(${program})
  install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
  return(PROPAGATE program)
endfunction()

# Programs draw hatches without any external file, so they contain the text of the example patterns.
function(vek_program_patterns file)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(READ ${file} text)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/own_patterns.cpp @ONLY CONTENT
       "#include <string_view>\n\nextern const std::string_view ownPatterns;\nconst std::string_view ownPatterns = R\"pat(@text@)pat\";\n")
endfunction()
