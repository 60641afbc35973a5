# Lists the installed files and defines the packages.
#
# The program looks for its language libraries and its help file in its own folder, so all are installed there.

set(program_files ${text_outputs} ${help_file})
find_package(Python3 REQUIRED COMPONENTS Interpreter)

# install_notices(FOLDER KIND SOURCE): installs the output of packaging/notices.py. The notices are written during
# installation, because a build alone needs no licence texts.
function(install_notices folder kind source)
  install(CODE "
    set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}\")
    file(MAKE_DIRECTORY \"\${folder}\")
    execute_process(COMMAND \"${Python3_EXECUTABLE}\" \"${CMAKE_SOURCE_DIR}/packaging/notices.py\" ${kind}
      \"${source}\" \"\${folder}/THIRD-PARTY-NOTICES.txt\" COMMAND_ERROR_IS_FATAL ANY)" COMPONENT program)
endfunction()

if(WIN32)
  install(TARGETS NeskManager RUNTIME DESTINATION . COMPONENT program)
  install(FILES ${program_files} DESTINATION . COMPONENT program)
  install(FILES LICENSE DESTINATION . RENAME LICENSE.txt COMPONENT program)
  install_notices(. windows ${NESK_TOOLKIT})
else()
  include(GNUInstallDirs)
  set(program_folder ${CMAKE_INSTALL_LIBDIR}/neskmanager)
  install(TARGETS NeskManager RUNTIME DESTINATION ${program_folder} COMPONENT program)
  install(FILES ${program_files} DESTINATION ${program_folder} COMPONENT program)
  # The link is relative, so that it also works when the tree is installed under another root folder.
  install(CODE "
    file(MAKE_DIRECTORY \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR})
    file(CREATE_LINK ../${program_folder}/NeskManager
      \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/neskmanager SYMBOLIC)" COMPONENT program)
  install(DIRECTORY ${example_station}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/neskmanager/example COMPONENT program)
  install(FILES packaging/linux/neskmanager.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT program)
  install(FILES packaging/NeskManager.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
    RENAME neskmanager.svg COMPONENT program)
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/neskmanager RENAME copyright COMPONENT program)
  install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/neskmanager COMPONENT program)
  install_notices(${CMAKE_INSTALL_DATADIR}/doc/neskmanager debian $<TARGET_FILE:NeskManager>)
endif()

if(WIN32)
  # ./package makes the installer and the archive from the installed files.
  return()
endif()
set(CPACK_PACKAGE_NAME neskmanager)
set(CPACK_PACKAGE_VENDOR "the NeskManager developers")
set(CPACK_PACKAGE_CONTACT "the NeskManager developers <neskmanager@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Supervisor's editor for the Vorlan operator interface")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL program)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xchm, fonts-dejavu-core, adwaita-icon-theme, librsvg2-common")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Builds and maintains the tree of menus from which operators of coordinate\nmeasuring machines start their programs, and sets the interface's options.")
include(CPack)
