# Tests that need a display, which scripts/with-display provides.

nesk_test_sources(gui_sources gui)
add_executable(gui_tests ${gui_sources})
target_link_libraries(gui_tests PRIVATE nesk_ui nesk_test_station GTest::gtest)
nesk_warnings(gui_tests)
nesk_quick_build(gui_tests <gtest/gtest.h> <wx/wx.h> <wx/listctrl.h> <wx/uiaction.h>)
add_dependencies(gui_tests nesk_texts nesk_help)
if(TARGET nesk_example)
  add_dependencies(gui_tests nesk_example)
endif()
if(NESK_SANITIZE)
  # Run all tests in one process: every process checks for leaks at its end, which takes longer than most tests.
  # The windows run the same code in every language, so a few are enough.
  add_test(NAME gui.All COMMAND gui_tests --gtest_brief=1 --gtest_filter=-OtherLanguages/*)
  set_tests_properties(gui.All PROPERTIES LABELS gui TIMEOUT 900 ${nesk_display_lock})
else()
  gtest_discover_tests(gui_tests DISCOVERY_MODE PRE_TEST PROPERTIES LABELS gui TIMEOUT 60 ${nesk_display_lock})
endif()

if(WIN32)
  # Use the program's resources, so that windows look and scale as in the program.
  nesk_windows_program(gui_tests)
  set_target_properties(gui_tests PROPERTIES WIN32_EXECUTABLE OFF)
  return()
endif()

file(GLOB e2e_tests CONFIGURE_DEPENDS e2e/*.sh)
foreach(script ${e2e_tests})
  cmake_path(GET script STEM name)
  # Each test has its own display and mostly waits, so the tests can run in parallel.
  add_test(NAME e2e.${name} COMMAND ${CMAKE_SOURCE_DIR}/scripts/with-display
    bash ${script} $<TARGET_FILE_DIR:NeskManager> ${CMAKE_SOURCE_DIR})
  set_tests_properties(e2e.${name} PROPERTIES LABELS e2e TIMEOUT 180 COST 50)
endforeach()
