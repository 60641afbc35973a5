# Builds the language libraries in the program's folder, one for each language and block of texts.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(languages ${CMAKE_SOURCE_DIR}/languages)
set(text_blocks 32000 33000 34000 35000)
set(text_scripts ${languages}/build.py ${languages}/languages.py ${languages}/pig.py ${languages}/languages.txt
  ${languages}/windows.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${languages}/languages.txt)

# The code and the base of each language that has texts.
file(STRINGS ${languages}/languages.txt text_rows REGEX "^-?[0-9]+ +[A-Z][A-Z][A-Z] ")
set(text_outputs)
foreach(row ${text_rows})
  string(REGEX MATCH "^-?[0-9]+ +([A-Z]+) +([A-Z]+|-)" ignored "${row}")
  set(code ${CMAKE_MATCH_1})
  file(GLOB tables CONFIGURE_DEPENDS ${languages}/${code}/*.txt ${languages}/${CMAKE_MATCH_2}/*.txt)
  set(libraries ${text_blocks})
  list(TRANSFORM libraries REPLACE "(.+)" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${code}\\1.DLL")
  if(WIN32)
    # A library is a module with a string table and no code.
    set(scripts ${text_blocks})
    list(TRANSFORM scripts REPLACE "(.+)" "${CMAKE_BINARY_DIR}/texts/${code}\\1.rc")
    add_custom_command(OUTPUT ${scripts}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/texts ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
      COMMAND ${Python3_EXECUTABLE} ${languages}/build.py --resource-scripts ${code} ${CMAKE_BINARY_DIR}/texts
      DEPENDS ${tables} ${text_scripts}
      COMMENT "Texts ${code}" VERBATIM)
    foreach(script library IN ZIP_LISTS scripts libraries)
      cmake_path(REPLACE_EXTENSION script LAST_ONLY .res OUTPUT_VARIABLE object)
      if(MSVC)
        set(compile /nologo /fo ${object} ${script})
        set(link ${CMAKE_LINKER} /NOLOGO /DLL /NOENTRY /OUT:${library} ${object})
      else()
        set(object ${object}.o)
        set(compile -O coff ${script} ${object})
        set(link ${CMAKE_C_COMPILER} -shared -nostdlib -Wl,--entry=0 -s -o ${library} ${object})
      endif()
      add_custom_command(OUTPUT ${library}
        COMMAND ${CMAKE_RC_COMPILER} ${compile}
        COMMAND ${link}
        DEPENDS ${script} VERBATIM)
    endforeach()
  else()
    add_custom_command(OUTPUT ${libraries}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
      COMMAND ${Python3_EXECUTABLE} ${languages}/build.py ${code} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
      DEPENDS ${tables} ${text_scripts}
      COMMENT "Texts ${code}" VERBATIM)
  endif()
  list(APPEND text_outputs ${libraries})
endforeach()

# The translations are compared with the English texts.
file(GLOB all_tables CONFIGURE_DEPENDS ${languages}/*/*.txt)
set(texts_checked ${CMAKE_BINARY_DIR}/texts-checked)
add_custom_command(OUTPUT ${texts_checked}
  COMMAND ${Python3_EXECUTABLE} ${languages}/check.py
  COMMAND ${CMAKE_COMMAND} -E touch ${texts_checked}
  DEPENDS ${all_tables} ${text_scripts} ${languages}/check.py
  COMMENT "Checking the texts" VERBATIM)
add_custom_target(nesk_texts ALL DEPENDS ${text_outputs} ${texts_checked})

# The same languages in the program.
set(generated ${CMAKE_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${generated})
execute_process(COMMAND ${Python3_EXECUTABLE} ${languages}/build.py --rows ${generated}/LanguageRows.inc
  COMMAND_ERROR_IS_FATAL ANY)
target_include_directories(nesk_platform PRIVATE ${generated})
