# The window toolkit: the classes that Visual C++ includes and other compilers for Windows lack, as a DLL, since a
# program and the DLLs that it loads must share the tables that map windows to objects.
# Code that uses it links vek_window; with Visual C++ that is the compiler's own. A program with an application object
# links vek_window_program instead, a DLL vek_window_dll: they add the entry function.
foreach(name IN ITEMS window window_program window_dll)
  add_library(vek_${name} INTERFACE)
  add_library(vek::${name} ALIAS vek_${name})
  set_target_properties(vek_${name} PROPERTIES EXPORT_NAME ${name})
  set_property(GLOBAL APPEND PROPERTY VEK_INSTALLED vek_${name})
endforeach()
target_link_libraries(vek_window_program INTERFACE vek_window)
target_link_libraries(vek_window_dll INTERFACE vek_window)
# <toolkit/user.h>, which exists with every compiler
target_include_directories(vek_window INTERFACE $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/toolkit/seams>
                                                $<INSTALL_INTERFACE:include/vek-toolkit/seams>)
install(DIRECTORY toolkit/seams DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vek-toolkit)
if(MSVC)
  set(CMAKE_MFC_FLAG 2) # the compiler's classes in its own DLL
  target_compile_definitions(vek_window INTERFACE _AFXDLL)
else()
  file(GLOB sources CONFIGURE_DEPENDS toolkit/src/*.cpp toolkit/src/*.h toolkit/include/*.h toolkit/include/toolkit/*.h
       toolkit/seams/toolkit/*.h)
  add_library(vek_toolkit SHARED ${sources} toolkit/entry/dll_runtime.cpp)
  set_target_properties(vek_toolkit PROPERTIES PREFIX "" EXPORT_NAME toolkit RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
  target_compile_features(vek_toolkit PUBLIC cxx_std_20)
  target_compile_definitions(vek_toolkit PUBLIC UNICODE _UNICODE PRIVATE VEK_TOOLKIT_BUILDING)
  target_include_directories(vek_toolkit PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/toolkit/include>
                                                $<INSTALL_INTERFACE:include/vek-toolkit>)
  target_include_directories(vek_toolkit PRIVATE toolkit/seams)
  target_link_libraries(vek_toolkit PUBLIC comctl32 PRIVATE $<BUILD_INTERFACE:vek_options>)
  target_link_options(vek_toolkit PRIVATE -static) # like the programs: no runtime DLLs
  target_link_libraries(vek_window INTERFACE vek_toolkit)
  set_property(GLOBAL APPEND PROPERTY VEK_INSTALLED vek_toolkit)
  foreach(entry IN ITEMS program:program dll:dll dll:dll_runtime)
    string(REGEX MATCH "(.*):(.*)" unused ${entry})
    target_sources(vek_window_${CMAKE_MATCH_1} INTERFACE
                   $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/toolkit/entry/${CMAKE_MATCH_2}.cpp>
                   $<INSTALL_INTERFACE:$<INSTALL_PREFIX>/${CMAKE_INSTALL_INCLUDEDIR}/vek-toolkit/entry/${CMAKE_MATCH_2}.cpp>)
  endforeach()
  install(DIRECTORY toolkit/entry DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vek-toolkit)
  install(DIRECTORY toolkit/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vek-toolkit)
endif()
