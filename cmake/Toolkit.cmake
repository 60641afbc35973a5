# Defines nesk_toolkit, one target for all of wxWidgets.
add_library(nesk_toolkit INTERFACE)
if(WIN32)
  # The static build installs a CMake package that lists all system libraries it needs.
  find_package(wxWidgets 3.2 REQUIRED CONFIG)
  target_link_libraries(nesk_toolkit INTERFACE wx::html wx::core wx::base)
else()
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS html core base)
  target_include_directories(nesk_toolkit SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
  target_compile_definitions(nesk_toolkit INTERFACE ${wxWidgets_DEFINITIONS})
  target_compile_options(nesk_toolkit INTERFACE ${wxWidgets_CXX_FLAGS})
  target_link_libraries(nesk_toolkit INTERFACE ${wxWidgets_LIBRARIES})
  # GTK's print dialog, which can be used without printing.
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(GTK_PRINT REQUIRED IMPORTED_TARGET gtk+-unix-print-3.0)
  target_link_libraries(nesk_toolkit INTERFACE PkgConfig::GTK_PRINT)
endif()
