# A locale with a decimal comma, de_DE.UTF-8 in the folder ROOM_LOCALE_PATH, made for this build: no system needs to
# have it.

set(ROOM_LOCALE_PATH ${CMAKE_BINARY_DIR}/locale)
if(NOT EXISTS ${ROOM_LOCALE_PATH}/de_DE.UTF-8/LC_NUMERIC)
  file(MAKE_DIRECTORY ${ROOM_LOCALE_PATH})
  execute_process(COMMAND localedef -i de_DE -f UTF-8 ${ROOM_LOCALE_PATH}/de_DE.UTF-8
                  OUTPUT_QUIET ERROR_QUIET)
  if(NOT EXISTS ${ROOM_LOCALE_PATH}/de_DE.UTF-8/LC_NUMERIC)
    message(FATAL_ERROR "localedef could not make the locale de_DE.UTF-8 (package locales)")
  endif()
endif()
