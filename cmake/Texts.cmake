# Builds the language libraries in the program's folder, one for each language and block of texts.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

file(GLOB text_tables CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/languages/*.txt)
set(text_outputs)
foreach(table ${text_tables})
  cmake_path(GET table STEM name)
  set(library ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}.DLL)
  set(builder ${CMAKE_SOURCE_DIR}/languages/build.py)
  if(WIN32)
    # The library is a module with a string table and no code.
    set(script ${CMAKE_BINARY_DIR}/texts/${name}.rc)
    if(MSVC)
      set(object ${CMAKE_BINARY_DIR}/texts/${name}.res)
      set(compile /nologo /fo ${object} ${script})
      set(link ${CMAKE_LINKER} /NOLOGO /DLL /NOENTRY /OUT:${library} ${object})
    else()
      set(object ${CMAKE_BINARY_DIR}/texts/${name}.res.o)
      set(compile -O coff ${script} ${object})
      set(link ${CMAKE_C_COMPILER} -shared -nostdlib -Wl,--entry=0 -s -o ${library} ${object})
    endif()
    add_custom_command(OUTPUT ${library}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/texts ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
      COMMAND ${Python3_EXECUTABLE} ${builder} --resource-script ${table} ${script}
      COMMAND ${CMAKE_RC_COMPILER} ${compile}
      COMMAND ${link}
      DEPENDS ${table} ${builder}
      COMMENT "Texts ${name}" VERBATIM)
  else()
    add_custom_command(OUTPUT ${library}
      COMMAND ${Python3_EXECUTABLE} ${builder} ${table} ${library}
      DEPENDS ${table} ${builder}
      COMMENT "Texts ${name}" VERBATIM)
  endif()
  list(APPEND text_outputs ${library})
endforeach()
add_custom_target(nesk_texts ALL DEPENDS ${text_outputs})
