# Builds the language libraries, one a language and block, beside the program.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

file(GLOB text_tables CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/languages/*.txt)
set(text_outputs)
foreach(table ${text_tables})
  cmake_path(GET table STEM name)
  set(library ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}.DLL)
  add_custom_command(OUTPUT ${library}
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_SOURCE_DIR}/languages/build.py ${table} ${library}
    DEPENDS ${table} ${CMAKE_SOURCE_DIR}/languages/build.py
    COMMENT "Texts ${name}" VERBATIM)
  list(APPEND text_outputs ${library})
endforeach()
add_custom_target(nesk_texts ALL DEPENDS ${text_outputs})
