# Compiles the help file into the program's folder.
find_program(CHMCMD chmcmd REQUIRED)

file(GLOB help_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/help/*)
set(help_file ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/OVENU.chm)
add_custom_command(OUTPUT ${help_file}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
  COMMAND ${CMAKE_COMMAND} -DCHMCMD=${CHMCMD} -DSOURCE=${CMAKE_SOURCE_DIR}/help -DOUTPUT=${help_file}
          -DWORK=${CMAKE_BINARY_DIR}/help -P ${CMAKE_SOURCE_DIR}/cmake/BuildHelp.cmake
  DEPENDS ${help_sources} ${CMAKE_SOURCE_DIR}/cmake/BuildHelp.cmake
  COMMENT "Help OVENU.chm" VERBATIM)
add_custom_target(nesk_help ALL DEPENDS ${help_file})
