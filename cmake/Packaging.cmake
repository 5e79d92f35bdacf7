# What is installed, and the Debian package of it.
include(GNUInstallDirs)

set(PACKAGE_MAINTAINER "Zentaline maintainers <maintainers@zentaline.invalid>")
set(PACKAGE_OUT ${CMAKE_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${PACKAGE_OUT})

install(TARGETS zentaline-console zentaline-multisample RUNTIME)
if(TARGET zentaline)
  install(TARGETS zentaline RUNTIME)
endif()

# The program finds them beside the folder that it stands in.
install(DIRECTORY ${CMAKE_BINARY_DIR}/share/zentaline DESTINATION ${CMAKE_INSTALL_DATADIR})

install(FILES packaging/zentaline.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/zentaline.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
        RENAME org.zentaline.Zentaline.metainfo.xml)
install(FILES packaging/zentaline-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME zentaline.xml)
install(FILES packaging/completions/zentaline packaging/completions/zentaline-console
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
foreach(size 16 24 32 48 64 128 256)
  install(FILES packaging/icons/zentaline-${size}.png RENAME zentaline.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES packaging/zentaline.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# made_file(NAME DOCUMENT COMMAND...): a compressed file of the package, made of one of the project's documents.
set(PACKAGE_FILES)
function(made_file name document)
  add_custom_command(
    OUTPUT ${PACKAGE_OUT}/${name}.gz
    COMMAND ${ARGN}
    COMMAND gzip -9nf ${name}
    DEPENDS ${document} packaging/make-man-page packaging/make-changelog CMakeLists.txt
    WORKING_DIRECTORY ${PACKAGE_OUT}
    VERBATIM)
  set(PACKAGE_FILES ${PACKAGE_FILES} ${PACKAGE_OUT}/${name}.gz PARENT_SCOPE)
endfunction()

made_file(changelog ${CMAKE_SOURCE_DIR}/CHANGELOG.md ${CMAKE_SOURCE_DIR}/packaging/make-changelog
          ${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog ${PACKAGE_MAINTAINER})
install(FILES ${PACKAGE_OUT}/changelog.gz packaging/copyright docs/zentaline.png DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zentaline)

find_program(LOWDOWN lowdown)
if(LOWDOWN)
  foreach(page zentaline:desktop zentaline-console:console zentaline-multisample:multisample)
    string(REPLACE ":" ";" page ${page})
    list(GET page 0 program)
    list(GET page 1 document)
    set(document ${CMAKE_SOURCE_DIR}/docs/${document}.md)
    made_file(${program}.1 ${document} ${CMAKE_SOURCE_DIR}/packaging/make-man-page ${document} ${program}.1)
    install(FILES ${PACKAGE_OUT}/${program}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  endforeach()
else()
  message(STATUS "No man pages, since lowdown isn't there")
endif()
add_custom_target(package_files DEPENDS ${PACKAGE_FILES})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zentaline)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${PACKAGE_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor and librarian for KORG i40M, iS35, iS40 and iS50")
set(CPACK_PACKAGE_DESCRIPTION
    "Zentaline keeps the arrangements, styles, programs, global parameters and back
sequences of an arranger keyboard as files, shows and edits them, and plays
them to the instrument over MIDI: value by value while a control moves, and as
whole dumps on request.

The console program does the same without a screen, for scripts.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "hicolor-icon-theme")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
