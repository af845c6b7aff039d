# The install components `module` and `bench`, and the Debian packages that are made of them.

# room_install_documents(COMPONENT): what every Debian package has in its own documents folder.
function(room_install_documents component)
  set(package room-adjustment-${component})
  set(folder ${CMAKE_INSTALL_DATADIR}/doc/${package})
  set(made ${CMAKE_CURRENT_BINARY_DIR}/packages/${component})
  configure_file(${CMAKE_SOURCE_DIR}/cmake/packages/changelog ${made}/changelog.Debian @ONLY)
  room_compress(documents_${component}
    ${made}/changelog.Debian ${made}/changelog.Debian.gz
    ${CMAKE_SOURCE_DIR}/CHANGELOG.md ${made}/changelog.gz)
  install(FILES ${made}/changelog.Debian.gz ${made}/changelog.gz ${CMAKE_SOURCE_DIR}/cmake/packages/copyright
          DESTINATION ${folder} COMPONENT ${component})
  configure_file(${CMAKE_SOURCE_DIR}/cmake/packages/lintian-overrides ${made}/${package} @ONLY)
  install(FILES ${made}/${package} DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${component})
endfunction()

# room_compress(NAME SOURCE RESULT ...): a target that compresses files so that the same content gives the same
# bytes.
function(room_compress name)
  set(results)
  while(ARGN)
    list(POP_FRONT ARGN source result)
    add_custom_command(OUTPUT ${result} DEPENDS ${source} VERBATIM
                       COMMAND gzip --best --no-name --stdout ${source} > ${result})
    list(APPEND results ${result})
  endwhile()
  add_custom_target(${name} ALL DEPENDS ${results})
endfunction()

room_install_documents(module)
room_install_documents(bench)

install(TARGETS roomadjustment2g LIBRARY DESTINATION ${ROOM_INSTALL_MODULES} COMPONENT module)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/host/ DESTINATION ${ROOM_INSTALL_HEADERS}
        COMPONENT module FILES_MATCHING PATTERN "*.h")
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/room-adjustment-module
        COMPONENT module FILES_MATCHING PATTERN "*.md" PATTERN "*.png")

install(TARGETS velmar-bench velmar-controller RUNTIME COMPONENT bench)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/bench/scenarios/ DESTINATION ${ROOM_INSTALL_SCENARIOS}
        COMPONENT bench FILES_MATCHING PATTERN "*.json")
set(desktop ${CMAKE_SOURCE_DIR}/bench/desktop)
install(FILES ${desktop}/velmar-bench.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT bench)
install(FILES ${desktop}/org.velmar.bench.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT bench)
install(FILES ${CMAKE_SOURCE_DIR}/src/resources/svg/velmar_16x16.svg RENAME velmar-bench.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT bench)
set(made ${CMAKE_CURRENT_BINARY_DIR}/packages)
file(MAKE_DIRECTORY ${made}/de)
room_compress(manual_pages
  ${desktop}/velmar-bench.1 ${made}/velmar-bench.1.gz
  ${desktop}/velmar-controller.1 ${made}/velmar-controller.1.gz
  ${desktop}/de/velmar-bench.1 ${made}/de/velmar-bench.1.gz
  ${desktop}/de/velmar-controller.1 ${made}/de/velmar-controller.1.gz)
install(FILES ${made}/velmar-bench.1.gz ${made}/velmar-controller.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT bench)
install(FILES ${made}/de/velmar-bench.1.gz ${made}/de/velmar-controller.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/de/man1 COMPONENT bench)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME room-adjustment)
# Each package has a first line of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_VENDOR "The Room Adjustment developers")
set(CPACK_PACKAGE_CONTACT "The Room Adjustment developers <developers@room-adjustment.invalid>")
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL module bench)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_MODULE_PACKAGE_NAME room-adjustment-module)
set(CPACK_DEBIAN_MODULE_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_MODULE_PACKAGE_SUGGESTS room-adjustment-bench)
set(CPACK_COMPONENT_MODULE_DESCRIPTION
"room adjustment module for an optical tracking front-end
A plug-in that adds the adjustment of the controller's room coordinate system
to the desktop front-end of an optical tracking system.

The room is turned, moved and scaled by numbers with a live view, by assigning
axes to the directions of the room, by matching measured points to known ones,
or by a calibration with an angle tool.

The headers of the interfaces between host and module come with it, and the
guides for users and for those who build a host.")

set(CPACK_DEBIAN_BENCH_PACKAGE_NAME room-adjustment-bench)
set(CPACK_DEBIAN_BENCH_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_BENCH_PACKAGE_DEPENDS "room-adjustment-module (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
# Qt's own texts, such as those of standard buttons.
set(CPACK_DEBIAN_BENCH_PACKAGE_RECOMMENDS qttranslations5-l10n)
set(CPACK_COMPONENT_BENCH_DESCRIPTION
"tracking front-end with a simulated controller
A small front-end for an optical tracking system that loads the room
adjustment module the way a host application does, together with a simulated
tracking controller in the same process or over TCP.

Prepared scenarios, faults and a live list of every question and answer make
it possible to learn, show and test the module without any hardware.")

# Package managers show a description as it stands, on terminals of 80 columns and behind one blank.
string(REPEAT "[^\n]" 80 too_long)
foreach(component MODULE BENCH)
  if(CPACK_COMPONENT_${component}_DESCRIPTION MATCHES "${too_long}")
    message(FATAL_ERROR "The description of the package ${component} has a line that is too long: ${CMAKE_MATCH_0}")
  endif()
endforeach()

include(CPack)
