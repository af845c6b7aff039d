# Where things are installed, below the prefix, and how the installed programs find them.

include(GNUInstallDirs)

set(ROOM_INSTALL_MODULES ${CMAKE_INSTALL_LIBDIR}/room-adjustment)
set(ROOM_INSTALL_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/room-adjustment)
set(ROOM_INSTALL_TRANSLATIONS ${CMAKE_INSTALL_DATADIR}/room-adjustment/translations)
set(ROOM_INSTALL_SCENARIOS ${CMAKE_INSTALL_DATADIR}/room-adjustment-bench/scenarios)

# room_path_from_programs(VARIABLE PLACE): the way from the folder of the installed programs to an installed
# place. A program that looks along it finds its things wherever the whole is moved to.
function(room_path_from_programs variable place)
  cmake_path(ABSOLUTE_PATH place BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} NORMALIZE)
  file(RELATIVE_PATH way ${CMAKE_INSTALL_FULL_BINDIR} ${place})
  set(${variable} ${way} PARENT_SCOPE)
endfunction()
