# Settings for Windows builds only: definitions, static linking, the program's resources.

# Windows 7 is the oldest supported system. UNICODE selects the wide system functions where the code names no variant.
set(NESK_WINDOWS_DEFINITIONS WINVER=0x0601 _WIN32_WINNT=0x0601 UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)

if(MINGW)
  # Link statically, so that no compiler libraries must be installed with the program.
  add_link_options(-static)
  # Enable address space layout randomisation over the full address space, and forbid the execution of data.
  add_link_options(-Wl,--dynamicbase -Wl,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(-Wl,--high-entropy-va)
  else()
    # Every x86-64 processor has SSE2; in a 32-bit build it must be enabled. Windows aligns the stack to 4 bytes only,
    # so with these options GCC realigns it in each function that needs 16 bytes. The installer refuses a processor
    # without SSE2.
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-msse2;-mfpmath=sse>")
  endif()
endif()

# Adds the icon, the manifest and the version to a program.
function(nesk_windows_program target)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/NeskManager.rc.in ${CMAKE_BINARY_DIR}/NeskManager.rc @ONLY)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/NeskManager.manifest.in
    ${CMAKE_BINARY_DIR}/NeskManager.manifest @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_BINARY_DIR}/NeskManager.rc)
  set_source_files_properties(${CMAKE_BINARY_DIR}/NeskManager.rc PROPERTIES OBJECT_DEPENDS
    "${CMAKE_BINARY_DIR}/NeskManager.manifest;${CMAKE_SOURCE_DIR}/packaging/windows/NeskManager.ico")
  # The program's resource file includes the toolkit's, which contains the mouse pointers.
  target_include_directories(${target} PRIVATE ${NESK_TOOLKIT}/include)
  set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
endfunction()
