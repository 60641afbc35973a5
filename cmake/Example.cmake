# Builds the complete example station. The program copies it for the user, who needs neither Python nor a compiler.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

add_executable(ImportSettings example/ImportSettings.cpp)
target_link_libraries(ImportSettings PRIVATE nesk_platform)
nesk_warnings(ImportSettings)

# The station is in the program's folder, where the program looks first.
set(example_station ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/example-station)
set(example_maker ${CMAKE_SOURCE_DIR}/example/make_station.py)
add_custom_command(OUTPUT ${example_station}/registry.db
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${example_station}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${example_station}
  COMMAND ${Python3_EXECUTABLE} ${example_maker} ${example_station}
  COMMAND ImportSettings ${example_station}
  COMMAND ${CMAKE_COMMAND} -E rm ${example_station}/registry.txt
  DEPENDS ${example_maker} ImportSettings
  COMMENT "Example station" VERBATIM)
add_custom_target(nesk_example ALL DEPENDS ${example_station}/registry.db)
if(NESK_UI)
  add_dependencies(NeskManager nesk_example)
endif()
