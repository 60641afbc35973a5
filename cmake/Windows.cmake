# What only a Windows build has: definitions, static linking, the program's resources.

# Windows 7 is the oldest system served; the wide interface of the system is meant where none is named.
set(NESK_WINDOWS_DEFINITIONS WINVER=0x0601 _WIN32_WINNT=0x0601 UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)

if(MINGW)
  # One file to install: no libraries of the compiler beside the program.
  add_link_options(-static)
  # Address space layout randomisation with all the room there is, and no execution of data.
  add_link_options(-Wl,--dynamicbase -Wl,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(-Wl,--high-entropy-va)
  else()
    # Every x86-64 processor has SSE2; for 32 bits the compiler must be told. Windows keeps the stack at multiples of 4
    # bytes only, so with these options GCC aligns it again in each function that needs 16. The installer refuses a
    # processor without SSE2.
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-msse2;-mfpmath=sse>")
  endif()
endif()

# Icon, manifest and version of a program.
function(nesk_windows_program target)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/NeskManager.rc.in ${CMAKE_BINARY_DIR}/NeskManager.rc @ONLY)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/NeskManager.manifest.in
    ${CMAKE_BINARY_DIR}/NeskManager.manifest @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_BINARY_DIR}/NeskManager.rc)
  set_source_files_properties(${CMAKE_BINARY_DIR}/NeskManager.rc PROPERTIES OBJECT_DEPENDS
    "${CMAKE_BINARY_DIR}/NeskManager.manifest;${CMAKE_SOURCE_DIR}/packaging/windows/NeskManager.ico")
  # The toolkit's resource file is taken along for its pointers.
  target_include_directories(${target} PRIVATE ${NESK_TOOLKIT}/include)
  set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
endfunction()
